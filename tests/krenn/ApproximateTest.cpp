// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/Approximate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "krenn/Errors.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/input/InputReader.h"
#include "krenn/start/PlanGeometry.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

// Observations between true places, each station with its own zero, without noise.
struct Sketch {
    Places truth;
    InputText text;

    void Point(const std::string& name, double x, double y, double z, bool isGiven = false) {
        truth[name] = {x, y, z};
        text.points.push_back(isGiven ? InputText::Given(name, x, y, z) : InputText::Named(name));
    }

    void Angle(const std::string& from, const std::string& to, bool withZenith = false) {
        const double zero = 37.5 * static_cast<double>(from.size() + static_cast<unsigned char>(from[0]) % 7);
        const double zenith = withZenith ? ZenithGons(truth[from], truth[to]) : 0;
        text.Angles(from, to, std::fmod(AzimuthGons(truth[from], truth[to]) + 800 - zero, 400), zenith,
                    0.001);
    }

    void Length(const std::string& from, const std::string& to, bool isSlope = false) {
        text.Distance(from, to,
                      isSlope ? SlopeLength(truth[from], truth[to]) : PlanLength(truth[from], truth[to]),
                      0.001);
    }

    void Polar(const std::string& from, const std::string& to) {
        Angle(from, to);
        Length(from, to);
    }
};

// The shape is right if every distance between two points is.
void ExpectShape(Sketch& sketch, double bound = 0.05, double scale = 1) {
    const Network network = ReadInput(sketch.text.Text());
    const Approximation approximation = Approximate(network, FindStructure(network));
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        for (std::size_t j = i + 1; j < network.points.size(); ++j) {
            const auto& a = approximation.state.at[i];
            const auto& b = approximation.state.at[j];
            EXPECT_NEAR(
                std::hypot(a[0] - b[0], a[1] - b[1]) * scale,
                PlanLength(sketch.truth[network.points[i].name], sketch.truth[network.points[j].name]), bound)
                << network.points[i].name << " " << network.points[j].name;
        }
    }
}

// Between heights that nothing determines a slope is as good as the plan distance below it, whose standard
// error is larger: d h = s / h d s.
TEST(ReduceToHeldHeights, CarriesTheStandardErrorToThePlan) {
    Network network;
    network.points.resize(3);
    Structure structure;
    structure.roles.resize(3);
    for (auto& role : structure.roles)
        role.heightGroup = -1;
    structure.roles[2].heightGroup = 0;
    State state;
    state.at = {{0, 0, 0}, {3, 0, 4}, {0, 0, 5}};
    Measure slope;
    slope.kind = MeasureKind::SlopeDistance;
    slope.from = 0;
    slope.to = 1;
    slope.value = 5;
    slope.sigma = 0.003;
    Measure steep = slope;
    steep.to = 2;
    structure.measures = {slope, steep};
    ReduceToHeldHeights(structure, network, state);
    EXPECT_EQ(structure.measures[0].kind, MeasureKind::HorizontalDistance);
    EXPECT_DOUBLE_EQ(structure.measures[0].value, 3);
    EXPECT_DOUBLE_EQ(structure.measures[0].sigma, 0.005);
    EXPECT_EQ(structure.measures[1].kind, MeasureKind::SlopeDistance) << "nothing of it lies in plan";
    EXPECT_EQ(structure.measures[1].sigma, 0.003);
}

TEST(Crossings, MeetKnownGeometry) {
    const Locus north{Locus::Shape::Ray, {0, 0}, 0, 0};
    const Locus circle{Locus::Shape::Circle, {3, 0}, 0, 5};
    const auto crossing = Crossings(north, circle);
    ASSERT_EQ(crossing.size(), 1u);
    EXPECT_NEAR(crossing[0].at[1], 4, 1e-12);
    const auto two = Crossings(circle, {Locus::Shape::Circle, {-3, 0}, 0, 5});
    ASSERT_EQ(two.size(), 2u);
    EXPECT_NEAR(std::abs(two[0].at[1]), 4, 1e-12);
    EXPECT_TRUE(Crossings(circle, {Locus::Shape::Circle, {30, 0}, 0, 5}).empty());
}

TEST(InscribedAngle, HoldsThePointThatSeesTheAngle) {
    const Place point{12, -7};
    const Place left{-20, 40};
    const Place right{60, 35};
    const auto locus = InscribedAngle(left, right, AzimuthTo(point, right) - AzimuthTo(point, left));
    ASSERT_TRUE(locus);
    EXPECT_NEAR(DistanceTo(locus->at, point), locus->radius, 1e-10);
    EXPECT_NEAR(DistanceTo(locus->at, left), locus->radius, 1e-10);
    EXPECT_FALSE(InscribedAngle(left, right, 1e-5));
}

