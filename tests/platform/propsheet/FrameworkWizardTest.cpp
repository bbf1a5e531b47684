// The framework's wizard run modally by the simulated user: Back, Next and
// Finish, the pages' answers steering the way (-1 stays, a template id
// jumps), the buttons each page asks for with the default push button
// moving with them, and the page titles in the title bar.
#include "SheetTestSupport.h"

#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

namespace {

using namespace sheet_test;
namespace automation = platform::automation;
using Journal = std::vector<std::string>;

// A wizard step: asks for its buttons when it shows, and answers Next as
// it is told.
class StepPage : public CPropertyPage {
public:
    StepPage(UINT id, const char* name, Journal* journal, DWORD buttons)
        : CPropertyPage(id), m_name(name), m_journal(journal), m_buttons(buttons) {}

    BOOL OnSetActive() override {
        Note("SetActive");
        GetParentSheet()->SetWizardButtons(m_buttons);
        return CPropertyPage::OnSetActive();
    }
    BOOL OnKillActive() override {
        Note("KillActive");
        return CPropertyPage::OnKillActive();
    }
    LRESULT OnWizardNext() override {
        Note("WizardNext");
        return m_next;
    }
    LRESULT OnWizardBack() override {
        Note("WizardBack");
        return CPropertyPage::OnWizardBack();
    }
    BOOL OnWizardFinish() override {
        Note("WizardFinish");
        return m_finish;
    }

    LRESULT m_next = 0;
    BOOL m_finish = TRUE;

private:
    void Note(const char* what) { m_journal->push_back(m_name + " " + what); }
    std::string m_name;
    Journal* m_journal;
    DWORD m_buttons;
};

// What the wizard shows at a moment.
struct Shown {
    std::u16string caption;
    int page = -1;
    bool backEnabled = false;
    bool nextShown = false;
    bool nextEnabled = false;
    bool finishShown = false;
    UINT defaultId = 0;
};

Shown Look(const CPropertySheet& sheet) {
    Shown shown;
    HWND hwnd = sheet.m_hWnd;
    shown.caption = TextOf(hwnd);
    shown.page = sheet.GetActiveIndex();
    shown.backEnabled = IsWindowEnabled(GetDlgItem(hwnd, ID_WIZBACK));
    shown.nextShown = IsWindowVisible(GetDlgItem(hwnd, ID_WIZNEXT));
    shown.nextEnabled = IsWindowEnabled(GetDlgItem(hwnd, ID_WIZNEXT));
    shown.finishShown = IsWindowVisible(GetDlgItem(hwnd, ID_WIZFINISH));
    LRESULT def = SendMessage(hwnd, DM_GETDEFID, 0, 0);
    shown.defaultId = HIWORD(def) == DC_HASDEFID ? LOWORD(def) : 0;
    return shown;
}

class FrameworkWizardTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        sheet.AddPage(&welcome);
        sheet.AddPage(&options);
        sheet.AddPage(&summary);
        sheet.SetWizardMode();
    }
    void TearDown() override {
        automation::Reset();
        platform::PumpMessages();
    }
    void LookNow() {
        automation::Do([this] { looks.push_back(Look(sheet)); });
    }
    Journal journal;
    StepPage welcome{IDD_WELCOME, "Welcome", &journal, PSWIZB_NEXT};
    StepPage options{IDD_OPTIONS, "Options", &journal, PSWIZB_BACK | PSWIZB_NEXT};
    StepPage summary{IDD_SUMMARY, "Summary", &journal, PSWIZB_BACK | PSWIZB_FINISH};
    CPropertySheet sheet{_T("Setup")};
    std::vector<Shown> looks;
};

TEST_F(FrameworkWizardTest, NextBackAndFinishWalkThePages) {
    LookNow();
    automation::Click(ID_WIZNEXT);
    LookNow();
    automation::Click(ID_WIZNEXT);
    LookNow();
    automation::Click(ID_WIZBACK);
    automation::Click(ID_WIZNEXT);
    automation::Click(ID_WIZFINISH);
    EXPECT_EQ(sheet.DoModal(), ID_WIZFINISH);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    ASSERT_EQ(looks.size(), 3u);
    // The title bar shows the page's title; the tab control stays hidden.
    EXPECT_EQ(looks[0].caption, u"Welcome");
    EXPECT_EQ(looks[0].page, 0);
    EXPECT_FALSE(looks[0].backEnabled);
    EXPECT_TRUE(looks[0].nextShown && looks[0].nextEnabled);
    EXPECT_FALSE(looks[0].finishShown);
    EXPECT_EQ(looks[0].defaultId, static_cast<UINT>(ID_WIZNEXT));
    EXPECT_EQ(looks[1].caption, u"Options");
    EXPECT_TRUE(looks[1].backEnabled);
    // On the last page Finish takes Next's place, and the default with it.
    EXPECT_EQ(looks[2].caption, u"Summary");
    EXPECT_FALSE(looks[2].nextShown);
    EXPECT_TRUE(looks[2].finishShown);
    EXPECT_EQ(looks[2].defaultId, static_cast<UINT>(ID_WIZFINISH));
    EXPECT_EQ(journal, (Journal{"Welcome SetActive", "Welcome WizardNext", "Welcome KillActive",
                                "Options SetActive", "Options WizardNext", "Options KillActive",
                                "Summary SetActive", "Summary WizardBack", "Summary KillActive",
                                "Options SetActive", "Options WizardNext", "Options KillActive",
                                "Summary SetActive", "Summary WizardFinish"}));
}

