// Top-level windows of a program's own classes on a private X server: the
// mouse's buttons and double clicks, the frame the window draws (a double
// click on its caption maximises), resizing
// from the display, and owned windows kept above their owners.
#ifdef WIN_TEST_HAVE_XCB
#include "XvfbFixture.h"

#include <platform/Display.h>
#include <platform/MessagePump.h>
#include <windows.h>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <string>
#include <vector>

namespace {

constexpr UINT kClassDoubleClicks = 0x0008; // CS_DBLCLKS

struct Seen {
    UINT message;
    int x;
    int y;
    WPARAM keys;
};

std::vector<Seen> g_seen;
std::vector<std::pair<int, int>> g_sizes;

LRESULT RecordingWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_MBUTTONDBLCLK:
        g_seen.push_back(Seen{message, static_cast<short>(LOWORD(lParam)),
                              static_cast<short>(HIWORD(lParam)), wParam});
        return 0;
    case WM_SIZE:
        g_sizes.emplace_back(LOWORD(lParam), HIWORD(lParam));
        return 0;
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

class X11WindowsTest : public testing_support::XvfbFixture<> {
protected:
    void SetUp() override {
        XvfbFixture::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        WNDCLASS wc{};
        wc.style = kClassDoubleClicks;
        wc.lpfnWndProc = RecordingWindowProc;
        wc.lpszClassName = u"X11Recording";
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        RegisterClass(&wc);
        g_seen.clear();
        g_sizes.clear();
    }

    void TearDown() override {
        for (HWND hwnd : windows)
            if (IsWindow(hwnd))
                DestroyWindow(hwnd);
        XvfbFixture::TearDown();
    }

    HWND Open(const char16_t* title, int x, int y, int width, int height, HWND owner) {
        HWND hwnd = CreateWindowEx(0, u"X11Recording", title,
                                   WS_OVERLAPPED | WS_CAPTION | WS_THICKFRAME | WS_VISIBLE, x, y,
                                   width, height, owner, nullptr, nullptr, nullptr);
        windows.push_back(hwnd);
        return hwnd;
    }

    std::vector<HWND> windows;
};

TEST_F(X11WindowsTest, ButtonsAndDoubleClicksArriveInClientCoordinates) {
    if (Run("xdotool version") != 0)
        GTEST_SKIP() << "xdotool is not installed";
    HWND hwnd = Open(u"Mouse", 40, 30, 300, 200, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(hwnd) != 0; }));
    const std::string window = std::to_string(platform::display::XWindowOf(hwnd));
    POINT origin{0, 0};
    ClientToScreen(hwnd, &origin);
    // 50,40 inside the client area, given in the X window's coordinates.
    const std::string at =
        std::to_string(origin.x - 40 + 50) + " " + std::to_string(origin.y - 30 + 40);
    ASSERT_EQ(Run("xdotool mousemove --window " + window + " " + at +
                  " click 3 click --repeat 2 --delay 50 1"),
              0);
    ASSERT_TRUE(PumpUntil([] { return g_seen.size() >= 6; }));
    const UINT expected[] = {WM_RBUTTONDOWN, WM_RBUTTONUP,     WM_LBUTTONDOWN,
                             WM_LBUTTONUP,   WM_LBUTTONDBLCLK, WM_LBUTTONUP};
    ASSERT_EQ(g_seen.size(), 6u);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(g_seen[i].message, expected[i]) << i;
        EXPECT_EQ(g_seen[i].x, 50) << i;
        EXPECT_EQ(g_seen[i].y, 40) << i;
    }
    POINT cursor;
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.x, origin.x + 50);
    EXPECT_EQ(cursor.y, origin.y + 40);
}

