// Cursor movement and its limits inside and outside the margins, origin mode,
// the scrolling region, reverse index, save and restore, and tab stops.
#include "ScreenTestSupport.h"

using CursorTest = ScreenTest;

TEST_F(CursorTest, VerticalMovesStopAtTheMarginOnTheirSide) {
    screen.CursorPosition(21, 1);
    screen.CursorDown(5);
    EXPECT_EQ(Cursor().m_row, 23);

    screen.SetScrollingRegion(6, 11); // margins 5..10
    screen.VerticalPositionAbs(8);
    screen.CursorDown(9);
    EXPECT_EQ(Cursor().m_row, 10);
    screen.VerticalPositionAbs(16);
    screen.CursorDown(9);
    EXPECT_EQ(Cursor().m_row, 23);
    screen.VerticalPositionAbs(8);
    screen.CursorUp(9);
    EXPECT_EQ(Cursor().m_row, 5);
    screen.VerticalPositionAbs(4);
    screen.CursorUp(9);
    EXPECT_EQ(Cursor().m_row, 0);
}

TEST_F(CursorTest, CountsOfZeroOrLessMoveNothing) {
    screen.CursorPosition(10, 10);
    for (int n : {0, -1, -1000000}) {
        screen.CursorUp(n);
        screen.CursorDown(n);
        screen.CursorForward(n);
        screen.CursorBackward(n);
        EXPECT_EQ(Cursor(), CursorPos(9, 9)) << n;
    }
}

TEST_F(CursorTest, HorizontalMovesStopAtTheTerminalWidth) {
    screen.SetAutoWrapMode(true);
    screen.SetWindowSize(24, 120, false);
    screen.CursorPosition(1, 4);
    screen.CursorForward(200);
    EXPECT_EQ(Cursor().m_col, 79);
    screen.CursorPosition(1, 4);
    screen.CursorForward(77);
    EXPECT_EQ(Cursor().m_col, 79);
    screen.CursorForward(0x7fffffff);
    EXPECT_EQ(Cursor().m_col, 79);
    screen.CursorBackward(0x7fffffff);
    EXPECT_EQ(Cursor().m_col, 0);
}

TEST_F(CursorTest, AbsolutePositionsAreOneBasedAndLimited) {
    screen.CursorPosition(5, 10);
    EXPECT_EQ(Cursor(), CursorPos(4, 9));
    screen.CursorPosition(0, 0);
    EXPECT_EQ(Cursor(), CursorPos(0, 0));
    screen.CursorPosition(30, 200);
    EXPECT_EQ(Cursor(), CursorPos(23, 79));
    screen.CursorPosition(-0x7fffffff - 1, 0x7fffffff);
    EXPECT_EQ(Cursor(), CursorPos(0, 79));
    screen.HorizontalPositionAbs(12);
    EXPECT_EQ(Cursor().m_col, 11);
    screen.HorizontalPositionRel(-100);
    EXPECT_EQ(Cursor().m_col, 0);
    screen.VerticalPositionAbs(40);
    EXPECT_EQ(Cursor().m_row, 23);
    screen.VerticalPositionRel(-5);
    EXPECT_EQ(Cursor().m_row, 18);
    screen.CursorHomeDown();
    EXPECT_EQ(Cursor(), CursorPos(23, 0));
}

TEST_F(CursorTest, OriginModeCountsFromTheTopMarginAndStopsAtTheBottom) {
    screen.SetScrollingRegion(6, 16); // margins 5..15
    screen.SetOriginMode(true);
    screen.CursorPosition(1, 1);
    EXPECT_EQ(Cursor(), CursorPos(5, 0));
    screen.CursorPosition(20, 1);
    EXPECT_EQ(Cursor(), CursorPos(15, 0));
    // Vertical positioning ignores origin mode.
    screen.VerticalPositionAbs(2);
    EXPECT_EQ(Cursor().m_row, 1);
    // A relative position is the zero-based cursor plus the deltas, taken as one-based.
    screen.CursorPosition(3, 5); // row 7, column 4
    screen.CursorPositionRel(2, 3);
    EXPECT_EQ(Cursor(), CursorPos(7 + 2 - 1 + 5, 4 + 3 - 1));
}

TEST_F(CursorTest, ScrollingRegionDefaultsAndHoming) {
    screen.CursorPosition(10, 10);
    screen.SetScrollingRegion(5, 15);
    EXPECT_EQ(probe.TopMargin(), 4);
    EXPECT_EQ(probe.BottomMargin(), 14);
    EXPECT_EQ(Cursor(), CursorPos(0, 0));
    screen.SetOriginMode(true);
    screen.SetScrollingRegion(5, 15);
    EXPECT_EQ(Cursor(), CursorPos(4, 0));
    for (auto [top, bottom] : {std::pair{0, 0}, {15, 5}, {7, 7}, {-3, -9}, {100, 200}}) {
        screen.SetScrollingRegion(top, bottom);
        EXPECT_EQ(probe.TopMargin(), 0) << top << "," << bottom;
        EXPECT_EQ(probe.BottomMargin(), 23) << top << "," << bottom;
    }
    screen.SetScrollingRegion(20, 0);
    EXPECT_EQ(probe.TopMargin(), 19);
    EXPECT_EQ(probe.BottomMargin(), 23);
}

