// The runtime's number readers in the "C" locale.
#include <tchar.h>

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

namespace {

TEST(RuntimeNumbersTest, WtoiReadsASignedDecimalPrefix) {
    EXPECT_EQ(_wtoi(u"42"), 42);
    EXPECT_EQ(_wtoi(u"  \t\n-17xyz"), -17);
    EXPECT_EQ(_wtoi(u"+8"), 8);
    EXPECT_EQ(_wtoi(u"12.9"), 12);
    EXPECT_EQ(_wtoi(u"0x1F"), 0);
    EXPECT_EQ(_wtoi(u"abc"), 0);
    EXPECT_EQ(_wtoi(u""), 0);
    EXPECT_EQ(_wtoi(u"- 5"), 0);
    EXPECT_EQ(_wtoi(nullptr), 0);
    // White space beyond ASCII is not skipped.
    EXPECT_EQ(_wtoi(u"\u00A05"), 0);
    EXPECT_EQ(_wtoi(u"\u30005"), 0);
}

TEST(RuntimeNumbersTest, WtoiClampsToTheIntRange) {
    EXPECT_EQ(_wtoi(u"2147483647"), INT_MAX);
    EXPECT_EQ(_wtoi(u"-2147483648"), INT_MIN);
    EXPECT_EQ(_wtoi(u"2147483648"), INT_MAX);
    EXPECT_EQ(_wtoi(u"-99999999999999999999"), INT_MIN);
}

TEST(RuntimeNumbersTest, AtofReadsDecimalNumbersOnly) {
    EXPECT_EQ(atof("3.25"), 3.25);
    EXPECT_EQ(atof("  -1.5e3kg"), -1500.0);
    EXPECT_EQ(atof("+.5"), 0.5);
    EXPECT_EQ(atof("7."), 7.0);
    EXPECT_EQ(atof("2E-2"), 0.02);
    // An exponent marker without digits is not part of the number.
    EXPECT_EQ(atof("4e"), 4.0);
    EXPECT_EQ(atof("4e+"), 4.0);
    EXPECT_EQ(atof("1,5"), 1.0);
    // The forms the C library adds are not numbers here.
    EXPECT_EQ(atof("nan"), 0.0);
    EXPECT_EQ(atof("inf"), 0.0);
    EXPECT_EQ(atof("-infinity"), 0.0);
    EXPECT_EQ(atof("0x10"), 0.0);
    EXPECT_EQ(atof("0x1p3"), 0.0);
    EXPECT_EQ(atof("."), 0.0);
    EXPECT_EQ(atof(""), 0.0);
    EXPECT_EQ(atof(nullptr), 0.0);
}

TEST(RuntimeNumbersTest, AtofRoundsCorrectlyAndOverflowsToInfinity) {
    EXPECT_EQ(atof("0.1"), 0.1);
    EXPECT_EQ(atof("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(atof("1e999"), HUGE_VAL);
    EXPECT_EQ(atof("-1e999"), -HUGE_VAL);
    EXPECT_EQ(atof("1e-999"), 0.0);
}

} // namespace
