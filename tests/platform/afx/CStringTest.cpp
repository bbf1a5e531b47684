#include <afx.h>

#include <gtest/gtest.h>

TEST(CString, FormatTakesWideAndNarrowText) {
    CString s;
    s.Format(u"%s=%d [%-4s] %c %hs %5.2f %%", u"key", -42, u"ab", u'Z', "narrow", 3.14159);
    EXPECT_EQ(s, CString(u"key=-42 [ab  ] Z narrow  3.14 %"));
}

TEST(CString, CaseFoldingTouchesAsciiLettersOnly) {
    CString s(u"ÄbC-é");
    s.MakeLower();
    EXPECT_EQ(s, CString(u"Äbc-é"));
    EXPECT_EQ(CString(u"ABC").CompareNoCase(u"abd"), -1);
    EXPECT_EQ(CString(u"Ä").CompareNoCase(u"ä"), -1); // ordinal, not folded
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

TEST(CString, ReplaceTrimAndBuffer) {
    CString s(u"  a,b,,c  ");
    s.Trim();
    EXPECT_EQ(s.Replace(u",", u";;"), 3);
    EXPECT_EQ(s, CString(u"a;;b;;;;c"));
    LPWSTR buf = s.GetBuffer(20);
    buf[1] = 0;
    s.ReleaseBuffer();
    EXPECT_EQ(s, CString(u"a"));
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
