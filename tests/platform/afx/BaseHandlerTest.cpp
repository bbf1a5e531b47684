// Handlers that call the base class's: a control subclassed by a window
// object whose map takes the mouse, keyboard, focus, paint and other messages
// and passes each on through CWnd's own handler still behaves as the control
// does, because the base handlers give the message to the control's procedure.
#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

namespace automation = platform::automation;

std::vector<std::string> g_seen;

class WatchedControl : public CWnd {
public:
    void OnChar(UINT c, UINT r, UINT f) {
        g_seen.push_back("char");
        CWnd::OnChar(c, r, f);
    }
    void OnKeyDown(UINT c, UINT r, UINT f) {
        g_seen.push_back("keydown");
        CWnd::OnKeyDown(c, r, f);
    }
    void OnKeyUp(UINT c, UINT r, UINT f) {
        g_seen.push_back("keyup");
        CWnd::OnKeyUp(c, r, f);
    }
    void OnLButtonDown(UINT flags, CPoint p) {
        g_seen.push_back("ldown");
        CWnd::OnLButtonDown(flags, p);
    }
    void OnLButtonUp(UINT flags, CPoint p) {
        g_seen.push_back("lup");
        CWnd::OnLButtonUp(flags, p);
    }
    void OnLButtonDblClk(UINT flags, CPoint p) {
        g_seen.push_back("ldouble");
        CWnd::OnLButtonDblClk(flags, p);
    }
    void OnRButtonDown(UINT flags, CPoint p) {
        g_seen.push_back("rdown");
        CWnd::OnRButtonDown(flags, p);
    }
    void OnRButtonUp(UINT flags, CPoint p) {
        g_seen.push_back("rup");
        CWnd::OnRButtonUp(flags, p);
    }
    void OnMouseMove(UINT flags, CPoint p) {
        g_seen.push_back("move");
        CWnd::OnMouseMove(flags, p);
    }
    void OnSetFocus(CWnd* old) {
        g_seen.push_back("setfocus");
        CWnd::OnSetFocus(old);
    }
    void OnKillFocus(CWnd* next) {
        g_seen.push_back("killfocus");
        CWnd::OnKillFocus(next);
    }
    UINT OnGetDlgCode() {
        g_seen.push_back("dlgcode");
        return CWnd::OnGetDlgCode();
    }
    void OnPaint() {
        g_seen.push_back("paint");
        CWnd::OnPaint();
    }
    BOOL OnEraseBkgnd(CDC* dc) {
        g_seen.push_back("erase");
        return CWnd::OnEraseBkgnd(dc);
    }
    void OnShowWindow(BOOL show, UINT status) {
        g_seen.push_back(show ? "show" : "hide");
        CWnd::OnShowWindow(show, status);
    }
    void OnTimer(UINT_PTR id) {
        g_seen.push_back("timer " + std::to_string(id));
        CWnd::OnTimer(id);
    }
    void OnClose() {
        g_seen.push_back("close");
        CWnd::OnClose();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(WatchedControl, CWnd)
ON_WM_CHAR()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_MOUSEMOVE()
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
ON_WM_GETDLGCODE()
ON_WM_PAINT()
ON_WM_ERASEBKGND()
ON_WM_SHOWWINDOW()
ON_WM_TIMER()
ON_WM_CLOSE()
END_MESSAGE_MAP()

// Counts the buttons' clicks it is told of.
class Form : public CWnd {
public:
    int clicks = 0;
    void OnClicked() { ++clicks; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Form, CWnd)
ON_BN_CLICKED(101, OnClicked)
END_MESSAGE_MAP()

void RunUser() {
    for (int guard = 0; guard < 10000; ++guard) {
        MSG msg;
        bool any = false;
        while (::PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE) && msg.message != WM_QUIT) {
            any = true;
            ::TranslateMessage(&msg);
            ::DispatchMessage(&msg);
        }
        if (!any && !automation::RunNext())
            return;
    }
}

bool Seen(const std::string& what) {
    for (const std::string& s : g_seen)
        if (s == what)
            return true;
    return false;
}

class BaseHandlerTest : public ::testing::Test {
protected:
    void SetUp() override {
        automation::Reset();
        g_seen.clear();
        ASSERT_TRUE(form.CreateEx(0, nullptr, u"Form", WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 200),
                                  nullptr, 0));
    }
    void TearDown() override {
        form.DestroyWindow();
        platform::PumpMessages();
        automation::Reset();
    }
    HWND Child(LPCTSTR cls, DWORD style, UINT id, int y) {
        return ::CreateWindowEx(0, cls, u"", WS_CHILD | WS_VISIBLE | style, 10, y, 150, 24,
                                form.m_hWnd, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)),
                                nullptr, nullptr);
    }
    Form form;
};

