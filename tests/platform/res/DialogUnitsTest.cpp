// Dialog units in pixels through the dialog font's base units.
#include "ScriptFiles.h"

#include <platform/DialogUnits.h>
#include <platform/GdiObjects.h>
#include <wingdi.h>

#include <gtest/gtest.h>

TEST(DialogUnits, ShellDialogFontAtEightPoints) {
    // "MS Shell Dlg" resolves to Liberation Sans; at 8 points (11 pixels) its
    // letters average 5.5 pixels, rounded up to 6, in a 12-pixel cell.
    LOGFONTW lf{};
    lf.lfHeight = -11;
    std::char_traits<char16_t>::copy(lf.lfFaceName, u"MS Shell Dlg", 12);
    HFONT font = CreateFontIndirectW(&lf);
    ASSERT_NE(font, nullptr);
    EXPECT_NE(platform::ResolvedFontFile(font).find("LiberationSans-Regular"), std::string::npos);
    const platform::DialogBaseUnits direct = platform::FontBaseUnits(font);
    DeleteObject(font);
    EXPECT_EQ(direct.cx, 6);
    EXPECT_EQ(direct.cy, 12);

    platform::DialogTemplate dialog;
    dialog.pointSize = 8;
    dialog.faceName = u"MS Shell Dlg";
    const platform::DialogBaseUnits units = platform::TemplateBaseUnits(dialog);
    EXPECT_EQ(units.cx, direct.cx);
    EXPECT_EQ(units.cy, direct.cy);
}

TEST(DialogUnits, ControlRectanglesOfATemplate) {
    const auto script =
        res_test::Read("1 DIALOGEX 0, 0, 316, 183\nFONT 8, \"MS Shell Dlg\", 400, 0, 1\nBEGIN\n"
                       "  LTEXT \"&Delimiter:\", -1, 7, 9, 44, 8\n"
                       "  COMBOBOX 1247, 57, 7, 80, 60, CBS_DROPDOWN\n"
                       "  DEFPUSHBUTTON \"OK\", IDOK, 205, 162, 50, 14\n"
                       "  PUSHBUTTON \"x\", 3, 1, 1, 1, 1\n"
                       "END\n");
    const platform::DialogTemplate& d = script.dialogs.at(0).second;
    const platform::DialogBaseUnits units = platform::TemplateBaseUnits(d);
    ASSERT_EQ(units.cx, 6);
    ASSERT_EQ(units.cy, 12);
    auto rect = [&](std::size_t i) {
        const RECT r = platform::DialogItemRect(units, d.items.at(i));
        return std::vector<LONG>{r.left, r.top, r.right, r.bottom};
    };
    // x * 6 / 4 and y * 12 / 8, halves rounded away from zero; sizes scaled
    // on their own.
    EXPECT_EQ(rect(0), (std::vector<LONG>{11, 14, 11 + 66, 14 + 12}));
    EXPECT_EQ(rect(1), (std::vector<LONG>{86, 11, 86 + 120, 11 + 90}));
    EXPECT_EQ(rect(2), (std::vector<LONG>{308, 243, 308 + 75, 243 + 21}));
    // One dialog unit is 1.5 pixels either way, which rounds to 2.
    EXPECT_EQ(rect(3), (std::vector<LONG>{2, 2, 4, 4}));

    RECT whole{0, 0, d.cx, d.cy};
    platform::MapDialogRect(units, &whole);
    EXPECT_EQ(whole.right, 474);
    EXPECT_EQ(whole.bottom, 275);
}

TEST(DialogUnits, TemplatesWithoutAFontUseTheSystemFont) {
    platform::DialogTemplate plain;
    const platform::DialogBaseUnits units = platform::TemplateBaseUnits(plain);
    const platform::DialogBaseUnits system =
        platform::FontBaseUnits(static_cast<HFONT>(GetStockObject(SYSTEM_FONT)));
    EXPECT_GT(units.cx, 0);
    EXPECT_EQ(units.cx, system.cx);
    EXPECT_EQ(units.cy, system.cy);
}
