// What the windows of the platform's own dialogs (colour, file, print, the
// property sheet) share: their state behind DWLP_USER, their controls made
// in the dialog's font, and their place centred over the owner.
#pragma once

#include <windows.h>

namespace platform::user {

// The state a dialog run by proc keeps in DWLP_USER; null for any other
// window, and for one that is gone.
template <class State> State* DialogStateOf(HWND hwnd, DLGPROC proc) {
    if (!IsWindow(hwnd) || GetWindowLongPtr(hwnd, DWLP_DLGPROC) != reinterpret_cast<LONG_PTR>(proc))
        return nullptr;
    return reinterpret_cast<State*>(GetWindowLongPtr(hwnd, DWLP_USER));
}

// A visible child control of a dialog at the given place, in the dialog's font.
HWND AddDialogControl(HWND dialog, const WCHAR* cls, const WCHAR* text, DWORD style, int id, int x,
                      int y, int cx, int cy, DWORD exStyle = 0);

// Sizes a window's frame around a client area of the given size and centres
// it over its owner (or the desktop), never beyond the desktop's top or left.
void CentreOverOwner(HWND window, SIZE client);

} // namespace platform::user
