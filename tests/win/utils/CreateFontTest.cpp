#include <Win/Win.h>
#include <platform/GdiObjects.h>

#include <gtest/gtest.h>

TEST(CreateFont, MeasuresTheCellFromOneHundredLettersX) {
    struct Case {
        const char16_t* face;
        int height;
        bool bold;
        CSize cell;
    } cases[] = {
        {u"Courier New", -16, false, CSize(10, 18)},
        {u"Courier New", 16, false, CSize(8, 16)},
        {u"Courier New", -13, true, CSize(8, 15)},
        {u"Lucida Console", -16, false, CSize(10, 19)},
    };
    for (const Case& c : cases) {
        CFont font;
        CSize cell = WinUtils::CreateFontW(&font, c.face, c.height, c.bold, false, false);
        EXPECT_EQ(cell, c.cell) << platform::ToUtf8(c.face) << " " << c.height;
        LOGFONT lf = {};
        font.GetLogFont(&lf);
        EXPECT_EQ(lf.lfWeight, c.bold ? FW_BOLD : 0);
        EXPECT_EQ(lf.lfHeight, c.height);
    }
}

TEST(CreateFont, CutsLongFaceNamesAndSetsTheFlags) {
    CString face(u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmn"); // 40 characters
    CFont font;
    WinUtils::CreateFontW(&font, face, -12, false, true, true);
    LOGFONT lf = {};
    ASSERT_NE(font.GetLogFont(&lf), 0);
    EXPECT_EQ(CString(lf.lfFaceName), face.Left(31));
    EXPECT_EQ(lf.lfUnderline, 1);
    EXPECT_EQ(lf.lfItalic, 1);
    EXPECT_EQ(lf.lfCharSet, 0);
}

TEST(CreateFont, ReleasesEverythingButTheFont) {
    platform::GdiCounts before = platform::LiveGdiObjects();
    {
        CFont font;
        WinUtils::CreateFontW(&font, u"Courier New", -14, false, false, false);
        platform::GdiCounts during = platform::LiveGdiObjects();
        EXPECT_EQ(during.fonts, before.fonts + 1);
        EXPECT_EQ(during.dcs, before.dcs);
    }
    EXPECT_EQ(platform::LiveGdiObjects(), before);
}
