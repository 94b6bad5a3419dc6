// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/basVarn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/RunTimeError.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {
namespace {

using testing::ElementsAre;
using Testing::PutFile;

class Varn : public testing::Test {
  protected:
    Varn() {
        Global().PrinterPresent = true;
        LoadVarn(State);
    }

    static void Put(const std::string& name) { PutFile("D:\\ADJ\\" + name, ""); }
    static void PutNet() {
        for (const char* name :
             {"NET.INP", "NET.PAR", "NET.OUT", "NET_v01.INP", "NET_v01.OUT", "NET_v02.INP"})
            Put(name);
    }

    bool ExportsEnabled() const {
        EXPECT_EQ(State.mnuXyz.Enabled, State.mnuInu.Enabled);
        EXPECT_EQ(State.mnuXyz.Enabled, State.mnuKeld.Enabled);
        return State.mnuXyz.Enabled;
    }

    std::vector<std::string> Versions() const {
        return {State.cmbVersion.Entries.begin(), State.cmbVersion.Entries.end()};
    }

    const std::string Net = "D:\\ADJ\\NET.INP";
    Testing::TestSite Site;
    Testing::ScriptedDesktop Desktop;
    VarnState State;
};

TEST_F(Varn, StartsWithNothingChosen) {
    EXPECT_EQ(State.txtInput, "");
    EXPECT_FALSE(State.chkInputFile.Enabled);
    EXPECT_FALSE(State.cmdViewVersionEnabled);
    EXPECT_FALSE(State.cmbVersion.Enabled);
    EXPECT_EQ(State.cmbVersion.Text(), "");
    EXPECT_FALSE(State.chkParFile.Enabled);
    EXPECT_FALSE(State.chkOutputFile.Enabled);
    EXPECT_FALSE(ExportsEnabled());
    EXPECT_TRUE(State.mnuDbs.Enabled);
    EXPECT_TRUE(State.MnuSta.Enabled);
    EXPECT_TRUE(State.mnuPrinterSetupEnabled);
    EXPECT_TRUE(State.cmdPrintEnabled);
}

TEST_F(Varn, OffersFourTypesAndStartsWithTheSecond) {
    EXPECT_THAT((std::vector<std::string>{State.cmbVarn.Entries.begin(), State.cmbVarn.Entries.end()}),
                ElementsAre("(0) - Compact w/ No inversion", "(1) - Compact w/ Inversion",
                            "(-1) - L1 Norm/Simplex", "(7) - Jordan w/ Inversion"));
    EXPECT_EQ(State.cmbVarn.Text(), "(1) - Compact w/ Inversion");
}

TEST_F(Varn, WithoutAPrinterCannotPrint) {
    Global().PrinterPresent = false;
    VarnState state;
    LoadVarn(state);
    EXPECT_FALSE(state.mnuPrinterSetupEnabled);
    EXPECT_FALSE(state.cmdPrintEnabled);
}

TEST_F(Varn, TakesTheTextEditorOnlyForAZeroInTheProfile) {
    for (const char* other : {"", "1", "2", "no"}) {
        IniWriteString("dv_tarvex.ini", "Tarvex Info", "Editor_type", other);
        LoadVarn(State);
        EXPECT_TRUE(State.mnuTarvexEditorTicked) << other;
        EXPECT_FALSE(State.mnuTextEditorTicked) << other;
        EXPECT_EQ(State.fraOptions, "File Options (Tarvex)") << other;
    }
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Editor_type", "0");
    LoadVarn(State);
    EXPECT_TRUE(State.mnuTextEditorTicked);
    EXPECT_FALSE(State.mnuTarvexEditorTicked);
    EXPECT_EQ(State.fraOptions, "File Options (Text)");
}

TEST_F(Varn, KeepsTheChosenEditorInTheProfile) {
    ChooseTextEditor(State);
    EXPECT_TRUE(State.mnuTextEditorTicked);
    EXPECT_FALSE(State.mnuTarvexEditorTicked);
    EXPECT_EQ(State.fraOptions, "File Options (Text)");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Editor_type"), "0");
    ChooseTarvexEditor(State);
    EXPECT_FALSE(State.mnuTextEditorTicked);
    EXPECT_TRUE(State.mnuTarvexEditorTicked);
    EXPECT_EQ(State.fraOptions, "File Options (Tarvex)");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Editor_type"), "1");
}

TEST_F(Varn, WithAnExistingInputShowsItsFilesAndVersions) {
    PutNet();
    ChangeInput(State, Net);
    EXPECT_EQ(State.txtInput, Net);
    EXPECT_EQ(State.lblPar.Caption, "D:\\ADJ\\NET.PAR");
    EXPECT_EQ(State.lblOutput.Caption, "D:\\ADJ\\NET.OUT");
    EXPECT_EQ(State.lblPar.Colour, LabelColour::Black);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::Black);
    EXPECT_TRUE(State.chkInputFile.Enabled);
    EXPECT_TRUE(State.chkParFile.Enabled);
    EXPECT_TRUE(State.chkOutputFile.Enabled);
    EXPECT_TRUE(State.cmdViewVersionEnabled);
    EXPECT_TRUE(State.cmbVersion.Enabled);
    EXPECT_THAT(Versions(), ElementsAre("Master", "Version 01", "Version 02"));
    EXPECT_EQ(State.cmbVersion.Text(), "Master");
    EXPECT_TRUE(ExportsEnabled());
}

