// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/VarnFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adjustment/basVarn.h"
#include "core/Drives.h"
#include "core/ProfileStore.h"
#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Testing::PutFile;
using Testing::PutLines;

class VarnFiles : public testing::Test {
  protected:
    VarnFiles() {
        LoadVarn(State);
        for (const char* name : {"NET.INP", "NET.ORG", "NET.PAR", "NET.OUT", "NET_v02.INP"})
            PutFile(std::string("D:\\ADJ\\") + name, "");
    }

    void InstallEditor() {
        IniWriteString("dv_tarvex.ini", "General Editor", "Path", "C:\\EDIT\\");
        IniWriteString("dv_tarvex.ini", "General Editor", "Name", "ED.EXE");
        PutFile("C:\\EDIT\\ED.EXE", "");
    }

    void Browse(std::optional<std::string> chosen) {
        Desktop.ExpectFile("", std::move(chosen));
        BrowseInput(State);
    }

    static std::string LastPath() { return IniReadString("dv_tarvex.ini", "Tarvex", "Last Path"); }

    const std::string Net = "D:\\ADJ\\NET.INP";
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
    VarnState State;
};

TEST_F(VarnFiles, AreBrowsedWithInputFilesSelected) {
    Browse(Net);
    ASSERT_EQ(Desktop.Dialogs.size(), 1U);
    const FileDialog& dialog = Desktop.Dialogs[0];
    EXPECT_EQ(dialog.Purpose, FileDialog::Kind::Open);
    EXPECT_EQ(dialog.Filter, "All Files (*.*)|*.*|Input Files(*.inp)|*.inp|Master Files(*.org)|*.org|");
    EXPECT_EQ(dialog.FilterIndex, 2);
    EXPECT_EQ(dialog.Flags, 4);
    EXPECT_EQ(dialog.Folder, "");
    EXPECT_EQ(State.txtInput, Net);
    EXPECT_EQ(State.lblOutput.Caption, "D:\\ADJ\\NET.OUT");
    EXPECT_EQ(State.cmbVersion.Text(), "Master");
    EXPECT_EQ(LastPath(), "D:\\ADJ\\");
}

TEST_F(VarnFiles, AreBrowsedFromTheFolderOfTheInput) {
    IniWriteString("dv_tarvex.ini", "Tarvex", "Last Path", "C:\\TEMP\\");
    ChangeInput(State, "D:\\ADJ\\GONE.INP");
    Browse(std::nullopt);
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "D:\\ADJ\\");
}

TEST_F(VarnFiles, AreBrowsedFromTheLastPathWhereTheInputsFolderIsGone) {
    IniWriteString("dv_tarvex.ini", "Tarvex", "Last Path", "C:\\TEMP");
    ChangeInput(State, "D:\\GONE\\NET.INP");
    Browse(std::nullopt);
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "C:\\TEMP\\");
}

TEST_F(VarnFiles, AreBrowsedFromNowhereWhereTheLastPathIsGoneToo) {
    IniWriteString("dv_tarvex.ini", "Tarvex", "Last Path", "C:\\GONE\\");
    Browse(std::nullopt);
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "");
}

TEST_F(VarnFiles, StayWhenTheDialogIsCancelled) {
    ChangeInput(State, Net);
    Browse(std::nullopt);
    EXPECT_EQ(State.txtInput, Net);
    EXPECT_EQ(LastPath(), "");
}

TEST_F(VarnFiles, TakeAMasterCopyAsItWasChosen) {
    Browse("D:\\ADJ\\NET.ORG");
    EXPECT_EQ(State.txtInput, "D:\\ADJ\\NET.ORG");
    EXPECT_EQ(State.lblOutput.Caption, "D:\\ADJ\\NET.OUT");
}

TEST_F(VarnFiles, RefuseAMasterCopyWithoutItsInput) {
    PutFile("D:\\ADJ\\lone.org", "");
    Desktop.ExpectFile("", "D:\\ADJ\\lone.org");
    Desktop.ExpectMessage("Input File Error",
                          "No *.INP file exists for this master file lone.org.  Please correct.");
    BrowseInput(State);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
    EXPECT_EQ(State.txtInput, "");
    EXPECT_EQ(LastPath(), "");
}

