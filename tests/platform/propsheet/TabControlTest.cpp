// The tab control on its own: items, the selection, what the parent is told
// when the user changes it (and only then), hit tests and the display area,
// through its messages and the framework's CTabCtrl.
#include <afxcmn.h>
#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

namespace automation = platform::automation;

constexpr UINT kTabId = 77;

// The parent writes down the tab control's notifications and refuses a
// change of selection while g_refuse is set.
std::vector<std::string> g_told;
bool g_refuse = false;

LRESULT ParentProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFY) {
        auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header->idFrom != kTabId)
            return 0;
        int selection = static_cast<int>(SendMessage(header->hwndFrom, TCM_GETCURSEL, 0, 0));
        if (header->code == TCN_SELCHANGING) {
            g_told.push_back("changing from " + std::to_string(selection));
            return g_refuse ? TRUE : FALSE;
        }
        if (header->code == TCN_SELCHANGE)
            g_told.push_back("changed to " + std::to_string(selection));
        return 0;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class TabControlTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        g_told.clear();
        g_refuse = false;
        WNDCLASS wc{};
        wc.lpfnWndProc = ParentProc;
        wc.lpszClassName = u"TabTestParent";
        RegisterClass(&wc);
        parent = CreateWindowEx(0, u"TabTestParent", u"Tabs", WS_POPUP | WS_CAPTION | WS_VISIBLE,
                                100, 100, 400, 300, nullptr, nullptr, nullptr, nullptr);
        SetActiveWindow(parent);
        ASSERT_TRUE(tabs.Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(10, 10, 390, 250),
                                CWnd::FromHandle(parent), kTabId));
        tabs.SetFont(CFont::FromHandle(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT))));
        tabs.InsertItem(0, _T("First"));
        tabs.InsertItem(1, _T("Second"));
        tabs.InsertItem(2, _T("Third"));
    }
    void TearDown() override {
        tabs.DestroyWindow();
        DestroyWindow(parent);
        automation::Reset();
        platform::PumpMessages();
    }
    void Act() {
        while (automation::RunNext())
            platform::PumpMessages();
    }
    std::u16string Text(int index) {
        WCHAR buffer[64] = {0};
        TCITEM item{};
        item.mask = TCIF_TEXT;
        item.pszText = buffer;
        item.cchTextMax = 64;
        return tabs.GetItem(index, &item) ? std::u16string(buffer) : u"<none>";
    }
    HWND parent = nullptr;
    CTabCtrl tabs;
};

TEST_F(TabControlTest, ItemsKeepTheirTextsAndDataInOrder) {
    EXPECT_EQ(tabs.GetItemCount(), 3);
    EXPECT_EQ(tabs.GetCurSel(), 0);
    // Inserted past the end: appended.
    EXPECT_EQ(tabs.InsertItem(10, _T("Fourth")), 3);
    TCITEM item{};
    item.mask = TCIF_TEXT | TCIF_PARAM;
    item.pszText = const_cast<LPWSTR>(u"Zero");
    item.lParam = 42;
    EXPECT_EQ(tabs.InsertItem(0, &item), 0);
    // The selection stays with its tab.
    EXPECT_EQ(tabs.GetCurSel(), 1);
    EXPECT_EQ(Text(0), u"Zero");
    EXPECT_EQ(Text(4), u"Fourth");
    TCITEM read{};
    read.mask = TCIF_PARAM;
    ASSERT_TRUE(tabs.GetItem(0, &read));
    EXPECT_EQ(read.lParam, 42);
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<LPWSTR>(u"Renamed");
    EXPECT_TRUE(tabs.SetItem(2, &item));
    EXPECT_EQ(Text(2), u"Renamed");
    EXPECT_TRUE(tabs.DeleteItem(1));
    EXPECT_EQ(tabs.GetCurSel(), -1);
    EXPECT_FALSE(tabs.DeleteItem(9));
    EXPECT_FALSE(tabs.SetItem(-1, &item));
    EXPECT_EQ(Text(7), u"<none>");
    EXPECT_TRUE(tabs.DeleteAllItems());
    EXPECT_EQ(tabs.GetItemCount(), 0);
}

