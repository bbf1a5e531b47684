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

// The menu bar's items laid out in bar, a rectangle of the window's DC.
std::vector<RECT> MenuBarItemRects(HDC hdc, const Menu& menu, const RECT& bar);
// Draws the menu bar of a window into bar (window coordinates).
void PaintMenuBar(HDC hdc, const Menu& menu, const RECT& bar, bool maximizedChild);

} // namespace platform::user
