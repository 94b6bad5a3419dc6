// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/GatherData.h"

#include "input/TreeFolders.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

const std::string Folder = "D:\\TARVEX\\DAM\\NORTH\\ANGLES\\SRV1\\";

class GatherDataTest : public InputSite {
  protected:
    GatherDataTest() {
        PutProfiles();
        Screen = OpenScreen();
        MakeFolders(Folder);
    }

    void Add(const std::string& type, const std::string& folder = Folder) {
        AddTreeFolder(Screen.trvInput, type, folder);
    }

    void Gather() { EXPECT_TRUE(GatherData(Screen, Services())); }

    const ObservationModel& Model() const { return Screen.Model; }

    InputScreen Screen;
};

TEST_F(GatherDataTest, ReadsEachFolderUnderItsTypeInTreeOrder) {
    PutLines(Folder + "TOTAL.RES", {"ST1 P7 123.4567 99.1234 25.12345"});
    PutLines("D:\\TWO\\LEVEL.RES", {"A B -0.5"});
    Add("Levelling", "D:\\TWO\\");
    Add("Laser");
    Gather();
    ASSERT_EQ(Model().TrackerSets[1].Count(), 1);
    EXPECT_EQ(Model().TrackerSets[1][1].SDist, 25.12345);
    EXPECT_EQ(Model().TrackerSets[1][1].SDistError, 0.0001);
    ASSERT_EQ(Model().HeightSets[1].Count(), 1);
    EXPECT_EQ(Model().HeightSets[1][1].HDiff, -0.5);
    EXPECT_EQ(Status, (std::vector<std::string>{"Importing Laser data from " + Folder,
                                                "Importing Levelling data from D:\\TWO\\"}));
    EXPECT_EQ(Model().Points.Count(), 3);
    EXPECT_EQ(Model().Stations.Count(), 1);
}

TEST_F(GatherDataTest, YieldsToEventsOncePerFile) {
    PutLines(Folder + "TOTAL.RES", {"ST1 P7 123.4567 99.1234 25.12345"});
    PutLines("D:\\TWO\\LEVEL.RES", {"A B -0.5"});
    Add("Levelling", "D:\\TWO\\");
    Add("Laser");
    Gather();
    EXPECT_EQ(Desktop.Yields, 2);
}

TEST_F(GatherDataTest, TellsAFolderWithoutResultFilesAndGoesOn) {
    PutLines("D:\\TWO\\LEVEL.RES", {"A B -0.5"});
    Add("Laser");
    Add("Levelling", "D:\\TWO\\");
    Desktop.ExpectMessage("No Reduction File(s)", "No *.RES file(s) exist in the choosen directory " +
                                                      Folder + ".  Can not import any data.");
    Gather();
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
    EXPECT_EQ(Model().HeightSets[1].Count(), 1);
}

TEST_F(GatherDataTest, AFolderWithOtherResultFilesAddsNothingAndSaysNothing) {
    PutLines(Folder + "OTHER.RES", {"A B 1 2 3"});
    Add("Laser");
    Gather();
    EXPECT_EQ(Model().TrackerSets[1].Count(), 0);
    EXPECT_EQ(Model().Points.Count(), 0);
}

TEST_F(GatherDataTest, AnEmptyResultFileAddsNothingAndSaysNothing) {
    PutFile(Folder + "TOTAL.RES", "");
    Add("Laser");
    Gather();
    EXPECT_EQ(Model().TrackerSets[1].Count(), 0);
}

TEST_F(GatherDataTest, AnEmptyResultFileBehindAFullOneAddsNothing) {
    PutLines(Folder + "TOTAL.RES", {"ST1 P7 1 2 3"});
    PutFile("D:\\TWO\\TOTAL.RES", "");
    PutFile("D:\\TWO\\REDIR.RES", "");
    PutFile("D:\\TWO\\ZENITH.RES", "");
    Add("Laser");
    Add("Laser", "D:\\TWO\\");
    Add("Directions", "D:\\THREE\\");
    PutFile("D:\\THREE\\REDIR.RES", "");
    PutFile("D:\\THREE\\ZENITH.RES", "");
    Gather();
    EXPECT_EQ(Model().TrackerSets[1].Count(), 1);
    EXPECT_EQ(Model().AngleSets[1].Count(), 0);
    EXPECT_EQ(Model().Points[1].HangCount, 1);
}

