// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/adjustment/VarnScreenSite.h"

namespace Dorvane::Testing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using frmVarnFiles = VarnScreenSite;

TEST_F(frmVarnFiles, TicksOneFileAtMost) {
    PutNet();
    frmVarn& screen = OpenNet();
    const std::vector<const char*> boxes = {"chkInputFile", "chkParFile", "chkOutputFile"};
    for (const char* ticked : boxes) {
        QTest::keyClick(&Control<QWidget>(screen, ticked), Qt::Key_Space);
        for (const char* box : boxes)
            EXPECT_EQ(IsTicked(screen, box), box == ticked) << ticked << " " << box;
    }
    QTest::keyClick(&Control<QWidget>(screen, "chkOutputFile"), Qt::Key_Space);
    for (const char* box : boxes)
        EXPECT_FALSE(IsTicked(screen, box)) << box;
}

TEST_F(frmVarnFiles, BrowsesForTheInput) {
    PutNet();
    frmVarn& screen = Open();
    Desktop.ExpectFile("", Net);
    Click(screen, "cmdBrowse");
    EXPECT_EQ(TextOf(screen, "txtInput"), Net);
    EXPECT_THAT(Entries(screen, "cmbVersion"), ElementsAre("Master", "Version 01", "Version 02"));
    EXPECT_EQ(Desktop.Dialogs[0].FilterIndex, 2);
    EXPECT_EQ(LastPath(), "D:\\ADJ\\");
    Desktop.ExpectFile("", std::nullopt);
    Click(screen, "cmdBrowse");
    EXPECT_EQ(Desktop.Dialogs[1].Folder, "D:\\ADJ\\");
    EXPECT_EQ(TextOf(screen, "txtInput"), Net);
}

TEST_F(frmVarnFiles, RefusesAMasterCopyAndAVersionWithoutTheirInput) {
    Put("LONE.ORG");
    Put("LONE_v01.INP");
    frmVarn& screen = OpenNet();
    Desktop.ExpectFile("", "D:\\ADJ\\LONE.ORG");
    Desktop.ExpectMessage("Input File Error",
                          "No *.INP file exists for this master file LONE.ORG.  Please correct.");
    Click(screen, "cmdBrowse");
    Desktop.ExpectFile("", "D:\\ADJ\\LONE_v01.INP");
    Desktop.ExpectMessage("Input File Error",
                          "No *.INP master file exists for this version file LONE_v01.INP.  Please correct.");
    Click(screen, "cmdBrowse");
    EXPECT_EQ(TextOf(screen, "txtInput"), Net);
}

TEST_F(frmVarnFiles, TakesAMasterCopyAsItWasChosen) {
    Put("NET.ORG");
    frmVarn& screen = Open();
    Desktop.ExpectFile("", "D:\\ADJ\\NET.ORG");
    Click(screen, "cmdBrowse");
    EXPECT_EQ(TextOf(screen, "txtInput"), "D:\\ADJ\\NET.ORG");
    Package.Go = [] { return 1; };
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_EQ(Package.Calls[0], "start D:\\ADJ\\NET.ORG");
}

TEST_F(frmVarnFiles, SaysThatTheEditorIsMissing) {
    frmVarn& screen = OpenNet();
    Click(screen, "chkInputFile");
    Desktop.ExpectMessage("Editor Not Found", "Editor  does not exitst.  Can not edit file(s).");
    Click(screen, "cmdEdit");
    EXPECT_THAT(Desktop.Started, IsEmpty());
}

TEST_F(frmVarnFiles, EditsTheTickedFileOfTheVersionInTheTextEditor) {
    PutNet();
    InstallEditor();
    frmVarn& screen = OpenNet();
    Choose(screen, "mnuTextEditor");
    Pick(screen, "cmbVersion", 2);
    for (const char* box : {"chkInputFile", "chkParFile", "chkOutputFile"}) {
        Click(screen, box);
        Click(screen, "cmdEdit");
    }
    EXPECT_THAT(Desktop.Started,
                ElementsAre("C:\\EDIT\\ED.EXE D:\\ADJ\\NET_v01.INP", "C:\\EDIT\\ED.EXE D:\\ADJ\\NET_v01.PAR",
                            "C:\\EDIT\\ED.EXE D:\\ADJ\\NET_v01.OUT"));
    EXPECT_EQ(Chosen(screen, "cmbVersion"), "Version 01");
}

TEST_F(frmVarnFiles, EditsWithTheSpecialEditorsAndListsTheVersionsAnew) {
    PutNet();
    InstallEditor();
    frmVarn& screen = OpenNet();
    Pick(screen, "cmbVersion", 3);
    Click(screen, "chkInputFile");
    Desktop.OnRun = [](const std::string&) { Put("NET_v10.INP"); };
    Click(screen, "cmdEdit");
    EXPECT_THAT(Entries(screen, "cmbVersion"),
                ElementsAre("Master", "Version 01", "Version 02", "Version 10"));
    EXPECT_EQ(Chosen(screen, "cmbVersion"), "Master");
    EXPECT_FALSE(IsRed(screen, "lblPar"));
    Click(screen, "chkParFile");
    Desktop.OnRun = [](const std::string&) { Drives::DeleteFile("D:\\ADJ\\NET.PAR"); };
    Click(screen, "cmdEdit");
    EXPECT_TRUE(IsRed(screen, "lblPar"));
    EXPECT_THAT(Desktop.Started, ElementsAre("P:\\DORVANE\\programs\\editinp.exe D:\\ADJ\\NET_v02.INP",
                                             "P:\\DORVANE\\programs\\editpar.exe D:\\ADJ\\NET.PAR"));
}

TEST_F(frmVarnFiles, ListsTheVersionsOfAnInputThatWasRemoved) {
    Put("NET_v10.INP");
    Put("NET_v02.INP");
    InstallEditor();
    frmVarn& screen = OpenNet();
    Click(screen, "chkInputFile");
    Desktop.OnRun = [this](const std::string&) { Drives::DeleteFile(Net); };
    Click(screen, "cmdEdit");
    EXPECT_THAT(Entries(screen, "cmbVersion"), ElementsAre("Version 02", "Version 10"));
    EXPECT_EQ(Chosen(screen, "cmbVersion"), "Version 02");
}

TEST_F(frmVarnFiles, PrintsTheMastersFileWhateverTheVersion) {
    PutNet();
    PutLines(Output, {"the master's listing"});
    frmVarn& screen = OpenNet();
    Pick(screen, "cmbVersion", 2);
    Click(screen, "cmdPrint");
    EXPECT_THAT(Desktop.PrintedLines, IsEmpty());
    Click(screen, "chkOutputFile");
    Click(screen, "cmdPrint");
    EXPECT_EQ(Desktop.PrintedLines.back(), "     the master's listing");
}

}  // namespace
}  // namespace Dorvane::Testing
