// A terminal window on the headless desktop with its program, the message loop
// run the way the host runs it, and the screen read back as text.
#pragma once

#include "TerminalWindow.h"
#include "support/ScreenBufferProbe.h"

#include <platform/Automation.h>
#include <platform/Display.h>
#include <platform/MessagePump.h>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

class TerminalWindowTest : public ::testing::Test {
protected:
    void TearDown() override {
        window.reset();
        platform::automation::Reset();
        // Nothing the window posted may reach the next test.
        MSG msg;
        while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE))
            DispatchMessage(&msg);
    }

    bool Open(std::vector<std::string> program, TerminalWindow::Options options = {}) {
        options.program = std::move(program);
        options.quitWhenClosed = false;
        window = std::make_unique<TerminalWindow>();
        std::string error;
        const bool ok = window->Open(options, &error);
        EXPECT_TRUE(ok) << error;
        return ok;
    }

    // Runs messages, queued user actions and the program's output until done
    // says so or the time is up.
    bool RunUntil(const std::function<bool()>& done, int seconds = 10) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        while (std::chrono::steady_clock::now() < deadline) {
            MSG msg;
            while (PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
                if (msg.message == WM_QUIT)
                    continue;
                TranslateMessage(&msg);
                DispatchMessage(&msg);
            }
            if (done())
                return true;
            if (!platform::automation::RunNext())
                platform::display::WaitForInput(20);
        }
        return done();
    }

    // Every visible row, blanks trimmed, one per line.
    std::string ScreenText() {
        ScreenBufferProbe probe(window->Screen());
        std::string text;
        for (int row = 0; row < window->Screen().VisRows(); ++row)
            text += probe.Line(row) + "\n";
        return text;
    }
    bool Shows(const std::string& text) { return ScreenText().find(text) != std::string::npos; }
    bool WaitFor(const std::string& text, int seconds = 10) {
        return RunUntil([&] { return Shows(text); }, seconds);
    }
    bool WaitForEnd(int seconds = 10) {
        return RunUntil([&] { return window->Ended(); }, seconds);
    }

    void Type(const std::u16string& text) {
        for (char16_t ch : text)
            PostMessage(*window, WM_CHAR, ch, 1);
    }
    void PressKey(UINT vk) { PostMessage(*window, WM_KEYDOWN, vk, 1); }

    // The client point in the middle of a zero-based cell.
    POINT CellCentre(int row, int col) {
        TerminalLayout& layout = window->Layout();
        const CSize cell = layout.GetCharSize();
        return POINT{layout.ColumnToX(col) + static_cast<int>(cell.cx) / 2,
                     layout.RowToY(row) + static_cast<int>(cell.cy) / 2};
    }

    std::unique_ptr<TerminalWindow> window;
};
