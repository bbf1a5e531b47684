// A directory where creating files is refused, and a way to run a check where
// that refusal really applies. The superuser passes every permission check, so
// as root the check runs in a forked child that has dropped to user and group
// nobody; where that is impossible, or some capability still lets the files
// through, the test is skipped with the reason.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

namespace testing_support {

class ReadOnlyDirectory {
public:
    // A fresh directory of mode 0555 under the system's temporary directory,
    // which every user can reach; name prefixes its random name.
    explicit ReadOnlyDirectory(const std::string& name);
    // Removes the directory and anything in it.
    ~ReadOnlyDirectory();
    ReadOnlyDirectory(const ReadOnlyDirectory&) = delete;
    ReadOnlyDirectory& operator=(const ReadOnlyDirectory&) = delete;

    const std::filesystem::path& Path() const { return m_path; }

    // Runs check as a user the directory refuses. Failures inside it fail the
    // calling test (from a child they are printed there and reported here).
    void RunRefused(const std::function<void()>& check) const;

private:
    std::filesystem::path m_path;
};

} // namespace testing_support
