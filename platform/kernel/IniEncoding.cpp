#include "kernel/IniEncoding.h"

#include "atlstr.h"
#include "platform/CodePage.h"
#include "winbase.h"

#include <unicode/ustring.h>

#include <climits>

namespace platform::ini {

namespace {

constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Bom = "\xFF\xFE";

bool IsValidUtf8(std::string_view bytes) {
    if (bytes.size() > static_cast<std::size_t>(INT32_MAX))
        return false;
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    u_strFromUTF8(nullptr, 0, &length, bytes.data(), static_cast<int32_t>(bytes.size()), &status);
    return status == U_BUFFER_OVERFLOW_ERROR || U_SUCCESS(status);
}

std::u16string AnsiToText(std::string_view bytes) {
    if (bytes.empty() || bytes.size() > static_cast<std::size_t>(INT_MAX / 2))
        return {};
    const int srcLen = static_cast<int>(bytes.size());
    std::u16string out(bytes.size(), u'\0');
    const int n = MultiByteToWideChar(CP_ACP, 0, bytes.data(), srcLen, out.data(),
                                      static_cast<int>(out.size()));
    out.resize(static_cast<std::size_t>(n > 0 ? n : 0));
    return out;
}

std::string TextToAnsi(std::u16string_view text) {
    if (text.empty() || text.size() > static_cast<std::size_t>(INT_MAX / 4))
        return {};
    const int srcLen = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(CP_ACP, 0, text.data(), srcLen, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(size > 0 ? size : 0), '\0');
    const int n =
        WideCharToMultiByte(CP_ACP, 0, text.data(), srcLen, out.data(), size, nullptr, nullptr);
    out.resize(static_cast<std::size_t>(n > 0 ? n : 0));
    return out;
}

} // namespace

Encoding DetectEncoding(std::string_view bytes) {
    if (bytes.starts_with(kUtf16Bom))
        return Encoding::Utf16Le;
    if (bytes.starts_with(kUtf8Bom))
        return Encoding::Utf8Bom;
    return IsValidUtf8(bytes) ? Encoding::Utf8 : Encoding::Ansi;
}

std::u16string Decode(std::string_view bytes, Encoding encoding) {
    switch (encoding) {
    case Encoding::Utf16Le: {
        bytes.remove_prefix(kUtf16Bom.size());
        std::u16string out(bytes.size() / 2, u'\0');
        for (std::size_t i = 0; i < out.size(); ++i)
            out[i] = static_cast<char16_t>(static_cast<unsigned char>(bytes[2 * i]) |
                                           static_cast<unsigned char>(bytes[2 * i + 1]) << 8);
        return out;
    }
    case Encoding::Utf8Bom:
        bytes.remove_prefix(kUtf8Bom.size());
        [[fallthrough]];
    case Encoding::Utf8:
        return FromUtf8(bytes).Str();
    case Encoding::Ansi:
        return AnsiToText(bytes);
    }
    return {};
}

std::string Encode(std::u16string_view text, Encoding& encoding) {
    if (text.empty() && encoding != Encoding::Utf16Le && encoding != Encoding::Utf8Bom)
        return {};
    switch (encoding) {
    case Encoding::Utf16Le: {
        std::string out(kUtf16Bom);
        out.reserve(out.size() + text.size() * 2);
        for (char16_t ch : text) {
            out.push_back(static_cast<char>(ch & 0xFF));
            out.push_back(static_cast<char>(ch >> 8));
        }
        return out;
    }
    case Encoding::Utf8Bom:
        return std::string(kUtf8Bom) + ToUtf8(text);
    case Encoding::Utf8:
        // Valid UTF-8 by construction; only a leading U+FEFF would read as a mark.
        if (!text.starts_with(u'\uFEFF'))
            return ToUtf8(text);
        break;
    case Encoding::Ansi: {
        // Characters outside the code page become '?', as the original writes them.
        std::string out = TextToAnsi(text);
        if (DetectEncoding(out) == Encoding::Ansi)
            return out;
        if (FromUtf8(out).Str() == text) { // plain ASCII, say: the same text either way
            encoding = Encoding::Utf8;
            return out;
        }
        break;
    }
    }
    encoding = Encoding::Utf8Bom;
    return Encode(text, encoding);
}

} // namespace platform::ini
