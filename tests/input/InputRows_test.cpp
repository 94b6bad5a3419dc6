// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputRows.h"

#include <gtest/gtest.h>

namespace Dorvane::Testing {
namespace {

// Columns:                      1234567890123456789012345678901234567890123456789012345678901234567890
TEST(InpRows, ADistanceStandsInItsColumns) {
    const DistanceObs observation{.Station = "ST1", .Target = "P7", .Dist = 25.12345, .DistError = 0.0005};
    EXPECT_EQ(InpDistance(observation), "ST1       P7             25.12345   0.00050");
}

TEST(InpRows, ATrackerDistanceCarriesItsMarkDirectlyBehindTheError) {
    const TrackerObs observation{.Station = "ST1", .Target = "P7", .SDist = 25.12345, .SDistError = 0.0001};
    EXPECT_EQ(InpDistance(observation), "ST1       P7             25.12345   0.00010   T");
}

TEST(InpRows, ATotalDistanceHasNoMark) {
    const TotalObs observation{.Station = "ST1", .Target = "P7", .SDist = 1234567.5, .SDistError = 12.5};
    EXPECT_EQ(InpDistance(observation), "ST1       P7        1234567.50000  12.50000");
}

TEST(InpRows, ANegativeHeightDifferenceKeepsItsSignInsideItsField) {
    const HeightObs observation{.Station = "BM1", .Target = "BM2", .HDiff = -12.345678, .HDiffError = 0.0002};
    EXPECT_EQ(InpHeight(observation), "BM1       BM2          -12.34568     0.00020");
}

TEST(InpRows, AnglesStandInTheirColumns) {
    const AngleObs observation{.Station = "ST1",
                               .Target = "P7",
                               .HAngle = 123.4567,
                               .ZAngle = 99.1234,
                               .HAngleError = 0.0005,
                               .ZAngleError = 0.0006};
    EXPECT_EQ(InpAngles(observation), "ST1       P7        123.45670   99.12340 0.00050 0.00060");
}

TEST(InpRows, PolarAnglesStandAsAnglesAloneDo) {
    const TotalObs total{.Station = "A",
                         .Target = "B",
                         .HAngle = 399.99999,
                         .ZAngle = 0,
                         .HAngleError = 0.001,
                         .ZAngleError = 0.002};
    EXPECT_EQ(InpAngles(total), "A         B         399.99999    0.00000 0.00100 0.00200");
    const TrackerObs tracker{.Station = "A",
                             .Target = "B",
                             .HAngle = 399.99999,
                             .ZAngle = 0,
                             .HAngleError = 0.001,
                             .ZAngleError = 0.002};
    EXPECT_EQ(InpAngles(tracker), InpAngles(total));
}

TEST(InpRows, AStationOfElevenCharactersBreaksTheRowToTheTargetsColumn) {
    const AngleObs observation{.Station = "STATION0011",
                               .Target = "P7",
                               .HAngle = 1,
                               .ZAngle = 2,
                               .HAngleError = 3,
                               .ZAngleError = 4};
    EXPECT_EQ(InpAngles(observation),
              "STATION0011\r\n"
              "          P7          1.00000    2.00000 3.00000 4.00000");
}

TEST(InpRows, AStationOfTenCharactersTouchesTheTarget) {
    const DistanceObs observation{.Station = "STATION010", .Target = "P7", .Dist = 1, .DistError = 2};
    EXPECT_EQ(InpDistance(observation), "STATION010P7              1.00000   2.00000");
}

TEST(InpRows, AnOverlongTargetBreaksTheRowToTheNumbersColumn) {
    const HeightObs observation{.Station = "A", .Target = "TARGET0012", .HDiff = 1.5, .HDiffError = 0.1};
    EXPECT_EQ(InpHeight(observation),
              "A         TARGET0012\r\n"
              "                         1.50000     0.10000");
}

TEST(InpRows, ANumberTooWideForItsFieldIsKeptWholeAndBreaksTheRowWhenItPassesTheNext) {
    const AngleObs observation{
        .Station = "A", .Target = "B", .HAngle = 1, .ZAngle = 2, .HAngleError = 12.5, .ZAngleError = 0.5};
    EXPECT_EQ(InpAngles(observation),
              "A         B           1.00000    2.00000 12.50000\r\n"
              "                                                 0.50000");
}

TEST(InpRows, CoordinatesStandInTheirColumnsWithTheirFixedErrors) {
    EXPECT_EQ(InpCoordinates("P7", 1000.5, -20.25, 300),
              "P7           1000.50000      -20.25000      300.00000\r\n"
              "                1.00E+03       1.00E+03       1.00E+03");
}

TEST(InpRows, ANameOfTenCharactersBreaksACoordinateRow) {
    EXPECT_EQ(InpCoordinates("POINT00010", 1, 2, 3),
              "POINT00010\r\n"
              "                1.00000        2.00000        3.00000\r\n"
              "                1.00E+03       1.00E+03       1.00E+03");
}

TEST(InpRows, ANameAloneIsFollowedByAnEmptyLine) {
    EXPECT_EQ(InpName("P7"), "P7\r\n");
}

TEST(OrgRows, CoordinatesAndNamesCarryTheirTags) {
    EXPECT_EQ(OrgName("STA", "ST1"), "STA ST1");
    EXPECT_EQ(OrgName("PTS", "P7"), "PTS P7");
    EXPECT_EQ(OrgCoordinates("PTS", "P7", 1000.5, -20.25, 300),
              "PTS P7            1000.50000      -20.25000      300.00000");
}

TEST(OrgRows, PolarObservationsHoldAllTheirValuesInOneRow) {
    const TotalObs total{.Station = "ST1",
                         .Target = "P7",
                         .HAngle = 123.4567,
                         .ZAngle = 99.1234,
                         .SDist = 25.12345,
                         .HAngleError = 0.0005,
                         .ZAngleError = 0.0006,
                         .SDistError = 0.0001};
    EXPECT_EQ(OrgRow(total),
              "TOT ST1        P7        123.45670  0.00050  99.12340   0.00060     25.12345   0.00010");
    const TrackerObs tracker{.Station = "ST1",
                             .Target = "P7",
                             .HAngle = 123.4567,
                             .ZAngle = 99.1234,
                             .SDist = 25.12345,
                             .HAngleError = 0.0005,
                             .ZAngleError = 0.0006,
                             .SDistError = 0.0001};
    EXPECT_EQ(OrgRow(tracker),
              "TRK ST1        P7        123.45670  0.00050  99.12340   0.00060     25.12345   0.00010");
}

TEST(OrgRows, DistancesHeightsAndAnglesStandInTheirColumns) {
    EXPECT_EQ(OrgRow(DistanceObs{.Station = "ST1", .Target = "P7", .Dist = 25.12345, .DistError = 0.0005}),
              "DST ST1        P7             25.12345   0.00050");
    EXPECT_EQ(OrgRow(HeightObs{.Station = "BM1", .Target = "BM2", .HDiff = -0.5, .HDiffError = 0.0002}),
              "HGT BM1        BM2           -0.50000     0.00020");
    EXPECT_EQ(OrgRow(AngleObs{.Station = "ST1",
                              .Target = "P7",
                              .HAngle = 123.4567,
                              .ZAngle = 99.1234,
                              .HAngleError = 0.0005,
                              .ZAngleError = 0.0006}),
              "ANG ST1        P7        123.45670   99.12340 0.00050 0.00060");
}

}  // namespace
}  // namespace Dorvane::Testing
