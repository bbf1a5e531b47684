// The simulated user's mouse wheel.
#include "AutomationQueue.h"
#include "PointerInput.h"

#include <platform/Automation.h>

namespace platform::automation {

using detail::Describe;
using detail::Note;
using detail::Queue;

void TurnWheel(int notches) {
    Queue([notches] {
        const int count = notches < 0 ? -notches : notches;
        Note(std::string("wheel ") + (notches < 0 ? "down " : "up ") + std::to_string(count) +
             (count == 1 ? " notch over " : " notches over ") + Describe(GetFocus()));
        POINT at{};
        GetCursorPos(&at);
        const WPARAM keys = 0;
        platform::user::PostWheel(notches * WHEEL_DELTA, false, at, keys);
    });
}

} // namespace platform::automation
