// Fonts: the face-name aliases, the size rules for positive, negative and zero
// heights, metrics from the font's own tables, and the text box.
#include "support/Pixels.h"

#include <platform/GdiObjects.h>

#include <gtest/gtest.h>

using namespace testing_support;

namespace {

struct Request {
    const char16_t* face;
    LONG height;
    LONG weight;
    bool italic;
    const char* file; // part of the font file's name
    LONG ascent, descent;
    LONG cellWidth; // the extent of 100 'X' / 100
};

LOGFONT MakeLogFont(const Request& r) {
    LOGFONT lf{};
    lf.lfHeight = r.height;
    lf.lfWeight = r.weight;
    lf.lfItalic = r.italic ? 1 : 0;
    std::char_traits<char16_t>::copy(lf.lfFaceName, r.face,
                                     std::char_traits<char16_t>::length(r.face));
    return lf;
}

} // namespace

TEST(Fonts, SizesAndFacesFollowTheRequest) {
    const Request requests[] = {
        {u"Courier New", -16, 0, false, "LiberationMono-Regular", 13, 5, 10},
        {u"Courier New", 16, 0, false, "LiberationMono-Regular", 12, 4, 8},
        {u"Courier New", 0, 0, false, "LiberationMono-Regular", 12, 4, 8},
        {u"Courier New", -13, FW_BOLD, false, "LiberationMono-Bold", 11, 4, 8},
        {u"Courier New", -13, 0, true, "LiberationMono-Italic", 11, 4, 8},
        {u"Courier New", -83, 0, false, "LiberationMono-Regular", 69, 25, 50},
        {u"Lucida Console", -16, 0, false, "DejaVuSansMono.ttf", 15, 4, 10},
        {u"Lucida Console", -13, FW_BOLD, true, "DejaVuSansMono-BoldOblique", 12, 3, 8},
        {u"MS Sans Serif", -11, 0, false, "LiberationSans-Regular", 10, 2, 7},
        {u"", 0, 0, false, "DejaVuSans.ttf", 13, 3, 9},
        {u"No Such Face", -16, 0, false, "DejaVuSans.ttf", 15, 4, 11},
    };
    Canvas canvas(10, 10, RGB(255, 255, 255));
    for (const Request& r : requests) {
        SCOPED_TRACE(platform::ToUtf8(std::u16string(r.face)));
        SCOPED_TRACE(r.height);
        LOGFONT lf = MakeLogFont(r);
        CFont font;
        ASSERT_TRUE(font.CreateFontIndirect(&lf));
        EXPECT_NE(platform::ResolvedFontFile(font).find(r.file), std::string::npos)
            << platform::ResolvedFontFile(font);
        CFont* old = canvas.dc().SelectObject(&font);
        TEXTMETRIC tm{};
        ASSERT_TRUE(canvas.dc().GetTextMetrics(&tm));
        EXPECT_EQ(tm.tmAscent, r.ascent);
        EXPECT_EQ(tm.tmDescent, r.descent);
        EXPECT_EQ(tm.tmHeight, r.ascent + r.descent);
        CSize extent = canvas.dc().GetTextExtent(CString(u'X', 100));
        EXPECT_EQ(extent, CSize(100 * r.cellWidth, r.ascent + r.descent));
        canvas.dc().SelectObject(old);
    }
}

