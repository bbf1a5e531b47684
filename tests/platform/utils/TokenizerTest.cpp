// The tokenizer over a character stream: text up to delimiters, single
// characters, integers, the end of the input, and the failures that say the
// text has another form.
#include <Tokenizer.h>
#include <platform/CodePage.h>

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

// A stream over a string that, like the companion library's streams, knows
// its end only after a read ran past it; it counts the reads made there.
class TextStream : public TokenizerStream {
public:
    explicit TextStream(std::u16string text) : m_text(std::move(text)) {}
    WCHAR GetNextChar() override {
        if (m_pos < m_text.size())
            return m_text[m_pos++];
        m_eof = true;
        ++readsPastEnd;
        return 0;
    }
    bool IsEof() override { return m_eof; }
    int readsPastEnd = 0;

private:
    std::u16string m_text;
    std::size_t m_pos = 0;
    bool m_eof = false;
};

// Reads heading;width; entries until the end, as the column readers do.
std::u16string Columns(const std::u16string& text) {
    TextStream stream(text);
    Tokenizer tokens(stream, true, 0);
    std::u16string out;
    while (!tokens.Eof()) {
        CString heading = tokens.ReadUntil(u";");
        tokens.Match(u';');
        int width = tokens.ReadInt();
        tokens.Match(u';');
        out += std::u16string(heading.GetString()) + u"=" +
               platform::FromUtf8(std::to_string(width)).GetString() + u" ";
    }
    return out;
}

int ReadIntOf(const std::u16string& text, bool skip = true) {
    TextStream stream(text);
    Tokenizer tokens(stream, skip, 0);
    return tokens.ReadInt();
}

} // namespace

TEST(Tokenizer, ReadsColumnEntriesAndStopsAtTheEnd) {
    EXPECT_EQ(Columns(u"A;10;B;20;"), u"A=10 B=20 ");
    EXPECT_EQ(Columns(u"A;10;"), u"A=10 ");
    EXPECT_EQ(Columns(u""), u"");
    // Headings keep their blanks and may be empty; numbers and separators
    // may have blanks before them.
    EXPECT_EQ(Columns(u" Long name ;\t 7 ;;-3;"), u" Long name =7 =-3 ");
}

TEST(Tokenizer, TheEndIsSeenOnlyAfterAReadRanPastIt) {
    TextStream stream(u"x");
    Tokenizer tokens(stream, true, 0);
    EXPECT_FALSE(tokens.Eof());
    EXPECT_EQ(stream.readsPastEnd, 0);
    tokens.Match(u'x');
    EXPECT_TRUE(tokens.Eof());
    EXPECT_TRUE(tokens.Eof());
    // Once the stream has said so, it is not read again.
    EXPECT_EQ(stream.readsPastEnd, 1);
    EXPECT_THROW(tokens.Match(u'x'), TokenizerException);
    EXPECT_EQ(stream.readsPastEnd, 1);
}

TEST(Tokenizer, ANulCharacterIsTextNotTheEnd) {
    TextStream stream(std::u16string(u"a\0b;", 4));
    Tokenizer tokens(stream, true, 0);
    EXPECT_EQ(tokens.ReadUntil(u";").GetLength(), 3);
    tokens.Match(u';');
    EXPECT_TRUE(tokens.Eof());
}

TEST(Tokenizer, ReadUntilLeavesTheDelimiterAndNeedsOne) {
    TextStream stream(u"key=value,rest");
    Tokenizer tokens(stream, true, 0);
    EXPECT_EQ(tokens.ReadUntil(u",="), u"key");
    EXPECT_THROW(tokens.Match(u','), TokenizerException);
    tokens.Match(u'=');
    EXPECT_EQ(tokens.ReadUntil(u",="), u"value");
    tokens.Match(u',');
    // No delimiter before the end: the text is malformed.
    try {
        tokens.ReadUntil(u";");
        FAIL() << "no exception";
    } catch (const TokenizerException& e) {
        EXPECT_EQ(e.Offset(), 14);
    }
    EXPECT_TRUE(tokens.Eof());
}

TEST(Tokenizer, ReadUntilWithoutDelimitersReadsToTheEnd) {
    TextStream stream(u"all of it");
    Tokenizer tokens(stream, true, 0);
    EXPECT_EQ(tokens.ReadUntil(CString()), u"all of it");
    EXPECT_TRUE(tokens.Eof());
}

TEST(Tokenizer, TheEscapeCharacterMakesTheNextOneText) {
    TextStream stream(u"a\\;b\\\\;c\\");
    Tokenizer tokens(stream, true, u'\\');
    EXPECT_EQ(tokens.ReadUntil(u";"), u"a;b\\");
    tokens.Match(u';');
    EXPECT_THROW(tokens.ReadUntil(u";"), TokenizerException);

    // Without one, a backslash is an ordinary character.
    TextStream plain(u"a\\;b");
    Tokenizer none(plain, true, 0);
    EXPECT_EQ(none.ReadUntil(u";"), u"a\\");
}

TEST(Tokenizer, WhiteSpaceIsSkippedOnlyWhenAsked) {
    TextStream stream(u"  ;\r\n5");
    Tokenizer skipping(stream, true, 0);
    skipping.Match(u';');
    EXPECT_EQ(skipping.ReadInt(), 5);

    TextStream strict(u" ;");
    Tokenizer exact(strict, false, 0);
    EXPECT_THROW(exact.Match(u';'), TokenizerException);
    EXPECT_THROW(ReadIntOf(u" 5", false), TokenizerException);
    // Blanks after the last token are not the end.
    TextStream trailing(u"; ");
    Tokenizer tail(trailing, true, 0);
    tail.Match(u';');
    EXPECT_FALSE(tail.Eof());
}

TEST(Tokenizer, ReadIntTakesASignAndDecimalDigits) {
    EXPECT_EQ(ReadIntOf(u"120;"), 120);
    EXPECT_EQ(ReadIntOf(u"+7"), 7);
    EXPECT_EQ(ReadIntOf(u"-0"), 0);
    EXPECT_EQ(ReadIntOf(u"007x"), 7);
    EXPECT_EQ(ReadIntOf(u"0x10"), 0); // no hexadecimal form
    EXPECT_EQ(ReadIntOf(u"2147483647"), INT_MAX);
    EXPECT_EQ(ReadIntOf(u"-2147483648"), INT_MIN);

    TextStream stream(u"10x;");
    Tokenizer tokens(stream, true, 0);
    EXPECT_EQ(tokens.ReadInt(), 10);
    EXPECT_THROW(tokens.Match(u';'), TokenizerException);
}

TEST(Tokenizer, ReadIntRefusesOtherForms) {
    for (const char16_t* text : {u"", u"x", u"-", u"+ 1", u"--1", u"\uFF11", u"2147483648",
                                 u"-2147483649", u"99999999999999999999999999999"})
        EXPECT_THROW(ReadIntOf(text), TokenizerException) << platform::ToUtf8(text);
}
