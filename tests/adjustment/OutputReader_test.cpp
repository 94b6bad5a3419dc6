// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/OutputReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adjustment/Banner.h"
#include "tests/adjustment/Listing.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using Testing::GoodListing;
using Testing::GoodListingLines;
using Testing::PutLines;

class OutputFile : public testing::Test {
  protected:
    int Read(const std::vector<std::string>& lines, bool readAll = true) {
        std::string content;
        for (const std::string& line : lines)
            content += line + "\r\n";
        Testing::PutListing("D:\\ADJ\\", "NET.OUT", content);
        return ReadOutputFile("D:\\ADJ\\", "NET.OUT", Results, readAll);
    }

    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
    AdjustmentResults Results;
};

AdjustedPoint Point(const std::string& name, double x, double y, double z) {
    AdjustedPoint point;
    point.Name = name;
    point.X = x;
    point.Y = y;
    point.Z = z;
    return point;
}

AdjustedPoint Station(AdjustedPoint point, double rot1, double rot2, double rot3) {
    point.Rot1 = rot1;
    point.Rot2 = rot2;
    point.Rot3 = rot3;
    return point;
}

AdjustedPoint WithErrors(AdjustedPoint point, double sx, double sy, double sz, double major, double minor,
                         double angle) {
    point.SX = sx;
    point.SY = sy;
    point.SZ = sz;
    point.ErrorMajor = major;
    point.ErrorMinor = minor;
    point.ErrorAngle = angle;
    return point;
}

AdjustedPoint Height(const std::string& name, double z, double sz) {
    return WithErrors(Point(name, 0, 0, z), 0, 0, sz, 0, 0, 0);
}

AdjustmentResults CoordinatesOfGoodListing() {
    AdjustmentResults results;
    results.Stations = {
        Station(Point("ST1", 1000.12345, 2000.5, -30.25), 0.00001, -0.00002, 123.45678),
        Station(Point("ST2", 1100, 2100, 31), 1.00001, 2.00002, 3.00003),
    };
    results.Points = {Point("P1", 1500.11111, 2500.22222, 35.33333), Point("P2", 0, 0, 36.5)};
    return results;
}

TEST_F(OutputFile, GivesStationsPointsPairsAndDeviations) {
    AdjustmentResults expected = CoordinatesOfGoodListing();
    expected.Stations[1] =
        WithErrors(expected.Stations[1], 0.00101, 0.00102, 0.00103, 0.00104, 0.00105, 45.6);
    expected.Points[1] = WithErrors(expected.Points[1], 0.00201, 0.00202, 0.00203, 0.00204, 0.00205, 46.7);
    expected.DistanceResiduals = {{"ST1", "P1"}, {"ST2", "P1"}};
    expected.HeightDifferences = {{"P1", "P2"}};
    expected.HorizontalDirections = {{"ST1", "P1"}, {"ST1", "ST2"}, {"ST2", "P1"}};
    expected.VerticalDirections = {{"ST1", "P1"}};
    EXPECT_EQ(Read(GoodListingLines()), 1);
    EXPECT_EQ(Results, expected);
}

TEST_F(OutputFile, GivesCoordinatesAloneWhenNotAllIsWanted) {
    EXPECT_EQ(Read(GoodListingLines(), false), 1);
    EXPECT_EQ(Results, CoordinatesOfGoodListing());
}

TEST_F(OutputFile, ReadForCoordinatesAloneMayBeCutBehindThePoints) {
    std::vector<std::string> lines = GoodListingLines(18);
    EXPECT_EQ(Read(lines, false), 1);
    EXPECT_EQ(Results, CoordinatesOfGoodListing());
    EXPECT_EQ(Read(lines, true), 0);
}

TEST_F(OutputFile, CutBehindAnyLineGivesZeroInsideASectionAndOneBetweenSections) {
    for (std::size_t count = 0; count <= GoodListing().size(); ++count) {
        const int expected = count == 0 ? 0 : GoodListing()[count - 1].ResultWhenCutHere;
        EXPECT_EQ(Read(GoodListingLines(count)), expected) << "cut behind line " << count;
    }
}

