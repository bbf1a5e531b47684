// Window geometry and text as CWnd and the handle functions see them: moving and
// resizing with their notifications, coordinates between client and screen,
// show state, control ids, creation failures, and the message loop's hooks.
#include <afxwin.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<std::string> g_events;

LRESULT RecordingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        g_events.push_back("size " + std::to_string(LOWORD(lParam)) + "x" +
                           std::to_string(HIWORD(lParam)));
        break;
    case WM_MOVE:
        g_events.push_back("move " + std::to_string(LOWORD(lParam)) + "," +
                           std::to_string(HIWORD(lParam)));
        break;
    case WM_CREATE: {
        // A window titled "refuse" fails its creation.
        auto* create = reinterpret_cast<LPCREATESTRUCT>(lParam);
        if (create->lpszName && CString(create->lpszName) == u"refuse")
            return -1;
        break;
    }
    case WM_DESTROY:
        g_events.push_back("destroy");
        break;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class WindowGeometryTest : public ::testing::Test {
protected:
    void SetUp() override {
        g_events.clear();
        WNDCLASS wc{};
        wc.lpfnWndProc = RecordingProc;
        wc.lpszClassName = u"GeometryRecording";
        RegisterClass(&wc);
    }
    void TearDown() override {
        platform::SetIdleHandler(nullptr);
        platform::PumpMessages();
        UnregisterClass(u"GeometryRecording", nullptr);
    }
    HWND Create(HWND parent, int x, int y, int cx, int cy, DWORD style, UINT id = 0,
                LPCWSTR title = u"w") {
        return CreateWindowEx(0, u"GeometryRecording", title, style | (parent ? WS_CHILD : 0), x, y,
                              cx, cy, parent, reinterpret_cast<HMENU>(static_cast<uintptr_t>(id)),
                              nullptr, nullptr);
    }
};

} // namespace

TEST_F(WindowGeometryTest, CoordinatesAndMovesThroughCWnd) {
    HWND top = Create(nullptr, 100, 50, 300, 200, WS_VISIBLE);
    HWND child = Create(top, 10, 20, 40, 30, WS_VISIBLE, 1234);
    CWnd* wnd = CWnd::FromHandle(child);
    ASSERT_NE(wnd, nullptr);
    EXPECT_EQ(wnd->GetParent()->m_hWnd, top);
    EXPECT_EQ(wnd->GetDlgCtrlID(), 1234);
    EXPECT_EQ(CWnd::FromHandle(top)->GetDlgCtrlID(), 0); // only children have ids
    CRect rect;
    wnd->GetWindowRect(&rect);
    EXPECT_EQ(rect, CRect(110, 70, 150, 100));
    CPoint p(3, 4);
    wnd->ClientToScreen(&p);
    EXPECT_EQ(p, CPoint(113, 74));
    wnd->ScreenToClient(&p);
    EXPECT_EQ(p, CPoint(3, 4));

    // Moving without resizing says so once; resizing in place likewise.
    platform::PumpMessages();
    g_events.clear();
    wnd->MoveWindow(15, 20, 40, 30);
    EXPECT_EQ(g_events, std::vector<std::string>{"move 15,20"});
    g_events.clear();
    wnd->MoveWindow(CRect(15, 20, 65, 45), FALSE);
    EXPECT_EQ(g_events, std::vector<std::string>{"size 50x25"});
    wnd->GetWindowRect(&rect);
    EXPECT_EQ(rect, CRect(115, 70, 165, 95));
    // A repainting move invalidates the child and the parent where it was.
    platform::PumpMessages();
    RECT update;
    EXPECT_FALSE(GetUpdateRect(top, &update, FALSE));
    wnd->MoveWindow(0, 0, 50, 25, TRUE);
    EXPECT_TRUE(GetUpdateRect(top, &update, FALSE));
    EXPECT_EQ(CRect(update), CRect(15, 20, 65, 45));
    EXPECT_TRUE(GetUpdateRect(child, &update, FALSE));
    EXPECT_EQ(CRect(update), CRect(0, 0, 50, 25));
    // A negative size is an empty window.
    EXPECT_TRUE(MoveWindow(child, 0, 0, -5, -5, FALSE));
    wnd->GetWindowRect(&rect);
    EXPECT_TRUE(rect.IsRectEmpty());
    EXPECT_FALSE(MoveWindow(GetDesktopWindow(), 0, 0, 1, 1, FALSE));
    DestroyWindow(top);
}

TEST_F(WindowGeometryTest, ShowStateTextAndMessagesThroughCWnd) {
    HWND top = Create(nullptr, 0, 0, 100, 100, 0);
    CWnd* wnd = CWnd::FromHandle(top);
    EXPECT_FALSE(wnd->IsWindowVisible());
    EXPECT_FALSE(wnd->ShowWindow(SW_SHOW)); // it was hidden
    EXPECT_TRUE(wnd->IsWindowVisible());
    EXPECT_TRUE(wnd->ShowWindow(SW_SHOW));
    // Hiding a child leaves its place in the parent to be repainted.
    HWND child = Create(top, 5, 5, 10, 10, WS_VISIBLE);
    platform::PumpMessages();
    EXPECT_TRUE(ShowWindow(child, SW_HIDE));
    RECT update;
    EXPECT_TRUE(GetUpdateRect(top, &update, FALSE));
    EXPECT_EQ(CRect(update), CRect(5, 5, 15, 15));
    EXPECT_FALSE(IsWindowVisible(child));

    wnd->SetWindowText(u"title");
    CString text;
    wnd->GetWindowText(text);
    EXPECT_EQ(text, CString(u"title"));
    EXPECT_TRUE(SetWindowText(top, nullptr));
    wnd->GetWindowText(text);
    EXPECT_TRUE(text.IsEmpty());

    g_events.clear();
    EXPECT_TRUE(wnd->PostMessage(WM_CLOSE));
    EXPECT_TRUE(IsWindow(top));
    platform::PumpMessages();
    // The default handling of WM_CLOSE destroys the window and its child.
    EXPECT_FALSE(IsWindow(top));
    EXPECT_FALSE(IsWindow(child));
    EXPECT_EQ(g_events, (std::vector<std::string>{"destroy", "destroy"}));
}

