// CPropertySheetPlus and CPropertyPagePlus on the host's templates, run by
// the simulated user: wizard titles that join the sheet's caption and the
// page's title, the default push button taken away when neither Next nor
// Finish can be pressed, the wizard buttons' message ignored by a tabbed
// sheet, and the next-page check guarding tab changes and OK.
#include "Win/framework/CPropertyPagePlus.h"
#include "Win/framework/CPropertySheetPlus.h"

#include <afxcmn.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

namespace automation = platform::automation;

constexpr UINT IDD_OPTIONS = 300;
constexpr UINT IDD_SUMMARY = 301;
constexpr UINT IDS_SETUP = 310;
constexpr UINT IDS_SPACED_TITLE = 311;
constexpr UINT IDS_BLANK = 312;

std::u16string TextOf(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    if (!text.empty())
        GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

std::u16string TabText(CPropertySheet& sheet, int index) {
    WCHAR buffer[512] = {0};
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = buffer;
    item.cchTextMax = 512;
    sheet.GetTabControl()->GetItem(index, &item);
    return buffer;
}

// A sheet that shows its stored caption.
class CaptionSheet : public CPropertySheetPlus {
public:
    using CPropertySheetPlus::CPropertySheetPlus;
    CString StoredCaption() const { return m_strCaption; }
};

// A page whose check before it is left answers as told.
class GuardedPage : public CPropertyPagePlus {
public:
    explicit GuardedPage(UINT id, UINT captionId = 0) : CPropertyPagePlus(id, captionId) {}
    LRESULT OnWizardNext() override {
        ++m_checks;
        return m_answer;
    }
    LRESULT m_answer = 0;
    int m_checks = 0;
};

class PropertySheetPlusTest : public ::testing::Test {
protected:
    void SetUp() override { automation::Reset(); }
    void TearDown() override {
        automation::Reset();
        platform::PumpMessages();
    }
    // Runs the sheet as a wizard, reading the title bar and the tabs on each
    // page, and finishes.
    template <class Sheet> std::vector<std::u16string> WizardTitles(Sheet& sheet) {
        sheet.SetWizardMode();
        std::vector<std::u16string> titles;
        auto look = [&] {
            titles.push_back(TextOf(sheet.m_hWnd));
            for (int i = 0; i < sheet.GetPageCount(); ++i)
                titles.push_back(TabText(sheet, i));
        };
        automation::Do(look);
        automation::Click(ID_WIZNEXT);
        automation::Click(ID_WIZBACK);
        automation::Click(ID_WIZNEXT);
        automation::Do(look);
        automation::Click(IDCANCEL);
        EXPECT_EQ(sheet.DoModal(), IDCANCEL);
        return titles;
    }
    GuardedPage options{IDD_OPTIONS};
    GuardedPage summary{IDD_SUMMARY};
};

TEST_F(PropertySheetPlusTest, AWizardTitleNamesTheSheetAndThePage) {
    CPropertySheetPlus sheet(IDS_SETUP);
    sheet.AddPage(&options);
    sheet.AddPage(&summary);
    // Each page is prefixed once, when it is first shown: coming back to a
    // page does not prefix it again.
    EXPECT_EQ(
        WizardTitles(sheet),
        (std::vector<std::u16string>{u"Setup - Options", u"Setup - Options", u"Summary",
                                     u"Setup - Summary", u"Setup - Options", u"Setup - Summary"}));
}

TEST_F(PropertySheetPlusTest, TheCaptionIsTrimmedAndThePageTitleIsNot) {
    GuardedPage spaced(IDD_OPTIONS, IDS_SPACED_TITLE);
    CaptionSheet sheet(_T("  Setup \t"));
    sheet.AddPage(&spaced);
    sheet.AddPage(&summary);
    std::vector<std::u16string> titles = WizardTitles(sheet);
    ASSERT_FALSE(titles.empty());
    EXPECT_EQ(titles[0], u"Setup -   Options  ");
    // The stored caption stays trimmed.
    EXPECT_EQ(sheet.StoredCaption(), CString(_T("Setup")));
}

TEST_F(PropertySheetPlusTest, ABlankCaptionOrTitleLeavesTheTabsAlone) {
    CPropertySheetPlus sheet(IDS_BLANK);
    sheet.AddPage(&options);
    sheet.AddPage(&summary);
    std::vector<std::u16string> titles = WizardTitles(sheet);
    ASSERT_EQ(titles.size(), 6u);
    EXPECT_EQ(titles[0], u"Options");
    EXPECT_EQ(titles[3], u"Summary");
    EXPECT_EQ(titles[5], u"Summary");

    GuardedPage blank(IDD_OPTIONS, IDS_BLANK);
    CPropertySheetPlus other(_T("Setup"));
    other.AddPage(&blank);
    other.AddPage(&summary);
    titles = WizardTitles(other);
    ASSERT_EQ(titles.size(), 6u);
    EXPECT_EQ(titles[1], u"   ");
    EXPECT_EQ(titles[5], u"Setup - Summary");
}

TEST_F(PropertySheetPlusTest, TheTitleIsCutTo255Characters) {
    CString caption(u'C', 250);
    CPropertySheetPlus sheet(caption);
    sheet.AddPage(&options);
    sheet.AddPage(&summary);
    std::vector<std::u16string> titles = WizardTitles(sheet);
    ASSERT_FALSE(titles.empty());
    EXPECT_EQ(titles[1].size(), 255u);
    EXPECT_EQ(titles[1].substr(245), u"CCCCC - Op");
}

TEST_F(PropertySheetPlusTest, APageInAnOrdinaryWizardGetsItsTitleToo) {
    CPropertySheet sheet(_T("Setup"));
    sheet.AddPage(&options);
    sheet.AddPage(&summary);
    EXPECT_EQ(options.GetSheetPlus(), nullptr);
    std::vector<std::u16string> titles = WizardTitles(sheet);
    ASSERT_FALSE(titles.empty());
    EXPECT_EQ(titles[0], u"Setup - Options");
}

TEST_F(PropertySheetPlusTest, ATabbedSheetKeepsItsTabTexts) {
    CPropertySheetPlus sheet(IDS_SETUP);
    sheet.AddPage(&options);
    sheet.AddPage(&summary);
    automation::ClickTab(1);
    automation::Do([&] {
        EXPECT_EQ(options.GetSheetPlus(), &sheet);
        EXPECT_EQ(TextOf(sheet.m_hWnd), u"Setup");
        EXPECT_EQ(TabText(sheet, 0), u"Options");
        EXPECT_EQ(TabText(sheet, 1), u"Summary");
    });
    automation::Click(IDOK);
    EXPECT_EQ(sheet.DoModal(), IDOK);
}

// The default push button and its look after PSM_SETWIZBUTTONS.
struct DefaultButton {
    LRESULT answer = 0;
    bool nextLooksDefault = false;
};

DefaultButton AfterButtons(CPropertySheet& sheet, DWORD flags) {
    sheet.SendMessage(PSM_SETWIZBUTTONS, 0, static_cast<LPARAM>(flags));
    DefaultButton seen;
    seen.answer = sheet.SendMessage(DM_GETDEFID);
    HWND next = ::GetDlgItem(sheet.m_hWnd, ID_WIZNEXT);
    seen.nextLooksDefault = (::GetWindowLongPtr(next, GWL_STYLE) & BS_TYPEMASK) ==
                            static_cast<LONG_PTR>(BS_DEFPUSHBUTTON);
    return seen;
}

TEST_F(PropertySheetPlusTest, BackAloneTakesTheDefaultButtonAway) {
    CPropertySheetPlus sheet(IDS_SETUP);
    sheet.AddPage(&options);
    sheet.AddPage(&summary);
    sheet.SetWizardMode();
    std::vector<DefaultButton> seen;
    automation::Do([&] {
        seen.push_back(AfterButtons(sheet, PSWIZB_NEXT));
        seen.push_back(AfterButtons(sheet, PSWIZB_BACK));
        seen.push_back(AfterButtons(sheet, PSWIZB_BACK | PSWIZB_FINISH));
    });
    // Enter now presses nothing: the wizard stays on its page.
    automation::Do([&] { sheet.SendMessage(PSM_SETWIZBUTTONS, 0, PSWIZB_BACK); });
    automation::Key(VK_RETURN);
    automation::Do([&] { EXPECT_EQ(sheet.GetActiveIndex(), 0); });
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    ASSERT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen[0].answer, MAKELRESULT(ID_WIZNEXT, DC_HASDEFID));
    EXPECT_TRUE(seen[0].nextLooksDefault);
    EXPECT_EQ(seen[1].answer, 0);
    EXPECT_FALSE(seen[1].nextLooksDefault);
    EXPECT_EQ(seen[2].answer, MAKELRESULT(ID_WIZFINISH, DC_HASDEFID));
}

