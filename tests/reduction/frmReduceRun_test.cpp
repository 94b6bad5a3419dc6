// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QGuiApplication>
#include <QListWidget>

#include "core/basGeneral.h"
#include "tests/reduction/ReductionScreenSite.h"

namespace Dorvane::Testing {
namespace {

using Texts = std::vector<std::string>;

const std::string Result = "arguments: 0\r\n" + IndexLine;

using ReductionRunScreen = ReductionScreenSite;

TEST_F(ReductionRunScreen, RunsTheProgramAndDrawsTheTabAnew) {
    frmReduce& screen = Open();
    std::string status;
    bool waiting = false;
    Desktop.OnRun = [&](const std::string&) {
        status = TextOf(screen, "sbrReducePanel1");
        waiting = QGuiApplication::overrideCursor() != nullptr &&
                  QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
    };
    Click(screen, "cmdReduce0");
    EXPECT_EQ(Desktop.Started, Texts{"P:\\DORVANE\\Programs\\FAKERED.EXE"});
    EXPECT_EQ(FileContent(Folder + "ONE.RES"), Result);
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "1");
    EXPECT_EQ(Items(screen, "lstReductionResults0"), (Texts{"ONE.RES", "TWO.RES"}));
    EXPECT_TRUE(IsEnabled(screen, "cmdEdit0"));
    EXPECT_TRUE(IsEnabled(screen, "cmdPrint0"));
    EXPECT_EQ(status, "Running the reduction program ...");
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "2 result files, up to date");
    EXPECT_TRUE(waiting);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(ReductionRunScreen, LeavesTheStateOfTheDataAsItWas) {
    Drives::DeleteFile(Folder + "DAY1.LEV");
    frmReduce& screen = Open();
    EXPECT_EQ(TagOf(screen, "imgData0"), "0");
    Put("DAY1.LEV", "x");
    Click(screen, "cmdReduce0");
    EXPECT_EQ(TagOf(screen, "imgData0"), "0");
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "1");
}

TEST_F(ReductionRunScreen, LosesTheSelectionOfTheResults) {
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    ClickItem(screen, "lstReductionResults0", "ONE.RES");
    Click(screen, "cmdReduce0");
    EXPECT_TRUE(Control<QListWidget>(screen, "lstReductionResults0").selectedItems().empty());
}

TEST_F(ReductionRunScreen, TakesTheEpochThatIsChosenOnTheTab) {
    PutLines("D:\\TARVEX\\INIT\\CALIB.PTH", {" *       CALIB     STAFF     E2026"});
    Configure({"LEV_Reduce=fakered.exe one.res two.res", "LEV_Calib=STAFF",
               "LEV_Param=level fake.par p3.dat p4.dat"});
    Desktop.RunsPrograms = false;
    frmReduce& screen = Open();
    Desktop.ExpectMessageTitled("No Reduction Results");
    Desktop.ExpectMessageTitled("No Reduction Results");
    Click(screen, "cmdReduce0");
    EXPECT_EQ(FileLines("C:\\TARVEX\\PARAM\\FAKE.PAR")[5], "D:\\TARVEX\\CALIB\\STAFF\\E2026\\");
    Control<QComboBox>(screen, "cmbCalibEpoch0").setCurrentIndex(0);
    Click(screen, "cmdReduce0");
    EXPECT_EQ(FileLines("C:\\TARVEX\\PARAM\\FAKE.PAR")[5], "D:\\TARVEX\\CALIB\\STAFF\\none\\");
    EXPECT_EQ(FileLines("C:\\TARVEX\\PARAM\\FAKE.PAR")[7], "D:\\TARVEX\\CALIB\\STAFF\\none\\P4.DAT");
}

TEST_F(ReductionRunScreen, RunsTheTabThatIsSeenAndLeavesTheOthers) {
    Configure({"LEV_Reduce=fakered.exe one.res", "LEV_Param=total fake.par", "DAT_Name=Data",
               "DAT_Reduce=fakered.exe two.res three.res", "DAT_Param=total fake.par"},
              "LEV DAT");
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    Click(screen, "tab1");
    Click(screen, "cmdReduce1");
    EXPECT_EQ(Items(screen, "lstReductionResults1"), Texts{"TWO.RES"});
    EXPECT_EQ(TagOf(screen, "imgReduction1"), "1");
    EXPECT_EQ(FileContent(Folder + "ONE.RES"), "old");
    EXPECT_EQ(Items(screen, "lstReductionResults0"), Texts{"ONE.RES"});
    EXPECT_EQ(FileLines("C:\\TARVEX\\PARAM\\FAKE.PAR"),
              (Texts{Folder, Folder + "SRV12.IDX", Folder + "TWO.RES"}));
}

