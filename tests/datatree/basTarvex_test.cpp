// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/basTarvex.h"

#include <filesystem>
#include <fstream>

#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

using GetFiles = DataSite;
using GetDirectories = DataSite;

constexpr DateTime Afternoon{2026, 11, 20, 15, 4, 5};

TEST(SplitTimeStamp, CutsAtTheFirstBlankAndTellsItsPosition) {
    int blank = 0;
    std::string date;
    std::string time;
    SplitTimeStamp("1/5/2026 3:04:05 PM", blank, date, time);
    EXPECT_EQ(blank, 9);
    EXPECT_EQ(date, "1/5/2026");
    EXPECT_EQ(time, "3:04:05 PM");
}

TEST(SplitTimeStamp, LeavesTheTimeEmptyFromPosition20On) {
    int blank = 0;
    std::string date;
    std::string time = "before";
    SplitTimeStamp("1234567890123456789 12", blank, date, time);
    EXPECT_EQ(blank, 20);
    EXPECT_EQ(date, "1234567890123456789 12");
    EXPECT_EQ(time, "");
}

TEST(SplitTimeStamp, SeesNoBlankBehindThe20thCharacter) {
    int blank = 4;
    std::string date;
    std::string time;
    SplitTimeStamp("12345678901234567890 1", blank, date, time);
    EXPECT_EQ(blank, 4);
    EXPECT_EQ(date, "1234");
    EXPECT_EQ(time, "45678901234567890 1");
}

TEST_F(GetFiles, GivesUpperCaseNamesStampsAndSizes) {
    PutFile(Data("F\\night.gsi"), "12345");
    SetTimeStamp(Data("F\\night.gsi"), Afternoon);
    List1<FileEntry> files;
    ASSERT_EQ(Dorvane::GetFiles(files, Data("F\\"), "*.*"), 1);
    EXPECT_EQ(files[1], (FileEntry{"NIGHT.GSI", "11/20/2026", "3:04:05 PM", 5}));
}

TEST_F(GetFiles, TakesOnlyFilesThatMatchThePattern) {
    for (const char* name : {"SRV1.IDX", "srv2.idx", "SRV1.TXT", "A.IDX"})
        PutFile(Data("F\\") + name, "");
    MakeFolders(Data("F\\SRVDIR.IDX\\"));
    for (const char* name : {"SRV1.IDX", "srv2.idx", "SRV1.TXT", "A.IDX"})
        SetTimeStamp(Data("F\\") + name, Afternoon);
    List1<FileEntry> files;
    ASSERT_EQ(Dorvane::GetFiles(files, Data("F\\"), "SRV*.IDX"), 2);
    EXPECT_EQ(files[1].Name, "SRV1.IDX");
    EXPECT_EQ(files[2].Name, "SRV2.IDX");
}

TEST_F(GetFiles, KeepsNoFoldersAndNothingOfTheFormerListing) {
    MakeFolders(Data("F\\DEEP\\"));
    List1<FileEntry> files{{"OLD", "", "", 1}};
    EXPECT_EQ(Dorvane::GetFiles(files, Data("F\\"), "*.*"), 0);
    EXPECT_TRUE(files.Empty());
}

TEST_F(GetFiles, HaveTheLargestSizeThatFitsWhereTheyAreLarger) {
    PutFile(Data("F\\LONG.DAT"), "");
    std::filesystem::resize_file(Drives::HostPath(Data("F\\LONG.DAT")), std::uintmax_t{3} << 30);
    SetTimeStamp(Data("F\\LONG.DAT"), Afternoon);
    List1<FileEntry> files;
    ASSERT_EQ(Dorvane::GetFiles(files, Data("F\\"), "*.*"), 1);
    EXPECT_EQ(files[1].Size, 2147483647);
}

TEST_F(GetFiles, OfAMissingFolderAreNone) {
    List1<FileEntry> files;
    EXPECT_EQ(Dorvane::GetFiles(files, Data("NOWHERE\\"), "*.*"), 0);
}

TEST_F(GetFiles, UpperCasesNamesWithAccents) {
    PutFile(Data("F\\m\xFCller.gsi"), "");
    SetTimeStamp(Data("F\\m\xFCller.gsi"), Afternoon);
    List1<FileEntry> files;
    ASSERT_EQ(Dorvane::GetFiles(files, Data("F\\"), "*.*"), 1);
    EXPECT_EQ(files[1].Name, "M\xDCLLER.GSI");
}

