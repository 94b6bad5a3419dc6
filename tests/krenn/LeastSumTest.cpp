// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/LeastSum.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "krenn/InputReader.h"
#include "krenn/Statistics.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

double SumOfAbsolutes(const Adjustment& adjustment) {
    double sum = 0;
    for (std::size_t m = 0; m < adjustment.residual.size(); ++m)
        sum += std::abs(adjustment.residual[m] / adjustment.structure.measures[m].sigma);
    return sum;
}

// Of several measurements of one height difference the L1 norm takes the median.
TEST(L1Norm, OfOneUnknownIsTheMedian) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B")};
    text.fixed = {"A"};
    for (const double value : {1.000, 1.001, 1.003, 1.004, 7.000})
        text.Height("A", "B", value, 0.001);
    const Adjustment adjustment = Adjust(ReadInput(text.Text()), Type::L1Norm);
    EXPECT_NEAR(adjustment.state.at[1][2] + adjustment.state.origin[2], 11.003, 1e-7);
}

TEST(L1Norm, SumIsNotLargerThanThatOfLeastSquares) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        const Network network = ReadInput(MakeNetwork(spec).text.Text());
        EXPECT_LT(SumOfAbsolutes(Adjust(network, Type::L1Norm)),
                  SumOfAbsolutes(Adjust(network, Type::Sparse)));
    }
}

TEST(L1Norm, NoSmallMoveMakesTheSumSmaller) {
    NetworkSpec spec;
    const Network network = ReadInput(MakeNetwork(spec).text.Text());
    Adjustment adjustment = Adjust(network, Type::L1Norm);
    const State solution = adjustment.state;
    const double least = SumOfAbsolutes(adjustment);
    std::mt19937 random(3);
    std::normal_distribution<double> normal(0, 1);
    for (int trial = 0; trial < 2000; ++trial) {
        State moved = solution;
        const double size = trial % 2 ? 1e-4 : 1e-6;
        // One point and station at a time, and all together.
        for (std::size_t p = 0; p < moved.at.size(); ++p) {
            if (trial % 10 && p != static_cast<std::size_t>(trial) % moved.at.size())
                continue;
            for (double& coordinate : moved.at[p])
                coordinate += size * normal(random);
        }
        for (std::size_t setup = 0; setup < moved.orientation.size(); ++setup) {
            if (trial % 10 == 0 || setup == static_cast<std::size_t>(trial) % moved.orientation.size())
                moved.orientation[setup] += 1e-3 * size * normal(random);
        }
        for (std::size_t m = 0; m < adjustment.residual.size(); ++m) {
            const Measure& measure = adjustment.structure.measures[m];
            adjustment.residual[m] = -Misclosure(measure, ComputeValue(measure, moved));
        }
        EXPECT_GE(SumOfAbsolutes(adjustment), least - 1e-6) << trial;
    }
}

TEST(L1Norm, FindsOneGrossError) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        RandomNetwork random = MakeNetwork(spec);
        Network network = ReadInput(random.text.Text());
        const Adjustment before = Adjust(network, Type::SparseInverse);
        const auto checks = Evaluate(network, before).redundancyNumber;
        std::size_t wrong = (7 * seed) % network.observations.size();
        // An observation that no other checks hides every error.
        while (checks[wrong] < 0.25)
            wrong = (wrong + 1) % network.observations.size();
        network.observations[wrong].value += 20 * network.observations[wrong].sigma;
        const Adjustment adjustment = Adjust(network, Type::L1Norm);
        const Statistics statistics = Evaluate(network, adjustment);
        EXPECT_EQ(statistics.worst, static_cast<int>(wrong)) << seed;
        EXPECT_LT(statistics.standardised[wrong], -10) << seed;
    }
}

TEST(LeastSquares, NamesOneGrossErrorAndItsSize) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        Network network = ReadInput(MakeNetwork(spec).text.Text());
        const std::size_t wrong = (11 * seed) % network.observations.size();
        const double size = 30 * network.observations[wrong].sigma;
        network.observations[wrong].value += size;
        const Adjustment adjustment = Adjust(network, Type::SparseInverse);
        const Statistics statistics = Evaluate(network, adjustment);
        if (statistics.redundancyNumber[wrong] < 0.1)
            continue;
        EXPECT_EQ(statistics.worst, static_cast<int>(wrong)) << seed;
        const double unit = network.observations[wrong].sigma / adjustment.structure.measures[wrong].sigma;
        const double spread =
            network.observations[wrong].sigma / std::sqrt(statistics.redundancyNumber[wrong]);
        EXPECT_NEAR(statistics.suspected[wrong] * unit, size, 5 * spread) << seed;
    }
}

}  // namespace
