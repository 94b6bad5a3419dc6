// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basGeneral.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cerrno>
#include <filesystem>

#include "core/CommandLine.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

class General : public testing::Test {
  protected:
    TestSite Site;
};

namespace {

List1<std::string> Fields(std::string_view line) {
    List1<std::string> fields;
    ParseFields(fields, line);
    return fields;
}

List1<std::string> Parts(std::string_view path) {
    List1<std::string> parts;
    SplitPathParts(path, parts);
    return parts;
}

}  // namespace

TEST_F(General, FolderExistsAppendsTheBackslashToTheCallersVariable) {
    std::string path = "C:\\TEMP";
    EXPECT_TRUE(FolderExists(path));
    EXPECT_EQ(path, "C:\\TEMP\\");
    path = "C:\\NONE";
    EXPECT_FALSE(FolderExists(path));
    EXPECT_EQ(path, "C:\\NONE\\");
}

TEST_F(General, FolderExistsLeavesAnEmptyPathEmpty) {
    std::string path;
    EXPECT_FALSE(FolderExists(path));
    EXPECT_EQ(path, "");
}

TEST_F(General, FolderExistsFindsNoFloppyWhereThereIsNoDriveForIt) {
    std::string path = "A:";
    EXPECT_FALSE(FolderExists(path));
    EXPECT_EQ(path, "A:\\");
}

TEST_F(General, FolderExistsCountsAnEmptyFloppyAsFound) {
    std::filesystem::create_directory(Site.HostFolder() + "a:");
    std::string path = "A:";
    EXPECT_TRUE(FolderExists(path));
    path = "A:\\NONE\\";
    EXPECT_FALSE(FolderExists(path));
}

TEST_F(General, FolderExistsCountsTheFloppyDriveAloneAsFoundWithoutADisk) {
    for (const char* link : {"a:", "b:"})
        std::filesystem::create_symlink(Site.HostFolder() + "nowhere", Site.HostFolder() + link);
    std::string path = "A:";
    EXPECT_TRUE(FolderExists(path));
    path = "A:\\SUB\\";
    EXPECT_FALSE(FolderExists(path));
    path = "B:\\";
    EXPECT_FALSE(FolderExists(path));
}

TEST_F(General, FolderExistsTakesNoFileForAFolderAndRaisesNothing) {
    PutFile("D:\\FILE", "");
    std::string path = "D:\\FILE";
    EXPECT_FALSE(FolderExists(path));
    path = "D:\\*?";
    EXPECT_FALSE(FolderExists(path));
}

TEST_F(General, FileExistsIsFalseForTheEmptyPath) {
    EXPECT_FALSE(FileExists(""));
}

TEST_F(General, FileExistsTakesAPatternAndNoFolder) {
    PutFile("D:\\SUB\\SRV12.IDX", "");
    EXPECT_TRUE(FileExists("D:\\SUB\\SRV12.IDX"));
    EXPECT_TRUE(FileExists("d:\\sub\\srv12.idx"));
    EXPECT_TRUE(FileExists("D:\\SUB\\SRV*.IDX"));
    EXPECT_FALSE(FileExists("D:\\SUB\\*.RES"));
    EXPECT_FALSE(FileExists("D:\\SUB"));
    EXPECT_FALSE(FileExists("D:\\SUB\\"));
    EXPECT_FALSE(FileExists("D:\\S*"));
    EXPECT_FALSE(FileExists("Q:\\A"));
}

TEST_F(General, FindLastCharCountsFromTheRight) {
    EXPECT_EQ(FindLastChar("C:\\A\\FILE.TXT", '\\'), 9);
    EXPECT_EQ(FindLastChar("C:\\A\\", '\\'), 1);
    EXPECT_EQ(FindLastChar("FILE.TXT", '\\'), 0);
    EXPECT_EQ(FindLastChar("abc  ", 'C'), 1);
}

TEST_F(General, SplitFolderFileKeepsTheBackslashOnTheFolder) {
    std::string folder;
    std::string file;
    SplitFolderFile("C:\\A\\FILE.TXT", folder, file);
    EXPECT_EQ(folder, "C:\\A\\");
    EXPECT_EQ(file, "FILE.TXT");
    SplitFolderFile("C:\\A\\", folder, file);
    EXPECT_EQ(folder, "C:\\A\\");
    EXPECT_EQ(file, "");
}

TEST_F(General, SplitFolderFileRaisesError5WithoutABackslash) {
    std::string folder;
    std::string file;
    try {
        SplitFolderFile("FILE.TXT", folder, file);
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, InvalidProcedureCall);
    }
}

