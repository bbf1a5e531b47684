// Shortcut menus: TrackPopupMenu shows a menu at a point of the screen and
// runs it until the user picks an item or dismisses the menu.
#include "MenuTracking.h"

#include <algorithm>

namespace platform::user {

namespace {

// Where the menu's window goes for the alignment asked, kept on the screen:
// a menu that would pass the right or bottom edge opens the other way.
POINT Place(UINT flags, int x, int y, SIZE size) {
    if (flags & TPM_CENTERALIGN)
        x -= size.cx / 2;
    else if (flags & TPM_RIGHTALIGN)
        x -= size.cx;
    if (flags & TPM_VCENTERALIGN)
        y -= size.cy / 2;
    else if (flags & TPM_BOTTOMALIGN)
        y -= size.cy;
    const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
    const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
    if (x + size.cx > screenWidth)
        x -= size.cx;
    if (y + size.cy > screenHeight)
        y -= size.cy;
    return POINT{std::clamp(x, 0, std::max(0, screenWidth - static_cast<int>(size.cx))),
                 std::clamp(y, 0, std::max(0, screenHeight - static_cast<int>(size.cy)))};
}

} // namespace

} // namespace platform::user

BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*) {
    using platform::user::TrackedPopup;
    if (!platform::user::FindMenu(menu)) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return FALSE;
    }
    if (!IsWindow(owner)) {
        SetLastError(ERROR_INVALID_WINDOW_HANDLE);
        return FALSE;
    }
    if (platform::user::CurrentPopup()) {
        SetLastError(ERROR_POPUP_ALREADY_ACTIVE);
        return FALSE;
    }
    SendMessage(owner, WM_ENTERMENULOOP, TRUE, 0);
    TrackedPopup tracking;
    tracking.owner = owner;
    // The owner may change the items before they are shown.
    if (!platform::user::OpenLevel(tracking, menu, 0, [&](SIZE size) {
            return platform::user::Place(flags, x, y, size);
        })) {
        if (IsWindow(owner))
            SendMessage(owner, WM_EXITMENULOOP, TRUE, 0);
        return FALSE;
    }
    platform::user::RunMenuTracking(tracking);
    if (!IsWindow(owner))
        return FALSE;
    SendMessage(owner, WM_EXITMENULOOP, TRUE, 0);
    if (flags & TPM_RETURNCMD)
        return static_cast<BOOL>(tracking.chosen);
    if (tracking.chosen)
        PostMessage(owner, WM_COMMAND, MAKEWPARAM(tracking.chosen, 0), 0);
    return TRUE;
}
