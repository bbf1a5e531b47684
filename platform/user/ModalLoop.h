// The loop every modal window runs (dialogs, message boxes, the framework's
// RunModalLoop). Internal to the platform.
#pragma once

#include <windows.h>

#include <functional>

namespace platform::user {

struct ModalLoop {
    HWND window = nullptr;
    // False once the window's modal state has ended.
    std::function<bool()> keepGoing;
    // Gives a message to the window's keyboard interface; true consumes it.
    std::function<bool(MSG&)> preTranslate;
    // Called the first time the loop has nothing to do (to show the window).
    std::function<void()> firstIdle;
    // Ends the modal state with IDCANCEL when a cancel did not end it.
    std::function<void()> forceCancel;
};

// After a message is handled: a paint handler that left its window invalid
// would get WM_PAINT back for ever, so the window is validated.
void SettlePaint(const MSG& msg);

// Returns false when WM_QUIT arrived (it is posted again for the outer loop).
// When the loop waits with nothing queued and the simulated user has no
// action left, it cancels the window as Escape would, and ends it if that
// did not.
bool RunModal(const ModalLoop& loop);

} // namespace platform::user
