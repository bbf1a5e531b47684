// The original's pixel rules, read back from real memory DCs: pixel centres,
// left-out end points and edges, flat caps, even widths and fill rules.
#include "support/Pixels.h"

#include <winuser.h>

#include <gtest/gtest.h>

using namespace testing_support;

namespace {

constexpr COLORREF kInk = RGB(200, 10, 10);
constexpr COLORREF kPaper = RGB(255, 255, 255);

PixelSet Ink(Canvas& canvas) {
    return PixelsOfColour(canvas.dc(), CRect(0, 0, 120, 90), kInk);
}

// A geometric, flat-capped pen of the given width and join.
void StrokeWith(CDC& dc, int width, DWORD join, const std::vector<POINT>& points) {
    LOGBRUSH brush{BS_SOLID, kInk, 0};
    CPen pen;
    ASSERT_TRUE(pen.CreatePen(PS_GEOMETRIC | PS_ENDCAP_FLAT | join, width, &brush));
    CPen* old = dc.SelectObject(&pen);
    dc.Polyline(points.data(), static_cast<int>(points.size()));
    dc.SelectObject(old);
}

} // namespace

TEST(PixelRules, CosmeticLinesLeaveOutTheirEndPoint) {
    Canvas canvas(120, 90, kPaper);
    CPen pen(PS_SOLID, 1, kInk);
    CPen* old = canvas.dc().SelectObject(&pen);
    canvas.dc().MoveTo(20, 70);
    canvas.dc().LineTo(30, 70);
    canvas.dc().MoveTo(40, 60);
    canvas.dc().LineTo(40, 50); // upward
    canvas.dc().MoveTo(50, 10);
    canvas.dc().LineTo(54, 14); // diagonal
    canvas.dc().SelectObject(old);
    PixelSet expected = Union(Block(20, 70, 30, 71), Block(40, 51, 41, 61));
    for (int i = 0; i < 4; ++i)
        expected.emplace(50 + i, 10 + i);
    EXPECT_EQ(Ink(canvas), expected) << Describe(expected, Ink(canvas));
}

TEST(PixelRules, FlatCapsCoverStartToEndInEitherDirection) {
    for (bool reversed : {false, true}) {
        Canvas canvas(120, 90, kPaper);
        std::vector<POINT> line = {{10, 8}, {30, 8}};
        if (reversed)
            std::swap(line[0], line[1]);
        StrokeWith(canvas.dc(), 1, PS_JOIN_ROUND, line);
        EXPECT_EQ(Ink(canvas), Block(10, 8, 30, 9)) << "reversed " << reversed;
    }
}

TEST(PixelRules, EvenWidthsReachOneRowFurtherUp) {
    Canvas canvas(120, 90, kPaper);
    StrokeWith(canvas.dc(), 4, PS_JOIN_ROUND, {{0, 24}, {24, 24}});
    StrokeWith(canvas.dc(), 3, PS_JOIN_ROUND, {{40, 24}, {64, 24}});
    StrokeWith(canvas.dc(), 0, PS_JOIN_ROUND, {{70, 40}, {80, 40}}); // width 0 draws one row
    PixelSet expected =
        Union(Union(Block(0, 22, 24, 26), Block(40, 23, 64, 26)), Block(70, 40, 80, 41));
    EXPECT_EQ(Ink(canvas), expected) << Describe(expected, Ink(canvas));
}

TEST(PixelRules, RectangleLeavesOutRightAndBottomEdges) {
    Canvas canvas(120, 90, kPaper);
    CDC& dc = canvas.dc();
    CBrush brush(kInk);
    CBrush* oldBrush = dc.SelectObject(&brush);
    dc.SelectStockObject(NULL_PEN);
    dc.Rectangle(80, 70, 90, 80);
    EXPECT_EQ(Ink(canvas), Block(80, 70, 89, 79));

    // With a pen: a one-pixel outline and the fill inside it.
    CPen pen(PS_SOLID, 1, RGB(0, 0, 200));
    dc.SelectObject(&pen);
    dc.Rectangle(10, 10, 20, 20);
    EXPECT_EQ(PixelsOfColour(dc, CRect(0, 0, 60, 60), RGB(0, 0, 200)), [] {
        PixelSet frame = Block(10, 10, 20, 20);
        for (auto& p : Block(11, 11, 19, 19))
            frame.erase(p);
        return frame;
    }());
    EXPECT_EQ(PixelsOfColour(dc, CRect(0, 0, 60, 60), kInk), Block(11, 11, 19, 19));
    dc.SelectStockObject(BLACK_PEN);
    dc.SelectObject(oldBrush);
}

