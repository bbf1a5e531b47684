// The dialog manager's bookkeeping for each dialog window, shared by its
// creation, its default procedure and its keyboard navigation. Internal to
// the platform.
#pragma once

#include <windows.h>

namespace platform::user {

struct DialogInfo {
    HFONT font = nullptr;
    bool ownsFont = false;
    int baseX = 0; // dialog base units of the font, in pixels
    int baseY = 0;
    UINT defId = 0; // 0: search for a default push button
    HWND lastFocus = nullptr;
    bool ended = false;
    INT_PTR result = 0;
};

// Null for a window that is not a dialog.
DialogInfo* FindDialogInfo(HWND hwnd);

// Sets the focus to a control of a dialog; an edit field that takes a
// selection gets all its text selected, as when tabbing into it.
void FocusDialogControl(HWND dialog, HWND control, bool selectAll);

} // namespace platform::user
