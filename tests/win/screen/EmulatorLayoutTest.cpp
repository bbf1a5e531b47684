#include "support/Pixels.h"
#include "support/TestLayout.h"

#include <platform/GdiJournal.h>

#include <gtest/gtest.h>

#include <vector>

using testing_support::TestLayout;

namespace {

constexpr COLORREF kOther[7] = {RGB(1, 0, 0), RGB(2, 0, 0), RGB(3, 0, 0), RGB(4, 0, 0),
                                RGB(5, 0, 0), RGB(6, 0, 0), RGB(7, 0, 0)};

// Records every style change, to check the order ChangeLayout uses.
class RecordingLayout : public TestLayout {
public:
    std::vector<int> keys;

protected:
    void UpdateStyle(int key, COLORREF text, COLORREF back, CFont* font) override {
        keys.push_back(key);
        TestLayout::UpdateStyle(key, text, back, font);
    }
};

} // namespace

TEST(EmulatorLayout, EmptyTableHasNoStyles) {
    TestLayout layout;
    EXPECT_EQ(layout.GetStyle(0), nullptr);
    EXPECT_EQ(layout.GetSelStyle(0x11), nullptr);
    EXPECT_EQ(layout.GetBkColor(), 0u);
}

TEST(EmulatorLayout, ChangeLayoutFillsThirtyTwoStyles) {
    TestLayout layout(u"Courier New", 16);
    const COLORREF* c = TestLayout::kColours;
    EXPECT_EQ(layout.StyleCount(), 32);
    EXPECT_EQ(layout.GetBkColor(), c[1]);
    EXPECT_EQ(layout.GetCharSize(), CSize(8, 16));

    FontStyle* boldSubdued = layout.GetStyle(0x0003);
    EXPECT_EQ(boldSubdued->GetMode(), 0x0003);
    EXPECT_EQ(boldSubdued->GetTextColor(), c[2]);
    EXPECT_EQ(boldSubdued->GetBackColor(), c[1]);
    EXPECT_EQ(boldSubdued->GetFont(), &layout.NormalFont());

    // Subdued together with blinking has no style of its own.
    for (int key : {0x000A, 0x000B, 0x000E, 0x000F, 0x001A, 0x001B, 0x001E, 0x001F})
        EXPECT_EQ(layout.GetStyle(key)->GetMode(), 0) << key;

    FontStyle* reverseUnderlined = layout.GetStyle(0x0015);
    EXPECT_EQ(reverseUnderlined->GetTextColor(), c[1]);
    EXPECT_EQ(reverseUnderlined->GetBackColor(), c[3]);
    EXPECT_EQ(reverseUnderlined->GetFont(), &layout.UnderlineFont());
}

TEST(EmulatorLayout, SelectionStylesKeepBoldUnderlineAndReverseOnly) {
    TestLayout layout(u"Courier New", 16);
    const COLORREF* c = TestLayout::kColours;
    FontStyle* s = layout.GetSelStyle(0x001B);
    EXPECT_EQ(s->GetMode(), 0x1011);
    EXPECT_EQ(s->GetTextColor(), c[6]);
    EXPECT_EQ(s->GetBackColor(), c[5]);

    s = layout.GetSelStyle(0x0006);
    EXPECT_EQ(s->GetMode(), 0x1004);
    EXPECT_EQ(s->GetTextColor(), c[5]);
    EXPECT_EQ(s->GetFont(), &layout.UnderlineFont());

    // Every selection key that can be formed exists.
    for (int key = 0; key < 0x20; ++key)
        EXPECT_EQ(layout.GetSelStyle(key)->GetMode(), 0x1000 | (key & 0x15)) << key;
}

TEST(EmulatorLayout, StylesAreUpdatedInPlaceInTheDocumentedOrder) {
    RecordingLayout layout;
    layout.Apply(u"Courier New", 16);
    const std::vector<int> order = {0x0000, 0x0002, 0x0004, 0x0008, 0x0006, 0x000C, 0x0010, 0x0012,
                                    0x0014, 0x0018, 0x0016, 0x001C, 0x1000, 0x1004, 0x1010, 0x1014};
    EXPECT_EQ(layout.keys, order);

    std::vector<FontStyle*> before;
    for (int key = 0; key < 0x20; ++key)
        before.push_back(layout.GetStyle(key));
    FontStyle* sel = layout.GetSelStyle(0x10);
    HGDIOBJ oldFont = layout.NormalFont().GetSafeHandle();

    layout.ChangeLayout(kOther, u"Lucida Console", -20, true, false);
    for (int key = 0; key < 0x20; ++key)
        EXPECT_EQ(layout.GetStyle(key), before[static_cast<std::size_t>(key)]) << key;
    EXPECT_EQ(layout.GetSelStyle(0x10), sel);
    EXPECT_EQ(layout.GetStyle(0)->GetTextColor(), kOther[0]);
    EXPECT_EQ(sel->GetTextColor(), kOther[6]);
    EXPECT_EQ(sel->GetBackColor(), kOther[5]);
    EXPECT_EQ(layout.GetBkColor(), kOther[1]);
    EXPECT_EQ(layout.StyleCount(), 32);
    EXPECT_NE(layout.NormalFont().GetSafeHandle(), oldFont);
    EXPECT_EQ(layout.GetStyle(0)->GetFont(), &layout.NormalFont());
    LOGFONT lf = {};
    layout.NormalFont().GetLogFont(&lf);
    EXPECT_EQ(lf.lfWeight, FW_BOLD);
    EXPECT_EQ(lf.lfHeight, -20);
}

TEST(EmulatorLayout, TellsTheRendererTheLineWidth) {
    // The renderer strokes line glyphs one sixth of the cell wide.
    TestLayout layout(u"Courier New", -40); // a 24-pixel cell
    ASSERT_EQ(layout.GetCharSize().cx, 24);
    testing_support::Canvas canvas(64, 64, 0);
    ScreenChar cell;
    cell.Set(u'x', 2, layout.GetStyle(0), layout.GetSelStyle(0));
    platform::GdiJournal journal;
    platform::SetJournal(canvas.dc(), &journal);
    ScreenCharRenderer::Instance()->Draw(&canvas.dc(), &cell, 0, 0, layout.GetCharSize());
    platform::SetJournal(canvas.dc(), nullptr);
    auto lines = journal.Ops("Polyline");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].penWidth, 4);
    canvas.dc().SelectStockObject(SYSTEM_FONT);
}
