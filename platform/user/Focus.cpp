// Keyboard focus, activation, the enabled state and mouse capture.
#include "ForeignWindows.h"
#include "WindowManager.h"

#include <algorithm>

using platform::user::Window;
using platform::user::WindowManager;

namespace {

WindowManager& Manager() {
    return WindowManager::Instance();
}

// Moves a top-level window to the top of the z-order.
void Raise(Window* window) {
    auto& top = Manager().Desktop()->children;
    auto it = std::find(top.begin(), top.end(), window);
    if (it == top.end() || it == top.begin())
        return;
    top.erase(it);
    top.insert(top.begin(), window);
}

HWND Activate(Window* window, bool takeFocus);

} // namespace

HWND GetFocus() {
    return Manager().focus;
}

HWND SetFocus(HWND hwnd) {
    HWND previous = Manager().focus;
    if (!hwnd) {
        Manager().focus = nullptr;
        if (previous)
            SendMessage(previous, WM_KILLFOCUS, 0, 0);
        return previous;
    }
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop())
        return nullptr;
    // Focusing a window activates its top-level window first.
    Window* top = Manager().TopLevel(window);
    if (top && Manager().active != top->handle)
        Activate(top, false);
    if (!Manager().Find(hwnd))
        return nullptr;
    previous = Manager().focus;
    if (previous == hwnd)
        return previous;
    Manager().focus = hwnd;
    if (previous)
        SendMessage(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(hwnd), 0);
    // The old window's handler may have moved the focus on.
    if (Manager().focus == hwnd)
        SendMessage(hwnd, WM_SETFOCUS, reinterpret_cast<WPARAM>(previous), 0);
    return previous;
}

HWND GetActiveWindow() {
    return Manager().active;
}

HWND SetActiveWindow(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop())
        return nullptr;
    return Activate(Manager().TopLevel(window), true);
}

namespace {

HWND Activate(Window* window, bool takeFocus) {
    HWND previous = Manager().active;
    Raise(window);
    if (previous == window->handle)
        return previous;
    Manager().active = window->handle;
    if (previous && Manager().Find(previous)) {
        SendMessage(previous, WM_NCACTIVATE, FALSE, 0);
        SendMessage(previous, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, 0),
                    reinterpret_cast<LPARAM>(window->handle));
    }
    if (Manager().active != window->handle)
        return previous;
    SendMessage(window->handle, WM_NCACTIVATE, TRUE, 0);
    SendMessage(window->handle, WM_ACTIVATE, MAKEWPARAM(WA_ACTIVE, 0),
                reinterpret_cast<LPARAM>(previous));
    // An activated window that kept no focus inside itself takes it.
    HWND focus = Manager().focus;
    if (takeFocus && Manager().active == window->handle && focus != window->handle &&
        !(focus && IsChild(window->handle, focus)))
        SetFocus(window->handle);
    return previous;
}

} // namespace

HWND GetForegroundWindow() {
    return Manager().active;
}

BOOL SetForegroundWindow(HWND hwnd) {
    if (!Manager().Find(hwnd)) {
        platform::user::ForeignWindows* foreign = platform::user::Foreign();
        return foreign && foreign->Activate(hwnd) ? TRUE : FALSE;
    }
    SetActiveWindow(hwnd);
    return TRUE;
}

BOOL BringWindowToTop(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    if (!window) {
        platform::user::ForeignWindows* foreign = platform::user::Foreign();
        return foreign && foreign->Activate(hwnd) ? TRUE : FALSE;
    }
    if (!window || window == Manager().Desktop())
        return FALSE;
    if (window->parent == Manager().Desktop()) {
        SetActiveWindow(hwnd);
        return TRUE;
    }
    auto& siblings = window->parent->children;
    siblings.erase(std::find(siblings.begin(), siblings.end(), window));
    siblings.insert(siblings.begin(), window);
    InvalidateRect(hwnd, nullptr, TRUE);
    // Raising a child activates it among its siblings.
    if (window->visible)
        SendMessage(hwnd, WM_CHILDACTIVATE, 0, 0);
    return TRUE;
}

BOOL EnableWindow(HWND hwnd, BOOL enable) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop())
        return FALSE;
    BOOL wasDisabled = (window->style & WS_DISABLED) ? TRUE : FALSE;
    if (enable == !wasDisabled)
        return wasDisabled;
    if (enable) {
        window->style &= ~static_cast<DWORD>(WS_DISABLED);
    } else {
        window->style |= WS_DISABLED;
        HWND focus = Manager().focus;
        if (focus && (focus == hwnd || IsChild(hwnd, focus)))
            SetFocus(nullptr);
        if (Manager().capture == hwnd)
            ReleaseCapture();
    }
    SendMessage(hwnd, WM_ENABLE, enable ? TRUE : FALSE, 0);
    InvalidateRect(hwnd, nullptr, TRUE);
    return wasDisabled;
}

BOOL IsWindowEnabled(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    return window && !(window->style & WS_DISABLED) ? TRUE : FALSE;
}

HWND GetCapture() {
    return Manager().capture;
}

HWND SetCapture(HWND hwnd) {
    HWND previous = Manager().capture;
    if (!Manager().Find(hwnd))
        return previous;
    Manager().capture = hwnd;
    if (previous && previous != hwnd)
        SendMessage(previous, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(hwnd));
    return previous;
}

BOOL ReleaseCapture() {
    HWND previous = Manager().capture;
    Manager().capture = nullptr;
    if (previous)
        SendMessage(previous, WM_CAPTURECHANGED, 0, 0);
    return TRUE;
}

namespace platform::user {

void ActivateNext(Window* owner) {
    WindowManager& manager = WindowManager::Instance();
    if (owner && manager.Find(owner->handle) && owner->visible && !(owner->style & WS_DISABLED) &&
        owner->placement != Window::Placement::Minimized) {
        SetActiveWindow(owner->handle);
        return;
    }
    for (Window* top : manager.TopLevel())
        if (top->visible && !(top->style & WS_DISABLED) &&
            top->placement != Window::Placement::Minimized) {
            SetActiveWindow(top->handle);
            return;
        }
    if (Window* last = manager.Find(manager.active))
        last->ncActive = false;
    manager.active = nullptr;
}

} // namespace platform::user
