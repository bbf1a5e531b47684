// Sizing a window by its frame: where a point lies in the frame, the sizing
// loop's messages, the limits a window sets, Escape and a drag that nobody
// finishes, other edges, child windows, and the simulated user's corner drag;
// moving it by its caption, maximising it by a double click there and closing
// it by its close box.
#include <afxwin.h>
#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

namespace automation = platform::automation;

// What the sizing window saw, and how it answers WM_GETMINMAXINFO and
// WM_SIZING.
struct Seen {
    std::vector<std::string> messages;
    std::vector<RECT> sizing;
    POINT minimum{0, 0};
    int snap = 0; // WM_SIZING rounds the width down to a multiple of this
};
Seen g_seen;

LRESULT SizingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_GETMINMAXINFO:
        g_seen.messages.push_back("minmax");
        if (g_seen.minimum.x)
            reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = g_seen.minimum;
        break;
    case WM_ENTERSIZEMOVE:
        g_seen.messages.push_back("enter");
        break;
    case WM_EXITSIZEMOVE:
        g_seen.messages.push_back("exit");
        break;
    case WM_SIZING: {
        auto* rect = reinterpret_cast<RECT*>(lParam);
        if (g_seen.snap)
            rect->right = rect->left + (rect->right - rect->left) / g_seen.snap * g_seen.snap;
        g_seen.sizing.push_back(*rect);
        g_seen.messages.push_back("sizing " + std::to_string(wParam));
        break;
    }
    case WM_SIZE:
        g_seen.messages.push_back("size " + std::to_string(LOWORD(lParam)) + "x" +
                                  std::to_string(HIWORD(lParam)));
        break;
    case WM_MOVING:
        g_seen.messages.push_back("moving");
        break;
    case WM_CLOSE:
        g_seen.messages.push_back("close");
        break;
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
        g_seen.messages.push_back("mouse");
        break;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class SizingTest : public ::testing::Test {
protected:
    void SetUp() override {
        WNDCLASS wc{};
        wc.lpfnWndProc = SizingProc;
        wc.lpszClassName = u"SizingTest";
        RegisterClass(&wc);
        g_seen = Seen{};
        automation::Reset();
    }
    void TearDown() override {
        for (HWND hwnd : created)
            if (IsWindow(hwnd))
                DestroyWindow(hwnd);
        automation::Reset();
        platform::PumpMessages();
    }
    HWND Make(DWORD style, RECT rect, HWND parent = nullptr) {
        HWND hwnd = CreateWindowEx(0, u"SizingTest", u"Sizing", style, rect.left, rect.top,
                                   rect.right - rect.left, rect.bottom - rect.top, parent, nullptr,
                                   nullptr, nullptr);
        created.push_back(hwnd);
        return hwnd;
    }
    static CRect Rect(HWND hwnd) {
        CRect rect;
        GetWindowRect(hwnd, &rect);
        return rect;
    }
    static LRESULT Hit(HWND hwnd, int x, int y) {
        return SendMessage(hwnd, WM_NCHITTEST, 0, MAKELPARAM(x, y));
    }
    // Posts a press on the frame, mouse moves to each point and, when asked,
    // the release at the last one (points in screen coordinates).
    static void PostDrag(HWND hwnd, int hit, POINT from, const std::vector<POINT>& to,
                         bool release = true) {
        SetCursorPos(from.x, from.y);
        PostMessage(hwnd, WM_NCLBUTTONDOWN, static_cast<WPARAM>(hit), MAKELPARAM(from.x, from.y));
        for (POINT p : to) {
            SetCursorPos(p.x, p.y);
            ScreenToClient(hwnd, &p);
            PostMessage(hwnd, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(p.x, p.y));
        }
        if (release) {
            POINT p = to.back();
            ScreenToClient(hwnd, &p);
            PostMessage(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(p.x, p.y));
        }
    }

    std::vector<HWND> created;
};

