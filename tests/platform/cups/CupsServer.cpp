#include "CupsServer.h"

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <thread>

namespace testing_support {
namespace {

namespace fs = std::filesystem;

void Write(const fs::path& path, const std::string& text) {
    std::ofstream(path) << text;
}

bool WaitFor(const std::function<bool()>& done) {
    for (int i = 0; i < 100; ++i) {
        if (done())
            return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
}

} // namespace

CupsServer::CupsServer() {
    const fs::path cupsd = "/usr/sbin/cupsd";
    if (!fs::exists(cupsd)) {
        m_problem = "the CUPS scheduler is not installed";
        return;
    }
    if (geteuid() != 0) {
        m_problem = "the scheduler runs its backends as lp, which needs the superuser";
        return;
    }
    char pattern[] = "/tmp/cups-test-XXXXXX";
    if (!mkdtemp(pattern)) {
        m_problem = "no temporary folder";
        return;
    }
    m_root = pattern;
    chmod(m_root.c_str(), 0755);
    for (const char* sub : {"conf", "spool", "state", "cache", "tmp", "log", "bin/backend"})
        fs::create_directories(m_root / sub);
    fs::create_directories(Jobs());
    chmod(Jobs().c_str(), 0777);
    chmod((m_root / "tmp").c_str(), 0777);
    fs::create_directory_symlink("/usr/lib/cups/daemon", m_root / "bin" / "daemon");
    const std::string root = m_root.string();
    Write(m_root / "bin/backend/keep",
          "#!/bin/sh\n"
          "if [ $# -eq 0 ]; then echo 'direct keep \"Unknown\" \"Keep\"'; exit 0; fi\n"
          "dir=${DEVICE_URI#keep:}\n"
          "if [ -n \"$6\" ]; then cp \"$6\" \"$dir/job-$1.part\"; else cat > \"$dir/job-$1.part\"; "
          "fi\n"
          "echo \"$4\" > \"$dir/job-$1.copies\"\n"
          "mv \"$dir/job-$1.part\" \"$dir/job-$1.pdf\"\n");
    chmod((m_root / "bin/backend/keep").c_str(), 0755);
    Write(m_root / "conf/cupsd.conf", "Listen " + root +
                                          "/cups.sock\n"
                                          "LogLevel info\n"
                                          "Browsing No\n"
                                          "WebInterface No\n"
                                          "<Location />\nOrder allow,deny\nAllow all\n</Location>\n"
                                          "<Policy default>\n<Limit All>\nOrder deny,allow\n"
                                          "</Limit>\n</Policy>\n");
    Write(m_root / "conf/cups-files.conf",
          "ServerRoot " + root + "/conf\nRequestRoot " + root + "/spool\nStateDir " + root +
              "/state\nCacheDir " + root + "/cache\nTempDir " + root + "/tmp\nServerBin " + root +
              "/bin\nDataDir /usr/share/cups\nUser lp\nGroup lp\nErrorLog " + root +
              "/log/error_log\nAccessLog " + root + "/log/access_log\nPageLog " + root +
              "/log/page_log\n");
    Write(m_root / "conf/printers.conf",
          "<Printer testq>\nInfo Test queue\nDeviceURI keep:" + Jobs().string() +
              "\nState Idle\nAccepting Yes\n</Printer>\n");
    const std::string conf = (m_root / "conf/cupsd.conf").string();
    const std::string files = (m_root / "conf/cups-files.conf").string();
    m_pid = fork();
    if (m_pid == 0) {
        execl(cupsd.c_str(), "cupsd", "-f", "-c", conf.c_str(), "-s", files.c_str(),
              static_cast<char*>(nullptr));
        _exit(127);
    }
    const fs::path socket = m_root / "cups.sock";
    if (m_pid < 0 || !WaitFor([&] { return fs::exists(socket); })) {
        m_problem = "the scheduler did not start";
        Stop();
        return;
    }
    setenv("CUPS_SERVER", socket.c_str(), 1);
}

CupsServer::~CupsServer() {
    Stop();
    unsetenv("CUPS_SERVER");
    if (!m_root.empty()) {
        std::error_code ignored;
        fs::remove_all(m_root, ignored);
    }
}

void CupsServer::Stop() {
    if (m_pid > 0) {
        kill(m_pid, SIGTERM);
        waitpid(m_pid, nullptr, 0);
        m_pid = -1;
    }
}

int CupsServer::JobCount() const {
    int count = 0;
    for (const auto& entry : fs::directory_iterator(Jobs()))
        count += entry.path().extension() == ".pdf";
    return count;
}

std::filesystem::path CupsServer::WaitForJob(int jobsBefore) const {
    if (!WaitFor([&] { return JobCount() > jobsBefore; }))
        return {};
    // The job with the highest number is the last one sent.
    fs::path last;
    int highest = -1;
    for (const auto& entry : fs::directory_iterator(Jobs())) {
        const std::string stem = entry.path().stem().string();
        if (entry.path().extension() != ".pdf" || stem.rfind("job-", 0) != 0)
            continue;
        const int id = std::atoi(stem.c_str() + 4);
        if (id > highest) {
            highest = id;
            last = entry.path();
        }
    }
    return last;
}

} // namespace testing_support
