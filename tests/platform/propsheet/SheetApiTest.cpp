// The system's property sheet through its C interface: pages from the
// host's templates behind a tab control, sized to the largest page; the
// notifications each page gets as the simulated user switches tabs and
// presses OK, Apply and Cancel; the sheet's messages; bad requests.
#include "SheetTestSupport.h"

#include <platform/Automation.h>
#include <platform/DialogUnits.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

namespace {

using namespace sheet_test;
namespace automation = platform::automation;
using Journal = std::vector<std::string>;

// Runs the queued actions one by one, each followed by the messages it
// caused, as a modeless sheet's host loop would.
void Act() {
    while (automation::RunNext())
        platform::PumpMessages();
    platform::PumpMessages();
}

class SheetApiTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        general = {"General", &journal, {}, nullptr};
        advanced = {"Advanced", &journal, {}, nullptr};
        layout = {"Layout", &journal, {}, nullptr};
    }
    void TearDown() override {
        if (IsWindow(sheet))
            DestroyWindow(sheet);
        automation::Reset();
        platform::PumpMessages();
    }
    PROPSHEETHEADERW Header(DWORD flags = 0) {
        pages = {MakePage(IDD_GENERAL, &general), MakePage(IDD_ADVANCED, &advanced),
                 MakePage(IDD_LAYOUT, &layout, u"Page layout")};
        PROPSHEETHEADERW header{};
        header.dwSize = sizeof(header);
        header.dwFlags = flags;
        header.pszCaption = u"Preferences";
        header.nPages = static_cast<UINT>(pages.size());
        header.phpage = pages.data();
        return header;
    }
    HWND OpenModeless(DWORD flags = 0) {
        PROPSHEETHEADERW header = Header(flags | PSH_MODELESS);
        sheet = reinterpret_cast<HWND>(PropertySheet(&header));
        return sheet;
    }
    HWND Tab() const { return reinterpret_cast<HWND>(SendMessage(sheet, PSM_GETTABCONTROL, 0, 0)); }
    HWND Current() const {
        return reinterpret_cast<HWND>(SendMessage(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
    }

    Journal journal;
    PageScript general, advanced, layout;
    std::vector<HPROPSHEETPAGE> pages;
    HWND sheet = nullptr;
};

TEST_F(SheetApiTest, TabsNameThePagesAndOnlyTheFirstPageIsCreated) {
    ASSERT_NE(OpenModeless(), nullptr);
    EXPECT_EQ(TextOf(sheet), u"Preferences");
    HWND tab = Tab();
    ASSERT_NE(tab, nullptr);
    EXPECT_TRUE(IsWindowVisible(tab));
    EXPECT_EQ(SendMessage(tab, TCM_GETITEMCOUNT, 0, 0), 3);
    // The template's caption, or the title the page was given.
    EXPECT_EQ(TabText(tab, 0), u"General");
    EXPECT_EQ(TabText(tab, 1), u"Advanced");
    EXPECT_EQ(TabText(tab, 2), u"Page layout");
    EXPECT_EQ(journal, (Journal{"General INIT", "General SETACTIVE"}));
    EXPECT_EQ(Current(), general.hwnd);
    EXPECT_EQ(SendMessage(sheet, PSM_INDEXTOHWND, 1, 0), 0);
    EXPECT_EQ(GetFocus(), GetDlgItem(general.hwnd, IDC_NAME));
}

TEST_F(SheetApiTest, ThePageAreaFitsTheLargestPageAndTheButtonsSitBelowTheTabs) {
    ASSERT_NE(OpenModeless(), nullptr);
    const platform::DialogTemplate* largest = Template(IDD_LAYOUT);
    platform::DialogBaseUnits base = platform::TemplateBaseUnits(*largest);
    RECT page = RectIn(sheet, general.hwnd);
    EXPECT_EQ(page.right - page.left, MulDiv(largest->cx, base.cx, 4));
    EXPECT_EQ(page.bottom - page.top, MulDiv(largest->cy, base.cy, 8));
    // The page lies in the tab control's display area.
    HWND tab = Tab();
    RECT display = RectIn(sheet, tab);
    SendMessage(tab, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&display));
    EXPECT_EQ(page.left, display.left);
    EXPECT_EQ(page.top, display.top);
    // OK, Cancel and Apply from left to right under the tabs, ending at
    // their right edge; Apply waits for a change.
    RECT tabRect = RectIn(sheet, tab);
    RECT ok = RectIn(sheet, GetDlgItem(sheet, IDOK));
    RECT cancel = RectIn(sheet, GetDlgItem(sheet, IDCANCEL));
    RECT apply = RectIn(sheet, GetDlgItem(sheet, ID_APPLY_NOW));
    EXPECT_GT(ok.top, tabRect.bottom);
    EXPECT_EQ(ok.top, apply.top);
    EXPECT_LT(ok.right, cancel.left);
    EXPECT_LT(cancel.right, apply.left);
    EXPECT_EQ(apply.right, tabRect.right);
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(sheet, ID_APPLY_NOW)));
    RECT client;
    GetClientRect(sheet, &client);
    EXPECT_LT(apply.bottom, client.bottom);
    EXPECT_LT(tabRect.right, client.right);
    EXPECT_EQ(SendMessage(sheet, DM_GETDEFID, 0, 0), MAKELRESULT(IDOK, DC_HASDEFID));
}

