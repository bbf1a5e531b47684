// The terminal window on a real X display (a private Xvfb): keys typed by
// xdotool through the display reach the program, and the display shows the
// same pixels as the desktop.
#ifdef WIN_TEST_HAVE_XCB
#include "TerminalWindowSupport.h"
#include "platform/display/XvfbServer.h"

#include <platform/WindowPictures.h>

#include <cairo.h>
#include <xcb/xcb.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace {

bool XdotoolInstalled() {
    return std::system("command -v xdotool >/dev/null 2>&1") == 0;
}

// The window's pixels as the display holds them, red in bits 16 to 23.
std::vector<uint32_t> DisplayPixels(xcb_connection_t* connection, unsigned window, int width,
                                    int height) {
    xcb_get_image_reply_t* reply = xcb_get_image_reply(
        connection,
        xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0,
                      static_cast<uint16_t>(width), static_cast<uint16_t>(height), ~0u),
        nullptr);
    std::vector<uint32_t> pixels;
    if (reply) {
        const auto* data = reinterpret_cast<const uint32_t*>(xcb_get_image_data(reply));
        pixels.assign(data, data + xcb_get_image_data_length(reply) / 4);
        for (uint32_t& p : pixels)
            p &= 0xFFFFFF;
    }
    free(reply);
    return pixels;
}

// The desktop's own rendering of the window.
std::vector<uint32_t> HeadlessPixels(HWND hwnd, int* width, int* height) {
    const auto path = std::filesystem::temp_directory_path() /
                      ("terminal-x11-" + std::to_string(getpid()) + ".png");
    std::vector<uint32_t> pixels;
    if (!platform::SaveWindowAsPng(hwnd, path.string()))
        return pixels;
    cairo_surface_t* png = cairo_image_surface_create_from_png(path.c_str());
    std::filesystem::remove(path);
    *width = cairo_image_surface_get_width(png);
    *height = cairo_image_surface_get_height(png);
    const int stride = cairo_image_surface_get_stride(png);
    const unsigned char* data = cairo_image_surface_get_data(png);
    for (int y = 0; y < *height; ++y)
        for (int x = 0; x < *width; ++x)
            pixels.push_back(reinterpret_cast<const uint32_t*>(data + y * stride)[x] & 0xFFFFFF);
    cairo_surface_destroy(png);
    return pixels;
}

class TerminalWindowX11Test : public TerminalWindowTest {
protected:
    void SetUp() override {
        if (!testing_support::XvfbServer::Installed())
            GTEST_SKIP() << "Xvfb is not installed";
        if (!XdotoolInstalled())
            GTEST_SKIP() << "xdotool is not installed";
        server = std::make_unique<testing_support::XvfbServer>();
        ASSERT_FALSE(server->Name().empty()) << "Xvfb did not start";
        std::string error;
        ASSERT_TRUE(platform::display::OpenX11(server->Name().c_str(), &error)) << error;
        probe = xcb_connect(server->Name().c_str(), nullptr);
        ASSERT_FALSE(xcb_connection_has_error(probe));
    }
    void TearDown() override {
        TerminalWindowTest::TearDown();
        platform::display::Close();
        if (probe)
            xcb_disconnect(probe);
    }

    std::unique_ptr<testing_support::XvfbServer> server;
    xcb_connection_t* probe = nullptr;
};

TEST_F(TerminalWindowX11Test, KeysTypedOnTheDisplayAppearOnTheScreen) {
    ASSERT_TRUE(Open({"sh", "-c", "echo ready; read x; echo got:$x; sleep 10"}));
    ASSERT_TRUE(WaitFor("ready"));
    unsigned xid = 0;
    ASSERT_TRUE(RunUntil([&] {
        platform::display::Update();
        return (xid = platform::display::XWindowOf(*window)) != 0;
    }));
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
    const std::vector<uint32_t> headless = HeadlessPixels(*window, &width, &height);
    ASSERT_EQ(width, rect.right - rect.left);
    const std::vector<uint32_t> shown = DisplayPixels(probe, xid, width, height);
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
    ASSERT_TRUE(Open({"sh", "-c", "echo ready; read x; echo got:$x; sleep 10"}));
    ASSERT_TRUE(WaitFor("ready"));
    unsigned xid = 0;
    ASSERT_TRUE(RunUntil([&] {
        platform::display::Update();
        return (xid = platform::display::XWindowOf(*window)) != 0;
    }));
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

} // namespace
#endif
