// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputTypes.h"

#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

class InputTypes : public InputSite {};

TEST_F(InputTypes, AreReadKindByKindInTheirFixedOrder) {
    PutProfile("dv_input.ini",
               {"[Offset]",   "Number=1",   "Name1=Offsets", "[Gyro]",      "Number=1",
                "Name1=Gyro", "[Distance]", "Number=1",      "Name1=Dist",  "[Angle]",
                "Number=1",   "Name1=Ang",  "[Height]",      "Number=1",    "Name1=Lev",
                "[Total]",    "Number=2",   "Name1=TotA",    "Icon1=a.bmp", "Location1=TOTAL ANGLES",
                "Name2=TotB", "[Tracker]",  "Number=1",      "Name1=Trk"});
    List1<InputType> types;
    ASSERT_EQ(ReadIniInputTypes(types), 8);
    std::vector<std::string> order;
    for (const InputType& type : types)
        order.push_back(type.Type + "/" + type.Name + "/" + std::to_string(type.Number));
    EXPECT_EQ(order, (std::vector<std::string>{"Tracker/Trk/1", "Total/TotA/1", "Total/TotB/2",
                                               "Height/Lev/1", "Angle/Ang/1", "Distance/Dist/1",
                                               "Gyro/Gyro/1", "Offset/Offsets/1"}));
    EXPECT_EQ(types[2].Icon, "a.bmp");
    EXPECT_EQ(types[2].Location, "TOTAL ANGLES");
}

TEST_F(InputTypes, AMissingOrEmptyKindGivesNoEntryAndNoArrays) {
    PutProfile("dv_input.ini", {"[Total]", "Number=0", "Name1=None", "[Height]", "Number=1", "Name1=Lev"});
    List1<InputType> types;
    EXPECT_EQ(ReadIniInputTypes(types), 1);
    ObservationModel model;
    model.TotalSets.Resize(3);
    EmptyModel(model);
    EXPECT_EQ(model.TotalSets.Count(), 0);
    EXPECT_EQ(model.TrackerSets.Count(), 0);
    EXPECT_EQ(model.HeightSets.Count(), 1);
}

TEST_F(InputTypes, NoProfileGivesNoTypes) {
    List1<InputType> types;
    EXPECT_EQ(ReadIniInputTypes(types), 0);
}

TEST_F(InputTypes, ANumberBeyondSixteenBitsIsReported) {
    PutProfile("dv_input.ini", {"[Total]", "Number=40000"});
    Desktop.ExpectMessageTitled("Program Error");
    List1<InputType> types;
    EXPECT_EQ(ReadIniInputTypes(types), 0);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basRead-ReadIniInputTypes");
}

TEST_F(InputTypes, ANumberBeyondAllNumbersIsReportedToo) {
    PutProfile("dv_input.ini", {"[Total]", "Number=1E999"});
    Desktop.ExpectMessageTitled("Program Error");
    List1<InputType> types;
    EXPECT_EQ(ReadIniInputTypes(types), 0);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basRead-ReadIniInputTypes");
}

TEST_F(InputTypes, ANegativeNumberGivesNoTypes) {
    for (const char* number : {"Number=-1", "Number=-40000", "Number=-1E999"}) {
        PutProfile("dv_input.ini", {"[Total]", number, "[Height]", "Number=1", "Name1=Lev"});
        List1<InputType> types;
        EXPECT_EQ(ReadIniInputTypes(types), 1) << number;
    }
}

TEST_F(InputTypes, InitObsArraysEmptiesFullSets) {
    PutProfiles();
    ObservationModel model;
    model.TrackerSets.Resize(1);
    model.TrackerSets[1].Resize(5);
    InitObsArrays(model.DistanceSets, model.AngleSets, model.TotalSets, model.TrackerSets, model.HeightSets);
    ASSERT_EQ(model.TrackerSets.Count(), 1);
    EXPECT_EQ(model.TrackerSets[1].Count(), 0);
    EXPECT_EQ(model.DistanceSets.Count(), 1);
    EXPECT_EQ(model.AngleSets.Count(), 1);
    EXPECT_EQ(model.TotalSets.Count(), 1);
    EXPECT_EQ(model.HeightSets.Count(), 1);
}

}  // namespace
}  // namespace Dorvane::Testing
