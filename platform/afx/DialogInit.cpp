// A dialog's initialisation data: the list items its template gives its
// combo and list boxes, added once the controls exist.
#include <afxwin.h>
#include <platform/ResourceChain.h>

namespace {

// The messages as the resource editor writes them, from 16-bit days.
constexpr UINT kScriptListBoxAddString = 0x0401;
constexpr UINT kScriptComboBoxAddString = 0x0403;

} // namespace

BOOL CWnd::ExecuteDlgInit(LPCTSTR resourceName) {
    const auto found = platform::FindDialogInit(platform::MakeResourceName(resourceName));
    if (!found)
        return TRUE;
    for (const platform::DialogInitEntry& entry : *found.resource) {
        HWND control = ::GetDlgItem(m_hWnd, static_cast<int>(entry.controlId));
        if (!control)
            continue;
        LRESULT result = 0;
        if (entry.message == kScriptComboBoxAddString)
            result = ::SendMessage(control, CB_ADDSTRING, 0,
                                   reinterpret_cast<LPARAM>(entry.text.c_str()));
        else if (entry.message == kScriptListBoxAddString)
            result = ::SendMessage(control, LB_ADDSTRING, 0,
                                   reinterpret_cast<LPARAM>(entry.text.c_str()));
        // Other messages would hand the control a pointer to bytes whose
        // layout nothing here can check; they are passed over.
        // CB_ERR and CB_ERRSPACE (LB_ERR, LB_ERRSPACE) are -1 and -2.
        if (result < 0)
            return FALSE;
    }
    return TRUE;
}
