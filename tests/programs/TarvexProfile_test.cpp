// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/TarvexProfile.h"

#include <gtest/gtest.h>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

const std::string Profile = "C:\\WINDOWS\\dv_tarvex.ini";
const std::string Shipped =
    "; Folders of this workstation\r\n"
    "[Tarvex Info]\r\n"
    "Data_drive=D:\\TARVEX\\\r\n"
    "Calib_path=D:\\TARVEX\\CALIB\\\r\n"
    "; a comment between\r\n"
    "Init_path=D:\\TARVEX\\INIT\\\r\n"
    "Path_type=3\r\n"
    "Editor_type=1\r\n"
    "\r\n"
    "[General Editor]\r\n"
    "Path=C:\\BIN\\\r\n"
    "Name=edit.exe\r\n"
    "[Other]\r\n"
    "Key = kept as it is\r\n";

struct TarvexProfileTest : testing::Test {
    TarvexProfileTest() {
        Site.LayOut();
        PutFile(Profile, Shipped);
    }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace

TEST_F(TarvexProfileTest, ReadsTheKeysAsTheyStand) {
    const TarvexProfile profile = ReadTarvexProfile();
    EXPECT_EQ(profile.Folders[0], "D:\\TARVEX\\");
    EXPECT_EQ(profile.Folders[1], "D:\\TARVEX\\CALIB\\");
    EXPECT_EQ(profile.Folders[2], "");
    EXPECT_EQ(profile.Folders[3], "D:\\TARVEX\\INIT\\");
    EXPECT_EQ(profile.PathType, "3");
    EXPECT_EQ(profile.EditorPath, "C:\\BIN\\");
    EXPECT_EQ(profile.EditorName, "edit.exe");
}

TEST_F(TarvexProfileTest, LeavesTheFileByteForByteWhenNothingChanged) {
    EXPECT_EQ(WriteTarvexProfile(ReadTarvexProfile()), "");
    EXPECT_EQ(FileContent(Profile), Shipped);
}

TEST_F(TarvexProfileTest, ChangesOneLineInPlace) {
    TarvexProfile profile = ReadTarvexProfile();
    profile.Folders[1] = "E:\\CAL\xC9\\";
    EXPECT_EQ(WriteTarvexProfile(profile), "");
    std::string expected = Shipped;
    const std::string former = "Calib_path=D:\\TARVEX\\CALIB\\";
    expected.replace(expected.find(former), former.size(), "Calib_path=E:\\CAL\xC9\\");
    EXPECT_EQ(FileContent(Profile), expected);
}

TEST_F(TarvexProfileTest, AddsAKeyThatIsNotThereYet) {
    TarvexProfile profile = ReadTarvexProfile();
    profile.Folders[7] = "D:\\TARVEX\\DOWNLOAD\\";
    EXPECT_EQ(WriteTarvexProfile(profile), "");
    EXPECT_EQ(ReadTarvexProfile(), profile);
    EXPECT_NE(FileContent(Profile).find("Key = kept as it is\r\n"), std::string::npos);
    EXPECT_NE(FileContent(Profile).find("; a comment between\r\n"), std::string::npos);
}

TEST_F(TarvexProfileTest, RefusesAValueThatWouldBeCut) {
    TarvexProfile profile = ReadTarvexProfile();
    profile.Folders[0] = "D:\\" + std::string(124, 'X') + "\\";
    profile.PathType = "2";
    EXPECT_EQ(WriteTarvexProfile(profile), "Data_drive has more than 127 characters.");
    EXPECT_EQ(FileContent(Profile), Shipped);
    profile.Folders[0] = "D:\\" + std::string(123, 'X') + "\\";
    EXPECT_EQ(WriteTarvexProfile(profile), "");
}

TEST_F(TarvexProfileTest, SaysWhichKeyCouldNotBeWritten) {
    AsNobody([] {
        TarvexProfile profile = ReadTarvexProfile();
        profile.EditorName = "vi";
        EXPECT_EQ(WriteTarvexProfile(profile), "Name cannot be written to C:\\WINDOWS\\dv_tarvex.ini.");
    });
    EXPECT_EQ(FileContent(Profile), Shipped);
}

TEST_F(TarvexProfileTest, ListsEachMissingFolderOnce) {
    TarvexProfile profile;
    profile.Folders = {"D:\\TARVEX", "D:\\NEW\\A", "D:\\NEW\\A\\", "", "", "", "", "D:\\NEW\\B\\"};
    EXPECT_EQ(MissingFolders(profile), (std::vector<std::string>{"D:\\NEW\\A\\", "D:\\NEW\\B\\"}));
    MakeFolderPath("D:\\NEW\\A\\");
    EXPECT_EQ(MissingFolders(profile), (std::vector<std::string>{"D:\\NEW\\B\\"}));
    MakeFolderPath("D:\\NEW\\A\\");
}

TEST_F(TarvexProfileTest, EndsAFolderInABackslashAndLeavesNoneEmpty) {
    EXPECT_EQ(WithBackslash("D:\\A"), "D:\\A\\");
    EXPECT_EQ(WithBackslash("D:\\A\\"), "D:\\A\\");
    EXPECT_EQ(WithBackslash(""), "");
}

}  // namespace Dorvane::Testing
