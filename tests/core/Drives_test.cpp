// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

class DrivesTest : public testing::Test {
  protected:
    TestSite Site;

    template <class Statement>
    static int NumberRaised(Statement statement) {
        try {
            statement();
        } catch (const RunTimeError& error) {
            return error.Number;
        }
        return 0;
    }

    static std::vector<std::string> Names(const std::string& folder, const std::string& pattern) {
        std::vector<std::string> names;
        for (const Drives::Entry& entry : Drives::List(folder, pattern))
            names.push_back(entry.Name);
        return names;
    }
};

TEST_F(DrivesTest, AFirstStartLaysOutTheDrives) {
    const std::string folder = Site.HostFolder() + "new/drives";
    Drives::Open(folder);
    EXPECT_TRUE(std::filesystem::is_directory(folder + "/c:/WINDOWS"));
    EXPECT_TRUE(std::filesystem::is_directory(folder + "/c:/TEMP"));
    EXPECT_EQ(std::filesystem::read_symlink(folder + "/z:"), "/");
    EXPECT_EQ(Drives::DriveLetters(), "CZ");
}

TEST_F(DrivesTest, FindsNamesIgnoringCase) {
    PutFile("D:\\Data\\North\\Level.res", "x");
    EXPECT_EQ(Drives::HostPath("d:\\DATA\\NORTH\\LEVEL.RES"), Site.HostFolder() + "d:/Data/North/Level.res");
    EXPECT_EQ(Drives::ReadFile("D:\\data\\north\\LEVEL.RES"), "x");
}

TEST_F(DrivesTest, ReadsAFileInPieces) {
    PutFile("D:\\LONG.TXT", "0123456789");
    const Drives::PiecewiseFile file("D:\\long.txt");
    EXPECT_EQ(file.Length(), 10);
    EXPECT_EQ(file.Read(3, 4), "3456");
    EXPECT_EQ(file.Read(8, 4), "89");
    EXPECT_EQ(file.Read(10, 4), "");
    Drives::WriteFile("D:\\LONG.TXT", "another");
    EXPECT_EQ(file.Read(0, 20), "0123456789");  // what was opened, not what has its name now
    EXPECT_EQ(NumberRaised([] { Drives::PiecewiseFile("D:\\NONE.TXT"); }), FileNotFound);
    EXPECT_EQ(NumberRaised([] { Drives::PiecewiseFile("D:\\"); }), PathFileAccess);
}

TEST_F(DrivesTest, MarksEveryChangeOfAFile) {
    EXPECT_EQ(Drives::ChangeMark("D:\\A.TXT"), "");
    PutFile("D:\\A.TXT", "one");
    const std::string mark = Drives::ChangeMark("D:\\A.TXT");
    EXPECT_NE(mark, "");
    EXPECT_EQ(Drives::ChangeMark("D:\\a.txt"), mark);
    Drives::WriteFile("D:\\A.TXT", "two");  // as long as before, and within the same second
    EXPECT_NE(Drives::ChangeMark("D:\\A.TXT"), mark);
}

TEST_F(DrivesTest, KnowsWhatMayBeReplaced) {
    PutFile("D:\\OPEN\\MINE.TXT", "x");
    PutFile("D:\\OPEN\\LOCKED.TXT", "x");
    PutFile("D:\\SHUT\\MINE.TXT", "x");
    chmod(Drives::HostPath("D:\\OPEN\\").c_str(), 0777);
    chmod(Drives::HostPath("D:\\OPEN\\MINE.TXT").c_str(), 0666);
    chmod(Drives::HostPath("D:\\OPEN\\LOCKED.TXT").c_str(), 0444);
    chmod(Drives::HostPath("D:\\SHUT\\").c_str(), 0755);
    chmod(Drives::HostPath("D:\\SHUT\\MINE.TXT").c_str(), 0666);
    AsNobody([] {
        EXPECT_TRUE(Drives::MayReplace("D:\\OPEN\\MINE.TXT"));
        EXPECT_TRUE(Drives::MayReplace("D:\\OPEN\\NEW.TXT"));
        EXPECT_FALSE(Drives::MayReplace("D:\\OPEN\\LOCKED.TXT"));
        EXPECT_FALSE(Drives::MayReplace("D:\\SHUT\\MINE.TXT"));
        EXPECT_FALSE(Drives::MayReplace("D:\\SHUT\\NEW.TXT"));
    });
    EXPECT_FALSE(Drives::MayReplace("D:\\NONE\\NEW.TXT"));
}

