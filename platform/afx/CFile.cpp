// CFile over a POSIX file descriptor, with the framework's open flags, its
// error causes and an in-process table that emulates the share modes.
#include "afx.h"
#include "kernel/DurableFile.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <mutex>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int kAccessRead = 1;
constexpr int kAccessWrite = 2;

struct ShareEntry {
    unsigned long long dev;
    unsigned long long ino;
    int access; // what this open may do
    int deny;   // what it forbids to others
    const void* owner;
};

std::mutex& ShareMutex() {
    static std::mutex m;
    return m;
}
std::vector<ShareEntry>& ShareTable() {
    static std::vector<ShareEntry> table;
    return table;
}

int AccessOf(UINT flags) {
    switch (flags & 3) {
    case CFile::modeWrite:
        return kAccessWrite;
    case CFile::modeReadWrite:
        return kAccessRead | kAccessWrite;
    default:
        return kAccessRead;
    }
}

int DenyOf(UINT flags) {
    switch (flags & 0x70) {
    case CFile::shareExclusive:
        return kAccessRead | kAccessWrite;
    case CFile::shareDenyWrite:
        return kAccessWrite;
    case CFile::shareDenyRead:
        return kAccessRead;
    default:
        return 0;
    }
}

std::filesystem::path PathOf(const CString& name) {
    return std::filesystem::path(platform::ToUtf8(name.Str()));
}

// Missing directories are a bad path, as the original reports them; a
// missing file in an existing directory is "not found".
int OpenFailureCause(int error, const CString& name) {
    if (error == ENOENT) {
        std::error_code ec;
        auto parent = std::filesystem::absolute(PathOf(name), ec).parent_path();
        if (ec || !std::filesystem::is_directory(parent, ec))
            return CFileException::badPath;
    }
    return CFileException::ErrnoToException(error);
}

void FillError(CFileException* error, int cause, int osError, LPCTSTR name) {
    if (!error)
        return;
    error->m_cause = cause;
    error->m_lOsError = osError;
    error->m_strFileName = name ? name : u"";
}

} // namespace

