// The grid model: counts, cell styles applied to ranges, column widths and
// hidden columns, and how everything outside the grid is left alone.
#include <GridCore.h>

#include <gtest/gtest.h>

#include <climits>

namespace {

CGXStyle Value(const char16_t* text) {
    CGXStyle style;
    style.SetValue(text);
    return style;
}

} // namespace

TEST(GridCore, CountsGrowAndShrink) {
    CGXGridCore grid;
    EXPECT_EQ(grid.GetRowCount(), 0);
    EXPECT_EQ(grid.GetColCount(), 0);
    EXPECT_TRUE(grid.SetRowCount(3, GRID_UPDATE_INVALIDATE));
    EXPECT_TRUE(grid.SetColCount(2, GRID_UPDATE_INVALIDATE));
    EXPECT_EQ(grid.GetRowCount(), 3);
    EXPECT_EQ(grid.GetColCount(), 2);
    EXPECT_FALSE(grid.SetColCount(-1));
    EXPECT_FALSE(grid.SetRowCount(-5));
    EXPECT_EQ(grid.GetColCount(), 2);
    EXPECT_EQ(grid.GetRowCount(), 3);
}

TEST(GridCore, AStyleReachesEveryCellOfTheRangeAndMergesWithWhatIsThere) {
    CGXGridCore grid;
    grid.SetRowCount(4);
    grid.SetColCount(3);
    EXPECT_TRUE(grid.SetStyleRange(CGXRange(1, 1, 2, 3), Value(u"v"), GRID_MODIFY_OVERRIDE,
                                   GRID_STYLE_CELLS, nullptr, GRID_UPDATE_INVALIDATE, 0));
    CGXStyle control;
    control.SetControl(GRID_CONTROL_EDIT);
    EXPECT_TRUE(grid.SetStyleRange(CGXRange(2, 2, 3, 3), control));

    for (int row = 0; row <= 4; ++row)
        for (int col = 0; col <= 3; ++col) {
            CGXStyle style;
            ASSERT_TRUE(grid.GetStyleRowCol(row, col, style));
            const bool valued = row >= 1 && row <= 2 && col >= 1;
            const bool controlled = row >= 2 && row <= 3 && col >= 2;
            EXPECT_EQ(style.GetIncludeValue(), valued) << row << "," << col;
            EXPECT_EQ(grid.GetValueRowCol(row, col), valued ? u"v" : u"");
            EXPECT_EQ(style.GetIncludeControl(), controlled) << row << "," << col;
        }
}

TEST(GridCore, RangesAreClippedToTheGrid) {
    CGXGridCore grid;
    grid.SetRowCount(2);
    grid.SetColCount(2);
    // Whole columns reach every row, the header row included.
    EXPECT_TRUE(grid.SetStyleRange(CGXRange().SetCols(2), Value(u"c")));
    EXPECT_EQ(grid.GetValueRowCol(0, 2), u"c");
    EXPECT_EQ(grid.GetValueRowCol(2, 2), u"c");
    EXPECT_EQ(grid.GetValueRowCol(2, 1), u"");
    // Partly outside: the inside part changes.
    EXPECT_TRUE(grid.SetStyleRange(CGXRange(-3, 1, 1, 9), Value(u"p")));
    EXPECT_EQ(grid.GetValueRowCol(0, 1), u"p");
    EXPECT_EQ(grid.GetValueRowCol(1, 2), u"p");
    // Wholly outside, or empty: nothing changes.
    EXPECT_FALSE(grid.SetStyleRange(CGXRange(3, 1), Value(u"x")));
    EXPECT_FALSE(grid.SetStyleRange(CGXRange(1, INT_MIN, 1, -1), Value(u"x")));
    EXPECT_FALSE(grid.SetStyleRange(CGXRange(), Value(u"x")));
    EXPECT_FALSE(grid.SetStyleRange(CGXRange(2, 2, 1, 1), Value(u"x")));
    CGXStyle style;
    EXPECT_FALSE(grid.GetStyleRowCol(3, 1, style));
    EXPECT_FALSE(grid.GetStyleRowCol(-1, 0, style));
    EXPECT_EQ(grid.GetValueRowCol(1, 3), u"");
}

TEST(GridCore, OnlyTheCellsOwnStylesCanBeOverridden) {
    CGXGridCore grid;
    grid.SetRowCount(1);
    grid.SetColCount(1);
    EXPECT_FALSE(grid.SetStyleRange(CGXRange(1, 1), Value(u"a"), 1));
    EXPECT_FALSE(grid.SetStyleRange(CGXRange(1, 1), Value(u"a"), GRID_MODIFY_OVERRIDE, 1));
    const CGXStyle cells[1] = {Value(u"b")};
    EXPECT_FALSE(grid.SetStyleRange(CGXRange(1, 1), Value(u"a"), GRID_MODIFY_OVERRIDE,
                                    GRID_STYLE_CELLS, cells));
    EXPECT_EQ(grid.GetValueRowCol(1, 1), u"");
}

