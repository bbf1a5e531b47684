// The platform's colour dialog, inside the platform: the state of one run
// and what the simulated user reads of it.
#pragma once

#include <windows.h>

#include <array>

namespace platform::user::colordialog {

// The basic colours, row by row, 8 to a row.
extern const std::array<COLORREF, 48> kBasicColours;
// Control ids of the basic colour swatches: kFirstSwatch + index.
constexpr int kFirstSwatch = 0x3000;

struct DialogState {
    CHOOSECOLORW* cc = nullptr;
    COLORREF current = 0;
    // Set while the dialog itself writes the value fields, so their change
    // notifications do not come back as typing.
    bool writing = false;
};

// The dialog procedure; WM_INITDIALOG's lParam is the DialogState.
INT_PTR ColorDialogProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

// The state of a colour dialog window, or null for any other window.
const DialogState* StateOf(HWND hwnd);

} // namespace platform::user::colordialog