TEST_F(FrameworkWizardTest, APageAnsweringMinusOneStaysAndATemplateIdJumps) {
    options.m_next = -1;
    welcome.m_next = IDD_SUMMARY;
    automation::Click(ID_WIZNEXT);
    LookNow();
    automation::Click(ID_WIZBACK);
    automation::Click(ID_WIZNEXT);
    LookNow();
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    ASSERT_EQ(looks.size(), 2u);
    // Welcome named the summary: the options were passed over.
    EXPECT_EQ(looks[0].page, 2);
    // Back goes to the page before in order; the options refused Next.
    EXPECT_EQ(looks[1].page, 1);
    EXPECT_EQ(journal, (Journal{"Welcome SetActive", "Welcome WizardNext", "Welcome KillActive",
                                "Summary SetActive", "Summary WizardBack", "Summary KillActive",
                                "Options SetActive", "Options WizardNext"}));
}

TEST_F(FrameworkWizardTest, FinishRefusedKeepsTheWizardOpen) {
    summary.m_finish = FALSE;
    sheet.SetActivePage(2);
    automation::Click(ID_WIZFINISH);
    LookNow();
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    ASSERT_EQ(looks.size(), 1u);
    EXPECT_EQ(looks[0].page, 2);
}

TEST_F(FrameworkWizardTest, EnterPressesTheDefaultButton) {
    automation::Key(VK_RETURN);
    automation::Key(VK_RETURN);
    LookNow();
    automation::Key(VK_RETURN);
    EXPECT_EQ(sheet.DoModal(), ID_WIZFINISH);
    ASSERT_EQ(looks.size(), 1u);
    EXPECT_EQ(looks[0].page, 2);
}

TEST_F(FrameworkWizardTest, TheButtonsChangeWhenTheMessageIsHandled) {
    automation::Do([this] {
        sheet.SetWizardButtons(PSWIZB_BACK);
        // Posted: nothing changed yet.
        looks.push_back(Look(sheet));
    });
    LookNow();
    automation::Do([this] { sheet.SetWizardButtons(PSWIZB_DISABLEDFINISH); });
    LookNow();
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    ASSERT_EQ(looks.size(), 3u);
    EXPECT_TRUE(looks[0].nextEnabled);
    EXPECT_FALSE(looks[1].nextEnabled);
    EXPECT_TRUE(looks[1].backEnabled);
    // Without Next or Finish the default stays on Next, which cannot be
    // pressed.
    EXPECT_EQ(looks[1].defaultId, static_cast<UINT>(ID_WIZNEXT));
    EXPECT_TRUE(looks[2].finishShown);
    EXPECT_FALSE(looks[2].nextShown);
    EXPECT_FALSE(looks[2].backEnabled);
    EXPECT_EQ(looks[2].defaultId, static_cast<UINT>(ID_WIZFINISH));
}

// The owner is disabled while the wizard runs and, however the wizard ends,
// enabled and active again afterwards: the user's next keys and clicks go to
// it.
TEST_F(FrameworkWizardTest, TheOwnerIsActiveAgainWhenTheWizardEnds) {
    HWND owner = CreateWindowEx(0, u"STATIC", u"Main", WS_POPUP | WS_VISIBLE, 0, 0, 600, 400,
                                nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(owner);
    for (UINT ending : {static_cast<UINT>(ID_WIZFINISH), static_cast<UINT>(IDCANCEL)}) {
        StepPage first{IDD_WELCOME, "First", &journal, PSWIZB_NEXT};
        StepPage last{IDD_SUMMARY, "Last", &journal, PSWIZB_BACK | PSWIZB_FINISH};
        CPropertySheet wizard(_T("Setup"), CWnd::FromHandle(owner));
        wizard.AddPage(&first);
        wizard.AddPage(&last);
        wizard.SetWizardMode();
        bool ownerEnabled = true;
        automation::Do([&] { ownerEnabled = IsWindowEnabled(owner); });
        automation::Click(ID_WIZNEXT);
        automation::Click(ending);
        EXPECT_EQ(wizard.DoModal(), static_cast<INT_PTR>(ending));
        EXPECT_FALSE(ownerEnabled);
        EXPECT_TRUE(IsWindowEnabled(owner));
        EXPECT_EQ(GetActiveWindow(), owner) << "after " << ending;
    }
    DestroyWindow(owner);
}

TEST_F(FrameworkWizardTest, AWizardFlagOfEitherKindMakesAWizard) {
    CPropertySheet other(_T("Other"));
    EXPECT_FALSE(other.IsWizard());
    other.m_psh.dwFlags |= PSH_WIZARD97;
    EXPECT_TRUE(other.IsWizard());
    EXPECT_EQ(PSH_WIZARD97, 0x01000000);
    EXPECT_EQ(PSH_WIZARD, 0x20);
    EXPECT_EQ(ID_WIZBACK, 0x3023);
    EXPECT_EQ(ID_WIZNEXT, 0x3024);
    EXPECT_EQ(ID_WIZFINISH, 0x3025);
    EXPECT_EQ(PSM_SETWIZBUTTONS, 0x470);
}

} // namespace
