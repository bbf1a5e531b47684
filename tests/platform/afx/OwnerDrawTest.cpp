// Owner-drawn buttons: the button's paint becomes WM_DRAWITEM to its parent,
// with the states the button is in, and the framework hands it back to the
// button object's DrawItem.
#include <afxwin.h>

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Drawn {
    UINT type, id, action, state;
    HWND item;
    RECT rect;
    bool hadDc;
};

class RecordingButton : public CButton {
public:
    explicit RecordingButton(bool makeOwnerDrawn = false) : m_make(makeOwnerDrawn) {}
    void DrawItem(LPDRAWITEMSTRUCT item) override {
        drawn.push_back(Drawn{item->CtlType, item->CtlID, item->itemAction, item->itemState,
                              item->hwndItem, item->rcItem, item->hDC != nullptr});
    }
    std::vector<Drawn> drawn;

protected:
    void PreSubclassWindow() override {
        if (m_make)
            SetButtonStyle(GetButtonStyle() | BS_OWNERDRAW);
        CButton::PreSubclassWindow();
    }

private:
    bool m_make;
};

class OwnerDrawTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(parent.CreateEx(0, nullptr, u"Parent", WS_POPUP | WS_VISIBLE,
                                    CRect(0, 0, 300, 200), nullptr, 0));
    }
    void TearDown() override { parent.DestroyWindow(); }
    static void Paint(CWnd& wnd) {
        wnd.Invalidate();
        wnd.UpdateWindow();
    }
    CWnd parent;
};

TEST_F(OwnerDrawTest, PaintingAsksTheButtonObjectWithItsStates) {
    RecordingButton button;
    ASSERT_TRUE(button.Create(u"BUTTON", u"Colour", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW,
                              CRect(10, 10, 90, 40), &parent, 321));
    Paint(button);
    ASSERT_EQ(button.drawn.size(), 1u);
    const Drawn& first = button.drawn[0];
    EXPECT_EQ(first.type, static_cast<UINT>(ODT_BUTTON));
    EXPECT_EQ(first.id, 321u);
    EXPECT_EQ(first.action, static_cast<UINT>(ODA_DRAWENTIRE));
    EXPECT_EQ(first.state, 0u);
    EXPECT_EQ(first.item, button.GetSafeHwnd());
    EXPECT_EQ(CRect(first.rect), CRect(0, 0, 80, 30));
    EXPECT_TRUE(first.hadDc);

    button.SetFocus();
    Paint(button);
    EXPECT_EQ(button.drawn.back().state, static_cast<UINT>(ODS_FOCUS));
    button.SetState(TRUE);
    Paint(button);
    EXPECT_EQ(button.drawn.back().state, static_cast<UINT>(ODS_FOCUS | ODS_SELECTED));
    button.SetState(FALSE);
    parent.SetFocus();
    button.EnableWindow(FALSE);
    Paint(button);
    EXPECT_EQ(button.drawn.back().state, static_cast<UINT>(ODS_DISABLED));
}

TEST_F(OwnerDrawTest, APressWithTheMouseIsDrawnSelected) {
    RecordingButton button;
    ASSERT_TRUE(button.Create(u"BUTTON", u"", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW,
                              CRect(10, 10, 90, 40), &parent, 322));
    button.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    button.UpdateWindow();
    ASSERT_FALSE(button.drawn.empty());
    EXPECT_EQ(button.drawn.back().state, static_cast<UINT>(ODS_SELECTED | ODS_FOCUS));
    button.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    button.UpdateWindow();
    EXPECT_EQ(button.drawn.back().state, static_cast<UINT>(ODS_FOCUS));
}

TEST_F(OwnerDrawTest, SubclassingCanMakeAPushButtonOwnerDrawn) {
    HWND plain = ::CreateWindowEx(0, u"BUTTON", u"Pick", WS_CHILD | WS_VISIBLE | BS_DEFPUSHBUTTON,
                                  10, 50, 80, 30, parent.GetSafeHwnd(),
                                  reinterpret_cast<HMENU>(323), nullptr, nullptr);
    ASSERT_TRUE(plain);
    RecordingButton button(true);
    ASSERT_TRUE(button.SubclassDlgItem(323, &parent));
    EXPECT_EQ(button.GetStyle() & BS_TYPEMASK, static_cast<DWORD>(BS_OWNERDRAW));
    EXPECT_EQ(button.GetButtonStyle(), static_cast<UINT>(BS_OWNERDRAW));
    Paint(button);
    EXPECT_EQ(button.drawn.size(), 1u);

    // Created by the object itself, the style is set before the window's
    // first message.
    RecordingButton created(true);
    ASSERT_TRUE(created.Create(u"BUTTON", u"", WS_CHILD | WS_VISIBLE, CRect(10, 90, 90, 120),
                               &parent, 324));
    EXPECT_EQ(created.GetButtonStyle(), static_cast<UINT>(BS_OWNERDRAW));
    Paint(created);
    EXPECT_EQ(created.drawn.size(), 1u);
}

TEST_F(OwnerDrawTest, AParentWithoutAnObjectLeavesTheButtonUndrawn) {
    HWND host = ::CreateWindowEx(0, u"STATIC", u"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr,
                                 nullptr, nullptr, nullptr);
    RecordingButton button;
    ASSERT_TRUE(button.Create(u"BUTTON", u"", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW,
                              CRect(0, 0, 50, 20), CWnd::FromHandle(host), 325));
    Paint(button);
    EXPECT_TRUE(button.drawn.empty());
    ::DestroyWindow(host);
}

} // namespace
