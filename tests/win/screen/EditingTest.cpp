// Line and character insertion and deletion at the margins, and the erases
// with the styles and sets of their blanks.
#include "ScreenTestSupport.h"

#include <string>
#include <vector>

using EditingTest = ScreenTest;

namespace {

std::string Digits(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text.push_back(static_cast<char>('0' + i % 10));
    return text;
}

} // namespace

TEST_F(EditingTest, InsertLineMovesTheRestOfTheRegionDown) {
    LabelRows(23);
    screen.CursorPosition(11, 7);
    screen.InsertLine(1);
    EXPECT_EQ(Line(9), "row9");
    EXPECT_EQ(Line(10), "");
    EXPECT_EQ(Line(11), "row10");
    EXPECT_EQ(Line(23), "row22");
    EXPECT_EQ(Cursor(), CursorPos(10, 0));
}

TEST_F(EditingTest, DeleteLineMovesTheRestOfTheRegionUp) {
    LabelRows(23);
    screen.CursorPosition(11, 7);
    screen.DeleteLine(1);
    EXPECT_EQ(Line(10), "row11");
    EXPECT_EQ(Line(22), "row23");
    EXPECT_EQ(Line(23), "");
    EXPECT_EQ(Cursor(), CursorPos(10, 0));
}

TEST_F(EditingTest, CountsBeyondTheRegionBlankToTheBottomMargin) {
    LabelRows(23);
    screen.CursorPosition(21, 1);
    screen.InsertLine(50);
    for (int row = 20; row < 24; ++row)
        EXPECT_EQ(Line(row), "") << row;
    EXPECT_EQ(Line(19), "row19");
    LabelRows(23);
    screen.CursorPosition(21, 1);
    screen.DeleteLine(0x7fffffff);
    for (int row = 20; row < 24; ++row)
        EXPECT_EQ(Line(row), "") << row;
}

TEST_F(EditingTest, BelowTheRegionOnlyTheColumnChanges) {
    LabelRows(23);
    screen.SetScrollingRegion(6, 16); // margins 5..15
    screen.CursorPosition(21, 5);
    screen.InsertLine(1);
    EXPECT_EQ(Cursor(), CursorPos(20, 0));
    screen.CursorPosition(21, 5);
    screen.DeleteLine(1);
    EXPECT_EQ(Cursor(), CursorPos(20, 0));
    for (int row = 0; row < 24; ++row)
        EXPECT_EQ(Line(row), "row" + std::to_string(row));
}

TEST_F(EditingTest, InsertAtTheTopMarginMatchesScrollingDown) {
    LabelRows(23);
    screen.SetScrollingRegion(4, 12);
    screen.CursorPosition(4, 1);
    screen.InsertLine(2);
    std::vector<std::string> inserted;
    for (int row = 0; row < 24; ++row)
        inserted.push_back(Line(row));

    LabelRows(23);
    screen.ScrollLine(ScreenBuffer::ScrollDown);
    screen.ScrollLine(ScreenBuffer::ScrollDown);
    for (int row = 0; row < 24; ++row)
        EXPECT_EQ(Line(row), inserted[row]) << row;
    EXPECT_EQ(inserted[3], "");
    EXPECT_EQ(inserted[5], "row3");
    EXPECT_EQ(inserted[12], "row12");
}

TEST_F(EditingTest, LinesAboveTheTopMarginRunFromTheCursor) {
    LabelRows(23);
    screen.SetScrollingRegion(10, 20); // margins 9..19
    screen.CursorPosition(3, 1);
    screen.DeleteLine(2);
    EXPECT_EQ(Line(1), "row1");
    EXPECT_EQ(Line(2), "row4");
    EXPECT_EQ(Line(17), "row19");
    EXPECT_EQ(Line(18), "");
    EXPECT_EQ(Line(19), "");
    EXPECT_EQ(Line(20), "row20");
}

TEST_F(EditingTest, DeleteCharacterPullsTheRowLeft) {
    Write(Digits(80));
    screen.CursorPosition(1, 6);
    screen.DeleteCharacter(2);
    EXPECT_EQ(probe.Text(0), Digits(80).substr(0, 5) + Digits(80).substr(7) + "  ");
    EXPECT_EQ(Cursor(), CursorPos(0, 5));
    screen.DeleteCharacter(-3);
    EXPECT_EQ(probe.Text(0), Digits(80).substr(0, 5) + Digits(80).substr(7) + "  ");
    screen.DeleteCharacter(0x7fffffff);
    EXPECT_EQ(probe.Text(0), Digits(5) + std::string(75, ' '));
}

TEST_F(EditingTest, DeleteCharacterInAWideWindowBlanksTheLastVisibleColumn) {
    screen.SetAutoWrapMode(true);
    screen.SetWindowSize(24, 100, false);
    Write(Digits(100));
    screen.CursorPosition(1, 1);
    screen.DeleteCharacter(1);
    EXPECT_EQ(probe.Text(0, 79, 79), Digits(100).substr(80, 1));
    EXPECT_EQ(probe.Text(0, 98, 99), "9 ");
}

