// The framework's window object over the window system: subclassing an
// existing control and giving it back, the tree seen through CWnd, centring
// over the owner, fonts, and messages to every descendant.
#include <afxwin.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class CountingWnd : public CWnd {
public:
    int seen = 0;
    std::vector<UINT> user;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        ++seen;
        if (message == WM_USER + 9)
            user.push_back(static_cast<UINT>(wParam));
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class WndTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(main.CreateEx(0, nullptr, u"Main", WS_POPUP | WS_CAPTION | WS_VISIBLE,
                                  CRect(100, 100, 500, 400), nullptr, 0));
    }
    void TearDown() override {
        main.DestroyWindow();
        platform::PumpMessages();
    }
    CWnd main;
};

TEST_F(WndTest, ASubclassedControlRoutesThroughTheObjectAndGivesItBack) {
    HWND button =
        CreateWindowEx(0, u"BUTTON", u"Go", WS_CHILD | WS_VISIBLE, 10, 10, 60, 20, main.m_hWnd,
                       reinterpret_cast<HMENU>(uintptr_t{5}), nullptr, nullptr);
    CountingWnd wrapper;
    EXPECT_FALSE(wrapper.SubclassDlgItem(6, &main));
    ASSERT_TRUE(wrapper.SubclassDlgItem(5, &main));
    EXPECT_EQ(CWnd::FromHandlePermanent(button), &wrapper);
    // Messages go through the object; what it does not handle still reaches
    // the button's own procedure.
    wrapper.SetWindowText(u"Stop");
    CString text;
    wrapper.GetWindowText(text);
    EXPECT_EQ(text, u"Stop");
    EXPECT_GE(wrapper.seen, 2);
    EXPECT_EQ(wrapper.UnsubclassWindow(), button);
    int before = wrapper.seen;
    ::SetWindowText(button, u"Again");
    EXPECT_EQ(wrapper.seen, before);
    EXPECT_EQ(CWnd::FromHandlePermanent(button), nullptr);
}

TEST_F(WndTest, TheTreeThroughWindowObjects) {
    CWnd panel, field;
    ASSERT_TRUE(
        panel.Create(nullptr, u"panel", WS_CHILD | WS_VISIBLE, CRect(5, 5, 200, 150), &main, 40));
    ASSERT_TRUE(
        field.Create(u"STATIC", u"label", WS_CHILD | WS_VISIBLE, CRect(1, 1, 50, 20), &panel, 41));
    EXPECT_EQ(field.GetParent(), &panel);
    EXPECT_EQ(field.GetTopLevelParent(), &main);
    EXPECT_EQ(panel.GetDlgItem(41), &field);
    EXPECT_EQ(panel.GetWindow(GW_CHILD), &field);
    panel.SetDlgItemText(41, u"changed");
    CString text;
    EXPECT_EQ(panel.GetDlgItemText(41, text), 7);
    EXPECT_EQ(text, u"changed");
    EXPECT_EQ(panel.GetDlgItemText(99, text), 0);

    CRect rect(0, 0, 10, 10);
    field.ClientToScreen(&rect);
    CRect expected;
    field.GetWindowRect(&expected);
    EXPECT_EQ(rect.left, expected.left);
    field.ScreenToClient(&rect);
    EXPECT_EQ(rect, CRect(0, 0, 10, 10));
}

TEST_F(WndTest, APopUpCentresOverItsOwner) {
    CWnd popup;
    ASSERT_TRUE(popup.CreateEx(0, nullptr, u"Popup", WS_POPUP | WS_VISIBLE, CRect(0, 0, 100, 60),
                               &main, 0));
    EXPECT_EQ(popup.GetOwner(), &main);
    popup.CenterWindow();
    CRect outer, inner;
    main.GetWindowRect(&outer);
    popup.GetWindowRect(&inner);
    EXPECT_EQ(inner.left - outer.left, outer.right - inner.right);
    EXPECT_EQ(inner.top - outer.top, outer.bottom - inner.bottom);
    popup.DestroyWindow();
}

