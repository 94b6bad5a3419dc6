// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/basRead.h"
#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

namespace {

class ReadPthFile : public DataSite {
  protected:
    std::vector<std::string> Read(const std::string& content) {
        PutFile(Init("DAM.PTH"), content);
        Count = Dorvane::ReadPthFile(Records, Init(""), "DAM.PTH", Lines);
        std::vector<std::string> folders;
        for (const PathRecord& record : Records) {
            folders.push_back(record.Root + "|" + record.Location + "|" + record.Type + "|" + record.Epoch);
            if (!record.Survey.empty())
                folders.back() += "|" + record.Survey;
        }
        return folders;
    }

    List1<PathRecord> Records;
    Sorter Lines;
    int Count = -1;
};

using Folders = std::vector<std::string>;

}  // namespace

TEST_F(ReadPthFile, GivesTwoLinesAsTwoSortedRecords) {
    EXPECT_EQ(Read(" *       DAM       SOUTH     LEVEL     SRV1\r\n"
                   " *       DAM       NORTH     LEVEL     SRV12\r\n"),
              (Folders{"DAM|NORTH|LEVEL|SRV12", "DAM|SOUTH|LEVEL|SRV1"}));
    EXPECT_EQ(Count, 2);
    EXPECT_EQ(Lines.Count(), 0);
}

TEST_F(ReadPthFile, FillsOnlyTheNames) {
    Read(" *       DAM       NORTH     LEVEL     SRV12\r\n");
    EXPECT_EQ(Records[1], (PathRecord{"DAM", "", "NORTH", "", "LEVEL", "", "SRV12", "", "", "", ""}));
}

TEST_F(ReadPthFile, UpperCasesAndCutsTheNames) {
    EXPECT_EQ(Read(" *       dam       north     leveLLinge\xE9pok\r\n"),
              (Folders{"DAM|NORTH|LEVELLIN|\xC9POK"}));
}

TEST_F(ReadPthFile, OfAMissingFileGivesNothing) {
    Records.Add({});
    EXPECT_EQ(Dorvane::ReadPthFile(Records, Init(""), "NONE.PTH", Lines), 0);
    EXPECT_TRUE(Records.Empty());
}

TEST_F(ReadPthFile, ReportsAnEmptyFileAndGivesUp) {
    ExpectReport(Desk, 9, "Subscript out of range", "basRead-ReadPthFile");
    EXPECT_EQ(Read(""), Folders());
    EXPECT_EQ(Count, 0);
}

TEST_F(ReadPthFile, FindsTheProjectFoldersOfEachLocation) {
    MakeFolders(Data("DAM\\NORTH\\ADJUST\\SRV12\\"));
    EXPECT_EQ(Read(" *       DAM       NORTH     LEVEL     SRV12\r\n"
                   " *       DAM       SOUTH     LEVEL     SRV1\r\n"),
              (Folders{"DAM|NORTH|ADJUST|SRV12", "DAM|NORTH|LEVEL|SRV12", "DAM|SOUTH|LEVEL|SRV1"}));
}

TEST_F(ReadPthFile, ListsALocationOnceForItsManyLines) {
    MakeFolders(Data("DAM\\NORTH\\ADJUST\\SRV1\\"));
    EXPECT_EQ(Read(" *       DAM       NORTH     LEVEL     SRV1\r\n"
                   " *       DAM       north     LEVEL     SRV2\r\n"
                   " *       DAM       NORTH     LEVEL     SRV3\r\n"),
              (Folders{"DAM|NORTH|ADJUST|SRV1", "DAM|NORTH|LEVEL|SRV1", "DAM|NORTH|LEVEL|SRV2",
                       "DAM|NORTH|LEVEL|SRV3"}));
}

