// Pictures of what a person would see on the headless desktop, saved as PNG.
#pragma once

#include <windef.h>

#include <string>

namespace platform {

// Writes the window as it looks: its frame and caption, its client area and
// every shown descendant, drawn afresh, so that windows lying above it on the
// desktop do not hide any of it. The picture is the size of the window
// rectangle. False for an unknown window, a window of no size, or a path that
// cannot be written.
bool SaveWindowAsPng(HWND hwnd, const std::string& path);

// Writes the whole desktop with every shown top-level window, drawn afresh
// from the bottom of the z-order to the top, so the upper window is always the
// one seen where two overlap, and the cursor on top at the mouse position.
// False when the path cannot be written.
bool SaveDesktopAsPng(const std::string& path);

// The same for a part of the desktop (screen coordinates, cut to the
// screen): what a person sees there, windows lying above others included,
// such as a shortcut menu or a floating bar over its frame. False for an
// area off the screen or a path that cannot be written.
bool SaveDesktopAreaAsPng(const RECT& area, const std::string& path);

} // namespace platform