TEST_F(WndTest, FontsAndMessagesToDescendants) {
    CountingWnd a, b;
    ASSERT_TRUE(a.Create(nullptr, u"a", WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 50), &main, 1));
    ASSERT_TRUE(b.Create(nullptr, u"b", WS_CHILD | WS_VISIBLE, CRect(0, 0, 20, 20), &a, 2));
    main.SendMessageToDescendants(WM_USER + 9, 3, 0, FALSE);
    main.SendMessageToDescendants(WM_USER + 9, 4, 0, TRUE);
    EXPECT_EQ(a.user, (std::vector<UINT>{3, 4}));
    EXPECT_EQ(b.user, std::vector<UINT>{4});

    CWnd button;
    ASSERT_TRUE(
        button.Create(u"BUTTON", u"OK", WS_CHILD | WS_VISIBLE, CRect(0, 0, 40, 20), &main, 3));
    CFont font;
    LOGFONT lf{};
    lf.lfHeight = -11;
    ASSERT_TRUE(font.CreateFontIndirect(&lf));
    button.SetFont(&font);
    EXPECT_EQ(button.GetFont()->m_hObject, font.m_hObject);
    button.DestroyWindow();
}

} // namespace

namespace {

TEST_F(WndTest, FocusActivationAndTheEnabledStateThroughCWnd) {
    CWnd other;
    ASSERT_TRUE(other.CreateEx(WS_EX_TOOLWINDOW, nullptr, u"Other tool", WS_POPUP | WS_VISIBLE,
                               CRect(0, 0, 50, 50), nullptr, 0));
    CWnd child;
    ASSERT_TRUE(
        child.Create(nullptr, u"Child", WS_CHILD | WS_VISIBLE, CRect(10, 10, 60, 40), &main, 7));
    EXPECT_EQ(other.GetExStyle() & WS_EX_TOOLWINDOW, static_cast<DWORD>(WS_EX_TOOLWINDOW));
    EXPECT_EQ(main.GetExStyle() & WS_EX_TOOLWINDOW, 0u);
    EXPECT_EQ(other.GetWindowTextLength(), 10);

    main.SetActiveWindow();
    EXPECT_EQ(CWnd::GetActiveWindow(), &main);
    other.SetActiveWindow();
    EXPECT_EQ(CWnd::GetActiveWindow(), &other);
    EXPECT_TRUE(main.SetForegroundWindow());
    EXPECT_EQ(CWnd::GetForegroundWindow(), &main);
    main.BringWindowToTop();
    EXPECT_EQ(::GetTopWindow(nullptr), main.m_hWnd);
    other.BringWindowToTop();
    EXPECT_EQ(::GetTopWindow(nullptr), other.m_hWnd);

    child.SetFocus();
    EXPECT_EQ(CWnd::GetFocus(), &child);
    // EnableWindow answers whether the window was disabled before.
    EXPECT_FALSE(child.EnableWindow(FALSE));
    EXPECT_FALSE(child.IsWindowEnabled());
    EXPECT_NE(CWnd::GetFocus(), &child);
    EXPECT_TRUE(child.EnableWindow(TRUE));
    EXPECT_TRUE(child.IsWindowEnabled());

    // Failures: a second creation, a second attachment, a dead handle.
    EXPECT_FALSE(child.Create(nullptr, u"Again", WS_CHILD, CRect(0, 0, 1, 1), &main, 8));
    CWnd stranger;
    EXPECT_FALSE(stranger.Attach(nullptr));
    EXPECT_FALSE(stranger.Attach(child.m_hWnd));
    EXPECT_FALSE(stranger.DestroyWindow());
    HWND dead = other.m_hWnd;
    other.DestroyWindow();
    EXPECT_EQ(other.m_hWnd, nullptr);
    EXPECT_FALSE(stranger.SubclassWindow(dead));
    EXPECT_EQ(stranger.m_hWnd, nullptr);
    child.DestroyWindow();
}

TEST_F(WndTest, AChildCentresInItsParentAndAStyleChangeCanRedoTheFrame) {
    CWnd child;
    ASSERT_TRUE(
        child.Create(nullptr, u"Child", WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 50), &main, 7));
    child.CenterWindow();
    CRect parentArea;
    main.GetWindowRect(&parentArea);
    CRect mine;
    child.GetWindowRect(&mine);
    EXPECT_EQ(mine.left - parentArea.left, parentArea.right - mine.right);
    EXPECT_EQ(mine.top - parentArea.top, parentArea.bottom - mine.bottom);

    // A border added with a frame change takes its pixels from the client area.
    CRect before;
    child.GetClientRect(&before);
    EXPECT_TRUE(child.ModifyStyle(0, WS_BORDER, SWP_FRAMECHANGED));
    CRect after;
    child.GetClientRect(&after);
    EXPECT_EQ(after.Width(), before.Width() - 2);
    EXPECT_EQ(after.Height(), before.Height() - 2);
    child.DestroyWindow();
}

} // namespace
