// Helpers for the profile tests: a configuration home in a fresh test
// directory (the real home is never touched), whole-file reads and writes,
// and a way to run a check as an unprivileged user.
#pragma once

#include <afxwin.h>

#include <filesystem>
#include <functional>
#include <string>

namespace profile_test {

// Points XDG_CONFIG_HOME and HOME at a fresh directory for its lifetime.
class ConfigHome {
public:
    explicit ConfigHome(const std::string& name);
    ~ConfigHome();
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
    std::string m_oldConfig, m_oldHome;
    bool m_hadConfig, m_hadHome;
};

std::string ReadBytes(const std::filesystem::path& path);
void WriteBytes(const std::filesystem::path& path, const std::string& bytes);
// The profile API takes UTF-16 file names.
CString Name(const std::filesystem::path& path);
// Get(section, key, default) through GetPrivateProfileStringW with a large buffer.
std::u16string Get(const std::filesystem::path& file, LPCWSTR section, LPCWSTR key,
                   LPCWSTR fallback = u"<default>");

// Runs check where creating files in a mode 0555 directory is refused: in this
// process for an ordinary user, in a child switched to user nobody for root.
// Returns false (with the reason) when neither is possible here.
bool RunUnprivileged(const std::function<void()>& check, std::string& why);

} // namespace profile_test
