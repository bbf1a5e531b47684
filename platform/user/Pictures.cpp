// Pictures of a window or of the desktop. Each window of the pictured subtree
// is painted again, parent first and siblings bottom first, with its device
// contexts sent to an off-screen surface: the picture therefore never depends
// on what other windows did to the shared desktop surface, and the window's
// pending updates are put back afterwards, so the live desktop still gets
// them.
#include "WindowDC.h"

#include <platform/WindowPictures.h>

#include <cairo.h>

namespace platform {
namespace {

using user::Window;
using user::WindowManager;

// The desktop has no wallpaper: it is the white it starts as.
constexpr double kDesktopGrey = 1.0;

void PaintSubtree(Window* window, const Window* root) {
    WindowManager& manager = WindowManager::Instance();
    if (window != root && !window->visible)
        return;
    HWND hwnd = window->handle;
    const bool hadUpdate = window->hasUpdate;
    const RECT update = window->update;
    const bool erase = window->erase;
    if (window->HasFrame())
        SendMessage(hwnd, WM_NCPAINT, 1, 0);
    if (!manager.Find(hwnd))
        return;
    InvalidateRect(hwnd, nullptr, TRUE);
    SendMessage(hwnd, WM_PAINT, 0, 0);
    if (!manager.Find(hwnd))
        return;
    window->hasUpdate = hadUpdate;
    window->update = update;
    window->erase = erase;
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
    cairo_set_source_rgb(cr, kDesktopGrey, kDesktopGrey, kDesktopGrey);
    cairo_paint(cr);
    cairo_destroy(cr);
    return surface;
}

} // namespace

bool SaveWindowAsPng(HWND hwnd, const std::string& path) {
    WindowManager& manager = WindowManager::Instance();
    Window* window = manager.Find(hwnd);
    if (!window || window == manager.Desktop())
        return window ? SaveDesktopAsPng(path) : false;
    if (window->Width() <= 0 || window->Height() <= 0)
        return false;
    cairo_surface_t* surface = NewSurface(window->Width(), window->Height());
    {
        user::ScopedRedirection redirect(window, surface, manager.WindowOrigin(window));
        PaintSubtree(window, window);
    }
    return Write(surface, path);
}

bool SaveDesktopAsPng(const std::string& path) {
    WindowManager& manager = WindowManager::Instance();
    Window* desktop = manager.Desktop();
    cairo_surface_t* surface = NewSurface(desktop->Width(), desktop->Height());
    // The z-order lists the topmost first.
    std::vector<HWND> windows;
    for (auto it = manager.TopLevel().rbegin(); it != manager.TopLevel().rend(); ++it)
        if ((*it)->visible)
            windows.push_back((*it)->handle);
    for (HWND hwnd : windows) {
        Window* window = manager.Find(hwnd);
        if (!window)
            continue;
        user::ScopedRedirection redirect(window, surface, POINT{0, 0});
        PaintSubtree(window, window);
    }
    return Write(surface, path);
}

} // namespace platform
