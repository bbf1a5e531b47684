// Dragging a bar: a docked one by its title strip, a floating one by the
// caption of its small frame. While the mouse button is held an outline
// follows the pointer: a thin one in the bar's docked shape over an edge of
// its frame it may dock at, a thick one the size of its small frame
// elsewhere. The release docks the bar at that edge (in the row and place
// under the pointer) or floats it there; Escape, a right click or losing the
// mouse leave it where it was. Internal to the platform.
#pragma once

#include <afxext.h>

namespace platform::toolkit {

// Runs the drag of bar from the screen point where the button went down,
// until the button comes up. True when the bar was moved.
bool DragBar(CControlBar* bar, CPoint start);

} // namespace platform::toolkit
