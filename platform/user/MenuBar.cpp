// The menu bar of a top-level window: attaching it, and drawing it flat under
// the caption, with the buttons of a maximised document window at its right.
#include "Menus.h"

#include "WindowManager.h"
#include "controls/ControlPaint.h"
#include <windows.h>

#include <wingdi.h>

#include <algorithm>

namespace platform::user {

namespace {

constexpr int kItemPadding = 7;
constexpr int kChildButtonWidth = 28;
constexpr COLORREF kOpenBand = RGB(145, 201, 247);

// The minimise, restore and close buttons of a maximised document window,
// drawn as thin glyphs at the right end of the bar.
void PaintChildButtons(HDC hdc, const RECT& bar) {
    const COLORREF ink = GetSysColor(COLOR_MENUTEXT);
    const int cy = (bar.top + bar.bottom) / 2;
    int right = bar.right;
    // Close: a cross.
    int cx = right - kChildButtonWidth / 2;
    StrokeLine(hdc, cx - 4, cy - 4, cx + 5, cy + 5, ink);
    StrokeLine(hdc, cx + 4, cy - 4, cx - 5, cy + 5, ink);
    right -= kChildButtonWidth;
    // Restore: two overlapping squares.
    cx = right - kChildButtonWidth / 2;
    FrameSolid(hdc, RECT{cx - 5, cy - 3, cx + 3, cy + 5}, ink);
    StrokeLine(hdc, cx - 3, cy - 5, cx + 5, cy - 5, ink);
    StrokeLine(hdc, cx + 5, cy - 5, cx + 5, cy + 3, ink);
    right -= kChildButtonWidth;
    // Minimise: a bar.
    cx = right - kChildButtonWidth / 2;
    StrokeLine(hdc, cx - 5, cy, cx + 5, cy, ink);
}

} // namespace

HFONT MenuFont() {
    static HFONT font = CreateInterfaceFont();
    return font;
}

std::vector<HWND> WindowsWithMenu(HMENU menu) {
    std::vector<HWND> found;
    for (Window* top : WindowManager::Instance().TopLevel())
        if (top->menu == menu)
            found.push_back(top->handle);
    return found;
}

std::vector<RECT> MenuBarItemRects(HDC hdc, const Menu& menu, const RECT& bar) {
    std::vector<RECT> rects;
    HGDIOBJ oldFont = SelectObject(hdc, MenuFont());
    int x = bar.left;
    for (const MenuItem& item : menu.items) {
        RECT measure{0, 0, 0, 0};
        DrawText(hdc, item.text.c_str(), static_cast<int>(item.text.size()), &measure,
                 DT_SINGLELINE | DT_CALCRECT);
        const int width = measure.right - measure.left + 2 * kItemPadding;
        rects.push_back(RECT{x, bar.top, x + width, bar.bottom});
        x += width;
    }
    SelectObject(hdc, oldFont);
    return rects;
}

void PaintMenuBar(HDC hdc, const Menu& menu, const RECT& bar, bool maximizedChild, int open,
                  bool cues) {
    FillSolid(hdc, bar, GetSysColor(COLOR_MENUBAR));
    const std::vector<RECT> rects = MenuBarItemRects(hdc, menu, bar);
    HGDIOBJ oldFont = SelectObject(hdc, MenuFont());
    SetBkMode(hdc, TRANSPARENT);
    for (std::size_t i = 0; i < rects.size(); ++i) {
        const MenuItem& item = menu.items[i];
        if (item.flags & MF_SEPARATOR)
            continue;
        RECT text = rects[i];
        // The item whose drop-down is open sits on the hot band of the menus.
        if (static_cast<int>(i) == open)
            FillSolid(hdc, rects[i], kOpenBand);
        SetTextColor(hdc, GetSysColor((item.flags & (MF_GRAYED | MF_DISABLED)) ? COLOR_GRAYTEXT
                                                                               : COLOR_MENUTEXT));
        // Mnemonics are underlined only once the keyboard asks for them.
        DrawText(hdc, item.text.c_str(), static_cast<int>(item.text.size()), &text,
                 DT_SINGLELINE | DT_VCENTER | DT_CENTER | (cues ? 0 : DT_HIDEPREFIX));
    }
    SelectObject(hdc, oldFont);
    if (maximizedChild)
        PaintChildButtons(hdc, bar);
}

} // namespace platform::user

using platform::user::Window;
using platform::user::WindowManager;

BOOL SetMenu(HWND hwnd, HMENU menu) {
    Window* window = WindowManager::Instance().Find(hwnd);
    if (!window || window == WindowManager::Instance().Desktop() || (window->style & WS_CHILD)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    if (menu && !platform::user::FindMenu(menu)) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return FALSE;
    }
    if (window->menu == menu)
        return TRUE;
    window->menu = menu;
    // The bar takes its height from the client area.
    SetWindowPos(hwnd, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    return TRUE;
}

HMENU GetMenu(HWND hwnd) {
    Window* window = WindowManager::Instance().Find(hwnd);
    return window && !(window->style & WS_CHILD) ? window->menu : nullptr;
}

BOOL DrawMenuBar(HWND hwnd) {
    Window* window = WindowManager::Instance().Find(hwnd);
    if (!window || !window->menu)
        return FALSE;
    platform::user::RedrawFrame(window);
    return TRUE;
}
