// Scripts held in memory for the reader: a file name and its text per entry.
#pragma once

#include <platform/ResourceScript.h>

#include <map>
#include <string>

namespace res_test {

using Files = std::map<std::string, std::string>;

inline platform::ResourceFileReader MemoryReader(const Files& files) {
    return [&files](const std::string& path) -> std::optional<std::string> {
        auto it = files.find(path);
        if (it == files.end())
            return std::nullopt;
        return it->second;
    };
}

// Reads "app.rc" of files.
inline platform::ResourceScript Read(const Files& files) {
    return platform::ReadResourceScript("app.rc", MemoryReader(files));
}
inline platform::ResourceScript Read(const std::string& script) {
    return Read(Files{{"app.rc", script}});
}

// The error "app.rc" of files gives, or "no error".
inline std::string ErrorOf(const Files& files) {
    try {
        Read(files);
    } catch (const platform::ResourceScriptError& e) {
        return e.what();
    }
    return "no error";
}
inline std::string ErrorOf(const std::string& script) {
    return ErrorOf(Files{{"app.rc", script}});
}

// A dialog script around one control statement.
inline std::string DialogWith(const std::string& controls, const std::string& head = "DIALOGEX") {
    return "100 " + head + " 0, 0, 200, 100\nBEGIN\n" + controls + "\nEND\n";
}

} // namespace res_test
