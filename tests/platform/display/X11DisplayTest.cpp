// The desktop on a real X11 display (a private Xvfb): the dialog's pixels,
// typing and clicking through the display's own input, the window manager's
// close, and the display going away.
#ifdef WIN_TEST_HAVE_XCB
#include "XvfbFixture.h"

#include <platform/Display.h>
#include <platform/MessagePump.h>
#include <platform/ResourceChain.h>
#include <windows.h>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr UINT kEntryDialog = 300;
constexpr UINT kNameId = 30;
constexpr UINT kGoId = 31;

std::vector<UINT> g_commands;

INT_PTR RecordingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG)
        return TRUE;
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        g_commands.push_back(LOWORD(wParam));
        if (LOWORD(wParam) == IDCANCEL)
            DestroyWindow(hwnd);
        return TRUE;
    }
    return FALSE;
}

class X11DisplayTest : public testing_support::XvfbFixture<> {
protected:
    void SetUp() override {
        XvfbFixture::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        g_commands.clear();
    }

    void TearDown() override {
        if (dialog && IsWindow(dialog))
            DestroyWindow(dialog);
        XvfbFixture::TearDown();
    }

    HWND OpenDialog() {
        auto found = platform::FindDialogTemplate(platform::MakeResourceName(kEntryDialog));
        EXPECT_TRUE(found);
        if (!found)
            return nullptr;
        dialog = CreateDialogIndirectParam(found.module, found.resource, nullptr, RecordingProc, 0);
        return dialog;
    }

    // Runs the message loop the way a host does, until done says so or
    // five seconds pass.
    bool RunUntil(const std::function<bool()>& done) {
        return testing_support::PumpMessagesUntil(done, dialog);
    }

    bool Viewable(unsigned window) {
        xcb_get_window_attributes_reply_t* reply = xcb_get_window_attributes_reply(
            probe, xcb_get_window_attributes(probe, window), nullptr);
        const bool viewable = reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
        free(reply);
        return viewable;
    }

    // The window manager's close of an X window: WM_DELETE_WINDOW, sent once
    // the probe's earlier requests are done.
    void SendClose(unsigned window) {
        auto atom = [&](const char* name) { return testing_support::InternAtom(probe, name); };
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = atom("WM_PROTOCOLS");
        message.data.data32[0] = atom("WM_DELETE_WINDOW");
        free(xcb_request_check(probe,
                               xcb_send_event_checked(probe, 0, window, XCB_EVENT_MASK_NO_EVENT,
                                                      reinterpret_cast<const char*>(&message))));
    }

    std::u16string NameText() {
        WCHAR text[64] = {};
        GetWindowText(GetDlgItem(dialog, kNameId), text, 64);
        return text;
    }

    HWND dialog = nullptr;
};

TEST_F(X11DisplayTest, DialogAppearsWithTitlePlaceAndTheHeadlessPixels) {
    ASSERT_TRUE(OpenDialog());
    const unsigned window = platform::display::XWindowOf(dialog);
    ASSERT_TRUE(RunUntil([&] {
        return platform::display::XWindowOf(dialog) != 0 &&
               Viewable(platform::display::XWindowOf(dialog));
    }));
    const unsigned shown = platform::display::XWindowOf(dialog);
    EXPECT_TRUE(window == 0 || window == shown);

    RECT rect;
    GetWindowRect(dialog, &rect);
    xcb_get_geometry_reply_t* geometry =
        xcb_get_geometry_reply(probe, xcb_get_geometry(probe, shown), nullptr);
    ASSERT_TRUE(geometry);
    EXPECT_EQ(geometry->x, rect.left);
    EXPECT_EQ(geometry->y, rect.top);
    EXPECT_EQ(geometry->width, rect.right - rect.left);
    EXPECT_EQ(geometry->height, rect.bottom - rect.top);
    free(geometry);

    xcb_get_property_reply_t* name = xcb_get_property_reply(
        probe,
        xcb_get_property(probe, 0, shown, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, 64),
        nullptr);
    ASSERT_TRUE(name);
    EXPECT_EQ(std::string(static_cast<const char*>(xcb_get_property_value(name)),
                          static_cast<std::size_t>(xcb_get_property_value_length(name))),
              "Entry on the display");
    free(name);

    int width = 0, height = 0;
    const std::vector<uint32_t> headless = testing_support::HeadlessPixels(dialog, &width, &height);
    ASSERT_EQ(width, rect.right - rect.left);
    ASSERT_EQ(height, rect.bottom - rect.top);
    const std::vector<uint32_t> onDisplay = DisplayPixels(shown, width, height);
    ASSERT_EQ(onDisplay.size(), headless.size());
    std::size_t differing = 0;
    for (std::size_t i = 0; i < headless.size(); ++i)
        differing += onDisplay[i] != headless[i];
    EXPECT_EQ(differing, 0u);
    // Not a blank picture: the caption and the controls are there.
    std::size_t colours = 0;
    for (std::size_t i = 1; i < headless.size(); ++i)
        colours += headless[i] != headless[0];
    EXPECT_GT(colours, 1000u);
}

