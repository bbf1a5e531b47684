// The combo box's list: the items with the current one highlighted. A click
// on an item picks it (in a drop-down list when the button is released).
#include "ComboBox.h"
#include "ControlPaint.h"

#include <algorithm>

namespace platform::user {

namespace {

constexpr UINT kListId = 1000;

HWND ComboOf(HWND list) {
    return reinterpret_cast<HWND>(GetWindowLongPtr(list, GWLP_USERDATA));
}

// The item under a point of the list's client area; -1 for none.
int ItemAt(HWND list, const ComboState& state, LPARAM lParam) {
    int y = static_cast<short>(HIWORD(lParam));
    RECT client;
    GetClientRect(list, &client);
    int x = static_cast<short>(LOWORD(lParam));
    if (y < 1 || x < 0 || x >= client.right || y >= client.bottom - 1 || state.itemHeight <= 0)
        return -1;
    int index = state.listTop + (y - 1) / state.itemHeight;
    return index < static_cast<int>(state.items.size()) ? index : -1;
}

void Paint(HWND list, const ComboState& state) {
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(list, &ps);
    RECT client;
    GetClientRect(list, &client);
    FillSolid(hdc, client, GetSysColor(COLOR_WINDOW));
    FontScope font(hdc, state.font);
    SetBkMode(hdc, TRANSPARENT);
    bool enabled = IsWindowEnabled(list);
    for (int i = state.listTop; i < static_cast<int>(state.items.size()); ++i) {
        int top = 1 + (i - state.listTop) * state.itemHeight;
        if (top >= client.bottom - 1)
            break;
        RECT row{1, top, client.right - 1,
                 std::min<int>(top + state.itemHeight, client.bottom - 1)};
        bool current = i == state.listCurrent;
        if (current)
            FillSolid(hdc, row, GetSysColor(COLOR_HIGHLIGHT));
        SetTextColor(hdc, !enabled  ? GetSysColor(COLOR_GRAYTEXT)
                          : current ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                                    : GetSysColor(COLOR_WINDOWTEXT));
        RECT text{row.left + 2, row.top, row.right - 2, row.bottom};
        const std::u16string& label = state.items[static_cast<std::size_t>(i)].text;
        DrawText(hdc, label.c_str(), static_cast<int>(label.size()), &text,
                 DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    }
    FrameSolid(hdc, client, 0x646464);
    EndPaint(list, &ps);
}

LRESULT ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
    HWND combo = ComboOf(list);
    ComboState* state = combo ? FindComboState(combo) : nullptr;
    if (!state)
        return DefWindowProc(list, message, wParam, lParam);
    bool popup = (GetWindowLongPtr(list, GWL_STYLE) & WS_CHILD) == 0;
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        Paint(list, *state);
        return 0;
    case WM_MOUSEACTIVATE:
        return 3; // MA_NOACTIVATE: the dialog stays active
    case WM_MOUSEMOVE:
        if (popup) {
            int index = ItemAt(list, *state, lParam);
            if (index >= 0 && index != state->listCurrent) {
                state->listCurrent = index;
                InvalidateRect(list, nullptr, TRUE);
            }
        }
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        int index = ItemAt(list, *state, lParam);
        if (index < 0)
            return 0;
        state->listCurrent = index;
        InvalidateRect(list, nullptr, TRUE);
        if (!popup)
            PickFromList(combo, index);
        return 0;
    }
    case WM_LBUTTONUP:
        if (popup) {
            int index = ItemAt(list, *state, lParam);
            if (index >= 0)
                PickFromList(combo, index);
        }
        return 0;
    default:
        return DefWindowProc(list, message, wParam, lParam);
    }
}

void RegisterListClass() {
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    WNDCLASS wc{};
    wc.lpfnWndProc = ListProc;
    wc.lpszClassName = u"ComboLBox";
    RegisterClass(&wc);
}

} // namespace

HWND CreateComboList(HWND combo, bool popup, const RECT& rect) {
    RegisterListClass();
    DWORD style = popup ? WS_POPUP : (WS_CHILD | WS_VISIBLE);
    HWND list =
        CreateWindowEx(0, u"ComboLBox", u"", style, rect.left, rect.top, rect.right - rect.left,
                       rect.bottom - rect.top, combo,
                       popup ? nullptr : reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kListId)),
                       nullptr, nullptr);
    if (list)
        SetWindowLongPtr(list, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(combo));
    return list;
}

int VisibleItems(HWND list, const ComboState& state) {
    RECT client;
    GetClientRect(list, &client);
    return state.itemHeight > 0 ? std::max(1, int(client.bottom - 2) / state.itemHeight) : 1;
}

} // namespace platform::user
