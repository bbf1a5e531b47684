// The list view's columns: the header holds each column's heading, width,
// format and place in the display order; the list keeps the sub-item each
// column shows.
#include "ListViewState.h"

#include <algorithm>

namespace platform::user {

namespace {

int ColumnCount(const ListViewState& state) {
    return static_cast<int>(state.columns.size());
}

} // namespace

int InsertColumn(HWND hwnd, ListViewState& state, int index, const LVCOLUMNW& in) {
    index = std::clamp(index, 0, ColumnCount(state));
    if ((in.mask & LVCF_SUBITEM) && (in.iSubItem < 0 || in.iSubItem >= kMaxColumnSubItem))
        return -1;
    HDITEMW item{};
    item.mask = HDI_FORMAT | HDI_WIDTH;
    // The first column is always left-aligned.
    item.fmt = HDF_STRING | (index == 0             ? HDF_LEFT
                             : (in.mask & LVCF_FMT) ? in.fmt & LVCFMT_JUSTIFYMASK
                                                    : 0);
    if (in.mask & LVCF_TEXT) {
        item.mask |= HDI_TEXT;
        item.pszText = in.pszText;
    }
    if (in.mask & LVCF_ORDER) {
        item.mask |= HDI_ORDER;
        item.iOrder = in.iOrder;
    }
    item.cxy = (in.mask & LVCF_WIDTH) ? in.cx : 0;
    ListColumn column;
    column.subItem = (in.mask & LVCF_SUBITEM) ? std::max(0, in.iSubItem) : index;
    column.image = (in.mask & LVCF_IMAGE) ? in.iImage : 0;
    int inserted =
        static_cast<int>(SendMessage(state.header, HDM_INSERTITEMW, static_cast<WPARAM>(index),
                                     reinterpret_cast<LPARAM>(&item)));
    if (inserted < 0)
        return -1;
    state.columns.insert(state.columns.begin() + inserted, column);
    if (!(in.mask & LVCF_WIDTH)) {
        // Without a width the column fits its heading.
        HDITEMW width{};
        width.mask = HDI_WIDTH;
        width.cxy = FitColumnWidth(hwnd, state, inserted, true);
        SendMessage(state.header, HDM_SETITEMW, static_cast<WPARAM>(inserted),
                    reinterpret_cast<LPARAM>(&width));
    }
    InvalidateRect(hwnd, nullptr, TRUE);
    return inserted;
}

bool GetColumn(const ListViewState& state, int index, LVCOLUMNW& out) {
    if (index < 0 || index >= ColumnCount(state))
        return false;
    HDITEMW item{};
    item.mask = HDI_FORMAT | HDI_WIDTH | HDI_ORDER;
    if (out.mask & LVCF_TEXT) {
        item.mask |= HDI_TEXT;
        item.pszText = out.pszText;
        item.cchTextMax = out.cchTextMax;
    }
    if (!SendMessage(state.header, HDM_GETITEMW, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(&item)))
        return false;
    const ListColumn& column = state.columns[static_cast<std::size_t>(index)];
    if (out.mask & LVCF_FMT)
        out.fmt = item.fmt & HDF_JUSTIFYMASK;
    if (out.mask & LVCF_WIDTH)
        out.cx = item.cxy;
    if (out.mask & LVCF_SUBITEM)
        out.iSubItem = column.subItem;
    if (out.mask & LVCF_IMAGE)
        out.iImage = column.image;
    if (out.mask & LVCF_ORDER)
        out.iOrder = item.iOrder;
    return true;
}

bool SetColumn(HWND hwnd, ListViewState& state, int index, const LVCOLUMNW& in) {
    if (index < 0 || index >= ColumnCount(state))
        return false;
    HDITEMW item{};
    if (in.mask & LVCF_FMT) {
        item.mask |= HDI_FORMAT;
        item.fmt = HDF_STRING | (index == 0 ? HDF_LEFT : in.fmt & LVCFMT_JUSTIFYMASK);
    }
    if (in.mask & LVCF_WIDTH) {
        item.mask |= HDI_WIDTH;
        item.cxy = in.cx;
    }
    if (in.mask & LVCF_TEXT) {
        item.mask |= HDI_TEXT;
        item.pszText = in.pszText;
    }
    if (in.mask & LVCF_ORDER) {
        item.mask |= HDI_ORDER;
        item.iOrder = in.iOrder;
    }
    if ((in.mask & LVCF_SUBITEM) && (in.iSubItem < 0 || in.iSubItem >= kMaxColumnSubItem))
        return false;
    ListColumn& column = state.columns[static_cast<std::size_t>(index)];
    if (in.mask & LVCF_SUBITEM)
        column.subItem = std::max(0, in.iSubItem);
    if (in.mask & LVCF_IMAGE)
        column.image = in.iImage;
    if (item.mask)
        SendMessage(state.header, HDM_SETITEMW, static_cast<WPARAM>(index),
                    reinterpret_cast<LPARAM>(&item));
    InvalidateRect(hwnd, nullptr, TRUE);
    return true;
}

bool DeleteColumn(HWND hwnd, ListViewState& state, int index) {
    if (index < 0 || index >= ColumnCount(state))
        return false;
    SendMessage(state.header, HDM_DELETEITEM, static_cast<WPARAM>(index), 0);
    int removed = state.columns[static_cast<std::size_t>(index)].subItem;
    state.columns.erase(state.columns.begin() + index);
    for (ListColumn& column : state.columns)
        if (column.subItem > removed)
            --column.subItem;
    state.texts.EraseSubItem(static_cast<std::size_t>(removed));
    InvalidateRect(hwnd, nullptr, TRUE);
    return true;
}

int ColumnWidth(const ListViewState& state, int index) {
    if (index < 0 || index >= ColumnCount(state))
        return 0;
    HDITEMW item{};
    item.mask = HDI_WIDTH;
    SendMessage(state.header, HDM_GETITEMW, static_cast<WPARAM>(index),
                reinterpret_cast<LPARAM>(&item));
    return item.cxy;
}

bool SetColumnWidth(HWND hwnd, ListViewState& state, int index, int width) {
    if (index < 0 || index >= ColumnCount(state))
        return false;
    if (width == LVSCW_AUTOSIZE || width == LVSCW_AUTOSIZE_USEHEADER)
        width = FitColumnWidth(hwnd, state, index, width == LVSCW_AUTOSIZE_USEHEADER);
    HDITEMW item{};
    item.mask = HDI_WIDTH;
    item.cxy = std::max(0, width);
    SendMessage(state.header, HDM_SETITEMW, static_cast<WPARAM>(index),
                reinterpret_cast<LPARAM>(&item));
    InvalidateRect(hwnd, nullptr, TRUE);
    return true;
}

} // namespace platform::user
