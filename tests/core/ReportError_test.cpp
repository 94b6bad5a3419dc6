// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ReportError.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <stdexcept>

#include "core/Drives.h"
#include "core/Host.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

class ReportErrorTest : public testing::Test {
  protected:
    TestSite Site;
    ScriptedDesktop Screen;
    static constexpr const char* Log = "P:\\DORVANE\\ERROR.LOG";
};

TEST_F(ReportErrorTest, ShowsTheTextsOfTheNineKnownNumbers) {
    const std::pair<int, const char*> known[] = {
        {52, "File Name entered is illegal."},
        {54, "Can't open file for that type of access.  File may be Read Only."},
        {55, "File is already open."},
        {57, "Internal disk error."},
        {61, "Disk is full. Continue?"},
        {62,
         "File has a nonstandard end-of-file marker, or an attempt was made to read beyond the end-of-file "
         "marker."},
        {68, "Device appears unavailable."},
        {71, "Insert a disk in the drive and close the door."},
        {76, "Path doesn't exist."}};
    for (const auto& [number, text] : known) {
        Screen.ExpectMessage(
            "Program Error",
            "Error : " + std::to_string(number) + "\r\n\r\n" + text + "\r\n\r\nSource : Dorvane-basRead-X",
            Answer::Cancel);
        EXPECT_EQ(ReportError(RunTimeError(number), "basRead-X"), GiveUp);
        EXPECT_EQ(Screen.Shown.back().Picture, Icon::Exclamation);
        EXPECT_TRUE(Screen.Shown.back().HasHelp);
        EXPECT_EQ(Screen.Shown.back().Choices, number == 61 ? Buttons::YesNo : Buttons::RetryCancel);
    }
}

TEST_F(ReportErrorTest, ShowsTheDescriptionOfAnyOtherNumberAndGivesCode3) {
    Screen.ExpectMessage(
        "Program Error",
        "Error : 53\r\n\r\nDescription : File not found: D:\\A.TXT\r\n\r\nSource : Dorvane-basRead-X");
    EXPECT_EQ(ReportError(RunTimeError(FileNotFound, "D:\\A.TXT"), "basRead-X"), UnknownError);
    EXPECT_EQ(Screen.Shown.back().Choices, Buttons::Ok);
    EXPECT_FALSE(Screen.Shown.back().HasHelp);
}

TEST_F(ReportErrorTest, MapsTheAnswersToTheActionCodes) {
    const std::pair<Answer, ActionCode> answers[] = {
        {Answer::Ok, Retry},      {Answer::Retry, Retry},  {Answer::Yes, Retry}, {Answer::Ignore, Skip},
        {Answer::Cancel, GiveUp}, {Answer::Abort, GiveUp}, {Answer::No, GiveUp}};
    for (const auto& [answer, code] : answers) {
        Screen.ExpectMessageTitled("Program Error", answer);
        EXPECT_EQ(ReportError(RunTimeError(DiskFull), "basRead-X"), code);
    }
}

TEST_F(ReportErrorTest, TellsALackOfMemoryAsError7AndLeavesTheProcedure) {
    const std::string text = "Error : 7\r\n\r\nDescription : Out of memory\r\n\r\nSource : Dorvane-basRead-X";
    for (const bool asStatement : {false, true}) {
        Screen.ExpectMessage("Program Error", text);
        bool wentOn = false;
        EXPECT_FALSE(Guarded("basRead-X", [&](Guard& guard) {
            if (!asStatement)
                throw std::bad_alloc();
            guard.Run([] { throw std::bad_alloc(); });
            wentOn = true;
        }));
        EXPECT_FALSE(wentOn);
    }
}

