// Pixel rectangles, block transfers and single pixels. Rectangles are whole
// pixels: no half-pixel shift, right and bottom edges left out.
#include "Painting.h"
#include "PixelAccess.h"

#include <winuser.h>

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace platform::gdi {

void PaintRect(DeviceContext& dc, int x, int y, int width, int height, COLORREF color) {
    if (width <= 0 || height <= 0)
        return;
    AddBounds(dc, RECT{x, y, x + width, y + height});
    if (dc.Direct() && FastPathsEnabled()) {
        PixelAccess(dc).Fill(x + dc.origin.x, y + dc.origin.y, width, height, color);
        return;
    }
    SetSource(dc, color);
    cairo_t* cr = Cairo(dc);
    if (dc.preview) {
        // A preview page is far smaller than the paper: the rectangle's edges
        // go to whole pixels and it keeps at least one, so thin rules show.
        double left = x, top = y, right = x + width, bottom = y + height;
        cairo_user_to_device(cr, &left, &top);
        cairo_user_to_device(cr, &right, &bottom);
        left = std::round(left);
        top = std::round(top);
        right = std::max(std::round(right), left + 1);
        bottom = std::max(std::round(bottom), top + 1);
        cairo_save(cr);
        cairo_identity_matrix(cr);
        cairo_rectangle(cr, left, top, right - left, bottom - top);
        cairo_fill(cr);
        cairo_restore(cr);
        return;
    }
    cairo_rectangle(cr, x, y, width, height);
    cairo_fill(cr);
}

namespace {

RECT Normalised(int x, int y, int width, int height) {
    RECT rect{x, y, x + width, y + height};
    if (rect.right < rect.left)
        std::swap(rect.left, rect.right);
    if (rect.bottom < rect.top)
        std::swap(rect.top, rect.bottom);
    return rect;
}

void RecordRect(DeviceContext& dc, const char* op, const RECT& rect) {
    JournalEntry& entry = Record(dc, op);
    entry.args[0] = rect.left;
    entry.args[1] = rect.top;
    entry.args[2] = rect.right;
    entry.args[3] = rect.bottom;
}

// Copies a block between surfaces; a copy within one surface goes through a
// snapshot so overlapping areas move correctly.
// A copy between image surfaces of one format, with the source wholly on its
// surface, is a copy of pixel rows: what Cairo's SOURCE operator gives, at a
// fraction of its cost. False when the block needs Cairo.
bool CopyPixels(DeviceContext& dst, int x, int y, int width, int height, DeviceContext& src,
                int xSrc, int ySrc) {
    if (!dst.Direct() || !FastPathsEnabled() ||
        cairo_surface_get_type(src.surface) != CAIRO_SURFACE_TYPE_IMAGE)
        return false;
    const cairo_format_t format = cairo_image_surface_get_format(src.surface);
    if ((format != CAIRO_FORMAT_RGB24 && format != CAIRO_FORMAT_ARGB32) ||
        format != cairo_image_surface_get_format(dst.surface))
        return false;
    const long long left = static_cast<long long>(xSrc) + src.origin.x;
    const long long top = static_cast<long long>(ySrc) + src.origin.y;
    if (left < 0 || top < 0 || left + width > cairo_image_surface_get_width(src.surface) ||
        top + height > cairo_image_surface_get_height(src.surface))
        return false;
    cairo_surface_flush(src.surface);
    const int stride = cairo_image_surface_get_stride(src.surface) / 4;
    const uint32_t* from =
        reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(src.surface)) +
        top * stride + left;
    PixelAccess(dst).Copy(x + dst.origin.x, y + dst.origin.y, width, height, from, stride);
    return true;
}

void CopyBlock(DeviceContext& dst, int x, int y, int width, int height, DeviceContext& src,
               int xSrc, int ySrc) {
    AddBounds(dst, RECT{x, y, x + width, y + height});
    if (CopyPixels(dst, x, y, width, height, src, xSrc, ySrc))
        return;
    cairo_surface_t* source = src.surface;
    double offsetX = x - xSrc - src.origin.x;
    double offsetY = y - ySrc - src.origin.y;
    cairo_surface_t* copy = nullptr;
    if (source == dst.surface) {
        copy = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
        cairo_t* cr = cairo_create(copy);
        cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
        cairo_set_source_surface(cr, source, -(xSrc + src.origin.x), -(ySrc + src.origin.y));
        cairo_paint(cr);
        cairo_destroy(cr);
        source = copy;
        offsetX = x;
        offsetY = y;
    }
    cairo_t* cr = Cairo(dst);
    cairo_save(cr);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(cr, source, offsetX, offsetY);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_NEAREST);
    cairo_rectangle(cr, x, y, width, height);
    cairo_fill(cr);
    cairo_restore(cr);
    dst.cairoSource = CLR_INVALID;
    if (copy)
        cairo_surface_destroy(copy);
}

} // namespace
} // namespace platform::gdi

