// The COMBOBOX class: a selection field (an edit field, or for a drop-down
// list the chosen item's text) over a list of items that is always shown
// (CBS_SIMPLE) or drops down on demand. A user's pick sends CBN_SELCHANGE
// while the field still shows the old text, then the field takes the item's
// text; typing in the field sends CBN_EDITUPDATE and CBN_EDITCHANGE. Changes
// made by messages notify nothing.
#include "ComboBox.h"

#include "ControlPaint.h"
#include "ControlState.h"
#include "Controls.h"
#include "WheelScroll.h"

#include <algorithm>

namespace platform::user {

namespace {

constexpr UINT kEditId = 1001;
constexpr int kArrowWidth = 17;
constexpr int kPageItems = 8;

ControlStates<ComboState>& States() {
    static auto* states = new ControlStates<ComboState>();
    return *states;
}

DWORD Type(HWND combo) {
    return static_cast<DWORD>(GetWindowLongPtr(combo, GWL_STYLE)) & 0x3;
}

bool HasEdit(HWND combo) {
    return Type(combo) == CBS_SIMPLE || Type(combo) == CBS_DROPDOWN;
}

int ItemCount(const ComboState& state) {
    return static_cast<int>(state.items.size());
}

// Invalidates a window and everything inside it.
void InvalidateTree(HWND hwnd) {
    InvalidateRect(hwnd, nullptr, TRUE);
    for (HWND child = GetWindow(hwnd, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        InvalidateTree(child);
}

// The combo box draws under its edit field, so the field is drawn again too.
void Redraw(HWND hwnd) {
    InvalidateTree(hwnd);
}

int LineHeight(HWND combo, HFONT font) {
    HDC hdc = GetDC(combo);
    TEXTMETRIC tm{};
    {
        FontScope scope(hdc, font);
        GetTextMetrics(hdc, &tm);
    }
    ReleaseDC(combo, hdc);
    return std::max<int>(tm.tmHeight, 1);
}

RECT ArrowRect(HWND combo, const ComboState& state) {
    RECT client;
    GetClientRect(combo, &client);
    return RECT{client.right - kArrowWidth - 1, 1, client.right - 1, state.fieldHeight - 1};
}

// Sizes the field, the edit field inside it and a simple combo box's list.
void Layout(HWND combo, ComboState& state) {
    int line = LineHeight(combo, state.font);
    state.fieldHeight = line + 8;
    state.itemHeight = line + 2;
    RECT rect;
    GetWindowRect(combo, &rect);
    int width = rect.right - rect.left;
    if (Type(combo) != CBS_SIMPLE && rect.bottom - rect.top != state.fieldHeight) {
        POINT origin{rect.left, rect.top};
        if (HWND parent = GetParent(combo))
            ScreenToClient(parent, &origin);
        MoveWindow(combo, origin.x, origin.y, width, state.fieldHeight, TRUE);
    }
    if (state.edit) {
        int right = Type(combo) == CBS_SIMPLE ? width - 2 : width - kArrowWidth - 2;
        MoveWindow(state.edit, 2, 2, std::max(right - 2, 0), state.fieldHeight - 4, TRUE);
    }
    if (Type(combo) == CBS_SIMPLE && state.list)
        MoveWindow(state.list, 0, state.fieldHeight, width,
                   std::max(state.fullHeight - state.fieldHeight, state.itemHeight + 2), TRUE);
}

std::u16string FieldText(const ComboState& state) {
    if (!state.edit)
        return state.text;
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(state.edit)), u'\0');
    if (!text.empty())
        GetWindowText(state.edit, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

// Sets the field's text without the edit field's notifications reaching the
// parent as the user's.
void SetFieldText(HWND combo, ComboState& state, const std::u16string& text) {
    if (state.edit) {
        state.settingText = true;
        SetWindowText(state.edit, text.c_str());
        state.settingText = false;
        if (state.focused)
            SendMessage(state.edit, EM_SETSEL, 0, -1);
    } else {
        state.text = text;
    }
    Redraw(combo);
}

void ShowCurrentInList(ComboState& state) {
    if (!state.list)
        return;
    int visible = VisibleItems(state.list, state);
    if (state.listCurrent >= 0) {
        if (state.listCurrent < state.listTop)
            state.listTop = state.listCurrent;
        else if (state.listCurrent >= state.listTop + visible)
            state.listTop = state.listCurrent - visible + 1;
    }
    state.listTop = std::clamp(state.listTop, 0, std::max(0, ItemCount(state) - visible));
    Redraw(state.list);
}

// The selection changes to an item by message: no notification.
void SetSelection(HWND combo, ComboState& state, int index) {
    state.selected = index;
    state.listCurrent = index;
    SetFieldText(combo, state,
                 index >= 0 ? state.items[static_cast<std::size_t>(index)].text : u"");
    ShowCurrentInList(state);
}

// The user moved the selection: CBN_SELCHANGE while the field still shows
// the old text, then the field takes the item's text.
void UserSelect(HWND combo, ComboState& state, int index) {
    state.selected = index;
    state.listCurrent = index;
    ShowCurrentInList(state);
    NotifyParent(combo, CBN_SELCHANGE);
    if (ComboState* still = FindComboState(combo); still && index < ItemCount(*still))
        SetFieldText(combo, *still,
                     index >= 0 ? still->items[static_cast<std::size_t>(index)].text : u"");
}

void CloseUp(HWND combo, ComboState& state, bool accept) {
    if (!state.dropped)
        return;
    state.dropped = false;
    HWND list = state.list;
    state.list = nullptr;
    if (list)
        DestroyWindow(list);
    // What the list covered is drawn again.
    if (HWND parent = GetParent(combo)) {
        HWND top = parent;
        while (GetParent(top) && (GetWindowLongPtr(top, GWL_STYLE) & WS_CHILD))
            top = GetParent(top);
        InvalidateTree(top);
    }
    Redraw(combo);
    NotifyParent(combo, accept ? CBN_SELENDOK : CBN_SELENDCANCEL);
    if (IsWindow(combo))
        NotifyParent(combo, CBN_CLOSEUP);
}

void DropDown(HWND combo, ComboState& state) {
    if (state.dropped || Type(combo) == CBS_SIMPLE)
        return;
    NotifyParent(combo, CBN_DROPDOWN);
    ComboState* current = FindComboState(combo);
    if (!current || current->dropped)
        return;
    if (GetFocus() != combo && GetFocus() != current->edit)
        SetFocus(combo);
    RECT rect;
    GetWindowRect(combo, &rect);
    int room = std::max(current->fullHeight - current->fieldHeight, current->itemHeight + 2);
    int wanted = std::max(1, ItemCount(*current)) * current->itemHeight + 2;
    int height = std::min(room, wanted);
    RECT at{rect.left, rect.bottom, rect.right, rect.bottom + height};
    current->listCurrent = current->selected;
    current->listTop = 0;
    current->dropped = true;
    current->list = CreateComboList(combo, true, at);
    if (!current->list) {
        current->dropped = false;
        return;
    }
    ShowCurrentInList(*current);
    ShowWindow(current->list, SW_SHOWNA);
    Redraw(combo);
}

void OnKeyDown(HWND combo, ComboState& state, UINT vk) {
    bool alt = GetKeyState(VK_MENU) < 0;
    if (vk == VK_F4 || (alt && (vk == VK_UP || vk == VK_DOWN))) {
        if (state.dropped)
            CloseUp(combo, state, true);
        else
            DropDown(combo, state);
        return;
    }
    if (state.dropped && (vk == VK_RETURN || vk == VK_ESCAPE)) {
        CloseUp(combo, state, vk == VK_RETURN);
        return;
    }
    int count = ItemCount(state);
    if (count == 0)
        return;
    int index = state.selected;
    switch (vk) {
    case VK_UP:
        index = index < 0 ? 0 : std::max(0, index - 1);
        break;
    case VK_DOWN:
        index = index < 0 ? 0 : std::min(count - 1, index + 1);
        break;
    case VK_PRIOR:
        index = std::max(0, index - kPageItems);
        break;
    case VK_NEXT:
        index = std::min(count - 1, std::max(index, 0) + kPageItems);
        break;
    case VK_HOME:
        if (HasEdit(combo))
            return;
        index = 0;
        break;
    case VK_END:
        if (HasEdit(combo))
            return;
        index = count - 1;
        break;
    default:
        return;
    }
    if (index != state.selected)
        UserSelect(combo, state, index);
}

// Items whose text starts with text (A to Z folded), from the item after
// start, wrapping; exact asks for the whole text.
int Find(const ComboState& state, int start, const std::u16string& text, bool exact) {
    auto fold = [](char16_t c) {
        return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
    };
    auto matches = [&](const std::u16string& item) {
        if (item.size() < text.size() || (exact && item.size() != text.size()))
            return false;
        for (std::size_t i = 0; i < text.size(); ++i)
            if (fold(item[i]) != fold(text[i]))
                return false;
        return true;
    };
    int count = ItemCount(state);
    if (start < -1 || start >= count)
        start = -1;
    for (int n = 1; n <= count; ++n) {
        int index = (start + n) % count;
        if (matches(state.items[static_cast<std::size_t>(index)].text))
            return index;
    }
    return CB_ERR;
}

// A drop-down list takes a typed character as the start of an item.
void OnChar(HWND combo, ComboState& state, WCHAR ch) {
    if (HasEdit(combo) || ch < 0x20)
        return;
    int index = Find(state, state.selected, std::u16string(1, ch), false);
    if (index != CB_ERR && index != state.selected)
        UserSelect(combo, state, index);
}

void DrawArrow(HDC hdc, const RECT& area, COLORREF color) {
    int cx = (area.left + area.right) / 2;
    int cy = (area.top + area.bottom) / 2 - 1;
    for (int row = 0; row < 4; ++row) {
        RECT line{cx - 3 + row, cy + row, cx + 4 - row, cy + row + 1};
        if (row == 3)
            line.right = line.left + 1;
        FillSolid(hdc, RECT{line.left, line.top, line.left + 1, line.bottom}, color);
        FillSolid(hdc, RECT{line.right - 1, line.top, line.right, line.bottom}, color);
    }
}

void Paint(HWND combo, const ComboState& state) {
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(combo, &ps);
    RECT client;
    GetClientRect(combo, &client);
    bool enabled = IsWindowEnabled(combo);
    RECT field{0, 0, client.right, state.fieldHeight};
    if (Type(combo) == CBS_DROPDOWNLIST) {
        COLORREF face = !enabled ? 0xCCCCCC : state.dropped ? 0xF7E4CC : 0xE1E1E1;
        FillSolid(hdc, field, face);
        FrameSolid(hdc, field,
                   !enabled                         ? 0xBFBFBF
                   : state.dropped || state.focused ? 0xD77800
                                                    : 0xADADAD);
        RECT text{3, 3, client.right - kArrowWidth - 1, state.fieldHeight - 3};
        FontScope font(hdc, state.font);
        SetBkMode(hdc, TRANSPARENT);
        if (state.focused && !state.dropped) {
            FillSolid(hdc, text, GetSysColor(COLOR_HIGHLIGHT));
            SetTextColor(hdc, GetSysColor(COLOR_HIGHLIGHTTEXT));
        } else {
            SetTextColor(hdc,
                         enabled ? GetSysColor(COLOR_WINDOWTEXT) : GetSysColor(COLOR_GRAYTEXT));
        }
        RECT label{text.left + 2, text.top, text.right, text.bottom};
        DrawText(hdc, state.text.c_str(), static_cast<int>(state.text.size()), &label,
                 DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    } else {
        FillSolid(hdc, field, enabled ? GetSysColor(COLOR_WINDOW) : GetSysColor(COLOR_BTNFACE));
        bool hot = state.focused || state.dropped;
        FrameSolid(hdc, field, !enabled ? 0xCCCCCC : hot ? 0xD77800 : 0x7A7A7A);
        if (Type(combo) == CBS_DROPDOWN && state.dropped) {
            RECT arrow = ArrowRect(combo, state);
            FillSolid(hdc, arrow, 0xF7E4CC);
        }
    }
    if (Type(combo) != CBS_SIMPLE)
        DrawArrow(hdc, ArrowRect(combo, state), enabled ? 0x606060 : 0xBFBFBF);
    EndPaint(combo, &ps);
}

LRESULT GetItemText(const ComboState& state, WPARAM wParam, LPARAM lParam) {
    auto index = static_cast<int>(wParam);
    if (index < 0 || index >= ItemCount(state) || !lParam)
        return CB_ERR;
    const std::u16string& text = state.items[static_cast<std::size_t>(index)].text;
    std::copy(text.begin(), text.end(), reinterpret_cast<WCHAR*>(lParam));
    reinterpret_cast<WCHAR*>(lParam)[text.size()] = 0;
    return static_cast<LRESULT>(text.size());
}

// Compares item texts without regard to case (A to Z), for CBS_SORT.
bool SortsBefore(const std::u16string& a, const std::u16string& b) {
    auto fold = [](char16_t c) {
        return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
    };
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [&](char16_t x, char16_t y) { return fold(x) < fold(y); });
}

// Inserts an item at index (-1: at the end); CB_ERR for an index past the
// end.
LRESULT InsertItem(ComboState& state, int index, LPARAM lParam) {
    std::u16string text = lParam ? reinterpret_cast<LPCWSTR>(lParam) : u"";
    if (index == -1)
        index = ItemCount(state);
    if (index < 0 || index > ItemCount(state))
        return CB_ERR;
    state.items.insert(state.items.begin() + index, ComboItem{std::move(text), 0});
    if (state.selected >= index)
        ++state.selected;
    if (state.listCurrent >= index)
        ++state.listCurrent;
    if (state.list)
        Redraw(state.list);
    return index;
}

// CB_ADDSTRING: at the end, or in order in a sorted combo box (after the
// items that compare equal).
LRESULT AddItem(HWND combo, ComboState& state, LPARAM lParam) {
    if (!(GetWindowLongPtr(combo, GWL_STYLE) & CBS_SORT) || !lParam)
        return InsertItem(state, -1, lParam);
    std::u16string text = reinterpret_cast<LPCWSTR>(lParam);
    auto at = std::upper_bound(
        state.items.begin(), state.items.end(), text,
        [](const std::u16string& t, const ComboItem& item) { return SortsBefore(t, item.text); });
    return InsertItem(state, static_cast<int>(at - state.items.begin()), lParam);
}

LRESULT OnCreate(HWND combo, ComboState& state, const CREATESTRUCT* create) {
    state.fullHeight = create ? create->cy : 0;
    if (HasEdit(combo)) {
        DWORD style = static_cast<DWORD>(GetWindowLongPtr(combo, GWL_STYLE));
        DWORD editStyle = WS_CHILD | WS_VISIBLE | ((style & CBS_AUTOHSCROLL) ? ES_AUTOHSCROLL : 0) |
                          ((style & CBS_UPPERCASE) ? ES_UPPERCASE : 0) |
                          ((style & CBS_LOWERCASE) ? ES_LOWERCASE : 0);
        state.edit = CreateWindowEx(0, u"EDIT", u"", editStyle, 0, 0, 0, 0, combo,
                                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kEditId)),
                                    nullptr, nullptr);
        if (!state.edit)
            return -1;
        AttachEditToCombo(state.edit, combo);
    }
    if (Type(combo) == CBS_SIMPLE) {
        state.list = CreateComboList(combo, false, RECT{0, 0, 0, 0});
        if (!state.list)
            return -1;
    }
    Layout(combo, state);
    return 0;
}

// The edit field's notifications, passed on as the combo box's.
void OnEditCommand(HWND combo, ComboState& state, UINT code) {
    switch (code) {
    case EN_SETFOCUS:
        if (!state.focused) {
            state.focused = true;
            Redraw(combo);
            NotifyParent(combo, CBN_SETFOCUS);
        }
        break;
    case EN_KILLFOCUS: {
        HWND focus = GetFocus();
        if (focus == combo || (focus && IsChild(combo, focus)))
            break;
        state.focused = false;
        CloseUp(combo, state, false);
        if (ComboState* still = FindComboState(combo)) {
            Redraw(combo);
            NotifyParent(combo, CBN_KILLFOCUS);
            (void)still;
        }
        break;
    }
    case EN_UPDATE:
        if (!state.settingText)
            NotifyParent(combo, CBN_EDITUPDATE);
        break;
    case EN_CHANGE:
        if (!state.settingText) {
            // The typed text no longer names the selected item's position.
            NotifyParent(combo, CBN_EDITCHANGE);
        }
        break;
    case EN_MAXTEXT:
        break;
    default:
        break;
    }
}

LRESULT ComboProc(HWND combo, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE)
        States().Create(combo);
    ComboState* state = States().Find(combo);
    if (!state)
        return DefWindowProc(combo, message, wParam, lParam);
    switch (message) {
    case WM_CREATE:
        return OnCreate(combo, *state, reinterpret_cast<const CREATESTRUCT*>(lParam));
    case WM_DESTROY:
        if (state->dropped && state->list) {
            HWND list = state->list;
            state->list = nullptr;
            state->dropped = false;
            DestroyWindow(list);
        }
        return 0;
    case WM_NCDESTROY:
        States().Erase(combo);
        return DefWindowProc(combo, message, wParam, lParam);
    case WM_GETDLGCODE:
        return state->edit
                   ? SendMessage(state->edit, WM_GETDLGCODE, wParam, lParam)
                   : DLGC_WANTARROWS | DLGC_WANTCHARS | (state->dropped ? DLGC_WANTALLKEYS : 0);
    case WM_SETFONT:
        state->font = reinterpret_cast<HFONT>(wParam);
        if (state->edit)
            SendMessage(state->edit, WM_SETFONT, wParam, lParam);
        Layout(combo, *state);
        if (lParam)
            Redraw(combo);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state->font);
    case WM_SIZE:
        Layout(combo, *state);
        return 0;
    case WM_SETTEXT: {
        std::u16string text = lParam ? reinterpret_cast<LPCWSTR>(lParam) : u"";
        if (!state->edit) {
            // A drop-down list shows only its items.
            int index = Find(*state, -1, text, true);
            if (index == CB_ERR)
                return CB_ERR;
            SetSelection(combo, *state, index);
            return TRUE;
        }
        SetFieldText(combo, *state, text);
        return TRUE;
    }
    case WM_GETTEXTLENGTH:
        return static_cast<LRESULT>(FieldText(*state).size());
    case WM_GETTEXT: {
        auto* buffer = reinterpret_cast<LPWSTR>(lParam);
        if (!buffer || wParam == 0)
            return 0;
        std::u16string text = FieldText(*state);
        std::size_t count = std::min<std::size_t>(text.size(), wParam - 1);
        std::copy_n(text.c_str(), count, buffer);
        buffer[count] = 0;
        return static_cast<LRESULT>(count);
    }
    case WM_ENABLE:
        if (state->edit)
            EnableWindow(state->edit, wParam ? TRUE : FALSE);
        Redraw(combo);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        Paint(combo, *state);
        return 0;
    case WM_SETFOCUS:
        if (state->edit) {
            SetFocus(state->edit);
        } else if (!state->focused) {
            state->focused = true;
            Redraw(combo);
            NotifyParent(combo, CBN_SETFOCUS);
        }
        return 0;
    case WM_KILLFOCUS:
        if (!state->edit) {
            state->focused = false;
            CloseUp(combo, *state, false);
            if (IsWindow(combo)) {
                Redraw(combo);
                NotifyParent(combo, CBN_KILLFOCUS);
            }
        }
        return 0;
    case WM_COMMAND:
        if (reinterpret_cast<HWND>(lParam) == state->edit && state->edit)
            OnEditCommand(combo, *state, HIWORD(wParam));
        return 0;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
        // The parent colours the combo box's parts as the combo box.
        if (HWND parent = GetParent(combo))
            return SendMessage(parent, message, wParam, reinterpret_cast<LPARAM>(combo));
        return 0;
    case WM_KEYDOWN:
        OnKeyDown(combo, *state, static_cast<UINT>(wParam));
        return 0;
    case WM_SYSKEYDOWN:
        // Alt with Up or Down opens or closes the list; other keys with Alt
        // are the window's.
        if (wParam == VK_UP || wParam == VK_DOWN) {
            OnKeyDown(combo, *state, static_cast<UINT>(wParam));
            return 0;
        }
        return DefWindowProc(combo, message, wParam, lParam);
    case WM_CHAR:
        OnChar(combo, *state, static_cast<WCHAR>(wParam));
        return 0;
    case WM_MOUSEWHEEL: {
        // The list scrolls while it shows (dropped, or always in a simple
        // combo box), the current item staying as it is. Closed, the combo
        // box steps its selection an item a notch, as Up and Down do.
        if (!state->list) {
            state->wheelRemainder += GET_WHEEL_DELTA_WPARAM(wParam);
            const int notches = state->wheelRemainder / WHEEL_DELTA;
            state->wheelRemainder -= notches * WHEEL_DELTA;
            const int count = ItemCount(*state);
            if (notches != 0 && count > 0) {
                const int index =
                    state->selected < 0 ? 0 : std::clamp(state->selected - notches, 0, count - 1);
                if (index != state->selected)
                    UserSelect(combo, *state, index);
            }
            return 0;
        }
        int rows = WheelRows(state->wheelRemainder, GET_WHEEL_DELTA_WPARAM(wParam));
        int visible = VisibleItems(state->list, *state);
        int top = std::clamp(state->listTop + rows, 0, std::max(0, ItemCount(*state) - visible));
        if (top != state->listTop) {
            state->listTop = top;
            Redraw(state->list);
        }
        return 0;
    }
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        if (Type(combo) == CBS_SIMPLE) {
            SetFocus(combo);
            return 0;
        }
        POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        RECT arrow = ArrowRect(combo, *state);
        bool onArrow = point.x >= arrow.left && point.x < arrow.right + 1 && point.y >= 0 &&
                       point.y < state->fieldHeight;
        if (Type(combo) == CBS_DROPDOWNLIST || onArrow) {
            if (state->dropped)
                CloseUp(combo, *state, true);
            else
                DropDown(combo, *state);
        } else {
            SetFocus(combo);
        }
        return 0;
    }
    case EM_SETSEL:
    case CB_SETEDITSEL:
        if (state->edit)
            SendMessage(state->edit, EM_SETSEL, message == EM_SETSEL ? wParam : LOWORD(lParam),
                        message == EM_SETSEL ? lParam : static_cast<short>(HIWORD(lParam)));
        return state->edit ? TRUE : CB_ERR;
    case CB_GETEDITSEL:
        return state->edit ? SendMessage(state->edit, EM_GETSEL, wParam, lParam) : CB_ERR;
    case CB_LIMITTEXT:
        if (!state->edit)
            return CB_ERR;
        SendMessage(state->edit, EM_LIMITTEXT, wParam, 0);
        return TRUE;
    case CB_ADDSTRING:
        return AddItem(combo, *state, lParam);
    case CB_INSERTSTRING:
        return InsertItem(*state, static_cast<int>(wParam), lParam);
    case CB_DELETESTRING: {
        auto index = static_cast<int>(wParam);
        if (index < 0 || index >= ItemCount(*state))
            return CB_ERR;
        state->items.erase(state->items.begin() + index);
        if (state->selected == index)
            state->selected = -1;
        else if (state->selected > index)
            --state->selected;
        state->listCurrent = state->selected;
        ShowCurrentInList(*state);
        if (!state->edit)
            Redraw(combo);
        return ItemCount(*state);
    }
    case CB_RESETCONTENT:
        state->items.clear();
        state->selected = -1;
        state->listCurrent = -1;
        state->listTop = 0;
        if (!state->edit)
            state->text.clear();
        ShowCurrentInList(*state);
        Redraw(combo);
        return CB_OKAY;
    case CB_GETCOUNT:
        return ItemCount(*state);
    case CB_GETCURSEL:
        return state->selected;
    case CB_SETCURSEL: {
        auto index = static_cast<int>(wParam);
        if (index < 0 || index >= ItemCount(*state)) {
            SetSelection(combo, *state, -1);
            return CB_ERR;
        }
        SetSelection(combo, *state, index);
        return index;
    }
    case CB_GETLBTEXT:
        return GetItemText(*state, wParam, lParam);
    case CB_GETLBTEXTLEN: {
        auto index = static_cast<int>(wParam);
        if (index < 0 || index >= ItemCount(*state))
            return CB_ERR;
        return static_cast<LRESULT>(state->items[static_cast<std::size_t>(index)].text.size());
    }
    case CB_FINDSTRING:
    case CB_FINDSTRINGEXACT:
        if (!lParam)
            return CB_ERR;
        return Find(*state, static_cast<int>(wParam), reinterpret_cast<LPCWSTR>(lParam),
                    message == CB_FINDSTRINGEXACT);
    case CB_SELECTSTRING: {
        if (!lParam)
            return CB_ERR;
        int index =
            Find(*state, static_cast<int>(wParam), reinterpret_cast<LPCWSTR>(lParam), false);
        if (index != CB_ERR)
            SetSelection(combo, *state, index);
        return index;
    }
    case CB_GETITEMDATA: {
        auto index = static_cast<int>(wParam);
        if (index < 0 || index >= ItemCount(*state))
            return CB_ERR;
        return state->items[static_cast<std::size_t>(index)].data;
    }
    case CB_SETITEMDATA: {
        auto index = static_cast<int>(wParam);
        if (index < 0 || index >= ItemCount(*state))
            return CB_ERR;
        state->items[static_cast<std::size_t>(index)].data = lParam;
        return TRUE;
    }
    case CB_SHOWDROPDOWN:
        if (wParam)
            DropDown(combo, *state);
        else
            CloseUp(combo, *state, false);
        return TRUE;
    case CB_GETDROPPEDSTATE:
        return state->dropped ? TRUE : FALSE;
    case CB_GETITEMHEIGHT:
        return static_cast<int>(wParam) == -1 ? state->fieldHeight : state->itemHeight;
    case CB_GETDROPPEDCONTROLRECT: {
        if (!lParam)
            return CB_ERR;
        RECT rect;
        GetWindowRect(combo, &rect);
        rect.bottom = rect.top + std::max(state->fullHeight, state->fieldHeight);
        *reinterpret_cast<RECT*>(lParam) = rect;
        return TRUE;
    }
    default:
        return DefWindowProc(combo, message, wParam, lParam);
    }
}

} // namespace