TEST_F(WindowGeometryTest, DefaultsAndRefusedCreations) {
    HWND hwnd = CreateWindowEx(0, u"GeometryRecording", u"d", 0, CW_USEDEFAULT, 7, CW_USEDEFAULT, 9,
                               nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(hwnd, nullptr);
    RECT rect;
    GetWindowRect(hwnd, &rect);
    EXPECT_EQ(CRect(rect), CRect(0, 0, 640, 480));
    DestroyWindow(hwnd);

    g_events.clear();
    EXPECT_EQ(Create(nullptr, 0, 0, 10, 10, 0, 0, u"refuse"), nullptr);
    EXPECT_EQ(g_events, std::vector<std::string>{"destroy"});
    EXPECT_EQ(
        CreateWindowEx(0, u"NoSuchClass", u"x", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr),
        nullptr);
    EXPECT_EQ(CreateWindowEx(0, nullptr, u"x", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr),
              nullptr);
    // A child needs a parent.
    EXPECT_EQ(CreateWindowEx(0, u"GeometryRecording", u"x", WS_CHILD, 0, 0, 1, 1, nullptr, nullptr,
                             nullptr, nullptr),
              nullptr);
    // A class in use cannot be unregistered; an unknown one is not there to be.
    HWND alive = Create(nullptr, 0, 0, 1, 1, 0);
    EXPECT_FALSE(UnregisterClass(u"GeometryRecording", nullptr));
    DestroyWindow(alive);
    EXPECT_FALSE(UnregisterClass(u"NoSuchClass", nullptr));
    EXPECT_FALSE(UnregisterClass(nullptr, nullptr));
}

TEST_F(WindowGeometryTest, DeadHandlesAreRefused) {
    HWND dead = Create(nullptr, 0, 0, 1, 1, 0);
    DestroyWindow(dead);
    POINT p{0, 0};
    RECT r;
    EXPECT_FALSE(ScreenToClient(dead, &p));
    EXPECT_FALSE(ClientToScreen(dead, &p));
    EXPECT_FALSE(GetClientRect(dead, &r));
    EXPECT_FALSE(GetWindowRect(dead, &r));
    EXPECT_FALSE(MoveWindow(dead, 0, 0, 1, 1, TRUE));
    EXPECT_FALSE(ShowWindow(dead, SW_SHOW));
    EXPECT_FALSE(DestroyWindow(dead));
    EXPECT_EQ(GetDlgCtrlID(dead), 0);
    EXPECT_EQ(CWnd::FromHandle(dead), nullptr);
    EXPECT_FALSE(DestroyWindow(GetDesktopWindow()));
    EXPECT_TRUE(IsWindow(GetDesktopWindow()));
}

TEST_F(WindowGeometryTest, TheMessageLoopAsksTheIdleHandlerWhenItRunsDry) {
    HWND hwnd = Create(nullptr, 0, 0, 10, 10, 0);
    int idleCalls = 0;
    platform::SetIdleHandler([&] {
        ++idleCalls;
        if (idleCalls == 1) {
            PostMessage(hwnd, WM_USER + 1, 0, 0);
            return true;
        }
        return false;
    });
    MSG msg;
    ASSERT_TRUE(GetMessage(&msg, nullptr, 0, 0));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_USER + 1));
    EXPECT_FALSE(TranslateMessage(&msg)); // no keyboard, nothing to translate
    // Nothing more: the handler did nothing, so the loop ends as on WM_QUIT.
    EXPECT_FALSE(GetMessage(&msg, nullptr, 0, 0));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(idleCalls, 2);
    EXPECT_EQ(GetMessage(nullptr, nullptr, 0, 0), -1);
    EXPECT_EQ(DispatchMessage(nullptr), 0);

    // CallWindowProc hands a message to a given procedure; none gives zero.
    EXPECT_EQ(CallWindowProc(RecordingProc, hwnd, WM_GETTEXTLENGTH, 0, 0), 1);
    EXPECT_EQ(CallWindowProc(nullptr, hwnd, WM_GETTEXTLENGTH, 0, 0), 0);
    DestroyWindow(hwnd);
}

// The framework's default paint handler validates without drawing.
TEST_F(WindowGeometryTest, ACWndWithoutAPaintHandlerIsValidatedByThePump) {
    CWnd wnd;
    ASSERT_TRUE(wnd.Create(nullptr, u"plain", WS_VISIBLE, CRect(0, 0, 20, 20), nullptr, 0));
    EXPECT_EQ(platform::PumpMessages(), 1);
    EXPECT_FALSE(wnd.GetUpdateRect(nullptr));
    EXPECT_EQ(wnd.SendMessage(WM_GETTEXTLENGTH), 5);
    EXPECT_TRUE(wnd.PostMessage(WM_USER));
    EXPECT_EQ(platform::PumpMessages(), 1);
}
