// A private X server with xclip for the clipboard tests: our message loop
// keeps answering the display while another program reads from it, and the
// clipboard is left empty after each test.
#pragma once

#include "XvfbFixture.h"

#include <platform/Display.h>
#include <windows.h>

#include <cairo.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <future>
#include <string>
#include <sys/wait.h>

namespace testing_support {

struct Output {
    int status = -1;
    std::string text;
};

// The picture in PNG bytes as a Cairo image, in an error state when the bytes
// are no whole PNG. The caller destroys it.
inline cairo_surface_t* DecodePng(const std::string& bytes) {
    struct Cursor {
        const std::string* bytes;
        std::size_t at = 0;
    } cursor{&bytes};
    return cairo_image_surface_create_from_png_stream(
        [](void* closure, unsigned char* data, unsigned int length) {
            auto* c = static_cast<Cursor*>(closure);
            if (c->at + length > c->bytes->size())
                return CAIRO_STATUS_READ_ERROR;
            std::memcpy(data, c->bytes->data() + c->at, length);
            c->at += length;
            return CAIRO_STATUS_SUCCESS;
        },
        &cursor);
}

class X11ClipboardFixture : public XvfbFixture<> {
protected:
    void SetUp() override {
        StartServer();
        if (IsSkipped() || HasFatalFailure())
            return;
        if (Run("xclip -version") != 0)
            GTEST_SKIP() << "xclip is not installed";
        OpenDisplay();
    }

    void TearDown() override {
        if (OpenClipboard(nullptr)) {
            EmptyClipboard();
            CloseClipboard();
        }
        XvfbFixture::TearDown();
    }

    // Makes data the clipboard's only contents, as a program puts it there.
    void Put(UINT format, HANDLE data) {
        ASSERT_TRUE(OpenClipboard(nullptr));
        ASSERT_TRUE(EmptyClipboard());
        ASSERT_TRUE(SetClipboardData(format, data));
        ASSERT_TRUE(CloseClipboard());
    }

    // Runs work on a thread of its own while our message loop keeps
    // answering the display.
    template <class Work> auto WhilePumping(Work work, int seconds = 20) {
        auto result = std::async(std::launch::async, work);
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        while (result.wait_for(std::chrono::milliseconds(0)) != std::future_status::ready &&
               std::chrono::steady_clock::now() < deadline)
            platform::display::WaitForInput(20);
        EXPECT_EQ(result.wait_for(std::chrono::seconds(0)), std::future_status::ready)
            << "the work did not finish";
        return result.get();
    }

    // Runs a command that reads from us; its exit status and output.
    Output Read(const std::string& command) {
        const std::string line = "DISPLAY=" + server->Name() + " " + command + " 2>/dev/null";
        return WhilePumping([line] {
            Output out;
            FILE* pipe = popen(line.c_str(), "r");
            if (!pipe)
                return out;
            char buffer[65536];
            std::size_t n;
            while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0)
                out.text.append(buffer, n);
            out.status = WEXITSTATUS(pclose(pipe));
            return out;
        });
    }
};

} // namespace testing_support
