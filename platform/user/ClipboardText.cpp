// The stand-in text formats: CF_TEXT made from CF_UNICODETEXT and back. The
// text ends at its first zero or at the end of the block, whichever comes
// first, so a block without a terminator is never read past its end.
#include "Clipboard.h"

#include <winbase.h>
#include <winuser.h>

#include <cstring>
#include <string>

namespace platform::user {
namespace {

// The text of a block up to its first zero, as code units of type Unit.
template <class Unit> std::basic_string<Unit> ReadText(HGLOBAL block) {
    const SIZE_T units = GlobalSize(block) / sizeof(Unit);
    const auto* data = static_cast<const Unit*>(GlobalLock(block));
    std::basic_string<Unit> text;
    if (!data)
        return text;
    SIZE_T length = 0;
    while (length < units && data[length] != 0)
        ++length;
    text.assign(data, length);
    GlobalUnlock(block);
    return text;
}

// A new moveable block holding text and a terminating zero.
template <class Unit> HGLOBAL WriteText(const std::basic_string<Unit>& text) {
    const SIZE_T bytes = (text.size() + 1) * sizeof(Unit);
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, bytes);
    auto* data = static_cast<Unit*>(GlobalLock(block));
    if (!data) {
        GlobalFree(block);
        return nullptr;
    }
    std::memcpy(data, text.c_str(), bytes);
    GlobalUnlock(block);
    return block;
}

} // namespace

HGLOBAL ConvertClipboardText(HGLOBAL source, UINT sourceFormat, UINT codePage) {
    if (sourceFormat == CF_TEXT) {
        const std::string narrow = ReadText<char>(source);
        std::u16string wide(narrow.size(), u'\0');
        if (!narrow.empty()) {
            const int n =
                MultiByteToWideChar(codePage, 0, narrow.data(), static_cast<int>(narrow.size()),
                                    wide.data(), static_cast<int>(wide.size()));
            wide.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
        }
        return WriteText(wide);
    }
    const std::u16string wide = ReadText<char16_t>(source);
    std::string narrow;
    if (!wide.empty()) {
        const int needed = WideCharToMultiByte(
            codePage, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0, nullptr, nullptr);
        narrow.resize(needed > 0 ? static_cast<std::size_t>(needed) : 0);
        if (needed > 0)
            WideCharToMultiByte(codePage, 0, wide.data(), static_cast<int>(wide.size()),
                                narrow.data(), needed, nullptr, nullptr);
    }
    return WriteText(narrow);
}

} // namespace platform::user
