// Driving the headless window system's message queue from a host or a test.
#pragma once

#include "../windef.h"

#include <functional>

namespace platform {

// Retrieves and dispatches every message that is pending, posted ones first and
// then WM_PAINT for each window with a non-empty update region, until nothing is
// left or WM_QUIT comes up (it stays queued). A window whose paint handler leaves
// its update region invalid is validated, so the pump always ends. Returns the
// number of messages dispatched.
int PumpMessages();

// Called by GetMessage when nothing is left to retrieve; it may post messages or
// act as the user and returns true when it did something. Null removes it.
void SetIdleHandler(std::function<bool()> handler);

// What a waiting message loop does: runs the simulated user's next action,
// else the idle handler. False when neither had anything to do.
bool RunIdle();

} // namespace platform
