// Other programs' top-level windows on a private X server: enumerated beside
// ours, found by title, raised and activated, iconic by their WM_STATE, and
// failing calls, never a crash, once they have gone.
#ifdef WIN_TEST_HAVE_XCB
#include "XvfbFixture.h"

#include <Win/Win.h>
#include <platform/Display.h>

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

using testing_support::InternAtom;

std::u16string TitleOf(HWND hwnd) {
    WCHAR buffer[256] = {};
    const int n = GetWindowText(hwnd, buffer, 256);
    return std::u16string(buffer, static_cast<std::size_t>(std::max(n, 0)));
}

std::vector<HWND> AllWindows() {
    std::vector<HWND> found;
    EnumWindows(
        [](HWND hwnd, LPARAM list) {
            reinterpret_cast<std::vector<HWND>*>(list)->push_back(hwnd);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

class X11ForeignWindowsTest : public testing_support::XvfbFixture<> {
protected:
    void SetUp() override {
        XvfbFixture::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        screen = xcb_setup_roots_iterator(xcb_get_setup(probe)).data;
    }

    void TearDown() override {
        if (child > 0) {
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
        }
        for (HWND hwnd : ours)
            if (IsWindow(hwnd))
                DestroyWindow(hwnd);
        XvfbFixture::TearDown();
    }

    // A top-level window of another program, mapped, with the given names
    // (none when empty).
    xcb_window_t Theirs(const std::string& netName, const std::string& latin1Name) {
        const xcb_window_t window = xcb_generate_id(probe);
        xcb_create_window(probe, XCB_COPY_FROM_PARENT, window, screen->root, 20, 20, 100, 80, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
        if (!netName.empty())
            xcb_change_property(probe, XCB_PROP_MODE_REPLACE, window,
                                InternAtom(probe, "_NET_WM_NAME"), InternAtom(probe, "UTF8_STRING"),
                                8, static_cast<uint32_t>(netName.size()), netName.data());
        if (!latin1Name.empty())
            xcb_change_property(probe, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME,
                                XCB_ATOM_STRING, 8, static_cast<uint32_t>(latin1Name.size()),
                                latin1Name.data());
        xcb_map_window(probe, window);
        Sync();
        return window;
    }

    void Sync() { free(xcb_get_input_focus_reply(probe, xcb_get_input_focus(probe), nullptr)); }

    HWND Ours(const char16_t* title) {
        HWND hwnd = CreateWindowEx(0, u"STATIC", title, WS_POPUP | WS_VISIBLE, 10, 10, 200, 150,
                                   nullptr, nullptr, nullptr, nullptr);
        ours.push_back(hwnd);
        platform::display::Update();
        return hwnd;
    }

    bool Eventually(const std::function<bool()>& done) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!done()) {
            if (std::chrono::steady_clock::now() > deadline)
                return false;
            platform::display::WaitForInput(20);
        }
        return true;
    }

    // The root's children, bottom first.
    std::vector<xcb_window_t> Stacking() {
        xcb_query_tree_reply_t* tree =
            xcb_query_tree_reply(probe, xcb_query_tree(probe, screen->root), nullptr);
        std::vector<xcb_window_t> windows;
        if (tree) {
            const xcb_window_t* children = xcb_query_tree_children(tree);
            windows.assign(children, children + xcb_query_tree_children_length(tree));
        }
        free(tree);
        return windows;
    }

    xcb_screen_t* screen = nullptr;
    std::vector<HWND> ours;
    pid_t child = -1;
};

TEST_F(X11ForeignWindowsTest, NamedWindowsOfOtherProgramsAreEnumeratedAfterOursWithTheirTitles) {
    HWND mine = Ours(u"Mine");
    Theirs("Z\xc3\xbcrich \xe6\x9d\xb1\xe4\xba\xac", "Zurich");
    Theirs("", "Caf\xe9 Noir");
    Theirs("", "");
    const std::vector<HWND> all = AllWindows();
    std::vector<std::u16string> titles;
    for (HWND hwnd : all)
        titles.push_back(TitleOf(hwnd));
    // Our own window once, under its own handle, then theirs topmost first.
    ASSERT_GE(all.size(), 3u);
    EXPECT_EQ(all[0], mine);
    EXPECT_EQ(std::count(titles.begin(), titles.end(), u"Mine"), 1);
    const std::vector<std::u16string> theirs(titles.end() - 2, titles.end());
    EXPECT_EQ(theirs,
              (std::vector<std::u16string>{u"Caf\u00e9 Noir", u"Z\u00fcrich \u6771\u4eac"}));
    EXPECT_EQ(all.size(), 3u);
    EXPECT_EQ(GetWindowTextLength(all[1]), 9);
    // The library's search by the start of the title, any case.
    HWND found = WinUtils::FindApplication(u"CAF");
    ASSERT_TRUE(found);
    EXPECT_NE(found, mine);
    EXPECT_TRUE(IsWindow(found));
    EXPECT_EQ(TitleOf(found), u"Caf\u00e9 Noir");
    EXPECT_FALSE(IsIconic(found));
}

TEST_F(X11ForeignWindowsTest, RaisingAnotherProgramsWindowPutsItOnTopAndGivesItTheFocus) {
    const xcb_window_t window = Theirs("", "Below");
    HWND mine = Ours(u"Mine");
    const unsigned myWindow = platform::display::XWindowOf(mine);
    ASSERT_NE(myWindow, 0u);
    ASSERT_EQ(Stacking().back(), myWindow);
    HWND theirs = WinUtils::FindApplication(u"Below");
    ASSERT_TRUE(theirs);
    EXPECT_TRUE(BringWindowToTop(theirs));
    Sync();
    EXPECT_EQ(Stacking().back(), window);
    EXPECT_TRUE(SetForegroundWindow(theirs));
    xcb_get_input_focus_reply_t* focus =
        xcb_get_input_focus_reply(probe, xcb_get_input_focus(probe), nullptr);
    ASSERT_TRUE(focus);
    EXPECT_EQ(focus->focus, window);
    free(focus);
}

TEST_F(X11ForeignWindowsTest, WithAWindowManagerItsClientListAndActivationRequestAreUsed) {
    // Stand in for a window manager: the client list, the check window, and
    // an ear for activation requests on the root.
    const xcb_window_t client = Theirs("Managed", "");
    Theirs("Unlisted", "");
    const xcb_window_t check = Theirs("", "");
    xcb_change_property(probe, XCB_PROP_MODE_REPLACE, screen->root,
                        InternAtom(probe, "_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 32, 1,
                        &check);
    xcb_change_property(probe, XCB_PROP_MODE_REPLACE, screen->root,
                        InternAtom(probe, "_NET_CLIENT_LIST"), XCB_ATOM_WINDOW, 32, 1, &client);
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    xcb_change_window_attributes(probe, screen->root, XCB_CW_EVENT_MASK, &mask);
    Sync();
    std::vector<HWND> all = AllWindows();
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(TitleOf(all[0]), u"Managed");
    EXPECT_EQ(WinUtils::FindApplication(u"Unlisted"), nullptr);
    ASSERT_TRUE(SetForegroundWindow(all[0]));
    const xcb_atom_t active = InternAtom(probe, "_NET_ACTIVE_WINDOW");
    bool asked = false;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!asked && std::chrono::steady_clock::now() < deadline) {
        xcb_generic_event_t* event = xcb_poll_for_event(probe);
        if (!event) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            continue;
        }
        auto* message = reinterpret_cast<xcb_client_message_event_t*>(event);
        if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE && message->type == active)
            asked = message->window == client;
        free(event);
    }
    EXPECT_TRUE(asked);
}

