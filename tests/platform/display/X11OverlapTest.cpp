// Overlapping windows on a private X server: each X window shows its own
// window's pixels, never those of a window lying over it, and keys typed
// into an X window go to the focus inside that window.
#ifdef WIN_TEST_HAVE_XCB
#include "XvfbFixture.h"

#include <platform/Display.h>
#include <windows.h>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <map>
#include <string>
#include <vector>

namespace {

constexpr COLORREF kRed = RGB(200, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 200);
constexpr COLORREF kGreen = RGB(0, 160, 0);

std::map<HWND, COLORREF> g_colours;
std::map<HWND, HWND> g_focusChild;

// Fills its client area with its colour; passes the focus on to its chosen
// child, as a frame passes it to its view.
LRESULT PaintedWindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETFOCUS && g_focusChild.count(hwnd)) {
        SetFocus(g_focusChild[hwnd]);
        return 0;
    }
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        HDC dc = BeginPaint(hwnd, &paint);
        RECT client;
        GetClientRect(hwnd, &client);
        HBRUSH brush = CreateSolidBrush(g_colours[hwnd]);
        FillRect(dc, &client, brush);
        DeleteObject(brush);
        EndPaint(hwnd, &paint);
        return 0;
    }
    return DefWindowProc(hwnd, message, wParam, lParam);
}

uint32_t DisplayColour(COLORREF colour) {
    return (static_cast<uint32_t>(GetRValue(colour)) << 16) |
           (static_cast<uint32_t>(GetGValue(colour)) << 8) | GetBValue(colour);
}

class X11OverlapTest : public testing_support::XvfbFixture<> {
protected:
    void SetUp() override {
        XvfbFixture::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        WNDCLASS wc{};
        wc.lpfnWndProc = PaintedWindowProc;
        wc.lpszClassName = u"X11Painted";
        RegisterClass(&wc);
        g_colours.clear();
        g_focusChild.clear();
    }

    void TearDown() override {
        for (auto it = windows.rbegin(); it != windows.rend(); ++it)
            if (IsWindow(*it))
                DestroyWindow(*it);
        XvfbFixture::TearDown();
    }

    HWND Open(const char16_t* title, COLORREF colour, RECT r, HWND owner) {
        HWND hwnd = CreateWindowEx(
            0, u"X11Painted", title, WS_OVERLAPPED | WS_CAPTION | WS_THICKFRAME, r.left, r.top,
            r.right - r.left, r.bottom - r.top, owner, nullptr, nullptr, nullptr);
        g_colours[hwnd] = colour;
        ShowWindow(hwnd, SW_SHOW);
        windows.push_back(hwnd);
        return hwnd;
    }

    // The colour the display shows at a desktop point inside hwnd's X window.
    uint32_t ShownAt(HWND hwnd, POINT desktop) {
        RECT rect;
        GetWindowRect(hwnd, &rect);
        const std::vector<uint32_t> pixel =
            testing_support::DisplayPixels(probe, platform::display::XWindowOf(hwnd),
                                           desktop.x - rect.left, desktop.y - rect.top, 1, 1);
        return pixel.empty() ? 0xFFFFFFFF : pixel[0];
    }

    static POINT Centre(HWND hwnd) {
        RECT client;
        GetClientRect(hwnd, &client);
        POINT centre{client.right / 2, client.bottom / 2};
        ClientToScreen(hwnd, &centre);
        return centre;
    }

    std::vector<HWND> windows;
};

TEST_F(X11OverlapTest, AWindowLyingOverAnotherDoesNotShowInTheLowerOnesXWindow) {
    HWND frame = Open(u"Frame", kRed, RECT{20, 20, 420, 320}, nullptr);
    HWND over = Open(u"Over", kBlue, RECT{100, 100, 260, 220}, frame);
    const POINT middle = Centre(over);
    ASSERT_TRUE(PumpUntil([&] {
        return platform::display::XWindowOf(frame) && platform::display::XWindowOf(over) &&
               ShownAt(over, middle) == DisplayColour(kBlue);
    }));
    // What a covered part of an X window holds can only be read while
    // nothing lies over it: raise the frame's X window behind our back.
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(probe, platform::display::XWindowOf(frame), XCB_CONFIG_WINDOW_STACK_MODE,
                         &above);
    xcb_flush(probe);
    EXPECT_TRUE(PumpUntil([&] { return ShownAt(frame, middle) == DisplayColour(kRed); }));
    // Uncovered parts of the frame are its own too.
    EXPECT_EQ(ShownAt(frame, POINT{middle.x + 200, middle.y}), DisplayColour(kRed));

    // The frame repaints while covered: its X window follows, under the other
    // window as well.
    g_colours[frame] = kGreen;
    InvalidateRect(frame, nullptr, TRUE);
    EXPECT_TRUE(PumpUntil([&] { return ShownAt(frame, middle) == DisplayColour(kGreen); }));
    EXPECT_EQ(ShownAt(frame, POINT{middle.x + 200, middle.y}), DisplayColour(kGreen));

    // Once the other window has gone the frame is copied as it stands.
    DestroyWindow(over);
    g_colours[frame] = kRed;
    InvalidateRect(frame, nullptr, TRUE);
    EXPECT_TRUE(PumpUntil([&] { return ShownAt(frame, middle) == DisplayColour(kRed); }));
}

TEST_F(X11OverlapTest, KeysGoToTheFocusInsideTheWindowTheyWereTypedInto) {
    if (Run("xdotool version") != 0)
        GTEST_SKIP() << "xdotool is not installed";
    HWND first = Open(u"First", kRed, RECT{20, 20, 320, 220}, nullptr);
    HWND second = Open(u"Second", kBlue, RECT{360, 20, 660, 220}, nullptr);
    HWND firstEdit = CreateWindowEx(0, u"EDIT", u"", WS_CHILD | WS_VISIBLE | WS_BORDER, 10, 10, 200,
                                    24, first, nullptr, nullptr, nullptr);
    HWND secondEdit = CreateWindowEx(0, u"EDIT", u"", WS_CHILD | WS_VISIBLE | WS_BORDER, 10, 10,
                                     200, 24, second, nullptr, nullptr, nullptr);
    g_focusChild[first] = firstEdit;
    g_focusChild[second] = secondEdit;
    SetActiveWindow(first);
    SetActiveWindow(second);
    ASSERT_TRUE(PumpUntil([&] {
        return platform::display::XWindowOf(first) && platform::display::XWindowOf(second);
    }));
    ASSERT_EQ(GetFocus(), secondEdit);
    // Typed into the first window's X window: the first window becomes the
    // active one and its edit, which it gives its focus, gets the text.
    ASSERT_EQ(
        Run("xdotool key --window " + std::to_string(platform::display::XWindowOf(first)) + " q"),
        0);
    auto text = [](HWND edit) {
        WCHAR buffer[32] = {};
        GetWindowText(edit, buffer, 32);
        return std::u16string(buffer);
    };
    EXPECT_TRUE(PumpUntil([&] { return text(firstEdit) == u"q"; }));
    EXPECT_EQ(GetActiveWindow(), first);
    EXPECT_EQ(GetFocus(), firstEdit);
    EXPECT_EQ(text(secondEdit), u"");
}

} // namespace
#endif
