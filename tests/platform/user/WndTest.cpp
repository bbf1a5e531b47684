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
