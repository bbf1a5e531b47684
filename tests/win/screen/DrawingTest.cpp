// What the screen draws into an attached device context, and how often,
// counted through the DC's journal: each plain text cell is one TextOut at the
// layout's coordinates of that cell.
#include "ScreenTestSupport.h"

#include <platform/GdiJournal.h>

#include <limits>
#include <map>
#include <set>
#include <utility>

namespace {

using Cell = std::pair<int, int>; // row, column

class DrawingTest : public ScreenTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&dc, 1200, 900));
        oldBitmap = dc.SelectObject(&bitmap);
        screen.SetDC(&dc);
        platform::SetJournal(dc.GetSafeHdc(), &journal);
    }
    void TearDown() override {
        platform::SetJournal(dc.GetSafeHdc(), nullptr);
        screen.SetDC(nullptr);
        dc.SelectObject(oldBitmap);
    }

    // How many times each cell was drawn since the journal was last cleared.
    std::map<Cell, int> DrawnCells() const {
        std::map<Cell, int> cells;
        for (const auto& entry : journal.Ops("TextOut")) {
            int x = entry.args[0] - TestLayout::kOriginX;
            int y = entry.args[1] - TestLayout::kOriginY;
            EXPECT_EQ(x % TestLayout::kCellWidth, 0) << journal.Dump();
            EXPECT_EQ(y % TestLayout::kCellHeight, 0) << journal.Dump();
            ++cells[{y / TestLayout::kCellHeight, x / TestLayout::kCellWidth}];
        }
        return cells;
    }
    std::set<int> DrawnRows() const {
        std::set<int> rows;
        for (const auto& [cell, count] : DrawnCells())
            rows.insert(cell.first);
        return rows;
    }
    std::map<Cell, int> Run(int row, int first, int last, int times = 1) const {
        std::map<Cell, int> cells;
        for (int col = first; col <= last; ++col)
            cells[{row, col}] = times;
        return cells;
    }

    CDC dc;
    CBitmap bitmap;
    CBitmap* oldBitmap = nullptr;
    platform::GdiJournal journal;
};

TEST_F(DrawingTest, WritingAndErasingDrawEachCellWritten) {
    Write("ab");
    EXPECT_EQ(DrawnCells(), (std::map<Cell, int>{{{0, 0}, 1}, {{0, 1}, 1}}));
    auto texts = journal.Ops("TextOut");
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].text, u"a");
    EXPECT_EQ(texts[1].text, u"b");

    journal.Clear();
    screen.CursorPosition(3, 70);
    screen.EraseInLine(0);
    EXPECT_EQ(DrawnCells(), Run(2, 69, 79));
}

TEST_F(DrawingTest, SelectionChangesDrawOnlyTheCellsThatChange) {
    screen.Select(CursorPos(1, 1), CursorPos(1, 10));
    EXPECT_EQ(DrawnCells(), Run(0, 0, 9));

    journal.Clear();
    screen.Select(CursorPos(1, 1), CursorPos(1, 12));
    EXPECT_EQ(DrawnCells(), Run(0, 10, 11));

    journal.Clear();
    screen.Select(CursorPos(1, 1), CursorPos(1, 10));
    EXPECT_EQ(DrawnCells(), Run(0, 10, 11));

    // Moving to a disjoint run draws both runs and nothing between them.
    journal.Clear();
    screen.Select(CursorPos(5, 1), CursorPos(5, 5));
    auto expected = Run(0, 0, 9);
    expected.merge(Run(4, 0, 4));
    EXPECT_EQ(DrawnCells(), expected);

    // Writing ends the selection: the five cells are drawn unselected, then
    // the written cell.
    journal.Clear();
    Write("x");
    expected = Run(4, 0, 4);
    expected[{0, 0}] = 1;
    EXPECT_EQ(DrawnCells(), expected);
    EXPECT_FALSE(screen.ActiveSelection());
}

