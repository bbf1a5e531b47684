// The framework's tabbed property sheet run modally by the simulated user:
// pages from the host's templates with their data exchange, page changes by
// tab clicks, OK, Apply and Cancel reaching the pages' handlers, and the
// sheet's questions about its pages.
#include "SheetTestSupport.h"

#include <afxcmn.h>
#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

namespace {

using namespace sheet_test;
namespace automation = platform::automation;
using Journal = std::vector<std::string>;

// A page that writes each handler's call to a journal.
class JournalPage : public CPropertyPage {
public:
    JournalPage(UINT id, const char* name, Journal* journal, UINT captionId = 0)
        : CPropertyPage(id, captionId), m_name(name), m_journal(journal) {}

    BOOL OnSetActive() override {
        Note("SetActive");
        return CPropertyPage::OnSetActive();
    }
    BOOL OnKillActive() override {
        Note("KillActive");
        return m_refuseToLeave ? FALSE : CPropertyPage::OnKillActive();
    }
    BOOL OnApply() override {
        Note("Apply");
        return CPropertyPage::OnApply();
    }
    void OnOK() override { Note("OK"); }
    void OnCancel() override { Note("Cancel"); }

    bool m_refuseToLeave = false;

protected:
    void Note(const char* what) { m_journal->push_back(m_name + " " + what); }
    std::string m_name;
    Journal* m_journal;
};

class GeneralPage : public JournalPage {
public:
    explicit GeneralPage(Journal* journal) : JournalPage(IDD_GENERAL, "General", journal) {}
    CString m_strName = _T("initial");
    int m_verbose = 1;

protected:
    void DoDataExchange(CDataExchange* dx) override {
        DDX_Text(dx, IDC_NAME, m_strName);
        DDX_Check(dx, IDC_VERBOSE, m_verbose);
    }
};

class FrameworkSheetTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override {
        automation::Reset();
        platform::PumpMessages();
    }
    Journal journal;
    GeneralPage general{&journal};
    JournalPage advanced{IDD_ADVANCED, "Advanced", &journal};
    JournalPage layout{IDD_LAYOUT, "Layout", &journal, IDS_OPTIONS_TITLE};
};

TEST_F(FrameworkSheetTest, TabClicksChangePagesAndOkAppliesThePagesShown) {
    CPropertySheet sheet(_T("Preferences"));
    sheet.AddPage(&general);
    sheet.AddPage(&advanced);
    sheet.AddPage(&layout);
    std::u16string nameShown;
    automation::Do([&] { nameShown = TextOf(GetDlgItem(general.m_hWnd, IDC_NAME)); });
    automation::Key(VK_END);
    automation::Type(u"+");
    automation::ClickTab(1);
    automation::Do([&] {
        EXPECT_EQ(sheet.GetActiveIndex(), 1);
        EXPECT_EQ(sheet.GetActivePage(), &advanced);
        EXPECT_TRUE(IsWindowVisible(advanced.m_hWnd));
        EXPECT_FALSE(IsWindowVisible(general.m_hWnd));
    });
    automation::Click(IDOK);
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    // The data exchange filled the controls and read them back on leaving.
    EXPECT_EQ(nameShown, u"initial");
    EXPECT_EQ(general.m_strName, CString(_T("initial+")));
    EXPECT_EQ(journal, (Journal{"General SetActive", "General KillActive", "Advanced SetActive",
                                "Advanced KillActive", "General Apply", "General OK",
                                "Advanced Apply", "Advanced OK"}));
    // The sheet and its pages are gone; the page objects can be used again.
    EXPECT_EQ(sheet.m_hWnd, nullptr);
    EXPECT_EQ(general.m_hWnd, nullptr);
}

TEST_F(FrameworkSheetTest, CancelResetsEveryPageShown) {
    CPropertySheet sheet(_T("Preferences"));
    sheet.AddPage(&general);
    sheet.AddPage(&advanced);
    automation::Type(u"lost");
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(general.m_strName, CString(_T("initial")));
    EXPECT_EQ(journal, (Journal{"General SetActive", "General Cancel"}));
}

TEST_F(FrameworkSheetTest, APageThatCannotBeLeftKeepsTheSheetOnIt) {
    general.m_refuseToLeave = true;
    CPropertySheet sheet(_T("Preferences"));
    sheet.AddPage(&general);
    sheet.AddPage(&advanced);
    automation::ClickTab(1);
    automation::Do([&] { EXPECT_EQ(sheet.GetActiveIndex(), 0); });
    automation::Click(IDOK);
    automation::Do([&] { EXPECT_NE(sheet.m_hWnd, nullptr); });
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(journal, (Journal{"General SetActive", "General KillActive", "General KillActive",
                                "General Cancel"}));
}

