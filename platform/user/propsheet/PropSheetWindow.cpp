// The property sheet's dialog procedure: the sheet's messages (PSM_*), its
// buttons, the tab control's notifications and Ctrl+Tab.
#include "PropSheet.h"

#include <unordered_map>

namespace platform::user::propsheet {

namespace {

std::unordered_map<HWND, std::unique_ptr<Sheet>>& Sheets() {
    static auto* sheets = new std::unordered_map<HWND, std::unique_ptr<Sheet>>();
    return *sheets;
}

INT_PTR Answer(HWND hwnd, LRESULT value) {
    SetWindowLongPtr(hwnd, DWLP_MSGRESULT, value);
    return TRUE;
}

int ButtonId(WPARAM button) {
    static const int kIds[] = {ID_WIZBACK,   ID_WIZNEXT, ID_WIZFINISH, IDOK,
                               ID_APPLY_NOW, IDCANCEL,   IDHELP};
    return button < std::size(kIds) ? kIds[button] : 0;
}

// PSM_PRESSBUTTON: the button is clicked as the user would click it, once
// the current message is done.
BOOL PressButton(Sheet& sheet, WPARAM which) {
    int id = ButtonId(which);
    HWND button = id ? GetDlgItem(sheet.hwnd, id) : nullptr;
    if (!button || !IsWindowVisible(button) || !IsWindowEnabled(button))
        return FALSE;
    return PostMessage(sheet.hwnd, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                       reinterpret_cast<LPARAM>(button));
}

// Ctrl+Tab and Ctrl+Page Down show the next page, with Shift or Page Up
// the previous one, as a click on its tab would.
bool PageKey(Sheet& sheet, const MSG& msg) {
    if (msg.message != WM_KEYDOWN || GetKeyState(VK_CONTROL) >= 0 || sheet.IsWizard() ||
        sheet.PageCount() == 0)
        return false;
    int step = 0;
    if (msg.wParam == VK_TAB)
        step = GetKeyState(VK_SHIFT) < 0 ? -1 : 1;
    else if (msg.wParam == VK_NEXT)
        step = 1;
    else if (msg.wParam == VK_PRIOR)
        step = -1;
    if (!step)
        return false;
    int count = sheet.PageCount();
    ChangePage(sheet, ((sheet.active < 0 ? 0 : sheet.active) + step + count) % count);
    return true;
}

void OnCommand(Sheet& sheet, int id) {
    if (sheet.ended)
        return;
    switch (id) {
    case IDOK:
        if (!sheet.IsWizard() && Apply(sheet, true))
            EndSheet(sheet, 1);
        break;
    case ID_APPLY_NOW:
        if (!sheet.IsWizard())
            Apply(sheet, false);
        break;
    case IDCANCEL:
        Cancel(sheet);
        break;
    case IDHELP:
        NotifyPage(sheet, sheet.active, PSN_HELP);
        break;
    case ID_WIZBACK:
        if (sheet.IsWizard())
            WizardBack(sheet);
        break;
    case ID_WIZNEXT:
        if (sheet.IsWizard())
            WizardNext(sheet);
        break;
    case ID_WIZFINISH:
        if (sheet.IsWizard())
            WizardFinish(sheet);
        break;
    default:
        break;
    }
}

void SetChanged(Sheet& sheet, HWND page, bool changed) {
    int index = FindPageByWindow(sheet, page);
    if (index < 0)
        return;
    sheet.pages[static_cast<std::size_t>(index)].changed = changed;
    bool any = false;
    for (const Page& p : sheet.pages)
        any = any || p.changed;
    if (HWND apply = GetDlgItem(sheet.hwnd, ID_APPLY_NOW))
        EnableWindow(apply, any ? TRUE : FALSE);
}

// PSM_CANCELTOCLOSE: what was applied cannot be taken back, so OK becomes
// Close and Cancel can no longer be pressed.
void CancelToClose(Sheet& sheet) {
    if (HWND ok = GetDlgItem(sheet.hwnd, IDOK))
        SetWindowText(ok, u"Close");
    if (HWND cancel = GetDlgItem(sheet.hwnd, IDCANCEL))
        EnableWindow(cancel, FALSE);
}

INT_PTR SheetMessage(Sheet& sheet, UINT message, WPARAM wParam, LPARAM lParam) {
    HWND hwnd = sheet.hwnd;
    switch (message) {
    case PSM_SETCURSEL: {
        int index = lParam ? FindPageByHandle(sheet, reinterpret_cast<HPROPSHEETPAGE>(lParam))
                           : static_cast<int>(wParam);
        return Answer(hwnd, ChangePage(sheet, index));
    }
    case PSM_SETCURSELID:
        return Answer(hwnd, ChangePage(sheet, FindPageByResId(sheet, lParam)));
    case PSM_ADDPAGE:
        return Answer(hwnd, AddPage(sheet, reinterpret_cast<HPROPSHEETPAGE>(lParam)));
    case PSM_REMOVEPAGE: {
        int index = lParam ? FindPageByHandle(sheet, reinterpret_cast<HPROPSHEETPAGE>(lParam))
                           : static_cast<int>(wParam);
        RemovePage(sheet, index);
        return Answer(hwnd, 0);
    }
    case PSM_CHANGED:
    case PSM_UNCHANGED:
        SetChanged(sheet, reinterpret_cast<HWND>(wParam), message == PSM_CHANGED);
        return Answer(hwnd, 0);
    case PSM_CANCELTOCLOSE:
        CancelToClose(sheet);
        return Answer(hwnd, 0);
    case PSM_SETWIZBUTTONS:
        SetWizardButtons(sheet, static_cast<DWORD>(lParam));
        return Answer(hwnd, 0);
    case PSM_PRESSBUTTON:
        return Answer(hwnd, PressButton(sheet, wParam));
    case PSM_GETTABCONTROL:
        return Answer(hwnd, reinterpret_cast<LRESULT>(sheet.tab));
    case PSM_GETCURRENTPAGEHWND:
        return Answer(hwnd, sheet.ended || sheet.active < 0
                                ? 0
                                : reinterpret_cast<LRESULT>(
                                      sheet.pages[static_cast<std::size_t>(sheet.active)].hwnd));
    case PSM_ISDIALOGMESSAGE: {
        auto* msg = reinterpret_cast<MSG*>(lParam);
        if (!msg)
            return Answer(hwnd, FALSE);
        return Answer(hwnd, PageKey(sheet, *msg) || IsDialogMessage(hwnd, msg));
    }
    case PSM_SETTITLEW: {
        auto text = reinterpret_cast<LPCWSTR>(lParam);
        WCHAR buffer[1024] = {0};
        if (text && IS_INTRESOURCE(text))
            LoadStringW(sheet.instance, static_cast<UINT>(reinterpret_cast<uintptr_t>(text)),
                        buffer, static_cast<int>(std::size(buffer)));
        sheet.caption = !text ? u"" : IS_INTRESOURCE(text) ? buffer : text;
        SetWindowText(hwnd, sheet.caption.c_str());
        return Answer(hwnd, 0);
    }
    case PSM_SETFINISHTEXTW: {
        // The wizard's last step: Finish, with this text, instead of Back
        // and Next.
        HWND finish = GetDlgItem(hwnd, ID_WIZFINISH);
        if (finish) {
            SetWindowText(finish, lParam ? reinterpret_cast<LPCWSTR>(lParam) : u"");
            ShowWindow(GetDlgItem(hwnd, ID_WIZBACK), SW_HIDE);
            ShowWindow(GetDlgItem(hwnd, ID_WIZNEXT), SW_HIDE);
            EnableWindow(finish, TRUE);
            ShowWindow(finish, SW_SHOWNA);
            SendMessage(hwnd, DM_SETDEFID, ID_WIZFINISH, 0);
        }
        return Answer(hwnd, 0);
    }
    case PSM_HWNDTOINDEX:
        return Answer(hwnd, FindPageByWindow(sheet, reinterpret_cast<HWND>(wParam)));
    case PSM_INDEXTOHWND: {
        int index = static_cast<int>(wParam);
        bool valid = index >= 0 && index < sheet.PageCount();
        return Answer(hwnd, valid ? reinterpret_cast<LRESULT>(
                                        sheet.pages[static_cast<std::size_t>(index)].hwnd)
                                  : 0);
    }
    case PSM_PAGETOINDEX:
        return Answer(hwnd, FindPageByHandle(sheet, reinterpret_cast<HPROPSHEETPAGE>(lParam)));
    case PSM_INDEXTOPAGE: {
        int index = static_cast<int>(wParam);
        bool valid = index >= 0 && index < sheet.PageCount();
        return Answer(hwnd, valid ? reinterpret_cast<LRESULT>(
                                        sheet.pages[static_cast<std::size_t>(index)].handle)
                                  : 0);
    }
    case PSM_IDTOINDEX:
        return Answer(hwnd, FindPageByResId(sheet, lParam));
    case PSM_INDEXTOID: {
        int index = static_cast<int>(wParam);
        if (index < 0 || index >= sheet.PageCount())
            return Answer(hwnd, 0);
        const PROPSHEETPAGEW& psp = *sheet.pages[static_cast<std::size_t>(index)].handle->Page();
        return Answer(hwnd, (psp.dwFlags & PSP_DLGINDIRECT)
                                ? reinterpret_cast<LRESULT>(psp.pResource)
                                : reinterpret_cast<LRESULT>(psp.pszTemplate));
    }
    default:
        return FALSE;
    }
}

INT_PTR TabNotification(Sheet& sheet, const NMHDR& header) {
    if (header.code == TCN_SELCHANGING)
        return Answer(sheet.hwnd, CanLeavePage(sheet) ? FALSE : TRUE);
    if (header.code == TCN_SELCHANGE) {
        int index = static_cast<int>(SendMessage(sheet.tab, TCM_GETCURSEL, 0, 0));
        int old = sheet.active;
        if (!SetCurSel(sheet, index, index < old ? -1 : 1) && old >= 0)
            SendMessage(sheet.tab, TCM_SETCURSEL, static_cast<WPARAM>(old), 0);
        return Answer(sheet.hwnd, 0);
    }
    return FALSE;
}

void Initialise(HWND hwnd, InitParams& params) {
    Sheet* sheet = params.sheet;
    params.adopted = true;
    Sheets()[hwnd].reset(sheet);
    sheet->hwnd = hwnd;
    CreateSheetControls(*sheet);
    if (!SetCurSel(*sheet, sheet->startPage, 1) && SheetOf(hwnd) == sheet)
        SendMessage(sheet->tab, TCM_SETCURSEL, static_cast<WPARAM>(sheet->startPage), 0);
    if (SheetOf(hwnd) == sheet && sheet->callback)
        sheet->callback(hwnd, PSCB_INITIALIZED, 0);
}

} // namespace

Sheet* SheetOf(HWND hwnd) {
    auto it = Sheets().find(hwnd);
    return it == Sheets().end() ? nullptr : it->second.get();
}

INT_PTR SheetProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        Initialise(hwnd, *reinterpret_cast<InitParams*>(lParam));
        // The focus is where the page put it.
        return FALSE;
    }
    Sheet* sheet = SheetOf(hwnd);
    if (!sheet)
        return FALSE;
    switch (message) {
    case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED)
            OnCommand(*sheet, LOWORD(wParam));
        return TRUE;
    case WM_NOTIFY: {
        auto* header = reinterpret_cast<const NMHDR*>(lParam);
        if (header && header->hwndFrom == sheet->tab)
            return TabNotification(*sheet, *header);
        return FALSE;
    }
    case WM_NCDESTROY: {
        // The page windows are gone; their handles go with the sheet.
        std::unique_ptr<Sheet> owned = std::move(Sheets()[hwnd]);
        Sheets().erase(hwnd);
        for (Page& page : owned->pages)
            DestroyPropertySheetPage(page.handle);
        return FALSE;
    }
    default:
        if (message >= PSM_SETCURSEL && message <= PSM_INDEXTOID)
            return SheetMessage(*sheet, message, wParam, lParam);
        return FALSE;
    }
}

} // namespace platform::user::propsheet
