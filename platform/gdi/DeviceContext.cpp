// Device contexts: creation, the selected objects and the drawing state.
#include "DeviceContext.h"

#include "FontInstance.h"

#include <winuser.h>

#include <cairo.h>

#include <algorithm>

namespace platform::gdi {

DeviceContext* LookupDC(HDC hdc) {
    GdiObject* object = Lookup(hdc);
    if (!object || (object->type != OBJ_DC && object->type != OBJ_MEMDC))
        return nullptr;
    return static_cast<DeviceContext*>(object);
}

DeviceContext::~DeviceContext() {
    if (kind == DcKind::Screen)
        ClosedOnDesktop(*this);
    if (cr)
        cairo_destroy(cr);
    if (kind == DcKind::Printer && surface)
        cairo_surface_destroy(surface);
}

void ResetCairo(DeviceContext& dc) {
    if (dc.cr)
        cairo_destroy(dc.cr);
    dc.cr = nullptr;
    dc.cairoSource = CLR_INVALID;
    dc.cairoFace = nullptr;
}

cairo_t* Cairo(DeviceContext& dc) {
    if (dc.cr)
        return dc.cr;
    cairo_t* cr = dc.cr = cairo_create(dc.surface);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    if (dc.kind == DcKind::Printer)
        cairo_scale(cr, dc.scale, dc.scale);
    if (dc.excluded.empty()) {
        cairo_rectangle(cr, dc.clip.left, dc.clip.top, dc.clip.right - dc.clip.left,
                        dc.clip.bottom - dc.clip.top);
    } else {
        // The clip less the excluded rectangles, as disjoint rectangles.
        cairo_rectangle_int_t box{dc.clip.left, dc.clip.top, dc.clip.right - dc.clip.left,
                                  dc.clip.bottom - dc.clip.top};
        cairo_region_t* region = cairo_region_create_rectangle(&box);
        for (const RECT& r : dc.excluded) {
            cairo_rectangle_int_t cut{r.left, r.top, r.right - r.left, r.bottom - r.top};
            cairo_region_subtract_rectangle(region, &cut);
        }
        for (int i = 0, n = cairo_region_num_rectangles(region); i < n; ++i) {
            cairo_rectangle_int_t part;
            cairo_region_get_rectangle(region, i, &part);
            cairo_rectangle(cr, part.x, part.y, part.width, part.height);
        }
        cairo_region_destroy(region);
    }
    cairo_clip(cr);
    cairo_translate(cr, dc.origin.x, dc.origin.y);
    return cr;
}

void SetSource(DeviceContext& dc, COLORREF color) {
    color &= 0xFFFFFF;
    if (dc.cairoSource == color)
        return;
    dc.cairoSource = color;
    cairo_set_source_rgb(Cairo(dc), GetRValue(color) / 255.0, GetGValue(color) / 255.0,
                         GetBValue(color) / 255.0);
}

bool DeviceContext::InClip(long long x, long long y) const {
    if (x < clip.left || x >= clip.right || y < clip.top || y >= clip.bottom)
        return false;
    for (const RECT& r : excluded)
        if (x >= r.left && x < r.right && y >= r.top && y < r.bottom)
            return false;
    return true;
}

void ExcludeFromClip(HDC hdc, const std::vector<RECT>& rects) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || rects.empty())
        return;
    dc->excluded.insert(dc->excluded.end(), rects.begin(), rects.end());
    ResetCairo(*dc);
}

namespace {

// A desktop in the default window colour.
cairo_surface_t* BlankDesktop(int width, int height) {
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* cr = cairo_create(surface);
    cairo_set_source_rgb(cr, 1, 1, 1);
    cairo_paint(cr);
    cairo_destroy(cr);
    return surface;
}

cairo_surface_t*& Desktop() {
    static cairo_surface_t* surface = BlankDesktop(kHeadlessDesktopWidth, kHeadlessDesktopHeight);
    return surface;
}

} // namespace

cairo_surface_t* DesktopSurface() {
    return Desktop();
}

int DesktopWidth() {
    return cairo_image_surface_get_width(Desktop());
}

int DesktopHeight() {
    return cairo_image_surface_get_height(Desktop());
}

