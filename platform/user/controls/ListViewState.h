// The list view's data: rows with their item data, image, indent and state,
// the texts by row and sub-item number, and the per-column sub-item numbers.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform::user {

struct ListRow {
    LPARAM param = 0;
    int image = 0;
    int indent = 0;
    UINT state = 0;
};

// The texts of all rows in one row-major array of small fixed-size cells, a
// row's sub-items side by side: reading a list row by row walks memory in
// order, as painting and exporting do. A short text lives in its cell; a
// longer one in a shared character pool, where replaced texts leave gaps
// that are squeezed out once they make up half of it. The row width grows to
// the highest sub-item given a text.
class ListTexts {
public:
    std::u16string_view Get(std::size_t item, std::size_t subItem) const {
        if (subItem >= m_width || item >= m_rows)
            return {};
        const Cell& cell = m_cells[item * m_width + subItem];
        if (cell.length <= Cell::kInline)
            return {cell.units, cell.length};
        return {m_pool.data() + cell.offset, cell.length};
    }
    // False when the text cannot be kept (the pool's offsets would overflow).
    bool Set(std::size_t item, std::size_t subItem, const char16_t* text);
    void InsertRow(std::size_t item);
    void EraseRow(std::size_t item);
    // Removes a sub-item: the later ones move down by one.
    void EraseSubItem(std::size_t subItem);
    void Clear();
    // Row i takes the texts of row order[i].
    void Reorder(const std::vector<std::size_t>& order);

private:
    struct Cell {
        static constexpr std::uint32_t kInline = 6;
        std::uint32_t length = 0;
        union {
            char16_t units[kInline];
            std::uint32_t offset; // into the pool, when length > kInline
        };
        Cell() : units{} {}
    };

    void Widen(std::size_t width);
    void Release(const Cell& cell);
    // Copies the pooled texts of cells into a fresh pool, in cell order.
    void Repack(std::vector<Cell>& cells);

    std::vector<Cell> m_cells; // m_rows * m_width
    std::vector<char16_t> m_pool;
    std::size_t m_gaps = 0; // pool units no cell refers to any more
    std::size_t m_rows = 0;
    std::size_t m_width = 0;
};

struct ListColumn {
    int subItem = 0;
    int image = 0;
};

struct ListViewState {
    std::vector<ListRow> rows;
    ListTexts texts;
    std::vector<ListColumn> columns; // text, width, format and order live in the header
    HWND header = nullptr;
    HFONT font = nullptr;
    // The image lists by LVSIL_ kind; report view draws the small one.
    HIMAGELIST images[3] = {nullptr, nullptr, nullptr};
    DWORD exStyle = 0;
    int focus = -1;         // the one item holding LVIS_FOCUSED, or -1
    int selected = 0;       // items holding LVIS_SELECTED
    int top = 0;            // first visible row
    int wheelRemainder = 0; // part of a wheel notch not yet scrolled
    int rowHeight = 17;
    int headerHeight = 24;
    RECT client{}; // kept at each layout, so item invalidation needs no query
    bool hasFocus = false;
    int pressedItem = -2; // item under the last left-button press (-1 none, -2 no press)
    int pressedSubItem = -1;

    std::u16string_view Text(std::size_t item, std::size_t subItem) const {
        return texts.Get(item, subItem);
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
