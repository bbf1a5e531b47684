// Changing pages and what the sheet's buttons do. The current page is asked
// with PSN_KILLACTIVE before it is left and the new one with PSN_SETACTIVE
// before it shows; a wizard asks the current page with PSN_WIZNEXT or
// PSN_WIZBACK first (-1 stays, 0 goes on by one, a template names the page
// to go to). OK and Apply send PSN_APPLY to every page that was shown,
// Cancel PSN_QUERYCANCEL and PSN_RESET.
#include "PropSheet.h"

namespace platform::user::propsheet {

namespace {

bool InPage(const Sheet& sheet, HWND hwnd) {
    for (const Page& page : sheet.pages)
        if (page.hwnd && hwnd && (hwnd == page.hwnd || IsChild(page.hwnd, hwnd)))
            return true;
    return false;
}

void ShowPage(Sheet& sheet, int index) {
    const int old = sheet.active;
    sheet.active = index;
    HWND page = sheet.pages[static_cast<std::size_t>(index)].hwnd;
    const RECT& area = sheet.pageRect;
    SetWindowPos(page, HWND_TOP, area.left, area.top, area.right - area.left,
                 area.bottom - area.top, SWP_NOACTIVATE | SWP_SHOWWINDOW);
    // The focus stays on the tab or a button of the sheet; anywhere else it
    // goes to the new page's first control.
    HWND focus = GetFocus();
    bool keep = focus && IsChild(sheet.hwnd, focus) && !InPage(sheet, focus) &&
                IsWindowVisible(focus) && IsWindowEnabled(focus);
    if (old >= 0 && old != index && old < sheet.PageCount())
        if (HWND previous = sheet.pages[static_cast<std::size_t>(old)].hwnd)
            ShowWindow(previous, SW_HIDE);
    if (!keep) {
        HWND first = GetNextDlgTabItem(page, nullptr, FALSE);
        if (!first) {
            LRESULT def = SendMessage(sheet.hwnd, DM_GETDEFID, 0, 0);
            if (HIWORD(def) == DC_HASDEFID)
                first = GetDlgItem(sheet.hwnd, LOWORD(def));
        }
        if (first && IsWindowVisible(first) && IsWindowEnabled(first))
            SetFocus(first);
    }
    SendMessage(sheet.tab, TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
    if (sheet.IsWizard()) {
        // A wizard's title bar names the page, as its tab says at this moment.
        std::u16string title = TabText(sheet, index);
        SetWindowText(sheet.hwnd, title.empty() ? sheet.caption.c_str() : title.c_str());
    }
}

// Where a wizard button leads: PSN_WIZNEXT or PSN_WIZBACK to the current
// page, then PSN_KILLACTIVE. -1 when the page stays.
int WizardTarget(Sheet& sheet, UINT code, int step) {
    if (sheet.active < 0)
        return -1;
    LRESULT answer = NotifyPage(sheet, sheet.active, code);
    if (answer == -1)
        return -1;
    int target = answer == 0 ? sheet.active + step : FindPageByResId(sheet, answer);
    if (target < 0 || target >= sheet.PageCount() || !CanLeavePage(sheet))
        return -1;
    return target;
}

} // namespace

bool SetCurSel(Sheet& sheet, int index, int direction) {
    const int step = direction < 0 ? -1 : 1;
    // Each page may send the activation on once; a loop of refusals ends.
    for (int tries = 0; tries <= sheet.PageCount(); ++tries) {
        if (index < 0 || index >= sheet.PageCount() || !EnsurePageWindow(sheet, index))
            return false;
        LRESULT answer = NotifyPage(sheet, index, PSN_SETACTIVE);
        if (!IsWindow(sheet.hwnd) || index >= sheet.PageCount())
            return false;
        if (answer == 0) {
            ShowPage(sheet, index);
            return true;
        }
        index = answer == -1 ? index + step : FindPageByResId(sheet, answer);
    }
    return false;
}

bool CanLeavePage(Sheet& sheet) {
    return sheet.active < 0 || NotifyPage(sheet, sheet.active, PSN_KILLACTIVE) == 0;
}

bool ChangePage(Sheet& sheet, int index) {
    if (sheet.ended || index < 0 || index >= sheet.PageCount())
        return false;
    if (index == sheet.active)
        return true;
    if (!CanLeavePage(sheet))
        return false;
    const int old = sheet.active;
    if (SetCurSel(sheet, index, index < old ? -1 : 1))
        return true;
    // Nothing took the activation: the tab goes back to the page that shows.
    if (old >= 0)
        SendMessage(sheet.tab, TCM_SETCURSEL, static_cast<WPARAM>(old), 0);
    return false;
}

void WizardBack(Sheet& sheet) {
    int target = WizardTarget(sheet, PSN_WIZBACK, -1);
    if (target >= 0)
        SetCurSel(sheet, target, -1);
}

void WizardNext(Sheet& sheet) {
    int target = WizardTarget(sheet, PSN_WIZNEXT, 1);
    if (target >= 0)
        SetCurSel(sheet, target, 1);
}

void WizardFinish(Sheet& sheet) {
    if (sheet.active < 0)
        return;
    // Non-zero keeps the wizard open; a window among the page's controls
    // takes the focus then.
    LRESULT answer = NotifyPage(sheet, sheet.active, PSN_WIZFINISH);
    if (answer) {
        auto focus = reinterpret_cast<HWND>(answer);
        if (IsWindow(focus) && IsChild(sheet.hwnd, focus))
            SetFocus(focus);
        return;
    }
    EndSheet(sheet, 1);
}

bool Apply(Sheet& sheet, bool ok) {
    if (!CanLeavePage(sheet))
        return false;
    for (int i = 0; i < sheet.PageCount(); ++i) {
        LRESULT answer = NotifyPage(sheet, i, PSN_APPLY, ok ? TRUE : FALSE);
        if (!IsWindow(sheet.hwnd) || sheet.ended)
            return false;
        if (answer == PSNRET_INVALID) {
            // The sheet goes back to the page that refused.
            if (i != sheet.active)
                SetCurSel(sheet, i, 1);
            return false;
        }
        if (answer == PSNRET_INVALID_NOCHANGEPAGE)
            return false;
    }
    for (Page& page : sheet.pages)
        page.changed = false;
    if (HWND apply = GetDlgItem(sheet.hwnd, ID_APPLY_NOW)) {
        if (GetFocus() == apply)
            SetFocus(GetDlgItem(sheet.hwnd, IDOK));
        EnableWindow(apply, FALSE);
    }
    // The current page was told it loses the activation; after Apply it
    // keeps it.
    if (!ok && sheet.active >= 0)
        NotifyPage(sheet, sheet.active, PSN_SETACTIVE);
    return true;
}

void Cancel(Sheet& sheet) {
    if (sheet.active >= 0 && NotifyPage(sheet, sheet.active, PSN_QUERYCANCEL))
        return;
    for (int i = 0; i < sheet.PageCount() && IsWindow(sheet.hwnd); ++i)
        NotifyPage(sheet, i, PSN_RESET);
    EndSheet(sheet, 0);
}

void EndSheet(Sheet& sheet, INT_PTR result) {
    sheet.ended = true;
    sheet.result = result;
    if (!(sheet.flags & PSH_MODELESS))
        EndDialog(sheet.hwnd, result);
}

} // namespace platform::user::propsheet
