// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basMain.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Host.h"
#include "core/ProfileStore.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

class StartUp : public testing::Test {
  protected:
    StartUp() {
        for (const char* name : {"datatype", "input", "main", "tarvex", "download", "special"})
            PutFile(std::string("P:\\DORVANE\\system\\dv_") + name + ".ini",
                    std::string("; shipped ") + name + "\r\n");
    }

    static void PutPaths(const std::string& lastPath = "D:\\TARVEX\\DOWNLOAD\\") {
        PutLines("C:\\WINDOWS\\dv_tarvex.ini",
                 {"[Tarvex Info]", "Data_drive=D:\\TARVEX", "Calib_path=D:\\TARVEX\\CALIB\\",
                  "Coord_path=D:\\TARVEX\\COORD\\", "Init_path=D:\\TARVEX\\INIT\\",
                  "Param_path=C:\\TARVEX\\PARAM\\", "Temp_path=C:\\TARVEX\\TEMP\\",
                  "Work_path=C:\\TARVEX\\WORK\\", "Download_path=" + lastPath, "Path_type=2"});
    }

    static void Install() {
        EXPECT_TRUE(Guarded("basMain-Main", [](Guard& guard) { InstallProfiles("C:\\WINDOWS\\", guard); }));
    }

    StartUpScreens Screens(std::string& order) {
        return {[&order] { order += "splash "; }, [&order] { order += "init "; },
                [&order] { order += "main "; }};
    }

    TestSite Site;
    ScriptedDesktop Screen;
};

TEST_F(StartUp, CopiesTheShippedProfilesThatAreMissing) {
    Install();
    EXPECT_EQ(AllFiles("C:\\WINDOWS\\"),
              (std::vector<std::string>{"dv_datatype.ini", "dv_download.ini", "dv_input.ini", "dv_main.ini",
                                        "dv_special.ini", "dv_tarvex.ini"}));
    EXPECT_EQ(FileContent("C:\\WINDOWS\\dv_input.ini"), "; shipped input\r\n");
}

TEST_F(StartUp, RenamesAnOlderProfile) {
    PutFile("C:\\WINDOWS\\datatype.ini", "old content");
    Install();
    EXPECT_EQ(FileContent("C:\\WINDOWS\\dv_datatype.ini"), "old content");
    EXPECT_FALSE(FileExists("C:\\WINDOWS\\datatype.ini"));
}

TEST_F(StartUp, LeavesTheOlderProfileBesideANewOne) {
    PutFile("C:\\WINDOWS\\datatype.ini", "old");
    PutFile("C:\\WINDOWS\\dv_datatype.ini", "new");
    Install();
    EXPECT_EQ(FileContent("C:\\WINDOWS\\dv_datatype.ini"), "new");
    EXPECT_EQ(FileContent("C:\\WINDOWS\\datatype.ini"), "old");
}

TEST_F(StartUp, TheSpecialProfileHasNoOlderName) {
    PutFile("C:\\WINDOWS\\special.ini", "old");
    Install();
    EXPECT_EQ(FileContent("C:\\WINDOWS\\dv_special.ini"), "; shipped special\r\n");
    EXPECT_TRUE(FileExists("C:\\WINDOWS\\special.ini"));
}

TEST_F(StartUp, ReadsTheGlobalsAndAppendsTheBackslash) {
    Site.LayOut();
    Global().Data_drive.clear();
    PutPaths();
    EXPECT_TRUE(InitializeGolbals());
    EXPECT_EQ(Global().Data_drive, "D:\\TARVEX\\");
    EXPECT_EQ(Global().Work_path, "C:\\TARVEX\\WORK\\");
    EXPECT_EQ(Global().Path_type, 2);
    EXPECT_TRUE(Global().PrinterPresent);
}

TEST_F(StartUp, ReadsWhereLinksMayLeadOutOfTheirDrive) {
    EXPECT_FALSE(Global().LinkFolders);
    InitializeGolbals();
    EXPECT_EQ(Global().LinkFolders, (std::vector<std::string>{"C:\\WINDOWS\\", "P:\\DORVANE\\"}));
    IniWriteString("dv_tarvex.ini", "Links", "Folders", "D:\\ARCHIVE ; E:\\;;");
    InitializeGolbals();
    EXPECT_EQ(Global().LinkFolders,
              (std::vector<std::string>{"C:\\WINDOWS\\", "P:\\DORVANE\\", "D:\\ARCHIVE\\", "E:\\"}));
}

