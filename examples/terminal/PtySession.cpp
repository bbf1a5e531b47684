#include "PtySession.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

int ExitCode(int status) {
    if (WIFEXITED(status))
        return WEXITSTATUS(status);
    if (WIFSIGNALED(status))
        return 128 + WTERMSIG(status);
    return -1;
}

} // namespace

PtySession::~PtySession() {
    HangUp();
    if (m_pid > 0)
        Finish();
}

void PtySession::HangUp() {
    if (m_master >= 0)
        ::close(m_master);
    m_master = -1;
}

bool PtySession::Start(const std::vector<std::string>& argv, int rows, int columns,
                       std::string* error, SizeVariables sizeVariables) {
    if (argv.empty() || m_pid > 0) {
        *error = argv.empty() ? "no program given" : "a program is already running";
        return false;
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
        *error = std::string("forkpty: ") + std::strerror(errno);
        return false;
    }
    if (pid == 0) {
        ::setenv("TERM", "vt100", 1);
        if (sizeVariables == SizeVariables::Set) {
            ::setenv("LINES", std::to_string(rows).c_str(), 1);
            ::setenv("COLUMNS", std::to_string(columns).c_str(), 1);
        } else {
            ::unsetenv("LINES");
            ::unsetenv("COLUMNS");
        }
        ::signal(SIGPIPE, SIG_DFL);
        ::execvp(args[0], args.data());
        std::fprintf(stderr, "cannot run %s: %s\r\n", args[0], std::strerror(errno));
        ::_exit(127);
    }
    ::fcntl(master, F_SETFL, ::fcntl(master, F_GETFL) | O_NONBLOCK);
    ::fcntl(master, F_SETFD, FD_CLOEXEC);
    m_master = master;
    m_pid = pid;
    return true;
}

PtySession::ReadResult PtySession::Read(char* buffer, std::size_t size, std::size_t* got) {
    *got = 0;
    if (m_master < 0)
        return ReadResult::Ended;
    for (;;) {
        ssize_t n = ::read(m_master, buffer, size);
        if (n > 0) {
            *got = static_cast<std::size_t>(n);
            return ReadResult::Data;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno == EAGAIN)
            return ReadResult::Nothing;
        return ReadResult::Ended; // EIO: the other side is closed
    }
}

bool PtySession::WaitReadable(int ms) {
    if (m_master < 0)
        return true;
    pollfd pfd{m_master, POLLIN, 0};
    return ::poll(&pfd, 1, ms) > 0;
}

bool PtySession::Write(std::string_view bytes,
                       const std::function<void(const char*, std::size_t)>& drain) {
    using Clock = std::chrono::steady_clock;
    auto lastProgress = Clock::now();
    char buffer[16384];
    while (!bytes.empty() && m_master >= 0) {
        ssize_t n = ::write(m_master, bytes.data(), bytes.size());
        if (n > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(n));
            lastProgress = Clock::now();
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0 && errno != EAGAIN)
            return false;
        if (Clock::now() - lastProgress > std::chrono::seconds(5))
            return false;
        // The program's input is full: take its output while it works through it.
        pollfd pfd{m_master, POLLIN | POLLOUT, 0};
        if (::poll(&pfd, 1, 100) > 0 && (pfd.revents & POLLIN)) {
            std::size_t got = 0;
            if (Read(buffer, sizeof buffer, &got) == ReadResult::Data && drain)
                drain(buffer, got);
        }
        if (pfd.revents & (POLLHUP | POLLERR) && !(pfd.revents & POLLOUT))
            return false;
    }
    return bytes.empty();
}

bool PtySession::Resize(int rows, int columns) {
    if (m_master < 0)
        return false;
    winsize size{};
    size.ws_row = static_cast<unsigned short>(rows);
    size.ws_col = static_cast<unsigned short>(columns);
    return ::ioctl(m_master, TIOCSWINSZ, &size) == 0;
}

int PtySession::Finish() {
    if (m_pid <= 0)
        return -1;
    const pid_t pid = m_pid;
    m_pid = -1;
    int status = 0;
    // The program has normally exited by the time its terminal ends; one that
    // goes on is hung up, then stopped for good.
    for (int i = 0; i < 100; ++i) {
        pid_t done = ::waitpid(pid, &status, WNOHANG);
        if (done == pid)
            return ExitCode(status);
        if (done < 0)
            return -1;
        if (i == 50)
            ::kill(pid, SIGHUP);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    ::kill(pid, SIGKILL);
    return ::waitpid(pid, &status, 0) == pid ? ExitCode(status) : -1;
}

bool PtySession::Ended(int* status) {
    *status = -1;
    if (m_pid <= 0)
        return true;
    int waited = 0;
    pid_t done = ::waitpid(m_pid, &waited, WNOHANG);
    if (done == 0)
        return false;
    if (done == m_pid)
        *status = waited;
    m_pid = -1;
    return true;
}

int PtySession::Stop() {
    if (m_pid <= 0)
        return -1;
    const pid_t pid = m_pid;
    m_pid = -1;
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
