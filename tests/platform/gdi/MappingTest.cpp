// Mapping modes on real memory DCs: points, rectangles, clipping, fonts and
// text measured in logical units while the pixels land at mapped places.
#include "support/Pixels.h"

#include <winuser.h>

#include <gtest/gtest.h>

using namespace testing_support;

namespace {

constexpr COLORREF kInk = RGB(20, 20, 180);
constexpr COLORREF kPaper = RGB(255, 255, 255);

// Two device pixels per logical unit across, three down, with the logical
// point (10, 20) at device (5, 6).
void UseScaledMapping(CDC& dc) {
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, 1);
    dc.SetViewportExt(2, 3);
    dc.SetWindowOrg(10, 20);
    dc.SetViewportOrg(5, 6);
}

LOGFONT SansFont(int height) {
    LOGFONT lf{};
    lf.lfHeight = height;
    std::char_traits<char16_t>::copy(lf.lfFaceName, u"MS Sans Serif", 13);
    return lf;
}

} // namespace

TEST(Mapping, PointsMapBothWaysWithRounding) {
    Canvas canvas(40, 40, kPaper);
    HDC dc = canvas.dc();
    EXPECT_EQ(GetMapMode(dc), MM_TEXT);
    EXPECT_EQ(SetMapMode(dc, MM_ANISOTROPIC), MM_TEXT);
    // Screen pixels (96 per inch) onto a 600 dpi page.
    ASSERT_TRUE(SetWindowExtEx(dc, 96, 96, nullptr));
    ASSERT_TRUE(SetViewportExtEx(dc, 600, 600, nullptr));
    POINT points[3] = {{0, 0}, {1, 1}, {816, -72}};
    ASSERT_TRUE(LPtoDP(dc, points, 3));
    EXPECT_EQ(points[1].x, 6); // 6.25 rounds down
    EXPECT_EQ(points[2].x, 5100);
    EXPECT_EQ(points[2].y, -450);
    ASSERT_TRUE(DPtoLP(dc, points, 3));
    EXPECT_EQ(points[2].x, 816);
    EXPECT_EQ(points[2].y, -72);
    // Origins shift on both sides.
    SetWindowOrgEx(dc, 100, 0, nullptr);
    SetViewportOrgEx(dc, 0, 50, nullptr);
    POINT p{100, 0};
    LPtoDP(dc, &p, 1);
    EXPECT_EQ(p.x, 0);
    EXPECT_EQ(p.y, 50);
}

TEST(Mapping, TextModeIgnoresExtentsAndBadRequestsFail) {
    Canvas canvas(10, 10, kPaper);
    HDC dc = canvas.dc();
    SIZE previous{};
    EXPECT_TRUE(SetWindowExtEx(dc, 5, 5, &previous));
    SIZE ext{};
    GetWindowExtEx(dc, &ext);
    EXPECT_EQ(ext.cx, 1);
    EXPECT_EQ(SetMapMode(dc, 3), 0); // not a supported mode
    EXPECT_EQ(GetMapMode(dc), MM_TEXT);
    SetMapMode(dc, MM_ANISOTROPIC);
    EXPECT_FALSE(SetWindowExtEx(dc, 0, 4, nullptr));
    EXPECT_FALSE(SetViewportExtEx(dc, 4, 0, nullptr));
    EXPECT_EQ(SetMapMode(nullptr, MM_TEXT), 0);
    EXPECT_FALSE(LPtoDP(dc, nullptr, 1));
    // Back to MM_TEXT: the extents are 1:1 again.
    SetViewportExtEx(dc, 4, 4, nullptr);
    SetMapMode(dc, MM_TEXT);
    POINT p{7, 7};
    LPtoDP(dc, &p, 1);
    EXPECT_EQ(p.x, 7);
}

TEST(Mapping, IsotropicKeepsOneScale) {
    Canvas canvas(10, 10, kPaper);
    HDC dc = canvas.dc();
    SetMapMode(dc, MM_ISOTROPIC);
    SetWindowExtEx(dc, 100, 100, nullptr);
    SetViewportExtEx(dc, 400, -200, nullptr);
    SIZE viewport{};
    GetViewportExtEx(dc, &viewport);
    EXPECT_EQ(viewport.cx, 200);
    EXPECT_EQ(viewport.cy, -200);
    POINT p{10, 10};
    LPtoDP(dc, &p, 1);
    EXPECT_EQ(p.x, 20);
    EXPECT_EQ(p.y, -20);
}

TEST(Mapping, FillsAndPixelsLandAtMappedPlaces) {
    Canvas canvas(40, 40, kPaper);
    CDC& dc = canvas.dc();
    UseScaledMapping(dc);
    CBrush brush(kInk);
    CRect logical(11, 21, 13, 22); // device (7, 9) to (11, 12)
    dc.FillRect(&logical, &brush);
    dc.SetMapMode(MM_TEXT);
    dc.SetWindowOrg(0, 0);
    dc.SetViewportOrg(0, 0);
    PixelSet expected = Block(7, 9, 11, 12);
    PixelSet ink = PixelsOfColour(dc, CRect(0, 0, 40, 40), kInk);
    EXPECT_EQ(ink, expected) << Describe(expected, ink);
}

