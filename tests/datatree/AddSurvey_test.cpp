// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basGeneral.h"
#include "datatree/basTree.h"
#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

namespace {

class AddSurvey : public DataSite {
  protected:
    AddSurvey() {
        PutFile(Init("CHOICES.SYS"), "DAM      1 Main dam\r\n");
        PutFile(Init("DAM.STR"),
                "DAM      Main dam\r\n\r\nNORTH    North\r\n\r\nLEVEL    Levelling\r\nTOTAL    "
                "Total\r\n\r\nSRV12    Twelfth\r\n");
        Services.WriteSrvNew = [this](const std::string& folder, const std::string& name) {
            Indexes.push_back(folder + name);
            Drives::WriteFile(folder + name, "INDEX\r\n");
        };
        Services.WriteCoordNew = [this](const std::string& folder, const std::string& location) {
            CoordinateFiles.push_back(folder + "|" + location);
        };
        Services.Waiting.Show = [this](const std::string& text) { Waiting.push_back(text); };
        Services.Waiting.Close = [this] { Waiting.push_back("closed"); };
    }

    SurveyReport Add(const SurveyAnswer& survey) { return Dorvane::AddSurvey(survey, Services, Tree); }
    static bool Exists(std::string folder) { return FolderExists(folder); }

    SurveyServices Services;
    TreeModel Tree;
    std::vector<std::string> Indexes;
    std::vector<std::string> CoordinateFiles;
    std::vector<std::string> Waiting;
};

const SurveyAnswer TwoTypes{"DAM", "NORTH", "LEVEL TOTAL ", "SRV12", "First survey"};

}  // namespace

TEST_F(AddSurvey, RegistersTwoTypesOfOneEpoch) {
    Add(TwoTypes);
    EXPECT_EQ(FileContent(Init("DAM.PTH")),
              " *       DAM       NORTH     LEVEL     SRV12\r\n"
              " *       DAM       NORTH     TOTAL     SRV12\r\n");
    EXPECT_EQ(FileContent(Init("DAM.HIS")),
              "             DATA FILESYSTEM HISTORY\r\n"
              "\r\n"
              "Subdirectory                  Usage\r\n"
              "----------------------        ---------------------------\r\n"
              "DAM\\NORTH\\LEVEL\\SRV12\r\n"
              "    Created     11-20-26      First survey\r\n"
              "DAM\\NORTH\\TOTAL\\SRV12\r\n"
              "    Created     11-20-26      First survey\r\n");
}

TEST_F(AddSurvey, CompletesOneThatBrokeOffWithoutASecondLine) {
    Add(TwoTypes);
    const std::string registry = FileContent(Init("DAM.PTH"));
    const std::string history = FileContent(Init("DAM.HIS"));
    const SurveyReport again = Add(TwoTypes);
    EXPECT_EQ(FileContent(Init("DAM.PTH")), registry);
    EXPECT_EQ(FileContent(Init("DAM.HIS")), history);
    EXPECT_EQ(again.Found.front(), "2 lines in DAM.PTH");
    EXPECT_TRUE(again.Lacking.empty());

    // Broken off behind the second line of the registry, and behind the first.
    PutFile(Init("DAM.HIS"), history.substr(0, history.find("DAM\\NORTH\\TOTAL")));
    EXPECT_EQ(Add(TwoTypes).Made.front(), "2 lines in DAM.HIS");
    EXPECT_EQ(FileContent(Init("DAM.PTH")), registry);
    EXPECT_EQ(FileContent(Init("DAM.HIS")), history);
    PutFile(Init("DAM.PTH"), registry.substr(0, registry.size() / 2));
    PutFile(Init("DAM.HIS"), history.substr(0, history.find("DAM\\NORTH\\LEVEL")));
    EXPECT_TRUE(Add(TwoTypes).Lacking.empty());
    EXPECT_EQ(FileContent(Init("DAM.PTH")), registry);
    EXPECT_EQ(FileContent(Init("DAM.HIS")), history);
}

