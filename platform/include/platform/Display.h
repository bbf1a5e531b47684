// Where the desktop is shown. By default nowhere but its own surface (the
// headless desktop); a host may put every top-level window on an X11 display
// instead, with the display's keyboard and mouse as the user.
#pragma once

#include "../windef.h"

#include <functional>
#include <string>

namespace platform::display {

// Connects to the X11 display called name (null: $DISPLAY). From then on a
// waiting message loop keeps the display's windows in step with the desktop
// and turns the display's input into messages. False, with the reason in
// *error, when there is no display or this build has no X11 support.
bool OpenX11(const char* name, std::string* error);
// Opens the display when the environment asks for it (WIN_DISPLAY=x11).
// True when nothing was asked or the display opened.
bool OpenFromEnvironment(std::string* error);
// Destroys the display's windows and disconnects. Nothing when none is open.
void Close();
bool IsOpen();

// Brings the display in line with the desktop: windows created, titled,
// moved, shown or hidden, and the pixels that changed since the last call
// copied.
void Update();
// Waits up to timeoutMs (-1: until something happens) for input from the
// display or a watched descriptor, and turns what arrived into messages and
// descriptor callbacks. False when the display has gone away: the message
// says so on stderr, the display is closed and WM_QUIT is posted.
bool WaitForInput(int timeoutMs);

// A host's descriptor (a pseudo-terminal, a socket) that the waiting message
// loop watches beside the display; ready runs when it can be read or has
// hung up. Watching works with or without a display.
void WatchDescriptor(int fd, std::function<void()> ready);
void UnwatchDescriptor(int fd);

// The display's window showing a top-level window; 0 when it has none.
unsigned XWindowOf(HWND hwnd);

} // namespace platform::display
