// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/total/TotalReduction.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace Dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct Heights {
    double Instrument = 1.5;
    double Target = 1.5;
};

/// Both faces of an errorless instrument.
void Sight2(StationSetUp& setUp, const std::string& target, double direction, double zenith,
            std::optional<double> distance, Heights heights = {}) {
    const auto turned = [](double gons) { return std::fmod(gons, 400); };
    setUp.Sights.push_back({1, target, direction, zenith, distance, heights.Instrument, heights.Target});
    setUp.Sights.push_back(
        {1, target, turned(direction + 200), 400 - zenith, distance, heights.Instrument, heights.Target});
}

StationSetUp Station(const std::string& name) {
    return {name, "BOOK.GSI", 7, {}};
}

TotalResult Reduce(std::vector<StationSetUp> setUps, ResultKind kind = ResultKind::Total) {
    FieldBook book;
    book.SetUps = std::move(setUps);
    return ReduceBook(book, kind);
}

std::string Warnings(const TotalResult& result) {
    std::string all;
    for (const Remark& warning : result.Warnings)
        all += warning.Text + "\n";
    return all;
}

TEST(ReduceBook, ReducesALevelSightToTheMarks) {
    // 50 m level, 0.3 m from the instrument down to the mark more than at the target: z' = 100 - atan(0.006).
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 100, 100, 50, {1.5, 1.2});
    const TotalResult result = Reduce({p1});
    const TargetResult& a = result.Stations[0].Targets[0];
    EXPECT_NEAR(a.Distance->Value, 50.0009, 1e-6);
    EXPECT_NEAR(a.Zenith->Value, 99.618033, 1e-6);
}

TEST(ReduceBook, ReducesASteepSightToTheMarks) {
    // Measured 40 m across and 28.5 m up; heights add 1.5 m: a triangle of 30, 40 and 50 between the marks.
    const double zenith = std::atan2(40, 28.5) * 200 / 3.14159265358979323846;
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 100, zenith, std::hypot(40, 28.5), {1.7, 0.2});
    const TotalResult result = Reduce({p1});
    EXPECT_NEAR(result.Stations[0].Targets[0].Distance->Value, 50, 1e-9);
    EXPECT_NEAR(result.Stations[0].Targets[0].Zenith->Value, 59.0334471, 1e-7);
}

TEST(ReduceBook, MeansTheRoundsOnTheMeanOrientationOfTheFirst) {
    // B - A is 100.0010 in the first round and 99.9990 in the second, which stands on a circle moved by 50
    // gon.
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 10.0000, 100, 50);
    Sight2(p1, "B", 110.0010, 100, 60);
    Sight2(p1, "A", 60.0010, 100, 50);
    Sight2(p1, "B", 160.0000, 100, 60);
    const TotalResult result = Reduce({p1});
    const StationResult& station = result.Stations[0];
    EXPECT_EQ(station.Rounds, 2);
    EXPECT_EQ(station.SetUps[0].Positions, 2);
    EXPECT_NEAR(station.Targets[0].Direction.Value, 10.0005, 1e-9);
    EXPECT_NEAR(station.Targets[1].Direction.Value, 110.0005, 1e-9);
    EXPECT_NEAR(*station.DirectionDeviation, 0.001, 1e-9);
    EXPECT_NEAR(*station.Targets[0].Direction.SetDeviation, 0.001, 1e-9);
    EXPECT_NEAR(*station.Targets[0].Direction.MeanDeviation, 0.001 / std::sqrt(2), 1e-9);
}

TEST(ReduceBook, LetsATargetMissingInARoundDisturbNoOther) {
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 10, 100, 50);
    Sight2(p1, "B", 110, 100, 60);
    Sight2(p1, "A", 10.0100, 100, 50);
    Sight2(p1, "B", 110.0100, 100, 60);
    Sight2(p1, "C", 210.0100, 100, 60);
    const TotalResult result = Reduce({p1});
    const StationResult& station = result.Stations[0];
    EXPECT_NEAR(DirectionDifference(station.Targets[1].Direction.Value, station.Targets[0].Direction.Value),
                100, 1e-9);
    // The circle drifted by 10 mgon between the rounds: C, seen in the second one only, is brought back to
    // the first.
    EXPECT_NEAR(station.Targets[0].Direction.Value, 10, 1e-9);
    EXPECT_NEAR(station.Targets[2].Direction.Value, 210, 1e-9);
}

