// The combo box's state, shared by the combo box window and its list window.
// Internal to the standard controls.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace platform::user {

struct ComboItem {
    std::u16string text;
    LPARAM data = 0;
};

struct ComboState {
    std::vector<ComboItem> items;
    int selected = -1;
    // The item highlighted in the list, and the first item the list shows.
    int listCurrent = -1;
    int listTop = 0;
    int wheelRemainder = 0; // part of a wheel notch the list has not scrolled
    HWND edit = nullptr;
    HWND list = nullptr;
    bool dropped = false;
    bool focused = false;
    // While the combo box sets its edit field's text, the field's change
    // notifications are not the user's.
    bool settingText = false;
    // The height of the selection field, and the height the template gave
    // (the field and the dropped list).
    int fieldHeight = 0;
    int fullHeight = 0;
    int itemHeight = 0;
    // A drop-down list combo box has no edit field: its text is the item's.
    std::u16string text;
    HFONT font = nullptr;
};

ComboState* FindComboState(HWND combo);

// The user picked an item in the list with the mouse.
void PickFromList(HWND combo, int index);

// The list window: a child of a simple combo box, else a pop-up window shown
// below it while it is dropped. rect is in the parent's coordinates (the
// desktop's for the pop-up).
HWND CreateComboList(HWND combo, bool popup, const RECT& rect);
// How many items a list window of this client height shows in full.
int VisibleItems(HWND list, const ComboState& state);

} // namespace platform::user
