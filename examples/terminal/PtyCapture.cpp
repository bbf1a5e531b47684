#include "PtyCapture.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

// Stops a child that outlived its time: politely first, then for good.
int Stop(pid_t pid) {
    int status = 0;
    ::kill(pid, SIGTERM);
    for (int i = 0; i < 50; ++i) {
        if (::waitpid(pid, &status, WNOHANG) == pid)
            return status;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ::kill(pid, SIGKILL);
    return ::waitpid(pid, &status, 0) == pid ? status : -1;
}

} // namespace

PtyCapture PtyCapture::Run(const std::vector<std::string>& argv, int rows, int columns,
                           double seconds) {
    PtyCapture result;
    if (argv.empty()) {
        result.error = "no program given";
        return result;
    }
    std::vector<char*> args;
    for (const std::string& arg : argv)
        args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);

    winsize size{};
    size.ws_row = static_cast<unsigned short>(rows);
    size.ws_col = static_cast<unsigned short>(columns);
    int master = -1;
    pid_t pid = ::forkpty(&master, nullptr, nullptr, &size);
    if (pid < 0) {
        result.error = std::string("forkpty: ") + std::strerror(errno);
        return result;
    }
    if (pid == 0) {
        ::setenv("TERM", "vt100", 1);
        ::setenv("LINES", std::to_string(rows).c_str(), 1);
        ::setenv("COLUMNS", std::to_string(columns).c_str(), 1);
        ::execvp(args[0], args.data());
        std::fprintf(stderr, "cannot run %s: %s\r\n", args[0], std::strerror(errno));
        ::_exit(127);
    }

    auto deadline = Clock::now() + std::chrono::duration<double>(seconds);
    char buffer[16384];
    for (;;) {
        auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0) {
            result.timedOut = true;
            break;
        }
        pollfd pfd{master, POLLIN, 0};
        int ready = ::poll(&pfd, 1, static_cast<int>(left.count()));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0)
            continue; // the deadline check above ends the loop
        ssize_t n = ::read(master, buffer, sizeof buffer);
        if (n > 0)
            result.output.append(buffer, static_cast<std::size_t>(n));
        else if (n < 0 && errno == EINTR)
            continue;
        else
            break; // EIO: every copy of the terminal's other side is closed
    }
    // A program that closed the terminal but goes on running is still held to
    // the time limit.
    while (!result.timedOut) {
        int status = 0;
        pid_t done = ::waitpid(pid, &status, WNOHANG);
        if (done == pid) {
            result.exitStatus = status;
            break;
        }
        if (done < 0)
            break;
        if (Clock::now() >= deadline)
            result.timedOut = true;
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    if (result.timedOut)
        result.exitStatus = Stop(pid);
    ::close(master);
    return result;
}
