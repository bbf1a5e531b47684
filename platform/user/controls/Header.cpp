// The header control (SysHeader32): a row of column headings with widths,
// formats and a display order. A click on a heading sends HDN_ITEMCLICK; a
// press near a divider drags the width of the column left of it, sending
// HDN_BEGINTRACK, HDN_TRACK for each move, HDN_ENDTRACK, and
// HDN_ITEMCHANGING/HDN_ITEMCHANGED for each width change.
#include "ControlPaint.h"
#include "ControlState.h"
#include "TextFit.h"

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

namespace platform::user {

namespace {

constexpr int kDividerGrip = 4; // pixels either side of a divider that grab it

struct HeaderItem {
    std::u16string text;
    int width = 0;
    int format = HDF_LEFT | HDF_STRING;
    LPARAM param = 0;
};

struct HeaderState {
    std::vector<HeaderItem> items;
    std::vector<int> order; // display position -> item index
    HFONT font = nullptr;
    int pressed = -1;   // heading pressed by the left button
    int tracking = -1;  // item whose divider is being dragged
    int trackStart = 0; // left edge of the tracked item
};

ControlStates<HeaderState>& States() {
    static auto* states = new ControlStates<HeaderState>();
    return *states;
}

LRESULT Notify(HWND hwnd, UINT code, int item, HDITEMW* changed) {
    HWND parent = GetParent(hwnd);
    if (!parent)
        return 0;
    NMHEADERW nm{};
    nm.hdr.hwndFrom = hwnd;
    nm.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(hwnd));
    nm.hdr.code = code;
    nm.iItem = item;
    nm.iButton = 0;
    nm.pitem = changed;
    return SendMessage(parent, WM_NOTIFY, nm.hdr.idFrom, reinterpret_cast<LPARAM>(&nm));
}

int PositionOf(const HeaderState& state, int item) {
    auto it = std::find(state.order.begin(), state.order.end(), item);
    return it == state.order.end() ? -1 : static_cast<int>(it - state.order.begin());
}

RECT ItemRect(HWND hwnd, const HeaderState& state, int item) {
    RECT client;
    GetClientRect(hwnd, &client);
    long long x = 0;
    for (int index : state.order) {
        int width = state.items[static_cast<std::size_t>(index)].width;
        if (index == item)
            return RECT{DeviceCoord(x), 0, DeviceCoord(x + width), client.bottom};
        x += width;
    }
    return RECT{0, 0, 0, 0};
}

// The heading under x, and whether x is on the divider at its right edge.
// A divider takes precedence over the heading to its right.
int HitTest(const HeaderState& state, int x, bool* onDivider) {
    *onDivider = false;
    long long left = 0;
    for (std::size_t pos = 0; pos < state.order.size(); ++pos) {
        int index = state.order[pos];
        long long right = left + state.items[static_cast<std::size_t>(index)].width;
        if (x >= right - kDividerGrip && x < right + kDividerGrip) {
            *onDivider = true;
            return index;
        }
        if (x >= left && x < right)
            return index;
        left = right;
    }
    return -1;
}

void CopyText(const std::u16string& text, LPWSTR buffer, int size) {
    if (!buffer || size <= 0)
        return;
    std::size_t count = std::min(text.size(), static_cast<std::size_t>(size - 1));
    std::copy_n(text.data(), count, buffer);
    buffer[count] = u'\0';
}

// Applies the masked fields; sends HDN_ITEMCHANGING first (a non-zero
// answer refuses the change) and HDN_ITEMCHANGED after.
bool SetItem(HWND hwnd, HeaderState& state, int index, const HDITEMW& in, bool notify) {
    if (index < 0 || index >= static_cast<int>(state.items.size()))
        return false;
    HDITEMW copy = in;
    if (notify && Notify(hwnd, HDN_ITEMCHANGINGW, index, &copy))
        return false;
    HeaderItem& item = state.items[static_cast<std::size_t>(index)];
    if (in.mask & HDI_TEXT)
        item.text = in.pszText ? std::u16string(in.pszText) : std::u16string();
    if (in.mask & HDI_WIDTH)
        item.width = std::max(0, in.cxy);
    if (in.mask & HDI_FORMAT)
        item.format = in.fmt;
    if (in.mask & HDI_LPARAM)
        item.param = in.lParam;
    if ((in.mask & HDI_ORDER) && in.iOrder >= 0 &&
        in.iOrder < static_cast<int>(state.order.size())) {
        state.order.erase(state.order.begin() + PositionOf(state, index));
        state.order.insert(state.order.begin() + in.iOrder, index);
    }
    InvalidateRect(hwnd, nullptr, TRUE);
    if (notify)
        Notify(hwnd, HDN_ITEMCHANGEDW, index, &copy);
    return true;
}

int InsertItem(HWND hwnd, HeaderState& state, int index, const HDITEMW& in) {
    index = std::clamp(index, 0, static_cast<int>(state.items.size()));
    HeaderItem item;
    if (in.mask & HDI_TEXT)
        item.text = in.pszText ? std::u16string(in.pszText) : std::u16string();
    if (in.mask & HDI_WIDTH)
        item.width = std::max(0, in.cxy);
    if (in.mask & HDI_FORMAT)
        item.format = in.fmt;
    if (in.mask & HDI_LPARAM)
        item.param = in.lParam;
    state.items.insert(state.items.begin() + index, std::move(item));
    for (int& entry : state.order)
        if (entry >= index)
            ++entry;
    int position = static_cast<int>(state.order.size());
    if ((in.mask & HDI_ORDER) && in.iOrder >= 0 && in.iOrder < position)
        position = in.iOrder;
    state.order.insert(state.order.begin() + position, index);
    InvalidateRect(hwnd, nullptr, TRUE);
    return index;
}

bool DeleteItem(HWND hwnd, HeaderState& state, int index) {
    if (index < 0 || index >= static_cast<int>(state.items.size()))
        return false;
    state.items.erase(state.items.begin() + index);
    state.order.erase(state.order.begin() + PositionOf(state, index));
    for (int& entry : state.order)
        if (entry > index)
            --entry;
    InvalidateRect(hwnd, nullptr, TRUE);
    return true;
}

bool GetItem(const HeaderState& state, int index, HDITEMW& out) {
    if (index < 0 || index >= static_cast<int>(state.items.size()))
        return false;
    const HeaderItem& item = state.items[static_cast<std::size_t>(index)];
    if (out.mask & HDI_TEXT)
        CopyText(item.text, out.pszText, out.cchTextMax);
    if (out.mask & HDI_WIDTH)
        out.cxy = item.width;
    if (out.mask & HDI_FORMAT)
        out.fmt = item.format;
    if (out.mask & HDI_LPARAM)
        out.lParam = item.param;
    if (out.mask & HDI_ORDER)
        out.iOrder = PositionOf(state, index);
    return true;
}

// A permutation of 0..n-1 is the only acceptable order.
bool SetOrder(HWND hwnd, HeaderState& state, int count, const int* order) {
    if (!order || count != static_cast<int>(state.items.size()))
        return false;
    std::vector<int> next(order, order + count);
    std::vector<int> sorted = next;
    std::sort(sorted.begin(), sorted.end());
    for (int i = 0; i < count; ++i)
        if (sorted[static_cast<std::size_t>(i)] != i)
            return false;
    state.order = std::move(next);
    InvalidateRect(hwnd, nullptr, TRUE);
    return true;
}

void Paint(HWND hwnd, const HeaderState& state) {
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    RECT client;
    GetClientRect(hwnd, &client);
    FillSolid(hdc, client, GetSysColor(COLOR_WINDOW));
    FontScope font(hdc, state.font);
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, GetSysColor(COLOR_BTNTEXT));
    const COLORREF divider = 0xE5E5E5;
    long long x = 0;
    for (int index : state.order) {
        const HeaderItem& item = state.items[static_cast<std::size_t>(index)];
        RECT cell{DeviceCoord(x), client.top, DeviceCoord(x + item.width), client.bottom};
        if (index == state.pressed)
            FillSolid(hdc, cell, 0xF7E4CC);
        RECT text{cell.left + 6, cell.top, cell.right - 6, cell.bottom};
        UINT align = (item.format & HDF_JUSTIFYMASK) == HDF_RIGHT    ? DT_RIGHT
                     : (item.format & HDF_JUSTIFYMASK) == HDF_CENTER ? DT_CENTER
                                                                     : DT_LEFT;
        DrawCellText(hdc, item.text, text, align);
        if (item.width > 0)
            FillSolid(hdc, RECT{cell.right - 1, cell.top, cell.right, cell.bottom}, divider);
        x += item.width;
    }
    FillSolid(hdc, RECT{client.left, client.bottom - 1, client.right, client.bottom}, divider);
    EndPaint(hwnd, &ps);
}

