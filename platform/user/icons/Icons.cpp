// Icons: a module's icons loaded from its resource table, shared and kept
// for the process, and icons of their own made from pictures (an image
// list's images), which DestroyIcon frees. Handles are serial numbers that
// are never reused, so a destroyed icon's handle stays invalid.
#include "Icons.h"

#include <platform/IconObjects.h>
#include <platform/ResourceChain.h>
#include <platform/ResourceModule.h>
#include <windows.h>

#include <map>
#include <memory>
#include <tuple>
#include <unordered_map>

namespace platform::user {

namespace {

struct Icon {
    IconPicture picture;
    bool shared = false;
    // A shared icon's .ico bytes: a module that reads its script again gets
    // a new icon when the file changed.
    std::vector<std::uint8_t> source;
};

struct IconTable {
    std::unordered_map<HICON, std::unique_ptr<Icon>> icons;
    std::map<std::tuple<HINSTANCE, UINT, std::u16string>, HICON> shared;
    uintptr_t next = 0x20000;
    int own = 0; // icons of their own alive
};

// Kept for the life of the process: shared icons outlive every caller.
IconTable& Table() {
    static auto* table = new IconTable();
    return *table;
}

HICON Enter(std::unique_ptr<Icon> icon) {
    IconTable& table = Table();
    table.next += 4;
    auto handle = reinterpret_cast<HICON>(table.next);
    if (!icon->shared)
        ++table.own;
    table.icons.emplace(handle, std::move(icon));
    return handle;
}

Icon* Find(HICON handle) {
    auto it = Table().icons.find(handle);
    return it == Table().icons.end() ? nullptr : it->second.get();
}

} // namespace

const IconPicture* FindIconPicture(HICON icon) {
    const Icon* found = Find(icon);
    return found ? &found->picture : nullptr;
}

HICON CreateIconFromPicture(IconPicture picture) {
    if (picture.Empty())
        return nullptr;
    auto icon = std::make_unique<Icon>();
    icon->picture = std::move(picture);
    return Enter(std::move(icon));
}

} // namespace platform::user

namespace platform {

int LiveIcons() {
    return user::Table().own;
}

} // namespace platform

using platform::user::Icon;
using platform::user::IconPicture;

HICON LoadIconW(HINSTANCE instance, LPCWSTR name) {
    // The system's own icons are not available here.
    if (!instance || !name)
        return nullptr;
    const platform::ResourceModule* module = platform::FindResources(instance);
    const platform::ResourceName resource = platform::MakeResourceName(name);
    const platform::IconTemplate* found = module ? module->FindIcon(resource) : nullptr;
    if (!found)
        return nullptr;
    platform::user::IconTable& table = platform::user::Table();
    const auto key = std::make_tuple(instance, resource.id, resource.name);
    if (auto it = table.shared.find(key); it != table.shared.end()) {
        const Icon* cached = platform::user::Find(it->second);
        if (cached && cached->source == found->bytes)
            return it->second;
    }
    const std::vector<platform::user::IconEntry> entries =
        platform::user::ReadIconDirectory(found->bytes);
    const int chosen = platform::user::ChooseIconEntry(entries, GetSystemMetrics(SM_CXICON),
                                                       GetSystemMetrics(SM_CYICON));
    auto icon = std::make_unique<Icon>();
    if (chosen < 0 || !platform::user::DecodeIconImage(
                          found->bytes, entries[static_cast<std::size_t>(chosen)], &icon->picture))
        return nullptr;
    icon->shared = true;
    icon->source = found->bytes;
    HICON handle = platform::user::Enter(std::move(icon));
    table.shared[key] = handle;
    return handle;
}

BOOL DestroyIcon(HICON handle) {
    platform::user::IconTable& table = platform::user::Table();
    auto it = table.icons.find(handle);
    if (it == table.icons.end())
        return FALSE;
    // A module's icons are shared: destroying one leaves it to the module.
    if (it->second->shared)
        return TRUE;
    table.icons.erase(it);
    --table.own;
    return TRUE;
}

BOOL DrawIconEx(HDC hdc, int x, int y, HICON handle, int cx, int cy, UINT step, HBRUSH flickerFree,
                UINT flags) {
    (void)step; // animated cursors only
    const IconPicture* picture = platform::user::FindIconPicture(handle);
    if (!picture || !(flags & DI_NORMAL) || cx < 0 || cy < 0)
        return FALSE;
    if (cx == 0)
        cx = (flags & DI_DEFAULTSIZE) ? GetSystemMetrics(SM_CXICON) : picture->width;
    if (cy == 0)
        cy = (flags & DI_DEFAULTSIZE) ? GetSystemMetrics(SM_CYICON) : picture->height;
    // The flicker-free brush is the background the icon is composed on.
    if (flickerFree) {
        RECT area{x, y, x + cx, y + cy};
        if (!FillRect(hdc, &area, flickerFree))
            return FALSE;
    }
    using platform::user::IconDraw;
    const IconDraw how = (flags & DI_NORMAL) == DI_NORMAL ? IconDraw::Normal
                         : (flags & DI_IMAGE)             ? IconDraw::Image
                                                          : IconDraw::Mask;
    return platform::user::DrawPicture(hdc, x, y, platform::user::ScalePicture(*picture, cx, cy),
                                       how)
               ? TRUE
               : FALSE;
}

BOOL DrawIcon(HDC hdc, int x, int y, HICON icon) {
    return DrawIconEx(hdc, x, y, icon, 0, 0, 0, nullptr, DI_NORMAL | DI_DEFAULTSIZE);
}
