#include "support/ReadOnlyDirectory.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace testing_support {

namespace {

constexpr uid_t kNobody = 65534;

// How a child's run ended, as its exit status.
enum Outcome { kPassed = 0, kFailed, kThrew, kCannotDrop, kNotRefused };

// True when creating a file in dir is refused for this process.
bool CreationRefused(const std::filesystem::path& dir) {
    const std::string probe = (dir / ".probe").string();
    const int fd = ::open(probe.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd < 0)
        return errno == EACCES || errno == EPERM || errno == EROFS;
    ::close(fd);
    ::unlink(probe.c_str());
    return false;
}

int RunChecked(const std::function<void()>& check) {
    try {
        check();
    } catch (...) {
        return kThrew;
    }
    return ::testing::Test::HasFailure() ? kFailed : kPassed;
}

} // namespace

ReadOnlyDirectory::ReadOnlyDirectory(const std::string& name) {
    std::string pattern = (std::filesystem::temp_directory_path() / (name + "-XXXXXX")).string();
    if (!::mkdtemp(pattern.data())) {
        ADD_FAILURE() << "mkdtemp " << pattern << ": " << std::strerror(errno);
        return;
    }
    m_path = pattern;
    ::chmod(m_path.c_str(), 0555);
}

ReadOnlyDirectory::~ReadOnlyDirectory() {
    if (m_path.empty())
        return;
    ::chmod(m_path.c_str(), 0755);
    std::error_code ec;
    std::filesystem::remove_all(m_path, ec);
}

void ReadOnlyDirectory::RunRefused(const std::function<void()>& check) const {
    if (::geteuid() != 0) {
        if (!CreationRefused(m_path))
            GTEST_SKIP() << "a mode 0555 directory does not refuse this user";
        check();
        return;
    }
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child < 0) {
        ADD_FAILURE() << "fork: " << std::strerror(errno);
        return;
    }
    if (child == 0) {
        int outcome = kCannotDrop;
        if (::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0 &&
            ::geteuid() != 0)
            outcome = CreationRefused(m_path) ? RunChecked(check) : kNotRefused;
        std::fflush(nullptr);
        ::_exit(outcome);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (!WIFEXITED(status)) {
        ADD_FAILURE() << "the unprivileged check died (status " << status << ")";
        return;
    }
    switch (WEXITSTATUS(status)) {
    case kPassed:
        return;
    case kFailed:
        ADD_FAILURE() << "the check failed as user nobody (see above)";
        return;
    case kThrew:
        ADD_FAILURE() << "the check threw an exception as user nobody";
        return;
    case kCannotDrop:
        GTEST_SKIP() << "running as root and cannot switch to user nobody (65534) here";
    case kNotRefused:
        GTEST_SKIP() << "user nobody may still create files in a mode 0555 directory here";
    default:
        ADD_FAILURE() << "unexpected exit status " << WEXITSTATUS(status);
    }
}

} // namespace testing_support