TEST_F(OutputFile, CutInsideALineIsReadWithoutFailure) {
    std::string content;
    for (const std::string& line : GoodListingLines())
        content += line + "\r\n";
    for (std::size_t length = 0; length < content.size(); length += 3) {
        Testing::PutListing("D:\\ADJ\\", "NET.OUT", content.substr(0, length));
        const int result = ReadOutputFile("D:\\ADJ\\", "NET.OUT", Results, true);
        EXPECT_TRUE(result == 0 || result == 1) << "cut behind character " << length;
    }
}

TEST_F(OutputFile, KeepsWhatWasReadBeforeTheCut) {
    EXPECT_EQ(Read(GoodListingLines(10)), 0);
    EXPECT_EQ(Results.Stations.Count(), 2);
    EXPECT_EQ(Results.Stations[1], CoordinatesOfGoodListing().Stations[1]);
    EXPECT_EQ(Results.Stations[2], Point("ST2", 0, 0, 0));
}

TEST_F(OutputFile, ThatIsMissingGivesMinusOneAndSaysNothing) {
    Results.Points.Add(Point("LEFT", 1, 2, 3));
    EXPECT_EQ(ReadOutputFile("D:\\ADJ\\", "NET.OUT", Results, true), -1);
    EXPECT_EQ(Results, AdjustmentResults());
}

TEST_F(OutputFile, StartsFromEmptyResults) {
    Read(GoodListingLines());
    const AdjustmentResults once = Results;
    Read(GoodListingLines());
    EXPECT_EQ(Results, once);
}

TEST_F(OutputFile, ReadsTheSameBehindItsBanner) {
    Read(GoodListingLines());
    const AdjustmentResults plain = Results;
    PutLines("D:\\ADJ\\NET.INP", {"", "PROJECT = Final results", "TASK = Standard deviations"});
    AddVarnBanner("D:\\ADJ\\NET.INP", "D:\\ADJ\\NET.OUT");
    EXPECT_EQ(ReadOutputFile("D:\\ADJ\\", "NET.OUT", Results, true), 1);
    EXPECT_EQ(Results, plain);
}

TEST_F(OutputFile, WithMarkersInAnotherCaseFindsNothing) {
    EXPECT_EQ(Read({"Final Results", "skipped", "ST1", "r", "x", "", "P1 1 2 3", ""}), 0);
    EXPECT_EQ(Results, AdjustmentResults());
}

TEST_F(OutputFile, WithTableMarkersInAnotherCasePassesThemBy) {
    EXPECT_EQ(Read({"Final results", "skipped", "P1 1 2 3", "", "Distance residuals", "ST1 P1", "",
                    "standard deviations", "P1 0.1"}),
              1);
    EXPECT_TRUE(Results.DistanceResiduals.Empty());
    EXPECT_EQ(Results.Points[1], Point("P1", 1, 2, 3));
}

TEST_F(OutputFile, WithoutStationListTakesThatLineForTheFirstPoint) {
    EXPECT_EQ(Read({"Final results", "skipped", "P1 1 2 3", "P2 4 5 6", ""}), 1);
    EXPECT_TRUE(Results.Stations.Empty());
    EXPECT_EQ(Results.Points, (List1<AdjustedPoint>{Point("P1", 1, 2, 3), Point("P2", 4, 5, 6)}));
}

TEST_F(OutputFile, SkipsOneLineWhateverItHolds) {
    EXPECT_EQ(Read({"Final results", "ST0", "P1 1 2 3", ""}), 1);
    EXPECT_TRUE(Results.Stations.Empty());
    EXPECT_EQ(Results.Points.Count(), 1);
}

TEST_F(OutputFile, WithABlankLineInPlaceOfBothListsHasNeither) {
    EXPECT_EQ(Read({"Final results", "skipped", "", "height differences", "A B", ""}), 1);
    EXPECT_TRUE(Results.Stations.Empty());
    EXPECT_TRUE(Results.Points.Empty());
    EXPECT_EQ(Results.HeightDifferences, (List1<ObservationPair>{{"A", "B"}}));
}

TEST_F(OutputFile, TakesAnyNumberOfWordsBehindALaterStationsName) {
    EXPECT_EQ(Read({"Final results", "skipped", "ST1", "a b 1 2 3", "a b 4 5 6", "ST2 again and again",
                    "a b 7 8 9", "a b 10 11 12", ""}),
              1);
    EXPECT_EQ(Results.Stations, (List1<AdjustedPoint>{Station(Point("ST1", 4, 5, 6), 1, 2, 3),
                                                      Station(Point("ST2", 10, 11, 12), 7, 8, 9)}));
}