TEST_F(SheetApiTest, AClickOnATabAsksTheCurrentPageThenShowsTheNewOne) {
    ASSERT_NE(OpenModeless(), nullptr);
    journal.clear();
    automation::ClickTab(2);
    Act();
    EXPECT_EQ(journal, (Journal{"General KILLACTIVE", "Layout INIT", "Layout SETACTIVE"}));
    EXPECT_EQ(Current(), layout.hwnd);
    EXPECT_EQ(SendMessage(Tab(), TCM_GETCURSEL, 0, 0), 2);
    EXPECT_TRUE(IsWindowVisible(layout.hwnd));
    EXPECT_FALSE(IsWindowVisible(general.hwnd));
    // Back to a page that exists already: it is not created again.
    journal.clear();
    automation::ClickTab(0);
    Act();
    EXPECT_EQ(journal, (Journal{"Layout KILLACTIVE", "General SETACTIVE"}));
    EXPECT_TRUE(IsWindowVisible(general.hwnd));
}

TEST_F(SheetApiTest, APageThatRefusesToBeLeftKeepsItsTab) {
    general.answers[PSN_KILLACTIVE] = TRUE;
    ASSERT_NE(OpenModeless(), nullptr);
    journal.clear();
    automation::ClickTab(1);
    Act();
    EXPECT_EQ(journal, (Journal{"General KILLACTIVE"}));
    EXPECT_EQ(SendMessage(Tab(), TCM_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(Current(), general.hwnd);
    // Nor can it be left by the sheet's own message.
    EXPECT_FALSE(SendMessage(sheet, PSM_SETCURSEL, 1, 0));
    EXPECT_EQ(Current(), general.hwnd);
}

TEST_F(SheetApiTest, APageThatRefusesTheActivationSendsItOnToTheNextPage) {
    advanced.answers[PSN_SETACTIVE] = -1;
    ASSERT_NE(OpenModeless(), nullptr);
    journal.clear();
    EXPECT_TRUE(SendMessage(sheet, PSM_SETCURSEL, 1, 0));
    EXPECT_EQ(journal, (Journal{"General KILLACTIVE", "Advanced INIT", "Advanced SETACTIVE",
                                "Layout INIT", "Layout SETACTIVE"}));
    EXPECT_EQ(SendMessage(Tab(), TCM_GETCURSEL, 0, 0), 2);
}

TEST_F(SheetApiTest, OkAppliesEveryPageThatWasShownAndClosesTheSheet) {
    ASSERT_NE(OpenModeless(), nullptr);
    automation::ClickTab(1);
    Act();
    journal.clear();
    automation::Click(IDOK);
    Act();
    EXPECT_EQ(journal, (Journal{"Advanced KILLACTIVE", "General APPLY ok", "Advanced APPLY ok"}));
    // A modeless sheet stays until its host destroys it, with no page.
    EXPECT_TRUE(IsWindow(sheet));
    EXPECT_EQ(Current(), nullptr);
}

TEST_F(SheetApiTest, APageThatRejectsItsChangesKeepsTheSheetOpenOnThatPage) {
    general.answers[PSN_APPLY] = PSNRET_INVALID;
    ASSERT_NE(OpenModeless(), nullptr);
    automation::ClickTab(1);
    automation::Click(IDOK);
    Act();
    EXPECT_EQ(Current(), general.hwnd);
    EXPECT_EQ(SendMessage(Tab(), TCM_GETCURSEL, 0, 0), 0);
}

TEST_F(SheetApiTest, ApplyWaitsForAChangeAndLeavesTheSheetOpen) {
    ASSERT_NE(OpenModeless(), nullptr);
    HWND apply = GetDlgItem(sheet, ID_APPLY_NOW);
    SendMessage(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(general.hwnd), 0);
    EXPECT_TRUE(IsWindowEnabled(apply));
    journal.clear();
    automation::Click(ID_APPLY_NOW);
    Act();
    EXPECT_EQ(journal, (Journal{"General KILLACTIVE", "General APPLY apply", "General SETACTIVE"}));
    EXPECT_FALSE(IsWindowEnabled(apply));
    EXPECT_EQ(Current(), general.hwnd);
    // A change taken back disables it again.
    SendMessage(sheet, PSM_CHANGED, reinterpret_cast<WPARAM>(general.hwnd), 0);
    SendMessage(sheet, PSM_UNCHANGED, reinterpret_cast<WPARAM>(general.hwnd), 0);
    EXPECT_FALSE(IsWindowEnabled(apply));
}

TEST_F(SheetApiTest, CancelAsksTheCurrentPageThenResetsEveryPage) {
    advanced.answers[PSN_QUERYCANCEL] = TRUE;
    ASSERT_NE(OpenModeless(), nullptr);
    automation::ClickTab(1);
    Act();
    journal.clear();
    automation::Click(IDCANCEL);
    Act();
    EXPECT_EQ(journal, (Journal{"Advanced QUERYCANCEL"}));
    EXPECT_NE(Current(), nullptr);
    advanced.answers[PSN_QUERYCANCEL] = FALSE;
    journal.clear();
    automation::Click(IDCANCEL);
    Act();
    EXPECT_EQ(journal, (Journal{"Advanced QUERYCANCEL", "General RESET", "Advanced RESET"}));
    EXPECT_EQ(Current(), nullptr);
}

TEST_F(SheetApiTest, AModalSheetReturnsOneForOkAndZeroForCancel) {
    PROPSHEETHEADERW header = Header();
    automation::ClickTab(1);
    automation::Click(IDOK);
    EXPECT_EQ(PropertySheet(&header), 1);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 0);
    journal.clear();
    header = Header();
    automation::Click(IDCANCEL);
    EXPECT_EQ(PropertySheet(&header), 0);
    // Nobody left to act: the sheet is cancelled as the user would.
    header = Header();
    EXPECT_EQ(PropertySheet(&header), 0);
    EXPECT_EQ(automation::CancelsForWantOfActions(), 1);
}

TEST_F(SheetApiTest, CtrlTabAndTheTabKeyMoveThroughPagesAndTheirControls) {
    ASSERT_NE(OpenModeless(), nullptr);
    ASSERT_EQ(GetFocus(), GetDlgItem(general.hwnd, IDC_NAME));
    MSG msg{GetFocus(), WM_KEYDOWN, VK_TAB, 1, 0, POINT{0, 0}};
    // Tab goes on to the page's next control, then to the sheet's controls.
    EXPECT_TRUE(SendMessage(sheet, PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&msg)));
    EXPECT_EQ(GetFocus(), GetDlgItem(general.hwnd, IDC_VERBOSE));
    msg.hwnd = GetFocus();
    SendMessage(sheet, PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&msg));
    EXPECT_EQ(GetFocus(), Tab());
    DestroyWindow(sheet);
    // Ctrl+Tab, in the modal sheet's loop, shows the next page; with Shift,
    // the previous one, round to the last.
    PROPSHEETHEADERW header = Header();
    std::vector<int> shown;
    auto note = [&shown] {
        HWND active = GetActiveWindow();
        HWND tab = reinterpret_cast<HWND>(SendMessage(active, PSM_GETTABCONTROL, 0, 0));
        shown.push_back(static_cast<int>(SendMessage(tab, TCM_GETCURSEL, 0, 0)));
    };
    automation::Key(VK_TAB, false, true);
    automation::Do(note);
    automation::Key(VK_TAB, true, true);
    automation::Key(VK_TAB, true, true);
    automation::Do(note);
    automation::Click(IDOK);
    EXPECT_EQ(PropertySheet(&header), 1);
    EXPECT_EQ(shown, (std::vector<int>{1, 2}));
}

