// A menu shown as a shortcut menu.
#include <afxwin.h>

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, LPCRECT rect) {
    return ::TrackPopupMenu(m_hMenu, flags, x, y, 0, owner ? owner->GetSafeHwnd() : nullptr, rect);
}
