// Menus: menu bars and pop-ups with their items, built in code or from a
// module's MENU resource.
#include "Menus.h"

#include "WindowManager.h"

#include <platform/ResourceChain.h>
#include <platform/ResourceModule.h>

#include <algorithm>
#include <memory>
#include <unordered_map>

namespace platform::user {

namespace {

std::unordered_map<HMENU, std::unique_ptr<Menu>>& Table() {
    static auto* table = new std::unordered_map<HMENU, std::unique_ptr<Menu>>();
    return *table;
}

HMENU NewMenu(bool popup) {
    // Menu handles count in a range of their own, never reused.
    static uintptr_t next = 0x30000;
    next += 4;
    auto menu = std::make_unique<Menu>();
    menu->handle = reinterpret_cast<HMENU>(next);
    menu->popup = popup;
    HMENU handle = menu->handle;
    Table().emplace(handle, std::move(menu));
    return handle;
}

// How deep a search goes through pop-ups: a menu may hold itself, directly
// or through its pop-ups, and a search must still end.
constexpr int kMaxMenuDepth = 32;

// The item named by position or by command, searched depth first through the
// pop-ups for a command; the menu that holds it comes back in owner.
MenuItem* Locate(Menu* menu, UINT position, UINT flags, Menu** owner, int depth = 0) {
    if (flags & MF_BYPOSITION) {
        if (position >= menu->items.size())
            return nullptr;
        *owner = menu;
        return &menu->items[position];
    }
    for (MenuItem& item : menu->items) {
        if (!item.popup && !(item.flags & MF_SEPARATOR) && item.id == position) {
            *owner = menu;
            return &item;
        }
        Menu* sub = depth < kMaxMenuDepth ? FindMenu(item.popup) : nullptr;
        if (sub)
            if (MenuItem* found = Locate(sub, position, flags, owner, depth + 1))
                return found;
    }
    return nullptr;
}

MenuItem* Locate(HMENU handle, UINT position, UINT flags) {
    Menu* menu = FindMenu(handle);
    Menu* owner = nullptr;
    return menu ? Locate(menu, position, flags, &owner) : nullptr;
}

bool MakeItem(UINT flags, UINT_PTR item, LPCWSTR text, MenuItem* out) {
    out->flags = flags & ~static_cast<UINT>(MF_BYPOSITION);
    if (flags & MF_POPUP) {
        out->popup = reinterpret_cast<HMENU>(item);
        if (!FindMenu(out->popup))
            return false;
        out->id = 0;
    } else {
        out->popup = nullptr;
        out->id = static_cast<UINT>(item);
    }
    out->text = (flags & MF_SEPARATOR) || !text ? u"" : text;
    return true;
}

HMENU Build(const std::vector<MenuItemTemplate>& items, bool popup) {
    HMENU handle = NewMenu(popup);
    for (const MenuItemTemplate& item : items) {
        if (item.flags & MF_POPUP)
            AppendMenuW(handle, item.flags, reinterpret_cast<UINT_PTR>(Build(item.children, true)),
                        item.text.c_str());
        else
            AppendMenuW(handle, item.flags, item.id, item.text.c_str());
    }
    return handle;
}

} // namespace

Menu* FindMenu(HMENU handle) {
    auto it = Table().find(handle);
    return it == Table().end() ? nullptr : it->second.get();
}

bool FindMenuItemPath(HMENU handle, UINT command, std::vector<MenuStep>* path) {
    Menu* menu = FindMenu(handle);
    if (!menu || path->size() > static_cast<std::size_t>(kMaxMenuDepth))
        return false;
    for (std::size_t i = 0; i < menu->items.size(); ++i) {
        const MenuItem& item = menu->items[i];
        if (!item.popup && !(item.flags & MF_SEPARATOR) && item.id == command) {
            path->push_back(MenuStep{handle, static_cast<UINT>(i)});
            return true;
        }
        if (item.popup) {
            path->push_back(MenuStep{handle, static_cast<UINT>(i)});
            if (FindMenuItemPath(item.popup, command, path))
                return true;
            path->pop_back();
        }
    }
    return false;
}

} // namespace platform::user

using platform::user::FindMenu;
using platform::user::Menu;
using platform::user::MenuItem;

HMENU CreateMenu() {
    return platform::user::NewMenu(false);
}

HMENU CreatePopupMenu() {
    return platform::user::NewMenu(true);
}

BOOL DestroyMenu(HMENU handle) {
    auto& table = platform::user::Table();
    auto it = table.find(handle);
    if (it == table.end())
        return FALSE;
    std::unique_ptr<Menu> menu = std::move(it->second);
    table.erase(it);
    for (const MenuItem& item : menu->items)
        if (item.popup)
            DestroyMenu(item.popup);
    // A window whose menu bar it was has none now.
    for (HWND hwnd : platform::user::WindowsWithMenu(handle))
        SetMenu(hwnd, nullptr);
    return TRUE;
}

BOOL IsMenu(HMENU handle) {
    return FindMenu(handle) ? TRUE : FALSE;
}

