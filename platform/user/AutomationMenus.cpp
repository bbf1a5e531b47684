// The simulated user's right clicks and shortcut menus.
#include "AutomationQueue.h"
#include "Keyboard.h"
#include "MenuTracking.h"
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

namespace {

// The items to go through, from the menu down its pop-ups, to the item with
// this command.
bool PathTo(HMENU handle, UINT command, std::vector<int>* path, int depth = 0) {
    const platform::user::Menu* menu = platform::user::FindMenu(handle);
    if (!menu || depth > 16)
        return false;
    for (std::size_t i = 0; i < menu->items.size(); ++i) {
        const platform::user::MenuItem& item = menu->items[i];
        path->push_back(static_cast<int>(i));
        if (item.popup ? PathTo(item.popup, command, path, depth + 1)
                       : !(item.flags & MF_SEPARATOR) && item.id == command)
            return true;
        path->pop_back();
    }
    return false;
}

} // namespace

void PickPopupMenuItem(UINT command) {
    Queue([command] {
        const std::string what = "shortcut menu " + std::to_string(command);
        const platform::user::TrackedPopup* popup = platform::user::CurrentPopup();
        std::vector<int> path;
        if (!popup || popup->levels.empty()) {
            Note(what + ": no shortcut menu is open");
            return;
        }
        if (!PathTo(popup->levels[0].menu, command, &path)) {
            Note(what + ": no such item");
            return;
        }
        // The pointer goes through the pop-ups on the way, opening each.
        for (std::size_t level = 0; level + 1 < path.size(); ++level) {
            if (!platform::user::OpenPopupLevel(level, path[level])) {
                Note(what + ": its pop-up is disabled");
                return;
            }
        }
        if (popup->levels.size() < path.size()) {
            Note(what + ": its pop-up did not open");
            return;
        }
        const platform::user::MenuLevel& level = popup->levels[path.size() - 1];
        const platform::user::Menu* menu = platform::user::FindMenu(level.menu);
        const auto index = static_cast<std::size_t>(path.back());
        if (!menu || index >= menu->items.size() || index >= level.itemRects.size()) {
            Note(what + ": no such item");
            return;
        }
        const platform::user::MenuItem& item = menu->items[index];
        if (item.flags & (MF_GRAYED | MF_DISABLED)) {
            Note(what + " '" + Narrow(item.text) + "' is disabled");
            return;
        }
        Note(what + " '" + Narrow(item.text) + "'");
        const RECT& r = level.itemRects[index];
        const POINT point{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
        PostMessage(level.window, WM_MOUSEMOVE, 0, MAKELPARAM(point.x, point.y));
        detail::PostClick(level.window, point);
    });
}

void DismissPopupMenu() {
    Queue([] {
        const platform::user::TrackedPopup* popup = platform::user::CurrentPopup();
        if (!popup || (popup->levels.empty() && !popup->bar)) {
            Note("dismiss shortcut menu: none is open");
            return;
        }
        Note("dismiss shortcut menu");
        // Escape closes one level at a time, and from the bar's drop-down
        // goes back to the bar first. The keys go to the owner, which
        // outlives the levels.
        const std::size_t presses = popup->levels.size() + (popup->bar ? 1 : 0);
        for (std::size_t i = 0; i < presses; ++i) {
            PostMessage(popup->owner, WM_KEYDOWN, VK_ESCAPE,
                        platform::user::KeyDownParam(VK_ESCAPE, 0));
            PostMessage(popup->owner, WM_KEYUP, VK_ESCAPE,
                        platform::user::KeyUpParam(VK_ESCAPE, 0));
        }
    });
}

bool ReadPopupMenu(PopupMenuView* view) {
    const platform::user::TrackedPopup* popup = platform::user::CurrentPopup();
    if (!view || !popup || popup->levels.empty())
        return false;
    const platform::user::MenuLevel& level = popup->levels.back();
    const platform::user::Menu* menu = platform::user::FindMenu(level.menu);
    if (!menu)
        return false;
    view->window = level.window;
    GetWindowRect(level.window, &view->rect);
    view->items.clear();
    for (const platform::user::MenuItem& item : menu->items)
        view->items.push_back(PopupMenuItemView{
            item.text, item.popup || (item.flags & MF_SEPARATOR) ? 0 : item.id, item.flags});
    return true;
}

} // namespace platform::automation