TEST_F(PropertySheetPlusTest, AnOrdinaryWizardKeepsADefaultThatCannotBePressed) {
    CPropertySheet sheet(_T("Setup"));
    sheet.AddPage(&options);
    sheet.SetWizardMode();
    DefaultButton seen;
    automation::Do([&] { seen = AfterButtons(sheet, PSWIZB_BACK); });
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(seen.answer, MAKELRESULT(ID_WIZNEXT, DC_HASDEFID));
    EXPECT_TRUE(seen.nextLooksDefault);
}

TEST_F(PropertySheetPlusTest, ATabbedSheetIgnoresTheWizardButtonsMessage) {
    CPropertySheetPlus plus(IDS_SETUP);
    plus.AddPage(&options);
    LRESULT answer = -1;
    LRESULT plusDefault = 0;
    automation::Do([&] {
        answer = plus.SendMessage(PSM_SETWIZBUTTONS, 0, PSWIZB_BACK);
        plusDefault = plus.SendMessage(DM_GETDEFID);
    });
    // OK is still the default: Enter closes the sheet.
    automation::Key(VK_RETURN);
    EXPECT_EQ(plus.DoModal(), IDOK);
    EXPECT_EQ(answer, 0);
    EXPECT_EQ(plusDefault, MAKELRESULT(IDOK, DC_HASDEFID));

    // An ordinary sheet hands the message on, and OK is no longer the
    // default.
    CPropertySheet plain(_T("Setup"));
    plain.AddPage(&summary);
    LRESULT plainDefault = 0;
    automation::Do([&] {
        plain.SendMessage(PSM_SETWIZBUTTONS, 0, PSWIZB_NEXT);
        plainDefault = plain.SendMessage(DM_GETDEFID);
    });
    automation::Click(IDCANCEL);
    EXPECT_EQ(plain.DoModal(), IDCANCEL);
    EXPECT_NE(plainDefault, MAKELRESULT(IDOK, DC_HASDEFID));
}

