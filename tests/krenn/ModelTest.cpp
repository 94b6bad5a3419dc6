// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Model.h"

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
    return {kind, 0, 1, 0, 1, 0};
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

TEST(ComputePartials, AgreeWithNumericDerivatives) {
    for (const MeasureKind kind :
         {MeasureKind::Direction, MeasureKind::ZenithAngle, MeasureKind::SlopeDistance,
          MeasureKind::HorizontalDistance, MeasureKind::HeightDifference}) {
        const State state = TwoPoints(30, -40, 12);
        const Partials partials = ComputePartials(Of(kind), state);
        EXPECT_DOUBLE_EQ(partials.computed, ComputeValue(Of(kind), state));
        for (std::size_t i = 0; i < 7; ++i) {
            State forth = state;
            State back = state;
            (i == 6 ? forth.orientation[0] : forth.at[i / 3][i % 3]) += 1e-4;
            (i == 6 ? back.orientation[0] : back.at[i / 3][i % 3]) -= 1e-4;
            const double numeric = (ComputeValue(Of(kind), forth) - ComputeValue(Of(kind), back)) / 2e-4;
            EXPECT_NEAR(partials.by[i], numeric, 1e-9) << static_cast<int>(kind) << " " << i;
        }
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
