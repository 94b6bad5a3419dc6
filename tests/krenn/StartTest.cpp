// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "krenn/Errors.h"
#include "krenn/adjust/Adjustment.h"
#include "krenn/input/InputReader.h"
#include "krenn/start/Contradictions.h"
#include "krenn/start/PlanSimilarity.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;
using testing::AnyOf;
using testing::Contains;
using testing::HasSubstr;

double LevelOfFit(const Adjustment& adjustment) {
    return std::sqrt(adjustment.sumOfSquares / std::max(1, adjustment.Redundancy()));
}

Point& PointNamed(Network& network, const std::string& name) {
    return *std::find_if(network.points.begin(), network.points.end(),
                         [&](const Point& point) { return point.name == name; });
}

Network RandomOf(unsigned seed, int dimension, int given) {
    NetworkSpec spec;
    spec.seed = seed;
    spec.dimension = dimension;
    spec.points = 14;
    spec.given = given;
    spec.sightsPerStation = 8;
    return ReadInput(MakeNetwork(spec).text.Text());
}

TEST(RobustSimilarity, IsNotTurnedByWrongPlaces) {
    const Similarity truth{1.2, 1, {300, -40}, false};
    std::vector<Place> from;
    std::vector<Place> to;
    for (int i = 0; i < 9; ++i) {
        from.push_back({10.0 * i, 7.0 * (i * i % 5)});
        to.push_back(truth(from.back()));
    }
    for (const std::size_t wrong : {1U, 4U, 6U})
        to[wrong] = {900.0 * static_cast<double>(wrong), -5000};
    const auto found = RobustSimilarity(from, to, true, false);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->turn, 1.2, 1e-12);
    EXPECT_NEAR(found->shift[0], 300, 1e-9);
}

// The same network, with one point's coordinates wrong or not given at all, has the same result.
TEST(Start, ReplacesAGivenPointThatTheObservationsContradict) {
    for (const int dimension : {1, 2, 3}) {
        for (unsigned seed = 1; seed <= 10; ++seed) {
            Network wrong = RandomOf(seed, dimension, 14);
            Network without = wrong;
            PointNamed(wrong, "P7").given[dimension == 1 ? 2 : 0] += 50000;
            PointNamed(without, "P7").hasGiven = false;
            for (const Type type : {Type::SparseInverse, Type::L1Norm}) {
                const Adjustment found = Adjust(wrong, type);
                EXPECT_THAT(found.notes, Contains(HasSubstr("The given coordinates of P7 contradict the "
                                                            "observations by ")));
                const Adjustment expected = Adjust(without, type);
                EXPECT_EQ(found.datum.parts[0].datumPoints, expected.datum.parts[0].datumPoints);
                for (std::size_t i = 0; i < wrong.points.size(); ++i) {
                    for (std::size_t axis = dimension == 1 ? 2 : 0; axis < 3; ++axis)
                        EXPECT_NEAR(found.state.at[i][axis], expected.state.at[i][axis],
                                    type == Type::L1Norm ? 2e-4 : 1e-6)
                            << dimension << " " << seed << " " << wrong.points[i].name;
                }
            }
        }
    }
}

TEST(Start, NamesTwoPointsWhoseNamesAreExchanged) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        Network network = RandomOf(seed, 3, 14);
        std::swap(PointNamed(network, "P7").given, PointNamed(network, "S2").given);
        const Adjustment adjustment = Adjust(network, Type::Sparse);
        EXPECT_LT(LevelOfFit(adjustment), 2) << seed;
        EXPECT_THAT(adjustment.notes, Contains(HasSubstr("It lies where S2 is given: are their names "
                                                         "exchanged?")))
            << seed;
    }
}

TEST(Start, HoldsAContradictedFixedPointAndNamesIt) {
    Network network = RandomOf(3, 3, 14);
    for (const char* name : {"P7", "P8", "P9", "P10", "P11"})
        PointNamed(network, name).isFixed = true;
    PointNamed(network, "P9").given[1] += 300;
    const Adjustment adjustment = Adjust(network, Type::L1Norm);
    EXPECT_THAT(adjustment.notes, Contains(HasSubstr("The fixed coordinates of P9 contradict")));
    const auto index = static_cast<std::size_t>(&PointNamed(network, "P9") - network.points.data());
    EXPECT_EQ(adjustment.state.at[index][1] + adjustment.state.origin[1], network.points[index].given[1]);
}

