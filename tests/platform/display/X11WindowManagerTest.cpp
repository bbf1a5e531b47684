// Our top-level windows under a real window manager (openbox) on a private X
// server: its empty client list lists no other window, it adds no frame of
// its own to the one the window draws, a window
// goes exactly where the program puts it, the manager's moves come back as
// the window's position, and the pixels are the desktop's.
#ifdef WIN_TEST_HAVE_XCB
#include "XvfbFixture.h"

#include <platform/Display.h>
#include <platform/WindowPictures.h>
#include <windows.h>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <thread>
#include <vector>

namespace {

using testing_support::InternAtom;

class X11WindowManagerTest : public testing_support::XvfbFixture<> {
protected:
    void SetUp() override {
        XvfbFixture::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        if (Run("command -v openbox >/dev/null") != 0)
            GTEST_SKIP() << "openbox is not installed";
        root = xcb_setup_roots_iterator(xcb_get_setup(probe)).data->root;
        // The manager ends with the server.
        ASSERT_EQ(Run("openbox --sm-disable >/dev/null 2>&1 &"), 0);
        const xcb_atom_t check = InternAtom(probe, "_NET_SUPPORTING_WM_CHECK");
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (!Managed(check) && std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        ASSERT_TRUE(Managed(check)) << "openbox did not start";
        ASSERT_TRUE(ManagerTakesWindows()) << "openbox does not take windows";
        WNDCLASS wc{};
        wc.lpfnWndProc = DefWindowProc;
        wc.lpszClassName = u"X11Managed";
        wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
        RegisterClass(&wc);
    }

    void TearDown() override {
        if (hwnd && IsWindow(hwnd))
            DestroyWindow(hwnd);
        XvfbFixture::TearDown();
    }

    bool Managed(xcb_atom_t check) {
        xcb_get_property_reply_t* reply = xcb_get_property_reply(
            probe, xcb_get_property(probe, 0, root, check, XCB_ATOM_WINDOW, 0, 1), nullptr);
        const bool found = reply && xcb_get_property_value_length(reply) == 4;
        free(reply);
        return found;
    }

    // Whether the manager has come as far as its event loop: a window of the
    // probe's, mapped again while the manager is still starting (when it may
    // drop the request), is taken into a frame.
    bool ManagerTakesWindows() {
        const xcb_window_t window = xcb_generate_id(probe);
        xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(probe)).data;
        xcb_create_window(probe, XCB_COPY_FROM_PARENT, window, root, 0, 0, 50, 50, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
        bool taken = false;
        for (int attempt = 0; attempt < 20 && !taken; ++attempt) {
            xcb_unmap_window(probe, window);
            xcb_map_window(probe, window);
            xcb_flush(probe);
            for (int i = 0; i < 25 && !taken; ++i) {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
                taken = Parent(window) != root;
            }
        }
        xcb_destroy_window(probe, window);
        xcb_flush(probe);
        // Gone from the manager's client list too.
        const xcb_atom_t list = InternAtom(probe, "_NET_CLIENT_LIST");
        for (int i = 0; i < 100 && taken && Clients(list) != 0; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        return taken;
    }

    int Clients(xcb_atom_t list) {
        xcb_get_property_reply_t* reply = xcb_get_property_reply(
            probe, xcb_get_property(probe, 0, root, list, XCB_ATOM_WINDOW, 0, 1024), nullptr);
        const int count = reply ? xcb_get_property_value_length(reply) / 4 : 0;
        free(reply);
        return count;
    }

    // The X window's parent (the manager's frame once it has taken it).
    xcb_window_t Parent(xcb_window_t window) {
        xcb_query_tree_reply_t* tree =
            xcb_query_tree_reply(probe, xcb_query_tree(probe, window), nullptr);
        const xcb_window_t parent = tree ? tree->parent : 0;
        free(tree);
        return parent;
    }

    // Where the X window lies on the screen and how big it is.
    RECT OnScreen(xcb_window_t window) {
        RECT r{};
        xcb_translate_coordinates_reply_t* at = xcb_translate_coordinates_reply(
            probe, xcb_translate_coordinates(probe, window, root, 0, 0), nullptr);
        xcb_get_geometry_reply_t* size =
            xcb_get_geometry_reply(probe, xcb_get_geometry(probe, window), nullptr);
        if (at && size)
            r = RECT{at->dst_x, at->dst_y, at->dst_x + size->width, at->dst_y + size->height};
        free(at);
        free(size);
        return r;
    }

    static bool Same(const RECT& a, const RECT& b) {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }

    RECT Rect() const {
        RECT r{};
        GetWindowRect(hwnd, &r);
        return r;
    }

    xcb_window_t root = 0;
    HWND hwnd = nullptr;
};

TEST_F(X11WindowManagerTest, TheWindowKeepsItsOwnFrameAndGoesWhereItIsPut) {
    // The manager's client list is empty: no window of another program.
    int others = 0;
    EnumWindows(
        [](HWND, LPARAM count) {
            ++*reinterpret_cast<int*>(count);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&others));
    EXPECT_EQ(others, 0);
    hwnd = CreateWindowEx(0, u"X11Managed", u"Managed", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100,
                          400, 300, nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(PumpUntil([&] { return platform::display::XWindowOf(hwnd) != 0; }));
    const xcb_window_t window = platform::display::XWindowOf(hwnd);
    // Taken into a frame of the manager's that adds nothing around it.
    ASSERT_TRUE(PumpUntil([&] { return Parent(window) != root; }));
    ASSERT_TRUE(PumpUntil([&] { return Same(OnScreen(window), RECT{100, 100, 500, 400}); }));
    EXPECT_TRUE(Same(OnScreen(Parent(window)), RECT{100, 100, 500, 400}));
    // The manager moves it (as a pager or a keyboard move would): the
    // window's position follows.
    const uint32_t to[] = {700, 500};
    xcb_configure_window(probe, window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, to);
    xcb_flush(probe);
    ASSERT_TRUE(PumpUntil([&] { return Same(Rect(), RECT{700, 500, 1100, 800}); }));
    // The program moves it: it lands there and stays, not shifted by the
    // manager's frame.
    SetWindowPos(hwnd, nullptr, 300, 200, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    ASSERT_TRUE(PumpUntil([&] { return Same(OnScreen(window), RECT{300, 200, 700, 500}); }));
    const auto settled = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    PumpUntil([&] { return std::chrono::steady_clock::now() > settled; });
    EXPECT_TRUE(Same(OnScreen(window), RECT{300, 200, 700, 500}));
    EXPECT_TRUE(Same(Rect(), RECT{300, 200, 700, 500}));
    // And it shows what the desktop draws.
    int width = 0, height = 0;
    const std::vector<uint32_t> drawn = testing_support::HeadlessPixels(hwnd, &width, &height);
    EXPECT_TRUE(PumpUntil([&] { return DisplayPixels(window, width, height) == drawn; }));
}

} // namespace
#endif
