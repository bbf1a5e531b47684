// Device contexts for a window's client area and for the whole window, on the
// desktop surface or, while a picture is taken, on the picture's surface.
#include "WindowDC.h"

#include "gdi/DeviceContext.h"

#include <vector>

namespace platform::user {
namespace {

struct Redirection {
    const Window* root = nullptr;
    cairo_surface_t* surface = nullptr;
    POINT offset{0, 0}; // the desktop point at the surface's (0, 0)
};

Redirection& Current() {
    static Redirection redirection;
    return redirection;
}

bool InSubtree(const Window* window, const Window* root) {
    for (; window; window = window->parent)
        if (window == root)
            return true;
    return false;
}

// Shown means the window and its ancestors are visible; inside a picture the
// pictured window counts as shown, whatever its ancestors.
bool Shown(const Window* window, const Window* root) {
    for (; window; window = window->parent) {
        if (window == root)
            return true;
        if (!window->visible)
            return false;
    }
    return true;
}

// The desktop rectangles of the shown top-level windows above the window's
// own top-level window that overlap area: a window never draws over them.
std::vector<RECT> WindowsAbove(Window* window, const RECT& area) {
    std::vector<RECT> above;
    WindowManager& manager = WindowManager::Instance();
    Window* top = manager.TopLevel(window);
    if (!top || IsEmpty(area))
        return above;
    for (Window* other : manager.TopLevel()) {
        if (other == top)
            break;
        RECT overlap = Intersect(other->rect, area);
        if (other->visible && !IsEmpty(overlap))
            above.push_back(overlap);
    }
    return above;
}

HDC CreateDC(HWND hwnd, bool whole, const RECT* clip) {
    WindowManager& manager = WindowManager::Instance();
    Window* window = manager.Find(hwnd);
    if (!window)
        return nullptr;
    const Redirection& redirection = Current();
    bool redirected = redirection.surface && InSubtree(window, redirection.root);
    const Window* root = redirected ? redirection.root : nullptr;
    POINT origin = whole ? manager.WindowOrigin(window) : manager.ClientOrigin(window);
    RECT visible =
        Shown(window, root) ? manager.VisibleRect(window, whole, root) : RECT{0, 0, 0, 0};
    if (clip)
        visible = Intersect(visible, RECT{clip->left + origin.x, clip->top + origin.y,
                                          clip->right + origin.x, clip->bottom + origin.y});
    if (!redirected) {
        HDC hdc = gdi::CreateDesktopDC(origin, visible, hwnd);
        gdi::ExcludeFromClip(hdc, WindowsAbove(window, visible));
        return hdc;
    }
    POINT offset = redirection.offset;
    origin = POINT{origin.x - offset.x, origin.y - offset.y};
    if (!IsEmpty(visible))
        visible = RECT{visible.left - offset.x, visible.top - offset.y, visible.right - offset.x,
                       visible.bottom - offset.y};
    return gdi::CreateSurfaceDC(redirection.surface, origin, visible, hwnd);
}

} // namespace

HDC GetClientDC(HWND hwnd, const RECT* clip) {
    return CreateDC(hwnd, false, clip);
}

HDC GetWholeWindowDC(HWND hwnd) {
    return CreateDC(hwnd, true, nullptr);
}

ScopedRedirection::ScopedRedirection(const Window* root, cairo_surface_t* surface, POINT offset)
    : m_saved(Current().root, Current().surface, Current().offset) {
    Current() = Redirection{root, surface, offset};
}

ScopedRedirection::~ScopedRedirection() {
    auto [root, surface, offset] = m_saved;
    Current() = Redirection{root, surface, offset};
}

} // namespace platform::user
