// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/basRead.h"
#include "datatree/basTree.h"
#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

using UpdatePthFileAdd = DataSite;
using UpdateCalibPthFileAdd = DataSite;
using UpdateHisFileAdd = DataSite;

namespace {

constexpr const char* Head =
    "             DATA FILESYSTEM HISTORY\r\n"
    "\r\n"
    "Subdirectory                  Usage\r\n"
    "----------------------        ---------------------------\r\n";

// A registry whose length is a whole number of pages, so that a full disk has no room behind it.
std::string FullPage() {
    std::string content;
    for (int i = 0; i < 64; ++i)
        content += " *       DAM       NORTH     LEVEL     SRV1                   \r\n";
    return content;
}

}  // namespace

TEST_F(UpdatePthFileAdd, MakesTheFileWithOneLineInItsColumns) {
    Dorvane::UpdatePthFileAdd("DAM", "NORTH", "LEVEL", "SRV12");
    EXPECT_EQ(FileContent(Init("DAM.PTH")), " *       DAM       NORTH     LEVEL     SRV12\r\n");
}

TEST_F(UpdatePthFileAdd, AppendsBehindWhatIsThere) {
    PutFile(Init("DAM.PTH"), "by hand\n");
    Dorvane::UpdatePthFileAdd("DAM", "NORTHWES", "DIRECTIO", "SRV12345");
    EXPECT_EQ(FileContent(Init("DAM.PTH")), "by hand\n *       DAM       NORTHWES  DIRECTIO  SRV12345\r\n");
}

TEST_F(UpdatePthFileAdd, BeginsANewLineBehindALastLineWithoutAnEnd) {
    PutFile(Init("DAM.PTH"), " *       DAM       NORTH     LEVEL     SRV1");
    Dorvane::UpdatePthFileAdd("DAM", "NORTH", "LEVEL", "SRV2");
    EXPECT_EQ(FileLines(Init("DAM.PTH")),
              (std::vector<std::string>{" *       DAM       NORTH     LEVEL     SRV1",
                                        " *       DAM       NORTH     LEVEL     SRV2"}));
}

TEST_F(UpdatePthFileAdd, PutsItsLineInThePlaceOfAnEndOfFileMark) {
    const std::string first = " *       DAM       NORTH     LEVEL     SRV1";
    for (const char* end : {"\r\n\x1A", "\x1A", "\n\x1A", "\r\x1A"}) {
        PutFile(Init("DAM.PTH"), first + end);
        Dorvane::UpdatePthFileAdd("DAM", "NORTH", "LEVEL", "SRV2");
        List1<PathRecord> records;
        Sorter sorter;
        ASSERT_EQ(ReadPthFile(records, Init(""), "DAM.PTH", sorter), 2);
        EXPECT_EQ(records[1].Epoch, "SRV1");
        EXPECT_EQ(records[2].Epoch, "SRV2");
    }
}

TEST_F(UpdatePthFileAdd, TakesALoneCarriageReturnForALineEnd) {
    PutFile(Init("DAM.PTH"), " *       DAM       NORTH     LEVEL     SRV1\r");
    Dorvane::UpdatePthFileAdd("DAM", "NORTH", "LEVEL", "SRV2");
    EXPECT_EQ(FileContent(Init("DAM.PTH")),
              " *       DAM       NORTH     LEVEL     SRV1\r"
              " *       DAM       NORTH     LEVEL     SRV2\r\n");
}

TEST_F(UpdatePthFileAdd, LeavesTheRegistryAsItWasOnAFullDisk) {
    OnSmallDisk(Init(""), 64, [] {
        PutFile(Init("DAM.PTH"), FullPage());
        FillDisk(Init(""));
        ScriptedDesktop desktop;
        ExpectReport(desktop, DiskFull, "basTree-UpdatePthFileAdd", Answer::No);
        Dorvane::UpdatePthFileAdd("DAM", "NORTH", "LEVEL", "SRV2");
        EXPECT_EQ(FileContent(Init("DAM.PTH")), FullPage());
    });
}

TEST_F(UpdatePthFileAdd, AppendsOnceWhenTheDiskHasRoomAgain) {
    OnSmallDisk(Init(""), 64, [] {
        PutFile(Init("DAM.PTH"), FullPage());
        FillDisk(Init(""));
        TidyingDesktop desktop(Init(""));
        ExpectReport(desktop, DiskFull, "basTree-UpdatePthFileAdd", Answer::Yes);
        Dorvane::UpdatePthFileAdd("DAM", "NORTH", "LEVEL", "SRV2");
        EXPECT_EQ(FileContent(Init("DAM.PTH")),
                  FullPage() + " *       DAM       NORTH     LEVEL     SRV2\r\n");
    });
}

