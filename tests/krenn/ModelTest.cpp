// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/model/Model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace {

using namespace Krenn;

State TwoPoints(double dx, double dy, double dz) {
    State state;
    state.at = {{10, 20, 30}, {10 + dx, 20 + dy, 30 + dz}};
    state.orientation = {0.3, 0};
    return state;
}

Measure Of(MeasureKind kind) {
    Measure measure{kind, 0, 1, 0, 1, 0};
    measure.setup = 0;
    return measure;
}

// All unknowns that a measure between two points can have.
Structure EverythingUnknown(const Measure& measure) {
    Structure structure;
    structure.roles.resize(2);
    for (PointRole& role : structure.roles)
        role.planIsUnknown = role.heightIsUnknown = true;
    structure.setups = {{0, 1, measure.isTilted, true}};
    structure.setupStart = {0, 1, 1};
    structure.model = {true, RefractionModel::Estimated, 0.13, true, true};
    structure.measures = {measure};
    return structure;
}

State Rich(const std::array<double, 3>& rotations) {
    State state = TwoPoints(300, -400, 120);
    state.axes = {AxesOf(rotations)};
    state.meter[1] = {2e-5, 0.01};
    state.refraction = 0.13;
    state.curvature = 1;
    return state;
}

TEST(ComputeValue, CountsDirectionsClockwiseFromTheOrientation) {
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::Direction), TwoPoints(5, 0, 0)), std::numbers::pi / 2 - 0.3,
                1e-15);
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::Direction), TwoPoints(0, 5, 0)), -0.3, 1e-15);
}

TEST(ComputeValue, CountsZenithAnglesFromAbove) {
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::ZenithAngle), TwoPoints(3, 4, 5)), std::numbers::pi / 4, 1e-15);
    EXPECT_GT(ComputeValue(Of(MeasureKind::ZenithAngle), TwoPoints(3, 4, -5)), std::numbers::pi / 2);
}

TEST(ComputeValue, TellsSlopeFromHorizontalDistance) {
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::SlopeDistance), TwoPoints(3, 4, 12)), 13, 1e-14);
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::HorizontalDistance), TwoPoints(3, 4, 12)), 5, 1e-14);
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::HeightDifference), TwoPoints(3, 4, -12)), -12, 1e-14);
}

class PartialsOf : public testing::TestWithParam<std::tuple<MeasureKind, bool>> {};

TEST_P(PartialsOf, AgreeWithNumericDerivatives) {
    Measure measure = Of(std::get<0>(GetParam()));
    measure.isTilted = std::get<1>(GetParam());
    measure.isMarked = true;
    const Unknowns unknowns = NumberUnknowns(EverythingUnknown(measure));
    const State state = Rich({0.4, -0.7, 2.5});
    const Partials partials = ComputePartials(measure, state);
    EXPECT_DOUBLE_EQ(partials.computed, ComputeValue(measure, state));
    Eigen::VectorXd derivative = Eigen::VectorXd::Zero(unknowns.Count());
    const auto numbers = UnknownsOf(measure, unknowns);
    for (std::size_t i = 0; i < kTerms; ++i) {
        if (numbers[i] >= 0)
            derivative(numbers[i]) += partials.by[i];
    }
    for (int unknown = 0; unknown < unknowns.Count(); ++unknown) {
        const double step = IsCoordinate(unknowns.of[static_cast<std::size_t>(unknown)]) ? 1e-2 : 1e-5;
        Eigen::VectorXd move = Eigen::VectorXd::Zero(unknowns.Count());
        move(unknown) = 1;
        const double forth = ComputeValue(measure, Moved(state, unknowns, move, step));
        const double back = ComputeValue(measure, Moved(state, unknowns, move, -step));
        const double numeric = (forth - back) / (2 * step);
        EXPECT_NEAR(derivative(unknown), numeric, 1e-8 * (1 + std::abs(numeric))) << unknown;
    }
}

