// SPDX-License-Identifier: GPL-3.0-or-later
// Points that are badly held and errors that are large, as the surveyor meets them: by a file and its
// listing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "krenn/adjust/Adjustment.h"
#include "krenn/adjust/WeakPoints.h"
#include "krenn/input/InputReader.h"
#include "tests/krenn/RunText.h"
#include "tests/krenn/Square.h"

namespace {

using namespace Krenn;
using namespace KrennTest;
using testing::AnyOf;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

TEST(Blames, APointHeldByOneSightIsNotMovedInSilence) {
    Square square;
    square.Station("ST1", {40, 30, 1});
    square.text.points.push_back(InputText::Given("P7", 370, 40, 1));
    square.Polar("ST1", {40, 30, 1}, "P7", {70, 40, 1});
    for (const int type : kTypes) {
        const TextRun run = RunText(square.text.Text(), type);
        ASSERT_EQ(run.number, ErrorNumber::Good);
        EXPECT_THAT(run.unbroken,
                    HasSubstr("P7 is 300.0 m from its given coordinates, and nothing checks its "
                              "observations. It is held by slope distance from ST1"))
            << type;
        EXPECT_THAT(run.unbroken, Not(HasSubstr("ST1 is ")));
    }
    // Where others check them, a wrong given position is only a bad start.
    square.Station("ST2", {60, 60, 1});
    square.Polar("ST2", {60, 60, 1}, "P7", {70, 40, 1});
    EXPECT_THAT(RunText(square.text.Text()).unbroken, Not(HasSubstr("nothing checks")));
}

TEST(Blames, TellSixObservationsOfAPointAndCountTheOthers) {
    InputText text;
    text.points = {InputText::Given("A", 0, 0, 10), InputText::Named("B")};
    const auto held = [&] {
        const Network network = ReadInput(text.Text());
        return HeldByInWords(network, Adjust(network, Type::Sparse).structure, 1);
    };
    for (int i = 0; i < 6; ++i)
        text.Height("A", "B", 1, 0.001);
    EXPECT_THAT(held(), Not(HasSubstr("more")));
    text.Height("A", "B", 1, 0.001);
    EXPECT_THAT(held(), testing::EndsWith(", and 1 more"));
}

// Distances from three points in line, to a point in their line: the point may leave it to either side.
TEST(Blames, APointHeldByDistancesFromALineIsNamed) {
    for (const double aside : {0.0, 1e-6, 1e-4}) {
        InputText text;
        const std::vector<Place> line{{0, 0, 0}, {50, 0, 0}, {120, 0, 0}};
        const Place point{300, aside, 0};
        for (std::size_t i = 0; i < line.size(); ++i) {
            text.points.push_back(InputText::Given(Square::Corner(i), line[i][0], line[i][1], line[i][2]));
            text.fixed.push_back(Square::Corner(i));
            text.distances.push_back(
                fmt::format("{} P7 {:.9f} 0.001\r\n", Square::Corner(i), PlanLength(line[i], point)));
        }
        text.points.push_back(InputText::Given("P7", point[0], point[1], point[2]));
        for (const int type : {0, 1, 7}) {
            const TextRun run = RunText(text.Text(), type);
            if (run.number == ErrorNumber::Good)
                EXPECT_THAT(run.unbroken, HasSubstr("P7 is ill-determined: a standard deviation")) << aside;
            else
                EXPECT_THAT(run.unbroken, ContainsRegex("P7: horizontal distance from A \\(line [0-9]+\\), "
                                                        "horizontal distance from B \\(line [0-9]+\\)"))
                    << aside;
        }
    }
}

// Three distances from what is nearly one place leave the point on a circle.
TEST(Blames, APointHeldByEqualDistancesFromOnePlaceIsNamed) {
    InputText text;
    const std::vector<Place> near{{0, 0, 0}, {0.001, 0, 0}, {0, 0.0003, 0}, {500, 0, 0}, {0, 500, 0}};
    const Place point{80, 60, 0};
    for (std::size_t i = 0; i < near.size(); ++i) {
        text.points.push_back(InputText::Given(Square::Corner(i), near[i][0], near[i][1], near[i][2]));
        text.fixed.push_back(Square::Corner(i));
        if (i < 3)
            text.Distance(Square::Corner(i), "P7", PlanLength(near[i], point), 0.001);
    }
    text.points.push_back(InputText::Given("P7", point[0] + 3, point[1], point[2]));
    for (const int type : {0, 1, 7}) {
        const TextRun run = RunText(text.Text(), type);
        EXPECT_THAT(run.unbroken, AnyOf(HasSubstr("P7 is ill-determined"), HasSubstr("P7: horizontal"),
                                        HasSubstr("A P7, v/sigma")))
            << type;
    }
}

TEST(Blames, NothingIsCalledIllDeterminedInGoodNetworks) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        NetworkSpec spec;
        spec.seed = seed;
        spec.dimension = 1 + static_cast<int>(seed % 3);
        spec.fixed = seed % 4 == 0 ? 2 : 0;
        spec.startNoise = 5;
        for (const Type type : {Type::Sparse, Type::SparseInverse}) {
            for (const std::string& note : Adjust(ReadInput(MakeNetwork(spec).text.Text()), type).notes)
                EXPECT_THAT(note, Not(HasSubstr("ill-determined"))) << seed;
        }
    }
}