TEST_F(DrivesTest, PrefersTheNameSpelledAlike) {
    std::filesystem::create_directories(Site.HostFolder() + "d:");
    std::ofstream(Site.HostFolder() + "d:/A.TXT") << "upper";
    std::ofstream(Site.HostFolder() + "d:/a.txt") << "lower";
    EXPECT_EQ(Drives::ReadFile("D:\\A.TXT"), "upper");
    EXPECT_EQ(Drives::ReadFile("D:\\a.txt"), "lower");
    EXPECT_EQ(Drives::ReadFile("D:\\A.txt"), "upper");
}

TEST_F(DrivesTest, KeepsPartsThatAreNotThereAsGiven) {
    EXPECT_EQ(Drives::HostPath("D:\\New\\Sub\\"), Site.HostFolder() + "d:/New/Sub/");
    EXPECT_EQ(Drives::HostPath("D:\\"), Site.HostFolder() + "d:/");
}

TEST_F(DrivesTest, CarriesAccentsToTheDiskAndBack) {
    PutFile("D:\\\xC9t\xE9 \x80\\R\xE9sum\xE9.TXT", "x");
    EXPECT_TRUE(std::filesystem::exists(Site.HostFolder() +
                                        "d:/\xC3\x89t\xC3\xA9 \xE2\x82\xAC/R\xC3\xA9sum\xC3\xA9.TXT"));
    EXPECT_EQ(Names("D:\\\xE9T\xC9 \x80\\", "*.*"), std::vector<std::string>{"R\xE9sum\xE9.TXT"});
}

TEST_F(DrivesTest, ReachesANameOutsideTheCodePageByItsQuestionMarks) {
    std::ofstream(Site.HostFolder() + "d:/\xE4\xBD\xA0.TXT") << "found";
    EXPECT_EQ(Names("D:\\", "*.TXT"), std::vector<std::string>{"?.TXT"});
    Drives::Entry entry;
    EXPECT_EQ(NumberRaised([&] { Drives::Find("D:\\?.TXT", entry); }), BadFileName);
}

TEST_F(DrivesTest, TranslatesHostPathsBackByTheNearestDrive) {
    MakeFolders("D:\\DATA\\");
    EXPECT_EQ(Drives::DrivePath(Site.HostFolder() + "d:/DATA"), "D:\\DATA");
    EXPECT_EQ(Drives::DrivePath(Site.HostFolder() + "d:/DATA/"), "D:\\DATA\\");
    EXPECT_EQ(Drives::DrivePath("/etc/hostname"), "Z:\\etc\\hostname");
}

TEST_F(DrivesTest, TranslatesTheHostPathOfAFileThatIsNotThereYet) {
    EXPECT_EQ(Drives::DrivePath(Site.HostFolder() + "d:/NEW/A.TXT"), "D:\\NEW\\A.TXT");
    std::filesystem::create_directory(Site.HostFolder() + "elsewhere");
    std::filesystem::create_directory_symlink(Site.HostFolder() + "elsewhere", Site.HostFolder() + "e:");
    EXPECT_EQ(Drives::DrivePath(Site.HostFolder() + "elsewhere/NEW/A.TXT"), "E:\\NEW\\A.TXT");
}

