// What the renderer asks of the device context, watched through its journal.
#include "support/Pixels.h"

#include <Win/Win.h>
#include <platform/GdiJournal.h>
#include <platform/GdiObjects.h>

#include <gtest/gtest.h>

using namespace testing_support;

namespace {

constexpr COLORREF kText = RGB(0xE0, 0x10, 0x10);
constexpr COLORREF kBack = RGB(0x10, 0x10, 0x60);
const CSize kCell(8, 16);

class RendererJournal : public ::testing::Test {
protected:
    void SetUp() override {
        LOGFONT lf = {};
        lf.lfHeight = 16;
        std::copy_n(u"Courier New", 12, lf.lfFaceName);
        font_.CreateFontIndirect(&lf);
        ScreenCharRenderer::Instance()->SetFontBounds(kCell);
    }
    void TearDown() override { canvas_.dc().SelectStockObject(SYSTEM_FONT); }

    // Draws (or prints) one cell with the given mode and records what happened.
    platform::GdiJournal Run(WCHAR code, int charSet, int mode = 0, bool print = false,
                             CSize size = kCell) {
        FontStyle style(mode, kText, kBack, &font_);
        ScreenChar cell;
        cell.Set(code, charSet, &style, &style);
        platform::GdiJournal journal;
        platform::SetJournal(canvas_.dc(), &journal);
        if (print)
            ScreenCharRenderer::Instance()->Print(&canvas_.dc(), &cell, 16, 32, size);
        else
            ScreenCharRenderer::Instance()->Draw(&canvas_.dc(), &cell, 16, 32, size);
        platform::SetJournal(canvas_.dc(), nullptr);
        return journal;
    }
    static std::u16string Texts(const platform::GdiJournal& j) {
        std::u16string all;
        for (auto& e : j.Ops("TextOut"))
            all += e.text + u"|";
        return all;
    }

    CFont font_;
    Canvas canvas_{64, 64, RGB(0, 0x80, 0)};
};

} // namespace

TEST_F(RendererJournal, BoldStrikesTwiceAndLeavesOpaqueMode) {
    canvas_.dc().SetBkMode(TRANSPARENT);
    platform::GdiJournal j = Run(u'A', 0, FontStyle::Bold);
    auto texts = j.Ops("TextOut");
    ASSERT_EQ(texts.size(), 2u) << j.Dump();
    EXPECT_EQ(texts[0].args[0], 16);
    EXPECT_EQ(texts[1].args[0], 17);
    EXPECT_EQ(texts[1].args[1], 32);
    EXPECT_EQ(texts[1].bkMode, TRANSPARENT);
    EXPECT_EQ(texts[0].textColor, kText);
    EXPECT_EQ(texts[0].bkColor, kBack);
    EXPECT_EQ(canvas_.dc().GetBkMode(), OPAQUE);

    j = Run(u'A', 0, FontStyle::Underlined | FontStyle::Reverse);
    EXPECT_EQ(j.Count("TextOut"), 1u) << "only the bold bit strikes twice";
}

TEST_F(RendererJournal, CharacterSetsChooseWhatIsOutput) {
    EXPECT_EQ(Texts(Run(u'#', 1)), u"\u00A3|");
    EXPECT_EQ(Texts(Run(u'#', 0)), u"#|");
    EXPECT_EQ(Texts(Run(u'A', 1)), u"A|");
    EXPECT_EQ(Texts(Run(u'q', 0)), u"q|");
    EXPECT_EQ(Texts(Run(u'_', 0)), u"_|");
    EXPECT_EQ(Texts(Run(u'_', 2)), u" |");
    EXPECT_EQ(Texts(Run(u'A', 2)), u"A|");
    EXPECT_EQ(Texts(Run(u'A', 3)), u"\u0001|");
    // The extended set hands 0x40-0x5E to its own table and the rest to the special one.
    EXPECT_EQ(Texts(Run(0x3F, 3)), u"?|");
    EXPECT_EQ(Texts(Run(0x40, 3)), u"\u0001|");
    EXPECT_EQ(Texts(Run(0x5E, 3)), u"\u0001|");
    EXPECT_EQ(Texts(Run(0x5F, 3)), u" |");
    EXPECT_EQ(Run(0x6A, 3).Count("Polyline"), 1u);
    EXPECT_EQ(Run(0x6A, 2).Count("Polyline"), 1u);
    EXPECT_EQ(Texts(Run(0x66, 2)), u"\u00B0|");
    EXPECT_EQ(Texts(Run(0x67, 2)), u"\u00B1|");
    EXPECT_EQ(Texts(Run(0x7D, 2)), u"\u00A3|");
    EXPECT_EQ(Texts(Run(0x7E, 2)), u"\u00B7|");
    for (WCHAR code : {0x61, 0x62, 0x63, 0x64, 0x65, 0x68, 0x69, 0x79, 0x7A, 0x7B})
        EXPECT_EQ(Texts(Run(code, 2)), u"\u0001|") << int(code);
    // Only the low byte counts; bytes from 0x80 go through the ANSI code page.
    EXPECT_EQ(Run(0x0171, 2).Count("Polyline"), 1u);
    EXPECT_EQ(Texts(Run(0x0180, 2)), u"\u20AC|");
    EXPECT_EQ(Texts(Run(0x00E9, 3)), u"\u00E9|");
}