using namespace platform::gdi;
using platform::JournalEntry;

BOOL Rectangle(HDC hdc, int left, int top, int right, int bottom) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return FALSE;
    RECT rect = Normalised(left, top, right - left, bottom - top);
    if (dc->journal)
        RecordRect(*dc, "Rectangle", rect);
    rect = dc->mapping.ToDevice(rect);
    int width = rect.right - rect.left;
    int height = rect.bottom - rect.top;
    const Pen& pen = *dc->pen;
    if (pen.Null()) {
        if (Paints(dc->brush))
            PaintRect(*dc, rect.left, rect.top, width - 1, height - 1, dc->brush->color);
        return TRUE;
    }
    if (Paints(dc->brush))
        PaintRect(*dc, rect.left + 1, rect.top + 1, width - 2, height - 2, dc->brush->color);
    if (pen.Geometric() && pen.width > 1) {
        AddBounds(*dc, RECT{rect.left - pen.width, rect.top - pen.width, rect.right + pen.width,
                            rect.bottom + pen.width});
        cairo_t* cr = Cairo(*dc);
        cairo_new_path(cr);
        cairo_rectangle(cr, rect.left + 0.5, rect.top + 0.5, width - 1, height - 1);
        cairo_set_line_width(cr, pen.width);
        cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
        SetSource(*dc, pen.color);
        cairo_stroke(cr);
        return TRUE;
    }
    PaintRect(*dc, rect.left, rect.top, width, 1, pen.color);
    PaintRect(*dc, rect.left, rect.bottom - 1, width, 1, pen.color);
    PaintRect(*dc, rect.left, rect.top, 1, height, pen.color);
    PaintRect(*dc, rect.right - 1, rect.top, 1, height, pen.color);
    return TRUE;
}

BOOL PatBlt(HDC hdc, int x, int y, int width, int height, DWORD rop) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return FALSE;
    COLORREF color = 0;
    switch (rop) {
    case PATCOPY:
        if (!Paints(dc->brush))
            return TRUE;
        color = dc->brush->color;
        break;
    case BLACKNESS:
        color = RGB(0, 0, 0);
        break;
    case WHITENESS:
        color = RGB(255, 255, 255);
        break;
    default:
        return FALSE;
    }
    RECT rect = Normalised(x, y, width, height);
    if (dc->journal)
        RecordRect(*dc, "PatBlt", rect);
    rect = dc->mapping.ToDevice(rect);
    PaintRect(*dc, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, color);
    return TRUE;
}

BOOL BitBlt(HDC hdcDst, int x, int y, int width, int height, HDC hdcSrc, int xSrc, int ySrc,
            DWORD rop) {
    DeviceContext* dst = LookupDC(hdcDst);
    if (!dst)
        return FALSE;
    if (rop != SRCCOPY)
        return PatBlt(hdcDst, x, y, width, height, rop);
    DeviceContext* src = LookupDC(hdcSrc);
    if (!src || !src->Raster() || width <= 0 || height <= 0)
        return FALSE;
    if (dst->journal)
        RecordRect(*dst, "BitBlt", RECT{x, y, x + width, y + height});
    // The block keeps its size in device pixels: no stretching.
    RECT box = dst->mapping.ToDevice(RECT{x, y, x + width, y + height});
    POINT from = src->mapping.ToDevice(xSrc, ySrc);
    if (box.right <= box.left || box.bottom <= box.top)
        return TRUE;
    CopyBlock(*dst, box.left, box.top, box.right - box.left, box.bottom - box.top, *src, from.x,
              from.y);
    return TRUE;
}