TEST_F(DrivesTest, TranslatesByTheFirstOfTwoDrivesOnOneFolder) {
    std::filesystem::create_directory(Site.HostFolder() + "elsewhere");
    for (const char* link : {"e:", "f:"})
        std::filesystem::create_directory_symlink(Site.HostFolder() + "elsewhere", Site.HostFolder() + link);
    EXPECT_EQ(Drives::DrivePath(Site.HostFolder() + "elsewhere/A.TXT"), "E:\\A.TXT");
}

TEST_F(DrivesTest, KeepsAFolderThatLeadsOutOfTheDriveOnTheDrive) {
    std::filesystem::create_directory(Site.HostFolder() + "elsewhere");
    std::filesystem::create_directory_symlink(Site.HostFolder() + "elsewhere", Site.HostFolder() + "d:/LINK");
    EXPECT_EQ(Drives::DrivePath(Site.HostFolder() + "d:/LINK/A.TXT"), "D:\\LINK\\A.TXT");
}

TEST_F(DrivesTest, FollowsNoLinkOutOfADriveUnlessThatIsAllowed) {
    const std::string elsewhere = Site.HostFolder() + "elsewhere";
    std::filesystem::create_directory(elsewhere);
    PutFile("D:\\OWN\\A.TXT", "own");
    std::filesystem::create_directory_symlink(elsewhere, Site.HostFolder() + "d:/OUT");
    std::filesystem::create_directory_symlink(Site.HostFolder() + "d:/OWN", Site.HostFolder() + "d:/IN");
    std::filesystem::create_symlink(elsewhere + "/NEW.TXT", Site.HostFolder() + "d:/NEW.TXT");
    Drives::WriteFile("D:\\OUT\\B.TXT", "before the profile is read");
    Global().LinkFolders.emplace();
    for (const char* path : {"D:\\OUT\\B.TXT", "d:\\out\\C.TXT", "D:\\OUT\\", "D:\\NEW.TXT"})
        EXPECT_EQ(NumberRaised([&] { Drives::HostPath(path); }), PermissionDenied) << path;
    EXPECT_EQ(NumberRaised([] { Drives::WriteFile("D:\\NEW.TXT", "x"); }), PermissionDenied);
    EXPECT_FALSE(std::filesystem::exists(elsewhere + "/NEW.TXT"));
    EXPECT_FALSE(FileExists("D:\\OUT\\B.TXT"));
    EXPECT_EQ(Drives::List("D:\\").size(), 3U) << "a link to what is there is listed as it is";
    EXPECT_EQ(FileContent("D:\\IN\\A.TXT"), "own");
    EXPECT_TRUE(Drives::IsThere("Z:" + std::string("\\proc\\self\\exe")));
    Global().LinkFolders = {"D:\\OUT\\"};
    EXPECT_EQ(FileContent("D:\\OUT\\B.TXT"), "before the profile is read");
    EXPECT_EQ(NumberRaised([] { Drives::WriteFile("D:\\NEW.TXT", "x"); }), PermissionDenied);
}

TEST_F(DrivesTest, FollowsTheLinksOnTheWayToAFolderOfTheProfile) {
    const std::string site = Site.HostFolder() + "site";
    std::filesystem::create_directories(site + "/DATA/OWN");
    std::filesystem::create_directory(Site.HostFolder() + "elsewhere");
    std::filesystem::create_directory_symlink(site, Site.HostFolder() + "d:/SITE");
    std::filesystem::create_directory_symlink(site + "/DATA/OWN", site + "/DATA/IN");
    std::filesystem::create_directory_symlink(Site.HostFolder() + "elsewhere", site + "/DATA/OUT");
    Global().LinkFolders.emplace();
    Global().Data_drive = "D:\\SITE\\DATA\\";
    EXPECT_TRUE(Drives::IsThere("D:\\site\\DATA\\OWN"));
    EXPECT_TRUE(Drives::IsThere("D:\\SITE\\DATA\\IN")) << "it stays behind the link before it";
    EXPECT_EQ(NumberRaised([] { Drives::HostPath("D:\\SITE\\DATA\\OUT\\A.TXT"); }), PermissionDenied);
}

