// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/basRead.h"
#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

namespace {

class StructureFiles : public DataSite {
  protected:
    StructureFiles() { Records.Resize(16); }

    void Read(const std::string& content, int index = 1) {
        PutFile(Init("DAM.STR"), content);
        Dorvane::ReadStrFile(Records, index, Init(""), "DAM.STR");
    }
    void ReadCalib(const std::string& content) {
        PutFile(Init("CALIB.STR"), content);
        Dorvane::ReadCalibStrFile(Records, 1, Init(""), "CALIB.STR");
    }

    List1<StructureRecord> Records;
};

std::string Entries(const std::string& code, int count) {
    std::string lines;
    for (int i = 1; i <= count; ++i)
        lines += code + std::to_string(i) + "\r\n";
    return lines;
}

}  // namespace

using ReadChoiceFile = DataSite;
using ReadStrFile = StructureFiles;
using ReadCalibStrFile = StructureFiles;

TEST_F(ReadChoiceFile, ReadsNameKindAndDescriptionByColumns) {
    PutFile(Init("CHOICES.SYS"),
            "dam      1 Main dam\r\n"
            "TUNNEL   1 The long Tunnel below\r\n"
            "CALIB    2 Calibrations\r\n");
    List1<ChoiceRecord> choices;
    ASSERT_EQ(Dorvane::ReadChoiceFile(choices, Init(""), "CHOICES.SYS"), 3);
    EXPECT_EQ(choices[1], (ChoiceRecord{"DAM", 1, "Main dam"}));
    EXPECT_EQ(choices[2], (ChoiceRecord{"TUNNEL", 1, "The long Tunnel belo"}));
    EXPECT_EQ(choices[3], (ChoiceRecord{"CALIB", 2, "Calibrations"}));
}

TEST_F(ReadChoiceFile, OfAMissingFileGivesNothingAndLeavesTheRecords) {
    List1<ChoiceRecord> choices{{"OLD", 1, ""}};
    EXPECT_EQ(Dorvane::ReadChoiceFile(choices, Init(""), "CHOICES.SYS"), 0);
    EXPECT_EQ(choices.Count(), 1);
}

TEST_F(ReadChoiceFile, CountsEveryLineAnEmptyLastOneToo) {
    PutFile(Init("CHOICES.SYS"), "DAM      1 Main dam\r\n\r\n");
    List1<ChoiceRecord> choices;
    ASSERT_EQ(Dorvane::ReadChoiceFile(choices, Init(""), "CHOICES.SYS"), 2);
    EXPECT_EQ(choices[2], ChoiceRecord());
}

TEST_F(ReadChoiceFile, TakesAKindOfZeroOrBlankAsNoTree) {
    PutFile(Init("CHOICES.SYS"), "A        0 Zero\r\nB          Blank\r\nC\r\nD        X Letter\r\n");
    List1<ChoiceRecord> choices;
    ASSERT_EQ(Dorvane::ReadChoiceFile(choices, Init(""), "CHOICES.SYS"), 4);
    EXPECT_EQ(choices[1], (ChoiceRecord{"A", 0, "Zero"}));
    EXPECT_EQ(choices[2], (ChoiceRecord{"B", 0, "Blank"}));
    EXPECT_EQ(choices[3], (ChoiceRecord{"C", 0, ""}));
    EXPECT_EQ(choices[4].Kind, 0);
}

TEST_F(ReadChoiceFile, HasNoLimitOfSixteenLines) {
    PutFile(Init("CHOICES.SYS"), Entries("S", 17));
    List1<ChoiceRecord> choices;
    EXPECT_EQ(Dorvane::ReadChoiceFile(choices, Init(""), "CHOICES.SYS"), 17);
}

TEST_F(ReadChoiceFile, ReportsMoreLinesThanA16BitCountHolds) {
    PutFile(Init("CHOICES.SYS"), std::string(32768, '\n'));
    ExpectReport(Desk, 6, "Overflow", "basRead-ReadChoiceFile");
    List1<ChoiceRecord> choices;
    EXPECT_EQ(Dorvane::ReadChoiceFile(choices, Init(""), "CHOICES.SYS"), 0);
}

TEST_F(ReadChoiceFile, ReportsAFileThatMayNotBeRead) {
    PutFile(Init("CHOICES.SYS"), "DAM      1\r\n");
    Shut(Init("CHOICES.SYS"));
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        List1<ChoiceRecord> choices;
        EXPECT_EQ(Dorvane::ReadChoiceFile(choices, Init(""), "CHOICES.SYS"), 0);
        EXPECT_NE(desktop.Shown[0].Text.find("Source : Dorvane-basRead-ReadChoiceFile"), std::string::npos);
    });
}

