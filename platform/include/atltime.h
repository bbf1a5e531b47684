// CTime: a point in time in seconds, read from the platform clock.
#pragma once

#include "atlstr.h"
#include "wtime.h"

#include <ctime>

class CTime {
public:
    CTime() = default;
    explicit CTime(std::time_t time) : m_time(time) {}
    // Local date and time; the day-light saving flag -1 lets the system decide.
    CTime(int year, int month, int day, int hour, int minute, int second, int dst = -1);

    // The platform clock: the system's time unless a test pinned it.
    static CTime GetCurrentTime();

    std::time_t GetTime() const { return m_time; }
    // The local broken-down time, into tm (which is returned).
    struct tm* GetLocalTm(struct tm* tm) const;
    int GetHour() const;
    int GetMinute() const;

    // The local time through wcsftime; empty when it fails or needs 128
    // characters or more.
    CString Format(LPCTSTR format) const;

    friend bool operator==(const CTime& a, const CTime& b) { return a.m_time == b.m_time; }

private:
    std::time_t m_time = 0;
};