TEST_F(DrivesTest, ListsTheDrivesThatAreThere) {
    EXPECT_EQ(Drives::DriveLetters(), "CDPZ");
}

TEST_F(DrivesTest, ListsByNameIgnoringCaseWithSizeAndTime) {
    PutFile("D:\\b.TXT", "12345");
    PutFile("D:\\A.TXT", "");
    PutFile("D:\\SUB\\x", "");
    SetTimeStamp("D:\\b.TXT", {2026, 3, 7, 15, 4, 5});
    const std::vector<Drives::Entry> entries = Drives::List("D:\\");
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].Name, "A.TXT");
    EXPECT_EQ(entries[1].Name, "b.TXT");
    EXPECT_EQ(entries[1].Size, 5);
    EXPECT_EQ(entries[1].Modified, (DateTime{2026, 3, 7, 15, 4, 5}));
    EXPECT_TRUE(entries[2].IsFolder);
}

TEST_F(DrivesTest, ListsNothingInAMissingFolder) {
    EXPECT_TRUE(Drives::List("D:\\NONE\\").empty());
}

TEST_F(DrivesTest, FindsNothingBelowAFileAndRaisesNothing) {
    PutFile("D:\\A.TXT", "a");
    Drives::Entry entry;
    EXPECT_FALSE(Drives::Find("D:\\A.TXT\\B.TXT", entry));
    EXPECT_TRUE(Drives::List("D:\\A.TXT\\").empty());
    EXPECT_EQ(Drives::ChangeMark("D:\\A.TXT\\B.TXT"), "");
}

TEST_F(DrivesTest, MatchesDosPatterns) {
    EXPECT_TRUE(Drives::Matches("SRV12.IDX", "SRV*.IDX"));
    EXPECT_TRUE(Drives::Matches("srv12.idx", "SRV*.IDX"));
    EXPECT_TRUE(Drives::Matches("SRV.IDX", "SRV*.IDX"));
    EXPECT_FALSE(Drives::Matches("XYZ.IDX", "SRV*.IDX"));
    EXPECT_TRUE(Drives::Matches("NOPOINT", "*.*"));
    EXPECT_TRUE(Drives::Matches("A.99X", "*.99*"));
    EXPECT_FALSE(Drives::Matches("A.980", "*.99*"));
    EXPECT_TRUE(Drives::Matches("A_v02.INP", "A_v??.INP"));
    EXPECT_FALSE(Drives::Matches("A_v023.INP", "A_v??.INP"));
    EXPECT_TRUE(Drives::Matches("A_v2.INP", "A_v??.INP"));
    EXPECT_TRUE(Drives::Matches("BOOK.GSI", "*.GSI "));
}

TEST_F(DrivesTest, AppendingMakesTheFileAndKeepsWhatItHeld) {
    Drives::AppendFile("D:\\A.TXT", "one");
    Drives::AppendFile("d:\\a.txt", "two");
    EXPECT_EQ(FileContent("D:\\A.TXT"), "onetwo");
    EXPECT_EQ(AllFiles("D:\\"), std::vector<std::string>{"A.TXT"});
}

