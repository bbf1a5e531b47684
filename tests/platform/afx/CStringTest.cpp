#include <afx.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

TEST(CString, FormatTakesWideAndNarrowText) {
    CString s;
    s.Format(u"%s=%d [%-4s] %c %hs %5.2f %%", u"key", -42, u"ab", u'Z', "narrow", 3.14159);
    EXPECT_EQ(s, CString(u"key=-42 [ab  ] Z narrow  3.14 %"));
}

TEST(CString, CaseFoldingTouchesAsciiLettersOnly) {
    EXPECT_EQ(CString(u"ABC").CompareNoCase(u"abd"), -1);
    EXPECT_EQ(CString(u"abD").CompareNoCase(u"ABd"), 0);
    EXPECT_EQ(CString(u"Ä").CompareNoCase(u"ä"), -1); // ordinal, not folded
    // '_' lies between the upper- and lower-case letters: folding decides.
    EXPECT_EQ(CString(u"A").CompareNoCase(u"_"), 1);
    EXPECT_EQ(CString(u"abc").CompareNoCase(u"ABCD"), -1);
    EXPECT_EQ(CString(u"abcd").CompareNoCase(u"ABC"), 1);
    EXPECT_EQ(CString(u"x").CompareNoCase(nullptr), 1);
}

TEST(CString, SubstringsClampTheirArguments) {
    CString s(u"terminal");
    EXPECT_EQ(s.Left(4), CString(u"term"));
    EXPECT_EQ(s.Right(20), s);
    EXPECT_EQ(s.Mid(4, 100), CString(u"inal"));
    EXPECT_EQ(s.Mid(-3, 2), CString(u"te"));
    EXPECT_TRUE(s.Mid(50).IsEmpty());
    EXPECT_EQ(s.Find(u"min"), 3);
    EXPECT_EQ(s.Find(u'x'), -1);
}

TEST(CString, NarrowTextGoesThroughTheAnsiCodePage) {
    EXPECT_EQ(CString("\x80\xA3\x81"), CString(u"\u20AC\u00A3\u0081"));
    EXPECT_EQ(platform::ToUtf8(u"\u00A3x"), std::string("\xC2\xA3x"));
    EXPECT_EQ(platform::FromUtf8("\xE2\x82\xAC"), CString(u"\u20AC"));
}

TEST(MulDiv, RoundsHalfAwayFromZeroAndReportsErrors) {
    EXPECT_EQ(MulDiv(10, 600, 96), 63);
    EXPECT_EQ(MulDiv(3, 1, 2), 2);
    EXPECT_EQ(MulDiv(-3, 1, 2), -2);
    EXPECT_EQ(MulDiv(1, 1, 0), -1);
    EXPECT_EQ(MulDiv(0x7FFFFFFF, 4, 1), -1);
}

TEST(CodePage, UnmappableCharactersBecomeQuestionMarks) {
    char out[8] = {};
    BOOL used = FALSE;
    int n = WideCharToMultiByte(CP_ACP, 0, u"a\u4E2D\u00E9", 3, out, 8, nullptr, &used);
    ASSERT_EQ(n, 3);
    EXPECT_EQ(std::string(out, 3), std::string("a?\xE9"));
    EXPECT_TRUE(used);
    WCHAR wide[4] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_ACP, 0, "\x9D", 1, wide, 4), 1);
    EXPECT_EQ(wide[0], u'\u009D');
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, u"x", 0, out, 8, nullptr, nullptr), 0);
}

TEST(CString, NullAndNonPositiveArgumentsGiveEmptyStrings) {
    EXPECT_TRUE(CString(static_cast<LPCWSTR>(nullptr)).IsEmpty());
    EXPECT_TRUE(CString(static_cast<LPCSTR>(nullptr)).IsEmpty());
    EXPECT_TRUE(CString("").IsEmpty());
    EXPECT_TRUE(CString(u"abc", 0).IsEmpty());
    EXPECT_TRUE(CString(u"abc", -1).IsEmpty());
    EXPECT_TRUE(CString(nullptr, 3).IsEmpty());
    EXPECT_EQ(CString(u"abc", 2), CString(u"ab"));
    EXPECT_EQ(CString(u'-', 3), CString(u"---"));
    EXPECT_TRUE(CString(u'-', -2).IsEmpty());
    CString s(u"old");
    s = static_cast<LPCWSTR>(nullptr);
    EXPECT_TRUE(s.IsEmpty());
    s += static_cast<LPCWSTR>(nullptr);
    EXPECT_TRUE(s.IsEmpty());
}

TEST(CString, BuffersGrowKeepTheTextAndTakeTheLengthBack) {
    CString s(u"abc");
    LPWSTR buf = s.GetBuffer(8);
    EXPECT_EQ(buf[0], u'a');
    buf[3] = u'd';
    buf[4] = u'e';
    s.ReleaseBuffer(); // up to the first zero
    EXPECT_EQ(s, CString(u"abcde"));
    // A smaller request leaves the text alone; an explicit length cuts it.
    s.GetBuffer(2);
    s.ReleaseBuffer(2);
    EXPECT_EQ(s, CString(u"ab"));
    s.GetBuffer(0);
    s.ReleaseBuffer(50); // no longer than the buffer
    EXPECT_EQ(s, CString(u"ab"));

    buf = s.GetBufferSetLength(4);
    std::copy_n(u"wxyz", 4, buf);
    s.ReleaseBuffer(4);
    EXPECT_EQ(s, CString(u"wxyz"));
    s.GetBufferSetLength(-3);
    EXPECT_TRUE(s.IsEmpty());
}