TEST_F(X11ForeignWindowsTest, IconicComesFromWmState) {
    const xcb_window_t window = Theirs("Iconic", "");
    const xcb_atom_t wmState = InternAtom(probe, "WM_STATE");
    const uint32_t iconic[] = {3, 0};
    xcb_change_property(probe, XCB_PROP_MODE_REPLACE, window, wmState, wmState, 32, 2, iconic);
    Sync();
    HWND hwnd = WinUtils::FindApplication(u"Iconic");
    ASSERT_TRUE(hwnd);
    EXPECT_TRUE(IsIconic(hwnd));
    const uint32_t normal[] = {1, 0};
    xcb_change_property(probe, XCB_PROP_MODE_REPLACE, window, wmState, wmState, 32, 2, normal);
    Sync();
    EXPECT_FALSE(IsIconic(hwnd));
}

TEST_F(X11ForeignWindowsTest, AnXtermIsFoundByTitleAndItsHandleFailsOnceItHasGone) {
    if (testing_support::RunOnDisplay(server->Name(), "xterm -version") != 0)
        GTEST_SKIP() << "xterm is not installed";
    child = fork();
    if (child == 0) {
        setenv("DISPLAY", server->Name().c_str(), 1);
        execlp("xterm", "xterm", "-T", "SomeTitle", static_cast<char*>(nullptr));
        _exit(127);
    }
    HWND found = nullptr;
    ASSERT_TRUE(Eventually([&] { return (found = WinUtils::FindApplication(u"sometitle")); }));
    EXPECT_EQ(TitleOf(found), u"SomeTitle");
    EXPECT_TRUE(SetForegroundWindow(found));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    child = -1;
    ASSERT_TRUE(Eventually([&] { return !IsWindow(found); }));
    WCHAR buffer[32] = {u'x'};
    EXPECT_EQ(GetWindowText(found, buffer, 32), 0);
    EXPECT_EQ(GetWindowTextLength(found), 0);
    EXPECT_FALSE(SetForegroundWindow(found));
    EXPECT_FALSE(BringWindowToTop(found));
    EXPECT_FALSE(IsIconic(found));
    EXPECT_EQ(WinUtils::FindApplication(u"SomeTitle"), nullptr);
}

TEST_F(X11ForeignWindowsTest, HandlesThatAreNoWindowAtAllFail) {
    for (HWND bogus :
         {reinterpret_cast<HWND>(uintptr_t{0x7FFFFFF2}), reinterpret_cast<HWND>(uintptr_t{6}),
          reinterpret_cast<HWND>(uintptr_t{0xDEAD0000})}) {
        WCHAR buffer[8] = {};
        EXPECT_FALSE(IsWindow(bogus));
        EXPECT_EQ(GetWindowText(bogus, buffer, 8), 0);
        EXPECT_FALSE(SetForegroundWindow(bogus));
        EXPECT_FALSE(IsIconic(bogus));
    }
}

} // namespace
#endif
