// The platform clock behind CTime::GetCurrentTime. Tests pin it to a fixed
// moment; it then stays there until unpinned.
#pragma once

#include <ctime>

namespace platform {

std::time_t ClockNow();
void PinClock(std::time_t time);
// Pins the clock to a local date and time.
void PinLocalClock(int year, int month, int day, int hour, int minute, int second = 0);
void UnpinClock();

} // namespace platform