TEST_F(ReductionRunScreen, ShowsAProgramThatLeavesNothingAsNoResults) {
    Put("ONE.RES", "old");
    Put("FAIL.TXT", "");
    frmReduce& screen = Open();
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "1");
    Desktop.ExpectMessageTitled("No Reduction Results");
    Click(screen, "cmdReduce0");
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "0");
    EXPECT_TRUE(Items(screen, "lstReductionResults0").empty());
    EXPECT_FALSE(IsEnabled(screen, "cmdEdit0"));
    EXPECT_FALSE(IsEnabled(screen, "cmdPrint0"));
}

TEST_F(ReductionRunScreen, ShowsAProgramThatCrashesAsNoResults) {
    PutFile("P:\\DORVANE\\Programs\\CRASH.EXE", "#!/bin/sh\nkill -SEGV $$\n");
    std::filesystem::permissions(Drives::HostPath("P:\\DORVANE\\Programs\\CRASH.EXE"),
                                 std::filesystem::perms(0755));
    Configure({"LEV_Reduce=crash.exe one.res", "LEV_Param=total fake.par"});
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    Desktop.ExpectMessageTitled("No Reduction Results");
    Click(screen, "cmdReduce0");
    EXPECT_EQ(Desktop.Started, Texts{"P:\\DORVANE\\Programs\\CRASH.EXE"});
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "0");
    EXPECT_TRUE(screen.isVisible());
}

TEST_F(ReductionRunScreen, ShowsAProgramThatCannotBeStartedAsNoResults) {
    PutFile("P:\\DORVANE\\Programs\\BROKEN.EXE", "no program");
    Configure({"LEV_Reduce=broken.exe one.res", "LEV_Param=total fake.par"});
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    Desktop.ExpectMessageTitled("No Reduction Results");
    Click(screen, "cmdReduce0");
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "0");
}

TEST_F(ReductionRunScreen, ShowsOnlyTheResultsThatAreThere) {
    Put("ONLYONE.TXT", "");
    frmReduce& screen = Open();
    Click(screen, "cmdReduce0");
    EXPECT_EQ(Items(screen, "lstReductionResults0"), Texts{"ONE.RES"});
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "1");
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "1 result file, up to date");
}

TEST_F(ReductionRunScreen, SaysWhenTheProgramIsMissingAndDoesNotDrawTheTabAnew) {
    Configure({"LEV_Reduce=gone.exe one.res two.res", "LEV_Param=angle fake.par"});
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    ClickItem(screen, "lstReductionResults0", "ONE.RES");
    Desktop.ExpectMessage("EXE Not Found", "Reduction exe GONE.EXE does not exist.  Can not continue.");
    Click(screen, "cmdReduce0");
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
    EXPECT_FALSE(FileExists(Folder + "ONE.RES"));
    EXPECT_TRUE(FileExists("C:\\TARVEX\\PARAM\\FAKE.PAR"));
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "1");
    EXPECT_EQ(Items(screen, "lstReductionResults0"), Texts{"ONE.RES"});
    EXPECT_EQ(Control<QListWidget>(screen, "lstReductionResults0").selectedItems().size(), 1);
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"),
              "The reduction program is missing, the old results are deleted");
}

TEST_F(ReductionRunScreen, TouchesNothingWhenTheIndexIsRefused) {
    Drives::DeleteFile(Folder + Index);
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::No);
    Desktop.ExpectMessage("File Does Not Exist", " file does not exist.  Cannot continue");
    Click(screen, "cmdReduce0");
    EXPECT_EQ(FileContent(Folder + "ONE.RES"), "old");
    EXPECT_TRUE(Desktop.Started.empty());
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "1 result file, up to date");
}

TEST_F(ReductionRunScreen, TouchesNothingWhenTheIndexListsNoFiles) {
    Put(Index, IndexHead);
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    Desktop.ExpectMessage("No Files Exist", "No files exist in SRV12.IDX file.  Cannot continue");
    Click(screen, "cmdReduce0");
    EXPECT_EQ(FileContent(Folder + "ONE.RES"), "old");
    EXPECT_EQ(Items(screen, "lstReductionResults0"), Texts{"ONE.RES"});
}

