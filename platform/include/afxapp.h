// The application object and the thread object it derives from. Included from
// afxwin.h.
#pragma once

#include "afxwnd.h"

// A thread of the application: its main window and its start and end.
class CWinThread : public CObject {
public:
    CWinThread() = default;

    // The window that stands for the application (null until the host sets it).
    CWnd* m_pMainWnd = nullptr;

    virtual CWnd* GetMainWnd() { return m_pMainWnd; }
    // Called once at start-up; FALSE ends the application.
    virtual BOOL InitInstance() { return TRUE; }
    // Called once at the end; the result is the exit code.
    virtual int ExitInstance() { return 0; }
};

// The one application object of the process. Its names are the host's, held
// in memory from malloc (a host that replaces one frees the old value and sets
// a _tcsdup copy); the destructor frees them.
//
// The profile lives in an INI file: $XDG_CONFIG_HOME/<company>/<app>.ini after
// SetRegistryKey(company), else $XDG_CONFIG_HOME/<m_pszProfileName> (by default
// <app>.ini), with $HOME/.config where XDG_CONFIG_HOME is not set. An absolute
// m_pszProfileName is used as it is. Missing directories are created on the
// first write.
class CWinApp : public CWinThread {
public:
    // A null name gives the string resource AFX_IDS_APP_TITLE, or else the
    // executable's name, at first use.
    explicit CWinApp(LPCTSTR appName = nullptr);
    ~CWinApp() override;

    LPCTSTR m_pszAppName = nullptr;
    LPCTSTR m_pszExeName = nullptr;
    LPCTSTR m_pszProfileName = nullptr;
    LPCTSTR m_pszRegistryKey = nullptr;

    // A missing or empty value gives nDefault; text that is not a number gives 0.
    UINT GetProfileInt(LPCTSTR section, LPCTSTR entry, int nDefault);
    // Writes n as signed decimal text.
    BOOL WriteProfileInt(LPCTSTR section, LPCTSTR entry, int value);
    // At most 4095 characters come back; a null default is "".
    CString GetProfileString(LPCTSTR section, LPCTSTR entry, LPCTSTR defaultValue = nullptr);
    // A null entry deletes the section, a null value the entry.
    BOOL WriteProfileString(LPCTSTR section, LPCTSTR entry, LPCTSTR value);
    // Sets *data to a new BYTE[] the caller deletes with delete[], and *bytes to
    // its size. FALSE (with null and 0) when the value is missing or empty.
    BOOL GetProfileBinary(LPCTSTR section, LPCTSTR entry, LPBYTE* data, UINT* bytes);
    // Writes each byte as two letters 'A' + nibble, the low nibble first.
    BOOL WriteProfileBinary(LPCTSTR section, LPCTSTR entry, LPBYTE data, UINT bytes);

    // The wait cursor's nesting: 1 begins a level (the first one remembers the
    // cursor it replaces), -1 ends one (the last one puts that cursor back), 0
    // shows the wait cursor again while a level is open.
    virtual void DoWaitCursor(int nCode);
    int m_nWaitCursorCount = 0;
    HCURSOR m_hcurWaitCursorRestore = ::LoadCursor(nullptr, IDC_ARROW);

protected:
    // Keeps settings per company: m_pszRegistryKey becomes company and
    // m_pszProfileName the application's name.
    void SetRegistryKey(LPCTSTR company);
    // The company's name from a string resource; CInvalidArgException when no
    // module has it.
    void SetRegistryKey(UINT companyId);

private:
    // Fills the names the host left null.
    void CompleteNames();
    // The profile file's name as the profile API takes it.
    CString ProfileFile();
};

// The application object, or null when there is none.
CWinApp* AfxGetApp();

#define AFX_IDS_APP_TITLE 0xE000

// Shows the wait cursor for its lifetime; nested ones keep it until the
// outermost ends.
class CWaitCursor {
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    // Shows the wait cursor again, after a message box or another window
    // changed the cursor.
    void Restore();
};
