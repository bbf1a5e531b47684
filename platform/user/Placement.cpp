// Window placements: the show state with the restored, minimised and
// maximised positions, read and applied as one record.
#include "WindowManager.h"

#include <windows.h>

#include <algorithm>

using platform::user::Window;
using platform::user::WindowManager;

namespace {

using Placement = Window::Placement;

WindowManager& Manager() {
    return WindowManager::Instance();
}

// A restored top-level rectangle that lies wholly off the desktop is moved
// back onto it, keeping its size.
RECT OntoDesktop(RECT rect) {
    const RECT desktop = Manager().Desktop()->rect;
    if (!platform::user::IsEmpty(platform::user::Intersect(rect, desktop)) ||
        platform::user::IsEmpty(rect)) {
        return rect;
    }
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    const LONG left =
        std::clamp(rect.left, desktop.left, std::max(desktop.left, desktop.right - width));
    const LONG top =
        std::clamp(rect.top, desktop.top, std::max(desktop.top, desktop.bottom - height));
    return RECT{left, top, left + width, top + height};
}

constexpr LONG kCoordinateLimit = 1 << 28;

// Coordinates from a stored record are not trusted: a rectangle turned
// inside out gets no size, and the values stay far from overflowing.
RECT Sane(const RECT& rect) {
    auto clampValue = [](LONG v) { return std::clamp(v, -kCoordinateLimit, kCoordinateLimit); };
    RECT r{clampValue(rect.left), clampValue(rect.top), clampValue(rect.right),
           clampValue(rect.bottom)};
    r.right = std::max(r.right, r.left);
    r.bottom = std::max(r.bottom, r.top);
    return r;
}

} // namespace

BOOL GetWindowPlacement(HWND hwnd, WINDOWPLACEMENT* placement) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop() || !placement ||
        placement->length != sizeof(WINDOWPLACEMENT)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    placement->flags = 0;
    switch (window->placement) {
    case Placement::Minimized:
        placement->showCmd = SW_SHOWMINIMIZED;
        if (window->restoreMaximized)
            placement->flags |= WPF_RESTORETOMAXIMIZED;
        break;
    case Placement::Maximized:
        placement->showCmd = SW_SHOWMAXIMIZED;
        break;
    default:
        placement->showCmd = SW_SHOWNORMAL;
        break;
    }
    placement->ptMinPosition = window->minPosition;
    placement->ptMaxPosition = window->maxPosition;
    placement->rcNormalPosition = window->normalRect;
    return TRUE;
}

BOOL SetWindowPlacement(HWND hwnd, const WINDOWPLACEMENT* placement) {
    Window* window = Manager().Find(hwnd);
    if (!window || window == Manager().Desktop() || !placement ||
        placement->length != sizeof(WINDOWPLACEMENT) || placement->showCmd > SW_MAX) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    RECT normal = Sane(placement->rcNormalPosition);
    if (window->parent == Manager().Desktop())
        normal = OntoDesktop(normal);
    if (placement->flags & WPF_SETMINPOSITION) {
        window->minPosition = placement->ptMinPosition;
        window->minPositionSet = true;
    }
    window->maxPosition = placement->ptMaxPosition;
    window->normalRect = normal;
    if (window->placement == Placement::Normal)
        MoveWindow(hwnd, normal.left, normal.top, normal.right - normal.left,
                   normal.bottom - normal.top, TRUE);
    if (!IsWindow(hwnd))
        return TRUE;
    const int command = static_cast<int>(placement->showCmd);
    const bool minimizes = command == SW_SHOWMINIMIZED || command == SW_MINIMIZE ||
                           command == SW_SHOWMINNOACTIVE || command == SW_FORCEMINIMIZE;
    // Restoring from the placement's own minimised state leaves it where the
    // record says it goes back to.
    if (!minimizes && window->placement == Placement::Minimized)
        window->restoreMaximized = (placement->flags & WPF_RESTORETOMAXIMIZED) != 0;
    ShowWindow(hwnd, command);
    if (minimizes && IsWindow(hwnd))
        window->restoreMaximized = (placement->flags & WPF_RESTORETOMAXIMIZED) != 0;
    return TRUE;
}