TEST(Blames, ABlunderOfAHundredMetersIsNamedWithItsSize) {
    NetworkSpec spec;
    spec.stations = 6;
    spec.points = 10;
    spec.given = 10;
    spec.sightsPerStation = 8;
    for (unsigned seed = 1; seed <= 10; ++seed) {
        spec.seed = seed;
        RandomNetwork random = MakeNetwork(spec);
        for (std::string& row : random.text.distances) {
            if (!row.starts_with("S2        S3 "))
                continue;
            const double length = std::stod(row.substr(20, 13));
            row = fmt::format("{:<10}{:<10}{:>13.5f}{:>10.5f}\r\n", "S2", "S3", length + 100, 0.002);
        }
        for (const int type : {1, 7, -1}) {
            const TextRun run = RunText(random.text.Text(), type);
            EXPECT_EQ(run.number, ErrorNumber::Good);
            const auto at = run.unbroken.find("Suspected gross errors");
            ASSERT_NE(at, std::string::npos) << seed;
            EXPECT_THAT(run.unbroken.substr(at, 400),
                        ContainsRegex("distance S2 to S3, line [0-9]+: (100|99.99|100.0)[0-9.]* m"))
                << seed << " " << type;
        }
    }
}

TEST(Blames, AStartPositionFiftyKilometersWrongIsOvercomeOrNamed) {
    NetworkSpec spec;
    spec.stations = 6;
    spec.points = 10;
    spec.given = 10;
    spec.sightsPerStation = 8;
    spec.startNoise = 0.02;
    for (unsigned seed = 1; seed <= 10; ++seed) {
        spec.seed = seed;
        RandomNetwork random = MakeNetwork(spec);
        const Place& right = random.truth["P8"];
        random.text.points[7] = InputText::Given("P8", right[0] + 50000, right[1], right[2]);
        for (const int type : kTypes) {
            const TextRun run = RunText(random.text.Text(), type);
            EXPECT_THAT(run.unbroken, HasSubstr("P8")) << seed;
            EXPECT_EQ(run.number, ErrorNumber::Good) << seed << " " << type;
            EXPECT_THAT(run.unbroken, Not(HasSubstr("Suspected gross errors"))) << seed << " " << type;
            EXPECT_THAT(run.unbroken, HasSubstr("The given coordinates of P8 contradict the observations"))
                << seed << " " << type;
        }
    }
}

}  // namespace