TEST_F(Varn, CutsTheNamesAtAPointInAFolderName) {
    PutFile("D:\\JOB.1\\NET.INP", "");
    ChangeInput(State, "D:\\JOB.1\\NET.INP");
    EXPECT_EQ(State.lblPar.Caption, "D:\\JOB.PAR");
    EXPECT_EQ(State.lblOutput.Caption, "D:\\JOB.OUT");
}

TEST_F(Varn, ShowsMissingFilesInRed) {
    Put("NET.INP");
    ChangeInput(State, Net);
    EXPECT_EQ(State.lblPar.Colour, LabelColour::LightRed);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::LightRed);
    EXPECT_EQ(static_cast<int>(State.lblPar.Colour), 12);
    EXPECT_TRUE(State.chkParFile.Enabled);
    EXPECT_FALSE(State.chkOutputFile.Enabled);
    EXPECT_FALSE(ExportsEnabled());
}

TEST_F(Varn, OnAnEmptyInputClearsAllButTheExportEntries) {
    PutNet();
    ChangeInput(State, Net);
    ChangeInput(State, "");
    EXPECT_FALSE(State.chkInputFile.Enabled);
    EXPECT_FALSE(State.cmdViewVersionEnabled);
    EXPECT_FALSE(State.cmbVersion.Enabled);
    EXPECT_THAT(Versions(), ElementsAre());
    EXPECT_EQ(State.cmbVersion.Text(), "");
    EXPECT_EQ(State.lblPar.Caption, "");
    EXPECT_EQ(State.lblOutput.Caption, "");
    EXPECT_FALSE(State.chkOutputFile.Enabled);
    EXPECT_TRUE(State.chkParFile.Enabled);
    EXPECT_TRUE(ExportsEnabled());
}

TEST_F(Varn, OnAMissingInputDisablesTheExportEntriesToo) {
    PutNet();
    ChangeInput(State, Net);
    ChangeInput(State, "D:\\ADJ\\OTHER.INP");
    EXPECT_FALSE(State.chkInputFile.Enabled);
    EXPECT_FALSE(State.cmdViewVersionEnabled);
    EXPECT_FALSE(State.cmbVersion.Enabled);
    EXPECT_THAT(Versions(), ElementsAre());
    EXPECT_EQ(State.lblPar.Caption, "");
    EXPECT_EQ(State.lblOutput.Caption, "");
    EXPECT_FALSE(State.chkOutputFile.Enabled);
    EXPECT_FALSE(ExportsEnabled());
    EXPECT_TRUE(State.mnuDbs.Enabled);
    EXPECT_TRUE(State.MnuSta.Enabled);
}

