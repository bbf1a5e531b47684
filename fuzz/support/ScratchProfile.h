// A private profile file for a fuzzer, in memory where the system offers one
// (every profile write flushes the file), removed with its directory at exit.
#pragma once

#include <cstdlib>
#include <string>
#include <unistd.h>

namespace fuzz {

inline std::string MakeScratchProfile(const char* prefix) {
    const char* base = ::access("/dev/shm", W_OK) == 0 ? "/dev/shm" : std::getenv("TMPDIR");
    std::string dir = std::string(base ? base : "/tmp") + "/" + prefix + "-XXXXXX";
    if (::mkdtemp(dir.data()) == nullptr)
        __builtin_trap();
    static std::string s_dir;
    s_dir = dir;
    std::atexit([] {
        for (const char* suffix : {"/fuzz.ini", "/fuzz.ini.lock", "/fuzz.ini.tmp"})
            ::unlink((s_dir + suffix).c_str());
        ::rmdir(s_dir.c_str());
    });
    return dir + "/fuzz.ini";
}

} // namespace fuzz
