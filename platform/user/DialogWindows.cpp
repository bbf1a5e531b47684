#include "DialogWindows.h"

#include <algorithm>
#include <cstdint>

namespace platform::user {

HWND AddDialogControl(HWND dialog, const WCHAR* cls, const WCHAR* text, DWORD style, int id, int x,
                      int y, int cx, int cy, DWORD exStyle) {
    HWND control =
        CreateWindowEx(exStyle, cls, text, WS_CHILD | WS_VISIBLE | style, x, y, cx, cy, dialog,
                       reinterpret_cast<HMENU>(static_cast<uintptr_t>(id)), nullptr, nullptr);
    SendMessage(control, WM_SETFONT, static_cast<WPARAM>(SendMessage(dialog, WM_GETFONT, 0, 0)),
                FALSE);
    return control;
}

void CentreOverOwner(HWND window, SIZE client) {
    RECT frame{0, 0, client.cx, client.cy};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongPtr(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtr(window, GWL_EXSTYLE)));
    int width = frame.right - frame.left;
    int height = frame.bottom - frame.top;
    HWND owner = GetWindow(window, GW_OWNER);
    RECT over{};
    GetWindowRect(owner ? owner : GetDesktopWindow(), &over);
    int left = std::max<LONG>(0, over.left + (over.right - over.left - width) / 2);
    int top = std::max<LONG>(0, over.top + (over.bottom - over.top - height) / 2);
    SetWindowPos(window, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace platform::user