void ResizeDesktopSurface(int width, int height) {
    if (width == DesktopWidth() && height == DesktopHeight())
        return;
    cairo_surface_t* resized = BlankDesktop(width, height);
    cairo_t* cr = cairo_create(resized);
    cairo_set_source_surface(cr, Desktop(), 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
    // Cairo contexts of open DCs hold their own references to the old one.
    cairo_surface_destroy(Desktop());
    Desktop() = resized;
}

namespace {

void SelectDefaults(DeviceContext& dc) {
    dc.pen = static_cast<Pen*>(Stock(BLACK_PEN));
    dc.brush = static_cast<Brush*>(Stock(WHITE_BRUSH));
    dc.font = static_cast<Font*>(Stock(SYSTEM_FONT));
}

void ReleaseSelections(DeviceContext& dc) {
    GdiObject* selected[] = {dc.pen, dc.brush, dc.font, dc.bitmap};
    dc.pen = nullptr;
    dc.brush = nullptr;
    dc.font = nullptr;
    dc.bitmap = nullptr;
    for (GdiObject* object : selected)
        Release(object);
}

} // namespace

HDC CreateDesktopDC(POINT origin, RECT clip, HWND window) {
    HDC hdc = CreateSurfaceDC(DesktopSurface(), origin, clip, window);
    if (DeviceContext* dc = LookupDC(hdc))
        OpenedOnDesktop(*dc);
    return hdc;
}

HDC CreateSurfaceDC(cairo_surface_t* surface, POINT origin, RECT clip, HWND window) {
    auto* dc = new DeviceContext(DcKind::Screen);
    dc->surface = surface;
    dc->origin = origin;
    RECT bounds{0, 0, cairo_image_surface_get_width(surface),
                cairo_image_surface_get_height(surface)};
    dc->clip = RECT{std::max(clip.left, bounds.left), std::max(clip.top, bounds.top),
                    std::min(clip.right, bounds.right), std::min(clip.bottom, bounds.bottom)};
    if (dc->clip.right < dc->clip.left)
        dc->clip.right = dc->clip.left;
    if (dc->clip.bottom < dc->clip.top)
        dc->clip.bottom = dc->clip.top;
    dc->window = window;
    SelectDefaults(*dc);
    ResetCairo(*dc);
    return static_cast<HDC>(Register(dc));
}

JournalEntry& Record(DeviceContext& dc, const char* op) {
    JournalEntry& entry = dc.journal->entries.emplace_back();
    entry.op = op;
    entry.textColor = dc.textColor;
    entry.bkColor = dc.bkColor;
    entry.bkMode = dc.bkMode;
    if (dc.font) {
        const LOGFONTW& lf = dc.font->logFont;
        entry.fontFace.assign(lf.lfFaceName,
                              std::find(lf.lfFaceName, lf.lfFaceName + LF_FACESIZE, 0));
        entry.fontHeight = lf.lfHeight;
        entry.fontWeight = lf.lfWeight;
        entry.fontUnderline = lf.lfUnderline != 0;
        entry.fontItalic = lf.lfItalic != 0;
    }
    if (dc.pen) {
        entry.penStyle = dc.pen->style;
        entry.penWidth = dc.pen->width;
        entry.penColor = dc.pen->color;
    }
    if (dc.brush) {
        entry.brushStyle = dc.brush->style;
        entry.brushColor = dc.brush->color;
    }
    return entry;
}

} // namespace platform::gdi

namespace platform {

void SetJournal(HDC hdc, GdiJournal* journal) {
    if (gdi::DeviceContext* dc = gdi::LookupDC(hdc))
        dc->journal = journal;
}

} // namespace platform

using namespace platform::gdi;
using platform::JournalEntry;

HDC CreateCompatibleDC(HDC hdc) {
    DeviceContext* reference = hdc ? LookupDC(hdc) : nullptr;
    if (hdc && !reference)
        return nullptr;
    auto* dc = new DeviceContext(DcKind::Memory);
    dc->bitmap = DefaultBitmap();
    Retain(dc->bitmap);
    dc->surface = dc->bitmap->surface;
    dc->clip = RECT{0, 0, 1, 1};
    SelectDefaults(*dc);
    ResetCairo(*dc);
    return static_cast<HDC>(Register(dc));
}

BOOL DeleteDC(HDC hdc) {
    DeviceContext* dc = LookupDC(hdc);
    // Window and screen DCs go back through ReleaseDC.
    if (!dc || dc->kind == DcKind::Screen)
        return FALSE;
    if (dc->kind == DcKind::Printer && dc->inDocument)
        AbortDoc(hdc);
    ReleaseSelections(*dc);
    Destroy(dc);
    return TRUE;
}

HDC GetDC(HWND hwnd) {
    if (!hwnd)
        return CreateDesktopDC(POINT{0, 0}, RECT{0, 0, DesktopWidth(), DesktopHeight()}, nullptr);
    return platform::user::GetClientDC(hwnd, nullptr);
}

HDC GetWindowDC(HWND hwnd) {
    if (!hwnd)
        return GetDC(nullptr);
    return platform::user::GetWholeWindowDC(hwnd);
}

int ReleaseDC(HWND hwnd, HDC hdc) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || dc->kind != DcKind::Screen || dc->window != hwnd)
        return 0;
    ReleaseSelections(*dc);
    Destroy(dc);
    return 1;
}

