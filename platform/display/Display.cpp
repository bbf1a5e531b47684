// Choosing the display back end, and the wait of a message loop on the
// display's connection and the host's descriptors together.
#include "display/Backend.h"

#include <platform/Display.h>
#include <winuser.h>

#include <poll.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <vector>

namespace platform::display {
namespace {

std::unique_ptr<Backend>& Current() {
    static auto* backend = new std::unique_ptr<Backend>();
    return *backend;
}

std::map<int, std::function<void()>>& Watched() {
    static auto* watched = new std::map<int, std::function<void()>>();
    return *watched;
}

} // namespace

bool OpenX11(const char* name, std::string* error) {
    if (Current())
        return true;
    Current() = CreateX11Backend(name, error);
    return Current() != nullptr;
}

bool OpenFromEnvironment(std::string* error) {
    const char* which = std::getenv("WIN_DISPLAY");
    if (!which || !*which || std::strcmp(which, "headless") == 0)
        return true;
    if (std::strcmp(which, "x11") == 0)
        return OpenX11(nullptr, error);
    if (error)
        *error = std::string("WIN_DISPLAY names an unknown display back end: ") + which +
                 " (known: headless, x11)";
    return false;
}

void Close() {
    Current().reset();
}

bool IsOpen() {
    return Current() != nullptr;
}

void Update() {
    if (Current())
        Current()->Update();
}

unsigned XWindowOf(HWND hwnd) {
    return Current() ? Current()->WindowOf(hwnd) : 0;
}

void WatchDescriptor(int fd, std::function<void()> ready) {
    if (fd >= 0 && ready)
        Watched()[fd] = std::move(ready);
}

void UnwatchDescriptor(int fd) {
    Watched().erase(fd);
}

bool WaitForInput(int timeoutMs) {
    std::vector<pollfd> fds;
    Backend* backend = Current().get();
    if (backend)
        fds.push_back(pollfd{backend->Descriptor(), POLLIN, 0});
    for (const auto& [fd, ready] : Watched())
        fds.push_back(pollfd{fd, POLLIN, 0});
    // Events already read off the connection are not signalled on its
    // descriptor again.
    if (backend && !backend->ProcessInput(false)) {
        std::fprintf(stderr, "The connection to the display was lost; closing the display.\n");
        Close();
        PostQuitMessage(1);
        return false;
    }
    // What that input became (a posted message, a window to paint) is for the
    // loop to handle now: it may be the last thing the display sends for a
    // while, so waiting would stall it.
    MSG pending;
    if (PeekMessage(&pending, nullptr, 0, 0, PM_NOREMOVE))
        timeoutMs = 0;
    if (fds.empty())
        return true;
    int ready = poll(fds.data(), fds.size(), timeoutMs);
    if (ready < 0 && errno != EINTR) {
        std::fprintf(stderr, "Waiting for input failed: %s\n", std::strerror(errno));
        return true;
    }
    std::size_t first = backend ? 1 : 0;
    for (std::size_t i = first; i < fds.size() && ready > 0; ++i)
        if (fds[i].revents) {
            // The callback may unwatch descriptors, its own included.
            auto it = Watched().find(fds[i].fd);
            if (it != Watched().end()) {
                auto callback = it->second;
                callback();
            }
        }
    const bool readable = backend && ready > 0 && fds[0].revents != 0;
    if (backend && !backend->ProcessInput(readable)) {
        std::fprintf(stderr, "The connection to the display was lost; closing the display.\n");
        Close();
        PostQuitMessage(1);
        return false;
    }
    return true;
}

bool WaitInMessageLoop() {
    if (!Current() && Watched().empty())
        return false;
    Update();
    return WaitForInput(-1);
}

} // namespace platform::display
