#include "kernel/DurableFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// A descriptor closed on scope exit.
class Fd {
public:
    explicit Fd(int fd) : m_fd(fd) {}
    ~Fd() {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    int get() const { return m_fd; }
    // Closes now, reporting a failure of close (which may carry a write error).
    bool Close() {
        const int fd = m_fd;
        m_fd = -1;
        return ::close(fd) == 0;
    }

private:
    Fd(const Fd&) = delete;
    Fd& operator=(const Fd&) = delete;
    int m_fd;
};

std::string DirectoryOf(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

} // namespace

bool WriteAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t n = ::write(fd, data, size);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        data += n;
        size -= static_cast<std::size_t>(n);
    }
    return true;
}

bool ReadWholeFile(const std::string& path, std::string& bytes, std::size_t maxSize, int& error) {
    bytes.clear();
    Fd fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (fd.get() < 0) {
        error = errno;
        return false;
    }
    struct stat st {};
    if (::fstat(fd.get(), &st) != 0) {
        error = errno;
        return false;
    }
    if (S_ISDIR(st.st_mode)) {
        error = EISDIR;
        return false;
    }
    if (static_cast<std::size_t>(st.st_size) > maxSize) {
        error = EFBIG;
        return false;
    }
    // One byte more than the size, so that the read finding the end needs no
    // larger buffer (growing it would copy the whole file).
    bytes.resize(static_cast<std::size_t>(st.st_size) + 1);
    std::size_t got = 0;
    // The size is a hint: read until the end even if the file changed meanwhile.
    for (;;) {
        if (got == bytes.size()) {
            if (bytes.size() >= maxSize + 1)
                break;
            bytes.resize(bytes.size() + 4096);
        }
        const ssize_t n = ::read(fd.get(), bytes.data() + got, bytes.size() - got);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            error = errno;
            return false;
        }
        if (n == 0)
            break;
        got += static_cast<std::size_t>(n);
    }
    bytes.resize(got);
    if (got > maxSize) {
        error = EFBIG;
        return false;
    }
    return true;
}

bool CreateDirectories(const std::string& dir, int& error) {
    struct stat st {};
    if (dir.empty() || ::stat(dir.c_str(), &st) == 0)
        return true;
    const std::string parent = DirectoryOf(dir);
    if (parent != dir && !CreateDirectories(parent, error))
        return false;
    if (::mkdir(dir.c_str(), 0700) != 0 && errno != EEXIST) {
        error = errno;
        return false;
    }
    return true;
}

FileLock::FileLock(const std::string& path) {
    const std::string lockPath = path + ".lock";
    m_fd = ::open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (m_fd < 0) {
        m_error = errno;
        return;
    }
    while (::flock(m_fd, LOCK_EX) != 0) {
        if (errno == EINTR)
            continue;
        m_error = errno;
        ::close(m_fd);
        m_fd = -1;
        return;
    }
}

FileLock::~FileLock() {
    if (m_fd >= 0)
        ::close(m_fd); // releases the lock
}

bool ReplaceFile(const std::string& path, const std::string& bytes, int& error) {
    mode_t mode = 0600;
    struct stat st {};
    if (::stat(path.c_str(), &st) == 0)
        mode = st.st_mode & 07777;
    const std::string temp = path + ".tmp";
    Fd fd(::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, mode));
    if (fd.get() < 0) {
        error = errno;
        return false;
    }
    auto fail = [&](int err) {
        error = err;
        ::unlink(temp.c_str());
        return false;
    };
    // The umask may have narrowed the mode of a file that already existed.
    if (::fchmod(fd.get(), mode) != 0)
        return fail(errno);
    if (!WriteAll(fd.get(), bytes.data(), bytes.size()) || ::fsync(fd.get()) != 0)
        return fail(errno);
    if (!fd.Close())
        return fail(errno);
    if (::rename(temp.c_str(), path.c_str()) != 0)
        return fail(errno);
    // The rename itself is durable only once the directory is.
    Fd dir(::open(DirectoryOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (dir.get() >= 0)
        ::fsync(dir.get());
    return true;
}

} // namespace platform