TEST_F(AddSurvey, ShowsNothingButItsFoldersWhereTheRegistriesEndInAnEndOfFileMark) {
    PutFile(Init("DAM.PTH"), " *       DAM       NORTH     LEVEL     SRV11\r\n\x1A");
    PutFile(Init("DAM.HIS"),
            "             DATA FILESYSTEM HISTORY\r\n"
            "\r\n"
            "Subdirectory                  Usage\r\n"
            "----------------------        ---------------------------\r\n"
            "DAM\\NORTH\\LEVEL\\SRV11\r\n"
            "    Created     11-19-26      Eleventh\r\n\x1A");
    Add({"DAM", "NORTH", "LEVEL ", "SRV12", "Twelfth"});
    std::vector<std::string> folders;
    for (const PathRecord& record : Global().PathRecords)
        folders.push_back(record.Type + "\\" + record.Epoch + " " + record.Created);
    EXPECT_EQ(folders, (std::vector<std::string>{"ADJUST\\SRV12 \?\?-\?\?-\?\?", "LEVEL\\SRV11 11-19-26",
                                                 "LEVEL\\SRV12 11-20-26"}));
}

TEST_F(AddSurvey, MakesTheFoldersTheirIndexesAndOneProjectFolder) {
    Add(TwoTypes);
    EXPECT_TRUE(Exists(Data("DAM\\NORTH\\LEVEL\\SRV12")));
    EXPECT_TRUE(Exists(Data("DAM\\NORTH\\TOTAL\\SRV12")));
    EXPECT_TRUE(Exists(Data("DAM\\NORTH\\ADJUST\\SRV12")));
    EXPECT_EQ(Indexes, (std::vector<std::string>{Data("DAM\\NORTH\\LEVEL\\SRV12\\SRV12.IDX"),
                                                 Data("DAM\\NORTH\\TOTAL\\SRV12\\SRV12.IDX")}));
}

TEST_F(AddSurvey, ReadsTheTreeAnewUnderAWaitingWindow) {
    Tree.Add({"OLD", "", "", "", "", false});
    Add(TwoTypes);
    EXPECT_EQ(Waiting, (std::vector<std::string>{"Updating Tarvex data folders.", "closed"}));
    EXPECT_EQ(Desk.Yields, 1);
    EXPECT_EQ(Global().PathRecords.Count(), 3);
    EXPECT_EQ(Tree.Find("OLD"), nullptr);
    ASSERT_NE(Tree.Find(Data("DAM\\NORTH\\TOTAL\\SRV12\\")), nullptr);
    EXPECT_EQ(Tree.Find(Data("DAM\\NORTH\\TOTAL\\SRV12\\"))->Caption, "Twelfth");
    EXPECT_NE(Tree.Find(Data("DAM\\NORTH\\ADJUST\\SRV12\\")), nullptr);
}

TEST_F(AddSurvey, KeepsAnExistingFolderAndItsIndex) {
    PutFile(Data("DAM\\NORTH\\LEVEL\\SRV12\\SRV12.IDX"), "KEPT");
    Add(TwoTypes);
    EXPECT_EQ(Indexes, (std::vector<std::string>{Data("DAM\\NORTH\\TOTAL\\SRV12\\SRV12.IDX")}));
    EXPECT_EQ(FileContent(Data("DAM\\NORTH\\LEVEL\\SRV12\\SRV12.IDX")), "KEPT");
}

TEST_F(AddSurvey, MakesTheCoordinateFilesOfALocationOnlyOnce) {
    Add(TwoTypes);
    Add({"DAM", "NORTH", "LEVEL ", "SRV13", "Second survey"});
    EXPECT_TRUE(Exists("D:\\TARVEX\\COORD\\NORTH"));
    EXPECT_EQ(CoordinateFiles, (std::vector<std::string>{"D:\\TARVEX\\COORD\\NORTH\\|NORTH"}));
}

