// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/Weights.h"

#include <cmath>

#include "input/InputTypes.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

class Weights : public InputSite {
  protected:
    void Read() {
        ReadIniWeights(Model.DistanceWeights, Model.AngleWeights, Model.TotalWeights, Model.TrackerWeights,
                       Model.HeightWeights);
    }

    ObservationModel Model;
};

TEST_F(Weights, AreReadFromTheirKeysByNumber) {
    PutProfile("dv_input.ini",
               {"[Tracker]",  "Number=1",    "HAngle1=1",   "ZAngle1=2",    "SDist1=3",    "LHAngle1=4",
                "LZAngle1=5", "LinAngle1=1", "[Total]",     "Number=1",     "HAngle1=6",   "ZAngle1=7",
                "SDist1=8",   "HDist1=9",    "LHAngle1=10", "LZAngle1=11",  "LinAngle1=0", "[Angle]",
                "Number=1",   "HAngle1=12",  "ZAngle1=13",  "[Distance]",   "Number=1",    "SDist1=14",
                "HDist1=15",  "[Height]",    "Number=1",    "HDiff1=1.6E-4"});
    Read();
    const TrackerWeight& tracker = Model.TrackerWeights[1];
    EXPECT_EQ(tracker.HAngle, 1);
    EXPECT_EQ(tracker.ZAngle, 2);
    EXPECT_EQ(tracker.SDist, 3);
    EXPECT_EQ(tracker.LHAngle, 4);
    EXPECT_EQ(tracker.LZAngle, 5);
    EXPECT_EQ(tracker.LinAngle, 1);
    const TotalWeight& total = Model.TotalWeights[1];
    EXPECT_EQ(total.HAngle, 6);
    EXPECT_EQ(total.ZAngle, 7);
    EXPECT_EQ(total.SDist, 8);
    EXPECT_EQ(total.HDist, 9);
    EXPECT_EQ(total.LHAngle, 10);
    EXPECT_EQ(total.LZAngle, 11);
    EXPECT_EQ(total.LinAngle, 0);
    EXPECT_EQ(Model.AngleWeights[1].HAngle, 12);
    EXPECT_EQ(Model.AngleWeights[1].ZAngle, 13);
    EXPECT_EQ(Model.DistanceWeights[1].SDist, 14);
    EXPECT_EQ(Model.DistanceWeights[1].HDist, 15);
    EXPECT_EQ(Model.HeightWeights[1].HDiff, 1.6E-4);
}

TEST_F(Weights, TwoEntriesOfAKindKeepSeparateWeights) {
    PutProfile("dv_input.ini", {"[Distance]", "Number=2", "SDist1=0.001", "SDist2=0.002"});
    Read();
    ASSERT_EQ(Model.DistanceWeights.Count(), 2);
    EXPECT_EQ(Model.DistanceWeights[1].SDist, 0.001);
    EXPECT_EQ(Model.DistanceWeights[2].SDist, 0.002);
}

TEST_F(Weights, AnAbsentValueIsZero) {
    PutProfile("dv_input.ini", {"[Height]", "Number=1"});
    Read();
    ASSERT_EQ(Model.HeightWeights.Count(), 1);
    EXPECT_EQ(Model.HeightWeights[1].HDiff, 0);
}

TEST_F(Weights, AKindWithoutTypesLeavesItsArrayAlone) {
    PutProfile("dv_input.ini", {"[Height]", "Number=0"});
    Model.HeightWeights.Add({0.5});
    Model.AngleWeights.Add({0.25, 0.75});
    Read();
    ASSERT_EQ(Model.HeightWeights.Count(), 1);
    EXPECT_EQ(Model.HeightWeights[1].HDiff, 0.5);
    EXPECT_EQ(Model.AngleWeights.Count(), 1);
}

TEST_F(Weights, ATextThatIsNoNumberIsReported) {
    PutProfile("dv_input.ini", {"[Angle]", "Number=1", "HAngle1=0.5gon", "ZAngle1=2"});
    Desktop.ExpectMessageTitled("Program Error");
    Read();
    EXPECT_EQ(LastReport(Desktop), "13 Dorvane-basRead-ReadIniWeights");
}

TEST_F(Weights, AnEmptyTextIsReportedWhereAnAbsentKeyIsZero) {
    PutProfile("dv_input.ini", {"[Height]", "Number=1", "HDiff1="});
    Desktop.ExpectMessageTitled("Program Error");
    Read();
    EXPECT_EQ(LastReport(Desktop), "13 Dorvane-basRead-ReadIniWeights");
    EXPECT_NE(Desktop.Shown[0].Text.find("[Height] HDiff1="), std::string::npos) << Desktop.Shown[0].Text;
}

TEST_F(Weights, OneThatIsNoNumberKeepsNoOtherFromBeingRead) {
    PutProfile("dv_input.ini", {"[Distance]", "Number=2", "SDist1=0,5", "SDist2=0.6", "[Angle]", "Number=1",
                                "HAngle1=?", "ZAngle1=0.7", "[Total]", "Number=1", "HAngle1=1", "[Tracker]",
                                "Number=1", "ZAngle1=2", "[Height]", "Number=1", "HDiff1=3"});
    Desktop.ExpectMessageTitled("Program Error");  // one for all
    Read();
    EXPECT_EQ(Model.DistanceWeights[2].SDist, 0.6);
    EXPECT_EQ(Model.AngleWeights[1].ZAngle, 0.7);
    EXPECT_EQ(Model.TotalWeights[1].HAngle, 1);
    EXPECT_EQ(Model.TrackerWeights[1].ZAngle, 2);
    EXPECT_EQ(Model.HeightWeights[1].HDiff, 3);
}

