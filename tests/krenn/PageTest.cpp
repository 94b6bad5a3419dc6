// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/listing/Page.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace Krenn;

TEST(Fixed, NeverPrintsANegativeZero) {
    EXPECT_EQ(Fixed(-0.0000001, 9, 5), "  0.00000");
    EXPECT_EQ(Fixed(-0.000006, 9, 5), " -0.00001");
    EXPECT_EQ(Fixed(123456.789, 3, 1), "123456.8");
}

TEST(Fixed, HoldsTheLargestNumber) {
    EXPECT_EQ(Fixed(-1.7976931348623157e308, 0, 20).size(), 1 + 309 + 1 + 20u);
}

TEST(Significant, KeepsFourDigitsOfAnySize) {
    EXPECT_EQ(Significant(1.23449e-7, 10), " 1.234e-07");
    EXPECT_EQ(Significant(0.0123449, 10), "   0.01234");
    EXPECT_EQ(Significant(581.16, 10), "     581.2");
    EXPECT_EQ(Significant(0, 3), "  0");
}

TEST(AppendLeft, NeverCutsAField) {
    std::string text;
    AppendLeft(text, "ABCDE", 3);
    AppendRight(text, "F", 3);
    AppendCount(text, -42, 5);
    EXPECT_EQ(text, "ABCDE  F  -42");
}

TEST(AppendRows, PrintsTheSameTextWithAnyNumberOfThreads) {
    for (const std::size_t count : {0u, 1u, 8191u, 8192u, 8193u, 50000u}) {
        std::string expected = "head ";
        for (std::size_t i = 0; i < count; ++i)
            expected += std::to_string(i) + ";";
        for (const int threads : {1, 2, 3, 8}) {
            std::string text = "head ";
            AppendRows(text, count, threads,
                       [](std::string& row, std::size_t i) { row += std::to_string(i) + ";"; });
            EXPECT_EQ(text, expected) << count << " " << threads;
        }
    }
}

TEST(AppendRows, LetsAnExceptionOfAThreadOut) {
    std::string text;
    EXPECT_THROW(AppendRows(text, 30000, 2,
                            [](std::string&, std::size_t i) {
                                if (i == 20000)
                                    throw std::runtime_error("row");
                            }),
                 std::runtime_error);
}

TEST(SentenceLines, BreaksAtBlanksAndNeverCutsAWord) {
    EXPECT_EQ(SentenceLines("one two three", 7), (std::vector<std::string>{"one two", "three"}));
    EXPECT_EQ(SentenceLines("abcdefghij kl", 4), (std::vector<std::string>{"abcdefghij", "kl"}));
    EXPECT_TRUE(SentenceLines("", 4).empty());
}

}  // namespace
