// Lines and polygons. Geometric pens are stroked by Cairo with every vertex on
// its pixel's centre; cosmetic pens step pixel by pixel and leave out the end
// point, as the original does.
#include "Painting.h"
#include "PixelAccess.h"

#include <cairo.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace platform::gdi {
namespace {

// A one-pixel line from (x0, y0) up to but not including (x1, y1).
void CosmeticLine(DeviceContext& dc, int x0, int y0, int x1, int y1, COLORREF color) {
    if (x0 == x1 && y0 == y1)
        return;
    if (y0 == y1) {
        int left = x0 < x1 ? x0 : x1 + 1;
        PaintRect(dc, left, y0, std::abs(x1 - x0), 1, color);
        return;
    }
    if (x0 == x1) {
        int top = y0 < y1 ? y0 : y1 + 1;
        PaintRect(dc, x0, top, 1, std::abs(y1 - y0), color);
        return;
    }
    int dx = std::abs(x1 - x0);
    int dy = -std::abs(y1 - y0);
    int sx = x0 < x1 ? 1 : -1;
    int sy = y0 < y1 ? 1 : -1;
    int error = dx + dy;
    int x = x0;
    int y = y0;
    while (x != x1 || y != y1) {
        PaintRect(dc, x, y, 1, 1, color);
        int twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            x += sx;
        }
        if (twice <= dx) {
            error += dx;
            y += sy;
        }
    }
}

void TracePath(cairo_t* cr, const POINT* points, int count, bool close) {
    cairo_new_path(cr);
    cairo_move_to(cr, points[0].x + 0.5, points[0].y + 0.5);
    for (int i = 1; i < count; ++i)
        cairo_line_to(cr, points[i].x + 0.5, points[i].y + 0.5);
    if (close)
        cairo_close_path(cr);
}

// Axis-aligned strokes with flat ends are unions of rectangles, and at width 1
// a round join adds exactly the bend's pixel. Those are written directly; the
// result equals Cairo's.
bool StrokeAxisAligned(DeviceContext& dc, const Pen& pen, const POINT* points, int count) {
    if (!dc.Direct() || !FastPathsEnabled() || (pen.style & PS_ENDCAP_MASK) != PS_ENDCAP_FLAT ||
        (pen.style & PS_STYLE_MASK) != PS_SOLID)
        return false;
    int width = pen.width < 1 ? 1 : pen.width;
    if (count > 2 && (width != 1 || (pen.style & PS_JOIN_MASK) != PS_JOIN_ROUND))
        return false;
    for (int i = 1; i < count; ++i) {
        bool horizontal = points[i].y == points[i - 1].y;
        bool vertical = points[i].x == points[i - 1].x;
        if (horizontal == vertical) // diagonal, or a zero-length segment
            return false;
    }
    int half = width / 2;
    PixelAccess pixels(dc);
    for (int i = 1; i < count; ++i) {
        const POINT& a = points[i - 1];
        const POINT& b = points[i];
        if (a.y == b.y) {
            int left = a.x < b.x ? a.x : b.x;
            pixels.Fill(left + dc.origin.x, a.y - half + dc.origin.y, std::abs(b.x - a.x), width,
                        pen.color);
        } else {
            int top = a.y < b.y ? a.y : b.y;
            pixels.Fill(a.x - half + dc.origin.x, top + dc.origin.y, width, std::abs(b.y - a.y),
                        pen.color);
        }
        if (i + 1 < count)
            pixels.Fill(b.x + dc.origin.x, b.y + dc.origin.y, 1, 1, pen.color);
    }
    return true;
}

void Stroke(DeviceContext& dc, const Pen& pen, const POINT* points, int count, bool close) {
    if (pen.Null() || count < 2)
        return;
    if (!pen.Geometric()) {
        for (int i = 1; i < count; ++i)
            CosmeticLine(dc, points[i - 1].x, points[i - 1].y, points[i].x, points[i].y, pen.color);
        if (close)
            CosmeticLine(dc, points[count - 1].x, points[count - 1].y, points[0].x, points[0].y,
                         pen.color);
        return;
    }
    if (!close && StrokeAxisAligned(dc, pen, points, count))
        return;
    cairo_t* cr = Cairo(dc);
    TracePath(cr, points, count, close);
    double width = pen.width < 1 ? 1 : pen.width;
    // On a preview page a stroke keeps at least one pixel.
    if (dc.preview && width * dc.scale < 1)
        width = 1 / dc.scale;
    cairo_set_line_width(cr, width);
    cairo_set_line_cap(cr, CairoCap(pen.style));
    cairo_set_line_join(cr, CairoJoin(pen.style));
    SetSource(dc, pen.color);
    cairo_stroke(cr);
}

