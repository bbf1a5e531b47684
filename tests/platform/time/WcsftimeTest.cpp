#include <Utils.h>
#include <afx.h>

#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

struct tm Tm(int year, int month, int day, int hour, int minute, int second, int wday, int yday) {
    struct tm t {};
    t.tm_year = year - 1900;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    t.tm_hour = hour;
    t.tm_min = minute;
    t.tm_sec = second;
    t.tm_wday = wday;
    t.tm_yday = yday;
    return t;
}

CString Fmt(const char16_t* format, const struct tm& t, std::size_t max = 256) {
    WCHAR out[256];
    const std::size_t n = wcsftime(out, max, format, &t);
    EXPECT_EQ(n, static_cast<std::size_t>(CString(out).GetLength()));
    return CString(out);
}

// 2004-03-07 09:05:03, a Sunday, day 66 of the year.
const struct tm kSunday = Tm(2004, 3, 7, 9, 5, 3, 0, 66);

struct ClockPin {
    ClockPin(int year, int month, int day, int hour, int minute) {
        platform::PinLocalClock(year, month, day, hour, minute);
    }
    ~ClockPin() { platform::UnpinClock(); }
};

} // namespace

TEST(Wcsftime, NumericFieldsAndTheHashFlag) {
    EXPECT_EQ(Fmt(u"%Y-%m-%d %H:%M:%S", kSunday), CString(u"2004-03-07 09:05:03"));
    EXPECT_EQ(Fmt(u"%#Y-%#m-%#d %#H:%#M:%#S", kSunday), CString(u"2004-3-7 9:5:3"));
    EXPECT_EQ(Fmt(u"%I %p|%j|%#j|%y|%w", kSunday), CString(u"09 AM|067|67|04|0"));
    const struct tm noon = Tm(2004, 3, 7, 12, 0, 0, 0, 66);
    const struct tm midnight = Tm(2004, 3, 7, 0, 0, 0, 0, 66);
    EXPECT_EQ(Fmt(u"%I %p", noon), CString(u"12 PM"));
    EXPECT_EQ(Fmt(u"%I %p", midnight), CString(u"12 AM"));
    EXPECT_EQ(Fmt(u"%U %W", kSunday), CString(u"10 09"));
    EXPECT_EQ(Fmt(u"100%%", kSunday), CString(u"100%"));
}

TEST(Wcsftime, CLocaleNamesAndComposites) {
    EXPECT_EQ(Fmt(u"%a %A %b %B", kSunday), CString(u"Sun Sunday Mar March"));
    EXPECT_EQ(Fmt(u"%#a %#B", kSunday), CString(u"Sun March"));
    EXPECT_EQ(Fmt(u"%x|%X", kSunday), CString(u"03/07/04|09:05:03"));
    EXPECT_EQ(Fmt(u"%c", kSunday), CString(u"03/07/04 09:05:03"));
    EXPECT_EQ(Fmt(u"%#x", kSunday), CString(u"Sunday, March 07, 2004"));
    EXPECT_EQ(Fmt(u"%#c", kSunday), CString(u"Sunday, March 07, 2004 09:05:03"));
}

TEST(Wcsftime, InvalidInputGivesAnEmptyResult) {
    // No C99 specifiers in this runtime.
    EXPECT_TRUE(Fmt(u"%e", kSunday).IsEmpty());
    EXPECT_TRUE(Fmt(u"%F", kSunday).IsEmpty());
    EXPECT_TRUE(Fmt(u"trailing %", kSunday).IsEmpty());
    // Years before 1900 have no two-digit form.
    const struct tm old = Tm(1899, 12, 30, 0, 0, 0, 6, 363);
    EXPECT_TRUE(Fmt(u"%y", old).IsEmpty());
    EXPECT_TRUE(Fmt(u"%x", old).IsEmpty());
    EXPECT_EQ(Fmt(u"%Y %#x", old), CString(u"1899 Saturday, December 30, 1899"));
    struct tm bad = kSunday;
    bad.tm_mon = 12;
    EXPECT_TRUE(Fmt(u"%B", bad).IsEmpty());
    // Too long for the buffer: nothing at all.
    EXPECT_TRUE(Fmt(u"%Y-%m-%d", kSunday, 10).IsEmpty());
    EXPECT_EQ(Fmt(u"%Y-%m-%d", kSunday, 11), CString(u"2004-03-07"));
}

TEST(Clock, PinnedClockDrivesCTimeAndUtils) {
    ClockPin pin(2024, 3, 5, 23, 7);
    const CTime now = CTime::GetCurrentTime();
    EXPECT_EQ(now.GetHour(), 23);
    EXPECT_EQ(now.GetMinute(), 7);
    EXPECT_EQ(now.Format(u"%Y/%m/%d %H:%M"), CString(u"2024/03/05 23:07"));
    EXPECT_EQ(Utils::GetCurrentDateAndTime(), CString(u"2024-03-05 23:07:00"));
    EXPECT_EQ(now.Format(Utils::GetDefaultDateFormatSpecifier()), CString(u"2024-03-05"));
}

TEST(Clock, UnpinnedClockFollowsTheSystem) {
    platform::UnpinClock();
    const std::time_t before = std::time(nullptr);
    const std::time_t now = CTime::GetCurrentTime().GetTime();
    EXPECT_GE(now, before);
    EXPECT_LE(now, std::time(nullptr));
}

TEST(Utils, ExportDefaults) {
    EXPECT_EQ(Utils::GetDefaultFieldDelimiter(), CString(u","));
    EXPECT_EQ(Utils::GetDefaultTextQualifier(), CString(u"\""));
    const CString dir = Utils::GetDefaultExportDir();
    ASSERT_FALSE(dir.IsEmpty());
    EXPECT_EQ(dir[dir.GetLength() - 1], u'/');
    // The date text must be usable in a file name.
    const CString date =
        CTime(2024, 12, 31, 10, 0, 0).Format(Utils::GetDefaultDateFormatSpecifier());
    EXPECT_EQ(date.Str().find_first_of(u"/\\:*?\"<>| "), std::u16string::npos);
    EXPECT_EQ(date, CString(u"2024-12-31"));
}

TEST(Utils, ToAnsiUsesWindows1252) {
    EXPECT_EQ(Utils::ToANSI(u"a\u20ac\u00e9\u4e2d"), std::string("a\x80\xE9?"));
    EXPECT_EQ(Utils::ToANSI(CString()), std::string());
}
