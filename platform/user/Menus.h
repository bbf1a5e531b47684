// Menu objects and the menu bar of a window. Internal to the platform.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace platform::user {

struct MenuItem {
    std::u16string text; // with its '&' mnemonic and '\t' accelerator text
    UINT id = 0;
    UINT flags = 0; // MF_ bits
    HMENU popup = nullptr;
};

struct Menu {
    HMENU handle = nullptr;
    bool popup = false;
    std::vector<MenuItem> items;
};

Menu* FindMenu(HMENU handle);

// One step down to an item: the menu and the item's position in it.
struct MenuStep {
    HMENU menu;
    UINT position;
};
// The pop-ups to open, from the menu bar down, to reach the item with this
// command; false when no item has it.
bool FindMenuItemPath(HMENU menu, UINT command, std::vector<MenuStep>* path);

// The windows whose menu bar this menu is.
std::vector<HWND> WindowsWithMenu(HMENU menu);

// The font of menu bars and pop-up menus, made once and kept.
HFONT MenuFont();

// The menu bar's items laid out in bar, a rectangle of the window's DC.
std::vector<RECT> MenuBarItemRects(HDC hdc, const Menu& menu, const RECT& bar);
// Draws the menu bar of a window into bar (window coordinates).
void PaintMenuBar(HDC hdc, const Menu& menu, const RECT& bar, bool maximizedChild);

// The shortcut menu that TrackPopupMenu shows: its window, the menu, where
// each item lies in the window's client area, and the item under the mouse.
struct TrackedPopup {
    HWND window = nullptr;
    HMENU menu = nullptr;
    HWND owner = nullptr;
    std::vector<RECT> itemRects;
    int hot = -1;
    bool done = false;
    UINT chosen = 0;
};
// The shortcut menu open now, or null.
const TrackedPopup* CurrentPopup();
// The size of a pop-up menu's window for its items, and where each item lies.
SIZE LayOutPopup(HDC hdc, const Menu& menu, std::vector<RECT>* itemRects);
// Draws a pop-up menu into its window's client area.
void PaintPopup(HDC hdc, const Menu& menu, const std::vector<RECT>& itemRects, int hot,
                const RECT& client);

} // namespace platform::user
