// Proleptic Gregorian calendar arithmetic for DATE values: whole days counted
// from 30 December 1899, and the time of day as a positive fraction.
#pragma once

namespace platform {

// 1 January 100 and 31 December 9999.
constexpr long kFirstDay = -657434;
constexpr long kLastDay = 2958465;

struct CivilDate {
    int year;
    int month; // 1 to 12
    int day;   // 1 to 31
};

struct CivilDateTime {
    CivilDate date;
    int hour;
    int minute;
    int second;
    int dayOfWeek; // 0 Sunday to 6 Saturday
    int dayOfYear; // 0 to 365
};

int DaysInMonth(int year, int month);
// Year 100 to 9999, month 1 to 12, day within the month.
bool IsValidDate(const CivilDate& date);
// Days since 30 December 1899 (negative before it).
long DaysFromCivil(const CivilDate& date);
// The DATE of a day and a time of day in seconds (0 to 86399).
double MakeDate(long days, long seconds);
// True when the value lies between 1 January 100 and the end of 31 December 9999.
bool IsDateInRange(double date);
// Splits a DATE into its fields, rounded to the nearest second; false when the
// value is out of range or not a number.
bool SplitDate(double date, CivilDateTime& out);

} // namespace platform
