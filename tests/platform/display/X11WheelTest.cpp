// The wheel, the extra buttons and the right button's double click from a
// private X server: the wheel goes to the focus window (and on to its parent
// when the focus does not scroll) with its delta and the pointer's screen
// position; the extra buttons arrive as WM_XBUTTON messages with their
// number and MK_ state.
#ifdef WIN_TEST_HAVE_XCB
#include "XvfbFixture.h"

#include <platform/Display.h>
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

constexpr UINT kClassDoubleClicks = 0x0008; // CS_DBLCLKS

struct Seen {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    int x;
    int y;
};

std::vector<Seen> g_seen;

bool IsPointerMessage(UINT message) {
    switch (message) {
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_RBUTTONDBLCLK:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
    case WM_XBUTTONDOWN:
    case WM_XBUTTONUP:
    case WM_XBUTTONDBLCLK:
        return true;
    default:
        return false;
    }
}

// Records the pointer's messages, then leaves them to the default handling
// (which passes the wheel up from a child).
LRESULT RecordingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (IsPointerMessage(message))
        g_seen.push_back(Seen{hwnd, message, wParam, static_cast<short>(LOWORD(lParam)),
                              static_cast<short>(HIWORD(lParam))});
    if (message == WM_RBUTTONUP)
        return 0; // no shortcut menu
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class X11WheelTest : public testing_support::XvfbFixture<> {
protected:
    void SetUp() override {
        XvfbFixture::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        if (Run("xdotool version") != 0)
            GTEST_SKIP() << "xdotool is not installed";
        const std::pair<const char16_t*, UINT> classes[] = {{u"X11WheelDouble", kClassDoubleClicks},
                                                            {u"X11WheelSingle", 0}};
        for (const auto& [name, style] : classes) {
            WNDCLASS wc{};
            wc.style = style;
            wc.lpfnWndProc = RecordingProc;
            wc.lpszClassName = name;
            wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
            RegisterClass(&wc);
        }
        g_seen.clear();
        top =
            CreateWindowEx(0, u"X11WheelDouble", u"Wheel", WS_OVERLAPPED | WS_CAPTION | WS_VISIBLE,
                           40, 30, 320, 240, nullptr, nullptr, nullptr, nullptr);
        child = CreateWindowEx(0, u"X11WheelSingle", u"", WS_CHILD | WS_VISIBLE, 10, 10, 100, 80,
                               top, nullptr, nullptr, nullptr);
        ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(top) != 0; }));
        window = std::to_string(platform::display::XWindowOf(top));
    }

    void TearDown() override {
        if (IsWindow(top))
            DestroyWindow(top);
        XvfbFixture::TearDown();
    }

    // Moves the pointer to a client point of the top window, then runs the
    // rest of an xdotool command line there.
    void At(POINT client, const std::string& actions) {
        POINT origin{0, 0};
        ClientToScreen(top, &origin);
        RECT rect;
        GetWindowRect(top, &rect);
        const std::string at = std::to_string(origin.x - rect.left + client.x) + " " +
                               std::to_string(origin.y - rect.top + client.y);
        ASSERT_EQ(Run("xdotool mousemove --window " + window + " " + at + " " + actions), 0);
    }

    std::vector<Seen> SeenBy(HWND hwnd) const {
        std::vector<Seen> seen;
        for (const Seen& s : g_seen)
            if (s.hwnd == hwnd)
                seen.push_back(s);
        return seen;
    }

    HWND top = nullptr;
    HWND child = nullptr;
    std::string window;
};

TEST_F(X11WheelTest, TheWheelGoesToTheFocusWithItsDeltaAndTheScreenPointThenToTheParent) {
    SetFocus(child);
    // The pointer is over the top window, away from the child.
    At(POINT{200, 150}, "click 4 click 5 click 5 click 6 click 7");
    ASSERT_TRUE(PumpUntil([] { return g_seen.size() >= 10; }));
    POINT screen{200, 150};
    ClientToScreen(top, &screen);
    struct Expected {
        UINT message;
        short delta;
    };
    const Expected expected[] = {{WM_MOUSEWHEEL, 120},
                                 {WM_MOUSEWHEEL, -120},
                                 {WM_MOUSEWHEEL, -120},
                                 {WM_MOUSEHWHEEL, -120},
                                 {WM_MOUSEHWHEEL, 120}};
    // Each turn reaches the child first, then its parent.
    ASSERT_EQ(g_seen.size(), 2 * std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        for (std::size_t k = 0; k < 2; ++k) {
            const Seen& s = g_seen[2 * i + k];
            EXPECT_EQ(s.hwnd, k == 0 ? child : top) << i;
            EXPECT_EQ(s.message, expected[i].message) << i;
            EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(s.wParam), expected[i].delta) << i;
            EXPECT_EQ(GET_KEYSTATE_WPARAM(s.wParam), 0u) << i;
            EXPECT_EQ(s.x, screen.x) << i;
            EXPECT_EQ(s.y, screen.y) << i;
        }
    }
    POINT cursor;
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.x, screen.x);
    EXPECT_EQ(cursor.y, screen.y);
}

