// The standard controls' wrappers: each call is one message to the control.
#include <afxwin.h>

#include <algorithm>

namespace {

LRESULT Send(HWND hwnd, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return ::SendMessage(hwnd, message, wParam, lParam);
}

LPARAM TextParam(LPCTSTR text) {
    return reinterpret_cast<LPARAM>(text);
}

} // namespace

UINT CButton::GetState() const {
    return static_cast<UINT>(Send(m_hWnd, BM_GETSTATE));
}

void CButton::SetState(BOOL highlight) {
    Send(m_hWnd, BM_SETSTATE, static_cast<WPARAM>(highlight));
}

int CButton::GetCheck() const {
    return static_cast<int>(Send(m_hWnd, BM_GETCHECK));
}

void CButton::SetCheck(int check) {
    Send(m_hWnd, BM_SETCHECK, static_cast<WPARAM>(check));
}

UINT CButton::GetButtonStyle() const {
    return static_cast<UINT>(::GetWindowLongPtr(m_hWnd, GWL_STYLE)) & 0xFF;
}

void CButton::DrawItem(LPDRAWITEMSTRUCT) {}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message != WM_DRAWITEM)
        return CWnd::OnChildNotify(message, wParam, lParam, result);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

void CButton::SetButtonStyle(UINT style, BOOL redraw) {
    Send(m_hWnd, BM_SETSTYLE, style, redraw);
}

void CEdit::SetSel(DWORD selection, BOOL noScroll) {
    SetSel(static_cast<short>(LOWORD(selection)), static_cast<short>(HIWORD(selection)), noScroll);
}

void CEdit::SetSel(int start, int end, BOOL noScroll) {
    Send(m_hWnd, EM_SETSEL, static_cast<WPARAM>(start), static_cast<LPARAM>(end));
    if (!noScroll)
        Send(m_hWnd, EM_SCROLLCARET);
}

DWORD CEdit::GetSel() const {
    return static_cast<DWORD>(Send(m_hWnd, EM_GETSEL));
}