void TrackTo(HWND hwnd, HeaderState& state, int x) {
    if (state.tracking >= static_cast<int>(state.items.size()))
        return;
    HDITEMW change{};
    change.mask = HDI_WIDTH;
    change.cxy = std::max(0, x - state.trackStart);
    if (Notify(hwnd, HDN_TRACKW, state.tracking, &change))
        return;
    SetItem(hwnd, state, state.tracking, change, true);
}

void OnButtonDown(HWND hwnd, HeaderState& state, POINT point) {
    bool onDivider = false;
    int item = HitTest(state, point.x, &onDivider);
    if (item < 0)
        return;
    if (onDivider) {
        HDITEMW current{};
        current.mask = HDI_WIDTH;
        current.cxy = state.items[static_cast<std::size_t>(item)].width;
        if (Notify(hwnd, HDN_BEGINTRACKW, item, &current))
            return;
        state.tracking = item;
        state.trackStart = ItemRect(hwnd, state, item).left;
        SetCapture(hwnd);
        return;
    }
    if (GetWindowLongPtr(hwnd, GWL_STYLE) & HDS_BUTTONS) {
        state.pressed = item;
        SetCapture(hwnd);
        InvalidateRect(hwnd, nullptr, TRUE);
    }
}

void OnButtonUp(HWND hwnd, HeaderState& state, POINT point) {
    if (state.tracking >= 0) {
        int item = state.tracking;
        TrackTo(hwnd, state, point.x);
        state.tracking = -1;
        ReleaseCapture();
        // A handler of the track notifications may have removed the column.
        if (item >= static_cast<int>(state.items.size()))
            return;
        HDITEMW final{};
        final.mask = HDI_WIDTH;
        final.cxy = state.items[static_cast<std::size_t>(item)].width;
        Notify(hwnd, HDN_ENDTRACKW, item, &final);
        return;
    }
    if (state.pressed < 0)
        return;
    int item = state.pressed;
    state.pressed = -1;
    ReleaseCapture();
    InvalidateRect(hwnd, nullptr, TRUE);
    bool onDivider = false;
    if (HitTest(state, point.x, &onDivider) == item && !onDivider)
        Notify(hwnd, HDN_ITEMCLICKW, item, nullptr);
}