TEST_F(GetFiles, ReportsAFirstFileStampedAtMidnight) {
    PutFile(Data("F\\A.GSI"), "");
    SetTimeStamp(Data("F\\A.GSI"), {2026, 11, 20, 0, 0, 0});
    ExpectReport(Desk, 5, "Invalid procedure call or argument", "basTarvex-GetFiles");
    List1<FileEntry> files;
    EXPECT_EQ(Dorvane::GetFiles(files, Data("F\\"), "*.*"), 0);
    EXPECT_TRUE(files.Empty());
}

TEST_F(GetFiles, SplitsALaterMidnightWhereTheStampBeforeWasSplit) {
    PutFile(Data("F\\A.GSI"), "");
    PutFile(Data("F\\B.GSI"), "");
    PutFile(Data("F\\C.GSI"), "");
    SetTimeStamp(Data("F\\A.GSI"), {2026, 1, 5, 15, 4, 5});
    SetTimeStamp(Data("F\\B.GSI"), {2026, 11, 20, 0, 0, 0});
    SetTimeStamp(Data("F\\C.GSI"), {2026, 11, 20, 0, 0, 1});
    List1<FileEntry> files;
    ASSERT_EQ(Dorvane::GetFiles(files, Data("F\\"), "*.*"), 3);
    EXPECT_EQ(files[1].Date, "1/5/2026");
    EXPECT_EQ(files[2].Date, "11/20/202");
    EXPECT_EQ(files[2].Time, "26");
    EXPECT_EQ(files[3].Date, "11/20/2026");
    EXPECT_EQ(files[3].Time, "12:00:01 AM");
}

TEST_F(GetFiles, LeavesTheTimeOfAShorterMidnightStampEmpty) {
    PutFile(Data("F\\A.GSI"), "");
    PutFile(Data("F\\B.GSI"), "");
    SetTimeStamp(Data("F\\A.GSI"), Afternoon);
    SetTimeStamp(Data("F\\B.GSI"), {2026, 1, 5, 0, 0, 0});
    List1<FileEntry> files;
    ASSERT_EQ(Dorvane::GetFiles(files, Data("F\\"), "*.*"), 2);
    EXPECT_EQ(files[2].Date, "1/5/2026");
    EXPECT_EQ(files[2].Time, "");
}

TEST_F(GetFiles, ReportsAFolderThatMayNotBeRead) {
    PutFile(Data("SHUT\\A.GSI"), "");
    Shut(Data("SHUT\\"));
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        List1<FileEntry> files;
        EXPECT_EQ(Dorvane::GetFiles(files, Data("SHUT\\"), "*.*"), 0);
        ASSERT_EQ(desktop.Shown.size(), 1u);
        EXPECT_NE(desktop.Shown[0].Text.find("Source : Dorvane-basTarvex-GetFiles"), std::string::npos);
    });
}

TEST_F(GetFiles, ReportsMoreFilesThanA16BitCountHolds) {
    MakeFolders(Data("F\\"));
    const std::string host = Drives::HostPath(Data("F\\"));
    for (int i = 0; i <= 32767; ++i)
        std::ofstream(host + "F" + std::to_string(i)).put('x');
    SetTimeStamp(Data("F\\F0"), Afternoon);
    ExpectReport(Desk, 6, "Overflow", "basTarvex-GetFiles");
    List1<FileEntry> files;
    EXPECT_EQ(Dorvane::GetFiles(files, Data("F\\"), "*.*"), 0);
}

TEST_F(GetDirectories, KeepsFoldersAsTheyAreSpelled) {
    MakeFolders(Data("F\\Raw\\"));
    MakeFolders(Data("F\\LONGFOLDERNAME\\"));
    MakeFolders(Data("F\\\xE9t\xE9\\"));
    PutFile(Data("F\\FILE"), "");
    List1<std::string> names{"OLD"};
    ASSERT_EQ(Dorvane::GetDirectories(names, Data("F\\")), 3);
    EXPECT_EQ(names, (List1<std::string>{"LONGFOLDERNAME", "Raw", "\xE9t\xE9"}));
}

TEST_F(GetDirectories, OfAMissingFolderAreNone) {
    List1<std::string> names;
    EXPECT_EQ(Dorvane::GetDirectories(names, Data("NOWHERE\\")), 0);
}

TEST_F(GetDirectories, ReportsAFolderThatMayNotBeRead) {
    MakeFolders(Data("SHUT\\DEEP\\"));
    Shut(Data("SHUT\\"));
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        List1<std::string> names;
        EXPECT_EQ(Dorvane::GetDirectories(names, Data("SHUT\\")), 0);
        ASSERT_EQ(desktop.Shown.size(), 1u);
        EXPECT_NE(desktop.Shown[0].Text.find("Source : Dorvane-basTarvex-GetDirectories"), std::string::npos);
    });
}

}  // namespace Dorvane::Testing
