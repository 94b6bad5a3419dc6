// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ExportRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adjustment/basVarn.h"
#include "core/Drives.h"
#include "tests/adjustment/Listing.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using Testing::FileContent;
using Testing::FileLines;
using testing::HasSubstr;
using Testing::PutFile;
using Testing::PutLines;
using testing::StartsWith;

class ExportRun : public testing::Test {
  protected:
    ExportRun() {
        LoadVarn(State);
        PutLines(Folder + "NET.INP", {"NORL", "", "  PROJECT = North Dam", "     TASK = Level 2",
                                      "     DATE = the run", "LISTING = STATS"});
        PutLines(Folder + "NET.OUT", Testing::GoodListingLines());
        ChangeInput(State, Folder + "NET.INP");
    }

    void Export(const ExportKind& kind) {
        ExportView view;
        view.ShowWait = [this](bool waiting) { Waits.push_back(waiting); };
        view.ShowNotice = [this] { Notices.push_back(State.Notice); };
        ExportResults(State, kind, view);
    }
    void ExpectFinished(const std::string& text) { Desktop.ExpectMessage("Finished", text); }
    void ExpectTarget(const std::string& name, const std::string& title = "") {
        Desktop.ExpectFile(title, Folder + name);
    }
    const std::string& Notice() const { return State.Notice; }

    bool AnyTicked() const {
        return State.mnuDbs.Ticked || State.mnuXyz.Ticked || State.mnuInu.Ticked || State.mnuKeld.Ticked ||
               State.MnuSta.Ticked;
    }

    const std::string Folder = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\";
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
    VarnState State;
    std::vector<bool> Waits;
    std::vector<std::string> Notices;
};

TEST_F(ExportRun, ProposesItsFileBesideTheListing) {
    struct Expected {
        const ExportKind* Kind;
        const char* Name;
        const char* Filter;
        const char* Text;
    };
    const Expected all[] = {
        {&ExportDbs, "NET.DBS", "All Files (*.*)|*.*|DBS Files(*.dbs)|*.dbs|", "Dbs file "},
        {&ExportXyz, "NET.XYZ", "All Files (*.*)|*.*|XYZ Files(*.xyz)|*.xyz|", "Xyz file "},
        {&ExportInu, "NET.INU", "All Files (*.*)|*.*|7Fit INU Files(*.inu)|*.inu|", "7Fit Inu file "},
        {&ExportKeld, "NET.TRG", "All Files (*.*)|*.*|KELD TRG Files(*.trg)|*.trg|", "Keld Trg file "},
        {&ExportSta, "NET.STA", "All Files (*.*)|*.*|STA Files(*.sta)|*.sta|", "Sta file "},
    };
    for (const Expected& expected : all) {
        ExpectTarget(expected.Name);
        ExpectFinished(expected.Text + Folder + expected.Name + " completed.");
        Export(*expected.Kind);
        const FileDialog& dialog = Desktop.Dialogs.back();
        EXPECT_EQ(dialog.Purpose, FileDialog::Kind::Save);
        EXPECT_EQ(dialog.FileName, expected.Name);
        EXPECT_EQ(dialog.Filter, expected.Filter);
        EXPECT_EQ(dialog.FilterIndex, 2);
        EXPECT_EQ(dialog.Flags, 4);
        EXPECT_EQ(dialog.Folder, Folder);
        EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Information);
        EXPECT_NE(FileContent(Folder + expected.Name), "");
    }
    EXPECT_TRUE(State.mnuDbs.Ticked && State.mnuXyz.Ticked && State.mnuInu.Ticked && State.mnuKeld.Ticked &&
                State.MnuSta.Ticked);
}

TEST_F(ExportRun, ProposesTheNameUpToItsLastPoint) {
    PutLines("D:\\JOB.OUT", Testing::GoodListingLines());
    State.lblOutput.Caption = "D:\\JOB.OUT";
    Desktop.ExpectFile("", std::nullopt);
    Export(ExportInu);
    EXPECT_EQ(Desktop.Dialogs[0].FileName, "JOB.INU");
    PutLines("D:\\A.B.OUT", Testing::GoodListingLines());
    State.lblOutput.Caption = "D:\\A.B.OUT";
    Desktop.ExpectFile("", std::nullopt);
    Export(ExportInu);
    EXPECT_EQ(Desktop.Dialogs[1].FileName, "A.B.INU");
}

