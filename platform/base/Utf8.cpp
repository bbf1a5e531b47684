// UTF-8 conversion of UTF-16 text through ICU.
#include "platform/CodePage.h"

#include <unicode/ustring.h>

namespace platform {

std::string ToUtf8(std::u16string_view text) {
    if (text.empty())
        return {};
    std::string out(text.size() * 3, '\0');
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strToUTF8WithSub(out.data(), static_cast<int32_t>(out.size()), &length,
                       reinterpret_cast<const UChar*>(text.data()),
                       static_cast<int32_t>(text.size()), 0xFFFD, nullptr, &status);
    out.resize(U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
    return out;
}

CString FromUtf8(std::string_view text) {
    if (text.empty())
        return CString();
    std::u16string out(text.size(), u'\0');
    int32_t length = 0;
    UErrorCode status = U_ZERO_ERROR;
    u_strFromUTF8WithSub(reinterpret_cast<UChar*>(out.data()), static_cast<int32_t>(out.size()),
                         &length, text.data(), static_cast<int32_t>(text.size()), 0xFFFD, nullptr,
                         &status);
    out.resize(U_SUCCESS(status) ? static_cast<std::size_t>(length) : 0);
    return CString(std::u16string_view(out));
}

} // namespace platform
