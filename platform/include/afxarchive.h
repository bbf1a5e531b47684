// CArchive: the framework's binary archive. Values are stored as raw
// little-endian images; strings carry the framework's length prefix.
#pragma once

#include "afxfile.h"

#include <unordered_map>
#include <vector>

struct CRuntimeClass;
class CObject;

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

    // Objects with their class: the first time a class goes out it is
    // written by name with its schema, later by number; an object stored a
    // second time is written as a reference to the first. A null object is a
    // tag of 0.
    void WriteObject(const CObject* object);
    void WriteClass(const CRuntimeClass* runtimeClass);
    // Reads an object: a new one is created through its class and reads
    // itself with Serialize; a reference gives the object read before. An
    // unknown class, or one that is not requested's kind, raises badClass; a
    // stored schema that is not the class's own raises badSchema (unless the
    // class is marked VERSIONABLE_SCHEMA); a reference to nothing read so far
    // raises badIndex.
    CObject* ReadObject(const CRuntimeClass* requested);
    // Reads a class tag: the class (schema and objectTag filled in), or null
    // with objectTag holding the object reference that stood there.
    CRuntimeClass* ReadClass(const CRuntimeClass* requested = nullptr, UINT* schema = nullptr,
                             DWORD* objectTag = nullptr);
    // The stored schema of the object whose Serialize is reading, once;
    // (UINT)-1 after that.
    UINT GetObjectSchema();

    CString m_strFileName;

private:
    struct Loaded {
        bool isClass;
        void* item; // CRuntimeClass* or CObject*
        UINT schema;
    };
    // The number of a class or object already stored, or 0.
    DWORD StoredIndex(const void* item) const;
    void WriteTag(DWORD index, bool isClass);
    std::unordered_map<const void*, DWORD> m_storeMap;
    // Index 0 stands for null.
    std::vector<Loaded> m_loadArray{Loaded{false, nullptr, 0}};
    DWORD m_nMapCount = 1;
    UINT m_nObjectSchema = static_cast<UINT>(-1);

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

// A stored class's schema may differ from the class's own: the object reads
// the schema with GetObjectSchema and loads what that version wrote.
#define VERSIONABLE_SCHEMA (0x80000000)

CArchive& operator<<(CArchive& ar, const CObject* object);
CArchive& operator>>(CArchive& ar, CObject*& object);
CArchive& operator>>(CArchive& ar, const CObject*& object);
