// Copying a menu into another.
#include "WinUtils.h"

#include <algorithm>
#include <vector>

namespace {

// Appends copies of src's items to dst. path holds the menus being copied
// on the way down, so that a menu holding itself is not copied forever.
void AppendCopy(const CMenu* src, CMenu* dst, std::vector<HMENU>& path) {
    if (std::find(path.begin(), path.end(), src->GetSafeHmenu()) != path.end())
        return;
    path.push_back(src->GetSafeHmenu());
    const int count = static_cast<int>(src->GetMenuItemCount());
    for (int pos = 0; pos < count; ++pos) {
        CString text;
        src->GetMenuString(static_cast<UINT>(pos), text, MF_BYPOSITION);
        if (CMenu* sub = src->GetSubMenu(pos)) {
            CMenu popup;
            if (!popup.CreatePopupMenu())
                continue;
            AppendCopy(sub, &popup, path);
            dst->AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(popup.Detach()), text);
        } else {
            dst->AppendMenu(src->GetMenuState(static_cast<UINT>(pos), MF_BYPOSITION),
                            src->GetMenuItemID(pos), text);
        }
    }
    path.pop_back();
}

} // namespace

void WinUtils::AppendMenuHelper(const CMenu* pSrc, HMENU hDst) {
    if (!pSrc || !::IsMenu(pSrc->GetSafeHmenu()) || !::IsMenu(hDst))
        return;
    CMenu* dst = CMenu::FromHandle(hDst);
    if (static_cast<int>(dst->GetMenuItemCount()) > 0)
        dst->AppendMenu(MF_SEPARATOR);
    std::vector<HMENU> path;
    AppendCopy(pSrc, dst, path);
}
