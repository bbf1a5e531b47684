#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace testing_support {

std::filesystem::path TestOutputDir(const std::string& name) {
    const char* root = std::getenv("WIN_TEST_OUT");
    std::filesystem::path dir =
        (root && *root ? std::filesystem::path(root) : std::filesystem::temp_directory_path()) /
        name;
    // CTest runs tests as separate processes side by side: each test gets a
    // directory of its own, so one test's start never empties another's files.
    if (const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info())
        dir /= std::string(test->test_suite_name()) + "." + test->name();
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    return dir;
}

} // namespace testing_support