// Points and pen as the device draws them: under a mapping mode the points
// are mapped and a geometric pen's width is scaled with them.
struct DevicePath {
    DevicePath(const DeviceContext& dc, const POINT* logical, int count) : pen(*dc.pen) {
        if (dc.mapping.Identity()) {
            points = logical;
            return;
        }
        mapped.reserve(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i)
            mapped.push_back(dc.mapping.ToDevice(logical[i].x, logical[i].y));
        points = mapped.data();
        if (pen.Geometric() && !dc.mapping.Unscaled())
            pen.width = std::max(1, std::abs(dc.mapping.WidthToDevice(pen.width)));
    }
    std::vector<POINT> mapped;
    const POINT* points = nullptr;
    Pen pen;
};

void RecordPoints(DeviceContext& dc, const char* op, const POINT* points, int count) {
    JournalEntry& entry = Record(dc, op);
    entry.args[0] = count;
    entry.points.assign(points, points + count);
}

} // namespace

cairo_line_cap_t CairoCap(DWORD style) {
    switch (style & PS_ENDCAP_MASK) {
    case PS_ENDCAP_FLAT:
        return CAIRO_LINE_CAP_BUTT;
    case PS_ENDCAP_SQUARE:
        return CAIRO_LINE_CAP_SQUARE;
    default:
        return CAIRO_LINE_CAP_ROUND;
    }
}

cairo_line_join_t CairoJoin(DWORD style) {
    switch (style & PS_JOIN_MASK) {
    case PS_JOIN_BEVEL:
        return CAIRO_LINE_JOIN_BEVEL;
    case PS_JOIN_MITER:
        return CAIRO_LINE_JOIN_MITER;
    default:
        return CAIRO_LINE_JOIN_ROUND;
    }
}

} // namespace platform::gdi

using namespace platform::gdi;
using platform::JournalEntry;

BOOL MoveToEx(HDC hdc, int x, int y, LPPOINT previous) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return FALSE;
    if (previous)
        *previous = dc->position;
    dc->position = POINT{x, y};
    return TRUE;
}

BOOL LineTo(HDC hdc, int x, int y) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc)
        return FALSE;
    POINT line[2] = {dc->position, POINT{x, y}};
    if (dc->journal)
        RecordPoints(*dc, "LineTo", line, 2);
    DevicePath path(*dc, line, 2);
    AddPointBounds(*dc, path.points, 2, path.pen.width + 1);
    Stroke(*dc, path.pen, path.points, 2, false);
    dc->position = line[1];
    return TRUE;
}

BOOL Polyline(HDC hdc, const POINT* points, int count) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !points || count < 2)
        return FALSE;
    if (dc->journal)
        RecordPoints(*dc, "Polyline", points, count);
    DevicePath path(*dc, points, count);
    AddPointBounds(*dc, path.points, count, path.pen.width + 1);
    Stroke(*dc, path.pen, path.points, count, false);
    return TRUE;
}

BOOL Polygon(HDC hdc, const POINT* points, int count) {
    DeviceContext* dc = LookupDC(hdc);
    if (!dc || !points || count < 2)
        return FALSE;
    if (dc->journal)
        RecordPoints(*dc, "Polygon", points, count);
    DevicePath path(*dc, points, count);
    AddPointBounds(*dc, path.points, count, path.pen.width + 1);
    points = path.points;
    if (dc->mapping.Unscaled() && PolygonFromMasks(*dc, points, count))
        return TRUE;
    if (Paints(dc->brush)) {
        cairo_t* cr = Cairo(*dc);
        TracePath(cr, points, count, true);
        cairo_set_fill_rule(cr, dc->polyFillMode == WINDING ? CAIRO_FILL_RULE_WINDING
                                                            : CAIRO_FILL_RULE_EVEN_ODD);
        SetSource(*dc, dc->brush->color);
        cairo_fill(cr);
    }
    Stroke(*dc, path.pen, points, count, true);
    return TRUE;
}