TEST_F(EditingTest, EraseInLineModes) {
    screen.SetVideoBold();
    for (int mode : {0, 1, 2, 7}) {
        screen.CursorPosition(1, 1);
        Write(Digits(80));
        screen.CursorPosition(1, 11);
        screen.EraseInLine(mode);
        std::string expected = Digits(80);
        if (mode == 1)
            expected.replace(0, 11, std::string(11, ' '));
        else if (mode == 2)
            expected = std::string(80, ' ');
        else
            expected.replace(10, 70, std::string(70, ' '));
        EXPECT_EQ(probe.Text(0), expected) << mode;
        EXPECT_EQ(Cursor(), CursorPos(0, 10)) << mode;
    }
    // The blanks are plain; the next character is bold again.
    EXPECT_EQ(probe.Modes(0, 9, 11), "1..");
    Write("b");
    EXPECT_EQ(probe.Modes(0, 10, 10), "1");
}

TEST_F(EditingTest, EraseUsesTheActiveSetAndKeepsSelectionFlags) {
    Write(Digits(20));
    screen.Select(CursorPos(1, 3), CursorPos(1, 5));
    screen.SetCharSetUK_National(0);
    screen.CursorPosition(1, 1);
    screen.EraseInLine(0);
    EXPECT_EQ(probe.Sets(0, 0, 3), "1111");
    EXPECT_EQ(probe.Selected(0, 0, 5), "..###.");
    EXPECT_TRUE(screen.ActiveSelection());
}

TEST_F(EditingTest, EraseInDisplayOverTheScreenAndTheBand) {
    auto fill = [&] {
        for (int row = 0; row < 24; ++row) {
            screen.CursorPosition(row + 1, 1);
            Write(std::string(80, 'x'));
        }
    };
    auto blankRows = [&] {
        std::string rows;
        for (int row = 0; row < 24; ++row)
            rows.push_back(Line(row).empty() ? 'b' : Line(row) == std::string(80, 'x') ? 'x' : 'p');
        return rows;
    };
    fill();
    screen.CursorPosition(8, 5);
    screen.EraseInDisplay(2, false);
    EXPECT_EQ(blankRows(), std::string(24, 'b'));
    EXPECT_EQ(Cursor(), CursorPos(7, 4));

    screen.SetScrollingRegion(6, 16); // margins 5..15
    fill();
    screen.CursorPosition(9, 1);
    screen.EraseInDisplay(2, true);
    EXPECT_EQ(blankRows(), "xxxxx" + std::string(11, 'b') + "xxxxxxxx");
    fill();
    screen.CursorPosition(3, 1);
    screen.EraseInDisplay(2, true);
    EXPECT_EQ(blankRows(), std::string(6, 'b') + std::string(18, 'x'));
    fill();
    screen.CursorPosition(21, 1);
    screen.EraseInDisplay(2, true);
    EXPECT_EQ(blankRows(), std::string(15, 'x') + std::string(9, 'b'));

    fill();
    screen.CursorPosition(3, 41);
    screen.EraseInDisplay(0, false);
    EXPECT_EQ(blankRows(), "xxp" + std::string(21, 'b'));
    EXPECT_EQ(Line(2), std::string(40, 'x'));
    fill();
    screen.CursorPosition(3, 41);
    screen.EraseInDisplay(1, false);
    EXPECT_EQ(blankRows(), "bbp" + std::string(21, 'x'));
    EXPECT_EQ(probe.Text(2, 40, 41), " x");
}

TEST_F(EditingTest, EraseCharacterUsesTheCurrentAttributes) {
    Write(Digits(80));
    screen.SetVideoReverse();
    screen.CursorPosition(1, 78);
    screen.EraseCharacter(5);
    EXPECT_EQ(probe.Text(0, 76, 79), "6   ");
    EXPECT_EQ(probe.Modes(0, 76, 79), ".ggg");
    screen.CursorPosition(1, 2);
    screen.EraseCharacter(0);
    screen.EraseCharacter(-5);
    EXPECT_EQ(probe.Text(0, 0, 2), "012");
    EXPECT_EQ(Cursor(), CursorPos(0, 1));
}

TEST_F(EditingTest, EraseCharacterFromThePendingWrapColumn) {
    Write(Digits(80));
    ASSERT_EQ(screen.GetCol(), 81);
    screen.EraseCharacter(1);
    EXPECT_EQ(Cursor(), CursorPos(0, 79));
    EXPECT_EQ(probe.Text(0, 78, 79), "89");
}

TEST_F(EditingTest, ErasesReplaceTheSavedCursor) {
    screen.CursorPosition(4, 4);
    screen.SaveCursor();
    screen.CursorPosition(10, 10);
    screen.EraseInLine(0);
    screen.RestoreCursor();
    EXPECT_EQ(Cursor(), CursorPos(9, 9));
}

TEST_F(EditingTest, EraseInFieldAndAreaChangeNothing) {
    Write("abc");
    screen.SetVideoBold();
    screen.EraseInField(0);
    screen.EraseInArea(2);
    EXPECT_EQ(Line(0), "abc");
    EXPECT_EQ(Cursor(), CursorPos(0, 3));
    EXPECT_EQ(probe.VideoMode(), 1);
}