TEST_F(CursorTest, ReverseIndexScrollsOnlyTheRegionAtTheTopMargin) {
    LabelRows(23);
    screen.SetScrollingRegion(5, 10); // margins 4..9
    screen.CursorPosition(5, 3);
    screen.ReverseIndex();
    EXPECT_EQ(Cursor(), CursorPos(4, 2));
    EXPECT_EQ(Line(3), "row3");
    EXPECT_EQ(Line(4), "");
    EXPECT_EQ(Line(5), "row4");
    EXPECT_EQ(Line(9), "row8");
    EXPECT_EQ(Line(10), "row10");
    screen.CursorPosition(1, 1);
    screen.ReverseIndex();
    EXPECT_EQ(Cursor(), CursorPos(0, 0));
    EXPECT_EQ(Line(0), "row0");
}

TEST_F(CursorTest, NextLinePreviousLineAndCarriageReturn) {
    screen.CursorPosition(5, 20);
    screen.NextLine();
    EXPECT_EQ(Cursor(), CursorPos(5, 0));
    screen.CursorPosition(5, 20);
    screen.CursorNextLine(3);
    EXPECT_EQ(Cursor(), CursorPos(7, 0));
    screen.CursorPosition(5, 20);
    screen.CursorPreviousLine(2);
    EXPECT_EQ(Cursor(), CursorPos(2, 0));
    screen.CursorPosition(5, 20);
    screen.CarriageReturn();
    EXPECT_EQ(Cursor(), CursorPos(4, 0));
}

TEST_F(CursorTest, RestoreBringsBackPositionAttributesAndSets) {
    screen.CursorPosition(4, 4);
    screen.SetVideoBold();
    screen.SetCharSetSpecialGraphics(1);
    screen.ShiftOut();
    screen.SetOriginMode(true);
    screen.SaveCursor();
    screen.ResetVideo();
    screen.ShiftIn();
    screen.SetCharSetUS_ASCII(1);
    screen.SetOriginMode(false);
    screen.CursorPosition(10, 10);
    Write("p");
    screen.RestoreCursor();
    EXPECT_EQ(Cursor(), CursorPos(3, 3));
    EXPECT_TRUE(probe.OriginMode());
    Write("q");
    EXPECT_EQ(probe.Modes(9, 9, 9), ".");
    EXPECT_EQ(probe.Modes(3, 3, 3), "1");
    EXPECT_EQ(probe.Sets(3, 3, 3), "2");
}

TEST_F(CursorTest, DefaultTabStopsEveryEightColumns) {
    screen.CursorHorizontalTab(1);
    EXPECT_EQ(Cursor().m_col, 8);
    screen.HorizontalPositionAbs(80);
    screen.CursorHorizontalTab(1);
    EXPECT_EQ(Cursor().m_col, 80); // the pending-wrap column
    screen.HorizontalPositionAbs(76);
    screen.CursorHorizontalTab(2);
    EXPECT_EQ(Cursor().m_col, 79);
    screen.CursorHorizontalTab(0x7fffffff);
    EXPECT_EQ(Cursor().m_col, 79);
    screen.HorizontalPositionAbs(11);
    screen.CursorBackwardTab(1);
    EXPECT_EQ(Cursor().m_col, 8);
    screen.CursorBackwardTab(1);
    EXPECT_EQ(Cursor().m_col, 0);
    screen.CursorBackwardTab(1);
    EXPECT_EQ(Cursor().m_col, 0);
    screen.HorizontalPositionAbs(11);
    screen.CursorBackwardTab(3);
    EXPECT_EQ(Cursor().m_col, 0);
}

TEST_F(CursorTest, TabFromThePendingWrapColumnWrapsFirst) {
    screen.SetAutoWrapMode(true);
    screen.CursorPosition(1, 80);
    Write("x");
    ASSERT_EQ(screen.GetCol(), 81);
    screen.CursorHorizontalTab(1);
    EXPECT_EQ(Cursor(), CursorPos(1, 8));
}

TEST_F(CursorTest, SettingAndClearingStops) {
    screen.TabulationClear(3);
    screen.HorizontalPositionAbs(4);
    screen.CursorHorizontalTab(1);
    EXPECT_EQ(Cursor().m_col, 79);
    screen.HorizontalPositionAbs(21);
    screen.HorizontalTabSet();
    screen.HorizontalPositionAbs(1);
    screen.CursorHorizontalTab(1);
    EXPECT_EQ(Cursor().m_col, 20);
    screen.TabulationClear(0);
    screen.HorizontalPositionAbs(1);
    screen.CursorHorizontalTab(1);
    EXPECT_EQ(Cursor().m_col, 79);
    screen.HorizontalPositionAbs(21);
    screen.HorizontalTabSet();
    screen.TabulationClear(2); // not a clearing mode
    EXPECT_TRUE(probe.TabStop(20));
}
