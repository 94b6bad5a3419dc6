// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

#include "krenn/Errors.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

struct Start {
    std::string name;
    NetworkSpec spec;
    Parameters parameters;
};

void PrintTo(const Start& start, std::ostream* stream) {
    *stream << start.name;
}

// Coordinates with a standard deviation of a tenth of the network's size in every direction.
std::vector<Start> Starts() {
    Start plan{"FreePlan", {}, {}};
    plan.spec.dimension = 2;
    Start fixedPlan = plan;
    fixedPlan.name = "FixedPlan";
    fixedPlan.spec.fixed = 2;
    Start space{"FreeSpace", {}, {}};
    Start fixedSpace{"FixedSpace", {}, {}};
    fixedSpace.spec.fixed = 2;
    Start directions = fixedPlan;
    directions.name = "Directions";
    directions.spec.distances = false;
    directions.spec.sightsPerStation = 8;
    Start distances = fixedPlan;
    distances.name = "Distances";
    distances.spec.directions = false;
    distances.spec.sightsPerStation = 8;
    Start trackers = fixedSpace;
    trackers.name = "Trackers";
    trackers.spec.tilted = 5;
    trackers.parameters.tracker = TrackerModel::Rotations;
    std::vector<Start> starts{plan, fixedPlan, space, fixedSpace, directions, distances, trackers};
    for (Start& start : starts)
        start.spec.startNoise = start.spec.size / 10;
    return starts;
}

class RoughCoordinates : public testing::TestWithParam<Start> {};

// The right solution is the one found from the true coordinates: the same residuals, whatever the datum.
TEST_P(RoughCoordinates, WrongByATenthOfTheNetworkLeadToTheRightSolution) {
    for (unsigned seed = 1; seed <= 100; ++seed) {
        NetworkSpec spec = GetParam().spec;
        spec.seed = seed;
        const Network rough = ReadInput(MakeNetwork(spec).text.Text());
        Network near = rough;
        spec.startNoise = 0;
        const Network exact = ReadInput(MakeNetwork(spec).text.Text());
        for (std::size_t i = 0; i < near.points.size(); ++i)
            near.points[i].given = exact.points[i].given;
        const Adjustment right = Adjust(near, Type::Sparse, GetParam().parameters);
        try {
            const Adjustment found = Adjust(rough, Type::Sparse, GetParam().parameters);
            EXPECT_NEAR(found.sumOfSquares, right.sumOfSquares, 1e-6 * right.sumOfSquares) << "seed " << seed;
        } catch (const Failure& failure) {
            ADD_FAILURE() << "seed " << seed << ": " << failure.what();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Starts, RoughCoordinates, testing::ValuesIn(Starts()),
                         [](const auto& start) { return start.param.name; });

}  // namespace
