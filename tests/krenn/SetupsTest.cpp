// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/model/Setups.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

#include "krenn/Errors.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/InputText.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

constexpr double kGons = 200 / std::numbers::pi;

using Vector = std::array<double, 3>;

const std::vector<Vector> kTargets{{12, 3, 1}, {-4, 9, 2.5}, {-7, -6, -1},
                                   {5, -8, 3}, {1, 14, -2},  {9, 9, 6}};

// What an instrument at `at` with the given rotations reads.
struct Reading {
    double direction, zenith, distance;
};

Reading ReadFrom(const Vector& at, const Vector& rotations, const Vector& target) {
    const Axes axes = AxesOf(rotations);
    Vector seen{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t k = 0; k < 3; ++k)
            seen[i] += axes[i][k] * (target[k] - at[k]);
    }
    const double horizontal = std::hypot(seen[0], seen[1]);
    double direction = std::atan2(seen[0], seen[1]) * kGons;
    if (direction < 0)
        direction += 400;
    return {direction, std::atan2(horizontal, seen[2]) * kGons, std::hypot(horizontal, seen[2])};
}

// Rows with as many digits as the truth needs to be met to a micrometer.
void Sight(InputText& text, const std::string& from, const std::string& to, const Reading& reading,
           bool isTracker) {
    text.distances.push_back(
        fmt::format("{} {} {:.8f} 0.00010{}\r\n", from, to, reading.distance, isTracker ? "   T" : ""));
    text.angles.push_back(
        fmt::format("{} {} {:.8f} {:.8f} 0.00100 0.00100\r\n", from, to, reading.direction, reading.zenith));
}

std::string TargetName(std::size_t i) {
    return "P" + std::to_string(i + 1);
}

InputText TargetsGiven(double noise = 0) {
    std::mt19937 random(7);
    std::normal_distribution<double> normal(0, 1);
    InputText text;
    for (std::size_t i = 0; i < kTargets.size(); ++i) {
        const Vector& at = kTargets[i];
        text.points.push_back(InputText::Given(TargetName(i), at[0] + noise * normal(random),
                                               at[1] + noise * normal(random),
                                               at[2] + noise * normal(random)));
    }
    return text;
}

Parameters WithTrackers() {
    Parameters parameters;
    parameters.tracker = TrackerModel::Rotations;
    return parameters;
}

Vector PlaceOf(const Network& network, const Adjustment& adjustment, const std::string& name) {
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (network.points[i].name == name) {
            Vector place = adjustment.state.at[i];
            for (std::size_t axis = 0; axis < 3; ++axis)
                place[axis] += adjustment.state.origin[axis];
            return place;
        }
    }
    ADD_FAILURE() << name;
    return {};
}

class TrackerWith : public testing::TestWithParam<Vector> {};