TEST_F(ExportRun, OfDbsTakesProjectAndTaskFromTheFolders) {
    ExpectTarget("NET.DBS");
    ExpectFinished("Dbs file " + Folder + "NET.DBS completed.");
    Export(ExportDbs);
    EXPECT_EQ(FileLines(Folder + "NET.DBS")[0], "11-20-26  NORTH     ADJUST");
}

TEST_F(ExportRun, OfXyzTakesProjectTaskAndDateFromTheInput) {
    ExpectTarget("OTHER.XYZ");
    ExpectFinished("Xyz file " + Folder + "OTHER.XYZ completed.");
    Export(ExportXyz);
    const std::vector<std::string> lines = FileLines(Folder + "OTHER.XYZ");
    EXPECT_EQ(lines[2], "Job Id   :   North Dam");
    EXPECT_EQ(lines[3], "Part Id  :   Level 2");
    EXPECT_EQ(lines[5], "File     :  OTHER.XYZ");
    EXPECT_EQ(lines[6], "Run      :   the run");
}

TEST_F(ExportRun, OfXyzGoesOnWithoutTheInput) {
    Drives::DeleteFile(Folder + "NET.INP");
    ExpectTarget("NET.XYZ");
    Desktop.ExpectMessage("File Not Found", "File " + Folder + "NET.INP does not exist!");
    ExpectFinished("Xyz file " + Folder + "NET.XYZ completed.");
    Export(ExportXyz);
    EXPECT_EQ(FileLines(Folder + "NET.XYZ")[2], "Job Id   :  ");
}

TEST_F(ExportRun, OfXyzWithACutInputHeadIsReported) {
    PutLines(Folder + "NET.INP", {"NORL", "PROJECT = P"});
    ExpectTarget("NET.XYZ");
    const std::string text =
        "Error : 62\r\n\r\nFile has a nonstandard end-of-file marker, or an attempt was made to read beyond "
        "the "
        "end-of-file marker.\r\n\r\nSource : Dorvane-frmVarn-mnuXyz";
    Desktop.ExpectMessage("Program Error", text, Answer::Retry);
    Desktop.ExpectMessage("Program Error", text, Answer::Cancel);
    Export(ExportXyz);
    EXPECT_FALSE(AnyTicked());
    EXPECT_EQ(Waits, (std::vector<bool>{true, false}));
}

TEST_F(ExportRun, OfInuAndStaNeedsTheCoordinatesOnly) {
    PutLines(Folder + "NET.OUT", Testing::GoodListingLines(18));
    for (const ExportKind* kind : {&ExportDbs, &ExportXyz, &ExportKeld})
        Export(*kind);
    EXPECT_TRUE(Desktop.Dialogs.empty());
    for (const ExportKind* kind : {&ExportInu, &ExportSta}) {
        Desktop.ExpectFile("", std::nullopt);
        Export(*kind);
    }
    EXPECT_EQ(Desktop.Dialogs.size(), 2U);
}

TEST_F(ExportRun, OfAMissingListingAsksNothingAndTellsWhyInTheStatusBar) {
    Drives::DeleteFile(Folder + "NET.OUT");
    for (const ExportKind* kind : {&ExportDbs, &ExportXyz, &ExportInu, &ExportKeld, &ExportSta}) {
        Notices.clear();
        Export(*kind);
        EXPECT_THAT(Notices, ElementsAre("Nothing exported: " + Folder + "NET.OUT does not exist"));
    }
    State.lblOutput.Caption = "";
    Export(ExportDbs);
    EXPECT_EQ(Notice(), "Nothing exported: there is no input file");
    EXPECT_TRUE(Waits.empty());
    EXPECT_FALSE(AnyTicked());
}

TEST_F(ExportRun, OfAListingWithoutResultsAsksNothingAndTellsWhyInTheStatusBar) {
    PutLines(Folder + "NET.OUT", {"nothing"});
    Export(ExportDbs);
    EXPECT_EQ(Notice(), "Nothing exported: NET.OUT has no results, or ends before they do");
    EXPECT_EQ(Waits, (std::vector<bool>{true, false}));
    EXPECT_FALSE(AnyTicked());
}

