// Writes that survive crashes, concurrent writers and directories that refuse
// them. Each runs real processes on real files.
#include "ProfileTestSupport.h"

#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using profile_test::Get;
using profile_test::Name;
using profile_test::ReadBytes;

namespace {

class Durability : public ::testing::Test {
protected:
    profile_test::ConfigHome home{::testing::UnitTest::GetInstance()->current_test_info()->name()};
};

int Wait(pid_t child) {
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return status;
}

// The value of key "Data" in version n of the kill test's file: its number,
// then a length that varies so that a torn file could not pass for whole.
std::u16string Version(int n) {
    std::u16string value = platform::FromUtf8(std::to_string(n)).Str();
    value += u':';
    value.append(static_cast<std::size_t>(n * 37 % 1500), static_cast<char16_t>(u'a' + n % 26));
    return value;
}

// The whole file as version n of it is written.
std::string VersionBytes(int n) {
    std::string bytes = "[Fixed]\r\n";
    for (int i = 0; i < 20; ++i)
        bytes += "key" + std::to_string(i) + "=value " + std::to_string(i) + "\r\n";
    bytes += "[Stream]\r\nData=" + platform::ToUtf8(Version(n)) + "\r\n";
    return bytes;
}

} // namespace

TEST_F(Durability, AReadOnlyDirectoryRefusesTheWriteAndLosesNothing) {
    const auto dir = home.Path() / "locked";
    const auto file = dir / "app.ini";
    ASSERT_TRUE(WritePrivateProfileStringW(u"s", u"k", u"old", Name(file)));
    const std::string before = ReadBytes(file);
    // The lock file stays usable, so the refusal comes from the replacement itself.
    ::chmod((dir.string() + "/app.ini.lock").c_str(), 0666);
    ::chmod(file.c_str(), 0644);
    ::chmod(dir.c_str(), 0555);
    std::string why;
    const bool ran = profile_test::RunUnprivileged(
        [&] {
            SetLastError(0);
            EXPECT_FALSE(WritePrivateProfileStringW(u"s", u"k", u"new", Name(file)));
            EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
            EXPECT_FALSE(WritePrivateProfileStringW(u"s", nullptr, nullptr, Name(file)));
            EXPECT_FALSE(WritePrivateProfileStringW(u"s", u"k", u"x", Name(dir / "sub" / "a.ini")));
            EXPECT_EQ(Get(file, u"s", u"k"), u"old");
        },
        why);
    ::chmod(dir.c_str(), 0755);
    if (!ran)
        GTEST_SKIP() << why;
    EXPECT_EQ(ReadBytes(file), before);
    EXPECT_FALSE(std::filesystem::exists(dir / "app.ini.tmp"));
    EXPECT_FALSE(std::filesystem::exists(dir / "sub"));
}

TEST_F(Durability, ConcurrentWritersOfDifferentKeysLoseNone) {
    const auto file = home.Path() / "shared.ini";
    constexpr int kWriters = 3;
    constexpr int kKeysEach = 40;
    std::vector<pid_t> children;
    for (int w = 0; w < kWriters; ++w) {
        std::fflush(nullptr);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            int failures = 0;
            for (int i = 0; i < kKeysEach; ++i) {
                const std::string key = "w" + std::to_string(w) + "k" + std::to_string(i);
                const CString value = platform::FromUtf8(key + "-value");
                // Every writer also adds to a section the others write, and to its own.
                failures += !WritePrivateProfileStringW(u"Shared", platform::FromUtf8(key), value,
                                                        Name(file));
                failures += !WritePrivateProfileStringW(
                    platform::FromUtf8("Own" + std::to_string(w)), u"last", value, Name(file));
            }
            ::_exit(failures == 0 ? 0 : 1);
        }
        children.push_back(child);
    }
    for (pid_t child : children) {
        const int status = Wait(child);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    }
    for (int w = 0; w < kWriters; ++w) {
        for (int i = 0; i < kKeysEach; ++i) {
            const std::string key = "w" + std::to_string(w) + "k" + std::to_string(i);
            EXPECT_EQ(Get(file, u"Shared", platform::FromUtf8(key)),
                      platform::FromUtf8(key + "-value").Str());
        }
        EXPECT_EQ(Get(file, platform::FromUtf8("Own" + std::to_string(w)), u"last"),
                  platform::FromUtf8("w" + std::to_string(w) + "k39-value").Str());
    }
}

TEST_F(Durability, AWriterKilledAtAnyMomentLeavesAWholeVersion) {
    const auto file = home.Path() / "killed.ini";
    const CString name = Name(file);
    for (int i = 0; i < 20; ++i)
        ASSERT_TRUE(
            WritePrivateProfileStringW(u"Fixed", platform::FromUtf8("key" + std::to_string(i)),
                                       platform::FromUtf8("value " + std::to_string(i)), name));
    ASSERT_TRUE(WritePrivateProfileStringW(u"Stream", u"Data", Version(0).c_str(), name));
    ASSERT_EQ(ReadBytes(file), VersionBytes(0));

    std::mt19937 random(20261123);
    std::uniform_int_distribution<int> delayUs(0, 25000);
    int last = 0;
    int kills = 0;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(3);
    while (kills < 200 && std::chrono::steady_clock::now() < deadline) {
        std::fflush(nullptr);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            // Carries on from the version on disk, one write after another.
            for (int n = last + 1;; ++n)
                WritePrivateProfileStringW(u"Stream", u"Data", Version(n).c_str(), name);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(delayUs(random)));
        ::kill(child, SIGKILL);
        const int status = Wait(child);
        ASSERT_TRUE(WIFSIGNALED(status));
        ++kills;

        const std::u16string data = Get(file, u"Stream", u"Data");
        const auto colon = data.find(u':');
        ASSERT_NE(colon, std::u16string::npos) << "kill " << kills;
        const int n = std::stoi(platform::ToUtf8(data.substr(0, colon)));
        ASSERT_GE(n, last) << "kill " << kills;
        ASSERT_EQ(ReadBytes(file), VersionBytes(n)) << "kill " << kills << ", version " << n;
        last = n;
    }
    EXPECT_GE(kills, 20);
    EXPECT_GT(last, 0); // some kills came after whole writes
}