TEST_F(RendererJournal, NotEqualIsComposedAndLeavesOpaqueMode) {
    canvas_.dc().SetBkMode(TRANSPARENT);
    platform::GdiJournal j = Run(0x7C, 2);
    auto texts = j.Ops("TextOut");
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].text, u"=");
    EXPECT_EQ(texts[1].text, u"/");
    EXPECT_EQ(texts[1].bkMode, TRANSPARENT);
    EXPECT_EQ(texts[1].args[0], texts[0].args[0]);
    EXPECT_EQ(canvas_.dc().GetBkMode(), OPAQUE);
}

TEST_F(RendererJournal, UnknownSetsAndCodeZeroPaintNothing) {
    for (int set : {4, -1, 99}) {
        platform::GdiJournal j = Run(u'A', set);
        EXPECT_EQ(j.Count("TextOut") + j.Count("Polyline") + j.Count("Polygon"), 0u) << set;
    }
    canvas_.dc().FillSolidRect(0, 0, 64, 64, RGB(0, 0x80, 0));
    for (int set : {0, 1}) {
        platform::GdiJournal j = Run(0, set);
        for (auto& e : j.Ops("TextOut"))
            EXPECT_TRUE(e.text.empty());
    }
    EXPECT_EQ(PixelsOfColour(canvas_.dc(), CRect(0, 0, 64, 64), RGB(0, 0x80, 0)).size(), 64u * 64u);
}

TEST_F(RendererJournal, GlyphsUseTheirOwnPensAndPutTheOldOnesBack) {
    CPen* penBefore = canvas_.dc().GetCurrentPen();
    CBrush* brushBefore = canvas_.dc().GetCurrentBrush();
    platform::GdiCounts before = platform::LiveGdiObjects();
    for (WCHAR code = 0x5F; code <= 0x7E; ++code) {
        platform::GdiJournal j = Run(code, 2);
        EXPECT_EQ(platform::LiveGdiObjects(), before) << "glyph " << int(code);
        EXPECT_EQ(canvas_.dc().GetCurrentPen()->GetSafeHandle(), penBefore->GetSafeHandle());
        EXPECT_EQ(canvas_.dc().GetCurrentBrush()->GetSafeHandle(), brushBefore->GetSafeHandle());
        for (auto& line : j.Ops("Polyline")) {
            EXPECT_EQ(line.penStyle, 0x10200u);
            EXPECT_EQ(line.penWidth, 1);
            EXPECT_EQ(line.penColor, kText);
        }
    }
    platform::GdiJournal j = Run(0x60, 2);
    auto polygon = j.Ops("Polygon");
    ASSERT_EQ(polygon.size(), 1u);
    EXPECT_EQ(polygon[0].penStyle, 0x11200u);
    EXPECT_EQ(polygon[0].penWidth, 1);
    EXPECT_EQ(polygon[0].brushColor, kText);
    EXPECT_EQ(polygon[0].brushStyle, static_cast<UINT>(BS_SOLID));
    std::vector<POINT> corners = {{17, 40}, {20, 37}, {23, 40}, {20, 43}};
    ASSERT_EQ(polygon[0].points.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(polygon[0].points[i].x, corners[i].x);
        EXPECT_EQ(polygon[0].points[i].y, corners[i].y);
    }
    // The blanking space comes before the strokes.
    ASSERT_GE(j.entries.size(), 2u);
    auto text =
        std::find_if(j.entries.begin(), j.entries.end(), [](auto& e) { return e.op == "TextOut"; });
    auto poly =
        std::find_if(j.entries.begin(), j.entries.end(), [](auto& e) { return e.op == "Polygon"; });
    EXPECT_LT(text - j.entries.begin(), poly - j.entries.begin());
}

