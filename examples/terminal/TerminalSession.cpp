#include "TerminalSession.h"

#include <platform/Display.h>

#include <cstdio>

int RunTerminalWindow(const TerminalWindow::Options& options) {
    std::string error;
    if (!platform::display::OpenFromEnvironment(&error)) {
        std::fprintf(stderr, "terminal_host: %s\n", error.c_str());
        return 1;
    }
    TerminalWindow window;
    if (!window.Open(options, &error)) {
        std::fprintf(stderr, "terminal_host: %s\n", error.c_str());
        platform::display::Close();
        return 1;
    }
    MSG msg;
    while (GetMessage(&msg, nullptr, 0, 0)) {
        TranslateMessage(&msg);
        DispatchMessage(&msg);
    }
    platform::display::Close();
    return window.ExitCode() < 0 ? 1 : window.ExitCode();
}