// Calls a weighting and tells the number of its error; 0 when there is none.
template <class Observation, class Weight>
int ErrorOf(Observation observation, const Weight& weight) {
    try {
        WeightAssignment(observation, weight);
        return 0;
    } catch (const RunTimeError& error) {
        return error.Number;
    }
}

TEST_F(Weights, OneThatIsNoNumberIsTakenByNoObservation) {
    PutProfile("dv_input.ini",
               {"[Distance]", "Number=1", "SDist1=x", "[Angle]", "Number=1", "ZAngle1=x", "[Total]",
                "Number=3", "SDist1=x", "LHAngle2=x", "LinAngle3=x", "[Height]", "Number=1", "HDiff1=x"});
    Desktop.ExpectMessageTitled("Program Error");
    Read();
    EXPECT_EQ(ErrorOf(DistanceObs(), Model.DistanceWeights[1]), TypeMismatch);
    EXPECT_EQ(ErrorOf(AngleObs(), Model.AngleWeights[1]), TypeMismatch);
    EXPECT_EQ(ErrorOf(HeightObs(), Model.HeightWeights[1]), TypeMismatch);
    EXPECT_EQ(ErrorOf(TotalObs(), Model.TotalWeights[1]), TypeMismatch);
    EXPECT_EQ(ErrorOf(TotalObs(), Model.TotalWeights[2]), 0);  // the linear error is not used
    EXPECT_EQ(ErrorOf(TotalObs(), Model.TotalWeights[3]), TypeMismatch);
}

TEST_F(Weights, AFlagThatIsNoNumberIsReportedToo) {
    PutProfile("dv_input.ini", {"[Total]", "Number=1", "LinAngle1=1x"});
    Desktop.ExpectMessageTitled("Program Error");
    Read();
    EXPECT_EQ(LastReport(Desktop), "13 Dorvane-basRead-ReadIniWeights");
}

TEST(WeightAssignment, ALinearErrorBecomesASmallAngleOnALongSight) {
    TrackerObs observation;
    observation.SDist = 100;
    WeightAssignment(observation, TrackerWeight{0.5, 0.6, 0.002, 0.001, 0.002, 1});
    EXPECT_NEAR(observation.HAngleError, 0.00064, 0.00001);
    EXPECT_EQ(observation.HAngleError, std::atan(0.001 / 100) * 200 / 3.141592654);
    EXPECT_EQ(observation.ZAngleError, std::atan(0.002 / 100) * 200 / 3.141592654);
    EXPECT_EQ(observation.SDistError, 0.002);
}

TEST(WeightAssignment, WithoutTheLinearFlagTheAnglesAreTakenAsTheyStand) {
    TotalObs observation;
    observation.SDist = 100;
    WeightAssignment(observation, TotalWeight{0.5, 0.6, 0.002, 0.9, 0.001, 0.002, 0});
    EXPECT_EQ(observation.HAngleError, 0.5);
    EXPECT_EQ(observation.ZAngleError, 0.6);
    EXPECT_EQ(observation.SDistError, 0.002);
}

TEST(WeightAssignment, ALinearErrorAtDistanceZeroIsADivisionByZero) {
    TotalObs observation;
    try {
        WeightAssignment(observation, TotalWeight{0, 0, 0, 0, 0.001, 0.001, 1});
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, DivisionByZero);
    }
}

TEST(WeightAssignment, AnglesDistancesAndHeightsTakeTheirOwnKinds) {
    AngleObs angle;
    WeightAssignment(angle, AngleWeight{0.1, 0.2});
    EXPECT_EQ(angle.HAngleError, 0.1);
    EXPECT_EQ(angle.ZAngleError, 0.2);
    DistanceObs distance;
    WeightAssignment(distance, DistanceWeight{0.3, 0.4});
    EXPECT_EQ(distance.DistError, 0.3);
    HeightObs height;
    WeightAssignment(height, HeightWeight{0.5});
    EXPECT_EQ(height.HDiffError, 0.5);
}

TEST_F(Weights, AChangeWeightsEveryObservationAnew) {
    PutProfiles();
    ReadIniInputTypes(Model.Types);
    Read();
    EmptyModel(Model);
    Model.TotalSets[1].Add({.Station = "S", .Target = "P", .SDist = 10});
    Model.HeightSets[1].Add({.Station = "A", .Target = "B", .HDiff = 1});
    ChangeObservationWeights(Model, [] {
        PutProfile("dv_input.ini", {"[Total]", "Number=1", "Name1=Totalstation", "HAngle1=7", "ZAngle1=8",
                                    "SDist1=9", "[Height]", "Number=1", "HDiff1=6"});
        return std::string();
    });
    EXPECT_EQ(Model.TotalSets[1][1].HAngleError, 7);
    EXPECT_EQ(Model.TotalSets[1][1].ZAngleError, 8);
    EXPECT_EQ(Model.TotalSets[1][1].SDistError, 9);
    EXPECT_EQ(Model.HeightSets[1][1].HDiffError, 6);
}

TEST_F(Weights, CancelChangesNothing) {
    PutProfiles();
    ReadIniInputTypes(Model.Types);
    Read();
    EmptyModel(Model);
    Model.HeightSets[1].Add({.Station = "A", .Target = "B", .HDiff = 1, .HDiffError = 5});
    ChangeObservationWeights(Model, [] { return std::string("0"); });
    EXPECT_EQ(Model.HeightSets[1][1].HDiffError, 5);
}

}  // namespace
}  // namespace Dorvane::Testing
