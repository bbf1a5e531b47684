#include "PixelAccess.h"

#include <cairo.h>

#include <algorithm>
#include <cstring>

namespace platform::gdi {

PixelAccess::PixelAccess(DeviceContext& dc) : m_surface(dc.surface), m_clip(dc.clip) {
    cairo_surface_flush(m_surface);
    m_data = reinterpret_cast<uint32_t*>(cairo_image_surface_get_data(m_surface));
    m_stride = cairo_image_surface_get_stride(m_surface) / 4;
    m_clip.right = std::min<LONG>(m_clip.right, cairo_image_surface_get_width(m_surface));
    m_clip.bottom = std::min<LONG>(m_clip.bottom, cairo_image_surface_get_height(m_surface));
    m_clip.left = std::max<LONG>(m_clip.left, 0);
    m_clip.top = std::max<LONG>(m_clip.top, 0);
}

PixelAccess::~PixelAccess() {
    if (m_dirty.right > m_dirty.left && m_dirty.bottom > m_dirty.top)
        cairo_surface_mark_dirty_rectangle(m_surface, m_dirty.left, m_dirty.top,
                                           m_dirty.right - m_dirty.left,
                                           m_dirty.bottom - m_dirty.top);
}

void PixelAccess::Touch(int left, int top, int right, int bottom) {
    if (m_dirty.right <= m_dirty.left) {
        m_dirty = RECT{left, top, right, bottom};
        return;
    }
    m_dirty.left = std::min<LONG>(m_dirty.left, left);
    m_dirty.top = std::min<LONG>(m_dirty.top, top);
    m_dirty.right = std::max<LONG>(m_dirty.right, right);
    m_dirty.bottom = std::max<LONG>(m_dirty.bottom, bottom);
}

void PixelAccess::Fill(int x, int y, int width, int height, COLORREF color) {
    if (!m_data)
        return;
    long long left = std::max<long long>(x, m_clip.left);
    long long top = std::max<long long>(y, m_clip.top);
    long long right = std::min<long long>(static_cast<long long>(x) + width, m_clip.right);
    long long bottom = std::min<long long>(static_cast<long long>(y) + height, m_clip.bottom);
    if (left >= right || top >= bottom)
        return;
    uint32_t pixel = Pixel(color);
    for (long long row = top; row < bottom; ++row)
        std::fill(m_data + row * m_stride + left, m_data + row * m_stride + right, pixel);
    Touch(static_cast<int>(left), static_cast<int>(top), static_cast<int>(right),
          static_cast<int>(bottom));
}

void PixelAccess::Copy(int x, int y, int width, int height, const uint32_t* from, int stride) {
    if (!m_data)
        return;
    const int left = static_cast<int>(std::max<long long>(x, m_clip.left));
    const int top = static_cast<int>(std::max<long long>(y, m_clip.top));
    const int right =
        static_cast<int>(std::min<long long>(static_cast<long long>(x) + width, m_clip.right));
    const int bottom =
        static_cast<int>(std::min<long long>(static_cast<long long>(y) + height, m_clip.bottom));
    if (left >= right || top >= bottom)
        return;
    const std::size_t bytes = static_cast<std::size_t>(right - left) * 4;
    auto source = [&](int row) {
        return from + static_cast<std::ptrdiff_t>(row - y) * stride + (left - x);
    };
    auto target = [&](int row) {
        return m_data + static_cast<std::ptrdiff_t>(row) * m_stride + left;
    };
    // Rows moving down within one surface go bottom first, so none is
    // overwritten before it is read.
    if (target(top) > source(top)) {
        for (int row = bottom - 1; row >= top; --row)
            std::memmove(target(row), source(row), bytes);
    } else {
        for (int row = top; row < bottom; ++row)
            std::memmove(target(row), source(row), bytes);
    }
    Touch(left, top, right, bottom);
}

void PixelAccess::Stamp(int x, int y, int width, int height, const unsigned char* mask,
                        uint32_t pixel) {
    if (!m_data || width <= 0 || height <= 0)
        return;
    int left = std::max<int>(x, m_clip.left);
    int top = std::max<int>(y, m_clip.top);
    int right =
        static_cast<int>(std::min<long long>(static_cast<long long>(x) + width, m_clip.right));
    int bottom =
        static_cast<int>(std::min<long long>(static_cast<long long>(y) + height, m_clip.bottom));
    if (left >= right || top >= bottom)
        return;
    for (int row = top; row < bottom; ++row) {
        const unsigned char* bits = mask + static_cast<long>(row - y) * width;
        uint32_t* line = m_data + static_cast<long>(row) * m_stride;
        // Written without a branch, so the compiler can do a row at a time.
        for (int col = left; col < right; ++col)
            line[col] = bits[col - x] ? pixel : line[col];
    }
    Touch(left, top, right, bottom);
}

} // namespace platform::gdi