TEST_F(TabControlTest, TextIsCutToTheCallersBuffer) {
    WCHAR buffer[4] = {u'x', u'x', u'x', u'x'};
    TCITEM item{};
    item.mask = TCIF_TEXT;
    item.pszText = buffer;
    item.cchTextMax = 4;
    ASSERT_TRUE(tabs.GetItem(1, &item));
    EXPECT_EQ(std::u16string(buffer), u"Sec");
}

TEST_F(TabControlTest, TheUsersClickAsksTheParentAndSetCurSelDoesNot) {
    EXPECT_EQ(tabs.SetCurSel(2), 0);
    EXPECT_TRUE(g_told.empty());
    EXPECT_EQ(tabs.SetCurSel(5), -1);
    EXPECT_EQ(tabs.GetCurSel(), 2);
    automation::ClickTab(1);
    Act();
    EXPECT_EQ(g_told, (std::vector<std::string>{"changing from 2", "changed to 1"}));
    EXPECT_EQ(tabs.GetCurSel(), 1);
    // The tab takes the focus only with TCS_FOCUSONBUTTONDOWN.
    EXPECT_NE(GetFocus(), tabs.m_hWnd);
    g_told.clear();
    g_refuse = true;
    automation::ClickTab(0);
    Act();
    EXPECT_EQ(g_told, (std::vector<std::string>{"changing from 1"}));
    EXPECT_EQ(tabs.GetCurSel(), 1);
    // A click on the selected tab or beside the tabs changes nothing.
    g_told.clear();
    g_refuse = false;
    automation::ClickTab(1);
    automation::ClickAt(tabs.m_hWnd, POINT{370, 5});
    Act();
    EXPECT_TRUE(g_told.empty());
    automation::ClickTab(9);
    Act();
    EXPECT_EQ(automation::Record().back(), "tab click 9: no such tab");
}

TEST_F(TabControlTest, ArrowKeysMoveTheSelectionAsTheUserWould) {
    tabs.SetFocus();
    automation::Key(VK_RIGHT);
    automation::Key(VK_RIGHT);
    automation::Key(VK_RIGHT);
    Act();
    EXPECT_EQ(tabs.GetCurSel(), 2);
    EXPECT_EQ(g_told, (std::vector<std::string>{"changing from 0", "changed to 1",
                                                "changing from 1", "changed to 2"}));
    automation::Key(VK_LEFT);
    Act();
    EXPECT_EQ(tabs.GetCurSel(), 1);
    EXPECT_EQ(tabs.SendMessage(WM_GETDLGCODE), DLGC_WANTARROWS);
}

TEST_F(TabControlTest, HitTestsAndItemRectanglesAgree) {
    CRect first, second;
    ASSERT_TRUE(tabs.GetItemRect(0, &first));
    ASSERT_TRUE(tabs.GetItemRect(1, &second));
    EXPECT_EQ(first.right, second.left);
    EXPECT_GT(first.Width(), 20);
    EXPECT_FALSE(tabs.GetItemRect(3, &first));
    TCHITTESTINFO hit{};
    hit.pt = CPoint(second.CenterPoint());
    EXPECT_EQ(tabs.HitTest(&hit), 1);
    EXPECT_EQ(hit.flags, static_cast<UINT>(TCHT_ONITEMLABEL));
    hit.pt = CPoint(200, 150);
    EXPECT_EQ(tabs.HitTest(&hit), -1);
    EXPECT_EQ(hit.flags, static_cast<UINT>(TCHT_NOWHERE));
}

TEST_F(TabControlTest, TheDisplayAreaLiesBelowTheTabsAndMapsBack) {
    CRect client;
    tabs.GetClientRect(&client);
    CRect display = client;
    tabs.AdjustRect(FALSE, &display);
    CRect item;
    tabs.GetItemRect(0, &item);
    EXPECT_GT(display.top, item.bottom);
    EXPECT_GT(display.left, client.left);
    EXPECT_LT(display.right, client.right);
    EXPECT_LT(display.bottom, client.bottom);
    tabs.AdjustRect(TRUE, &display);
    EXPECT_EQ(display, client);
}

} // namespace
