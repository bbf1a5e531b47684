// Running an open menu, for shortcut menus and the menu bar alike: its
// windows, one per open level, and a loop of its own that takes the mouse
// and the keyboard until the user picks an item or closes the menu.
// Internal to the platform.
#pragma once

#include "Menus.h"

#include <functional>

namespace platform::user {

// Opens menu as the last level, its window placed by where (given the
// window's size, the screen point of its top-left corner). The owner gets
// WM_INITMENUPOPUP with index (the item that opened it) first and may change
// the items. False when the menu has no items or is gone.
bool OpenLevel(TrackedPopup& tracking, HMENU menu, int index,
               const std::function<POINT(SIZE)>& where);
// Makes the item at index of level hot (-1: none) and tells the owner
// (WM_MENUSELECT).
void SetHot(TrackedPopup& tracking, std::size_t level, int index);
// Moves the hot item of the last level to the next one up or down that is
// not a separator, wrapping round.
void MoveHot(TrackedPopup& tracking, int step);
// Closes the levels after the first keep.
void CloseLevels(TrackedPopup& tracking, std::size_t keep);
// Runs the loop until tracking is done (or the owner is gone), with tracking
// as the menu tracked now. False when WM_QUIT came up (posted again for the
// loop outside).
bool RunMenuTracking(TrackedPopup& tracking);

// Menu bar tracking: closes the open drop-down and opens the bar item at
// index instead (its first item hot when from the keyboard).
void SwitchBarItem(TrackedPopup& tracking, int index, bool keyboard);
// Menu bar tracking: closes the open drop-down and selects the bar item at
// index with none open.
void SelectBarItem(TrackedPopup& tracking, int index);

} // namespace platform::user
