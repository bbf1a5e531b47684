#include <afxwin.h>

#include <algorithm>
#include <cerrno>

namespace {

// The name shown in a description: the file's, or the framework's stand-in text.
CString NameOrUnnamed(const CString& name) {
    return name.IsEmpty() ? CString(u"an unnamed file") : name;
}

CString FileMessage(int cause, const CString& name) {
    const CString n = NameOrUnnamed(name);
    switch (cause) {
    case CFileException::none:
        return u"No error occurred.";
    case CFileException::fileNotFound:
        return n + u" was not found.";
    case CFileException::badPath:
        return n + u" contains an invalid path.";
    case CFileException::tooManyOpenFiles:
        return n + u" could not be opened because there are too many open files.";
    case CFileException::accessDenied:
        return u"Access to " + n + u" was denied.";
    case CFileException::invalidFile:
        return u"An invalid file handle was associated with " + n + u".";
    case CFileException::removeCurrentDir:
        return n + u" could not be removed because it is the current directory.";
    case CFileException::directoryFull:
        return n + u" could not be created because the directory is full.";
    case CFileException::badSeek:
        return u"Seek failed on " + n + u".";
    case CFileException::hardIO:
        return u"A hardware I/O error was reported while accessing " + n + u".";
    case CFileException::sharingViolation:
        return u"A sharing violation occurred while accessing " + n + u".";
    case CFileException::lockViolation:
        return u"A locking violation occurred while accessing " + n + u".";
    case CFileException::diskFull:
        return u"Disk full while accessing " + n + u".";
    case CFileException::endOfFile:
        return u"An attempt was made to access " + n + u" past its end.";
    default:
        return u"An unexpected error occurred while accessing " + n + u".";
    }
}

CString ArchiveMessage(int cause, const CString& name) {
    const CString n = NameOrUnnamed(name);
    switch (cause) {
    case CArchiveException::none:
        return u"No error occurred.";
    case CArchiveException::readOnly:
        return u"Tried to write to an archive opened for loading: " + n + u".";
    case CArchiveException::endOfFile:
        return u"Reached the end of " + n + u" while reading an archive.";
    case CArchiveException::writeOnly:
        return u"Tried to read from an archive opened for storing: " + n + u".";
    case CArchiveException::badIndex:
        return n + u" has an invalid format.";
    case CArchiveException::badClass:
        return n + u" holds an object of an unexpected type.";
    case CArchiveException::badSchema:
        return n + u" holds an object of an unsupported version.";
    case CArchiveException::bufferFull:
        return u"The archive buffer is full while accessing " + n + u".";
    default:
        return u"An unexpected error occurred while reading or writing " + n + u".";
    }
}

} // namespace

void CException::Delete() {
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::GetErrorMessage(LPTSTR error, UINT maxError, UINT* helpContext) const {
    if (helpContext)
        *helpContext = 0;
    if (!error || maxError == 0)
        return FALSE;
    const CString text = GetErrorText();
    const std::size_t n =
        std::min<std::size_t>(static_cast<std::size_t>(text.GetLength()), maxError - 1);
    std::copy_n(text.GetString(), n, error);
    error[n] = u'\0';
    return TRUE;
}

CString CMemoryException::GetErrorText() const {
    return u"Out of memory.";
}

CString CInvalidArgException::GetErrorText() const {
    return u"Encountered an improper argument.";
}

CFileException::CFileException(int cause, LONG osError, LPCTSTR fileName)
    : m_cause(cause), m_lOsError(osError), m_strFileName(fileName ? fileName : u"") {}

CString CFileException::GetErrorText() const {
    return FileMessage(m_cause, m_strFileName);
}

int CFileException::ErrnoToException(int error) {
    switch (error) {
    case 0:
        return none;
    case ENOENT:
        return fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case EINVAL:
    case ELOOP:
        return badPath;
    case EMFILE:
    case ENFILE:
        return tooManyOpenFiles;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case EEXIST:
    case ETXTBSY:
        return accessDenied;
    case EBADF:
        return invalidFile;
    case ESPIPE:
        return badSeek;
    case EIO:
        return hardIO;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return diskFull;
    default:
        return genericException;
    }
}

CArchiveException::CArchiveException(int cause, LPCTSTR fileName)
    : m_cause(cause), m_strFileName(fileName ? fileName : u"") {}

CString CArchiveException::GetErrorText() const {
    return ArchiveMessage(m_cause, m_strFileName);
}

void AfxThrowMemoryException() {
    // Preallocated: raising it must not need memory.
    static CMemoryException s_exception;
    s_exception.m_bAutoDelete = FALSE;
    throw &s_exception;
}

void AfxThrowInvalidArgException() {
    throw new CInvalidArgException();
}

void AfxThrowFileException(int cause, LONG osError, LPCTSTR fileName) {
    throw new CFileException(cause, osError, fileName);
}

void AfxThrowArchiveException(int cause, LPCTSTR fileName) {
    throw new CArchiveException(cause, fileName);
}

CString CUserException::GetErrorText() const {
    return CString();
}

CString CNotSupportedException::GetErrorText() const {
    return u"An unsupported operation was attempted.";
}

void AfxThrowUserException() {
    throw new CUserException();
}

void AfxThrowNotSupportedException() {
    throw new CNotSupportedException();
}

int CException::ReportError(UINT type, UINT messageId) const {
    CString text = GetErrorText();
    if (text.IsEmpty()) {
        if (messageId)
            text.LoadString(messageId);
        if (text.IsEmpty())
            text = u"No error message is available.";
    }
    return AfxMessageBox(text, type);
}
