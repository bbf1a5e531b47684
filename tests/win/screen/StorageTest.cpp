// Construction, sizes, the window size and the growth of the cell array.
#include "ScreenTestSupport.h"

TEST(ScreenCellTest, CellKeepsTheSpecifiedSize) {
    EXPECT_EQ(sizeof(ScreenChar), 24u);
}

using StorageTest = ScreenTest;

TEST_F(StorageTest, NewScreenIsBlankTwentyFourByEighty) {
    EXPECT_EQ(screen.NumRows(), 24);
    EXPECT_EQ(screen.NumColumns(), 80);
    EXPECT_EQ(screen.VisRows(), 24);
    EXPECT_EQ(screen.VisColumns(), 80);
    EXPECT_EQ(screen.GetRow(), 1);
    EXPECT_EQ(screen.GetCol(), 1);
    EXPECT_EQ(probe.TopMargin(), 0);
    EXPECT_EQ(probe.BottomMargin(), 23);
    EXPECT_EQ(probe.MaxRows(), 24);
    EXPECT_FALSE(screen.ActiveSelection());
    FontStyle* normal = layout.GetStyle(0);
    FontStyle* normalSel = layout.GetStyle(FontStyle::Selected);
    ASSERT_NE(normal, nullptr);
    for (int row = 0; row < 24; ++row) {
        for (int col = 0; col < 132; ++col) {
            const ScreenChar& cell = probe.Cell(row, col);
            ASSERT_EQ(cell.GetValue(), u' ');
            ASSERT_EQ(cell.GetCharSet(), 0);
            ASSERT_EQ(cell.GetStyle(), normal);
            ScreenChar selected = cell;
            selected.Select();
            ASSERT_EQ(selected.GetStyle(), normalSel);
        }
    }
    for (int col = 0; col < 132; ++col)
        EXPECT_EQ(probe.TabStop(col), col < 80 && col % 8 == 0) << col;
}

TEST_F(StorageTest, VisibleColumnsFollowTheWindowOnlyWithAutoWrap) {
    screen.SetWindowSize(24, 100, false);
    EXPECT_EQ(screen.VisColumns(), 80);
    screen.SetAutoWrapMode(true);
    EXPECT_EQ(screen.VisColumns(), 100);
    screen.SetWindowSize(24, 150, false);
    EXPECT_EQ(screen.VisColumns(), 132);
    screen.SetWindowSize(24, 60, false);
    EXPECT_EQ(screen.VisColumns(), 80);
}

TEST_F(StorageTest, GrowingWithReserveAddsFourSpareRows) {
    screen.SetWindowSize(30, 80, true);
    EXPECT_EQ(probe.MaxRows(), 34);
    EXPECT_EQ(screen.VisRows(), 30);
    EXPECT_EQ(probe.BottomMargin(), 29);
    screen.SetWindowSize(32, 80, false);
    EXPECT_EQ(probe.MaxRows(), 34);
    EXPECT_EQ(probe.BottomMargin(), 31);
    screen.SetWindowSize(40, 80, false);
    EXPECT_EQ(probe.MaxRows(), 40);
}

TEST_F(StorageTest, GrowingKeepsEveryCellWithItsStylesAndSelection) {
    screen.SetVideoBold();
    screen.CursorPosition(24, 75);
    Write("tail");
    screen.Select(CursorPos(24, 76), CursorPos(24, 77));
    screen.SetWindowSize(30, 80, false);
    EXPECT_EQ(probe.Text(23, 74, 77), "tail");
    EXPECT_EQ(probe.Modes(23, 74, 77), "1111");
    EXPECT_EQ(probe.Selected(23, 74, 78), ".##..");
    EXPECT_TRUE(screen.ActiveSelection());
    for (int row = 24; row < 30; ++row)
        EXPECT_EQ(Line(row), "");
}

TEST_F(StorageTest, ShrinkingKeepsTheCursorRowInView) {
    screen.SetWindowSize(30, 80, false);
    LabelRows(29);
    screen.CursorPosition(1, 1);
    for (int i = 0; i < 29; ++i)
        screen.Index();
    ASSERT_EQ(Cursor(), CursorPos(29, 0));
    screen.SetWindowSize(20, 80, false);
    EXPECT_EQ(Cursor(), CursorPos(19, 0));
    EXPECT_EQ(screen.VisRows(), 24);
    EXPECT_EQ(probe.BottomMargin(), 23);
    EXPECT_EQ(Line(0), "row10");
    EXPECT_EQ(Line(19), "row29");
    EXPECT_EQ(Line(20), "");
}

TEST_F(StorageTest, ShrinkingWithTheCursorAboveTheLastRowScrollsNothing) {
    screen.SetWindowSize(30, 80, false);
    LabelRows(29);
    for (int i = 0; i < 27; ++i)
        screen.Index();
    screen.SetWindowSize(20, 80, false);
    EXPECT_EQ(Cursor(), CursorPos(27, 0));
    EXPECT_EQ(Line(0), "row0");
    // Outside the visible rows nothing is stored.
    Write("x");
    EXPECT_EQ(probe.Text(27, 0, 0), "r");
    EXPECT_EQ(screen.GetCol(), 2);
}

TEST_F(StorageTest, RegionLeftOutsideASmallerWindowIsBroughtBackInside) {
    screen.SetWindowSize(40, 80, false);
    screen.SetScrollingRegion(30, 38);
    screen.SetWindowSize(24, 80, false);
    EXPECT_EQ(probe.TopMargin(), 0);
    EXPECT_EQ(probe.BottomMargin(), 23);

    screen.SetWindowSize(40, 80, false);
    screen.SetScrollingRegion(5, 38);
    screen.SetWindowSize(24, 80, false);
    EXPECT_EQ(probe.TopMargin(), 4);
    EXPECT_EQ(probe.BottomMargin(), 23);
}

TEST_F(StorageTest, AbsurdWindowSizesStayBounded) {
    screen.SetWindowSize(-5, -7, true);
    EXPECT_EQ(screen.VisRows(), 24);
    EXPECT_EQ(screen.VisColumns(), 80);
    screen.SetWindowSize(1 << 30, 1 << 30, true);
    EXPECT_LE(screen.VisRows(), probe.MaxRows());
    EXPECT_LE(probe.MaxRows(), 516);
    screen.SetAutoWrapMode(true);
    EXPECT_EQ(screen.VisColumns(), 132);
}

TEST_F(StorageTest, ModeSettersOnlyStore) {
    screen.CursorPosition(5, 80);
    Write("x");
    screen.SetNewlineMode(true);
    screen.SetScreenMode(true);
    screen.SetCursorKeyMode(true);
    screen.SetOriginMode(true);
    screen.SetInsertMode(true);
    EXPECT_TRUE(screen.GetCursorKeyMode());
    EXPECT_EQ(screen.GetRow(), 5);
    EXPECT_EQ(screen.GetCol(), 81);
}
