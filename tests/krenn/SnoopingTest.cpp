// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/Snooping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

#include "krenn/Errors.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/Statistics.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

constexpr double kGons = 200 / std::numbers::pi;

// Kinds of networks, each dense enough that its observations check one another.
NetworkSpec Dense(unsigned seed) {
    NetworkSpec spec;
    spec.seed = seed;
    spec.stations = 6;
    spec.points = 10;
    spec.sightsPerStation = 8;
    spec.given = 10;
    switch (seed % 4) {
        case 1: spec.fixed = 3; break;
        case 2: spec.dimension = 2; break;
        case 3: spec.startNoise = 5; break;
        default: break;
    }
    return spec;
}

double UnitOf(Kind kind) {
    return kind == Kind::Direction || kind == Kind::ZenithAngle ? 1 / kGons : 1.0;
}

// Observations that others check, in random order.
std::vector<int> Checked(const Network& network, Kind kind, std::mt19937& random, double least) {
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    const Statistics statistics = Evaluate(network, adjustment);
    std::vector<int> observations;
    for (std::size_t m = 0; m < adjustment.structure.measures.size(); ++m) {
        const int observation = adjustment.structure.measures[m].observation;
        if (network.observations[static_cast<std::size_t>(observation)].kind == kind &&
            statistics.redundancyNumber[m] > least)
            observations.push_back(observation);
    }
    std::shuffle(observations.begin(), observations.end(), random);
    return observations;
}

int ObservationOf(const Adjustment& adjustment, std::size_t suspect) {
    return adjustment.structure
        .measures[static_cast<std::size_t>(adjustment.snooping.suspects[suspect].measure)]
        .observation;
}

// The blunder is named first, alone, and its size is met within five standard deviations.
bool IsNamed(const Network& network, const Adjustment& adjustment, int observation, double error) {
    const Snooping& snooping = adjustment.snooping;
    if (snooping.suspects.empty() || ObservationOf(adjustment, 0) != observation)
        return false;
    const Observation& wrong = network.observations[static_cast<std::size_t>(observation)];
    const double deviation = std::abs(snooping.suspects[0].size / snooping.suspects[0].w);
    const double off = std::abs(snooping.suspects[0].size - error * UnitOf(wrong.kind));
    EXPECT_LT(off, 5 * deviation) << "line " << wrong.line;
    return off < 5 * deviation;
}

struct Blunder {
    Kind kind;
    double error;  // gons or meters
    bool heightsAlone = false;
};

class OneBlunder : public testing::TestWithParam<Blunder> {};

TEST_P(OneBlunder, IsNamedFirstWithItsSize) {
    const Blunder& blunder = GetParam();
    int named = 0;
    int tried = 0;
    int alone = 0;
    for (unsigned seed = 1; tried < 100; ++seed) {
        NetworkSpec spec = Dense(seed);
        if (blunder.heightsAlone)
            spec.dimension = 1;
        else if (spec.dimension == 2 && blunder.kind == Kind::ZenithAngle)
            continue;
        Network network = ReadInput(MakeNetwork(spec).text.Text());
        std::mt19937 random(seed);
        const std::vector<int> checked = Checked(network, blunder.kind, random, 0.2);
        if (checked.empty())
            continue;
        ++tried;
        network.observations[static_cast<std::size_t>(checked[0])].value += blunder.error;
        for (const Type type : {seed % 10 ? Type::SparseInverse : Type::Dense}) {
            const Adjustment adjustment = Adjust(network, type);
            const bool isNamed = IsNamed(network, adjustment, checked[0], blunder.error);
            named += isNamed ? 1 : 0;
            alone += isNamed && adjustment.snooping.suspects.size() == 1 ? 1 : 0;
            if (isNamed) {
                EXPECT_LT(adjustment.snooping.m0, 1.6) << seed;
            }
        }
    }
    EXPECT_GE(named, 95);
    EXPECT_GE(alone, 90);
}

INSTANTIATE_TEST_SUITE_P(Snoop, OneBlunder,
                         testing::Values(Blunder{Kind::Distance, 100}, Blunder{Kind::Distance, -0.05},
                                         Blunder{Kind::Direction, 5}, Blunder{Kind::Direction, 0.05},
                                         Blunder{Kind::ZenithAngle, 3},
                                         Blunder{Kind::HeightDifference, 10, true}));

TEST(Snoop, FindsTwoAndThreeBlunders) {
    for (const std::size_t count : {std::size_t{2}, std::size_t{3}}) {
        int found = 0;
        int tried = 0;
        for (unsigned seed = 1; tried < 50; ++seed) {
            Network network = ReadInput(MakeNetwork(Dense(seed)).text.Text());
            std::mt19937 random(seed);
            std::vector<int> wrong;
            for (const Kind kind : {Kind::Distance, Kind::Direction, Kind::Distance}) {
                for (const int observation : Checked(network, kind, random, 0.3)) {
                    if (wrong.size() < count &&
                        std::find(wrong.begin(), wrong.end(), observation) == wrong.end()) {
                        wrong.push_back(observation);
                        break;
                    }
                }
            }
            if (wrong.size() < count)
                continue;
            ++tried;
            constexpr double kErrors[]{30, -2, 0.4};
            for (std::size_t i = 0; i < count; ++i)
                network.observations[static_cast<std::size_t>(wrong[i])].value += kErrors[i];
            const Adjustment adjustment = Adjust(network, Type::SparseInverse);
            std::vector<int> named;
            for (std::size_t i = 0; i < adjustment.snooping.suspects.size(); ++i)
                named.push_back(ObservationOf(adjustment, i));
            std::sort(named.begin(), named.end());
            std::sort(wrong.begin(), wrong.end());
            found += std::includes(named.begin(), named.end(), wrong.begin(), wrong.end()) &&
                     named.size() <= wrong.size() + 1;
        }
        EXPECT_GE(found, 46) << count;
    }
}