INSTANTIATE_TEST_SUITE_P(EveryKind, PartialsOf,
                         testing::Values(std::tuple{MeasureKind::Direction, false},
                                         std::tuple{MeasureKind::ZenithAngle, false},
                                         std::tuple{MeasureKind::SlopeDistance, false},
                                         std::tuple{MeasureKind::HorizontalDistance, false},
                                         std::tuple{MeasureKind::HeightDifference, false},
                                         std::tuple{MeasureKind::Direction, true},
                                         std::tuple{MeasureKind::ZenithAngle, true}));

TEST(ComputeValue, SeesTheTargetLowerByTheCurvatureAndHigherByTheRefraction) {
    // 1 km over level ground: the curvature lowers the target by 7.85 cm, refraction lifts it by a part k.
    State state = TwoPoints(1000, 0, 0);
    const double drop = 1e6 / (2 * 6372508.025);
    state.curvature = 1;
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::ZenithAngle), state), std::atan2(1000, -drop), 1e-12);
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::SlopeDistance), state), std::hypot(1000, drop), 1e-9);
    state.refraction = 0.2;
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::ZenithAngle), state), std::atan2(1000, -0.8 * drop), 1e-12);
    state.curvature = 0;
    EXPECT_NEAR(ComputeValue(Of(MeasureKind::ZenithAngle), state), std::atan2(1000, 0.2 * drop), 1e-12);
}

TEST(ComputeValue, AddsScaleAndZeroPointOfTheMeterThatMeasured) {
    State state = TwoPoints(300, 400, 0);
    state.meter[1] = {1e-4, 0.02};
    Measure measure = Of(MeasureKind::SlopeDistance);
    EXPECT_NEAR(ComputeValue(measure, state), 500, 1e-12);
    measure.isMarked = true;
    EXPECT_NEAR(ComputeValue(measure, state), 500.07, 1e-12);
}

TEST(ComputeValue, IsTheSameForALevelledAndATiltedInstrumentThatStandsPlumb) {
    State state = TwoPoints(30, -40, 12);
    state.axes = {AxesOf({0, 0, 0.3})};
    for (const MeasureKind kind : {MeasureKind::Direction, MeasureKind::ZenithAngle}) {
        Measure tilted = Of(kind);
        tilted.isTilted = true;
        EXPECT_NEAR(Misclosure(tilted, ComputeValue(tilted, state)),
                    Misclosure(Of(kind), ComputeValue(Of(kind), state)), 1e-14);
    }
}

TEST(RotationsOf, LeadBackToTheAxes) {
    for (const std::array<double, 3>& rotations :
         {std::array{0.0, 0.0, 0.5}, {3.0, 0.2, -2.0}, {-0.1, -1.4, 3.1}, {1.6, 1.5, -0.7}}) {
        State state;
        state.axes = {AxesOf(rotations)};
        const auto found = RotationsOf(state, {0, 1, true, true}, 0);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_NEAR(found[i], rotations[i], 1e-12);
    }
}

TEST(ComputePartials, StayFiniteOnThePlumbLineAndAtZeroLength) {
    for (const double dz : {5.0, 0.0}) {
        for (const MeasureKind kind :
             {MeasureKind::Direction, MeasureKind::ZenithAngle, MeasureKind::SlopeDistance,
              MeasureKind::HorizontalDistance, MeasureKind::HeightDifference}) {
            const Partials partials = ComputePartials(Of(kind), TwoPoints(0, 0, dz));
            EXPECT_TRUE(std::isfinite(partials.computed));
            for (const double by : partials.by)
                EXPECT_TRUE(std::isfinite(by));
        }
    }
}

TEST(Misclosure, WrapsAnglesIntoHalfACircle) {
    Measure measure = Of(MeasureKind::Direction);
    measure.value = 2 * std::numbers::pi - 0.001;
    EXPECT_NEAR(Misclosure(measure, 0.001), -0.002, 1e-15);
    EXPECT_DOUBLE_EQ(Wrapped(-std::numbers::pi), std::numbers::pi);
    EXPECT_DOUBLE_EQ(Wrapped(std::numbers::pi), std::numbers::pi);
}

}  // namespace
