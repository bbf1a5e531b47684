// The framework's menu object. Included from afxwin.h.
#pragma once

#include "afx.h"

class CWnd;

// A menu owned by a C++ object: the menu is destroyed with the object unless
// it was detached. FromHandle gives the object that owns a handle, or a
// temporary one that lives until the menu is destroyed.
class CMenu : public CObject {
public:
    HMENU m_hMenu = nullptr;

    CMenu() = default;
    ~CMenu() override;

    HMENU GetSafeHmenu() const { return m_hMenu; }
    operator HMENU() const { return m_hMenu; }
    static CMenu* FromHandle(HMENU menu);
    BOOL Attach(HMENU menu);
    HMENU Detach();

    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    // From the menu resource found through the module chain.
    BOOL LoadMenu(UINT id);
    BOOL LoadMenu(LPCTSTR name);
    BOOL DestroyMenu();

    BOOL AppendMenu(UINT flags, UINT_PTR item = 0, LPCTSTR text = nullptr);
    BOOL InsertMenu(UINT position, UINT flags, UINT_PTR item = 0, LPCTSTR text = nullptr);
    BOOL RemoveMenu(UINT position, UINT flags);
    BOOL DeleteMenu(UINT position, UINT flags);
    UINT GetMenuItemCount() const;
    UINT GetMenuItemID(int pos) const;
    UINT GetMenuState(UINT item, UINT flags) const;
    int GetMenuString(UINT item, CString& text, UINT flags) const;
    CMenu* GetSubMenu(int pos) const;
    UINT EnableMenuItem(UINT item, UINT enable);
    UINT CheckMenuItem(UINT item, UINT check);

    // Shows the menu as a shortcut menu at (x, y) of the screen until the
    // user picks an item or dismisses it (TrackPopupMenu); owner gets the
    // picked command. rect is not used.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, LPCRECT rect = nullptr);

private:
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;
};
