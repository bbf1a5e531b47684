// The framework's wrappers of the standard controls: each sends the
// control's messages to its window. Attach one to a dialog's control with
// DDX_Control or SubclassDlgItem. Included from afxwin.h.
#pragma once

#include "afxwnd.h"

class CStatic : public CWnd {};

class CButton : public CWnd {
public:
    UINT GetState() const;
    void SetState(BOOL highlight);
    int GetCheck() const;
    void SetCheck(int check);
    // The button type and its other style bits of the low byte.
    UINT GetButtonStyle() const;
    void SetButtonStyle(UINT style, BOOL redraw = TRUE);

    // Paints an owner-drawn button; the parent's WM_DRAWITEM comes here.
    // Nothing is drawn by default.
    virtual void DrawItem(LPDRAWITEMSTRUCT item);

protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
};

class CEdit : public CWnd {
public:
    // Start in the low word, end in the high word; -1 as the start removes
    // the selection, -1 as the end means the end of the text.
    void SetSel(DWORD selection, BOOL noScroll = FALSE);
    void SetSel(int start, int end, BOOL noScroll = FALSE);
    DWORD GetSel() const;
    void GetSel(int& start, int& end) const;
    void ReplaceSel(LPCTSTR text, BOOL canUndo = FALSE);
    // 0 lifts the limit.
    void LimitText(int chars = 0);
    void SetLimitText(UINT chars);
    UINT GetLimitText() const;
    BOOL SetReadOnly(BOOL readOnly = TRUE);
    int GetLineCount() const;
    int LineIndex(int line = -1) const;
    int LineLength(int position = -1) const;
    int LineFromChar(int position = -1) const;
    // Copies a line, without its line break and without a terminating NUL.
    int GetLine(int line, LPTSTR buffer, int maxLength) const;
    BOOL GetModify() const;
    void SetModify(BOOL modified = TRUE);
};

class CComboBox : public CWnd {
public:
    int GetCount() const;
    int GetCurSel() const;
    int SetCurSel(int select);
    int AddString(LPCTSTR text);
    int InsertString(int index, LPCTSTR text);
    int DeleteString(UINT index);
    void ResetContent();
    int GetLBText(int index, LPTSTR text) const;
    void GetLBText(int index, CString& text) const;
    int GetLBTextLen(int index) const;
    int FindString(int startAfter, LPCTSTR text) const;
    int FindStringExact(int startAfter, LPCTSTR text) const;
    int SelectString(int startAfter, LPCTSTR text);
    int SetItemData(int index, DWORD_PTR data);
    DWORD_PTR GetItemData(int index) const;
    BOOL LimitText(int maxChars);
    void ShowDropDown(BOOL show = TRUE);
    BOOL GetDroppedState() const;
    DWORD GetEditSel() const;
    BOOL SetEditSel(int start, int end);
};
