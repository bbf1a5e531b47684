// The framework's message boxes: the application's name as the caption, an
// icon chosen from the buttons when the caller gives none, and the safe owner
// (the main window's active pop-up, or the main window).
#include <afxwin.h>

namespace platform::afx {

// The application's main window and name, set by the application object.
CWnd* g_mainWnd = nullptr;
const WCHAR* g_appName = nullptr;

} // namespace platform::afx

CWnd* AfxGetMainWnd() {
    return platform::afx::g_mainWnd;
}

LPCTSTR AfxGetAppName() {
    return platform::afx::g_appName ? platform::afx::g_appName : u"";
}

int AfxMessageBox(LPCTSTR text, UINT type, UINT) {
    if ((type & MB_ICONMASK) == 0) {
        switch (type & MB_TYPEMASK) {
        case MB_OK:
        case MB_OKCANCEL:
            type |= MB_ICONEXCLAMATION;
            break;
        case MB_YESNO:
        case MB_YESNOCANCEL:
            type |= MB_ICONQUESTION;
            break;
        default:
            break;
        }
    }
    CWnd* main = AfxGetMainWnd();
    HWND top = main ? main->m_hWnd : nullptr;
    HWND owner = top && ::IsWindow(top) ? ::GetLastActivePopup(top) : nullptr;
    // The owner is disabled while a modal dialog runs over it; the box runs
    // over the dialog then, and the owner's own state is put back afterwards.
    return ::MessageBox(owner, text, AfxGetAppName(), type);
}

int AfxMessageBox(UINT promptId, UINT type, UINT helpId) {
    CString prompt;
    prompt.LoadString(promptId);
    return AfxMessageBox(prompt.GetString(), type,
                         helpId == static_cast<UINT>(-1) ? promptId : helpId);
}