// A sight to another target than the one booked is wrong in all that was read.
TEST(Snoop, NamesASightToAWrongTarget) {
    int found = 0;
    int tried = 0;
    for (unsigned seed = 1; tried < 50; ++seed) {
        Network network = ReadInput(MakeNetwork(Dense(seed)).text.Text());
        std::mt19937 random(seed);
        const std::vector<int> checked = Checked(network, Kind::Direction, random, 0.4);
        if (checked.empty())
            continue;
        const Observation right = network.observations[static_cast<std::size_t>(checked[0])];
        int other = -1;
        for (const Observation& observation : network.observations) {
            if (observation.from == right.from && observation.to != right.to)
                other = observation.to;
        }
        if (other < 0)
            continue;
        ++tried;
        for (Observation& observation : network.observations) {
            if (observation.from == right.from && observation.to == right.to)
                observation.to = other;
        }
        const std::string pair = network.points[static_cast<std::size_t>(right.from)].name + " to " +
                                 network.points[static_cast<std::size_t>(other)].name + ",";
        try {
            const Adjustment adjustment = Adjust(network, Type::SparseInverse);
            ASSERT_FALSE(adjustment.snooping.suspects.empty()) << seed;
            found += SuspectInWords(network, adjustment, adjustment.snooping.suspects[0]).find(pair) !=
                     std::string::npos;
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.number, ErrorNumber::NoConvergence);
            const auto first =
                std::find_if(failure.details.begin(), failure.details.end(),
                             [](const std::string& detail) { return detail.starts_with("Without these"); });
            found += first != failure.details.end() && (first + 1)->find(pair) != std::string::npos;
        }
    }
    EXPECT_GE(found, 48);
}

TEST(Snoop, SuspectsGoodObservationsWithTheRiskOfTheTest) {
    int suspected = 0;
    constexpr int kRuns = 400;
    for (unsigned seed = 1; seed <= kRuns; ++seed) {
        const Adjustment adjustment =
            Adjust(ReadInput(MakeNetwork(Dense(seed)).text.Text()), Type::SparseInverse);
        suspected += adjustment.snooping.suspects.empty() ? 0 : 1;
    }
    // 5% of 400 are 20, with a standard deviation of 4.4.
    EXPECT_LE(suspected, 34);
    EXPECT_GE(suspected, 4);
}

TEST(Snoop, SuspectsNobodyWhenAllStandardErrorsAreTooSmall) {
    int suspected = 0;
    for (unsigned seed = 1; seed <= 50; ++seed) {
        NetworkSpec spec = Dense(seed);
        spec.noise = 5;
        const Adjustment adjustment = Adjust(ReadInput(MakeNetwork(spec).text.Text()), Type::SparseInverse);
        EXPECT_GT(std::sqrt(adjustment.sumOfSquares / adjustment.Redundancy()), 2);
        suspected += adjustment.snooping.suspects.empty() ? 0 : 1;
    }
    EXPECT_LE(suspected, 8);
}

// Two distances alone hold a point beside its direction: which of two is wrong cannot be told.
TEST(Snoop, NamesTheObservationsThatExplainTheErrorAsWell) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 0), InputText::Given("B", 100, 0, 0)};
    text.fixed = {"A"};
    text.Height("A", "B", 1.000, 0.001);
    text.Height("B", "A", -1.500, 0.001);
    const Network network = ReadInput(text.Text());
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    ASSERT_EQ(adjustment.snooping.suspects.size(), 1U);
    const Suspect& suspect = adjustment.snooping.suspects[0];
    EXPECT_NEAR(std::abs(suspect.size), 0.5, 1e-9);
    EXPECT_EQ(suspect.alternatives, std::vector<int>{1 - suspect.measure});
    EXPECT_EQ(adjustment.snooping.redundancy, 0);
}

TEST(Snoop, TellsTheLargestResidualsOfTheL1Norm) {
    Network network = ReadInput(MakeNetwork(Dense(1)).text.Text());
    std::mt19937 random(1);
    const int wrong = Checked(network, Kind::Distance, random, 0.5)[0];
    network.observations[static_cast<std::size_t>(wrong)].value += 100;
    const Adjustment adjustment = Adjust(network, Type::L1Norm);
    ASSERT_FALSE(adjustment.snooping.suspects.empty());
    EXPECT_EQ(ObservationOf(adjustment, 0), wrong);
    EXPECT_NEAR(adjustment.snooping.suspects[0].size, 100, 0.02);
    EXPECT_FALSE(Adjust(network, Type::Sparse).snooping.isMade);
}

TEST(SuspectInWords, SaysWhatWhereAndHowMuch) {
    Network network = ReadInput(MakeNetwork(Dense(1)).text.Text());
    std::mt19937 random(1);
    const auto wrong = static_cast<std::size_t>(Checked(network, Kind::Direction, random, 0.5)[0]);
    network.observations[wrong].value += 5;
    const Adjustment adjustment = Adjust(network, Type::SparseInverse);
    ASSERT_FALSE(adjustment.snooping.suspects.empty());
    const std::string words = SuspectInWords(network, adjustment, adjustment.snooping.suspects[0]);
    EXPECT_THAT(words,
                testing::MatchesRegex("direction S[0-9]+ to [SP][0-9]+, line [0-9]+: (5.00.*|4.99.*) gon"));
}

}  // namespace