// Two input types of each kind, all of which read what is put into their folders.
TEST_F(GatherDataTest, TwoEntriesOfAKindKeepTheirObservationsAndWeightsApart) {
    std::vector<std::string> lines = {"[TPS]", "3dResFile=TOTALRES TOTAL.RES"};
    for (const char* kind : {"Tracker", "Total", "Height", "Angle", "Distance"}) {
        const std::string name = kind;
        for (const std::string& line :
             {"[" + name + "]", std::string("Number=2"), "Name1=" + name + " A", "Name2=" + name + " B",
              std::string("Location1=TPS"), std::string("Location2=TPS"), std::string("HAngle1=0.1"),
              std::string("HAngle2=0.2"), std::string("ZAngle1=0.3"), std::string("ZAngle2=0.4"),
              std::string("SDist1=0.5"), std::string("SDist2=0.6"), std::string("HDiff1=0.7"),
              std::string("HDiff2=0.8")})
            lines.push_back(line);
    }
    PutProfile("dv_input.ini", lines);
    Screen = OpenScreen();
    for (const char* kind : {"Tracker", "Total", "Height", "Angle", "Distance"}) {
        for (const char* entry : {"A", "B"}) {
            const std::string folder = std::string("D:\\") + kind + entry + "\\";
            PutLines(folder + "TOTAL.RES", {std::string("S ") + entry + " 1 2 3"});
            Add(std::string(kind) + " " + entry, folder);
        }
    }
    Gather();
    const auto expect = [](const auto& sets, const auto& errorOf, double first, double second) {
        ASSERT_EQ(sets.Count(), 2);
        ASSERT_EQ(sets[1].Count(), 1);
        ASSERT_EQ(sets[2].Count(), 1);
        EXPECT_EQ(sets[1][1].Target, "A");
        EXPECT_EQ(sets[2][1].Target, "B");
        EXPECT_EQ(errorOf(sets[1][1]), first);
        EXPECT_EQ(errorOf(sets[2][1]), second);
    };
    expect(
        Model().TrackerSets, [](const auto& one) { return one.SDistError; }, 0.5, 0.6);
    expect(
        Model().TotalSets, [](const auto& one) { return one.HAngleError; }, 0.1, 0.2);
    expect(
        Model().HeightSets, [](const auto& one) { return one.HDiffError; }, 0.7, 0.8);
    expect(
        Model().AngleSets, [](const auto& one) { return one.ZAngleError; }, 0.3, 0.4);
    expect(
        Model().DistanceSets, [](const auto& one) { return one.DistError; }, 0.5, 0.6);
}

TEST_F(GatherDataTest, TakesTheFilesOfTheDimension) {
    PutLines(Folder + "LEVEL.RES", {"A B 1"});
    PutLines(Folder + "LEVEL1.RES", {"A B 2"});
    Add("Levelling");
    Screen.icmbDimension = 1;
    Gather();
    ASSERT_EQ(Model().HeightSets[1].Count(), 1);
    EXPECT_EQ(Model().HeightSets[1][1].HDiff, 2);
}

TEST_F(GatherDataTest, PairsAnglesWithDistancesForATotalType) {
    PutLines(Folder + "REDIR.RES", {"S", "P1 10", "P2 20", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"S", "P1 90", "P2 91", "QUIT"});
    PutLines(Folder + "DIST.RES", {"S P2 5.5", "S P1 4.5"});
    Add("Totalstation");
    Gather();
    const auto& set = Model().TotalSets[1];
    ASSERT_EQ(set.Count(), 2);
    EXPECT_EQ(set[1].Target, "P1");
    EXPECT_EQ(set[1].HAngle, 10);
    EXPECT_EQ(set[1].ZAngle, 90);
    EXPECT_EQ(set[1].SDist, 4.5);
    EXPECT_EQ(set[2].SDist, 5.5);
}

