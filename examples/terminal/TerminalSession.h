// Runs the interactive terminal window until its program ends.
#pragma once

#include "TerminalWindow.h"

// Opens the display the environment asks for (WIN_DISPLAY=x11), the window and
// its program, and runs the message loop. Returns the program's exit code, or
// 1 when the display or the program could not be opened.
int RunTerminalWindow(const TerminalWindow::Options& options);
