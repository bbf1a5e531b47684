// Show states: ShowWindow with its minimise, maximise and restore commands,
// and where a minimised or maximised window goes.
#include "ForeignWindows.h"
#include "WindowManager.h"

#include <algorithm>

using platform::user::Window;
using platform::user::WindowManager;

namespace {

using Placement = Window::Placement;

WindowManager& Manager() {
    return WindowManager::Instance();
}

// A minimised window: a caption bar 160 pixels wide. Top-level windows go far
// off the screen (the taskbar shows them on the original); child windows line
// up along the bottom of their parent.
constexpr int kMinimizedWidth = 160;
constexpr int kMinimizedTopLevelHeight = 28;
constexpr LONG kOffScreen = -32000;

bool IsTopLevel(const Window* window) {
    return window->parent == Manager().Desktop();
}

RECT ParentClient(const Window* window) {
    const Window* parent = window->parent;
    return RECT{0, 0, parent->ClientWidth(), parent->ClientHeight()};
}

// A top-level window keeps its caption on the screen and its borders beyond
// the edges; a child window fills its parent's client area with its client
// area, so its caption and borders lie outside.
RECT MaximizedRect(const Window* window) {
    RECT area = ParentClient(window);
    if (IsTopLevel(window)) {
        const int edge = (window->exStyle & WS_EX_CLIENTEDGE) ? GetSystemMetrics(SM_CXEDGE) : 0;
        const int band = window->frame.left - edge;
        return RECT{area.left - band, area.top - band, area.right + band, area.bottom + band};
    }
    return RECT{area.left - window->frame.left, area.top - window->frame.top,
                area.right + window->frame.right, area.bottom + window->frame.bottom};
}

// The first free slot from the left along the parent's bottom edge, unless
// the window was given its own position.
RECT MinimizedRect(const Window* window) {
    if (IsTopLevel(window))
        return RECT{kOffScreen, kOffScreen, kOffScreen + kMinimizedWidth,
                    kOffScreen + kMinimizedTopLevelHeight};
    const int height = window->frame.top + window->frame.bottom;
    if (window->minPositionSet)
        return RECT{window->minPosition.x, window->minPosition.y,
                    window->minPosition.x + kMinimizedWidth, window->minPosition.y + height};
    const RECT area = ParentClient(window);
    for (int slot = 0;; ++slot) {
        const LONG left = slot * kMinimizedWidth;
        bool taken = false;
        for (const Window* sibling : window->parent->children)
            taken = taken || (sibling != window && sibling->placement == Placement::Minimized &&
                              sibling->rect.left == left);
        if (!taken || left + kMinimizedWidth > area.right)
            return RECT{left, area.bottom - height, left + kMinimizedWidth, area.bottom};
    }
}

DWORD StateBits(Placement placement) {
    return placement == Placement::Minimized   ? static_cast<DWORD>(WS_MINIMIZE)
           : placement == Placement::Maximized ? static_cast<DWORD>(WS_MAXIMIZE)
                                               : 0;
}

bool Activates(int command) {
    return command != SW_SHOWNA && command != SW_SHOWNOACTIVATE && command != SW_SHOWMINNOACTIVE &&
           command != SW_MINIMIZE && command != SW_FORCEMINIMIZE && command != SW_HIDE;
}

// The show state a command asks for, given the current one.
Placement TargetState(const Window* window, int command) {
    switch (command) {
    case SW_SHOWMINIMIZED:
    case SW_MINIMIZE:
    case SW_SHOWMINNOACTIVE:
    case SW_FORCEMINIMIZE:
        return Placement::Minimized;
    case SW_SHOWMAXIMIZED:
        return Placement::Maximized;
    case SW_SHOWNORMAL:
    case SW_RESTORE:
    case SW_SHOWNOACTIVATE:
    case SW_SHOWDEFAULT:
        if (window->placement == Placement::Minimized && window->restoreMaximized)
            return Placement::Maximized;
        return Placement::Normal;
    default:
        return window->placement;
    }
}

} // namespace

