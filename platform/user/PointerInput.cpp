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

WPARAM Keys(bool leftDown, bool rightDown, bool shift, bool control) {
    WPARAM keys = 0;
    if (leftDown)
        keys |= MK_LBUTTON;
    if (rightDown)
        keys |= MK_RBUTTON;
    if (shift)
        keys |= MK_SHIFT;
    if (control)
        keys |= MK_CONTROL;
    return keys;
}

} // namespace

HWND WindowUnderPoint(HWND top, POINT desktop) {
    WindowManager& manager = WindowManager::Instance();
    Window* window = manager.Find(top);
    if (!window || !Contains(manager.VisibleRect(window, true), desktop))
        return nullptr;
    return Deepest(manager, window, desktop)->handle;
}

void PostButton(HWND top, POINT desktop, MouseButton button, bool down, bool shift, bool control,
                unsigned time) {
    POINT client{};
    HWND target = Target(top, desktop, &client);
    if (!target)
        return;
    SetCursorPos(desktop.x, desktop.y);
    const bool left = button == MouseButton::Left;
    UINT message = 0;
    if (left && down) {
        LastPress& last = Last();
        const Window* window = WindowManager::Instance().Find(target);
        const bool wantsDouble =
            window && window->windowClass && (window->windowClass->wc.style & kClassDoubleClicks);
        const bool isDouble = last.valid && last.target == target &&
                              time - last.time <= kDoubleClickTime &&
                              std::abs(desktop.x - last.where.x) <= kDoubleClickSlop &&
                              std::abs(desktop.y - last.where.y) <= kDoubleClickSlop;
        message = isDouble && wantsDouble ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN;
        // A third press starts over.
        last = isDouble ? LastPress{} : LastPress{target, desktop, time, true};
    } else if (left) {
        message = WM_LBUTTONUP;
    } else {
        message = down ? WM_RBUTTONDOWN : WM_RBUTTONUP;
    }
    PostMessage(target, message, Keys(left && down, !left && down, shift, control),
                MAKELPARAM(client.x, client.y));
}

void PostMove(HWND top, POINT desktop, bool leftDown, bool rightDown) {
    POINT client{};
    HWND target = Target(top, desktop, &client);
    if (!target)
        return;
    SetCursorPos(desktop.x, desktop.y);
    PostMessage(target, WM_MOUSEMOVE, Keys(leftDown, rightDown, false, false),
                MAKELPARAM(client.x, client.y));
}

} // namespace platform::user
