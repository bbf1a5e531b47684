// The one clock for the local time; tests pin it to a fixed moment.
#include "platform/Clock.h"

#include <atomic>
#include <ctime>

namespace {
std::atomic<bool> g_pinned{false};
std::atomic<std::time_t> g_pinnedTime{0};
} // namespace

namespace platform {

std::time_t ClockNow() {
    return g_pinned ? g_pinnedTime.load() : std::time(nullptr);
}

void PinClock(std::time_t time) {
    g_pinnedTime = time;
    g_pinned = true;
}

void PinLocalClock(int year, int month, int day, int hour, int minute, int second) {
    struct tm tm {};
    tm.tm_year = year - 1900;
    tm.tm_mon = month - 1;
    tm.tm_mday = day;
    tm.tm_hour = hour;
    tm.tm_min = minute;
    tm.tm_sec = second;
    tm.tm_isdst = -1;
    PinClock(std::mktime(&tm));
}

void UnpinClock() {
    g_pinned = false;
}

} // namespace platform
