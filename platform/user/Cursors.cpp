// The system's shared cursors and the one the desktop shows. A cursor
// handle names an entry of a fixed table, so every LoadCursor of a name
// gives the same handle and none is ever destroyed.
#include "Cursors.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace platform::user {

namespace {

struct CursorEntry {
    WORD id;
};

constexpr std::array<CursorEntry, 14> kCursors{{
    {32512},
    {32513},
    {32514},
    {32515},
    {32516},
    {32642},
    {32643},
    {32644},
    {32645},
    {32646},
    {32648},
    {32649},
    {32650},
    {32651},
}};

HCURSOR HandleOf(const CursorEntry& entry) {
    return reinterpret_cast<HCURSOR>(const_cast<CursorEntry*>(&entry));
}

const CursorEntry* EntryOf(HCURSOR cursor) {
    for (const CursorEntry& entry : kCursors)
        if (HandleOf(entry) == cursor)
            return &entry;
    return nullptr;
}

POINT& Position() {
    static POINT position{640, 512};
    return position;
}

HCURSOR& Shown() {
    static HCURSOR shown = HandleOf(kCursors[0]);
    return shown;
}

} // namespace

WORD CursorId(HCURSOR cursor) {
    const CursorEntry* entry = EntryOf(cursor);
    return entry ? entry->id : 0;
}

} // namespace platform::user

HCURSOR LoadCursorW(HINSTANCE instance, LPCWSTR name) {
    auto value = reinterpret_cast<uintptr_t>(name);
    if (instance || value > 0xFFFF)
        return nullptr;
    for (const auto& entry : platform::user::kCursors)
        if (entry.id == value)
            return platform::user::HandleOf(entry);
    return nullptr;
}

HCURSOR SetCursor(HCURSOR cursor) {
    if (cursor && !platform::user::EntryOf(cursor))
        return nullptr;
    HCURSOR previous = platform::user::Shown();
    platform::user::Shown() = cursor;
    return previous;
}

HCURSOR GetCursor() {
    return platform::user::Shown();
}

BOOL GetCursorPos(LPPOINT point) {
    if (!point)
        return FALSE;
    *point = platform::user::Position();
    return TRUE;
}

BOOL SetCursorPos(int x, int y) {
    platform::user::Position() = POINT{std::clamp(x, 0, GetSystemMetrics(SM_CXSCREEN) - 1),
                                       std::clamp(y, 0, GetSystemMetrics(SM_CYSCREEN) - 1)};
    return TRUE;
}
