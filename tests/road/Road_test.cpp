// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <sstream>

#include "adjustment/OutputReader.h"
#include "adjustment/Package.h"
#include "adjustment/VarnRun.h"
#include "adjustment/basVarn.h"
#include "core/Drives.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "input/CoordinateFiles.h"
#include "programs/road/RoadWalk.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

namespace {

// Walks the road with the shipped program folder and field book, once for all tests of this process.
class RoadTest : public testing::Test {
  protected:
    static constexpr double LastDecimal = 0.00001;  // meters
    static constexpr const char* Project = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\";

    RoadTest() { setenv("DORVANE_DRIVES", (Site.HostFolder() + "site/drives").c_str(), 1); }
    ~RoadTest() override { unsetenv("DORVANE_DRIVES"); }

    bool Walk(const std::string& book = "") {
        return Road::WalkTheRoad(Site.HostFolder() + "site", book, DORVANE_FOLDER, Told);
    }

    TestSite Site;
    std::ostringstream Told;
};

}  // namespace

TEST_F(RoadTest, CarriesTheShippedFieldBookToCoordinatesAndIntoTheDatabase) {
    PutFile("D:\\site\\KEEP", "");
    ASSERT_TRUE(Walk()) << Told.str();
    const std::string told = Told.str();
    const std::string last = told.substr(told.rfind('\n', told.size() - 2) + 1);
    EXPECT_EQ(last.substr(0, 15), "ROAD COMPLETE: ") << last;

    const std::vector<std::string> files = AllFiles("D:\\");
    for (const char* name :
         {"TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.INP", "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.ORG",
          "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.SUM", "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.VER",
          "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.OUT", "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.DBS",
          "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.XYZ", "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.INU",
          "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.TRG", "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.STA",
          "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\FIRST.PAR", "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\SECOND.PAR",
          "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\SECOND.INP", "TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\SECOND.OUT",
          "TARVEX\\COORD\\NORTH\\3DIM.DAT", "TARVEX\\COORD\\NORTH\\Backup 3DIM.DAT"})
        EXPECT_TRUE(std::find(files.begin(), files.end(), name) != files.end()) << name;
    for (const std::string& file : files)
        EXPECT_EQ(file.find(".dv~"), std::string::npos) << "left behind: " << file;
}

TEST_F(RoadTest, BringsTheDatabaseTheCoordinatesOfTheListing) {
    ASSERT_TRUE(Walk()) << Told.str();
    ScriptedDesktop screen;
    List1<Dbs3DPoint> exported;
    std::string date;
    std::string project;
    std::string task;
    const std::int16_t count = ReadDbs3DFile(exported, Project, "FIRST.DBS", date, project, task);
    ASSERT_GT(count, 3);
    EXPECT_EQ(project, "ADJUST");
    EXPECT_EQ(task, "SRV01");
    const std::vector<std::string> input = FileLines(std::string(Project) + "SECOND.INP");
    for (const Dbs3DPoint& point : exported) {
        // A row of coordinates is followed by that of its errors, which no row of observations is.
        const auto row = std::adjacent_find(input.begin(), input.end(), [&](const auto& a, const auto& b) {
            return a.starts_with(point.Name + " ") && b.starts_with("                1.00E+03");
        });
        ASSERT_NE(row, input.end()) << point.Name << " has no coordinates";
        EXPECT_NEAR(LeadingNumber(Mid(*row, 10, 15)), point.X, LastDecimal) << *row;
        EXPECT_NEAR(LeadingNumber(Mid(*row, 25, 15)), point.Y, LastDecimal) << *row;
        EXPECT_NEAR(LeadingNumber(Mid(*row, 40, 15)), point.Z, LastDecimal) << *row;
        EXPECT_NE(point.X, 0) << point.Name;
    }
}