ComboState* FindComboState(HWND combo) {
    return States().Find(combo);
}

void PickFromList(HWND combo, int index) {
    ComboState* state = FindComboState(combo);
    if (!state || index < 0 || index >= ItemCount(*state))
        return;
    UserSelect(combo, *state, index);
    if (ComboState* still = FindComboState(combo); still && still->dropped)
        CloseUp(combo, *still, true);
}

bool IsComboBox(HWND hwnd) {
    return FindComboState(hwnd) != nullptr;
}

bool IsComboDropped(HWND combo) {
    ComboState* state = FindComboState(combo);
    return state && state->dropped;
}

bool ComboArrowPoint(HWND combo, POINT* point) {
    ComboState* state = FindComboState(combo);
    if (!state || !point || Type(combo) == CBS_SIMPLE)
        return false;
    RECT arrow = ArrowRect(combo, *state);
    *point = POINT{(arrow.left + arrow.right) / 2, (arrow.top + arrow.bottom) / 2};
    return true;
}

bool ComboItemPoint(HWND combo, int index, HWND* list, POINT* point) {
    ComboState* state = FindComboState(combo);
    if (!state || !state->list || !list || !point || index < 0 || index >= ItemCount(*state))
        return false;
    int visible = VisibleItems(state->list, *state);
    if (index < state->listTop || index >= state->listTop + visible) {
        // The list scrolls to show the item, as the user would scroll it.
        state->listTop = std::clamp(index, 0, std::max(0, ItemCount(*state) - visible));
        Redraw(state->list);
    }
    RECT client;
    GetClientRect(state->list, &client);
    *list = state->list;
    *point = POINT{client.right / 2,
                   1 + (index - state->listTop) * state->itemHeight + state->itemHeight / 2};
    return true;
}

LRESULT ComboBoxClassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return ComboProc(hwnd, message, wParam, lParam);
}

} // namespace platform::user
