// Runs the interactive terminal window until its program ends.
#pragma once

#include "TerminalWindow.h"

// Opens the display the environment asks for (WIN_DISPLAY=x11), the window and
// its program, and runs the message loop. Returns the program's exit code when
// it ended by itself, 0 when the user closed the window (the program is hung
// up), and 1 when the display or the program could not be opened or the
// display went away (a message on stderr says so; the program is hung up).
int RunTerminalWindow(const TerminalWindow::Options& options);
