// C0 controls, escape sequences and the pending-wrap position.
#include "ParserTestSupport.h"

using ControlsTest = ParserTest;

TEST_F(ControlsTest, CarriageReturnLineFeedAndBackspace) {
    Feed("ab\r\ncd\bX\r\n\tT");
    EXPECT_EQ(Line(0), "ab");
    EXPECT_EQ(Line(1), "cX");
    EXPECT_EQ(Line(2), "        T");
    // VT and FF act as line feeds; the column stays.
    Feed("\x0bu\x0cv");
    EXPECT_EQ(Text(3, 9, 9), "u");
    EXPECT_EQ(Text(4, 10, 10), "v");
    // Bell, NUL and the other controls leave the screen alone.
    Feed(std::string("\x07\x00\x05w", 4));
    EXPECT_EQ(Text(4, 10, 11), "vw");
}

TEST_F(ControlsTest, NewlineModeReturnsTheCarriageOnLineFeed) {
    Feed("\x1b[20hab\ncd");
    EXPECT_TRUE(parser.NewlineMode());
    EXPECT_EQ(Line(1), "cd");
    Feed("\x1b[20l\nx");
    EXPECT_EQ(Text(2, 2, 2), "x");
    Feed("\x1b[20h\x1b"
         "c\nq");
    EXPECT_FALSE(parser.NewlineMode());
    EXPECT_EQ(Line(1), "q");
}

TEST_F(ControlsTest, ShiftOutWritesTheGraphicsOfG1) {
    Feed("\x1b)0q\x0eq\x0fq\x1b(Aq#\x1b(Bq");
    EXPECT_EQ(probe.Sets(0, 0, 5), "020110");
    EXPECT_EQ(Line(0), "qqqq#q");
    // G2 and G3 are designated but never written.
    Feed("\x1b*0\x1b+A");
    EXPECT_EQ(probe.CharSet(2), 2);
    EXPECT_EQ(probe.CharSet(3), 1);
    // An unknown set leaves the designation alone.
    Feed("\x1b(5");
    EXPECT_EQ(probe.CharSet(0), 0);
}

TEST_F(ControlsTest, PendingWrapIsLeftByMovesButKeptByAttributes) {
    const std::string full(80, 'a');
    Feed(full);
    EXPECT_EQ(Cursor(), "1,81");
    // A backspace from the pending-wrap position lands before the last column.
    Feed("\bX");
    EXPECT_EQ(Text(0, 78, 79), "Xa");
    // A line feed keeps the last column.
    Feed("\x1b[H" + full + "\nY");
    EXPECT_EQ(Text(1, 79, 79), "Y");
    // An attribute change keeps the wrap pending: the next character wraps.
    Feed("\x1b[3H" + full + "\x1b[1mZ");
    EXPECT_EQ(Line(3), "Z");
    EXPECT_EQ(probe.Modes(3, 0, 0), "1");
    // A tab from there stays on the last column rather than wrapping.
    Feed("\x1b[0m\x1b[6H" + full + "\tT");
    EXPECT_EQ(Text(5, 79, 79), "T");
    EXPECT_EQ(Line(6), "");
}

TEST_F(ControlsTest, IndexReverseIndexAndNextLineScrollTheRegion) {
    LabelRows();
    Feed("\x1b[5;10r\x1b[10;4H\x1b"
         "D");
    EXPECT_EQ(Line(4), "row5");
    EXPECT_EQ(Line(9), "");
    EXPECT_EQ(Line(10), "row10");
    EXPECT_EQ(Cursor(), "10,4");
    Feed("\x1b[5;4H\x1bM");
    EXPECT_EQ(Line(4), "");
    EXPECT_EQ(Line(5), "row5");
    Feed("\x1b[3;4H\x1b"
         "E");
    EXPECT_EQ(Cursor(), "4,1");
}