TEST_F(X11WindowsTest, TheFrameTheWindowDrawsMovesSizesMaximisesAndClosesIt) {
    if (Run("xdotool version") != 0)
        GTEST_SKIP() << "xdotool is not installed";
    HWND hwnd = CreateWindowEx(0, u"X11Recording", u"Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40,
                               30, 300, 200, nullptr, nullptr, nullptr, nullptr);
    windows.push_back(hwnd);
    ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(hwnd) != 0; }));
    auto rect = [hwnd] {
        RECT r{};
        GetWindowRect(hwnd, &r);
        return r;
    };
    auto drag = [this](int x, int y, int dx, int dy) {
        const std::string from = std::to_string(x) + " " + std::to_string(y);
        const std::string to = std::to_string(x + dx) + " " + std::to_string(y + dy);
        return Run("xdotool mousemove " + from + " sleep 0.1 mousedown 1 sleep 0.1 mousemove " +
                   to + " sleep 0.1 mouseup 1 >/dev/null 2>&1 &") == 0;
    };
    // The caption moves the window.
    ASSERT_TRUE(drag(40 + 60, 30 + 12, 50, 30));
    ASSERT_TRUE(PumpUntil([&] { return rect().left == 90 && rect().top == 60; }));
    EXPECT_EQ(rect().right - rect().left, 300);
    // The bottom right corner sizes it.
    ASSERT_TRUE(drag(90 + 299, 60 + 199, 40, 20));
    ASSERT_TRUE(PumpUntil([&] { return rect().right == 90 + 340 && rect().bottom == 60 + 220; }));
    // A double click on the caption maximises it, and another puts it back.
    const RECT sized = rect();
    auto doubleClick = [this](int x, int y) {
        return Run("xdotool mousemove " + std::to_string(x) + " " + std::to_string(y) +
                   " click --repeat 2 --delay 80 1") == 0;
    };
    ASSERT_TRUE(doubleClick(sized.left + 60, sized.top + 12));
    ASSERT_TRUE(PumpUntil([&] { return IsZoomed(hwnd) != FALSE; }));
    RECT desktop{};
    GetClientRect(GetDesktopWindow(), &desktop);
    EXPECT_LE(rect().left, 0);
    EXPECT_GE(rect().right, desktop.right);
    ASSERT_TRUE(doubleClick(200, 12));
    ASSERT_TRUE(PumpUntil([&] { return !IsZoomed(hwnd); }));
    EXPECT_EQ(rect().left, sized.left);
    EXPECT_EQ(rect().bottom, sized.bottom);
    // The close box closes it.
    const RECT now = rect();
    ASSERT_EQ(Run("xdotool mousemove " + std::to_string(now.right - 12) + " " +
                  std::to_string(now.top + 12) + " click 1"),
              0);
    EXPECT_TRUE(PumpUntil([&] { return !IsWindow(hwnd); }));
}

HWND g_mdiClient = nullptr;

LRESULT MdiFrameProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefFrameProc(hwnd, g_mdiClient, message, wParam, lParam);
}

TEST_F(X11WindowsTest, ADocumentWindowIsActivatedMovedAndMaximisedByItsOwnCaption) {
    if (Run("xdotool version") != 0)
        GTEST_SKIP() << "xdotool is not installed";
    WNDCLASS frameClass{};
    frameClass.lpfnWndProc = MdiFrameProc;
    frameClass.lpszClassName = u"X11MdiFrame";
    RegisterClass(&frameClass);
    WNDCLASS childClass{};
    childClass.lpfnWndProc = DefMDIChildProc;
    childClass.lpszClassName = u"X11MdiChild";
    childClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    RegisterClass(&childClass);
    HWND frame = CreateWindowEx(0, u"X11MdiFrame", u"Documents", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                40, 30, 600, 450, nullptr, nullptr, nullptr, nullptr);
    windows.push_back(frame);
    RECT area{};
    GetClientRect(frame, &area);
    CLIENTCREATESTRUCT ccs{nullptr, 0xFF00};
    g_mdiClient = CreateWindowEx(0, u"MDICLIENT", nullptr, WS_CHILD | WS_CLIPCHILDREN | WS_VISIBLE,
                                 0, 0, area.right, area.bottom, frame, nullptr, nullptr, &ccs);
    auto document = [](const char16_t* title, int x, int y) {
        MDICREATESTRUCT mcs{u"X11MdiChild", title, nullptr, x, y, 250, 180, WS_VISIBLE, 0};
        return reinterpret_cast<HWND>(
            SendMessage(g_mdiClient, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&mcs)));
    };
    HWND first = document(u"First", 10, 10);
    HWND second = document(u"Second", 300, 150);
    ASSERT_TRUE(first && second);
    ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(frame) != 0; }));
    auto active = [] {
        return reinterpret_cast<HWND>(SendMessage(g_mdiClient, WM_MDIGETACTIVE, 0, 0));
    };
    ASSERT_EQ(active(), second);
    auto rect = [](HWND hwnd) {
        RECT r{};
        GetWindowRect(hwnd, &r);
        return r;
    };
    // A drag on the first one's caption brings it forward and moves it.
    const RECT before = rect(first);
    const std::string from =
        std::to_string(before.left + 60) + " " + std::to_string(before.top + 10);
    const std::string to =
        std::to_string(before.left + 100) + " " + std::to_string(before.top + 35);
    ASSERT_EQ(Run("xdotool mousemove " + from + " sleep 0.1 mousedown 1 sleep 0.1 mousemove " + to +
                  " sleep 0.1 mouseup 1 >/dev/null 2>&1 &"),
              0);
    ASSERT_TRUE(PumpUntil([&] { return rect(first).left == before.left + 40; }));
    EXPECT_EQ(rect(first).top, before.top + 25);
    EXPECT_EQ(active(), first);
    // A double click on its caption maximises it inside the frame.
    const RECT moved = rect(first);
    ASSERT_EQ(Run("xdotool mousemove " + std::to_string(moved.left + 60) + " " +
                  std::to_string(moved.top + 10) + " click --repeat 2 --delay 80 1"),
              0);
    ASSERT_TRUE(PumpUntil([&] { return IsZoomed(first) != FALSE; }));
    EXPECT_FALSE(IsZoomed(frame));
    RECT client{};
    GetClientRect(g_mdiClient, &client);
    POINT corner{0, 0};
    ClientToScreen(first, &corner);
    POINT clientCorner{0, 0};
    ClientToScreen(g_mdiClient, &clientCorner);
    EXPECT_EQ(corner.x, clientCorner.x);
    EXPECT_EQ(corner.y, clientCorner.y);
}

