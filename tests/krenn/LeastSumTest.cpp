// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/LeastSum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ostream>
#include <random>

#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
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

struct Measured {
    std::string name;
    NetworkSpec spec;
    Parameters parameters;
};

void PrintTo(const Measured& kind, std::ostream* stream) {
    *stream << kind.name;
}

std::vector<Measured> KindsOfNetworks() {
    Measured heights{"Heights", {}, {}};
    heights.spec.dimension = 1;
    Measured plan{"Plan", {}, {}};
    plan.spec.dimension = 2;
    plan.spec.stations = 6;
    Measured space{"Space", {}, {}};
    space.spec.stations = 6;
    Measured fixed = space;
    fixed.name = "Fixed";
    fixed.spec.fixed = 3;
    Measured trackers = space;
    trackers.name = "Trackers";
    trackers.spec.tilted = 6;
    trackers.spec.fixed = 4;
    trackers.parameters.tracker = TrackerModel::Rotations;
    std::vector<Measured> kinds{heights, plan, space, fixed, trackers};
    for (Measured& kind : kinds)
        kind.spec.sightsPerStation = 8;
    return kinds;
}

class GrossError : public testing::TestWithParam<Measured> {};

// Of networks in which every observation is controlled by the others, with a redundancy number of 0.3 or
// more: an error of 20 standard errors in any one of them, of either sign, has the largest |v / sigma|.
TEST_P(GrossError, OfTwentySigmaIsFoundIn99Of100Networks) {
    int networks = 0;
    int found = 0;
    for (unsigned seed = 1; networks < 100; ++seed) {
        ASSERT_LT(seed, 1000U) << "too few networks are controlled well enough";
        NetworkSpec spec = GetParam().spec;
        spec.seed = seed;
        Network network = ReadInput(MakeNetwork(spec).text.Text());
        const auto checks =
            Evaluate(network, Adjust(network, Type::SparseInverse, GetParam().parameters)).redundancyNumber;
        if (*std::min_element(checks.begin(), checks.end()) < 0.3)
            continue;
        ++networks;
        std::mt19937 random(seed);
        const std::size_t wrong = random() % network.observations.size();
        Observation& o = network.observations[wrong];
        o.value += (random() % 2 ? 20 : -20) * o.sigma;
        const Adjustment adjustment = Adjust(network, Type::L1Norm, GetParam().parameters);
        std::size_t largest = 0;
        for (std::size_t m = 0; m < adjustment.residual.size(); ++m) {
            const auto size = [&](std::size_t i) {
                return std::abs(adjustment.residual[i]) / adjustment.structure.measures[i].sigma;
            };
            largest = size(m) > size(largest) ? m : largest;
        }
        found += largest == wrong ? 1 : 0;
    }
    EXPECT_GE(found, 99);
}

INSTANTIATE_TEST_SUITE_P(Networks, GrossError, testing::ValuesIn(KindsOfNetworks()),
                         [](const auto& kind) { return kind.param.name; });

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
