// The floor of the terminal throughput bench: a program run in a pseudo-
// terminal as the terminals run it, its output read as fast as the kernel
// gives it and thrown away, with nothing parsed or drawn. It answers a cursor
// position request (ESC [ 6 n) as a terminal would, so the bench's script
// runs in it unchanged. Exits with the program's status.
//
//   pty_floor PROGRAM ARGS...
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string_view>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: pty_floor PROGRAM ARGS...\n");
        return 2;
    }
    winsize size{24, 80, 0, 0};
    int master = -1;
    const pid_t child = forkpty(&master, nullptr, nullptr, &size);
    if (child < 0) {
        std::perror("pty_floor: forkpty");
        return 1;
    }
    if (child == 0) {
        execvp(argv[1], argv + 1);
        _exit(127);
    }
    constexpr std::string_view kRequest = "\033[6n";
    constexpr std::string_view kAnswer = "\033[24;1R";
    static char buffer[65536 + 4];
    std::size_t kept = 0; // the tail of the last read, which may start a request
    for (;;) {
        const ssize_t got = read(master, buffer + kept, sizeof buffer - kept);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break; // EIO once the program and its children have gone
        const std::string_view seen(buffer, kept + static_cast<std::size_t>(got));
        for (std::size_t at = seen.find(kRequest); at != std::string_view::npos;
             at = seen.find(kRequest, at + kRequest.size()))
            if (write(master, kAnswer.data(), kAnswer.size()) < 0)
                break;
        kept = std::min(seen.size(), kRequest.size() - 1);
        std::copy(seen.end() - static_cast<std::ptrdiff_t>(kept), seen.end(), buffer);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
