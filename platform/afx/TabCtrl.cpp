// CTabCtrl: the framework's wrapper of the tab control.
#include <afxcmn.h>

LRESULT CTabCtrl::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

BOOL CTabCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(WC_TABCONTROLW, nullptr, style, rect, parent, id);
}

int CTabCtrl::GetItemCount() const {
    return static_cast<int>(Send(TCM_GETITEMCOUNT, 0, 0));
}

BOOL CTabCtrl::GetItem(int item, TCITEM* info) const {
    return static_cast<BOOL>(
        Send(TCM_GETITEMW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(info)));
}

BOOL CTabCtrl::SetItem(int item, TCITEM* info) {
    return static_cast<BOOL>(
        Send(TCM_SETITEMW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(info)));
}

LONG CTabCtrl::InsertItem(int item, TCITEM* info) {
    return static_cast<LONG>(
        Send(TCM_INSERTITEMW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(info)));
}

LONG CTabCtrl::InsertItem(int item, LPCTSTR text) {
    TCITEM info{};
    info.mask = TCIF_TEXT;
    info.pszText = const_cast<LPWSTR>(text);
    return InsertItem(item, &info);
}

BOOL CTabCtrl::DeleteItem(int item) {
    return static_cast<BOOL>(Send(TCM_DELETEITEM, static_cast<WPARAM>(item), 0));
}

BOOL CTabCtrl::DeleteAllItems() {
    return static_cast<BOOL>(Send(TCM_DELETEALLITEMS, 0, 0));
}

BOOL CTabCtrl::GetItemRect(int item, LPRECT rect) const {
    return static_cast<BOOL>(
        Send(TCM_GETITEMRECT, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(rect)));
}

int CTabCtrl::GetCurSel() const {
    return static_cast<int>(Send(TCM_GETCURSEL, 0, 0));
}

int CTabCtrl::SetCurSel(int item) {
    return static_cast<int>(Send(TCM_SETCURSEL, static_cast<WPARAM>(item), 0));
}

int CTabCtrl::GetCurFocus() const {
    return static_cast<int>(Send(TCM_GETCURFOCUS, 0, 0));
}

void CTabCtrl::SetCurFocus(int item) {
    Send(TCM_SETCURFOCUS, static_cast<WPARAM>(item), 0);
}

void CTabCtrl::AdjustRect(BOOL larger, LPRECT rect) {
    Send(TCM_ADJUSTRECT, static_cast<WPARAM>(larger), reinterpret_cast<LPARAM>(rect));
}

int CTabCtrl::HitTest(TCHITTESTINFO* info) const {
    return static_cast<int>(Send(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(info)));
}