TEST_F(GatherDataTest, TellsLeftoversAndKeepsThePairs) {
    PutLines(Folder + "REDIR.RES", {"S", "P1 10", "P1 20", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"S", "P1 90", "P1 91", "QUIT"});
    PutLines(Folder + "DIST.RES", {"S P1 4.5"});
    Add("Totalstation");
    Desktop.ExpectMessage("Non Matching Data", "Distances and angles found that do not match.");
    Gather();
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
    EXPECT_EQ(Model().TotalSets[1].Count(), 1);
}

TEST_F(GatherDataTest, AnglesOfATotalTypeWithoutDistancesAreNotAppended) {
    PutLines(Folder + "REDIR.RES", {"S", "P1 10", "QUIT"});
    PutFile(Folder + "ZENITH.RES", "");
    Add("Totalstation");
    Gather();
    EXPECT_EQ(Model().TotalSets[1].Count(), 0);
    EXPECT_EQ(Model().Points.Count(), 0);
}

TEST_F(GatherDataTest, AnAngleTypeAppendsEveryAngleTwiceWhenBothFilesArePresent) {
    PutLines(Folder + "REDIR.RES", {"S", "P1 10", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"S", "P1 90", "QUIT"});
    Add("Directions");
    Gather();
    ASSERT_EQ(Model().AngleSets[1].Count(), 2);
    EXPECT_EQ(Model().AngleSets[1][2].HAngle, 10);
    EXPECT_EQ(Model().AngleSets[1][2].ZAngle, 90);
    EXPECT_EQ(Model().Points[1].HangCount, 2);
}

TEST_F(GatherDataTest, AnglesOfOneFolderAreNotPairedWithDistancesOfTheNext) {
    PutLines(Folder + "REDIR.RES", {"S", "P1 10", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"S", "P1 90", "QUIT"});
    PutLines("D:\\TWO\\DIST.RES", {"S P1 4.5"});
    Add("Totalstation");
    Add("Totalstation", "D:\\TWO\\");
    Gather();
    EXPECT_EQ(Model().TotalSets[1].Count(), 0);
    EXPECT_EQ(Model().Points.Count(), 0);
}

TEST_F(GatherDataTest, DistancesReadForATotalTypeClearTheCurrentCount) {
    PutLines(Folder + "TOTAL.RES", {"S P1 10 90 4.5"});
    PutLines(Folder + "DIST.RES", {"S P1 4.5"});
    Add("Totalstation");
    Gather();
    EXPECT_EQ(Model().TotalSets[1].Count(), 1);
}

TEST_F(GatherDataTest, AnglesReadForATotalTypeClearTheCurrentCount) {
    PutLines(Folder + "TOTAL.RES", {"S P1 10 90 4.5"});
    PutLines(Folder + "REDIR.RES", {"S", "P1 10", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"S", "P1 90", "QUIT"});
    Add("Totalstation");
    Gather();
    EXPECT_EQ(Model().TotalSets[1].Count(), 1);
}

TEST_F(GatherDataTest, ACombinationMadeAtTheAngleFileIsAppendedASecondTime) {
    PutProfile("dv_datatype.ini", {"[Data Types]", "Epochs=DIST ANGLES"});
    PutProfile("dv_input.ini",
               {"[Total]", "Number=1", "Name1=Totalstation", "Location1=DIST ANGLES", "[ANGLES]",
                "3dResFile=ANGLERES REDIR.RES ZENITH.RES", "[DIST]", "3dResFile=DISTANCERES DIST.RES"});
    Screen = OpenScreen();
    PutLines(Folder + "REDIR.RES", {"S", "P1 10", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"S", "P1 90", "QUIT"});
    PutLines(Folder + "DIST.RES", {"S P1 4.5"});
    Add("Totalstation");
    Gather();
    EXPECT_EQ(Model().TotalSets[1].Count(), 2);
}