TEST(ReduceBook, GivesMeansAndSpreadsOfZenithAnglesAndDistances) {
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 10, 99.9990, 50.001);
    Sight2(p1, "A", 10, 100.0010, 50.003);
    const TotalResult result = Reduce({p1});
    const TargetResult& a = result.Stations[0].Targets[0];
    EXPECT_NEAR(a.Zenith->Value, 100, 1e-9);
    EXPECT_NEAR(*a.Zenith->SetDeviation, 0.001 * std::sqrt(2), 1e-9);
    EXPECT_NEAR(*a.Zenith->MeanDeviation, 0.001, 1e-9);
    EXPECT_NEAR(a.Distance->Value, 50.002, 1e-9);
    EXPECT_NEAR(*a.Distance->MeanDeviation, 0.001, 1e-9);
    EXPECT_NEAR(*result.Zenith.Mean, 0.001, 1e-9);
    EXPECT_NEAR(*result.Distance.Set, 0.001 * std::sqrt(2), 1e-9);
}

TEST(ReduceBook, HasNoSpreadOfASingleSet) {
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 10, 100, 50);
    const TotalResult result = Reduce({p1});
    EXPECT_FALSE(result.Stations[0].Targets[0].Zenith->SetDeviation);
    EXPECT_FALSE(result.Stations[0].DirectionDeviation);
    EXPECT_FALSE(result.Direction.Set);
}

TEST(ReduceBook, OrientsASecondSetUpOnTheFirst) {
    StationSetUp first = Station("P1");
    Sight2(first, "A", 10, 100, 50);
    Sight2(first, "B", 110, 100, 60);
    StationSetUp second = Station("P1");
    Sight2(second, "B", 33, 100, 60, {1.6, 1.6});
    Sight2(second, "C", 83, 100, 70, {1.6, 1.6});
    const TotalResult result = Reduce({first, Station("P2"), second});
    ASSERT_EQ(result.Stations.size(), 2U);
    const StationResult& station = result.Stations[0];
    ASSERT_EQ(station.SetUps.size(), 2U);
    EXPECT_TRUE(station.SetUps[1].Used);
    ASSERT_EQ(station.Targets.size(), 3U);
    EXPECT_NEAR(station.Targets[1].Direction.Value, 110, 1e-9);
    EXPECT_EQ(station.Targets[1].Sets.size(), 2U);
    EXPECT_NEAR(station.Targets[2].Direction.Value, 160, 1e-9);
    EXPECT_EQ(Warnings(result), "");
}

TEST(ReduceBook, LeavesOutASecondSetUpWithoutACommonTarget) {
    StationSetUp first = Station("P1");
    Sight2(first, "A", 10, 100, 50);
    StationSetUp second = Station("P1");
    Sight2(second, "C", 83, 100, 70);
    const TotalResult result = Reduce({first, second});
    EXPECT_EQ(result.Stations[0].Targets.size(), 1U);
    EXPECT_FALSE(result.Stations[0].SetUps[1].Used);
    EXPECT_THAT(Warnings(result), HasSubstr("shares no target with those before, its 2 sights are left out"));
}

TEST(ReduceBook, LeavesOutASecondSetUpWhoseTargetsContradict) {
    StationSetUp first = Station("P1");
    Sight2(first, "A", 10, 100, 50);
    Sight2(first, "B", 110, 100, 60);
    StationSetUp second = Station("P1");
    Sight2(second, "A", 20, 100, 50);
    Sight2(second, "B", 90, 100, 60);
    const TotalResult result = Reduce({first, second});
    EXPECT_EQ(result.Stations[0].Targets[0].Sets.size(), 1U);
    EXPECT_THAT(Warnings(result), HasSubstr("does not fit those before"));
}

TEST(ReduceBook, LeavesOutTheOneCommonTargetThatDoesNotFit) {
    StationSetUp first = Station("P1");
    Sight2(first, "A", 10, 100, 50);
    Sight2(first, "B", 110, 100, 60);
    Sight2(first, "C", 210, 100, 60);
    StationSetUp second = Station("P1");
    Sight2(second, "A", 0, 100, 50);
    Sight2(second, "B", 105, 100, 60);
    Sight2(second, "C", 200, 100, 60);
    const TotalResult result = Reduce({first, second});
    EXPECT_EQ(result.Stations[0].Targets[0].Sets.size(), 2U);
    EXPECT_EQ(result.Stations[0].Targets[1].Sets.size(), 1U);
    EXPECT_EQ(result.Stations[0].Targets[2].Sets.size(), 2U);
    EXPECT_THAT(Warnings(result), HasSubstr("B from P1 does not fit the earlier set-up"));
}