TEST_F(SheetApiTest, PressButtonClicksOnlyAButtonThatCanBePressed) {
    ASSERT_NE(OpenModeless(), nullptr);
    EXPECT_FALSE(SendMessage(sheet, PSM_PRESSBUTTON, PSBTN_APPLYNOW, 0));
    EXPECT_FALSE(SendMessage(sheet, PSM_PRESSBUTTON, PSBTN_NEXT, 0));
    EXPECT_FALSE(SendMessage(sheet, PSM_PRESSBUTTON, 99, 0));
    EXPECT_TRUE(SendMessage(sheet, PSM_PRESSBUTTON, PSBTN_OK, 0));
    // The click comes as the user's would, once the message is done.
    EXPECT_NE(Current(), nullptr);
    platform::PumpMessages();
    EXPECT_EQ(Current(), nullptr);
}

TEST_F(SheetApiTest, PagesAreFoundByWindowHandleTemplateAndIndex) {
    ASSERT_NE(OpenModeless(), nullptr);
    EXPECT_EQ(SendMessage(sheet, PSM_HWNDTOINDEX, reinterpret_cast<WPARAM>(general.hwnd), 0), 0);
    EXPECT_EQ(SendMessage(sheet, PSM_PAGETOINDEX, 0, reinterpret_cast<LPARAM>(pages[2])), 2);
    EXPECT_EQ(SendMessage(sheet, PSM_INDEXTOPAGE, 1, 0), reinterpret_cast<LRESULT>(pages[1]));
    LRESULT id = SendMessage(sheet, PSM_INDEXTOID, 1, 0);
    EXPECT_EQ(id, reinterpret_cast<LRESULT>(Template(IDD_ADVANCED)));
    EXPECT_EQ(SendMessage(sheet, PSM_IDTOINDEX, 0, id), 1);
    EXPECT_TRUE(SendMessage(sheet, PSM_SETCURSELID, 0, id));
    EXPECT_EQ(Current(), advanced.hwnd);
    EXPECT_EQ(SendMessage(sheet, PSM_INDEXTOHWND, 7, 0), 0);
}

