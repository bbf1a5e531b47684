// Character output: wrap and pending wrap, insert mode, index and scrolling
// inside the region, and the hidden columns that a scroll must keep.
#include "ScreenTestSupport.h"

#include <string>
#include <vector>

using OutputTest = ScreenTest;

namespace {

std::string Letters(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text.push_back(static_cast<char>('a' + i % 26));
    return text;
}

} // namespace

// The same wrap rules at every visible width the auto-wrap mode allows.
class WrapTest : public ScreenTest, public ::testing::WithParamInterface<int> {};

TEST_P(WrapTest, PendingWrapThenWrapWithAutoWrap) {
    int width = GetParam();
    if (width == 132)
        screen.SetColumnMode(true);
    screen.SetWindowSize(24, width, false);
    screen.SetAutoWrapMode(true);
    ASSERT_EQ(screen.VisColumns(), width);
    Write(Letters(width));
    EXPECT_EQ(screen.GetRow(), 1);
    EXPECT_EQ(screen.GetCol(), width + 1);
    EXPECT_EQ(probe.Text(0), Letters(width));
    Write("Z");
    EXPECT_EQ(screen.GetRow(), 2);
    EXPECT_EQ(screen.GetCol(), 2);
    EXPECT_EQ(Line(1), "Z");
    EXPECT_EQ(probe.Text(0), Letters(width));
}

TEST_P(WrapTest, WithoutAutoWrapTheLastColumnIsOverwritten) {
    int width = GetParam();
    if (width == 132)
        screen.SetColumnMode(true);
    screen.SetWindowSize(24, width, false);
    int visible = screen.VisColumns();
    EXPECT_EQ(visible, width == 132 ? 132 : 80);
    Write(Letters(visible) + "Z");
    EXPECT_EQ(screen.GetRow(), 1);
    EXPECT_EQ(screen.GetCol(), visible + 1);
    EXPECT_EQ(probe.Text(0), Letters(visible - 1) + "Z");
    EXPECT_EQ(Line(1), "");
}

INSTANTIATE_TEST_SUITE_P(Widths, WrapTest, ::testing::Values(80, 100, 132));

TEST_F(OutputTest, WrapOnTheBottomMarginScrollsTheRegion) {
    screen.SetAutoWrapMode(true);
    LabelRows(23);
    screen.CursorPosition(24, 80);
    Write("xy");
    EXPECT_EQ(Line(22), "row23" + std::string(74, ' ') + "x");
    EXPECT_EQ(Line(23), "y");
    EXPECT_EQ(Line(0), "row1");
    EXPECT_EQ(Cursor(), CursorPos(23, 1));
}

TEST_F(OutputTest, InsertModeShiftsTheRestOfTheRowAndLosesTheLastColumn) {
    Write(Letters(80));
    screen.CursorPosition(1, 3);
    screen.SetInsertMode(true);
    Write("XY");
    EXPECT_EQ(probe.Text(0), "abXY" + Letters(80).substr(2, 76));
    EXPECT_EQ(Cursor(), CursorPos(0, 4));
}

TEST_F(OutputTest, InsertCharacterMovesAndBlanksInPlainStyle) {
    screen.SetVideoReverse();
    Write(Letters(80));
    screen.CursorPosition(1, 6);
    screen.InsertCharacter(3);
    std::string expected = Letters(5) + "   " + Letters(80).substr(5, 72);
    EXPECT_EQ(probe.Text(0), expected);
    EXPECT_EQ(probe.Modes(0, 4, 8), "g...g");
    EXPECT_EQ(Cursor(), CursorPos(0, 5));
    screen.InsertCharacter(1000);
    EXPECT_EQ(probe.Text(0), Letters(5) + std::string(75, ' '));
    screen.InsertCharacter(-4);
    EXPECT_EQ(probe.Text(0), Letters(5) + std::string(75, ' '));
}

TEST_F(OutputTest, IndexScrollsOnlyTheRegionWithAPlainBlankLine) {
    LabelRows(23);
    screen.SetScrollingRegion(5, 10);
    screen.SetVideoBold();
    screen.CursorPosition(10, 1);
    screen.Index();
    EXPECT_EQ(Cursor(), CursorPos(9, 0));
    EXPECT_EQ(Line(3), "row3");
    EXPECT_EQ(Line(4), "row5");
    EXPECT_EQ(Line(8), "row9");
    EXPECT_EQ(Line(9), "");
    EXPECT_EQ(probe.Modes(9, 0, 3), "....");
    EXPECT_EQ(Line(10), "row10");
    EXPECT_EQ(Line(23), "row23");
}

TEST_F(OutputTest, IndexBelowTheRegionStopsOnTheLastRow) {
    LabelRows(23);
    screen.SetScrollingRegion(5, 10);
    screen.CursorPosition(24, 1);
    screen.Index();
    EXPECT_EQ(Cursor(), CursorPos(23, 0));
    EXPECT_EQ(Line(23), "row23");
    EXPECT_EQ(Line(4), "row4");
}