TEST_F(VarnFiles, TakeAVersionAsItWasChosen) {
    Browse("D:\\ADJ\\NET_v02.INP");
    EXPECT_EQ(State.txtInput, "D:\\ADJ\\NET_v02.INP");
    EXPECT_EQ(State.lblOutput.Caption, "D:\\ADJ\\NET_v02.OUT");
}

TEST_F(VarnFiles, RefuseAVersionWithoutItsMaster) {
    PutFile("D:\\ADJ\\lone_v01.inp", "");
    Desktop.ExpectFile("", "D:\\ADJ\\lone_v01.inp");
    Desktop.ExpectMessage("Input File Error",
                          "No *.INP master file exists for this version file lone_v01.inp.  Please correct.");
    BrowseInput(State);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
    EXPECT_EQ(State.txtInput, "");
}

TEST_F(VarnFiles, AreBrowsedFromTheLastPathWhereTheInputWasTypedWithoutAFolder) {
    IniWriteString("dv_tarvex.ini", "Tarvex", "Last Path", "C:\\TEMP\\");
    for (const char* typed : {"NET.INP", "D:", " ", "N"}) {
        ChangeInput(State, typed);
        Browse(std::nullopt);
        EXPECT_EQ(Desktop.Dialogs.back().Folder, "C:\\TEMP\\") << typed;
        EXPECT_EQ(State.txtInput, typed);
    }
}

TEST_F(VarnFiles, CannotBeEditedWithoutTheGeneralEditor) {
    ChangeInput(State, Net);
    TickFile(State, FileBox::Input, true);
    IniWriteString("dv_tarvex.ini", "General Editor", "Path", "C:\\EDIT\\");
    IniWriteString("dv_tarvex.ini", "General Editor", "Name", "ED.EXE");
    Desktop.ExpectMessage("Editor Not Found",
                          "Editor C:\\EDIT\\ED.EXE does not exitst.  Can not edit file(s).");
    EditFiles(State);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
    EXPECT_THAT(Desktop.Started, IsEmpty());
}

TEST_F(VarnFiles, AreNotEditedWithoutATick) {
    InstallEditor();
    ChangeInput(State, Net);
    EditFiles(State);
    EXPECT_THAT(Desktop.Started, IsEmpty());
}

TEST_F(VarnFiles, GoToTheGeneralEditorWithTheTextEditor) {
    InstallEditor();
    ChooseTextEditor(State);
    ChangeInput(State, Net);
    for (const FileBox box : {FileBox::Input, FileBox::Par, FileBox::Output}) {
        TickFile(State, box, true);
        EditFiles(State);
    }
    EXPECT_THAT(Desktop.Started,
                ElementsAre("C:\\EDIT\\ED.EXE D:\\ADJ\\NET.INP", "C:\\EDIT\\ED.EXE D:\\ADJ\\NET.PAR",
                            "C:\\EDIT\\ED.EXE D:\\ADJ\\NET.OUT"));
}

TEST_F(VarnFiles, GoToTheirOwnEditorsButForTheListing) {
    InstallEditor();
    ChooseTarvexEditor(State);
    ChangeInput(State, Net);
    for (const FileBox box : {FileBox::Input, FileBox::Par, FileBox::Output}) {
        TickFile(State, box, true);
        EditFiles(State);
    }
    EXPECT_THAT(Desktop.Started, ElementsAre("P:\\DORVANE\\programs\\editinp.exe D:\\ADJ\\NET.INP",
                                             "P:\\DORVANE\\programs\\editpar.exe D:\\ADJ\\NET.PAR",
                                             "C:\\EDIT\\ED.EXE D:\\ADJ\\NET.OUT"));
}

TEST_F(VarnFiles, OfAVersionAreEditedByTheVersionsNames) {
    InstallEditor();
    ChooseTextEditor(State);
    ChangeInput(State, "D:\\ADJ\\NET.ORG");
    ClickVersion(State, 2);
    for (const FileBox box : {FileBox::Input, FileBox::Par, FileBox::Output}) {
        TickFile(State, box, true);
        EditFiles(State);
    }
    EXPECT_THAT(Desktop.Started,
                ElementsAre("C:\\EDIT\\ED.EXE D:\\ADJ\\NET_v02.ORG", "C:\\EDIT\\ED.EXE D:\\ADJ\\NET_v02.PAR",
                            "C:\\EDIT\\ED.EXE D:\\ADJ\\NET_v02.OUT"));
}

