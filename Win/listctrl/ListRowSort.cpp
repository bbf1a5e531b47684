#include "Win/listctrl/ListRowSort.h"

#include <vector>

namespace listsort {

int ColumnCount(CListCtrl& list) {
    HWND header = ::GetDlgItem(list.GetSafeHwnd(), 0);
    if (!header)
        return -1;
    return static_cast<int>(::SendMessage(header, HDM_GETITEMCOUNT, 0, 0));
}

void SwapRows(CListCtrl& list, int a, int b, int columns) {
    std::vector<CString> savedTexts;
    savedTexts.reserve(static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column)
        savedTexts.push_back(list.GetItemText(a, column));

    LVITEM itemA{};
    itemA.mask = LVIF_IMAGE | LVIF_PARAM | LVIF_STATE;
    itemA.iItem = a;
    itemA.stateMask = 0xFF0F;
    LVITEM itemB = itemA;
    itemB.iItem = b;
    list.GetItem(&itemA);
    list.GetItem(&itemB);

    for (int column = 0; column < columns; ++column)
        list.SetItemText(a, column, list.GetItemText(b, column));
    itemB.iItem = a;
    list.SetItem(&itemB);

    for (int column = 0; column < columns; ++column)
        list.SetItemText(b, column, savedTexts[static_cast<std::size_t>(column)]);
    itemA.iItem = b;
    list.SetItem(&itemA);
}

} // namespace listsort
