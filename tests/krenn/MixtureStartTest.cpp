// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "krenn/Errors.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

std::string NameOf(int i) {
    return "P" + std::to_string(i + 1);
}

double Reading(const Places& truth, const std::string& from, const std::string& to, double zero) {
    return std::fmod(AzimuthGons(truth.at(from), truth.at(to)) + 400 - zero, 400);
}

// Ten points, some of them stations; each sight is a direction, a distance or both, without errors, and the
// rows stand in any order.
InputText MixtureOf(unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> unit(0, 1);
    InputText text;
    Places truth;
    const int given = static_cast<int>(4 * unit(random));
    for (int i = 0; i < 10; ++i) {
        const std::array<double, 3> at{1000 * unit(random), 1000 * unit(random), 0};
        truth[NameOf(i)] = {at[0], at[1], at[2]};
        text.points.push_back(i < given ? InputText::Given(NameOf(i), at[0], at[1], at[2])
                                        : InputText::Named(NameOf(i)));
    }
    const int stations = 4 + static_cast<int>(4 * unit(random));
    for (int s = 0; s < stations; ++s) {
        const double zero = 400 * unit(random);
        for (int t = 0; t < 10; ++t) {
            if (t == s || unit(random) > 0.6)
                continue;
            const double kind = unit(random);
            if (kind < 0.7)
                text.Angles(NameOf(s), NameOf(t), Reading(truth, NameOf(s), NameOf(t), zero), 0, 0.001);
            if (kind > 0.35)
                text.Distance(NameOf(s), NameOf(t), PlanLength(truth[NameOf(s)], truth[NameOf(t)]), 0.001);
        }
    }
    std::shuffle(text.points.begin(), text.points.end(), random);
    std::shuffle(text.distances.begin(), text.distances.end(), random);
    std::shuffle(text.angles.begin(), text.angles.end(), random);
    return text;
}

// Every observation met to its last digit: the points lie where they were sighted, or where they may as well
// lie.
bool IsMet(const Adjustment& adjustment) {
    for (std::size_t m = 0; m < adjustment.residual.size(); ++m) {
        if (std::abs(adjustment.residual[m]) > 0.1 * adjustment.structure.measures[m].sigma)
            return false;
    }
    return true;
}

TEST(Start, PlacesRandomMixturesInAnyOrderOrNamesWhatIsNotDetermined) {
    int placed = 0;
    for (unsigned seed = 1; seed <= 200; ++seed) {
        const Network network = ReadInput(MixtureOf(seed).Text());
        try {
            EXPECT_TRUE(IsMet(Adjust(network, Type::Sparse))) << seed;
            ++placed;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number, ErrorNumber::UndeterminedPoints) << seed << " " << failure.what();
            EXPECT_FALSE(failure.details.empty()) << seed;
        }
    }
    EXPECT_GE(placed, 150);
}

TEST(Start, PlacesAGridOfManyPointsFromNothing) {
    constexpr int kWidth = 60;
    InputText text;
    Places truth;
    for (int i = 0; i < kWidth * kWidth; ++i)
        truth[NameOf(i)] = {100.0 * (i % kWidth) + i % 7, 100.0 * (i / kWidth) + i % 5, 0};
    for (int i = 0; i < kWidth * kWidth; ++i) {
        for (const int step : {1, kWidth, kWidth + 1}) {
            const int to = i + step;
            if (to >= kWidth * kWidth || (step != kWidth && i % kWidth == kWidth - 1))
                continue;
            text.Angles(NameOf(i), NameOf(to), Reading(truth, NameOf(i), NameOf(to), i % 400), 0, 0.001);
            text.Distance(NameOf(i), NameOf(to), PlanLength(truth[NameOf(i)], truth[NameOf(to)]), 0.002);
        }
    }
    const Adjustment adjustment = Adjust(ReadInput(text.Text()), Type::Sparse);
    EXPECT_EQ(adjustment.datum.Defect(), 3);
    EXPECT_TRUE(IsMet(adjustment));
}

}  // namespace
