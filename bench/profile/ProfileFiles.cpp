#include "ProfileFiles.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace bench::profile {

namespace {

[[noreturn]] void Fail(const char* what, const std::string& path) {
    std::perror((std::string(what) + " " + path).c_str());
    std::exit(1);
}

std::string DirectoryOf(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

} // namespace

std::string KeyName(int i) {
    char text[32];
    std::snprintf(text, sizeof text, "Key%05d", i);
    return text;
}

std::string Value(int i, char variant) {
    char text[32];
    std::snprintf(text, sizeof text, "Value %05d%c", i, variant);
    return text;
}

std::string Line(int i, char variant) {
    return KeyName(i) + "=" + Value(i, variant) + "\r\n";
}

std::string FileOf(int count) {
    std::string bytes = "[Settings]\r\n";
    for (int i = 0; i < count; ++i)
        bytes += Line(i);
    return bytes;
}

void RawReplace(const std::string& path, const std::string& bytes) {
    const std::string temp = path + ".raw";
    const int fd = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0)
        Fail("open", temp);
    for (std::size_t done = 0; done < bytes.size();) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n <= 0)
            Fail("write", temp);
        done += static_cast<std::size_t>(n);
    }
    if (::fsync(fd) != 0 || ::close(fd) != 0)
        Fail("fsync", temp);
    if (::rename(temp.c_str(), path.c_str()) != 0)
        Fail("rename", temp);
    const std::string dirPath = DirectoryOf(path);
    const int dir = ::open(dirPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir < 0 || ::fsync(dir) != 0)
        Fail("fsync", dirPath);
    ::close(dir);
}

void RawRead(const std::string& path, std::string& bytes) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat st {};
    if (fd < 0 || ::fstat(fd, &st) != 0)
        Fail("open", path);
    bytes.resize(static_cast<std::size_t>(st.st_size));
    std::size_t got = 0;
    for (ssize_t n;
         got < bytes.size() && (n = ::read(fd, bytes.data() + got, bytes.size() - got)) > 0;)
        got += static_cast<std::size_t>(n);
    bytes.resize(got);
    ::close(fd);
}

std::string_view RawLookup(const std::string& path, std::string_view section, std::string_view key,
                           std::string& bytes) {
    RawRead(path, bytes);
    const std::string_view text(bytes);
    std::string header = "[";
    header.append(section).append("]\r\n");
    const std::size_t start = text.find(header);
    if (start == std::string_view::npos)
        return {};
    std::string entry = "\n";
    entry.append(key).append("=");
    const std::size_t at = text.find(entry, start + header.size() - 1);
    if (at == std::string_view::npos)
        return {};
    const std::size_t value = at + entry.size();
    return text.substr(value, text.find('\r', value) - value);
}

void Remove(const std::string& path) {
    for (const char* suffix : {"", ".lock", ".tmp", ".raw"})
        ::unlink((path + suffix).c_str());
}

} // namespace bench::profile