TEST_F(OutputFile, TakesWordsThatAreNotThereOrNoNumbersAsZero) {
    EXPECT_EQ(Read({"Final results", "skipped", "ST1", "a b 1", "a b X1 5.5Y 6", "", "P1", "P2 x", "P3 1 2",
                    "P4 -1.5E2 2D1 3m", ""}),
              1);
    EXPECT_EQ(Results.Stations[1], Station(Point("ST1", 0, 5.5, 6), 1, 0, 0));
    EXPECT_EQ(Results.Points, (List1<AdjustedPoint>{Point("P1", 0, 0, 0), Point("P2", 0, 0, 0),
                                                    Point("P3", 1, 2, 0), Point("P4", -150, 20, 3)}));
}

TEST_F(OutputFile, OfStationsAloneMayEndBehindTheirBlankLine) {
    EXPECT_EQ(Read({"Final results", "skipped", "ST1", "a b 1 2 3", "a b 4 5 6", ""}), 1);
    EXPECT_EQ(Results.Stations.Count(), 1);
    EXPECT_TRUE(Results.Points.Empty());
}

TEST_F(OutputFile, WithTheMarkerOfTheOneTailedTestHasNoPointList) {
    EXPECT_EQ(Read({"Final results", "skipped", "ST1", "a b 1 2 3", "a b 4 5 6", "",
                    "When the one-tailed test is made", "distance residuals", "ST1 ST2", ""}),
              1);
    EXPECT_TRUE(Results.Points.Empty());
    EXPECT_EQ(Results.DistanceResiduals.Count(), 1);
}

TEST_F(OutputFile, HasTheOneTailedMarkerAtColumnSixOnly) {
    EXPECT_EQ(Read({"Final results", "skipped", "ST1", "a b 1 2 3", "a b 4 5 6", "",
                    "When  the one-tailed test", ""}),
              1);
    EXPECT_EQ(Results.Points, (List1<AdjustedPoint>{Point("WHEN", 0, 0, 0)}));
}

TEST_F(OutputFile, HasTheOneTailedMarkerWithoutAStationListToo) {
    EXPECT_EQ(Read({"Final results", "skipped", "When the one-tailed test"}, false), 1);
    EXPECT_TRUE(Results.Points.Empty());
}

TEST_F(OutputFile, WithoutDeviationsHasZerosAndIsGood) {
    EXPECT_EQ(Read(GoodListingLines(33)), 1);
    EXPECT_EQ(Results.Points[1], CoordinatesOfGoodListing().Points[1]);
    EXPECT_EQ(Results.Stations[1], CoordinatesOfGoodListing().Stations[1]);
}

TEST_F(OutputFile, WithATableThatRunsIntoTheEndGivesZeroThoughAllIsRead) {
    EXPECT_EQ(Read({"Final results", "skipped", "P1 1 2 3", "", "vertical direction", "A B", "C D"}), 0);
    EXPECT_EQ(Results.VerticalDirections, (List1<ObservationPair>{{"A", "B"}, {"C", "D"}}));
}

TEST_F(OutputFile, WithAPairOfOneWordHasNoTarget) {
    EXPECT_EQ(Read({"Final results", "skipped", "P1 1 2 3", "", "height differences", "A", "",
                    "height differences", ""}),
              1);
    EXPECT_EQ(Results.HeightDifferences, (List1<ObservationPair>{{"A", ""}}));
}

TEST_F(OutputFile, AddsTheTablesOfOneKindTogether) {
    EXPECT_EQ(Read({"Final results", "skipped", "P1 1 2 3", "", "distance residuals", "A B", "",
                    "distance residuals", "C D", ""}),
              1);
    EXPECT_EQ(Results.DistanceResiduals, (List1<ObservationPair>{{"A", "B"}, {"C", "D"}}));
}

