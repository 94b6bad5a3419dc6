// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Statistics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "krenn/input/InputReader.h"
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

// Three levelled lines in a triangle, one bench mark fixed; the misclosure is all in `error` of the first.
Network HeightTriangle(double error) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B"), InputText::Named("C")};
    text.fixed = {"A"};
    text.Height("A", "B", 1, 0.001);
    text.Height("B", "C", 2, 0.002);
    text.Height("C", "A", -3, 0.002);
    Network network = ReadInput(text.Text());
    network.observations[0].value += error;
    return network;
}

TEST(Evaluate, SumsRedundancyNumbersOfAllKindsToTheRedundancy) {
    const Network network = ReadInput(MakeNetwork({}).text.Text());
    const Statistics statistics = Evaluate(network, Adjust(network, Type::SparseInverse));
    double sum = 0;
    int number = 0;
    for (const KindStatistics& kind : statistics.kinds) {
        sum += kind.redundancy;
        number += kind.number;
    }
    EXPECT_NEAR(sum, statistics.redundancy, 1e-6);
    EXPECT_EQ(number, static_cast<int>(network.observations.size()));
}

TEST(Evaluate, FindsAnErrorOfTheSmallestDetectableSizeWithTheNoncentrality) {
    const Network quiet = HeightTriangle(0);
    const Statistics before = Evaluate(quiet, Adjust(quiet, Type::SparseInverse));
    EXPECT_NEAR(before.redundancyNumber[0], 1.0 / 9, 1e-9);
    // 0.1% two-tailed and a power of 80%: the 4.13 of Baarda's tables.
    EXPECT_NEAR(before.noncentrality, 4.13, 0.005);
    const double error = SmallestDetectable(before.noncentrality, 0.001, before.redundancyNumber[0]);
    const Network loud = HeightTriangle(error);
    const Adjustment adjustment = Adjust(loud, Type::SparseInverse);
    const Statistics after = Evaluate(loud, adjustment);
    EXPECT_NEAR(std::abs(after.standardised[0]), before.noncentrality, 1e-6);
    EXPECT_NEAR(after.suspected[0], error, 1e-9);
    // B is held by the first line and, the other way round, by the other two: the effect meets its bound.
    const double effect = std::abs(adjustment.state.at[1][2] + adjustment.state.origin[2] - 11);
    const double deviation = std::sqrt(adjustment.cofactors.point[1][5]);
    EXPECT_NEAR(effect, LargestEffect(before.noncentrality, before.redundancyNumber[0]) * deviation, 1e-9);
}

TEST(Evaluate, TakesRiskAndTailsFromTheParameters) {
    const Network network = HeightTriangle(0.006);
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    Parameters parameters;
    parameters.globalTails = Tails::One;
    parameters.localTails = Tails::One;
    parameters.localRisk = 0.05;
    const Statistics one = Evaluate(network, adjustment, parameters);
    const Statistics two = Evaluate(network, adjustment);
    EXPECT_NEAR(one.critical, 1.644854, 5e-7);
    EXPECT_NEAR(two.critical, 3.290527, 5e-7);
    EXPECT_EQ(one.lowest, 0);
    EXPECT_NEAR(one.highest, std::sqrt(3.84146), 1e-5);
    EXPECT_NEAR(two.highest, std::sqrt(5.02389), 1e-5);
    EXPECT_FALSE(one.passes);
    EXPECT_TRUE(two.passes);
    EXPECT_NEAR(one.exceedance, 0.0455, 5e-5);
    EXPECT_EQ(one.flagged, 3);
    EXPECT_EQ(two.flagged, 0);
}

TEST(Evaluate, LeavesDeviationsAPrioriWhenTold) {
    const Network network = HeightTriangle(0.006);
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    Parameters parameters;
    parameters.posteriori = false;
    parameters.confidence = 0.99;
    const Statistics statistics = Evaluate(network, adjustment, parameters);
    EXPECT_NEAR(statistics.m0, 2, 1e-9);
    EXPECT_NEAR(statistics.deviation[1][2], 0.001 * std::sqrt(8.0 / 9), 1e-12);
    EXPECT_NEAR(statistics.wideFactor, std::sqrt(9.21034), 1e-5);
}

TEST(Evaluate, WidensDeviationsAPosterioriByTheirFewObservations) {
    const Network network = HeightTriangle(0.006);
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    Parameters parameters;
    parameters.confidence = 0.95;
    const Statistics few = Evaluate(network, adjustment, parameters);
    // Redundancy 1: the 12.71 of Student's tables and the 199.5 of Fisher's.
    EXPECT_NEAR(few.wideHeightFactor, 12.706, 5e-4);
    EXPECT_NEAR(few.wideFactor, std::sqrt(2 * 199.5), 5e-3);
    parameters.posteriori = false;
    EXPECT_NEAR(Evaluate(network, adjustment, parameters).wideHeightFactor, 1.959964, 5e-7);
}

TEST(Evaluate, CountsWhatNothingChecks) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B"), InputText::Named("C")};
    text.fixed = {"A"};
    text.Height("A", "B", 1.000, 0.001);
    text.Height("A", "B", 1.001, 0.001);
    text.Height("B", "C", 5, 0.001);
    const Network network = ReadInput(text.Text());
    const Statistics statistics = Evaluate(network, Adjust(network, Type::SparseInverse));
    EXPECT_EQ(statistics.notChecked, 1);
    EXPECT_EQ(statistics.kinds[static_cast<std::size_t>(MeasureKind::HeightDifference)].notChecked, 1);
    EXPECT_EQ(statistics.standardised[2], 0);
    EXPECT_EQ(statistics.suspected[2], 0);
}

TEST(Evaluate, KeepsTheTypicalWFromAGrossError) {
    NetworkSpec spec;
    spec.stations = 8;
    spec.points = 14;
    spec.given = 14;
    Network network = ReadInput(MakeNetwork(spec).text.Text());
    network.observations[5].value += 100 * network.observations[5].sigma;
    const Statistics statistics = Evaluate(network, Adjust(network, Type::SparseInverse));
    EXPECT_GT(statistics.m0, 4);
    EXPECT_LT(statistics.typicalW, 2);
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
