// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Listing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "krenn/InputReader.h"
#include "krenn/Page.h"
#include "tests/krenn/ListingReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;
using testing::HasSubstr;
using testing::Not;

struct Printed {
    Network network;
    Adjustment adjustment;
    Statistics statistics;
    std::string text;
    ReadListing read;
};

Printed PrintNetwork(Network network, Type type) {
    Printed printed;
    printed.network = std::move(network);
    printed.adjustment = Adjust(printed.network, type);
    printed.statistics = Evaluate(printed.network, printed.adjustment);
    printed.text = GoodListing({"/data/A.INP", static_cast<int>(type), "2026-02-01 10:00:00"},
                               printed.network, printed.adjustment, printed.statistics);
    printed.read = ReadListingText(printed.text);
    return printed;
}

Printed Print(const std::string& text, Type type) {
    return PrintNetwork(ReadInput(text), type);
}

// Everything that the adjustment knows comes back through the reader.
void ExpectRead(const Printed& printed) {
    EXPECT_EQ(printed.read.result, 1);
    const bool isHeights = printed.adjustment.structure.dimension == Dimension::Heights;
    std::size_t listed = 0;
    for (std::size_t p = 0; p < printed.network.points.size(); ++p) {
        const PointRole& role = printed.adjustment.structure.roles[p];
        const ReadPoint* read = printed.read.Find(printed.network.points[p].name);
        if (role.part < 0) {
            EXPECT_EQ(read, nullptr);
            continue;
        }
        ++listed;
        ASSERT_NE(read, nullptr) << printed.network.points[p].name;
        const auto& at = printed.adjustment.state.at[p];
        const auto& origin = printed.adjustment.state.origin;
        if (!isHeights && (role.planGroup >= 0 || printed.network.points[p].hasGiven)) {
            EXPECT_NEAR(read->x, at[0] + origin[0], 6e-7);
            EXPECT_NEAR(read->y, at[1] + origin[1], 6e-7);
        }
        EXPECT_NEAR(read->z, at[2] + origin[2], 6e-7);
        if (!isHeights && role.isStation) {
            const int setup = printed.adjustment.structure.setupStart[p];
            const bool isOriented = setup < printed.adjustment.structure.setupStart[p + 1];
            const double gons = isOriented
                                    ? printed.adjustment.state.orientation[static_cast<std::size_t>(setup)] *
                                          200 / std::acos(-1.0)
                                    : 0.0;
            EXPECT_NEAR(std::remainder(read->rotation[2] - gons, 400), 0, 6e-6);
            EXPECT_GE(read->rotation[2], 0);
            EXPECT_LT(read->rotation[2], 400);
        }
        EXPECT_EQ(read->hasDeviation, printed.adjustment.hasCofactors);
        EXPECT_NEAR(read->sz, printed.statistics.deviation[p][2], 6e-7);
        if (!isHeights) {
            EXPECT_NEAR(read->sx, printed.statistics.deviation[p][0], 6e-7);
            EXPECT_NEAR(read->major, printed.statistics.ellipse[p].major, 6e-7);
            EXPECT_NEAR(read->minor, printed.statistics.ellipse[p].minor, 6e-7);
            EXPECT_NEAR(read->angle, printed.statistics.ellipse[p].bearing, 6e-4);
        }
    }
    EXPECT_EQ(printed.read.stations.size() + printed.read.points.size(), listed);
    const auto pairsOf = [&](Kind kind) {
        std::vector<ReadPair> pairs;
        for (const Measure& measure : printed.adjustment.structure.measures) {
            const Observation& o =
                printed.network.observations[static_cast<std::size_t>(measure.observation)];
            if (o.kind == kind)
                pairs.emplace_back(printed.network.points[static_cast<std::size_t>(o.from)].name,
                                   printed.network.points[static_cast<std::size_t>(o.to)].name);
        }
        return pairs;
    };
    EXPECT_EQ(printed.read.directions, pairsOf(Kind::Direction));
    EXPECT_EQ(printed.read.zeniths, pairsOf(Kind::ZenithAngle));
    EXPECT_EQ(printed.read.distances, pairsOf(Kind::Distance));
    EXPECT_EQ(printed.read.heights, pairsOf(Kind::HeightDifference));
}

