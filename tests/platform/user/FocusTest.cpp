// Focus, activation, the enabled state and the z-order of the headless
// desktop.
#include <afxwin.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> g_log;

std::string NameOf(HWND hwnd) {
    char16_t name[32] = {};
    GetWindowText(hwnd, name, 32);
    std::string who;
    for (char16_t* p = name; *p; ++p)
        who += static_cast<char>(*p);
    return who;
}

LRESULT FocusLoggingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    bool logged = message == WM_SETFOCUS || message == WM_KILLFOCUS || message == WM_ACTIVATE ||
                  message == WM_ENABLE;
    std::string who = logged ? NameOf(hwnd) : std::string();
    switch (message) {
    case WM_SETFOCUS:
        g_log.push_back("setfocus " + who);
        break;
    case WM_KILLFOCUS:
        g_log.push_back("killfocus " + who);
        break;
    case WM_ACTIVATE:
        g_log.push_back(std::string(LOWORD(wParam) ? "activate " : "deactivate ") + who);
        break;
    case WM_ENABLE:
        g_log.push_back(std::string(wParam ? "enable " : "disable ") + who);
        break;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class FocusTest : public ::testing::Test {
protected:
    void SetUp() override {
        WNDCLASS wc{};
        wc.lpfnWndProc = FocusLoggingProc;
        wc.lpszClassName = u"FocusLogging";
        RegisterClass(&wc);
        g_log.clear();
    }
    void TearDown() override {
        for (HWND hwnd : created)
            if (IsWindow(hwnd))
                DestroyWindow(hwnd);
        platform::PumpMessages();
    }
    HWND Top(const char16_t* name, HWND owner = nullptr) {
        HWND hwnd = CreateWindowEx(0, u"FocusLogging", name, WS_POPUP | WS_VISIBLE, 0, 0, 100, 100,
                                   owner, nullptr, nullptr, nullptr);
        created.push_back(hwnd);
        return hwnd;
    }
    HWND Child(HWND parent, const char16_t* name, UINT id) {
        HWND hwnd =
            CreateWindowEx(0, u"FocusLogging", name, WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent,
                           reinterpret_cast<HMENU>(static_cast<uintptr_t>(id)), nullptr, nullptr);
        created.push_back(hwnd);
        return hwnd;
    }
    std::vector<HWND> created;
};

TEST_F(FocusTest, FocusMovesWithKillBeforeSetAndActivatesTheTopLevelWindow) {
    HWND a = Top(u"A");
    HWND b = Top(u"B");
    EXPECT_EQ(GetActiveWindow(), b);
    HWND a1 = Child(a, u"a1", 1);
    g_log.clear();
    EXPECT_EQ(SetFocus(a1), b);
    EXPECT_EQ(GetFocus(), a1);
    EXPECT_EQ(GetActiveWindow(), a);
    EXPECT_EQ(GetForegroundWindow(), a);
    EXPECT_EQ(g_log, (std::vector<std::string>{"deactivate B", "activate A", "killfocus B",
                                               "setfocus a1"}));
    // The newly active window is on top of the z-order.
    EXPECT_EQ(GetTopWindow(nullptr), a);
}

TEST_F(FocusTest, DisablingOrHidingTheFocusedWindowLeavesNoFocusInside) {
    HWND a = Top(u"A");
    HWND a1 = Child(a, u"a1", 1);
    SetFocus(a1);
    g_log.clear();
    EXPECT_FALSE(EnableWindow(a1, FALSE));
    EXPECT_EQ(GetFocus(), nullptr);
    EXPECT_FALSE(IsWindowEnabled(a1));
    EXPECT_EQ(g_log, (std::vector<std::string>{"killfocus a1", "disable a1"}));
    EXPECT_TRUE(EnableWindow(a1, TRUE));

    SetFocus(a1);
    ShowWindow(a1, SW_HIDE);
    EXPECT_EQ(GetFocus(), a);
}

TEST_F(FocusTest, DestroyingTheActiveWindowActivatesItsOwner) {
    HWND main = Top(u"main");
    HWND dialog = Top(u"dialog", main);
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), main);
    EXPECT_EQ(GetParent(dialog), main);
    EXPECT_EQ(GetActiveWindow(), dialog);
    DestroyWindow(dialog);
    EXPECT_EQ(GetActiveWindow(), main);
}

TEST_F(FocusTest, DestroyingAnOwnerDestroysWhatItOwns) {
    HWND main = Top(u"main");
    HWND owned = Top(u"owned", main);
    DestroyWindow(main);
    EXPECT_FALSE(IsWindow(owned));
}

TEST_F(FocusTest, ChildrenKeepCreationOrderAndTopLevelWindowsStackNewestFirst) {
    HWND a = Top(u"A");
    HWND c1 = Child(a, u"c1", 1);
    HWND c2 = Child(a, u"c2", 2);
    HWND c3 = Child(a, u"c3", 3);
    EXPECT_EQ(GetWindow(a, GW_CHILD), c1);
    EXPECT_EQ(GetWindow(c1, GW_HWNDNEXT), c2);
    EXPECT_EQ(GetWindow(c3, GW_HWNDPREV), c2);
    EXPECT_EQ(GetDlgItem(a, 3), c3);
    EXPECT_EQ(GetDlgItem(a, 4), nullptr);

    SetWindowPos(c3, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(GetWindow(a, GW_CHILD), c3);
    SetWindowPos(c3, c2, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    EXPECT_EQ(GetWindow(c2, GW_HWNDNEXT), c3);

    HWND b = Top(u"B");
    EXPECT_EQ(GetTopWindow(nullptr), b);
    BringWindowToTop(a);
    EXPECT_EQ(GetTopWindow(nullptr), a);
}

TEST_F(FocusTest, SetWindowPosMovesSizesAndShows) {
    HWND a = Top(u"A");
    HWND c = CreateWindowEx(0, u"FocusLogging", u"c", WS_CHILD, 0, 0, 10, 10, a, nullptr, nullptr,
                            nullptr);
    created.push_back(c);
    SetWindowPos(c, nullptr, 5, 6, 70, 80, SWP_NOZORDER | SWP_SHOWWINDOW);
    RECT rect;
    GetClientRect(c, &rect);
    EXPECT_EQ(rect.right, 70);
    EXPECT_EQ(rect.bottom, 80);
    EXPECT_TRUE(IsWindowVisible(c));
    SetWindowPos(c, nullptr, 0, 0, 0, 0, SWP_NOZORDER | SWP_NOMOVE | SWP_NOSIZE | SWP_HIDEWINDOW);
    EXPECT_FALSE(IsWindowVisible(c));
}

TEST_F(FocusTest, WindowSlotsAndStyles) {
    HWND a = Top(u"A");
    EXPECT_EQ(SetWindowLongPtr(a, GWLP_USERDATA, 42), 0);
    EXPECT_EQ(GetWindowLongPtr(a, GWLP_USERDATA), 42);
    CWnd* wnd = CWnd::FromHandle(a);
    EXPECT_TRUE(wnd->ModifyStyle(0, WS_BORDER));
    EXPECT_TRUE(wnd->GetStyle() & WS_BORDER);
    EXPECT_TRUE(wnd->GetStyle() & WS_VISIBLE);
    EXPECT_FALSE(wnd->ModifyStyle(0, WS_BORDER));
}

} // namespace
