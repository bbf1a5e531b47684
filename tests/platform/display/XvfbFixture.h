// A test fixture that shows the desktop on a private X server (Xvfb), with a
// client of the test's own on the same display, and the helpers the display
// tests share: the message loop run until a condition holds, and a window's
// pixels as the display holds them and as the desktop draws them.
#pragma once
#ifdef WIN_TEST_HAVE_XCB

#include "XvfbServer.h"

#include <platform/Display.h>
#include <windows.h>

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace testing_support {

// Runs the message loop the way a host does (through IsDialogMessage when a
// dialog is given), until done says so or five seconds pass.
bool PumpMessagesUntil(const std::function<bool()>& done, HWND dialog = nullptr);

// The pixels of an area of an X window as the display holds them, row by
// row, red in bits 16 to 23; empty when they cannot be read.
std::vector<uint32_t> DisplayPixels(xcb_connection_t* connection, unsigned window, int x, int y,
                                    int width, int height);

// The desktop's own rendering of a window (what a PNG of it holds), in the
// same form; *width and *height are its size.
std::vector<uint32_t> HeadlessPixels(HWND hwnd, int* width, int* height);

xcb_atom_t InternAtom(xcb_connection_t* connection, const char* name);

// Base is the fixture the test would otherwise derive from.
template <class Base = testing::Test> class XvfbFixture : public Base {
protected:
    void SetUp() override {
        Base::SetUp();
        StartServer();
        if (this->IsSkipped() || this->HasFatalFailure())
            return;
        OpenDisplay();
    }

    // A fixture that cleans up after its test calls this last, so that its
    // windows go while the display is still there.
    void TearDown() override {
        Base::TearDown();
        platform::display::Close();
        if (probe)
            xcb_disconnect(probe);
        probe = nullptr;
    }

    // Starts the server; skips the test when Xvfb is not installed.
    void StartServer() {
        if (!XvfbServer::Installed())
            GTEST_SKIP() << "Xvfb is not installed";
        server = std::make_unique<XvfbServer>(screen);
        ASSERT_FALSE(server->Name().empty()) << "Xvfb did not start";
    }

    // Shows the desktop on the server and connects the probe.
    void OpenDisplay() {
        std::string error;
        ASSERT_TRUE(platform::display::OpenX11(server->Name().c_str(), &error)) << error;
        probe = xcb_connect(server->Name().c_str(), nullptr);
        ASSERT_FALSE(xcb_connection_has_error(probe));
    }

    static bool PumpUntil(const std::function<bool()>& done) { return PumpMessagesUntil(done); }

    // Runs a command on the server's display; its exit status.
    int Run(const std::string& command) { return RunOnDisplay(server->Name(), command); }

    // The pixels of the top left width by height of an X window.
    std::vector<uint32_t> DisplayPixels(unsigned window, int width, int height) {
        return testing_support::DisplayPixels(probe, window, 0, 0, width, height);
    }

    // The server's screen; a fixture may set another before SetUp.
    std::string screen = "1280x1024x24";
    std::unique_ptr<XvfbServer> server;
    // A client of the test's own: it reads what the display shows and plays
    // the part of other programs.
    xcb_connection_t* probe = nullptr;
};

} // namespace testing_support

#endif
