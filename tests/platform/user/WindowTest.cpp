// The headless window system: the window tree and geometry, messages sent and
// posted, invalidation, WM_PAINT through the pump, and CWnd's routing.
#include <afxwin.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> g_log;

LRESULT LoggingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        g_log.push_back("create");
        break;
    case WM_DESTROY:
        g_log.push_back("destroy");
        break;
    case WM_USER:
        g_log.push_back("user " + std::to_string(wParam));
        return static_cast<LRESULT>(wParam * 2);
    case WM_PAINT:
        g_log.push_back("paint");
        break;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class WindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        g_log.clear();
        WNDCLASS wc{};
        wc.lpfnWndProc = LoggingProc;
        wc.lpszClassName = u"TestLogging";
        RegisterClass(&wc);
    }
    void TearDown() override {
        for (HWND hwnd : created)
            if (IsWindow(hwnd))
                DestroyWindow(hwnd);
        platform::PumpMessages();
        MSG msg;
        while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
        }
    }
    HWND Create(HWND parent, int x, int y, int cx, int cy, DWORD style = WS_VISIBLE) {
        HWND hwnd = CreateWindowEx(0, u"TestLogging", u"test", style | (parent ? WS_CHILD : 0), x,
                                   y, cx, cy, parent, nullptr, nullptr, nullptr);
        created.push_back(hwnd);
        return hwnd;
    }
    std::vector<HWND> created;
};

TEST_F(WindowTest, TreeAndGeometry) {
    HWND top = Create(nullptr, 100, 50, 400, 300);
    HWND child = Create(top, 10, 20, 200, 100);
    ASSERT_TRUE(IsWindow(top));
    ASSERT_TRUE(IsWindow(child));
    EXPECT_EQ(GetParent(child), top);
    EXPECT_EQ(GetParent(top), nullptr);
    EXPECT_TRUE(IsChild(top, child));
    RECT rect;
    GetClientRect(child, &rect);
    EXPECT_EQ(rect.right, 200);
    EXPECT_EQ(rect.bottom, 100);
    GetWindowRect(child, &rect);
    EXPECT_EQ(rect.left, 110);
    EXPECT_EQ(rect.top, 70);
    POINT point{5, 5};
    ClientToScreen(child, &point);
    EXPECT_EQ(point.x, 115);
    EXPECT_EQ(point.y, 75);
    EXPECT_FALSE(
        CreateWindowEx(0, u"NoSuchClass", u"", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr));
    EXPECT_FALSE(CreateWindowEx(0, u"TestLogging", u"", WS_CHILD, 0, 0, 1, 1, nullptr, nullptr,
                                nullptr, nullptr));
}

TEST_F(WindowTest, DestroyingAParentDestroysItsChildrenAndTheirMessages) {
    HWND top = Create(nullptr, 0, 0, 100, 100);
    HWND child = Create(top, 0, 0, 10, 10);
    PostMessage(child, WM_USER, 7, 0);
    g_log.clear();
    EXPECT_TRUE(DestroyWindow(top));
    EXPECT_FALSE(IsWindow(top));
    EXPECT_FALSE(IsWindow(child));
    EXPECT_EQ(g_log, (std::vector<std::string>{"destroy", "destroy"}));
    MSG msg;
    EXPECT_FALSE(PeekMessage(&msg, nullptr, WM_USER, WM_USER, PM_REMOVE));
    EXPECT_FALSE(DestroyWindow(top));
    EXPECT_EQ(SendMessage(top, WM_USER, 1, 0), 0);
    EXPECT_FALSE(PostMessage(top, WM_USER, 1, 0));
}

TEST_F(WindowTest, SentMessagesRunAtOncePostedOnesInOrder) {
    HWND hwnd = Create(nullptr, 0, 0, 50, 50, 0);
    g_log.clear();
    EXPECT_EQ(SendMessage(hwnd, WM_USER, 21, 0), 42);
    EXPECT_EQ(g_log, std::vector<std::string>{"user 21"});
    PostMessage(hwnd, WM_USER, 1, 0);
    PostMessage(hwnd, WM_USER, 2, 0);
    PostMessage(hwnd, WM_USER, 3, 0);
    EXPECT_EQ(g_log.size(), 1u);
    EXPECT_EQ(platform::PumpMessages(), 3);
    EXPECT_EQ(g_log, (std::vector<std::string>{"user 21", "user 1", "user 2", "user 3"}));
}

TEST_F(WindowTest, QuitEndsGetMessageAfterPostedMessages) {
    HWND hwnd = Create(nullptr, 0, 0, 50, 50, 0);
    PostMessage(hwnd, WM_USER, 1, 0);
    PostQuitMessage(5);
    MSG msg;
    EXPECT_TRUE(GetMessage(&msg, nullptr, 0, 0));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_USER));
    EXPECT_FALSE(GetMessage(&msg, nullptr, 0, 0));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(msg.wParam, 5u);
    // Nothing left and nothing that could arrive: GetMessage ends the loop too.
    EXPECT_FALSE(GetMessage(&msg, nullptr, 0, 0));
}

