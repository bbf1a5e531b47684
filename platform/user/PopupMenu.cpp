// Shortcut menus: TrackPopupMenu shows a menu in a window of its own above
// everything else and runs a loop of its own until the user picks an item
// or dismisses the menu. While it is open the keyboard talks to the menu, and
// a button pressed outside it closes it (the press goes no further).
#include "Menus.h"

#include "WindowManager.h"

#include <platform/Automation.h>
#include <platform/MessagePump.h>

#include <algorithm>

namespace platform::user {

namespace {

constexpr const WCHAR* kPopupClass = u"#32768";

TrackedPopup*& Current() {
    static TrackedPopup* current = nullptr;
    return current;
}

int ItemAt(const TrackedPopup& popup, POINT point) {
    for (std::size_t i = 0; i < popup.itemRects.size(); ++i) {
        const RECT& r = popup.itemRects[i];
        if (point.x >= r.left && point.x < r.right && point.y >= r.top && point.y < r.bottom)
            return static_cast<int>(i);
    }
    return -1;
}

// The item at index, when it can be picked: a command that is not greyed.
const MenuItem* Pickable(const TrackedPopup& popup, int index) {
    const Menu* menu = FindMenu(popup.menu);
    if (!menu || index < 0 || static_cast<std::size_t>(index) >= menu->items.size())
        return nullptr;
    const MenuItem& item = menu->items[static_cast<std::size_t>(index)];
    if (item.popup || (item.flags & (MF_SEPARATOR | MF_GRAYED | MF_DISABLED)))
        return nullptr;
    return &item;
}

void Choose(TrackedPopup& popup, int index) {
    if (const MenuItem* item = Pickable(popup, index)) {
        popup.chosen = item->id;
        popup.done = true;
    }
}

void SetHot(TrackedPopup& popup, int index) {
    if (popup.hot == index)
        return;
    popup.hot = index;
    InvalidateRect(popup.window, nullptr, FALSE);
}

// The next item up or down that is not a separator, wrapping round.
void MoveHot(TrackedPopup& popup, int step) {
    const Menu* menu = FindMenu(popup.menu);
    const int count = menu ? static_cast<int>(menu->items.size()) : 0;
    int index = popup.hot;
    for (int tries = 0; tries < count; ++tries) {
        index = index < 0 ? (step > 0 ? 0 : count - 1) : (index + step + count) % count;
        if (!(menu->items[static_cast<std::size_t>(index)].flags & MF_SEPARATOR)) {
            SetHot(popup, index);
            return;
        }
    }
}

LRESULT PopupProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    TrackedPopup* popup = Current();
    if (!popup || popup->window != hwnd)
        return DefWindowProc(hwnd, message, wParam, lParam);
    const POINT point{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    switch (message) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT: {
        PAINTSTRUCT ps;
        HDC hdc = BeginPaint(hwnd, &ps);
        RECT client;
        GetClientRect(hwnd, &client);
        if (const Menu* menu = FindMenu(popup->menu))
            PaintPopup(hdc, *menu, popup->itemRects, popup->hot, client);
        EndPaint(hwnd, &ps);
        return 0;
    }
    case WM_MOUSEMOVE:
        SetHot(*popup, ItemAt(*popup, point));
        return 0;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
        Choose(*popup, ItemAt(*popup, point));
        return 0;
    case WM_KEYDOWN:
        if (wParam == VK_ESCAPE)
            popup->done = true;
        else if (wParam == VK_DOWN)
            MoveHot(*popup, 1);
        else if (wParam == VK_UP)
            MoveHot(*popup, -1);
        else if (wParam == VK_RETURN)
            Choose(*popup, popup->hot);
        return 0;
    default:
        return DefWindowProc(hwnd, message, wParam, lParam);
    }
}

void RegisterPopupClass() {
    WNDCLASS wc{};
    if (GetClassInfo(nullptr, kPopupClass, &wc))
        return;
    wc.lpfnWndProc = PopupProc;
    wc.lpszClassName = kPopupClass;
    RegisterClass(&wc);
}

// Where the menu's window goes for the alignment asked, kept on the screen:
// a menu that would pass the right or bottom edge opens the other way.
POINT Place(UINT flags, int x, int y, SIZE size) {
    if (flags & TPM_CENTERALIGN)
        x -= size.cx / 2;
    else if (flags & TPM_RIGHTALIGN)
        x -= size.cx;
    if (flags & TPM_VCENTERALIGN)
        y -= size.cy / 2;
    else if (flags & TPM_BOTTOMALIGN)
        y -= size.cy;
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    if (x + size.cx > screenWidth)
        x -= size.cx;
    if (y + size.cy > screenHeight)
        y -= size.cy;
    return POINT{std::clamp(x, 0, std::max(0, screenWidth - static_cast<int>(size.cx))),
                 std::clamp(y, 0, std::max(0, screenHeight - static_cast<int>(size.cy)))};
}

bool IsButtonDown(UINT message) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
    case WM_XBUTTONDOWN:
    case WM_XBUTTONDBLCLK:
        return true;
    default:
        return false;
    }
}

