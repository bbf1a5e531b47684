// The class framework's wrappers of the common controls: image lists, the
// list view, its header and the tab control. Each control member sends the
// control's message.
#pragma once

#include "afxtempl.h"
#include "afxwin.h"
#include "commctrl.h"

// An image list owned by a C++ object: the list is destroyed with the
// object unless it was detached.
class CImageList : public CObject {
public:
    HIMAGELIST m_hImageList = nullptr;

    CImageList() = default;
    ~CImageList() override;

    HIMAGELIST GetSafeHandle() const { return m_hImageList; }
    operator HIMAGELIST() const { return m_hImageList; }
    // FALSE when the object already holds a list or the list cannot be made.
    BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
    // FALSE for a null handle or when the object already holds a list.
    BOOL Attach(HIMAGELIST list);
    HIMAGELIST Detach();
    BOOL DeleteImageList();

    int GetImageCount() const;
    // The index of the new image, or -1.
    int Add(HICON icon);
    BOOL Draw(CDC* dc, int image, POINT point, UINT style);
    // A new icon showing the image; free it with DestroyIcon.
    HICON ExtractIcon(int image);

private:
    CImageList(const CImageList&) = delete;
    CImageList& operator=(const CImageList&) = delete;
};

class CHeaderCtrl : public CWnd {
public:
    // -1 when the control does not answer.
    int GetItemCount() const;
    BOOL GetItem(int index, HDITEM* item) const;
    BOOL SetItem(int index, HDITEM* item);
    BOOL GetOrderArray(int* array, int count = -1);

private:
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const;
};

class CListCtrl : public CWnd {
public:
    CListCtrl() = default;
    ~CListCtrl() override;

    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    // Columns. InsertColumn always gives the text and format; the width and
    // sub-item only when they are not -1.
    int InsertColumn(int column, const LVCOLUMN* info);
    int InsertColumn(int column, LPCTSTR heading, int format = LVCFMT_LEFT, int width = -1,
                     int subItem = -1);
    BOOL GetColumn(int column, LVCOLUMN* info) const;
    BOOL SetColumn(int column, const LVCOLUMN* info);
    BOOL DeleteColumn(int column);
    int GetColumnWidth(int column) const;
    BOOL SetColumnWidth(int column, int width);
    // The list's header, as a wrapper this object keeps.
    CHeaderCtrl* GetHeaderCtrl();
    // A count of -1 asks the header for the number of columns.
    BOOL GetColumnOrderArray(int* array, int count = -1);
    BOOL SetColumnOrderArray(int count, int* array);

    // Items.
    int InsertItem(const LVITEM* item);
    int InsertItem(int item, LPCTSTR text);
    int InsertItem(int item, LPCTSTR text, int image);
    int InsertItem(UINT mask, int item, LPCTSTR text, UINT state, UINT stateMask, int image,
                   LPARAM param);
    BOOL DeleteItem(int item);
    BOOL DeleteAllItems();
    BOOL GetItem(LVITEM* item) const;
    BOOL SetItem(const LVITEM* item);
    BOOL SetItem(int item, int subItem, UINT mask, LPCTSTR text, int image, UINT state,
                 UINT stateMask, LPARAM param);
    // Copies at most length-1 characters and a NUL; returns the count copied.
    int GetItemText(int item, int subItem, LPTSTR text, int length) const;
    // The whole text, however long.
    CString GetItemText(int item, int subItem) const;
    BOOL SetItemText(int item, int subItem, LPCTSTR text);
    int GetItemCount() const;
    UINT GetItemState(int item, UINT mask) const;
    BOOL SetItemState(int item, UINT state, UINT mask);
    BOOL SetItemState(int item, LVITEM* info);
    DWORD_PTR GetItemData(int item) const;
    BOOL SetItemData(int item, DWORD_PTR data);
    int GetNextItem(int item, int flags) const;
    UINT GetSelectedCount() const;
    POSITION GetFirstSelectedItemPosition() const;
    int GetNextSelectedItem(POSITION& position) const;
    // Orders the items by their item data; the sort is stable, so items the
    // comparison calls equal keep the order they had.
    BOOL SortItems(PFNLVCOMPARE compare, DWORD_PTR data);
    BOOL EnsureVisible(int item, BOOL partialOK);
    DWORD SetExtendedStyle(DWORD exStyle);
    DWORD GetExtendedStyle() const;

private:
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const;
    CHeaderCtrl m_header;
};

class CTabCtrl : public CWnd {
public:
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id);

    int GetItemCount() const;
    BOOL GetItem(int item, TCITEM* info) const;
    BOOL SetItem(int item, TCITEM* info);
    // The index given to the new tab, or -1.
    LONG InsertItem(int item, TCITEM* info);
    LONG InsertItem(int item, LPCTSTR text);
    BOOL DeleteItem(int item);
    BOOL DeleteAllItems();
    BOOL GetItemRect(int item, LPRECT rect) const;
    int GetCurSel() const;
    // Selects without notifying the parent; returns the previous selection.
    int SetCurSel(int item);
    int GetCurFocus() const;
    void SetCurFocus(int item);
    // larger FALSE: the display area of a window rectangle; TRUE: the
    // window rectangle of a display area.
    void AdjustRect(BOOL larger, LPRECT rect);
    int HitTest(TCHITTESTINFO* info) const;

private:
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const;
};
