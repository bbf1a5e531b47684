// The grid in a window: what it draws where, repainting after changes and
// the update switch, and scrolling with the keys.
#include "GridViewHost.h"

#include <platform/GdiJournal.h>

#include "support/Pixels.h"
#include "support/TempDir.h"

#include <platform/WindowPictures.h>

using grid_test::GridHost;

namespace {

// The TextOut entries of a journal as "text@x,y".
std::vector<std::string> Texts(const platform::GdiJournal& journal) {
    std::vector<std::string> texts;
    for (const auto& entry : journal.Ops("TextOut")) {
        std::string text(entry.text.begin(), entry.text.end());
        texts.push_back(text + "@" + std::to_string(entry.args[0]) + "," +
                        std::to_string(entry.args[1]));
    }
    return texts;
}

bool HasText(const std::vector<std::string>& texts, const std::string& prefix) {
    for (const auto& t : texts)
        if (t.rfind(prefix + "@", 0) == 0)
            return true;
    return false;
}

} // namespace

TEST_F(GridHost, DrawsHeadersAndCellsColumnByWidth) {
    grid->Fill(3, 2, {u"Name", u"City"});
    grid->SetColWidth(1, 1, 90);
    grid->SetColWidth(2, 2, 70);
    testing_support::Canvas canvas(400, 200, RGB(255, 255, 255));
    platform::GdiJournal journal;
    platform::SetJournal(canvas.dc(), &journal);
    grid->OnDraw(&canvas.dc());
    platform::SetJournal(canvas.dc(), nullptr);
    auto texts = Texts(journal);
    const int h = grid->GetRowHeight(0);
    const int w0 = grid->GetColWidth(0);
    // The row-header column shows row numbers; data cells start after it.
    EXPECT_TRUE(HasText(texts, "1")) << journal.Dump();
    EXPECT_NE(std::find(texts.begin(), texts.end(),
                        "r1c1@" + std::to_string(w0 + 3) + "," + std::to_string(h + 1)),
              texts.end())
        << journal.Dump();
    EXPECT_NE(std::find(texts.begin(), texts.end(),
                        "r3c2@" + std::to_string(w0 + 90 + 3) + "," + std::to_string(3 * h + 1)),
              texts.end())
        << journal.Dump();
    EXPECT_TRUE(HasText(texts, "Name"));
    EXPECT_TRUE(HasText(texts, "City"));
}

TEST_F(GridHost, AHiddenHeaderColumnLeavesTheDataColumnsAtTheLeftEdge) {
    grid->Fill(2, 2, {u"A", u"B"});
    grid->HideCols(0, 0, TRUE);
    testing_support::Canvas canvas(400, 200, RGB(255, 255, 255));
    platform::GdiJournal journal;
    platform::SetJournal(canvas.dc(), &journal);
    grid->OnDraw(&canvas.dc());
    platform::SetJournal(canvas.dc(), nullptr);
    auto texts = Texts(journal);
    const int h = grid->GetRowHeight(0);
    EXPECT_NE(std::find(texts.begin(), texts.end(), "r1c1@3," + std::to_string(h + 1)), texts.end())
        << journal.Dump();
    // No row numbers.
    EXPECT_FALSE(HasText(texts, "1"));
    EXPECT_FALSE(HasText(texts, "2"));
}

TEST_F(GridHost, CellTextIsClippedToItsCell) {
    grid->Fill(1, 2, {u"A", u"B"});
    grid->HideCols(0, 0, TRUE);
    CGXStyle style;
    style.SetValue(u"WWWWWWWWWWWWWWWWWWWWWWWWWWWW");
    grid->SetStyleRange(CGXRange(1, 1), style);
    grid->SetColWidth(1, 1, 40);
    testing_support::Canvas canvas(400, 100, RGB(255, 255, 255));
    grid->OnDraw(&canvas.dc());
    const int h = grid->GetRowHeight(0);
    auto black = testing_support::PixelsOfColour(canvas.dc(), CRect(0, h, 40, 2 * h), 0);
    EXPECT_FALSE(black.empty());
    // The neighbour's own text starts 3 pixels in; the first cell's W's never
    // reach past its grid line at x = 39.
    auto spill = testing_support::PixelsOfColour(canvas.dc(), CRect(39, h, 42, 2 * h - 1), 0);
    EXPECT_TRUE(spill.empty()) << testing_support::Describe({}, spill);
}

TEST_F(GridHost, ChangesRepaintUnlessTheUpdateSwitchIsOff) {
    grid->Fill(3, 2, {u"A", u"B"});
    grid->UpdateWindow();
    CRect update;
    EXPECT_FALSE(grid->GetUpdateRect(&update));

    CGXStyle style;
    style.SetValue(u"changed");
    grid->SetStyleRange(CGXRange(1, 1), style, GRID_MODIFY_OVERRIDE, GRID_STYLE_CELLS, nullptr,
                        GRID_UPDATE_INVALIDATE);
    EXPECT_TRUE(grid->GetUpdateRect(&update));
    grid->UpdateWindow();

    // No update asked for: nothing to repaint.
    grid->SetStyleRange(CGXRange(1, 1), style, GRID_MODIFY_OVERRIDE, GRID_STYLE_CELLS, nullptr,
                        GRID_UPDATE_NONE);
    EXPECT_FALSE(grid->GetUpdateRect(&update));

    // Switched off, changes wait; switching on repaints once.
    grid->GetParam()->EnableUpdate(FALSE);
    EXPECT_FALSE(grid->GetParam()->IsUpdateEnabled());
    grid->SetRowCount(50);
    grid->SetColWidth(1, 2, 30);
    EXPECT_FALSE(grid->GetUpdateRect(&update));
    grid->GetParam()->EnableUpdate(TRUE);
    EXPECT_TRUE(grid->GetUpdateRect(&update));
    grid->UpdateWindow();
    // Off and on again with nothing changed meanwhile: nothing to repaint.
    grid->GetParam()->EnableUpdate(FALSE);
    grid->GetParam()->EnableUpdate(TRUE);
    EXPECT_FALSE(grid->GetUpdateRect(&update));
    EXPECT_EQ(grid->GetValueRowCol(1, 1), u"changed");
}