TEST_F(AddSurvey, CompletesTheCoordinateFilesOfALocationWhoseMakingWasBrokenOff) {
    Add(TwoTypes);
    Services.LacksCoordFiles = [](const std::string& folder, const std::string& location) {
        return folder == "D:\\TARVEX\\COORD\\NORTH\\" && location == "NORTH";
    };
    Add({"DAM", "NORTH", "LEVEL ", "SRV13", "Second survey"});
    EXPECT_EQ(CoordinateFiles.size(), 2u);
}

TEST_F(AddSurvey, SharesTheCoordinateFilesOfALocationBetweenSystems) {
    Add(TwoTypes);
    Add({"WEIR", "NORTH", "LEVEL ", "SRV1", ""});
    EXPECT_EQ(CoordinateFiles.size(), 1u);
    EXPECT_TRUE(Exists(Data("WEIR\\NORTH\\LEVEL\\SRV1")));
}

TEST_F(AddSurvey, WritesAnEmptyUsageForAnEmptyHistory) {
    Add({"DAM", "NORTH", "LEVEL ", "SRV12", ""});
    EXPECT_EQ(FileLines(Init("DAM.HIS")).back(), "    Created     11-20-26      ");
}

TEST_F(AddSurvey, DoesNothingWithoutEachOfTheFourNames) {
    Add({"", "NORTH", "LEVEL ", "SRV12", "x"});
    Add({"DAM", "", "LEVEL ", "SRV12", "x"});
    Add({"DAM", "NORTH", "", "SRV12", "x"});
    Add({"DAM", "NORTH", "LEVEL ", "", "x"});
    EXPECT_EQ(AllFiles("D:\\TARVEX\\"), (std::vector<std::string>{"INIT\\CHOICES.SYS", "INIT\\DAM.STR"}));
    EXPECT_TRUE(Waiting.empty());
    EXPECT_TRUE(Tree.Nodes().empty());
}

TEST_F(AddSurvey, TellsWhatItMadeAndWhatItFound) {
    Services.WriteCoordNew = [](const std::string& folder, const std::string&) {
        PutFile(folder + "3DIM.DAT", "");
        PutFile(folder + "BENCH.DAT", "");
    };
    using Lines = std::vector<std::string>;
    const SurveyReport first = Add({"DAM", "NORTH", "LEVEL ", "SRV12", "x"});
    EXPECT_EQ(first.Made,
              (Lines{"1 line in DAM.PTH", "6 lines in DAM.HIS", "folder " + Data("DAM"),
                     "folder " + Data("DAM\\NORTH"), "folder " + Data("DAM\\NORTH\\LEVEL"),
                     "folder " + Data("DAM\\NORTH\\LEVEL\\SRV12"),
                     "index " + Data("DAM\\NORTH\\LEVEL\\SRV12\\SRV12.IDX"),
                     "folder " + Data("DAM\\NORTH\\ADJUST"), "folder " + Data("DAM\\NORTH\\ADJUST\\SRV12"),
                     "folder D:\\TARVEX\\COORD\\NORTH", "coordinate files 3DIM.DAT, BENCH.DAT"}));
    EXPECT_TRUE(first.Found.empty());
    EXPECT_TRUE(first.Lacking.empty());
    PutFile(Data("DAM\\NORTH\\TOTAL\\SRV12\\SRV12.IDX"), "KEPT");
    const SurveyReport second = Add({"DAM", "NORTH", "TOTAL ", "SRV12", "x"});
    EXPECT_EQ(second.Made, (Lines{"1 line in DAM.PTH", "2 lines in DAM.HIS"}));
    EXPECT_EQ(second.Found.size(), 9U);
    EXPECT_EQ(second.Found.back(), "coordinate files 3DIM.DAT, BENCH.DAT");
    EXPECT_EQ(SurveyStatus(TwoTypes, second), "DAM\\NORTH  LEVEL TOTAL  SRV12 was added");
}