TEST(GridCore, ShrinkingDropsWhatLiesBeyondTheNewCounts) {
    CGXGridCore grid;
    grid.SetRowCount(3);
    grid.SetColCount(3);
    grid.SetStyleRange(CGXRange().SetTable(), Value(u"t"));
    grid.SetColWidth(3, 3, 99);
    grid.HideCols(3, 3);
    grid.SetRowCount(1);
    grid.SetColCount(2);
    grid.SetRowCount(3);
    grid.SetColCount(3);
    EXPECT_EQ(grid.GetValueRowCol(1, 2), u"t");
    EXPECT_EQ(grid.GetValueRowCol(2, 1), u"");
    EXPECT_EQ(grid.GetValueRowCol(1, 3), u"");
    EXPECT_FALSE(grid.IsColHidden(3));
    EXPECT_EQ(grid.GetColWidth(3), CGXGridCore::kDefaultColWidth);
}

TEST(GridCore, HugeCountsCostNothingUntilCellsAreSet) {
    CGXGridCore grid;
    EXPECT_TRUE(grid.SetRowCount(INT_MAX));
    EXPECT_TRUE(grid.SetColCount(INT_MAX));
    EXPECT_TRUE(grid.SetStyleRange(CGXRange(INT_MAX, INT_MAX), Value(u"far")));
    EXPECT_EQ(grid.GetValueRowCol(INT_MAX, INT_MAX), u"far");
    EXPECT_TRUE(grid.SetColWidth(INT_MAX - 1, INT_MAX, 5));
    EXPECT_EQ(grid.GetColWidth(INT_MAX), 5);
    EXPECT_TRUE(grid.SetRowCount(0));
    EXPECT_EQ(grid.GetValueRowCol(0, INT_MAX), u"");
}

TEST(GridCore, ColumnWidths) {
    CGXGridCore grid;
    grid.SetColCount(4);
    EXPECT_EQ(grid.GetColWidth(1), CGXGridCore::kDefaultColWidth);
    EXPECT_TRUE(grid.SetColWidth(1, 2, 120, nullptr, GRID_UPDATE_INVALIDATE, 0));
    EXPECT_EQ(grid.GetColWidth(1), 120);
    EXPECT_EQ(grid.GetColWidth(2), 120);
    EXPECT_EQ(grid.GetColWidth(3), CGXGridCore::kDefaultColWidth);
    // One width per column, counted from the first one named, even outside.
    const int widths[] = {1, 2, 3, 4, 5, 6};
    EXPECT_TRUE(grid.SetColWidth(-1, 4, 0, widths));
    EXPECT_EQ(grid.GetColWidth(0), 2);
    EXPECT_EQ(grid.GetColWidth(4), 6);
    // Negative widths are none; huge ones are kept as they are.
    grid.SetColWidth(3, 3, -40);
    EXPECT_EQ(grid.GetColWidth(3), 0);
    grid.SetColWidth(3, 3, INT_MAX);
    EXPECT_EQ(grid.GetColWidth(3), INT_MAX);
    // Outside the grid.
    EXPECT_FALSE(grid.SetColWidth(5, 9, 10));
    EXPECT_EQ(grid.GetColWidth(5), 0);
    EXPECT_EQ(grid.GetColWidth(-1), 0);
}

TEST(GridCore, HiddenColumnsTakeNoRoomAndGetTheirWidthBack) {
    CGXGridCore grid;
    grid.SetColCount(3);
    grid.SetColWidth(0, 3, 50);
    EXPECT_TRUE(grid.HideCols(0, 0, TRUE, nullptr, GRID_UPDATE_INVALIDATE, 0));
    EXPECT_TRUE(grid.IsColHidden(0));
    EXPECT_FALSE(grid.IsColHidden(1));
    EXPECT_EQ(grid.GetColWidth(0), 0);
    const BOOL hide[] = {FALSE, TRUE, FALSE};
    EXPECT_TRUE(grid.HideCols(0, 2, TRUE, hide));
    EXPECT_FALSE(grid.IsColHidden(0));
    EXPECT_TRUE(grid.IsColHidden(1));
    EXPECT_EQ(grid.GetColWidth(0), 50);
    EXPECT_TRUE(grid.HideCols(1, 1, FALSE));
    EXPECT_EQ(grid.GetColWidth(1), 50);
    EXPECT_FALSE(grid.HideCols(4, 4));
}

TEST(GridCore, TheScratchStyleIsTheGridsOwn) {
    CGXGridCore grid;
    grid.SetRowCount(1);
    grid.SetColCount(2);
    for (int col = 1; col <= 2; ++col) {
        grid.StyleScratch().Free();
        grid.StyleScratch().SetValue(col == 1 ? u"one" : u"two");
        grid.SetStyleRange(CGXRange(1, col), grid.StyleScratch());
    }
    EXPECT_EQ(grid.GetValueRowCol(1, 1), u"one");
    EXPECT_EQ(grid.GetValueRowCol(1, 2), u"two");
    EXPECT_EQ(grid.StyleScratch().GetValue(), u"two");
}