TEST_F(ReadPthFile, ListsALocationAgainThatRecursBehindAnother) {
    MakeFolders(Data("DAM\\NORTH\\ADJUST\\P\\"));
    // The system's name sorts first, so a second system brings the location back.
    MakeFolders(Data("WEIR\\NORTH\\ADJUST\\P\\"));
    EXPECT_EQ(Read(" *       DAM       NORTH     LEVEL     SRV1\r\n"
                   " *       DAM       SOUTH     LEVEL     SRV1\r\n"
                   " *       WEIR      NORTH     LEVEL     SRV1\r\n"),
              (Folders{"DAM|NORTH|ADJUST|P", "DAM|NORTH|LEVEL|SRV1", "DAM|SOUTH|LEVEL|SRV1",
                       "WEIR|NORTH|ADJUST|P", "WEIR|NORTH|LEVEL|SRV1"}));
}

TEST_F(ReadPthFile, FindsDeeperFoldersOfEpochsAndProjectsOneLevelDown) {
    MakeFolders(Data("DAM\\NORTH\\ADJUST\\SRV1\\OLD\\OLDER\\"));
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV1\\Raw\\DEEPER\\"));
    EXPECT_EQ(Read(" *       DAM       NORTH     LEVEL     SRV1\r\n"
                   " *       DAM       NORTH     LEVEL     SRV2\r\n"),
              (Folders{"DAM|NORTH|ADJUST|SRV1", "DAM|NORTH|ADJUST|SRV1|OLD", "DAM|NORTH|LEVEL|SRV1",
                       "DAM|NORTH|LEVEL|SRV1|RAW", "DAM|NORTH|LEVEL|SRV2"}));
}

TEST_F(ReadPthFile, CutsTheNamesOfFoundFoldersTo8Characters) {
    MakeFolders(Data("DAM\\NORTH\\ADJUST\\projectalpha\\DEEP\\"));
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV1\\measurements\\"));
    EXPECT_EQ(Read(" *       DAM       NORTH     LEVEL     SRV1\r\n"
                   " *       DAM       NORTH     LEVEL     SRV2\r\n"),
              (Folders{"DAM|NORTH|ADJUST|PROJECTA", "DAM|NORTH|LEVEL|SRV1", "DAM|NORTH|LEVEL|SRV1|MEASUREM",
                       "DAM|NORTH|LEVEL|SRV2"}));
}

TEST_F(ReadPthFile, LosesADeeperFolderOfTheLastLineToASecondCopyOfThatLine) {
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV2\\RAW\\"));
    EXPECT_EQ(Read(" *       DAM       NORTH     LEVEL     SRV1\r\n"
                   " *       DAM       NORTH     LEVEL     SRV2\r\n"),
              (Folders{"DAM|NORTH|LEVEL|SRV1", "DAM|NORTH|LEVEL|SRV2", "DAM|NORTH|LEVEL|SRV2"}));
    EXPECT_EQ(Count, 3);
}

TEST_F(ReadPthFile, LosesOnlyTheLastOfSeveralDeeperFolders) {
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV2\\A\\"));
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV2\\B\\"));
    EXPECT_EQ(Read(" *       DAM       NORTH     LEVEL     SRV2\r\n"),
              (Folders{"DAM|NORTH|LEVEL|SRV2", "DAM|NORTH|LEVEL|SRV2", "DAM|NORTH|LEVEL|SRV2|A"}));
}

TEST_F(ReadPthFile, PutsADeeperFolderAtItsColumnBehindALongLine) {
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV1\\RAW\\"));
    const std::string blanks(40, ' ');
    EXPECT_EQ(Read(" *       DAM       NORTH     LEVEL     SRV1" + blanks +
                   "\r\n"
                   " *       DAM       NORTH     LEVEL     SRV2\r\n"),
              (Folders{"DAM|NORTH|LEVEL|SRV1", "DAM|NORTH|LEVEL|SRV1|RAW", "DAM|NORTH|LEVEL|SRV2"}));
}