TEST(CString, SearchesReportMinusOneOutsideTheString) {
    CString s(u"a.b.c");
    EXPECT_EQ(s.Find(u'.'), 1);
    EXPECT_EQ(s.Find(u'.', 2), 3);
    EXPECT_EQ(s.Find(u'.', 5), -1);
    EXPECT_EQ(s.Find(u'.', -1), -1);
    EXPECT_EQ(s.Find(u"b.", 0), 2);
    EXPECT_EQ(s.Find(u"", 5), 5);
    EXPECT_EQ(s.Find(u"a", 6), -1);
    EXPECT_EQ(s.Find(u"a", -1), -1);
    EXPECT_EQ(s.Find(static_cast<LPCWSTR>(nullptr)), -1);
    EXPECT_EQ(s.ReverseFind(u'.'), 3);
    EXPECT_EQ(s.ReverseFind(u'/'), -1);
    EXPECT_EQ(s.Replace(u'.', u'/'), 2);
    EXPECT_EQ(s, CString(u"a/b/c"));
    EXPECT_EQ(s.Replace(u'.', u'/'), 0);
}

TEST(CString, ConcatenationAndOrdinalComparison) {
    const CString a(u"ab");
    EXPECT_EQ(a + CString(u"c"), CString(u"abc"));
    EXPECT_EQ(a + u"cd", CString(u"abcd"));
    EXPECT_EQ(u"x" + a, CString(u"xab"));
    // A character joins as text, not as an offset into the string.
    EXPECT_EQ(a + u'c', CString(u"abc"));
    EXPECT_EQ(u'c' + a, CString(u"cab"));
    CString s;
    s += a;
    s += u'!';
    EXPECT_EQ(s, CString(u"ab!"));
    EXPECT_TRUE(s == u"ab!");
    EXPECT_FALSE(s == u"ab");
    EXPECT_EQ(s.Compare(u"ab!"), 0);
    EXPECT_EQ(s.Compare(u"ab"), 1);
    EXPECT_EQ(s.Compare(u"b"), -1);
    EXPECT_EQ(s.Compare(u"AB!"), 1); // ordinal: lower case sorts after upper
    EXPECT_TRUE(CString(u"a") < CString(u"b"));
    EXPECT_TRUE(CString(u"b") > CString(u"a"));
    EXPECT_TRUE(CString(u"a") <= CString(u"a"));
    EXPECT_TRUE(CString(u"a") >= CString(u"a"));
    EXPECT_FALSE(CString(u"a") >= CString(u"b"));
}

TEST(CString, FormatFollowsTheRuntimesConversions) {
    CString s;
    s.Format(u"[%*d|%-*d|%.*f]", 5, 42, 4, 7, 2, 2.5);
    EXPECT_EQ(s, CString(u"[   42|7   |2.50]"));
    // A negative width from the arguments means left-aligned.
    s.Format(u"[%*s]", -4, u"ab");
    EXPECT_EQ(s, CString(u"[ab  ]"));
    s.Format(u"%lld %I64d %zu", -9000000000LL, 9000000000LL, std::size_t{12});
    EXPECT_EQ(s, CString(u"-9000000000 9000000000 12"));
    // LONG and DWORD are 32 bits: %ld and %lu take 32-bit values.
    s.Format(u"%ld %lu %hd", LONG{-5}, DWORD{0xFFFFFFFF}, 70000);
    EXPECT_EQ(s, CString(u"-5 4294967295 4464"));
    s.Format(u"%x %X %o %#x %05d %+d", 255, 255, 8, 16, 42, 3);
    EXPECT_EQ(s, CString(u"ff FF 10 0x10 00042 +3"));
    s.Format(u"%e %g %G", 12345.678, 0.0001, 1e20);
    EXPECT_EQ(s, CString(u"1.234568e+04 0.0001 1E+20"));
    s.Format(u"[%3c][%-3c][%.2s][%5.1hs]", u'x', u'y', u"abc", "narrow");
    EXPECT_EQ(s, CString(u"[  x][y  ][ab][    n]"));
    s.Format(u"%s %hs %S", static_cast<LPCWSTR>(nullptr), static_cast<const char*>(nullptr),
             "\xA3");
    EXPECT_EQ(s, CString(u"(null) (null) \u00A3"));
    int local = 0;
    char expected[64];
    std::snprintf(expected, sizeof expected, "%p", static_cast<void*>(&local));
    s.Format(u"%p", static_cast<void*>(&local));
    EXPECT_EQ(s, CString(expected));
    // An unknown conversion is copied; a lone '%' at the end stops the format.
    s.Format(u"%y|%", 1);
    EXPECT_EQ(s, CString(u"y|"));
    s.Format(static_cast<LPCWSTR>(nullptr));
    EXPECT_TRUE(s.IsEmpty());
}

TEST(CString, FormatHandlesConversionsLongerThanItsScratchBuffer) {
    CString s;
    s.Format(u"%600d|%-700.3f|", 1, 0.5);
    ASSERT_EQ(s.GetLength(), 600 + 1 + 700 + 1);
    EXPECT_EQ(s.Mid(599, 2), CString(u"1|"));
    EXPECT_EQ(s.Mid(601, 6), CString(u"0.500 "));
    EXPECT_EQ(s.Right(2), CString(u" |"));
    s.Format(u"%-600s|", u"wide");
    EXPECT_EQ(s.GetLength(), 601);
    EXPECT_EQ(s.Left(5), CString(u"wide "));
}
