// The terminal_host program itself, --window on a private X server: the
// window manager's close ends it with status 0, and the display going away
// under it ends it with a message; either way its program is hung up.
#ifdef WIN_TEST_HAVE_XCB
#include "platform/display/XvfbFixture.h"
#include "platform/display/XvfbServer.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path);
    std::ostringstream all;
    all << in.rdbuf();
    return all.str();
}

class TerminalHostProcessTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!testing_support::XvfbServer::Installed())
            GTEST_SKIP() << "Xvfb is not installed";
        server = std::make_unique<testing_support::XvfbServer>();
        ASSERT_FALSE(server->Name().empty()) << "Xvfb did not start";
        dir = fs::temp_directory_path() / ("terminal-host-" + std::to_string(getpid()));
        fs::create_directories(dir);
    }
    void TearDown() override {
        if (host > 0) {
            ::kill(host, SIGKILL);
            ::waitpid(host, nullptr, 0);
        }
        if (programPid > 0)
            ::kill(programPid, SIGKILL);
        server.reset();
        std::error_code ignored;
        fs::remove_all(dir, ignored);
    }

    // Starts the host on the server with a program that records its process
    // id and then waits; true once the program runs.
    bool StartHost() {
        const std::string pidFile = (dir / "program.pid").string();
        const std::string script = "echo $$ > " + pidFile + "; exec sleep 600";
        host = ::fork();
        if (host == 0) {
            ::setenv("DISPLAY", server->Name().c_str(), 1);
            ::setenv("WIN_DISPLAY", "x11", 1);
            const std::string err = (dir / "host.err").string();
            std::freopen(err.c_str(), "w", stderr);
            ::execl(TERMINAL_HOST_PATH, TERMINAL_HOST_PATH, "--window", "--pdf",
                    (dir / "screen.pdf").c_str(), "--run", "sh", "-c", script.c_str(),
                    static_cast<char*>(nullptr));
            ::_exit(127);
        }
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (std::chrono::steady_clock::now() < deadline) {
            const std::string pid = ReadFile(pidFile);
            if (!pid.empty() && pid.back() == '\n') {
                programPid = std::atoi(pid.c_str());
                return programPid > 0;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return false;
    }

    // The host's exit status, -1 when it did not end in time (it is then killed).
    int WaitForHost(int seconds) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        int status = 0;
        while (std::chrono::steady_clock::now() < deadline) {
            if (::waitpid(host, &status, WNOHANG) == host) {
                host = -1;
                return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return -1;
    }

    bool ProgramGone() { return ::kill(programPid, 0) != 0 && errno == ESRCH; }

    std::string HostErrors() { return ReadFile(dir / "host.err"); }

    std::unique_ptr<testing_support::XvfbServer> server;
    fs::path dir;
    pid_t host = -1;
    pid_t programPid = -1;
};

// The X window whose WM_NAME starts with prefix, among the root's children.
xcb_window_t FindWindow(xcb_connection_t* connection, const std::string& prefix) {
    xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    xcb_query_tree_reply_t* tree =
        xcb_query_tree_reply(connection, xcb_query_tree(connection, root), nullptr);
    xcb_window_t found = 0;
    if (!tree)
        return found;
    const xcb_window_t* children = xcb_query_tree_children(tree);
    for (int i = 0; i < xcb_query_tree_children_length(tree) && !found; ++i) {
        xcb_get_property_reply_t* name = xcb_get_property_reply(
            connection,
            xcb_get_property(connection, 0, children[i], XCB_ATOM_WM_NAME, XCB_ATOM_ANY, 0, 256),
            nullptr);
        if (name) {
            const std::string text(static_cast<const char*>(xcb_get_property_value(name)),
                                   xcb_get_property_value_length(name));
            if (text.rfind(prefix, 0) == 0)
                found = children[i];
        }
        free(name);
    }
    free(tree);
    return found;
}

TEST_F(TerminalHostProcessTest, TheWindowManagersCloseEndsTheHostWithZeroAndHangsUp) {
    ASSERT_TRUE(StartHost()) << HostErrors();
    xcb_connection_t* probe = xcb_connect(server->Name().c_str(), nullptr);
    ASSERT_FALSE(xcb_connection_has_error(probe));
    xcb_window_t window = 0;
    for (int i = 0; i < 200 && !(window = FindWindow(probe, "Terminal: sh")); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ASSERT_NE(window, 0u);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = testing_support::InternAtom(probe, "WM_PROTOCOLS");
    message.data.data32[0] = testing_support::InternAtom(probe, "WM_DELETE_WINDOW");
    free(xcb_request_check(probe, xcb_send_event_checked(probe, 0, window, XCB_EVENT_MASK_NO_EVENT,
                                                         reinterpret_cast<const char*>(&message))));
    xcb_disconnect(probe);

    EXPECT_EQ(WaitForHost(30), 0) << HostErrors();
    EXPECT_TRUE(ProgramGone());
    EXPECT_EQ(HostErrors().find("ERROR:"), std::string::npos) << HostErrors();
}

TEST_F(TerminalHostProcessTest, TheDisplayGoingAwayEndsTheHostWithAMessageAndHangsUp) {
    ASSERT_TRUE(StartHost()) << HostErrors();
    server->Kill();
    EXPECT_EQ(WaitForHost(30), 1) << HostErrors();
    const std::string said = HostErrors();
    EXPECT_NE(said.find("connection to the display was lost"), std::string::npos) << said;
    EXPECT_NE(said.find("terminal_host: the display went away; hanging up sh"), std::string::npos)
        << said;
    EXPECT_EQ(said.find("ERROR:"), std::string::npos) << said;
    EXPECT_TRUE(ProgramGone());
}

} // namespace
#endif