TEST(Mapping, FrameBorderIsOneLogicalUnit) {
    Canvas canvas(40, 40, kPaper);
    CDC& dc = canvas.dc();
    UseScaledMapping(dc);
    CBrush brush(kInk);
    CRect logical(11, 21, 15, 25); // device (7, 9) to (15, 21)
    dc.FrameRect(&logical, &brush);
    EXPECT_EQ(dc.GetPixel(11, 21), kInk);   // device (7, 9)
    EXPECT_EQ(dc.GetPixel(12, 22), kPaper); // inside the border
    dc.SetMapMode(MM_TEXT);
    dc.SetWindowOrg(0, 0);
    dc.SetViewportOrg(0, 0);
    PixelSet ink = PixelsOfColour(dc, CRect(0, 0, 40, 40), kInk);
    PixelSet expected = Block(7, 9, 15, 21);
    for (const auto& p : Block(9, 12, 13, 18))
        expected.erase(p);
    EXPECT_EQ(ink, expected) << Describe(expected, ink);
}

TEST(Mapping, ClipBoxIsInLogicalUnits) {
    Canvas canvas(40, 60, kPaper);
    CDC& dc = canvas.dc();
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, 1);
    dc.SetViewportExt(4, 4);
    CRect box;
    dc.GetClipBox(&box);
    EXPECT_EQ(box, CRect(0, 0, 10, 15));
}

TEST(Mapping, FontsScaleWithTheMappingAndMeasureInLogicalUnits) {
    Canvas plain(300, 100, kPaper);
    Canvas scaled(300, 100, kPaper);
    LOGFONT lf = SansFont(-11);
    CFont font;
    ASSERT_TRUE(font.CreateFontIndirect(&lf));
    CFont* oldPlain = plain.dc().SelectObject(&font);
    CFont* oldScaled = scaled.dc().SelectObject(&font);
    scaled.dc().SetMapMode(MM_ANISOTROPIC);
    scaled.dc().SetWindowExt(1, 1);
    scaled.dc().SetViewportExt(3, 3);

    TEXTMETRIC small{};
    TEXTMETRIC large{};
    plain.dc().GetTextMetrics(&small);
    scaled.dc().GetTextMetrics(&large);
    // The font is realised at 33 pixels; its height in logical units comes
    // back near the unscaled one (hinting differs slightly between sizes).
    EXPECT_NEAR(large.tmHeight, small.tmHeight, 1);
    CSize smallExtent = plain.dc().GetTextExtent(CString(u"Printed columns"));
    CSize largeExtent = scaled.dc().GetTextExtent(CString(u"Printed columns"));
    EXPECT_NEAR(largeExtent.cx, smallExtent.cx, smallExtent.cx / 10);

    // The glyphs' ink spans about three times the unscaled text's (hinting
    // at 11 pixels narrows them a little), and lies within the text's
    // logical extent mapped to the device.
    int hhhh = scaled.dc().GetTextExtent(CString(u"HHHH")).cx;
    plain.dc().SetTextColor(kInk);
    scaled.dc().SetTextColor(kInk);
    plain.dc().TextOut(0, 0, CString(u"HHHH"));
    scaled.dc().TextOut(0, 0, CString(u"HHHH"));
    scaled.dc().SetMapMode(MM_TEXT);
    auto right = [](const PixelSet& set) {
        int r = 0;
        for (const auto& p : set)
            r = std::max(r, p.first);
        return r;
    };
    PixelSet smallInk = PixelsOfColour(plain.dc(), CRect(0, 0, 300, 100), kInk);
    PixelSet largeInk = PixelsOfColour(scaled.dc(), CRect(0, 0, 300, 100), kInk);
    ASSERT_FALSE(smallInk.empty());
    EXPECT_GT(right(largeInk), 5 * right(smallInk) / 2);
    EXPECT_LE(right(largeInk), 3 * hhhh + 1);
    plain.dc().SelectObject(oldPlain);
    scaled.dc().SelectObject(oldScaled);
}

TEST(Mapping, ClippedTextStaysInsideItsRectangle) {
    Canvas canvas(200, 40, kPaper);
    CDC& dc = canvas.dc();
    LOGFONT lf = SansFont(-13);
    CFont font;
    ASSERT_TRUE(font.CreateFontIndirect(&lf));
    CFont* old = dc.SelectObject(&font);
    dc.SetTextColor(kInk);
    dc.SetBkMode(TRANSPARENT);
    CString text(u"A long cell text that does not fit");
    CRect cell(10, 5, 60, 25);
    dc.ExtTextOut(12, 6, ETO_CLIPPED, &cell, text, text.GetLength(), nullptr);
    PixelSet ink = PixelsOfColour(dc, CRect(0, 0, 200, 40), kInk);
    ASSERT_FALSE(ink.empty());
    for (const auto& [x, y] : ink) {
        EXPECT_GE(x, 10);
        EXPECT_LT(x, 60);
    }
    // Drawing afterwards is no longer clipped.
    dc.TextOut(100, 6, CString(u"W"));
    EXPECT_FALSE(PixelsOfColour(dc, CRect(100, 0, 200, 40), kInk).empty());
    dc.SelectObject(old);
}

TEST(Mapping, ClippedTextUnderAMappingClipsAtTheMappedRectangle) {
    Canvas canvas(300, 80, kPaper);
    CDC& dc = canvas.dc();
    dc.SetMapMode(MM_ANISOTROPIC);
    dc.SetWindowExt(1, 1);
    dc.SetViewportExt(2, 2);
    dc.SetTextColor(kInk);
    dc.SetBkMode(TRANSPARENT);
    CString text(u"Clipped under a mapping");
    CRect cell(5, 2, 40, 20); // device 10 to 80
    dc.ExtTextOut(6, 3, ETO_CLIPPED, &cell, text, text.GetLength(), nullptr);
    dc.SetMapMode(MM_TEXT);
    PixelSet ink = PixelsOfColour(dc, CRect(0, 0, 300, 80), kInk);
    ASSERT_FALSE(ink.empty());
    int right = 0;
    for (const auto& p : ink)
        right = std::max(right, p.first);
    EXPECT_LT(right, 80);
    EXPECT_GT(right, 60);
}
