// Delivery of a real pointer's input.
#include "PointerInput.h"

#include "WindowManager.h"

#include <algorithm>
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
    bool frame = false; // on the window's frame rather than its client area
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

namespace {

UINT ButtonMessage(MouseButton button, bool down, bool isDouble) {
    switch (button) {
    case MouseButton::Left:
        return !down ? WM_LBUTTONUP : isDouble ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN;
    case MouseButton::Right:
        return !down ? WM_RBUTTONUP : isDouble ? WM_RBUTTONDBLCLK : WM_RBUTTONDOWN;
    case MouseButton::Middle:
        return !down ? WM_MBUTTONUP : isDouble ? WM_MBUTTONDBLCLK : WM_MBUTTONDOWN;
    case MouseButton::X1:
    case MouseButton::X2:
        break;
    }
    return !down ? WM_XBUTTONUP : isDouble ? WM_XBUTTONDBLCLK : WM_XBUTTONDOWN;
}

// Whether this press is the second of a double click (soon after the last,
// near it, on the same window), and the press to compare the next one with.
// A press on the frame and one in the client area never pair.
bool PairsWithLast(HWND target, bool frame, MouseButton button, POINT desktop, unsigned time) {
    LastPress& last = Last();
    const bool isDouble = last.valid && last.target == target && last.frame == frame &&
                          last.button == button && time - last.time <= kDoubleClickTime &&
                          std::abs(desktop.x - last.where.x) <= kDoubleClickSlop &&
                          std::abs(desktop.y - last.where.y) <= kDoubleClickSlop;
    // A third press starts over.
    last = isDouble ? LastPress{} : LastPress{target, button, desktop, time, frame, true};
    return isDouble;
}

// A client-area double click comes only to a window whose class asks for it.
bool IsDoubleClick(HWND target, MouseButton button, POINT desktop, unsigned time) {
    const Window* window = WindowManager::Instance().Find(target);
    const bool wantsDouble =
        window && window->windowClass && (window->windowClass->wc.style & kClassDoubleClicks);
    return PairsWithLast(target, false, button, desktop, time) && wantsDouble;
}

// The top-level window, or a child with a caption or sizing edges of its
// own (a document window); a control's border is no frame to act on.
bool HasOwnFrame(HWND target, HWND top) {
    if (target == top)
        return true;
    const LONG_PTR style = GetWindowLongPtr(target, GWL_STYLE);
    return (style & WS_CAPTION) == WS_CAPTION || (style & WS_THICKFRAME);
}

} // namespace

void PostButton(HWND top, POINT desktop, MouseButton button, bool down, WPARAM keys,
                unsigned time) {
    POINT client{};
    HWND target = Target(top, desktop, &client);
    if (!target)
        return;
    SetCursorPos(desktop.x, desktop.y);
    // A press on the frame a window draws (its menu bar, caption, close box
    // or sizing edges) is a non-client press, which the window or the
    // default procedure acts on: the window manager's own frame around it,
    // on a display, stays the window manager's. A document window inside
    // the top-level one has a frame of its own.
    if (down && button == MouseButton::Left && HasOwnFrame(target, top) && !GetCapture()) {
        const LRESULT hit = SendMessage(target, WM_NCHITTEST, 0, MAKELPARAM(desktop.x, desktop.y));
        if (hit != HTCLIENT && hit != HTNOWHERE && hit != HTBORDER && hit > 0) {
            const bool isDouble = PairsWithLast(target, true, button, desktop, time);
            PostMessage(target, isDouble ? WM_NCLBUTTONDBLCLK : WM_NCLBUTTONDOWN,
                        static_cast<WPARAM>(hit), MAKELPARAM(desktop.x, desktop.y));
            return;
        }
    }
    const bool isDouble = down && IsDoubleClick(target, button, desktop, time);
    WPARAM wParam = keys;
    if (button == MouseButton::X1 || button == MouseButton::X2)
        wParam = MAKEWPARAM(LOWORD(keys), button == MouseButton::X1 ? XBUTTON1 : XBUTTON2);
    PostMessage(target, ButtonMessage(button, down, isDouble), wParam,
                MAKELPARAM(client.x, client.y));
}

void PostMove(HWND top, POINT desktop, WPARAM keys) {
    POINT client{};
    HWND target = Target(top, desktop, &client);
    if (!target)
        return;
    SetCursorPos(desktop.x, desktop.y);
    PostMessage(target, WM_MOUSEMOVE, keys, MAKELPARAM(client.x, client.y));
}

void PostWheel(int delta, bool horizontal, POINT desktop, WPARAM keys) {
    HWND target = GetFocus();
    if (!target)
        target = GetActiveWindow();
    if (!target)
        return;
    SetCursorPos(desktop.x, desktop.y);
    // The delta is a signed 16-bit number: a larger turn is as large as it
    // can be.
    const auto wheelDelta = static_cast<short>(std::clamp(delta, -32768, 32767));
    PostMessage(target, horizontal ? WM_MOUSEHWHEEL : WM_MOUSEWHEEL,
                MAKEWPARAM(LOWORD(keys), static_cast<WORD>(wheelDelta)),
                MAKELPARAM(desktop.x, desktop.y));
}

} // namespace platform::user