TEST_F(PropertySheetPlusTest, TheNextPageCheckGuardsTabsAndOkInATabbedSheet) {
    CPropertySheetPlus sheet(IDS_SETUP);
    sheet.AddPage(&options);
    sheet.AddPage(&summary);
    options.m_answer = -1;
    automation::ClickTab(1);
    automation::Click(IDOK);
    automation::Do([&] {
        EXPECT_EQ(sheet.GetActiveIndex(), 0);
        EXPECT_NE(sheet.m_hWnd, nullptr);
        // A page id means "stay" as well.
        options.m_answer = IDD_SUMMARY;
    });
    automation::ClickTab(1);
    automation::Do([&] {
        EXPECT_EQ(sheet.GetActiveIndex(), 0);
        options.m_answer = 0;
    });
    automation::ClickTab(1);
    automation::Do([&] { EXPECT_EQ(sheet.GetActiveIndex(), 1); });
    automation::Click(IDOK);
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(options.m_checks, 4);
    EXPECT_EQ(summary.m_checks, 1);
}

TEST_F(PropertySheetPlusTest, AWizardPageIsLeftBackwardsWithoutTheCheck) {
    CPropertySheetPlus sheet(IDS_SETUP);
    sheet.AddPage(&options);
    sheet.AddPage(&summary);
    sheet.SetWizardMode();
    summary.m_answer = -1;
    automation::Click(ID_WIZNEXT);
    automation::Click(ID_WIZBACK);
    automation::Do([&] { EXPECT_EQ(sheet.GetActiveIndex(), 0); });
    automation::Click(IDCANCEL);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(summary.m_checks, 0);
}

TEST_F(PropertySheetPlusTest, RunTimeClassesAndThePageStructure) {
    CRuntimeClass* page = RUNTIME_CLASS(CPropertyPagePlus);
    EXPECT_STREQ(page->m_lpszClassName, "CPropertyPagePlus");
    EXPECT_EQ(page->m_wSchema, 0xFFFFu);
    EXPECT_EQ(CRuntimeClass::FromName("CPropertyPagePlus"), page);
    CObject* made = page->CreateObject();
    ASSERT_NE(made, nullptr);
    EXPECT_TRUE(made->IsKindOf(RUNTIME_CLASS(CPropertyPage)));
    EXPECT_EQ(static_cast<CPropertyPagePlus*>(made)->m_psp.dwSize, sizeof(PROPSHEETPAGE));
    delete made;
    EXPECT_EQ(options.m_psp.dwSize, sizeof(PROPSHEETPAGE));

    CRuntimeClass* sheet = RUNTIME_CLASS(CPropertySheetPlus);
    EXPECT_STREQ(sheet->m_lpszClassName, "CPropertySheetPlus");
    EXPECT_EQ(sheet->CreateObject(), nullptr);
    EXPECT_TRUE(sheet->IsDerivedFrom(RUNTIME_CLASS(CPropertySheet)));
}

} // namespace
