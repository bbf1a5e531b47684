// A window's menu bar from a private X server: a real click on the bar opens
// the drop-down in an X window of its own, and a click on one of its items,
// or the keys through a cascading pop-up, make the window's command; Alt
// alone selects the bar; another program taking the keyboard closes it.
#ifdef WIN_TEST_HAVE_XCB
#include "XvfbFixture.h"

#include <platform/Automation.h>
#include <platform/Display.h>
#include <platform/MessagePump.h>
#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr UINT ID_OPEN = 201, ID_ONE = 202, ID_TWO = 203;

std::vector<UINT> g_commands;

LRESULT CommandProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND)
        g_commands.push_back(LOWORD(wParam));
    return DefWindowProc(hwnd, message, wParam, lParam);
}

class X11MenuBarTest : public testing_support::XvfbFixture<> {
protected:
    void SetUp() override {
        XvfbFixture::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        if (Run("xdotool version") != 0)
            GTEST_SKIP() << "xdotool is not installed";
        g_commands.clear();
        WNDCLASS wc{};
        wc.lpfnWndProc = CommandProc;
        wc.lpszClassName = u"X11MenuBar";
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        RegisterClass(&wc);
        HMENU bar = CreateMenu();
        HMENU file = CreatePopupMenu();
        HMENU recent = CreatePopupMenu();
        AppendMenu(recent, MF_STRING, ID_ONE, u"&1 one.txt");
        AppendMenu(recent, MF_STRING, ID_TWO, u"&2 two.txt");
        AppendMenu(file, MF_STRING, ID_OPEN, u"&Open");
        AppendMenu(file, MF_POPUP, reinterpret_cast<UINT_PTR>(recent), u"&Recent");
        AppendMenu(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(file), u"&File");
        top = CreateWindowEx(0, u"X11MenuBar", u"Menu bar", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40,
                             30, 320, 240, nullptr, bar, nullptr, nullptr);
        ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(top) != 0; }));
        origin = POINT{0, 0};
        ClientToScreen(top, &origin);
    }

    void TearDown() override {
        platform::SetIdleHandler(nullptr);
        if (IsWindow(top))
            DestroyWindow(top);
        UnregisterClass(u"X11MenuBar", nullptr);
        XvfbFixture::TearDown();
    }

    // Runs xdotool's actions in the background, so that the loop here takes
    // each one as it comes, and pumps until a command arrives.
    bool Act(const std::string& actions) {
        if (Run("xdotool " + actions + " >/dev/null 2>&1 &") != 0)
            return false;
        return PumpUntil([] { return !g_commands.empty(); });
    }

    // xdotool's "mousemove X Y" to a screen point.
    static std::string MoveTo(int x, int y) {
        return "mousemove " + std::to_string(x) + " " + std::to_string(y) + " ";
    }

    bool OverrideRedirect(unsigned window) {
        xcb_get_window_attributes_reply_t* reply = xcb_get_window_attributes_reply(
            probe, xcb_get_window_attributes(probe, window), nullptr);
        const bool redirect = reply && reply->override_redirect;
        free(reply);
        return redirect;
    }

    HWND top = nullptr;
    POINT origin{};
};

