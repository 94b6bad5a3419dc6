// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "krenn/adjust/Adjustment.h"
#include "krenn/input/InputReader.h"
#include "krenn/start/SpaceMotion.h"
#include "krenn/start/SpaceResection.h"
#include "tests/krenn/InputText.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

constexpr double kGons = 200 / std::numbers::pi;

using Vector = std::array<double, 3>;

const std::vector<Vector> kTargets{{12, 3, 1},  {-4, 9, 2.5}, {-7, -6, -1}, {5, -8, 3},
                                   {1, 14, -2}, {9, 9, 6},    {-9, 2, 4},   {3, -3, -3}};

// Trackers among targets, all named and none given unless a test says so.
struct Hall {
    InputText text;
    std::vector<Vector> truth;  // by point of the network
    std::vector<std::string> names;

    int Add(const std::string& name, const Vector& at, bool isGiven = false) {
        names.push_back(name);
        truth.push_back(at);
        text.points.push_back(isGiven ? InputText::Given(name, at[0], at[1], at[2]) : InputText::Named(name));
        return static_cast<int>(names.size()) - 1;
    }

    void AddTargets(std::size_t given = 0) {
        for (std::size_t i = 0; i < kTargets.size(); ++i)
            Add("P" + std::to_string(i + 1), kTargets[i], i < given);
    }

    void Sight(int from, int to, const Vector& rotations, bool withDistance = true, double blunder = 0) {
        const auto station = static_cast<std::size_t>(from);
        const auto target = static_cast<std::size_t>(to);
        const Axes axes = AxesOf(rotations);
        Vector seen{};
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t k = 0; k < 3; ++k)
                seen[i] += axes[i][k] * (truth[target][k] - truth[station][k]);
        }
        const double horizontal = std::hypot(seen[0], seen[1]);
        const double direction = std::fmod(std::atan2(seen[0], seen[1]) * kGons + 400, 400);
        text.angles.push_back(fmt::format("{} {} {:.8f} {:.8f} 0.00100 0.00100\r\n", names[station],
                                          names[target], direction, std::atan2(horizontal, seen[2]) * kGons));
        if (withDistance)
            text.distances.push_back(fmt::format("{} {} {:.8f} 0.00010   T\r\n", names[station],
                                                 names[target], std::hypot(horizontal, seen[2]) + blunder));
    }
};

// The start has the shape of the truth.
void ExpectShape(const Hall& hall, double bound = 0.01) {
    Parameters parameters;
    parameters.tracker = TrackerModel::Rotations;
    const Network network = ReadInput(hall.text.Text());
    ASSERT_EQ(network.points.size(), hall.truth.size());
    const Approximation approximation = Approximate(network, FindStructure(network, parameters));
    const auto distance = [](const Vector& a, const Vector& b) {
        return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
    };
    for (std::size_t i = 0; i < hall.truth.size(); ++i) {
        ASSERT_EQ(network.points[i].name, hall.names[i]);
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_NEAR(distance(approximation.state.at[i], approximation.state.at[k]),
                        distance(hall.truth[i], hall.truth[k]), bound)
                << hall.names[i] << " " << hall.names[k];
    }
    // A blunder spoils what least squares makes of the start.
    if (bound < 0.1) {
        EXPECT_LT(Adjust(network, Type::Sparse, parameters).sumOfSquares, 1e-3);
    }
}

class TrackersWith : public testing::TestWithParam<Vector> {};

TEST_P(TrackersWith, ArePlacedFromNothing) {
    Hall hall;
    hall.AddTargets();
    const int first = hall.Add("T1", {1, 2, 0.5});
    const int second = hall.Add("T2", {-3, 1, 1.5});
    const int third = hall.Add("T3", {6, 5, -1});
    for (int target = 0; target < 6; ++target)
        hall.Sight(first, target, {0.1, 0.05, 2});
    for (int target = 2; target < 8; ++target)
        hall.Sight(second, target, GetParam());
    for (int target = 3; target < 8; ++target)
        hall.Sight(third, target, {-0.4, 0.2, -1});
    ExpectShape(hall);
}

TEST_P(TrackersWith, AreMovedOntoThreeGivenPoints) {
    Hall hall;
    hall.AddTargets(3);
    const int tracker = hall.Add("T1", {1, 2, 0.5});
    for (int target = 0; target < 8; ++target)
        hall.Sight(tracker, target, GetParam());
    ExpectShape(hall);
}

TEST_P(TrackersWith, AreResectedByDirectionsAlone) {
    Hall hall;
    hall.AddTargets(5);
    const int first = hall.Add("T1", {1, 2, 0.5});
    const int second = hall.Add("T2", {-3, 1, 1.5});
    for (int target = 0; target < 8; ++target) {
        hall.Sight(first, target, GetParam(), target < 2);
        hall.Sight(second, target, {0.2, 0.1, 1}, target < 2);
    }
    ExpectShape(hall);
}

TEST_P(TrackersWith, FindTheMajorityAgainstAWrongDistance) {
    Hall hall;
    hall.AddTargets();
    const int first = hall.Add("T1", {1, 2, 0.5});
    const int second = hall.Add("T2", {-3, 1, 1.5});
    const int third = hall.Add("T3", {6, 5, -1});
    for (int target = 0; target < 8; ++target) {
        hall.Sight(first, target, {0.1, 0.05, 2}, true, target == 4 ? 100 : 0);
        hall.Sight(second, target, GetParam());
        hall.Sight(third, target, {-0.4, 0.2, -1});
    }
    ExpectShape(hall, 0.1);
}

INSTANTIATE_TEST_SUITE_P(Rotations, TrackersWith,
                         testing::Values(Vector{0, 0, 0}, Vector{0.3, -0.2, -2.5}, Vector{3.1, 0.1, 0.4},
                                         Vector{-1.2, 1.3, 2}, Vector{1.6, 0.02, -3}));

TEST(Trackers, HangOnALevelledInstrument) {
    Hall hall;
    hall.AddTargets();
    const int level = hall.Add("L1", {-2, -2, 0});
    const int tracker = hall.Add("T1", {1, 2, 0.5});
    for (int target = 0; target < 5; ++target) {
        hall.Sight(level, target, {0, 0, 0.7});
        hall.text.distances.back().erase(hall.text.distances.back().find('T'), 1);
    }
    for (int target = 1; target < 8; ++target)
        hall.Sight(tracker, target, {2.9, 0.3, 1});
    ExpectShape(hall);
}

TEST(ThreePointDistances, HoldTheTruth) {
    Eigen::Matrix3d points;
    points << 12, -4, -7, 3, 9, -6, 1, 2.5, -1;
    const Eigen::Vector3d at(1, 2, 0.5);
    const Eigen::Matrix3d sights = points.colwise() - at;
    const auto solutions = ThreePointDistances(points, sights.colwise().normalized());
    const bool holds = std::any_of(solutions.begin(), solutions.end(), [&](const Eigen::Vector3d& lengths) {
        return (lengths - sights.colwise().norm().transpose()).norm() < 1e-6;
    });
    EXPECT_TRUE(holds);
    EXPECT_LE(solutions.size(), 4U);
}

TEST(RobustMotion, NeedsThreePlacesThatAreNotOnALine) {
    Eigen::Matrix3Xd line(3, 4);
    line << 0, 1, 2, 3, 0, 1, 2, 3, 0, 1, 2, 3;
    EXPECT_FALSE(RobustMotion(line, line));
    EXPECT_FALSE(RobustMotion(line.leftCols(2), line.leftCols(2)));
    line(2, 3) = -5;
    EXPECT_TRUE(RobustMotion(line, line));
}

}  // namespace
