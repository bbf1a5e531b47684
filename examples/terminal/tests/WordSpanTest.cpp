// What a double click selects in a row of text.
#include "WordSpan.h"

#include <gtest/gtest.h>

namespace {

using word_span::Around;

std::u16string_view Taken(std::u16string_view text, word_span::Span span) {
    return text.substr(static_cast<std::size_t>(span.first),
                       static_cast<std::size_t>(span.last - span.first + 1));
}

TEST(WordSpan, WordsTakePathsAndAddressesWholeAndStopAtBlanksAndBrackets) {
    const std::u16string_view row = u"ls -l ~/src/a_b.c (see https://x.org/p?q=1) end";
    EXPECT_EQ(Taken(row, Around(row, 0, 80)), u"ls");
    EXPECT_EQ(Taken(row, Around(row, 4, 80)), u"-l");
    EXPECT_EQ(Taken(row, Around(row, 10, 80)), u"~/src/a_b.c");
    EXPECT_EQ(Taken(row, Around(row, 18, 80)), u"(");
    EXPECT_EQ(Taken(row, Around(row, 30, 80)), u"https://x.org/p?q=1");
    EXPECT_EQ(Taken(row, Around(row, 42, 80)), u")");
}

TEST(WordSpan, BlanksRunTogetherAndToTheRowsEndPastTheText) {
    const std::u16string_view row = u"a   b";
    EXPECT_EQ(Around(row, 2, 80).first, 1);
    EXPECT_EQ(Around(row, 2, 80).last, 3);
    // Past the text: from its end to the last column.
    EXPECT_EQ(Around(row, 40, 80).first, 5);
    EXPECT_EQ(Around(row, 40, 80).last, 79);
    // A run of the same delimiter goes together, different ones apart.
    const std::u16string_view quotes = u"x\"\"()y";
    EXPECT_EQ(Taken(quotes, Around(quotes, 1, 80)), u"\"\"");
    EXPECT_EQ(Taken(quotes, Around(quotes, 3, 80)), u"(");
}

TEST(WordSpan, ColumnsOutsideTheRowAreKeptInside) {
    EXPECT_EQ(Around(u"abc", -5, 10).first, 0);
    EXPECT_EQ(Around(u"abc", -5, 10).last, 2);
    EXPECT_EQ(Around(u"abc", 99, 10).last, 9);
    EXPECT_EQ(Around(u"", 0, 0).first, 0);
    EXPECT_EQ(Around(u"", 0, 0).last, 0);
}

} // namespace
