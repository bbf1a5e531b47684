// The default procedure's part in sizing a window by its frame. Internal to
// the platform.
#pragma once

#include "WindowManager.h"

namespace platform::user {

// Where a screen point lies in the window (an HT code).
LRESULT NonClientHitTest(const Window* window, POINT screen);
// The close box on the caption, in window coordinates (empty without one).
RECT CloseBoxRect(const Window* window);
// WM_NCLBUTTONDOWN: a press on a sizing edge or corner starts the sizing
// loop, one on the caption the move loop, through WM_SYSCOMMAND; one on the
// close box sends SC_CLOSE if the button comes up there.
void NonClientPress(HWND hwnd, WPARAM hit, LPARAM where);
// WM_SYSCOMMAND: SC_SIZE runs the sizing loop and SC_MOVE the move loop from
// the mouse position; SC_CLOSE sends WM_CLOSE.
void SystemCommand(HWND hwnd, WPARAM command, LPARAM where);

} // namespace platform::user
