// The terminal window on a real X display (a private Xvfb): keys typed by
// xdotool through the display reach the program, the display shows the same
// pixels as the desktop, and the wheel scrolls a full-screen program.
#ifdef WIN_TEST_HAVE_XCB
#include "TerminalWindowSupport.h"
#include "platform/display/XvfbFixture.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

bool XdotoolInstalled() {
    return std::system("command -v xdotool >/dev/null 2>&1") == 0;
}

class TerminalWindowX11Test : public testing_support::XvfbFixture<TerminalWindowTest> {
protected:
    void SetUp() override {
        if (!XdotoolInstalled())
            GTEST_SKIP() << "xdotool is not installed";
        XvfbFixture::SetUp();
    }

    // The window's X window once the display shows it; 0 if it never does.
    unsigned XWindow() {
        unsigned xid = 0;
        RunUntil([&] {
            platform::display::Update();
            return (xid = platform::display::XWindowOf(*window)) != 0;
        });
        return xid;
    }

    // A shell that says "ready", reads a line and echoes it as "got:...",
    // shown on the display; xid is its X window.
    void OpenReadingLine(unsigned* xid) {
        ASSERT_TRUE(Open({"sh", "-c", "echo ready; read x; echo got:$x; sleep 10"}));
        ASSERT_TRUE(WaitFor("ready"));
        *xid = XWindow();
        ASSERT_NE(*xid, 0u);
    }
};

TEST_F(TerminalWindowX11Test, KeysTypedOnTheDisplayAppearOnTheScreen) {
    unsigned xid = 0;
    ASSERT_NO_FATAL_FAILURE(OpenReadingLine(&xid));
    const std::string id = std::to_string(xid);
    ASSERT_EQ(testing_support::RunOnDisplay(server->Name(), "xdotool windowfocus --sync " + id), 0);
    ASSERT_EQ(testing_support::RunOnDisplay(server->Name(), "xdotool type --delay 5 'typed on X'"),
              0);
    ASSERT_EQ(testing_support::RunOnDisplay(server->Name(), "xdotool key Return"), 0);
    ASSERT_TRUE(WaitFor("got:typed on X")) << ScreenText();

    // Once the loop has shown the last paint, the display holds the desktop's pixels.
    ASSERT_TRUE(RunUntil([&] { return !GetUpdateRect(*window, nullptr, FALSE); }));
    platform::display::Update();
    RECT rect;
    window->GetWindowRect(&rect);
    int width = 0, height = 0;
    const std::vector<uint32_t> headless =
        testing_support::HeadlessPixels(*window, &width, &height);
    ASSERT_EQ(width, rect.right - rect.left);
    const std::vector<uint32_t> shown = DisplayPixels(xid, width, height);
    ASSERT_EQ(shown.size(), headless.size());
    std::size_t differing = 0;
    for (std::size_t i = 0; i < shown.size(); ++i)
        differing += shown[i] != headless[i];
    EXPECT_EQ(differing, 0u);
    // Text was drawn: the text colour is in the window.
    std::size_t textPixels = 0;
    for (uint32_t p : shown)
        textPixels += p == 0xD8D8D8;
    EXPECT_GT(textPixels, 100u);
}

TEST_F(TerminalWindowX11Test, TheMiddleButtonPastesAnotherProgramsClipboard) {
    if (std::system("command -v xclip >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "xclip is not installed";
    unsigned xid = 0;
    ASSERT_NO_FATAL_FAILURE(OpenReadingLine(&xid));
    const std::string id = std::to_string(xid);
    const auto text = std::filesystem::temp_directory_path() /
                      ("terminal-middle-" + std::to_string(getpid()) + ".txt");
    std::ofstream(text) << "from the middle";
    const int put = testing_support::RunOnDisplay(server->Name(),
                                                  "xclip -selection clipboard -i " + text.string());
    std::filesystem::remove(text);
    ASSERT_EQ(put, 0);
    ASSERT_EQ(testing_support::RunOnDisplay(server->Name(), "xdotool windowfocus --sync " + id +
                                                                " mousemove --window " + id +
                                                                " 60 80 click 2"),
              0);
    ASSERT_TRUE(WaitFor("from the middle")) << ScreenText();
    ASSERT_EQ(testing_support::RunOnDisplay(server->Name(), "xdotool key Return"), 0);
    EXPECT_TRUE(WaitFor("got:from the middle")) << ScreenText();
}

TEST_F(TerminalWindowX11Test, TheWheelOnTheDisplaySendsCursorKeysToAFullScreenProgram) {
    ASSERT_TRUE(Open({"sh", "-c",
                      "stty raw -echo; printf '\\033[?1hready\\r\\n'; "
                      "dd bs=1 count=18 2>/dev/null | od -An -tx1 -v -w18"}));
    ASSERT_TRUE(WaitFor("ready"));
    const unsigned xid = XWindow();
    ASSERT_NE(xid, 0u);
    const std::string id = std::to_string(xid);
    // Down a notch, then up one: three ESC O B, then three ESC O A.
    ASSERT_EQ(testing_support::RunOnDisplay(server->Name(), "xdotool windowfocus --sync " + id +
                                                                " mousemove --window " + id +
                                                                " 60 80 click 5 click 4"),
              0);
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_TRUE(Shows(" 1b 4f 42 1b 4f 42 1b 4f 42 1b 4f 41 1b 4f 41 1b 4f 41\n")) << ScreenText();
}

TEST_F(TerminalWindowX11Test, AltOnTheDisplayIsAMetaKey) {
    ASSERT_TRUE(Open({"sh", "-c",
                      "stty raw -echo; printf 'ready\\r\\n'; "
                      "dd bs=1 count=3 2>/dev/null | od -An -tx1 -v"}));
    ASSERT_TRUE(WaitFor("ready"));
    const unsigned xid = XWindow();
    ASSERT_NE(xid, 0u);
    ASSERT_EQ(testing_support::RunOnDisplay(server->Name(), "xdotool windowfocus --sync " +
                                                                std::to_string(xid) +
                                                                " key alt+b x"),
              0);
    ASSERT_TRUE(WaitForEnd()) << ScreenText();
    EXPECT_TRUE(Shows(" 1b 62 78")) << ScreenText();
}

TEST_F(TerminalWindowX11Test, ADoubleClickOnTheDisplaySelectsAWord) {
    ASSERT_TRUE(Open({"sh", "-c", "echo alpha beta-gamma delta; sleep 10"}));
    ASSERT_TRUE(WaitFor("delta"));
    const unsigned xid = XWindow();
    ASSERT_NE(xid, 0u);
    // The X window holds the frame too: the cell's point from its corner.
    POINT at = CellCentre(0, 9);
    window->ClientToScreen(&at);
    RECT frame;
    window->GetWindowRect(&frame);
    const std::string id = std::to_string(xid);
    ASSERT_EQ(testing_support::RunOnDisplay(
                  server->Name(), "xdotool mousemove --window " + id + " " +
                                      std::to_string(at.x - frame.left) + " " +
                                      std::to_string(at.y - frame.top) + " click --repeat 2 1"),
              0);
    EXPECT_TRUE(
        RunUntil([&] { return window->Screen().SelectedText() == CString(u"beta-gamma"); }));
}

} // namespace
#endif