TEST_F(ReportErrorTest, AppendsThreeLinesForEachFailure) {
    Screen.Clock = {2026, 1, 2, 3, 4, 5};
    Screen.ExpectMessageTitled("Program Error", Answer::Cancel);
    Screen.ExpectMessageTitled("Program Error");
    ReportError(RunTimeError(DiskFull), "basWrite-One");
    ReportError(RunTimeError(Overflow), "basRead-Two");
    EXPECT_EQ(FileContent(Log),
              "1/2/2026 3:04:05 AMError : 61\r\n"
              "                   Description : Disk full\r\n"
              "                   Source : Dorvane-basWrite-One\r\n"
              "1/2/2026 3:04:05 AMError : 6\r\n"
              "                   Description : Overflow\r\n"
              "                   Source : Dorvane-basRead-Two\r\n");
}

TEST_F(ReportErrorTest, PutsTheNumberOnTheNextLineWhenTheDateHasPassedItsColumn) {
    Screen.Clock = {2026, 11, 20, 13, 4, 5};
    Screen.ExpectMessageTitled("Program Error");
    ReportError(RunTimeError(Overflow), "basRead-Two");
    EXPECT_EQ(FileContent(Log),
              "11/20/2026 1:04:05 PM\r\n"
              "                   Error : 6\r\n"
              "                   Description : Overflow\r\n"
              "                   Source : Dorvane-basRead-Two\r\n");
}

TEST_F(ReportErrorTest, WritesOnInALogThatEndsInAnEndOfFileMark) {
    const std::string report =
        "1/2/2026 3:04:05 AMError : 6\r\n"
        "                   Description : Overflow\r\n"
        "                   Source : Dorvane-basRead-Two\r\n";
    Screen.Clock = {2026, 1, 2, 3, 4, 5};
    for (const char* former : {"old\r\n\x1A", "old\x1A", "old"}) {
        PutFile(Log, former);
        Screen.ExpectMessageTitled("Program Error");
        ReportError(RunTimeError(Overflow), "basRead-Two");
        EXPECT_EQ(FileContent(Log), "old\r\n" + report) << former;
    }
}

TEST_F(ReportErrorTest, StillAnswersWhenTheLogCannotBeWritten) {
    Drives::CreateFolder(Log);
    Screen.ExpectMessageTitled("Program Error", Answer::Retry);
    EXPECT_EQ(ReportError(RunTimeError(PathNotFound), "basRead-X"), Retry);
}

TEST_F(ReportErrorTest, ReportsADriveFailureThatTakesTheHelpFileWithIt) {
    Global().ProgramFolder.clear();
    Global().DrivesFolder.clear();
    Host::SetEnvironment("DORVANE_DRIVES", "/" + std::string(300, 'x'));
    Screen.ExpectMessageTitled("Program Error", Answer::Cancel);
    EXPECT_FALSE(Guarded("basMain-Main", [](Guard& guard) { guard.Run([] { Drives::Open(); }); }));
    unsetenv("DORVANE_DRIVES");
    EXPECT_EQ(Screen.Shown.at(0).Text,
              "Error : 52\r\n\r\nFile Name entered is illegal.\r\n\r\nSource : Dorvane-basMain-Main");
    EXPECT_EQ(Screen.Shown.at(0).HelpFile, "");
}

TEST_F(ReportErrorTest, ReportsAnyOtherExceptionAsAnInternalError) {
    const std::string report =
        "Error : 51\r\n\r\nDescription : Internal error: nothing at 7\r\n\r\nSource : Dorvane-basTest-Inside";
    Screen.ExpectMessage("Program Error", report);
    Screen.ExpectMessage("Program Error", report);
    bool behind = false;
    EXPECT_FALSE(Guarded("basTest-Inside", [&](Guard& guard) {
        guard.Run([] { throw std::out_of_range("nothing at 7"); });
        behind = true;
    }));
    EXPECT_FALSE(Guarded("basTest-Inside", [](Guard&) { throw std::out_of_range("nothing at 7"); }));
    EXPECT_FALSE(behind);
}