TEST_F(SizingTest, TheFrameIsHitTestedByItsParts) {
    HWND hwnd = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{100, 100, 400, 300});
    RECT client{0, 0, 0, 0};
    GetClientRect(hwnd, &client);
    POINT origin{0, 0};
    ClientToScreen(hwnd, &origin);
    const int border = origin.x - 100;
    ASSERT_GT(border, 2);
    EXPECT_EQ(Hit(hwnd, origin.x + 5, origin.y + 5), HTCLIENT);
    EXPECT_EQ(Hit(hwnd, 399, 299), HTBOTTOMRIGHT);
    EXPECT_EQ(Hit(hwnd, 100, 100), HTTOPLEFT);
    EXPECT_EQ(Hit(hwnd, 399, 100), HTTOPRIGHT);
    EXPECT_EQ(Hit(hwnd, 100, 299), HTBOTTOMLEFT);
    EXPECT_EQ(Hit(hwnd, 100, 200), HTLEFT);
    EXPECT_EQ(Hit(hwnd, 399, 200), HTRIGHT);
    EXPECT_EQ(Hit(hwnd, 250, 100), HTTOP);
    EXPECT_EQ(Hit(hwnd, 250, 299), HTBOTTOM);
    // A corner reaches along the edges.
    EXPECT_EQ(Hit(hwnd, 390, 299), HTBOTTOMRIGHT);
    EXPECT_EQ(Hit(hwnd, 399, 290), HTBOTTOMRIGHT);
    EXPECT_EQ(Hit(hwnd, 250, origin.y - 5), HTCAPTION);
    // The close box at the caption's right end.
    EXPECT_EQ(Hit(hwnd, 400 - border - 5, 100 + border + 5), HTCLOSE);
    EXPECT_EQ(Hit(hwnd, 400 - border - GetSystemMetrics(SM_CXSIZE) - 1, 100 + border + 5),
              HTCAPTION);
    EXPECT_EQ(Hit(hwnd, 99, 200), HTNOWHERE);
    EXPECT_EQ(Hit(hwnd, 400, 200), HTNOWHERE);

    // Without a sizing frame the frame is only a border.
    HWND fixed = Make(WS_POPUP | WS_CAPTION | WS_VISIBLE, RECT{500, 100, 700, 200});
    EXPECT_EQ(Hit(fixed, 699, 199), HTBORDER);
    EXPECT_EQ(Hit(fixed, 600, 110), HTCAPTION);
}

TEST_F(SizingTest, DraggingTheCornerRunsTheSizingLoop) {
    HWND hwnd = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{100, 100, 400, 300});
    g_seen.messages.clear();
    PostDrag(hwnd, HTBOTTOMRIGHT, POINT{399, 299}, {POINT{420, 309}, POINT{449, 329}});
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(100, 100, 450, 330));
    ASSERT_GE(g_seen.messages.size(), 6u);
    EXPECT_EQ(g_seen.messages[0], "minmax");
    EXPECT_EQ(g_seen.messages[1], "enter");
    EXPECT_EQ(g_seen.messages[2], "sizing 8");
    EXPECT_EQ(g_seen.messages.back(), "exit");
    ASSERT_FALSE(g_seen.sizing.empty());
    EXPECT_EQ(g_seen.sizing[0].right, 421);
    // The drag's mouse messages are the loop's, not the window's.
    for (const std::string& m : g_seen.messages)
        EXPECT_NE(m, "mouse");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(SizingTest, TheWindowsLimitsAndItsSizingAnswersApply) {
    HWND hwnd = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{100, 100, 400, 300});
    PostDrag(hwnd, HTBOTTOMRIGHT, POINT{399, 299}, {POINT{0, 0}});
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(100, 100, 100 + GetSystemMetrics(SM_CXMINTRACK),
                                100 + GetSystemMetrics(SM_CYMINTRACK)));

    g_seen.minimum = POINT{250, 180};
    PostDrag(hwnd, HTBOTTOMRIGHT, POINT{235, 138}, {POINT{0, 0}});
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(100, 100, 350, 280));

    g_seen.snap = 40;
    PostDrag(hwnd, HTBOTTOMRIGHT, POINT{349, 279}, {POINT{405, 300}});
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(100, 100, 380, 301));
}

TEST_F(SizingTest, EscapeOrNobodyToFinishPutsTheWindowBack) {
    HWND hwnd = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{100, 100, 400, 300});
    PostDrag(hwnd, HTBOTTOMRIGHT, POINT{399, 299}, {POINT{500, 400}}, false);
    PostMessage(hwnd, WM_KEYDOWN, VK_ESCAPE, 0);
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(100, 100, 400, 300));
    EXPECT_EQ(g_seen.messages.back(), "exit");

    g_seen.messages.clear();
    PostDrag(hwnd, HTBOTTOMRIGHT, POINT{399, 299}, {POINT{500, 400}}, false);
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(100, 100, 400, 300));
    EXPECT_EQ(g_seen.messages.back(), "exit");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(SizingTest, TheTopLeftCornerMovesTheOriginAndChildrenSizeInTheirParent) {
    HWND hwnd = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{100, 100, 400, 300});
    PostDrag(hwnd, HTTOPLEFT, POINT{100, 100}, {POINT{80, 90}});
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(80, 90, 400, 300));

    HWND child = Make(WS_CHILD | WS_THICKFRAME | WS_VISIBLE, RECT{10, 10, 110, 60}, hwnd);
    const RECT before = Rect(child);
    PostDrag(child, HTBOTTOMRIGHT, POINT{before.right - 1, before.bottom - 1},
             {POINT{before.right + 39, before.bottom + 19}});
    platform::PumpMessages();
    const RECT after = Rect(child);
    POINT topLeft{after.left, after.top}, bottomRight{after.right, after.bottom};
    ScreenToClient(hwnd, &topLeft);
    ScreenToClient(hwnd, &bottomRight);
    EXPECT_EQ(topLeft.x, 10);
    EXPECT_EQ(topLeft.y, 10);
    EXPECT_EQ(bottomRight.x, 150);
    EXPECT_EQ(bottomRight.y, 80);
}

