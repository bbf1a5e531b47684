// A directory under the test output root, emptied when the test starts.
#pragma once

#include <filesystem>
#include <string>

namespace testing_support {

// WIN_TEST_OUT (set by CTest) or the system's temporary directory, plus name.
std::filesystem::path TestOutputDir(const std::string& name);

} // namespace testing_support
