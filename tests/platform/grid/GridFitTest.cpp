// Sizes that come from the grid font: the fitted column widths and the row
// height, measured on the real screen DC and font.
#include <GridCore.h>
#include <platform/GdiObjects.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

// Width and character height of text in the grid's font, measured here
// independently of the grid.
struct Measured {
    int width = 0;
    int height = 0;
};
Measured Measure(const CGXGridCore& grid, const std::u16string& text) {
    HDC dc = GetDC(nullptr);
    HFONT font = CreateFontIndirectW(&grid.GetGridFont());
    HGDIOBJ old = SelectObject(dc, font);
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    TEXTMETRICW tm{};
    GetTextMetricsW(dc, &tm);
    SelectObject(dc, old);
    DeleteObject(font);
    ReleaseDC(nullptr, dc);
    return {static_cast<int>(size.cx), static_cast<int>(tm.tmHeight)};
}

void SetValue(CGXGridCore& grid, int row, int col, const char16_t* text) {
    CGXStyle style;
    style.SetValue(text);
    grid.SetStyleRange(CGXRange(row, col), style);
}

constexpr int kMargins = 2 * CGXGridCore::kTextMarginX;

} // namespace

TEST(GridFit, TheFontIsTheDesktopsDialogFont) {
    CGXGridCore grid;
    LOGFONT gui{};
    GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(gui), &gui);
    EXPECT_EQ(std::u16string(grid.GetGridFont().lfFaceName), std::u16string(gui.lfFaceName));
    EXPECT_EQ(grid.GetGridFont().lfHeight, gui.lfHeight);
}

TEST(GridFit, AColumnTakesItsWidestValueAndTheMargins) {
    CGXGridCore grid;
    grid.SetRowCount(3);
    grid.SetColCount(2);
    SetValue(grid, 0, 1, u"Name");
    SetValue(grid, 1, 1, u"Wolfeschlegelsteinhausen");
    SetValue(grid, 2, 1, u"Li");
    SetValue(grid, 2, 2, u"iii");
    SetValue(grid, 1, 2, u"wider than the rest");
    const auto before = platform::LiveGdiObjects();
    EXPECT_TRUE(grid.ResizeColWidthsToFit(CGXRange().SetCols(1), TRUE, GRID_UPDATE_INVALIDATE));
    EXPECT_EQ(platform::LiveGdiObjects(), before); // the DC and font were given back
    const int widest = Measure(grid, u"Wolfeschlegelsteinhausen").width;
    EXPECT_GT(widest, Measure(grid, u"Name").width);
    EXPECT_EQ(grid.GetColWidth(1), widest + kMargins);
    EXPECT_EQ(grid.GetColWidth(2), CGXGridCore::kDefaultColWidth);

    // Only the rows of the range count.
    EXPECT_TRUE(grid.ResizeColWidthsToFit(CGXRange(2, 1, 3, 2)));
    EXPECT_EQ(grid.GetColWidth(1), Measure(grid, u"Li").width + kMargins);
    EXPECT_EQ(grid.GetColWidth(2), Measure(grid, u"iii").width + kMargins);
}

TEST(GridFit, TheWidestLineCountsAndAnEmptyColumnKeepsItsMargins) {
    CGXGridCore grid;
    grid.SetRowCount(1);
    grid.SetColCount(2);
    SetValue(grid, 1, 1, u"short\r\na much longer line\nmid");
    grid.ResizeColWidthsToFit(CGXRange().SetTable());
    EXPECT_EQ(grid.GetColWidth(1), Measure(grid, u"a much longer line").width + kMargins);
    EXPECT_EQ(grid.GetColWidth(2), kMargins);
    EXPECT_EQ(grid.GetColWidth(0), kMargins);
    EXPECT_FALSE(grid.ResizeColWidthsToFit(CGXRange(2, 1)));
}

TEST(GridFit, ATallGridWithFewValuesFitsQuickly) {
    CGXGridCore grid;
    grid.SetRowCount(INT_MAX - 1);
    grid.SetColCount(1);
    SetValue(grid, INT_MAX - 1, 1, u"bottom");
    EXPECT_TRUE(grid.ResizeColWidthsToFit(CGXRange().SetCols(1)));
    EXPECT_EQ(grid.GetColWidth(1), Measure(grid, u"bottom").width + kMargins);
}

TEST(GridFit, RowsAreAsHighAsTheFontAndTheirMargins) {
    CGXGridCore grid;
    grid.SetRowCount(2);
    const int height = Measure(grid, u"X").height + 2 * CGXGridCore::kTextMarginY;
    EXPECT_GT(height, 2 * CGXGridCore::kTextMarginY);
    EXPECT_EQ(grid.GetRowHeight(0), height);
    EXPECT_EQ(grid.GetRowHeight(2), height);
    EXPECT_EQ(grid.GetRowHeight(3), 0);
    EXPECT_EQ(grid.GetRowHeight(-1), 0);
}
