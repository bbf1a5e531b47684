// The framework's message boxes: the application's name as the caption, an
// icon chosen from the buttons when the caller gives none, and the safe owner
// (the main window's active pop-up, or the main window).
#include <afxwin.h>

#include <string_view>
#include <unistd.h>

CWnd* AfxGetMainWnd() {
    CWinApp* app = AfxGetApp();
    return app ? app->GetMainWnd() : nullptr;
}

LPCTSTR AfxGetAppName() {
    // Without an application object the caption is the program's file name.
    static const CString program = [] {
        char path[4096];
        ssize_t n = ::readlink("/proc/self/exe", path, sizeof path - 1);
        std::string_view full(path, n > 0 ? static_cast<std::size_t>(n) : 0);
        return platform::FromUtf8(full.substr(full.rfind('/') + 1));
    }();
    CWinApp* app = AfxGetApp();
    return app && app->m_pszAppName ? app->m_pszAppName : program.GetString();
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
