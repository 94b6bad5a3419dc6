// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/basRead.h"
#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

namespace {

constexpr const char* Head =
    "             DATA FILESYSTEM HISTORY\r\n"
    "\r\n"
    "Subdirectory                  Usage\r\n"
    "----------------------        ---------------------------\r\n";

class ReadHisFile : public DataSite {
  protected:
    ReadHisFile() { Records.Resize(2); }

    const HistoryRecord& Read(const std::string& content) {
        PutFile(Init("DAM.HIS"), content);
        Dorvane::ReadHisFile(Records, 2, Init(""), "DAM.HIS");
        return Records[2];
    }

    List1<HistoryRecord> Records;
};

std::string Folders(int count) {
    std::string lines;
    for (int i = 1; i <= count; ++i)
        lines += "DAM\\NORTH\\LEVEL\\S" + std::to_string(i) + "\r\n    Created     11-20-26      Use " +
                 std::to_string(i) + "\r\n";
    return lines;
}

}  // namespace

TEST_F(ReadHisFile, ReadsFoldersWithDateAndUsage) {
    const HistoryRecord& history = Read(std::string(Head) +
                                        "dam\\north\\level\\srv1\r\n"
                                        "    Created     11-20-26      First Levelling \r\n"
                                        "DAM\\SOUTH\\LEVEL\\SRV1\r\n"
                                        "    Created     11-21-26\r\n");
    ASSERT_EQ(history.Count, 2);
    EXPECT_EQ(history.Subdirectory[1], "DAM\\NORTH\\LEVEL\\SRV1");
    EXPECT_EQ(history.Created[1], "11-20-26");
    EXPECT_EQ(history.Usage[1], "First Levelling ");
    EXPECT_EQ(history.Subdirectory[2], "DAM\\SOUTH\\LEVEL\\SRV1");
    EXPECT_EQ(history.Created[2], "11-21-26");
    EXPECT_EQ(history.Usage[2], "");
}

TEST_F(ReadHisFile, KeepsNothingOfAHistoryThatWasReadBefore) {
    EXPECT_EQ(Read(std::string(Head) + "DAM\\A\r\n    Deleted     11-20-26\r\n").Count, 0);
    const HistoryRecord& history =
        Read(std::string(Head) + "DAM\\B\r\nDAM\\C\r\n    Created     11-21-26      Use\r\n");
    ASSERT_EQ(history.Count, 2);
    EXPECT_EQ(history.Subdirectory[1], "DAM\\B");
    EXPECT_EQ(history.Usage[1], "");
}

TEST_F(ReadHisFile, ReadsAtMost60CharactersOfUsageAnd40OfAFolder) {
    const HistoryRecord& history = Read(Head + std::string(50, 'F') + "\r\n    Created     11-20-26      " +
                                        std::string(70, 'u') + "\r\n");
    EXPECT_EQ(history.Subdirectory[1], std::string(40, 'F'));
    EXPECT_EQ(history.Usage[1], std::string(60, 'u'));
}

TEST_F(ReadHisFile, LetsTheLastEventOfAFolderWin) {
    const HistoryRecord& history = Read(std::string(Head) +
                                        "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                        "    Created     11-20-26      First\r\n"
                                        "    Deleted     11-21-26\r\n"
                                        "    Created     11-22-26      Second\r\n");
    ASSERT_EQ(history.Count, 1);
    EXPECT_EQ(history.Created[1], "11-22-26");
    EXPECT_EQ(history.Usage[1], "Second");
}

TEST_F(ReadHisFile, DoesNotCountAFolderWhoseLastEventIsDeleted) {
    const HistoryRecord& history = Read(std::string(Head) +
                                        "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                        "    Created     11-20-26      First\r\n"
                                        "DAM\\NORTH\\LEVEL\\SRV2\r\n"
                                        "    Created     11-20-26      Second\r\n"
                                        "    Deleted     11-21-26\r\n");
    ASSERT_EQ(history.Count, 1);
    EXPECT_EQ(history.Subdirectory[1], "DAM\\NORTH\\LEVEL\\SRV1");
}

TEST_F(ReadHisFile, GivesThePlaceOfADeletedFolderToTheNext) {
    const HistoryRecord& history = Read(std::string(Head) +
                                        "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                        "    Created     11-20-26      First\r\n"
                                        "    Deleted     11-21-26\r\n"
                                        "DAM\\NORTH\\LEVEL\\SRV2\r\n"
                                        "    Created     11-22-26      Second\r\n"
                                        "DAM\\NORTH\\LEVEL\\SRV3\r\n"
                                        "    Created     11-23-26      Third\r\n");
    ASSERT_EQ(history.Count, 2);
    EXPECT_EQ(history.Subdirectory[1], "DAM\\NORTH\\LEVEL\\SRV2");
    EXPECT_EQ(history.Usage[1], "Second");
    EXPECT_EQ(history.Subdirectory[2], "DAM\\NORTH\\LEVEL\\SRV3");
}

TEST_F(ReadHisFile, CountsNothingWhenTheOnlyFolderIsDeleted) {
    EXPECT_EQ(Read(std::string(Head) + "DAM\\NORTH\\LEVEL\\SRV1\r\n    Deleted     11-21-26\r\n").Count, 0);
}

