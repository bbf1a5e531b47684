// The application object and the thread object it derives from. Included from
// afxwin.h.
#pragma once

#include "afxwnd.h"

class CDocManager;
class CDocTemplate;
class CDocument;

// A thread of the application: its main window, its start and end, and its
// message loop.
class CWinThread : public CCmdTarget {
public:
    CWinThread() = default;

    // The window that stands for the application (null until the host sets it).
    CWnd* m_pMainWnd = nullptr;

    virtual CWnd* GetMainWnd() { return m_pMainWnd; }
    // Called once at start-up; FALSE ends the application.
    virtual BOOL InitInstance() { return TRUE; }
    // Called once at the end; the result is the exit code.
    virtual int ExitInstance() { return 0; }

    // Runs the message loop until WM_QUIT, or until nothing is left to do
    // (no message and no action of the simulated user); returns ExitInstance().
    virtual int Run();
    // Retrieves and dispatches one message, PreTranslateMessage first; FALSE
    // when the loop should end.
    virtual BOOL PumpMessage();
    // Offers the message to the window objects from its target up to the
    // main window (frames translate their accelerators there); TRUE when one
    // consumed it.
    virtual BOOL PreTranslateMessage(MSG* msg);
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

    // Document templates, kept in the order they were added; the
    // application owns them. Adding loads the template's resources.
    void AddDocTemplate(CDocTemplate* docTemplate);
    POSITION GetFirstDocTemplatePosition() const;
    CDocTemplate* GetNextDocTemplate(POSITION& pos) const;
    // The document of that file, opened through the template that suits it
    // (or brought forward when it is open already); null when it failed.
    virtual CDocument* OpenDocumentFile(LPCTSTR pathName);
    // Closes every document of every template without asking to save.
    void CloseAllDocuments(BOOL endSession);
    // Asks every modified document to save; FALSE when the user cancelled.
    virtual BOOL SaveAllModified();
    // Hides the main window and its frames before the documents close.
    void HideApplication();
    CDocManager* m_pDocManager = nullptr;

    // The icon with this resource name or number, from the module of the
    // resource chain that holds it (the application's, then its extension
    // modules'); a shared icon, or NULL when no module has it.
    HICON LoadIcon(LPCTSTR name) const;
    HICON LoadIcon(UINT id) const;

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

#ifndef AFX_IDS_APP_TITLE
#define AFX_IDS_APP_TITLE 0xE000
#endif

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

// Part index of a text whose parts are separated by sep; FALSE, with string
// empty, when the text has fewer parts (and string left as it was when
// fullString is null).
BOOL AfxExtractSubString(CString& string, LPCTSTR fullString, int index, WCHAR sep = u'\n');
// String id with "%1" replaced by text.
void AfxFormatString1(CString& string, UINT id, LPCTSTR text);