TEST_P(TrackerWith, FindsItsRotationsAmongFixedPoints) {
    const Vector station{1, 2, 0.5};
    InputText text = TargetsGiven();
    text.stations.push_back(InputText::Given("ST1", 1.05, 1.9, 0.55));
    for (std::size_t i = 0; i < kTargets.size(); ++i) {
        text.fixed.push_back(TargetName(i));
        Sight(text, "ST1", TargetName(i), ReadFrom(station, GetParam(), kTargets[i]), true);
    }
    const Network network = ReadInput(text.Text());
    for (const Type type : {Type::Sparse, Type::SparseInverse, Type::Dense, Type::L1Norm}) {
        const Adjustment adjustment = Adjust(network, type, WithTrackers());
        ASSERT_EQ(adjustment.structure.setups.size(), 1U);
        EXPECT_EQ(adjustment.unknowns.Count(), 6);
        const auto rotations = RotationsOf(adjustment.state, adjustment.structure.setups[0], 0);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_NEAR(std::remainder(rotations[i] - GetParam()[i], 2 * std::numbers::pi), 0, 2e-6);
            EXPECT_NEAR(PlaceOf(network, adjustment, "ST1")[i], station[i], 2e-6);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rotations, TrackerWith,
                         testing::Values(Vector{0, 0, 0}, Vector{0.001, -0.002, 1}, Vector{0.3, -0.2, -2.5},
                                         Vector{3.1, 0.1, 0.4}, Vector{-1.2, 1.3, 2}));

// Two trackers, each in its own tilted frame: the network floats with three shifts and three rotations.
TEST(Trackers, LeaveAFreeNetworkSixMovements) {
    InputText text = TargetsGiven(0.01);
    const Vector first{1, 2, 0.5};
    const Vector second{-3, 1, 1.5};
    text.stations.push_back(InputText::Given("ST1", 1, 2, 0.5));
    text.stations.push_back(InputText::Given("ST2", -3, 1, 1.5));
    for (std::size_t i = 0; i < kTargets.size(); ++i) {
        Sight(text, "ST1", TargetName(i), ReadFrom(first, {0.3, -0.2, -2.5}, kTargets[i]), true);
        Sight(text, "ST2", TargetName(i), ReadFrom(second, {-0.1, 0.25, 1}, kTargets[i]), true);
    }
    const Network network = ReadInput(text.Text());
    for (const Type type : {Type::SparseInverse, Type::Dense}) {
        const Adjustment adjustment = Adjust(network, type, WithTrackers());
        EXPECT_EQ(adjustment.datum.Defect(), 6);
        EXPECT_EQ(adjustment.Redundancy(), 36 - 30 + 6);
        EXPECT_LT(adjustment.sumOfSquares, 1e-6);
    }
    EXPECT_EQ(Adjust(network, Type::Sparse).datum.Defect(), 4) << "taken as levelled";
}

TEST(Trackers, StandBesideALevelledInstrumentOnOnePoint) {
    InputText text = TargetsGiven();
    const Vector station{1, 2, 0.5};
    for (std::size_t i = 0; i < kTargets.size(); ++i) {
        text.fixed.push_back(TargetName(i));
        Sight(text, "ST1", TargetName(i), ReadFrom(station, {0, 0, 0.7}, kTargets[i]), false);
        Sight(text, "ST1", TargetName(i), ReadFrom(station, {0.2, 0.3, 1.9}, kTargets[i]), true);
    }
    const Network network = ReadInput(text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse, WithTrackers());
    ASSERT_EQ(adjustment.structure.setups.size(), 2U);
    EXPECT_NEAR(adjustment.state.orientation[0], 0.7, 1e-6);
    EXPECT_TRUE(adjustment.structure.setups[1].isTilted);
    EXPECT_LT(adjustment.sumOfSquares, 1e-6);
}

TEST(FindSetups, TakesAllRowsOfAPointAsOneUnlessToldOtherwise) {
    InputText text = TargetsGiven();
    for (const char* station : {"A", "B", "A"}) {
        for (const char* target : {"P1", "P2", "P1"})
            text.Angles(station, target, 10, 100, 0.001);
    }
    const Network network = ReadInput(text.Text());
    const auto count = [&](SetupRule rule) {
        Parameters parameters;
        parameters.setups = rule;
        return FindStructure(network, parameters).setups.size();
    };
    EXPECT_EQ(count(SetupRule::Station), 2U);
    EXPECT_EQ(count(SetupRule::Block), 3U);
    EXPECT_EQ(count(SetupRule::Set), 6U);
}

TEST(FindSetups, TellsAngleRowsOfATrackerByTheirDistances) {
    InputText text;
    text.distances = {"A P1 10 0.001   T\r\n", "A P2 10 0.001   T\r\n", "A P2 10 0.001\r\n",
                      "B P1 10 0.001\r\n"};
    for (const char* row : {"A P1", "A P2", "A P2", "A P3", "B P1"})
        text.angles.push_back(std::string(row) + " 10 100 0.001 0.001\r\n");
    const Network network = ReadInput(text.Text());
    Structure structure;
    const std::vector<int> setupOf = FindSetups(network, WithTrackers(), structure);
    std::vector<bool> isTilted;
    for (std::size_t i = 0; i < network.observations.size(); ++i) {
        if (network.observations[i].kind == Kind::Direction)
            isTilted.push_back(structure.setups[static_cast<std::size_t>(setupOf[i])].isTilted);
    }
    EXPECT_EQ(isTilted, (std::vector<bool>{true, true, false, false, false}));
}

// A second occupation with another zero direction, after another station.
TEST(SetupRule, BlockGivesEachOccupationItsOrientation) {
    InputText text = TargetsGiven();
    const Vector station{1, 2, 0.5};
    for (const double orientation : {0.7, -1.1}) {
        for (std::size_t i = 0; i < kTargets.size(); ++i)
            Sight(text, "ST1", TargetName(i), ReadFrom(station, {0, 0, orientation}, kTargets[i]), false);
        for (std::size_t i = 0; i < 3; ++i)
            Sight(text, "ST2", TargetName(i), ReadFrom({-3, 1, 1.5}, {0, 0, 0.2}, kTargets[i]), false);
    }
    Parameters parameters;
    parameters.setups = SetupRule::Block;
    const Network network = ReadInput(text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse, parameters);
    EXPECT_EQ(adjustment.structure.setups.size(), 4U);
    EXPECT_LT(adjustment.sumOfSquares, 1e-6);
}

// A network of fixed and new points, measured by a meter with a scale and a zero point, over a curved earth.
struct Globals {
    InputText text;
    static constexpr double kScale = 30e-6;
    static constexpr double kZero = 0.015;
    static constexpr double kRefraction = 0.2;

    Globals() {
        const std::vector<Vector> places{{0, 0, 0},        {1500, 100, 60}, {1300, 1400, 20},
                                         {-100, 1600, 90}, {700, 650, 150}, {2300, 900, -40},
                                         {500, 2300, 10}};
        State state;
        state.at = places;
        state.orientation.assign(places.size(), 0);
        state.meter[0] = {kScale, kZero};
        state.refraction = kRefraction;
        state.curvature = 1;
        for (std::size_t i = 0; i < places.size(); ++i) {
            text.points.push_back(InputText::Given(TargetName(i), places[i][0], places[i][1], places[i][2]));
            if (i < 4)
                text.fixed.push_back(TargetName(i));
            for (std::size_t k = 0; k < places.size(); ++k) {
                if (i == k)
                    continue;
                const auto value = [&](MeasureKind kind) {
                    Measure measure{kind, static_cast<int>(i), static_cast<int>(k), 0, 1, 0};
                    measure.setup = static_cast<int>(i);
                    return ComputeValue(measure, state);
                };
                double direction = value(MeasureKind::Direction) * kGons;
                if (direction < 0)
                    direction += 400;
                Sight(text, TargetName(i), TargetName(k),
                      {direction, value(MeasureKind::ZenithAngle) * kGons, value(MeasureKind::SlopeDistance)},
                      false);
            }
        }
    }
};

TEST(Adjust, EstimatesScaleZeroPointAndRefraction) {
    const Network network = ReadInput(Globals().text.Text());
    Parameters parameters;
    parameters.scale = true;
    parameters.zeroPoint = true;
    parameters.refraction = RefractionModel::Estimated;
    parameters.curvature = true;
    for (const Type type : {Type::SparseInverse, Type::Dense}) {
        const Adjustment adjustment = Adjust(network, type, parameters);
        EXPECT_EQ(adjustment.unknowns.globals, 3);
        EXPECT_NEAR(adjustment.state.meter[0].scale, Globals::kScale, 1e-9);
        EXPECT_NEAR(adjustment.state.meter[0].zeroPoint, Globals::kZero, 1e-6);
        EXPECT_NEAR(adjustment.state.refraction, Globals::kRefraction, 1e-6);
        EXPECT_EQ(adjustment.cofactors.global.rows(), 3);
        EXPECT_GT(adjustment.cofactors.global(0, 0), 0);
    }
    EXPECT_GT(Adjust(network, Type::Sparse).sumOfSquares, 1e4) << "all of them off";
}

TEST(Adjust, GivesTheSameCofactorsWithUnknownsOfTheWholeNetworkSparseAndDense) {
    InputText text = Globals().text;
    text.fixed.clear();
    text.pairs = {"P1 P5", "P6 P7"};
    const Network network = ReadInput(text.Text());
    Parameters parameters;
    parameters.scale = true;
    parameters.refraction = RefractionModel::Estimated;
    const Adjustment sparse = Adjust(network, Type::SparseInverse, parameters);
    const Adjustment dense = Adjust(network, Type::Dense, parameters);
    EXPECT_EQ(sparse.datum.Defect(), 5) << "a free scale of the meter frees that of the network";
    for (std::size_t p = 0; p < network.points.size(); ++p) {
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_NEAR(sparse.cofactors.point[p][i], dense.cofactors.point[p][i],
                        1e-9 * dense.cofactors.point[p][0]);
    }
    for (Eigen::Index i = 0; i < 2; ++i)
        EXPECT_NEAR(sparse.cofactors.global(i, i), dense.cofactors.global(i, i),
                    1e-9 * dense.cofactors.global(i, i));
}

TEST(Adjust, RefusesUnconnectedPartsWhenToldTo) {
    InputText text;
    text.Height("A", "B", 1, 0.001);
    text.Height("C", "D", 2, 0.001);
    Parameters parameters;
    parameters.parts = PartsRule::Refuse;
    try {
        Adjust(ReadInput(text.Text()), Type::Sparse, parameters);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number, ErrorNumber::UnconnectedParts);
        ASSERT_EQ(failure.details.size(), 2U);
        EXPECT_NE(failure.details[1].find("C, D"), std::string::npos);
    }
}

