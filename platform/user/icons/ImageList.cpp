// Image lists: pictures of one size kept by index, made from icons and drawn
// onto device contexts. Handles are serial numbers that are never reused.
#include "Icons.h"

#include <commctrl.h>
#include <platform/IconObjects.h>

#include <algorithm>
#include <memory>
#include <unordered_map>

struct _IMAGELIST {
    int cx = 0;
    int cy = 0;
    UINT flags = 0;
    std::vector<platform::user::IconPicture> images;
};

namespace {

constexpr int kLargest = 1024;
constexpr UINT kKnownFlags = ILC_MASK | ILC_COLORDDB | ILC_COLOR32;

struct ListTable {
    std::unordered_map<HIMAGELIST, std::unique_ptr<_IMAGELIST>> lists;
    uintptr_t next = 0x30000;
};

ListTable& Lists() {
    static auto* table = new ListTable();
    return *table;
}

_IMAGELIST* Find(HIMAGELIST handle) {
    auto it = Lists().lists.find(handle);
    return it == Lists().lists.end() ? nullptr : it->second.get();
}

bool Masked(const _IMAGELIST& list) {
    return (list.flags & ILC_MASK) != 0;
}

// The icon's picture as the list keeps it: at the list's size, with as much
// transparency as the list's flags allow.
platform::user::IconPicture AsKept(const _IMAGELIST& list,
                                   const platform::user::IconPicture& picture) {
    platform::user::IconPicture kept = platform::user::ScalePicture(picture, list.cx, list.cy);
    if (!Masked(list)) {
        for (std::uint32_t& p : kept.pixels)
            p |= 0xFF000000u; // over black
    } else if ((list.flags & ILC_COLORDDB) != ILC_COLOR32) {
        platform::user::ThresholdAlpha(&kept);
    }
    return kept;
}

const platform::user::IconPicture* Image(HIMAGELIST handle, int index) {
    const _IMAGELIST* list = Find(handle);
    if (!list || index < 0 || index >= static_cast<int>(list->images.size()))
        return nullptr;
    return &list->images[static_cast<std::size_t>(index)];
}

} // namespace

namespace platform {

int LiveImageLists() {
    return static_cast<int>(Lists().lists.size());
}

} // namespace platform

HIMAGELIST ImageList_Create(int cx, int cy, UINT flags, int initial, int grow) {
    (void)grow; // the images grow as they come
    if (cx <= 0 || cy <= 0 || cx > kLargest || cy > kLargest || (flags & ~kKnownFlags))
        return nullptr;
    auto list = std::make_unique<_IMAGELIST>();
    list->cx = cx;
    list->cy = cy;
    list->flags = flags;
    if (initial > 0)
        list->images.reserve(static_cast<std::size_t>(std::min(initial, 256)));
    ListTable& table = Lists();
    table.next += 4;
    auto handle = reinterpret_cast<HIMAGELIST>(table.next);
    table.lists.emplace(handle, std::move(list));
    return handle;
}

BOOL ImageList_Destroy(HIMAGELIST handle) {
    return Lists().lists.erase(handle) ? TRUE : FALSE;
}

int ImageList_GetImageCount(HIMAGELIST handle) {
    const _IMAGELIST* list = Find(handle);
    return list ? static_cast<int>(list->images.size()) : 0;
}

BOOL ImageList_GetIconSize(HIMAGELIST handle, int* cx, int* cy) {
    const _IMAGELIST* list = Find(handle);
    if (!list || !cx || !cy)
        return FALSE;
    *cx = list->cx;
    *cy = list->cy;
    return TRUE;
}

int ImageList_ReplaceIcon(HIMAGELIST handle, int index, HICON icon) {
    _IMAGELIST* list = Find(handle);
    const platform::user::IconPicture* picture = platform::user::FindIconPicture(icon);
    if (!list || !picture || index < -1 || index >= static_cast<int>(list->images.size()))
        return -1;
    platform::user::IconPicture kept = AsKept(*list, *picture);
    if (index == -1) {
        list->images.push_back(std::move(kept));
        return static_cast<int>(list->images.size()) - 1;
    }
    list->images[static_cast<std::size_t>(index)] = std::move(kept);
    return index;
}

BOOL ImageList_Draw(HIMAGELIST handle, int index, HDC hdc, int x, int y, UINT style) {
    const platform::user::IconPicture* image = Image(handle, index);
    if (!image)
        return FALSE;
    using platform::user::IconDraw;
    return platform::user::DrawPicture(hdc, x, y, *image,
                                       (style & ILD_MASK) ? IconDraw::Mask : IconDraw::Normal)
               ? TRUE
               : FALSE;
}

HICON ImageList_GetIcon(HIMAGELIST handle, int index, UINT flags) {
    (void)flags; // the icon always carries the image's transparency
    const platform::user::IconPicture* image = Image(handle, index);
    return image ? platform::user::CreateIconFromPicture(*image) : nullptr;
}
