#include "support/TempDir.h"

#include <cstdlib>

namespace testing_support {

std::filesystem::path TestOutputDir(const std::string& name) {
    const char* root = std::getenv("WIN_TEST_OUT");
    std::filesystem::path dir =
        (root && *root ? std::filesystem::path(root) : std::filesystem::temp_directory_path()) /
        name;
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir);
    return dir;
}

} // namespace testing_support