TEST_F(ReadHisFile, SkipsWhatIsNoEventInsideAGroup) {
    const HistoryRecord& history = Read(std::string(Head) +
                                        "DAM\\NORTH\\LEVEL\\SRV1\r\n"
                                        "    Remark      11-19-26      Nothing\r\n"
                                        "    Created     11-20-26      First\r\n");
    ASSERT_EQ(history.Count, 1);
    EXPECT_EQ(history.Usage[1], "First");
}

TEST_F(ReadHisFile, EndsAtAHeadingInTheLastLineAndDoesNotCountIt) {
    const HistoryRecord& history = Read(Head + Folders(1) + "DAM\\NORTH\\LEVEL\\LAST\r\n");
    EXPECT_EQ(history.Count, 1);
}

TEST_F(ReadHisFile, EndsAtAnEmptyLastLine) {
    EXPECT_EQ(Read(Head + Folders(2) + "\r\n").Count, 2);
}

TEST_F(ReadHisFile, ReadsPastALastLineThatIsNoEvent) {
    ExpectReport(Desk, InputPastEnd, "basRead-ReadHisFile", Answer::Cancel);
    EXPECT_EQ(Read(Head + Folders(2) + "   \r\n").Count, 0);
}

TEST_F(ReadHisFile, ReportsAHeadingWithoutAnyLineBehindIt) {
    ExpectReport(Desk, InputPastEnd, "basRead-ReadHisFile", Answer::Cancel);
    EXPECT_EQ(Read(std::string(Head) + "DAM\\NORTH\\LEVEL\\SRV1\r\n").Count, 0);
}

TEST_F(ReadHisFile, FillsAHundredFolders) {
    const HistoryRecord& history = Read(Head + Folders(100));
    ASSERT_EQ(history.Count, 100);
    EXPECT_EQ(history.Usage[100], "Use 100");
}

TEST_F(ReadHisFile, StopsBehindAHundredFoldersWithACountOf101) {
    const HistoryRecord& history = Read(Head + Folders(103));
    ASSERT_EQ(history.Count, 101);
    EXPECT_EQ(history.Subdirectory[100], "DAM\\NORTH\\LEVEL\\S100");
    EXPECT_EQ(history.Subdirectory[101], "");
    EXPECT_EQ(history.Usage[101], "");
}

TEST_F(ReadHisFile, HasRoomFor500Folders) {
    const HistoryRecord& history = Read(Head + Folders(1));
    EXPECT_EQ(history.Subdirectory.Count(), 500);
    EXPECT_EQ(history.Created.Count(), 500);
    EXPECT_EQ(history.Usage.Count(), 500);
}

TEST_F(ReadHisFile, TakesAnyLineEnd) {
    for (const char* end : {"\n", "\r"}) {
        std::string content = Head + Folders(2);
        for (std::size_t at = content.find("\r\n"); at != std::string::npos;
             at = content.find("\r\n", at + 1))
            content.replace(at, 2, end);
        EXPECT_EQ(Read(content).Count, 2);
    }
}

TEST_F(ReadHisFile, ReportsAFileOfFewerThanFiveLines) {
    ExpectReport(Desk, InputPastEnd, "basRead-ReadHisFile", Answer::Cancel);
    EXPECT_EQ(Read(Head).Count, 0);
}

TEST_F(ReadHisFile, ReportsAnEmptyFile) {
    ExpectReport(Desk, InputPastEnd, "basRead-ReadHisFile", Answer::Cancel);
    EXPECT_EQ(Read("").Count, 0);
}

TEST_F(ReadHisFile, IsSilentAboutAMissingFile) {
    Records[1].Count = 7;
    Dorvane::ReadHisFile(Records, 1, Init(""), "NONE.HIS");
    EXPECT_EQ(Records[1].Count, 7);
}

TEST_F(ReadHisFile, ReportsARecordBeyondTheList) {
    PutFile(Init("DAM.HIS"), Head + Folders(1));
    ExpectReport(Desk, 9, "Subscript out of range", "basRead-ReadHisFile");
    Dorvane::ReadHisFile(Records, 3, Init(""), "DAM.HIS");
}

TEST_F(ReadHisFile, ReportsMoreLinesThanA16BitCountHolds) {
    ExpectReport(Desk, 6, "Overflow", "basRead-ReadHisFile");
    EXPECT_EQ(Read(std::string(32768, '\n')).Count, 0);
}

TEST_F(ReadHisFile, SurvivesALineOfAMillionCharacters) {
    const HistoryRecord& history =
        Read(Head + std::string(1000000, 'x') + "\r\n    Created     11-20-26      " +
             std::string(1000000, 'y') + "\r\n");
    ASSERT_EQ(history.Count, 1);
    EXPECT_EQ(history.Usage[1], std::string(60, 'y'));
}

TEST_F(ReadHisFile, ReportsAFileThatMayNotBeRead) {
    PutFile(Init("DAM.HIS"), Head + Folders(1));
    Shut(Init("DAM.HIS"));
    AsNobody([this] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        Dorvane::ReadHisFile(Records, 1, Init(""), "DAM.HIS");
        EXPECT_NE(desktop.Shown[0].Text.find("Source : Dorvane-basRead-ReadHisFile"), std::string::npos);
    });
}

}  // namespace Dorvane::Testing
