// ChooseColor: check the request, run the dialog modally, and hand the
// chosen colour back.
#include "ColorDialog.h"

#include "../CommonDialogError.h"

#include <platform/ResourceTemplates.h>

#include <cstddef>

BOOL ChooseColorW(LPCHOOSECOLORW cc) {
    CommDlgLastError() = 0;
    if (!cc || cc->lStructSize != sizeof(CHOOSECOLORW)) {
        CommDlgLastError() = CDERR_STRUCTSIZE;
        return FALSE;
    }
    if (cc->hwndOwner && !IsWindow(cc->hwndOwner)) {
        CommDlgLastError() = CDERR_INITIALIZATION;
        return FALSE;
    }
    platform::user::colordialog::DialogState state;
    state.cc = cc;
    platform::DialogTemplate tmpl;
    tmpl.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT;
    tmpl.caption = u"Colour";
    tmpl.pointSize = 8;
    tmpl.faceName = u"MS Shell Dlg";
    tmpl.x = 1; // placed by the dialog itself
    INT_PTR result = DialogBoxIndirectParam(nullptr, &tmpl, cc->hwndOwner,
                                            platform::user::colordialog::ColorDialogProc,
                                            reinterpret_cast<LPARAM>(&state));
    if (result < 0) {
        CommDlgLastError() = CDERR_INITIALIZATION;
        return FALSE;
    }
    return result == IDOK ? TRUE : FALSE;
}