TEST_F(ReportErrorTest, GuardRetriesUntilTheStatementRuns) {
    int tries = 0;
    Screen.ExpectMessageTitled("Program Error", Answer::Yes);
    Screen.ExpectMessageTitled("Program Error", Answer::Yes);
    bool behind = false;
    EXPECT_TRUE(Guarded("basTest-Retry", [&](Guard& guard) {
        EXPECT_TRUE(guard.Run([&] {
            if (++tries < 3)
                throw RunTimeError(DiskFull);
        }));
        behind = true;
    }));
    EXPECT_EQ(tries, 3);
    EXPECT_TRUE(behind);
}

TEST_F(ReportErrorTest, GuardSkipsTheStatementAndGoesOn) {
    Screen.ExpectMessageTitled("Program Error", Answer::Ignore);
    bool behind = false;
    EXPECT_TRUE(Guarded("basTest-Skip", [&](Guard& guard) {
        EXPECT_FALSE(guard.Run([] { throw RunTimeError(PathNotFound); }));
        behind = true;
    }));
    EXPECT_TRUE(behind);
}

TEST_F(ReportErrorTest, GuardLeavesTheProcedure) {
    Screen.ExpectMessageTitled("Program Error", Answer::Cancel);
    bool behind = false;
    EXPECT_FALSE(Guarded("basTest-Leave", [&](Guard& guard) {
        guard.Run([] { throw RunTimeError(PathNotFound); });
        behind = true;
    }));
    EXPECT_FALSE(behind);
}

TEST_F(ReportErrorTest, AFailureOutsideTheStatementsIsReportedOnceAndLeaves) {
    Screen.ExpectMessage(
        "Program Error",
        "Error : 9\r\n\r\nDescription : Subscript out of range\r\n\r\nSource : Dorvane-basTest-Outer");
    EXPECT_FALSE(Guarded("basTest-Outer", [](Guard&) { throw RunTimeError(SubscriptOutOfRange); }));
}

TEST_F(ReportErrorTest, AnInnerProcedureReportsUnderItsOwnName) {
    Screen.ExpectMessage("Program Error",
                         "Error : 6\r\n\r\nDescription : Overflow\r\n\r\nSource : Dorvane-basTest-Inner");
    bool inner = true;
    EXPECT_TRUE(Guarded("basTest-Outer", [&](Guard& guard) {
        guard.Run([&] { inner = Guarded("basTest-Inner", [](Guard&) { throw RunTimeError(Overflow); }); });
    }));
    EXPECT_FALSE(inner);
}

TEST_F(ReportErrorTest, GivingUpAnOuterStatementLeavesTheInnerProcedureToo) {
    Screen.ExpectMessage("Program Error",
                         "Error : 6\r\n\r\nDescription : Overflow\r\n\r\nSource : Dorvane-basTest-Outer");
    bool wentOn = false;
    EXPECT_FALSE(Guarded("basTest-Outer", [&](Guard& outer) {
        Guarded("basTest-Inner", [&](Guard&) { outer.Run([] { throw RunTimeError(Overflow); }); });
        wentOn = true;
    }));
    EXPECT_FALSE(wentOn);
}

TEST_F(ReportErrorTest, AFullDiskIsReportedAndYesRetriesTheStatement) {
    MakeFolders("D:\\SMALL\\");
    OnSmallDisk("D:\\SMALL\\", 64, [&] {
        PutFile("D:\\SMALL\\BALLAST", std::string(50000, 'x'));
        Screen.ExpectMessageTitled("Program Error", Answer::Yes);
        int tries = 0;
        EXPECT_TRUE(Guarded("basTest-Full", [&](Guard& guard) {
            guard.Run([&] {
                if (++tries == 2)
                    Drives::DeleteFile("D:\\SMALL\\BALLAST");  // the operator makes room, then answers Yes
                Drives::WriteFile("D:\\SMALL\\A.TXT", std::string(30000, 'y'));
            });
        }));
        EXPECT_EQ(tries, 2);
        EXPECT_EQ(FileContent("D:\\SMALL\\A.TXT").size(), 30000u);
    });
}

}  // namespace Dorvane