// Runs messages until the menu is done; false when WM_QUIT came up (it is
// posted again for the loop outside).
bool RunMenuLoop(TrackedPopup& popup) {
    while (!popup.done) {
        MSG msg;
        if (!PeekMessage(&msg, nullptr, 0, 0, PM_REMOVE)) {
            if (platform::RunIdle())
                continue;
            // Nobody is left to act: the menu goes as Escape would take it.
            platform::automation::NoteCancelled(popup.window);
            return true;
        }
        if (msg.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(msg.wParam));
            return false;
        }
        if (msg.message >= WM_KEYFIRST && msg.message <= WM_KEYLAST)
            msg.hwnd = popup.window;
        if (IsButtonDown(msg.message) && msg.hwnd != popup.window)
            return true;
        TranslateMessage(&msg);
        DispatchMessage(&msg);
        if (msg.message == WM_PAINT) {
            RECT update;
            if (IsWindow(msg.hwnd) && GetUpdateRect(msg.hwnd, &update, FALSE))
                ValidateRect(msg.hwnd, nullptr);
        }
        // The owner may have gone while the menu was open.
        if (!IsWindow(popup.owner) || !IsWindow(popup.window))
            return true;
    }
    return true;
}

} // namespace

const TrackedPopup* CurrentPopup() {
    return Current();
}

} // namespace platform::user

BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*) {
    using platform::user::TrackedPopup;
    if (!platform::user::FindMenu(menu)) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return FALSE;
    }
    if (!IsWindow(owner)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    if (platform::user::Current()) {
        SetLastError(ERROR_POPUP_ALREADY_ACTIVE);
        return FALSE;
    }
    SendMessage(owner, WM_ENTERMENULOOP, TRUE, 0);
    // The owner may change the items before they are shown.
    SendMessage(owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELPARAM(0, FALSE));
    const platform::user::Menu* items = platform::user::FindMenu(menu);
    if (!items || items->items.empty() || !IsWindow(owner)) {
        if (IsWindow(owner))
            SendMessage(owner, WM_EXITMENULOOP, TRUE, 0);
        return FALSE;
    }
    platform::user::RegisterPopupClass();
    TrackedPopup popup;
    popup.menu = menu;
    popup.owner = owner;
    HDC screen = GetDC(nullptr);
    const SIZE size = platform::user::LayOutPopup(screen, *items, &popup.itemRects);
    ReleaseDC(nullptr, screen);
    const POINT at = platform::user::Place(flags, x, y, size);
    popup.window =
        CreateWindowEx(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, platform::user::kPopupClass, u"", WS_POPUP,
                       at.x, at.y, size.cx, size.cy, owner, nullptr, nullptr, nullptr);
    if (!popup.window) {
        SendMessage(owner, WM_EXITMENULOOP, TRUE, 0);
        return FALSE;
    }
    {
        // The menu is open for the loop, however it ends.
        struct Open {
            explicit Open(TrackedPopup* popup) { platform::user::Current() = popup; }
            ~Open() { platform::user::Current() = nullptr; }
            Open(const Open&) = delete;
            Open& operator=(const Open&) = delete;
        } open(&popup);
        ShowWindow(popup.window, SW_SHOWNA);
        platform::user::RunMenuLoop(popup);
    }
    if (IsWindow(popup.window))
        DestroyWindow(popup.window);
    if (!IsWindow(owner))
        return FALSE;
    SendMessage(owner, WM_EXITMENULOOP, TRUE, 0);
    if (flags & TPM_RETURNCMD)
        return static_cast<BOOL>(popup.chosen);
    if (popup.chosen)
        PostMessage(owner, WM_COMMAND, MAKEWPARAM(popup.chosen, 0), 0);
    return TRUE;
}
