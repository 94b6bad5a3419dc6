// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Pattern.h"

#include <gtest/gtest.h>

#include <limits>

#include "core/RunTimeError.h"

namespace Dorvane {

TEST(Pattern, GivesFiveDecimalsAndAtLeastOneDigitBeforeThePoint) {
    const Pattern pattern("########0.00000");
    EXPECT_EQ(pattern(25.12345), "25.12345");
    EXPECT_EQ(pattern(0), "0.00000");
    EXPECT_EQ(pattern(-0.5), "-0.50000");
    EXPECT_EQ(pattern(1234567890.5), "1234567890.50000");
}

TEST(Pattern, RoundsHalfAwayFromZeroOnTheDecimalValue) {
    const Pattern two("0.00");
    EXPECT_EQ(two(2.675), "2.68");  // its binary shadow lies below
    EXPECT_EQ(two(-2.675), "-2.68");
    EXPECT_EQ(two(1.005), "1.01");
    EXPECT_EQ(two(0.994999), "0.99");
    EXPECT_EQ(two(9.995), "10.00");
    EXPECT_EQ(two(99.999), "100.00");
    EXPECT_EQ(Pattern("0.00000")(0.000005), "0.00001");
    EXPECT_EQ(Pattern("0.00000")(0.0000049), "0.00000");
    EXPECT_EQ(Pattern("0")(0.5), "1");
    EXPECT_EQ(Pattern("0")(2.5), "3");
}

TEST(Pattern, NeverPrintsAMinusZero) {
    EXPECT_EQ(Pattern("0.00000")(-0.000001), "0.00000");
    EXPECT_EQ(Pattern("0.00000")(-0.0), "0.00000");
    EXPECT_EQ(Pattern("##0.0")(-0.04), "0.0");
    EXPECT_EQ(Pattern("##0.0")(-0.05), "-0.1");
}

TEST(Pattern, ShowsNoDigitBeforeThePointWithoutAZeroThere) {
    const Pattern pattern(".000000");
    EXPECT_EQ(pattern(0.001234), ".001234");
    EXPECT_EQ(pattern(0), ".000000");
    EXPECT_EQ(pattern(12.5), "12.500000");
    EXPECT_EQ(pattern(-0.25), "-.250000");
}

TEST(Pattern, ShowsNoZeroForNumberSigns) {
    const Pattern pattern("#####");
    EXPECT_EQ(pattern(0), "");
    EXPECT_EQ(pattern(0, 5), "     ");
    EXPECT_EQ(pattern(37, 5), "   37");
    EXPECT_EQ(pattern(123456, 5), "123456");
}

TEST(Pattern, FillsWithZerosFromTheFirstOne) {
    EXPECT_EQ(Pattern("00#")(7), "007");
    EXPECT_EQ(Pattern("00#")(999), "999");
    EXPECT_EQ(Pattern("00")(7), "07");
}

TEST(Pattern, DropsZerosUnderNumberSignsBehindThePoint) {
    EXPECT_EQ(Pattern("0.0##")(1.5), "1.5");
    EXPECT_EQ(Pattern("0.0##")(1.2345), "1.235");
}

TEST(Pattern, KeepsAResultThatIsLongerThanTheWidth) {
    EXPECT_EQ(Pattern("##0.00000")(12.5, 10), "  12.50000");
    EXPECT_EQ(Pattern("##0.00000")(123456.5, 10), "123456.50000");
}

TEST(Pattern, PrintsVeryLargeAndVerySmallNumbers) {
    EXPECT_EQ(Pattern("0.00")(1e21), "1000000000000000000000.00");
    EXPECT_EQ(Pattern("0.00")(1e-300), "0.00");
    EXPECT_EQ(Pattern("0.00")(5e-324), "0.00");
}

TEST(Pattern, RaisesOverflowForWhatIsNoNumber) {
    EXPECT_THROW(Pattern("0.0")(std::numeric_limits<double>::quiet_NaN()), RunTimeError);
    EXPECT_THROW(Pattern("0.0")(std::numeric_limits<double>::infinity()), RunTimeError);
}

}  // namespace Dorvane
