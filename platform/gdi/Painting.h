// Shared pieces of the drawing calls: pixel rectangles in logical coordinates,
// whichever way the DC's pixels are reached.
#pragma once

#include "DeviceContext.h"

#include <cairo.h>

namespace platform::gdi {

// Fills [x, x + width) x [y, y + height), logical coordinates, clipped.
void PaintRect(DeviceContext& dc, int x, int y, int width, int height, COLORREF color);

// Draws Polygon's fill and outline on a raster DC from masks of the shape kept
// from an earlier call, pixel for pixel as Cairo draws them; false when the
// shape or the pen needs Cairo.
bool PolygonFromMasks(DeviceContext& dc, const POINT* points, int count);

// Cairo's cap and join for a geometric pen's style bits.
cairo_line_cap_t CairoCap(DWORD penStyle);
cairo_line_join_t CairoJoin(DWORD penStyle);

// Whether the brush paints anything, and its colour.
inline bool Paints(const Brush* brush) {
    return brush && brush->style != BS_NULL;
}

} // namespace platform::gdi
