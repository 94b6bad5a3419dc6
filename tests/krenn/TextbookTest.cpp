// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>

#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

double Height(const Adjustment& adjustment, std::size_t point) {
    return adjustment.state.at[point][2] + adjustment.state.origin[2];
}

// A levelling loop of four equal legs closes with 8 mm: each leg takes a quarter of it.
TEST(Textbook, LevellingLoopSharesItsMisclosure) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 100)};
    text.fixed = {"A"};
    text.Height("A", "B", 1.500, 0.002);
    text.Height("B", "C", -0.700, 0.002);
    text.Height("C", "D", 2.100, 0.002);
    text.Height("D", "A", -2.908, 0.002);
    const Network network = ReadInput(text.Text());
    for (const Type type : {Type::Sparse, Type::SparseInverse, Type::Dense}) {
        const Adjustment adjustment = Adjust(network, type);
        EXPECT_NEAR(Height(adjustment, 1), 101.502, 1e-10);
        EXPECT_NEAR(Height(adjustment, 2), 100.804, 1e-10);
        EXPECT_NEAR(Height(adjustment, 3), 102.906, 1e-10);
        for (const double v : adjustment.residual)
            EXPECT_NEAR(v, 0.002, 1e-10);
        EXPECT_NEAR(Evaluate(network, adjustment).m0, 2, 1e-9);
    }
    // The cofactor of a point k legs from A in a loop of n legs is k (n - k) / n.
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    EXPECT_NEAR(adjustment.cofactors.point[1][5], 0.002 * 0.002 * 3 / 4, 1e-15);
    EXPECT_NEAR(adjustment.cofactors.point[2][5], 0.002 * 0.002 * 4 / 4, 1e-15);
}

// Two benchmarks and one new point between them: the weighted mean.
TEST(Textbook, LevelledPointIsTheWeightedMean) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Given("B", 0, 0, 12)};
    text.fixed = {"A", "B"};
    text.Height("A", "P", 1.010, 0.001);
    text.Height("B", "P", -1.000, 0.002);
    const Network network = ReadInput(text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    EXPECT_NEAR(Height(adjustment, 2), (4 * 11.010 + 1 * 11.000) / 5, 1e-10);
    EXPECT_NEAR(adjustment.cofactors.point[2][5], 1e-6 / (1 + 0.25), 1e-15);
}

// Free levelling triangle: inner constraints keep the mean height and give every point the variance
// sigma^2 (1/n) (1 - 1/n) ... for a triangle of equal legs 2/9 sigma^2.
TEST(Textbook, FreeLevellingTriangleHasEqualVariances) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Given("B", 0, 0, 11),
                   InputText::Given("C", 0, 0, 12)};
    text.Height("A", "B", 1.001, 0.001);
    text.Height("B", "C", 1.001, 0.001);
    text.Height("C", "A", -1.999, 0.001);
    const Network network = ReadInput(text.Text());
    for (const Type type : {Type::SparseInverse, Type::Dense}) {
        const Adjustment adjustment = Adjust(network, type);
        for (std::size_t p = 0; p < 3; ++p)
            EXPECT_NEAR(adjustment.cofactors.point[p][5], 2.0 / 9 * 1e-6, 1e-15);
        EXPECT_NEAR(Height(adjustment, 0) + Height(adjustment, 1) + Height(adjustment, 2), 33, 1e-9);
    }
}

// A point at distances 100 from two fixed points at right angles: its ellipse is the circle of sigma.
TEST(Textbook, RightAngledArcSectionHasARoundEllipse) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 0), InputText::Given("B", 100, 100, 0),
                   InputText::Given("P", 100.02, -0.01, 0)};
    text.fixed = {"A", "B"};
    text.Distance("A", "P", 100, 0.005);
    text.Distance("B", "P", 100, 0.005);
    const Network network = ReadInput(text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    const Statistics statistics = Evaluate(network, adjustment);
    EXPECT_NEAR(adjustment.state.at[2][0] + adjustment.state.origin[0], 100, 1e-9);
    EXPECT_NEAR(adjustment.state.at[2][1] + adjustment.state.origin[1], 0, 1e-9);
    EXPECT_NEAR(statistics.ellipse[2].major, 0.005, 1e-9);
    EXPECT_NEAR(statistics.ellipse[2].minor, 0.005, 1e-9);
}

// An open traverse with one sight: the ellipse lies across the sight by the direction and along it by the
// distance.
TEST(Textbook, PolarPointHasItsEllipseAcrossAndAlongTheSight) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 0), InputText::Given("B", 0, 1000, 0), InputText::Named("P")};
    text.fixed = {"A", "B"};
    text.Angles("A", "B", 0, 0, 0.00001);
    text.Angles("A", "P", 50, 0, 0.002);
    text.Distance("A", "P", 200, 0.003);
    const Network network = ReadInput(text.Text());
    const Statistics statistics = Evaluate(network, Adjust(network, Type::SparseInverse));
    const double across = 200 * std::hypot(0.002, 0.00001) * std::acos(-1.0) / 200;
    EXPECT_NEAR(statistics.ellipse[2].major, across, 1e-9);
    EXPECT_NEAR(statistics.ellipse[2].minor, 0.003, 1e-9);
    EXPECT_NEAR(statistics.ellipse[2].bearing, 150, 1e-3);
}

// Resection from three directions without redundancy meets the place exactly.
TEST(Textbook, ResectionMeetsThePlaceOfTheStation) {
    const Places truth{{"A", {0, 0, 0}}, {"B", {200, 0, 0}}, {"C", {90, 170, 0}}, {"S", {110, 60, 0}}};
    InputText text;
    for (const char* name : {"A", "B", "C"}) {
        text.points.push_back(InputText::Given(name, truth.at(name)[0], truth.at(name)[1], 0));
        text.fixed.push_back(name);
        text.Angles("S", name, std::fmod(AzimuthGons(truth.at("S"), truth.at(name)) + 400 - 77, 400), 0,
                    0.001);
    }
    const Network network = ReadInput(text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    EXPECT_EQ(adjustment.Redundancy(), 0);
    EXPECT_NEAR(adjustment.state.at[3][0] + adjustment.state.origin[0], 110, 1e-4);
    EXPECT_NEAR(adjustment.state.at[3][1] + adjustment.state.origin[1], 60, 1e-4);
    EXPECT_NEAR(adjustment.state.orientation[0] * 200 / std::acos(-1.0), 77, 1e-4);
}

}  // namespace