TEST_F(OutputFile, GivesTheDeviationsOfADoubleNameToTheFirstStation) {
    EXPECT_EQ(Read({"Final results", "skipped", "A", "a b 0 0 0", "a b 1 1 1", "A", "a b 0 0 0", "a b 2 2 2",
                    "", "A 3 3 3", "", "Standard deviations", "Standard point", "skipped", "A 0.1 0.2 0.3",
                    "0.4 0.5 6", "skipped", ""}),
              1);
    EXPECT_EQ(Results.Stations[1], WithErrors(Point("A", 1, 1, 1), 0.1, 0.2, 0.3, 0.4, 0.5, 6));
    EXPECT_EQ(Results.Stations[2], Point("A", 2, 2, 2));
    EXPECT_EQ(Results.Points[1], Point("A", 3, 3, 3));
}

TEST_F(OutputFile, GivesTheDeviationsOfADoubleNameToTheFirstPoint) {
    EXPECT_EQ(Read({"Final results", "skipped", "A 1 1 1", "A 2 2 2", "", "Standard deviations",
                    "Standard point", "skipped", "A 0.1 0.2 0.3", "0.4 0.5 6", "skipped", ""}),
              1);
    EXPECT_EQ(Results.Points[1], WithErrors(Point("A", 1, 1, 1), 0.1, 0.2, 0.3, 0.4, 0.5, 6));
    EXPECT_EQ(Results.Points[2], Point("A", 2, 2, 2));
}

TEST_F(OutputFile, SkipsThreeLinesOfAnUnknownName) {
    EXPECT_EQ(Read({"Final results", "skipped", "A 1 1 1", "", "Standard deviations", "Standard point",
                    "skipped", "B 9 9 9", "A 9 9 9", "A 8 8 8", "A 0.1 0.2 0.3", "0.4 0.5 6", "skipped", ""}),
              1);
    EXPECT_EQ(Results.Points,
              (List1<AdjustedPoint>{WithErrors(Point("A", 1, 1, 1), 0.1, 0.2, 0.3, 0.4, 0.5, 6)}));
}

TEST_F(OutputFile, SearchesOnBehindTheDeviations) {
    EXPECT_EQ(Read({"Final results", "skipped", "A 1 1 1", "", "Standard deviations", "Standard point",
                    "skipped", "", "distance residuals", "A B", "", "Standard deviations", "Standard point",
                    "skipped", "A 0.1 0.2 0.3", "0.4 0.5 6", "skipped", ""}),
              1);
    EXPECT_EQ(Results.DistanceResiduals.Count(), 1);
    EXPECT_EQ(Results.Points[1].SX, 0.1);
}

TEST_F(OutputFile, OfHeightsGivesEveryPointOfANameItsDeviation) {
    EXPECT_EQ(Read({"Final results", "skipped", "A 1.5", "B 2.5", "A 3.5", "", "Standard deviations",
                    "a 0.001", "", "NOBODY 9", "B 0.002 7", "B"}),
              1);
    EXPECT_EQ(Results.Points,
              (List1<AdjustedPoint>{Height("A", 1.5, 0.001), Height("B", 2.5, 0), Height("A", 3.5, 0.001)}));
}

TEST_F(OutputFile, OfHeightsTakesTheLastLineOfAName) {
    EXPECT_EQ(Read({"Final results", "skipped", "A 1.5", "", "Standard deviations", "heading", "A 0.001",
                    "A 0.002"}),
              1);
    EXPECT_EQ(Results.Points, (List1<AdjustedPoint>{Height("A", 1.5, 0.002)}));
}

TEST_F(OutputFile, OfHeightsLooksAtNoStations) {
    EXPECT_EQ(Read({"Final results", "skipped", "A", "a b 0 0 0", "a b 1 1 1", "", "A 1.5", "",
                    "Standard deviations", "A 0.001"}),
              1);
    EXPECT_EQ(Results.Stations[1], Point("A", 1, 1, 1));
    EXPECT_EQ(Results.Points[1], Height("A", 1.5, 0.001));
}

TEST_F(OutputFile, OfHeightsReadsOnToTheEndPastOtherMarkers) {
    EXPECT_EQ(Read({"Final results", "skipped", "A 1.5", "", "Standard deviations", "A 0.001",
                    "distance residuals", "A B"}),
              1);
    EXPECT_TRUE(Results.DistanceResiduals.Empty());
}

}  // namespace
}  // namespace Dorvane
