// The window classes the system provides: registered once, before the first
// window is created.
#include "../WindowManager.h"

#include <commctrl.h>

namespace platform::user {

// The window procedures of the system's classes, one per control file.
LRESULT ButtonClassProc(HWND, UINT, WPARAM, LPARAM);
LRESULT StaticClassProc(HWND, UINT, WPARAM, LPARAM);
LRESULT HeaderClassProc(HWND, UINT, WPARAM, LPARAM);
LRESULT ListViewClassProc(HWND, UINT, WPARAM, LPARAM);
LRESULT EditClassProc(HWND, UINT, WPARAM, LPARAM);
LRESULT ComboBoxClassProc(HWND, UINT, WPARAM, LPARAM);
LRESULT TabControlClassProc(HWND, UINT, WPARAM, LPARAM);
LRESULT StatusBarClassProc(HWND, UINT, WPARAM, LPARAM);

void RegisterSystemClasses() {
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    static const struct {
        const WCHAR* name;
        WNDPROC proc;
    } kClasses[] = {{u"BUTTON", ButtonClassProc},
                    {u"STATIC", StaticClassProc},
                    {WC_HEADERW, HeaderClassProc},
                    {WC_LISTVIEWW, ListViewClassProc},
                    {u"EDIT", EditClassProc},
                    {u"COMBOBOX", ComboBoxClassProc},
                    {WC_TABCONTROLW, TabControlClassProc},
                    {STATUSCLASSNAMEW, StatusBarClassProc}};
    for (const auto& entry : kClasses) {
        WNDCLASS wc{};
        wc.lpfnWndProc = entry.proc;
        wc.lpszClassName = entry.name;
        RegisterClass(&wc);
    }
    // The MDI client shows the application workspace colour around its
    // document windows.
    WNDCLASS mdi{};
    mdi.lpfnWndProc = MdiClientProc;
    mdi.lpszClassName = u"MDICLIENT";
    mdi.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
    RegisterClass(&mdi);
}

} // namespace platform::user
