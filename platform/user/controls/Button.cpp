// The BUTTON class: push buttons, check boxes, radio buttons and group
// boxes. A click is a press and release of the left button inside it (or the
// space bar); it notifies the parent with BN_CLICKED.
#include "ControlPaint.h"
#include "ControlState.h"

namespace platform::user {

namespace {

struct ButtonState {
    int check = 0; // BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE
    bool pushed = false;
    bool focused = false;
    bool tracking = false;
    HFONT font = nullptr;
};

ControlStates<ButtonState>& States() {
    static auto* states = new ControlStates<ButtonState>();
    return *states;
}

DWORD Type(HWND hwnd) {
    return static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE)) & BS_TYPEMASK;
}

bool IsPush(DWORD type) {
    return type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON;
}

bool IsCheck(DWORD type) {
    return type == BS_CHECKBOX || type == BS_AUTOCHECKBOX || type == BS_3STATE ||
           type == BS_AUTO3STATE;
}

bool IsRadio(DWORD type) {
    return type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON;
}

std::u16string Text(HWND hwnd) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
    if (!text.empty())
        GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

void SetType(HWND hwnd, WPARAM type) {
    auto style = static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
    style = (style & ~static_cast<DWORD>(BS_TYPEMASK)) | (static_cast<DWORD>(type) & BS_TYPEMASK);
    SetWindowLongPtr(hwnd, GWL_STYLE, static_cast<LONG_PTR>(style));
}

void Redraw(HWND hwnd) {
    InvalidateRect(hwnd, nullptr, TRUE);
}

// An automatic radio button checks itself and unchecks the others of its
// group.
void CheckRadio(HWND hwnd) {
    HWND parent = GetParent(hwnd);
    SendMessage(hwnd, BM_SETCHECK, BST_CHECKED, 0);
    if (!parent)
        return;
    for (HWND other = GetNextDlgGroupItem(parent, hwnd, FALSE); other && other != hwnd;
         other = GetNextDlgGroupItem(parent, other, FALSE))
        if (IsRadio(Type(other)))
            SendMessage(other, BM_SETCHECK, BST_UNCHECKED, 0);
}

void Click(HWND hwnd) {
    switch (Type(hwnd)) {
    case BS_AUTOCHECKBOX:
        SendMessage(hwnd, BM_SETCHECK, SendMessage(hwnd, BM_GETCHECK, 0, 0) ? 0 : 1, 0);
        break;
    case BS_AUTO3STATE:
        SendMessage(hwnd, BM_SETCHECK, (SendMessage(hwnd, BM_GETCHECK, 0, 0) + 1) % 3, 0);
        break;
    case BS_AUTORADIOBUTTON:
        CheckRadio(hwnd);
        break;
    default:
        break;
    }
    NotifyParent(hwnd, BN_CLICKED);
}

void PaintPush(HWND hwnd, HDC hdc, const ButtonState& state, const RECT& client) {
    bool enabled = IsWindowEnabled(hwnd);
    bool isDefault = Type(hwnd) == BS_DEFPUSHBUTTON;
    COLORREF face = !enabled ? 0xCCCCCC : state.pushed ? 0xF7E4CC : 0xE1E1E1;
    COLORREF border = !enabled                     ? 0xBFBFBF
                      : state.pushed               ? 0x995400
                      : isDefault || state.focused ? 0xD77800
                                                   : 0xADADAD;
    FillSolid(hdc, client, face);
    FrameSolid(hdc, client, border);
    if (isDefault && enabled) {
        RECT inner{client.left + 1, client.top + 1, client.right - 1, client.bottom - 1};
        FrameSolid(hdc, inner, border);
    }
    FontScope font(hdc, state.font);
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, enabled ? GetSysColor(COLOR_BTNTEXT) : GetSysColor(COLOR_GRAYTEXT));
    RECT text = client;
    std::u16string label = Text(hwnd);
    DrawText(hdc, label.c_str(), static_cast<int>(label.size()), &text,
             DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    if (state.focused) {
        RECT focus{client.left + 3, client.top + 3, client.right - 3, client.bottom - 3};
        DottedFrame(hdc, focus, 0x000000);
    }
}

