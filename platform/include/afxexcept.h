// The framework's exceptions. They are thrown as pointers, as the framework
// does: catch (CFileException* e) { ...; e->Delete(); }.
#pragma once

#include "afxstr.h"

class CException : public CObject {
public:
    // Deletes the exception unless it is a preallocated one.
    void Delete();

    // Copies the description into error, cut to maxError - 1 characters and
    // terminated. False when there is no description.
    virtual BOOL GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext = nullptr) const;
    // The whole description.
    virtual CString GetErrorText() const = 0;
    // Shows the description in a message box (the text of string messageId,
    // or a stock text, when there is none); returns the box's result.
    virtual int ReportError(UINT type = 0x30 /* MB_ICONEXCLAMATION */, UINT messageId = 0) const;

    BOOL m_bAutoDelete = TRUE;

protected:
    CException() = default;
};

class CMemoryException : public CException {
public:
    CMemoryException() = default;
    CString GetErrorText() const override;
};

// An argument the framework cannot use (a missing resource, say).
class CInvalidArgException : public CException {
public:
    CInvalidArgException() = default;
    CString GetErrorText() const override;
};

class CFileException : public CException {
public:
    enum {
        none = 0,
        genericException = 1,
        fileNotFound = 2,
        badPath = 3,
        tooManyOpenFiles = 4,
        accessDenied = 5,
        invalidFile = 6,
        removeCurrentDir = 7,
        directoryFull = 8,
        badSeek = 9,
        hardIO = 10,
        sharingViolation = 11,
        lockViolation = 12,
        diskFull = 13,
        endOfFile = 14,
    };

    explicit CFileException(int cause = none, LONG osError = -1, LPCTSTR fileName = nullptr);
    CString GetErrorText() const override;
    // The cause for an errno value of this system.
    static int ErrnoToException(int error);

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

class CArchiveException : public CException {
public:
    enum {
        none = 0,
        genericException = 1,
        readOnly = 2,
        endOfFile = 3,
        writeOnly = 4,
        badIndex = 5,
        badClass = 6,
        badSchema = 7,
        bufferFull = 8,
    };

    explicit CArchiveException(int cause = none, LPCTSTR fileName = nullptr);
    CString GetErrorText() const override;

    int m_cause;
    CString m_strFileName;
};

[[noreturn]] void AfxThrowMemoryException();
[[noreturn]] void AfxThrowInvalidArgException();
[[noreturn]] void AfxThrowFileException(int cause, LONG osError = -1, LPCTSTR fileName = nullptr);
[[noreturn]] void AfxThrowArchiveException(int cause, LPCTSTR fileName = nullptr);

// Thrown after a failed dialog validation, once the user was told.
class CUserException : public CException {
public:
    CUserException() = default;
    CString GetErrorText() const override;
};

class CNotSupportedException : public CException {
public:
    CNotSupportedException() = default;
    CString GetErrorText() const override;
};

[[noreturn]] void AfxThrowUserException();
[[noreturn]] void AfxThrowNotSupportedException();