constexpr const char* SmallStructure =
    "dam      Main dam\r\n"
    "CODE     DESCRIPTION\r\n"
    "north    North Gallery\r\n"
    "SOUTH    South Gallery\r\n"
    "\r\n"
    "LEVEL    Levelling\r\n"
    "\r\n"
    "SRV1     First survey\r\n"
    "SRV2     Second survey, in the spring\r\n";

TEST_F(ReadStrFile, ReadsTheThreeGroups) {
    Read(SmallStructure, 3);
    const StructureRecord& record = Records[3];
    EXPECT_EQ(record.Name, "DAM");
    EXPECT_EQ(record.Description, "Main dam");
    ASSERT_EQ(record.LocationCount, 2);
    EXPECT_EQ(record.Location[2], "SOUTH");
    EXPECT_EQ(record.LocationDesc[2], "South Gallery");
    ASSERT_EQ(record.TypeCount, 1);
    EXPECT_EQ(record.Type[1], "LEVEL");
    EXPECT_EQ(record.TypeDesc[1], "Levelling");
    ASSERT_EQ(record.EpochCount, 2);
    EXPECT_EQ(record.Epoch[2], "SRV2");
    EXPECT_EQ(record.EpochDesc[2], "Second survey, in th");
}

TEST_F(ReadStrFile, UpperCasesCodesAndKeepsTheCaseOfDescriptions) {
    Read(SmallStructure);
    EXPECT_EQ(Records[1].Location[1], "NORTH");
    EXPECT_EQ(Records[1].LocationDesc[1], "North Gallery");
}

TEST_F(ReadStrFile, UpperCasesAccents) {
    Read("\xE9t\xE9      \xE9t\xE9\r\n\r\n\r\n\r\n");
    EXPECT_EQ(Records[1].Name, "\xC9T\xC9");
    EXPECT_EQ(Records[1].Description, "\xE9t\xE9");
}

TEST_F(ReadStrFile, TakesAnyLineEnd) {
    for (const char* end : {"\n", "\r"}) {
        std::string content = SmallStructure;
        for (std::size_t at = content.find("\r\n"); at != std::string::npos;
             at = content.find("\r\n", at + 1))
            content.replace(at, 2, end);
        Records[1] = StructureRecord();
        Read(content);
        EXPECT_EQ(Records[1].LocationCount, 2);
        EXPECT_EQ(Records[1].TypeCount, 1);
        EXPECT_EQ(Records[1].EpochCount, 2);
    }
}

TEST_F(ReadStrFile, LosesWhatStandsBehindColumn8OfACode) {
    Read("DAM\r\n\r\nNORTHEAST\r\n\r\n\r\n");
    EXPECT_EQ(Records[1].Location[1], "NORTHEAS");
    EXPECT_EQ(Records[1].LocationDesc[1], "");
}

TEST_F(ReadStrFile, TakesALineOfBlanksAsAnEntryWithAnEmptyCode) {
    Read("DAM\r\n\r\nNORTH\r\n   \r\nSOUTH\r\n\r\n\r\n");
    ASSERT_EQ(Records[1].LocationCount, 3);
    EXPECT_EQ(Records[1].Location[2], "");
    EXPECT_EQ(Records[1].Location[3], "SOUTH");
}

TEST_F(ReadStrFile, ReadsSixteenEpochsWithoutAnEmptyLineBehindThem) {
    std::string content = "DAM\r\n\r\n\r\n\r\n" + Entries("SRV", 16);
    content.resize(content.size() - 2);
    Read(content);
    ASSERT_EQ(Records[1].EpochCount, 16);
    EXPECT_EQ(Records[1].Epoch[16], "SRV16");
}

TEST_F(ReadStrFile, AddsNothingForTheLineEndOfTheLastEpoch) {
    Read("DAM\r\n\r\n\r\n\r\nSRV1\r\n");
    EXPECT_EQ(Records[1].EpochCount, 1);
}

TEST_F(ReadStrFile, CountsAnEmptyLineAmongTheEpochs) {
    Read("DAM\r\n\r\n\r\n\r\nSRV1\r\n\r\nSRV2\r\n");
    ASSERT_EQ(Records[1].EpochCount, 3);
    EXPECT_EQ(Records[1].Epoch[2], "");
}

TEST_F(ReadStrFile, ReportsA17thLocation) {
    ExpectReport(Desk, 9, "Subscript out of range", "basRead-ReadStrFile");
    Read("DAM\r\n\r\n" + Entries("N", 17) + "\r\n\r\n");
    EXPECT_EQ(Records[1].Location[16], "N16");
    EXPECT_EQ(Records[1].LocationCount, 0);
}

