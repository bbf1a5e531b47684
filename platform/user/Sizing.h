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
// WM_NCLBUTTONDBLCLK: on the caption of a window with a maximise box,
// SC_MAXIMIZE, or SC_RESTORE when it is maximised or minimised; elsewhere on
// the frame the second press acts as a press.
void NonClientDoubleClick(HWND hwnd, WPARAM hit, LPARAM where);
// WM_SYSCOMMAND: SC_SIZE runs the sizing loop and SC_MOVE the move loop from
// the mouse position; SC_CLOSE sends WM_CLOSE; SC_MAXIMIZE and SC_RESTORE
// show the window maximised or restored.
void SystemCommand(HWND hwnd, WPARAM command, LPARAM where);

} // namespace platform::user