// No word that a leading-number reader would take for something else, and every line ended alike.
void ExpectClean(const std::string& text) {
    for (const char* word : {"nan", "inf", "NaN", "INF", "****", "-0.000000 "})
        EXPECT_THAT(text, Not(HasSubstr(word))) << word;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n') {
            EXPECT_EQ(text[at - 1], '\r');
        }
    }
    EXPECT_TRUE(text.ends_with("\r\n"));
}

class ListingOfType : public testing::TestWithParam<Type> {};

TEST_P(ListingOfType, ReadsBackForEveryDimension) {
    for (const int dimension : {1, 2, 3}) {
        for (const int stations : {3, 9}) {
            NetworkSpec spec;
            spec.dimension = dimension;
            spec.stations = stations;
            const Printed printed = Print(MakeNetwork(spec).text.Text(), GetParam());
            SCOPED_TRACE(testing::Message() << dimension << " " << stations);
            ExpectRead(printed);
            ExpectClean(printed.text);
            const char* const kinds[] = {"heights only", "plan; distances are horizontal",
                                         "three dimensions"};
            EXPECT_THAT(printed.text, HasSubstr(std::string("  Network   ") + kinds[dimension - 1]));
            EXPECT_EQ(printed.read.stations.size(), dimension == 1 ? 0u : static_cast<std::size_t>(stations));
        }
    }
}

TEST_P(ListingOfType, ReadsBackWithHeightOnlyPointsAndUnobservedOnes) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    random.text.points.push_back(InputText::Named("UNSEEN"));
    random.text.points.push_back(InputText::Given("GIVENBM", 5, 6, 7));
    random.text.Height("S1", "BENCH", 5, 0.001);
    random.text.Height("BENCH", "GIVENBM", 1, 0.001);
    const Printed printed = Print(random.text.Text(), GetParam());
    ExpectRead(printed);
    EXPECT_EQ(printed.read.Find("BENCH")->x, 0);
    EXPECT_EQ(printed.read.Find("GIVENBM")->x, 5);
    EXPECT_THAT(printed.text, HasSubstr("UNSEEN"));
}

TEST_P(ListingOfType, ReadsBackWithOverlongNames) {
    const std::string station(60, 'S');
    const std::string target(40, 'T');
    InputText text;
    text.points = {InputText::Named(station), InputText::Named(target)};
    text.distances.push_back(station + "\r\n          " + target +
                             "\r\n                         25.12345   0.00200\r\n");
    text.angles.push_back(station + " " + target + " 100.0 99.0 0.001 0.001\r\n");
    text.angles.push_back(target + " " + station + " 300.0 101.0 0.001 0.001\r\n");
    ExpectRead(Print(text.Text(), GetParam()));
}

TEST_P(ListingOfType, ReadsBackPointsWithoutAnyStation) {
    InputText text;
    text.stations.push_back(InputText::Named("A"));
    text.Height("A", "B", 1, 0.001);
    text.Height("B", "C", 1, 0.001);
    text.Height("C", "A", -2.001, 0.001);
    const Printed printed = Print(text.Text(), GetParam());
    ExpectRead(printed);
    EXPECT_TRUE(printed.read.stations.empty());
    EXPECT_EQ(printed.read.points.size(), 3u);
}

TEST_P(ListingOfType, ReadsBackAtRedundancyZeroAndWithPerfectObservations) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 0), InputText::Named("B")};
    text.Distance("A", "B", 100, 0.001);
    text.Angles("A", "B", 0, 100, 0.001);
    const Printed printed = Print(text.Text(), GetParam());
    ExpectRead(printed);
    ExpectClean(printed.text);
    EXPECT_THAT(printed.text, HasSubstr("not determined"));
    text.Distance("A", "B", 100, 0.001);
    ExpectClean(Print(text.Text(), GetParam()).text);
}

TEST_P(ListingOfType, SaysSoInPlaceOfAnEmptyPointList) {
    NetworkSpec spec;
    spec.stations = spec.points;
    const std::string text = Print(MakeNetwork(spec).text.Text(), GetParam()).text;
    const std::size_t at = text.find("the one-tailed");
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(text.substr(at - 9, 9), "\r\n\r\n     ");
}

