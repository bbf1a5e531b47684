// What the parser tells the host beyond the screen: the answers to the
// reports a program asks for, and whether it wants the cursor shown.
#include "ParserTestSupport.h"

#include <gtest/gtest.h>

namespace {

class ReportTest : public ParserTest {
protected:
    ReportTest() {
        parser.SetReplyHandler([this](const std::string& reply) { replies += reply; });
    }
    std::string replies;
};

TEST_F(ReportTest, StatusCursorPositionAndDeviceAttributesAreAnswered) {
    Feed("\x1b[5n");
    EXPECT_EQ(replies, "\x1b[0n");
    replies.clear();
    Feed("\x1b[3;17H\x1b[6n");
    EXPECT_EQ(replies, "\x1b[3;17R");
    replies.clear();
    // At the pending-wrap position the cursor reports the last column.
    Feed("\x1b[24;75Habcdef\x1b[6n");
    EXPECT_EQ(replies, "\x1b[24;80R");
    replies.clear();
    Feed("\x1b[c\x1b[0c");
    EXPECT_EQ(replies, "\x1b[?1;2c\x1b[?1;2c");
    replies.clear();
    // Requests the terminal does not know get no answer.
    Feed("\x1b[1c\x1b[7n\x1b[?6n");
    EXPECT_EQ(replies, "");
}

TEST_F(ParserTest, ReportRequestsWithoutAHandlerChangeNothing) {
    Feed("ab\x1b[6n\x1b[c");
    EXPECT_EQ(Line(0), "ab");
    EXPECT_EQ(Cursor(), "1,3");
}

TEST_F(ParserTest, CursorVisibilityFollowsTheProgramAndResets) {
    EXPECT_TRUE(parser.CursorVisible());
    Feed("\x1b[?25l");
    EXPECT_FALSE(parser.CursorVisible());
    Feed("\x1b[?25h");
    EXPECT_TRUE(parser.CursorVisible());
    Feed("\x1b[?25l\x1b[!p"); // a soft reset shows it again
    EXPECT_TRUE(parser.CursorVisible());
    Feed("\x1b[?25l\x1b"
         "c"); // and so does a hard reset
    EXPECT_TRUE(parser.CursorVisible());
}

} // namespace