TEST_F(VarnFiles, ListTheVersionsThatTheInputEditorMade) {
    InstallEditor();
    ChooseTarvexEditor(State);
    ChangeInput(State, Net);
    ClickVersion(State, 2);
    TickFile(State, FileBox::Input, true);
    Desktop.OnRun = [](const std::string&) { PutFile("D:\\ADJ\\NET_v03.INP", ""); };
    EditFiles(State);
    EXPECT_THAT((std::vector<std::string>{State.cmbVersion.Entries.begin(), State.cmbVersion.Entries.end()}),
                ElementsAre("Master", "Version 02", "Version 03"));
    EXPECT_EQ(State.cmbVersion.Text(), "Master");
}

TEST_F(VarnFiles, ShowWhetherTheParameterEditorLeftAFile) {
    InstallEditor();
    ChooseTarvexEditor(State);
    Drives::DeleteFile("D:\\ADJ\\NET.PAR");
    ChangeInput(State, Net);
    EXPECT_EQ(State.lblPar.Colour, LabelColour::LightRed);
    TickFile(State, FileBox::Par, true);
    Desktop.OnRun = [](const std::string&) { PutFile("D:\\ADJ\\NET.PAR", ""); };
    EditFiles(State);
    EXPECT_EQ(State.lblPar.Colour, LabelColour::Black);
    Desktop.OnRun = [](const std::string&) { Drives::DeleteFile("D:\\ADJ\\NET.PAR"); };
    EditFiles(State);
    EXPECT_EQ(State.lblPar.Colour, LabelColour::LightRed);
}

TEST_F(VarnFiles, AreReportedWhenTheEditorCannotBeStarted) {
    InstallEditor();
    ChooseTextEditor(State);
    ChangeInput(State, Net);
    TickFile(State, FileBox::Input, true);
    Desktop.OnRun = [](const std::string&) { throw RunTimeError(FileNotFound); };
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 53\r\n\r\nDescription : File not found\r\n\r\nSource : Dorvane-frmVarn-cmdEdit");
    EditFiles(State);
}

TEST_F(VarnFiles, ArePrintedByTheMastersNamesWhateverTheVersion) {
    PutLines(Net, {"master"});
    ChangeInput(State, Net);
    ClickVersion(State, 2);
    TickFile(State, FileBox::Input, true);
    PrintFiles(State);
    EXPECT_THAT(Desktop.PrintedLines,
                ElementsAre("     ", "     File Name : D:\\ADJ\\NET.INP", "     ", "     master"));
}

TEST_F(VarnFiles, ArePrintedByTheTick) {
    PutLines("D:\\ADJ\\NET.PAR", {"parameters"});
    PutLines("D:\\ADJ\\NET.OUT", {"listing"});
    ChangeInput(State, Net);
    PrintFiles(State);
    EXPECT_THAT(Desktop.PrintedLines, IsEmpty());
    TickFile(State, FileBox::Par, true);
    PrintFiles(State);
    EXPECT_EQ(Desktop.PrintedLines.back(), "     parameters");
    TickFile(State, FileBox::Output, true);
    PrintFiles(State);
    EXPECT_EQ(Desktop.PrintedLines.back(), "     listing");
}

TEST_F(VarnFiles, AreNotPrintedWithoutAFileName) {
    State.txtInput = "D:\\ADJ\\";
    TickFile(State, FileBox::Input, true);
    PrintFiles(State);
    EXPECT_THAT(Desktop.PrintFonts, IsEmpty());
}

TEST_F(VarnFiles, AreNotPrintedWithoutAFolder) {
    PutFile("D:\\NET.INP", "not to be printed");
    Drives::ChangeDrive('D');
    State.txtInput = "NET.INP";
    TickFile(State, FileBox::Input, true);
    PrintFiles(State);
    EXPECT_THAT(Desktop.PrintFonts, IsEmpty());
}

TEST_F(VarnFiles, AreNotPrintedWhereABoxStayedTickedAndThereIsNoPath) {
    for (const FileBox box : {FileBox::Input, FileBox::Par, FileBox::Output}) {
        ChangeInput(State, Net);
        TickFile(State, box, true);
        ChangeInput(State, "");
        PrintFiles(State);
    }
    EXPECT_THAT(Desktop.PrintFonts, IsEmpty());
}

}  // namespace
}  // namespace Dorvane