POINT PointOf(LPARAM lParam) {
    return POINT{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

LRESULT HeaderProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE)
        States().Create(hwnd);
    HeaderState* state = States().Find(hwnd);
    if (!state)
        return DefWindowProc(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_NCDESTROY:
        States().Erase(hwnd);
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_SETFONT:
        state->font = reinterpret_cast<HFONT>(wParam);
        if (lParam)
            InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state->font);
    case HDM_GETITEMCOUNT:
        return static_cast<LRESULT>(state->items.size());
    case HDM_INSERTITEMW:
        if (!lParam)
            return -1;
        return InsertItem(hwnd, *state, static_cast<int>(wParam),
                          *reinterpret_cast<const HDITEMW*>(lParam));
    case HDM_DELETEITEM:
        return DeleteItem(hwnd, *state, static_cast<int>(wParam));
    case HDM_GETITEMW:
        return lParam &&
               GetItem(*state, static_cast<int>(wParam), *reinterpret_cast<HDITEMW*>(lParam));
    case HDM_SETITEMW:
        return lParam && SetItem(hwnd, *state, static_cast<int>(wParam),
                                 *reinterpret_cast<const HDITEMW*>(lParam), true);
    case HDM_GETITEMRECT: {
        int index = static_cast<int>(wParam);
        if (!lParam || index < 0 || index >= static_cast<int>(state->items.size()))
            return FALSE;
        *reinterpret_cast<RECT*>(lParam) = ItemRect(hwnd, *state, index);
        return TRUE;
    }
    case HDM_HITTEST: {
        if (!lParam)
            return -1;
        auto* info = reinterpret_cast<HDHITTESTINFO*>(lParam);
        bool onDivider = false;
        info->iItem = HitTest(*state, info->pt.x, &onDivider);
        info->flags = info->iItem < 0 ? HHT_NOWHERE : onDivider ? HHT_ONDIVIDER : HHT_ONHEADER;
        return info->iItem;
    }
    case HDM_ORDERTOINDEX: {
        auto position = static_cast<std::size_t>(wParam);
        return position < state->order.size() ? state->order[position]
                                              : static_cast<LRESULT>(wParam);
    }
    case HDM_GETORDERARRAY: {
        if (!lParam || wParam != state->order.size())
            return FALSE;
        std::copy(state->order.begin(), state->order.end(), reinterpret_cast<int*>(lParam));
        return TRUE;
    }
    case HDM_SETORDERARRAY:
        return SetOrder(hwnd, *state, static_cast<int>(wParam),
                        reinterpret_cast<const int*>(lParam));
    case WM_LBUTTONDOWN:
        OnButtonDown(hwnd, *state, PointOf(lParam));
        return 0;
    case WM_MOUSEMOVE:
        if (state->tracking >= 0)
            TrackTo(hwnd, *state, PointOf(lParam).x);
        return 0;
    case WM_LBUTTONUP:
        OnButtonUp(hwnd, *state, PointOf(lParam));
        return 0;
    case WM_CAPTURECHANGED:
        state->pressed = -1;
        state->tracking = -1;
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        Paint(hwnd, *state);
        return 0;
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

} // namespace

LRESULT HeaderClassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return HeaderProc(hwnd, message, wParam, lParam);
}

} // namespace platform::user
