// DrawText: where lines break (CR, LF, CR LF, word wrapping, a word wider than
// the rectangle), tab stops, the '&' prefix and its underline, vertical and
// horizontal placement, and clipping to the rectangle.
#include "support/Pixels.h"

#include <gtest/gtest.h>

#include <string>

using namespace testing_support;

namespace {

constexpr COLORREF kInk = RGB(0, 0, 0);
constexpr COLORREF kPaper = RGB(255, 255, 255);

class DrawTextTest : public ::testing::Test {
protected:
    void SetUp() override {
        ::SetBkMode(hdc, TRANSPARENT);
        ::SetTextColor(hdc, kInk);
        TEXTMETRIC tm{};
        ::GetTextMetrics(hdc, &tm);
        lineHeight = tm.tmHeight;
        ascent = tm.tmAscent;
        average = tm.tmAveCharWidth;
    }
    // The rectangle DT_CALCRECT gives for text in a box width pixels wide.
    CRect Measure(const std::u16string& text, UINT format, int width = 1000) {
        CRect rect(0, 0, width, 0);
        int height = ::DrawText(hdc, text.c_str(), static_cast<int>(text.size()), &rect,
                                format | DT_CALCRECT);
        EXPECT_EQ(height, rect.Height());
        return rect;
    }
    int Width(const std::u16string& text) {
        SIZE size{};
        ::GetTextExtentPoint32(hdc, text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx;
    }
    PixelSet Ink(const CRect& area) { return PixelsOfColour(canvas.dc(), area, kInk); }
    void Clear() {
        CRect all(0, 0, 400, 200);
        HBRUSH white = ::CreateSolidBrush(kPaper);
        ::FillRect(hdc, &all, white);
        ::DeleteObject(white);
    }
    // The first and last rows holding ink inside area, or (-1, -1).
    std::pair<int, int> InkRows(const CRect& area) {
        std::pair<int, int> rows{-1, -1};
        for (const auto& [x, y] : Ink(area)) {
            (void)x;
            if (rows.first < 0 || y < rows.first)
                rows.first = y;
            rows.second = std::max(rows.second, y);
        }
        return rows;
    }

    Canvas canvas{400, 200, kPaper};
    HDC hdc = canvas.dc().GetSafeHdc();
    int lineHeight = 0;
    int ascent = 0;
    int average = 0;
};

TEST_F(DrawTextTest, LinesBreakAtEachKindOfLineEndUnlessSingleLine) {
    EXPECT_EQ(Measure(u"one\r\ntwo\nthree\rfour", 0).Height(), 4 * lineHeight);
    // An empty line between two counts, wrapped or not.
    EXPECT_EQ(Measure(u"a\n\nb", DT_WORDBREAK).Height(), 3 * lineHeight);
    EXPECT_EQ(Measure(u"a\r\n\r\nb", 0).Height(), 3 * lineHeight);
    // On a single line the breaks are blanks.
    CRect single = Measure(u"one\r\ntwo", DT_SINGLELINE);
    EXPECT_EQ(single.Height(), lineHeight);
    EXPECT_EQ(single.Width(), Width(u"one  two"));
}

TEST_F(DrawTextTest, WordsWrapAtBlanksAndAWordWiderThanTheLineStaysWhole) {
    const int fits = Width(u"alpha beta");
    // Exactly wide enough for two words: the third goes on a second line.
    CRect two = Measure(u"alpha beta gamma", DT_WORDBREAK, fits);
    EXPECT_EQ(two.Height(), 2 * lineHeight);
    EXPECT_EQ(two.Width(), fits);
    // Blanks at the break are dropped, not carried to the next line.
    EXPECT_EQ(Measure(u"alpha     beta", DT_WORDBREAK, Width(u"alpha  ")).Height(), 2 * lineHeight);
    // A word wider than the box is a line of its own, and widens the box.
    CRect wide = Measure(u"a extraordinarily b", DT_WORDBREAK, Width(u"a b"));
    EXPECT_EQ(wide.Height(), 3 * lineHeight);
    EXPECT_EQ(wide.Width(), Width(u"extraordinarily"));
    // Without word breaks a long line is one line.
    EXPECT_EQ(Measure(u"alpha beta gamma", 0, fits).Height(), lineHeight);
    // Prefixes take no room when the fit is measured.
    EXPECT_EQ(Measure(u"&alpha &beta gamma", DT_WORDBREAK, fits).Height(), 2 * lineHeight);
}

TEST_F(DrawTextTest, TabsExpandToStopsOfEightAverageCharacters) {
    const int stop = 8 * average;
    CRect tabbed = Measure(u"ab\tc", DT_SINGLELINE | DT_EXPANDTABS);
    EXPECT_GE(tabbed.Width(), stop + Width(u"c"));
    EXPECT_LT(tabbed.Width(), stop + Width(u"c") + Width(u" ") + 1);
    CRect twoStops = Measure(u"\t\tc", DT_SINGLELINE | DT_EXPANDTABS);
    EXPECT_GE(twoStops.Width(), 2 * stop + Width(u"c"));
    // Without the flag the tab is only a character.
    EXPECT_LT(Measure(u"ab\tc", DT_SINGLELINE).Width(), stop);
}

TEST_F(DrawTextTest, ThePrefixUnderlinesTheNextCharacterUnlessHiddenOrTurnedOff) {
    const CRect box(10, 10, 300, 10 + lineHeight + 4);
    CRect rect = box;
    ::DrawText(hdc, u"&Save", -1, &rect, DT_SINGLELINE);
    // The bar: the row below the baseline, as wide as the 'S'.
    const int bar = box.top + ascent + 1;
    PixelSet row = Ink(CRect(box.left, bar, box.right, bar + 1));
    EXPECT_EQ(row, Block(box.left, bar, box.left + Width(u"S"), bar + 1))
        << Describe(Block(box.left, bar, box.left + Width(u"S"), bar + 1), row);

    Clear();
    rect = box;
    ::DrawText(hdc, u"&Save", -1, &rect, DT_SINGLELINE | DT_HIDEPREFIX);
    EXPECT_TRUE(Ink(CRect(box.left, bar, box.right, bar + 1)).empty());
    const int hiddenWidth = static_cast<int>(Ink(box).size());

    // Turned off, the '&' itself is drawn.
    Clear();
    rect = box;
    ::DrawText(hdc, u"&Save", -1, &rect, DT_SINGLELINE | DT_NOPREFIX);
    EXPECT_GT(static_cast<int>(Ink(box).size()), hiddenWidth);
    // "&&" is one ampersand.
    EXPECT_EQ(Measure(u"a&&b", DT_SINGLELINE).Width(), Width(u"a&b"));
}

TEST_F(DrawTextTest, ASingleLineSitsAtTheTopMiddleOrBottomAndLeftCentreOrRight) {
    const CRect box(0, 0, 300, 100);
    auto draw = [&](UINT format) {
        Clear();
        CRect rect = box;
        ::DrawText(hdc, u"Wg", -1, &rect, format | DT_SINGLELINE);
        return std::make_pair(InkRows(box), Ink(box));
    };
    auto [topRows, topInk] = draw(DT_TOP);
    auto [middleRows, middleInk] = draw(DT_VCENTER);
    auto [bottomRows, bottomInk] = draw(DT_BOTTOM);
    ASSERT_GE(topRows.first, 0);
    EXPECT_LT(topRows.second, lineHeight);
    EXPECT_EQ(middleRows.first - topRows.first, (100 - lineHeight) / 2);
    EXPECT_EQ(bottomRows.first - topRows.first, 100 - lineHeight);

    auto leftmost = [](const PixelSet& ink) { return ink.begin()->first; };
    auto rightmost = [](const PixelSet& ink) { return ink.rbegin()->first; };
    auto [r1, leftInk] = draw(DT_LEFT);
    auto [r2, centreInk] = draw(DT_CENTER);
    auto [r3, rightInk] = draw(DT_RIGHT);
    (void)r1;
    (void)r2;
    (void)r3;
    EXPECT_LT(leftmost(leftInk), 3);
    EXPECT_GT(rightmost(rightInk), 295);
    EXPECT_NEAR((leftmost(centreInk) + rightmost(centreInk)) / 2, 150, 3);
}

TEST_F(DrawTextTest, TextIsClippedToTheRectangleUnlessToldNotTo) {
    const CRect box(20, 20, 60, 20 + lineHeight);
    const std::u16string text = u"WWWWWWWWWWWWWWWW";
    CRect rect = box;
    ::DrawText(hdc, text.c_str(), -1, &rect, DT_SINGLELINE);
    EXPECT_FALSE(Ink(box).empty());
    EXPECT_TRUE(Ink(CRect(box.right, 0, 400, 200)).empty());
    // The clip is put back afterwards: drawing outside works again.
    ::TextOut(hdc, 200, 100, u"W", 1);
    EXPECT_FALSE(Ink(CRect(200, 100, 240, 100 + lineHeight)).empty());

    Clear();
    rect = box;
    ::DrawText(hdc, text.c_str(), -1, &rect, DT_SINGLELINE | DT_NOCLIP);
    EXPECT_FALSE(Ink(CRect(box.right, box.top, 400, box.bottom)).empty());
}

TEST_F(DrawTextTest, MissingArgumentsDrawNothing) {
    CRect rect(0, 0, 100, 20);
    EXPECT_EQ(::DrawText(nullptr, u"x", 1, &rect, 0), 0);
    EXPECT_EQ(::DrawText(hdc, nullptr, 1, &rect, 0), 0);
    EXPECT_EQ(::DrawText(hdc, u"x", 1, nullptr, 0), 0);
    EXPECT_TRUE(Ink(CRect(0, 0, 400, 200)).empty());
}

} // namespace