TEST_F(AddSurvey, TellsWhatCouldNotBeMade) {
    Services.WriteSrvNew = [](const std::string&, const std::string&) {};
    MakeFolders(Init("DAM.PTH") + "\\");
    Desk.ExpectMessageTitled("Program Error");
    Desk.ExpectMessageTitled("Program Error");
    const SurveyReport report = Add(TwoTypes);
    EXPECT_EQ(report.Lacking,
              (std::vector<std::string>{"2 of 2 lines in DAM.PTH",
                                        "index " + Data("DAM\\NORTH\\LEVEL\\SRV12\\SRV12.IDX"),
                                        "index " + Data("DAM\\NORTH\\TOTAL\\SRV12\\SRV12.IDX")}));
    EXPECT_EQ(SurveyStatus(TwoTypes, report), "DAM\\NORTH  LEVEL TOTAL  SRV12 was not wholly added");
    Desk.ExpectMessageTitled("Survey Not Wholly Added");
    TellSurveyAdded(TwoTypes, report);
    EXPECT_EQ(Desk.Shown.back().Picture, Icon::Exclamation);
    EXPECT_NE(Desk.Shown.back().Text.find("Could not be made:\r\n    2 of 2 lines in DAM.PTH"),
              std::string::npos);
}

TEST_F(AddSurvey, TellsTheEntriesThatTheHistoryLacks) {
    MakeFolders(Init("DAM.HIS\\"));
    Desk.ExpectMessageTitled("Program Error");
    Desk.ExpectMessageTitled("Program Error");
    const SurveyReport report = Add(TwoTypes);
    EXPECT_EQ(report.Lacking,
              (std::vector<std::string>{"the entry of LEVEL in DAM.HIS", "the entry of TOTAL in DAM.HIS"}));
}

TEST_F(AddSurvey, TellsNothingWhereNothingWasDone) {
    TellSurveyAdded({}, Add({"DAM", "NORTH", "", "SRV12", "x"}));
    EXPECT_TRUE(Desk.Shown.empty());
}

TEST_F(AddSurvey, ReportsAFolderThatCannotBeMadeWithTheRegistriesAheadOfTheDisk) {
    PutFile(Data("DAM"), "a file in the way");
    ExpectReport(Desk, 75, "Path/File access error: " + Drives::HostPath(Data("DAM")),
                 "frmTree-cmdAdd_Click");
    Add(TwoTypes);
    EXPECT_EQ(FileLines(Init("DAM.PTH")).size(), 2u);
    EXPECT_EQ(FileLines(Init("DAM.HIS")).size(), 8u);
    EXPECT_TRUE(Waiting.empty());
}

TEST_F(AddSurvey, ReportsTheFailureOfASurveyIndex) {
    Services.WriteSrvNew = [](const std::string&, const std::string&) {
        throw RunTimeError(PermissionDenied);
    };
    ExpectReport(Desk, 70, "Permission denied", "frmTree-cmdAdd_Click");
    Add(TwoTypes);
    EXPECT_TRUE(Exists(Data("DAM\\NORTH\\LEVEL\\SRV12")));
    EXPECT_FALSE(Exists(Data("DAM\\NORTH\\ADJUST\\SRV12")));
}

TEST_F(AddSurvey, TriesASurveyIndexAgainWhenTheOperatorMadeRoom) {
    int calls = 0;
    Services.WriteSrvNew = [&](const std::string& folder, const std::string& name) {
        if (++calls == 1)
            throw RunTimeError(DiskFull);
        Drives::WriteFile(folder + name, "");
    };
    ExpectReport(Desk, DiskFull, "frmTree-cmdAdd_Click", Answer::Yes);
    Add(TwoTypes);
    EXPECT_EQ(calls, 3);
    EXPECT_TRUE(Exists(Data("DAM\\NORTH\\ADJUST\\SRV12")));
}

}  // namespace Dorvane::Testing