TEST_F(WindowTest, InvalidationGivesOnePaintOnceNothingElseIsPending) {
    HWND hwnd = Create(nullptr, 0, 0, 200, 100);
    platform::PumpMessages();
    g_log.clear();
    RECT a{10, 10, 20, 20};
    RECT b{50, 5, 60, 15};
    for (int i = 0; i < 100; ++i)
        InvalidateRect(hwnd, i % 2 ? &a : &b, FALSE);
    PostMessage(hwnd, WM_USER, 9, 0);
    RECT update;
    EXPECT_TRUE(GetUpdateRect(hwnd, &update, FALSE));
    EXPECT_EQ(update.left, 10);
    EXPECT_EQ(update.top, 5);
    EXPECT_EQ(update.right, 60);
    EXPECT_EQ(update.bottom, 20);
    EXPECT_EQ(platform::PumpMessages(), 2);
    EXPECT_EQ(g_log, (std::vector<std::string>{"user 9", "paint"}));
    EXPECT_FALSE(GetUpdateRect(hwnd, &update, FALSE));
}

TEST_F(WindowTest, HiddenWindowsAreNotPaintedUntilShown) {
    HWND hwnd = Create(nullptr, 0, 0, 200, 100, 0);
    InvalidateRect(hwnd, nullptr, TRUE);
    g_log.clear();
    EXPECT_EQ(platform::PumpMessages(), 0);
    ShowWindow(hwnd, SW_SHOW);
    EXPECT_TRUE(IsWindowVisible(hwnd));
    platform::PumpMessages();
    EXPECT_EQ(g_log, std::vector<std::string>{"paint"});
}

TEST_F(WindowTest, UpdateWindowPaintsAtOnceAndOnlyWhenNeeded) {
    HWND hwnd = Create(nullptr, 0, 0, 200, 100);
    platform::PumpMessages();
    g_log.clear();
    UpdateWindow(hwnd);
    EXPECT_TRUE(g_log.empty());
    InvalidateRect(hwnd, nullptr, FALSE);
    UpdateWindow(hwnd);
    EXPECT_EQ(g_log, std::vector<std::string>{"paint"});
    EXPECT_EQ(platform::PumpMessages(), 0);
}

class CountingWnd : public CWnd {
public:
    int paints = 0;
    int creates = 0;
    int sizes = 0;
    RECT lastPaint{};

protected:
    int OnCreate(LPCREATESTRUCT) override {
        ++creates;
        return 0;
    }
    void OnSize(UINT, int, int) override { ++sizes; }
    void OnPaint() override {
        CPaintDC dc(this);
        lastPaint = dc.m_ps.rcPaint;
        ++paints;
    }
};

TEST_F(WindowTest, CWndReceivesItsMessagesFromCreationOn) {
    CountingWnd wnd;
    ASSERT_TRUE(wnd.Create(nullptr, u"counting", WS_VISIBLE, CRect(0, 0, 300, 200), nullptr, 0));
    EXPECT_EQ(wnd.creates, 1);
    EXPECT_EQ(wnd.sizes, 1);
    EXPECT_EQ(CWnd::FromHandlePermanent(wnd.m_hWnd), &wnd);
    CRect client;
    wnd.GetClientRect(&client);
    EXPECT_EQ(client.Width(), 300);
    platform::PumpMessages();
    EXPECT_EQ(wnd.paints, 1);
    wnd.Invalidate(FALSE);
    wnd.Invalidate(FALSE);
    platform::PumpMessages();
    EXPECT_EQ(wnd.paints, 2);
    EXPECT_EQ(wnd.lastPaint.right, 300);
    CRect part(5, 6, 7, 8);
    wnd.InvalidateRect(&part, FALSE);
    wnd.UpdateWindow();
    EXPECT_EQ(wnd.paints, 3);
    EXPECT_EQ(wnd.lastPaint.left, 5);
    EXPECT_EQ(wnd.lastPaint.bottom, 8);
    CString title;
    wnd.GetWindowText(title);
    EXPECT_EQ(title, CString(u"counting"));
    HWND hwnd = wnd.m_hWnd;
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(hwnd), nullptr);
}

TEST_F(WindowTest, FromHandleWrapsForeignWindows) {
    HWND hwnd = Create(nullptr, 0, 0, 10, 10, 0);
    CWnd* wnd = CWnd::FromHandle(hwnd);
    ASSERT_NE(wnd, nullptr);
    EXPECT_EQ(wnd->m_hWnd, hwnd);
    EXPECT_EQ(CWnd::FromHandle(hwnd), wnd);
    EXPECT_EQ(CWnd::FromHandlePermanent(hwnd), nullptr);
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
}

} // namespace
