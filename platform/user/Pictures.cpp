// Pictures of a window or of the desktop. Each window of the pictured subtree
// is painted again, parent first and siblings bottom first, with its device
// contexts sent to an off-screen surface: the picture therefore never depends
// on what other windows did to the shared desktop surface, and the window's
// pending updates are put back afterwards, so the live desktop still gets
// them.
#include "CursorPicture.h"
#include "WindowDC.h"
#include "WindowPicture.h"

#include <platform/WindowPictures.h>

#include <cairo.h>

namespace platform {
namespace {

using user::Window;
using user::WindowManager;

// The desktop has no wallpaper: it is the white it starts as.
constexpr double kDesktopWhite = 1.0;

// What a window has pending: its update region and whether its frame needs
// drawing. Pictures put it back, since they paint off the desktop.
struct Pending {
    HWND hwnd;
    bool hasUpdate;
    RECT update;
    bool erase;
    bool ncDirty;
};

void SavePending(const Window* window, std::vector<Pending>& saved) {
    saved.push_back(
        Pending{window->handle, window->hasUpdate, window->update, window->erase, window->ncDirty});
    for (const Window* child : window->children)
        SavePending(child, saved);
}

void RestorePending(const std::vector<Pending>& saved) {
    for (const Pending& pending : saved)
        if (Window* window = WindowManager::Instance().Find(pending.hwnd)) {
            window->hasUpdate = pending.hasUpdate;
            window->update = pending.update;
            window->erase = pending.erase;
            window->ncDirty = pending.ncDirty;
        }
}

// Paints the window, then its shown children from the bottom of the z-order
// up, each frame first.
void PaintSubtree(Window* window, const Window* root) {
    WindowManager& manager = WindowManager::Instance();
    if (window != root && !window->visible)
        return;
    HWND hwnd = window->handle;
    window->ncDirty = false;
    if (window->HasFrame())
        SendMessage(hwnd, WM_NCPAINT, 1, 0);
    if (!manager.Find(hwnd))
        return;
    window->hasUpdate = true;
    window->update = RECT{0, 0, window->ClientWidth(), window->ClientHeight()};
    window->erase = true;
    SendMessage(hwnd, WM_PAINT, 0, 0);
    if (!manager.Find(hwnd))
        return;
    // Copy the list: a paint handler may create or destroy windows.
    std::vector<HWND> children;
    for (auto it = window->children.rbegin(); it != window->children.rend(); ++it)
        children.push_back((*it)->handle);
    for (HWND child : children)
        if (Window* record = manager.Find(child))
            PaintSubtree(record, root);
}

bool Write(cairo_surface_t* surface, const std::string& path) {
    cairo_surface_flush(surface);
    bool ok = cairo_surface_write_to_png(surface, path.c_str()) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(surface);
    return ok;
}

cairo_surface_t* NewSurface(int width, int height) {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* cr = cairo_create(surface);
    cairo_set_source_rgb(cr, kDesktopWhite, kDesktopWhite, kDesktopWhite);
    cairo_paint(cr);
    cairo_destroy(cr);
    return surface;
}

} // namespace

void user::PaintPicture(Window* window, cairo_surface_t* surface, POINT offset) {
    std::vector<Pending> saved;
    SavePending(window, saved);
    {
        user::ScopedRedirection redirect(window, surface, offset);
        PaintSubtree(window, window);
    }
    RestorePending(saved);
}

bool SaveWindowAsPng(HWND hwnd, const std::string& path) {
    WindowManager& manager = WindowManager::Instance();
    Window* window = manager.Find(hwnd);
    if (!window || window == manager.Desktop())
        return window ? SaveDesktopAsPng(path) : false;
    if (window->Width() <= 0 || window->Height() <= 0)
        return false;
    cairo_surface_t* surface = NewSurface(window->Width(), window->Height());
    user::PaintPicture(window, surface, manager.WindowOrigin(window));
    return Write(surface, path);
}

bool SaveDesktopAsPng(const std::string& path) {
    Window* desktop = WindowManager::Instance().Desktop();
    return SaveDesktopAreaAsPng(RECT{0, 0, desktop->Width(), desktop->Height()}, path);
}

bool SaveDesktopAreaAsPng(const RECT& area, const std::string& path) {
    WindowManager& manager = WindowManager::Instance();
    Window* desktop = manager.Desktop();
    const RECT screen{0, 0, desktop->Width(), desktop->Height()};
    const RECT cut = user::Intersect(area, screen);
    if (user::IsEmpty(cut))
        return false;
    cairo_surface_t* surface = NewSurface(cut.right - cut.left, cut.bottom - cut.top);
    // The z-order lists the topmost first.
    std::vector<HWND> windows;
    for (auto it = manager.TopLevel().rbegin(); it != manager.TopLevel().rend(); ++it)
        if ((*it)->visible)
            windows.push_back((*it)->handle);
    for (HWND hwnd : windows) {
        Window* window = manager.Find(hwnd);
        if (window)
            user::PaintPicture(window, surface, POINT{cut.left, cut.top});
    }
    user::DrawCursor(surface, POINT{cut.left, cut.top});
    return Write(surface, path);
}

} // namespace platform