TEST_F(ReadStrFile, ReportsA17thEpochAndLeavesTheirCount) {
    ExpectReport(Desk, 9, "Subscript out of range", "basRead-ReadStrFile");
    Read("DAM\r\n\r\nN\r\n\r\nL\r\n\r\n" + Entries("SRV", 17));
    EXPECT_EQ(Records[1].LocationCount, 1);
    EXPECT_EQ(Records[1].TypeCount, 1);
    EXPECT_EQ(Records[1].EpochCount, 0);
}

TEST_F(ReadStrFile, ReportsAFileThatEndsBeforeTheEpochsAndKeepsWhatItHad) {
    ExpectReport(Desk, InputPastEnd, "basRead-ReadStrFile", Answer::Cancel);
    Read("DAM      Main dam\r\n\r\nNORTH\r\n\r\nLEVEL\r\n");
    EXPECT_EQ(Records[1].Description, "Main dam");
    EXPECT_EQ(Records[1].LocationCount, 1);
    EXPECT_EQ(Records[1].Type[1], "LEVEL");
    EXPECT_EQ(Records[1].TypeCount, 0);
}

TEST_F(ReadStrFile, TriesTheReadingAgainAsLongAsItIsAskedTo) {
    ExpectReport(Desk, InputPastEnd, "basRead-ReadStrFile", Answer::Retry);
    ExpectReport(Desk, InputPastEnd, "basRead-ReadStrFile", Answer::Retry);
    ExpectReport(Desk, InputPastEnd, "basRead-ReadStrFile", Answer::Cancel);
    Read("DAM\r\n");
}

TEST_F(ReadStrFile, ReportsAnEmptyFile) {
    ExpectReport(Desk, InputPastEnd, "basRead-ReadStrFile", Answer::Cancel);
    Read("");
}

TEST_F(ReadStrFile, IsSilentAboutAMissingFile) {
    Records[1].Name = "OLD";
    Dorvane::ReadStrFile(Records, 1, Init(""), "NONE.STR");
    EXPECT_EQ(Records[1].Name, "OLD");
    EXPECT_EQ(Records[1].LocationCount, 0);
}

TEST_F(ReadStrFile, ReportsASystemBeyondTheRoom) {
    ExpectReport(Desk, 9, "Subscript out of range", "basRead-ReadStrFile");
    Read(SmallStructure, 17);
}

TEST_F(ReadStrFile, SurvivesALineOfAMillionCharacters) {
    Read("DAM\r\n\r\n" + std::string(1000000, 'n') + "\r\n\r\n\r\n");
    EXPECT_EQ(Records[1].Location[1], "NNNNNNNN");
    EXPECT_EQ(Records[1].LocationDesc[1], std::string(20, 'n'));
}

TEST_F(ReadStrFile, SurvivesBinaryContent) {
    std::string content("\0\x01\xFF\r\n\x80\0\x1A", 9);
    ExpectReport(Desk, InputPastEnd, "basRead-ReadStrFile", Answer::Cancel);
    Read(content);
}

TEST_F(ReadCalibStrFile, ReadsTypesIntoLocationsAndEpochsIntoTypes) {
    ReadCalib(
        "calib    Calibrations\r\n"
        "heading\r\n"
        "INVAR    Invar rods\r\n"
        "STAFF    Staffs\r\n"
        "\r\n"
        "cal1     Spring\r\n"
        "CAL2     Autumn");
    EXPECT_EQ(Records[1].Name, "CALIB");
    EXPECT_EQ(Records[1].Description, "Calibrations");
    ASSERT_EQ(Records[1].LocationCount, 2);
    EXPECT_EQ(Records[1].LocationDesc[2], "Staffs");
    ASSERT_EQ(Records[1].TypeCount, 2);
    EXPECT_EQ(Records[1].Type[1], "CAL1");
    EXPECT_EQ(Records[1].TypeDesc[2], "Autumn");
    EXPECT_EQ(Records[1].EpochCount, 0);
}

TEST_F(ReadCalibStrFile, ReadsSixteenTypesAndReportsTheSeventeenth) {
    ReadCalib("CALIB\r\n\r\n" + Entries("T", 16) + "\r\n");
    EXPECT_EQ(Records[1].LocationCount, 16);
    ExpectReport(Desk, 9, "Subscript out of range", "basRead-ReadCalibStrFile");
    ReadCalib("CALIB\r\n\r\n" + Entries("T", 17) + "\r\n");
}

TEST_F(ReadCalibStrFile, ReportsAFileWithoutAnEmptyLine) {
    ExpectReport(Desk, InputPastEnd, "basRead-ReadCalibStrFile", Answer::Cancel);
    ReadCalib("CALIB\r\n\r\nINVAR\r\n");
}

TEST_F(ReadCalibStrFile, IsSilentAboutAMissingFile) {
    Dorvane::ReadCalibStrFile(Records, 1, Init(""), "NONE.STR");
    EXPECT_EQ(Records[1].Name, "");
}

}  // namespace Dorvane::Testing
