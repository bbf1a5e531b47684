// The default procedure's part in sizing a window by its frame. Internal to
// the platform.
#pragma once

#include "WindowManager.h"

namespace platform::user {

// Where a screen point lies in the window (an HT code).
LRESULT NonClientHitTest(const Window* window, POINT screen);
// WM_NCLBUTTONDOWN: a press on a sizing edge or corner starts the sizing
// loop through WM_SYSCOMMAND.
void NonClientPress(HWND hwnd, WPARAM hit, LPARAM where);
// WM_SYSCOMMAND: SC_SIZE runs the sizing loop from the mouse position.
void SystemCommand(HWND hwnd, WPARAM command, LPARAM where);

} // namespace platform::user
