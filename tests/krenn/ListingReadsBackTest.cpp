// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "tests/krenn/PrintedListing.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;
using testing::HasSubstr;
using testing::Not;

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

}  // namespace
