// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <ostream>
#include <random>

#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

// Bounds are where a right program fails once in some 16,000 seeds.
constexpr double kFourSigma = 4;

struct Survey {
    std::string name;
    NetworkSpec spec;
    Parameters parameters;
};

void PrintTo(const Survey& survey, std::ostream* stream) {
    *stream << survey.name;
}

std::vector<Survey> Surveys() {
    Survey heights{"Heights", {}, {}};
    heights.spec.dimension = 1;
    Survey plan{"FreePlan", {}, {}};
    plan.spec.dimension = 2;
    Survey fixedPlan = plan;
    fixedPlan.name = "FixedPlan";
    fixedPlan.spec.fixed = 2;
    Survey space{"FreeSpace", {}, {}};
    Survey fixedSpace{"FixedSpace", {}, {}};
    fixedSpace.spec.fixed = 3;
    Survey trackers{"Trackers", {}, {}};
    trackers.spec.tilted = 3;
    trackers.parameters.tracker = TrackerModel::Rotations;
    std::vector<Survey> surveys{heights, plan, fixedPlan, space, fixedSpace, trackers};
    for (Survey& survey : surveys) {
        survey.spec.seed = 3;
        survey.spec.stations = 4;
        survey.spec.points = 7;
        survey.spec.given = 7;
        survey.spec.noise = 0;
        survey.spec.startNoise = 0;
    }
    return surveys;
}

// The same network measured again and again: true readings, to which errors are added with the standard
// errors of the file. The readings are those of the adjusted network, so that they fit without rounding.
struct Measuring {
    explicit Measuring(const Survey& survey) : parameters(survey.parameters) {
        truth = ReadInput(MakeNetwork(survey.spec).text.Text());
        const Adjustment adjustment = Adjust(truth, Type::SparseInverse, parameters);
        for (std::size_t m = 0; m < truth.observations.size(); ++m) {
            Observation& o = truth.observations[m];
            const bool isAngle = o.kind == Kind::Direction || o.kind == Kind::ZenithAngle;
            o.value += adjustment.residual[m] * (isAngle ? 200 / std::numbers::pi : 1);
        }
        expected = Adjust(truth, Type::SparseInverse, parameters);
    }

    Network Again() {
        Network network = truth;
        for (Observation& o : network.observations)
            o.value += o.sigma * normal(random);
        return network;
    }

    Parameters parameters;
    Network truth;
    Adjustment expected;  // from readings without errors
    std::mt19937 random{11};
    std::normal_distribution<double> normal{0, 1};
};

class RepeatedMeasuring : public testing::TestWithParam<Survey> {};

// Over n repetitions the mean of dx dy has the expectation q_xy and the variance (q_xx q_yy + q_xy^2) / n.
TEST_P(RepeatedMeasuring, ScattersCoordinatesAsTheStandardDeviationsSay) {
    constexpr int kRepetitions = 1500;
    constexpr std::array<std::array<std::size_t, 2>, 6> kEntries{
        {{0, 0}, {0, 1}, {1, 1}, {0, 2}, {1, 2}, {2, 2}}};
    constexpr std::array<std::size_t, 3> kVariance{0, 2, 5};
    Measuring measuring(GetParam());
    const auto& q = measuring.expected.cofactors.point;
    std::vector<std::array<double, 6>> sums(q.size());
    for (int i = 0; i < kRepetitions; ++i) {
        const Adjustment adjustment = Adjust(measuring.Again(), Type::Sparse, measuring.parameters);
        for (std::size_t point = 0; point < q.size(); ++point) {
            std::array<double, 3> d{};
            for (std::size_t axis = 0; axis < 3; ++axis)
                d[axis] = adjustment.state.at[point][axis] - measuring.expected.state.at[point][axis];
            for (std::size_t k = 0; k < 6; ++k)
                sums[point][k] += d[kEntries[k][0]] * d[kEntries[k][1]];
        }
    }
    int compared = 0;
    for (std::size_t point = 0; point < q.size(); ++point) {
        for (std::size_t k = 0; k < 6; ++k) {
            const double xx = q[point][kVariance[kEntries[k][0]]];
            const double yy = q[point][kVariance[kEntries[k][1]]];
            const double spread = std::sqrt((xx * yy + q[point][k] * q[point][k]) / kRepetitions);
            EXPECT_NEAR(sums[point][k] / kRepetitions, q[point][k], kFourSigma * spread + 1e-16)
                << measuring.truth.points[point].name << " " << k;
            compared += spread > 0 ? 1 : 0;
        }
    }
    EXPECT_GE(compared, GetParam().spec.dimension == 1 ? 7 : 9);
}

