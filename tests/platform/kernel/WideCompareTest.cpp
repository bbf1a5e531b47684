// The runtime's case-insensitive comparison of wide strings in the "C"
// locale: A to Z fold, nothing else does, and it stops at a NUL or the count.
#include <tchar.h>

#include <gtest/gtest.h>

TEST(WideCompare, FoldsOnlyAToZUpToTheCount) {
    EXPECT_EQ(_wcsnicmp(u"EDIT - notes.txt", u"edit", 4), 0);
    EXPECT_EQ(_wcsnicmp(u"Editor", u"EDIT", 4), 0);
    EXPECT_NE(_wcsnicmp(u"Edge", u"EDIT", 4), 0);
    EXPECT_LT(_wcsnicmp(u"abc", u"ABD", 3), 0);
    EXPECT_GT(_wcsnicmp(u"ABD", u"abc", 3), 0);
    // Upper case compares as lower case: '_' (0x5F) lies between them.
    EXPECT_GT(_wcsnicmp(u"A", u"_", 1), 0);
    EXPECT_NE(_wcsnicmp(u"\u00C9t\u00E9", u"\u00E9T\u00C9", 3), 0);
    EXPECT_EQ(_wcsnicmp(u"\u00C9t\u00E9", u"\u00C9T\u00E9", 3), 0);
}

TEST(WideCompare, StopsAtANulOrACountOfZero) {
    EXPECT_EQ(_wcsnicmp(u"", u"anything", 0), 0);
    EXPECT_EQ(_wcsnicmp(u"same", u"SAME", 100), 0);
    // A shorter string ends first and compares as less.
    EXPECT_LT(_wcsnicmp(u"Ed", u"Edit", 4), 0);
    EXPECT_GT(_wcsnicmp(u"Edit", u"Ed", 4), 0);
    EXPECT_EQ(_wcsnicmp(nullptr, nullptr, 0), 0);
    EXPECT_EQ(_wcsnicmp(nullptr, u"x", 1), _NLSCMPERROR);
    EXPECT_EQ(_wcsnicmp(u"x", nullptr, 1), _NLSCMPERROR);
}