TEST_F(OutputTest, ScrollKeepsTheHiddenColumnsABlockMoveLeaves) {
    // Fill all 132 columns of every row through a 132-column window, then
    // narrow the view to the terminal's 80 columns.
    screen.SetAutoWrapMode(true);
    screen.SetWindowSize(24, 132, false);
    ASSERT_EQ(screen.VisColumns(), 132);
    for (int row = 0; row < 24; ++row) {
        screen.CursorPosition(row + 1, 1);
        Write(std::string(79, static_cast<char>('A' + row)) +
              std::string(53, static_cast<char>('a' + row)));
    }
    screen.SetWindowSize(24, 80, false);
    ASSERT_EQ(screen.VisColumns(), 80);

    screen.SetScrollingRegion(3, 8); // rows 2..7
    screen.CursorPosition(8, 1);
    screen.Index(); // up: row 7 is new, keeping its own hidden cells
    screen.CursorPosition(3, 1);
    screen.ReverseIndex(); // down: row 2 is new, keeping its own hidden cells
    screen.CursorPosition(4, 1);
    screen.InsertLine(2); // rows 3, 4 new
    screen.DeleteLine(3); // rows 5..7 new
    screen.InsertLine(4); // rows 3..6 new, only one row moves

    screen.SetWindowSize(24, 132, false);
    ASSERT_EQ(screen.VisColumns(), 132);
    // Reference: what literal block moves of 132-cell rows leave.
    std::vector<std::string> rows(24);
    for (int row = 0; row < 24; ++row)
        rows[row] = std::string(79, 'A' + row) + std::string(53, 'a' + row);
    auto blankVisible = [&](int row) { rows[row].replace(0, 80, std::string(80, ' ')); };
    auto moveUp = [&](int top, int bottom, int k) {
        for (int row = top; row + k <= bottom; ++row)
            rows[row] = rows[row + k];
        for (int row = bottom - k + 1; row <= bottom; ++row)
            blankVisible(row);
    };
    auto moveDown = [&](int top, int bottom, int k) {
        for (int row = bottom; row - k >= top; --row)
            rows[row] = rows[row - k];
        for (int row = top; row < top + k; ++row)
            blankVisible(row);
    };
    moveUp(2, 7, 1);
    moveDown(2, 7, 1);
    moveDown(3, 7, 2);
    moveUp(3, 7, 3);
    moveDown(3, 7, 4);
    for (int row = 0; row < 24; ++row)
        EXPECT_EQ(probe.Text(row), rows[row]) << "row " << row;
}

TEST_F(OutputTest, ManyScrollsOfAWideRegionKeepRowsDistinct) {
    screen.SetWindowSize(40, 80, false);
    for (int i = 0; i < 200; ++i) {
        Write("line" + std::to_string(i));
        screen.CarriageReturn();
        screen.Index();
    }
    EXPECT_EQ(Line(39), "");
    EXPECT_EQ(Line(38), "line199");
    EXPECT_EQ(Line(0), "line161");
}

// PutChars writes what PutChar would, cell for cell, as far as the common case
// goes, and leaves the rest to PutChar.
TEST_F(OutputTest, PutCharsWritesWhatPutCharWouldUpToTheRowsEnd) {
    const std::string text = Letters(100);
    const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
    screen.SetAutoWrapMode(true);
    screen.SetVideoBold();
    screen.SetCharSetSpecialGraphics(1);
    screen.ShiftOut();
    screen.CursorPosition(3, 71);
    EXPECT_EQ(screen.PutChars(bytes, text.size()), 10u);
    EXPECT_EQ(screen.GetCol(), 81);
    // At the pending wrap nothing more fits; PutChar wraps.
    EXPECT_EQ(screen.PutChars(bytes + 10, 5), 0u);

    ScreenBuffer other{layout};
    ScreenBufferProbe otherProbe{other};
    other.SetAutoWrapMode(true);
    other.SetVideoBold();
    other.SetCharSetSpecialGraphics(1);
    other.ShiftOut();
    other.CursorPosition(3, 71);
    for (int i = 0; i < 10; ++i)
        other.PutChar(static_cast<WCHAR>(bytes[i]));
    for (int col = 0; col < 80; ++col) {
        const ScreenChar& ours = probe.Cell(2, col);
        const ScreenChar& theirs = otherProbe.Cell(2, col);
        EXPECT_EQ(ours.GetValue(), theirs.GetValue()) << col;
        EXPECT_EQ(ours.GetCharSet(), theirs.GetCharSet()) << col;
        EXPECT_EQ(ours.GetStyle(), theirs.GetStyle()) << col;
    }
    EXPECT_EQ(probe.Cell(2, 75).GetCharSet(), probe.CharSet(1));
}

TEST_F(OutputTest, PutCharsLeavesInsertModeAndASelectionToPutChar) {
    const unsigned char text[] = {'x', 'y'};
    Write("abc");
    screen.CursorPosition(1, 1);
    screen.SetInsertMode(true);
    EXPECT_EQ(screen.PutChars(text, 2), 0u);
    screen.SetInsertMode(false);
    screen.Select(CursorPos(0, 0), CursorPos(0, 2));
    EXPECT_EQ(screen.PutChars(text, 2), 0u);
    EXPECT_EQ(Line(0), "abc");
    EXPECT_EQ(screen.GetCol(), 1);
}
