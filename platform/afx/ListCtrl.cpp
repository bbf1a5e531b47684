// The list view and header wrappers: each member sends the control's message.
#include <afxcmn.h>

#include <cstring>
#include <vector>

LRESULT CHeaderCtrl::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

int CHeaderCtrl::GetItemCount() const {
    if (!::IsWindow(m_hWnd))
        return -1;
    return static_cast<int>(Send(HDM_GETITEMCOUNT, 0, 0));
}

BOOL CHeaderCtrl::GetItem(int index, HDITEM* item) const {
    return static_cast<BOOL>(
        Send(HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)));
}

BOOL CHeaderCtrl::SetItem(int index, HDITEM* item) {
    return static_cast<BOOL>(
        Send(HDM_SETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(item)));
}

BOOL CHeaderCtrl::GetOrderArray(int* array, int count) {
    if (count == -1) {
        count = GetItemCount();
        if (count == -1)
            return FALSE;
    }
    return static_cast<BOOL>(
        Send(HDM_GETORDERARRAY, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(array)));
}

CListCtrl::~CListCtrl() {
    // The header belongs to the list window; the wrapper only borrowed it.
    m_header.m_hWnd = nullptr;
}

LRESULT CListCtrl::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessage(m_hWnd, message, wParam, lParam);
}

BOOL CListCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
    return CWnd::Create(WC_LISTVIEWW, nullptr, style, rect, parent, id);
}

int CListCtrl::InsertColumn(int column, const LVCOLUMN* info) {
    return static_cast<int>(
        Send(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(info)));
}

int CListCtrl::InsertColumn(int column, LPCTSTR heading, int format, int width, int subItem) {
    LVCOLUMN info{};
    info.mask = LVCF_TEXT | LVCF_FMT;
    info.pszText = const_cast<LPWSTR>(heading);
    info.fmt = format;
    if (width != -1) {
        info.mask |= LVCF_WIDTH;
        info.cx = width;
    }
    if (subItem != -1) {
        info.mask |= LVCF_SUBITEM;
        info.iSubItem = subItem;
    }
    return InsertColumn(column, &info);
}

BOOL CListCtrl::GetColumn(int column, LVCOLUMN* info) const {
    return static_cast<BOOL>(
        Send(LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(info)));
}

BOOL CListCtrl::SetColumn(int column, const LVCOLUMN* info) {
    return static_cast<BOOL>(
        Send(LVM_SETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(info)));
}

BOOL CListCtrl::DeleteColumn(int column) {
    return static_cast<BOOL>(Send(LVM_DELETECOLUMN, static_cast<WPARAM>(column), 0));
}

int CListCtrl::GetColumnWidth(int column) const {
    return static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
}

BOOL CListCtrl::SetColumnWidth(int column, int width) {
    return static_cast<BOOL>(
        Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0)));
}

CHeaderCtrl* CListCtrl::GetHeaderCtrl() {
    auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER, 0, 0));
    if (!header)
        return nullptr;
    m_header.m_hWnd = header;
    return &m_header;
}

BOOL CListCtrl::GetColumnOrderArray(int* array, int count) {
    if (count == -1) {
        CHeaderCtrl* header = GetHeaderCtrl();
        if (!header)
            return FALSE;
        count = header->GetItemCount();
        if (count == -1)
            return FALSE;
    }
    return static_cast<BOOL>(
        Send(LVM_GETCOLUMNORDERARRAY, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(array)));
}

BOOL CListCtrl::SetColumnOrderArray(int count, int* array) {
    return static_cast<BOOL>(
        Send(LVM_SETCOLUMNORDERARRAY, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(array)));
}

int CListCtrl::InsertItem(const LVITEM* item) {
    return static_cast<int>(Send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(item)));
}

int CListCtrl::InsertItem(int item, LPCTSTR text) {
    return InsertItem(LVIF_TEXT, item, text, 0, 0, 0, 0);
}

int CListCtrl::InsertItem(int item, LPCTSTR text, int image) {
    return InsertItem(LVIF_TEXT | LVIF_IMAGE, item, text, 0, 0, image, 0);
}

int CListCtrl::InsertItem(UINT mask, int item, LPCTSTR text, UINT state, UINT stateMask, int image,
                          LPARAM param) {
    LVITEM info{};
    info.mask = mask;
    info.iItem = item;
    info.pszText = const_cast<LPWSTR>(text);
    info.state = state;
    info.stateMask = stateMask;
    info.iImage = image;
    info.lParam = param;
    return InsertItem(&info);
}

BOOL CListCtrl::DeleteItem(int item) {
    return static_cast<BOOL>(Send(LVM_DELETEITEM, static_cast<WPARAM>(item), 0));
}

BOOL CListCtrl::DeleteAllItems() {
    return static_cast<BOOL>(Send(LVM_DELETEALLITEMS, 0, 0));
}

