// Reading dates from text under English (US) rules, against what the original
// system returns for the same text.
#include <oleauto.h>

#include "platform/Clock.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// Days since 30 December 1899 of dates in the cases below.
constexpr double k2024Jan02 = 45293;
constexpr double k2024Jan14 = 45305;
constexpr double k1970Jan02 = 25570;
constexpr double k2011Jun30 = 40724;
constexpr double k2004Dec31 = 38352;

constexpr double Time(int hour, int minute, int second = 0) {
    return (hour * 3600 + minute * 60 + second) / 86400.0;
}

struct Case {
    const char16_t* text;
    double expected;
};

// The current year is pinned to 2024 (a leap year) for the rows that use it.
const Case kParses[] = {
    // Times alone fall on 30 December 1899; a full stop separates time fields.
    {u"1 am", Time(1, 0)},
    {u"0.1", Time(0, 1)},
    {u"0:1", Time(0, 1)},
    {u"2.5", Time(2, 5)},
    {u"3:5", Time(3, 5)},
    {u"00:00 AM", 0.0},
    {u"00:00 a", 0.0},
    {u"12:59 AM", Time(0, 59)},
    {u"00:00 pm", 0.5},
    {u"00:00 p", 0.5},
    {u"12:59 pm", Time(12, 59)},
    {u"13:00 AM", Time(13, 0)},
    {u"13:00 PM", Time(13, 0)},
    {u"0.1.0", Time(0, 1, 0)},
    {u"1.5.2", Time(1, 5, 2)},
    {u"10:30 PM", 0.9375},
    // Two numbers: month and day of the current year, else year and month.
    {u"1 2", k2024Jan02},
    {u"14 1", k2024Jan14},
    {u"1 14", k2024Jan14},
    {u"2 29", 45351},
    {u"30 2", 10990},
    {u"2 30", 10990},
    // A month name with a number that cannot be a day of it takes it as a year.
    {u"Jan 2", k2024Jan02},
    {u"2 Jan", k2024Jan02},
    {u"Jan 35", 12785},
    {u"35-Jan", 12785},
    {u"Jan/35", 12785},
    // Three numbers: month, day, year; then year, month, day; then day, month, year.
    {u"1 2 3", 37623},
    {u"2 14 3", 37666},
    {u"14 2 3", 41673},
    {u"2 3 14", 41673},
    {u"32 2 3", 11722},
    {u"2 3 32", 11722},
    {u"1 2 29", 47120},
    {u"1 2 30", 10960},
    {u"1 2 1970", k1970Jan02},
    {u"1/2/1970", k1970Jan02},
    {u"1-2-1970", k1970Jan02},
    {u"13-1-1970", 25581},
    {u"1970-1-13", 25581},
    {u"2004-12-31", k2004Dec31},
    // A time and a date in either order.
    {u"3 am 1 2", k2024Jan02 + Time(3, 0)},
    {u"1 2 3 am", k2024Jan02 + Time(3, 0)},
    {u"1.2 3 4", 45355 + Time(1, 2)},
    {u"1 2 3 4.5", 37623 + Time(4, 5)},
    {u"1.2.3 4 5 6", 38812 + Time(1, 2, 3)},
    {u"6/30/2011 01:20:34", k2011Jun30 + Time(1, 20, 34)},
    {u"6/30/2011 01:20:34 AM", k2011Jun30 + Time(1, 20, 34)},
    {u"6/30/2011 01:20:34 PM", k2011Jun30 + Time(13, 20, 34)},
    {u"6/30/2011\u30001:20:34", k2011Jun30 + Time(1, 20, 34)},
    {u"2013-05-14 02:04:12", 41408 + Time(2, 4, 12)},
    {u"12/31/2004 10:30 PM", k2004Dec31 + Time(22, 30)},
    // Month names, day names (ignored, even a wrong one) and commas.
    {u"2 January, 1970", k1970Jan02},
    {u"2 January 1970", k1970Jan02},
    {u"2 Jan 1970", k1970Jan02},
    {u"2/Jan/1970", k1970Jan02},
    {u"2-Jan-1970", k1970Jan02},
    {u"Dec 31, 2004", k2004Dec31},
    {u"Friday, December 31, 2004 10:30:15 PM", k2004Dec31 + Time(22, 30, 15)},
    {u"Monday, DECEMBER 31, 2004", k2004Dec31},
    // Before 30 December 1899 the time still counts forward from midnight.
    {u"1/2/1800 6:00", -36521 - 0.25},
};