// What lies right among itself comes to lie on the points given right, wherever a wrong one stands.
TEST(Contradictions, DoNotLeadTheFitOntoTheOthers) {
    for (const int dimension : {1, 2, 3}) {
        Network network = RandomOf(4, dimension, 14);
        const Structure structure = FindStructure(network);
        const std::size_t size = network.points.size();
        const auto parts = static_cast<std::size_t>(structure.parts);
        StartPlaces free{Approximate(network, structure).state,
                         {std::vector<char>(size, 1), std::vector<char>(size, 1)},
                         std::vector<char>(parts, 0),
                         std::vector<char>(parts, 1)};
        std::vector<std::array<double, 3>> truth;
        for (std::size_t i = 0; i < size; ++i) {
            const auto& given = network.points[i].given;
            truth.push_back(given);
            free.state.at[i] = {given[0] + 70, given[1] - 40, given[2] + 5};
        }
        PointNamed(network, "P7").given[dimension == 1 ? 2 : 1] += 400;
        const std::vector<char> all(parts, 1);
        Comparison comparison = CompareGiven(network, structure, all, free, 500);
        FitOntoDatum(network, structure, all, free, comparison);
        for (std::size_t i = 0; i < size; ++i) {
            EXPECT_EQ(comparison.isContradicted[i] != 0, network.points[i].name == "P7");
            for (std::size_t axis = dimension == 1 ? 2 : 0; axis < (dimension == 2 ? 2U : 3U); ++axis)
                EXPECT_NEAR(comparison.fitted.at[i][axis], truth[i][axis], 1e-6)
                    << dimension << " " << network.points[i].name;
        }
    }
}

TEST(Start, TakesGivenCoordinatesAsTheyAreWhenTheObservationsAgree) {
    const Network network = RandomOf(5, 3, 14);
    const Approximation approximation = Approximate(network, FindStructure(network));
    EXPECT_TRUE(approximation.notes.empty());
    EXPECT_TRUE(approximation.computed.empty());
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        for (std::size_t axis = 0; axis < 3; ++axis)
            EXPECT_NEAR(approximation.state.at[i][axis] + approximation.state.origin[axis],
                        network.points[i].given[axis], 1e-9);
    }
}

// Rough coordinates stay the datum: the adjusted network lies among them as well as it can.
TEST(Start, ConvergesFromCoordinatesThatAreRoughAllOver) {
    for (const int dimension : {2, 3}) {
        for (const int fixed : {0, 1, 2}) {
            for (unsigned seed = 1; seed <= 40; ++seed) {
                NetworkSpec spec;
                spec.seed = seed;
                spec.dimension = dimension;
                spec.fixed = fixed;
                spec.startNoise = 100;
                const Network network = ReadInput(MakeNetwork(spec).text.Text());
                const Adjustment adjustment = Adjust(network, Type::Sparse);
                EXPECT_LT(LevelOfFit(adjustment), 2) << dimension << fixed << seed;
                double sum = 0;
                for (std::size_t i = 0; i < network.points.size(); ++i)
                    sum +=
                        adjustment.state.at[i][0] + adjustment.state.origin[0] - network.points[i].given[0];
                if (fixed == 0) {
                    EXPECT_NEAR(sum, 0, 1e-5) << "the datum is that of the given coordinates";
                }
            }
        }
    }
}

struct GrossError {
    Kind kind;
    double size;
};

class OneGrossError : public testing::TestWithParam<GrossError> {};

// At the start all observations but the wrong one, and what leans on it, fit.
TEST_P(OneGrossError, DoesNotSpoilTheStart) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        for (const int given : {0, 4}) {
            Network network = RandomOf(seed, 3, given);
            std::mt19937 random(seed);
            std::size_t chosen = 0;
            do
                chosen = random() % network.observations.size();
            while (network.observations[chosen].kind != GetParam().kind);
            Observation& wrong = network.observations[chosen];
            wrong.value += GetParam().size * (wrong.value > 100 ? -1 : 1);
            const Structure structure = FindStructure(network);
            const Approximation approximation = Approximate(network, structure);
            int missed = 0;
            for (const Measure& measure : structure.measures) {
                const bool isLength = measure.kind == MeasureKind::SlopeDistance;
                const double misclosure =
                    std::abs(Misclosure(measure, ComputeValue(measure, approximation.state)));
                missed += misclosure > (isLength ? 20 : 0.05) ? 1 : 0;
            }
            EXPECT_LE(missed, 3) << seed << " " << given;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(OfEveryKind, OneGrossError,
                         testing::Values(GrossError{Kind::Distance, 100}, GrossError{Kind::Direction, 20},
                                         GrossError{Kind::ZenithAngle, 20}));

TEST(Start, IsNotSpoiltByARowWithTheWrongTarget) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        Network network = RandomOf(seed, 3, 0);
        const int line = network.observations[seed % network.observations.size()].line;
        for (Observation& observation : network.observations) {
            if (observation.line == line)
                observation.to = observation.to == 8 ? 9 : 8;
        }
        const Structure structure = FindStructure(network);
        const Approximation approximation = Approximate(network, structure);
        int missed = 0;
        for (const Measure& measure : structure.measures)
            missed += std::abs(Misclosure(measure, ComputeValue(measure, approximation.state))) >
                              (measure.kind == MeasureKind::SlopeDistance ? 20 : 0.05)
                          ? 1
                          : 0;
        EXPECT_LE(missed, 3) << seed;
    }
}