HGDIOBJ SelectObject(HDC hdc, HGDIOBJ handle) {
    DeviceContext* dc = LookupDC(hdc);
    GdiObject* object = Lookup(handle);
    if (!dc || !object || object->deletePending)
        return nullptr;
    GdiObject* previous = nullptr;
    switch (object->type) {
    case OBJ_PEN:
        previous = dc->pen;
        dc->pen = static_cast<Pen*>(object);
        break;
    case OBJ_BRUSH:
        previous = dc->brush;
        dc->brush = static_cast<Brush*>(object);
        break;
    case OBJ_FONT:
        previous = dc->font;
        dc->font = static_cast<Font*>(object);
        break;
    case OBJ_BITMAP: {
        auto* bitmap = static_cast<Bitmap*>(object);
        // Only memory DCs take bitmaps, and a bitmap lives in one DC at a time.
        if (dc->kind != DcKind::Memory)
            return nullptr;
        if (bitmap != dc->bitmap && bitmap->selections > 0 && !bitmap->stock)
            return nullptr;
        previous = dc->bitmap;
        dc->bitmap = bitmap;
        dc->surface = bitmap->surface;
        dc->clip = RECT{0, 0, bitmap->width, bitmap->height};
        ResetCairo(*dc);
        break;
    }
    default:
        return nullptr;
    }
    if (dc->journal) {
        JournalEntry& entry = Record(*dc, "SelectObject");
        entry.args[0] = static_cast<int>(object->type);
    }
    // The previous object may be deleted now (a deferred DeleteObject); its
    // handle is still what the caller gets back, as on the original.
    HGDIOBJ previousHandle = HandleOf(previous);
    Retain(object);
    Release(previous);
    return previousHandle;
}

HGDIOBJ GetCurrentObject(HDC hdc, UINT type) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return nullptr;
    switch (type) {
    case OBJ_PEN:
        return HandleOf(dc->pen);
    case OBJ_BRUSH:
        return HandleOf(dc->brush);
    case OBJ_FONT:
        return HandleOf(dc->font);
    case OBJ_BITMAP:
        return HandleOf(dc->bitmap);
    default:
        return nullptr;
    }
}

COLORREF SetTextColor(HDC hdc, COLORREF color) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return CLR_INVALID;
    COLORREF previous = dc->textColor;
    dc->textColor = color & 0xFFFFFF;
    if (dc->journal)
        Record(*dc, "SetTextColor").args[0] = static_cast<int>(color);
    return previous;
}

COLORREF GetTextColor(HDC hdc) {
    DeviceContext* dc = LookupDC(hdc);
    return dc ? dc->textColor : CLR_INVALID;
}

COLORREF SetBkColor(HDC hdc, COLORREF color) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return CLR_INVALID;
    COLORREF previous = dc->bkColor;
    dc->bkColor = color & 0xFFFFFF;
    if (dc->journal)
        Record(*dc, "SetBkColor").args[0] = static_cast<int>(color);
    return previous;
}

COLORREF GetBkColor(HDC hdc) {
    DeviceContext* dc = LookupDC(hdc);
    return dc ? dc->bkColor : CLR_INVALID;
}

int SetBkMode(HDC hdc, int mode) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || (mode != TRANSPARENT && mode != OPAQUE))
        return 0;
    int previous = dc->bkMode;
    dc->bkMode = mode;
    if (dc->journal)
        Record(*dc, "SetBkMode").args[0] = mode;
    return previous;
}

int GetBkMode(HDC hdc) {
    DeviceContext* dc = LookupDC(hdc);
    return dc ? dc->bkMode : 0;
}

int SetPolyFillMode(HDC hdc, int mode) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || (mode != ALTERNATE && mode != WINDING))
        return 0;
    int previous = dc->polyFillMode;
    dc->polyFillMode = mode;
    return previous;
}

int GetDeviceCaps(HDC hdc, int index) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return 0;
    bool printer = dc->kind == DcKind::Printer;
    switch (index) {
    case LOGPIXELSX:
    case LOGPIXELSY:
        return dc->dpi;
    case HORZRES:
    case PHYSICALWIDTH:
        return printer ? dc->pageWidth
                       : (dc->kind == DcKind::Memory ? dc->clip.right : DesktopWidth());
    case VERTRES:
    case PHYSICALHEIGHT:
        return printer ? dc->pageHeight
                       : (dc->kind == DcKind::Memory ? dc->clip.bottom : DesktopHeight());
    case BITSPIXEL:
        return 32;
    case PHYSICALOFFSETX:
    case PHYSICALOFFSETY:
        return 0;
    default:
        return 0;
    }
}
