#include "ProfileTestSupport.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <grp.h>
#include <iterator>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace profile_test {

ConfigHome::ConfigHome(const std::string& name)
    : m_path(testing_support::TestOutputDir("profile-" + name)) {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    m_hadConfig = config != nullptr;
    m_hadHome = home != nullptr;
    m_oldConfig = config ? config : "";
    m_oldHome = home ? home : "";
    ::setenv("XDG_CONFIG_HOME", (m_path / "config").c_str(), 1);
    ::setenv("HOME", (m_path / "home").c_str(), 1);
}

ConfigHome::~ConfigHome() {
    if (m_hadConfig)
        ::setenv("XDG_CONFIG_HOME", m_oldConfig.c_str(), 1);
    else
        ::unsetenv("XDG_CONFIG_HOME");
    if (m_hadHome)
        ::setenv("HOME", m_oldHome.c_str(), 1);
    else
        ::unsetenv("HOME");
}

std::string ReadBytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

CString Name(const std::filesystem::path& path) {
    return platform::FromUtf8(path.string());
}

std::u16string Get(const std::filesystem::path& file, LPCWSTR section, LPCWSTR key,
                   LPCWSTR fallback) {
    std::vector<WCHAR> buffer(70000);
    const DWORD n = GetPrivateProfileStringW(section, key, fallback, buffer.data(),
                                             static_cast<DWORD>(buffer.size()), Name(file));
    return std::u16string(buffer.data(), n);
}

bool RunUnprivileged(const std::function<void()>& check, std::string& why) {
    if (::geteuid() != 0) {
        check();
        return true;
    }
    constexpr uid_t kNobody = 65534;
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::setgroups(0, nullptr) != 0 || ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)
            ::_exit(3);
        check();
        std::fflush(nullptr);
        ::_exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child) {
        why = "cannot start a child process";
        return false;
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == 3) {
        why = "running as root and cannot switch to user nobody";
        return false;
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0)
        << "the check failed as user nobody (status " << status << ")";
    return true;
}

} // namespace profile_test
