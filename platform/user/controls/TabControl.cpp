// The tab control (SysTabControl32): items with a text and an item data, one
// of them selected. A click on another tab, or Left and Right while the
// control has the focus, asks the parent first with TCN_SELCHANGING (a
// non-zero answer keeps the selection), then selects and sends
// TCN_SELCHANGE. TCM_SETCURSEL selects without asking.
#include "TabControl.h"
#include "ControlPaint.h"
#include "ControlState.h"
#include "Controls.h"

#include <commctrl.h>

#include <algorithm>

namespace platform::user {

namespace {

using tabs::TabItem;
using tabs::TabState;

ControlStates<TabState>& States() {
    static auto* states = new ControlStates<TabState>();
    return *states;
}

LRESULT Notify(HWND hwnd, UINT code) {
    HWND parent = GetParent(hwnd);
    if (!parent)
        return 0;
    NMHDR nm{};
    nm.hwndFrom = hwnd;
    nm.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(hwnd));
    nm.code = code;
    return SendMessage(parent, WM_NOTIFY, nm.idFrom, reinterpret_cast<LPARAM>(&nm));
}

bool ValidIndex(const TabState& state, WPARAM index) {
    return static_cast<intptr_t>(index) >= 0 && index < state.items.size();
}

// The user's change of selection, which the parent may refuse.
void SelectByUser(HWND hwnd, TabState& state, int index) {
    if (index == state.selected || index < 0 || index >= static_cast<int>(state.items.size()))
        return;
    if (Notify(hwnd, TCN_SELCHANGING))
        return;
    // The parent's handler may have changed the items.
    if (!IsWindow(hwnd) || index >= static_cast<int>(state.items.size()))
        return;
    state.selected = index;
    state.focusItem = index;
    InvalidateRect(hwnd, nullptr, TRUE);
    Notify(hwnd, TCN_SELCHANGE);
}

void CopyText(const std::u16string& text, LPWSTR buffer, int size) {
    if (!buffer || size <= 0)
        return;
    std::size_t count = std::min(text.size(), static_cast<std::size_t>(size - 1));
    std::copy_n(text.data(), count, buffer);
    buffer[count] = u'\0';
}

void Apply(TabItem& item, const TCITEMW& in) {
    if (in.mask & TCIF_TEXT)
        item.text = in.pszText ? std::u16string(in.pszText) : std::u16string();
    if (in.mask & TCIF_PARAM)
        item.param = in.lParam;
    if (in.mask & TCIF_IMAGE)
        item.image = in.iImage;
    if (in.mask & TCIF_STATE)
        item.state = (item.state & ~in.dwStateMask) | (in.dwState & in.dwStateMask);
}

LRESULT InsertItem(HWND hwnd, TabState& state, WPARAM at, const TCITEMW* in) {
    if (!in || static_cast<intptr_t>(at) < 0)
        return -1;
    int index = static_cast<int>(std::min<std::size_t>(at, state.items.size()));
    TabItem item;
    Apply(item, *in);
    state.items.insert(state.items.begin() + index, std::move(item));
    // The first item becomes the selection; a later one before it moves it.
    if (state.selected < 0)
        state.selected = index;
    else if (index <= state.selected)
        ++state.selected;
    InvalidateRect(hwnd, nullptr, TRUE);
    return index;
}

BOOL DeleteItem(HWND hwnd, TabState& state, WPARAM at) {
    if (!ValidIndex(state, at))
        return FALSE;
    int index = static_cast<int>(at);
    state.items.erase(state.items.begin() + index);
    if (index == state.selected)
        state.selected = -1;
    else if (index < state.selected)
        --state.selected;
    state.focusItem = state.selected;
    InvalidateRect(hwnd, nullptr, TRUE);
    return TRUE;
}

LRESULT HandleItemMessage(HWND hwnd, TabState& state, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case TCM_GETITEMCOUNT:
        return static_cast<LRESULT>(state.items.size());
    case TCM_INSERTITEMW:
        return InsertItem(hwnd, state, wParam, reinterpret_cast<const TCITEMW*>(lParam));
    case TCM_GETITEMW: {
        auto* out = reinterpret_cast<TCITEMW*>(lParam);
        if (!out || !ValidIndex(state, wParam))
            return FALSE;
        const TabItem& item = state.items[wParam];
        if (out->mask & TCIF_TEXT)
            CopyText(item.text, out->pszText, out->cchTextMax);
        if (out->mask & TCIF_PARAM)
            out->lParam = item.param;
        if (out->mask & TCIF_IMAGE)
            out->iImage = item.image;
        if (out->mask & TCIF_STATE)
            out->dwState = item.state & out->dwStateMask;
        return TRUE;
    }
    case TCM_SETITEMW: {
        auto* in = reinterpret_cast<const TCITEMW*>(lParam);
        if (!in || !ValidIndex(state, wParam))
            return FALSE;
        Apply(state.items[wParam], *in);
        InvalidateRect(hwnd, nullptr, TRUE);
        return TRUE;
    }
    case TCM_DELETEITEM:
        return DeleteItem(hwnd, state, wParam);
    case TCM_DELETEALLITEMS:
        state.items.clear();
        state.selected = state.focusItem = -1;
        InvalidateRect(hwnd, nullptr, TRUE);
        return TRUE;
    default:
        return 0;
    }
}

