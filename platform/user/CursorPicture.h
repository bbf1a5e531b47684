// Drawing the mouse cursor into pictures of the desktop. Internal to the
// platform.
#pragma once

#include <windef.h>

typedef struct _cairo_surface cairo_surface_t;

namespace platform::user {

// Draws the cursor shown (GetCursor) at the mouse position (GetCursorPos)
// onto a picture of the desktop whose top-left corner is the desktop point
// origin; nothing when the cursor is hidden.
void DrawCursor(cairo_surface_t* desktop, POINT origin = POINT{0, 0});

} // namespace platform::user
