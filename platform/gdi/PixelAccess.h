// Direct writes into a raster DC's pixels, clipped to the DC's clip. Cairo is
// told before (flush) and after (the dirty rectangle) so its own drawing stays
// consistent with ours.
#pragma once

#include "DeviceContext.h"

#include <cstdint>

namespace platform::gdi {

class PixelAccess {
public:
    explicit PixelAccess(DeviceContext& dc);
    ~PixelAccess();
    PixelAccess(const PixelAccess&) = delete;
    PixelAccess& operator=(const PixelAccess&) = delete;

    // The surface's pixel value for a colour.
    static uint32_t Pixel(COLORREF color) {
        return ((color & 0xFF) << 16) | (color & 0xFF00) | ((color >> 16) & 0xFF);
    }

    // Rectangles and stamps are in device pixels.
    void Fill(int x, int y, int width, int height, COLORREF color);
    // Sets the pixels where mask (width x height, one byte per pixel) is non-zero.
    void Stamp(int x, int y, int width, int height, const unsigned char* mask, uint32_t pixel);
    // Copies a block of pixels whose top-left goes to (x, y), clipped to the
    // clip. from is the source pixel for (x, y), stride in pixels; the source
    // may overlap this surface's own pixels.
    void Copy(int x, int y, int width, int height, const uint32_t* from, int stride);
    // Whether the rectangle lies wholly inside the clip, so that Row may be used.
    bool Inside(int x, int y, int width, int height) const {
        return m_data && x >= m_clip.left && y >= m_clip.top && width >= 0 && height >= 0 &&
               static_cast<long long>(x) + width <= m_clip.right &&
               static_cast<long long>(y) + height <= m_clip.bottom;
    }
    // Sets length pixels from (x, y) inside a rectangle that Inside accepted
    // and that is then passed to Touch.
    void Row(int x, int y, int length, uint32_t pixel) {
        uint32_t* line = m_data + static_cast<long>(y) * m_stride + x;
        for (int i = 0; i < length; ++i)
            line[i] = pixel;
    }
    void Touch(int left, int top, int right, int bottom);

private:
    cairo_surface_t* m_surface;
    uint32_t* m_data;
    int m_stride; // in pixels
    RECT m_clip;
    RECT m_dirty{0, 0, 0, 0};
};

} // namespace platform::gdi