LRESULT HandleSelectionMessage(HWND hwnd, TabState& state, UINT message, WPARAM wParam,
                               LPARAM lParam) {
    switch (message) {
    case TCM_GETCURSEL:
        return state.selected;
    case TCM_SETCURSEL: {
        if (!ValidIndex(state, wParam))
            return -1;
        int previous = state.selected;
        state.selected = state.focusItem = static_cast<int>(wParam);
        if (previous != state.selected)
            InvalidateRect(hwnd, nullptr, TRUE);
        return previous;
    }
    case TCM_GETCURFOCUS:
        return state.focusItem >= 0 ? state.focusItem : state.selected;
    case TCM_SETCURFOCUS:
        // Without TCS_BUTTONS the focus item is the selection, chosen as
        // the user would choose it.
        if (ValidIndex(state, wParam))
            SelectByUser(hwnd, state, static_cast<int>(wParam));
        return 0;
    case TCM_GETITEMRECT: {
        auto* rect = reinterpret_cast<RECT*>(lParam);
        if (!rect || !ValidIndex(state, wParam))
            return FALSE;
        *rect = tabs::ItemRects(hwnd, state)[wParam];
        return TRUE;
    }
    case TCM_HITTEST: {
        auto* info = reinterpret_cast<TCHITTESTINFO*>(lParam);
        if (!info)
            return -1;
        int index = tabs::HitTest(hwnd, state, info->pt);
        info->flags = index < 0 ? TCHT_NOWHERE : TCHT_ONITEMLABEL;
        return index;
    }
    case TCM_ADJUSTRECT:
        if (lParam)
            tabs::AdjustRect(hwnd, state, wParam != 0, reinterpret_cast<RECT*>(lParam));
        return 0;
    case TCM_GETROWCOUNT:
        return state.items.empty() ? 0 : 1;
    default:
        return 0;
    }
}

LRESULT TabProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE)
        States().Create(hwnd);
    TabState* state = States().Find(hwnd);
    if (!state)
        return DefWindowProc(hwnd, message, wParam, lParam);
    if (message >= TCM_FIRST && message <= TCM_INSERTITEMW) {
        if (message == TCM_GETITEMCOUNT || message == TCM_INSERTITEMW || message == TCM_GETITEMW ||
            message == TCM_SETITEMW || message == TCM_DELETEITEM || message == TCM_DELETEALLITEMS)
            return HandleItemMessage(hwnd, *state, message, wParam, lParam);
        return HandleSelectionMessage(hwnd, *state, message, wParam, lParam);
    }
    switch (message) {
    case WM_NCDESTROY:
        States().Erase(hwnd);
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS;
    case WM_SETFONT:
        state->font = reinterpret_cast<HFONT>(wParam);
        if (lParam)
            InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state->font);
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        tabs::Paint(hwnd, *state);
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        state->focused = message == WM_SETFOCUS;
        InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_ENABLE:
        InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_LBUTTONDOWN: {
        POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        int index = tabs::HitTest(hwnd, *state, point);
        if (index >= 0 && (GetWindowLongPtr(hwnd, GWL_STYLE) & TCS_FOCUSONBUTTONDOWN))
            SetFocus(hwnd);
        SelectByUser(hwnd, *state, index);
        return 0;
    }
    case WM_KEYDOWN:
        if (wParam == VK_LEFT && state->selected > 0)
            SelectByUser(hwnd, *state, state->selected - 1);
        else if (wParam == VK_RIGHT)
            SelectByUser(hwnd, *state, state->selected + 1);
        return 0;
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

} // namespace

bool IsTabControl(HWND hwnd) {
    return States().Find(hwnd) != nullptr;
}

LRESULT TabControlClassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return TabProc(hwnd, message, wParam, lParam);
}

} // namespace platform::user