TEST(Approximate, RunsAlongATraverse) {
    Sketch sketch;
    sketch.Point("A", 0, 0, 0);
    sketch.Point("B", 100, 30, 0);
    sketch.Point("C", 180, -20, 0);
    sketch.Point("D", 300, 40, 0);
    sketch.Point("E", 360, 130, 0);
    for (const auto& [from, to] : {std::pair{"A", "B"}, {"B", "C"}, {"C", "D"}, {"D", "E"}}) {
        sketch.Polar(from, to);
        sketch.Angle(to, from);
    }
    ExpectShape(sketch);
}

TEST(Approximate, IntersectsPointsThatOnlyDirectionsReach) {
    Sketch sketch;
    sketch.Point("A", 0, 0, 0);
    sketch.Point("B", 200, 0, 0);
    sketch.Point("P", 80, 120, 0);
    sketch.Point("Q", 130, -90, 0);
    sketch.Polar("A", "B");
    sketch.Angle("B", "A");
    for (const char* target : {"P", "Q"}) {
        sketch.Angle("A", target);
        sketch.Angle("B", target);
    }
    ExpectShape(sketch);
}

TEST(Approximate, ResectsStationsThatNobodySights) {
    Sketch sketch;
    sketch.Point("A", 0, 0, 0);
    sketch.Point("B", 200, 0, 0);
    sketch.Point("C", 90, 170, 0);
    sketch.Point("S", 110, 60, 0);
    for (const char* target : {"B", "C"})
        sketch.Polar("A", target);
    for (const char* target : {"A", "B", "C"})
        sketch.Angle("S", target);
    ExpectShape(sketch);
}

TEST(Approximate, FindsTheFreeStationBetweenTwoTargets) {
    Sketch sketch;
    sketch.Point("A", 0, 0, 0);
    sketch.Point("P", 100, 60, 0);
    sketch.Point("Q", 120, -50, 0);
    sketch.Point("R", 260, 10, 0);
    sketch.Point("S", 200, 20, 0);
    for (const char* target : {"P", "Q"}) {
        sketch.Polar("A", target);
        sketch.Polar("S", target);
    }
    sketch.Polar("S", "R");
    ExpectShape(sketch);
}

TEST(Approximate, JoinsFramesThatShareTwoPointsAlone) {
    Sketch sketch;
    sketch.Point("S1", 0, 0, 0);
    sketch.Point("S2", 300, 50, 0);
    sketch.Point("S3", 310, 180, 0);
    sketch.Point("P", 150, 20, 0);
    sketch.Point("Q", 140, 160, 0);
    sketch.Point("R", 420, 100, 0);
    sketch.Polar("S1", "P");
    sketch.Polar("S1", "Q");
    sketch.Polar("S2", "P");
    sketch.Polar("S2", "R");
    sketch.Polar("S3", "Q");
    sketch.Polar("S3", "R");
    sketch.Polar("S2", "S3");
    ExpectShape(sketch);
}

TEST(Approximate, SolvesANetworkOfDistancesAlone) {
    Sketch sketch;
    const std::vector<std::string> names{"A", "B", "C", "D", "E", "F"};
    const double xy[][2] = {{0, 0}, {100, 10}, {190, -10}, {10, 100}, {110, 120}, {205, 90}};
    for (std::size_t i = 0; i < names.size(); ++i)
        sketch.Point(names[i], xy[i][0], xy[i][1], 0);
    for (std::size_t i = 0; i < names.size(); ++i) {
        for (std::size_t j = i + 1; j < names.size(); ++j)
            sketch.Length(names[i], names[j]);
    }
    ExpectShape(sketch);
}

TEST(Approximate, SolvesDirectionsAloneUpToTheScale) {
    Sketch sketch;
    sketch.Point("A", 0, 0, 0);
    sketch.Point("B", 200, 0, 0);
    sketch.Point("C", 80, 120, 0);
    sketch.Point("D", 150, -90, 0);
    for (const char* from : {"A", "B", "C", "D"}) {
        for (const char* to : {"A", "B", "C", "D"}) {
            if (std::string(from) != to)
                sketch.Angle(from, to);
        }
    }
    const Network network = ReadInput(sketch.text.Text());
    const auto& at = Approximate(network, FindStructure(network)).state.at;
    ExpectShape(sketch, 0.05, 200 / std::hypot(at[1][0] - at[0][0], at[1][1] - at[0][1]));
}

TEST(Approximate, TakesTheScaleFromOneFarDistance) {
    Sketch sketch;
    sketch.Point("A", 0, 0, 0);
    sketch.Point("B", 200, 0, 0);
    sketch.Point("C", 80, 120, 0);
    sketch.Point("D", 150, -90, 0);
    for (const auto& [from, to] :
         {std::pair{"A", "B"}, {"B", "A"}, {"A", "C"}, {"B", "C"}, {"A", "D"}, {"B", "D"}})
        sketch.Angle(from, to);
    sketch.Length("C", "D");
    ExpectShape(sketch);
}

