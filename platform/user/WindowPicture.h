// Painting a window subtree afresh onto a surface of its own, as the window
// pictures do: a display back end uses it for a window that others cover.
#pragma once

#include "WindowManager.h"

typedef struct _cairo_surface cairo_surface_t;

namespace platform::user {

// Paints window and its shown descendants onto surface, the desktop point
// offset at the surface's (0, 0); the windows' pending updates stay pending.
void PaintPicture(Window* window, cairo_surface_t* surface, POINT offset);

} // namespace platform::user
