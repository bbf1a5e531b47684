// Choosing the display back end and watching a host's descriptors: what
// works without any display.
#include <platform/Display.h>
#include <platform/MessagePump.h>
#include <windows.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

class EnvironmentGuard {
public:
    explicit EnvironmentGuard(const char* name) : m_name(name) {
        if (const char* value = std::getenv(name))
            m_saved = value, m_had = true;
    }
    ~EnvironmentGuard() {
        if (m_had)
            setenv(m_name, m_saved.c_str(), 1);
        else
            unsetenv(m_name);
    }

private:
    const char* m_name;
    std::string m_saved;
    bool m_had = false;
};

TEST(DisplayChoice, HeadlessUnlessTheEnvironmentAsksAndUnknownNamesAreRefused) {
    EnvironmentGuard guard("WIN_DISPLAY");
    std::string error;
    unsetenv("WIN_DISPLAY");
    EXPECT_TRUE(platform::display::OpenFromEnvironment(&error));
    EXPECT_FALSE(platform::display::IsOpen());
    setenv("WIN_DISPLAY", "headless", 1);
    EXPECT_TRUE(platform::display::OpenFromEnvironment(&error));
    EXPECT_FALSE(platform::display::IsOpen());
    setenv("WIN_DISPLAY", "wayland", 1);
    EXPECT_FALSE(platform::display::OpenFromEnvironment(&error));
    EXPECT_NE(error.find("unknown display back end: wayland"), std::string::npos) << error;
    EXPECT_FALSE(platform::display::IsOpen());
}

TEST(DisplayChoice, AMissingDisplayIsAClearErrorNotACrash) {
    EnvironmentGuard guard("DISPLAY");
    std::string error;
    unsetenv("DISPLAY");
    EXPECT_FALSE(platform::display::OpenX11(nullptr, &error));
    EXPECT_FALSE(error.empty());
    error.clear();
    // A display number nobody serves (the socket does not exist).
    EXPECT_FALSE(platform::display::OpenX11(":4093", &error));
    EXPECT_FALSE(error.empty());
    EXPECT_FALSE(platform::display::IsOpen());
    // Without a display there is nothing to update or to map windows to.
    platform::display::Update();
    EXPECT_EQ(platform::display::XWindowOf(nullptr), 0u);
}

TEST(DisplayChoice, AWatchedDescriptorWakesTheMessageLoop) {
    int fds[2];
    ASSERT_EQ(pipe(fds), 0);
    std::string received;
    platform::display::WatchDescriptor(fds[0], [&] {
        char buffer[16];
        ssize_t n = read(fds[0], buffer, sizeof buffer);
        if (n > 0)
            received.append(buffer, static_cast<std::size_t>(n));
        // The host posts what it read, then stops watching at the end.
        PostQuitMessage(static_cast<int>(received.size()));
        platform::display::UnwatchDescriptor(fds[0]);
    });
    ASSERT_EQ(write(fds[1], "tty", 3), 3);
    MSG msg;
    // GetMessage has nothing queued: it waits on the descriptor, whose
    // callback posts WM_QUIT.
    EXPECT_FALSE(GetMessage(&msg, nullptr, 0, 0));
    EXPECT_EQ(msg.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(received, "tty");
    // With nothing watched the headless loop ends at once, as before.
    EXPECT_FALSE(GetMessage(&msg, nullptr, 0, 0));
    close(fds[0]);
    close(fds[1]);
}

} // namespace
