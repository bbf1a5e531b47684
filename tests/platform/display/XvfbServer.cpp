#include "XvfbServer.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>

namespace testing_support {

bool XvfbServer::Installed() {
    const char* path = std::getenv("PATH");
    std::stringstream dirs(path ? path : "/usr/bin");
    std::string dir;
    while (std::getline(dirs, dir, ':'))
        if (!dir.empty() && access((dir + "/Xvfb").c_str(), X_OK) == 0)
            return true;
    return false;
}

XvfbServer::XvfbServer(const std::string& screen) {
    int fds[2];
    if (pipe(fds) != 0)
        return;
    m_pid = fork();
    if (m_pid == 0) {
        // The server writes the number of the display it chose to the pipe.
        close(fds[0]);
        int devnull = open("/dev/null", O_WRONLY);
        dup2(devnull, 1);
        dup2(devnull, 2);
        const std::string fd = std::to_string(fds[1]);
        execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", screen.c_str(),
               "-nolisten", "tcp", static_cast<char*>(nullptr));
        _exit(127);
    }
    close(fds[1]);
    if (m_pid < 0) {
        close(fds[0]);
        return;
    }
    std::string number;
    pollfd wait{fds[0], POLLIN, 0};
    char ch = 0;
    while (poll(&wait, 1, 10000) > 0 && read(fds[0], &ch, 1) == 1 && ch != '\n')
        number += ch;
    close(fds[0]);
    if (!number.empty())
        m_name = ":" + number;
}

XvfbServer::~XvfbServer() {
    Kill();
}

void XvfbServer::Kill() {
    if (m_pid > 0) {
        kill(m_pid, SIGKILL);
        waitpid(m_pid, nullptr, 0);
        m_pid = -1;
    }
}

int RunOnDisplay(const std::string& display, const std::string& command) {
    const std::string line = "DISPLAY=" + display + " " + command + " >/dev/null 2>&1";
    const int status = std::system(line.c_str());
    return status == -1 ? -1 : WEXITSTATUS(status);
}

} // namespace testing_support