TEST_F(SizingTest, TheSimulatedUserDragsTheActiveWindowsCorner) {
    HWND hwnd = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{100, 100, 400, 300});
    SetActiveWindow(hwnd);
    automation::DragWindowCorner(60, -20);
    ASSERT_TRUE(automation::RunNext());
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(100, 100, 460, 280));
    POINT cursor{};
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.x, 459);
    EXPECT_EQ(cursor.y, 279);

    HWND fixed = Make(WS_POPUP | WS_CAPTION | WS_VISIBLE, RECT{500, 100, 700, 200});
    SetActiveWindow(fixed);
    automation::DragWindowCorner(60, 60);
    ASSERT_TRUE(automation::RunNext());
    platform::PumpMessages();
    EXPECT_EQ(Rect(fixed), CRect(500, 100, 700, 200));
    EXPECT_NE(automation::Record().back().find("has no sizing corner"), std::string::npos);
}

TEST_F(SizingTest, TheCaptionMovesTheWindowAndEscapePutsItBack) {
    HWND hwnd = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{100, 100, 400, 300});
    g_seen.messages.clear();
    PostDrag(hwnd, HTCAPTION, POINT{200, 110}, {POINT{220, 120}, POINT{250, 140}});
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(150, 130, 450, 330));
    EXPECT_EQ(g_seen.messages,
              (std::vector<std::string>{"minmax", "enter", "moving", "moving", "moving", "exit"}));
    PostDrag(hwnd, HTCAPTION, POINT{200, 140}, {POINT{300, 300}}, false);
    PostMessage(hwnd, WM_KEYDOWN, VK_ESCAPE, 0);
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), CRect(150, 130, 450, 330));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(SizingTest, ADoubleClickOnTheCaptionMaximisesAndRestores) {
    HWND hwnd = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{100, 100, 400, 300});
    const LPARAM caption = MAKELPARAM(200, 110);
    PostMessage(hwnd, WM_NCLBUTTONDBLCLK, HTCAPTION, caption);
    platform::PumpMessages();
    EXPECT_TRUE(IsZoomed(hwnd));
    RECT desktop{};
    GetClientRect(GetDesktopWindow(), &desktop);
    const CRect zoomed = Rect(hwnd);
    EXPECT_TRUE(zoomed.left < 0 && zoomed.top < 0 && zoomed.right > desktop.right &&
                zoomed.bottom > desktop.bottom)
        << zoomed.left << "," << zoomed.top << " " << zoomed.right << "," << zoomed.bottom;
    // A maximised window does not move by its caption; a double click restores it.
    PostDrag(hwnd, HTCAPTION, POINT{200, 10}, {POINT{260, 60}});
    platform::PumpMessages();
    EXPECT_EQ(Rect(hwnd), zoomed);
    PostMessage(hwnd, WM_NCLBUTTONDBLCLK, HTCAPTION, MAKELPARAM(200, 10));
    platform::PumpMessages();
    EXPECT_FALSE(IsZoomed(hwnd));
    EXPECT_EQ(Rect(hwnd), CRect(100, 100, 400, 300));
    // Without a maximise box the caption's double click does nothing; on a
    // sizing edge it acts as a press there.
    HWND fixed =
        Make(WS_OVERLAPPED | WS_CAPTION | WS_THICKFRAME | WS_VISIBLE, RECT{500, 100, 700, 200});
    PostMessage(fixed, WM_NCLBUTTONDBLCLK, HTCAPTION, MAKELPARAM(600, 110));
    platform::PumpMessages();
    EXPECT_FALSE(IsZoomed(fixed));
    EXPECT_EQ(Rect(fixed), CRect(500, 100, 700, 200));
    g_seen.messages.clear();
    SetCursorPos(699, 199);
    PostMessage(fixed, WM_NCLBUTTONDBLCLK, HTBOTTOMRIGHT, MAKELPARAM(699, 199));
    PostMessage(fixed, WM_KEYDOWN, VK_ESCAPE, 0);
    platform::PumpMessages();
    EXPECT_NE(std::find(g_seen.messages.begin(), g_seen.messages.end(), "enter"),
              g_seen.messages.end());
}

TEST_F(SizingTest, TheCloseBoxClosesWhenTheButtonComesUpOnIt) {
    HWND hwnd = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, RECT{100, 100, 400, 300});
    POINT origin{0, 0};
    ClientToScreen(hwnd, &origin);
    const POINT box{400 - (origin.x - 100) - 5, 100 + (origin.x - 100) + 5};
    // Let go beside the box: nothing.
    PostDrag(hwnd, HTCLOSE, box, {POINT{box.x - 60, box.y}});
    platform::PumpMessages();
    EXPECT_TRUE(IsWindow(hwnd));
    EXPECT_EQ(std::count(g_seen.messages.begin(), g_seen.messages.end(), "close"), 0);
    // Let go on it: WM_CLOSE, and the default procedure destroys the window.
    PostDrag(hwnd, HTCLOSE, box, {box});
    platform::PumpMessages();
    EXPECT_EQ(g_seen.messages.back(), "close");
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(GetCapture(), nullptr);
}

} // namespace
