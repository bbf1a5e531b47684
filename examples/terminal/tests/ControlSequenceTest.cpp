// Control sequences: cursor movement, editing, erasing, modes and attributes.
#include "ParserTestSupport.h"

using ControlSequenceTest = ParserTest;

TEST_F(ControlSequenceTest, ZeroAndMissingCountsMoveOne) {
    Feed("\x1b[10;10H\x1b[A");
    EXPECT_EQ(Cursor(), "9,10");
    Feed("\x1b[0B");
    EXPECT_EQ(Cursor(), "10,10");
    Feed("\x1b[0C\x1b[D\x1b[0D");
    EXPECT_EQ(Cursor(), "10,9");
    Feed("\x1b[3A\x1b[5C");
    EXPECT_EQ(Cursor(), "7,14");
    Feed("\x1b[0;0H");
    EXPECT_EQ(Cursor(), "1,1");
    Feed("\x1b[5;9f\x1b[H");
    EXPECT_EQ(Cursor(), "1,1");
    Feed("\x1b[99;999H");
    EXPECT_EQ(Cursor(), "24,80");
}

TEST_F(ControlSequenceTest, AbsoluteAndRelativeLineAndColumn) {
    Feed("\x1b[5;5H\x1b[20G");
    EXPECT_EQ(Cursor(), "5,20");
    Feed("\x1b[7`\x1b[12d");
    EXPECT_EQ(Cursor(), "12,7");
    Feed("\x1b[3a\x1b[2e");
    EXPECT_EQ(Cursor(), "14,10");
    Feed("\x1b[2E");
    EXPECT_EQ(Cursor(), "16,1");
    Feed("\x1b[5;8H\x1b[F");
    EXPECT_EQ(Cursor(), "4,1");
}

TEST_F(ControlSequenceTest, OriginModeHomesTheCursorWhenItChanges) {
    Feed("\x1b[5;10r\x1b[12;12H\x1b[?6h");
    EXPECT_EQ(Cursor(), "5,1");
    Feed("\x1b[3;4H");
    EXPECT_EQ(Cursor(), "7,4");
    Feed("\x1b[20;1H");
    EXPECT_EQ(Cursor(), "10,1");
    Feed("\x1b[?6l");
    EXPECT_EQ(Cursor(), "1,1");
    // A region of one line is no region; DECSTBM without parameters is the whole screen.
    Feed("\x1b[7;7r");
    EXPECT_EQ(probe.BottomMargin(), 23);
    Feed("\x1b[3;9r\x1b[r");
    EXPECT_EQ(probe.TopMargin(), 0);
    EXPECT_EQ(probe.BottomMargin(), 23);
}

TEST_F(ControlSequenceTest, InsertAndDeleteLinesAndCharacters) {
    LabelRows();
    Feed("\x1b[3;5H\x1b[2L");
    EXPECT_EQ(Line(2), "");
    EXPECT_EQ(Line(3), "");
    EXPECT_EQ(Line(4), "row2");
    EXPECT_EQ(Line(23), "row21");
    EXPECT_EQ(Cursor(), "3,1");
    Feed("\x1b[M");
    EXPECT_EQ(Line(3), "row2");
    EXPECT_EQ(Line(23), "");
    Feed("\x1b[H\x1b[2@");
    EXPECT_EQ(Line(0), "  row0");
    Feed("\x1b[3P");
    EXPECT_EQ(Line(0), "ow0");
    Feed("\x1b[X");
    EXPECT_EQ(Line(0), " w0");
    // Huge counts are limited to what the row can hold.
    Feed("\x1b[2;1H\x1b[9999@\x1b[3;1H\x1b[9999P");
    EXPECT_EQ(Line(1), "");
    EXPECT_EQ(Line(2), "");
}

TEST_F(ControlSequenceTest, ErasesInLineAndDisplay) {
    const std::string row(80, 'x');
    for (int i = 0; i < 5; ++i)
        Feed("\x1b[" + std::to_string(i + 1) + "H" + row);
    Feed("\x1b[1;5H\x1b[K\x1b[2;5H\x1b[1K\x1b[3;5H\x1b[2K");
    EXPECT_EQ(Line(0), "xxxx");
    EXPECT_EQ(Text(1, 0, 5), "     x");
    EXPECT_EQ(Line(2), "");
    Feed("\x1b[4;10H\x1b[1J");
    EXPECT_EQ(Line(0), "");
    EXPECT_EQ(Text(3, 0, 10), "          x");
    EXPECT_EQ(Line(4), row);
    Feed("\x1b[5;41H\x1b[J");
    EXPECT_EQ(Line(4), row.substr(0, 40));
    Feed("\x1b[2J");
    for (int i = 0; i < 24; ++i)
        EXPECT_EQ(Line(i), "") << "row " << i;
    EXPECT_EQ(Cursor(), "5,41");
}

TEST_F(ControlSequenceTest, GraphicRenditionSetsAndClearsEachAttribute) {
    Feed("\x1b[1ma\x1b[2mb\x1b[0;4mc\x1b[5md\x1b[7me\x1b[24mf\x1b[25mg\x1b[27mh");
    EXPECT_EQ(probe.Modes(0, 0, 7), "134csog.");
    Feed("\x1b[1;2mi\x1b[22mj\x1b[1;7mk\x1b[mk");
    EXPECT_EQ(probe.Modes(0, 8, 11), "3.h.");
    // Colour arguments are skipped, not read as attributes; what follows them counts.
    Feed("\x1b[38;5;1mn\x1b[48;2;1;4;5;7mo\x1b[0;38:5:4;1mp\x1b[0;31;42mq");
    EXPECT_EQ(probe.Modes(0, 12, 15), ".g1.");
}

TEST_F(ControlSequenceTest, ModesReachTheScreen) {
    Feed("abc\x1b[1G\x1b[4hXY\x1b[4l");
    EXPECT_EQ(Line(0), "XYabc");
    Feed("\x1b[?1h");
    EXPECT_TRUE(screen.GetCursorKeyMode());
    Feed("\x1b[?1l");
    EXPECT_FALSE(screen.GetCursorKeyMode());
    Feed("\x1b[?7l\x1b[2;1H" + std::string(85, 'w') + "Z");
    EXPECT_EQ(Text(1, 79, 79), "Z");
    EXPECT_EQ(Line(2), "");
    Feed("\x1b[?3h");
    EXPECT_EQ(screen.NumColumns(), 132);
    EXPECT_EQ(Line(0), "");
    Feed("\x1b[?3;7l");
    EXPECT_EQ(screen.NumColumns(), 80);
    EXPECT_FALSE(probe.AutoWrapMode());
    // Private sequences we do not know, and other private markers, change nothing.
    Feed("\x1b[?25l\x1b[>1h\x1b[?1049h\x1b[5n\x1b[c");
    EXPECT_EQ(screen.NumColumns(), 80);
    EXPECT_FALSE(screen.GetCursorKeyMode());
}
