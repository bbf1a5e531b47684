// The list view (SysListView32), shown in report mode whatever its view
// style: columns through its header control, items with sub-item texts,
// item data, image, indent and state. LVIS_FOCUSED is held by one item at
// most; in an LVS_SINGLESEL list selecting an item deselects the others.
// Every state change is reported to the parent as LVN_ITEMCHANGED.
#include "ControlState.h"
#include "ListViewState.h"
#include "WheelScroll.h"

#include <algorithm>
#include <numeric>

namespace platform::user {

namespace {

ControlStates<ListViewState>& States() {
    static auto* states = new ControlStates<ListViewState>();
    return *states;
}

LRESULT SendNotify(HWND hwnd, NMHDR& header, UINT code) {
    HWND parent = GetParent(hwnd);
    if (!parent)
        return 0;
    header.hwndFrom = hwnd;
    header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(hwnd));
    header.code = code;
    return SendMessage(parent, WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void NotifyItem(HWND hwnd, UINT code, int item, int subItem, UINT newState, UINT oldState,
                UINT changed, LPARAM param) {
    NMLISTVIEW nm{};
    nm.iItem = item;
    nm.iSubItem = subItem;
    nm.uNewState = newState;
    nm.uOldState = oldState;
    nm.uChanged = changed;
    nm.lParam = param;
    SendNotify(hwnd, nm.hdr, code);
}

void CopyText(std::u16string_view text, LPWSTR buffer, int size, int* copied = nullptr) {
    if (copied)
        *copied = 0;
    if (!buffer || size <= 0)
        return;
    std::size_t count = std::min(text.size(), static_cast<std::size_t>(size - 1));
    const char16_t* from = text.data();
    if (count <= 16) {
        // Most cells are short: a plain loop beats the call into memmove.
        for (std::size_t i = 0; i < count; ++i)
            buffer[i] = from[i];
    } else {
        std::copy_n(from, count, buffer);
    }
    buffer[count] = u'\0';
    if (copied)
        *copied = static_cast<int>(count);
}

// Gives one item its new state, keeping the focus and selection counts, and
// reports the change.
void ApplyState(HWND hwnd, ListViewState& state, int item, UINT newState) {
    ListRow& row = state.rows[static_cast<std::size_t>(item)];
    UINT oldState = row.state;
    if (oldState == newState)
        return;
    row.state = newState;
    if ((oldState ^ newState) & LVIS_SELECTED)
        state.selected += (newState & LVIS_SELECTED) ? 1 : -1;
    if (newState & LVIS_FOCUSED)
        state.focus = item;
    else if (state.focus == item)
        state.focus = -1;
    InvalidateItem(hwnd, state, item);
    NotifyItem(hwnd, LVN_ITEMCHANGED, item, 0, newState, oldState, LVIF_STATE, row.param);
}

void DeselectAllBut(HWND hwnd, ListViewState& state, int keep) {
    for (int i = 0; i < static_cast<int>(state.rows.size()) && state.selected > 0; ++i)
        if (i != keep && (state.rows[static_cast<std::size_t>(i)].state & LVIS_SELECTED))
            ApplyState(hwnd, state, i,
                       state.rows[static_cast<std::size_t>(i)].state &
                           ~static_cast<UINT>(LVIS_SELECTED));
}

// Changes only the bits in mask. Item -1 means every item; the focus is
// not given to all of them.
bool SetState(HWND hwnd, ListViewState& state, int item, UINT bits, UINT mask) {
    if (item == -1) {
        if (bits & LVIS_FOCUSED)
            mask &= ~static_cast<UINT>(LVIS_FOCUSED);
        if ((bits & mask & LVIS_SELECTED) && (GetWindowLongPtr(hwnd, GWL_STYLE) & LVS_SINGLESEL))
            mask &= ~static_cast<UINT>(LVIS_SELECTED);
        for (int i = 0; i < static_cast<int>(state.rows.size()); ++i) {
            UINT old = state.rows[static_cast<std::size_t>(i)].state;
            ApplyState(hwnd, state, i, (old & ~mask) | (bits & mask));
        }
        return true;
    }
    if (!state.ValidItem(item))
        return false;
    UINT old = state.rows[static_cast<std::size_t>(item)].state;
    UINT next = (old & ~mask) | (bits & mask);
    if ((next & LVIS_FOCUSED) && state.focus >= 0 && state.focus != item)
        ApplyState(hwnd, state, state.focus,
                   state.rows[static_cast<std::size_t>(state.focus)].state &
                       ~static_cast<UINT>(LVIS_FOCUSED));
    if ((next & LVIS_SELECTED) && !(old & LVIS_SELECTED) &&
        (GetWindowLongPtr(hwnd, GWL_STYLE) & LVS_SINGLESEL))
        DeselectAllBut(hwnd, state, item);
    ApplyState(hwnd, state, item, next);
    return true;
}

// Sub-items a column can show: texts beyond them are refused, so a wild
// sub-item number cannot make every row grow without bound.
bool SubItemInRange(const ListViewState& state, int subItem) {
    if (subItem < 0)
        return false;
    if (subItem < static_cast<int>(state.columns.size()))
        return true;
    for (const ListColumn& column : state.columns)
        if (column.subItem >= subItem)
            return true;
    return subItem == 0;
}

bool SetItem(HWND hwnd, ListViewState& state, const LVITEMW& in) {
    if (!state.ValidItem(in.iItem) || in.iSubItem < 0)
        return false;
    ListRow& row = state.rows[static_cast<std::size_t>(in.iItem)];
    if (in.iSubItem > 0) {
        if (!(in.mask & LVIF_TEXT) || !SubItemInRange(state, in.iSubItem))
            return false;
        if (!state.texts.Set(static_cast<std::size_t>(in.iItem),
                             static_cast<std::size_t>(in.iSubItem), in.pszText))
            return false;
        InvalidateItem(hwnd, state, in.iItem);
        return true;
    }
    if ((in.mask & LVIF_TEXT) &&
        !state.texts.Set(static_cast<std::size_t>(in.iItem), 0, in.pszText))
        return false;
    if (in.mask & LVIF_IMAGE)
        row.image = in.iImage;
    if (in.mask & LVIF_PARAM)
        row.param = in.lParam;
    if (in.mask & LVIF_INDENT)
        row.indent = in.iIndent;
    InvalidateItem(hwnd, state, in.iItem);
    if (in.mask & LVIF_STATE)
        SetState(hwnd, state, in.iItem, in.state, in.stateMask);
    return true;
}

bool GetItem(const ListViewState& state, LVITEMW& out) {
    if (!state.ValidItem(out.iItem) || out.iSubItem < 0)
        return false;
    const ListRow& row = state.rows[static_cast<std::size_t>(out.iItem)];
    if (out.mask & LVIF_TEXT)
        CopyText(
            state.Text(static_cast<std::size_t>(out.iItem), static_cast<std::size_t>(out.iSubItem)),
            out.pszText, out.cchTextMax);
    if (out.mask & LVIF_IMAGE)
        out.iImage = row.image;
    if (out.mask & LVIF_PARAM)
        out.lParam = row.param;
    if (out.mask & LVIF_INDENT)
        out.iIndent = row.indent;
    if (out.mask & LVIF_STATE)
        out.state = row.state & out.stateMask;
    return true;
}

int InsertItem(HWND hwnd, ListViewState& state, const LVITEMW& in) {
    if (in.iSubItem != 0)
        return -1;
    int index = std::clamp(in.iItem, 0, static_cast<int>(state.rows.size()));
    ListRow row;
    if (in.mask & LVIF_IMAGE)
        row.image = in.iImage;
    if (in.mask & LVIF_PARAM)
        row.param = in.lParam;
    if (in.mask & LVIF_INDENT)
        row.indent = in.iIndent;
    state.rows.insert(state.rows.begin() + index, row);
    state.texts.InsertRow(static_cast<std::size_t>(index));
    if ((in.mask & LVIF_TEXT) && in.pszText)
        state.texts.Set(static_cast<std::size_t>(index), 0, in.pszText);
    if (state.focus >= index)
        ++state.focus;
    if (index < state.top + RowsPerPage(hwnd, state) + 1)
        InvalidateRect(hwnd, nullptr, TRUE);
    NotifyItem(hwnd, LVN_INSERTITEM, index, 0, 0, 0, 0, 0);
    if ((in.mask & LVIF_STATE) && (in.state & in.stateMask))
        SetState(hwnd, state, index, in.state, in.stateMask);
    return index;
}

bool DeleteItem(HWND hwnd, ListViewState& state, int item) {
    if (!state.ValidItem(item))
        return false;
    NotifyItem(hwnd, LVN_DELETEITEM, item, 0, 0, 0, 0,
               state.rows[static_cast<std::size_t>(item)].param);
    if (!state.ValidItem(item))
        return false;
    if (state.rows[static_cast<std::size_t>(item)].state & LVIS_SELECTED)
        --state.selected;
    state.rows.erase(state.rows.begin() + item);
    state.texts.EraseRow(static_cast<std::size_t>(item));
    if (state.focus == item)
        state.focus = -1;
    else if (state.focus > item)
        --state.focus;
    state.top = std::clamp(state.top, 0, std::max(0, static_cast<int>(state.rows.size()) - 1));
    InvalidateRect(hwnd, nullptr, TRUE);
    return true;
}

void DeleteAll(HWND hwnd, ListViewState& state) {
    NotifyItem(hwnd, LVN_DELETEALLITEMS, -1, 0, 0, 0, 0, 0);
    state.rows.clear();
    state.texts.Clear();
    state.focus = -1;
    state.selected = 0;
    state.top = 0;
    InvalidateRect(hwnd, nullptr, TRUE);
}

// A stable merge sort on the item data: items the callback calls equal
// keep the order they had. The comparison sees a snapshot of the item data,
// so a callback that reads the list sees it unchanged until the end.
void SortItems(HWND hwnd, ListViewState& state, PFNLVCOMPARE compare, LPARAM sortParam) {
    std::vector<LPARAM> params(state.rows.size());
    for (std::size_t i = 0; i < state.rows.size(); ++i)
        params[i] = state.rows[i].param;
    std::vector<std::size_t> order(state.rows.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
        return compare(params[a], params[b], sortParam) < 0;
    });
    std::vector<ListRow> sorted;
    sorted.reserve(state.rows.size());
    for (std::size_t index : order)
        sorted.push_back(std::move(state.rows[index]));
    state.rows = std::move(sorted);
    state.texts.Reorder(order);
    state.focus = -1;
    for (std::size_t i = 0; i < state.rows.size(); ++i)
        if (state.rows[i].state & LVIS_FOCUSED)
            state.focus = static_cast<int>(i);
    InvalidateRect(hwnd, nullptr, TRUE);
}

int NextItem(const ListViewState& state, int start, UINT flags) {
    int count = static_cast<int>(state.rows.size());
    if (flags & LVNI_ABOVE)
        return start > 0 && start <= count ? start - 1 : -1;
    UINT wanted = flags & (LVNI_FOCUSED | LVNI_SELECTED | LVNI_CUT | LVNI_DROPHILITED);
    if (wanted == LVNI_FOCUSED)
        return state.focus > start ? state.focus : -1;
    if ((wanted & LVNI_SELECTED) && state.selected == 0)
        return -1;
    for (int i = std::max(start + 1, 0); i < count; ++i)
        if ((state.rows[static_cast<std::size_t>(i)].state & wanted) == wanted)
            return i;
    return -1;
}

// Scrolls by rows (negative: up), never past either end.
void ScrollRows(HWND hwnd, ListViewState& state, int rows) {
    int last = std::max(0, static_cast<int>(state.rows.size()) - RowsPerPage(hwnd, state));
    int top = std::clamp(state.top + rows, 0, last);
    if (top != state.top) {
        state.top = top;
        InvalidateRect(hwnd, nullptr, TRUE);
    }
}

void EnsureVisible(HWND hwnd, ListViewState& state, int item) {
    if (!state.ValidItem(item))
        return;
    int page = RowsPerPage(hwnd, state);
    int top = state.top;
    if (item < top)
        top = item;
    else if (item >= top + page)
        top = item - page + 1;
    if (top != state.top) {
        state.top = top;
        InvalidateRect(hwnd, nullptr, TRUE);
    }
}

// The item and column under a point of the client area.
int HitTest(HWND hwnd, const ListViewState& state, POINT point, int* subItem, UINT* flags) {
    *subItem = -1;
    *flags = LVHT_NOWHERE;
    RECT client;
    GetClientRect(hwnd, &client);
    if (point.y < state.headerHeight) {
        *flags = LVHT_ABOVE;
        return -1;
    }
    if (point.y >= client.bottom) {
        *flags = LVHT_BELOW;
        return -1;
    }
    int item = state.top + (point.y - state.headerHeight) / state.rowHeight;
    if (!state.ValidItem(item) || point.x < 0)
        return -1;
    for (int column = 0; column < static_cast<int>(state.columns.size()); ++column) {
        int left = 0, right = 0;
        if (ColumnSpan(state, column, &left, &right) && point.x >= left && point.x < right) {
            *subItem = column;
            *flags = LVHT_ONITEMLABEL;
            return item;
        }
    }
    return -1;
}

bool ItemRect(HWND hwnd, const ListViewState& state, int item, int subItem, int portion,
              RECT* rect) {
    if (!state.ValidItem(item) || !rect)
        return false;
    int y = state.headerHeight + (item - state.top) * state.rowHeight;
    *rect = RECT{0, y, TotalColumnWidth(state), y + state.rowHeight};
    if (subItem > 0 || portion == LVIR_LABEL) {
        int left = 0, right = 0;
        if (!ColumnSpan(state, subItem, &left, &right))
            return false;
        rect->left = left;
        rect->right = right;
    }
    (void)hwnd;
    return true;
}

void ClickItem(HWND hwnd, ListViewState& state, int item, bool control) {
    if (control) {
        if (!state.ValidItem(item))
            return;
        UINT old = state.rows[static_cast<std::size_t>(item)].state;
        SetState(hwnd, state, item, (old ^ LVIS_SELECTED) | LVIS_FOCUSED,
                 LVIS_SELECTED | LVIS_FOCUSED);
        return;
    }
    DeselectAllBut(hwnd, state, item);
    if (state.ValidItem(item))
        SetState(hwnd, state, item, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

void OnKey(HWND hwnd, ListViewState& state, UINT vk) {
    int count = static_cast<int>(state.rows.size());
    if (count == 0)
        return;
    int page = RowsPerPage(hwnd, state);
    int from = state.focus < 0 ? 0 : state.focus;
    int to = from;
    switch (vk) {
    case VK_UP:
        to = state.focus < 0 ? 0 : from - 1;
        break;
    case VK_DOWN:
        to = state.focus < 0 ? 0 : from + 1;
        break;
    case VK_PRIOR:
        to = from - page;
        break;
    case VK_NEXT:
        to = from + page;
        break;
    case VK_HOME:
        to = 0;
        break;
    case VK_END:
        to = count - 1;
        break;
    case VK_SPACE:
        if (state.focus >= 0)
            ClickItem(hwnd, state, state.focus, GetKeyState(VK_CONTROL) < 0);
        return;
    default:
        return;
    }
    to = std::clamp(to, 0, count - 1);
    if (GetKeyState(VK_CONTROL) < 0)
        SetState(hwnd, state, to, LVIS_FOCUSED, LVIS_FOCUSED);
    else
        ClickItem(hwnd, state, to, false);
    EnsureVisible(hwnd, state, to);
}

// Header notifications go on to the list's parent; a heading click also
// arrives there as LVN_COLUMNCLICK.
LRESULT OnHeaderNotify(HWND hwnd, ListViewState& state, WPARAM wParam, NMHDR* header) {
    HWND parent = GetParent(hwnd);
    LRESULT result =
        parent ? SendMessage(parent, WM_NOTIFY, wParam, reinterpret_cast<LPARAM>(header)) : 0;
    if (header->code == HDN_ITEMCHANGEDW || header->code == HDN_ENDTRACKW)
        InvalidateRect(hwnd, nullptr, TRUE);
    if (header->code == HDN_ITEMCLICKW) {
        auto* nm = reinterpret_cast<NMHEADERW*>(header);
        NotifyItem(hwnd, LVN_COLUMNCLICK, -1, nm->iItem, 0, 0, 0, 0);
    }
    (void)state;
    return result;
}

POINT PointOf(LPARAM lParam) {
    return POINT{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

void NotifyActivate(HWND hwnd, UINT code, int item, int subItem, POINT point) {
    NMITEMACTIVATE nm{};
    nm.iItem = item;
    nm.iSubItem = subItem;
    nm.ptAction = point;
    SendNotify(hwnd, nm.hdr, code);
}

LRESULT OnCreate(HWND hwnd, ListViewState& state) {
    auto style = static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
    DWORD headerStyle = WS_CHILD | HDS_HORZ | ((style & LVS_NOSORTHEADER) ? 0 : HDS_BUTTONS);
    state.header = CreateWindowEx(0, WC_HEADERW, nullptr, headerStyle, 0, 0, 0, 0, hwnd, nullptr,
                                  nullptr, nullptr);
    if (!state.header)
        return -1;
    MeasureListView(hwnd, state);
    LayoutListView(hwnd, state);
    return 0;
}

// LVM_GETITEMTEXT: the characters copied.
LRESULT GetItemText(const ListViewState* state, WPARAM wParam, LPARAM lParam) {
    auto* item = reinterpret_cast<LVITEMW*>(lParam);
    const int index = static_cast<int>(static_cast<INT_PTR>(wParam));
    if (!state || !item || !state->ValidItem(index) || item->iSubItem < 0)
        return 0;
    int copied = 0;
    CopyText(state->Text(static_cast<std::size_t>(index), static_cast<std::size_t>(item->iSubItem)),
             item->pszText, item->cchTextMax, &copied);
    return copied;
}

LRESULT ListMessage(HWND hwnd, ListViewState& state, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* item = reinterpret_cast<LVITEMW*>(lParam);
    auto* column = reinterpret_cast<LVCOLUMNW*>(lParam);
    int index = static_cast<int>(static_cast<INT_PTR>(wParam));
    switch (message) {
    case LVM_GETITEMCOUNT:
        return static_cast<LRESULT>(state.rows.size());
    case LVM_SETITEMCOUNT:
        // Only a hint: room is made for at most a million rows ahead.
        state.rows.reserve(std::min<std::size_t>(wParam, std::size_t{1} << 20));
        return TRUE;
    case LVM_INSERTITEMW:
        return item ? InsertItem(hwnd, state, *item) : -1;
    case LVM_DELETEITEM:
        return DeleteItem(hwnd, state, index);
    case LVM_DELETEALLITEMS:
        DeleteAll(hwnd, state);
        return TRUE;
    case LVM_GETITEMW:
        return item && GetItem(state, *item);
    case LVM_SETITEMW:
        return item && SetItem(hwnd, state, *item);
    case LVM_GETITEMTEXTW:
        return GetItemText(&state, wParam, lParam);
    case LVM_SETITEMTEXTW: {
        if (!item || !state.ValidItem(index) || !SubItemInRange(state, item->iSubItem))
            return FALSE;
        if (!state.texts.Set(static_cast<std::size_t>(index),
                             static_cast<std::size_t>(item->iSubItem), item->pszText))
            return FALSE;
        InvalidateItem(hwnd, state, index);
        return TRUE;
    }
    case LVM_GETITEMSTATE:
        return state.ValidItem(index)
                   ? static_cast<LRESULT>(state.rows[static_cast<std::size_t>(index)].state &
                                          static_cast<UINT>(lParam))
                   : 0;
    case LVM_SETITEMSTATE:
        return item && SetState(hwnd, state, index, item->state, item->stateMask);
    case LVM_GETNEXTITEM:
        return NextItem(state, index, static_cast<UINT>(lParam));
    case LVM_GETSELECTEDCOUNT:
        return state.selected;
    case LVM_SORTITEMS:
        if (!lParam)
            return FALSE;
        SortItems(hwnd, state, reinterpret_cast<PFNLVCOMPARE>(lParam), static_cast<LPARAM>(wParam));
        return TRUE;
    case LVM_ENSUREVISIBLE:
        EnsureVisible(hwnd, state, index);
        return state.ValidItem(index);
    case LVM_SCROLL:
        // lParam pixels down (negative: up), in whole rows.
        ScrollRows(hwnd, state, static_cast<int>(lParam) / state.rowHeight);
        return TRUE;
    case LVM_GETTOPINDEX:
        return state.top;
    case LVM_GETCOUNTPERPAGE:
        return RowsPerPage(hwnd, state);
    case LVM_GETITEMRECT: {
        auto* rect = reinterpret_cast<RECT*>(lParam);
        return rect && ItemRect(hwnd, state, index, 0, rect->left, rect);
    }
    case LVM_GETSUBITEMRECT: {
        auto* rect = reinterpret_cast<RECT*>(lParam);
        return rect && ItemRect(hwnd, state, index, rect->top, rect->left, rect);
    }
    case LVM_HITTEST:
    case LVM_SUBITEMHITTEST: {
        auto* info = reinterpret_cast<LVHITTESTINFO*>(lParam);
        if (!info)
            return -1;
        info->iItem = HitTest(hwnd, state, info->pt, &info->iSubItem, &info->flags);
        if (message == LVM_HITTEST)
            info->iSubItem = 0;
        return info->iItem;
    }
    case LVM_SETEXTENDEDLISTVIEWSTYLE: {
        DWORD old = state.exStyle;
        DWORD mask = wParam ? static_cast<DWORD>(wParam) : 0xFFFFFFFFu;
        state.exStyle = (old & ~mask) | (static_cast<DWORD>(lParam) & mask);
        InvalidateRect(hwnd, nullptr, TRUE);
        return old;
    }
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
        return state.exStyle;
    case LVM_INSERTCOLUMNW:
        return column ? InsertColumn(hwnd, state, index, *column) : -1;
    case LVM_GETCOLUMNW:
        return column && GetColumn(state, index, *column);
    case LVM_SETCOLUMNW:
        return column && SetColumn(hwnd, state, index, *column);
    case LVM_DELETECOLUMN:
        return DeleteColumn(hwnd, state, index);
    case LVM_GETCOLUMNWIDTH:
        return ColumnWidth(state, index);
    case LVM_SETCOLUMNWIDTH:
        return SetColumnWidth(hwnd, state, index, static_cast<short>(LOWORD(lParam)));
    case LVM_GETHEADER:
        return reinterpret_cast<LRESULT>(state.header);
    case LVM_GETIMAGELIST:
        return wParam <= LVSIL_STATE ? reinterpret_cast<LRESULT>(state.images[wParam]) : 0;
    case LVM_SETIMAGELIST: {
        if (wParam > LVSIL_STATE)
            return 0;
        HIMAGELIST previous = state.images[wParam];
        state.images[wParam] = reinterpret_cast<HIMAGELIST>(lParam);
        MeasureListView(hwnd, state);
        InvalidateRect(hwnd, nullptr, TRUE);
        return reinterpret_cast<LRESULT>(previous);
    }
    case LVM_GETCOLUMNORDERARRAY:
        return SendMessage(state.header, HDM_GETORDERARRAY, wParam, lParam);
    case LVM_SETCOLUMNORDERARRAY: {
        LRESULT done = SendMessage(state.header, HDM_SETORDERARRAY, wParam, lParam);
        InvalidateRect(hwnd, nullptr, TRUE);
        return done;
    }
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

LRESULT ListViewProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE)
        States().Create(hwnd);
    ListViewState* state = States().Find(hwnd);
    if (!state)
        return DefWindowProc(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_NCDESTROY:
        if (!(GetWindowLongPtr(hwnd, GWL_STYLE) & LVS_SHAREIMAGELISTS))
            for (HIMAGELIST list : state->images)
                if (list)
                    ImageList_Destroy(list);
        States().Erase(hwnd);
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_CREATE:
        return OnCreate(hwnd, *state);
    case WM_SIZE:
        LayoutListView(hwnd, *state);
        InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_SETFONT:
        state->font = reinterpret_cast<HFONT>(wParam);
        SendMessage(state->header, WM_SETFONT, wParam, lParam);
        MeasureListView(hwnd, *state);
        LayoutListView(hwnd, *state);
        if (lParam)
            InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state->font);
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
        state->hasFocus = message == WM_SETFOCUS;
        InvalidateRect(hwnd, nullptr, TRUE);
        NMHDR nm{};
        SendNotify(hwnd, nm, state->hasFocus ? NM_SETFOCUS : NM_KILLFOCUS);
        return 0;
    }
    case WM_LBUTTONDOWN: {
        if (GetFocus() != hwnd)
            SetFocus(hwnd);
        POINT point = PointOf(lParam);
        UINT flags = 0;
        int subItem = -1;
        int hit = HitTest(hwnd, *state, point, &subItem, &flags);
        state->pressedItem = hit;
        state->pressedSubItem = subItem;
        ClickItem(hwnd, *state, hit, (wParam & MK_CONTROL) != 0);
        return 0;
    }
    case WM_LBUTTONUP: {
        if (state->pressedItem == -2)
            return 0;
        int hit = state->pressedItem;
        state->pressedItem = -2;
        NotifyActivate(hwnd, NM_CLICK, hit, state->pressedSubItem, PointOf(lParam));
        return 0;
    }
    case WM_LBUTTONDBLCLK: {
        UINT flags = 0;
        int subItem = -1;
        POINT point = PointOf(lParam);
        int hit = HitTest(hwnd, *state, point, &subItem, &flags);
        NotifyActivate(hwnd, NM_DBLCLK, hit, subItem, point);
        return 0;
    }
    case WM_KEYDOWN:
        OnKey(hwnd, *state, static_cast<UINT>(wParam));
        return 0;
    case WM_MOUSEWHEEL:
        ScrollRows(hwnd, *state, WheelRows(state->wheelRemainder, GET_WHEEL_DELTA_WPARAM(wParam)));
        return 0;
    case WM_NOTIFY: {
        auto* header = reinterpret_cast<NMHDR*>(lParam);
        if (header && header->hwndFrom == state->header)
            return OnHeaderNotify(hwnd, *state, wParam, header);
        return 0;
    }
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        PaintListView(hwnd, *state);
        return 0;
    default:
        if (message >= LVM_FIRST && message < LVM_FIRST + 0x100)
            return ListMessage(hwnd, *state, message, wParam, lParam);
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

} // namespace

LRESULT ListViewClassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    // Reading a cell's text is what a list is asked most, a cell at a time
    // over whole lists: answered here, without the frame of the general path.
    if (message == LVM_GETITEMTEXTW) {
        return GetItemText(States().Find(hwnd), wParam, lParam);
    }
    return ListViewProc(hwnd, message, wParam, lParam);
}

} // namespace platform::user
