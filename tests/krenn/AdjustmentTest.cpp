// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Adjustment.h"

#include <gtest/gtest.h>

#include <cmath>

#include "krenn/Errors.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

std::array<double, 3> PlaceOf(const Adjustment& adjustment, std::size_t point) {
    std::array<double, 3> place = adjustment.state.at[point];
    for (std::size_t axis = 0; axis < 3; ++axis)
        place[axis] += adjustment.state.origin[axis];
    return place;
}

TEST(Adjust, RedundancyNumbersSumToTheRedundancy) {
    NetworkSpec spec;
    const Network network = ReadInput(MakeNetwork(spec).text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    const Statistics statistics = Evaluate(network, adjustment);
    double sum = 0;
    for (const double r : statistics.redundancyNumber)
        sum += r;
    EXPECT_NEAR(sum, adjustment.Redundancy(), 1e-6);
}

TEST(Adjust, ResidualsDoNotDependOnTheDatum) {
    for (const int dimension : {1, 2, 3}) {
        NetworkSpec spec;
        spec.dimension = dimension;
        spec.startNoise = 0;
        const RandomNetwork random = MakeNetwork(spec);
        const Adjustment free = Adjust(ReadInput(random.text.Text()), Type::SparseInverse);
        RandomNetwork one = random;
        one.text.fixed = {"P9"};
        const Adjustment fixed = Adjust(ReadInput(one.text.Text()), Type::SparseInverse);
        RandomNetwork nothing = random;
        for (std::size_t i = 0; i < nothing.names.size(); ++i)
            nothing.text.points[i] = InputText::Named(nothing.names[i]);
        const Adjustment alone = Adjust(ReadInput(nothing.text.Text()), Type::SparseInverse);
        EXPECT_EQ(fixed.Redundancy(), free.Redundancy());
        EXPECT_EQ(alone.Redundancy(), free.Redundancy());
        for (std::size_t m = 0; m < free.residual.size(); ++m) {
            const double sigma = free.structure.measures[m].sigma;
            EXPECT_NEAR(free.residual[m], fixed.residual[m], 1e-5 * sigma);
            EXPECT_NEAR(free.residual[m], alone.residual[m], 1e-5 * sigma);
            EXPECT_NEAR(free.cofactors.measure[m], alone.cofactors.measure[m], 1e-6 * sigma * sigma);
        }
    }
}

TEST(Adjust, HoldsFixedPointsExactly) {
    NetworkSpec spec;
    spec.fixed = 2;
    const RandomNetwork random = MakeNetwork(spec);
    const Network network = ReadInput(random.text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    for (std::size_t p = 0; p < network.points.size(); ++p) {
        if (!network.points[p].isFixed)
            continue;
        for (std::size_t axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(PlaceOf(adjustment, p)[axis], network.points[p].given[axis], 1e-12);
        EXPECT_EQ(adjustment.cofactors.point[p], (std::array<double, 6>{}));
    }
}

TEST(Adjust, ShortensStepsThatWouldLetTheSumOfSquaresGrow) {
    int shortened = 0;
    for (unsigned seed = 1; seed <= 30; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        spec.startNoise = 150;
        spec.given = 3;
        spec.directions = false;
        try {
            const Adjustment adjustment = Adjust(ReadInput(MakeNetwork(spec).text.Text()), Type::Sparse);
            for (std::size_t i = 0; i < adjustment.iterations.size(); ++i) {
                shortened += adjustment.iterations[i].step < 1 ? 1 : 0;
                if (i > 0) {
                    EXPECT_LE(adjustment.iterations[i].target,
                              adjustment.iterations[i - 1].target * (1 + 1e-6) + 1e-6);
                }
            }
        } catch (const Failure& failure) {
            EXPECT_TRUE(failure.number == ErrorNumber::NoConvergence ||
                        failure.number == ErrorNumber::UndeterminedPoints);
        }
    }
    EXPECT_GT(shortened, 0);
}

TEST(Adjust, PlumbSightsDoNotCrashAndLoseOnlyTheirAngles) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 0), InputText::Given("B", 50, 0, 1),
                   InputText::Given("C", 0, 50, 2), InputText::Given("N", 0, 0, 20)};
    text.Distance("A", "N", 20.001, 0.001);
    text.Angles("A", "N", 17, 0.00001, 0.001);
    text.Angles("A", "B", 100, ZenithGons({0, 0, 0}, {50, 0, 1}), 0.001);
    text.Angles("A", "C", 0, ZenithGons({0, 0, 0}, {0, 50, 2}), 0.001);
    text.Distance("A", "B", std::sqrt(2501.0), 0.001);
    text.Distance("A", "C", std::sqrt(2504.0), 0.001);
    text.Distance("B", "C", SlopeLength({50, 0, 1}, {0, 50, 2}), 0.001);
    text.Distance("B", "N", SlopeLength({50, 0, 1}, {0, 0, 20}), 0.001);
    text.Distance("C", "N", SlopeLength({0, 50, 2}, {0, 0, 20}), 0.001);
    const Network network = ReadInput(text.Text());
    for (const Type type : {Type::Sparse, Type::SparseInverse, Type::Dense, Type::L1Norm}) {
        const Adjustment adjustment = Adjust(network, type);
        EXPECT_EQ(adjustment.structure.measures.size(), network.observations.size() - 2);
        EXPECT_NEAR(PlaceOf(adjustment, 3)[2], 20, 0.01);
    }
}

TEST(Adjust, HeightsReachPointsThatNothingElseReaches) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    random.text.points.push_back(InputText::Named("BENCH"));
    random.text.Height("S1", "BENCH", 5, 0.001);
    const Network network = ReadInput(random.text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    const std::size_t bench = network.points.size() - 1;
    ASSERT_EQ(network.points[bench].name, "BENCH");
    EXPECT_NEAR(PlaceOf(adjustment, bench)[2], PlaceOf(adjustment, 0)[2] + 5, 1e-9);
    EXPECT_EQ(adjustment.unknowns.number[bench][0], -1);
    EXPECT_GT(adjustment.cofactors.point[bench][5], adjustment.cofactors.point[0][5]);
}

TEST(Adjust, LargeCoordinatesLoseNoDigits) {
    NetworkSpec spec;
    spec.startNoise = 0;
    RandomNetwork near = MakeNetwork(spec);
    RandomNetwork far = near;
    for (std::size_t i = 0; i < near.names.size(); ++i) {
        const auto& at = near.truth[near.names[i]];
        const std::array<double, 3> round{std::round(at[0]), std::round(at[1]), std::round(at[2])};
        near.text.points[i] = InputText::Given(near.names[i], round[0], round[1], round[2]);
        far.text.points[i] = InputText::Given(near.names[i], round[0] + 5e6, round[1] + 6e6, round[2]);
    }
    const Adjustment a = Adjust(ReadInput(near.text.Text()), Type::SparseInverse);
    const Adjustment b = Adjust(ReadInput(far.text.Text()), Type::SparseInverse);
    for (std::size_t p = 0; p < near.names.size(); ++p)
        EXPECT_NEAR(PlaceOf(a, p)[0] + 5e6, PlaceOf(b, p)[0], 2e-8);
}

}  // namespace
