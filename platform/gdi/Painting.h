// Shared pieces of the drawing calls: pixel rectangles in logical coordinates,
// whichever way the DC's pixels are reached.
#pragma once

#include "DeviceContext.h"

namespace platform::gdi {

// Fills [x, x + width) x [y, y + height), logical coordinates, clipped.
void PaintRect(DeviceContext& dc, int x, int y, int width, int height, COLORREF color);

// Whether the brush paints anything, and its colour.
inline bool Paints(const Brush* brush) {
    return brush && brush->style != BS_NULL;
}

} // namespace platform::gdi
