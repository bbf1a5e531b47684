// The STATIC control: filled and framed rectangles, the etched line, the
// sunken frame, and text placed left, centred or right, wrapped or not, with
// or without the & prefix, grey when disabled.
#include "ControlTestSupport.h"

#include <gtest/gtest.h>

namespace {

using controls_test::Host;
using controls_test::InkBands;

COLORREF PixelAfterPaint(HWND hwnd, int x, int y) {
    InvalidateRect(hwnd, nullptr, TRUE);
    UpdateWindow(hwnd);
    HDC hdc = GetDC(hwnd);
    COLORREF colour = GetPixel(hdc, x, y);
    ReleaseDC(hwnd, hdc);
    return colour;
}

// The first and last columns holding a pixel of colour, or (-1, -1).
std::pair<int, int> ColumnsOf(HWND hwnd, COLORREF colour) {
    InvalidateRect(hwnd, nullptr, TRUE);
    UpdateWindow(hwnd);
    RECT client;
    GetClientRect(hwnd, &client);
    HDC hdc = GetDC(hwnd);
    std::pair<int, int> columns{-1, -1};
    for (int x = 0; x < client.right; ++x)
        for (int y = 0; y < client.bottom; ++y)
            if (GetPixel(hdc, x, y) == colour) {
                if (columns.first < 0)
                    columns.first = x;
                columns.second = x;
                break;
            }
    ReleaseDC(hwnd, hdc);
    return columns;
}

class StaticTest : public ::testing::Test {
protected:
    HWND Static(DWORD style, const char16_t* text = u"", int width = 100, int height = 30) {
        return host.Add(u"STATIC", style, 10, 10, width, height, 0xFFFF, text);
    }

    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    const COLORREF dark = GetSysColor(COLOR_3DDKSHADOW);
    const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT);
    Host host;
};

TEST_F(StaticTest, RectanglesFillTheirAreaAndFramesOnlyItsEdge) {
    struct Case {
        DWORD type;
        COLORREF colour;
        bool frame;
    };
    const Case cases[] = {{SS_BLACKRECT, dark, false},  {SS_GRAYRECT, shadow, false},
                          {SS_WHITERECT, light, false}, {SS_BLACKFRAME, dark, true},
                          {SS_GRAYFRAME, shadow, true}, {SS_WHITEFRAME, light, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.type);
        HWND control = Static(c.type);
        EXPECT_EQ(PixelAfterPaint(control, 0, 0), c.colour);
        EXPECT_EQ(PixelAfterPaint(control, 99, 29), c.colour);
        EXPECT_EQ(PixelAfterPaint(control, 50, 29), c.colour);
        EXPECT_EQ(PixelAfterPaint(control, 50, 15), c.frame ? face : c.colour);
        EXPECT_EQ(PixelAfterPaint(control, 1, 1), c.frame ? face : c.colour);
        DestroyWindow(control);
    }
}

TEST_F(StaticTest, TheEtchedLineIsAShadowRowOverALightRowAndSunkenAddsAFrame) {
    HWND line = Static(SS_ETCHEDHORZ);
    EXPECT_EQ(PixelAfterPaint(line, 40, 0), shadow);
    EXPECT_EQ(PixelAfterPaint(line, 40, 1), light);
    EXPECT_EQ(PixelAfterPaint(line, 40, 2), face);
    EXPECT_EQ(PixelAfterPaint(line, 40, 29), face);
    DestroyWindow(line);

    HWND icon = Static(SS_ICON | SS_SUNKEN);
    EXPECT_EQ(PixelAfterPaint(icon, 0, 15), shadow);
    EXPECT_EQ(PixelAfterPaint(icon, 99, 15), shadow);
    EXPECT_EQ(PixelAfterPaint(icon, 50, 15), face);
    EXPECT_EQ(SendMessage(icon, WM_GETDLGCODE, 0, 0), DLGC_STATIC);
}

TEST_F(StaticTest, TextSitsLeftCentredOrRightAndWrapsAtWordsUnlessSingleLine) {
    const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    HWND left = Static(SS_LEFT, u"Word", 200);
    HWND centre = Static(SS_CENTER, u"Word", 200);
    HWND right = Static(SS_RIGHT, u"Word", 200);
    auto l = ColumnsOf(left, ink);
    auto c = ColumnsOf(centre, ink);
    auto r = ColumnsOf(right, ink);
    ASSERT_GE(l.first, 0);
    EXPECT_LT(l.first, 3);
    EXPECT_GT(r.second, 195);
    // The same word, moved along: as wide each time, centred in the middle.
    EXPECT_EQ(c.second - c.first, l.second - l.first);
    EXPECT_EQ(r.second - r.first, l.second - l.first);
    EXPECT_NEAR((c.first + c.second) / 2, 100, 3);

    // Wrapped at words into rows of text, or one row that is cut off.
    DestroyWindow(left);
    DestroyWindow(centre);
    DestroyWindow(right);
    HWND wrapped = host.Add(u"STATIC", SS_LEFT, 10, 10, 60, 90, 0xFFFF, u"one two three four five");
    HWND single =
        host.Add(u"STATIC", SS_LEFTNOWORDWRAP, 100, 10, 60, 90, 0xFFFF, u"one two three four five");
    UpdateWindow(wrapped);
    UpdateWindow(single);
    EXPECT_GE(InkBands(wrapped).size(), 3u);
    EXPECT_EQ(InkBands(single).size(), 1u);
}

TEST_F(StaticTest, TheAmpersandIsAPrefixUnlessTheStyleSaysOtherwise) {
    const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    // "&&" draws one ampersand as a prefix, two without.
    HWND prefix = Static(SS_LEFT, u"&&&&", 200);
    HWND plain = Static(SS_LEFT | SS_NOPREFIX, u"&&&&", 200);
    auto p = ColumnsOf(prefix, ink);
    auto n = ColumnsOf(plain, ink);
    ASSERT_GE(p.first, 0);
    EXPECT_GT(n.second - n.first, (p.second - p.first) * 3 / 2);
}

TEST_F(StaticTest, DisabledTextIsGreyAndNewTextAndFontsRepaint) {
    const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    const COLORREF grey = GetSysColor(COLOR_GRAYTEXT);
    HWND label = Static(SS_LEFT, u"Name");
    EXPECT_GE(ColumnsOf(label, ink).first, 0);
    EnableWindow(label, FALSE);
    EXPECT_EQ(ColumnsOf(label, ink).first, -1);
    EXPECT_GE(ColumnsOf(label, grey).first, 0);
    EnableWindow(label, TRUE);

    auto narrow = ColumnsOf(label, ink);
    SetWindowText(label, u"Name and more");
    auto wide = ColumnsOf(label, ink);
    EXPECT_GT(wide.second, narrow.second + 20);

    auto font = reinterpret_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessage(label, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessage(label, WM_GETFONT, 0, 0)), font);
    SetWindowText(label, u"");
    EXPECT_EQ(ColumnsOf(label, ink).first, -1);
}

} // namespace