namespace platform::user {

RECT MaximizedRectOf(const Window* window) {
    return MaximizedRect(window);
}

WPARAM SizeType(const Window* window) {
    switch (window->placement) {
    case Placement::Minimized:
        return SIZE_MINIMIZED;
    case Placement::Maximized:
        return SIZE_MAXIMIZED;
    default:
        return SIZE_RESTORED;
    }
}

void SetShowState(Window* window, Placement placement) {
    if (window->placement == placement)
        return;
    if (placement == Placement::Minimized) {
        window->restoreMaximized = window->placement == Placement::Maximized;
    }
    window->placement = placement;
    window->style =
        (window->style & ~static_cast<DWORD>(WS_MINIMIZE | WS_MAXIMIZE)) | StateBits(placement);
    const RECT target = placement == Placement::Minimized   ? MinimizedRect(window)
                        : placement == Placement::Maximized ? MaximizedRect(window)
                                                            : window->normalRect;
    if (placement == Placement::Minimized)
        window->minPosition = POINT{target.left, target.top};
    const RECT old = window->rect;
    window->rect = target;
    HWND hwnd = window->handle;
    if (window->visible) {
        if (window->parent)
            InvalidateRect(window->parent->handle, &old, TRUE);
        InvalidateRect(hwnd, nullptr, TRUE);
        RedrawFrame(window);
    }
    SendMessage(hwnd, WM_SIZE, SizeType(window),
                MAKELONG(window->ClientWidth(), window->ClientHeight()));
    if (IsWindow(hwnd) && (old.left != target.left || old.top != target.top))
        SendMessage(hwnd, WM_MOVE, 0,
                    MAKELONG(target.left + window->frame.left, target.top + window->frame.top));
}

} // namespace platform::user

BOOL ShowWindow(HWND hwnd, int command) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop() || command < 0 || command > SW_MAX)
        return FALSE;
    BOOL wasVisible = window->visible ? TRUE : FALSE;
    bool show = command != SW_HIDE;
    if (!show) {
        if (!window->visible)
            return wasVisible;
        HWND focus = Manager().focus;
        if (focus && (focus == hwnd || IsChild(hwnd, focus)))
            SetFocus(window->parent && window->parent != Manager().Desktop()
                         ? window->parent->handle
                         : nullptr);
        if (window->exStyle & WS_EX_MDICHILD)
            platform::user::MdiChildGoing(window);
        if (!IsWindow(hwnd) || !window->visible)
            return wasVisible;
        SendMessage(hwnd, WM_SHOWWINDOW, FALSE, 0);
        window->visible = false;
        window->style &= ~static_cast<DWORD>(WS_VISIBLE);
        if (window->parent)
            InvalidateRect(window->parent->handle, &window->rect, TRUE);
        if (Manager().active == hwnd)
            platform::user::ActivateNext(window->owner);
        return wasVisible;
    }
    const Placement target = TargetState(window, command);
    const bool wasMinimized = window->placement == Placement::Minimized;
    // A shown window that keeps its state is left as it is.
    if (window->visible && target == window->placement)
        return wasVisible;
    if (!window->visible) {
        SendMessage(hwnd, WM_SHOWWINDOW, TRUE, 0);
        if (!IsWindow(hwnd))
            return wasVisible;
        window->visible = true;
        window->style |= WS_VISIBLE;
        platform::user::RedrawFrame(window);
        InvalidateRect(hwnd, nullptr, TRUE);
    }
    platform::user::SetShowState(window, target);
    if (!IsWindow(hwnd))
        return wasVisible;
    if (target == Placement::Minimized && !wasMinimized && IsTopLevel(window) &&
        Manager().active == hwnd && command != SW_SHOWMINIMIZED) {
        // Minimising hands the activation on to the next window.
        platform::user::ActivateNext(window->owner);
        return wasVisible;
    }
    if (!Activates(command) || (window->style & WS_DISABLED))
        return wasVisible;
    if (IsTopLevel(window))
        SetActiveWindow(hwnd);
    else
        SendMessage(hwnd, WM_CHILDACTIVATE, 0, 0);
    return wasVisible;
}

BOOL IsIconic(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    if (!window) {
        platform::user::ForeignWindows* foreign = platform::user::Foreign();
        return foreign && foreign->Iconic(hwnd) ? TRUE : FALSE;
    }
    return window && window->placement == Placement::Minimized ? TRUE : FALSE;
}

BOOL IsZoomed(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    return window && window->placement == Placement::Maximized ? TRUE : FALSE;
}