void CEdit::GetSel(int& start, int& end) const {
    DWORD from = 0;
    DWORD to = 0;
    Send(m_hWnd, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    start = static_cast<int>(from);
    end = static_cast<int>(to);
}

void CEdit::ReplaceSel(LPCTSTR text, BOOL canUndo) {
    Send(m_hWnd, EM_REPLACESEL, static_cast<WPARAM>(canUndo), TextParam(text));
}

void CEdit::LimitText(int chars) {
    Send(m_hWnd, EM_LIMITTEXT, static_cast<WPARAM>(chars));
}

void CEdit::SetLimitText(UINT chars) {
    Send(m_hWnd, EM_SETLIMITTEXT, chars);
}

UINT CEdit::GetLimitText() const {
    return static_cast<UINT>(Send(m_hWnd, EM_GETLIMITTEXT));
}

BOOL CEdit::SetReadOnly(BOOL readOnly) {
    return static_cast<BOOL>(Send(m_hWnd, EM_SETREADONLY, static_cast<WPARAM>(readOnly)));
}

int CEdit::GetLineCount() const {
    return static_cast<int>(Send(m_hWnd, EM_GETLINECOUNT));
}

int CEdit::LineIndex(int line) const {
    return static_cast<int>(Send(m_hWnd, EM_LINEINDEX, static_cast<WPARAM>(line)));
}

int CEdit::LineLength(int position) const {
    return static_cast<int>(Send(m_hWnd, EM_LINELENGTH, static_cast<WPARAM>(position)));
}

int CEdit::LineFromChar(int position) const {
    return static_cast<int>(Send(m_hWnd, EM_LINEFROMCHAR, static_cast<WPARAM>(position)));
}

int CEdit::GetLine(int line, LPTSTR buffer, int maxLength) const {
    if (!buffer || maxLength <= 0)
        return 0;
    // The message reads the buffer's size from its first character.
    *reinterpret_cast<WORD*>(buffer) = static_cast<WORD>(std::min(maxLength, 0xFFFF));
    return static_cast<int>(
        Send(m_hWnd, EM_GETLINE, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(buffer)));
}

BOOL CEdit::GetModify() const {
    return static_cast<BOOL>(Send(m_hWnd, EM_GETMODIFY));
}

void CEdit::SetModify(BOOL modified) {
    Send(m_hWnd, EM_SETMODIFY, static_cast<WPARAM>(modified));
}

int CComboBox::GetCount() const {
    return static_cast<int>(Send(m_hWnd, CB_GETCOUNT));
}

int CComboBox::GetCurSel() const {
    return static_cast<int>(Send(m_hWnd, CB_GETCURSEL));
}

int CComboBox::SetCurSel(int select) {
    return static_cast<int>(Send(m_hWnd, CB_SETCURSEL, static_cast<WPARAM>(select)));
}

int CComboBox::AddString(LPCTSTR text) {
    return static_cast<int>(Send(m_hWnd, CB_ADDSTRING, 0, TextParam(text)));
}

int CComboBox::InsertString(int index, LPCTSTR text) {
    return static_cast<int>(
        Send(m_hWnd, CB_INSERTSTRING, static_cast<WPARAM>(index), TextParam(text)));
}

int CComboBox::DeleteString(UINT index) {
    return static_cast<int>(Send(m_hWnd, CB_DELETESTRING, index));
}

void CComboBox::ResetContent() {
    Send(m_hWnd, CB_RESETCONTENT);
}

int CComboBox::GetLBText(int index, LPTSTR text) const {
    return static_cast<int>(
        Send(m_hWnd, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
}

void CComboBox::GetLBText(int index, CString& text) const {
    int length = GetLBTextLen(index);
    if (length == CB_ERR) {
        text.Empty();
        return;
    }
    LPWSTR buffer = text.GetBufferSetLength(length);
    GetLBText(index, buffer);
    text.ReleaseBuffer(length);
}

int CComboBox::GetLBTextLen(int index) const {
    return static_cast<int>(Send(m_hWnd, CB_GETLBTEXTLEN, static_cast<WPARAM>(index)));
}

int CComboBox::FindString(int startAfter, LPCTSTR text) const {
    return static_cast<int>(
        Send(m_hWnd, CB_FINDSTRING, static_cast<WPARAM>(startAfter), TextParam(text)));
}

int CComboBox::FindStringExact(int startAfter, LPCTSTR text) const {
    return static_cast<int>(
        Send(m_hWnd, CB_FINDSTRINGEXACT, static_cast<WPARAM>(startAfter), TextParam(text)));
}

int CComboBox::SelectString(int startAfter, LPCTSTR text) {
    return static_cast<int>(
        Send(m_hWnd, CB_SELECTSTRING, static_cast<WPARAM>(startAfter), TextParam(text)));
}

int CComboBox::SetItemData(int index, DWORD_PTR data) {
    return static_cast<int>(
        Send(m_hWnd, CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
}

DWORD_PTR CComboBox::GetItemData(int index) const {
    return static_cast<DWORD_PTR>(Send(m_hWnd, CB_GETITEMDATA, static_cast<WPARAM>(index)));
}

BOOL CComboBox::LimitText(int maxChars) {
    return static_cast<BOOL>(Send(m_hWnd, CB_LIMITTEXT, static_cast<WPARAM>(maxChars)));
}

void CComboBox::ShowDropDown(BOOL show) {
    Send(m_hWnd, CB_SHOWDROPDOWN, static_cast<WPARAM>(show));
}

BOOL CComboBox::GetDroppedState() const {
    return static_cast<BOOL>(Send(m_hWnd, CB_GETDROPPEDSTATE));
}

DWORD CComboBox::GetEditSel() const {
    return static_cast<DWORD>(Send(m_hWnd, CB_GETEDITSEL));
}

BOOL CComboBox::SetEditSel(int start, int end) {
    return static_cast<BOOL>(Send(m_hWnd, CB_SETEDITSEL, 0, MAKELPARAM(start, end)));
}