TEST(SplitPathParts, CountsEmptyPartsButNotATrailingOne) {
    EXPECT_EQ(Parts("C:\\A\\B\\"), (List1<std::string>{"C:", "A", "B"}));
    EXPECT_EQ(Parts("C:\\\\A"), (List1<std::string>{"C:", "", "A"}));
    EXPECT_EQ(Parts("\\A"), (List1<std::string>{"", "A"}));
    EXPECT_EQ(Parts(""), (List1<std::string>{""}));
}

TEST(ParseFields, CountsARunOfDelimitersAsOne) {
    EXPECT_EQ(Fields("  a,b\t c  "), (List1<std::string>{"A", "B", "C"}));
    EXPECT_EQ(Fields("a , ,\t,b"), (List1<std::string>{"A", "B"}));
}

TEST(ParseFields, GivesNothingForALineOfBlanks) {
    EXPECT_EQ(Fields("     ").Count(), 0);
    EXPECT_EQ(Fields("").Count(), 0);
}

TEST(ParseFields, UpperCasesByTheCodePage) {
    EXPECT_EQ(Fields("p\xE9")[1], "P\xC9");
}

TEST(ParseFields, RaisesError9OnThe51stWord) {
    std::string line;
    for (int i = 0; i < 50; ++i)
        line += "w ";
    EXPECT_EQ(Fields(line).Count(), 50);
    try {
        Fields(line + "x");
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, SubscriptOutOfRange);
    }
}

TEST(ReplaceFirst, LosesExactlyOneLastCharacter) {
    EXPECT_EQ(ReplaceFirst("ABCD", "BC", "X"), "AX");
    EXPECT_EQ(ReplaceFirst("ABCD", "CD", "X"), "ABX");
    EXPECT_EQ(ReplaceFirst("ABCDE", "BC", "X"), "AXDE");
}

TEST(ReplaceFirst, IsEmptyWithoutAnOccurrence) {
    EXPECT_EQ(ReplaceFirst("ABCD", "ZZ", "X"), "");
    EXPECT_EQ(ReplaceFirst("ABCD", "", "X"), "");
    EXPECT_EQ(ReplaceFirst("ABCD", "bc", "X"), "");
}

TEST(StripAtNul, CutsAtTheFirstNul) {
    EXPECT_EQ(StripAtNul(std::string_view("ab\0cd", 5)), "ab");
    EXPECT_EQ(StripAtNul("abc"), "abc");
}

TEST_F(General, AppPathEndsInExactlyOneBackslash) {
    EXPECT_EQ(AppPath(), "P:\\DORVANE\\");
    Global().ProgramFolder = "P:\\DORVANE";
    EXPECT_EQ(AppPath(), "P:\\DORVANE\\");
}

TEST_F(General, AppPathIsTheFolderOfTheExecutableOtherwise) {
    Global().ProgramFolder.clear();
    std::string folder = AppPath();
    EXPECT_EQ(folder.substr(0, 3), "Z:\\");
    EXPECT_TRUE(FolderExists(folder));
    EXPECT_TRUE(FileExists(folder + "test_core"));
}

TEST_F(General, GetWindowsPathIsEmptyWithoutTheFolder) {
    EXPECT_EQ(GetWindowsPath(), "C:\\WINDOWS\\");
    Drives::RenameFile("C:\\WINDOWS", "C:\\OTHER");
    EXPECT_EQ(GetWindowsPath(), "");
}

TEST_F(General, BrowseForFolderGivesTheFolderOfTheChosenName) {
    ScriptedDesktop screen;
    screen.ExpectFile("Upload Data From ", "D:\\FIELD\\UploadPath");
    EXPECT_EQ(BrowseForFolder("D:\\", "UploadPath", "Upload Data From "), "D:\\FIELD\\");
    EXPECT_EQ(screen.Dialogs[0].Folder, "D:\\");
    EXPECT_EQ(screen.Dialogs[0].FileName, "UploadPath");
    EXPECT_EQ(screen.Dialogs[0].Flags, 256);
    screen.ExpectFile("Upload Data From ", std::nullopt);
    EXPECT_EQ(BrowseForFolder("D:\\", "UploadPath", "Upload Data From "), "");
}

TEST_F(General, PrinterSetupTellsWhetherItWasConfirmed) {
    ScriptedDesktop screen;
    int copies = 0;
    int from = 0;
    int to = 0;
    EXPECT_TRUE(PrinterSetup(copies, from, to));
    EXPECT_TRUE(PrinterSetup());
    screen.PrinterConfirmed = false;
    EXPECT_FALSE(PrinterSetup(copies, from, to));
    EXPECT_FALSE(PrinterSetup());
}

