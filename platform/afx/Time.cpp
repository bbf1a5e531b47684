// CTime: a local date and time read from the platform clock.
#include "atltime.h"

#include "platform/Clock.h"

#include <ctime>

CTime::CTime(int year, int month, int day, int hour, int minute, int second, int dst) {
    struct tm tm {};
    tm.tm_year = year - 1900;
    tm.tm_mon = month - 1;
    tm.tm_mday = day;
    tm.tm_hour = hour;
    tm.tm_min = minute;
    tm.tm_sec = second;
    tm.tm_isdst = dst;
    m_time = std::mktime(&tm);
}

CTime CTime::GetCurrentTime() {
    return CTime(platform::ClockNow());
}

struct tm* CTime::GetLocalTm(struct tm* tm) const {
    if (!tm)
        return nullptr;
    if (!localtime_r(&m_time, tm))
        *tm = {};
    return tm;
}

namespace {
struct tm Local(std::time_t t) {
    struct tm tm {};
    localtime_r(&t, &tm);
    return tm;
}
} // namespace

int CTime::GetHour() const {
    return Local(m_time).tm_hour;
}
int CTime::GetMinute() const {
    return Local(m_time).tm_min;
}

CString CTime::Format(LPCTSTR format) const {
    if (!format)
        return CString();
    struct tm tm {};
    GetLocalTm(&tm);
    WCHAR buffer[128];
    const std::size_t n = wcsftime(buffer, 128, format, &tm);
    return CString(buffer, static_cast<int>(n));
}
