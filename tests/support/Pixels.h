// Reading pixels of one colour back from a device context, for exact pixel checks.
#pragma once

#include <afxwin.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace testing_support {

using PixelSet = std::set<std::pair<int, int>>; // (x, y)

// Every pixel of colour inside area.
PixelSet PixelsOfColour(CDC& dc, const CRect& area, COLORREF colour);
// The pixels of the rectangle [left, right) x [top, bottom).
PixelSet Block(int left, int top, int right, int bottom);
PixelSet Union(const PixelSet& a, const PixelSet& b);
// Every pixel of the top-left width x height block, row by row.
std::vector<COLORREF> Snapshot(CDC& dc, int width, int height);
// A readable list of the differences, for failure messages.
std::string Describe(const PixelSet& expected, const PixelSet& actual);

// A memory DC with a bitmap of the given size, filled with one colour.
class Canvas {
public:
    Canvas(int width, int height, COLORREF fill);
    ~Canvas();
    CDC& dc() { return m_dc; }

private:
    CDC m_dc;
    CBitmap m_bitmap;
    CBitmap* m_old = nullptr;
};

} // namespace testing_support
