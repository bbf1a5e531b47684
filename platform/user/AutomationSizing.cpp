// The simulated user's drags on a window's sizing frame.
#include "AutomationQueue.h"

#include <platform/Automation.h>

namespace platform::automation {

void DragWindowCorner(int dx, int dy) {
    detail::Queue([dx, dy] {
        const std::string what = "corner drag by " + std::to_string(dx) + ", " + std::to_string(dy);
        HWND window = GetActiveWindow();
        RECT rect{};
        if (!window || !GetWindowRect(window, &rect)) {
            detail::Note(what + ": no active window");
            return;
        }
        const POINT corner{rect.right - 1, rect.bottom - 1};
        const LPARAM at = MAKELPARAM(corner.x, corner.y);
        if (SendMessage(window, WM_NCHITTEST, 0, at) != HTBOTTOMRIGHT) {
            detail::Note(what + ": " + detail::Describe(window) + " has no sizing corner");
            return;
        }
        detail::Note(what + " of " + detail::Describe(window));
        // Each message carries the mouse position at its posting, which the
        // sizing loop follows.
        SetCursorPos(corner.x, corner.y);
        PostMessage(window, WM_NCLBUTTONDOWN, HTBOTTOMRIGHT, at);
        POINT client = corner;
        ScreenToClient(window, &client);
        auto post = [&](UINT message, WPARAM keys, int fx, int fy) {
            SetCursorPos(corner.x + fx, corner.y + fy);
            PostMessage(
                window, message, keys,
                MAKELPARAM(static_cast<WORD>(client.x + fx), static_cast<WORD>(client.y + fy)));
        };
        post(WM_MOUSEMOVE, MK_LBUTTON, dx / 2, dy / 2);
        post(WM_MOUSEMOVE, MK_LBUTTON, dx, dy);
        post(WM_LBUTTONUP, 0, dx, dy);
    });
}

} // namespace platform::automation