TEST_F(StartUp, RunsWithOneForAnyOtherPathTypeAndKeepsTheFile) {
    Site.LayOut();
    for (const char* value : {"7", "3", "", "x", "0"}) {
        PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[Tarvex Info]", std::string("Path_type=") + value});
        InitializeGolbals();
        EXPECT_EQ(Global().Path_type, 1) << value;
    }
    PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[Tarvex Info]", "Path_type=7"});
    InitializeGolbals();
    EXPECT_EQ(FileContent("C:\\WINDOWS\\dv_tarvex.ini"), "[Tarvex Info]\r\nPath_type=7\r\n");
}

TEST_F(StartUp, EmptiesTheOnePathThatLeadsNowhere) {
    Site.LayOut();
    PutPaths("D:\\NOWHERE\\");
    EXPECT_FALSE(InitializeGolbals());
    EXPECT_EQ(Global().Download_path, "");
    EXPECT_EQ(Global().Work_path, "C:\\TARVEX\\WORK\\");
    EXPECT_EQ(Global().Data_drive, "D:\\TARVEX\\");
}

TEST_F(StartUp, EmptiesEveryPathThatLeadsNowhereAndReadiesTheOthers) {
    Site.LayOut();
    PutPaths("D:\\TARVEX\\DOWNLOAD");
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Calib_path", "D:\\NOWHERE\\");
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Temp_path", "");
    EXPECT_FALSE(InitializeGolbals());
    EXPECT_EQ(Global().Calib_path, "");
    EXPECT_EQ(Global().Temp_path, "");
    EXPECT_EQ(Global().Download_path, "D:\\TARVEX\\DOWNLOAD\\");
}

TEST_F(StartUp, NoPrinterIsNoFailure) {
    Site.LayOut();
    PutPaths();
    Screen.Printers = 0;
    EXPECT_TRUE(InitializeGolbals());
    EXPECT_FALSE(Global().PrinterPresent);
}

TEST_F(StartUp, ReportsAnErrorInsideAsFailed) {
    Site.LayOut();
    PutPaths();
    struct BrokenPrinters : ScriptedDesktop {
        int PrinterCount() override { throw RunTimeError(DeviceUnavailable); }
    } desktop;
    desktop.ExpectMessage(
        "Program Error",
        "Error : 68\r\n\r\nDevice appears unavailable.\r\n\r\nSource : Dorvane-basMain-InitializeGolbals",
        Answer::Cancel);
    EXPECT_FALSE(InitializeGolbals());
}

TEST_F(StartUp, TakesEveryPathTypeButTheTwoForTheManagedTree) {
    Site.LayOut();
    for (const char* stored : {"1", "0", "3", "7", "-1", "", "x", "99999", "-99999", "65538", "1E99", "1E999",
                               "-1E999", "1.4", "2.6", "9999999999999999999999999"}) {
        PutPaths();
        IniWriteString("dv_tarvex.ini", "Tarvex Info", "Path_type", stored);
        Global().Path_type = 2;
        EXPECT_TRUE(InitializeGolbals()) << stored;
        EXPECT_EQ(Global().Path_type, 1) << stored;
        EXPECT_EQ(Global().Download_path, "D:\\TARVEX\\DOWNLOAD\\") << stored;
        EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Path_type"), stored);
    }
    for (const char* stored : {"2", " 2 by hand", "1.6", "2.4"}) {
        PutPaths();
        IniWriteString("dv_tarvex.ini", "Tarvex Info", "Path_type", stored);
        EXPECT_TRUE(InitializeGolbals()) << stored;
        EXPECT_EQ(Global().Path_type, 2) << stored;
    }
}

TEST_F(StartUp, TestsAllPathsWhateverPathTypeHolds) {
    Site.LayOut();
    PutPaths("D:\\NOWHERE\\");
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Path_type", "1E999");
    Global().Data_drive.clear();
    EXPECT_FALSE(InitializeGolbals());
    EXPECT_EQ(Global().Data_drive, "D:\\TARVEX\\");
    EXPECT_EQ(Global().Download_path, "");
}

