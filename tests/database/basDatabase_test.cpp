// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/basDatabase.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "core/Globals.h"
#include "core/basGeneral.h"
#include "tests/database/DatabaseSite.h"

namespace Dorvane::Testing {
namespace {

const std::vector<std::string> OrderOfMaking = {"3DIM.DAT", "BNCHMARK.DAT", "IDEALS.DAT", "MONUMENT.DAT",
                                                "3DIM.IDX", "BNCHMARK.IDX", "IDEALS.IDX", "MONUMENT.IDX",
                                                "3DIM.LST", "BNCHMARK.LST", "IDEALS.LST", "MONUMENT.LST",
                                                "NORTH.REF"};

using WriteCoordNewFiles = DatabaseSite;

TEST_F(WriteCoordNewFiles, BeginsThreeDimensionalDataWithALineOf91) {
    EXPECT_EQ(
        FileContent(North + "3DIM.DAT"),
        " 93      1                                                                                0\r\n");
    EXPECT_EQ(FileContent(North + "3DIM.DAT").size(), 93u);
}

TEST_F(WriteCoordNewFiles, BeginsMonumentDataWithALineOf71) {
    EXPECT_EQ(FileContent(North + "MONUMENT.DAT"),
              " 73      1                                                            0\r\n");
    EXPECT_EQ(FileContent(North + "MONUMENT.DAT").size(), 73u);
}

TEST_F(WriteCoordNewFiles, BeginsIdealDataWithALineOf61) {
    EXPECT_EQ(FileContent(North + "IDEALS.DAT"),
              " 63      1                                                  0\r\n");
    EXPECT_EQ(FileContent(North + "IDEALS.DAT").size(), 63u);
}

TEST_F(WriteCoordNewFiles, BeginsBenchmarkDataWithALineOf43) {
    EXPECT_EQ(FileContent(North + "BNCHMARK.DAT"), " 45      1                                0\r\n");
    EXPECT_EQ(FileContent(North + "BNCHMARK.DAT").size(), 45u);
}

TEST_F(WriteCoordNewFiles, BeginsEachIndexWithTheSameLine) {
    for (const char* file : {"3DIM.IDX", "BNCHMARK.IDX", "IDEALS.IDX", "MONUMENT.IDX"})
        EXPECT_EQ(FileContent(North + file), " 16      0   0\r\n") << file;
}

TEST_F(WriteCoordNewFiles, GivesTheReferenceFileAHeaderOneLongerThanItsRecords) {
    EXPECT_EQ(FileContent(North + "NORTH.REF"), " 32      1                    0\r\n");
    EXPECT_EQ(FileContent(North + "NORTH.REF").size(), 33u);
}

TEST_F(WriteCoordNewFiles, LeavesTheListsEmpty) {
    for (const char* file : {"3DIM.LST", "BNCHMARK.LST", "IDEALS.LST", "MONUMENT.LST"})
        EXPECT_EQ(FileContent(North + file), "") << file;
}

TEST_F(WriteCoordNewFiles, MakesTheThirteenFilesAndNoOther) {
    std::vector<std::string> files = OrderOfMaking;
    std::sort(files.begin(), files.end());
    EXPECT_EQ(AllFiles(North), files);
}

TEST_F(WriteCoordNewFiles, EmptiesFormerFiles) {
    Enter("P1", 1);
    WriteCoordNew(North, "NORTH");
    EXPECT_EQ(FileContent(North + "3DIM.LST"), "");
    EXPECT_EQ(FileContent(North + "3DIM.IDX"), " 16      0   0\r\n");
    EXPECT_TRUE(Named({"P1"}).empty());
}

TEST_F(WriteCoordNewFiles, MakesNoneWhereOneCannotBeMade) {
    for (std::size_t blocked = 0; blocked < OrderOfMaking.size(); ++blocked) {
        const std::string folder = "D:\\ORDER" + std::to_string(blocked) + "\\";
        MakeFolders(folder + OrderOfMaking[blocked] + "\\");
        EXPECT_EQ(ErrorOf([&] { WriteCoordNew(folder, "NORTH"); }).Number, PathFileAccess);
        EXPECT_TRUE(AllFiles(folder).empty()) << OrderOfMaking[blocked];
    }
}

TEST_F(WriteCoordNewFiles, AreCompletedWhereSomeAreMissingAndTheOthersStay) {
    Enter("P1", 1);
    EXPECT_FALSE(LacksCoordFiles(North, "NORTH"));
    for (const char* gone : {"IDEALS.DAT", "NORTH.REF"})
        Drives::DeleteFile(North + gone);
    EXPECT_TRUE(LacksCoordFiles(North, "NORTH"));
    WriteLocationNew(North, "NORTH");
    EXPECT_FALSE(LacksCoordFiles(North, "NORTH"));
    EXPECT_EQ(AllFiles(North).size(), 13u);
    EXPECT_EQ(XOf("P1"), 1);
}

TEST_F(WriteCoordNewFiles, RaisesAMissingFolder) {
    EXPECT_EQ(ErrorOf([] { WriteCoordNew("D:\\NOWHERE\\", "NORTH"); }).Number, PathNotFound);
}

using MakeCoordBackupsOf = DatabaseSite;

TEST_F(MakeCoordBackupsOf, ThreeDimensionalDataCopiesListIndexDataAndReference) {
    Enter("P1", 1);
    EXPECT_TRUE(MakeCoordBackups(North, 3));
    for (const char* file : {"3DIM.LST", "3DIM.IDX", "3DIM.DAT", "NORTH.REF"})
        EXPECT_EQ(FileContent(North + "Backup " + file), FileContent(North + file)) << file;
    EXPECT_EQ(AllFiles(North).size(), 13u + 4u);
}

TEST_F(MakeCoordBackupsOf, BenchmarksAndMonumentsCopyTheirOwnFiles) {
    EXPECT_TRUE(MakeCoordBackups(North, 1));
    EXPECT_EQ(FileContent(North + "Backup BNCHMARK.DAT"), FileContent(North + "BNCHMARK.DAT"));
    EXPECT_TRUE(FileExists(North + "Backup NORTH.REF"));
    EXPECT_TRUE(MakeCoordBackups(North, 2));
    EXPECT_EQ(FileContent(North + "Backup MONUMENT.DAT"), FileContent(North + "MONUMENT.DAT"));
    EXPECT_EQ(AllFiles(North).size(), 13u + 7u);
}

TEST_F(MakeCoordBackupsOf, ASecondTimeReplaceTheFormerCopies) {
    MakeCoordBackups(North, 3);
    Enter("P1", 1);
    MakeCoordBackups(North, 3);
    EXPECT_EQ(FileContent(North + "Backup 3DIM.LST"), "P1\r\n");
}

TEST_F(MakeCoordBackupsOf, IdealsFailOnTheNameWithoutItsS) {
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(MakeCoordBackups(North, 4));
    EXPECT_EQ(AllFiles(North).size(), 13u);
    ASSERT_EQ(Desk.Shown.size(), 1u);
    EXPECT_NE(Desk.Shown[0].Text.find("Error : 53"), std::string::npos) << Desk.Shown[0].Text;
    EXPECT_NE(Desk.Shown[0].Text.find("IDEAL.LST"), std::string::npos) << Desk.Shown[0].Text;
    EXPECT_NE(Desk.Shown[0].Text.find("Source : Dorvane-basDatabase-MakeCoordBackups"), std::string::npos)
        << Desk.Shown[0].Text;
}

TEST_F(MakeCoordBackupsOf, IdealsCopyFilesOfThatNameWhereSomebodyPutThem) {
    for (const char* file : {"IDEAL.LST", "IDEAL.IDX", "IDEAL.DAT"})
        PutFile(North + file, file);
    EXPECT_TRUE(MakeCoordBackups(North, 4));
    EXPECT_EQ(FileContent(North + "Backup IDEAL.DAT"), "IDEAL.DAT");
    EXPECT_TRUE(FileExists(North + "Backup NORTH.REF"));
}

TEST_F(MakeCoordBackupsOf, AnyOtherCodeDoesNothing) {
    EXPECT_TRUE(MakeCoordBackups(North, 0));
    EXPECT_TRUE(MakeCoordBackups(North, 5));
    EXPECT_EQ(AllFiles(North).size(), 13u);
}

TEST_F(MakeCoordBackupsOf, GoInTheOrderListIndexDataReference) {
    const std::vector<std::string> order = {"3DIM.LST", "3DIM.IDX", "3DIM.DAT", "NORTH.REF"};
    for (std::size_t there = 0; there < order.size(); ++there) {
        const std::string folder = "D:\\ORDER" + std::to_string(there) + "\\NORTH\\";
        MakeFolders(folder);
        for (std::size_t i = 0; i < there; ++i)
            PutFile(folder + order[i], order[i]);
        Desk.ExpectMessageTitled("Program Error");
        EXPECT_FALSE(MakeCoordBackups(folder, 3));
        EXPECT_NE(Desk.Shown.back().Text.find(order[there]), std::string::npos) << Desk.Shown.back().Text;
        EXPECT_FALSE(FileExists(folder + "Backup *.*"));
    }
}

TEST_F(MakeCoordBackupsOf, KeepTheTimesOfTheFiles) {
    SetTimeStamp(North + "3DIM.IDX", DateTime{2020, 2, 3, 4, 5, 6});
    MakeCoordBackups(North, 3);
    Drives::Entry copy;
    ASSERT_TRUE(Drives::Find(North + "Backup 3DIM.IDX", copy));
    EXPECT_EQ(copy.Modified.Year, 2020);
    EXPECT_EQ(copy.Modified.Second, 6);
}

TEST_F(MakeCoordBackupsOf, LeaveTheFormerCopiesWhereOneFileCannotBeRead) {
    MakeCoordBackups(North, 3);
    Enter("P1", 1);
    Drives::DeleteFile(North + "NORTH.REF");
    const auto before = Picture(North);
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(MakeCoordBackups(North, 3));
    EXPECT_EQ(Picture(North), before);
}

TEST_F(MakeCoordBackupsOf, AFullDiskAskWhetherToGoOn) {
    OnSmallDisk(North, 128, [&] {
        WriteCoordNew(North, "NORTH");
        Enter("P1", 1);
        FillDisk(North);
        Desk.ExpectMessageTitled("Program Error", Answer::No);
        EXPECT_FALSE(MakeCoordBackups(North, 3));
        ASSERT_EQ(Desk.Shown.size(), 1u);
        EXPECT_NE(Desk.Shown[0].Text.find("Disk is full. Continue?"), std::string::npos)
            << Desk.Shown[0].Text;
        EXPECT_FALSE(FileExists(North + "Backup 3DIM.LST"));
    });
}

TEST_F(MakeCoordBackupsOf, AFullDiskGoOnWhereTheOperatorMadeRoom) {
    OnSmallDisk(North, 128, [&] {
        WriteCoordNew(North, "NORTH");
        Enter("P1", 1);
        FillDisk(North);
        RoomMakingDesktop helpful(North);
        helpful.ExpectMessageTitled("Program Error", Answer::Yes);
        EXPECT_TRUE(MakeCoordBackups(North, 3));
        EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), FileContent(North + "3DIM.DAT"));
    });
}