TEST(ReduceBook, ReducesASetWithoutDistanceByTheTargetsOthers) {
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 10, 100, 50, {1.5, 1.2});
    Sight2(p1, "A", 10, 100, std::nullopt, {1.5, 1.2});
    const TotalResult result = Reduce({p1});
    const TargetResult& a = result.Stations[0].Targets[0];
    EXPECT_EQ(a.Zenith->Count, 2);
    EXPECT_EQ(a.Distance->Count, 1);
    EXPECT_NEAR(*a.Zenith->SetDeviation, 0, 1e-12);
}

TEST(ReduceBook, NamesWhatCannotBeReducedToTheMarks) {
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 10, 100, std::nullopt, {1.5, 1.2});
    Sight2(p1, "B", 20, 100, std::nullopt, {1.5, 1.5});
    Sight2(p1, "C", 30, 100, 50);
    const TotalResult result = Reduce({p1});
    EXPECT_THAT(ResultLines(result), ElementsAre(HasSubstr("C")));
    EXPECT_EQ(Warnings(result),
              "P1 to A: no distance and unequal heights, cannot be reduced to the marks\n"
              "P1 to B: no distance, not in the result file\n");
}

TEST(ReduceBook, NeedsNoDistanceForAnglesBetweenEqualHeights) {
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 10, 100, std::nullopt, {1.5, 1.2});
    Sight2(p1, "B", 20, 100, std::nullopt, {1.5, 1.5});
    const TotalResult result = Reduce({p1}, ResultKind::Angle);
    EXPECT_THAT(ResultLines(result, ResultKind::Angle),
                ElementsAre("P1               B                   20.000000   100.000000"));
    EXPECT_EQ(Warnings(result), "P1 to A: no distance and unequal heights, cannot be reduced to the marks\n");
}

TEST(ReduceBook, NamesANameLongerThanTheDatabaseHolds) {
    StationSetUp p1 = Station("P1");
    Sight2(p1, "NINECHARS", 10, 100, 50);
    Sight2(p1, "EIGHTCHR", 20, 100, 50);
    EXPECT_THAT(Warnings(Reduce({p1})),
                testing::AllOf(HasSubstr("NINECHARS"), testing::Not(HasSubstr("EIGHTCHR"))));
}

TEST(ReduceBook, ComparesLinesMeasuredFromBothEnds) {
    StationSetUp p1 = Station("P1");
    Sight2(p1, "P2", 10, 100, 50.002);
    StationSetUp p2 = Station("P2");
    Sight2(p2, "P1", 10, 100, 50.000);
    const TotalResult result = Reduce({p1, p2});
    ASSERT_EQ(result.Lines.size(), 1U);
    EXPECT_EQ(result.Lines[0].From, "P1");
    EXPECT_EQ(result.Lines[0].To, "P2");
    EXPECT_NEAR(result.Lines[0].DistanceDifference, 0.002, 1e-9);
    EXPECT_NEAR(result.Lines[0].HeightSum, 0, 1e-9);
    EXPECT_NEAR(*result.LineDeviation, 0.002 / std::sqrt(2), 1e-9);
}

TEST(ResultLines, AreTheResultFileByteForByte) {
    StationSetUp p1 = Station("BP04");
    Sight2(p1, "BP03", 169.01313, 99.5, 29.462);
    Sight2(p1, "A", 0, 100, 5);
    const TotalResult result = Reduce({p1});
    EXPECT_THAT(ResultLines(result),
                ElementsAre("BP04             BP03               169.013130    99.500000     29.46200",
                            "BP04             A                    0.000000   100.000000      5.00000"));
    EXPECT_THAT(ResultLines(result, ResultKind::Distance),
                ElementsAre("BP04             BP03                 29.46200",
                            "BP04             A                     5.00000"));
}

TEST(ResultLines, WriteADirectionThatRoundsToTheFullCircleAsZero) {
    StationSetUp p1 = Station("P1");
    Sight2(p1, "A", 399.9999999, 100, 50);
    EXPECT_THAT(ResultLines(Reduce({p1})),
                ElementsAre("P1               A                    0.000000   100.000000     50.00000"));
}

TEST(ReduceBook, TakesManyTargetsAndRounds) {
    StationSetUp p1 = Station("P1");
    for (int round = 0; round < 20; ++round)
        for (int target = 0; target < 500; ++target)
            Sight2(p1, "T" + std::to_string(target), target * 0.7, 100, 50);
    const TotalResult result = Reduce({p1});
    EXPECT_EQ(result.Stations[0].Targets.size(), 500U);
    EXPECT_EQ(result.Stations[0].Rounds, 20);
    EXPECT_NEAR(*result.Stations[0].DirectionDeviation, 0, 1e-9);
}

}  // namespace
}  // namespace Dorvane