TEST_F(Varn, ClearsOnlyTheTicksOfXyzAndInuWithANewInput) {
    for (MenuEntry* entry : {&State.mnuDbs, &State.mnuXyz, &State.mnuInu, &State.mnuKeld, &State.MnuSta})
        entry->Ticked = true;
    ChangeInput(State, "");
    EXPECT_FALSE(State.mnuXyz.Ticked);
    EXPECT_FALSE(State.mnuInu.Ticked);
    EXPECT_TRUE(State.mnuDbs.Ticked);
    EXPECT_TRUE(State.mnuKeld.Ticked);
    EXPECT_TRUE(State.MnuSta.Ticked);
}

TEST_F(Varn, OnAnotherInputListsItsVersionsOnly) {
    PutNet();
    Put("B.INP");
    ChangeInput(State, Net);
    ChangeInput(State, "D:\\ADJ\\B.INP");
    EXPECT_THAT(Versions(), ElementsAre("Master"));
}

TEST_F(Varn, OfAVersionShowsThatVersionsFilesUnderTheMastersNames) {
    PutNet();
    ChangeInput(State, Net);
    ClickVersion(State, 2);
    EXPECT_EQ(State.cmbVersion.Text(), "Version 01");
    EXPECT_EQ(State.lblPar.Caption, "D:\\ADJ\\NET.PAR");
    EXPECT_EQ(State.lblPar.Colour, LabelColour::LightRed);
    EXPECT_EQ(State.lblOutput.Caption, "D:\\ADJ\\NET.OUT");
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::Black);
    EXPECT_TRUE(State.chkOutputFile.Enabled);
    EXPECT_TRUE(ExportsEnabled());
}

TEST_F(Varn, OfAVersionWithoutListingDisablesThreeExportEntriesOnly) {
    PutNet();
    ChangeInput(State, Net);
    ClickVersion(State, 3);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::LightRed);
    EXPECT_FALSE(State.chkOutputFile.Enabled);
    EXPECT_FALSE(ExportsEnabled());
    EXPECT_TRUE(State.mnuDbs.Enabled);
    EXPECT_TRUE(State.MnuSta.Enabled);
    ClickVersion(State, 1);
    EXPECT_TRUE(ExportsEnabled());
}

TEST_F(Varn, OfATextThatIsNoVersionChangesNothing) {
    PutNet();
    ChangeInput(State, Net);
    State.cmbVersion.Entries.Add("Version 02 old");
    Drives::DeleteFile("D:\\ADJ\\NET.PAR");
    Drives::DeleteFile("D:\\ADJ\\NET.OUT");
    ClickVersion(State, 4);
    EXPECT_EQ(State.lblPar.Colour, LabelColour::Black);
    EXPECT_EQ(State.lblOutput.Colour, LabelColour::Black);
    EXPECT_TRUE(ExportsEnabled());
    ClickVersion(State, 0);
    EXPECT_EQ(State.lblPar.Colour, LabelColour::Black);
}

TEST_F(Varn, TicksOneFileAtMost) {
    TickFile(State, FileBox::Input, true);
    TickFile(State, FileBox::Output, true);
    EXPECT_FALSE(State.chkInputFile.Ticked);
    EXPECT_FALSE(State.chkParFile.Ticked);
    EXPECT_TRUE(State.chkOutputFile.Ticked);
    TickFile(State, FileBox::Par, false);
    EXPECT_TRUE(State.chkOutputFile.Ticked);
    TickFile(State, FileBox::Output, false);
    EXPECT_FALSE(State.chkOutputFile.Ticked);
}

TEST_F(Varn, LeftWithAFolderKeepsItAsTheLastPath) {
    Put("NET.INP");
    State.txtInput = "D:\\ADJ";
    LeaveVarn(State);
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex", "Last Path"), "D:\\ADJ\\");
}

TEST_F(Varn, LeftWithAFileKeepsTheFormerLastPath) {
    Put("NET.INP");
    IniWriteString("dv_tarvex.ini", "Tarvex", "Last Path", "D:\\FORMER\\");
    for (const char* input : {"", "D:\\ADJ\\NET.INP"}) {
        State.txtInput = input;
        LeaveVarn(State);
        EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex", "Last Path"), "D:\\FORMER\\");
    }
}

}  // namespace
}  // namespace Dorvane