TEST_F(ReductionRunScreen, DrawsTheTabBeforeItTellsThatThereAreNoResults) {
    Put("ONE.RES", "old");
    Put("FAIL.TXT", "");
    frmReduce& screen = Open();
    std::string tag;
    bool waiting = true;
    Desktop.ExpectMessageTitled("No Reduction Results");
    Desktop.OnMessage = [&] {
        tag = TagOf(screen, "imgReduction0");
        waiting = QGuiApplication::overrideCursor() != nullptr;
    };
    Click(screen, "cmdReduce0");
    EXPECT_EQ(tag, "0");
    EXPECT_FALSE(waiting);
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "The last reduction left no results");
}

TEST_F(ReductionRunScreen, TellsTheEndOfARunOnce) {
    Put("FAIL.TXT", "");
    frmReduce& screen = Open();
    Desktop.ExpectMessageTitled("No Reduction Results");
    Click(screen, "cmdReduce0");
    Put(Index, IndexHead);
    Desktop.ExpectMessageTitled("No Files Exist");
    Click(screen, "cmdReduce0");
    EXPECT_EQ(Desktop.Shown.size(), 2U);
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "The last reduction left no results");
}

TEST_F(ReductionRunScreen, ReportsAMissingParameterKeyAndShowsThatTheResultsAreGone) {
    Configure({"LEV_Reduce=fakered.exe one.res"});
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    Desktop.ExpectMessageTitled("Program Error");
    Click(screen, "cmdReduce0");
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 9"));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "-basReduce-WriteParamFile"));
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "0");
    EXPECT_TRUE(Items(screen, "lstReductionResults0").empty());
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"),
              "The reduction was stopped before its program, there are no results");
}

TEST_F(ReductionRunScreen, SurvivesAFolderThatVanishes) {
    Configure({"LEV_Reduce=fakered.exe one.res", "LEV_Param=total fake.par"});
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    std::filesystem::remove_all(Drives::HostPath(Folder));
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::No);
    Desktop.ExpectMessageTitled("No Reduction Results");
    Click(screen, "cmdReduce0");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "0");
    EXPECT_TRUE(Items(screen, "lstReductionResults0").empty());
}

TEST_F(ReductionRunScreen, ReportsAResultThatMayNotBeDeletedAndKeepsTheTab) {
    Put("ONE.RES", "old");
    AsNobody([&] {
        ScriptedDesktop desktop;
        Painted = false;
        frmReduce& screen = Open();
        desktop.ExpectMessageTitled("Program Error");
        Click(screen, "cmdReduce0");
        EXPECT_TRUE(Tells(desktop.Shown[0], "-frmReduce-cmdReduce_Click"));
        EXPECT_TRUE(desktop.Started.empty());
        EXPECT_EQ(Items(screen, "lstReductionResults0"), Texts{"ONE.RES"});
        screen.Unload();
        HandleEvents();
    });
    EXPECT_EQ(FileContent(Folder + "ONE.RES"), "old");
}

TEST_F(ReductionRunScreen, ReportsAFullDiskForTheParameterFileAndRunsNothing) {
    OnSmallDisk("C:\\TARVEX\\PARAM\\", 16, [&] {
        ScriptedDesktop desktop;
        Painted = false;
        frmReduce& screen = Open();
        try {
            for (int i = 1; i < 100; ++i)
                PutFile("C:\\TARVEX\\PARAM\\FILL." + std::to_string(i), std::string(4096, 'f'));
            ADD_FAILURE() << "the disk took all of it";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, DiskFull);
        }
        desktop.ExpectMessageTitled("Program Error", Answer::No);
        Click(screen, "cmdReduce0");
        EXPECT_TRUE(Tells(desktop.Shown[0], "Error : 61"));
        EXPECT_TRUE(desktop.Started.empty());
        screen.Unload();
        HandleEvents();
    });
}

TEST_F(ReductionRunScreen, ReportsACutIndexAndTakesItForOneWithoutFiles) {
    Put(Index, std::string("\xFF\xFE\x00\x01\x1A", 5));
    Put("ONE.RES", "old");
    frmReduce& screen = Open();
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    Desktop.ExpectMessageTitled("No Files Exist");
    Click(screen, "cmdReduce0");
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 62"));
    EXPECT_TRUE(Desktop.Started.empty());
    EXPECT_EQ(FileContent(Folder + "ONE.RES"), "old");
}

}  // namespace
}  // namespace Dorvane::Testing