TEST_F(UpdatePthFileAdd, ReportsARegistryThatMayNotBeWritten) {
    PutFile(Init("DAM.PTH"), "by hand\r\n");
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        Dorvane::UpdatePthFileAdd("DAM", "NORTH", "LEVEL", "SRV2");
        EXPECT_NE(desktop.Shown[0].Text.find("Source : Dorvane-basTree-UpdatePthFileAdd"), std::string::npos);
        EXPECT_EQ(FileContent(Init("DAM.PTH")), "by hand\r\n");
    });
}

TEST_F(UpdateCalibPthFileAdd, AppendsALineOfThreeNames) {
    Dorvane::UpdateCalibPthFileAdd("CALIB", "INVAR", "CAL1");
    Dorvane::UpdateCalibPthFileAdd("CALIB", "STAFF", "CAL2");
    EXPECT_EQ(FileContent(Init("CALIB.PTH")),
              " *       CALIB     INVAR     CAL1\r\n"
              " *       CALIB     STAFF     CAL2\r\n");
}

TEST_F(UpdateCalibPthFileAdd, PutsItsLineInThePlaceOfAnEndOfFileMark) {
    for (const char* end : {"\r\n\x1A", "\x1A"}) {
        PutFile(Init("CALIB.PTH"), std::string(" *       CALIB     INVAR     CAL1") + end);
        Dorvane::UpdateCalibPthFileAdd("CALIB", "STAFF", "CAL2");
        EXPECT_EQ(FileContent(Init("CALIB.PTH")),
                  " *       CALIB     INVAR     CAL1\r\n"
                  " *       CALIB     STAFF     CAL2\r\n");
    }
}

TEST_F(UpdateCalibPthFileAdd, ReportsUnderItsOwnName) {
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        Dorvane::UpdateCalibPthFileAdd("CALIB", "INVAR", "CAL1");
        EXPECT_NE(desktop.Shown[0].Text.find("Source : Dorvane-basTree-UpdateCalibPthFileAdd"),
                  std::string::npos);
    });
}

TEST_F(UpdateHisFileAdd, MakesTheFileWithItsHead) {
    Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV12", "First levelling", "11-20-26");
    EXPECT_EQ(FileContent(Init("DAM.HIS")), std::string(Head) +
                                                "DAM\\NORTH\\LEVEL\\SRV12\r\n"
                                                "    Created     11-20-26      First levelling\r\n");
}

