// The companion library's defaults for exports, chosen for a Linux user: the
// documents directory (or home), ISO dates that are valid in file names.
#include "Utils.h"

#include <algorithm>
#include <cstdlib>

namespace {
CString DirectoryFrom(const char* variable) {
    const char* value = std::getenv(variable);
    if (!value || !*value)
        return CString();
    CString dir = platform::FromUtf8(value);
    if (dir[dir.GetLength() - 1] != u'/')
        dir += u'/';
    return dir;
}
} // namespace

CString Utils::GetDefaultFieldDelimiter() {
    return u",";
}

CString Utils::GetDefaultTextQualifier() {
    return u"\"";
}

CString Utils::GetDefaultExportDir() {
    CString dir = DirectoryFrom("XDG_DOCUMENTS_DIR");
    if (dir.IsEmpty())
        dir = DirectoryFrom("HOME");
    return dir.IsEmpty() ? CString(u"./") : dir;
}

CString Utils::GetDefaultDateFormatSpecifier() {
    return u"%Y-%m-%d";
}

CString Utils::GetCurrentDateAndTime() {
    return CTime::GetCurrentTime().Format(GetDefaultDateFormatSpecifier() + u" %H:%M:%S");
}

std::string Utils::ToANSI(const CString& text) {
    if (text.IsEmpty())
        return std::string();
    const int needed = WideCharToMultiByte(CP_ACP, 0, text.GetString(), text.GetLength(), nullptr,
                                           0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(std::max(needed, 0)), '\0');
    if (needed > 0)
        WideCharToMultiByte(CP_ACP, 0, text.GetString(), text.GetLength(), out.data(), needed,
                            nullptr, nullptr);
    return out;
}
