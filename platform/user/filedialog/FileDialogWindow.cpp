// The file dialog's window: its controls, the folder shown in them, and what
// the user's clicks and keys do.
#include "FileDialog.h"

#include "../DialogWindows.h"

#include <commctrl.h>
#include <dlgs.h>

#include <algorithm>

namespace platform::user::filedialog {

namespace {

constexpr int kMargin = 11;
constexpr int kGap = 8;
constexpr int kClientWidth = 600;
constexpr int kClientHeight = 400;
constexpr int kRow = 23;
constexpr int kButtonWidth = 75;
constexpr int kLabelWidth = 90;

DialogState* MutableStateOf(HWND hwnd) {
    return DialogStateOf<DialogState>(hwnd, &FileDialogProc);
}

void AddColumn(HWND list, int index, const WCHAR* title, int width, int format) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.fmt = format;
    column.cx = width;
    column.pszText = const_cast<WCHAR*>(title);
    SendMessage(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index),
                reinterpret_cast<LPARAM>(&column));
}

void CreateControls(HWND dialog, const DialogState& state) {
    const int right = kClientWidth - kMargin;
    const int upLeft = right - 60;
    AddDialogControl(dialog, u"STATIC", u"Look &in:", SS_LEFT, stc4, kMargin, kMargin + 4,
                     kLabelWidth, 16);
    AddDialogControl(dialog, u"COMBOBOX", nullptr, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, cmb2,
                     kMargin + kLabelWidth, kMargin, upLeft - kGap - kMargin - kLabelWidth, 240);
    AddDialogControl(dialog, u"BUTTON", u"&Up", BS_PUSHBUTTON | WS_TABSTOP, psh1, upLeft, kMargin,
                     60, kRow);

    const int typeRow = kClientHeight - kMargin - kRow;
    const int nameRow = typeRow - kGap - kRow;
    const int listTop = kMargin + kRow + kGap;
    HWND list = AddDialogControl(
        dialog, WC_LISTVIEWW, nullptr,
        LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_BORDER | WS_TABSTOP, lst1, kMargin,
        listTop, kClientWidth - 2 * kMargin, nameRow - kGap - listTop);
    SendMessage(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    AddColumn(list, 0, u"Name", 300, LVCFMT_LEFT);
    AddColumn(list, 1, u"Size", 90, LVCFMT_RIGHT);
    AddColumn(list, 2, u"Date modified", 170, LVCFMT_LEFT);

    const int fieldLeft = kMargin + kLabelWidth;
    const int fieldWidth = right - kButtonWidth - kGap - fieldLeft;
    AddDialogControl(dialog, u"STATIC", u"File &name:", SS_LEFT, stc3, kMargin, nameRow + 4,
                     kLabelWidth, 16);
    AddDialogControl(dialog, u"EDIT", nullptr, ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, edt1,
                     fieldLeft, nameRow, fieldWidth, kRow);
    AddDialogControl(dialog, u"BUTTON", state.save ? u"&Save" : u"&Open",
                     BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, right - kButtonWidth, nameRow,
                     kButtonWidth, kRow);
    AddDialogControl(dialog, u"STATIC", u"Files of &type:", SS_LEFT, stc2, kMargin, typeRow + 4,
                     kLabelWidth, 16);
    HWND types =
        AddDialogControl(dialog, u"COMBOBOX", nullptr, CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
                         cmb1, fieldLeft, typeRow, fieldWidth, 200);
    AddDialogControl(dialog, u"BUTTON", u"Cancel", BS_PUSHBUTTON | WS_TABSTOP, IDCANCEL,
                     right - kButtonWidth, typeRow, kButtonWidth, kRow);
    for (const FileFilter& filter : state.filters)
        SendMessage(types, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(filter.description.c_str()));
    SendMessage(types, CB_SETCURSEL, state.filter, 0);
}

const std::vector<std::u16string>& Patterns(const DialogState& state) {
    return state.typedPatterns.empty() ? state.filters[state.filter].patterns : state.typedPatterns;
}

void FillList(HWND list, const DialogState& state) {
    SendMessage(list, LVM_DELETEALLITEMS, 0, 0);
    int row = 0;
    for (const FolderEntry& entry : state.entries) {
        LVITEMW item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = const_cast<WCHAR*>(entry.name.c_str());
        item.lParam = row;
        SendMessage(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        std::u16string size = entry.folder ? u"" : SizeText(entry.size);
        std::u16string date = entry.modified ? DateText(entry.modified) : u"";
        const std::u16string* columns[] = {&size, &date};
        for (int sub = 1; sub <= 2; ++sub) {
            item.mask = LVIF_TEXT;
            item.iSubItem = sub;
            item.pszText = const_cast<WCHAR*>(columns[sub - 1]->c_str());
            SendMessage(list, LVM_SETITEMTEXTW, static_cast<WPARAM>(row),
                        reinterpret_cast<LPARAM>(&item));
        }
        ++row;
    }
}

void Refresh(HWND hwnd, DialogState& state) {
    ShowFolder(hwnd, state, state.folder);
}

std::u16string FieldText(HWND field) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(field)), u'\0');
    if (!text.empty())
        GetWindowText(field, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

int SelectedItem(HWND list) {
    return static_cast<int>(
        SendMessage(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

// A folder of the list is entered; a file is chosen as if its name were
// typed.
void Activate(HWND hwnd, DialogState& state, int item) {
    if (item < 0 || item >= static_cast<int>(state.entries.size()))
        return;
    const FolderEntry entry = state.entries[static_cast<std::size_t>(item)];
    if (entry.folder) {
        ShowFolder(hwnd, state, state.folder / PathOf(entry.name));
        return;
    }
    SetWindowText(GetDlgItem(hwnd, edt1), entry.name.c_str());
    if (AcceptTypedName(hwnd, state, entry.name))
        EndDialog(hwnd, IDOK);
}

void OnOk(HWND hwnd, DialogState& state) {
    // Enter on a folder of the list enters it.
    HWND list = GetDlgItem(hwnd, lst1);
    int selected = SelectedItem(list);
    if (GetFocus() == list && selected >= 0 && selected < static_cast<int>(state.entries.size()) &&
        state.entries[static_cast<std::size_t>(selected)].folder) {
        Activate(hwnd, state, selected);
        return;
    }
    if (AcceptTypedName(hwnd, state, FieldText(GetDlgItem(hwnd, edt1))))
        EndDialog(hwnd, IDOK);
}

void OnCommand(HWND hwnd, DialogState& state, int id, int code) {
    switch (id) {
    case IDOK:
        OnOk(hwnd, state);
        return;
    case IDCANCEL:
        EndDialog(hwnd, IDCANCEL);
        return;
    case psh1:
        if (code == BN_CLICKED && state.folder.has_relative_path())
            ShowFolder(hwnd, state, state.folder.parent_path());
        return;
    case cmb2:
        if (code == CBN_SELCHANGE) {
            auto pick =
                static_cast<std::size_t>(SendMessage(GetDlgItem(hwnd, cmb2), CB_GETCURSEL, 0, 0));
            if (pick < state.lookIn.size())
                ShowFolder(hwnd, state, state.lookIn[pick]);
        }
        return;
    case cmb1:
        if (code == CBN_SELCHANGE) {
            auto pick =
                static_cast<std::size_t>(SendMessage(GetDlgItem(hwnd, cmb1), CB_GETCURSEL, 0, 0));
            if (pick < state.filters.size()) {
                state.filter = pick;
                state.typedPatterns.clear();
                Refresh(hwnd, state);
            }
        }
        return;
    default:
        return;
    }
}

void OnNotify(HWND hwnd, DialogState& state, const NMHDR& header) {
    if (header.idFrom != lst1)
        return;
    const auto& nm = reinterpret_cast<const NMITEMACTIVATE&>(header);
    if (header.code == LVN_ITEMCHANGED && (nm.uNewState & LVIS_SELECTED) &&
        !(nm.uOldState & LVIS_SELECTED) && nm.iItem >= 0 &&
        nm.iItem < static_cast<int>(state.entries.size())) {
        const FolderEntry& entry = state.entries[static_cast<std::size_t>(nm.iItem)];
        if (!entry.folder)
            SetWindowText(GetDlgItem(hwnd, edt1), entry.name.c_str());
    } else if (header.code == NM_DBLCLK) {
        Activate(hwnd, state, nm.iItem);
    }
}

void OnInit(HWND hwnd, DialogState& state) {
    CreateControls(hwnd, state);
    CentreOverOwner(hwnd, SIZE{kClientWidth, kClientHeight});
    std::u16string initial = state.ofn->lpstrFile ? state.ofn->lpstrFile : u"";
    std::size_t slash = initial.rfind(u'/');
    std::u16string name = slash == std::u16string::npos ? initial : initial.substr(slash + 1);
    HWND field = GetDlgItem(hwnd, edt1);
    SetWindowText(field, name.c_str());
    ShowFolder(hwnd, state, InitialFolder(*state.ofn));
    SetFocus(field);
    SendMessage(field, EM_SETSEL, 0, -1);
}

} // namespace

void ShowFolder(HWND hwnd, DialogState& state, const std::filesystem::path& folder) {
    state.folder = folder.lexically_normal();
    if (state.folder.has_relative_path() && !state.folder.has_filename())
        state.folder = state.folder.parent_path();
    state.entries = ListFolder(state.folder, Patterns(state));
    state.lookIn.clear();
    for (std::filesystem::path at = state.folder;; at = at.parent_path()) {
        state.lookIn.insert(state.lookIn.begin(), at);
        if (!at.has_relative_path())
            break;
    }
    HWND lookIn = GetDlgItem(hwnd, cmb2);
    SendMessage(lookIn, CB_RESETCONTENT, 0, 0);
    for (const std::filesystem::path& at : state.lookIn)
        SendMessage(lookIn, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(TextOf(at).c_str()));
    SendMessage(lookIn, CB_SETCURSEL, state.lookIn.size() - 1, 0);
    EnableWindow(GetDlgItem(hwnd, psh1), state.folder.has_relative_path());
    FillList(GetDlgItem(hwnd, lst1), state);
}

const DialogState* StateOf(HWND hwnd) {
    return MutableStateOf(hwnd);
}

INT_PTR FileDialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtr(hwnd, DWLP_USER, lParam);
        OnInit(hwnd, *reinterpret_cast<DialogState*>(lParam));
        return FALSE;
    }
    DialogState* state = MutableStateOf(hwnd);
    if (!state)
        return FALSE;
    switch (message) {
    case WM_COMMAND:
        OnCommand(hwnd, *state, LOWORD(wParam), HIWORD(wParam));
        return TRUE;
    case WM_NOTIFY:
        if (lParam)
            OnNotify(hwnd, *state, *reinterpret_cast<const NMHDR*>(lParam));
        return TRUE;
    default:
        return FALSE;
    }
}

} // namespace platform::user::filedialog
