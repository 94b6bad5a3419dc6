// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/adjust/PointChecks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "krenn/input/InputReader.h"
#include "tests/krenn/RandomNetwork.h"

namespace {

using namespace Krenn;
using namespace KrennTest;

using Told = std::vector<std::pair<std::string, Unchecked>>;

Told UncheckedOf(const std::string& text, Type type = Type::SparseInverse) {
    const Network network = ReadInput(text);
    const Adjustment adjustment = Adjust(network, type);
    Told told;
    for (const UncheckedPoint& point : FindUncheckedPoints(adjustment, Evaluate(network, adjustment)))
        told.emplace_back(network.points[static_cast<std::size_t>(point.point)].name, point.what);
    return told;
}

// A sight between true places from a station whose circle reads azimuths.
void Sight(InputText& text, const Places& places, const std::string& from, const std::string& to) {
    text.Angles(from, to, AzimuthGons(places.at(from), places.at(to)),
                ZenithGons(places.at(from), places.at(to)), 0.001);
}

void Length(InputText& text, const Places& places, const std::string& from, const std::string& to) {
    text.Distance(from, to, SlopeLength(places.at(from), places.at(to)), 0.002);
}

const Places kPlaces{{"A", {0, 0, 10}},     {"B", {500, 30, 25}},  {"C", {480, 510, 4}},
                     {"D", {-20, 490, 31}}, {"P", {260, 240, 60}}, {"Q", {120, 300, -8}},
                     {"E", {700, 700, 15}}};

// Four stations around, each sighting the three others with everything.
InputText Square() {
    InputText text;
    for (const char* name : {"A", "B", "C", "D"}) {
        const auto& at = kPlaces.at(name);
        text.points.push_back(InputText::Given(name, at[0], at[1], at[2]));
        for (const char* other : {"A", "B", "C", "D"}) {
            if (std::string(name) != other) {
                Sight(text, kPlaces, name, other);
                Length(text, kPlaces, name, other);
            }
        }
    }
    return text;
}

TEST(FindUncheckedPoints, FindsNoneInANetworkOfBraces) {
    EXPECT_TRUE(UncheckedOf(Square().Text()).empty());
}

TEST(FindUncheckedPoints, NamesAPointOfOneSight) {
    InputText text = Square();
    Sight(text, kPlaces, "A", "P");
    Length(text, kPlaces, "A", "P");
    EXPECT_EQ(UncheckedOf(text.Text()), (Told{{"P", Unchecked::Position}}));
    EXPECT_EQ(UncheckedOf(text.Text(), Type::Dense), (Told{{"P", Unchecked::Position}}));
}

TEST(FindUncheckedPoints, TakesASecondSightForACheck) {
    InputText text = Square();
    for (const char* station : {"A", "C"}) {
        Sight(text, kPlaces, station, "P");
        Length(text, kPlaces, station, "P");
    }
    EXPECT_TRUE(UncheckedOf(text.Text()).empty());
}

// The circle read on the spur itself only orients the instrument that stands there.
TEST(FindUncheckedPoints, SeesThatSightsForthAndBackDoNotCheckTheDirection) {
    InputText text = Square();
    for (const auto& [from, to] : {std::pair{"C", "E"}, {"E", "C"}}) {
        Sight(text, kPlaces, from, to);
        Length(text, kPlaces, from, to);
    }
    EXPECT_EQ(UncheckedOf(text.Text()), (Told{{"E", Unchecked::Plan}}));
}

TEST(FindUncheckedPoints, TakesAThirdDistanceThatCrossesTheOthersForACheck) {
    InputText text = Square();
    for (const char* station : {"A", "B"})
        Length(text, kPlaces, station, "Q");
    text.Height("A", "Q", -18, 0.001);
    text.Height("B", "Q", -33, 0.001);
    const auto& q = kPlaces.at("Q");
    text.points.push_back(InputText::Given("Q", q[0], q[1], q[2]));
    EXPECT_EQ(UncheckedOf(text.Text()), (Told{{"Q", Unchecked::Plan}}));
    Length(text, kPlaces, "C", "Q");
    EXPECT_TRUE(UncheckedOf(text.Text()).empty());
}

// P lies on the line from A to C, so that nothing but B tells how far it is from that line.
TEST(FindUncheckedPoints, SeesThatDistancesOfOneLineDoNotCheckWhatLiesAcross) {
    InputText text = Square();
    for (const char* station : {"A", "B", "C"})
        Length(text, kPlaces, station, "P");
    text.Height("A", "P", 50, 0.001);
    text.Height("B", "P", 35, 0.001);
    const auto& p = kPlaces.at("P");
    text.points.push_back(InputText::Given("P", p[0], p[1], p[2]));
    EXPECT_EQ(UncheckedOf(text.Text()), (Told{{"P", Unchecked::Plan}}));
}

TEST(FindUncheckedPoints, NamesTheHeightOfABenchMarkOfOneLine) {
    InputText text = Square();
    text.Height("A", "LEVEL", 3, 0.001);
    EXPECT_EQ(UncheckedOf(text.Text()), (Told{{"LEVEL", Unchecked::Height}}));
}

TEST(FindUncheckedPoints, NamesAResectionOfThreeDirections) {
    InputText text = Square();
    for (const char* target : {"A", "B", "C"})
        text.Angles("Q", target, AzimuthGons(kPlaces.at("Q"), kPlaces.at(target)),
                    ZenithGons(kPlaces.at("Q"), kPlaces.at(target)), 0.001);
    EXPECT_EQ(UncheckedOf(text.Text()), (Told{{"Q", Unchecked::Plan}}));
    Sight(text, kPlaces, "Q", "D");
    EXPECT_TRUE(UncheckedOf(text.Text()).empty());
}

TEST(FindUncheckedPoints, SaysNothingWithoutRedundancyNumbers) {
    InputText text = Square();
    text.Height("A", "LEVEL", 3, 0.001);
    EXPECT_TRUE(UncheckedOf(text.Text(), Type::Sparse).empty());
}

}  // namespace
