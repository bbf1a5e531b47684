// A directory under the test output root, emptied when the test starts.
#pragma once

#include <filesystem>
#include <string>

namespace testing_support {

// WIN_TEST_OUT (set by CTest) or the system's temporary directory, plus name and
// the running test's suite and name; emptied at every call.
std::filesystem::path TestOutputDir(const std::string& name);

} // namespace testing_support
