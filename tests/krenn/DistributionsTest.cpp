// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Distributions.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using namespace Krenn;

// Values of the printed tables in Abramowitz and Stegun, Handbook of Mathematical Functions,
// tables 26.1, 26.8 and 26.9.
TEST(ChiSquareQuantile, MeetsThePrintedTable) {
    EXPECT_NEAR(ChiSquareQuantile(0.95, 1), 3.84146, 5e-6);
    EXPECT_NEAR(ChiSquareQuantile(0.95, 2), 5.99146, 5e-6);
    EXPECT_NEAR(ChiSquareQuantile(0.95, 10), 18.3070, 5e-5);
    EXPECT_NEAR(ChiSquareQuantile(0.025, 10), 3.24697, 5e-6);
    EXPECT_NEAR(ChiSquareQuantile(0.975, 100), 129.561, 5e-4);
    EXPECT_NEAR(ChiSquareQuantile(0.025, 100), 74.2219, 5e-5);
}

TEST(ChiSquareQuantile, StaysRightForLargeNetworks) {
    for (const double freedom : {1e3, 2e5}) {
        const double quantile = ChiSquareQuantile(0.975, freedom);
        EXPECT_NEAR(ChiSquareProbability(quantile, freedom), 0.975, 1e-9);
        EXPECT_NEAR((quantile - freedom) / std::sqrt(2 * freedom), 1.96, 0.05);
    }
}

TEST(ChiSquareProbability, IsExponentialForTwoDegrees) {
    for (const double x : {0.1, 1.0, 4.0, 20.0})
        EXPECT_NEAR(ChiSquareProbability(x, 2), 1 - std::exp(-x / 2), 1e-14);
    EXPECT_EQ(ChiSquareProbability(0, 5), 0);
}

// Table 26.7: the probability of a larger chi-square.
TEST(ChiSquareExceedance, MeetsThePrintedTableAndKeepsItsDigitsFarOut) {
    EXPECT_NEAR(ChiSquareExceedance(2, 1), 0.15730, 5e-6);
    EXPECT_NEAR(ChiSquareExceedance(10, 5), 0.07524, 5e-6);
    EXPECT_NEAR(ChiSquareExceedance(200, 2), std::exp(-100), 1e-12 * std::exp(-100));
    EXPECT_EQ(ChiSquareExceedance(0, 3), 1);
    for (const double value : {0.5, 3.0, 9.0, 30.0})
        EXPECT_NEAR(ChiSquareExceedance(value, 7) + ChiSquareProbability(value, 7), 1, 1e-14);
}

TEST(NormalExceedance, MeetsThePrintedTable) {
    EXPECT_NEAR(NormalExceedance(1.96), 0.0249979, 5e-8);
    EXPECT_NEAR(NormalExceedance(-1), 0.8413447, 5e-8);
    EXPECT_NEAR(NormalExceedance(10), 7.619853e-24, 1e-30);
}

TEST(NormalQuantile, MeetsThePrintedTable) {
    EXPECT_NEAR(NormalQuantile(0.975), 1.959964, 5e-7);
    EXPECT_NEAR(NormalQuantile(0.9995), 3.290527, 5e-7);
    EXPECT_NEAR(NormalQuantile(0.5), 0, 1e-13);
}

// Table 26.10.
TEST(StudentQuantile, MeetsThePrintedTable) {
    EXPECT_NEAR(StudentQuantile(0.975, 1), 12.706, 5e-4);
    EXPECT_NEAR(StudentQuantile(0.975, 10), 2.228, 5e-4);
    EXPECT_NEAR(StudentQuantile(0.995, 3), 5.841, 5e-4);
    EXPECT_NEAR(StudentQuantile(0.975, 120), 1.980, 5e-4);
    EXPECT_NEAR(StudentQuantile(0.5, 7), 0, 1e-12);
    EXPECT_NEAR(StudentQuantile(0.975, 2e6), NormalQuantile(0.975), 2e-6);
}

TEST(FisherQuantileOfTwo, MeetsThePrintedTable) {
    EXPECT_NEAR(FisherQuantileOfTwo(0.95, 1), 199.5, 0.05);
    EXPECT_NEAR(FisherQuantileOfTwo(0.95, 10), 4.10, 0.005);
    EXPECT_NEAR(FisherQuantileOfTwo(0.95, 120), 3.07, 0.005);
    EXPECT_NEAR(2 * FisherQuantileOfTwo(0.95, 1e7), ChiSquareQuantile(0.95, 2), 1e-5);
}

}  // namespace
