// Menu objects and the menu bar of a window. Internal to the platform.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace platform::user {

struct Window;

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
// The item at open is drawn as open (-1 for none); cues underlines the
// mnemonics, as once the keyboard opened the menu.
void PaintMenuBar(HDC hdc, const Menu& menu, const RECT& bar, bool maximizedChild, int open = -1,
                  bool cues = false);

// One open menu window of a menu being tracked: the menu, where each item
// lies in the window's client area, and the item under the mouse.
struct MenuLevel {
    HWND window = nullptr;
    HMENU menu = nullptr;
    std::vector<RECT> itemRects;
    int hot = -1;
};
// A menu being tracked, by TrackPopupMenu or from a window's menu bar: the
// shortcut menu or the bar's drop-down first, then each pop-up opened from
// the one before it.
struct TrackedPopup {
    HWND owner = nullptr;
    std::vector<MenuLevel> levels;
    // Tracking from the owner's menu bar: the bar, and its item that is
    // selected, its drop-down open or not (-1 for a shortcut menu).
    HMENU bar = nullptr;
    int barItem = -1;
    // Opened from the keyboard: the mnemonics are underlined.
    bool cues = false;
    bool done = false;
    UINT chosen = 0;
};
// The menu being tracked now, or null.
const TrackedPopup* CurrentPopup();
// Ends the menu being tracked, if any, without a command (the program lost
// the keyboard to another).
void EndMenuTracking();
// Opens the pop-up of the item at index of the open level (the levels after
// it close first); false when the item opens none.
bool OpenPopupLevel(std::size_t level, int index);
// Runs the menu bar of hwnd with its item at index open until the user picks
// a command (posted to hwnd as WM_COMMAND) or closes it; from the keyboard
// the drop-down's first item is hot.
void TrackMenuBar(HWND hwnd, int index, bool keyboard = false);
// The keyboard's way into the menu bar of hwnd's top-level window: Alt and
// the letter an item underlines opens that item; Alt or F10 alone (ch 0)
// selects the first item with none open.
void KeyMenu(HWND hwnd, WCHAR ch);
// The item of hwnd's menu bar that is selected (open or not), or -1.
int OpenMenuBarItem(HWND hwnd);
// The menu bar of a window in window coordinates (empty without one), and
// the bar item at a point of the screen (-1 for none).
RECT MenuBarRect(const Window* window);
int MenuBarItemAt(HWND hwnd, POINT screen);
// The size of a pop-up menu's window for its items, and where each item lies.
SIZE LayOutPopup(HDC hdc, const Menu& menu, std::vector<RECT>* itemRects);
// Draws a pop-up menu into its window's client area.
void PaintPopup(HDC hdc, const Menu& menu, const std::vector<RECT>& itemRects, int hot,
                const RECT& client, bool cues = false);

} // namespace platform::user
