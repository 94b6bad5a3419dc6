// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/AppendObs.h"

#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

class AppendObs : public InputSite {
  protected:
    std::string PointTable() const {
        std::string text;
        for (const ObsPoint& point : Points)
            text += point.Name + " " + std::to_string(point.HangCount) + std::to_string(point.ZangCount) +
                    std::to_string(point.SdstCount) + std::to_string(point.LhgtCount) + "; ";
        return text;
    }

    std::string StationTable() const {
        std::string text;
        for (const ObsStation& station : Stations)
            text += station.Name + " ";
        return text;
    }

    List1<ObsPoint> Points;
    List1<ObsStation> Stations;
    List1<std::string> NewNames;
};

TEST_F(AppendObs, FillsTrackerObservationsBehindTheExistingOnes) {
    ObsSet<TrackerObs> set;
    set.Add({.Station = "OLD", .Target = "P0"});
    const List1<ResRecord> records{{"S1", "P1", 1, 2, 3}, {"S1", "P2", 4, 5, 6}, {"S1", "P3", 7, 8, 9}};
    AppendTrackerObs(set, Points, Stations, records, 2, {0.1, 0.2, 0.3, 0, 0, 0}, NewNames);
    ASSERT_EQ(set.Count(), 3);
    const TrackerObs& last = set[3];
    EXPECT_EQ(last.Station, "S1");
    EXPECT_EQ(last.Target, "P2");
    EXPECT_EQ(last.HAngle, 4);
    EXPECT_EQ(last.ZAngle, 5);
    EXPECT_EQ(last.SDist, 6);
    EXPECT_EQ(last.HAngleError, 0.1);
    EXPECT_EQ(last.ZAngleError, 0.2);
    EXPECT_EQ(last.SDistError, 0.3);
    EXPECT_EQ(last.UseH, -1);
    EXPECT_EQ(last.UseZ, -1);
    EXPECT_EQ(last.UseD, -1);
    EXPECT_EQ(PointTable(), "P1 1110; P2 1110; ");
    EXPECT_EQ(StationTable(), "S1 ");
    EXPECT_EQ(Stations[1].Use, -1);
    EXPECT_EQ(Stations[1].HasCoords, 0);
    EXPECT_EQ(NewNames, (List1<std::string>{"P1", "P2"}));
}

TEST_F(AppendObs, CountsARepeatedTargetAndSwitchesItOnAgain) {
    Points.Add(
        {.Name = "P1", .HangCount = 4, .ZangCount = 5, .SdstCount = 6, .LhgtCount = 7, .CoordSource = 2});
    ObsSet<TotalObs> set;
    const List1<ResRecord> records{{"S1", "P1", 1, 2, 3}, {"S2", "P1", 1, 2, 3}};
    AppendTotalObs(set, Points, Stations, records, 2, {}, NewNames);
    EXPECT_EQ(PointTable(), "P1 6787; ");
    EXPECT_EQ(Points[1].CoordSource, 2);
    EXPECT_EQ(Points[1].Switch1, -1);
    EXPECT_EQ(Points[1].Switch2, -1);
    EXPECT_EQ(Points[1].Switch3, -1);
    EXPECT_EQ(StationTable(), "S1 S2 ");
    EXPECT_EQ(NewNames.Count(), 0);
}

TEST_F(AppendObs, AnglesAloneCountInAllThreeColumns) {
    ObsSet<AngleObs> set;
    AppendAngleObs(set, Points, Stations, {{"S1", "P1", 100.5, 99.5, 0}}, 1, {0.1, 0.2}, NewNames);
    EXPECT_EQ(PointTable(), "P1 1110; ");
    EXPECT_EQ(set[1].HAngle, 100.5);
    EXPECT_EQ(set[1].ZAngle, 99.5);
    EXPECT_EQ(set[1].UseH, -1);
    EXPECT_EQ(set[1].UseZ, -1);
    EXPECT_EQ(set[1].ZAngleError, 0.2);
}

