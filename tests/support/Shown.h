// Reading what the user sees: the text of windows and of the message box
// that is waiting for an answer.
#pragma once

#include <windows.h>

#include <string>

namespace testing_support {

inline std::u16string WindowText(HWND hwnd) {
    if (!hwnd)
        return {};
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

// The text of control id in the active window.
inline std::u16string ShownText(UINT id) {
    return WindowText(GetDlgItem(GetActiveWindow(), static_cast<int>(id)));
}

// The message of the message box that is the active window: the box keeps it
// in a static control without an id.
inline std::u16string MessageBoxText() {
    return ShownText(0xFFFF);
}

} // namespace testing_support
