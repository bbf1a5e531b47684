// The framework's window procedure and what it needs to find a window's
// object and a message's handler without a call on the common path.
#pragma once

#include <afxwin.h>

#include <cstddef>
#include <cstdint>

namespace platform::afx {

// Makes the next window created belong to wnd (attached before its first
// message); the previous value comes back for nesting.
CWnd* HookWindowCreate(CWnd* wnd);
void UnhookWindowCreate(CWnd* previous);
// The window being created never reached wnd (its creation failed first).
bool CreationPending(const CWnd* wnd);

// The procedure of every window that has a framework object.
LRESULT FrameworkWndProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// The permanent object found last (Wnd.cpp): a run of messages to one window
// skips the map. Every change of the map forgets it.
extern HWND g_lastPermanent;
extern CWnd* g_lastPermanentWnd;

// Message maps are constant tables, so what a look-up found (or that it found
// nothing) stays true: a small cache per thread spares walking the chain of
// maps for every message.
// Plain data, zero at start: a thread-local without a constructor needs no
// initialisation check at each access from another file.
struct LookupCacheEntry {
    const AFX_MSGMAP* map;
    UINT message, code, id;
    const AFX_MSGMAP_ENTRY* entry;
};
constexpr std::size_t kLookupCacheSize = 64;
// Initial-exec: the library is loaded with the program, and the general model
// would call into the loader for every look-up.
[[gnu::tls_model(
    "initial-exec")]] extern thread_local LookupCacheEntry t_lookupCache[kLookupCacheSize];

inline LookupCacheEntry& LookupSlot(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    const std::size_t slot =
        (reinterpret_cast<std::uintptr_t>(map) >> 4 ^ message * 31u ^ code * 131u ^ id * 7u) %
        kLookupCacheSize;
    return t_lookupCache[slot];
}

// The handler of a window message (code and id 0), the cache tried inline.
inline const AFX_MSGMAP_ENTRY* FindWindowMessageEntry(const AFX_MSGMAP* map, UINT message) {
    const LookupCacheEntry& cached = LookupSlot(map, message, 0, 0);
    if (cached.map == map && cached.message == message && cached.code == 0 && cached.id == 0)
        return cached.entry;
    return AfxFindMessageEntry(map, message, 0, 0);
}

} // namespace platform::afx