TEST_F(RendererJournal, CornerIsOnePolylineAndTeesAreTwo) {
    auto corner = Run(0x6C, 2).Ops("Polyline");
    ASSERT_EQ(corner.size(), 1u);
    ASSERT_EQ(corner[0].points.size(), 3u);
    EXPECT_EQ(corner[0].points[0].x, 20);
    EXPECT_EQ(corner[0].points[0].y, 48);
    EXPECT_EQ(corner[0].points[2].x, 24);
    auto tee = Run(0x74, 2).Ops("Polyline");
    ASSERT_EQ(tee.size(), 2u);
    EXPECT_EQ(tee[0].points[0].x, tee[0].points[1].x) << "the vertical stroke comes first";
}

TEST_F(RendererJournal, PrintingAReverseCellSwapsAndRestoresTheColours) {
    canvas_.dc().SetTextColor(RGB(0, 0, 0));
    canvas_.dc().SetBkColor(RGB(0xFF, 0xFF, 0xFF));
    platform::GdiJournal j = Run(0x71, 2, FontStyle::Reverse, true);
    auto line = j.Ops("Polyline");
    ASSERT_EQ(line.size(), 1u);
    EXPECT_EQ(line[0].penColor, RGB(0xFF, 0xFF, 0xFF)) << "drawn in the former background";
    auto blank = j.Ops("TextOut");
    ASSERT_EQ(blank.size(), 1u);
    EXPECT_EQ(blank[0].textColor, RGB(0xFF, 0xFF, 0xFF));
    EXPECT_EQ(blank[0].bkColor, RGB(0, 0, 0));
    EXPECT_EQ(canvas_.dc().GetTextColor(), RGB(0, 0, 0));
    EXPECT_EQ(canvas_.dc().GetBkColor(), RGB(0xFF, 0xFF, 0xFF));

    // Printing ignores the style's colours and font.
    CFont printerFont;
    LOGFONT lf = {};
    lf.lfHeight = -30;
    printerFont.CreateFontIndirect(&lf);
    CFont* old = canvas_.dc().SelectObject(&printerFont);
    j = Run(u'x', 0, 0, true);
    auto text = j.Ops("TextOut");
    ASSERT_EQ(text.size(), 1u);
    EXPECT_EQ(text[0].textColor, RGB(0, 0, 0));
    EXPECT_EQ(text[0].fontHeight, -30);
    canvas_.dc().SelectObject(old);
}

TEST_F(RendererJournal, LineWidthComesFromTheCellWidth) {
    ScreenCharRenderer::Instance()->SetFontBounds(CSize(5, 10));
    EXPECT_EQ(Run(0x71, 2, 0, false, CSize(5, 10)).Ops("Polyline").at(0).penWidth, 0);
    ScreenCharRenderer::Instance()->SetFontBounds(CSize(13, 10));
    EXPECT_EQ(Run(0x71, 2).Ops("Polyline").at(0).penWidth, 2);
    // A renderer never told the cell size takes it from the first glyph's cell.
    ScreenCharRenderer::Instance()->SetFontBounds(CSize(0, 0));
    EXPECT_EQ(Run(0x71, 2, 0, false, CSize(24, 48)).Ops("Polyline").at(0).penWidth, 4);
    EXPECT_EQ(Run(0x71, 2).Ops("Polyline").at(0).penWidth, 4) << "and keeps it";
}

TEST_F(RendererJournal, SelectedCellsDrawInTheSelectionStyle) {
    FontStyle normal(0, kText, kBack, &font_);
    FontStyle selected(0x1001, RGB(1, 2, 3), RGB(4, 5, 6), &font_);
    ScreenChar cell;
    cell.Set(u'S', 0, &normal, &selected);
    cell.Select();
    platform::GdiJournal j;
    platform::SetJournal(canvas_.dc(), &j);
    ScreenCharRenderer::Instance()->Draw(&canvas_.dc(), &cell, 0, 0, kCell);
    platform::SetJournal(canvas_.dc(), nullptr);
    auto texts = j.Ops("TextOut");
    ASSERT_EQ(texts.size(), 2u) << "the selection style is bold";
    EXPECT_EQ(texts[0].textColor, RGB(1, 2, 3));
    EXPECT_EQ(texts[0].bkColor, RGB(4, 5, 6));
}