TEST_F(FrameworkSheetTest, ApplyFollowsAPageReportingAChange) {
    CPropertySheet sheet(_T("Preferences"));
    sheet.AddPage(&general);
    automation::Do([&] { general.SetModified(); });
    automation::Click(ID_APPLY_NOW);
    automation::Do([&] {
        EXPECT_FALSE(IsWindowEnabled(::GetDlgItem(sheet.m_hWnd, ID_APPLY_NOW)));
        EXPECT_NE(sheet.m_hWnd, nullptr);
    });
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(journal, (Journal{"General SetActive", "General KillActive", "General Apply",
                                "General OK", "General SetActive", "General Cancel"}));
}

TEST_F(FrameworkSheetTest, TheSheetAnswersForItsPagesBeforeAndWhileItRuns) {
    CPropertySheet sheet(IDS_SETUP);
    sheet.AddPage(&general);
    sheet.AddPage(&advanced);
    sheet.AddPage(&layout);
    EXPECT_EQ(sheet.GetPageCount(), 3);
    EXPECT_EQ(sheet.GetPage(2), &layout);
    EXPECT_EQ(sheet.GetPage(3), nullptr);
    EXPECT_EQ(sheet.GetPageIndex(&advanced), 1);
    EXPECT_EQ(sheet.GetPageIndex(nullptr), -1);
    EXPECT_FALSE(sheet.IsWizard());
    // Chosen before the sheet exists: the first page shown.
    EXPECT_TRUE(sheet.SetActivePage(&layout));
    EXPECT_EQ(sheet.GetActiveIndex(), 2);
    automation::Do([&] {
        EXPECT_EQ(TextOf(sheet.m_hWnd), u"Setup");
        CTabCtrl* tab = sheet.GetTabControl();
        EXPECT_EQ(tab->GetItemCount(), 3);
        EXPECT_EQ(TabText(*tab, 2), u"Choose options");
        EXPECT_EQ(sheet.GetActivePage(), &layout);
        EXPECT_TRUE(sheet.SetActivePage(0));
        EXPECT_EQ(sheet.GetActiveIndex(), 0);
        sheet.SetTitle(_T("Other"));
        EXPECT_EQ(TextOf(sheet.m_hWnd), u"Other");
    });
    automation::Do([&] { sheet.PressButton(PSBTN_OK); });
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(journal.front(), "Layout SetActive");
}

TEST_F(FrameworkSheetTest, EnterPressesOkFromAPageControl) {
    CPropertySheet sheet(_T("Preferences"));
    sheet.AddPage(&general);
    automation::Type(u"!");
    automation::Key(VK_RETURN);
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(general.m_strName, CString(_T("!")));
}

TEST_F(FrameworkSheetTest, APageWithoutATemplateFailsTheSheet) {
    CPropertySheet sheet(_T("Preferences"));
    JournalPage missing(4242, "Missing", &journal);
    sheet.AddPage(&general);
    sheet.AddPage(&missing);
    EXPECT_EQ(sheet.DoModal(), -1);
    CPropertySheet empty(_T("Empty"));
    EXPECT_EQ(empty.DoModal(), -1);
    EXPECT_TRUE(journal.empty());
    EXPECT_EQ(automation::Record().size(), 0u);
}

TEST_F(FrameworkSheetTest, AModelessSheetStaysUntilItsHostDestroysIt) {
    CPropertySheet sheet(_T("Preferences"));
    sheet.AddPage(&general);
    sheet.AddPage(&advanced);
    ASSERT_TRUE(sheet.Create());
    EXPECT_TRUE(IsWindowVisible(sheet.m_hWnd));
    // A page added now gets its tab at once.
    sheet.AddPage(&layout);
    EXPECT_EQ(sheet.GetPageCount(), 3);
    sheet.RemovePage(&advanced);
    EXPECT_EQ(sheet.GetPageCount(), 2);
    EXPECT_EQ(sheet.GetPage(1), &layout);
    EXPECT_TRUE(sheet.SetActivePage(1));
    EXPECT_NE(layout.m_hWnd, nullptr);
    sheet.DestroyWindow();
    EXPECT_EQ(layout.m_hWnd, nullptr);
}

} // namespace
