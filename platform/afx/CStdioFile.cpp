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
    // An open stream is written out and closed first; a failure there throws
    // as Close does rather than losing the buffered bytes in silence.
    if (IsOpen())
        Close();
    // The stream is always opened as a text or a binary stream.
    if (!(openFlags & (typeText | typeBinary)))
        openFlags |= typeText;
    if (!OpenDescriptor(fileName, openFlags, error))
        return FALSE;
    m_text = !(openFlags & typeBinary);
    if (!m_buffer)
        m_buffer = std::make_unique<char[]>(kBufferSize);
    m_used = 0;
    return TRUE;
}

void CStdioFile::Drain(int cause) {
    if (m_used == 0)
        return;
    const bool ok = WriteAll(m_buffer.get(), m_used);
    const int err = errno;
    // The runtime drops the buffered bytes of a failed write.
    m_used = 0;
    if (!ok)
        ThrowErrno(cause, err);
}

inline void CStdioFile::Put(char byte, int cause) {
    if (m_used >= kBufferSize)
        Drain(cause);
    m_buffer[m_used++] = byte;
}

void CStdioFile::PutTranslated(const char* data, std::size_t size, int cause) {
    while (size > 0) {
        // Room for at least a line feed written as CR LF.
        if (kBufferSize - m_used < 2)
            Drain(cause);
        char* out = m_buffer.get() + m_used;
        if (!m_text) {
            const std::size_t n = std::min(size, kBufferSize - m_used);
            std::memcpy(out, data, n);
            m_used += n;
            data += n;
            size -= n;
            continue;
        }
        // Copies up to and including the next line feed, which becomes CR LF;
        // one byte of the room stays free for the CR.
        const std::size_t n = std::min(size, kBufferSize - m_used - 1);
        const void* feed = std::memchr(data, '\n', n);
        const std::size_t run =
            feed ? static_cast<std::size_t>(static_cast<const char*>(feed) - data) : n;
        std::memcpy(out, data, run);
        m_used += run;
        data += run;
        size -= run;
        if (feed) {
            m_buffer[m_used++] = '\r';
            m_buffer[m_used++] = '\n';
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
    return CFile::GetPosition() + m_used;
}

ULONGLONG CStdioFile::GetLength() const {
    const ULONGLONG onDisk = CFile::GetLength();
    const ULONGLONG pending = (m_openFlags & modeNoTruncate || !(m_openFlags & modeCreate))
                                  ? onDisk + m_used
                                  : CFile::GetPosition() + m_used;
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
    if (m_used > 0) {
        failed = !WriteAll(m_buffer.get(), m_used);
        err = errno;
        m_used = 0;
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
    m_used = 0;
    CloseDescriptor(false);
}