std::vector<std::string> DetailsOf(const Network& network) {
    try {
        Adjust(network, Type::Sparse);
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number, ErrorNumber::UndeterminedPoints) << failure.what();
        return failure.details;
    }
    ADD_FAILURE() << "the run was good";
    return {};
}

struct Lost {
    const char* rows;
    const char* words;
};

class UndeterminedPoint : public testing::TestWithParam<Lost> {};

TEST_P(UndeterminedPoint, IsNamedWithWhatIsKnownOfIt) {
    NetworkSpec spec;
    spec.dimension = 2;
    RandomNetwork random = MakeNetwork(spec);
    const std::string rows = GetParam().rows;
    for (const char row : rows) {
        if (row == 'a')
            random.text.Angles("S1", "Q", 10, 0, 0.001);
        else if (row == 'b')
            random.text.Angles("Q", "S1", 10, 0, 0.001);
        else
            random.text.Distance(row == '1' ? "S1" : row == '2' ? "S2" : "S3", "Q", 700, 0.001);
    }
    EXPECT_THAT(DetailsOf(ReadInput(random.text.Text())), Contains(testing::StartsWith(GetParam().words)))
        << rows;
}

INSTANTIATE_TEST_SUITE_P(Kinds, UndeterminedPoint,
                         testing::Values(Lost{"a", "Q: one direction, from S1"},
                                         Lost{"b", "Q: direction to S1 (line "},
                                         Lost{"1", "Q: horizontal distance from S1 (line "},
                                         Lost{"111", "Q: horizontal distance from S1 (line "}));

// Given coordinates do not hold a point that the observations leave free.
TEST(Start, AGivenPointHeldByOneSightIsNamed) {
    for (const int sights : {1, 3}) {
        NetworkSpec spec;
        spec.dimension = 2;
        RandomNetwork random = MakeNetwork(spec);
        random.text.points.push_back(InputText::Given("Q", 500, 500, 0));
        for (int i = 0; i < sights; ++i)
            random.text.Distance("S1", "Q", 300, 0.001);
        EXPECT_THAT(DetailsOf(ReadInput(random.text.Text())),
                    Contains(AnyOf(HasSubstr("Q"), HasSubstr("Q:"))));
    }
}

TEST(Start, TwoStationsAtOnePlaceAreNamedOnlyIfTheySightEachOther) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    random.truth["TWIN"] = random.truth["S1"];
    const auto& at = random.truth["S1"];
    random.text.points.push_back(InputText::Given("TWIN", at[0], at[1], at[2]));
    random.text.points[0] = InputText::Given("S1", at[0], at[1], at[2]);
    for (const char* target : {"S2", "S3", "S4", "P6", "P7"}) {
        const auto& to = random.truth[target];
        random.text.Angles("TWIN", target, AzimuthGons(at, to), ZenithGons(at, to), 0.001);
        random.text.Distance("TWIN", target, SlopeLength(at, to), 0.002);
    }
    EXPECT_LT(LevelOfFit(Adjust(ReadInput(random.text.Text()), Type::SparseInverse)), 2);
    random.text.Angles("TWIN", "S1", 10, 100, 0.001);
    try {
        Adjust(ReadInput(random.text.Text()), Type::SparseInverse);
        FAIL();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.number, ErrorNumber::ZeroLengthSight);
        ASSERT_EQ(failure.details.size(), 1U);
        EXPECT_THAT(failure.details[0], HasSubstr("TWIN S1"));
    }
}

// Readings of two set-ups on one point have nothing to do with one another.
TEST(Start, KeepsTheSetupsOfOnePointApart) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        spec.given = 0;
        spec.points = 12;
        spec.sightsPerStation = 9;
        Network network = ReadInput(MakeNetwork(spec).text.Text());
        // The second half of each station's rows was measured on another day, with another zero.
        std::vector<Observation> later;
        std::vector<int> count(network.points.size(), 0);
        std::erase_if(network.observations, [&](Observation& observation) {
            if (observation.kind != Kind::Direction && observation.kind != Kind::ZenithAngle)
                return false;
            const bool isLater = count[static_cast<std::size_t>(observation.from)]++ >= 10;
            if (isLater && observation.kind == Kind::Direction)
                observation.value = std::fmod(observation.value + 123 + 10 * observation.from, 400);
            if (isLater)
                later.push_back(observation);
            return isLater;
        });
        network.observations.insert(network.observations.end(), later.begin(), later.end());
        Parameters parameters;
        parameters.setups = SetupRule::Block;
        const Adjustment adjustment = Adjust(network, Type::Sparse, parameters);
        EXPECT_EQ(adjustment.structure.setups.size(), 10U);
        EXPECT_LT(LevelOfFit(adjustment), 1.8) << seed;
    }
}

}  // namespace