TEST_F(X11MenuBarTest, AClickOnTheBarThenOnAnItemMakesItsCommand) {
    const int barY = origin.y - GetSystemMetrics(SM_CYMENU) / 2;
    // While the menu is open, once the display has been brought up to date
    // (the loop's idle moments after the first), its drop-down is an X window
    // of its own showing what the desktop draws.
    unsigned shown = 0;
    bool same = false;
    // The window manager leaves the drop-down alone, not the frame.
    bool unmanaged = false;
    platform::SetIdleHandler([&] {
        platform::automation::PopupMenuView view;
        if (same || !platform::automation::ReadPopupMenu(&view))
            return false;
        shown = platform::display::XWindowOf(view.window);
        unmanaged = OverrideRedirect(shown);
        int width = 0, height = 0;
        const std::vector<uint32_t> drawn =
            testing_support::HeadlessPixels(view.window, &width, &height);
        for (int tries = 0; shown && tries < 50 && !same; ++tries) {
            same = DisplayPixels(shown, width, height) == drawn;
            if (!same)
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return false;
    });
    ASSERT_TRUE(Act(MoveTo(origin.x + 10, barY) + "click 1 sleep 0.4 " +
                    MoveTo(origin.x + 40, origin.y + 3 + 11) + "sleep 0.2 click 1"));
    platform::SetIdleHandler(nullptr);
    EXPECT_EQ(g_commands, std::vector<UINT>{ID_OPEN});
    EXPECT_NE(shown, 0u);
    EXPECT_TRUE(same);
    EXPECT_TRUE(unmanaged);
    EXPECT_FALSE(OverrideRedirect(platform::display::XWindowOf(top)));
}

TEST_F(X11MenuBarTest, TheKeysGoThroughACascadingPopUp) {
    const int barY = origin.y - GetSystemMetrics(SM_CYMENU) / 2;
    ASSERT_TRUE(
        Act(MoveTo(origin.x + 10, barY) + "click 1 sleep 0.4 key Down Down Right Down Return"));
    EXPECT_EQ(g_commands, std::vector<UINT>{ID_TWO});
}

TEST_F(X11MenuBarTest, AltAndALetterOpenTheBarFromTheKeyboard) {
    ASSERT_EQ(
        Run("xdotool windowfocus --sync " + std::to_string(platform::display::XWindowOf(top))), 0);
    ASSERT_TRUE(Act("key alt+f sleep 0.3 key Down Right Return"));
    EXPECT_EQ(g_commands, std::vector<UINT>{ID_ONE});
    // Alt alone selects File with nothing open; Down opens it.
    g_commands.clear();
    ASSERT_TRUE(Act("key alt sleep 0.3 key Down Down Right Down Return"));
    EXPECT_EQ(g_commands, std::vector<UINT>{ID_TWO});
}

TEST_F(X11MenuBarTest, AltHeldWhileTheKeysWentElsewhereSelectsNothing) {
    // Another window takes the keys while Alt is down, then gives them back
    // before Alt comes up.
    HWND other = CreateWindowEx(0, u"X11MenuBar", u"Other", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 400,
                                30, 200, 150, nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(other) != 0; }));
    const std::string ours = std::to_string(platform::display::XWindowOf(top));
    const std::string theirs = std::to_string(platform::display::XWindowOf(other));
    ASSERT_EQ(Run("xdotool windowfocus --sync " + ours + " keydown alt windowfocus --sync " +
                  theirs + " windowfocus --sync " + ours + " keyup alt"),
              0);
    // Alt's release selected nothing: F10 now selects the bar, and Down and
    // Enter pick Open. (Had the release selected the bar, F10 would leave it
    // and the keys would go to the window.)
    ASSERT_TRUE(Act("key F10 sleep 0.2 key Down Return"));
    EXPECT_EQ(g_commands, std::vector<UINT>{ID_OPEN});
    DestroyWindow(other);
}

TEST_F(X11MenuBarTest, AnOpenMenuClosesWhenAnotherProgramTakesTheKeyboard) {
    // Another program's window, made on the probe's connection.
    const xcb_window_t foreign = xcb_generate_id(probe);
    xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(probe)).data;
    xcb_create_window(probe, XCB_COPY_FROM_PARENT, foreign, screen->root, 500, 400, 100, 80, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
    xcb_map_window(probe, foreign);
    xcb_flush(probe);
    // Once the drop-down is open, the other window takes the focus.
    bool focused = false;
    platform::SetIdleHandler([&] {
        platform::automation::PopupMenuView view;
        if (!focused && platform::automation::ReadPopupMenu(&view))
            focused = Run("xdotool windowfocus --sync " + std::to_string(foreign)) == 0;
        return false;
    });
    const int barY = origin.y - GetSystemMetrics(SM_CYMENU) / 2;
    ASSERT_EQ(Run("xdotool " + MoveTo(origin.x + 10, barY) + "click 1"), 0);
    platform::automation::PopupMenuView view;
    EXPECT_TRUE(PumpUntil([&] { return focused && !platform::automation::ReadPopupMenu(&view); }));
    platform::SetIdleHandler(nullptr);
    EXPECT_TRUE(g_commands.empty());
    xcb_destroy_window(probe, foreign);
    xcb_flush(probe);
}

} // namespace
#endif