TEST_F(ExportRun, OfAFailedRunTellsItsErrorInTheStatusBar) {
    PutLines(Folder + "NET.OUT",
             {" RUN FAILED", "", "  Error 21: Points are not determined.", "", "  Cause"});
    Export(ExportInu);
    EXPECT_EQ(Notice(),
              "Nothing exported: NET.OUT is of a run that failed: Error 21: Points are not determined.");
    EXPECT_FALSE(AnyTicked());
}

TEST_F(ExportRun, OfTheMasterSaysNothingBeyondItsMessages) {
    ExpectTarget("NET.INU");
    ExpectFinished("7Fit Inu file " + Folder + "NET.INU completed.");
    Export(ExportInu);
    EXPECT_THAT(Notices, testing::IsEmpty());
    EXPECT_EQ(Notice(), "");
}

// The file is what it is; who reads it next is warned of.
TEST_F(ExportRun, OfDbsWarnsBehindItsMessageOfWhatTheDatabaseCannotTake) {
    std::vector<std::string> lines = {"Final results", "skipped"};
    for (int i = 10; i < 23; ++i)
        lines.push_back("LONGNAME" + std::to_string(i) + " 1 2 3");
    lines.insert(lines.end(), {"GOOD 1 2 3", ""});
    PutLines(Folder + "NET.OUT", lines);
    ExpectTarget("NET.DBS");
    ExpectFinished("Dbs file " + Folder + "NET.DBS completed.");
    std::string expected = "The coordinate database cannot take all of " + Folder + "NET.DBS:\r\n";
    for (int i = 10; i < 20; ++i)
        expected +=
            "\r\nLONGNAME" + std::to_string(i) +
            ": the name has more than 8 characters; the line cannot be read back, and so the whole file";
    Desktop.ExpectMessage("Dbs File Warning", expected + "\r\n... and 3 more");
    Export(ExportDbs);
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
    EXPECT_TRUE(State.mnuDbs.Ticked);
    for (const ExportKind* kind : {&ExportXyz, &ExportInu, &ExportKeld, &ExportSta}) {
        ExpectTarget(std::string("NET") + kind->Extension);
        Desktop.ExpectMessageTitled("Finished");
        Export(*kind);
    }
}

// A listing that may be of another input with the same base.
TEST_F(ExportRun, OfAPathThatIsCutTakesOnlyAListingThatWasMadeHere) {
    PutFile("D:\\JOB.1\\NET.INP", "");
    PutLines("D:\\JOB.OUT", Testing::GoodListingLines());
    ChangeInput(State, "D:\\JOB.1\\NET.INP");
    Export(ExportInu);
    EXPECT_EQ(Notice(), "Nothing exported: D:\\JOB.OUT may be another job's");
    PutFile("D:\\ADJ\\NET.A.INP", "");
    PutLines("D:\\ADJ\\NET.OUT", Testing::GoodListingLines());
    ChangeInput(State, "D:\\ADJ\\NET.A.INP");
    Export(ExportInu);
    EXPECT_EQ(Notice(), "Nothing exported: D:\\ADJ\\NET.OUT may be another job's");
    EXPECT_TRUE(Desktop.Dialogs.empty());
    State.MadeListing = "D:\\ADJ\\NET.OUT";
    Desktop.ExpectFile("", std::nullopt);
    Export(ExportInu);
}

TEST_F(ExportRun, OfAVersionReadsTheMastersListing) {
    PutFile(Folder + "NET_v01.INP", "");
    PutLines(Folder + "NET_v01.OUT", {"Final results", "skipped", "VERSION 1 2 3", ""});
    ChangeInput(State, Folder + "NET.INP");
    ClickVersion(State, 2);
    ExpectTarget("NET.INU", "Export of the master's NET.OUT");
    ExpectFinished("7Fit Inu file " + Folder + "NET.INU completed.");
    Export(ExportInu);
    EXPECT_THAT(FileContent(Folder + "NET.INU"), StartsWith("ST1 "));
    EXPECT_THAT(Notices, ElementsAre("Export of the master's NET.OUT, not of Version 01"));
}

TEST_F(ExportRun, OfAVersionDoesNothingWhereTheMastersListingIsMissing) {
    PutFile(Folder + "NET_v01.INP", "");
    PutLines(Folder + "NET_v01.OUT", Testing::GoodListingLines());
    Drives::DeleteFile(Folder + "NET.OUT");
    ChangeInput(State, Folder + "NET.INP");
    ClickVersion(State, 2);
    EXPECT_TRUE(State.mnuInu.Enabled);
    Export(ExportInu);
    EXPECT_FALSE(AnyTicked());
    EXPECT_EQ(Notice(), "Nothing exported: " + Folder +
                            "NET.OUT does not exist; a listing of Version 01 is not exported");
}

