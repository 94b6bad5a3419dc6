// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CoordinateSources.h"

#include "input/GatherData.h"
#include "input/TreeFolders.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

const std::string North = "D:\\TARVEX\\COORD\\NORTH\\";
const std::string South = "D:\\TARVEX\\COORD\\SOUTH\\";

class CoordinateSources : public InputSite {
  protected:
    void AddPoints(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            Points.Add({.Name = name});
            Names.Add(name);
        }
    }

    void Update() { UpdateCoordData(Points, Names, Selection, Database.Maker()); }

    List1<ObsPoint> Points;
    List1<std::string> Names;
    CoordSelection Selection;
};

TEST_F(CoordinateSources, TheFirstFileAndTheFirstLineOfANameWin) {
    PutLines("D:\\A.TXT", {"P1 1 1 1", "P1 2 2 2", "P9 9 9 9"});
    PutLines("D:\\B.TXT", {"P1 3 3 3", "P2 4 5 6"});
    AddPoints({"P2", "P1", "P3"});
    Selection.UserFiles = {"D:\\A.TXT", "D:\\B.TXT"};
    Update();
    EXPECT_EQ(Points[1].X, 4);
    EXPECT_EQ(Points[1].Y, 5);
    EXPECT_EQ(Points[1].Z, 6);
    EXPECT_EQ(Points[1].CoordSource, 3);
    EXPECT_EQ(Points[2].X, 1);
    EXPECT_EQ(Points[3].CoordSource, 0);
    EXPECT_EQ(Points.Count(), 3);
}

TEST_F(CoordinateSources, ABddFileGivesSourceFourAndItsExtraValues) {
    PutLines("D:\\a.bdd", {"", "BIAS", "P1 1 2 600 4 5 6"});
    AddPoints({"P1"});
    Selection.UserFiles = {"D:\\a.bdd"};
    Update();
    EXPECT_EQ(Points[1].CoordSource, 4);
    EXPECT_EQ(Points[1].Extra1, 4);
    EXPECT_EQ(Points[1].Extra2, 5);
    EXPECT_EQ(Points[1].Extra3, 6);
}

TEST_F(CoordinateSources, AFailedFileIsNotUsedAndTheNextOneIs) {
    PutLines("D:\\A.TXT", {"P1 1 1 1", "P2"});
    PutLines("D:\\B.TXT", {"P1 3 3 3"});
    AddPoints({"P1"});
    Selection.UserFiles = {"D:\\A.TXT", "D:\\B.TXT"};
    Desktop.ExpectMessage("Problem Reading File", "Problem reading from A.TXT!");
    Update();
    EXPECT_EQ(Points[1].X, 3);
}

TEST_F(CoordinateSources, TheDatabaseIsAskedForTheNamesThatNoFileHolds) {
    PutLines("D:\\A.TXT", {"P2 1 1 1"});
    AddPoints({"P1", "P2", "P3"});
    Selection.UserFiles = {"D:\\A.TXT"};
    Selection.Locations = {"DAM\\NORTH"};
    Selection.Types = {3};
    Database.Answers[{North, 3}] = {{"P2 ", 7, 7, 7, 7, 7}, {" P3", 1.5, 2.5, 3.5, 4.5, 5.5}};
    Update();
    ASSERT_EQ(Database.Requests.size(), 1u);
    EXPECT_EQ(Database.Requests[0], (FakeDatabase::Request{North, 3, {"2", "P1", "P3"}, 0}));
    EXPECT_EQ(Points[3].X, 1.5);
    EXPECT_EQ(Points[3].Y, 2.5);
    EXPECT_EQ(Points[3].Z, 3.5);
    EXPECT_EQ(Points[3].Extra1, 4.5);
    EXPECT_EQ(Points[3].Extra2, 5.5);
    EXPECT_EQ(Points[3].CoordSource, 3);
}

TEST_F(CoordinateSources, TheLastLocationAndTypeThatAnswersWins) {
    AddPoints({"P1", "P2"});
    Selection.Locations = {"DAM\\NORTH", "DAM\\SOUTH"};
    Selection.Types = {3, 4};
    Database.Answers[{North, 3}] = {{"P1", 1, 0, 0, 0, 0}};
    Database.Answers[{North, 4}] = {{"P1", 2, 0, 0, 0, 0}, {"P2", 2, 0, 0, 0, 0}};
    Database.Answers[{South, 3}] = {{"P1", 3, 0, 0, 0, 0}};
    Update();
    EXPECT_EQ(Points[1].X, 3);
    EXPECT_EQ(Points[1].CoordSource, 3);
    EXPECT_EQ(Points[2].X, 2);
    EXPECT_EQ(Points[2].CoordSource, 4);
    EXPECT_EQ(Database.Made, 4);
    ASSERT_EQ(Database.Requests.size(), 4u);
    EXPECT_EQ(Database.Requests[1].Folder, North);
    EXPECT_EQ(Database.Requests[1].TypeCode, 4);
    EXPECT_EQ(Database.Requests[2].Folder, South);
}