// On a screen bigger than the headless desktop.
class X11WideScreenTest : public X11WindowsTest {
protected:
    X11WideScreenTest() { screen = "1920x1080x24"; }
};

TEST_F(X11WideScreenTest, TheDesktopIsTheScreenAndAWindowShowsAnywhereOnIt) {
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), 1920);
    EXPECT_EQ(GetSystemMetrics(SM_CYSCREEN), 1080);
    // Wholly beyond the headless desktop's 1280 columns.
    HWND hwnd = Open(u"Right", 1500, 700, 300, 200, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(hwnd) != 0; }));
    int width = 0, height = 0;
    const std::vector<uint32_t> drawn = testing_support::HeadlessPixels(hwnd, &width, &height);
    ASSERT_EQ(width, 300);
    EXPECT_TRUE(PumpUntil(
        [&] { return DisplayPixels(platform::display::XWindowOf(hwnd), width, height) == drawn; }));
    // Maximised, it covers the screen, its borders beyond the edges.
    ShowWindow(hwnd, SW_MAXIMIZE);
    RECT zoomed{};
    GetWindowRect(hwnd, &zoomed);
    EXPECT_TRUE(zoomed.left < 0 && zoomed.top < 0 && zoomed.right > 1920 && zoomed.bottom > 1080);
    // The headless desktop comes back with the display's end, and the
    // maximised window fills it; the screen, opened again, fills it again.
    platform::display::Close();
    EXPECT_EQ(GetSystemMetrics(SM_CXSCREEN), 1280);
    EXPECT_EQ(GetSystemMetrics(SM_CYSCREEN), 1024);
    GetWindowRect(hwnd, &zoomed);
    EXPECT_TRUE(zoomed.left < 0 && zoomed.right > 1280 && zoomed.right < 1300 &&
                zoomed.bottom > 1024 && zoomed.bottom < 1044);
    EXPECT_TRUE(IsZoomed(hwnd));
    std::string error;
    ASSERT_TRUE(platform::display::OpenX11(server->Name().c_str(), &error)) << error;
    GetWindowRect(hwnd, &zoomed);
    EXPECT_TRUE(zoomed.right > 1920 && zoomed.bottom > 1080);
    DestroyWindow(hwnd);
}

