// The simulated user's right clicks and shortcut menus.
#include "AutomationQueue.h"
#include "Keyboard.h"
#include "Menus.h"

#include <platform/Automation.h>

namespace platform::automation {

using detail::Describe;
using detail::Narrow;
using detail::Note;
using detail::Queue;

void RightClickAt(HWND hwnd, POINT client) {
    Queue([hwnd, client] {
        if (!IsWindow(hwnd) || !IsWindowVisible(hwnd) || !IsWindowEnabled(hwnd)) {
            Note("right click at a window that cannot be clicked");
            return;
        }
        Note("right click at " + std::to_string(client.x) + "," + std::to_string(client.y) +
             " in " + Describe(hwnd));
        POINT screen = client;
        ClientToScreen(hwnd, &screen);
        SetCursorPos(screen.x, screen.y);
        const LPARAM where = MAKELPARAM(client.x, client.y);
        PostMessage(hwnd, WM_RBUTTONDOWN, MK_RBUTTON, where);
        PostMessage(hwnd, WM_RBUTTONUP, 0, where);
    });
}

void PickPopupMenuItem(UINT command) {
    Queue([command] {
        const std::string what = "shortcut menu " + std::to_string(command);
        const platform::user::TrackedPopup* popup = platform::user::CurrentPopup();
        const platform::user::Menu* menu = popup ? platform::user::FindMenu(popup->menu) : nullptr;
        if (!menu) {
            Note(what + ": no shortcut menu is open");
            return;
        }
        for (std::size_t i = 0; i < menu->items.size() && i < popup->itemRects.size(); ++i) {
            const platform::user::MenuItem& item = menu->items[i];
            if (item.popup || (item.flags & MF_SEPARATOR) || item.id != command)
                continue;
            if (item.flags & (MF_GRAYED | MF_DISABLED)) {
                Note(what + " '" + Narrow(item.text) + "' is disabled");
                return;
            }
            Note(what + " '" + Narrow(item.text) + "'");
            const RECT& r = popup->itemRects[i];
            const POINT point{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
            PostMessage(popup->window, WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
            detail::PostClick(popup->window, point);
            return;
        }
        Note(what + ": no such item");
    });
}

void DismissPopupMenu() {
    Queue([] {
        const platform::user::TrackedPopup* popup = platform::user::CurrentPopup();
        if (!popup) {
            Note("dismiss shortcut menu: none is open");
            return;
        }
        Note("dismiss shortcut menu");
        PostMessage(popup->window, WM_KEYDOWN, VK_ESCAPE,
                    platform::user::KeyDownParam(VK_ESCAPE, 0));
        PostMessage(popup->window, WM_KEYUP, VK_ESCAPE, platform::user::KeyUpParam(VK_ESCAPE, 0));
    });
}

bool ReadPopupMenu(PopupMenuView* view) {
    const platform::user::TrackedPopup* popup = platform::user::CurrentPopup();
    const platform::user::Menu* menu = popup ? platform::user::FindMenu(popup->menu) : nullptr;
    if (!view || !menu)
        return false;
    view->window = popup->window;
    GetWindowRect(popup->window, &view->rect);
    view->items.clear();
    for (const platform::user::MenuItem& item : menu->items)
        view->items.push_back(PopupMenuItemView{
            item.text, item.popup || (item.flags & MF_SEPARATOR) ? 0 : item.id, item.flags});
    return true;
}

} // namespace platform::automation
