// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <ostream>
#include <random>

#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

struct Subject {
    std::string name;
    NetworkSpec spec;
    Parameters parameters;
};

void PrintTo(const Subject& subject, std::ostream* stream) {
    *stream << subject.name;
}

std::vector<Subject> Subjects() {
    Subject heights{"Heights", {}, {}};
    heights.spec.dimension = 1;
    Subject plan{"Plan", {}, {}};
    plan.spec.dimension = 2;
    Subject space{"Space", {}, {}};
    Subject partly{"PartlyGiven", {}, {}};
    partly.spec.given = 5;
    Subject fixed{"Fixed", {}, {}};
    fixed.spec.fixed = 3;
    Subject trackers{"Trackers", {}, {}};
    trackers.spec.tilted = 3;
    trackers.parameters.tracker = TrackerModel::Rotations;
    return {heights, plan, space, partly, fixed, trackers};
}

// What is told about a point, by its name: X Y Z, then its six cofactors.
using Results = std::map<std::string, std::array<double, 9>>;

Results ResultsOf(const Network& network, const Adjustment& adjustment) {
    Results results;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        auto& row = results[network.points[i].name];
        for (std::size_t axis = 0; axis < 3; ++axis)
            row[axis] = adjustment.state.at[i][axis] + adjustment.state.origin[axis];
        std::copy(adjustment.cofactors.point[i].begin(), adjustment.cofactors.point[i].end(),
                  row.begin() + 3);
    }
    return results;
}

Results ResultsOf(const InputText& text, const Parameters& parameters, Type type = Type::SparseInverse) {
    const Network network = ReadInput(text.Text());
    return ResultsOf(network, Adjust(network, type, parameters));
}

void ExpectSame(const Results& a, const Results& b, double length, double relative) {
    ASSERT_EQ(a.size(), b.size());
    for (const auto& [name, row] : a) {
        ASSERT_TRUE(b.contains(name)) << name;
        const auto& other = b.at(name);
        for (std::size_t axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(row[axis], other[axis], length) << name << " " << axis;
        for (std::size_t k = 3; k < 9; ++k)
            EXPECT_NEAR(row[k], other[k], relative * (row[3] + row[5] + row[8])) << name << " " << k;
    }
}

class Invariance : public testing::TestWithParam<Subject> {};

TEST_P(Invariance, OfTheOrderOfRows) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        NetworkSpec spec = GetParam().spec;
        spec.seed = seed;
        InputText text = MakeNetwork(spec).text;
        const Results before = ResultsOf(text, GetParam().parameters);
        std::mt19937 random(seed);
        for (auto* rows : {&text.stations, &text.points, &text.distances, &text.heights, &text.angles})
            std::shuffle(rows->begin(), rows->end(), random);
        ExpectSame(before, ResultsOf(text, GetParam().parameters), 1e-9, 1e-9);
    }
}

// Names decide nothing, not even the order: each becomes one that sorts the other way round.
TEST_P(Invariance, OfTheNames) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        NetworkSpec spec = GetParam().spec;
        spec.seed = seed;
        Network network = ReadInput(MakeNetwork(spec).text.Text());
        const Adjustment before = Adjust(network, Type::SparseInverse, GetParam().parameters);
        for (std::size_t i = 0; i < network.points.size(); ++i)
            network.points[i].name = "Z" + std::to_string(900 - i);
        const Adjustment after = Adjust(network, Type::SparseInverse, GetParam().parameters);
        EXPECT_EQ(ResultsOf(network, before), ResultsOf(network, after));
        EXPECT_EQ(before.residual, after.residual);
    }
}

// Given coordinates that are whole meters are shifted without rounding; the results may lose what a number of
// seven digits before the point cannot hold.
TEST_P(Invariance, OfAShiftByAThousandKilometers) {
    constexpr double kShift = 1e6;
    for (unsigned seed = 1; seed <= 10; ++seed) {
        NetworkSpec spec = GetParam().spec;
        spec.seed = seed;
        Network network = ReadInput(MakeNetwork(spec).text.Text());
        for (Point& point : network.points) {
            for (double& coordinate : point.given)
                coordinate = std::round(coordinate);
        }
        const Results before =
            ResultsOf(network, Adjust(network, Type::SparseInverse, GetParam().parameters));
        for (Point& point : network.points) {
            for (double& coordinate : point.given)
                coordinate += point.hasGiven ? kShift : 0;
        }
        Results after = ResultsOf(network, Adjust(network, Type::SparseInverse, GetParam().parameters));
        for (auto& [name, row] : after) {
            for (std::size_t axis = 0; axis < 3; ++axis)
                row[axis] -= kShift;
        }
        ExpectSame(before, after, 5e-9, 1e-9);
    }
}

TEST_P(Invariance, OfReadingTheSameFileAgain) {
    const InputText text = MakeNetwork(GetParam().spec).text;
    for (const Type type : {Type::Sparse, Type::SparseInverse, Type::Dense, Type::L1Norm}) {
        const Network first = ReadInput(text.Text());
        const Network second = ReadInput(text.Text());
        const Adjustment a = Adjust(first, type, GetParam().parameters);
        const Adjustment b = Adjust(second, type, GetParam().parameters);
        EXPECT_EQ(a.state.at, b.state.at);
        EXPECT_EQ(a.residual, b.residual);
        EXPECT_EQ(a.cofactors.point, b.cofactors.point);
        EXPECT_EQ(a.cofactors.measure, b.cofactors.measure);
    }
}

// Reading every observation twice, with standard errors longer by the root of two, is the same survey.
TEST_P(Invariance, OfSplittingEachObservationIntoTwo) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        NetworkSpec spec = GetParam().spec;
        spec.seed = seed;
        Network network = ReadInput(MakeNetwork(spec).text.Text());
        const Results once = ResultsOf(network, Adjust(network, Type::SparseInverse, GetParam().parameters));
        for (Observation& o : network.observations)
            o.sigma *= std::sqrt(2);
        const std::vector<Observation> copy = network.observations;
        network.observations.insert(network.observations.end(), copy.begin(), copy.end());
        ExpectSame(once, ResultsOf(network, Adjust(network, Type::SparseInverse, GetParam().parameters)),
                   1e-9, 1e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(Subjects, Invariance, testing::ValuesIn(Subjects()),
                         [](const auto& subject) { return subject.param.name; });

}  // namespace