TEST_F(GridHost, ScrollsWithTheKeysNoFurtherThanTheLastRowNeeds) {
    grid->Fill(100, 3, {u"A", u"B", u"C"});
    EXPECT_EQ(grid->GetTopRow(), 1);
    grid->SendMessage(WM_KEYDOWN, VK_DOWN, 0);
    EXPECT_EQ(grid->GetTopRow(), 2);
    const int page = grid->GetLastVisibleRow() - grid->GetTopRow();
    grid->SendMessage(WM_KEYDOWN, VK_NEXT, 0);
    EXPECT_EQ(grid->GetTopRow(), 2 + page);
    grid->SendMessage(WM_KEYDOWN, VK_END, 0);
    // The last row shows at the bottom; no scrolling past it.
    EXPECT_EQ(grid->GetLastVisibleRow(), 100);
    const int bottomTop = grid->GetTopRow();
    EXPECT_GT(bottomTop, 50);
    EXPECT_FALSE(grid->SetTopRow(bottomTop + 10));
    grid->SendMessage(WM_KEYDOWN, VK_HOME, 0);
    EXPECT_EQ(grid->GetTopRow(), 1);
    EXPECT_FALSE(grid->SetTopRow(-3));

    // Drawing starts at the top row.
    grid->SetTopRow(40);
    testing_support::Canvas canvas(400, 300, RGB(255, 255, 255));
    platform::GdiJournal journal;
    platform::SetJournal(canvas.dc(), &journal);
    grid->OnDraw(&canvas.dc());
    platform::SetJournal(canvas.dc(), nullptr);
    auto texts = Texts(journal);
    EXPECT_TRUE(HasText(texts, "r40c1"));
    EXPECT_FALSE(HasText(texts, "r39c1"));
}

TEST_F(GridHost, ScrollsAcrossColumnsPassingHiddenOnes) {
    grid->Fill(2, 12, {});
    grid->SetColWidth(1, 12, 100);
    grid->HideCols(2, 2, TRUE);
    EXPECT_EQ(grid->GetLeftCol(), 1);
    grid->SendMessage(WM_KEYDOWN, VK_RIGHT, 0);
    EXPECT_EQ(grid->GetLeftCol(), 3);
    grid->SendMessage(WM_KEYDOWN, VK_LEFT, 0);
    EXPECT_EQ(grid->GetLeftCol(), 1);
    // No further right than needed for column 12 to show whole.
    grid->SetLeftCol(12);
    EXPECT_EQ(grid->GetLastVisibleCol(), 12);
    EXPECT_LT(grid->GetLeftCol(), 12);
    // Fewer columns: the position comes back within reach.
    grid->SetColCount(3);
    EXPECT_EQ(grid->GetLeftCol(), 1);
}

TEST(GridProperties, MarginsAreKeptAndNegativeOnesRefused) {
    CGXGridCore grid;
    CGXProperties* props = grid.GetParam()->GetProperties();
    int t = 0, l = 0, b = 0, r = 0;
    props->GetMargins(t, l, b, r);
    EXPECT_EQ(t, CGXProperties::kDefaultMargin);
    EXPECT_TRUE(props->SetMargins(72, 36, 72, 36));
    EXPECT_FALSE(props->SetMargins(10, -1, 10, 10));
    props->GetMargins(t, l, b, r);
    EXPECT_EQ(t, 72);
    EXPECT_EQ(l, 36);
    EXPECT_EQ(b, 72);
    EXPECT_EQ(r, 36);
}

TEST(GridCoreUpdates, TheModelAloneKeepsWorkingWithUpdatesOff) {
    CGXGridCore grid;
    grid.GetParam()->EnableUpdate(FALSE);
    grid.SetColCount(2);
    grid.SetRowCount(1);
    CGXStyle& scratch = grid.StyleScratch();
    scratch.Free();
    scratch.SetValue(u"x");
    grid.SetStyleRange(CGXRange(1, 2), scratch);
    grid.GetParam()->EnableUpdate(TRUE);
    EXPECT_EQ(grid.GetValueRowCol(1, 2), u"x");
}

TEST_F(GridHost, PictureOfTheGridInItsWindow) {
    grid->Fill(40, 5, {u"Name", u"Quantity", u"Date", u"Place", u"Note"});
    grid->SetTopRow(3);
    auto dir = testing_support::TestOutputDir("grid-view");
    std::string png = (dir / "grid.png").string();
    ASSERT_TRUE(platform::SaveWindowAsPng(frame->m_hWnd, png));
    grid->UpdateWindow();
    // The header row is drawn in the button face colour across the columns
    // shown, and the cells below it in the window colour.
    CClientDC dc(grid);
    const int h = grid->GetRowHeight(0);
    EXPECT_EQ(dc.GetPixel(grid->GetColWidth(0) + 1, 1), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(dc.GetPixel(grid->GetColWidth(0) + 1, h + 1), GetSysColor(COLOR_WINDOW));
    // Grid line under the first data row.
    EXPECT_EQ(dc.GetPixel(grid->GetColWidth(0) + 5, 2 * h - 1), RGB(192, 192, 192));
}
