// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/ResultFiles.h"

#include "core/Drives.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

const std::string Folder = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV1\\";

class ResTypes : public InputSite {};

TEST_F(ResTypes, ComeInTheOrderOfTheDataTypesWithTheWordsOfTheDimension) {
    PutProfile("dv_datatype.ini", {"[Data Types]", "Epochs=total, level"});
    PutProfile("dv_input.ini", {"[LEVEL]", "2dResFile=levelres a.res b.res", "3dResFile=OTHER", "[TOTAL]",
                                "3dResFile=OTHER"});
    List1<ResTypeEntry> entries;
    ASSERT_EQ(ReadResTypes(entries, 2), 2);
    EXPECT_EQ(entries[1].Name, "TOTAL");
    EXPECT_EQ(entries[1].Words.Count(), 0);
    EXPECT_EQ(entries[2].Name, "LEVEL");
    EXPECT_EQ(entries[2].Words, (List1<std::string>{"LEVELRES", "A.RES", "B.RES"}));
}

TEST_F(ResTypes, AreNoneWithoutDataTypes) {
    PutProfile("dv_datatype.ini", {"[Data Types]", "Epochs=  "});
    List1<ResTypeEntry> entries{{"OLD", {}}};
    EXPECT_EQ(ReadResTypes(entries, 3), 0);
    EXPECT_EQ(entries.Count(), 0);
}

TEST_F(ResTypes, MoreThanFiftyWordsAreReported) {
    std::string words;
    for (int i = 0; i < 51; ++i)
        words += "A ";
    PutProfile("dv_datatype.ini", {"[Data Types]", "Epochs=" + words});
    Desktop.ExpectMessageTitled("Program Error");
    List1<ResTypeEntry> entries;
    EXPECT_EQ(ReadResTypes(entries, 3), 0);
    EXPECT_EQ(LastReport(Desktop), "9 Dorvane-basRead-ReadResTypes");
}

class GenericRes : public InputSite {
  protected:
    std::int16_t Read(const std::string& content) {
        PutFile(Folder + "A.RES", content);
        return ReadGenericRes(Records, Folder, "A.RES");
    }

    List1<ResRecord> Records;
};

TEST_F(GenericRes, TakesStationTargetAndUpToThreeValues) {
    ASSERT_EQ(Read("st1 p7 123.4567 99.1234 25.12345\r\nST1,P8,1,2\r\n\tS2  p9\t-3.5 4 5 6 7\r\n"), 3);
    EXPECT_EQ(Records[1], (ResRecord{"ST1", "P7", 123.4567, 99.1234, 25.12345}));
    EXPECT_EQ(Records[2], (ResRecord{"ST1", "P8", 1, 2, 0}));
    EXPECT_EQ(Records[3], (ResRecord{"S2", "P9", -3.5, 4, 5}));
}

TEST_F(GenericRes, ALineOfExactlyThreeWordsLeavesTheOtherValuesZero) {
    ASSERT_EQ(Read("A B 1.5\r\n"), 1);
    EXPECT_EQ(Records[1], (ResRecord{"A", "B", 1.5, 0, 0}));
}

TEST_F(GenericRes, AWordThatDoesNotStartWithANumberIsZero) {
    ASSERT_EQ(Read("A B x1 2.5m\r\n"), 1);
    EXPECT_EQ(Records[1], (ResRecord{"A", "B", 0, 2.5, 0}));
}

TEST_F(GenericRes, AnEmptyFileGivesNothingAndSaysNothing) {
    EXPECT_EQ(Read(""), 0);
}

TEST_F(GenericRes, ALineOfTwoWordsStopsTheReadingWithAMessage) {
    Desktop.ExpectMessage("Format Error",
                          "Problem with file format in file " + Folder + "A.RES.  Can not continue.");
    EXPECT_EQ(Read("A B 1\r\nA B\r\nA C 2\r\n"), 0);
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
    EXPECT_EQ(Records[1], (ResRecord{"A", "B", 1, 0, 0}));
}

TEST_F(GenericRes, AnEmptyLineIsALineOfTooFewWords) {
    Desktop.ExpectMessageTitled("Format Error");
    EXPECT_EQ(Read("A B 1\r\n\r\n"), 0);
}

TEST_F(GenericRes, ReadsAsManyLinesAsAListHolds) {
    std::string content;
    for (int i = 0; i < 32767; ++i)
        content += "A B 1\r\n";
    EXPECT_EQ(Read(content), 32767);
}

TEST_F(GenericRes, OneLineMoreIsAReportedOverflow) {
    std::string content;
    for (int i = 0; i < 32768; ++i)
        content += "A\r\n";
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_EQ(Read(content), 0);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basRead-ReadGenericRes");
}

TEST_F(GenericRes, ANumberBeyondAllRangeIsReported) {
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_EQ(Read("A B 1E999\r\n"), 0);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basRead-ReadGenericRes");
}

TEST_F(GenericRes, AFiftyFirstWordIsReported) {
    std::string line;
    for (int i = 0; i < 51; ++i)
        line += "1 ";
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_EQ(Read(line), 0);
    EXPECT_EQ(LastReport(Desktop), "9 Dorvane-basRead-ReadGenericRes");
}

TEST_F(GenericRes, SurvivesAMillionCharactersWithoutALineEnd) {
    Desktop.ExpectMessageTitled("Format Error");
    EXPECT_EQ(Read(std::string(1000000, 'x')), 0);
}

TEST_F(GenericRes, SurvivesBytesOfEveryValue) {
    std::string content;
    for (int i = 0; i < 4096; ++i)
        content += static_cast<char>(i % 256);
    Desktop.ExpectMessageTitled("Format Error");
    EXPECT_EQ(Read(content), 0);
}