TEST_F(ReadPthFile, KeepsTheLinesOfACalibrationSystemAndLooksForNoFolders) {
    MakeFolders(Data("CALIB\\INVAR\\ADJUST\\P\\"));
    MakeFolders(Data("CALIB\\INVAR\\CAL1\\DEEP\\"));
    EXPECT_EQ(Read(" *       calib     STAFF     CAL2\r\n"
                   " *       CALIB     INVAR     CAL1\r\n"),
              (Folders{"CALIB|INVAR|CAL1|", "CALIB|STAFF|CAL2|"}));
}

TEST_F(ReadPthFile, TakesAnyLineEndAndALastLineWithoutOne) {
    const Folders expected{"DAM|NORTH|LEVEL|SRV1", "DAM|NORTH|LEVEL|SRV2"};
    EXPECT_EQ(
        Read(" *       DAM       NORTH     LEVEL     SRV1\n *       DAM       NORTH     LEVEL     SRV2"),
        expected);
    EXPECT_EQ(
        Read(" *       DAM       NORTH     LEVEL     SRV1\r *       DAM       NORTH     LEVEL     SRV2\r"),
        expected);
}

TEST_F(ReadPthFile, HoldsAnEmptyLineForAFolderWithoutNames) {
    EXPECT_EQ(Read(" *       DAM       NORTH     LEVEL     SRV1\r\n\r\n").back(), "DAM|NORTH|LEVEL|SRV1");
    EXPECT_EQ(Records[1], PathRecord());
}

TEST_F(ReadPthFile, IsSilentAboutRegisteredFoldersThatAreNotThere) {
    EXPECT_EQ(Read(" *       GONE      GONE      GONE      GONE\r\n"), (Folders{"GONE|GONE|GONE|GONE"}));
}

TEST_F(ReadPthFile, ReportsMoreLinesThanA16BitCountHolds) {
    ExpectReport(Desk, 6, "Overflow", "basRead-ReadPthFile");
    EXPECT_EQ(Read(std::string(32768, '\n')), Folders());
}

TEST_F(ReadPthFile, ReportsMoreFoldersThanA16BitCountHolds) {
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV1\\RAW\\"));
    std::string content;
    for (int i = 0; i < 17000; ++i)
        content += " *       DAM       NORTH     LEVEL     SRV1\r\n";
    ExpectReport(Desk, 6, "Overflow", "basRead-ReadPthFile");
    EXPECT_EQ(Read(content), Folders());
    EXPECT_EQ(Count, 0);
}

TEST_F(ReadPthFile, SurvivesALineOfAMillionCharacters) {
    EXPECT_EQ(Read(std::string(1000000, 'X') + "\r\n"),
              (Folders{"XXXXXXXX|XXXXXXXX|XXXXXXXX|XXXXXXXX|XXXXXXXX"}));
}

TEST_F(ReadPthFile, ReportsAFileThatMayNotBeRead) {
    PutFile(Init("DAM.PTH"), " *       DAM\r\n");
    Shut(Init("DAM.PTH"));
    AsNobody([this] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        EXPECT_EQ(Dorvane::ReadPthFile(Records, Init(""), "DAM.PTH", Lines), 0);
        EXPECT_NE(desktop.Shown[0].Text.find("Source : Dorvane-basRead-ReadPthFile"), std::string::npos);
    });
}

TEST_F(ReadPthFile, ReportsAFolderOnTheWayThatMayNotBeReadAndGoesOn) {
    PutFile(Init("DAM.PTH"),
            " *       DAM       NORTH     LEVEL     SRV1\r\n"
            " *       DAM       SOUTH     LEVEL     SRV1\r\n");
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV1\\RAW\\"));
    MakeFolders(Data("DAM\\SOUTH\\ADJUST\\P\\"));
    Shut(Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    AsNobody([this] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        EXPECT_EQ(Dorvane::ReadPthFile(Records, Init(""), "DAM.PTH", Lines), 3);
        EXPECT_NE(desktop.Shown[0].Text.find("Source : Dorvane-basTarvex-GetDirectories"), std::string::npos);
    });
}

}  // namespace Dorvane::Testing