TEST_F(AppendObs, DistancesAloneCountInAllThreeColumns) {
    ObsSet<DistanceObs> set;
    AppendDistanceObs(set, Points, Stations, {{"S1", "P1", 12.5, 0, 0}}, 1, {0.3, 0}, NewNames);
    EXPECT_EQ(PointTable(), "P1 1110; ");
    EXPECT_EQ(set[1].Dist, 12.5);
    EXPECT_EQ(set[1].DistError, 0.3);
    EXPECT_EQ(set[1].Use, -1);
    EXPECT_EQ(StationTable(), "S1 ");
}

TEST_F(AppendObs, BothEndsOfAHeightDifferenceArePointsStationsFirst) {
    ObsSet<HeightObs> set;
    const List1<ResRecord> records{{"A", "B", 0.5, 0, 0}, {"B", "C", -0.25, 0, 0}};
    AppendHeightObs(set, Points, records, 2, {0.0002}, NewNames);
    EXPECT_EQ(PointTable(), "A 0001; B 0002; C 0001; ");
    EXPECT_EQ(NewNames, (List1<std::string>{"A", "B", "C"}));
    EXPECT_EQ(set[2].HDiff, -0.25);
    EXPECT_EQ(set[2].HDiffError, 0.0002);
    EXPECT_EQ(set[2].Use, -1);
}

TEST_F(AppendObs, APointSightedAndOccupiedStandsInBothTables) {
    ObsSet<TrackerObs> set;
    AppendTrackerObs(set, Points, Stations, {{"A", "B", 1, 2, 3}, {"B", "A", 1, 2, 3}}, 2, {}, NewNames);
    EXPECT_EQ(PointTable(), "B 1110; A 1110; ");
    EXPECT_EQ(StationTable(), "A B ");
}

TEST_F(AppendObs, ALinearWeightAtDistanceZeroIsReportedAndAppendsNothing) {
    ObsSet<TotalObs> set;
    set.Resize(1);
    Desktop.ExpectMessageTitled("Program Error");
    AppendTotalObs(set, Points, Stations, {{"A", "B", 1, 2, 3}, {"A", "C", 1, 2, 0}}, 2,
                   {0, 0, 0, 0, 1, 1, 1}, NewNames);
    EXPECT_EQ(LastReport(Desktop), "11 Dorvane-basInput-AppendTotalObs");
    EXPECT_EQ(set.Count(), 1);
    EXPECT_EQ(Points.Count(), 0);
    EXPECT_EQ(Stations.Count(), 0);
}

TEST_F(AppendObs, MoreObservationsThanAListHoldsAreAReportedOverflow) {
    ObsSet<DistanceObs> set;
    set.Resize(32767);
    Desktop.ExpectMessageTitled("Program Error");
    AppendDistanceObs(set, Points, Stations, {{"S1", "P1", 12.5, 0, 0}}, 1, {}, NewNames);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basInput-AppendDistanceObs");
    EXPECT_EQ(set.Count(), 32767);
    EXPECT_EQ(Points.Count(), 0);
}

TEST_F(AppendObs, MoreSightsToAPointThanItsCountHoldsAreAReportedOverflow) {
    Points.Add({.Name = "P1", .HangCount = 32767});
    ObsSet<AngleObs> set;
    Desktop.ExpectMessageTitled("Program Error");
    AppendAngleObs(set, Points, Stations, {{"S1", "P1", 12.5, 0, 0}}, 1, {}, NewNames);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basInput-AppendAngleObs");
    EXPECT_EQ(Points[1].HangCount, 32767);
}

TEST_F(AppendObs, MorePointsThanATableHoldsAreAReportedOverflow) {
    Points.Resize(32767);
    ObsSet<HeightObs> set;
    Desktop.ExpectMessageTitled("Program Error");
    AppendHeightObs(set, Points, {{"NEW", "P1", 1, 0, 0}}, 1, {}, NewNames);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basInput-AppendHeightObs");
    EXPECT_EQ(Points.Count(), 32767);
}

}  // namespace
}  // namespace Dorvane::Testing
