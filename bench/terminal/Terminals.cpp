#include "Terminals.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sched.h>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

bool OnPath(const std::string& program) {
    if (program.find('/') != std::string::npos)
        return access(program.c_str(), X_OK) == 0;
    const char* path = std::getenv("PATH");
    std::stringstream dirs(path ? path : "/usr/bin:/bin");
    std::string dir;
    while (std::getline(dirs, dir, ':'))
        if (!dir.empty() && access((dir + "/" + program).c_str(), X_OK) == 0)
            return true;
    return false;
}

} // namespace

std::vector<std::string> Terminal::Command(const std::string& title,
                                           const std::string& script) const {
    // Ours in a face and size near the peers' defaults (xterm's 6x13 fixed
    // font, st's 12-pixel Liberation Mono), so every window is about as big.
    if (ours)
        return {program, "--window", "--size", "12", "--run", "bash", "-c", script, title};
    if (floor)
        return {program, "bash", "-c", script, title};
    // qterminal has no option for the title or the size: the script names its
    // window (the title is its $0), which opens at its own 600x420.
    if (name == "qterminal")
        return {program, "-e", "bash", "-c", "printf '\\033]2;%s\\007' \"$0\"; " + script, title};
    std::vector<std::string> command{program};
    if (name == "xterm")
        command.insert(command.end(), {"-T", title, "-geometry", "80x24"});
    else if (name == "urxvt")
        command.insert(command.end(), {"-title", title, "-geometry", "80x24"});
    else if (name == "mlterm")
        command.insert(command.end(), {"-T", title, "-g", "80x24"});
    else if (name == "lxterminal")
        // Each its own process: a second one would otherwise hand the window
        // to the first.
        command.insert(command.end(), {"--no-remote", "-t", title, "--geometry=80x24"});
    else if (name == "Eterm")
        command.insert(command.end(), {"-T", title, "-g", "80x24"});
    else if (name == "alacritty")
        command.insert(command.end(), {"-t", title, "-o", "window.dimensions.columns=80", "-o",
                                       "window.dimensions.lines=24"});
    else if (name == "kitty") {
        // Its command follows the options with no -e.
        command.insert(command.end(), {"-T", title, "-o", "initial_window_width=80c", "-o",
                                       "initial_window_height=24c", "bash", "-c", script, title});
        return command;
    } else if (name == "zutty")
        command.insert(command.end(), {"-title", title, "-geometry", "80x24"});
    else // st
        command.insert(command.end(), {"-t", title, "-g", "80x24"});
    command.insert(command.end(), {"-e", "bash", "-c", script, title});
    return command;
}

std::vector<Terminal> Terminals(const std::string& oursPath, const std::string& floorPath,
                                std::vector<std::string>* missing) {
    std::vector<Terminal> terminals;
    Terminal ours{"ours", oursPath};
    ours.ours = true;
    terminals.push_back(ours);
    for (const char* peer : {"xterm", "urxvt", "st", "mlterm", "lxterminal", "Eterm", "qterminal",
                             "alacritty", "kitty", "zutty"}) {
        if (OnPath(peer))
            terminals.push_back(Terminal{peer, peer});
        else
            missing->push_back(peer);
    }
    if (!floorPath.empty()) {
        Terminal floor{"bare-pty-reader", floorPath};
        floor.floor = true;
        terminals.push_back(floor);
    }
    return terminals;
}

pid_t Launch(const Terminal& terminal, const std::vector<std::string>& command,
             const std::string& display, const std::vector<std::string>& environment, int cpu) {
    std::vector<char*> args;
    for (const std::string& arg : command)
        args.push_back(const_cast<char*>(arg.c_str()));
    args.push_back(nullptr);
    const pid_t pid = fork();
    if (pid != 0)
        return pid;
    if (cpu >= 0) {
        cpu_set_t set;
        CPU_ZERO(&set);
        CPU_SET(cpu, &set);
        if (sched_setaffinity(0, sizeof set, &set) != 0)
            _exit(126);
    }
    setenv("DISPLAY", display.c_str(), 1);
    if (terminal.ours)
        setenv("WIN_DISPLAY", "x11", 1);
    for (const std::string& entry : environment)
        putenv(const_cast<char*>(entry.c_str()));
    const int devnull = open("/dev/null", O_RDWR);
    dup2(devnull, 0);
    dup2(devnull, 1);
    dup2(devnull, 2);
    execvp(args[0], args.data());
    _exit(127);
}

bool WaitOrKill(pid_t pid, double seconds) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::duration<double>(seconds);
    while (std::chrono::steady_clock::now() < deadline) {
        if (waitpid(pid, nullptr, WNOHANG) == pid)
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
    return false;
}
