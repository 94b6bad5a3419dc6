// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/SurveyIndex.h"

#include "core/basGeneral.h"
#include "tests/upload/UploadSite.h"

namespace Dorvane::Testing {
namespace {

struct SurveyIndexTest : UploadSite {
    static std::string Question(const std::string& folder) {
        return folder + " no SRV*.IDX file exists here.  Wish to create one and continue?";
    }
};
using GetSurveyIdxNameTest = SurveyIndexTest;
using WriteSrvNewTest = SurveyIndexTest;
using UpdateSrvIdxTest = SurveyIndexTest;
using ReadSurveyIdxFileTest = SurveyIndexTest;

using Entries = List1<SurveyIndexEntry>;

TEST_F(WriteSrvNewTest, WritesThePathWithoutDriveAndALineOfOneBlank) {
    MakeFolders("D:\\DATA\\SRV123\\");
    WriteSrvNew("D:\\DATA\\SRV123\\", "SRV123.IDX");
    EXPECT_EQ(FileContent("D:\\DATA\\SRV123\\SRV123.IDX"), "\\DATA\\SRV123\r\n \r\n");
}

TEST_F(WriteSrvNewTest, ReplacesAnExistingIndex) {
    PutFile(To + Index, IndexHead + "OLD      GSI\r\n");
    WriteSrvNew(To, Index);
    EXPECT_EQ(FileContent(To + Index), IndexHead);
}

TEST_F(WriteSrvNewTest, ReportsAFolderThatIsNotThere) {
    Desktop.ExpectMessage(
        "Program Error", "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : Dorvane-basWrite-WriteSrvNew",
        Answer::Cancel);
    WriteSrvNew("D:\\GONE\\SRV1\\", "SRV1.IDX");
}

TEST_F(UpdateSrvIdxTest, WritesTheFieldsAtTheirColumns) {
    EXPECT_TRUE(UpdateSrvIdx(To, Index, "DAY1", "GSI", "DAY1", "3/7/2026"));
    EXPECT_EQ(FileContent(To + Index), IndexHead + "DAY1     GSI       DAY1                3/7/2026\r\n");
}

TEST_F(UpdateSrvIdxTest, OnlyEverAddsLines) {
    UpdateSrvIdx(To, Index, "DAY1", "GSI", "DAY1", "3/7/2026");
    UpdateSrvIdx(To, Index, "DAY1", "GSI", "DAY1", "3/7/2026");
    EXPECT_EQ(FileLines(To + Index).size(), 4u);
}

TEST_F(UpdateSrvIdxTest, AddsItsLineInPlaceOfAnEndOfFileMark) {
    const std::string line = "DAY1     GSI       DAY1                3/7/2026";
    for (const char* end : {"\r\n\x1A", "\x1A", ""}) {
        PutFile(To + Index, IndexHead + line + end);
        UpdateSrvIdx(To, Index, "DAY2", "GSI", "DAY2", "3/7/2026");
        EXPECT_EQ(FileContent(To + Index),
                  IndexHead + line + "\r\nDAY2     GSI       DAY2                3/7/2026\r\n");
    }
}

TEST_F(UpdateSrvIdxTest, FillsNineColumnsWithANameOfNine) {
    UpdateSrvIdx(To, Index, "NINECHARS", "GSI", "NINECHARS", "3/7/2026");
    EXPECT_EQ(FileContent(To + Index), IndexHead + "NINECHARSGSI       NINECHARS           3/7/2026\r\n");
}

TEST_F(UpdateSrvIdxTest, BreaksTheLayoutAtANameOfTen) {
    UpdateSrvIdx(To, Index, "TENLETTERS", "GSI", "TENLETTERS", "3/7/2026");
    EXPECT_EQ(FileContent(To + Index),
              IndexHead + "TENLETTERS\r\n         GSI       TENLETTERS          3/7/2026\r\n");
}

TEST_F(UpdateSrvIdxTest, MakesAMissingIndexWithoutHeaderLines) {
    UpdateSrvIdx(To, "SRV9.IDX", "A", "B", "A", "3/7/2026");
    EXPECT_EQ(FileContent(To + "SRV9.IDX"), "A        B         A                   3/7/2026\r\n");
}

TEST_F(ReadSurveyIdxFileTest, GivesNamesAndExtensionsInUpperCase) {
    PutFile(To + Index, IndexHead +
                            "day1     gsi       day1                3/7/2026\r\n"
                            "NINECHARSLEVX      IGNORED\r\n");
    Entries entries{{"OLD", "OLD"}};
    EXPECT_EQ(ReadSurveyIdxFile(entries, To, Index), 2);
    EXPECT_EQ(entries, (Entries{{"DAY1", "GSI"}, {"NINECHARS", "LEVX"}}));
}

TEST_F(ReadSurveyIdxFileTest, GivesZeroForAnIndexWithoutDataLines) {
    Entries entries;
    EXPECT_EQ(ReadSurveyIdxFile(entries, To, Index), 0);
}

TEST_F(ReadSurveyIdxFileTest, GivesMinusOneForAMissingIndex) {
    Entries entries;
    EXPECT_EQ(ReadSurveyIdxFile(entries, To, "SRV99.IDX"), -1);
}

TEST_F(ReadSurveyIdxFileTest, KeepsAndCountsShortAndBlankLines) {
    PutFile(To + Index, IndexHead + "\r\n   \r\nA\r\n         GSI\r\nB        L");
    Entries entries;
    EXPECT_EQ(ReadSurveyIdxFile(entries, To, Index), 5);
    EXPECT_EQ(entries, (Entries{{"", ""}, {"", ""}, {"A", ""}, {"", "GSI"}, {"B", "L"}}));
}

TEST_F(ReadSurveyIdxFileTest, ReportsAnIndexCutInItsHeader) {
    for (const char* content : {"", "\\TARVEX\\DAM\r\n"}) {
        PutFile(To + Index, content);
        Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
        Entries entries;
        EXPECT_EQ(ReadSurveyIdxFile(entries, To, Index), 0);
        EXPECT_EQ(Desktop.Shown.back().Choices, Buttons::RetryCancel);
        EXPECT_NE(Desktop.Shown.back().Text.find("Source : Dorvane-basRead-ReadSurveyIdxFile"),
                  std::string::npos);
    }
}

TEST_F(ReadSurveyIdxFileTest, ReadsABinaryIndexAsItStands) {
    std::string content = "head\nhead\n";
    for (int i = 0; i < 256; ++i)
        content += static_cast<char>(i);
    PutFile(To + Index, content);
    Entries entries;
    EXPECT_EQ(ReadSurveyIdxFile(entries, To, Index), 3);  // a line feed and a carriage return are among them
    EXPECT_EQ(entries[1].Name, std::string("\0\1\2\3\4\5\6\7\10", 9));
}

TEST_F(ReadSurveyIdxFileTest, ReadsALineOfAMillionCharacters) {
    PutFile(To + Index, IndexHead + std::string(1'000'000, 'x') + "\r\nA        GSI\r\n");
    Entries entries;
    EXPECT_EQ(ReadSurveyIdxFile(entries, To, Index), 2);
    EXPECT_EQ(entries, (Entries{{"XXXXXXXXX", "XXXX"}, {"A", "GSI"}}));
}

TEST_F(ReadSurveyIdxFileTest, ReportsTheOverflowPast32767Lines) {
    std::string content = IndexHead;
    for (int i = 0; i < 32768; ++i)
        content += "A\r\n";
    PutFile(To + Index, content);
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 6\r\n\r\nDescription : Overflow\r\n\r\nSource : Dorvane-basRead-ReadSurveyIdxFile");
    Entries entries;
    EXPECT_EQ(ReadSurveyIdxFile(entries, To, Index), 0);
}

TEST_F(GetSurveyIdxNameTest, GivesTheOnlyIndexWhateverItsName) {
    PutFile("D:\\DATA\\SRV12\\SRV5.IDX", "");
    bool created = true;
    EXPECT_EQ(GetSurveyIdxName("D:\\DATA\\SRV12\\", created), "SRV5.IDX");
    EXPECT_FALSE(created);
}

TEST_F(GetSurveyIdxNameTest, GivesOfSeveralTheOneNamedLikeTheFolder) {
    PutFile("C:\\DATA\\SRV12\\SRV12.IDX", "");
    PutFile("C:\\DATA\\SRV12\\SRV7.IDX", "");
    bool created = false;
    EXPECT_EQ(GetSurveyIdxName("C:\\DATA\\SRV12\\", created), "SRV12.IDX");
}

TEST_F(GetSurveyIdxNameTest, GivesNothingOfSeveralWhenNoneIsNamedLikeTheFolder) {
    PutFile("C:\\DATA\\SRV12\\SRV8.IDX", "");
    PutFile("C:\\DATA\\SRV12\\SRV7.IDX", "");
    bool created = false;
    EXPECT_EQ(GetSurveyIdxName("C:\\DATA\\SRV12\\", created), "");
}

TEST_F(GetSurveyIdxNameTest, GivesNothingOfSeveralWithoutSrvInThePath) {
    PutFile("C:\\DATA\\X\\SRV8.IDX", "");
    PutFile("C:\\DATA\\X\\SRV7.IDX", "");
    bool created = false;
    EXPECT_EQ(GetSurveyIdxName("C:\\DATA\\X\\", created), "");
}

TEST_F(GetSurveyIdxNameTest, GivesNothingOfSeveralInAFolderBelowTheSurvey) {
    PutFile("C:\\DATA\\SRV12\\SUB\\SRV12.IDX", "");
    PutFile("C:\\DATA\\SRV12\\SUB\\SRV7.IDX", "");
    bool created = false;
    EXPECT_EQ(GetSurveyIdxName("C:\\DATA\\SRV12\\SUB\\", created), "");
}

TEST_F(GetSurveyIdxNameTest, AsksWithoutAnIconWhenThereIsNone) {
    MakeFolders("D:\\DATA\\SRV12\\");
    Desktop.ExpectMessage("Missing Survey Index File", Question("D:\\DATA\\SRV12\\"), Answer::No);
    bool created = true;
    EXPECT_EQ(GetSurveyIdxName("D:\\DATA\\SRV12\\", created), "");
    EXPECT_FALSE(created);
    EXPECT_EQ(Desktop.Shown[0].Choices, Buttons::YesNo);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::None);
    EXPECT_TRUE(AllFiles("D:\\DATA\\").empty());
}

TEST_F(GetSurveyIdxNameTest, CreatesOneNamedByTheSrvPartOfThePath) {
    MakeFolders("D:\\DATA\\SRV12\\SUB\\");
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::Yes);
    bool created = false;
    EXPECT_EQ(GetSurveyIdxName("D:\\DATA\\SRV12\\SUB\\", created), "SRV12.IDX");
    EXPECT_TRUE(created);
    EXPECT_EQ(FileContent("D:\\DATA\\SRV12\\SUB\\SRV12.IDX"), "\\DATA\\SRV12\\SUB\r\n \r\n");
}