TEST_F(X11DisplayTest, TypedKeysReachTheEditAndAClickReachesTheButton) {
    if (testing_support::RunOnDisplay(server->Name(), "xdotool version") != 0)
        GTEST_SKIP() << "xdotool is not installed";
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(RunUntil([&] {
        return platform::display::XWindowOf(dialog) &&
               Viewable(platform::display::XWindowOf(dialog));
    }));
    const std::string window = std::to_string(platform::display::XWindowOf(dialog));
    HWND edit = GetDlgItem(dialog, kNameId);
    ASSERT_EQ(GetFocus(), edit);
    const unsigned shown = platform::display::XWindowOf(dialog);
    RECT whole;
    GetWindowRect(dialog, &whole);
    const int width = whole.right - whole.left, height = whole.bottom - whole.top;
    const std::vector<uint32_t> before = DisplayPixels(shown, width, height);

    // With no window manager the keys go to the window under the pointer.
    RECT rect, editRect;
    GetWindowRect(dialog, &rect);
    GetWindowRect(edit, &editRect);
    ASSERT_EQ(testing_support::RunOnDisplay(server->Name(),
                                            "xdotool mousemove --window " + window + " " +
                                                std::to_string(editRect.left - rect.left + 4) +
                                                " " + std::to_string(editRect.top - rect.top + 4) +
                                                " type --delay 5 'Ab1 x?'"),
              0);
    EXPECT_TRUE(RunUntil([&] { return NameText() == u"Ab1 x?"; }))
        << "typed: " << NameText().size();
    ASSERT_EQ(testing_support::RunOnDisplay(server->Name(), "xdotool key BackSpace BackSpace"), 0);
    EXPECT_TRUE(RunUntil([&] { return NameText() == u"Ab1 "; }));

    RECT goRect;
    GetWindowRect(GetDlgItem(dialog, kGoId), &goRect);
    ASSERT_EQ(testing_support::RunOnDisplay(
                  server->Name(),
                  "xdotool mousemove --window " + window + " " +
                      std::to_string((goRect.left + goRect.right) / 2 - rect.left) + " " +
                      std::to_string((goRect.top + goRect.bottom) / 2 - rect.top) + " click 1"),
              0);
    EXPECT_TRUE(RunUntil([] { return !g_commands.empty(); }));
    ASSERT_EQ(g_commands.size(), 1u);
    EXPECT_EQ(g_commands[0], kGoId);
    // The typed text reached the display: rows of the edit changed.
    const std::vector<uint32_t> after = DisplayPixels(shown, width, height);
    ASSERT_EQ(after.size(), before.size());
    std::size_t changedInEdit = 0;
    for (int y = editRect.top - whole.top; y < editRect.bottom - whole.top; ++y)
        for (int x = editRect.left - whole.left; x < editRect.right - whole.left; ++x)
            changedInEdit += after[static_cast<std::size_t>(y * width + x)] !=
                             before[static_cast<std::size_t>(y * width + x)];
    EXPECT_GT(changedInEdit, 20u);

    // The display shows the typed text and the released button: once the
    // loop has nothing left to do its pixels equal the headless ones.
    std::size_t differing = 0;
    int firstRow = -1, lastRow = -1;
    EXPECT_TRUE(RunUntil([&] {
        int w = 0, h = 0;
        const std::vector<uint32_t> headless = testing_support::HeadlessPixels(dialog, &w, &h);
        const std::vector<uint32_t> live =
            DisplayPixels(platform::display::XWindowOf(dialog), w, h);
        differing = live.size() == headless.size() ? 0 : headless.size();
        firstRow = lastRow = -1;
        for (std::size_t i = 0; i < live.size() && i < headless.size(); ++i)
            if (live[i] != headless[i]) {
                ++differing;
                if (firstRow < 0)
                    firstRow = static_cast<int>(i) / w;
                lastRow = static_cast<int>(i) / w;
            }
        return differing == 0;
    })) << differing
        << " pixels differ in rows " << firstRow << " to " << lastRow;
}

TEST_F(X11DisplayTest, TheWindowManagersCloseBecomesWmClose) {
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(RunUntil([&] { return platform::display::XWindowOf(dialog) != 0; }));
    SendClose(platform::display::XWindowOf(dialog));
    // A dialog's WM_CLOSE is its Cancel button.
    EXPECT_TRUE(RunUntil([] { return !g_commands.empty(); }));
    ASSERT_EQ(g_commands.size(), 1u);
    EXPECT_EQ(g_commands[0], static_cast<UINT>(IDCANCEL));
    EXPECT_FALSE(IsWindow(dialog));
    // The window went, and so does its X window.
    EXPECT_TRUE(RunUntil([&] { return platform::display::XWindowOf(dialog) == 0; }));
}

TEST_F(X11DisplayTest, InputReadBeforeTheWaitIsHandledWithoutWaitingForMore) {
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(RunUntil([&] { return platform::display::XWindowOf(dialog) != 0; }));
    // Everything the display had to say so far is handled.
    const auto settled = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    RunUntil([&] { return std::chrono::steady_clock::now() > settled; });
    SendClose(platform::display::XWindowOf(dialog));
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    // The close is the last event for a while: the wait reads it, posts
    // WM_CLOSE and returns for the loop to handle it, rather than waiting
    // for another event first.
    const auto start = std::chrono::steady_clock::now();
    platform::display::WaitForInput(5000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    MSG msg;
    ASSERT_TRUE(PeekMessage(&msg, dialog, WM_CLOSE, WM_CLOSE, PM_NOREMOVE));
}

TEST_F(X11DisplayTest, TheDisplayGoingAwayEndsTheLoopCleanly) {
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(RunUntil([&] { return platform::display::XWindowOf(dialog) != 0; }));
    server->Kill();
    testing::internal::CaptureStderr();
    MSG msg;
    // GetMessage waits on the display; when it is gone the loop ends.
    int messages = 0;
    while (GetMessage(&msg, nullptr, 0, 0) && messages < 100000) {
        TranslateMessage(&msg);
        DispatchMessage(&msg);
        ++messages;
    }
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_FALSE(platform::display::IsOpen());
    EXPECT_NE(said.find("connection to the display was lost"), std::string::npos) << said;
    EXPECT_TRUE(IsWindow(dialog));
}

} // namespace

#endif