BOOL CListCtrl::GetItem(LVITEM* item) const {
    return static_cast<BOOL>(Send(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(item)));
}

BOOL CListCtrl::SetItem(const LVITEM* item) {
    return static_cast<BOOL>(Send(LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(item)));
}

BOOL CListCtrl::SetItem(int item, int subItem, UINT mask, LPCTSTR text, int image, UINT state,
                        UINT stateMask, LPARAM param) {
    LVITEM info{};
    info.mask = mask;
    info.iItem = item;
    info.iSubItem = subItem;
    info.pszText = const_cast<LPWSTR>(text);
    info.iImage = image;
    info.state = state;
    info.stateMask = stateMask;
    info.lParam = param;
    return SetItem(&info);
}

int CListCtrl::GetItemText(int item, int subItem, LPTSTR text, int length) const {
    // Cleared with memset, which the compiler turns into a few vector
    // stores; a value-initialised LVITEM became a slow string store.
    LVITEM info;
    std::memset(&info, 0, sizeof info);
    info.iSubItem = subItem;
    info.pszText = text;
    info.cchTextMax = length;
    return static_cast<int>(
        Send(LVM_GETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&info)));
}

CString CListCtrl::GetItemText(int item, int subItem) const {
    // Doubles the buffer from 256 until the copied text leaves room to spare.
    CString text;
    int size = 128;
    int copied = 0;
    do {
        size *= 2;
        copied = GetItemText(item, subItem, text.GetBufferSetLength(size), size);
    } while (copied >= size - 1);
    text.ReleaseBuffer();
    return text;
}

BOOL CListCtrl::SetItemText(int item, int subItem, LPCTSTR text) {
    LVITEM info{};
    info.iSubItem = subItem;
    info.pszText = const_cast<LPWSTR>(text);
    return static_cast<BOOL>(
        Send(LVM_SETITEMTEXTW, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&info)));
}

int CListCtrl::GetItemCount() const {
    return static_cast<int>(Send(LVM_GETITEMCOUNT, 0, 0));
}

UINT CListCtrl::GetItemState(int item, UINT mask) const {
    return static_cast<UINT>(Send(LVM_GETITEMSTATE, static_cast<WPARAM>(item), mask));
}

BOOL CListCtrl::SetItemState(int item, UINT state, UINT mask) {
    LVITEM info{};
    info.state = state;
    info.stateMask = mask;
    return SetItemState(item, &info);
}

BOOL CListCtrl::SetItemState(int item, LVITEM* info) {
    return static_cast<BOOL>(
        Send(LVM_SETITEMSTATE, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(info)));
}

DWORD_PTR CListCtrl::GetItemData(int item) const {
    LVITEM info{};
    info.mask = LVIF_PARAM;
    info.iItem = item;
    GetItem(&info);
    return static_cast<DWORD_PTR>(info.lParam);
}

BOOL CListCtrl::SetItemData(int item, DWORD_PTR data) {
    return SetItem(item, 0, LVIF_PARAM, nullptr, 0, 0, 0, static_cast<LPARAM>(data));
}

int CListCtrl::GetNextItem(int item, int flags) const {
    return static_cast<int>(
        Send(LVM_GETNEXTITEM, static_cast<WPARAM>(item), static_cast<LPARAM>(flags)));
}

UINT CListCtrl::GetSelectedCount() const {
    return static_cast<UINT>(Send(LVM_GETSELECTEDCOUNT, 0, 0));
}

// A position is the item index plus one, so the first item is not null.
POSITION CListCtrl::GetFirstSelectedItemPosition() const {
    int first = GetNextItem(-1, LVNI_SELECTED);
    return reinterpret_cast<POSITION>(static_cast<INT_PTR>(first + 1));
}

int CListCtrl::GetNextSelectedItem(POSITION& position) const {
    int item = static_cast<int>(reinterpret_cast<INT_PTR>(position)) - 1;
    int next = GetNextItem(item, LVNI_SELECTED);
    position = reinterpret_cast<POSITION>(static_cast<INT_PTR>(next + 1));
    return item;
}

BOOL CListCtrl::SortItems(PFNLVCOMPARE compare, DWORD_PTR data) {
    return static_cast<BOOL>(
        Send(LVM_SORTITEMS, static_cast<WPARAM>(data), reinterpret_cast<LPARAM>(compare)));
}

BOOL CListCtrl::EnsureVisible(int item, BOOL partialOK) {
    return static_cast<BOOL>(
        Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), MAKELPARAM(partialOK, 0)));
}

DWORD CListCtrl::SetExtendedStyle(DWORD exStyle) {
    return static_cast<DWORD>(Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, exStyle));
}

DWORD CListCtrl::GetExtendedStyle() const {
    return static_cast<DWORD>(Send(LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
}
