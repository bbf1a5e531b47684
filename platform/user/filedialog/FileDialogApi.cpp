// GetOpenFileName and GetSaveFileName: check the request, run the dialog
// modally, and hand the chosen path back in the caller's buffer.
#include "FileDialog.h"

#include "../CommonDialogError.h"

#include <platform/ResourceTemplates.h>

#include <cstddef>

// The last common dialog's error, shared by the file and colour dialogs.
DWORD& CommDlgLastError() {
    static DWORD error = 0;
    return error;
}

namespace {

DWORD& LastError() {
    return CommDlgLastError();
}

BOOL Fail(DWORD error) {
    LastError() = error;
    return FALSE;
}

// The chosen path into the caller's buffer with the offsets of its name and
// extension; a buffer too small gets the size it needs in its first unit.
BOOL Deliver(OPENFILENAMEW& ofn, const platform::user::filedialog::DialogState& state) {
    const std::u16string& path = state.chosen;
    if (path.size() + 1 > ofn.nMaxFile) {
        if (ofn.nMaxFile >= 1)
            ofn.lpstrFile[0] = static_cast<WCHAR>(std::min<std::size_t>(path.size() + 1, 0xFFFF));
        return Fail(FNERR_BUFFERTOOSMALL);
    }
    std::copy(path.begin(), path.end(), ofn.lpstrFile);
    ofn.lpstrFile[path.size()] = u'\0';
    std::size_t nameAt = path.rfind(u'/') + 1;
    std::size_t dot = path.rfind(u'.');
    ofn.nFileOffset = static_cast<WORD>(nameAt);
    ofn.nFileExtension =
        static_cast<WORD>(dot != std::u16string::npos && dot > nameAt ? dot + 1 : path.size());
    if (ofn.lpstrFileTitle && ofn.nMaxFileTitle > 0) {
        std::u16string name = path.substr(nameAt);
        std::size_t count = std::min<std::size_t>(name.size(), ofn.nMaxFileTitle - 1);
        std::copy(name.begin(), name.begin() + static_cast<std::ptrdiff_t>(count),
                  ofn.lpstrFileTitle);
        ofn.lpstrFileTitle[count] = u'\0';
    }
    ofn.nFilterIndex = static_cast<DWORD>(state.filter + 1);
    ofn.Flags &= ~static_cast<DWORD>(OFN_READONLY | OFN_EXTENSIONDIFFERENT);
    return TRUE;
}

BOOL RunFileDialog(LPOPENFILENAMEW ofn, bool save) {
    LastError() = 0;
    if (!ofn || ofn->lStructSize < offsetof(OPENFILENAMEW, pvReserved))
        return Fail(CDERR_STRUCTSIZE);
    if (!ofn->lpstrFile || ofn->nMaxFile == 0 || (ofn->hwndOwner && !IsWindow(ofn->hwndOwner)))
        return Fail(CDERR_INITIALIZATION);
    platform::user::filedialog::DialogState state;
    state.ofn = ofn;
    state.save = save;
    state.title = ofn->lpstrTitle && *ofn->lpstrTitle ? ofn->lpstrTitle
                  : save                              ? u"Save As"
                                                      : u"Open";
    state.filters = platform::user::filedialog::ParseFilters(ofn->lpstrFilter);
    if (ofn->nFilterIndex >= 1 && ofn->nFilterIndex <= state.filters.size())
        state.filter = ofn->nFilterIndex - 1;
    platform::DialogTemplate tmpl;
    tmpl.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT;
    tmpl.caption = state.title;
    tmpl.pointSize = 8;
    tmpl.faceName = u"MS Shell Dlg";
    tmpl.x = 1; // placed by the dialog itself
    INT_PTR result = DialogBoxIndirectParam(nullptr, &tmpl, ofn->hwndOwner,
                                            platform::user::filedialog::FileDialogProc,
                                            reinterpret_cast<LPARAM>(&state));
    if (result < 0)
        return Fail(CDERR_INITIALIZATION);
    if (result != IDOK)
        return FALSE;
    return Deliver(*ofn, state);
}

} // namespace

BOOL GetOpenFileNameW(LPOPENFILENAMEW ofn) {
    return RunFileDialog(ofn, false);
}

BOOL GetSaveFileNameW(LPOPENFILENAMEW ofn) {
    return RunFileDialog(ofn, true);
}

DWORD CommDlgExtendedError() {
    return LastError();
}
