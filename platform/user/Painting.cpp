// Update regions, WM_PAINT and the paint device context.
#include "WindowManager.h"

using platform::user::Window;
using platform::user::WindowManager;

namespace {

WindowManager& Manager() {
    return WindowManager::Instance();
}

RECT ClientRect(const Window* window) {
    return RECT{0, 0, window->ClientWidth(), window->ClientHeight()};
}

// The parent's painting covers its children unless it clips them, so the
// shown children under the area, frames included, are painted again after
// it.
void CoverChildren(Window* window, const RECT& area, BOOL erase) {
    if (window->style & WS_CLIPCHILDREN)
        return;
    for (Window* child : window->children) {
        if (!child->visible ||
            platform::user::IsEmpty(platform::user::Intersect(area, child->rect)))
            continue;
        child->ncDirty = child->HasFrame();
        const LONG dx = child->rect.left + child->frame.left;
        const LONG dy = child->rect.top + child->frame.top;
        RECT inside{area.left - dx, area.top - dy, area.right - dx, area.bottom - dy};
        // A framed child is painted whole, so that its frame is drawn too.
        InvalidateRect(child->handle, child->ncDirty ? nullptr : &inside, erase);
    }
}

} // namespace

BOOL InvalidateRect(HWND hwnd, const RECT* rect, BOOL erase) {
    Window* window = Manager().Find(hwnd);
    if (!window)
        return FALSE;
    RECT area = rect ? platform::user::Intersect(*rect, ClientRect(window)) : ClientRect(window);
    if (platform::user::IsEmpty(area))
        return TRUE;
    window->update = window->hasUpdate ? platform::user::Union(window->update, area) : area;
    window->hasUpdate = true;
    if (erase)
        window->erase = true;
    CoverChildren(window, area, erase);
    return TRUE;
}

BOOL ValidateRect(HWND hwnd, const RECT* rect) {
    Window* window = Manager().Find(hwnd);
    if (!window)
        return FALSE;
    // The region is kept as one box: a rectangle that covers it empties it, and a
    // smaller one leaves it as it is.
    if (!rect || (rect->left <= window->update.left && rect->top <= window->update.top &&
                  rect->right >= window->update.right && rect->bottom >= window->update.bottom)) {
        window->hasUpdate = false;
        window->update = RECT{0, 0, 0, 0};
        window->erase = false;
    }
    return TRUE;
}

BOOL GetUpdateRect(HWND hwnd, LPRECT rect, BOOL) {
    Window* window = Manager().Find(hwnd);
    if (!window)
        return FALSE;
    if (rect)
        *rect = window->hasUpdate ? window->update : RECT{0, 0, 0, 0};
    return window->hasUpdate ? TRUE : FALSE;
}

BOOL UpdateWindow(HWND hwnd) {
    Window* window = Manager().Find(hwnd);
    if (!window)
        return FALSE;
    if (window->hasUpdate && Manager().IsShown(window))
        SendMessage(hwnd, WM_PAINT, 0, 0);
    return TRUE;
}

BOOL RedrawWindow(HWND hwnd, const RECT* rect, HRGN, UINT flags) {
    if (!Manager().Find(hwnd))
        return FALSE;
    if (flags & RDW_INVALIDATE)
        InvalidateRect(hwnd, rect, (flags & RDW_ERASE) ? TRUE : FALSE);
    if (flags & RDW_VALIDATE)
        ValidateRect(hwnd, rect);
    if (flags & RDW_UPDATENOW)
        UpdateWindow(hwnd);
    return TRUE;
}

HDC BeginPaint(HWND hwnd, LPPAINTSTRUCT paint) {
    Window* window = Manager().Find(hwnd);
    if (!window || !paint)
        return nullptr;
    *paint = PAINTSTRUCT{};
    paint->rcPaint = window->hasUpdate ? window->update : RECT{0, 0, 0, 0};
    bool erase = window->erase;
    if (window->ncDirty) {
        window->ncDirty = false;
        SendMessage(hwnd, WM_NCPAINT, 1, 0);
    }
    // Validate first: drawing inside the paint handler must not ask for another
    // paint.
    window->hasUpdate = false;
    window->update = RECT{0, 0, 0, 0};
    window->erase = false;
    // A child that painted itself since the parent's area became invalid (an
    // edit updating at once as it is typed into) is covered again now: it
    // must follow.
    if (!platform::user::IsEmpty(paint->rcPaint))
        CoverChildren(window, paint->rcPaint, erase);
    paint->hdc = platform::user::GetClientDC(hwnd, &paint->rcPaint);
    if (erase)
        paint->fErase = SendMessage(hwnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint->hdc), 0)
                            ? FALSE
                            : TRUE;
    return paint->hdc;
}

BOOL EndPaint(HWND hwnd, const PAINTSTRUCT* paint) {
    if (paint && paint->hdc)
        ReleaseDC(hwnd, paint->hdc);
    return TRUE;
}
