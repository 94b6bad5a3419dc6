// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Drives.h"
#include "tests/input/InputScreenSite.h"

namespace Dorvane::Testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InputScreenImport : public InputScreenSite {};

TEST_F(InputScreenImport, PutsAFolderOfTheTreeUnderTheSelectedType) {
    frmInput& screen = Open();
    Import(Survey);
    EXPECT_THAT(Picker.Calls, ElementsAre("OpenTreeAndWait Input Laser field data from|" + Survey));
    EXPECT_TRUE(HiddenMeanwhile);
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Survey);
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
    EXPECT_TRUE(Node("Laser").isExpanded());
    EXPECT_EQ(Tree().currentItem(), &Node(Survey));
    EXPECT_FALSE(Node(Survey).icon(0).isNull());
}

TEST_F(InputScreenImport, OpensTheTreeOnTheTypesOwnFolder) {
    Open();
    ClickNode("Levelling");
    Import("");
    EXPECT_THAT(Picker.Calls, ElementsAre("OpenTreeAndWait Input Levelling field data from|"
                                          "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\\"));
}

TEST_F(InputScreenImport, ACancelledTreeKeepsTheLabelAndAddsNothing) {
    frmInput& screen = Open();
    screen.SetDirectory(Job);
    Import("");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Job);
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_THAT(Desktop.Shown, IsEmpty());
}

TEST_F(InputScreenImport, ComesBackFromATreeThatAnswersNothing) {
    Picker.OnTreeWaited = {};
    frmInput& screen = Open();
    Click(screen, "cmdImport");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_THAT(Folders(), IsEmpty());
}

TEST_F(InputScreenImport, ReportsAFolderThatStandsInTheTreeAlreadyUnderAnyType) {
    Open();
    Import(Survey);
    ClickNode("Totalstation");
    Desktop.ExpectMessageTitled("Program Error");
    Import(Survey);
    EXPECT_EQ(LastReport(Desktop), "35602 Dorvane-frmInput-cmdImport_Click");
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
}

TEST_F(InputScreenImport, NamesNoLocationWhenThePathHoldsNone) {
    MakeFolders("D:\\OTHER\\");
    Open();
    ClickNode("Totalstation");
    Desktop.ExpectMessage("Extensions Not Found",
                          "Can not find extension information for location .  Can not add to project.");
    Import("D:\\OTHER\\");
    EXPECT_THAT(Folders(), IsEmpty());
}

TEST_F(InputScreenImport, WarnsOfNewerDataAndAddsTheFolder) {
    SetTimeStamp(Survey + "DAY1.GSI", {2026, 11, 3, 8, 0, 0});
    Open();
    Desktop.ExpectMessage("Newer Dates",
                          "Some files with extension GSI are newer than the *.RES files.  May need to update "
                          "by running data reductions.");
    Import(Survey);
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
}

TEST_F(InputScreenImport, WarnsOfMissingDataAndAddsTheFolder) {
    const std::string folder = "D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV13\\";
    PutFile(folder + "TOTAL.RES", "");
    Open();
    Desktop.ExpectMessage("No Data Files", "No data files with extension GSI exist for date comparasion.");
    Import(folder);
    EXPECT_EQ(Folders(), (Texts{"Laser>" + folder}));
}

TEST_F(InputScreenImport, RefusesAFolderWithoutResultsAndOneThatIsGone) {
    const std::string folder = "D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV14\\";
    MakeFolders(folder);
    Open();
    for (const std::string& chosen : {folder, std::string("D:\\GONE\\TPS\\")}) {
        Desktop.ExpectMessage("No Reduction File(s)", "No *.RES file(s) exist in the choosen directory " +
                                                          chosen + ".  Can not add to project.");
        Import(chosen);
    }
    EXPECT_THAT(Folders(), IsEmpty());
}

TEST_F(InputScreenImport, TakesAFolderChosenByHandAndKeepsItAsTheLast) {
    Global().Path_type = 2;
    frmInput& screen = Open();
    Desktop.ExpectFile("Input Laser field data from", Survey + "RES");
    Click(screen, "cmdImport");
    EXPECT_EQ(Desktop.Dialogs.at(0).Folder, "C:\\TEMP\\");
    EXPECT_EQ(Desktop.Dialogs.at(0).FileName, "RES");
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Survey);
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Manual", "Last Path"), Survey);
    EXPECT_THAT(Picker.Calls, IsEmpty());
}

