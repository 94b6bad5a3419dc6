// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/DateText.h"

#include <gtest/gtest.h>

#include "core/RunTimeError.h"

namespace Dorvane {

TEST(DateText, KnowsNoHourZeroOfTwelve) {
    EXPECT_EQ(SecondsOf("", "12:00:00 AM"), 0);
    for (const char* time : {"0:00:00 PM", "0:30:00 AM", "13:00:00 PM"}) {
        try {
            SecondsOf("", time);
            ADD_FAILURE() << time;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, TypeMismatch);
        }
    }
}

TEST(DateText, ShowsTheFormatsOfTheSystem) {
    const DateTime moment{2026, 3, 7, 15, 4, 5};
    EXPECT_EQ(ShortDate(moment), "3/7/2026");
    EXPECT_EQ(LongTime(moment), "3:04:05 PM");
    EXPECT_EQ(GeneralDate(moment), "3/7/2026 3:04:05 PM");
    EXPECT_EQ(DashedDate(moment), "03-07-26");
}

TEST(DateText, CountsTwelveHours) {
    EXPECT_EQ(LongTime({2026, 1, 1, 0, 30, 0}), "12:30:00 AM");
    EXPECT_EQ(LongTime({2026, 1, 1, 12, 0, 0}), "12:00:00 PM");
    EXPECT_EQ(LongTime({2026, 1, 1, 11, 59, 59}), "11:59:59 AM");
}

TEST(DateText, HasNoTimePartAtMidnight) {
    EXPECT_EQ(GeneralDate({2026, 3, 7, 0, 0, 0}), "3/7/2026");
    EXPECT_EQ(GeneralDate({2026, 3, 7, 0, 0, 1}), "3/7/2026 12:00:01 AM");
}

TEST(IsNewer, NeedsAtLeastOneSecond) {
    EXPECT_TRUE(IsNewer("3/7/2026", "3:04:05 PM", "3/7/2026", "3:04:06 PM"));
    EXPECT_FALSE(IsNewer("3/7/2026", "3:04:05 PM", "3/7/2026", "3:04:05 PM"));
    EXPECT_FALSE(IsNewer("3/7/2026", "3:04:06 PM", "3/7/2026", "3:04:05 PM"));
}

TEST(IsNewer, ComparesMomentsAndNotTexts) {
    EXPECT_TRUE(IsNewer("9/30/2026", "9:00:00 PM", "10/1/2026", "1:00:00 AM"));
    EXPECT_TRUE(IsNewer("12/31/1999", "11:59:59 PM", "1/1/2000", ""));
    EXPECT_FALSE(IsNewer("3/7/2026", "12:30:00 PM", "3/7/2026", "12:30:00 AM"));
}

TEST(SecondsOf, CountsFromTheDayZeroOfDateNumbers) {
    EXPECT_EQ(SecondsOf("12/30/1899", ""), 0);
    EXPECT_EQ(SecondsOf("12/31/1899", "12:00:01 AM"), 86401);
    EXPECT_EQ(SecondsOf("", "1:00:00 PM"), 13 * 3600);
}

TEST(SecondsOf, RaisesTypeMismatchForAnythingElse) {
    for (const char* date : {"yesterday", "13/1/2026", "2/30/2026", "1/2", "1/2/2026x", "-1/2/2026",
                             "257/1/2026", "1/257/2026", "1/2/67562", "1/2/10000"})
        EXPECT_THROW(SecondsOf(date, ""), RunTimeError) << date;
    for (const char* time : {"noon", "25:00:00", "13:00:00 PM", "1:60:00", "1:2"})
        EXPECT_THROW(SecondsOf("", time), RunTimeError) << time;
}

}  // namespace Dorvane