TEST_F(ControlsTest, SaveAndRestoreCursorWithAttributesAndSets) {
    Feed("\x1b[3;7H\x1b[1m\x1b(0\x1b"
         "7\x1b[0m\x1b(B\x1b[20;20Hx\x1b"
         "8y");
    EXPECT_EQ(Cursor(), "3,8");
    EXPECT_EQ(probe.Modes(2, 6, 6), "1");
    EXPECT_EQ(probe.Sets(2, 6, 6), "2");
    EXPECT_EQ(probe.Sets(19, 19, 19), "0");
}

TEST_F(ControlsTest, TabStopsAreSetAndCleared) {
    Feed("\x1b[1;5H\x1bH\r\tA");
    EXPECT_EQ(Text(0, 4, 4), "A");
    Feed("\x1b[1;5H\x1b[g\r\tB");
    EXPECT_EQ(Text(0, 8, 8), "B");
    Feed("\x1b[3g\r\tC");
    EXPECT_EQ(Text(0, 79, 79), "C");
    Feed("\x1b[2;30H\x1b[2I*\x1b[2;30H\x1b[Z-");
    EXPECT_EQ(Text(1, 79, 79), "*");
    EXPECT_EQ(Text(1, 0, 0), "-");
}

TEST_F(ControlsTest, HardResetRestoresThePowerUpState) {
    Feed("\x1b[5;10r\x1b[1;7m\x1b)0\x0e\x1b[4h\x1b[?6hxyz\x1b"
         "c");
    EXPECT_EQ(Line(0), "");
    EXPECT_EQ(Cursor(), "1,1");
    EXPECT_EQ(probe.TopMargin(), 0);
    EXPECT_EQ(probe.BottomMargin(), 23);
    EXPECT_EQ(probe.VideoMode(), 0);
    EXPECT_EQ(probe.Shift(), 0);
    EXPECT_FALSE(probe.InsertMode());
    EXPECT_FALSE(probe.OriginMode());
    // Wrapping comes back with the set-up's setting...
    EXPECT_TRUE(probe.AutoWrapMode());
    // ...unless the host says the set-up has it off; a soft reset turns it off.
    parser.SetAutoWrapAtReset(false);
    Feed("\x1b"
         "c");
    EXPECT_FALSE(probe.AutoWrapMode());
    Feed("\x1b[?7h\x1b[!p");
    EXPECT_FALSE(probe.AutoWrapMode());
}

TEST_F(ControlsTest, AlignmentPatternFillsThePageWithPlainEs) {
    LabelRows();
    Feed("\x1b[5;10r\x1b[?6h\x1b[1;7m\x1b[4h\x1b[7;7H\x1b#8");
    for (int row = 0; row < 24; ++row) {
        EXPECT_EQ(Text(row, 0, 79), std::string(80, 'E')) << row;
        EXPECT_EQ(probe.Modes(row), std::string(80, '.')) << row;
    }
    EXPECT_EQ(Cursor(), "1,1");
    EXPECT_EQ(probe.TopMargin(), 0);
    EXPECT_EQ(probe.BottomMargin(), 23);
    EXPECT_FALSE(probe.OriginMode());
    EXPECT_EQ(probe.VideoMode(), 0);
    // Insert mode survives the fill: text goes on from home, pushing the E's.
    EXPECT_TRUE(probe.InsertMode());
    Feed("ab");
    EXPECT_EQ(Text(0, 0, 3), "abEE");
    EXPECT_EQ(Text(0, 79, 79), "E");

    // A taller and wider window is filled to its last visible cell.
    screen.SetWindowSize(30, 100, false);
    Feed("\x1b[4l\x1b#8");
    for (int row = 0; row < 30; ++row)
        EXPECT_EQ(Text(row, 0, 99), std::string(100, 'E')) << row;
    EXPECT_EQ(Cursor(), "1,1");
    // The other ESC # functions are consumed and change nothing.
    Feed("\x1b#3x");
    EXPECT_EQ(Text(0, 0, 1), "xE");
}