TEST_F(StartUp, CreatesTheDefaultFoldersAndWritesTheKeysInOrder) {
    EXPECT_TRUE(CreateDefaultFolders("d: [DATA]", "c:"));
    EXPECT_EQ(FileLines("C:\\WINDOWS\\dv_tarvex.ini"),
              (std::vector<std::string>{"[Tarvex Info]", "Data_drive=d:\\TARVEX\\",
                                        "Calib_path=d:\\TARVEX\\CALIB\\", "Coord_path=d:\\TARVEX\\COORD\\",
                                        "Init_path=d:\\TARVEX\\INIT\\", "Param_path=c:\\TARVEX\\PARAM\\",
                                        "Temp_path=c:\\TARVEX\\TEMP\\", "Work_path=c:\\TARVEX\\WORK\\",
                                        "Download_path=d:\\TARVEX\\DOWNLOAD\\"}));
    EXPECT_FALSE(Global().InitFailed);
    for (const std::string* path :
         {&Global().Data_drive, &Global().Calib_path, &Global().Coord_path, &Global().Init_path,
          &Global().Param_path, &Global().Temp_path, &Global().Work_path, &Global().Download_path}) {
        std::string folder = *path;
        EXPECT_TRUE(FolderExists(folder)) << folder;
        EXPECT_EQ(folder, *path);
        EXPECT_TRUE(AllFiles(folder).empty());
    }
}

TEST_F(StartUp, KeepsDefaultFoldersThatExist) {
    PutFile("D:\\TARVEX\\INIT\\CHOICES.SYS", "kept");
    CreateDefaultFolders("D:", "C:");
    EXPECT_EQ(FileContent("D:\\TARVEX\\INIT\\CHOICES.SYS"), "kept");
}

TEST_F(StartUp, AFolderThatCannotBeMadeLeavesInitFailed) {
    PutFile("D:\\TARVEX", "a file in the way");
    Screen.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(CreateDefaultFolders("D:", "C:"));
    EXPECT_NE(Screen.Shown.back().Text.find("-frmInit-cmdOK_Click"), std::string::npos);
    EXPECT_TRUE(Global().InitFailed);
    EXPECT_FALSE(FileExists("C:\\WINDOWS\\dv_tarvex.ini"));
}

TEST_F(StartUp, AnAnswerOfRetryLetsTheMakingOfFoldersRunToItsEnd) {
    const std::string drive = Site.HostFolder() + "/d:";
    ASSERT_EQ(rename(drive.c_str(), (drive + "away").c_str()), 0);
    Screen.ExpectMessageTitled("Program Error", Answer::Retry);
    Screen.OnMessage = [&] { ASSERT_EQ(rename((drive + "away").c_str(), drive.c_str()), 0); };
    EXPECT_TRUE(CreateDefaultFolders("D:", "C:"));
    EXPECT_FALSE(Global().InitFailed);
    EXPECT_TRUE(FolderExists(Global().Data_drive));
}

TEST_F(StartUp, RenamesALibraryOnlyWhenItStandsAlone) {
    PutFile("P:\\DORVANE\\Keld\\feedback2.dll", "f2");
    PutFile("P:\\DORVANE\\Keld\\varn2.dll", "v2");
    PutFile("P:\\DORVANE\\Keld\\varn.dll", "v");
    PutFile("P:\\DORVANE\\Keld\\project.dll", "p");
    const std::vector<std::string> after{"feedback.dll", "project.dll", "varn.dll", "varn2.dll"};
    RenameKeldLibraries();
    EXPECT_EQ(AllFiles("P:\\DORVANE\\Keld\\"), after);
    EXPECT_EQ(FileContent("P:\\DORVANE\\Keld\\feedback.dll"), "f2");
    RenameKeldLibraries();
    EXPECT_EQ(AllFiles("P:\\DORVANE\\Keld\\"), after);
}

TEST_F(StartUp, MainRunsItsStepsInOrder) {
    Site.LayOut();
    PutPaths();
    Global().InitFailed = true;
    std::string order;
    EXPECT_TRUE(Main(Screens(order)));
    EXPECT_EQ(order, "splash main ");
    EXPECT_FALSE(Global().InitFailed);
    EXPECT_TRUE(FileExists("C:\\WINDOWS\\dv_main.ini"));
}

TEST_F(StartUp, MainOffersTheDirectoryDialogWhenFoldersAreMissing) {
    std::string order;
    EXPECT_TRUE(Main(Screens(order)));
    EXPECT_EQ(order, "splash init main ");
}

TEST_F(StartUp, MainTellsOfAMissingWindowsFolderAndGoesOn) {
    Drives::RenameFile("C:\\WINDOWS", "C:\\OTHER");
    Screen.ExpectMessage("Windows Path Not Found", "Could not locate Windows directory.");
    std::string order;
    EXPECT_TRUE(Main(Screens(order)));
    EXPECT_EQ(order, "splash init main ");
    EXPECT_EQ(Screen.Shown.at(0).Picture, Icon::Stop);
    EXPECT_FALSE(FileExists("C:\\OTHER\\dv_main.ini"));
}

