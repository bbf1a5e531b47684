// Command targets, message map look-up and the command user-interface state.
#include <afxwin.h>

#include <cstdint>

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP map = {nullptr, &entries[0]};
    return &map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

namespace {

// Message maps are constant tables, so what a look-up found (or that it found
// nothing) stays true: a small cache per thread spares walking the chain of
// maps for every message.
struct LookupCacheEntry {
    const AFX_MSGMAP* map = nullptr;
    UINT message = 0, code = 0, id = 0;
    const AFX_MSGMAP_ENTRY* entry = nullptr;
};
constexpr std::size_t kLookupCacheSize = 64;
// Initial-exec: the library is loaded with the program, and the general model
// would call into the loader for every look-up.
[[gnu::tls_model("initial-exec")]] thread_local LookupCacheEntry t_lookupCache[kLookupCacheSize];

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
    const std::size_t slot =
        (reinterpret_cast<std::uintptr_t>(map) >> 4 ^ message * 31u ^ code * 131u ^ id * 7u) %
        kLookupCacheSize;
    LookupCacheEntry& cached = t_lookupCache[slot];
    if (cached.map == map && cached.message == message && cached.code == code && cached.id == id)
        return cached.entry;
    const AFX_MSGMAP_ENTRY* entry = WalkMaps(map, message, code, id);
    cached = LookupCacheEntry{map, message, code, id, entry};
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
}

void CCmdUI::SetCheck(int check) {
    m_nCheck = check;
}

void CCmdUI::SetText(LPCTSTR) {}

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
