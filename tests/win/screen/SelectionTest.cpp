// The stream selection: ordering, growth and shrink, disjoint moves, what ends
// it, and the selected text with its line breaks.
#include "ScreenTestSupport.h"

using SelectionTest = ScreenTest;

TEST_F(SelectionTest, EitherOrderGivesTheSameRun) {
    screen.Select(CursorPos(2, 5), CursorPos(1, 10));
    EXPECT_EQ(probe.SelStart(), CursorPos(0, 9));
    EXPECT_EQ(probe.SelEnd(), CursorPos(1, 4));
    std::string first = probe.Selected(0) + probe.Selected(1);
    screen.Unselect();
    screen.Select(CursorPos(1, 10), CursorPos(2, 5));
    EXPECT_EQ(probe.Selected(0) + probe.Selected(1), first);
    EXPECT_EQ(first, std::string(9, '.') + std::string(71, '#') + "#####" + std::string(75, '.'));
}

TEST_F(SelectionTest, SingleCellAndWrapAcrossRows) {
    screen.Select(CursorPos(3, 3), CursorPos(3, 3));
    EXPECT_TRUE(screen.ActiveSelection());
    EXPECT_EQ(probe.Selected(2, 1, 3), ".#.");
    screen.Select(CursorPos(1, 75), CursorPos(2, 3));
    EXPECT_EQ(probe.Selected(0, 72, 79), "..######");
    EXPECT_EQ(probe.Selected(1, 0, 3), "###.");
    EXPECT_EQ(probe.Selected(2), std::string(80, '.'));
}

TEST_F(SelectionTest, MovingToADisjointRunTouchesNothingBetween) {
    screen.Select(CursorPos(1, 1), CursorPos(1, 5));
    screen.Select(CursorPos(5, 1), CursorPos(5, 5));
    EXPECT_EQ(probe.Selected(0, 0, 5), "......");
    EXPECT_EQ(probe.Selected(4, 0, 5), "#####.");
    for (int row = 1; row < 4; ++row)
        EXPECT_EQ(probe.Selected(row), std::string(80, '.'));
    screen.Select(CursorPos(2, 1), CursorPos(2, 2));
    EXPECT_EQ(probe.Selected(4, 0, 5), "......");
    EXPECT_EQ(probe.Selected(1, 0, 2), "##.");
}

TEST_F(SelectionTest, PositionsOutsideTheScreenAreLimitedToIt) {
    screen.Select(CursorPos(-5, -5), CursorPos(1000, 1000));
    EXPECT_EQ(probe.SelStart(), CursorPos(0, 0));
    EXPECT_EQ(probe.SelEnd(), CursorPos(23, 79));
    screen.Select(CursorPos(0x7fffffff, 3), CursorPos(-0x7fffffff - 1, 3));
    EXPECT_EQ(probe.SelStart(), CursorPos(0, 2));
    EXPECT_EQ(probe.SelEnd(), CursorPos(23, 2));
}

TEST_F(SelectionTest, ShrinkingTheVisibleWidthUnderASelectionStaysInside) {
    screen.SetAutoWrapMode(true);
    screen.SetWindowSize(24, 120, false);
    screen.Select(CursorPos(1, 100), CursorPos(3, 110));
    screen.SetAutoWrapMode(false); // 80 visible columns now
    EXPECT_FALSE(screen.SelectedText().IsEmpty());
    screen.Select(CursorPos(1, 1), CursorPos(1, 2));
    screen.Unselect();
    EXPECT_FALSE(screen.ActiveSelection());
}

TEST_F(SelectionTest, WhatEndsASelection) {
    auto ends = [&](const char* name, auto action) {
        screen.Select(CursorPos(3, 1), CursorPos(3, 10));
        action();
        EXPECT_FALSE(screen.ActiveSelection()) << name;
        EXPECT_EQ(probe.Selected(2, 0, 9), "..........") << name;
    };
    ends("PutChar", [&] { Write("x"); });
    ends("ScrollLine", [&] { screen.ScrollLine(ScreenBuffer::ScrollUp); });
    ends("InsertCharacter", [&] { screen.InsertCharacter(1); });
    ends("InsertLine", [&] { screen.InsertLine(1); });
    ends("DeleteLine", [&] { screen.DeleteLine(1); });
    ends("DeleteCharacter", [&] { screen.DeleteCharacter(1); });
    ends("SetColumnMode", [&] { screen.SetColumnMode(false); });
    ends("SoftTerminalReset", [&] { screen.SoftTerminalReset(); });

    screen.Select(CursorPos(3, 1), CursorPos(3, 10));
    screen.CursorPosition(5, 5);
    screen.EraseInDisplay(2, false);
    screen.SetWindowSize(30, 80, false);
    EXPECT_TRUE(screen.ActiveSelection());
    EXPECT_EQ(probe.Selected(2, 0, 10), "##########.");
}

TEST_F(SelectionTest, TextDropsTrailingBlanksOfRowsItLeaves) {
    Write("ab");
    screen.CursorPosition(2, 1);
    Write("xy z");
    screen.Select(CursorPos(1, 1), CursorPos(1, 80));
    EXPECT_EQ(screen.SelectedText(), CString(u"ab\r\n"));
    screen.Select(CursorPos(1, 1), CursorPos(2, 3));
    EXPECT_EQ(screen.SelectedText(), CString(u"ab\r\nxy "));
    screen.Select(CursorPos(1, 2), CursorPos(4, 80));
    EXPECT_EQ(screen.SelectedText(), CString(u"b\r\nxy z\r\n\r\n\r\n"));
    screen.Unselect();
    EXPECT_TRUE(screen.SelectedText().IsEmpty());
}

TEST_F(SelectionTest, TextKeepsTabsInsideAndTheCodesAsWritten) {
    screen.PutChar(u'\t');
    Write("a");
    screen.SetCharSetSpecialGraphics(0);
    Write("q");
    screen.PutChar(u'\t');
    screen.Select(CursorPos(1, 1), CursorPos(1, 80));
    EXPECT_EQ(screen.SelectedText(), CString(u"\taq\r\n"));
}
