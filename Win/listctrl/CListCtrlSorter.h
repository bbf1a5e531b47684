// Sorts the rows of a report list control in place by one column, reading
// the cells back from the control and swapping whole rows: every column's
// text, the image, the item data and the state bits. Remembers the column
// sorted last, so that repeated sorts of one column alternate the direction.
#pragma once

#include <afxcmn.h>

class CListCtrlSorter {
public:
    CListCtrlSorter();
    CListCtrlSorter(const CListCtrlSorter& other);
    CListCtrlSorter& operator=(const CListCtrlSorter& other);
    virtual ~CListCtrlSorter();

    // A new column starts ascending; the same column again turns the direction.
    void SetSortOrder(int column);
    // True while the next two-argument sort goes ascending.
    bool GetSortOrder() const;

    // SetSortOrder(column), then the whole list in the remembered direction.
    bool SortListCtrl(CListCtrl& list, int column);
    bool SortListCtrlByDateTime(CListCtrl& list, int column);
    bool SortListCtrlByInteger(CListCtrl& list, int column);
    bool SortListCtrlByDouble(CListCtrl& list, int column);

    // Rows low to high inclusive (high -1: the last row) in the given
    // direction, without touching the remembered order. A column the header
    // does not have leaves the list as it is. Always true.
    //
    // By the text, ignoring the case of A to Z.
    bool SortListCtrl(CListCtrl& list, int column, bool ascending, int low, int high);
    // By date and time; text that is no date compares neither less nor greater.
    bool SortListCtrlByDateTime(CListCtrl& list, int column, bool ascending, int low, int high);
    // By the leading integer; empty cells first.
    bool SortListCtrlByInteger(CListCtrl& list, int column, bool ascending, int low, int high);
    // By the leading floating-point number; empty cells first.
    bool SortListCtrlByDouble(CListCtrl& list, int column, bool ascending, int low, int high);

    // For CListCtrl::SortItems: orders item data as signed 32-bit integers.
    static int CompareIntFunc(LPARAM data1, LPARAM data2, LPARAM sortParam);

private:
    int m_sortColumn;
    bool m_ascending;
};
