// Files of the framework: CFile over a file descriptor, CStdioFile with the
// runtime's text and binary stream modes, and CMemFile in memory.
#pragma once

#include "afxexcept.h"

#include <memory>

class CFile : public CObject {
public:
    enum OpenFlags : UINT {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000,
    };
    enum SeekPosition : UINT { begin = 0, current = 1, end = 2 };

    CFile() = default;
    // Opens the file or throws CFileException*.
    CFile(LPCTSTR fileName, UINT openFlags);
    // Closes the file; errors are ignored here (call Close to see them).
    ~CFile() override;

    // False on failure, with error (when given) filled in; the name in it is
    // the name as passed. Once open, errors carry the full path.
    virtual BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr);
    virtual UINT Read(void* buffer, UINT count);
    virtual void Write(const void* buffer, UINT count);
    virtual ULONGLONG Seek(LONGLONG offset, UINT from);
    ULONGLONG SeekToEnd() { return Seek(0, end); }
    void SeekToBegin() { Seek(0, begin); }
    virtual ULONGLONG GetPosition() const;
    virtual ULONGLONG GetLength() const;
    virtual void Flush();
    virtual void Close();
    // Closes without reporting errors.
    virtual void Abort();

    BOOL IsOpen() const { return m_fd >= 0; }
    virtual CString GetFilePath() const { return m_strFileName; }
    CString GetFileName() const;

protected:
    // Opens the descriptor; on failure fills error and returns false.
    BOOL OpenDescriptor(LPCTSTR fileName, UINT openFlags, CFileException* error);
    // Writes all bytes to the descriptor; false with errno set on failure.
    bool WriteAll(const char* data, std::size_t size);
    [[noreturn]] void ThrowErrno(int cause, int error) const;
    void CloseDescriptor(bool report);

    int m_fd = -1;
    UINT m_openFlags = 0;
    CString m_strFileName;

private:
    void ReleaseShare();
    unsigned long long m_shareKey[2] = {0, 0};
    bool m_shared = false;
};

// A buffered stream file in the runtime's text or binary mode. Text mode writes
// every line feed as CR LF; WriteString writes each UTF-16 unit as one byte in
// text mode (failing above 255, as the runtime's "C" locale does) and as two
// little-endian bytes in binary mode.
class CStdioFile : public CFile {
public:
    CStdioFile() = default;
    CStdioFile(LPCTSTR fileName, UINT openFlags);
    ~CStdioFile() override;

    // A file still open is closed first, its buffer written out; if that
    // fails, the Close exception (diskFull) comes out and nothing is opened.
    BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr) override;
    // Reads raw bytes after writing out what is buffered.
    UINT Read(void* buffer, UINT count) override;
    // Short writes throw genericException.
    void Write(const void* buffer, UINT count) override;
    // Failures, an unconvertible character included, throw diskFull; the
    // characters before the failing one stay written.
    virtual void WriteString(LPCTSTR text);
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetPosition() const override;
    ULONGLONG GetLength() const override;
    // Flush and close failures throw diskFull.
    void Flush() override;
    void Close() override;
    void Abort() override;

    BOOL IsTextMode() const { return m_text; }

private:
    void Put(char byte, int cause);
    void PutTranslated(const char* data, std::size_t size, int cause);
    void Drain(int cause);

    bool m_text = true;
    std::unique_ptr<char[]> m_buffer; // kBufferSize bytes once open
    std::size_t m_used = 0;
};

// A file in memory: growing by growBytes, or over a caller's fixed block.
class CMemFile : public CFile {
public:
    explicit CMemFile(UINT growBytes = 1024);
    CMemFile(BYTE* buffer, UINT size, UINT growBytes = 0);
    ~CMemFile() override;

    void Attach(BYTE* buffer, UINT size, UINT growBytes = 0);
    // Hands the block to the caller and leaves the file empty. A block that
    // the file allocated must be released with free().
    BYTE* Detach();

    BOOL Open(LPCTSTR fileName, UINT openFlags, CFileException* error = nullptr) override;
    UINT Read(void* buffer, UINT count) override;
    void Write(const void* buffer, UINT count) override;
    ULONGLONG Seek(LONGLONG offset, UINT from) override;
    ULONGLONG GetPosition() const override { return m_position; }
    ULONGLONG GetLength() const override { return m_size; }
    void Flush() override {}
    void Close() override;
    void Abort() override { Close(); }

private:
    void Grow(std::size_t needed);

    BYTE* m_data = nullptr;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
    std::size_t m_position = 0;
    UINT m_growBytes = 1024;
    bool m_owned = true;
};
