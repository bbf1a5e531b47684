// Mouse buttons and movement from a real pointer, delivered as the headless
// automation delivers its clicks: to the window under the pointer (or the one
// that captured the mouse), in its client coordinates. Internal to the
// platform.
#pragma once

#include <windows.h>

namespace platform::user {

enum class MouseButton : unsigned char { Left, Right, Middle, X1, X2 };

// The deepest shown, enabled window under a desktop point inside top, or
// top itself; null when the point is outside top.
HWND WindowUnderPoint(HWND top, POINT desktop);

// A button going down or up at a desktop point inside top. keys is the MK_
// state after the event (the buttons held, this one included while it is
// down, and Shift and Ctrl). time is in milliseconds on the pointer's own
// clock; a second press of the same button soon after the first, near it, on
// a window whose class asks for double clicks, becomes the button's double
// click message. A left press on the frame a window draws is WM_NCLBUTTONDOWN
// with its hit-test code, and the second of a double click there
// WM_NCLBUTTONDBLCLK, whatever the class. The extra buttons arrive as WM_XBUTTONDOWN, WM_XBUTTONUP
// and WM_XBUTTONDBLCLK with the button's number in the high word of wParam.
void PostButton(HWND top, POINT desktop, MouseButton button, bool down, WPARAM keys, unsigned time);
// The pointer moving to a desktop point inside top, with the MK_ state.
void PostMove(HWND top, POINT desktop, WPARAM keys);
// The wheel turned by delta (WHEEL_DELTA a notch, positive away from the
// user, or to the right when horizontal) with the pointer at a desktop point:
// WM_MOUSEWHEEL or WM_MOUSEHWHEEL to the focus window (or the active one
// when nothing has the focus), the point in screen coordinates.
void PostWheel(int delta, bool horizontal, POINT desktop, WPARAM keys);

} // namespace platform::user
