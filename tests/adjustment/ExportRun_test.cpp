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
        ExportResults(State, kind, [this](bool waiting) { Waits.push_back(waiting); });
    }
    void ExpectFinished(const std::string& text) { Desktop.ExpectMessage("Finished", text); }
    void ExpectTarget(const std::string& name) { Desktop.ExpectFile("", Folder + name); }

    bool AnyTicked() const {
        return State.mnuDbs.Ticked || State.mnuXyz.Ticked || State.mnuInu.Ticked || State.mnuKeld.Ticked ||
               State.MnuSta.Ticked;
    }

    const std::string Folder = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\";
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
    VarnState State;
    std::vector<bool> Waits;
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

TEST_F(ExportRun, OfAMissingListingIsSilent) {
    Drives::DeleteFile(Folder + "NET.OUT");
    for (const ExportKind* kind : {&ExportDbs, &ExportXyz, &ExportInu, &ExportKeld, &ExportSta})
        Export(*kind);
    State.lblOutput.Caption = "";
    Export(ExportDbs);
    EXPECT_TRUE(Waits.empty());
    EXPECT_FALSE(AnyTicked());
}

TEST_F(ExportRun, OfAListingWithoutResultsIsSilent) {
    PutLines(Folder + "NET.OUT", {"nothing"});
    Export(ExportDbs);
    EXPECT_EQ(Waits, (std::vector<bool>{true, false}));
    EXPECT_FALSE(AnyTicked());
}

TEST_F(ExportRun, OfAVersionReadsTheMastersListing) {
    PutFile(Folder + "NET_v01.INP", "");
    PutLines(Folder + "NET_v01.OUT", {"Final results", "skipped", "VERSION 1 2 3", ""});
    ChangeInput(State, Folder + "NET.INP");
    ClickVersion(State, 2);
    ExpectTarget("NET.INU");
    ExpectFinished("7Fit Inu file " + Folder + "NET.INU completed.");
    Export(ExportInu);
    EXPECT_THAT(FileContent(Folder + "NET.INU"), StartsWith("ST1 "));
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
