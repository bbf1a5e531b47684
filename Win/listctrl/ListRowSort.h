// The quicksort that every variant of the list sorter shares. It works on the
// list control's rows themselves: each comparison reads the cell's text back
// from the control and derives its key again, and rows trade places whole
// (every column's text, image, item data and state), so no copy of the list
// is made.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

namespace listsort {

// The number of columns the list's header (its child window with ID 0)
// holds; -1 when it has none.
int ColumnCount(CListCtrl& list);

// Rows a and b trade their texts in columns 0 to columns-1, their image,
// item data and the state bits under 0xFF0F (selection, focus, cut,
// drop-highlight, overlay and state image).
void SwapRows(CListCtrl& list, int a, int b, int columns);

// Rows low to high inclusive, already within the list. The pivot's key is
// taken once from the middle row. The lower scan passes keys that belong
// before it, the upper scan keys that belong after it; a key that compares
// neither way (an equal key, or text that is no date) stops both. Rows whose
// texts are the same are not swapped.
template <class Key>
void SortRange(CListCtrl& list, int column, int columns, bool ascending, int low, int high,
               const Key& key) {
    for (;;) {
        CWaitCursor wait;
        int lo = low;
        int hi = high;
        if (hi <= lo)
            return;
        const typename Key::Value pivot = key.Of(list.GetItemText((lo + hi) / 2, column));
        while (lo <= hi) {
            if (ascending) {
                while (lo < high && key.Less(key.Of(list.GetItemText(lo, column)), pivot))
                    ++lo;
                while (hi > low && key.Greater(key.Of(list.GetItemText(hi, column)), pivot))
                    --hi;
            } else {
                while (lo < high && key.Greater(key.Of(list.GetItemText(lo, column)), pivot))
                    ++lo;
                while (hi > low && key.Less(key.Of(list.GetItemText(hi, column)), pivot))
                    --hi;
            }
            if (lo <= hi) {
                if (lo != hi && list.GetItemText(lo, column) != list.GetItemText(hi, column))
                    SwapRows(list, lo, hi, columns);
                ++lo;
                --hi;
            }
        }
        // The two parts are disjoint, so the order in which they are sorted
        // does not matter: the smaller one goes to a nested call and the
        // larger one round this loop, which bounds the depth of nesting by
        // the logarithm of the row count whatever the data.
        if (hi - low < high - lo) {
            if (low < hi)
                SortRange(list, column, columns, ascending, low, hi, key);
            low = lo;
        } else {
            if (lo < high)
                SortRange(list, column, columns, ascending, lo, high, key);
            high = hi;
        }
    }
}

// Rows low to high (high -1: the last row) by column. A column the header
// does not have leaves the list as it is; so does a range without two rows.
template <class Key>
void SortRows(CListCtrl& list, int column, bool ascending, int low, int high, const Key& key) {
    CWaitCursor wait;
    const int columns = ColumnCount(list);
    if (column < 0 || column >= columns)
        return;
    // A range reaching outside the list is held to its rows, so no row is
    // swapped with one that does not exist.
    const int last = list.GetItemCount() - 1;
    if (high == -1 || high > last)
        high = last;
    if (low < 0)
        low = 0;
    SortRange(list, column, columns, ascending, low, high, key);
}

} // namespace listsort