class ReadBias : public DatabaseSite {
  protected:
    void Put(const std::vector<std::string>& lines) const { PutLines("D:\\TARVEX\\INIT\\BIAS.STR", lines); }

    List1<double> Values{91, 92, 93, 94};
};

TEST_F(ReadBias, TakesWordsTwoToFiveOfTheLocationsLine) {
    Put({"STDBIAS  1 2 3 4", "north    10.5, -20\t30 0.25 and a remark"});
    EXPECT_TRUE(ReadBiasFile("NORTH", Values));
    EXPECT_EQ(Values, (List1<double>{10.5, -20, 30, 0.25}));
}

TEST_F(ReadBias, TakesTheFirstOfSeveralLines) {
    Put({"NORTH    1 2 3 4", "NORTH    5 6 7 8"});
    EXPECT_TRUE(ReadBiasFile("NORTH", Values));
    EXPECT_EQ(Values[1], 1);
}

TEST_F(ReadBias, TakesEightColumnsForTheKeyWhateverTheyHold) {
    Put({"NORTH 1 2 3 4", "NORTHERN9 5 6 7 8"});
    EXPECT_FALSE(ReadBiasFile("NORTH", Values));
    EXPECT_TRUE(ReadBiasFile("NORTHERN", Values));
    EXPECT_EQ(Values[1], 5);
}