TEST(TakeOutKinds, LeavesTheOthersAndSaysHowMany) {
    InputText text;
    text.Height("A", "B", 1, 0.001);
    text.Distance("A", "B", 10, 0.001);
    Network network = ReadInput(text.Text());
    Parameters parameters;
    parameters.distances = false;
    TakeOutKinds(network, parameters);
    EXPECT_EQ(network.observations.size(), 1U);
    ASSERT_EQ(network.notes.back(), "Switched off in the parameter file: 1 distances.");
    parameters.heightDifferences = false;
    EXPECT_THROW(TakeOutKinds(network, parameters), Failure);
}

// No coordinate depends on the rotations, which a gross error pulls far from where they start.
TEST(Trackers, TurnUntilTheirRotationsStandStillToo) {
    const Vector station{1, 2, 0.5};
    InputText text = TargetsGiven();
    text.points.push_back(InputText::Given("ST1", station[0], station[1], station[2]));
    text.fixed.push_back("ST1");
    for (std::size_t i = 0; i < kTargets.size(); ++i) {
        text.fixed.push_back(TargetName(i));
        Reading reading = ReadFrom(station, {0.3, -0.2, -2.5}, kTargets[i]);
        if (i == 2)
            reading.direction = std::fmod(reading.direction + 60, 400);
        Sight(text, "ST1", TargetName(i), reading, true);
    }
    text.Height("A", "B", 1, 0.001);
    const Network network = ReadInput(text.Text());
    for (const Type type : {Type::Sparse, Type::Dense}) {
        const Adjustment adjustment = Adjust(network, type, WithTrackers());
        EXPECT_GT(adjustment.iterations.size(), 2U);
        std::array<double, 3> gradient{};
        std::array<double, 3> terms{};
        for (std::size_t m = 0; m < adjustment.residual.size(); ++m) {
            const Measure& measure = adjustment.structure.measures[m];
            const Partials partials = ComputePartials(measure, adjustment.state);
            for (std::size_t k = 0; k < 3; ++k) {
                const double term =
                    partials.by[kRotationTerm + k] * adjustment.residual[m] / measure.sigma / measure.sigma;
                gradient[k] += term;
                terms[k] += std::abs(term);
            }
        }
        for (std::size_t k = 0; k < 3; ++k)
            EXPECT_LT(std::abs(gradient[k]), 1e-7 * terms[k]) << k;
    }
}

TEST(Adjust, NamesTheSetupWhoseRotationsNothingDetermines) {
    InputText text = TargetsGiven();
    const Vector station{1, 2, 0.5};
    text.points.push_back(InputText::Given("ST1", 1, 2, 0.5));
    for (std::size_t i = 0; i < kTargets.size(); ++i)
        text.fixed.push_back(TargetName(i));
    text.fixed.push_back("ST1");
    text.points.push_back(InputText::Given("Q", 2, 2, 2));
    text.Distance("P1", "Q", 10.2, 0.001);
    text.Distance("P2", "Q", 9.2, 0.001);
    text.Distance("P3", "Q", 12.4, 0.001);
    text.Distance("P4", "Q", 10.5, 0.001);
    text.Height("P1", "Q", 1, 0.001);
    Sight(text, "ST1", "P1", ReadFrom(station, {0.3, -0.2, -2.5}, kTargets[0]), true);
    try {
        Adjust(ReadInput(text.Text()), Type::Sparse, WithTrackers());
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number, ErrorNumber::Singular);
        ASSERT_FALSE(failure.details.empty());
        EXPECT_NE(failure.details[0].find("ST1"), std::string::npos) << failure.details[0];
    }
}

}  // namespace
