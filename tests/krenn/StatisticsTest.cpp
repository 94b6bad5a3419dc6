// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Statistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "krenn/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

TEST(EllipseOf, CountsTheBearingClockwiseFromNorth) {
    const Ellipse east = EllipseOf(4, 0, 1);
    EXPECT_DOUBLE_EQ(east.major, 2);
    EXPECT_DOUBLE_EQ(east.minor, 1);
    EXPECT_NEAR(east.bearing, 100, 1e-12);
    EXPECT_NEAR(EllipseOf(1, 0, 4).bearing, 0, 1e-12);
    EXPECT_NEAR(EllipseOf(1, 0.5, 1).bearing, 50, 1e-12);
    EXPECT_NEAR(EllipseOf(1, -0.5, 1).bearing, 150, 1e-12);
}

TEST(EllipseOf, TakesATinyNegativeEigenvalueForZero) {
    const Ellipse line = EllipseOf(1, 1 + 1e-15, 1);
    EXPECT_EQ(line.minor, 0);
    EXPECT_NEAR(line.major, std::sqrt(2.0), 1e-12);
}

TEST(Evaluate, TellsNoM0AtRedundancyZero) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B")};
    text.fixed = {"A"};
    text.Height("A", "B", 1, 0.002);
    const Network network = ReadInput(text.Text());
    const Statistics statistics = Evaluate(network, Adjust(network, Type::SparseInverse));
    EXPECT_EQ(statistics.redundancy, 0);
    EXPECT_FALSE(statistics.hasM0);
    EXPECT_NEAR(statistics.deviation[1][2], 0.002, 1e-12);
    EXPECT_EQ(statistics.standardised[0], 0);
}

TEST(Evaluate, ScalesDeviationsWithM0) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B")};
    text.fixed = {"A"};
    text.Height("A", "B", 1.000, 0.001);
    text.Height("A", "B", 1.004, 0.001);
    const Network network = ReadInput(text.Text());
    const Statistics statistics = Evaluate(network, Adjust(network, Type::SparseInverse));
    EXPECT_NEAR(statistics.m0, std::sqrt(8.0), 1e-9);
    EXPECT_NEAR(statistics.deviation[1][2], 0.001 * std::sqrt(8.0) / std::sqrt(2.0), 1e-12);
    EXPECT_NEAR(std::abs(statistics.standardised[0]), 2 * std::sqrt(2.0), 1e-6);
}

// Repeated measuring gives the spread that the standard deviations tell, and a test at 5% rejects 5%.
TEST(Evaluate, TellsTheTruthInAMonteCarloExperiment) {
    NetworkSpec spec;
    spec.fixed = 2;
    spec.noise = 0;
    spec.startNoise = 0;
    const Network exact = ReadInput(MakeNetwork(spec).text.Text());
    const Adjustment truth = Adjust(exact, Type::SparseInverse);
    std::mt19937 random(4711);
    std::normal_distribution<double> normal(0, 1);
    constexpr int kRuns = 1500;
    int rejected = 0;
    std::vector<double> squares(exact.points.size() * 3, 0.0);
    for (int run = 0; run < kRuns; ++run) {
        Network noisy = exact;
        for (Observation& observation : noisy.observations)
            observation.value += observation.sigma * normal(random);
        const Adjustment adjustment = Adjust(noisy, Type::Sparse);
        rejected += Evaluate(noisy, adjustment).passes ? 0 : 1;
        for (std::size_t i = 0; i < squares.size(); ++i)
            squares[i] += std::pow(adjustment.state.at[i / 3][i % 3] - truth.state.at[i / 3][i % 3], 2);
    }
    EXPECT_NEAR(rejected / static_cast<double>(kRuns), 0.05, 0.02);
    constexpr std::size_t kEntry[] = {0, 2, 5};
    for (std::size_t i = 0; i < squares.size(); ++i) {
        const double told = std::sqrt(truth.cofactors.point[i / 3][kEntry[i % 3]]);
        EXPECT_NEAR(std::sqrt(squares[i] / kRuns), told, 0.08 * told) << i;
    }
}

}  // namespace
