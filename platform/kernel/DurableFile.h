// Whole-file reads and crash-safe replacement, for small files that several
// processes update (the profile). Failures return false with errno's value in
// error.
#pragma once

#include <string>

namespace platform {

// Reads the whole file; false with ENOENT when it does not exist, EFBIG when it
// is larger than maxSize.
bool ReadWholeFile(const std::string& path, std::string& bytes, std::size_t maxSize, int& error);

// Writes all of data, resuming after interrupted and partial writes; false
// with errno set when a write fails.
bool WriteAll(int fd, const char* data, std::size_t size);

// Creates the missing directories of dir (mode 0700).
bool CreateDirectories(const std::string& dir, int& error);

// An exclusive lock on path, held from construction to destruction. It locks a
// separate file beside it (path + ".lock"), because replacing a file gives it
// a new inode and a lock on the old one would no longer exclude anybody.
class FileLock {
public:
    explicit FileLock(const std::string& path);
    ~FileLock();
    bool Held() const { return m_fd >= 0; }
    int Error() const { return m_error; }

private:
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    int m_fd = -1;
    int m_error = 0;
};

// Replaces path with bytes so that a crash at any moment leaves the old or the
// new file whole: the bytes go to a temporary file in the same directory, are
// flushed to disk and renamed over path, and the directory is flushed. An
// existing file's permissions are kept; a new file is private (0600). The
// caller holds the FileLock of path, so the temporary file's fixed name is its
// own.
bool ReplaceFile(const std::string& path, const std::string& bytes, int& error);

} // namespace platform
