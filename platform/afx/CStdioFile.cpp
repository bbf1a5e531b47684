// The buffered stream file. Bytes are produced here exactly as the original
// runtime's text and binary streams produce them; the C library's own streams
// cannot be used (wide output there converts through the locale and cannot be
// mixed with byte output).
#include "afx.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {
// Larger than the runtime's 4 KiB: fewer system calls, the same bytes.
constexpr std::size_t kBufferSize = 65536;
} // namespace

CStdioFile::CStdioFile(LPCTSTR fileName, UINT openFlags) {
    CFileException error;
    if (!Open(fileName, openFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CStdioFile::~CStdioFile() {
    if (!IsOpen())
        return;
    try {
        Close();
    } catch (CException* e) {
        e->Delete();
    }
}

BOOL CStdioFile::Open(LPCTSTR fileName, UINT openFlags, CFileException* error) {
    if (IsOpen())
        Abort();
    // The stream is always opened as a text or a binary stream.
    if (!(openFlags & (typeText | typeBinary)))
        openFlags |= typeText;
    if (!OpenDescriptor(fileName, openFlags, error))
        return FALSE;
    m_text = !(openFlags & typeBinary);
    m_buffer.clear();
    m_buffer.reserve(kBufferSize);
    return TRUE;
}

void CStdioFile::Drain(int cause) {
    if (m_buffer.empty())
        return;
    const bool ok = WriteAll(m_buffer.data(), m_buffer.size());
    const int err = errno;
    // The runtime drops the buffered bytes of a failed write.
    m_buffer.clear();
    if (!ok)
        ThrowErrno(cause, err);
}

inline void CStdioFile::Put(char byte, int cause) {
    if (m_buffer.size() >= kBufferSize)
        Drain(cause);
    m_buffer.push_back(byte);
}

void CStdioFile::PutTranslated(const char* data, std::size_t size, int cause) {
    while (size > 0) {
        const char* lf = m_text ? static_cast<const char*>(std::memchr(data, '\n', size)) : nullptr;
        const std::size_t plain = lf ? static_cast<std::size_t>(lf - data) : size;
        std::size_t done = 0;
        while (done < plain) {
            if (m_buffer.size() >= kBufferSize)
                Drain(cause);
            const std::size_t n = std::min(plain - done, kBufferSize - m_buffer.size());
            m_buffer.insert(m_buffer.end(), data + done, data + done + n);
            done += n;
        }
        data += plain;
        size -= plain;
        if (lf) {
            Put('\r', cause);
            Put('\n', cause);
            ++data;
            --size;
        }
    }
}

void CStdioFile::Write(const void* buffer, UINT count) {
    if (!IsOpen())
        ThrowErrno(CFileException::invalidFile, EBADF);
    PutTranslated(static_cast<const char*>(buffer), count, CFileException::genericException);
}

void CStdioFile::WriteString(LPCTSTR text) {
    if (!IsOpen())
        ThrowErrno(CFileException::invalidFile, EBADF);
    if (!text)
        return;
    for (; *text; ++text) {
        const char16_t unit = *text;
        if (m_text) {
            // The "C" locale converts units up to 255 to the byte of the same
            // value and nothing else.
            if (unit > 0xFF)
                ThrowErrno(CFileException::diskFull, EILSEQ);
            if (unit == u'\n')
                Put('\r', CFileException::diskFull);
            Put(static_cast<char>(unit), CFileException::diskFull);
        } else {
            Put(static_cast<char>(unit & 0xFF), CFileException::diskFull);
            Put(static_cast<char>(unit >> 8), CFileException::diskFull);
        }
    }
}

UINT CStdioFile::Read(void* buffer, UINT count) {
    Drain(CFileException::diskFull);
    return CFile::Read(buffer, count);
}

ULONGLONG CStdioFile::Seek(LONGLONG offset, UINT from) {
    Drain(CFileException::diskFull);
    return CFile::Seek(offset, from);
}

ULONGLONG CStdioFile::GetPosition() const {
    return CFile::GetPosition() + m_buffer.size();
}

ULONGLONG CStdioFile::GetLength() const {
    const ULONGLONG onDisk = CFile::GetLength();
    const ULONGLONG pending = (m_openFlags & modeNoTruncate || !(m_openFlags & modeCreate))
                                  ? onDisk + m_buffer.size()
                                  : CFile::GetPosition() + m_buffer.size();
    return std::max(onDisk, pending);
}

void CStdioFile::Flush() {
    if (!IsOpen())
        return;
    Drain(CFileException::diskFull);
}

void CStdioFile::Close() {
    if (!IsOpen())
        return;
    bool failed = false;
    int err = 0;
    if (!m_buffer.empty()) {
        failed = !WriteAll(m_buffer.data(), m_buffer.size());
        err = errno;
        m_buffer.clear();
    }
    // The stream is closed even when its last bytes could not be written.
    const CString path = m_strFileName;
    try {
        CloseDescriptor(true);
    } catch (CException* e) {
        e->Delete();
        failed = true;
        err = EIO;
    }
    if (failed)
        AfxThrowFileException(CFileException::diskFull, err, path);
}

void CStdioFile::Abort() {
    m_buffer.clear();
    CloseDescriptor(false);
}
