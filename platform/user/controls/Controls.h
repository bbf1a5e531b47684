// What the standard controls tell each other and the simulated user, inside
// the platform: an edit field that belongs to a combo box, and where a combo
// box's arrow and items are on the screen.
#pragma once

#include <windows.h>

namespace platform::user {

// Makes the edit pass the keys a combo box handles (Up, Down, F4, Alt+Down,
// and Enter and Escape while its list is dropped) to the combo box.
void AttachEditToCombo(HWND edit, HWND combo);

bool IsComboBox(HWND hwnd);
bool IsTabControl(HWND hwnd);

// True when the window is a combo box with a drop-down list that is shown.
bool IsComboDropped(HWND combo);

// The point of the combo box's arrow button, in its client coordinates;
// false when it has none (CBS_SIMPLE) or is no combo box.
bool ComboArrowPoint(HWND combo, POINT* point);

// The list window of a combo box and the middle of an item in it, in the
// list's client coordinates; false when the item is not shown in the list.
bool ComboItemPoint(HWND combo, int index, HWND* list, POINT* point);

} // namespace platform::user