TEST_F(X11WindowsTest, TheMiddleButtonItsDoubleClickAndTheHeldKeysArrive) {
    if (Run("xdotool version") != 0)
        GTEST_SKIP() << "xdotool is not installed";
    HWND hwnd = Open(u"Middle", 40, 30, 300, 200, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(hwnd) != 0; }));
    const std::string window = std::to_string(platform::display::XWindowOf(hwnd));
    POINT origin{0, 0};
    ClientToScreen(hwnd, &origin);
    const std::string at =
        std::to_string(origin.x - 40 + 60) + " " + std::to_string(origin.y - 30 + 30);
    // A double click of the middle button; then a left click followed at once
    // by a middle one, which is no double click; then a middle click with
    // Shift and the left button held.
    ASSERT_EQ(Run("xdotool mousemove --window " + window + " " + at +
                  " click --repeat 2 --delay 50 2 click 1 click 2"),
              0);
    ASSERT_EQ(Run("xdotool keydown shift mousedown 1 click 2 mouseup 1 keyup shift"), 0);
    ASSERT_TRUE(PumpUntil([] { return g_seen.size() >= 12; }));
    struct Expected {
        UINT message;
        WPARAM keys;
    };
    const Expected expected[] = {
        {WM_MBUTTONDOWN, MK_MBUTTON},
        {WM_MBUTTONUP, 0},
        {WM_MBUTTONDBLCLK, MK_MBUTTON},
        {WM_MBUTTONUP, 0},
        {WM_LBUTTONDOWN, MK_LBUTTON},
        {WM_LBUTTONUP, 0},
        {WM_MBUTTONDOWN, MK_MBUTTON},
        {WM_MBUTTONUP, 0},
        {WM_LBUTTONDOWN, MK_LBUTTON | MK_SHIFT},
        {WM_MBUTTONDOWN, MK_LBUTTON | MK_MBUTTON | MK_SHIFT},
        {WM_MBUTTONUP, MK_LBUTTON | MK_SHIFT},
        {WM_LBUTTONUP, MK_SHIFT},
    };
    ASSERT_EQ(g_seen.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(g_seen[i].message, expected[i].message) << i;
        EXPECT_EQ(g_seen[i].keys, expected[i].keys) << i;
        EXPECT_EQ(g_seen[i].x, 60) << i;
        EXPECT_EQ(g_seen[i].y, 30) << i;
    }
}

TEST_F(X11WindowsTest, ResizingOnTheDisplayResizesTheWindowThroughWmSize) {
    HWND hwnd = Open(u"Sized", 10, 10, 200, 150, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(hwnd) != 0; }));
    g_sizes.clear();
    const uint32_t size[] = {320, 240};
    xcb_configure_window(probe, platform::display::XWindowOf(hwnd),
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size);
    xcb_flush(probe);
    ASSERT_TRUE(PumpUntil([] { return !g_sizes.empty(); }));
    RECT rect, client;
    GetWindowRect(hwnd, &rect);
    GetClientRect(hwnd, &client);
    EXPECT_EQ(rect.right - rect.left, 320);
    EXPECT_EQ(rect.bottom - rect.top, 240);
    EXPECT_EQ(g_sizes.back().first, client.right);
    EXPECT_EQ(g_sizes.back().second, client.bottom);
    // The program's own resize goes the other way, to the display.
    SetWindowPos(hwnd, nullptr, 0, 0, 260, 180, SWP_NOMOVE | SWP_NOZORDER);
    ASSERT_TRUE(PumpUntil([&] {
        xcb_get_geometry_reply_t* g = xcb_get_geometry_reply(
            probe, xcb_get_geometry(probe, platform::display::XWindowOf(hwnd)), nullptr);
        const bool done = g && g->width == 260 && g->height == 180;
        free(g);
        return done;
    }));
}

TEST_F(X11WindowsTest, OwnedWindowsAreTransientForTheirOwnerAndHiddenOnesUnmapped) {
    HWND owner = Open(u"Owner", 10, 10, 400, 300, nullptr);
    HWND owned = Open(u"Owned", 60, 60, 200, 100, owner);
    ASSERT_TRUE(PumpUntil([&] {
        return platform::display::XWindowOf(owner) && platform::display::XWindowOf(owned);
    }));
    xcb_get_property_reply_t* reply =
        xcb_get_property_reply(probe,
                               xcb_get_property(probe, 0, platform::display::XWindowOf(owned),
                                                XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW, 0, 1),
                               nullptr);
    ASSERT_TRUE(reply);
    ASSERT_EQ(xcb_get_property_value_length(reply), 4);
    EXPECT_EQ(*static_cast<const uint32_t*>(xcb_get_property_value(reply)),
              platform::display::XWindowOf(owner));
    free(reply);

    ShowWindow(owned, SW_HIDE);
    ASSERT_TRUE(PumpUntil([&] {
        xcb_get_window_attributes_reply_t* a = xcb_get_window_attributes_reply(
            probe, xcb_get_window_attributes(probe, platform::display::XWindowOf(owned)), nullptr);
        const bool unmapped = a && a->map_state == XCB_MAP_STATE_UNMAPPED;
        free(a);
        return unmapped;
    }));
}

} // namespace
#endif
