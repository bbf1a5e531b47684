// A device context: its target surface, its Cairo context, the selected
// objects and the drawing state.
#pragma once

#include "GdiObject.h"

#include <platform/GdiJournal.h>

#include <memory>
#include <string>
#include <vector>

typedef struct _cairo cairo_t;
typedef struct _cairo_font_face cairo_font_face_t;

namespace platform::gdi {

enum class DcKind { Memory, Screen, Printer };

// How logical coordinates become device coordinates: the mapping mode with
// its window and viewport origins and extents. Device coordinates here are
// relative to the DC's own origin (see DeviceContext::origin).
struct Mapping {
    int mode = MM_TEXT;
    POINT windowOrg{0, 0};
    POINT viewportOrg{0, 0};
    SIZE windowExt{1, 1};
    SIZE viewportExt{1, 1};

    // MM_TEXT with both origins at 0: logical units are device pixels.
    bool Identity() const {
        return mode == MM_TEXT && windowOrg.x == 0 && windowOrg.y == 0 && viewportOrg.x == 0 &&
               viewportOrg.y == 0;
    }
    // Whether a logical unit is a device pixel in both directions.
    bool Unscaled() const {
        return mode == MM_TEXT ||
               (windowExt.cx == viewportExt.cx && windowExt.cy == viewportExt.cy);
    }
    POINT ToDevice(int x, int y) const;
    POINT ToLogical(int x, int y) const;
    // A rectangle's corners mapped, then put in order.
    RECT ToDevice(const RECT& rect) const;
    RECT ToLogical(const RECT& rect) const;
    // Lengths along each axis, sign kept.
    int WidthToDevice(int length) const;
    int HeightToDevice(int length) const;
    int WidthToLogical(int length) const;
    int HeightToLogical(int length) const;
};

struct DeviceContext : GdiObject {
    DcKind kind = DcKind::Memory;
    cairo_surface_t* surface = nullptr; // the target; owned (referenced) only by printer DCs
    // Cairo's context for the target, made on first use (see Cairo): most
    // DCs draw through the direct pixel paths only and never need one.
    cairo_t* cr = nullptr;
    // Logical (0, 0) in device pixels, and the clip in device pixels.
    POINT origin{0, 0};
    RECT clip{0, 0, 0, 0};
    // Parts of the clip left out (device pixels): the windows lying above a
    // window DC's window on the desktop.
    std::vector<RECT> excluded;
    int dpi = 96;
    // A window DC keeps the window it belongs to; ReleaseDC checks it.
    HWND window = nullptr;

    Pen* pen = nullptr;
    Brush* brush = nullptr;
    Font* font = nullptr;
    Bitmap* bitmap = nullptr;

    COLORREF textColor = 0x000000;
    COLORREF bkColor = 0xFFFFFF;
    int bkMode = OPAQUE;
    int polyFillMode = ALTERNATE;
    POINT position{0, 0}; // logical
    Mapping mapping;
    // The selected font realised at its mapped height, while the mapping
    // scales: mappedFor is the LOGFONT it was realised for.
    std::shared_ptr<FontInstance> mappedFont;
    LOGFONTW mappedFor{};
    GdiJournal* journal = nullptr;
    // Bounds accumulation (SetBoundsRect): device pixels relative to origin.
    bool boundsEnabled = false;
    RECT bounds{0, 0, 0, 0};
    COLORREF cairoSource = CLR_INVALID; // the colour last given to Cairo
    // The font face and size last given to Cairo: text in one font sets them once.
    cairo_font_face_t* cairoFace = nullptr;
    int cairoPpem = 0;

    // Printer DCs: the output file and the document state.
    std::string outputPath;
    bool inDocument = false;
    bool inPage = false;
    int pageWidth = 0; // in device dots
    int pageHeight = 0;
    // The output the printer was created with (the PDF printer's file), and
    // the print queue the finished document goes to (empty for the PDF
    // printer, and when StartDoc named a file instead).
    std::string port;
    std::string queue;
    std::string submitTo;
    std::string title;
    int copies = 1;
    bool collate = false;
    // Cairo units per dot: points for a PDF page, pixels for a preview page.
    double scale = 1.0;
    // A preview page: a printer DC drawing onto a bitmap at a small scale,
    // where every line and rectangle keeps at least one pixel.
    bool preview = false;

    explicit DeviceContext(DcKind dcKind)
        : GdiObject(dcKind == DcKind::Memory ? OBJ_MEMDC : OBJ_DC), kind(dcKind) {}
    ~DeviceContext() override;

    // Whether pixels can be written directly: an image surface with an
    // untransformed context.
    bool Raster() const { return kind != DcKind::Printer; }
    // Whether the fast paths may write pixels directly: they clip to one
    // rectangle only.
    bool Direct() const { return Raster() && excluded.empty(); }
    // Whether a device pixel lies in the clip.
    bool InClip(long long x, long long y) const;
};

DeviceContext* LookupDC(HDC hdc);

// Drops the Cairo context after the target, origin or clip changed; the next
// Cairo call makes a new one.
void ResetCairo(DeviceContext& dc);
// The Cairo context for the current target, with the origin and clip applied
// and anti-aliasing off; made when first asked for.
cairo_t* Cairo(DeviceContext& dc);
// Sets Cairo's source colour, skipping the call when it is already set.
void SetSource(DeviceContext& dc, COLORREF color);

// A DC that draws onto the desktop surface at origin (device pixels), clipped
// to clip (device pixels).
HDC CreateDesktopDC(POINT origin, RECT clip, HWND window);
// The same on another image surface (not owned), for off-screen pictures.
HDC CreateSurfaceDC(cairo_surface_t* surface, POINT origin, RECT clip, HWND window);
// Leaves rectangles (device pixels) out of a DC's clip.
void ExcludeFromClip(HDC hdc, const std::vector<RECT>& rects);
// The surface every window draws on: 1280 by 1024 pixels, or the screen's
// size on a display.
constexpr int kHeadlessDesktopWidth = 1280;
constexpr int kHeadlessDesktopHeight = 1024;
cairo_surface_t* DesktopSurface();
int DesktopWidth();
int DesktopHeight();
// Gives the desktop surface a new size, keeping what lies inside both. DCs
// already open keep drawing on the old surface until they are released.
void ResizeDesktopSurface(int width, int height);

// Adds a rectangle (device pixels relative to the DC's origin) to the DC's
// bounds while it accumulates them. Every drawing call reports what it drew.
void AddBounds(DeviceContext& dc, const RECT& device);
// The same for the bounding box of points, widened by margin on each side.
void AddPointBounds(DeviceContext& dc, const POINT* points, int count, int margin);

// The part of the desktop surface that DCs could have drawn on since the
// last call (the union of the clips of the desktop DCs created since then
// and of those still open), in desktop pixels; empty when nothing could
// have changed. The display sends on only what lies inside it.
RECT TakeDesktopChanges();
// Kept by the DCs themselves: a desktop DC opening and closing.
void OpenedOnDesktop(const DeviceContext& dc);
void ClosedOnDesktop(const DeviceContext& dc);

// Appends a journal entry carrying the DC's current state; returns it so the
// caller can add arguments. Only call when dc.journal is set.
JournalEntry& Record(DeviceContext& dc, const char* op);

} // namespace platform::gdi

namespace platform::user {
// The window system's DC for a window's client area, clipped to clip when given.
HDC GetClientDC(HWND hwnd, const RECT* clip);
// The same for the whole window, its frame included.
HDC GetWholeWindowDC(HWND hwnd);
} // namespace platform::user