void PaintCheck(HWND hwnd, HDC hdc, const ButtonState& state, const RECT& client, bool radio) {
    bool enabled = IsWindowEnabled(hwnd);
    FillRect(hdc, &client, ControlBackground(hwnd, hdc, WM_CTLCOLORBTN));
    constexpr int kBox = 13;
    int top = client.top + (client.bottom - client.top - kBox) / 2;
    RECT box{client.left, top, client.left + kBox, top + kBox};
    COLORREF ink = enabled ? 0x333333 : 0xBCBCBC;
    COLORREF fill = state.pushed ? 0xF7E4CC : enabled ? 0xFFFFFF : 0xE6E6E6;
    if (radio) {
        // A circle drawn as a polygon, so its pixels are exact.
        static const POINT ring[] = {{4, 0},   {8, 0},   {10, 1}, {11, 2}, {12, 4}, {12, 8},
                                     {11, 10}, {10, 11}, {8, 12}, {4, 12}, {2, 11}, {1, 10},
                                     {0, 8},   {0, 4},   {1, 2},  {2, 1}};
        POINT points[16];
        for (int i = 0; i < 16; ++i)
            points[i] = POINT{box.left + ring[i].x, box.top + ring[i].y};
        HPEN pen = CreatePen(PS_SOLID, 1, ink);
        HBRUSH brush = CreateSolidBrush(fill);
        HGDIOBJ oldPen = SelectObject(hdc, pen);
        HGDIOBJ oldBrush = SelectObject(hdc, brush);
        Polygon(hdc, points, 16);
        if (state.check) {
            HBRUSH dot = CreateSolidBrush(ink);
            SelectObject(hdc, dot);
            POINT spot[] = {{box.left + 5, box.top + 3}, {box.left + 7, box.top + 3},
                            {box.left + 9, box.top + 5}, {box.left + 9, box.top + 7},
                            {box.left + 7, box.top + 9}, {box.left + 5, box.top + 9},
                            {box.left + 3, box.top + 7}, {box.left + 3, box.top + 5}};
            Polygon(hdc, spot, 8);
            SelectObject(hdc, brush);
            DeleteObject(dot);
        }
        SelectObject(hdc, oldPen);
        SelectObject(hdc, oldBrush);
        DeleteObject(pen);
        DeleteObject(brush);
    } else {
        FillSolid(hdc, box, fill);
        FrameSolid(hdc, box, ink);
        if (state.check == BST_CHECKED) {
            HPEN pen = CreatePen(PS_SOLID, 1, ink);
            HGDIOBJ old = SelectObject(hdc, pen);
            // A tick two pixels thick.
            for (int d = 0; d < 2; ++d) {
                POINT tick[] = {{box.left + 3, box.top + 6 + d},
                                {box.left + 5, box.top + 8 + d},
                                {box.left + 10, box.top + 3 + d}};
                Polyline(hdc, tick, 3);
                SetPixel(hdc, box.left + 10, box.top + 3 + d, ink);
            }
            SelectObject(hdc, old);
            DeleteObject(pen);
        } else if (state.check == BST_INDETERMINATE) {
            RECT square{box.left + 3, box.top + 3, box.right - 3, box.bottom - 3};
            FillSolid(hdc, square, ink);
        }
    }
    FontScope font(hdc, state.font);
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, enabled ? GetSysColor(COLOR_BTNTEXT) : GetSysColor(COLOR_GRAYTEXT));
    RECT text{client.left + kBox + 4, client.top, client.right, client.bottom};
    std::u16string label = Text(hwnd);
    RECT measured = text;
    DrawText(hdc, label.c_str(), static_cast<int>(label.size()), &measured,
             DT_SINGLELINE | DT_CALCRECT);
    DrawText(hdc, label.c_str(), static_cast<int>(label.size()), &text,
             DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    if (state.focused && !label.empty()) {
        int height = measured.bottom - measured.top;
        int y = client.top + (client.bottom - client.top - height) / 2;
        RECT focus{text.left - 1, y, std::min(text.right, measured.right + 1), y + height};
        DottedFrame(hdc, focus, 0x000000);
    }
}