TEST_F(ExportRun, CancelledIsSilent) {
    Desktop.ExpectFile("", std::nullopt);
    Export(ExportSta);
    EXPECT_FALSE(AnyTicked());
    EXPECT_EQ(Waits, (std::vector<bool>{true, false}));
}

TEST_F(ExportRun, AsksBeforeItOverwrites) {
    PutFile(Folder + "NET.INU", "former");
    const std::string question = "File " + Folder + "NET.INU already exists!  Do you wish to overwrite?";
    ExpectTarget("NET.INU");
    Desktop.ExpectMessage("Project Exists", question, Answer::No);
    Export(ExportInu);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Question);
    EXPECT_EQ(Desktop.Shown[0].Choices, Buttons::YesNo);
    EXPECT_EQ(Desktop.Shown[0].Default, Answer::No);
    EXPECT_EQ(FileContent(Folder + "NET.INU"), "former");
    EXPECT_FALSE(AnyTicked());

    ExpectTarget("NET.INU");
    Desktop.ExpectMessage("Project Exists", question, Answer::Yes);
    ExpectFinished("7Fit Inu file " + Folder + "NET.INU completed.");
    Export(ExportInu);
    EXPECT_THAT(FileContent(Folder + "NET.INU"), StartsWith("ST1 "));
    EXPECT_TRUE(State.mnuInu.Ticked);
}

TEST_F(ExportRun, ThatCouldNotWriteIsReportedAndNotCalledFinished) {
    Desktop.ExpectFile("", "D:\\GONE\\NET.TRG");
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : Dorvane-basWrite-WriteTrgFile",
        Answer::Cancel);
    Export(ExportKeld);
    EXPECT_FALSE(AnyTicked());
    EXPECT_EQ(Waits, (std::vector<bool>{true, false}));
}

TEST_F(ExportRun, ToAPathWithoutFolderIsReportedUnderTheMenuEntry) {
    for (const ExportKind* kind : {&ExportDbs, &ExportXyz, &ExportInu, &ExportKeld, &ExportSta}) {
        Desktop.ExpectFile("", "NOFOLDER");
        Desktop.ExpectMessage("Program Error",
                              "Error : 5\r\n\r\nDescription : Invalid procedure call or argument\r\n\r\n"
                              "Source : Dorvane-frmVarn-" +
                                  std::string(kind->Name));
        Export(*kind);
    }
    EXPECT_THAT((std::vector<std::string>{ExportDbs.Name, ExportXyz.Name, ExportInu.Name, ExportKeld.Name,
                                          ExportSta.Name}),
                ElementsAre("mnuDbs", "mnuXyz", "mnuInu", "mnuKeld", "MnuSta"));
}

TEST_F(ExportRun, StaysTickedAfterALaterCancel) {
    ExpectTarget("NET.STA");
    ExpectFinished("Sta file " + Folder + "NET.STA completed.");
    Export(ExportSta);
    Desktop.ExpectFile("", std::nullopt);
    Export(ExportSta);
    EXPECT_TRUE(State.MnuSta.Ticked);
}

TEST(ProjectAndTask, AreTheLastTwoFoldersOfMoreThanTwoNames) {
    std::string project;
    std::string task;
    ProjectAndTask("D:\\TARVEX\\DAM\\", project, task);
    EXPECT_EQ(project, "TARVEX");
    EXPECT_EQ(task, "DAM");
    ProjectAndTask("D:\\NORTH\\LEVEL\\ADJ\\", project, task);
    EXPECT_EQ(project, "LEVEL");
    EXPECT_EQ(task, "ADJ");
}

TEST(ProjectAndTask, AreEmptyWithTwoNamesOrFewer) {
    for (const char* folder : {"D:\\NORTH\\", "D:\\", ""}) {
        std::string project = "left";
        std::string task = "over";
        ProjectAndTask(folder, project, task);
        EXPECT_EQ(project, "") << folder;
        EXPECT_EQ(task, "") << folder;
    }
}

}  // namespace
}  // namespace Dorvane