// How often a test refused, over repetitions that share nothing.
struct Refusals {
    double sum = 0;
    double squares = 0;
    int repetitions = 0;

    void Count(double refused) {
        sum += refused;
        squares += refused * refused;
        ++repetitions;
    }
    double Mean() const { return sum / repetitions; }
    // Standard error of the mean, from the scatter itself: refusals within one repetition may hang together.
    double Error() const { return std::sqrt((squares / repetitions - Mean() * Mean()) / repetitions); }
};

TEST_P(RepeatedMeasuring, IsRefusedByTheTestsAtTheirRisk) {
    constexpr int kRepetitions = 2000;
    Measuring measuring(GetParam());
    Parameters twoTailed;
    twoTailed.localRisk = 0.05;
    Parameters oneTailed = twoTailed;
    oneTailed.globalTails = Tails::One;
    const auto observations = static_cast<double>(measuring.truth.observations.size());
    Refusals global, globalOne, local;
    for (int i = 0; i < kRepetitions; ++i) {
        const Network network = measuring.Again();
        const Adjustment adjustment = Adjust(network, Type::SparseInverse, measuring.parameters);
        const Statistics statistics = Evaluate(network, adjustment, twoTailed);
        global.Count(statistics.passes ? 0 : 1);
        globalOne.Count(Evaluate(network, adjustment, oneTailed).passes ? 0 : 1);
        local.Count(statistics.flagged);
    }
    const double binomial = std::sqrt(0.05 * 0.95 / kRepetitions);
    EXPECT_NEAR(global.Mean(), 0.05, kFourSigma * binomial);
    EXPECT_NEAR(globalOne.Mean(), 0.05, kFourSigma * binomial);
    EXPECT_NEAR(local.Mean(), 0.05 * observations, kFourSigma * local.Error());
}

class RepeatedMeasuringInPlan : public testing::TestWithParam<Survey> {};

// 95% ellipses with m0 hold the true place in 95 of 100 cases.
TEST_P(RepeatedMeasuringInPlan, KeepsTheTruePlaceInsideTheWideEllipses) {
    constexpr int kRepetitions = 1500;
    Measuring measuring(GetParam());
    const std::size_t point = 1;
    int inside = 0;
    for (int i = 0; i < kRepetitions; ++i) {
        const Network network = measuring.Again();
        const Adjustment adjustment = Adjust(network, Type::SparseInverse, measuring.parameters);
        const Statistics statistics = Evaluate(network, adjustment);
        const auto& at = adjustment.state.at[point];
        const auto& truth = measuring.expected.state.at[point];
        const Ellipse& ellipse = statistics.ellipse[point];
        const double bearing = ellipse.bearing * std::numbers::pi / 200;
        const double dx = at[0] - truth[0];
        const double dy = at[1] - truth[1];
        const double along = (dx * std::sin(bearing) + dy * std::cos(bearing)) / ellipse.major;
        const double across = (dx * std::cos(bearing) - dy * std::sin(bearing)) / ellipse.minor;
        inside += std::hypot(along, across) <= statistics.wideFactor ? 1 : 0;
    }
    const double rate = static_cast<double>(inside) / kRepetitions;
    EXPECT_NEAR(rate, 0.95, kFourSigma * std::sqrt(0.05 * 0.95 / kRepetitions));
}

std::vector<Survey> SurveysInPlan() {
    std::vector<Survey> surveys = Surveys();
    std::erase_if(surveys, [](const Survey& survey) { return survey.spec.dimension == 1; });
    return surveys;
}

std::string NameOf(const testing::TestParamInfo<Survey>& survey) {
    return survey.param.name;
}

INSTANTIATE_TEST_SUITE_P(Surveys, RepeatedMeasuring, testing::ValuesIn(Surveys()), NameOf);
INSTANTIATE_TEST_SUITE_P(Surveys, RepeatedMeasuringInPlan, testing::ValuesIn(SurveysInPlan()), NameOf);

}  // namespace
