// Turning the mouse wheel into rows to scroll, for the controls that scroll.
// Internal to the standard controls.
#pragma once

#include <windows.h>

namespace platform::user {

// Rows a notch scrolls, the original's default wheel setting.
constexpr int kWheelScrollLines = 3;

// The rows to scroll for a wheel turn of delta (positive away from the user,
// which scrolls toward the start: the rows come out negative). A fine wheel
// turns less than a notch at a time: what does not make a whole row yet is
// kept in remainder for the next turn, and dropped when the direction
// changes.
inline int WheelRows(int& remainder, int delta, int linesPerNotch = kWheelScrollLines) {
    if ((remainder > 0 && delta < 0) || (remainder < 0 && delta > 0))
        remainder = 0;
    remainder += delta;
    const int rows = remainder * linesPerNotch / WHEEL_DELTA;
    remainder -= rows * WHEEL_DELTA / linesPerNotch;
    return -rows;
}

} // namespace platform::user