COLORREF GetPixel(HDC hdc, int x, int y) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !dc->Raster())
        return CLR_INVALID;
    POINT at = dc->mapping.ToDevice(x, y);
    long long dx = static_cast<long long>(at.x) + dc->origin.x;
    long long dy = static_cast<long long>(at.y) + dc->origin.y;
    if (!dc->InClip(dx, dy))
        return CLR_INVALID;
    cairo_surface_flush(dc->surface);
    if (dx >= cairo_image_surface_get_width(dc->surface) ||
        dy >= cairo_image_surface_get_height(dc->surface))
        return CLR_INVALID;
    const unsigned char* data = cairo_image_surface_get_data(dc->surface);
    int stride = cairo_image_surface_get_stride(dc->surface);
    uint32_t pixel = reinterpret_cast<const uint32_t*>(data + dy * stride)[dx];
    return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

COLORREF SetPixel(HDC hdc, int x, int y, COLORREF color) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return CLR_INVALID;
    POINT at = dc->mapping.ToDevice(x, y);
    PaintRect(*dc, at.x, at.y, 1, 1, color & 0xFFFFFF);
    return color & 0xFFFFFF;
}

int GetClipBox(HDC hdc, LPRECT rect) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !rect)
        return ERROR;
    *rect =
        dc->mapping.ToLogical(RECT{dc->clip.left - dc->origin.x, dc->clip.top - dc->origin.y,
                                   dc->clip.right - dc->origin.x, dc->clip.bottom - dc->origin.y});
    bool empty = dc->clip.right <= dc->clip.left || dc->clip.bottom <= dc->clip.top;
    return empty ? NULLREGION : SIMPLEREGION;
}

namespace {

constexpr std::uintptr_t kLastSystemColorPlusOne = COLOR_MENUBAR + 1;

} // namespace

int FillRect(HDC hdc, const RECT* rect, HBRUSH handle) {
    DeviceContext* dc = LookupDC(hdc);
    // A system colour's index plus one stands for its brush, as in a window
    // class's background.
    const auto value = reinterpret_cast<std::uintptr_t>(handle);
    if (value >= 1 && value <= kLastSystemColorPlusOne)
        handle = GetSysColorBrush(static_cast<int>(value - 1));
    auto* brush = LookupAs<Brush>(handle, OBJ_BRUSH);
    if (!dc || !rect || !brush)
        return 0;
    if (dc->journal)
        RecordRect(*dc, "FillRect", *rect);
    // Mapped as given: a rectangle whose right or bottom lies before its
    // left or top fills nothing.
    if (Paints(brush)) {
        POINT from = dc->mapping.ToDevice(rect->left, rect->top);
        POINT to = dc->mapping.ToDevice(rect->right, rect->bottom);
        PaintRect(*dc, std::min(from.x, to.x), std::min(from.y, to.y),
                  rect->right > rect->left ? std::abs(to.x - from.x) : 0,
                  rect->bottom > rect->top ? std::abs(to.y - from.y) : 0, brush->color);
    }
    return 1;
}

int FrameRect(HDC hdc, const RECT* rect, HBRUSH handle) {
    DeviceContext* dc = LookupDC(hdc);
    auto* brush = LookupAs<Brush>(handle, OBJ_BRUSH);
    if (!dc || !rect || !brush)
        return 0;
    if (dc->journal)
        RecordRect(*dc, "FrameRect", *rect);
    if (rect->right < rect->left || rect->bottom < rect->top || !Paints(brush))
        return 1;
    // The border is one logical unit wide.
    RECT outer = dc->mapping.ToDevice(*rect);
    RECT inner = dc->mapping.ToDevice(
        RECT{rect->left + 1, rect->top + 1, rect->right - 1, rect->bottom - 1});
    int across = std::max<LONG>(1, inner.left - outer.left);
    int down = std::max<LONG>(1, inner.top - outer.top);
    int width = outer.right - outer.left;
    int height = outer.bottom - outer.top;
    PaintRect(*dc, outer.left, outer.top, width, down, brush->color);
    PaintRect(*dc, outer.left, outer.bottom - down, width, down, brush->color);
    PaintRect(*dc, outer.left, outer.top, across, height, brush->color);
    PaintRect(*dc, outer.right - across, outer.top, across, height, brush->color);
    return 1;
}
