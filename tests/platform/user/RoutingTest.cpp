// Message maps: window messages reach the most derived handler, control
// notifications are reflected to the control first, menu commands ask their
// update handler, and a window's own data exchange silences its controls.
#include <afxwin.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> g_calls;

constexpr UINT kButtonId = 101;
constexpr UINT kCommandId = 0x8001;
constexpr UINT kDisabledCommandId = 0x8002;

class Parent : public CWnd {
public:
    void OnButton() { g_calls.push_back("parent clicked"); }
    void OnCommandA() { g_calls.push_back("command"); }
    void OnDisabledCommand() { g_calls.push_back("disabled command ran"); }
    void OnUpdateDisabled(CCmdUI* ui) { ui->Enable(FALSE); }
    void OnRange(UINT id) { g_calls.push_back("range " + std::to_string(id)); }
    LRESULT OnUser(WPARAM w, LPARAM) {
        g_calls.push_back("user " + std::to_string(w));
        return static_cast<LRESULT>(w) + 1;
    }
    void OnSize(UINT, int cx, int cy) {
        g_calls.push_back("size " + std::to_string(cx) + "x" + std::to_string(cy));
    }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Parent, CWnd)
ON_BN_CLICKED(kButtonId, OnButton)
ON_COMMAND(kCommandId, OnCommandA)
ON_COMMAND(kDisabledCommandId, OnDisabledCommand)
ON_UPDATE_COMMAND_UI(kDisabledCommandId, OnUpdateDisabled)
ON_COMMAND_RANGE(0x9000, 0x9010, OnRange)
ON_MESSAGE(WM_USER + 5, OnUser)
ON_WM_SIZE()
END_MESSAGE_MAP()

