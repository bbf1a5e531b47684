#include "oleaut/DayCount.h"

#include <cmath>

namespace platform {

namespace {

bool IsLeap(int year) {
    return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

// Days from 1 March of year 0 (shifting the year start to March puts the
// leap day last), so whole 400-year eras repeat exactly.
long DaysFromEpochZero(long y, long m, long d) {
    y -= m <= 2;
    const long era = (y >= 0 ? y : y - 399) / 400;
    const long yoe = y - era * 400;
    const long doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const long doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe;
}

const long kEpoch = DaysFromEpochZero(1899, 12, 30);

CivilDate CivilFromDays(long days) {
    const long z = days + kEpoch;
    const long era = (z >= 0 ? z : z - 146096) / 146097;
    const long doe = z - era * 146097;
    const long yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const long doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const long mp = (5 * doy + 2) / 153;
    const long d = doy - (153 * mp + 2) / 5 + 1;
    const long m = mp < 10 ? mp + 3 : mp - 9;
    const long y = yoe + era * 400 + (m <= 2);
    return {static_cast<int>(y), static_cast<int>(m), static_cast<int>(d)};
}

} // namespace

int DaysInMonth(int year, int month) {
    static const int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    return month == 2 && IsLeap(year) ? 29 : kDays[month - 1];
}

bool IsValidDate(const CivilDate& date) {
    return date.year >= 100 && date.year <= 9999 && date.day >= 1 &&
           date.day <= DaysInMonth(date.year, date.month);
}

long DaysFromCivil(const CivilDate& date) {
    return DaysFromEpochZero(date.year, date.month, date.day) - kEpoch;
}

double MakeDate(long days, long seconds) {
    const double time = static_cast<double>(seconds) / 86400.0;
    return days < 0 ? static_cast<double>(days) - time : static_cast<double>(days) + time;
}

bool IsDateInRange(double date) {
    return date > kFirstDay - 1.0 && date < kLastDay + 1.0;
}

bool SplitDate(double date, CivilDateTime& out) {
    if (!IsDateInRange(date))
        return false;
    long days = static_cast<long>(std::trunc(date));
    long seconds = std::lround(std::fabs(date - static_cast<double>(days)) * 86400.0);
    if (seconds >= 86400) {
        // The last instant of 31 December 9999 stays on that day.
        if (days == kLastDay) {
            seconds = 86399;
        } else {
            ++days;
            seconds = 0;
        }
    }
    out.date = CivilFromDays(days);
    out.hour = static_cast<int>(seconds / 3600);
    out.minute = static_cast<int>(seconds / 60 % 60);
    out.second = static_cast<int>(seconds % 60);
    // 30 December 1899 was a Saturday.
    out.dayOfWeek = static_cast<int>(((days + 6) % 7 + 7) % 7);
    out.dayOfYear = static_cast<int>(days - DaysFromCivil({out.date.year, 1, 1}));
    return true;
}

} // namespace platform