TEST_F(StartUp, AMissingShippedCopyIsReportedAndLeavesMain) {
    Drives::DeleteFile("P:\\DORVANE\\system\\dv_input.ini");
    Screen.ExpectMessageTitled("Program Error");
    std::string order;
    EXPECT_TRUE(Main(Screens(order)));
    EXPECT_EQ(order, "splash ");
    EXPECT_NE(Screen.Shown.at(0).Text.find("Source : Dorvane-basMain-Main"), std::string::npos);
    EXPECT_NE(Screen.Shown.at(0).Text.find("Error : 53"), std::string::npos);
}

TEST_F(StartUp, ASecondCopyIsToldSoAndTouchesNothing) {
    int ready[2];
    int done[2];
    ASSERT_EQ(pipe(ready), 0);
    ASSERT_EQ(pipe(done), 0);
    const pid_t first = fork();
    if (first == 0) {
        char byte = ClaimOnlyCopy() ? '1' : '0';
        close(done[1]);
        if (write(ready[1], &byte, 1) != 1 || read(done[0], &byte, 1) != 1)
            _exit(1);
        _exit(0);
    }
    close(done[0]);
    char claimed = 0;
    ASSERT_EQ(read(ready[0], &claimed, 1), 1);
    ASSERT_EQ(claimed, '1');
    Screen.ExpectMessage("Tarvex Already Running",
                         "Cannot load program agian.  The requested application is already open");
    std::string order;
    EXPECT_FALSE(Main(Screens(order)));
    EXPECT_EQ(order, "");
    EXPECT_EQ(Screen.Shown.at(0).Picture, Icon::Exclamation);
    EXPECT_TRUE(AllFiles("C:\\WINDOWS\\").empty());
    // A copy that ends in whatever way makes room for the next one.
    ASSERT_EQ(write(done[1], "x", 1), 1);
    int status = 0;
    waitpid(first, &status, 0);
    EXPECT_TRUE(ClaimOnlyCopy());
}

TEST_F(StartUp, ACopyInAnotherUsersSessionIsRefusedToo) {
    ASSERT_TRUE(ClaimOnlyCopy());
    AsNobody([] {
        Global().InstanceClaim = -1;
        EXPECT_FALSE(ClaimOnlyCopy());
    });
}

TEST_F(StartUp, NoMaskAndNoTemporaryFolderMakesRoomForASecondCopy) {
    const mode_t former = umask(077);
    Host::SetEnvironment("TMPDIR", Site.HostFolder());
    ASSERT_TRUE(ClaimOnlyCopy());
    umask(former);
    Host::SetEnvironment("TMPDIR", "/nowhere");
    AsNobody([] {
        Global().InstanceClaim = -1;
        EXPECT_FALSE(ClaimOnlyCopy());
    });
    unsetenv("TMPDIR");
}

TEST_F(StartUp, AnEndedCopyOfOneUserLeavesNothingInTheWayOfAnother) {
    const mode_t former = umask(077);
    for (const bool asNobody : {false, true, false}) {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t copy = fork();
        if (copy == 0) {
            if (asNobody && setresuid(65534, 65534, 65534) != 0)
                _exit(1);
            const char byte = ClaimOnlyCopy() ? '1' : '0';
            _exit(write(ready[1], &byte, 1) == 1 ? 0 : 1);
        }
        close(ready[1]);
        char claimed = 0;
        EXPECT_EQ(read(ready[0], &claimed, 1), 1);
        EXPECT_EQ(claimed, '1') << asNobody;
        close(ready[0]);
        waitpid(copy, nullptr, 0);
    }
    umask(former);
}

TEST_F(StartUp, ReportsANameThatCannotBeClaimed) {
    Global().InstanceName = std::string(108, 'x');
    Screen.ExpectMessageTitled("Program Error", Answer::Cancel);
    std::string order;
    Main(Screens(order));
    EXPECT_EQ(order, "");
    EXPECT_NE(Screen.Shown.at(0).Text.find("Error : 52\r\n"), std::string::npos);
}

TEST_F(StartUp, ACopyThatIsKilledDoesNotLockTheNextOneOut) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t first = fork();
    if (first == 0) {
        const char byte = ClaimOnlyCopy() ? '1' : '0';
        if (write(ready[1], &byte, 1) == 1)
            pause();
        _exit(1);
    }
    char claimed = 0;
    ASSERT_EQ(read(ready[0], &claimed, 1), 1);
    ASSERT_EQ(claimed, '1');
    EXPECT_FALSE(ClaimOnlyCopy());
    kill(first, SIGKILL);
    waitpid(first, nullptr, 0);
    EXPECT_TRUE(ClaimOnlyCopy());
}

}  // namespace Dorvane