TEST(PixelRules, FrameRectPatBltAndFillRect) {
    Canvas canvas(120, 90, kPaper);
    CDC& dc = canvas.dc();
    CBrush brush(kInk);
    RECT frame{5, 5, 15, 12};
    dc.FrameRect(&frame, &brush);
    PixelSet expected = Block(5, 5, 15, 12);
    for (auto& p : Block(6, 6, 14, 11))
        expected.erase(p);
    EXPECT_EQ(Ink(canvas), expected);

    RECT inverted{40, 40, 30, 50}; // right < left: nothing
    dc.FrameRect(&inverted, &brush);
    EXPECT_EQ(Ink(canvas), expected);

    CBrush* old = dc.SelectObject(&brush);
    dc.PatBlt(60, 60, -10, -5, PATCOPY); // negative sizes are normalised
    dc.SelectObject(old);
    expected = Union(expected, Block(50, 55, 60, 60));
    EXPECT_EQ(Ink(canvas), expected);

    RECT fill{100, 0, 103, 2};
    dc.FillRect(&fill, &brush);
    expected = Union(expected, Block(100, 0, 103, 2));
    EXPECT_EQ(Ink(canvas), expected);

    // A system colour's index plus one stands for its brush, as a window
    // class's background does; a number past the last colour fills nothing.
    RECT system{100, 80, 102, 82};
    EXPECT_NE(::FillRect(dc.GetSafeHdc(), &system, reinterpret_cast<HBRUSH>(COLOR_HIGHLIGHT + 1)),
              0);
    EXPECT_EQ(dc.GetPixel(101, 81), GetSysColor(COLOR_HIGHLIGHT));
    RECT beyond{110, 80, 112, 82};
    EXPECT_EQ(::FillRect(dc.GetSafeHdc(), &beyond, reinterpret_cast<HBRUSH>(COLOR_MENUBAR + 2)), 0);
    EXPECT_EQ(dc.GetPixel(111, 81), kPaper);
}

TEST(PixelRules, PolygonFillsBeforeItsOutline) {
    Canvas canvas(120, 90, kPaper);
    CDC& dc = canvas.dc();
    CBrush brush(kInk);
    CBrush* old = dc.SelectObject(&brush);
    dc.SelectStockObject(NULL_PEN);
    POINT square[] = {{1, 1}, {5, 1}, {5, 5}, {1, 5}};
    dc.Polygon(square, 4);
    dc.SelectObject(old);
    dc.SelectStockObject(BLACK_PEN);
    EXPECT_EQ(Ink(canvas), Block(1, 1, 5, 5));
}

TEST(PixelRules, FillSolidRectKeepsTheFillColourAsBackground) {
    Canvas canvas(120, 90, kPaper);
    canvas.dc().SetBkColor(RGB(1, 2, 3));
    canvas.dc().FillSolidRect(2, 3, 4, 5, kInk);
    EXPECT_EQ(Ink(canvas), Block(2, 3, 6, 8));
    EXPECT_EQ(canvas.dc().GetBkColor(), kInk);
}

TEST(PixelRules, BitBltCopiesExactlyAndHandlesOverlap) {
    Canvas source(40, 40, RGB(0, 0, 0));
    source.dc().FillSolidRect(3, 4, 5, 6, kInk);
    Canvas target(120, 90, kPaper);
    ASSERT_TRUE(target.dc().BitBlt(50, 60, 10, 10, &source.dc(), 0, 0, SRCCOPY));
    EXPECT_EQ(Ink(target), Block(53, 64, 58, 70));
    // Moving the block down by two rows within one bitmap, as scrolling does:
    // a copy that overwrote its source before reading it would smear the ink.
    ASSERT_TRUE(target.dc().BitBlt(50, 62, 10, 10, &target.dc(), 50, 60, SRCCOPY));
    EXPECT_EQ(Ink(target), Block(53, 66, 58, 72));
}

TEST(PixelRules, PixelsOutsideTheBitmapAreInvalid) {
    Canvas canvas(10, 10, kPaper);
    EXPECT_EQ(canvas.dc().GetPixel(9, 9), kPaper);
    EXPECT_EQ(canvas.dc().GetPixel(10, 0), CLR_INVALID);
    EXPECT_EQ(canvas.dc().GetPixel(-1, 0), CLR_INVALID);
    EXPECT_EQ(canvas.dc().SetPixel(3, 3, kInk), kInk);
    EXPECT_EQ(canvas.dc().GetPixel(3, 3), kInk);
    RECT clip;
    EXPECT_EQ(canvas.dc().GetClipBox(&clip), SIMPLEREGION);
    EXPECT_EQ(CRect(clip), CRect(0, 0, 10, 10));
}

TEST(PixelRules, ScreenDcIsNinetySixDpiAndCoversTheDesktop) {
    HDC screen = ::GetDC(nullptr);
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(::GetDeviceCaps(screen, LOGPIXELSX), 96);
    EXPECT_EQ(::GetDeviceCaps(screen, LOGPIXELSY), 96);
    ::SetPixel(screen, 5, 5, kInk);
    EXPECT_EQ(::GetPixel(screen, 5, 5), kInk);
    EXPECT_EQ(::DeleteDC(screen), FALSE); // screen DCs go back through ReleaseDC
    EXPECT_EQ(::ReleaseDC(nullptr, screen), 1);
    EXPECT_EQ(::GetPixel(screen, 5, 5), CLR_INVALID); // the handle is gone
}
