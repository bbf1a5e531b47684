// Profile files that cannot be read or replaced: a directory where the file
// should be, a file where a directory should be, a file too large to read, a
// lock or temporary file that cannot be opened, a name too long. Each read
// gives the default and each write FALSE with the matching error, and the file
// that was there is left as it was.
#include "ProfileTestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>

using profile_test::Get;
using profile_test::Name;
using profile_test::ReadBytes;
using profile_test::WriteBytes;

namespace {

namespace fs = std::filesystem;

class Refusal : public ::testing::Test {
protected:
    BOOL Write(const fs::path& file, LPCWSTR value = u"v") {
        SetLastError(0);
        return WritePrivateProfileStringW(u"s", u"k", value, Name(file));
    }

    profile_test::ConfigHome home{::testing::UnitTest::GetInstance()->current_test_info()->name()};
};

TEST_F(Refusal, ADirectoryInPlaceOfTheFileIsNeitherReadNorReplaced) {
    const fs::path file = home.Path() / "app.ini";
    fs::create_directories(file / "inside");
    EXPECT_EQ(Get(file, u"s", u"k"), u"<default>");
    EXPECT_FALSE(Write(file));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_TRUE(fs::is_directory(file / "inside"));
}

TEST_F(Refusal, AFileInPlaceOfADirectoryIsAPathNotFound) {
    WriteBytes(home.Path() / "plain", "not a directory");
    const fs::path file = home.Path() / "plain" / "sub" / "app.ini";
    EXPECT_EQ(Get(file, u"s", u"k"), u"<default>");
    EXPECT_FALSE(Write(file));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(ReadBytes(home.Path() / "plain"), "not a directory");
}

TEST_F(Refusal, AFileLargerThanTheLimitIsRefusedUntouched) {
    const fs::path file = home.Path() / "huge.ini";
    WriteBytes(file, "[s]\r\nk=old\r\n");
    // 64 MiB and one byte, sparse, so nothing is really written.
    fs::resize_file(file, (std::uintmax_t{64} << 20) + 1);
    EXPECT_EQ(Get(file, u"s", u"k"), u"<default>");
    EXPECT_FALSE(Write(file));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_TOO_LARGE));
    EXPECT_EQ(fs::file_size(file), (std::uintmax_t{64} << 20) + 1);
}

TEST_F(Refusal, ALockOrTemporaryFileThatCannotBeOpenedStopsTheWrite) {
    const fs::path file = home.Path() / "app.ini";
    ASSERT_TRUE(Write(file, u"old"));
    const std::string before = ReadBytes(file);

    // The temporary file's name is taken by a directory.
    fs::create_directory(home.Path() / "app.ini.tmp");
    EXPECT_FALSE(Write(file, u"new"));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(ReadBytes(file), before);
    EXPECT_EQ(Get(file, u"s", u"k"), u"old");
    fs::remove(home.Path() / "app.ini.tmp");

    // The lock file is a link, which the lock never follows.
    fs::remove(home.Path() / "app.ini.lock");
    fs::create_symlink(home.Path() / "elsewhere", home.Path() / "app.ini.lock");
    EXPECT_FALSE(Write(file, u"new"));
    EXPECT_NE(GetLastError(), 0u);
    EXPECT_FALSE(fs::exists(home.Path() / "elsewhere"));
    EXPECT_EQ(ReadBytes(file), before);
    fs::remove(home.Path() / "app.ini.lock");

    // With both names free again the write goes through.
    EXPECT_TRUE(Write(file, u"new"));
    EXPECT_EQ(Get(file, u"s", u"k"), u"new");
}

TEST_F(Refusal, ANameTooLongForTheFileSystemIsReported) {
    const fs::path file = home.Path() / (std::string(300, 'n') + ".ini");
    EXPECT_EQ(Get(file, u"s", u"k"), u"<default>");
    EXPECT_FALSE(Write(file));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILENAME_EXCED_RANGE));
}

} // namespace
