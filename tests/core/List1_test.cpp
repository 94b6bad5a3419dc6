// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/List1.h"

#include <gtest/gtest.h>

#include <string>

namespace Dorvane {

namespace {

template <class Statement>
int NumberRaised(Statement statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.Number;
    }
    return 0;
}

}  // namespace

TEST(List1, IsNumberedFromOneAndIndexZeroExists) {
    List1<std::string> list;
    EXPECT_TRUE(list.Empty());
    list.Add("a");
    list.Add("b");
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list[1], "a");
    EXPECT_EQ(list[2], "b");
    EXPECT_EQ(list[0], "");
}

TEST(List1, WalksItsItemsWithoutIndexZero) {
    const List1<int> list{4, 5, 6};
    int sum = 0;
    for (const int item : list)
        sum = sum * 10 + item;
    EXPECT_EQ(sum, 456);
}

TEST(List1, RaisesError9OutOfRange) {
    List1<int> list{1, 2};
    EXPECT_EQ(NumberRaised([&] { list[3] = 0; }), SubscriptOutOfRange);
    EXPECT_EQ(NumberRaised([&] { list[-1] = 0; }), SubscriptOutOfRange);
    EXPECT_EQ(NumberRaised([&] { list.Resize(-1); }), SubscriptOutOfRange);
}

TEST(List1, RaisesOverflowPast32767) {
    List1<char> list;
    list.Resize(32767);
    EXPECT_EQ(list.Count(), 32767);
    EXPECT_EQ(NumberRaised([&] { list.Add('x'); }), Overflow);
    EXPECT_EQ(list.Count(), 32767);
    EXPECT_EQ(NumberRaised([&] { list.Resize(32768); }), Overflow);
}

TEST(List1, ClearEmptiesIndexZeroToo) {
    List1<std::string> list{"a"};
    list[0] = "1";
    list.Clear();
    EXPECT_EQ(list.Count(), 0);
    EXPECT_EQ(list[0], "");
}

}  // namespace Dorvane