TEST_F(ReadBias, FallsBackToTheStandardForALineOfFourWords) {
    Put({"NORTH    10 20 30", "STDBIAS  1 2 3 4"});
    EXPECT_TRUE(ReadBiasFile("NORTH", Values));
    EXPECT_EQ(Values, (List1<double>{1, 2, 3, 4}));
}

TEST_F(ReadBias, GoesOnSearchingBehindALineOfFourWords) {
    Put({"NORTH    10 20 30", "NORTH    5 6 7 8", "STDBIAS  1 2 3 4"});
    EXPECT_TRUE(ReadBiasFile("NORTH", Values));
    EXPECT_EQ(Values[1], 5);
}

TEST_F(ReadBias, GivesALongLocationNameTheStandard) {
    Put({"NORTHWEST 10 20 30 40", "STDBIAS  1 2 3 4"});
    EXPECT_TRUE(ReadBiasFile("NORTHWEST", Values));
    EXPECT_EQ(Values[1], 1);
}

TEST_F(ReadBias, TakesAnIndentedKeyForAComment) {
    Put({" NORTH   10 20 30 40", ";NORTH   11 20 30 40", "STDBIAS  1 2 3 4"});
    EXPECT_TRUE(ReadBiasFile("NORTH", Values));
    EXPECT_EQ(Values[1], 1);
}

