// The cursor's look: the arrow (also for the cursors drawn as an arrow here),
// the text beam, and the busy ring of the wait cursor, flat and without
// anti-aliasing like the rest of the desktop.
#include "CursorPicture.h"

#include "Cursors.h"

#include <windows.h>

#include <cairo.h>

namespace platform::user {

namespace {

void Rgb(cairo_t* cr, COLORREF color) {
    cairo_set_source_rgb(cr, GetRValue(color) / 255.0, GetGValue(color) / 255.0,
                         GetBValue(color) / 255.0);
}

// The arrow's outline, its tip at the hot spot (x, y).
void Arrow(cairo_t* cr, double x, double y) {
    static const double kOutline[][2] = {{0, 17}, {4, 13}, {7, 20}, {10, 19}, {7, 12}, {12, 12}};
    cairo_move_to(cr, x + 0.5, y + 0.5);
    for (const auto& point : kOutline)
        cairo_line_to(cr, x + point[0] + 0.5, y + point[1] + 0.5);
    cairo_close_path(cr);
    Rgb(cr, RGB(255, 255, 255));
    cairo_fill_preserve(cr);
    Rgb(cr, RGB(0, 0, 0));
    cairo_set_line_width(cr, 1);
    cairo_stroke(cr);
}

// A ring around the hot spot.
void BusyRing(cairo_t* cr, double x, double y, double radius) {
    cairo_new_path(cr);
    cairo_arc(cr, x + 0.5, y + 0.5, radius, 0, 6.2832);
    Rgb(cr, RGB(0, 120, 215));
    cairo_set_line_width(cr, 3);
    cairo_stroke(cr);
}

// The text beam, centred on the hot spot.
void Beam(cairo_t* cr, int x, int y) {
    Rgb(cr, RGB(0, 0, 0));
    cairo_rectangle(cr, x, y - 8, 1, 17);
    cairo_rectangle(cr, x - 3, y - 9, 3, 1);
    cairo_rectangle(cr, x + 1, y - 9, 3, 1);
    cairo_rectangle(cr, x - 3, y + 9, 3, 1);
    cairo_rectangle(cr, x + 1, y + 9, 3, 1);
    cairo_fill(cr);
}

} // namespace

void DrawCursor(cairo_surface_t* desktop, POINT origin) {
    HCURSOR cursor = GetCursor();
    POINT at{};
    if (!cursor || !GetCursorPos(&at))
        return;
    at.x -= origin.x;
    at.y -= origin.y;
    cairo_t* cr = cairo_create(desktop);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    switch (CursorId(cursor)) {
    case 32513: // IDC_IBEAM
        Beam(cr, at.x, at.y);
        break;
    case 32514: // IDC_WAIT
        BusyRing(cr, at.x, at.y, 8);
        break;
    case 32650: // IDC_APPSTARTING: the arrow with a small ring beside it
        Arrow(cr, at.x, at.y);
        BusyRing(cr, at.x + 16, at.y + 20, 5);
        break;
    default:
        Arrow(cr, at.x, at.y);
        break;
    }
    cairo_destroy(cr);
}

} // namespace platform::user
