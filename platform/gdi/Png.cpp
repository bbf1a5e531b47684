// Saving what a DC or bitmap shows as PNG.
#include "DeviceContext.h"

#include <platform/GdiObjects.h>

#include <cairo.h>

namespace platform {
namespace {

bool WriteRegion(cairo_surface_t* surface, const RECT& area, const std::string& path) {
    int width = area.right - area.left;
    int height = area.bottom - area.top;
    if (!surface || width <= 0 || height <= 0)
        return false;
    cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* cr = cairo_create(image);
    cairo_set_source_surface(cr, surface, -area.left, -area.top);
    cairo_paint(cr);
    cairo_destroy(cr);
    bool ok = cairo_surface_write_to_png(image, path.c_str()) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(image);
    return ok;
}

} // namespace

bool SaveDcAsPng(HDC hdc, const std::string& path) {
    gdi::DeviceContext* dc = gdi::LookupDC(hdc);
    if (!dc || !dc->Raster())
        return false;
    // A window DC shows its client area; the screen and memory DCs all of it.
    return WriteRegion(dc->surface, dc->clip, path);
}

bool SaveBitmapAsPng(HBITMAP handle, const std::string& path) {
    auto* bitmap = gdi::LookupAs<gdi::Bitmap>(handle, OBJ_BITMAP);
    if (!bitmap)
        return false;
    return WriteRegion(bitmap->surface, RECT{0, 0, bitmap->width, bitmap->height}, path);
}

} // namespace platform