TEST_F(InputScreenImport, ACancelledDialogLeavesTheLabelAndAddsNothing) {
    Global().Path_type = 2;
    frmInput& screen = Open();
    screen.SetDirectory(Job);
    Desktop.ExpectFile("Input Laser field data from", std::nullopt);
    Click(screen, "cmdImport");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Job);
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_TRUE(screen.isVisible());
}

TEST_F(InputScreenImport, ShowsAccentsAndMarkupAsTheyStandInTheNames) {
    const std::string folder = "D:\\TARVEX\\\xC9T\xC9 & CO\\TPS\\SRV1\\";
    IniWriteString("dv_input.ini", "Tracker", "Name1", "Las\xE9r & <b>tr</b>");
    PutFile(folder + "TOTAL.RES", "");
    PutFile(folder + "A.GSI", "");
    SetTimeStamp(folder + "A.GSI", {2020, 1, 1, 8, 0, 0});
    frmInput& screen = Open();
    Import(folder);
    EXPECT_EQ(
        Picker.Calls.at(0).substr(0, 60),
        std::string("OpenTreeAndWait Input Las\xE9r & <b>tr</b> field data from|" + Survey).substr(0, 60));
    EXPECT_EQ(Folders(), (Texts{"Las\xE9r & <b>tr</b>>" + folder}));
    EXPECT_EQ(FromScreen(Combo("icmbInput").currentText()), "Las\xE9r & <b>tr</b>");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), folder);
    Desktop.ExpectMessage("Edit Result File(s)",
                          "Do you wish to edit the *.RES files in folder " + folder + "?", Answer::Cancel);
    ClickNode(folder);
}

TEST_F(InputScreenImport, DoesNothingWithoutADataType) {
    PutProfile("dv_input.ini", {});
    frmInput& screen = Open();
    EXPECT_EQ(Combo("icmbInput").currentIndex(), -1);
    Click(screen, "cmdImport");
    EXPECT_THAT(Picker.Calls, IsEmpty());
}

TEST_F(InputScreenImport, AFolderThatVanishedIsAskedAboutOnlyToBeRemoved) {
    Open();
    Import(Survey);
    Drives::DeleteFile(Survey + "TOTAL.RES");
    Drives::DeleteFile(Survey + "DAY1.GSI");
    Drives::RenameFile("D:\\TARVEX\\DAM\\NORTH\\TPS", "D:\\TARVEX\\DAM\\NORTH\\OLD");
    Desktop.ExpectMessageTitled("Remove Folder", Answer::No);
    ClickNode(Survey);
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
    Desktop.ExpectMessageTitled("Remove Folder", Answer::Yes);
    Desktop.ExpectMessageTitled("Are You Sure", Answer::Yes);
    ClickNode(Survey);
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_EQ(Status(), "Folder " + Survey + " removed");
}

TEST_F(InputScreenImport, TheTypeThatWasUsedLastIsProposedTheNextTime) {
    Open();
    Combo("icmbInput").setCurrentIndex(1);
    Import("");  // cancelled, so not used
    Screen->Unload();
    HandleEvents();
    Open();
    EXPECT_EQ(Combo("icmbInput").currentText(), QLatin1String("Laser"));
    Combo("icmbInput").setCurrentIndex(1);
    Import(Survey);
    EXPECT_EQ(Status(), "Folder " + Survey + " added to Totalstation");
    Screen->Unload();
    HandleEvents();
    Open();
    EXPECT_EQ(Combo("icmbInput").currentText(), QLatin1String("Totalstation"));
}

TEST_F(InputScreenImport, TheStatusBarTellsNothingThatIsOver) {
    frmInput& screen = Open();
    Import(Survey);
    const std::string added = "Folder " + Survey + " added to Laser";
    EXPECT_EQ(Status(), added);
    QTest::keyClicks(&Field("txtTask"), QStringLiteral("x"));
    EXPECT_EQ(Status(), "Choose data type to import");
    Choose(screen, "mnuClearAllObs");
    EXPECT_EQ(Status(), "All folders removed");
    ClickItem(screen, "lstCoordTypes", "Ideals");
    EXPECT_EQ(Status(), "Choose data type to import");
    Import(Survey);
    EXPECT_EQ(Status(), added);
    Import("");
    EXPECT_EQ(Status(), "Choose data type to import");
}

}  // namespace
}  // namespace Dorvane::Testing
