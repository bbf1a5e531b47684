// The print dialog's window: the printer box with where the printer's pages
// go (and, for the PDF printer, the file's name), the page range and the
// number of copies. OK checks the numbers and the file name before the
// dialog closes.
#include "PrintDialog.h"

#include "../DialogWindows.h"

#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <string>

namespace platform::user::printdialog {

namespace {

constexpr int kMargin = 10;
constexpr int kLabelWidth = 62;
constexpr int kFieldLeft = kMargin + kLabelWidth;
constexpr int kClientWidth = 350;
constexpr int kGroupTop = 100;
constexpr int kGroupHeight = 84;
constexpr int kRangeWidth = 200;
constexpr int kButtonTop = kGroupTop + kGroupHeight + 12;
constexpr int kClientHeight = kButtonTop + 23 + kMargin;
constexpr int kMaxCopies = 9999;

DialogState* MutableStateOf(HWND hwnd) {
    return DialogStateOf<DialogState>(hwnd, &PrintDialogProc);
}

void CreateControls(HWND dialog) {
    AddDialogControl(dialog, u"STATIC", u"&Name:", SS_LEFT, -1, kMargin, kMargin + 3, kLabelWidth,
                     16);
    AddDialogControl(dialog, u"COMBOBOX", nullptr,
                     CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP | WS_GROUP, cmb4, kFieldLeft,
                     kMargin, kClientWidth - kFieldLeft - kMargin, 160);
    AddDialogControl(dialog, u"STATIC", u"Where:", SS_LEFT, -1, kMargin, kMargin + 34, kLabelWidth,
                     16);
    AddDialogControl(dialog, u"STATIC", nullptr, SS_LEFT, stc5, kFieldLeft, kMargin + 34,
                     kClientWidth - kFieldLeft - kMargin, 16);
    AddDialogControl(dialog, u"STATIC", u"&File name:", SS_LEFT, -1, kMargin, kMargin + 62,
                     kLabelWidth, 16);
    AddDialogControl(dialog, u"EDIT", nullptr, ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP | WS_GROUP,
                     edt4, kFieldLeft, kMargin + 59, kClientWidth - kFieldLeft - kMargin - 83, 21);
    AddDialogControl(dialog, u"BUTTON", u"&Browse...", BS_PUSHBUTTON | WS_TABSTOP, psh2,
                     kClientWidth - kMargin - 75, kMargin + 58, 75, 23);

    AddDialogControl(dialog, u"BUTTON", u"Print range", BS_GROUPBOX, grp1, kMargin, kGroupTop,
                     kRangeWidth, kGroupHeight);
    AddDialogControl(dialog, u"BUTTON", u"&All", BS_AUTORADIOBUTTON | WS_TABSTOP | WS_GROUP, rad1,
                     kMargin + 10, kGroupTop + 20, 120, 18);
    AddDialogControl(dialog, u"BUTTON", u"Pa&ges", BS_AUTORADIOBUTTON, rad3, kMargin + 10,
                     kGroupTop + 48, 60, 18);
    AddDialogControl(dialog, u"STATIC", u"&from:", SS_LEFT, -1, kMargin + 72, kGroupTop + 50, 32,
                     16);
    AddDialogControl(dialog, u"EDIT", nullptr, ES_NUMBER | WS_BORDER | WS_TABSTOP | WS_GROUP, edt1,
                     kMargin + 104, kGroupTop + 47, 36, 21);
    AddDialogControl(dialog, u"STATIC", u"&to:", SS_LEFT, -1, kMargin + 146, kGroupTop + 50, 16,
                     16);
    AddDialogControl(dialog, u"EDIT", nullptr, ES_NUMBER | WS_BORDER | WS_TABSTOP, edt2,
                     kMargin + 162, kGroupTop + 47, 30, 21);

    const int copiesLeft = kMargin + kRangeWidth + 10;
    const int copiesWidth = kClientWidth - copiesLeft - kMargin;
    AddDialogControl(dialog, u"BUTTON", u"Copies", BS_GROUPBOX, grp2, copiesLeft, kGroupTop,
                     copiesWidth, kGroupHeight);
    AddDialogControl(dialog, u"STATIC", u"Number of &copies:", SS_LEFT, -1, copiesLeft + 10,
                     kGroupTop + 22, 90, 16);
    AddDialogControl(dialog, u"EDIT", nullptr, ES_NUMBER | WS_BORDER | WS_TABSTOP | WS_GROUP, edt3,
                     copiesLeft + 100, kGroupTop + 19, 30, 21);
    AddDialogControl(dialog, u"BUTTON", u"C&ollate", BS_AUTOCHECKBOX | WS_TABSTOP, chx2,
                     copiesLeft + 10, kGroupTop + 50, 100, 18);

    AddDialogControl(dialog, u"BUTTON", u"OK", BS_DEFPUSHBUTTON | WS_TABSTOP | WS_GROUP, IDOK,
                     kClientWidth - kMargin - 2 * 75 - 8, kButtonTop, 75, 23);
    AddDialogControl(dialog, u"BUTTON", u"Cancel", BS_PUSHBUTTON | WS_TABSTOP, IDCANCEL,
                     kClientWidth - kMargin - 75, kButtonTop, 75, 23);
}

std::u16string Number(int value) {
    std::u16string text;
    for (char ch : std::to_string(value))
        text += static_cast<char16_t>(ch);
    return text;
}

std::u16string FieldText(HWND hwnd, int id) {
    HWND field = GetDlgItem(hwnd, id);
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(field)), u'\0');
    if (!text.empty())
        GetWindowText(field, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

// A field's number; -1 when it holds no digits or too many.
int FieldNumber(HWND hwnd, int id) {
    std::u16string text = FieldText(hwnd, id);
    if (text.empty() || text.size() > 6)
        return -1;
    int value = 0;
    for (char16_t ch : text) {
        if (ch < u'0' || ch > u'9')
            return -1;
        value = value * 10 + (ch - u'0');
    }
    return value;
}

void WriteField(HWND hwnd, DialogState& state, int id, const std::u16string& text) {
    state.writing = true;
    SetWindowText(GetDlgItem(hwnd, id), text.c_str());
    state.writing = false;
}

bool Checked(HWND hwnd, int id) {
    return SendMessage(GetDlgItem(hwnd, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// Checks "Pages" or "All" and clears the other.
void ChooseRange(HWND hwnd, bool pages) {
    SendMessage(GetDlgItem(hwnd, rad1), BM_SETCHECK, pages ? BST_UNCHECKED : BST_CHECKED, 0);
    SendMessage(GetDlgItem(hwnd, rad3), BM_SETCHECK, pages ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool Printing(const DialogState& state) {
    return !(state.pd->Flags & PD_PRINTSETUP);
}

// The chosen printer decides what else can be set: a file for the PDF
// printer, copies for a print queue.
void ShowPrinter(HWND hwnd, DialogState& state) {
    const PrinterInfo& printer = state.printers[state.printer];
    SetWindowText(GetDlgItem(hwnd, stc5), printer.where.c_str());
    EnableWindow(GetDlgItem(hwnd, edt4), printer.toFile);
    EnableWindow(GetDlgItem(hwnd, psh2), printer.toFile);
    const bool copies = Printing(state) && !printer.toFile;
    EnableWindow(GetDlgItem(hwnd, edt3), copies);
    EnableWindow(GetDlgItem(hwnd, chx2), copies);
    if (printer.toFile)
        WriteField(hwnd, state, edt3, u"1");
}

void OnInit(HWND hwnd, DialogState& state) {
    CreateControls(hwnd);
    CentreOverOwner(hwnd, SIZE{kClientWidth, kClientHeight});
    const PRINTDLGW& pd = *state.pd;
    HWND combo = GetDlgItem(hwnd, cmb4);
    for (const PrinterInfo& printer : state.printers)
        SendMessage(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(printer.name.c_str()));
    SendMessage(combo, CB_SETCURSEL, state.printer, 0);
    WriteField(hwnd, state, edt4, state.file);

    const bool printing = Printing(state);
    const bool pageNumbers = printing && !(pd.Flags & PD_NOPAGENUMS);
    state.pages = pageNumbers && (pd.Flags & PD_PAGENUMS);
    ChooseRange(hwnd, state.pages);
    WriteField(hwnd, state, edt1, Number(state.pages ? pd.nFromPage : pd.nMinPage));
    WriteField(hwnd, state, edt2, Number(state.pages ? pd.nToPage : pd.nMaxPage));
    for (int id : {rad3, edt1, edt2})
        EnableWindow(GetDlgItem(hwnd, id), pageNumbers);
    EnableWindow(GetDlgItem(hwnd, rad1), printing);

    // The copies start from the record's device mode when it has one.
    int copies = pd.nCopies;
    if (pd.hDevMode) {
        if (const auto* mode = static_cast<const DEVMODEW*>(GlobalLock(pd.hDevMode))) {
            if ((mode->dmFields & DM_COPIES) && (pd.Flags & PD_USEDEVMODECOPIES))
                copies = mode->dmCopies;
            GlobalUnlock(pd.hDevMode);
        }
    }
    state.copies = std::clamp(copies, 1, kMaxCopies);
    WriteField(hwnd, state, edt3, Number(state.copies));
    SendMessage(GetDlgItem(hwnd, chx2), BM_SETCHECK, state.collate ? BST_CHECKED : BST_UNCHECKED,
                0);
    ShowPrinter(hwnd, state);
    SetFocus(combo);
}

// Complains about a field, and puts the user back in it.
bool Refuse(HWND hwnd, int id, const std::u16string& text) {
    MessageBox(hwnd, text.c_str(), u"Print", MB_OK | MB_ICONEXCLAMATION);
    HWND field = GetDlgItem(hwnd, id);
    SetFocus(field);
    SendMessage(field, EM_SETSEL, 0, -1);
    return false;
}

// Reads and checks what the user chose; false (with a message) keeps the
// dialog open.
bool Accept(HWND hwnd, DialogState& state) {
    const PRINTDLGW& pd = *state.pd;
    const PrinterInfo& printer = state.printers[state.printer];
    if (printer.toFile) {
        std::u16string file = FieldText(hwnd, edt4);
        if (file.empty())
            return Refuse(hwnd, edt4, u"Enter the name of the file to print to.");
        state.file = file;
    }
    if (!Printing(state))
        return true;
    state.pages = Checked(hwnd, rad3);
    if (state.pages) {
        const std::u16string range = u"Enter a page number between " + Number(pd.nMinPage) +
                                     u" and " + Number(pd.nMaxPage) + u".";
        int from = FieldNumber(hwnd, edt1);
        if (from < pd.nMinPage || from > pd.nMaxPage)
            return Refuse(hwnd, edt1, range);
        int to = FieldNumber(hwnd, edt2);
        if (to < pd.nMinPage || to > pd.nMaxPage)
            return Refuse(hwnd, edt2, range);
        if (from > to)
            return Refuse(hwnd, edt2, u"The last page comes before the first.");
        state.from = from;
        state.to = to;
    }
    int copies = FieldNumber(hwnd, edt3);
    if (copies < 1 || copies > kMaxCopies)
        return Refuse(hwnd, edt3,
                      u"Enter a number of copies between 1 and " + Number(kMaxCopies) + u".");
    state.copies = copies;
    state.collate = Checked(hwnd, chx2);
    return true;
}

// "Browse...": the file dialog chooses the PDF printer's file.
void Browse(HWND hwnd, DialogState& state) {
    std::u16string current = FieldText(hwnd, edt4);
    WCHAR path[1024] = {};
    std::copy_n(current.begin(), std::min<std::size_t>(current.size(), 1023), path);
    OPENFILENAMEW ofn{};
    ofn.lStructSize = sizeof(ofn);
    ofn.hwndOwner = hwnd;
    ofn.lpstrFilter = u"PDF files (*.pdf)\0*.pdf\0All files (*.*)\0*.*\0";
    ofn.lpstrFile = path;
    ofn.nMaxFile = 1024;
    ofn.lpstrTitle = u"Print to File";
    ofn.lpstrDefExt = u"pdf";
    ofn.Flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST;
    if (GetSaveFileName(&ofn))
        WriteField(hwnd, state, edt4, path);
}

void OnCommand(HWND hwnd, DialogState& state, int id, int code) {
    switch (id) {
    case IDOK:
        if (Accept(hwnd, state))
            EndDialog(hwnd, IDOK);
        break;
    case IDCANCEL:
        EndDialog(hwnd, IDCANCEL);
        break;
    case cmb4:
        if (code == CBN_SELCHANGE) {
            LRESULT chosen = SendMessage(GetDlgItem(hwnd, cmb4), CB_GETCURSEL, 0, 0);
            if (chosen >= 0 && static_cast<std::size_t>(chosen) < state.printers.size()) {
                state.printer = static_cast<std::size_t>(chosen);
                ShowPrinter(hwnd, state);
            }
        }
        break;
    case psh2:
        if (code == BN_CLICKED)
            Browse(hwnd, state);
        break;
    case edt1:
    case edt2:
        // Typing a page number chooses a range of pages.
        if (code == EN_CHANGE && !state.writing && !Checked(hwnd, rad3))
            ChooseRange(hwnd, true);
        break;
    default:
        break;
    }
}

} // namespace

const DialogState* StateOf(HWND hwnd) {
    return MutableStateOf(hwnd);
}

INT_PTR PrintDialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtr(hwnd, DWLP_USER, lParam);
        OnInit(hwnd, *reinterpret_cast<DialogState*>(lParam));
        return FALSE;
    }
    DialogState* state = MutableStateOf(hwnd);
    if (!state)
        return FALSE;
    if (message == WM_COMMAND) {
        OnCommand(hwnd, *state, LOWORD(wParam), HIWORD(wParam));
        return TRUE;
    }
    return FALSE;
}

} // namespace platform::user::printdialog