TEST_F(BaseHandlerTest, AnEditWhoseHandlersCallTheBaseStillTypesSelectsAndPaints) {
    HWND edit = Child(u"EDIT", ES_AUTOHSCROLL, 100, 10);
    WatchedControl watched;
    ASSERT_TRUE(watched.SubclassWindow(edit));
    ::SetFocus(edit);
    automation::Type(u"abc");
    automation::Key(VK_HOME);
    automation::Key(VK_END, true);
    RunUser();
    CString text;
    watched.GetWindowText(text);
    EXPECT_EQ(std::u16string(text.GetString()), u"abc");
    DWORD from = 9;
    DWORD to = 9;
    ::SendMessage(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0u);
    EXPECT_EQ(to, 3u);
    EXPECT_TRUE(Seen("char"));
    EXPECT_TRUE(Seen("keydown"));
    EXPECT_TRUE(Seen("keyup"));
    EXPECT_TRUE(Seen("setfocus"));

    // The edit's own answer to the dialog manager comes through.
    EXPECT_EQ(::SendMessage(edit, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL, DLGC_HASSETSEL);
    EXPECT_TRUE(Seen("dlgcode"));

    // A click puts the caret where it lands: the start of the text.
    automation::ClickAt(edit, POINT{1, 12});
    RunUser();
    ::SendMessage(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0u);
    EXPECT_EQ(to, 0u);
    EXPECT_TRUE(Seen("ldown"));
    EXPECT_TRUE(Seen("lup"));

    ::SendMessage(edit, WM_RBUTTONDOWN, 0, MAKELPARAM(2, 2));
    ::SendMessage(edit, WM_RBUTTONUP, 0, MAKELPARAM(2, 2));
    ::SendMessage(edit, WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    ::SendMessage(edit, WM_TIMER, 7, 0);
    EXPECT_TRUE(Seen("rdown"));
    EXPECT_TRUE(Seen("rup"));
    EXPECT_TRUE(Seen("move"));
    EXPECT_TRUE(Seen("timer 7"));

    // The edit still paints its text: dark pixels once it is drawn.
    g_seen.clear();
    ::InvalidateRect(edit, nullptr, TRUE);
    ::UpdateWindow(edit);
    EXPECT_TRUE(Seen("paint"));
    EXPECT_TRUE(Seen("erase"));
    HDC hdc = ::GetDC(edit);
    int dark = 0;
    for (int y = 0; y < 24; ++y)
        for (int x = 0; x < 40; ++x)
            dark += GetRValue(::GetPixel(hdc, x, y)) < 0x40 ? 1 : 0;
    ::ReleaseDC(edit, hdc);
    EXPECT_GT(dark, 10);

    // Focus leaves; hiding and closing reach the control's own handling.
    ::SetFocus(form.m_hWnd);
    EXPECT_TRUE(Seen("killfocus"));
    watched.ShowWindow(SW_HIDE);
    EXPECT_TRUE(Seen("hide"));
    EXPECT_FALSE(::IsWindowVisible(edit));
    ::SendMessage(edit, WM_CLOSE, 0, 0);
    EXPECT_TRUE(Seen("close"));
    EXPECT_FALSE(::IsWindow(edit));
    EXPECT_EQ(watched.m_hWnd, nullptr);
}

TEST_F(BaseHandlerTest, AButtonWhoseMouseHandlersCallTheBaseStillClicks) {
    HWND button = Child(u"BUTTON", BS_PUSHBUTTON, 101, 50);
    WatchedControl watched;
    ASSERT_TRUE(watched.SubclassWindow(button));
    automation::ClickAt(button, POINT{5, 5});
    RunUser();
    EXPECT_EQ(form.clicks, 1);
    // A double click is a press too: the button clicks on its release.
    ::SendMessage(button, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    ::SendMessage(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(form.clicks, 2);
    EXPECT_TRUE(Seen("ldouble"));
    watched.UnsubclassWindow();
    EXPECT_EQ(CWnd::FromHandlePermanent(button), nullptr);
    // Given back, the button's messages no longer pass through the object.
    g_seen.clear();
    ::SendMessage(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    ::SendMessage(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    EXPECT_EQ(form.clicks, 3);
    EXPECT_TRUE(g_seen.empty());
}

} // namespace
