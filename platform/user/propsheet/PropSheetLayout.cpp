// The property sheet's controls and their places: the pages' area sized to
// the largest page, inside a tab control with OK, Cancel and Apply below it,
// or, in a wizard, above a line and the Back, Next, Finish and Cancel
// buttons. The sheet is then centred over its owner.
#include "PropSheet.h"

#include "../DialogWindows.h"

#include <platform/DialogUnits.h>

#include <algorithm>

namespace platform::user::propsheet {

namespace {

constexpr int kMargin = 7;
constexpr int kGap = 6;
constexpr int kButtonWidth = 75;
constexpr int kButtonHeight = 23;

HWND AddControl(HWND sheet, const WCHAR* cls, const WCHAR* text, DWORD style, int id) {
    HWND control =
        CreateWindowEx(0, cls, text, WS_CHILD | style, 0, 0, 0, 0, sheet,
                       reinterpret_cast<HMENU>(static_cast<uintptr_t>(id)), nullptr, nullptr);
    SendMessage(control, WM_SETFONT, static_cast<WPARAM>(SendMessage(sheet, WM_GETFONT, 0, 0)),
                FALSE);
    return control;
}

void Place(HWND sheet, int id, int x, int y, int cx, int cy) {
    if (HWND control = GetDlgItem(sheet, id))
        SetWindowPos(control, nullptr, x, y, cx, cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

// The largest page, in pixels of each page's own dialog font.
SIZE LargestPage(const Sheet& sheet) {
    SIZE size{0, 0};
    for (const Page& page : sheet.pages) {
        platform::DialogBaseUnits base = platform::TemplateBaseUnits(page.child);
        size.cx = std::max<LONG>(size.cx, MulDiv(page.child.cx, base.cx, 4));
        size.cy = std::max<LONG>(size.cy, MulDiv(page.child.cy, base.cy, 8));
    }
    return size;
}

// A row of buttons ending at right, the given ids left to right; a zero id
// is a gap.
void PlaceButtonRow(HWND sheet, const std::vector<int>& ids, int right, int y) {
    int x = right;
    for (auto it = ids.rbegin(); it != ids.rend(); ++it) {
        if (*it == 0) {
            x -= kGap;
            continue;
        }
        x -= kButtonWidth;
        Place(sheet, *it, x, y, kButtonWidth, kButtonHeight);
    }
}

int RowWidth(const std::vector<int>& ids) {
    int width = 0;
    for (int id : ids)
        width += id ? kButtonWidth : kGap;
    return width;
}

// Tabs above the pages, the buttons below at the right; returns the client
// size.
SIZE LayoutTabbed(Sheet& sheet, SIZE page) {
    std::vector<int> row{IDOK, 0, IDCANCEL};
    if (!(sheet.flags & PSH_NOAPPLYNOW))
        row.insert(row.end(), {0, ID_APPLY_NOW});
    if (sheet.flags & PSH_HASHELP)
        row.insert(row.end(), {0, IDHELP});
    RECT tab{0, 0, page.cx, page.cy};
    SendMessage(sheet.tab, TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&tab));
    int tabWidth = std::max<int>(tab.right - tab.left, RowWidth(row));
    int tabHeight = tab.bottom - tab.top;
    SetWindowPos(sheet.tab, nullptr, kMargin, kMargin, tabWidth, tabHeight,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    RECT display{kMargin, kMargin, kMargin + tabWidth, kMargin + tabHeight};
    SendMessage(sheet.tab, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&display));
    sheet.pageRect = display;
    int buttons = kMargin + tabHeight + kGap;
    PlaceButtonRow(sheet.hwnd, row, kMargin + tabWidth, buttons);
    return SIZE{kMargin + tabWidth + kMargin, buttons + kButtonHeight + kMargin};
}

// The page on top, a line across, Back and Next side by side, then Cancel.
SIZE LayoutWizard(Sheet& sheet, SIZE page, int separatorId) {
    std::vector<int> row{ID_WIZBACK, ID_WIZNEXT};
    if (sheet.flags & PSH_WIZARDHASFINISH)
        row.insert(row.end(), {0, ID_WIZFINISH});
    row.insert(row.end(), {0, IDCANCEL});
    if (sheet.flags & PSH_HASHELP)
        row.insert(row.end(), {0, IDHELP});
    int width = std::max<int>(page.cx + 2 * kMargin, RowWidth(row) + 2 * kMargin);
    sheet.pageRect = RECT{kMargin, kMargin, kMargin + page.cx, kMargin + page.cy};
    // The tab control stays hidden; it keeps the pages' titles.
    SetWindowPos(sheet.tab, nullptr, sheet.pageRect.left, sheet.pageRect.top, page.cx, page.cy,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    int line = sheet.pageRect.bottom + kMargin;
    Place(sheet.hwnd, separatorId, 0, line, width, 2);
    int buttons = line + 2 + kMargin;
    PlaceButtonRow(sheet.hwnd, row, width - kMargin, buttons);
    if (!(sheet.flags & PSH_WIZARDHASFINISH)) {
        // Finish takes Next's place when it is shown.
        RECT next{};
        GetWindowRect(GetDlgItem(sheet.hwnd, ID_WIZNEXT), &next);
        POINT at{next.left, next.top};
        ScreenToClient(sheet.hwnd, &at);
        Place(sheet.hwnd, ID_WIZFINISH, at.x, at.y, kButtonWidth, kButtonHeight);
    }
    return SIZE{width, buttons + kButtonHeight + kMargin};
}

constexpr int kSeparatorId = 0x3026;

} // namespace

void CreateSheetControls(Sheet& sheet) {
    HWND hwnd = sheet.hwnd;
    DWORD tabVisible = sheet.IsWizard() ? 0 : WS_VISIBLE;
    sheet.tab = AddControl(hwnd, WC_TABCONTROLW, nullptr,
                           tabVisible | WS_TABSTOP | WS_CLIPSIBLINGS | TCS_FOCUSONBUTTONDOWN,
                           AFX_IDC_TAB_CONTROL);
    for (const Page& page : sheet.pages) {
        TCITEMW item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<WCHAR*>(page.title.c_str());
        SendMessage(sheet.tab, TCM_INSERTITEMW, SendMessage(sheet.tab, TCM_GETITEMCOUNT, 0, 0),
                    reinterpret_cast<LPARAM>(&item));
    }
    constexpr DWORD kButton = WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON;
    DWORD help = (sheet.flags & PSH_HASHELP) ? WS_VISIBLE : 0;
    SIZE page = LargestPage(sheet);
    SIZE client{};
    if (sheet.IsWizard()) {
        AddControl(hwnd, u"BUTTON", u"< &Back", kButton, ID_WIZBACK);
        AddControl(hwnd, u"BUTTON", u"&Next >", kButton | BS_DEFPUSHBUTTON, ID_WIZNEXT);
        DWORD finish = (sheet.flags & PSH_WIZARDHASFINISH) ? WS_VISIBLE : 0;
        AddControl(hwnd, u"BUTTON", u"Finish", (kButton & ~WS_VISIBLE) | finish, ID_WIZFINISH);
        AddControl(hwnd, u"BUTTON", u"Cancel", kButton, IDCANCEL);
        AddControl(hwnd, u"BUTTON", u"&Help", (kButton & ~WS_VISIBLE) | help, IDHELP);
        AddControl(hwnd, u"STATIC", nullptr, WS_VISIBLE | SS_ETCHEDHORZ, kSeparatorId);
        client = LayoutWizard(sheet, page, kSeparatorId);
        SetWizardButtons(sheet, sheet.wizardButtons);
    } else {
        AddControl(hwnd, u"BUTTON", u"OK", kButton | BS_DEFPUSHBUTTON, IDOK);
        AddControl(hwnd, u"BUTTON", u"Cancel", kButton, IDCANCEL);
        DWORD apply = (sheet.flags & PSH_NOAPPLYNOW) ? 0 : WS_VISIBLE;
        HWND applyButton =
            AddControl(hwnd, u"BUTTON", u"&Apply", (kButton & ~WS_VISIBLE) | apply, ID_APPLY_NOW);
        // Apply waits for a page to report a change.
        EnableWindow(applyButton, FALSE);
        AddControl(hwnd, u"BUTTON", u"&Help", (kButton & ~WS_VISIBLE) | help, IDHELP);
        client = LayoutTabbed(sheet, page);
    }
    CentreOverOwner(hwnd, client);
}

void SetWizardButtons(Sheet& sheet, DWORD flags) {
    sheet.wizardButtons = flags;
    HWND hwnd = sheet.hwnd;
    HWND back = GetDlgItem(hwnd, ID_WIZBACK);
    HWND next = GetDlgItem(hwnd, ID_WIZNEXT);
    HWND finish = GetDlgItem(hwnd, ID_WIZFINISH);
    const bool finishShown = (sheet.flags & PSH_WIZARDHASFINISH) ||
                             (flags & (PSWIZB_FINISH | PSWIZB_DISABLEDFINISH)) != 0;
    const bool finishEnabled = (flags & PSWIZB_FINISH) && !(flags & PSWIZB_DISABLEDFINISH);
    HWND focus = GetFocus();
    if (back)
        EnableWindow(back, (flags & PSWIZB_BACK) ? TRUE : FALSE);
    if (next) {
        EnableWindow(next, (flags & PSWIZB_NEXT) ? TRUE : FALSE);
        if (!(sheet.flags & PSH_WIZARDHASFINISH))
            ShowWindow(next, finishShown ? SW_HIDE : SW_SHOWNA);
    }
    if (finish) {
        EnableWindow(finish, finishEnabled ? TRUE : FALSE);
        ShowWindow(finish, finishShown ? SW_SHOWNA : SW_HIDE);
    }
    // The default push button is Finish when it shows (or, beside Next, when
    // it can be pressed), else Next, whether or not it can be pressed.
    UINT defaultId = ID_WIZNEXT;
    if (sheet.flags & PSH_WIZARDHASFINISH ? finishEnabled : finishShown)
        defaultId = ID_WIZFINISH;
    SendMessage(hwnd, DM_SETDEFID, defaultId, 0);
    // A button that went away or can no longer be pressed gives the focus
    // to the default button, or to Cancel.
    if (focus && (focus == back || focus == next || focus == finish) &&
        !(IsWindowVisible(focus) && IsWindowEnabled(focus))) {
        HWND target = GetDlgItem(hwnd, static_cast<int>(defaultId));
        if (!target || !IsWindowVisible(target) || !IsWindowEnabled(target))
            target = GetDlgItem(hwnd, IDCANCEL);
        SetFocus(target);
    }
}

} // namespace platform::user::propsheet