CFile::CFile(LPCTSTR fileName, UINT openFlags) {
    CFileException error;
    if (!Open(fileName, openFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile() {
    CloseDescriptor(false);
}

BOOL CFile::Open(LPCTSTR fileName, UINT openFlags, CFileException* error) {
    return OpenDescriptor(fileName, openFlags, error);
}

BOOL CFile::OpenDescriptor(LPCTSTR fileName, UINT openFlags, CFileException* error) {
    if (IsOpen())
        CloseDescriptor(false);
    const CString name(fileName ? fileName : u"");
    if (name.IsEmpty() || name.GetLength() > MAX_PATH) {
        FillError(error, CFileException::badPath, 0, name);
        return FALSE;
    }

    int flags = O_CLOEXEC;
    const int access = AccessOf(openFlags);
    flags |= access == (kAccessRead | kAccessWrite) ? O_RDWR
             : access == kAccessWrite               ? O_WRONLY
                                                    : O_RDONLY;
    if (openFlags & modeCreate)
        flags |= O_CREAT;
    // Stream files opened to add go to the end on every write, as the
    // runtime's "a" mode does.
    const bool append = (openFlags & typeText || openFlags & typeBinary) &&
                        ((openFlags & modeCreate && openFlags & modeNoTruncate) ||
                         (!(openFlags & modeCreate) && access == kAccessWrite));
    if (append)
        flags |= O_APPEND;

    const std::string path = platform::ToUtf8(name.Str());
    const int fd = ::open(path.c_str(), flags, 0666);
    if (fd < 0) {
        const int err = errno;
        FillError(error, OpenFailureCause(err, name), err, name);
        return FALSE;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || S_ISDIR(st.st_mode)) {
        ::close(fd);
        FillError(error, CFileException::accessDenied, EISDIR, name);
        return FALSE;
    }

    {
        std::lock_guard<std::mutex> lock(ShareMutex());
        const int deny = DenyOf(openFlags);
        for (const ShareEntry& e : ShareTable()) {
            if (e.dev == st.st_dev && e.ino == st.st_ino &&
                ((e.deny & access) || (deny & e.access))) {
                ::close(fd);
                FillError(error, CFileException::sharingViolation, 0, name);
                return FALSE;
            }
        }
        ShareTable().push_back({st.st_dev, st.st_ino, access, deny, this});
        m_shareKey[0] = st.st_dev;
        m_shareKey[1] = st.st_ino;
        m_shared = true;
    }

    // Truncating only after the share check keeps another open's data intact.
    if (openFlags & modeCreate && !(openFlags & modeNoTruncate) && S_ISREG(st.st_mode) &&
        ::ftruncate(fd, 0) != 0) {
        const int err = errno;
        ::close(fd);
        ReleaseShare();
        FillError(error, CFileException::ErrnoToException(err), err, name);
        return FALSE;
    }

    m_fd = fd;
    m_openFlags = openFlags;
    std::error_code ec;
    auto full = std::filesystem::absolute(std::filesystem::path(path), ec).lexically_normal();
    m_strFileName = ec ? name : platform::FromUtf8(full.string());
    return TRUE;
}

void CFile::ReleaseShare() {
    if (!m_shared)
        return;
    std::lock_guard<std::mutex> lock(ShareMutex());
    auto& table = ShareTable();
    for (auto it = table.begin(); it != table.end(); ++it) {
        if (it->owner == this && it->dev == m_shareKey[0] && it->ino == m_shareKey[1]) {
            table.erase(it);
            break;
        }
    }
    m_shared = false;
}

void CFile::CloseDescriptor(bool report) {
    if (m_fd < 0)
        return;
    const int rc = ::close(m_fd);
    const int err = errno;
    m_fd = -1;
    ReleaseShare();
    if (rc != 0 && report)
        ThrowErrno(CFileException::ErrnoToException(err), err);
}

void CFile::ThrowErrno(int cause, int error) const {
    AfxThrowFileException(cause, error, m_strFileName);
}

bool CFile::WriteAll(const char* data, std::size_t size) {
    return platform::WriteAll(m_fd, data, size);
}

UINT CFile::Read(void* buffer, UINT count) {
    if (m_fd < 0)
        ThrowErrno(CFileException::invalidFile, EBADF);
    auto* out = static_cast<char*>(buffer);
    UINT total = 0;
    while (total < count) {
        const ssize_t n = ::read(m_fd, out + total, count - total);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            ThrowErrno(CFileException::ErrnoToException(errno), errno);
        }
        if (n == 0)
            break;
        total += static_cast<UINT>(n);
    }
    return total;
}

void CFile::Write(const void* buffer, UINT count) {
    if (m_fd < 0)
        ThrowErrno(CFileException::invalidFile, EBADF);
    if (!WriteAll(static_cast<const char*>(buffer), count))
        ThrowErrno(CFileException::ErrnoToException(errno), errno);
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from) {
    if (m_fd < 0)
        ThrowErrno(CFileException::invalidFile, EBADF);
    const int whence = from == end ? SEEK_END : from == current ? SEEK_CUR : SEEK_SET;
    const off_t pos = ::lseek(m_fd, static_cast<off_t>(offset), whence);
    if (pos < 0)
        ThrowErrno(CFileException::badSeek, errno);
    return static_cast<ULONGLONG>(pos);
}

ULONGLONG CFile::GetPosition() const {
    if (m_fd < 0)
        ThrowErrno(CFileException::invalidFile, EBADF);
    const off_t pos = ::lseek(m_fd, 0, SEEK_CUR);
    if (pos < 0)
        ThrowErrno(CFileException::badSeek, errno);
    return static_cast<ULONGLONG>(pos);
}

ULONGLONG CFile::GetLength() const {
    if (m_fd < 0)
        ThrowErrno(CFileException::invalidFile, EBADF);
    struct stat st {};
    if (::fstat(m_fd, &st) != 0)
        ThrowErrno(CFileException::ErrnoToException(errno), errno);
    return static_cast<ULONGLONG>(st.st_size);
}

void CFile::Flush() {
    if (m_fd >= 0 && ::fsync(m_fd) != 0 && errno != EINVAL && errno != EROFS)
        ThrowErrno(CFileException::ErrnoToException(errno), errno);
}

void CFile::Close() {
    CloseDescriptor(true);
}

void CFile::Abort() {
    CloseDescriptor(false);
}

CString CFile::GetFileName() const {
    const int slash = m_strFileName.ReverseFind(u'/');
    return slash < 0 ? m_strFileName : m_strFileName.Mid(slash + 1);
}
