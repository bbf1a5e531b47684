// The stream selection: ordering, growth and shrink, disjoint moves, what ends
// it, and the selected text with its line breaks.
#include "ScreenTestSupport.h"

#include <functional>
#include <utility>

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

// Marks in all 132 columns of rows first..last, as '#' and '.'.
static std::string StoredMarks(const ScreenBufferProbe& probe, int first, int last) {
    std::string marks;
    for (int row = first; row <= last; ++row)
        marks += probe.Selected(row, 0, probe.MaxColumns() - 1) + "|";
    return marks;
}

TEST_F(SelectionTest, EndingASelectionUnderANarrowerViewClearsTheHiddenCells) {
    const std::string clear = StoredMarks(probe, 0, 3);
    // The two ways the visible width falls from 120 to fewer columns.
    auto narrowings = {
        std::pair<const char*, std::function<void()>>{"auto-wrap off",
                                                      [&] { screen.SetAutoWrapMode(false); }},
        std::pair<const char*, std::function<void()>>{"smaller window",
                                                      [&] { screen.SetWindowSize(24, 90, false); }},
    };
    for (const auto& [name, narrow] : narrowings) {
        screen.SetAutoWrapMode(true);
        screen.SetWindowSize(24, 120, false);
        screen.Select(CursorPos(1, 100), CursorPos(3, 110));
        narrow();
        ASSERT_LT(screen.VisColumns(), 120) << name;
        screen.Unselect();
        EXPECT_EQ(StoredMarks(probe, 0, 3), clear) << name;

        // Widened again, the hidden cells show unselected and stay so when written.
        screen.SetAutoWrapMode(true);
        screen.SetWindowSize(24, 120, false);
        screen.CursorPosition(1, 1);
        Write(std::string(104, ' ') + "w");
        ASSERT_EQ(probe.Cell(0, 104).GetValue(), u'w') << name;
        EXPECT_FALSE(probe.Cell(0, 104).IsSelected()) << name;
        EXPECT_EQ(StoredMarks(probe, 0, 3), clear) << name;
    }
}

TEST_F(SelectionTest, ANewRunAfterTheWidthChangedReplacesTheWholeOldOne) {
    const std::string clearRow = std::string(132, '.') + "|";
    screen.SetAutoWrapMode(true);
    screen.SetWindowSize(24, 120, false);
    screen.Select(CursorPos(1, 90), CursorPos(2, 110));
    screen.SetAutoWrapMode(false); // 80 visible columns
    // Overlapping the old run, then disjoint from it: either way only the new
    // run is marked afterwards, hidden columns included.
    screen.Select(CursorPos(1, 1), CursorPos(1, 95));
    EXPECT_EQ(StoredMarks(probe, 0, 2),
              std::string(80, '#') + std::string(52, '.') + "|" + clearRow + clearRow);
    screen.SetAutoWrapMode(true);
    screen.Select(CursorPos(3, 100), CursorPos(3, 101));
    EXPECT_EQ(StoredMarks(probe, 0, 1), clearRow + clearRow);
    EXPECT_EQ(probe.Selected(2, 98, 101), ".##.");

    // Widening under a run and then growing it marks the newly visible columns.
    screen.Select(CursorPos(1, 1), CursorPos(1, 1));
    screen.SetAutoWrapMode(false);
    screen.Select(CursorPos(1, 1), CursorPos(2, 2));
    screen.SetAutoWrapMode(true);
    screen.Select(CursorPos(1, 1), CursorPos(2, 3));
    EXPECT_EQ(StoredMarks(probe, 0, 1),
              std::string(120, '#') + std::string(12, '.') + "|###" + std::string(129, '.') + "|");
    screen.Unselect();
    EXPECT_EQ(StoredMarks(probe, 0, 3), clearRow + clearRow + clearRow + clearRow);
}

TEST_F(SelectionTest, TextAfterANarrowingIsTheRunAsItWasMarked) {
    screen.SetAutoWrapMode(true);
    screen.SetWindowSize(24, 100, false);
    Write(std::string(85, ' ') + "hidden  ");
    screen.CursorPosition(2, 1);
    Write("next");
    screen.Select(CursorPos(1, 84), CursorPos(2, 4));
    const CString marked(u"  hidden\r\nnext");
    EXPECT_EQ(screen.SelectedText(), marked);
    screen.SetAutoWrapMode(false); // columns 80 to 99 hidden
    EXPECT_EQ(screen.SelectedText(), marked);
    // A run that starts and ends in hidden columns still reads out whole.
    screen.SetAutoWrapMode(true);
    screen.Select(CursorPos(1, 86), CursorPos(1, 91));
    screen.SetAutoWrapMode(false);
    EXPECT_EQ(screen.SelectedText(), CString(u"hidden"));
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
