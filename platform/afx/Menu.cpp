// CMenu: menu objects attached to menu handles.
#include <afxwin.h>

#include <memory>
#include <unordered_map>

namespace {

std::unordered_map<HMENU, CMenu*>& Permanent() {
    static auto* map = new std::unordered_map<HMENU, CMenu*>();
    return *map;
}

// Wrappers for menus no object was made for, kept while the menu lives.
std::unordered_map<HMENU, std::unique_ptr<CMenu>>& Temporary() {
    static auto* map = new std::unordered_map<HMENU, std::unique_ptr<CMenu>>();
    return *map;
}

void DropDeadTemporaries() {
    auto& temporary = Temporary();
    for (auto it = temporary.begin(); it != temporary.end();) {
        if (::IsMenu(it->first)) {
            ++it;
            continue;
        }
        it->second->Detach();
        it = temporary.erase(it);
    }
}

} // namespace

CMenu::~CMenu() {
    DestroyMenu();
}

CMenu* CMenu::FromHandle(HMENU menu) {
    if (!menu || !::IsMenu(menu))
        return nullptr;
    auto it = Permanent().find(menu);
    if (it != Permanent().end())
        return it->second;
    DropDeadTemporaries();
    auto& slot = Temporary()[menu];
    if (!slot) {
        slot = std::make_unique<CMenu>();
        slot->m_hMenu = menu;
    }
    return slot.get();
}

BOOL CMenu::Attach(HMENU menu) {
    if (!menu || m_hMenu || Permanent().count(menu))
        return FALSE;
    m_hMenu = menu;
    Permanent()[menu] = this;
    return TRUE;
}

HMENU CMenu::Detach() {
    HMENU menu = m_hMenu;
    if (menu) {
        auto it = Permanent().find(menu);
        if (it != Permanent().end() && it->second == this)
            Permanent().erase(it);
    }
    m_hMenu = nullptr;
    return menu;
}

BOOL CMenu::CreateMenu() {
    return Attach(::CreateMenu());
}

BOOL CMenu::CreatePopupMenu() {
    return Attach(::CreatePopupMenu());
}

BOOL CMenu::LoadMenu(UINT id) {
    return LoadMenu(MAKEINTRESOURCE(id));
}

BOOL CMenu::LoadMenu(LPCTSTR name) {
    return Attach(::LoadMenu(AfxFindResourceHandle(name, RT_MENU), name));
}

BOOL CMenu::DestroyMenu() {
    // A temporary wrapper never owns its menu.
    auto it = Temporary().find(m_hMenu);
    if (m_hMenu && it != Temporary().end() && it->second.get() == this)
        return FALSE;
    HMENU menu = Detach();
    return menu ? ::DestroyMenu(menu) : FALSE;
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR item, LPCTSTR text) {
    return ::AppendMenu(m_hMenu, flags, item, text);
}

BOOL CMenu::InsertMenu(UINT position, UINT flags, UINT_PTR item, LPCTSTR text) {
    return ::InsertMenu(m_hMenu, position, flags, item, text);
}

BOOL CMenu::RemoveMenu(UINT position, UINT flags) {
    return ::RemoveMenu(m_hMenu, position, flags);
}

BOOL CMenu::DeleteMenu(UINT position, UINT flags) {
    return ::DeleteMenu(m_hMenu, position, flags);
}

UINT CMenu::GetMenuItemCount() const {
    return static_cast<UINT>(::GetMenuItemCount(m_hMenu));
}

UINT CMenu::GetMenuItemID(int pos) const {
    return ::GetMenuItemID(m_hMenu, pos);
}

UINT CMenu::GetMenuState(UINT item, UINT flags) const {
    return ::GetMenuState(m_hMenu, item, flags);
}

int CMenu::GetMenuString(UINT item, CString& text, UINT flags) const {
    const int length = ::GetMenuString(m_hMenu, item, nullptr, 0, flags);
    LPWSTR buffer = text.GetBufferSetLength(length);
    const int copied = length > 0 ? ::GetMenuString(m_hMenu, item, buffer, length + 1, flags) : 0;
    text.ReleaseBuffer(copied);
    return copied;
}

CMenu* CMenu::GetSubMenu(int pos) const {
    return FromHandle(::GetSubMenu(m_hMenu, pos));
}

UINT CMenu::EnableMenuItem(UINT item, UINT enable) {
    return static_cast<UINT>(::EnableMenuItem(m_hMenu, item, enable));
}

UINT CMenu::CheckMenuItem(UINT item, UINT check) {
    return ::CheckMenuItem(m_hMenu, item, check);
}