// A derived window whose own map comes first and whose base map still works.
class DerivedParent : public Parent {
public:
    LRESULT OnUserAgain(WPARAM, LPARAM) {
        g_calls.push_back("derived user");
        return 99;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(DerivedParent, Parent)
ON_MESSAGE(WM_USER + 5, OnUserAgain)
END_MESSAGE_MAP()

// A button that takes its own click; with handleAll false it lets the parent
// see the click too.
class SelfHandlingButton : public CWnd {
public:
    BOOL handleAll = TRUE;
    BOOL OnReflectedClick() {
        g_calls.push_back("button took click");
        return handleAll;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(SelfHandlingButton, CWnd)
ON_CONTROL_REFLECT_EX(BN_CLICKED, OnReflectedClick)
END_MESSAGE_MAP()

class RoutingTest : public ::testing::Test {
protected:
    void SetUp() override { g_calls.clear(); }
    void TearDown() override {
        if (parent.m_hWnd)
            parent.DestroyWindow();
        platform::PumpMessages();
    }
    void CreateParent(Parent& window) {
        ASSERT_TRUE(window.CreateEx(0, nullptr, u"parent", WS_OVERLAPPED | WS_VISIBLE,
                                    CRect(0, 0, 300, 200), nullptr, 0));
        // The size the window was created with reached OnSize already.
        EXPECT_EQ(g_calls.back(), "size 300x200");
        g_calls.clear();
    }
    void Click(HWND button) {
        ::SendMessage(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        ::SendMessage(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    Parent parent;
};

TEST_F(RoutingTest, ControlNotificationsReachTheParentsMap) {
    CreateParent(parent);
    CWnd button;
    ASSERT_TRUE(button.Create(u"BUTTON", u"Go", WS_CHILD | WS_VISIBLE, CRect(10, 10, 80, 40),
                              &parent, kButtonId));
    Click(button);
    EXPECT_EQ(g_calls, std::vector<std::string>{"parent clicked"});
}

TEST_F(RoutingTest, AReflectedHandlerHidesTheNotificationFromTheParent) {
    CreateParent(parent);
    SelfHandlingButton button;
    ASSERT_TRUE(button.Create(u"BUTTON", u"Go", WS_CHILD | WS_VISIBLE, CRect(10, 10, 80, 40),
                              &parent, kButtonId));
    Click(button);
    EXPECT_EQ(g_calls, std::vector<std::string>{"button took click"});

    g_calls.clear();
    button.handleAll = FALSE;
    Click(button);
    EXPECT_EQ(g_calls, (std::vector<std::string>{"button took click", "parent clicked"}));
}

TEST_F(RoutingTest, MenuCommandsAskTheirUpdateHandlerFirst) {
    CreateParent(parent);
    parent.SendMessage(WM_COMMAND, kCommandId, 0);
    parent.SendMessage(WM_COMMAND, kDisabledCommandId, 0);
    parent.SendMessage(WM_COMMAND, 0x9004, 0);
    EXPECT_EQ(g_calls, (std::vector<std::string>{"command", "range 36868"}));
}

TEST_F(RoutingTest, APostedOkIsRoutedAsAMenuCommand) {
    CreateParent(parent);
    parent.PostMessage(WM_COMMAND, kCommandId, 0);
    EXPECT_TRUE(g_calls.empty());
    platform::PumpMessages();
    EXPECT_EQ(g_calls, std::vector<std::string>{"command"});
}

TEST_F(RoutingTest, WindowMessagesUseTheMostDerivedEntry) {
    CreateParent(parent);
    EXPECT_EQ(parent.SendMessage(WM_USER + 5, 7, 0), 8);
    parent.MoveWindow(0, 0, 120, 90);
    EXPECT_EQ(g_calls, (std::vector<std::string>{"user 7", "size 120x90"}));

    g_calls.clear();
    DerivedParent derived;
    CreateParent(derived);
    EXPECT_EQ(derived.SendMessage(WM_USER + 5, 7, 0), 99);
    derived.MoveWindow(0, 0, 50, 40);
    EXPECT_EQ(g_calls, (std::vector<std::string>{"derived user", "size 50x40"}));
    derived.DestroyWindow();
}

TEST_F(RoutingTest, UnhandledMessagesGoToTheWindowsOwnProcedure) {
    CreateParent(parent);
    CWnd button;
    ASSERT_TRUE(button.Create(u"BUTTON", u"Check", WS_CHILD | WS_VISIBLE | 3 /* auto check */,
                              CRect(10, 10, 80, 40), &parent, kButtonId));
    // The object has no handler for these: the button class answers.
    EXPECT_EQ(button.SendMessage(BM_GETCHECK), 0);
    Click(button);
    EXPECT_EQ(button.SendMessage(BM_GETCHECK), 1);
    CString text;
    button.GetWindowText(text);
    EXPECT_EQ(text, u"Check");
}

class ExchangingParent : public Parent {
public:
    void DoDataExchange(CDataExchange* dx) override {
        DDX_Check(dx, kButtonId, checked);
        // A click the exchange itself causes is not the user's.
        if (!dx->m_bSaveAndValidate)
            GetDlgItem(kButtonId)->SendMessage(BM_CLICK);
        g_calls.push_back("exchanged");
    }
    int checked = 1;
};

TEST_F(RoutingTest, DataExchangeSilencesTheWindowsControls) {
    ExchangingParent window;
    CreateParent(window);
    CWnd box;
    ASSERT_TRUE(box.Create(u"BUTTON", u"Box", WS_CHILD | WS_VISIBLE | 3, CRect(10, 10, 80, 40),
                           &window, kButtonId));
    EXPECT_TRUE(window.UpdateData(FALSE));
    EXPECT_EQ(box.SendMessage(BM_GETCHECK), 0);
    EXPECT_EQ(g_calls, std::vector<std::string>{"exchanged"});
    Click(box);
    EXPECT_EQ(g_calls, (std::vector<std::string>{"exchanged", "parent clicked"}));
    EXPECT_TRUE(window.UpdateData(TRUE));
    EXPECT_EQ(window.checked, 1);
    window.DestroyWindow();
}

} // namespace
