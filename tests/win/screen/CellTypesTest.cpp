#include "support/Pixels.h"

#include <Win/Win.h>
#include <platform/GdiJournal.h>

#include <gtest/gtest.h>

TEST(ScreenChar, DefaultsAndSelectionFollowTheFlag) {
    ScreenChar cell;
    EXPECT_EQ(cell.GetValue(), u' ');
    EXPECT_EQ(cell.GetCharSet(), 0);
    EXPECT_FALSE(cell.IsSelected());
    EXPECT_EQ(cell.GetStyle(), nullptr);

    FontStyle normal(0, RGB(1, 2, 3), RGB(4, 5, 6), nullptr);
    FontStyle selected(0x1000, RGB(7, 8, 9), RGB(10, 11, 12), nullptr);
    cell.Select();
    cell.Set(u'Q', 2, &normal, &selected);
    EXPECT_TRUE(cell.IsSelected()) << "Set keeps the selection flag";
    EXPECT_EQ(cell.GetStyle(), &selected);
    cell.Unselect();
    EXPECT_EQ(cell.GetStyle(), &normal);

    ScreenChar copy;
    copy = cell;
    copy = copy;
    EXPECT_EQ(copy.GetValue(), u'Q');
    EXPECT_EQ(copy.GetCharSet(), 2);
    EXPECT_EQ(copy.GetStyle(), &normal);
}

TEST(CursorPos, OrdersRowMajor) {
    EXPECT_TRUE(CursorPos(2, 5) < CursorPos(3, 0));
    EXPECT_TRUE(CursorPos(3, 0) > CursorPos(2, 79));
    EXPECT_TRUE(CursorPos(3, 4) <= CursorPos(3, 4));
    EXPECT_FALSE(CursorPos(3, 4) < CursorPos(3, 4));
    EXPECT_TRUE(CursorPos(3, 4) >= CursorPos(3, 3));
    EXPECT_FALSE(CursorPos(3, 4) >= CursorPos(4, 0));
    EXPECT_TRUE(CursorPos(1, 2) != CursorPos(1, 3));
    EXPECT_TRUE(CursorPos(1, 2) != CursorPos(2, 2));
    EXPECT_FALSE(CursorPos(1, 2) != CursorPos(1, 2));
    EXPECT_TRUE(CursorPos() == CursorPos(1, 1));
}

TEST(FontStyle, SettersKeepTheModeAndSetupAppliesColours) {
    FontStyle style(0x14, RGB(1, 1, 1), RGB(2, 2, 2), nullptr);
    style.SetStyle(RGB(9, 9, 9), RGB(8, 8, 8), nullptr);
    EXPECT_EQ(style.GetMode(), 0x14);
    EXPECT_EQ(style.GetTextColor(), RGB(9, 9, 9));
    EXPECT_EQ(style.GetBackColor(), RGB(8, 8, 8));

    testing_support::Canvas canvas(8, 8, 0);
    CFont font;
    LOGFONT lf = {};
    lf.lfHeight = -12;
    ASSERT_TRUE(font.CreateFontIndirect(&lf));
    style.SetFont(&font);
    style.SetupText(&canvas.dc());
    EXPECT_EQ(canvas.dc().GetTextColor(), RGB(9, 9, 9));
    EXPECT_EQ(canvas.dc().GetBkColor(), RGB(8, 8, 8));
    EXPECT_EQ(canvas.dc().GetCurrentFont()->GetSafeHandle(), font.GetSafeHandle());
    style.SetupTextReverse(&canvas.dc());
    EXPECT_EQ(canvas.dc().GetTextColor(), RGB(8, 8, 8));
    EXPECT_EQ(canvas.dc().GetBkColor(), RGB(9, 9, 9));
    canvas.dc().SelectStockObject(SYSTEM_FONT);
}
