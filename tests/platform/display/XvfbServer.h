// A private X server for a test: Xvfb started on a display number it picks
// itself, stopped when the object goes.
#pragma once

#include <string>
#include <sys/types.h>

namespace testing_support {

class XvfbServer {
public:
    // Whether Xvfb can be found on PATH.
    static bool Installed();
    // Starts the server with one screen of the given size and depth; Name()
    // is empty when it did not start.
    explicit XvfbServer(const std::string& screen = "1280x1024x24");
    ~XvfbServer();
    XvfbServer(const XvfbServer&) = delete;
    XvfbServer& operator=(const XvfbServer&) = delete;

    const std::string& Name() const { return m_name; }
    // Ends the server at once, as a display that goes away under a program.
    void Kill();

private:
    pid_t m_pid = -1;
    std::string m_name;
};

// Runs a command with DISPLAY set to display; its exit status, -1 when it
// could not run.
int RunOnDisplay(const std::string& display, const std::string& command);

} // namespace testing_support
