#include "TerminalSession.h"

#include <platform/Display.h>
#include <platform/GdiObjects.h>
#include <platform/GlobalMemory.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

int CountWindowTree(HWND hwnd) {
    int count = 1;
    for (HWND child = GetWindow(hwnd, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        count += CountWindowTree(child);
    return count;
}

int LiveWindows() {
    int count = 0;
    EnumWindows(
        [](HWND hwnd, LPARAM total) -> BOOL {
            *reinterpret_cast<int*>(total) += CountWindowTree(hwnd);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}

volatile std::sig_atomic_t g_countsAsked = 0;

// With TERMINAL_HOST_COUNTS set, the host reports its live windows, GDI
// objects and global memory blocks at each stage, and on SIGUSR1 at the next
// message, so a long run can show that nothing grows.
bool CountsWanted() {
    static const bool wanted = std::getenv("TERMINAL_HOST_COUNTS") != nullptr;
    return wanted;
}

void ReportCounts(const char* stage) {
    if (!CountsWanted())
        return;
    std::fprintf(stderr, "terminal_host: counts %s: windows %d, %s, global blocks %d\n", stage,
                 LiveWindows(), platform::ToString(platform::LiveGdiObjects()).c_str(),
                 platform::LiveGlobalBlocks());
}

} // namespace

int RunTerminalWindow(const TerminalWindow::Options& options) {
    std::string error;
    if (!platform::display::OpenFromEnvironment(&error)) {
        std::fprintf(stderr, "terminal_host: %s\n", error.c_str());
        return 1;
    }
    const bool onDisplay = platform::display::IsOpen();
    if (CountsWanted())
        std::signal(SIGUSR1, [](int) { g_countsAsked = 1; });
    ReportCounts("before");
    int exitCode = 1;
    {
        TerminalWindow window;
        if (!window.Open(options, &error)) {
            std::fprintf(stderr, "terminal_host: %s\n", error.c_str());
            platform::display::Close();
            return 1;
        }
        ReportCounts("open");
        MSG msg;
        while (GetMessage(&msg, nullptr, 0, 0)) {
            if (g_countsAsked) {
                g_countsAsked = 0;
                ReportCounts("now");
            }
            if (msg.message == WM_CLOSE && msg.hwnd == window.m_hWnd)
                ReportCounts("closing");
            TranslateMessage(&msg);
            DispatchMessage(&msg);
        }
        // The display went away under a running program: the window goes,
        // which hangs the program up, and the host fails.
        const bool displayLost = onDisplay && !platform::display::IsOpen() && !window.Ended();
        if (displayLost)
            std::fprintf(stderr, "terminal_host: the display went away; hanging up %s\n",
                         options.program.empty() ? "the program" : options.program[0].c_str());
        if (window.m_hWnd)
            window.DestroyWindow();
        // Closing the window is the user's normal way out; a program that
        // ended by itself gives its own exit code.
        if (displayLost)
            exitCode = 1;
        else if (window.ClosedByUser())
            exitCode = 0;
        else
            exitCode = window.ExitCode() < 0 ? 1 : window.ExitCode();
    }
    platform::display::Close();
    ReportCounts("after");
    return exitCode;
}
