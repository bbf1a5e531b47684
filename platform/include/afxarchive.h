// CArchive: the framework's binary archive. Values are stored as raw
// little-endian images; strings carry the framework's length prefix.
#pragma once

#include "afxfile.h"

#include <vector>

class CArchive {
public:
    enum Mode : UINT { store = 0, load = 1, bNoFlushOnDelete = 2, bNoByteSwap = 4 };

    // The archive reads from or writes to file through a buffer of its own
    // of bufSize bytes (at least 512); buf is not used. The file stays the
    // caller's.
    CArchive(CFile* file, UINT mode, int bufSize = 4096, void* buf = nullptr);
    // Writes out what is buffered when storing, unless bNoFlushOnDelete;
    // errors are ignored here (call Close to see them).
    ~CArchive();
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    BOOL IsLoading() const { return (m_nMode & load) != 0; }
    BOOL IsStoring() const { return (m_nMode & load) == 0; }
    CFile* GetFile() const { return m_pFile; }

    // Reads up to count bytes; fewer only at the end of the file.
    UINT Read(void* buffer, UINT count);
    void Write(const void* buffer, UINT count);
    void Flush();
    void Close();
    void Abort();

    // Bytes that a load can still deliver: the buffer and the rest of the
    // file. Needs a file that can seek; loading itself does not.
    ULONGLONG GetRemaining() const;

    CArchive& operator<<(BYTE value) { return Put(value); }
    CArchive& operator<<(char value) { return Put(value); }
    CArchive& operator<<(bool value) { return Put(static_cast<BYTE>(value ? 1 : 0)); }
    CArchive& operator<<(WORD value) { return Put(value); }
    CArchive& operator<<(short value) { return Put(value); }
    CArchive& operator<<(WCHAR value) { return Put(value); }
    CArchive& operator<<(int value) { return Put(value); }
    CArchive& operator<<(UINT value) { return Put(value); }
    CArchive& operator<<(LONGLONG value) { return Put(value); }
    CArchive& operator<<(ULONGLONG value) { return Put(value); }
    CArchive& operator<<(float value) { return Put(value); }
    CArchive& operator<<(double value) { return Put(value); }

    CArchive& operator>>(BYTE& value) { return Get(value); }
    CArchive& operator>>(char& value) { return Get(value); }
    CArchive& operator>>(bool& value);
    CArchive& operator>>(WORD& value) { return Get(value); }
    CArchive& operator>>(short& value) { return Get(value); }
    CArchive& operator>>(WCHAR& value) { return Get(value); }
    CArchive& operator>>(int& value) { return Get(value); }
    CArchive& operator>>(UINT& value) { return Get(value); }
    CArchive& operator>>(LONGLONG& value) { return Get(value); }
    CArchive& operator>>(ULONGLONG& value) { return Get(value); }
    CArchive& operator>>(float& value) { return Get(value); }
    CArchive& operator>>(double& value) { return Get(value); }

    // The framework's element count: a WORD below 0xFFFF, else 0xFFFF and a
    // DWORD below 0xFFFFFFFF, else 0xFFFFFFFF and a 64-bit count.
    void WriteCount(ULONGLONG count);
    ULONGLONG ReadCount();

    CString m_strFileName;

private:
    template <class T> CArchive& Put(T value) {
        Write(&value, sizeof value);
        return *this;
    }
    // Through a copy, so a read cut short leaves value as it was.
    template <class T> CArchive& Get(T& value) {
        T read{};
        ReadExact(&read, sizeof read);
        value = read;
        return *this;
    }
    // Reads exactly count bytes or throws endOfFile.
    void ReadExact(void* buffer, UINT count);
    void CheckLoading() const;
    void CheckStoring() const;
    void FillBuffer();

    CFile* m_pFile;
    UINT m_nMode;
    std::vector<BYTE> m_buffer;
    std::size_t m_cur = 0; // next byte in the buffer
    std::size_t m_max = 0; // bytes in the buffer (loading) or used (storing)
    bool m_closed = false;
};

// The framework's string length prefix. The writer marks Unicode text with
// FF FE FF; the reader accepts that form and the older single-byte one, and
// reports the character size it found (1 or 2). A 64-bit length above INT_MAX
// raises genericException.
void AfxWriteStringLength(CArchive& ar, ULONGLONG length, BOOL unicode);
ULONGLONG AfxReadStringLength(CArchive& ar, int& charSize);

// A CString goes out as UTF-16LE code units; single-byte strings are read
// through the ANSI code page. A loaded string ends at its first U+0000. A
// length that the data does not back raises endOfFile; memory grows only with
// the bytes that arrive, so any file will do, a pipe included.
CArchive& operator<<(CArchive& ar, const CString& text);
CArchive& operator>>(CArchive& ar, CString& text);
