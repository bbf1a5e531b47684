// The colour dialog: the colour it starts on, a basic colour clicked or a
// colour typed as its red, green and blue values, a cancel, bad requests,
// and the framework's CColorDialog over it.
#include "support/TempDir.h"

#include <afxwin.h>
#include <dlgs.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <platform/WindowPictures.h>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace automation = platform::automation;

class ColorDialogTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override {
        automation::Reset();
        platform::PumpMessages();
    }
    static CHOOSECOLOR Request(COLORREF initial, DWORD flags) {
        CHOOSECOLOR cc{};
        cc.lStructSize = sizeof(cc);
        cc.rgbResult = initial;
        cc.lpCustColors = custom;
        cc.Flags = flags;
        return cc;
    }
    // What the dialog shows when the user first looks at it.
    void Look(COLORREF* shown) {
        automation::Do([shown] { EXPECT_TRUE(automation::ReadColorDialog(shown)); });
    }
    static COLORREF custom[16];
};

COLORREF ColorDialogTest::custom[16] = {};

TEST_F(ColorDialogTest, ABasicColourIsClickedAndConfirmed) {
    COLORREF shown = 1;
    Look(&shown);
    automation::PickColor(0x0000FF); // the basic red
    CHOOSECOLOR cc = Request(0x00FF00, CC_RGBINIT | CC_ANYCOLOR);
    EXPECT_EQ(ChooseColor(&cc), TRUE);
    EXPECT_EQ(shown, 0x00FF00u);
    EXPECT_EQ(cc.rgbResult, 0x0000FFu);
    EXPECT_EQ(CommDlgExtendedError(), 0u);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    bool clickedSwatch = false;
    for (const std::string& step : automation::Record())
        clickedSwatch |= step.rfind("click 12296", 0) == 0; // swatch 8 of the grid
    EXPECT_TRUE(clickedSwatch);
}

TEST_F(ColorDialogTest, AColourOutsideTheGridIsTypedAsItsValues) {
    COLORREF shown = 1;
    Look(&shown);
    automation::PickColor(0x123456);
    CHOOSECOLOR cc = Request(0x123456, 0); // no CC_RGBINIT: starts on black
    EXPECT_EQ(ChooseColor(&cc), TRUE);
    EXPECT_EQ(shown, 0u);
    EXPECT_EQ(cc.rgbResult, 0x123456u);
}

TEST_F(ColorDialogTest, TypedValuesAboveTheRangeAreLimited) {
    automation::Do([] { SetFocus(GetDlgItem(GetActiveWindow(), COLOR_GREEN)); });
    automation::Do([] { SendMessage(GetFocus(), EM_SETSEL, 0, -1); });
    automation::Type(u"999");
    COLORREF shown = 0;
    Look(&shown);
    automation::Click(IDOK);
    CHOOSECOLOR cc = Request(0x000010, CC_RGBINIT);
    EXPECT_EQ(ChooseColor(&cc), TRUE);
    EXPECT_EQ(shown, 0x00FF10u);
    EXPECT_EQ(cc.rgbResult, 0x00FF10u);
}

TEST_F(ColorDialogTest, ACancelLeavesTheColourAlone) {
    // The first run is confirmed, the second cancelled.
    automation::PickColor(0xFFFFFF);
    automation::Click(IDCANCEL);
    CHOOSECOLOR first = Request(0x808080, CC_RGBINIT);
    EXPECT_EQ(ChooseColor(&first), TRUE);
    EXPECT_EQ(first.rgbResult, 0xFFFFFFu);
    CHOOSECOLOR cc = Request(0x808080, CC_RGBINIT);
    EXPECT_EQ(ChooseColor(&cc), FALSE);
    EXPECT_EQ(cc.rgbResult, 0x808080u);
    EXPECT_EQ(CommDlgExtendedError(), 0u);

    // With nothing left for the user to do, the dialog is cancelled.
    EXPECT_EQ(ChooseColor(&cc), FALSE);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 1);
}

TEST_F(ColorDialogTest, BadRequestsFailWithTheirReason) {
    CHOOSECOLOR cc = Request(0, 0);
    cc.lStructSize = 12;
    EXPECT_EQ(ChooseColor(&cc), FALSE);
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_STRUCTSIZE));
    EXPECT_EQ(ChooseColor(nullptr), FALSE);
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_STRUCTSIZE));
    cc = Request(0, 0);
    cc.hwndOwner = reinterpret_cast<HWND>(0x7777);
    EXPECT_EQ(ChooseColor(&cc), FALSE);
    EXPECT_EQ(CommDlgExtendedError(), static_cast<DWORD>(CDERR_INITIALIZATION));
    automation::PickColor(0x00FF00); // no dialog is active: recorded, nothing done
    EXPECT_TRUE(automation::RunNext());
    EXPECT_NE(automation::Record().back().find("no colour dialog"), std::string::npos);
}

TEST_F(ColorDialogTest, TheFrameworkDialogProposesOnlyAColourThatIsNotBlack) {
    CColorDialog black(0, CC_ANYCOLOR);
    EXPECT_EQ(black.m_cc.Flags, static_cast<DWORD>(CC_ANYCOLOR));
    CColorDialog grey(0x808080, CC_ANYCOLOR);
    EXPECT_EQ(grey.m_cc.Flags, static_cast<DWORD>(CC_ANYCOLOR | CC_RGBINIT));
    EXPECT_EQ(grey.GetColor(), 0x808080u);

    COLORREF shown = 1;
    Look(&shown);
    automation::PickColor(0xC0C0C0);
    EXPECT_EQ(grey.DoModal(), IDOK);
    EXPECT_EQ(shown, 0x808080u);
    EXPECT_EQ(grey.GetColor(), 0xC0C0C0u);
    EXPECT_EQ(black.DoModal(), IDCANCEL);
    EXPECT_EQ(black.GetColor(), 0u);
}

TEST_F(ColorDialogTest, APictureOfTheDialog) {
    std::filesystem::path dir = testing_support::TestOutputDir("colour-dialog");
    automation::Do([dir] {
        EXPECT_TRUE(platform::SaveWindowAsPng(GetActiveWindow(), (dir / "chosen.png").string()));
    });
    automation::Click(IDCANCEL);
    CHOOSECOLOR cc = Request(0x00FFFF, CC_RGBINIT);
    EXPECT_EQ(ChooseColor(&cc), FALSE);
    EXPECT_TRUE(std::filesystem::exists(dir / "chosen.png"));
}

} // namespace
