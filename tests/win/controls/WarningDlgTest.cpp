// The warning dialog that the user can switch off: the text it shows, the
// box's state stored at every click, and a switched-off warning closing by
// itself, per entry and across application objects sharing one profile.
#include "support/TempDir.h"

#include <Win/Win.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>
#include <tchar.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace {

namespace automation = platform::automation;

class TestApp : public CWinApp {
public:
    explicit TestApp(const std::filesystem::path& profile) : CWinApp(u"Warnings") {
        std::u16string path(profile.u16string());
        free(const_cast<WCHAR*>(m_pszProfileName));
        m_pszProfileName = _wcsdup(path.c_str());
    }
};

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

class WarningDlgTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        dir = testing_support::TestOutputDir("warning-dialog");
        profile = dir / "warnings.ini";
        app = std::make_unique<TestApp>(profile);
    }
    void TearDown() override {
        app.reset();
        automation::Reset();
        platform::PumpMessages();
    }
    // The user's first look at the warning, queued before what they do.
    void Look(bool& shown) {
        shown = false;
        automation::Do([&shown] {
            shown = true;
            EXPECT_EQ(TextOf(GetDlgItem(GetActiveWindow(), CWarningDlg::IDC_TEXT)),
                      u"The list has 12 rows.");
        });
    }
    INT_PTR Show(const CString& entry) {
        CWarningDlg dialog(u"The list has 12 rows.", entry);
        return dialog.DoModal();
    }
    UINT Stored(const char16_t* entry) {
        return GetPrivateProfileIntW(u"WarningDlg", entry, 77, profile.u16string().c_str());
    }
    std::filesystem::path dir, profile;
    std::unique_ptr<TestApp> app;
};

TEST_F(WarningDlgTest, AFirstWarningWaitsForTheUser) {
    bool shown = false;
    Look(shown);
    automation::Click(IDOK);
    EXPECT_EQ(Show(u"Rows"), IDOK);
    EXPECT_TRUE(shown);
    EXPECT_EQ(Stored(u"Rows"), 77u); // nothing written without a click
}

TEST_F(WarningDlgTest, TickingTheBoxSwitchesTheWarningOff) {
    bool shown = false;
    automation::SetCheck(CWarningDlg::IDC_DISABLE, true);
    automation::Click(IDOK);
    EXPECT_EQ(Show(u"Rows"), IDOK);
    EXPECT_EQ(Stored(u"Rows"), 1u);

    // The next one closes as if OK had been pressed, before the user acts.
    automation::Reset();
    Look(shown);
    EXPECT_EQ(Show(u"Rows"), IDOK);
    EXPECT_FALSE(shown);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    EXPECT_EQ(automation::Pending(), 1u);
}

TEST_F(WarningDlgTest, TheStateIsStoredAtEveryClick) {
    automation::SetCheck(CWarningDlg::IDC_DISABLE, true);
    automation::SetCheck(CWarningDlg::IDC_DISABLE, false);
    automation::Click(IDOK);
    EXPECT_EQ(Show(u"Rows"), IDOK);
    EXPECT_EQ(Stored(u"Rows"), 0u);

    // Ticked, then cancelled: the tick stays.
    automation::SetCheck(CWarningDlg::IDC_DISABLE, true);
    automation::Key(VK_ESCAPE);
    EXPECT_EQ(Show(u"Rows"), IDCANCEL);
    EXPECT_EQ(Stored(u"Rows"), 1u);
}

TEST_F(WarningDlgTest, EntriesAreSwitchedOffIndependently) {
    WritePrivateProfileStringW(u"WarningDlg", u"Rows", u"2", profile.u16string().c_str());
    bool shown = false;
    Look(shown);
    EXPECT_EQ(Show(u"Rows"), IDOK);
    EXPECT_FALSE(shown);
    automation::Reset();
    Look(shown);
    automation::Click(IDOK);
    EXPECT_EQ(Show(u"Columns"), IDOK);
    EXPECT_TRUE(shown);
}

TEST_F(WarningDlgTest, ASecondApplicationObjectSeesTheChoice) {
    bool shown = false;
    automation::SetCheck(CWarningDlg::IDC_DISABLE, true);
    automation::Click(IDOK);
    Show(u"Rows");
    app.reset();
    app = std::make_unique<TestApp>(profile);
    automation::Reset();
    Look(shown);
    EXPECT_EQ(Show(u"Rows"), IDOK);
    EXPECT_FALSE(shown);
}

} // namespace
