// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/Sorter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Dorvane {

TEST(Sorter, KeepsItemsAscendingIgnoringCase) {
    Sorter sorter;
    for (const char* text : {"beta", "GAMMA", "Alpha"})
        sorter.Add(text);
    EXPECT_EQ(sorter.Count(), 3);
    EXPECT_EQ(sorter.Item(1), "Alpha");
    EXPECT_EQ(sorter.Item(2), "beta");
    EXPECT_EQ(sorter.Item(3), "GAMMA");
}

TEST(Sorter, TakesItemsAfterItWasRead) {
    Sorter sorter;
    sorter.Add("B");
    EXPECT_EQ(sorter.Item(1), "B");
    sorter.Add("A");
    EXPECT_EQ(sorter.Item(1), "A");
}

TEST(Sorter, KeepsEqualItemsInTheOrderOfTheirAdding) {
    Sorter sorter;
    sorter.Add("srv");
    sorter.Add("SRV");
    EXPECT_EQ(sorter.Item(1), "srv");
    EXPECT_EQ(sorter.Item(2), "SRV");
}

TEST(Sorter, KeepsManyEqualItemsInTheOrderOfTheirAdding) {
    Sorter sorter;
    std::vector<std::string> added;
    for (unsigned number = 0; number < 64; ++number) {
        std::string text = "abcdef";
        for (unsigned letter = 0; letter < 6; ++letter)
            if ((number >> letter & 1U) != 0)
                text[letter] = static_cast<char>(text[letter] - 0x20);
        added.push_back(text);
        sorter.Add(text);
    }
    for (int i = 1; i <= 64; ++i)
        EXPECT_EQ(sorter.Item(i), added[static_cast<std::size_t>(i) - 1]);
}

TEST(Sorter, IsEmptyAfterClear) {
    Sorter sorter;
    sorter.Add("A");
    sorter.Clear();
    EXPECT_EQ(sorter.Count(), 0);
    EXPECT_THROW(sorter.Item(1), RunTimeError);
}

TEST(Sorter, HasNoItemOutsideItsPositions) {
    Sorter sorter;
    sorter.Add("A");
    EXPECT_THROW(sorter.Item(0), RunTimeError);
    EXPECT_THROW(sorter.Item(2), RunTimeError);
}

TEST(Sorter, OverflowsPast32767Items) {
    Sorter sorter;
    for (int i = 1; i <= 32767; ++i)
        sorter.Add("A");
    try {
        sorter.Add("A");
        FAIL();
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, Overflow);
    }
    EXPECT_EQ(sorter.Count(), 32767);
}

}  // namespace Dorvane
