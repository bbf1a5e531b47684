// The character stream over a string that column specifications are read
// from: its characters in turn, then the end, seen only after a read past it.
#include <Win/Win.h>

#include <gtest/gtest.h>

TEST(StringTokenizerStream, HandsOutTheCharactersThenReportsTheEnd) {
    CString text(u"ab");
    StringTokenizerStream stream(text);
    text = u"changed"; // the stream reads its own copy
    EXPECT_FALSE(stream.IsEof());
    EXPECT_EQ(stream.GetNextChar(), u'a');
    EXPECT_EQ(stream.GetNextChar(), u'b');
    EXPECT_FALSE(stream.IsEof()); // the last character is not yet the end
    EXPECT_EQ(stream.GetNextChar(), 0);
    EXPECT_TRUE(stream.IsEof());
    EXPECT_EQ(stream.GetNextChar(), 0);
    EXPECT_TRUE(stream.IsEof());
}

TEST(StringTokenizerStream, AnEmptyTextEndsAtTheFirstRead) {
    StringTokenizerStream stream{CString()};
    EXPECT_FALSE(stream.IsEof());
    EXPECT_EQ(stream.GetNextChar(), 0);
    EXPECT_TRUE(stream.IsEof());
}

TEST(StringTokenizerStream, FeedsTheTokenizer) {
    StringTokenizerStream stream(u"Name;120;");
    TokenizerStream& base = stream;
    Tokenizer tokenizer(base, true, 0);
    EXPECT_EQ(tokenizer.ReadUntil(u";"), u"Name");
    tokenizer.Match(u';');
    EXPECT_EQ(tokenizer.ReadInt(), 120);
    tokenizer.Match(u';');
    EXPECT_TRUE(tokenizer.Eof());
}