TEST_F(CoordinateSources, AFailureOfTheDatabaseIsRetriedWithAFreshOne) {
    AddPoints({"P1"});
    Selection.Locations = {"DAM\\NORTH"};
    Selection.Types = {3};
    Database.Answers[{North, 3}] = {{"P1", 1, 0, 0, 0, 0}};
    Database.Failures = 1;
    Desktop.ExpectMessageTitled("Program Error", Answer::Retry);
    Update();
    EXPECT_EQ(LastReport(Desktop), "57 Dorvane-basInput-UpdateCoordData");
    EXPECT_EQ(Points[1].X, 1);
    EXPECT_EQ(Database.Made, 2);
}

TEST_F(CoordinateSources, AFailureGivenUpLeavesTheRest) {
    AddPoints({"P1"});
    Selection.Locations = {"DAM\\NORTH", "DAM\\SOUTH"};
    Selection.Types = {3};
    Database.Failures = 1;
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    Update();
    EXPECT_EQ(Database.Requests.size(), 1u);
}

TEST_F(CoordinateSources, MoreFilePointsThanAListHoldsAreReportedAndTheFormerStay) {
    List1<ObsPoint> list;
    list.Resize(32767);
    Desktop.ExpectMessageTitled("Program Error");
    AppendIdealData(list, {{.Name = "P1"}}, 1);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basInput-AppendIdealData");
    EXPECT_EQ(list.Count(), 32767);
}

TEST_F(CoordinateSources, SelectionsAreCollectedInTheOrderOfTheLists) {
    PutProfile("dv_input.ini", {"[User Database]", "Names1=D:\\A.TXT 1", "Names2=D:\\B.TXT 0",
                                "Names3=", "Names4=D:\\MY FILES\\C.TXT 1", "Names16=d:\\d.bdd 1"});
    InputScreen screen = OpenScreen({Located("NORTH"), Located("SOUTH")});
    screen.lstCoordDirectorys[0].Selected = true;
    screen.lstCoordDirectorys[1].Selected = true;
    screen.lstCoordDirectorys[2].Selected = true;
    screen.lstCoordTypes[3].Selected = true;
    screen.lstCoordTypes[1].Selected = true;
    const CoordSelection selection = CollectCoordSelection(screen);
    EXPECT_EQ(selection.UserFiles, (List1<std::string>{"D:\\A.TXT", "D:\\D.BDD"}));
    EXPECT_EQ(selection.Locations, (List1<std::string>{"DAM\\NORTH", "DAM\\SOUTH"}));
    EXPECT_EQ(selection.Types, (List1<std::int16_t>{2, 4}));
}

TEST_F(CoordinateSources, WithoutUserDefinedTheUserFilesAreNotRead) {
    PutProfile("dv_input.ini", {"[User Database]", "Names1=D:\\A.TXT 1"});
    InputScreen screen = OpenScreen({Located("NORTH")});
    screen.lstCoordDirectorys[1].Selected = true;
    EXPECT_TRUE(CollectCoordSelection(screen).UserFiles.Empty());
}

TEST_F(CoordinateSources, WithoutALocationNoTypeCounts) {
    InputScreen screen = OpenScreen();
    screen.lstCoordDirectorys[0].Selected = true;
    screen.lstCoordTypes[0].Selected = true;
    screen.lstCoordTypes[1].Selected = true;
    EXPECT_TRUE(CollectCoordSelection(screen).Types.Empty());
}

TEST_F(CoordinateSources, MoreTypesThanLocationsAreASubscriptFailure) {
    PutProfiles();
    InputScreen screen = OpenScreen({Located("NORTH")});
    screen.lstCoordDirectorys[1].Selected = true;
    screen.lstCoordTypes[0].Selected = true;
    screen.lstCoordTypes[1].Selected = true;
    Desktop.ExpectMessageTitled("Program Error");
    GatherData(screen, Services());
    EXPECT_EQ(LastReport(Desktop), "9 Dorvane-frmInput-GatherData");
    EXPECT_EQ(Database.Made, 0);
}

TEST_F(CoordinateSources, WithNothingSelectedAllPointsStayInNameForm) {
    PutProfiles();
    PutLines("D:\\ONE\\LEVEL.RES", {"A B 1"});
    InputScreen screen = OpenScreen({Located("NORTH")});
    screen.lstCoordTypes[0].Selected = true;
    AddTreeFolder(screen.trvInput, "Levelling", "D:\\ONE\\");
    GatherData(screen, Services());
    EXPECT_EQ(Database.Made, 0);
    EXPECT_EQ(screen.Model.Points[1].CoordSource, 0);
}

TEST_F(CoordinateSources, GatherDataGivesThePointsTheirCoordinates) {
    PutProfiles();
    PutLines("D:\\ONE\\LEVEL.RES", {"A B 1"});
    InputScreen screen = OpenScreen({Located("NORTH")});
    screen.lstCoordDirectorys[1].Selected = true;
    screen.lstCoordTypes[2].Selected = true;
    AddTreeFolder(screen.trvInput, "Levelling", "D:\\ONE\\");
    Database.Answers[{North, 1}] = {{"B", 0, 0, 12.5, 0, 0}};
    GatherData(screen, Services());
    EXPECT_EQ(screen.Model.Points[1].CoordSource, 0);
    EXPECT_EQ(screen.Model.Points[2].CoordSource, 1);
    EXPECT_EQ(screen.Model.Points[2].Z, 12.5);
}

}  // namespace
}  // namespace Dorvane::Testing