TEST_F(DrivesTest, WritingKeepsTheNameAndPermissionsOfTheFormerFile) {
    PutFile("D:\\Mixed.Txt", "former");
    ASSERT_EQ(chmod((Site.HostFolder() + "d:/Mixed.Txt").c_str(), 0640), 0);
    Drives::WriteFile("D:\\MIXED.TXT", "new");
    EXPECT_EQ(AllFiles("D:\\"), std::vector<std::string>{"Mixed.Txt"});
    struct stat info {};
    ASSERT_EQ(stat((Site.HostFolder() + "d:/Mixed.Txt").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0640u);
}

TEST_F(DrivesTest, WritingFollowsALinkToItsFile) {
    PutFile("D:\\REAL\\A.TXT", "former");
    std::filesystem::create_symlink(Site.HostFolder() + "d:/REAL/A.TXT", Site.HostFolder() + "d:/LINK.TXT");
    Drives::WriteFile("D:\\LINK.TXT", "new");
    EXPECT_EQ(FileContent("D:\\REAL\\A.TXT"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(Site.HostFolder() + "d:/LINK.TXT"));
}

TEST_F(DrivesTest, CopiesBytesAndTheTimeStamp) {
    const std::string bytes("\0\x1A\r\n\xFF", 5);
    PutFile("D:\\A.BIN", bytes);
    SetTimeStamp("D:\\A.BIN", {2025, 12, 31, 23, 59, 58});
    Drives::CopyFile("D:\\A.BIN", "D:\\B.BIN");
    EXPECT_EQ(FileContent("D:\\B.BIN"), bytes);
    Drives::Entry entry;
    ASSERT_TRUE(Drives::Find("D:\\B.BIN", entry));
    EXPECT_EQ(entry.Modified, (DateTime{2025, 12, 31, 23, 59, 58}));
}

TEST_F(DrivesTest, ACopyOntoALinkReplacesTheFileBehindIt) {
    PutFile("D:\\REAL\\A.TXT", "old");
    PutFile("D:\\NEW.TXT", "new");
    std::filesystem::create_symlink("REAL/A.TXT", Site.HostFolder() + "d:/LINK.TXT");
    Drives::CopyFile("D:\\NEW.TXT", "D:\\LINK.TXT");
    EXPECT_EQ(FileContent("D:\\REAL\\A.TXT"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(Site.HostFolder() + "d:/LINK.TXT"));
}

TEST_F(DrivesTest, ACopyOntoAFullDiskLeavesNothingBehind) {
    PutFile("C:\\BIG.TXT", std::string(200000, 'x'));
    MakeFolders("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL\\", 64, [] {
        PutFile("D:\\SMALL\\A.TXT", "former");
        EXPECT_EQ(NumberRaised([] { Drives::CopyFile("C:\\BIG.TXT", "D:\\SMALL\\A.TXT"); }), DiskFull);
        EXPECT_EQ(FileContent("D:\\SMALL\\A.TXT"), "former");
        EXPECT_EQ(AllFiles("D:\\SMALL\\"), std::vector<std::string>{"A.TXT"});
    });
}

TEST_F(DrivesTest, RaisesTheClassicNumbers) {
    PutFile("D:\\A.TXT", "a");
    PutFile("D:\\B.TXT", "b");
    EXPECT_EQ(NumberRaised([] { Drives::ReadFile("D:\\NONE.TXT"); }), FileNotFound);
    EXPECT_EQ(NumberRaised([] { Drives::ReadFile("D:\\NONE\\A.TXT"); }), PathNotFound);
    EXPECT_EQ(NumberRaised([] { Drives::WriteFile("D:\\NONE\\A.TXT", ""); }), PathNotFound);
    EXPECT_EQ(NumberRaised([] { Drives::AppendFile("D:\\NONE\\A.TXT", ""); }), PathNotFound);
    EXPECT_EQ(NumberRaised([] { Drives::DeleteFile("D:\\NONE.TXT"); }), FileNotFound);
    EXPECT_EQ(NumberRaised([] { Drives::RenameFile("D:\\A.TXT", "D:\\B.TXT"); }), FileAlreadyExists);
    EXPECT_EQ(NumberRaised([] { Drives::RenameFile("D:\\NONE.TXT", "D:\\C.TXT"); }), FileNotFound);
    EXPECT_EQ(NumberRaised([] { Drives::CreateFolder("D:\\A\\B\\"); }), PathNotFound);
    EXPECT_EQ(NumberRaised([] { Drives::CreateFolder("C:\\WINDOWS"); }), PathFileAccess);
    EXPECT_EQ(NumberRaised([] { Drives::WriteFile("C:\\WINDOWS", ""); }), PathFileAccess);
    EXPECT_EQ(NumberRaised([] { Drives::ReadFile("Q:\\A.TXT"); }), DeviceUnavailable);
    EXPECT_EQ(NumberRaised([] { Drives::ReadFile("D:\\A|B"); }), BadFileName);
    EXPECT_EQ(NumberRaised([] { Drives::ReadFile(""); }), BadFileName);
    EXPECT_EQ(NumberRaised([] { Drives::ReadFile("1:\\A"); }), BadFileName);
    EXPECT_EQ(NumberRaised([] { Drives::ReadFile("D:\\" + std::string(300, 'x')); }), BadFileName);
    EXPECT_EQ(NumberRaised([] { Drives::ChangeDrive('Q'); }), DeviceUnavailable);
}

TEST_F(DrivesTest, AFileMayBeGivenItsOwnNameAgain) {
    PutFile("D:\\A.TXT", "a");
    Drives::RenameFile("D:\\A.TXT", "D:\\a.txt");
    EXPECT_EQ(FileContent("D:\\A.TXT"), "a");
}

TEST_F(DrivesTest, RaisesPermissionErrorsForAUserWithoutRights) {
    PutFile("D:\\LOCKED\\A.TXT", "a");
    ASSERT_EQ(chmod((Site.HostFolder() + "d:/LOCKED/A.TXT").c_str(), 0600), 0);
    AsNobody([] {
        EXPECT_EQ(NumberRaised([] { Drives::ReadFile("D:\\LOCKED\\A.TXT"); }), PermissionDenied);
        EXPECT_EQ(NumberRaised([] { Drives::WriteFile("D:\\LOCKED\\A.TXT", ""); }), PathFileAccess);
        EXPECT_EQ(NumberRaised([] { Drives::WriteFile("D:\\LOCKED\\NEW.TXT", ""); }), PathFileAccess);
        EXPECT_EQ(NumberRaised([] { Drives::AppendFile("D:\\LOCKED\\A.TXT", "b"); }), PathFileAccess);
        EXPECT_EQ(NumberRaised([] { Drives::DeleteFile("D:\\LOCKED\\A.TXT"); }), PathFileAccess);
        EXPECT_EQ(NumberRaised([] { Drives::CreateFolder("D:\\LOCKED\\SUB"); }), PathFileAccess);
    });
    EXPECT_EQ(FileContent("D:\\LOCKED\\A.TXT"), "a");
}

TEST_F(DrivesTest, FilesOnTheirWayAreNotListed) {
    Drives::StagedFile file("D:\\A.TXT");
    file.Write("half");
    EXPECT_TRUE(Drives::List("D:\\").empty());
    file.Commit();
    EXPECT_EQ(Names("D:\\", "*.*"), std::vector<std::string>{"A.TXT"});
}

TEST_F(DrivesTest, APathWithoutALetterLiesOnTheCurrentDrive) {
    PutFile("D:\\A.TXT", "there");
    Drives::ChangeDrive('D');
    EXPECT_EQ(Drives::ReadFile("A.TXT"), "there");
    EXPECT_EQ(Drives::ReadFile("\\A.TXT"), "there");
    EXPECT_EQ(Drives::List("").size(), 1u);
}

TEST_F(DrivesTest, FileLengthIsInBytes) {
    PutFile("D:\\A.TXT", "12345");
    EXPECT_EQ(Drives::FileLength("D:\\A.TXT"), 5);
    EXPECT_EQ(NumberRaised([] { Drives::FileLength("D:\\NONE"); }), FileNotFound);
}

TEST_F(DrivesTest, TwoWhoWriteOneFileDoNotTakeTheOthersContent) {
    PutFile("D:\\A.TXT", "old");
    Drives::StagedFile first("D:\\A.TXT");
    first.Write("first");
    Drives::StagedFile second("D:\\A.TXT");
    second.Write("second");
    EXPECT_NE(first.Path(), second.Path());
    first.Commit();
    EXPECT_EQ(FileContent("D:\\A.TXT"), "first");
    second.Commit();
    EXPECT_EQ(FileContent("D:\\A.TXT"), "second");
}

}  // namespace Dorvane
