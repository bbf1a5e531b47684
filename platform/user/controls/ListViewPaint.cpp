// The list view's layout and painting in report mode: the header on top,
// then one row per item of the font's height plus padding, only the visible
// ones drawn.
#include "ControlPaint.h"
#include "ListViewState.h"
#include "TextFit.h"

#include <algorithm>

namespace platform::user {

namespace {

constexpr int kCellPadding = 6;
constexpr int kImageMargin = 2; // left of a small image in the first column
constexpr int kScrollBarWidth = 12;
constexpr COLORREF kGridColor = 0xF0F0F0;
constexpr COLORREF kInactiveSelection = 0xD9D9D9;

int HeaderWidth(HWND header, int index) {
    HDITEMW item{};
    item.mask = HDI_WIDTH | HDI_FORMAT;
    SendMessage(header, HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return item.cxy;
}

std::vector<int> Order(const ListViewState& state) {
    std::vector<int> order(state.columns.size());
    if (!order.empty())
        SendMessage(state.header, HDM_GETORDERARRAY, order.size(),
                    reinterpret_cast<LPARAM>(order.data()));
    return order;
}

UINT Align(HWND header, int index) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    SendMessage(header, HDM_GETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    switch (item.fmt & HDF_JUSTIFYMASK) {
    case HDF_RIGHT:
        return DT_RIGHT;
    case HDF_CENTER:
        return DT_CENTER;
    default:
        return DT_LEFT;
    }
}

} // namespace

void MeasureListView(HWND hwnd, ListViewState& state) {
    HDC hdc = GetDC(hwnd);
    {
        FontScope font(hdc, state.font);
        TEXTMETRICW tm{};
        GetTextMetrics(hdc, &tm);
        state.rowHeight = std::max(1, static_cast<int>(tm.tmHeight) + 4);
        int cx = 0, cy = 0;
        if (ImageList_GetIconSize(state.images[LVSIL_SMALL], &cx, &cy))
            state.rowHeight = std::max(state.rowHeight, cy + 1);
        state.headerHeight = static_cast<int>(tm.tmHeight) + 8;
    }
    ReleaseDC(hwnd, hdc);
}

void LayoutListView(HWND hwnd, ListViewState& state) {
    RECT client;
    GetClientRect(hwnd, &client);
    state.client = client;
    auto style = static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
    bool shown = !(style & LVS_NOCOLUMNHEADER);
    if (!shown)
        state.headerHeight = 0;
    SetWindowPos(state.header, nullptr, 0, 0, client.right, shown ? state.headerHeight : 0,
                 SWP_NOZORDER | SWP_NOACTIVATE | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

int RowsPerPage(HWND hwnd, const ListViewState& state) {
    RECT client;
    GetClientRect(hwnd, &client);
    return std::max(1, (client.bottom - state.headerHeight) / state.rowHeight);
}

bool ColumnSpan(const ListViewState& state, int column, int* left, int* right) {
    long long x = 0;
    for (int index : Order(state)) {
        int width = HeaderWidth(state.header, index);
        if (index == column) {
            *left = DeviceCoord(x);
            *right = DeviceCoord(x + width);
            return true;
        }
        x += width;
    }
    return false;
}

int TotalColumnWidth(const ListViewState& state) {
    long long total = 0;
    for (std::size_t i = 0; i < state.columns.size(); ++i)
        total += HeaderWidth(state.header, static_cast<int>(i));
    return DeviceCoord(total);
}

void InvalidateItem(HWND hwnd, const ListViewState& state, int item) {
    if (item < state.top)
        return;
    const RECT& client = state.client;
    long long y = state.headerHeight + static_cast<long long>(item - state.top) * state.rowHeight;
    if (y >= client.bottom)
        return;
    RECT row{0, static_cast<int>(y), client.right, static_cast<int>(y) + state.rowHeight};
    InvalidateRect(hwnd, &row, TRUE);
}

int FitColumnWidth(HWND hwnd, const ListViewState& state, int column, bool withHeading) {
    auto subItem =
        static_cast<std::size_t>(state.columns[static_cast<std::size_t>(column)].subItem);
    HDC hdc = GetDC(hwnd);
    int widest = 0;
    {
        FontScope font(hdc, state.font);
        SIZE size{};
        for (std::size_t row = 0; row < state.rows.size(); ++row) {
            const std::u16string_view text = state.Text(row, subItem);
            GetTextExtentPoint32(hdc, text.data(), static_cast<int>(text.size()), &size);
            widest = std::max(widest, static_cast<int>(size.cx));
        }
        if (withHeading) {
            WCHAR heading[260] = {};
            HDITEMW item{};
            item.mask = HDI_TEXT;
            item.pszText = heading;
            item.cchTextMax = 260;
            SendMessage(state.header, HDM_GETITEMW, static_cast<WPARAM>(column),
                        reinterpret_cast<LPARAM>(&item));
            GetTextExtentPoint32(hdc, heading, static_cast<int>(std::u16string(heading).size()),
                                 &size);
            widest = std::max(widest, static_cast<int>(size.cx));
        }
    }
    ReleaseDC(hwnd, hdc);
    return widest + 2 * kCellPadding;
}

void PaintListView(HWND hwnd, const ListViewState& state) {
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    RECT client;
    GetClientRect(hwnd, &client);
    RECT body{client.left, state.headerHeight, client.right, client.bottom};
    FillSolid(hdc, body, GetSysColor(COLOR_WINDOW));
    auto style = static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
    bool fullRow = (state.exStyle & LVS_EX_FULLROWSELECT) != 0;
    bool grid = (state.exStyle & LVS_EX_GRIDLINES) != 0;
    bool showSelection = state.hasFocus || (style & LVS_SHOWSELALWAYS);
    std::vector<int> order = Order(state);
    std::vector<int> widths;
    for (int index : order)
        widths.push_back(HeaderWidth(state.header, index));
    std::vector<UINT> aligns;
    for (int index : order)
        aligns.push_back(Align(state.header, index));
    long long sum = 0;
    for (int width : widths)
        sum += width;
    const int total = DeviceCoord(sum);

    FontScope font(hdc, state.font);
    SetBkMode(hdc, TRANSPARENT);
    // The small images go before the first column's text.
    int imageWidth = 0, imageHeight = 0;
    HIMAGELIST images = state.images[LVSIL_SMALL];
    if (!ImageList_GetIconSize(images, &imageWidth, &imageHeight))
        imageWidth = imageHeight = 0;
    int page = RowsPerPage(hwnd, state) + 1;
    int count = static_cast<int>(state.rows.size());
    for (int item = state.top; item < count && item < state.top + page; ++item) {
        const ListRow& row = state.rows[static_cast<std::size_t>(item)];
        int y = state.headerHeight + (item - state.top) * state.rowHeight;
        bool selected = (row.state & LVIS_SELECTED) && showSelection;
        long long x = 0;
        for (std::size_t pos = 0; pos < order.size(); ++pos) {
            int column = order[pos];
            RECT cell{DeviceCoord(x), y, DeviceCoord(x + widths[pos]), y + state.rowHeight};
            x += widths[pos];
            bool highlight = selected && (fullRow || column == 0);
            if (highlight)
                FillSolid(hdc, cell,
                          state.hasFocus ? GetSysColor(COLOR_HIGHLIGHT) : kInactiveSelection);
            SetTextColor(hdc, highlight && state.hasFocus ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                                                          : GetSysColor(COLOR_WINDOWTEXT));
            int indent = column == 0 ? row.indent * 16 : 0;
            if (column == 0 && imageWidth > 0) {
                if (row.image >= 0)
                    ImageList_Draw(images, row.image, hdc, cell.left + kImageMargin + indent,
                                   y + (state.rowHeight - imageHeight) / 2, ILD_NORMAL);
                indent += kImageMargin + imageWidth - kCellPadding / 2;
            }
            RECT text{cell.left + kCellPadding + indent, cell.top, cell.right - kCellPadding,
                      cell.bottom};
            auto subItem =
                static_cast<std::size_t>(state.columns[static_cast<std::size_t>(column)].subItem);
            DrawCellText(hdc, state.Text(static_cast<std::size_t>(item), subItem), text,
                         aligns[pos]);
        }
        if (grid)
            FillSolid(hdc, RECT{0, y + state.rowHeight - 1, total, y + state.rowHeight},
                      kGridColor);
        if (item == state.focus && state.hasFocus) {
            RECT focus{0, y, fullRow ? total : 0, y + state.rowHeight};
            if (!fullRow)
                ColumnSpan(state, 0, &focus.left, &focus.right);
            DottedFrame(hdc, focus, GetSysColor(COLOR_WINDOWTEXT));
        }
    }
    if (grid) {
        long long x = 0;
        int bottom = std::min(static_cast<int>(client.bottom),
                              state.headerHeight + (count - state.top) * state.rowHeight);
        for (int width : widths) {
            x += width;
            FillSolid(hdc, RECT{DeviceCoord(x) - 1, state.headerHeight, DeviceCoord(x), bottom},
                      kGridColor);
        }
    }
    // A plain vertical bar when not every row fits: the track and the thumb.
    int visible = RowsPerPage(hwnd, state);
    if (count > visible) {
        RECT track{client.right - kScrollBarWidth, state.headerHeight, client.right, client.bottom};
        FillSolid(hdc, track, GetSysColor(COLOR_BTNFACE));
        int height = track.bottom - track.top;
        int thumbHeight =
            std::max(8, static_cast<int>(static_cast<long long>(height) * visible / count));
        int thumbTop = track.top + static_cast<int>(static_cast<long long>(height - thumbHeight) *
                                                    state.top / std::max(1, count - visible));
        FillSolid(hdc, RECT{track.left + 2, thumbTop, track.right - 2, thumbTop + thumbHeight},
                  0xC2C2C2);
    }
    EndPaint(hwnd, &ps);
}

} // namespace platform::user