TEST_F(GetSurveyIdxNameTest, CreatesSrvIdxWithoutSrvInThePath) {
    MakeFolders("D:\\DATA\\X\\");
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::Yes);
    bool created = false;
    EXPECT_EQ(GetSurveyIdxName("D:\\DATA\\X\\", created), "SRV.IDX");
    EXPECT_EQ(FileContent("D:\\DATA\\X\\SRV.IDX"), "\\DATA\\X\r\n \r\n");
}

TEST_F(GetSurveyIdxNameTest, CountsAnIndexOfAnotherNameAsNone) {
    PutFile("D:\\DATA\\SRV12\\XYZ.IDX", "");
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::No);
    bool created = false;
    EXPECT_EQ(GetSurveyIdxName("D:\\DATA\\SRV12\\", created), "");
}

TEST_F(GetSurveyIdxNameTest, KeepsAnIndexThatTheListingCouldNotShow) {
    PutFile(To + Index, IndexHead + "DAY1     LEV\r\n");
    SetTimeStamp(To + Index, {2026, 3, 7, 0, 0, 0});  // midnight first in a listing fails it
    Desktop.ExpectMessageTitled("Program Error");
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::Yes);
    bool created = false;
    EXPECT_EQ(GetSurveyIdxName(To, created), Index);
    EXPECT_EQ(FileContent(To + Index), IndexHead + "DAY1     LEV\r\n");
}

TEST_F(GetSurveyIdxNameTest, IsMisledByALocationThatBeginsWithSrv) {
    MakeFolders("D:\\DATA\\SRVC\\SRV12\\");
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::Yes);
    bool created = false;
    EXPECT_EQ(GetSurveyIdxName("D:\\DATA\\SRVC\\SRV12\\", created), "SRVC.IDX");
    EXPECT_TRUE(FileExists("D:\\DATA\\SRVC\\SRV12\\SRVC.IDX"));
}

}  // namespace
}  // namespace Dorvane::Testing