TEST_F(General, PauseForYieldsUntilItsTime) {
    ScriptedDesktop screen;
    screen.OnYield = [&] { ++screen.Clock.Second; };
    EXPECT_EQ(PauseFor(0, 3), 0);
    EXPECT_EQ(screen.Yields, 3);
    screen.Yields = 0;
    screen.Clock.Second = 0;
    screen.OnYield = [&] {
        screen.Clock.Second += 30;
        screen.Clock.Minute += screen.Clock.Second / 60;
        screen.Clock.Second %= 60;
    };
    EXPECT_EQ(PauseFor(2, 30), 0);
    EXPECT_EQ(screen.Yields, 5);
}

TEST_F(General, PauseForEndsWhenItIsCancelledAndTakesTheFlagBack) {
    ScriptedDesktop screen;
    bool cancel = false;
    screen.OnYield = [&] { cancel = true; };
    EXPECT_EQ(PauseFor(1, 0, &cancel), 1);
    EXPECT_FALSE(cancel);
    EXPECT_EQ(screen.Yields, 1);
}

TEST_F(General, ACommandLineIsTakenApartAtTheFirstProgramThatExists) {
    PutFile("D:\\My Programs\\PRINT.EXE", "");
    PutFile("D:\\DATA\\A B.TXT", "");
    const CommandLine command = SplitCommandLine("D:\\My Programs\\PRINT.EXE D:\\DATA\\A B.TXT");
    EXPECT_EQ(command.Program, "D:\\My Programs\\PRINT.EXE");
    ASSERT_EQ(command.Arguments.size(), 2u) << "a name with blanks reaches the program as two arguments";
    EXPECT_EQ(command.Arguments[0], Site.HostFolder() + "d:/DATA/A");
    EXPECT_EQ(command.Arguments[1], "B.TXT");
}

TEST_F(General, ACommandLineMayBeAProgramWithABlankAndNothingElse) {
    PutFile("D:\\My Programs\\PRINT.EXE", "");
    const CommandLine command = SplitCommandLine("D:\\My Programs\\PRINT.EXE");
    EXPECT_EQ(command.Program, "D:\\My Programs\\PRINT.EXE");
    EXPECT_TRUE(command.Arguments.empty());
}

TEST_F(General, TheGeneralEditorMayLieInTheProgramsOwnFolder) {
    const auto editor = [](const std::string& path, const std::string& name) {
        PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[General Editor]", "Path=" + path, "Name=" + name});
        return ReadGeneralEditor().Program();
    };
    EXPECT_EQ(editor("%AppPath%Programs\\", "edittext.exe"), "P:\\DORVANE\\Programs\\edittext.exe");
    EXPECT_EQ(editor("%apppath%", "x.exe"), "P:\\DORVANE\\x.exe");
    // The values of a site stay as they are, joined without anything between.
    EXPECT_EQ(editor("C:\\ED", "IT.EXE"), "C:\\EDIT.EXE");
    EXPECT_EQ(editor("C:\\%AppPath%\\", "ed.exe"), "C:\\%AppPath%\\ed.exe");
    EXPECT_EQ(editor("", "%AppPath%"), "%AppPath%");
    EXPECT_EQ(editor("", ""), "");
}

TEST_F(General, ACommandLineMayQuoteItsProgram) {
    const CommandLine command = SplitCommandLine("\"D:\\My P\\X.EXE\" dv_special.ini");
    EXPECT_EQ(command.Program, "D:\\My P\\X.EXE");
    EXPECT_EQ(command.Arguments, std::vector<std::string>{"dv_special.ini"});
}

TEST_F(General, StartingAMissingProgramRaisesError53) {
    try {
        StartCommandLine("D:\\NONE.EXE", true);
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, FileNotFound);
    }
}

TEST_F(General, StartingRunsARealProgramWithHostPathsAndWaits) {
    StartCommandLine("Z:\\bin\\cp Z:\\etc\\hostname D:\\COPY.TXT", true);
    EXPECT_EQ(FileContent("D:\\COPY.TXT"), FileContent("Z:\\etc\\hostname"));
}

TEST_F(General, AProgramThatIsNotWaitedForLeavesNoDeadChild) {
    StartCommandLine("Z:\\bin\\true", false);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(General, AProgramStartsInTheFolderOfTheCurrentDrive) {
    Drives::ChangeDrive('d');
    StartCommandLine("Z:\\bin\\touch HERE.TXT", true);
    EXPECT_TRUE(FileExists("D:\\HERE.TXT"));
}

}  // namespace Dorvane