TEST_F(RoadTest, AllFourTypesOfTheRealPackageGiveResults) {
    ASSERT_TRUE(Walk()) << Told.str();
    ScriptedDesktop screen;
    std::vector<AdjustmentResults> results;
    for (int position = 1; position <= static_cast<int>(AdjustmentTypes.size()); ++position) {
        VarnState state;
        LoadVarn(state);
        ChangeInput(state, std::string(Project) + "FIRST.INP");
        state.cmbVarn.Selected = position;
        KrennPackage package;
        screen.ExpectMessage("Varn Successful", "Varn completed successfully!");
        RunVarn(state, package, VarnRunView());
        EXPECT_EQ(state.lblGoReturn, "0") << AdjustmentTypes[static_cast<std::size_t>(position) - 1].Text;
        AdjustmentResults result;
        ASSERT_EQ(ReadOutputFile(Project, "FIRST.OUT", result, true), 1)
            << AdjustmentTypes[static_cast<std::size_t>(position) - 1].Text;
        EXPECT_EQ(result.Stations.Count(), 4);
        EXPECT_EQ(result.Points.Count(), 8);
        EXPECT_EQ(result.HorizontalDirections.Count(), 34);
        EXPECT_EQ(result.VerticalDirections.Count(), 34);
        EXPECT_EQ(result.DistanceResiduals.Count(), 34);
        const bool inverts = AdjustmentTypes[static_cast<std::size_t>(position) - 1].Value == 1 ||
                             AdjustmentTypes[static_cast<std::size_t>(position) - 1].Value == 7;
        for (const AdjustedPoint& point : result.Points) {
            EXPECT_EQ(point.SX > 0, inverts) << point.Name;
            EXPECT_EQ(point.ErrorMajor > 0, inverts) << point.Name;
        }
        results.push_back(result);
    }
    // Types 0, 1 and 7 solve the same equations, so they print the same coordinates, and 1 and 7 the same
    // deviations.
    EXPECT_EQ(results[1], results[3]);
    for (int i = 1; i <= results[0].Points.Count(); ++i) {
        EXPECT_EQ(results[0].Points[i].X, results[1].Points[i].X);
        EXPECT_EQ(results[0].Points[i].Y, results[1].Points[i].Y);
        EXPECT_EQ(results[0].Points[i].Z, results[1].Points[i].Z);
        // The L1 norm weighs residuals differently, and ends within a few millimeters.
        EXPECT_NEAR(results[2].Points[i].X, results[1].Points[i].X, 0.005);
        EXPECT_NEAR(results[2].Points[i].Z, results[1].Points[i].Z, 0.010);
    }
}

TEST_F(RoadTest, CarriesALevellingBookToHeights) {
    ASSERT_TRUE(Walk(std::string(DORVANE_FOLDER) + "/samples/site/FIELD/DAM.LEV")) << Told.str();
    AdjustmentResults results;
    ScriptedDesktop screen;
    ASSERT_EQ(ReadOutputFile("D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\", "FIRST.OUT", results, true), 1);
    EXPECT_EQ(results.Stations.Count(), 0);
    EXPECT_GT(results.Points.Count(), 3);
    EXPECT_GT(results.HeightDifferences.Count(), 3);
    for (const AdjustedPoint& point : results.Points) {
        EXPECT_EQ(point.X, 0) << point.Name;
        EXPECT_GT(point.SZ, 0) << point.Name;
    }
}

TEST_F(RoadTest, TakesABookOfALongNameWithBlanksAndAccents) {
    Drives::CopyFile(Drives::DrivePath(std::string(DORVANE_FOLDER) + "/samples/site/FIELD/DAM.GSI"),
                     "D:\\Lev\xE9 du barrage 2026.v2.gsi");
    ASSERT_TRUE(Walk(Site.HostFolder() + "d:/Lev\xC3\xA9 du barrage 2026.v2.gsi")) << Told.str();
    EXPECT_TRUE(FileExists("D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV01\\LEV\xC9_DU_.GSI"));
}

TEST_F(RoadTest, TellsWhatBlocksIt) {
    EXPECT_FALSE(Walk(Site.HostFolder() + "none.GSI"));
    EXPECT_NE(Told.str().find("ROAD BLOCKED: there is no field book"), std::string::npos) << Told.str();
}

TEST_F(RoadTest, ABookWithoutASightIsNamedAndBlocksTheReduction) {
    PutFile("D:\\EMPTY.GSI", "this is no field book\r\n");
    EXPECT_FALSE(Walk(Site.HostFolder() + "d:/EMPTY.GSI"));
    EXPECT_NE(Told.str().find("TOTRED.EXE has left no results in "), std::string::npos) << Told.str();
    EXPECT_NE(Told.str().find("ROAD BLOCKED: the program left no results"), std::string::npos) << Told.str();
    const std::string errors = FileContent("D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV01\\TOTAL.ERR");
    EXPECT_NE(errors.find("EMPTY.GSI"), std::string::npos);
}

TEST_F(RoadTest, GoesSideBySideWithAnotherOnASiteOfItsOwn) {
    const std::string walk = DORVANE_FOLDER "/Programs/ROAD.EXE ";
    const std::string sites = Site.HostFolder();
    const std::string both = walk + sites + "one > " + sites + "one.txt & " + walk + sites + "two > " +
                             sites + "two.txt; second=$?; wait $!; exit $(($? + second))";
    EXPECT_EQ(std::system(both.c_str()), 0);
}

}  // namespace Dorvane