void PaintGroup(HWND hwnd, HDC hdc, const ButtonState& state, const RECT& client) {
    FontScope font(hdc, state.font);
    TEXTMETRIC tm{};
    GetTextMetrics(hdc, &tm);
    RECT frame{client.left, client.top + tm.tmHeight / 2, client.right, client.bottom};
    FrameSolid(hdc, frame, 0xDCDCDC);
    std::u16string label = Text(hwnd);
    if (label.empty())
        return;
    RECT text{client.left + 8, client.top, client.right - 8, client.top + tm.tmHeight};
    RECT measured = text;
    DrawText(hdc, label.c_str(), static_cast<int>(label.size()), &measured,
             DT_SINGLELINE | DT_CALCRECT);
    RECT gap{text.left - 2, text.top, std::min(text.right, measured.right + 2), text.bottom};
    FillRect(hdc, &gap, ControlBackground(hwnd, hdc, WM_CTLCOLORSTATIC));
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc,
                 IsWindowEnabled(hwnd) ? GetSysColor(COLOR_BTNTEXT) : GetSysColor(COLOR_GRAYTEXT));
    DrawText(hdc, label.c_str(), static_cast<int>(label.size()), &text, DT_LEFT | DT_SINGLELINE);
}

// An owner-drawn button leaves all of its painting to its parent, which
// gets the whole client area and the button's state.
void PaintOwnerDrawn(HWND hwnd, HDC hdc, const ButtonState& state, const RECT& client) {
    HWND parent = GetParent(hwnd);
    if (!parent)
        return;
    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.CtlID = static_cast<UINT>(GetDlgCtrlID(hwnd));
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = (state.pushed ? ODS_SELECTED : 0) | (state.focused ? ODS_FOCUS : 0) |
                     (IsWindowEnabled(hwnd) ? 0 : ODS_DISABLED);
    item.hwndItem = hwnd;
    item.hDC = hdc;
    item.rcItem = client;
    FontScope font(hdc, state.font);
    SendMessage(parent, WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void Paint(HWND hwnd, const ButtonState& state) {
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    RECT client;
    GetClientRect(hwnd, &client);
    DWORD type = Type(hwnd);
    if (type == BS_OWNERDRAW)
        PaintOwnerDrawn(hwnd, hdc, state, client);
    else if (IsPush(type))
        PaintPush(hwnd, hdc, state, client);
    else if (IsCheck(type))
        PaintCheck(hwnd, hdc, state, client, false);
    else if (IsRadio(type))
        PaintCheck(hwnd, hdc, state, client, true);
    else if (type == BS_GROUPBOX)
        PaintGroup(hwnd, hdc, state, client);
    EndPaint(hwnd, &ps);
}

LRESULT ButtonProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE)
        States().Create(hwnd);
    ButtonState* state = States().Find(hwnd);
    if (!state) {
        // A framework object subclassing the button while it is being
        // created may already set its type.
        if (message == BM_SETSTYLE)
            SetType(hwnd, wParam);
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
    DWORD type = Type(hwnd);
    switch (message) {
    case WM_NCDESTROY:
        States().Erase(hwnd);
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_GETDLGCODE:
        if (type == BS_DEFPUSHBUTTON)
            return DLGC_BUTTON | DLGC_DEFPUSHBUTTON;
        if (type == BS_PUSHBUTTON)
            return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
        if (IsRadio(type))
            return DLGC_BUTTON | DLGC_RADIOBUTTON;
        if (type == BS_GROUPBOX)
            return DLGC_STATIC;
        return DLGC_BUTTON;
    case WM_SETFONT:
        state->font = reinterpret_cast<HFONT>(wParam);
        if (lParam)
            Redraw(hwnd);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state->font);
    case WM_SETTEXT: {
        LRESULT result = DefWindowProc(hwnd, message, wParam, lParam);
        Redraw(hwnd);
        return result;
    }
    case WM_ENABLE:
        Redraw(hwnd);
        return 0;
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        Paint(hwnd, *state);
        return 0;
    case WM_SETFOCUS:
        state->focused = true;
        Redraw(hwnd);
        return 0;
    case WM_KILLFOCUS:
        state->focused = false;
        if (state->pushed) {
            state->pushed = false;
            state->tracking = false;
            if (GetCapture() == hwnd)
                ReleaseCapture();
        }
        Redraw(hwnd);
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        if (type == BS_GROUPBOX)
            return 0;
        SetFocus(hwnd);
        SetCapture(hwnd);
        state->tracking = true;
        state->pushed = true;
        Redraw(hwnd);
        return 0;
    case WM_MOUSEMOVE:
        if (state->tracking) {
            RECT client;
            GetClientRect(hwnd, &client);
            POINT p{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
            bool inside = p.x >= 0 && p.y >= 0 && p.x < client.right && p.y < client.bottom;
            if (inside != state->pushed) {
                state->pushed = inside;
                Redraw(hwnd);
            }
        }
        return 0;
    case WM_LBUTTONUP: {
        if (!state->tracking)
            return 0;
        state->tracking = false;
        ReleaseCapture();
        RECT client;
        GetClientRect(hwnd, &client);
        POINT p{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        bool inside = p.x >= 0 && p.y >= 0 && p.x < client.right && p.y < client.bottom;
        state->pushed = false;
        Redraw(hwnd);
        if (inside)
            Click(hwnd);
        return 0;
    }
    case WM_KEYDOWN:
        if (wParam == VK_SPACE && type != BS_GROUPBOX && !state->pushed) {
            state->pushed = true;
            Redraw(hwnd);
        }
        return 0;
    case WM_KEYUP:
        if (wParam == VK_SPACE && state->pushed) {
            state->pushed = false;
            Redraw(hwnd);
            Click(hwnd);
        }
        return 0;
    case BM_GETCHECK:
        return (IsCheck(type) || IsRadio(type)) ? state->check : 0;
    case BM_SETCHECK: {
        int check = static_cast<int>(wParam);
        if (check == BST_INDETERMINATE && type != BS_3STATE && type != BS_AUTO3STATE)
            check = BST_CHECKED;
        if ((IsCheck(type) || IsRadio(type)) && state->check != check) {
            state->check = check;
            Redraw(hwnd);
        }
        // Only the checked radio button of a group is a tab stop, as on the
        // original, so Tab enters the group at its choice.
        if (IsRadio(type)) {
            auto style = static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
            style = check ? (style | WS_TABSTOP) : (style & ~static_cast<DWORD>(WS_TABSTOP));
            SetWindowLongPtr(hwnd, GWL_STYLE, static_cast<LONG_PTR>(style));
        }
        return 0;
    }
    case BM_GETSTATE:
        return state->check | (state->pushed ? BST_PUSHED : 0) | (state->focused ? BST_FOCUS : 0);
    case BM_SETSTATE:
        if (state->pushed != (wParam != 0)) {
            state->pushed = wParam != 0;
            Redraw(hwnd);
        }
        return 0;
    case BM_SETSTYLE:
        SetType(hwnd, wParam);
        if (lParam)
            Redraw(hwnd);
        return 0;
    case BM_CLICK:
        if (IsWindowEnabled(hwnd) && type != BS_GROUPBOX)
            Click(hwnd);
        return 0;
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

} // namespace

LRESULT ButtonClassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return ButtonProc(hwnd, message, wParam, lParam);
}

} // namespace platform::user
