// The STATIC class: text (left, centred or right, wrapped at words), filled
// and framed rectangles, etched lines and icons. It takes no input.
#include "ControlPaint.h"
#include "ControlState.h"

namespace platform::user {

namespace {

struct StaticState {
    HFONT font = nullptr;
    HICON icon = nullptr;
};

ControlStates<StaticState>& States() {
    static auto* states = new ControlStates<StaticState>();
    return *states;
}

void Paint(HWND hwnd, const StaticState& state) {
    PAINTSTRUCT ps;
    HDC hdc = BeginPaint(hwnd, &ps);
    RECT client;
    GetClientRect(hwnd, &client);
    auto style = static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
    DWORD type = style & SS_TYPEMASK;
    switch (type) {
    case SS_BLACKRECT:
    case SS_GRAYRECT:
    case SS_WHITERECT:
        FillSolid(hdc, client,
                  type == SS_BLACKRECT  ? GetSysColor(COLOR_3DDKSHADOW)
                  : type == SS_GRAYRECT ? GetSysColor(COLOR_BTNSHADOW)
                                        : GetSysColor(COLOR_BTNHIGHLIGHT));
        break;
    case SS_BLACKFRAME:
    case SS_GRAYFRAME:
    case SS_WHITEFRAME:
        FillRect(hdc, &client, ControlBackground(hwnd, hdc, WM_CTLCOLORSTATIC));
        FrameSolid(hdc, client,
                   type == SS_BLACKFRAME  ? GetSysColor(COLOR_3DDKSHADOW)
                   : type == SS_GRAYFRAME ? GetSysColor(COLOR_BTNSHADOW)
                                          : GetSysColor(COLOR_BTNHIGHLIGHT));
        break;
    case SS_ETCHEDHORZ: {
        FillRect(hdc, &client, ControlBackground(hwnd, hdc, WM_CTLCOLORSTATIC));
        RECT shadow{client.left, client.top, client.right, client.top + 1};
        RECT light{client.left, client.top + 1, client.right, client.top + 2};
        FillSolid(hdc, shadow, GetSysColor(COLOR_BTNSHADOW));
        FillSolid(hdc, light, GetSysColor(COLOR_BTNHIGHLIGHT));
        break;
    }
    case SS_ICON:
        FillRect(hdc, &client, ControlBackground(hwnd, hdc, WM_CTLCOLORSTATIC));
        if (state.icon) {
            const int x =
                (style & SS_CENTERIMAGE) ? (client.right - GetSystemMetrics(SM_CXICON)) / 2 : 0;
            const int y =
                (style & SS_CENTERIMAGE) ? (client.bottom - GetSystemMetrics(SM_CYICON)) / 2 : 0;
            DrawIcon(hdc, x, y, state.icon);
        }
        break;
    default: {
        FillRect(hdc, &client, ControlBackground(hwnd, hdc, WM_CTLCOLORSTATIC));
        UINT format = (style & SS_NOPREFIX) ? DT_NOPREFIX : 0;
        if (type == SS_CENTER)
            format |= DT_CENTER | DT_WORDBREAK;
        else if (type == SS_RIGHT)
            format |= DT_RIGHT | DT_WORDBREAK;
        else if (type == SS_LEFT)
            format |= DT_WORDBREAK;
        else
            format |= DT_SINGLELINE;
        std::u16string text(static_cast<std::size_t>(GetWindowTextLength(hwnd)), u'\0');
        if (!text.empty())
            GetWindowText(hwnd, text.data(), static_cast<int>(text.size()) + 1);
        FontScope font(hdc, state.font);
        SetBkMode(hdc, TRANSPARENT);
        SetTextColor(hdc, IsWindowEnabled(hwnd) ? GetSysColor(COLOR_WINDOWTEXT)
                                                : GetSysColor(COLOR_GRAYTEXT));
        DrawText(hdc, text.c_str(), static_cast<int>(text.size()), &client, format);
        break;
    }
    }
    if (style & SS_SUNKEN)
        FrameSolid(hdc, client, GetSysColor(COLOR_BTNSHADOW));
    EndPaint(hwnd, &ps);
}

// The icon an SS_ICON control's creation text names, from its module.
HICON IconOfText(const CREATESTRUCT& create) {
    const LPCWSTR text = create.lpszName;
    if (!text || !*text)
        return nullptr;
    if (text[0] == 0xFFFF)
        return LoadIcon(create.hInstance, MAKEINTRESOURCE(text[1]));
    return LoadIcon(create.hInstance, text);
}

// Sets the icon and, unless the style keeps the control's size, takes the
// icon's; returns the previous icon.
HICON SetIcon(HWND hwnd, StaticState& state, HICON icon) {
    HICON previous = state.icon;
    state.icon = icon;
    const auto style = static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
    if (icon && !(style & (SS_REALSIZECONTROL | SS_CENTERIMAGE)))
        SetWindowPos(hwnd, nullptr, 0, 0, GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    InvalidateRect(hwnd, nullptr, TRUE);
    return previous;
}

LRESULT StaticProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE)
        States().Create(hwnd);
    StaticState* state = States().Find(hwnd);
    if (!state)
        return DefWindowProc(hwnd, message, wParam, lParam);
    switch (message) {
    case WM_NCDESTROY:
        States().Erase(hwnd);
        return DefWindowProc(hwnd, message, wParam, lParam);
    case WM_GETDLGCODE:
        return DLGC_STATIC;
    case WM_CREATE: {
        const auto style = static_cast<DWORD>(GetWindowLongPtr(hwnd, GWL_STYLE));
        if ((style & SS_TYPEMASK) == SS_ICON)
            if (HICON icon = IconOfText(*reinterpret_cast<const CREATESTRUCT*>(lParam)))
                SetIcon(hwnd, *state, icon);
        return 0;
    }
    case STM_SETICON:
        return reinterpret_cast<LRESULT>(SetIcon(hwnd, *state, reinterpret_cast<HICON>(wParam)));
    case STM_GETICON:
        return reinterpret_cast<LRESULT>(state->icon);
    case WM_SETFONT:
        state->font = reinterpret_cast<HFONT>(wParam);
        if (lParam)
            InvalidateRect(hwnd, nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(state->font);
    case WM_SETTEXT: {
        LRESULT result = DefWindowProc(hwnd, message, wParam, lParam);
        InvalidateRect(hwnd, nullptr, TRUE);
        return result;
    }
    case WM_ENABLE:
        InvalidateRect(hwnd, nullptr, TRUE);
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

LRESULT StaticClassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    return StaticProc(hwnd, message, wParam, lParam);
}

} // namespace platform::user