TEST_F(SheetApiTest, PagesCanBeAddedAndRemovedWhileTheSheetIsOpen) {
    ASSERT_NE(OpenModeless(), nullptr);
    PageScript extra{"Extra", &journal, {}, nullptr};
    HPROPSHEETPAGE handle = MakePage(IDD_ADVANCED, &extra, u"Extra");
    EXPECT_TRUE(SendMessage(sheet, PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(handle)));
    EXPECT_EQ(SendMessage(Tab(), TCM_GETITEMCOUNT, 0, 0), 4);
    EXPECT_EQ(TabText(Tab(), 3), u"Extra");
    // Removing the current page shows the next one.
    SendMessage(sheet, PSM_REMOVEPAGE, 0, 0);
    EXPECT_FALSE(IsWindow(general.hwnd));
    EXPECT_EQ(SendMessage(Tab(), TCM_GETITEMCOUNT, 0, 0), 3);
    EXPECT_EQ(Current(), advanced.hwnd);
    EXPECT_EQ(SendMessage(Tab(), TCM_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(TabText(Tab(), 0), u"Advanced");
}

// A page handle's callback counts what it was told.
int g_created = 0;
int g_released = 0;
UINT CountingCallback(HWND, UINT message, PROPSHEETPAGEW*) {
    if (message == PSPCB_CREATE)
        ++g_created;
    if (message == PSPCB_RELEASE)
        ++g_released;
    return 1;
}

TEST_F(SheetApiTest, AMissingTemplateFailsTheSheetAndReleasesEveryPage) {
    g_created = g_released = 0;
    PROPSHEETPAGEW good{};
    good.dwSize = sizeof(good);
    good.dwFlags = PSP_DLGINDIRECT | PSP_USECALLBACK;
    good.pResource = Template(IDD_GENERAL);
    good.pfnDlgProc = ScriptedPageProc;
    good.lParam = reinterpret_cast<LPARAM>(&general);
    good.pfnCallback = CountingCallback;
    PROPSHEETPAGEW missing = good;
    missing.dwFlags = PSP_USECALLBACK;
    missing.pszTemplate = MAKEINTRESOURCE(4242);
    HPROPSHEETPAGE handles[] = {CreatePropertySheetPage(&good), CreatePropertySheetPage(&missing)};
    PROPSHEETHEADERW header{};
    header.dwSize = sizeof(header);
    header.nPages = 2;
    header.phpage = handles;
    EXPECT_EQ(PropertySheet(&header), -1);
    EXPECT_EQ(g_created, 0);
    EXPECT_EQ(g_released, 2);
    EXPECT_TRUE(journal.empty());
}

TEST_F(SheetApiTest, PagesGivenAsStructuresAndAStartPageByTitle) {
    PROPSHEETPAGEW structures[2]{};
    PageScript* scripts[] = {&general, &advanced};
    UINT templates[] = {IDD_GENERAL, IDD_ADVANCED};
    for (int i = 0; i < 2; ++i) {
        structures[i].dwSize = sizeof(PROPSHEETPAGEW);
        structures[i].dwFlags = PSP_DLGINDIRECT;
        structures[i].pResource = Template(templates[i]);
        structures[i].pfnDlgProc = ScriptedPageProc;
        structures[i].lParam = reinterpret_cast<LPARAM>(scripts[i]);
    }
    PROPSHEETHEADERW header{};
    header.dwSize = sizeof(header);
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_USEPSTARTPAGE | PSH_MODELESS | PSH_NOAPPLYNOW;
    header.nPages = 2;
    header.ppsp = structures;
    header.pStartPage = u"Advanced";
    sheet = reinterpret_cast<HWND>(PropertySheet(&header));
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(journal, (Journal{"Advanced INIT", "Advanced SETACTIVE"}));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(sheet, ID_APPLY_NOW)));
    // The sheet has its own copies: the caller's structures may go.
    structures[0].lParam = 0;
    EXPECT_TRUE(SendMessage(sheet, PSM_SETCURSEL, 0, 0));
    EXPECT_EQ(Current(), general.hwnd);
}

TEST_F(SheetApiTest, BadRequestsAreRefused) {
    EXPECT_EQ(PropertySheet(nullptr), -1);
    PROPSHEETHEADERW header{};
    header.dwSize = sizeof(header);
    EXPECT_EQ(PropertySheet(&header), -1); // no pages
    header.dwFlags = PSH_MODELESS;
    EXPECT_EQ(PropertySheet(&header), 0);
    header.dwSize = 4;
    EXPECT_EQ(PropertySheet(&header), -1);
    PROPSHEETPAGEW tooSmall{};
    tooSmall.dwSize = 8;
    EXPECT_EQ(CreatePropertySheetPage(&tooSmall), nullptr);
    EXPECT_EQ(CreatePropertySheetPage(nullptr), nullptr);
    EXPECT_FALSE(DestroyPropertySheetPage(nullptr));
}

} // namespace
