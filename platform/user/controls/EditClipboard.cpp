#include "EditClipboard.h"

#include <algorithm>

namespace platform::user {

bool PutTextOnClipboard(HWND owner, std::u16string_view text) {
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
    if (!block)
        return false;
    auto* units = static_cast<char16_t*>(GlobalLock(block));
    std::copy(text.begin(), text.end(), units);
    units[text.size()] = u'\0';
    GlobalUnlock(block);
    if (!OpenClipboard(owner)) {
        GlobalFree(block);
        return false;
    }
    EmptyClipboard();
    const bool taken = SetClipboardData(CF_UNICODETEXT, block) != nullptr;
    if (!taken)
        GlobalFree(block);
    CloseClipboard();
    return taken;
}

std::u16string TextFromClipboard(HWND owner) {
    std::u16string text;
    if (!OpenClipboard(owner))
        return text;
    if (HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
        const SIZE_T units = GlobalSize(block) / sizeof(char16_t);
        if (const auto* data = static_cast<const char16_t*>(GlobalLock(block))) {
            text.assign(data, std::find(data, data + units, u'\0'));
            GlobalUnlock(block);
        }
    }
    CloseClipboard();
    return text;
}

} // namespace platform::user
