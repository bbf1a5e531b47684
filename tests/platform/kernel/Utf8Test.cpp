#include <afx.h>

#include <gtest/gtest.h>

#include <string>

namespace {
// The UTF-8 bytes of text, or "<fail N>" with the error code.
std::string Utf8(const std::u16string& text, int length, DWORD flags = 0, int capacity = 64) {
    char out[64] = {};
    SetLastError(0);
    const int n =
        WideCharToMultiByte(CP_UTF8, flags, text.data(), length, out, capacity, nullptr, nullptr);
    if (n == 0)
        return "<fail " + std::to_string(GetLastError()) + ">";
    return std::string(out, static_cast<std::size_t>(n));
}
} // namespace

TEST(Utf8, ConvertsWithCodePage65001Rules) {
    EXPECT_EQ(Utf8(u"a\u00e9\u20ac\U0001F600", 5), "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80");
    // A length of -1 converts the terminator too.
    EXPECT_EQ(Utf8(u"ab", -1), std::string("ab\0", 3));
    // Unpaired surrogates become U+FFFD, or fail when asked to be strict.
    EXPECT_EQ(Utf8(u"\xD800x", 2), "\xEF\xBF\xBDx");
    EXPECT_EQ(Utf8(u"\xDC00", 1, WC_ERR_INVALID_CHARS), "<fail 1113>");
}

TEST(Utf8, PlainAsciiKeepsTheSameRulesAtItsEdges) {
    EXPECT_EQ(Utf8(u"abc", 3, 0, 3), "abc"); // an exact fit
    EXPECT_EQ(Utf8(u"abcd", 4, 0, 3), "<fail 122>");
    EXPECT_EQ(Utf8(u"abc", -1, 0, 3), "<fail 122>"); // no room for the terminator
    // An explicit length converts embedded NULs; -1 stops at the first.
    EXPECT_EQ(Utf8(std::u16string(u"a\0b", 3), 3), std::string("a\0b", 3));
    EXPECT_EQ(Utf8(std::u16string(u"a\0b", 3), -1), std::string("a\0", 2));
    // A late character above 0x7F after a long ASCII run.
    EXPECT_EQ(Utf8(u"abcdefgh\u00e9", -1), std::string("abcdefgh\xC3\xA9\0", 11));
}

TEST(Utf8, ReportsFailures) {
    EXPECT_EQ(Utf8(u"x", 0), "<fail 87>");
    EXPECT_EQ(Utf8(u"x", 1, WC_NO_BEST_FIT_CHARS), "<fail 1004>");
    EXPECT_EQ(Utf8(u"\u20ac\u20ac", 2, 0, 5), "<fail 122>");
    // With -1 the terminator needs room too, and counts in the size.
    EXPECT_EQ(Utf8(u"ab", -1, 0, 2), "<fail 122>");
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, u"ab", -1, nullptr, 0, nullptr, nullptr), 3);
    // A capacity of 0 asks for the size.
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, u"\u20ac\u20ac", 2, nullptr, 0, nullptr, nullptr), 6);
    BOOL used = FALSE;
    char out[8];
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, u"x", 1, out, 8, nullptr, &used), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
}