const char16_t* const kMismatches[] = {
    u"",
    u"0.0",
    u"True",
    u"False",
    u"0.",
    u".0",
    u"-1.1",
    u"1.1-",
    u"1;2",
    u"1*2",
    u"1@2",
    u"1#2",
    u"(1 2)",
    u"1<2",
    u"1>2",
    u"1|2",
    u"0",
    u"1",
    u"0.60",
    u"24.00",
    u"0:60",
    u"24:00",
    u"1 2 am",
    u"1 am 2",
    u"32 49",
    u"0 49",
    u"1 2 3 4",
    u"2013-05-14 02:04:12.017000000",
    u"02.01.1970",
    // Beyond the cases above: more than two date separators, two month names,
    // year 10000, a lone month, AM without a number, words that are no names.
    u"1/2/3/4",
    u"Jan Feb 2",
    u"1/1/10000",
    u"Jan",
    u"am 1:00",
    u"1:00 am pm",
    u"Janx 2",
    u"2 30 am",
};

class VarDateFromStrTest : public ::testing::Test {
protected:
    void SetUp() override { platform::PinLocalClock(2024, 6, 15, 12, 0); }
    void TearDown() override { platform::UnpinClock(); }
};

std::string Narrow(const char16_t* text) {
    std::string out;
    for (const char16_t* p = text; *p; ++p)
        out.push_back(*p < 0x80 ? static_cast<char>(*p) : '?');
    return out;
}

TEST_F(VarDateFromStrTest, ReadsTheFormsEnglishUsersWrite) {
    for (const Case& c : kParses) {
        DATE date = -99;
        EXPECT_EQ(VarDateFromStr(c.text, LOCALE_USER_DEFAULT, 0, &date), S_OK) << Narrow(c.text);
        EXPECT_NEAR(date, c.expected, 1e-9) << Narrow(c.text);
    }
}

TEST_F(VarDateFromStrTest, RejectsTextThatIsNoDate) {
    for (const char16_t* text : kMismatches) {
        DATE date = 0;
        EXPECT_EQ(VarDateFromStr(text, LOCALE_USER_DEFAULT, 0, &date), DISP_E_TYPEMISMATCH)
            << Narrow(text) << " gave " << date;
    }
    DATE date = 0;
    EXPECT_EQ(VarDateFromStr(nullptr, LOCALE_USER_DEFAULT, 0, &date), DISP_E_TYPEMISMATCH);
}

TEST_F(VarDateFromStrTest, FlagsKeepOnlyTheDateOrTheTime) {
    DATE date = 0;
    ASSERT_EQ(VarDateFromStr(u"6/30/2011 6:00", 0x400, VAR_DATEVALUEONLY, &date), S_OK);
    EXPECT_EQ(date, k2011Jun30);
    ASSERT_EQ(VarDateFromStr(u"6/30/2011 6:00", 0x400, VAR_TIMEVALUEONLY, &date), S_OK);
    EXPECT_EQ(date, 0.25);
    EXPECT_EQ(VarDateFromStr(u"1 2", 0x400, VAR_TIMEVALUEONLY | VAR_DATEVALUEONLY, &date),
              E_INVALIDARG);
    EXPECT_EQ(VarDateFromStr(u"1 2", 0x400, 0, nullptr), E_INVALIDARG);
}

TEST_F(VarDateFromStrTest, StopsAtTheTerminator) {
    // Only "1 2" is read: the name comparison must stop at the terminator
    // rather than run on into what follows it.
    const char16_t text[] = u"1 2\0Jan";
    DATE date = 0;
    ASSERT_EQ(VarDateFromStr(text, 0x400, 0, &date), S_OK);
    EXPECT_EQ(date, k2024Jan02);
    const char16_t ja[] = {u'J', u'a', 0, u'n', u' ', u'2', 0};
    EXPECT_EQ(VarDateFromStr(ja, 0x400, 0, &date), DISP_E_TYPEMISMATCH);
}

} // namespace
