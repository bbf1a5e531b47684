// The list view's data: rows with their sub-item texts, item data, image,
// indent and state, and the per-column sub-item numbers. Texts are kept by
// sub-item number, so fetching one is an index into two vectors.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

namespace platform::user {

struct ListRow {
    std::vector<std::u16string> texts; // by sub-item number
    LPARAM param = 0;
    int image = 0;
    int indent = 0;
    UINT state = 0;
};

struct ListColumn {
    int subItem = 0;
    int image = 0;
};

struct ListViewState {
    std::vector<ListRow> rows;
    std::vector<ListColumn> columns; // text, width, format and order live in the header
    HWND header = nullptr;
    HFONT font = nullptr;
    DWORD exStyle = 0;
    int focus = -1;   // the one item holding LVIS_FOCUSED, or -1
    int selected = 0; // items holding LVIS_SELECTED
    int top = 0;      // first visible row
    int rowHeight = 17;
    int headerHeight = 24;
    RECT client{}; // kept at each layout, so item invalidation needs no query
    bool hasFocus = false;
    int pressedItem = -2; // item under the last left-button press (-1 none, -2 no press)
    int pressedSubItem = -1;

    static const std::u16string& Empty() {
        static const std::u16string empty;
        return empty;
    }
    const std::u16string& Text(std::size_t item, std::size_t subItem) const {
        const auto& texts = rows[item].texts;
        return subItem < texts.size() ? texts[subItem] : Empty();
    }
    bool ValidItem(int item) const { return item >= 0 && item < static_cast<int>(rows.size()); }
};

// The largest sub-item number a column may show.
constexpr int kMaxColumnSubItem = 1024;

// Column messages (ListViewColumns.cpp); false or -1 for a missing column.
int InsertColumn(HWND hwnd, ListViewState& state, int index, const LVCOLUMNW& in);
bool GetColumn(const ListViewState& state, int index, LVCOLUMNW& out);
bool SetColumn(HWND hwnd, ListViewState& state, int index, const LVCOLUMNW& in);
// Removes the column and its sub-item's texts; later sub-items move down.
bool DeleteColumn(HWND hwnd, ListViewState& state, int index);
int ColumnWidth(const ListViewState& state, int index);
// LVSCW_AUTOSIZE fits the texts, LVSCW_AUTOSIZE_USEHEADER the heading too.
bool SetColumnWidth(HWND hwnd, ListViewState& state, int index, int width);

// Layout and painting (ListViewPaint.cpp).
void MeasureListView(HWND hwnd, ListViewState& state);
void LayoutListView(HWND hwnd, ListViewState& state);
int RowsPerPage(HWND hwnd, const ListViewState& state);
// Column edges in display order: left and right of column index col.
bool ColumnSpan(const ListViewState& state, int column, int* left, int* right);
int TotalColumnWidth(const ListViewState& state);
void PaintListView(HWND hwnd, const ListViewState& state);
// Width of the widest text of a column (and its heading if asked) plus padding.
int FitColumnWidth(HWND hwnd, const ListViewState& state, int column, bool withHeading);
void InvalidateItem(HWND hwnd, const ListViewState& state, int item);

} // namespace platform::user
