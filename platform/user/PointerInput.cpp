// Delivery of a real pointer's input.
#include "PointerInput.h"

#include "WindowManager.h"

#include <cstdlib>

namespace platform::user {
namespace {

constexpr UINT kClassDoubleClicks = 0x0008; // CS_DBLCLKS
constexpr unsigned kDoubleClickTime = 500;  // ms, the original's default
constexpr int kDoubleClickSlop = 2;         // pixels either way

struct LastPress {
    HWND target = nullptr;
    MouseButton button = MouseButton::Left;
    POINT where{};
    unsigned time = 0;
    bool valid = false;
};

LastPress& Last() {
    static LastPress last;
    return last;
}

bool Contains(const RECT& r, POINT p) {
    return p.x >= r.left && p.x < r.right && p.y >= r.top && p.y < r.bottom;
}

Window* Deepest(WindowManager& manager, Window* window, POINT desktop) {
    for (Window* child : window->children) {
        if (!child->visible || (child->style & WS_DISABLED))
            continue;
        if (Contains(manager.VisibleRect(child, true), desktop))
            return Deepest(manager, child, desktop);
    }
    return window;
}

// The target and the point in its client coordinates.
HWND Target(HWND top, POINT desktop, POINT* client) {
    HWND target = GetCapture();
    if (!target)
        target = WindowUnderPoint(top, desktop);
    if (!target)
        return nullptr;
    *client = desktop;
    ScreenToClient(target, client);
    return target;
}

} // namespace

HWND WindowUnderPoint(HWND top, POINT desktop) {
    WindowManager& manager = WindowManager::Instance();
    Window* window = manager.Find(top);
    if (!window || !Contains(manager.VisibleRect(window, true), desktop))
        return nullptr;
    return Deepest(manager, window, desktop)->handle;
}

void PostButton(HWND top, POINT desktop, MouseButton button, bool down, WPARAM keys,
                unsigned time) {
    POINT client{};
    HWND target = Target(top, desktop, &client);
    if (!target)
        return;
    SetCursorPos(desktop.x, desktop.y);
    UINT message = 0;
    if (button == MouseButton::Right) {
        message = down ? WM_RBUTTONDOWN : WM_RBUTTONUP;
    } else if (!down) {
        message = button == MouseButton::Left ? WM_LBUTTONUP : WM_MBUTTONUP;
    } else {
        LastPress& last = Last();
        const Window* window = WindowManager::Instance().Find(target);
        const bool wantsDouble =
            window && window->windowClass && (window->windowClass->wc.style & kClassDoubleClicks);
        const bool isDouble = last.valid && last.target == target && last.button == button &&
                              time - last.time <= kDoubleClickTime &&
                              std::abs(desktop.x - last.where.x) <= kDoubleClickSlop &&
                              std::abs(desktop.y - last.where.y) <= kDoubleClickSlop;
        const bool left = button == MouseButton::Left;
        if (isDouble && wantsDouble)
            message = left ? WM_LBUTTONDBLCLK : WM_MBUTTONDBLCLK;
        else
            message = left ? WM_LBUTTONDOWN : WM_MBUTTONDOWN;
        // A third press starts over.
        last = isDouble ? LastPress{} : LastPress{target, button, desktop, time, true};
    }
    PostMessage(target, message, keys, MAKELPARAM(client.x, client.y));
}

void PostMove(HWND top, POINT desktop, WPARAM keys) {
    POINT client{};
    HWND target = Target(top, desktop, &client);
    if (!target)
        return;
    SetCursorPos(desktop.x, desktop.y);
    PostMessage(target, WM_MOUSEMOVE, keys, MAKELPARAM(client.x, client.y));
}

} // namespace platform::user
