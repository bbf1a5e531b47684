// COleDateTime: values, status, parsing, ordering and formatting.
#include <afxdisp.h>

#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(OleDateTimeTest, DefaultIsTheValidZeroDate) {
    const COleDateTime date;
    EXPECT_EQ(date.m_dt, 0.0);
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
    // 30 December 1899 was a Saturday.
    EXPECT_EQ(date.Format(u"%A %d %B %Y %H:%M"), CString(u"Saturday 30 December 1899 00:00"));
}

TEST(OleDateTimeTest, StatusFollowsTheRangeOfDates) {
    EXPECT_EQ(COleDateTime(-657434.0).GetStatus(), COleDateTime::valid);
    EXPECT_EQ(COleDateTime(2958465.5).GetStatus(), COleDateTime::valid);
    EXPECT_EQ(COleDateTime(2958466.0).GetStatus(), COleDateTime::invalid);
    EXPECT_EQ(COleDateTime(-657435.0).GetStatus(), COleDateTime::invalid);
    EXPECT_EQ(COleDateTime(std::numeric_limits<double>::quiet_NaN()).GetStatus(),
              COleDateTime::invalid);
    EXPECT_EQ(COleDateTime(100, 1, 1, 0, 0, 0).m_dt, -657434.0);
    EXPECT_EQ(COleDateTime(9999, 12, 31, 0, 0, 0).m_dt, 2958465.0);
}

TEST(OleDateTimeTest, PartsOutsideTheirRangesLeaveTheValue) {
    COleDateTime date(2011, 6, 30, 18, 0, 0);
    EXPECT_EQ(date.m_dt, 40724.75);
    const int bad[][6] = {{1925, 2, 30, 0, 0, 0}, {2023, 2, 29, 0, 0, 0}, {10000, 1, 1, 0, 0, 0},
                          {99, 1, 1, 0, 0, 0},    {2000, 13, 1, 0, 0, 0}, {2000, 1, 0, 0, 0, 0},
                          {2000, 1, 1, 24, 0, 0}, {2000, 1, 1, 9, 60, 0}, {2000, 1, 1, 9, 0, -1}};
    for (const auto& p : bad) {
        EXPECT_EQ(date.SetDateTime(p[0], p[1], p[2], p[3], p[4], p[5]), 1) << p[0] << "-" << p[1];
        EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
        EXPECT_EQ(date.m_dt, 40724.75);
    }
    EXPECT_EQ(date.SetDateTime(2000, 2, 29, 0, 0, 0), 0);
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
}

TEST(OleDateTimeTest, ParsingFailureGivesZeroAndInvalid) {
    COleDateTime date(2011, 6, 30, 0, 0, 0);
    EXPECT_FALSE(date.ParseDateTime(u"not a date"));
    EXPECT_EQ(date.m_dt, 0.0);
    EXPECT_EQ(date.GetStatus(), COleDateTime::invalid);
    // Contradictory flags are a failure other than a mismatch.
    EXPECT_FALSE(date.ParseDateTime(u"1/2/1970", VAR_TIMEVALUEONLY | VAR_DATEVALUEONLY));
    EXPECT_EQ(date.m_dt, -1.0);
    EXPECT_TRUE(date.ParseDateTime(u"6/30/2011 6:00 PM"));
    EXPECT_EQ(date.m_dt, 40724.75);
    EXPECT_EQ(date.GetStatus(), COleDateTime::valid);
}

TEST(OleDateTimeTest, NegativeDatesOrderByTheirTimeOfDay) {
    // -1.25 is 29 December 1899 06:00, after -1.0 (its midnight) and before -0.5.
    const COleDateTime midnight(-1.0), morning(-1.25), nextNoon(0.5), earlier(-2.5);
    EXPECT_TRUE(midnight < morning);
    EXPECT_TRUE(morning > midnight);
    EXPECT_TRUE(morning < nextNoon);
    EXPECT_TRUE(earlier < midnight);
    EXPECT_TRUE(morning <= morning);
    EXPECT_TRUE(morning >= midnight);
    EXPECT_EQ(morning.Format(u"%Y-%m-%d %H:%M"), CString(u"1899-12-29 06:00"));
}

TEST(OleDateTimeTest, OrderingAgainstANonValidDateIsFalseBothWays) {
    COleDateTime bad;
    bad.ParseDateTime(u"");
    const COleDateTime good(40724.0);
    for (const COleDateTime& other : {bad, good}) {
        EXPECT_FALSE(bad < other);
        EXPECT_FALSE(bad > other);
        EXPECT_FALSE(other < bad);
        EXPECT_FALSE(other > bad);
    }
    COleDateTime nullDate(40724.0);
    nullDate.SetStatus(COleDateTime::null);
    EXPECT_FALSE(nullDate < COleDateTime(50000.0));
    EXPECT_FALSE(nullDate == good);
    EXPECT_TRUE(good == COleDateTime(40724.0));
}

TEST(OleDateTimeTest, FormatsNullInvalidAndUnformattableDates) {
    COleDateTime date(40724.0);
    date.SetStatus(COleDateTime::null);
    EXPECT_EQ(date.Format(u"%Y"), CString());
    date.SetStatus(COleDateTime::invalid);
    EXPECT_EQ(date.Format(u"%Y"), CString(u"Invalid DateTime"));
    // A valid status over a value out of range cannot be split into parts.
    date.m_dt = 1e9;
    date.SetStatus(COleDateTime::valid);
    EXPECT_EQ(date.Format(u"%Y"), CString(u"Invalid DateTime"));
    // Two-digit years need 1900 or later; results must fit in 255 characters.
    EXPECT_EQ(COleDateTime(1800, 1, 2, 0, 0, 0).Format(u"%x"), CString());
    EXPECT_EQ(COleDateTime(1800, 1, 2, 0, 0, 0).Format(u"%#x"),
              CString(u"Thursday, January 02, 1800"));
    EXPECT_EQ(COleDateTime(40724.0).Format(CString(u'x', 256)), CString());
    EXPECT_EQ(COleDateTime(40724.0).Format(CString(u'x', 255)), CString(u'x', 255));
}

TEST(OleDateTimeTest, FormatFillsDayOfYearAndRoundsToTheSecond) {
    EXPECT_EQ(COleDateTime(2004, 12, 31, 23, 59, 59).Format(u"%j %a %c"),
              CString(u"366 Fri 12/31/04 23:59:59"));
    // Half a second before midnight rounds onto the next day.
    EXPECT_EQ(COleDateTime(38352.0 + 86399.6 / 86400).Format(u"%Y-%m-%d %X"),
              CString(u"2005-01-01 00:00:00"));
    EXPECT_EQ(COleDateTime(2958465.99999999).Format(u"%Y-%m-%d %X"),
              CString(u"9999-12-31 23:59:59"));
}

} // namespace