TEST_F(DrawingTest, ASelectionEndedUnderANarrowerViewDrawsNothingSelectedLater) {
    screen.SetAutoWrapMode(true);
    screen.SetWindowSize(24, 100, false);
    screen.Select(CursorPos(1, 75), CursorPos(2, 10));
    screen.SetAutoWrapMode(false); // columns 80 to 99 hidden

    // Only the marked cells still in view are drawn as the selection ends.
    journal.Clear();
    screen.Unselect();
    auto expected = Run(0, 74, 79);
    expected.merge(Run(1, 0, 9));
    EXPECT_EQ(DrawnCells(), expected);

    // Widened again, a repaint shows every cell on the plain background.
    screen.SetAutoWrapMode(true);
    journal.Clear();
    screen.Refresh(&dc);
    std::map<COLORREF, int> backgrounds;
    for (const auto& entry : journal.Ops("TextOut"))
        ++backgrounds[entry.bkColor];
    EXPECT_EQ(backgrounds.size(), 1u) << journal.Dump();

    // Narrowing between two selections: the second one draws the cells of the
    // first that are still in view and its own, nothing else.
    screen.Select(CursorPos(1, 75), CursorPos(1, 90));
    screen.SetAutoWrapMode(false);
    journal.Clear();
    screen.Select(CursorPos(1, 78), CursorPos(1, 80));
    EXPECT_EQ(DrawnCells(), Run(0, 74, 76));
}

TEST_F(DrawingTest, ScrollsRedrawTheRegionAndLineEditsTheScreen) {
    screen.SetScrollingRegion(5, 10);
    screen.CursorPosition(10, 1);
    journal.Clear();
    screen.Index();
    EXPECT_EQ(DrawnRows(), (std::set<int>{4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(DrawnCells().size(), 6u * 80u);

    journal.Clear();
    screen.CursorPosition(7, 1);
    screen.InsertLine(1);
    EXPECT_EQ(DrawnCells().size(), 24u * 80u);
    journal.Clear();
    screen.DeleteLine(2);
    EXPECT_EQ(DrawnCells().size(), 24u * 80u);
}

TEST_F(DrawingTest, CharacterShiftsDrawEachShiftedCellOncePerRepetition) {
    screen.CursorPosition(1, 78);
    journal.Clear();
    screen.InsertCharacter(2);
    EXPECT_EQ(DrawnCells(), (std::map<Cell, int>{{{0, 77}, 2}, {{0, 78}, 2}, {{0, 79}, 2}}));

    journal.Clear();
    screen.DeleteCharacter(1);
    EXPECT_EQ(DrawnCells(), Run(0, 77, 79));
}

TEST_F(DrawingTest, MovesModesAndResizesDrawNothing) {
    Write("abc");
    journal.Clear();
    screen.CursorPosition(10, 10);
    screen.CursorUp(3);
    screen.CursorForward(5);
    screen.SaveCursor();
    screen.RestoreCursor();
    screen.SetVideoBold();
    screen.ShiftOut();
    screen.ShiftIn();
    screen.SetScrollingRegion(2, 20);
    screen.SetWindowSize(30, 100, true);
    EXPECT_EQ(journal.entries.size(), 0u) << journal.Dump();
}

TEST_F(DrawingTest, RefreshDrawsTheVisibleCellsOnlyAndPrintingUsesThePageGrid) {
    screen.SetAutoWrapMode(true); // the window's width is visible only with auto-wrap
    screen.SetWindowSize(30, 100, true);
    journal.Clear();
    screen.Refresh(&dc);
    auto cells = DrawnCells();
    EXPECT_EQ(cells.size(), 30u * 100u);
    EXPECT_EQ(cells.rbegin()->first, Cell(29, 99));

    journal.Clear();
    screen.CursorPosition(3, 4);
    Write("p");
    journal.Clear();
    screen.PrintBuffer(&dc, CSize(10, 20));
    auto texts = journal.Ops("TextOut");
    EXPECT_EQ(texts.size(), 30u * 100u);
    bool found = false;
    for (const auto& entry : texts)
        if (entry.text == u"p") {
            found = true;
            EXPECT_EQ(entry.args[0], 30);
            EXPECT_EQ(entry.args[1], 40);
        }
    EXPECT_TRUE(found);
}

TEST_F(DrawingTest, AnyCellSizeForPrintingKeepsPositionsInRange) {
    screen.CursorPosition(24, 80);
    Write("z");
    journal.Clear();
    screen.PrintBuffer(&dc,
                       CSize(std::numeric_limits<LONG>::max(), -std::numeric_limits<LONG>::max()));
    auto texts = journal.Ops("TextOut");
    ASSERT_EQ(texts.size(), 24u * 80u);
    EXPECT_EQ(texts.back().text, u"z");
    EXPECT_EQ(texts.back().args[0], 79 * 32767);
    EXPECT_EQ(texts.back().args[1], 23 * -32767);
}

} // namespace