TEST(Approximate, TurnsALocalFrameOntoGivenPoints) {
    Sketch sketch;
    sketch.Point("A", 1000, 2000, 0);
    sketch.Point("B", 1200, 2010, 0);
    sketch.Point("P", 1100, 2150, 0, true);
    sketch.Point("Q", 1330, 2080, 0, true);
    sketch.Polar("A", "B");
    sketch.Angle("B", "A");
    sketch.Polar("A", "P");
    sketch.Polar("B", "Q");
    const Network network = ReadInput(sketch.text.Text());
    const Approximation approximation = Approximate(network, FindStructure(network));
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        const auto& truth = sketch.truth[network.points[i].name];
        for (std::size_t axis = 0; axis < 2; ++axis)
            EXPECT_NEAR(approximation.state.at[i][axis] + approximation.state.origin[axis], truth[axis],
                        0.05);
    }
}

TEST(Approximate, StartsAtTheFirstStationWithoutCoordinates) {
    Sketch sketch;
    sketch.Point("A", 700, 800, 90);
    sketch.Point("B", 800, 800, 95);
    sketch.Polar("A", "B");
    const Network network = ReadInput(sketch.text.Text());
    const Approximation approximation = Approximate(network, FindStructure(network));
    EXPECT_EQ(approximation.state.at[0], (std::array<double, 3>{0, 0, 0}));
    EXPECT_NEAR(approximation.state.orientation[0], 0, 1e-15);
}

TEST(Approximate, CarriesHeightsAlongZenithAnglesAndLevels) {
    Sketch sketch;
    sketch.Point("A", 0, 0, 10, true);
    sketch.Point("B", 100, 0, 17);
    sketch.Point("C", 180, 60, 3);
    sketch.Angle("A", "B", true);
    sketch.Length("A", "B", true);
    sketch.Angle("B", "A", true);
    sketch.Angle("B", "C", true);
    sketch.Length("B", "C", true);
    sketch.text.Height("C", "D", 2.5, 0.001);
    const Network network = ReadInput(sketch.text.Text());
    const Approximation approximation = Approximate(network, FindStructure(network));
    const double origin = approximation.state.origin[2];
    EXPECT_NEAR(approximation.state.at[1][2] + origin, 17, 0.01);
    EXPECT_NEAR(approximation.state.at[2][2] + origin, 3, 0.01);
    EXPECT_NEAR(approximation.state.at[3][2] + origin, 5.5, 0.01);
}

TEST(Approximate, WorksFromNothingOnRandomNetworks) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        for (const int dimension : {2, 3}) {
            NetworkSpec spec;
            spec.seed = seed;
            spec.dimension = dimension;
            spec.given = 0;
            spec.points = 20;
            spec.stations = 7;
            spec.sightsPerStation = 8;
            const Network network = ReadInput(MakeNetwork(spec).text.Text());
            const Adjustment adjustment = Adjust(network, Type::Sparse);
            EXPECT_LT(std::sqrt(adjustment.sumOfSquares / adjustment.Redundancy()), 1.6) << seed;
        }
    }
}

TEST(Approximate, WorksFromNothingOnDirectionsAlone) {
    for (unsigned seed = 1; seed <= 15; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        spec.given = 0;
        spec.points = 12;
        spec.stations = 6;
        spec.sightsPerStation = 9;
        spec.distances = false;
        const Adjustment adjustment = Adjust(ReadInput(MakeNetwork(spec).text.Text()), Type::Sparse);
        EXPECT_LT(std::sqrt(adjustment.sumOfSquares / adjustment.Redundancy()), 1.7) << seed;
    }
}

TEST(Approximate, WithstandsOneGrossErrorInADirection) {
    NetworkSpec spec;
    spec.given = 0;
    spec.sightsPerStation = 8;
    Network network = ReadInput(MakeNetwork(spec).text.Text());
    for (Observation& observation : network.observations) {
        if (observation.kind == Kind::Direction && observation.line % 7 == 0) {
            observation.value = std::fmod(observation.value + 3, 400);
            break;
        }
    }
    const Adjustment adjustment = Adjust(network, Type::L1Norm);
    int large = 0;
    for (std::size_t m = 0; m < adjustment.residual.size(); ++m)
        large += std::abs(adjustment.residual[m]) > 20 * adjustment.structure.measures[m].sigma ? 1 : 0;
    EXPECT_LE(large, 1);
}

TEST(Approximate, NamesThePointsItCannotReach) {
    Sketch sketch;
    sketch.Point("A", 0, 0, 0);
    sketch.Point("B", 200, 0, 0);
    sketch.Point("LOST", 80, 120, 0);
    sketch.Polar("A", "B");
    sketch.Angle("A", "LOST");
    const Network network = ReadInput(sketch.text.Text());
    try {
        Approximate(network, FindStructure(network));
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number, ErrorNumber::UndeterminedPoints);
        ASSERT_EQ(failure.details.size(), 1u);
        EXPECT_EQ(failure.details[0], "LOST: one direction, from A");
    }
}

}  // namespace
