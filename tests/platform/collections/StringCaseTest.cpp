#include <afx.h>

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(StringCase, CaseChangesTouchAToZOnly) {
    CString s(u"Hello, Ärger Ωmega _[`{ 123");
    EXPECT_EQ(s.MakeLower(), CString(u"hello, Ärger Ωmega _[`{ 123"));
    EXPECT_EQ(s.MakeUpper(), CString(u"HELLO, ÄRGER ΩMEGA _[`{ 123"));
    CString empty;
    EXPECT_TRUE(empty.MakeLower().MakeUpper().MakeReverse().IsEmpty());
}

TEST(StringCase, MakeReverseReversesCodeUnits) {
    CString s(u"abc");
    EXPECT_EQ(s.MakeReverse(), CString(u"cba"));
    CString one(u"x");
    EXPECT_EQ(one.MakeReverse(), CString(u"x"));
}

TEST(StringCase, CompareIsOrdinalByCodeUnit) {
    EXPECT_EQ(CString(u"C").Compare(u"a"), -1);  // upper case sorts first
    EXPECT_EQ(CString(u"a").Compare(u"ab"), -1); // a proper prefix sorts first
    EXPECT_EQ(CString(u"ab").Compare(u"a"), 1);
    EXPECT_EQ(CString(u"\uFF21").Compare(u"\U0001F600"), 1); // units, not code points
    EXPECT_EQ(CString(u"").Compare(nullptr), 0);
    // As wcscmp, a comparison ends at the first zero.
    CString withZero(u"a\0b", 3);
    EXPECT_EQ(withZero.GetLength(), 3);
    EXPECT_EQ(withZero.Compare(u"a"), 0);
}

TEST(StringCase, CompareNoCaseFoldsToLowerAToZOnly) {
    EXPECT_EQ(CString(u"ABC").CompareNoCase(u"abc"), 0);
    EXPECT_NE(CString(u"Ä").CompareNoCase(u"ä"), 0);
    // Folding to lower case puts '_' (0x5F) before letters.
    EXPECT_EQ(CString(u"_").CompareNoCase(u"a"), -1);
    EXPECT_EQ(CString(u"_").CompareNoCase(u"A"), -1);
    EXPECT_EQ(CString(u"ab").CompareNoCase(u"AB\0c"), 0);
}

// The string is one pointer, so arrays of strings may be sorted with qsort.
TEST(StringCase, StringIsOnePointerAndMovesLeaveEmptyStrings) {
    static_assert(sizeof(CString) == sizeof(void*));
    CString a(u"some text that is not short at all");
    CString b(std::move(a));
    EXPECT_TRUE(a.IsEmpty()); // NOLINT(bugprone-use-after-move)
    EXPECT_EQ(a.GetString()[0], u'\0');
    a = b;
    const CString& alias = a;
    a = alias;
    EXPECT_EQ(a, b);
    a = a.GetString() + 5; // text from inside the string itself
    EXPECT_EQ(a, CString(u"text that is not short at all"));
}

} // namespace