TEST_F(X11WheelTest, TheWheelCarriesTheHeldKeysAndButtons) {
    SetFocus(top);
    At(POINT{200, 150}, "keydown ctrl click 5 keyup ctrl mousedown 1 click 4 mouseup 1");
    ASSERT_TRUE(PumpUntil([] { return g_seen.size() >= 4; }));
    ASSERT_EQ(g_seen.size(), 4u);
    EXPECT_EQ(g_seen[0].message, static_cast<UINT>(WM_MOUSEWHEEL));
    EXPECT_EQ(GET_KEYSTATE_WPARAM(g_seen[0].wParam), static_cast<WORD>(MK_CONTROL));
    EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(g_seen[0].wParam), -WHEEL_DELTA);
    EXPECT_EQ(g_seen[1].message, static_cast<UINT>(WM_LBUTTONDOWN));
    EXPECT_EQ(g_seen[2].message, static_cast<UINT>(WM_MOUSEWHEEL));
    EXPECT_EQ(GET_KEYSTATE_WPARAM(g_seen[2].wParam), static_cast<WORD>(MK_LBUTTON));
    EXPECT_EQ(GET_WHEEL_DELTA_WPARAM(g_seen[2].wParam), WHEEL_DELTA);
    EXPECT_EQ(g_seen[3].message, static_cast<UINT>(WM_LBUTTONUP));
}

TEST_F(X11WheelTest, TheExtraButtonsTheirDoubleClickAndTheirHeldState) {
    // Over the top window: the buttons go to the window under the pointer,
    // not to the focus.
    SetFocus(child);
    At(POINT{200, 150}, "click 8 click --repeat 2 --delay 50 9 mousedown 8 click 1 mouseup 8");
    ASSERT_TRUE(PumpUntil([] { return g_seen.size() >= 10; }));
    struct Expected {
        UINT message;
        WORD button;
        WORD keys;
    };
    const Expected expected[] = {
        {WM_XBUTTONDOWN, XBUTTON1, MK_XBUTTON1},
        {WM_XBUTTONUP, XBUTTON1, 0},
        {WM_XBUTTONDOWN, XBUTTON2, MK_XBUTTON2},
        {WM_XBUTTONUP, XBUTTON2, 0},
        {WM_XBUTTONDBLCLK, XBUTTON2, MK_XBUTTON2},
        {WM_XBUTTONUP, XBUTTON2, 0},
        {WM_XBUTTONDOWN, XBUTTON1, MK_XBUTTON1},
        {WM_LBUTTONDOWN, 0, MK_LBUTTON | MK_XBUTTON1},
        {WM_LBUTTONUP, 0, MK_XBUTTON1},
        {WM_XBUTTONUP, XBUTTON1, 0},
    };
    ASSERT_EQ(g_seen.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        const Seen& s = g_seen[i];
        EXPECT_EQ(s.hwnd, top) << i;
        EXPECT_EQ(s.message, expected[i].message) << i;
        EXPECT_EQ(GET_KEYSTATE_WPARAM(s.wParam), expected[i].keys) << i;
        if (expected[i].button) {
            EXPECT_EQ(GET_XBUTTON_WPARAM(s.wParam), expected[i].button) << i;
        }
        EXPECT_EQ(s.x, 200) << i;
        EXPECT_EQ(s.y, 150) << i;
    }
}

TEST_F(X11WheelTest, ARightDoubleClickNeedsTheClassStyle) {
    // The second press becomes WM_RBUTTONDBLCLK on the top window, whose
    // class asks for double clicks; on the child, whose class does not, it
    // stays a press. A third press starts over.
    At(POINT{200, 150}, "click --repeat 3 --delay 50 3");
    At(POINT{40, 40}, "click --repeat 2 --delay 50 3");
    ASSERT_TRUE(PumpUntil([] { return g_seen.size() >= 10; }));
    const UINT onTop[] = {WM_RBUTTONDOWN, WM_RBUTTONUP,   WM_RBUTTONDBLCLK,
                          WM_RBUTTONUP,   WM_RBUTTONDOWN, WM_RBUTTONUP};
    const std::vector<Seen> top_seen = SeenBy(top);
    ASSERT_EQ(top_seen.size(), std::size(onTop));
    for (std::size_t i = 0; i < std::size(onTop); ++i) {
        EXPECT_EQ(top_seen[i].message, onTop[i]) << i;
        EXPECT_EQ(top_seen[i].x, 200) << i;
    }
    const UINT onChild[] = {WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDOWN, WM_RBUTTONUP};
    const std::vector<Seen> child_seen = SeenBy(child);
    ASSERT_EQ(child_seen.size(), std::size(onChild));
    for (std::size_t i = 0; i < std::size(onChild); ++i) {
        EXPECT_EQ(child_seen[i].message, onChild[i]) << i;
        EXPECT_EQ(child_seen[i].x, 30) << i; // 40 - the child's offset of 10
    }
}

} // namespace
#endif