TEST_F(GatherDataTest, TheCurrentRecordsPassOnToTheNextFolder) {
    // An entry with an unknown keyword reads nothing, and so appends what was read last, wherever that was.
    PutProfile("dv_datatype.ini", {"[Data Types]", "Epochs=LEVEL ODD"});
    PutProfile("dv_input.ini",
               {"[Height]", "Number=2", "Name1=Levelling", "Location1=LEVEL", "Name2=Odd", "Location2=ODD",
                "[LEVEL]", "3dResFile=LEVELRES LEVEL.RES", "[ODD]", "3dResFile=ODDRES ODD.RES"});
    Screen = OpenScreen();
    PutLines(Folder + "LEVEL.RES", {"A B 1", "B C 2"});
    PutLines("D:\\TWO\\ODD.RES", {"X Y 1"});
    Add("Levelling");
    Add("Odd", "D:\\TWO\\");
    Gather();
    EXPECT_EQ(Model().HeightSets[1].Count(), 2);
    EXPECT_EQ(Model().HeightSets[2].Count(), 2);
}

TEST_F(GatherDataTest, AnAngleEntryWithOneFileWordIsReportedAndReadsNothing) {
    PutProfile("dv_input.ini", {"[Angle]", "Number=1", "Name1=Directions", "Location1=ANGLES", "[ANGLES]",
                                "3dResFile=ANGLERES REDIR.RES"});
    Screen = OpenScreen();
    PutLines(Folder + "REDIR.RES", {"S", "P1 10", "QUIT"});
    Add("Directions");
    Desktop.ExpectMessageTitled("Program Error");
    Gather();
    EXPECT_EQ(LastReport(Desktop), "9 Dorvane-frmInput-GatherData");
    EXPECT_EQ(Model().AngleSets[1].Count(), 0);
}

TEST_F(GatherDataTest, EveryLocationWordIsProcessedWhereverTheFolderLies) {
    PutProfile("dv_input.ini", {"[Height]", "Number=1", "Name1=Levelling", "Location1=LEVEL DIST", "[LEVEL]",
                                "3dResFile=LEVELRES LEVEL.RES", "[DIST]", "3dResFile=LEVELRES DIST.RES"});
    Screen = OpenScreen();
    PutLines(Folder + "LEVEL.RES", {"A B 1"});
    PutLines(Folder + "DIST.RES", {"C D 2"});
    Add("Levelling");
    Gather();
    EXPECT_EQ(Model().HeightSets[1].Count(), 2);
}

TEST_F(GatherDataTest, ATypeWithoutALocationImportsNothingAndSaysNothing) {
    PutProfile("dv_input.ini", {"[Height]", "Number=1", "Name1=Levelling"});
    Screen = OpenScreen();
    PutLines(Folder + "LEVEL.RES", {"A B 1"});
    Add("Levelling");
    Gather();
    EXPECT_EQ(Model().HeightSets[1].Count(), 0);
}

TEST_F(GatherDataTest, GyroAndOffsetFoldersAreReadAndAppendNothing) {
    PutProfile("dv_input.ini", {"[Gyro]", "Number=1", "Name1=Gyro", "Location1=LEVEL", "[LEVEL]",
                                "3dResFile=LEVELRES LEVEL.RES"});
    Screen = OpenScreen();
    PutLines(Folder + "LEVEL.RES", {"A B 1"});
    Add("Gyro");
    Gather();
    EXPECT_EQ(Model().Points.Count(), 0);
}

TEST_F(GatherDataTest, AFormatErrorInOneFileDoesNotStopTheRun) {
    PutLines(Folder + "TOTAL.RES", {"A B"});
    PutLines("D:\\TWO\\LEVEL.RES", {"A B 1"});
    Add("Laser");
    Add("Levelling", "D:\\TWO\\");
    Desktop.ExpectMessageTitled("Format Error");
    Gather();
    EXPECT_EQ(Model().TrackerSets[1].Count(), 0);
    EXPECT_EQ(Model().HeightSets[1].Count(), 1);
}

TEST_F(GatherDataTest, ObservationsPastTheLargestCountEndInTheReportedOverflow) {
    std::string content;
    for (int i = 0; i < 20000; ++i)
        content += "S P 1\r\n";
    PutFile(Folder + "LEVEL.RES", content);
    PutFile("D:\\TWO\\LEVEL.RES", content);
    Add("Levelling");
    Add("Levelling", "D:\\TWO\\");
    Desktop.ExpectMessageTitled("Program Error");
    Gather();
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basInput-AppendHeightObs");
    EXPECT_EQ(Model().HeightSets[1].Count(), 20000);
}

}  // namespace
}  // namespace Dorvane::Testing
