// The byte stream itself: sequences split across reads, strings and cancelled
// sequences, UTF-8, and arbitrary bytes.
#include "ParserTestSupport.h"

#include <random>

using StreamTest = ParserTest;

TEST_F(StreamTest, SequencesSplitAcrossReadsGiveTheSameScreen) {
    const std::string stream = "\x1b[1;4mbold\x1b[0m \x1b)0\x0elqk\x0f\x1b[5;10H\xc3\xa9t\xc3\xa9"
                               "\x1b[2;3r\x1b[?6h\x1b[2Lz";
    AppliedLayout otherLayout;
    ScreenBuffer whole(otherLayout);
    whole.SetAutoWrapMode(true);
    Vt100Parser wholeParser(whole);
    wholeParser.Feed(stream);
    for (char byte : stream)
        parser.Feed(&byte, 1);
    ScreenBufferProbe wholeProbe(whole);
    for (int row = 0; row < 24; ++row) {
        EXPECT_EQ(probe.Text(row), wholeProbe.Text(row)) << "row " << row;
        EXPECT_EQ(probe.Modes(row), wholeProbe.Modes(row)) << "row " << row;
        EXPECT_EQ(probe.Sets(row), wholeProbe.Sets(row)) << "row " << row;
    }
    EXPECT_EQ(Cursor(), std::to_string(whole.GetRow()) + "," + std::to_string(whole.GetCol()));
}

TEST_F(StreamTest, StringsAndCancelledSequencesAreConsumed) {
    Feed("a\x1b]0;window title\x07"
         "b\x1bP1$r\x1b\\c\x1b_apc\x1b\\d");
    EXPECT_EQ(Line(0), "abcd");
    // CAN and SUB abandon a sequence; ESC starts a new one.
    Feed("\x1b[5\x18"
         "A\x1b[2\x1a"
         "B\x1b[3\x1b[4GC");
    EXPECT_EQ(Line(0), "abcCAB");
    // Controls inside a sequence act at once.
    Feed("\x1b[2\rA");
    EXPECT_EQ(Cursor(), "1,1");
    // Unknown escapes and intermediates are swallowed whole.
    Feed("\x1b#3\x1b=\x1b>\x1b[1 q\x1b[1;2$wZ");
    EXPECT_EQ(Line(0), "ZbcCAB");
}

TEST_F(StreamTest, Utf8BecomesOneCellPerCharacter) {
    Feed("\xc3\xa9\xe2\x94\x80\xf0\x9f\x98\x80x");
    EXPECT_EQ(probe.Cell(0, 0).GetValue(), 0x00E9);
    EXPECT_EQ(probe.Cell(0, 1).GetValue(), 0x2500);
    // Beyond the basic plane: one replacement character.
    EXPECT_EQ(probe.Cell(0, 2).GetValue(), 0xFFFD);
    EXPECT_EQ(probe.Cell(0, 3).GetValue(), u'x');
    // Stray continuations, overlong forms, truncated sequences and invalid leads.
    Feed("\r\n\x80\xc0\xaf\xe2\x94y\xe0\x80\x80\xffz");
    std::u16string row;
    for (int col = 0; col < 8; ++col)
        row.push_back(probe.Cell(1, col).GetValue());
    EXPECT_EQ(row, u"\uFFFD\uFFFD\uFFFD\uFFFDy\uFFFD\uFFFDz");
}

TEST_F(StreamTest, LongParameterListsAndHugeValuesStayInBounds) {
    std::string many = "\x1b[";
    for (int i = 0; i < 40; ++i)
        many += "1;";
    Feed(many + "7mr");
    EXPECT_EQ(probe.Modes(0, 0, 0), "1");
    Feed("\x1b[99999999999999999999;99999999999999H");
    EXPECT_EQ(Cursor(), "24,80");
    Feed("\x1b[99999999999999L\x1b[99999999999999X\x1b[9999999I");
    EXPECT_EQ(Cursor(), "24,80");
}

TEST_F(StreamTest, ArbitraryBytesKeepTheCursorOnTheScreen) {
    std::mt19937 random(1234);
    const char alphabet[] =
        "\x1b[;?0123456789ABCDEFGHJKLMPXZ@`adefghlmr78cDEMH()0AB\x0e\x0f\r\n\t\b"
        "x \xc3\xa9";
    for (int round = 0; round < 200; ++round) {
        std::string bytes;
        for (int i = 0; i < 400; ++i)
            bytes.push_back(alphabet[random() % (sizeof alphabet - 1)]);
        Feed(bytes);
        CursorPos cursor = probe.Cursor();
        ASSERT_GE(cursor.m_row, 0);
        ASSERT_LT(cursor.m_row, screen.VisRows());
        ASSERT_GE(cursor.m_col, 0);
        ASSERT_LE(cursor.m_col, screen.VisColumns());
        ASSERT_LE(probe.TopMargin(), probe.BottomMargin());
        ASSERT_LT(probe.BottomMargin(), screen.VisRows());
    }
}