TEST_F(ReadBias, LeavesTheValuesWhenNeitherKeyIsThere) {
    Put({"SOUTH    10 20 30 40", ""});
    EXPECT_FALSE(ReadBiasFile("NORTH", Values));
    EXPECT_EQ(Values, (List1<double>{91, 92, 93, 94}));
}

TEST_F(ReadBias, ReadsAWordThatIsNoNumberAsZero) {
    Put({"NORTH    10 none 30x 40"});
    EXPECT_TRUE(ReadBiasFile("NORTH", Values));
    EXPECT_EQ(Values, (List1<double>{10, 0, 30, 40}));
}

TEST_F(ReadBias, ReportsAMissingFile) {
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(ReadBiasFile("NORTH", Values));
    ASSERT_EQ(Desk.Shown.size(), 1u);
    EXPECT_NE(Desk.Shown[0].Text.find("Error : 53"), std::string::npos);
    EXPECT_NE(Desk.Shown[0].Text.find("-basRead-ReadBiasFile"), std::string::npos) << Desk.Shown[0].Text;
    EXPECT_EQ(Values[4], 94);
}

TEST_F(ReadBias, ReportsAFiftyFirstWord) {
    std::string line = "NORTH  ";
    for (int i = 0; i < 50; ++i)
        line += " 1";
    Put({line});
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(ReadBiasFile("NORTH", Values));
}

TEST_F(ReadBias, SurvivesALineOfAMillionCharactersAndBinaryContent) {
    PutFile("D:\\TARVEX\\INIT\\BIAS.STR",
            std::string(1000000, 'X') + "\r\n" + std::string("\0\x01\xFF\n", 4));
    EXPECT_FALSE(ReadBiasFile("NORTH", Values));
}

TEST_F(ReadBias, ReportsAFileItMayNotRead) {
    Put({"NORTH 1 2 3 4"});
    Drives::WriteFile("P:\\DORVANE\\ERROR.LOG", "");
    const std::string host = Drives::HostPath("D:\\TARVEX\\INIT\\BIAS.STR");
    std::filesystem::permissions(host, std::filesystem::perms::owner_write);
    AsNobody([&] {
        Desk.ExpectMessageTitled("Program Error");
        EXPECT_FALSE(ReadBiasFile("NORTH", Values));
        ASSERT_EQ(Desk.Shown.size(), 1u);
        EXPECT_NE(Desk.Shown[0].Text.find("-basRead-ReadBiasFile"), std::string::npos) << Desk.Shown[0].Text;
    });
}

class AddingAStandardBias : public DatabaseSite {
  protected:
    const std::string Path = "D:\\TARVEX\\INIT\\BIAS.STR";
};

TEST_F(AddingAStandardBias, LetsTheFirstRetrievalOfANewLocationFindItsBias) {
    WriteLocationNew(North, "NORTH");
    EXPECT_EQ(FileContent(Path), "STDBIAS  0 0 0 0\r\n");
    EXPECT_EQ(AllFiles(North).size(), 13u);
    List1<double> values{91, 92, 93, 94};
    EXPECT_TRUE(ReadBiasFile("NORTH", values));
    EXPECT_EQ(values, (List1<double>{0, 0, 0, 0}));
    WriteLocationNew(North, "SOUTH");
    EXPECT_EQ(FileContent(Path), "STDBIAS  0 0 0 0\r\n");
}