INSTANTIATE_TEST_SUITE_P(Types, ListingOfType,
                         testing::Values(Type::Sparse, Type::SparseInverse, Type::Dense, Type::L1Norm));

TEST(GoodListing, HoldsDeviationsOnlyWithAnInverse) {
    NetworkSpec spec;
    const std::string input = MakeNetwork(spec).text.Text();
    EXPECT_THAT(Print(input, Type::Sparse).text, Not(HasSubstr("\r\nStandard deviations")));
    EXPECT_THAT(Print(input, Type::L1Norm).text, Not(HasSubstr("\r\nStandard deviations")));
    EXPECT_THAT(Print(input, Type::SparseInverse).text, HasSubstr("\r\nStandard deviations"));
    EXPECT_THAT(Print(input, Type::Dense).text, HasSubstr("\r\nStandard deviations"));
}

TEST(GoodListing, EndsWithTheListOfHeightDeviations) {
    NetworkSpec spec;
    spec.dimension = 1;
    const Printed printed = Print(MakeNetwork(spec).text.Text(), Type::SparseInverse);
    const std::size_t at = printed.text.find("\r\nStandard deviations");
    ASSERT_NE(at, std::string::npos);
    const std::string tail = printed.text.substr(printed.text.find("\r\n", at + 2) + 2);
    EXPECT_EQ(std::count(tail.begin(), tail.end(), '\n'), static_cast<long>(printed.network.points.size()));
}

TEST(GoodListing, TellsTheSurveyorWhatHappened) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    random.text.pairs = {"S1 P9"};
    Network network = ReadInput(random.text.Text());
    network.observations[3].value += 0.5;
    const Printed printed = PrintNetwork(network, Type::SparseInverse);
    for (const char* part :
         {"/data/A.INP", "2026-02-01 10:00:00", "Project   DAM", "three dimensions", "slope distance",
          "Defect", "shift in X, shift in Y, rotation about Z, shift in Z", "with given coordinates",
          "Iterations", "m0 a posteriori", "two-tailed  m0 from", "FAILED",
          "largest suspected gross error: slope distance", "Worst residuals", "Relative error ellipses",
          "Summary", "a posteriori, scaled with m0"})
        EXPECT_THAT(printed.text, HasSubstr(part));
    ExpectRead(printed);
}

TEST(GoodListing, GivesTheRelativeEllipseOfAPair) {
    NetworkSpec spec;
    RandomNetwork random = MakeNetwork(spec);
    random.text.pairs = {"S1 P9", "P8 P9"};
    const Network network = ReadInput(random.text.Text());
    const Adjustment sparse = Adjust(network, Type::SparseInverse);
    const Adjustment dense = Adjust(network, Type::Dense);
    ASSERT_EQ(sparse.cofactors.pair.size(), 2u);
    for (std::size_t pair = 0; pair < 2; ++pair) {
        for (std::size_t i = 0; i < 6; ++i)
            EXPECT_NEAR(sparse.cofactors.pair[pair][i], dense.cofactors.pair[pair][i],
                        1e-9 * (dense.cofactors.pair[pair][0] + dense.cofactors.pair[pair][2]));
    }
}

TEST(FailureListing, NeverLooksLikeAGoodOne) {
    const Failure failure(ErrorNumber::BadNumber, "A word.", {"line 7: Final results", "P1"});
    const std::string text = FailureListing({"/data/A.INP", 1, "now"}, failure);
    EXPECT_TRUE(text.starts_with(" RUN FAILED\r\n"));
    EXPECT_EQ(ReadListingText(text).result, 0);
    EXPECT_THAT(text, HasSubstr("Error 11"));
    EXPECT_THAT(text, HasSubstr("line 7"));
    EXPECT_THAT(text, HasSubstr("What to do"));
    EXPECT_THAT(text, Not(HasSubstr("\r\nFinal")));
}

TEST(Fixed, NeverPrintsANegativeZero) {
    EXPECT_EQ(Fixed(-0.0000001, 9, 5), "  0.00000");
    EXPECT_EQ(Fixed(-0.000006, 9, 5), " -0.00001");
    EXPECT_EQ(Fixed(123456.789, 3, 1), "123456.8");
}

}  // namespace