TEST(Fonts, OpaqueTextFillsExactlyTheAdvanceByTheCellHeight) {
    Canvas canvas(200, 80, RGB(0, 0, 0));
    CDC& dc = canvas.dc();
    LOGFONT lf = MakeLogFont({u"Courier New", -14, 0, false, "", 0, 0, 0});
    CFont font;
    font.CreateFontIndirect(&lf);
    CFont* old = dc.SelectObject(&font);
    TEXTMETRIC tm{};
    dc.GetTextMetrics(&tm);
    CSize extent = dc.GetTextExtent(CString(u"Hi!"));
    const COLORREF paper = RGB(0, 0, 200), ink = RGB(255, 255, 255);
    dc.SetBkColor(paper);
    dc.SetTextColor(ink);
    dc.TextOut(10, 20, CString(u"Hi!"));
    PixelSet painted = Union(PixelsOfColour(dc, CRect(0, 0, 200, 80), paper),
                             PixelsOfColour(dc, CRect(0, 0, 200, 80), ink));
    EXPECT_EQ(painted, Block(10, 20, 10 + extent.cx, 20 + tm.tmHeight));
    EXPECT_FALSE(PixelsOfColour(dc, CRect(0, 0, 200, 80), ink).empty());

    // Transparent text paints its glyphs only; an empty string paints nothing.
    dc.SetBkMode(TRANSPARENT);
    dc.TextOut(100, 20, CString(u"Hi!"));
    EXPECT_TRUE(PixelsOfColour(dc, CRect(100, 0, 200, 80), paper).empty());
    EXPECT_FALSE(PixelsOfColour(dc, CRect(100, 0, 200, 80), ink).empty());
    dc.SetBkMode(OPAQUE);
    dc.TextOut(10, 50, u"", 0);
    EXPECT_TRUE(PixelsOfColour(dc, CRect(0, 45, 200, 80), paper).empty());
    dc.SelectObject(old);
}

TEST(Fonts, BoldDoubleStrikeIsTheGlyphUnitedWithItselfOnePixelRight) {
    for (LONG height : {-14L, -40L}) {
        Canvas canvas(200, 80, RGB(0, 0, 0));
        CDC& dc = canvas.dc();
        LOGFONT lf = MakeLogFont({u"Courier New", height, 0, false, "", 0, 0, 0});
        CFont font;
        font.CreateFontIndirect(&lf);
        CFont* old = dc.SelectObject(&font);
        const COLORREF ink = RGB(255, 255, 0);
        dc.SetTextColor(ink);
        dc.SetBkColor(RGB(0, 0, 100));
        CSize cell = dc.GetTextExtent(CString(u"R"));
        dc.TextOut(10, 10, CString(u"R"));
        PixelSet normal = PixelsOfColour(dc, CRect(10, 10, 10 + cell.cx, 10 + cell.cy), ink);
        dc.TextOut(100, 10, CString(u"R"));
        dc.SetBkMode(TRANSPARENT);
        dc.TextOut(101, 10, CString(u"R"));
        dc.SetBkMode(OPAQUE);
        PixelSet bold = PixelsOfColour(dc, CRect(100, 10, 100 + cell.cx, 10 + cell.cy), ink);
        PixelSet expected;
        for (auto [x, y] : normal) {
            expected.emplace(x + 90, y);
            if (x + 91 < 100 + cell.cx)
                expected.emplace(x + 91, y);
        }
        EXPECT_EQ(bold, expected) << Describe(expected, bold);
        dc.SelectObject(old);
    }
}

TEST(Fonts, UnderlineIsARowOfTheTextColourInsideTheBox) {
    Canvas canvas(200, 60, RGB(0, 0, 0));
    CDC& dc = canvas.dc();
    LOGFONT lf = MakeLogFont({u"Courier New", -16, 0, false, "", 0, 0, 0});
    lf.lfUnderline = TRUE;
    CFont font;
    font.CreateFontIndirect(&lf);
    CFont* old = dc.SelectObject(&font);
    TEXTMETRIC tm{};
    dc.GetTextMetrics(&tm);
    const COLORREF ink = RGB(0, 255, 0);
    dc.SetTextColor(ink);
    dc.TextOut(0, 0, CString(u"    ")); // spaces: only the underline is ink
    PixelSet ink_ = PixelsOfColour(dc, CRect(0, 0, 200, 60), ink);
    ASSERT_FALSE(ink_.empty());
    int top = ink_.begin()->second;
    for (auto [x, y] : ink_) {
        EXPECT_GE(y, tm.tmAscent);
        EXPECT_LT(y, tm.tmHeight);
        EXPECT_LT(x, 4 * 10);
    }
    EXPECT_EQ(ink_.size() % 40, 0u) << "whole rows across the four cells, from row " << top;
    dc.SelectObject(old);
}