BOOL AppendMenuW(HMENU handle, UINT flags, UINT_PTR item, LPCWSTR text) {
    return InsertMenuW(handle, static_cast<UINT>(-1), flags | MF_BYPOSITION, item, text);
}

BOOL InsertMenuW(HMENU handle, UINT position, UINT flags, UINT_PTR item, LPCWSTR text) {
    Menu* menu = FindMenu(handle);
    MenuItem entry;
    if (!menu || !platform::user::MakeItem(flags, item, text, &entry))
        return FALSE;
    Menu* owner = menu;
    std::size_t at = menu->items.size();
    if (flags & MF_BYPOSITION) {
        at = std::min<std::size_t>(position, menu->items.size());
    } else if (MenuItem* found = platform::user::Locate(menu, position, flags, &owner)) {
        at = static_cast<std::size_t>(found - owner->items.data());
    }
    owner->items.insert(owner->items.begin() + static_cast<std::ptrdiff_t>(at), entry);
    return TRUE;
}

namespace {

BOOL Remove(HMENU handle, UINT position, UINT flags, bool destroy) {
    Menu* menu = FindMenu(handle);
    Menu* owner = nullptr;
    MenuItem* item = menu ? platform::user::Locate(menu, position, flags, &owner) : nullptr;
    if (!item)
        return FALSE;
    HMENU popup = item->popup;
    owner->items.erase(owner->items.begin() + (item - owner->items.data()));
    if (destroy && popup)
        DestroyMenu(popup);
    return TRUE;
}

} // namespace

BOOL RemoveMenu(HMENU handle, UINT position, UINT flags) {
    return Remove(handle, position, flags, false);
}

BOOL DeleteMenu(HMENU handle, UINT position, UINT flags) {
    return Remove(handle, position, flags, true);
}

int GetMenuItemCount(HMENU handle) {
    Menu* menu = FindMenu(handle);
    return menu ? static_cast<int>(menu->items.size()) : -1;
}

UINT GetMenuItemID(HMENU handle, int pos) {
    Menu* menu = FindMenu(handle);
    if (!menu || pos < 0 || static_cast<std::size_t>(pos) >= menu->items.size())
        return static_cast<UINT>(-1);
    const MenuItem& item = menu->items[static_cast<std::size_t>(pos)];
    return item.popup ? static_cast<UINT>(-1) : item.id;
}

HMENU GetSubMenu(HMENU handle, int pos) {
    Menu* menu = FindMenu(handle);
    if (!menu || pos < 0 || static_cast<std::size_t>(pos) >= menu->items.size())
        return nullptr;
    return menu->items[static_cast<std::size_t>(pos)].popup;
}

int GetMenuStringW(HMENU handle, UINT position, LPWSTR buffer, int max, UINT flags) {
    const MenuItem* item = platform::user::Locate(handle, position, flags);
    if (!item)
        return 0;
    const int length = static_cast<int>(item->text.size());
    if (!buffer)
        return length;
    if (max <= 0)
        return 0;
    const int count = std::min(length, max - 1);
    std::copy_n(item->text.data(), count, buffer);
    buffer[count] = 0;
    return count;
}

UINT GetMenuState(HMENU handle, UINT position, UINT flags) {
    const MenuItem* item = platform::user::Locate(handle, position, flags);
    if (!item)
        return static_cast<UINT>(-1);
    UINT state = item->flags & (MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_SEPARATOR | MF_POPUP |
                                MF_MENUBARBREAK | MF_MENUBREAK | MF_HELP);
    if (const Menu* sub = FindMenu(item->popup))
        state |= static_cast<UINT>(sub->items.size()) << 8;
    return state;
}

DWORD CheckMenuItem(HMENU handle, UINT position, UINT check) {
    MenuItem* item = platform::user::Locate(handle, position, check & MF_BYPOSITION);
    if (!item)
        return static_cast<DWORD>(-1);
    DWORD previous = item->flags & MF_CHECKED;
    item->flags = (item->flags & ~static_cast<UINT>(MF_CHECKED)) | (check & MF_CHECKED);
    return previous;
}

BOOL EnableMenuItem(HMENU handle, UINT position, UINT enable) {
    MenuItem* item = platform::user::Locate(handle, position, enable & MF_BYPOSITION);
    if (!item)
        return -1;
    UINT previous = item->flags & (MF_GRAYED | MF_DISABLED);
    item->flags = (item->flags & ~static_cast<UINT>(MF_GRAYED | MF_DISABLED)) |
                  (enable & (MF_GRAYED | MF_DISABLED));
    return static_cast<BOOL>(previous);
}

HMENU LoadMenuW(HINSTANCE module, LPCWSTR name) {
    const platform::ResourceModule* resources = platform::FindResources(module);
    const platform::MenuTemplate* tmpl =
        resources ? resources->FindMenu(platform::MakeResourceName(name)) : nullptr;
    if (!tmpl) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    return platform::user::Build(tmpl->items, false);
}
