// Command targets, message map look-up and the command user-interface state.
#include <afxwin.h>

#include "WndProc.h"

#include <cstdint>

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP map = {nullptr, &entries[0]};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

namespace platform::afx {
[[gnu::tls_model("initial-exec")]] thread_local LookupCacheEntry t_lookupCache[kLookupCacheSize];
} // namespace platform::afx

namespace {

const AFX_MSGMAP_ENTRY* WalkMaps(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    for (; map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr)
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfn; ++entry)
            if (entry->nMessage == message && entry->nCode == code && entry->nID <= id &&
                id <= entry->nLastID)
                return entry;
    return nullptr;
}

} // namespace

const AFX_MSGMAP_ENTRY* AfxFindMessageEntry(const AFX_MSGMAP* map, UINT message, UINT code,
                                            UINT id) {
    platform::afx::LookupCacheEntry& cached = platform::afx::LookupSlot(map, message, code, id);
    if (cached.map == map && cached.message == message && cached.code == code && cached.id == id)
        return cached.entry;
    const AFX_MSGMAP_ENTRY* entry = WalkMaps(map, message, code, id);
    cached = platform::afx::LookupCacheEntry{map, message, code, id, entry};
    return entry;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* extra, void* handlerInfo) {
    const AFX_MSGMAP_ENTRY* entry =
        AfxFindMessageEntry(GetMessageMap(), WM_COMMAND, static_cast<UINT>(nCode), nID);
    if (!entry)
        return FALSE;
    if (handlerInfo)
        return TRUE;
    entry->pfn(this, nID, reinterpret_cast<LPARAM>(extra));
    return TRUE;
}

void CCmdUI::Enable(BOOL on) {
    m_bEnabled = on ? TRUE : FALSE;
    m_bEnableChanged = TRUE;
    if (m_pMenu && !m_pSubMenu)
        ::EnableMenuItem(m_pMenu->m_hMenu, m_nIndex,
                         MF_BYPOSITION | (on ? MF_ENABLED : (MF_DISABLED | MF_GRAYED)));
}

void CCmdUI::SetCheck(int check) {
    m_nCheck = check;
    if (m_pMenu && !m_pSubMenu)
        ::CheckMenuItem(m_pMenu->m_hMenu, m_nIndex,
                        MF_BYPOSITION | (check ? MF_CHECKED : MF_UNCHECKED));
}

void CCmdUI::SetText(LPCTSTR text) {
    if (!m_pMenu || m_pSubMenu || !text)
        return;
    // The item keeps its place, its command and its state.
    const UINT state = ::GetMenuState(m_pMenu->m_hMenu, m_nIndex, MF_BYPOSITION);
    if (state == static_cast<UINT>(-1))
        return;
    const UINT id = ::GetMenuItemID(m_pMenu->m_hMenu, static_cast<int>(m_nIndex));
    ::RemoveMenu(m_pMenu->m_hMenu, m_nIndex, MF_BYPOSITION);
    ::InsertMenu(m_pMenu->m_hMenu, m_nIndex, MF_BYPOSITION | (state & 0xFF), id, text);
}

BOOL CCmdUI::DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler) {
    if (!target)
        return FALSE;
    m_bEnableChanged = FALSE;
    BOOL handled = target->OnCmdMsg(m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), this, nullptr);
    if (!handled && disableIfNoHandler && !m_bEnableChanged) {
        char info = 0;
        Enable(target->OnCmdMsg(m_nID, CN_COMMAND, this, &info));
    }
    return handled;
}
