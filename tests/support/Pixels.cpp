#include "support/Pixels.h"

#include <sstream>

namespace testing_support {

PixelSet PixelsOfColour(CDC& dc, const CRect& area, COLORREF colour) {
    PixelSet result;
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x)
            if (dc.GetPixel(x, y) == colour)
                result.emplace(x, y);
    return result;
}

std::vector<COLORREF> Snapshot(CDC& dc, int width, int height) {
    std::vector<COLORREF> pixels;
    pixels.reserve(static_cast<std::size_t>(width) * height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            pixels.push_back(dc.GetPixel(x, y));
    return pixels;
}

PixelSet Block(int left, int top, int right, int bottom) {
    PixelSet result;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
            result.emplace(x, y);
    return result;
}

PixelSet Union(const PixelSet& a, const PixelSet& b) {
    PixelSet result = a;
    result.insert(b.begin(), b.end());
    return result;
}

std::string Describe(const PixelSet& expected, const PixelSet& actual) {
    std::ostringstream out;
    int shown = 0;
    for (auto& p : expected)
        if (!actual.count(p) && shown++ < 20)
            out << " missing(" << p.first << "," << p.second << ")";
    for (auto& p : actual)
        if (!expected.count(p) && shown++ < 40)
            out << " extra(" << p.first << "," << p.second << ")";
    return out.str();
}

Canvas::Canvas(int width, int height, COLORREF fill) {
    HDC screen = ::GetDC(nullptr);
    m_dc.CreateCompatibleDC(CDC::FromHandle(screen));
    m_bitmap.CreateCompatibleBitmap(CDC::FromHandle(screen), width, height);
    ::ReleaseDC(nullptr, screen);
    m_old = m_dc.SelectObject(&m_bitmap);
    m_dc.FillSolidRect(0, 0, width, height, fill);
}

Canvas::~Canvas() {
    m_dc.SelectObject(m_old);
    m_dc.DeleteDC();
}

} // namespace testing_support
