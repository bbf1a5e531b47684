// The terminals the benchmark compares: ours and the peers installed here,
// each started on an X display with a bash script to run, as a user would
// start it from a launcher.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

struct Terminal {
    std::string name;
    std::string program; // the executable
    // The command line that opens an 80 by 24 window titled title, running
    // bash -c script (the title also follows as the script's $0).
    std::vector<std::string> Command(const std::string& title, const std::string& script) const;
    bool ours = false;
    // The bare pty reader (pty_floor): no window, so no latency.
    bool floor = false;
};

// Our terminal_host --window, then xterm, urxvt, st, mlterm, lxterminal (VTE),
// Eterm, qterminal (Qt) and the OpenGL ones, alacritty, kitty and zutty; peers not installed
// are named in *missing and left out.
// With floorPath, the bare pty reader last.
std::vector<Terminal> Terminals(const std::string& oursPath, const std::string& floorPath,
                                std::vector<std::string>* missing);

// Starts a terminal on display with extra environment NAME=VALUE entries;
// its output goes to /dev/null. With cpu 0 or more, the terminal and every
// process it starts run on that processor alone. -1 when it cannot start.
pid_t Launch(const Terminal& terminal, const std::vector<std::string>& command,
             const std::string& display, const std::vector<std::string>& environment, int cpu = -1);
// Waits up to seconds for the process to end, then kills it. True when it
// ended by itself.
bool WaitOrKill(pid_t pid, double seconds);