TEST_F(UpdateHisFileAdd, AppendsTwoLinesForANewFolder) {
    PutFile(Init("DAM.HIS"), std::string(Head) +
                                 "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                 "    Created     11-20-26      First\r\n");
    Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV2", "", "11-21-26");
    EXPECT_EQ(FileContent(Init("DAM.HIS")), std::string(Head) +
                                                "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                                "    Created     11-20-26      First\r\n"
                                                "DAM\\NORTH\\LEVEL\\SRV2\r\n"
                                                "    Created     11-21-26      \r\n");
}

TEST_F(UpdateHisFileAdd, PutsAnEventAtTheEndOfAGroupThatIsNotTheLast) {
    PutFile(Init("DAM.HIS"), std::string(Head) +
                                 "DAM\\NORTH\\LEVEL\\SRV1\n"
                                 "    Created     11-20-26      First\n"
                                 "    Deleted     11-21-26\n"
                                 "DAM\\NORTH\\LEVEL\\SRV2\n"
                                 "    Created     11-20-26      Other\n"
                                 "DAM\\NORTH\\LEVEL\\SRV3\n");
    Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV1", "Again", "11-22-26");
    EXPECT_EQ(FileContent(Init("DAM.HIS")), std::string(Head) +
                                                "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                                "    Created     11-20-26      First\r\n"
                                                "    Deleted     11-21-26\r\n"
                                                "    Created     11-22-26      Again\r\n"
                                                "DAM\\NORTH\\LEVEL\\SRV2\r\n"
                                                "    Created     11-20-26      Other\r\n"
                                                "DAM\\NORTH\\LEVEL\\SRV3\r\n");
}

TEST_F(UpdateHisFileAdd, TakesTheLastOfSeveralEqualHeadings) {
    PutFile(Init("DAM.HIS"), std::string(Head) +
                                 "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                 "    Created     11-20-26      First\r\n"
                                 "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                 "    Created     11-21-26      Second\r\n"
                                 "DAM\\NORTH\\LEVEL\\SRV2\r\n");
    Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV1", "Third", "11-22-26");
    EXPECT_EQ(FileLines(Init("DAM.HIS"))[8], "    Created     11-22-26      Third");
}

TEST_F(UpdateHisFileAdd, LosesTheSecondEventOfAGroupThatStandsLast) {
    Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV12", "First", "11-20-26");
    const std::string before = FileContent(Init("DAM.HIS"));
    Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV12", "Second", "11-21-26");
    EXPECT_EQ(FileContent(Init("DAM.HIS")), before);
}

TEST_F(UpdateHisFileAdd, TakesAHeadingInAnotherCaseForAnotherFolder) {
    PutFile(Init("DAM.HIS"),
            std::string(Head) + "dam\\north\\level\\srv1\r\n    Created     11-20-26      First\r\n");
    Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV1", "Again", "11-22-26");
    EXPECT_EQ(FileContent(Init("DAM.HIS")), std::string(Head) +
                                                "dam\\north\\level\\srv1\r\n"
                                                "    Created     11-20-26      First\r\n"
                                                "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                                "    Created     11-22-26      Again\r\n");
}

TEST_F(UpdateHisFileAdd, BeginsANewLineBehindALastLineWithoutAnEnd) {
    PutFile(Init("DAM.HIS"), std::string(Head) + "DAM\\A\\B\\C\r\n    Created     11-20-26");
    Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV1", "New", "11-22-26");
    EXPECT_EQ(FileLines(Init("DAM.HIS"))[6], "DAM\\NORTH\\LEVEL\\SRV1");
}

TEST_F(UpdateHisFileAdd, PutsANewFolderInThePlaceOfAnEndOfFileMark) {
    const std::string former =
        std::string(Head) + "DAM\\NORTH\\LEVEL\\SRV1\r\n    Created     11-20-26      First";
    for (const char* end : {"\r\n\x1A", "\x1A"}) {
        PutFile(Init("DAM.HIS"), former + end);
        Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV2", "Second", "11-22-26");
        EXPECT_EQ(FileContent(Init("DAM.HIS")), former +
                                                    "\r\nDAM\\NORTH\\LEVEL\\SRV2\r\n"
                                                    "    Created     11-22-26      Second\r\n");
        List1<HistoryRecord> histories;
        histories.Resize(1);
        ReadHisFile(histories, 1, Init(""), "DAM.HIS");
        EXPECT_EQ(histories[1].Count, 2);
    }
}

TEST_F(UpdateHisFileAdd, RewritesAHistoryWithoutItsEndOfFileMark) {
    const std::string group = std::string(Head) + "DAM\\NORTH\\LEVEL\\SRV1\r\n";
    for (const char* end : {"\r\n\x1A", "\x1A"}) {
        PutFile(Init("DAM.HIS"), group + "DAM\\NORTH\\LEVEL\\SRV2" + end);
        Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV1", "Again", "11-22-26");
        EXPECT_EQ(FileContent(Init("DAM.HIS")),
                  group + "    Created     11-22-26      Again\r\nDAM\\NORTH\\LEVEL\\SRV2\r\n");
    }
}

TEST_F(UpdateHisFileAdd, LeavesTheHistoryAsItWasOnAFullDisk) {
    OnSmallDisk(Init(""), 64, [] {
        const std::string before =
            std::string(Head) + "DAM\\NORTH\\LEVEL\\SRV1\r\n" + FullPage() + "DAM\\NORTH\\LEVEL\\SRV2\r\n";
        PutFile(Init("DAM.HIS"), before);
        FillDisk(Init(""));
        ScriptedDesktop desktop;
        ExpectReport(desktop, DiskFull, "basTree-UpdateHisFileAdd", Answer::No);
        Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV1", "Again", "11-22-26");
        EXPECT_EQ(FileContent(Init("DAM.HIS")), before);
        EXPECT_EQ(AllFiles(Init("")), (std::vector<std::string>{"DAM.HIS", "FILLER.BIN"}));
    });
}

TEST_F(UpdateHisFileAdd, WritesTheWholeFileWhenTheDiskHasRoomAgain) {
    OnSmallDisk(Init(""), 64, [] {
        FillDisk(Init(""));
        TidyingDesktop desktop(Init(""));
        ExpectReport(desktop, DiskFull, "basTree-UpdateHisFileAdd", Answer::Yes);
        Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV1", "First", "11-22-26");
        EXPECT_EQ(FileContent(Init("DAM.HIS")), std::string(Head) +
                                                    "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                                    "    Created     11-22-26      First\r\n");
    });
}

TEST_F(UpdateHisFileAdd, ReportsAHistoryThatMayNotBeRead) {
    PutFile(Init("DAM.HIS"), Head);
    Shut(Init("DAM.HIS"));
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        Dorvane::UpdateHisFileAdd("DAM", "NORTH", "LEVEL", "SRV2", "", "11-21-26");
        EXPECT_NE(desktop.Shown[0].Text.find("Source : Dorvane-basTree-UpdateHisFileAdd"), std::string::npos);
    });
}

}  // namespace Dorvane::Testing
