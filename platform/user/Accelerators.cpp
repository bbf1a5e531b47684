// Accelerator tables: keys that stand for commands, loaded from a module's
// ACCELERATORS resource or built in code, and their translation into
// WM_COMMAND.
#include "Menus.h"
#include "WindowManager.h"

#include <platform/ResourceChain.h>
#include <platform/ResourceModule.h>

#include <algorithm>
#include <map>
#include <memory>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace {

struct AcceleratorTable {
    std::vector<ACCEL> entries;
    bool loaded = false; // from a resource: lives as long as the process
};

std::unordered_map<HACCEL, std::unique_ptr<AcceleratorTable>>& Tables() {
    static auto* tables = new std::unordered_map<HACCEL, std::unique_ptr<AcceleratorTable>>();
    return *tables;
}

HACCEL AddTable(std::vector<ACCEL> entries, bool loaded) {
    static uintptr_t next = 0x40000;
    next += 4;
    auto table = std::make_unique<AcceleratorTable>();
    table->entries = std::move(entries);
    table->loaded = loaded;
    auto handle = reinterpret_cast<HACCEL>(next);
    Tables().emplace(handle, std::move(table));
    return handle;
}

AcceleratorTable* Find(HACCEL handle) {
    auto it = Tables().find(handle);
    return it == Tables().end() ? nullptr : it->second.get();
}

bool Down(int vk) {
    return GetKeyState(vk) < 0;
}

bool Matches(const ACCEL& entry, const MSG& msg) {
    const bool keyMessage = msg.message == WM_KEYDOWN || msg.message == WM_SYSKEYDOWN;
    const bool charMessage = msg.message == WM_CHAR || msg.message == WM_SYSCHAR;
    const bool alt = msg.message == WM_SYSKEYDOWN || msg.message == WM_SYSCHAR || Down(VK_MENU);
    if (entry.fVirt & FVIRTKEY) {
        return keyMessage && entry.key == msg.wParam &&
               ((entry.fVirt & FSHIFT) != 0) == Down(VK_SHIFT) &&
               ((entry.fVirt & FCONTROL) != 0) == Down(VK_CONTROL) &&
               ((entry.fVirt & FALT) != 0) == alt;
    }
    return charMessage && entry.key == msg.wParam && ((entry.fVirt & FALT) != 0) == alt;
}

} // namespace

HACCEL LoadAcceleratorsW(HINSTANCE module, LPCWSTR name) {
    // The same table for the same resource, as the original shares it.
    static auto* loaded = new std::map<std::tuple<HINSTANCE, UINT, std::u16string>, HACCEL>();
    const platform::ResourceName key = platform::MakeResourceName(name);
    const auto id = std::make_tuple(module, key.id, key.name);
    auto it = loaded->find(id);
    if (it != loaded->end())
        return it->second;
    const platform::ResourceModule* resources = platform::FindResources(module);
    const auto* table = resources ? resources->FindAccelerators(key) : nullptr;
    if (!table) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    std::vector<ACCEL> entries;
    for (const platform::AcceleratorTemplate& entry : *table)
        entries.push_back(ACCEL{entry.fVirt, entry.key, entry.cmd});
    HACCEL handle = AddTable(std::move(entries), true);
    loaded->emplace(id, handle);
    return handle;
}

HACCEL CreateAcceleratorTableW(LPACCEL entries, int count) {
    if (!entries || count <= 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return AddTable(std::vector<ACCEL>(entries, entries + count), false);
}

BOOL DestroyAcceleratorTable(HACCEL handle) {
    AcceleratorTable* table = Find(handle);
    if (!table || table->loaded)
        return FALSE;
    Tables().erase(handle);
    return TRUE;
}

int CopyAcceleratorTableW(HACCEL handle, LPACCEL entries, int count) {
    AcceleratorTable* table = Find(handle);
    if (!table)
        return 0;
    const int size = static_cast<int>(table->entries.size());
    if (!entries)
        return size;
    const int copied = std::min(size, count);
    for (int i = 0; i < copied; ++i)
        entries[i] = table->entries[static_cast<std::size_t>(i)];
    return copied;
}

int TranslateAcceleratorW(HWND hwnd, HACCEL handle, LPMSG msg) {
    AcceleratorTable* table = Find(handle);
    if (!table || !msg || !IsWindow(hwnd))
        return 0;
    for (const ACCEL& entry : table->entries) {
        if (!Matches(entry, *msg))
            continue;
        // As if the user opened the menu that holds the command: its owner
        // updates the items, and a disabled one sends nothing.
        HMENU menu = GetMenu(hwnd);
        std::vector<platform::user::MenuStep> path;
        if (menu && platform::user::FindMenuItemPath(menu, entry.cmd, &path)) {
            SendMessage(hwnd, WM_INITMENU, reinterpret_cast<WPARAM>(menu), 0);
            for (std::size_t i = 0; i + 1 < path.size(); ++i)
                SendMessage(hwnd, WM_INITMENUPOPUP,
                            reinterpret_cast<WPARAM>(
                                GetSubMenu(path[i].menu, static_cast<int>(path[i].position))),
                            MAKELPARAM(path[i].position, 0));
            if (!IsWindow(hwnd))
                return 1;
            const UINT state = GetMenuState(path.back().menu, path.back().position, MF_BYPOSITION);
            if (state != static_cast<UINT>(-1) && (state & (MF_GRAYED | MF_DISABLED)))
                return 1;
        }
        SendMessage(hwnd, WM_COMMAND, MAKEWPARAM(entry.cmd, 1), 0);
        return 1;
    }
    return 0;
}