TEST_F(AddingAStandardBias, LeavesAFileThatHasTheLocationOrTheStandard) {
    for (const char* content :
         {"; c\r\nnorth    1 2 3 4", "STDBIAS 1 2 3 4\r\n\x1A", "stdbias 1,2,3,4 rest"}) {
        PutFile(Path, content);
        AddStandardBias("NORTH");
        EXPECT_EQ(FileContent(Path), content);
    }
}

TEST_F(AddingAStandardBias, AppendsToAFileWithNeither) {
    const std::string line = "STDBIAS  0 0 0 0\r\n";
    const std::string other = "SOUTH    1 2 3 4";
    for (const auto& [former, ended] : {std::pair<std::string, std::string>{"", ""},
                                        {other, other + "\r\n"},
                                        {other + "\n", other + "\n"},
                                        {"NORTH    1 2 3\r\n", "NORTH    1 2 3\r\n"},
                                        {" STDBIAS 1 2 3 4\r\n", " STDBIAS 1 2 3 4\r\n"}}) {
        PutFile(Path, former);
        AddStandardBias("NORTH");
        EXPECT_EQ(FileContent(Path), ended + line);
        PutFile(Path, former + "\x1A");
        AddStandardBias("NORTH");
        EXPECT_EQ(FileContent(Path), ended + line + "\x1A");
    }
}

TEST_F(AddingAStandardBias, ReportsAFileThatItMayNotWrite) {
    PutFile(Path, "SOUTH    1 2 3 4\r\n");
    Drives::WriteFile("P:\\DORVANE\\ERROR.LOG", "");
    AsNobody([&] {
        Desk.ExpectMessageTitled("Program Error", Answer::Cancel);
        AddStandardBias("NORTH");
        EXPECT_NE(Desk.Shown.back().Text.find("-basDatabase-AddStandardBias"), std::string::npos);
    });
    EXPECT_EQ(FileContent(Path), "SOUTH    1 2 3 4\r\n");
}

TEST_F(AddingAStandardBias, WaitsForAFolderToPutItIn) {
    Global().Init_path.clear();
    AddStandardBias("NORTH");
    EXPECT_FALSE(FileExists(Path));
    EXPECT_FALSE(FileExists("BIAS.STR"));
}

using ReadWorkList = DatabaseSite;

TEST_F(ReadWorkList, GivesNoNamesWithoutAFile) {
    List1<std::string> names{"OLD"};
    EXPECT_EQ(ReadWorkListFile(names), 0);
    EXPECT_TRUE(names.Empty());
}

TEST_F(ReadWorkList, TakesColumnsOneToEightTrimmed) {
    PutLines("C:\\TARVEX\\WORK\\WORK.LST", {"P1", " P2     remark", "LONGNAME9", "lower"});
    List1<std::string> names;
    EXPECT_EQ(ReadWorkListFile(names), 4);
    EXPECT_EQ(names, (List1<std::string>{"P1", "P2", "LONGNAME", "lower"}));
}

TEST_F(ReadWorkList, CountsAnEmptyLineAsAnEmptyName) {
    PutFile("C:\\TARVEX\\WORK\\WORK.LST", "P1\r\n\r\n   \r\nP2");
    List1<std::string> names;
    EXPECT_EQ(ReadWorkListFile(names), 4);
    EXPECT_EQ(names, (List1<std::string>{"P1", "", "", "P2"}));
}

TEST_F(ReadWorkList, ReportsMoreNamesThanACountHolds) {
    std::string content;
    for (int i = 0; i < 32768; ++i)
        content += "P\r\n";
    PutFile("C:\\TARVEX\\WORK\\WORK.LST", content);
    Desk.ExpectMessageTitled("Program Error");
    List1<std::string> names;
    EXPECT_EQ(ReadWorkListFile(names), 0);
    ASSERT_EQ(Desk.Shown.size(), 1u);
    EXPECT_NE(Desk.Shown[0].Text.find("Error : 6\r\n"), std::string::npos) << Desk.Shown[0].Text;
    EXPECT_NE(Desk.Shown[0].Text.find("-basRead-ReadWorkListFile"), std::string::npos);
}

}  // namespace
}  // namespace Dorvane::Testing
