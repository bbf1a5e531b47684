// The automation date reader under English (US) rules, written by hand: the
// reader's heuristics (a full stop between time fields, two numbers as a date
// of the current year, year and month fallbacks, the 2029 window) are its own.
#include "oleauto.h"

#include "oleaut/DateTokens.h"
#include "oleaut/DayCount.h"
#include "platform/Clock.h"

#include <ctime>
#include <vector>

namespace platform {

namespace {

struct TimeOfDay {
    int fields[3] = {0, 0, 0};
    int count = 0;
    bool fullStop = false;
    DateToken::Kind meridiem = DateToken::Number; // Am, Pm or Number for none
};

struct DateParts {
    std::vector<int> numbers;
    int month = 0; // 0 when no month name was given
};

int CurrentYear() {
    const std::time_t now = ClockNow();
    struct tm tm {};
    localtime_r(&now, &tm);
    return tm.tm_year + 1900;
}

// Two-digit years: 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
int FullYear(int year) {
    return year < 30 ? 2000 + year : year < 100 ? 1900 + year : year;
}

bool Try(int year, int month, int day, CivilDate& out) {
    const CivilDate date{FullYear(year), month, day};
    if (!IsValidDate(date))
        return false;
    out = date;
    return true;
}

// Month, day and year from the date's numbers and month name: the locale's
// month-day-year order first, then the other orders.
bool ResolveDate(const DateParts& parts, int currentYear, CivilDate& out) {
    const std::vector<int>& n = parts.numbers;
    if (parts.month) {
        const int m = parts.month;
        if (n.size() == 1)
            return Try(currentYear, m, n[0], out) || Try(n[0], m, 1, out);
        if (n.size() == 2)
            return Try(n[1], m, n[0], out) || Try(n[0], m, n[1], out);
        return false;
    }
    if (n.size() == 2) {
        return Try(currentYear, n[0], n[1], out) || Try(currentYear, n[1], n[0], out) ||
               Try(n[0], n[1], 1, out) || Try(n[1], n[0], 1, out);
    }
    if (n.size() == 3) {
        return Try(n[2], n[0], n[1], out) || Try(n[0], n[1], n[2], out) ||
               Try(n[2], n[1], n[0], out);
    }
    return false;
}

bool IsKind(const std::vector<DateToken>& t, std::size_t i, DateToken::Kind kind) {
    return i < t.size() && t[i].kind == kind;
}

// Sorts the tokens into one time of day and the date's parts; false when they
// do not form a date and time.
bool Classify(const std::vector<DateToken>& t, TimeOfDay& time, DateParts& date) {
    int dateSeparators = 0;
    std::vector<bool> isTime(t.size(), false);
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (t[i].kind == DateToken::Number) {
            isTime[i] = (i > 0 && IsKind(t, i - 1, DateToken::TimeSeparator)) ||
                        IsKind(t, i + 1, DateToken::TimeSeparator) ||
                        IsKind(t, i + 1, DateToken::Am) || IsKind(t, i + 1, DateToken::Pm);
        }
    }
    for (std::size_t i = 0; i < t.size(); ++i) {
        switch (t[i].kind) {
        case DateToken::Number:
            if (isTime[i]) {
                // A time starts here; a second one is an error.
                if (time.count > 0)
                    return false;
                for (;;) {
                    if (time.count == 3)
                        return false;
                    time.fields[time.count++] = t[i].value;
                    if (!IsKind(t, i + 1, DateToken::TimeSeparator))
                        break;
                    if (t[i + 1].value)
                        time.fullStop = true;
                    if (!IsKind(t, i + 2, DateToken::Number))
                        return false;
                    i += 2;
                }
                if (IsKind(t, i + 1, DateToken::Am) || IsKind(t, i + 1, DateToken::Pm))
                    time.meridiem = t[++i].kind;
            } else {
                date.numbers.push_back(t[i].value);
            }
            break;
        case DateToken::Month:
            if (date.month)
                return false;
            date.month = t[i].value;
            break;
        case DateToken::DateSeparator: {
            auto isDateField = [&](std::size_t j) {
                return (IsKind(t, j, DateToken::Number) && !isTime[j]) ||
                       IsKind(t, j, DateToken::Month);
            };
            if (++dateSeparators > 2 || i == 0 || !isDateField(i - 1) || !isDateField(i + 1))
                return false;
            break;
        }
        // Reached only when no number comes before them.
        case DateToken::TimeSeparator:
        case DateToken::Am:
        case DateToken::Pm:
            return false;
        }
    }
    return true;
}

// Seconds since midnight, or -1 when a field is out of range.
long Seconds(const TimeOfDay& time) {
    int hour = time.fields[0];
    const int minute = time.fields[1];
    const int second = time.fields[2];
    if (hour > 23 || minute > 59 || second > 59)
        return -1;
    // Past 12 the hour is already on the 24-hour clock and AM or PM is ignored.
    if (hour <= 12) {
        if (time.meridiem == DateToken::Am && hour == 12)
            hour = 0;
        else if (time.meridiem == DateToken::Pm && hour < 12)
            hour += 12;
    }
    return hour * 3600L + minute * 60L + second;
}

} // namespace

} // namespace platform

HRESULT VarDateFromStr(LPCOLESTR text, LCID /*lcid*/, ULONG flags, DATE* result) {
    using namespace platform;
    if (!result || ((flags & VAR_TIMEVALUEONLY) && (flags & VAR_DATEVALUEONLY)))
        return E_INVALIDARG;
    if (!text)
        return DISP_E_TYPEMISMATCH;
    std::vector<DateToken> tokens;
    TimeOfDay time;
    DateParts parts;
    if (!TokenizeDate(text, tokens) || tokens.empty() || !Classify(tokens, time, parts))
        return DISP_E_TYPEMISMATCH;
    const long seconds = Seconds(time);
    if (seconds < 0)
        return DISP_E_TYPEMISMATCH;
    long days = 0;
    if (!parts.numbers.empty() || parts.month) {
        CivilDate date{};
        if (!ResolveDate(parts, CurrentYear(), date))
            return DISP_E_TYPEMISMATCH;
        days = DaysFromCivil(date);
    } else if (seconds == 0 && time.fullStop && time.meridiem == DateToken::Number) {
        // "0.0" reads as a decimal zero, not as midnight.
        return DISP_E_TYPEMISMATCH;
    }
    if (flags & VAR_TIMEVALUEONLY)
        days = 0;
    *result = MakeDate(days, (flags & VAR_DATEVALUEONLY) ? 0 : seconds);
    return S_OK;
}