TEST_F(GenericRes, AFileThatMayNotBeReadIsReported) {
    PutFile(Folder + "A.RES", "A B 1\r\n");
    Drives::CreateFolder(Folder + "B.RES");
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_EQ(ReadGenericRes(Records, Folder, "B.RES"), 0);
    EXPECT_NE(LastReport(Desktop).find(" Dorvane-basRead-ReadGenericRes"), std::string::npos);
}

// Puts the folder back before the operator answers Retry.
struct ReturningFolder : ScriptedDesktop {
    Answer ShowMessage(const Message& message) override {
        Drives::RenameFile("D:\\AWAY", "D:\\OTHER");
        return ScriptedDesktop::ShowMessage(message);
    }
};

TEST_F(GenericRes, IsReadAfterARetryWhenItsFolderHasComeBack) {
    PutFile("D:\\OTHER\\A.RES", "A B 1\r\n");
    Drives::RenameFile("D:\\OTHER", "D:\\AWAY");
    ReturningFolder returning;
    returning.ExpectMessageTitled("Program Error", Answer::Retry);
    EXPECT_EQ(ReadGenericRes(Records, "D:\\OTHER\\", "A.RES"), 1);
}

class AngleRes : public InputSite {
  protected:
    std::int16_t Read() { return ReadAngleRes(Records, Folder, "REDIR.RES", "ZENITH.RES"); }

    List1<ResRecord> Records;
};

TEST_F(AngleRes, ReadsBothFilesLineForLine) {
    PutLines(Folder + "REDIR.RES", {"st1 rest", "p1 100.5", "p2,200.5", "quit", "ST2", "P1 300.25", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"ST1", "P1 99.5", "P2 98.5", "anything", "ST2", "P1 97.5", "QUIT"});
    ASSERT_EQ(Read(), 3);
    EXPECT_EQ(Records[1], (ResRecord{"ST1", "P1", 100.5, 99.5, 0}));
    EXPECT_EQ(Records[2], (ResRecord{"ST1", "P2", 200.5, 98.5, 0}));
    EXPECT_EQ(Records[3], (ResRecord{"ST2", "P1", 300.25, 97.5, 0}));
}

TEST_F(AngleRes, AZenithFileOfLengthZeroCountsAsAbsent) {
    PutLines(Folder + "REDIR.RES", {"ST1", "P1 100.5", "QUIT"});
    PutFile(Folder + "ZENITH.RES", "");
    ASSERT_EQ(Read(), 1);
    EXPECT_EQ(Records[1], (ResRecord{"ST1", "P1", 100.5, 0, 0}));
}

TEST_F(AngleRes, AMissingZenithFileIsReportedAndGivesNothing) {
    PutLines(Folder + "REDIR.RES", {"ST1", "P1 100.5", "QUIT"});
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(LastReport(Desktop), "53 Dorvane-basRead-ReadAngleRes");
}

TEST_F(AngleRes, AShorterZenithFileIsReadPastItsEndAndReported) {
    PutLines(Folder + "REDIR.RES", {"ST1", "P1 1", "P2 2", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"ST1", "P1 1"});
    Desktop.ExpectMessageTitled("Program Error", Answer::Retry);
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(LastReport(Desktop), "62 Dorvane-basRead-ReadAngleRes");
    EXPECT_EQ(Desktop.Shown.back().Choices, Buttons::RetryCancel);
}

TEST_F(AngleRes, AFileCutInsideABlockIsReported) {
    PutLines(Folder + "REDIR.RES", {"ST1", "P1 1"});
    PutFile(Folder + "ZENITH.RES", "");
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(LastReport(Desktop), "62 Dorvane-basRead-ReadAngleRes");
}

TEST_F(AngleRes, DifferentStationsStopTheReading) {
    PutLines(Folder + "REDIR.RES", {"ST1", "P1 1", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"ST2", "P1 1", "QUIT"});
    Desktop.ExpectMessage("Names do not Match",
                          "Station name ST1 from REDIR.RES does not match ST2 from ZENITH.RES");
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Stop);
}

TEST_F(AngleRes, DifferentTargetsStopTheReading) {
    PutLines(Folder + "REDIR.RES", {"ST1", "P1 1", "P2 1", "QUIT"});
    PutLines(Folder + "ZENITH.RES", {"ST1", "P1 1", "QUIT"});
    Desktop.ExpectMessage("Names do not Match",
                          "Target name P2 from REDIR.RES does not match QUIT from ZENITH.RES");
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(Records.Count(), 1);
}

TEST_F(AngleRes, ALineWithoutAValueOrANameIsReported) {
    PutFile(Folder + "ZENITH.RES", "");
    for (const char* line : {"P1", ""}) {
        PutLines(Folder + "REDIR.RES", {"ST1", line, "QUIT"});
        Desktop.ExpectMessageTitled("Program Error");
        EXPECT_EQ(Read(), 0);
        EXPECT_EQ(LastReport(Desktop), "9 Dorvane-basRead-ReadAngleRes");
    }
}

TEST_F(AngleRes, MoreSightsThanAListHoldsAreAReportedOverflow) {
    std::string content = "ST1\r\n";
    for (int i = 0; i < 32768; ++i)
        content += "P 1\r\n";
    PutFile(Folder + "REDIR.RES", content + "QUIT\r\n");
    PutFile(Folder + "ZENITH.RES", "");
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_EQ(Read(), 0);
    EXPECT_EQ(LastReport(Desktop), "6 Dorvane-basRead-ReadAngleRes");
}

}  // namespace
}  // namespace Dorvane::Testing
