// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/frmInput.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QWindow>
#include <algorithm>

#include "tests/input/InputScreenSite.h"

namespace Dorvane::Testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FrmInput : public InputScreenSite {};

TEST_F(FrmInput, HasItsCaptions) {
    frmInput& screen = Open();
    EXPECT_EQ(TextOf(screen), "VARN Input File Creation");
    const std::vector<std::pair<const char*, std::string>> captions = {
        {"cmdImport", "Get Observations"},
        {"cmdCreate", "Create Input File"},
        {"cmdEdit", "EditInput File"},
        {"cmdPrint", "Print Input File"},
        {"cmdVarn", "Go to run VARN"},
        {"cmdHome", "Go Home"},
        {"lblInputTitle", "Data Type :"},
        {"lblDimensionTitle", "Dimension :"},
        {"lblCoordTypesTitle", "Coordinate Types :"},
        {"lblCoordDirectorysTitle", "Coordinate Location :"},
        {"fraUserDbaseFiles", "User Database Files"},
        {"lblProjectTitle", "Project Description :"},
        {"lblTaskTitle", "Task Description :"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(TextOf(screen, name), caption) << name;
}

TEST_F(FrmInput, HasItsMenus) {
    frmInput& screen = Open();
    const std::vector<std::pair<const char*, const char*>> menus = {{"mnuFile", "&File"},
                                                                    {"mnuEdit", "&Edit"},
                                                                    {"mnuOptions", "&Options"},
                                                                    {"mnuPathType", "&Path Type"}};
    for (const auto& [name, title] : menus)
        EXPECT_EQ(Control<QMenu>(screen, name).title(), QLatin1String(title));
    const std::vector<std::pair<const char*, const char*>> entries = {
        {"mnuOpenProject", "&Open Project"},
        {"mnuSaveProject", "&Save Project"},
        {"mnuPrinter", "&Printer Setup"},
        {"mnuGoHome", "Go &Home"},
        {"mnuObservationWeights", "&Observation Weights"},
        {"mnuClearAllObs", "&Clear All Obs"},
        {"mnuTarvex", "&Tarvex"},
        {"mnuManual", "&Manual"}};
    for (const auto& [name, text] : entries)
        EXPECT_EQ(screen.findChild<QAction*>(QLatin1String(name))->text(), QLatin1String(text));
}

TEST_F(FrmInput, HasATipOnEveryButtonAndNoMnemonicTwice) {
    frmInput& screen = Open();
    std::string letters = "feo";  // the menus
    const auto take = [&](const QString& text) {
        letters += text[text.indexOf(QLatin1Char('&')) + 1].toLower().toLatin1();
    };
    for (const QAbstractButton* button : screen.findChildren<QAbstractButton*>()) {
        if (!button->objectName().startsWith(QLatin1String("cmd")))
            continue;
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
        take(button->text());
    }
    for (const QLabel* label : screen.findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            take(label->text());
    take(Control<QGroupBox>(screen, "fraUserDbaseFiles").title());
    EXPECT_EQ(letters.size(), 3U + 8U + 6U + 1U);
    std::sort(letters.begin(), letters.end());
    EXPECT_EQ(std::adjacent_find(letters.begin(), letters.end()), letters.end()) << letters;
}

TEST_F(FrmInput, OpensReadyToChooseADataType) {
    frmInput& screen = Open();
    EXPECT_EQ(Status(), "Choose data type to import");
    EXPECT_EQ(TextOf(screen, "sbrInputPanel2"), "Tarvex");
    QComboBox& types = Combo("icmbInput");
    ASSERT_EQ(types.count(), 5);
    EXPECT_EQ(types.currentIndex(), 0);
    EXPECT_EQ(types.itemText(0), QLatin1String("Laser"));
    EXPECT_EQ(types.itemText(4), QLatin1String("Distances"));
    EXPECT_FALSE(types.itemIcon(0).isNull());
    EXPECT_TRUE(types.itemIcon(4).isNull());
    EXPECT_EQ(screen.focusWidget(), &types);
    EXPECT_EQ(Items(screen, "lstCoordTypes"), (Texts{"3 Dimensional", "Monuments", "Benchmarks", "Ideals"}));
    EXPECT_EQ(Items(screen, "lstCoordDirectorys"), (Texts{"User Defined", "DAM\\NORTH", "DAM\\SOUTH"}));
    EXPECT_THAT(Selected("lstCoordTypes"), IsEmpty());
    EXPECT_THAT(Selected("lstCoordDirectorys"), IsEmpty());
    for (const char* name :
         {"fraUserDbaseFiles", "lstUserDBFiles", "cmdBrowse", "cmdDelete", "cmdEdit", "cmdPrint"})
        EXPECT_FALSE(IsEnabled(screen, name)) << name;
    EXPECT_FALSE(IsShown(screen, "aniInput"));
    EXPECT_EQ(screen.windowModality(), Qt::ApplicationModal);
}

TEST_F(FrmInput, OpensWithThreeDimensions) {
    Open();
    QComboBox& dimensions = Combo("icmbDimension");
    ASSERT_EQ(dimensions.count(), 3);
    EXPECT_EQ(dimensions.currentText(), QLatin1String("3 Dimension"));
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(dimensions.itemText(i), QStringLiteral("%1 Dimension").arg(i + 1));
        EXPECT_EQ(dimensions.itemData(i), QStringLiteral("%1Dim").arg(i + 1));
        EXPECT_FALSE(dimensions.itemIcon(i).isNull());
    }
}

TEST_F(FrmInput, HasATreeOfTheDataTypes) {
    Open();
    ASSERT_EQ(Tree().topLevelItemCount(), 1);
    QTreeWidgetItem& root = *Tree().topLevelItem(0);
    EXPECT_EQ(root.text(0), QLatin1String("Data Types"));
    EXPECT_TRUE(root.isExpanded());
    EXPECT_NE(root.icon(0).pixmap(16, QIcon::Normal, QIcon::Off).toImage(),
              root.icon(0).pixmap(16, QIcon::Normal, QIcon::On).toImage());
    ASSERT_EQ(root.childCount(), 5);
    EXPECT_EQ(root.child(0)->text(0), QLatin1String("Laser"));
    EXPECT_FALSE(root.child(0)->icon(0).isNull());
}

TEST_F(FrmInput, ShowsALocationThatComesBackTwice) {
    Global().PathRecords = {Located("NORTH"), Located("NORTH"), Located("SOUTH"), Located("NORTH")};
    EXPECT_EQ(Items(Open(), "lstCoordDirectorys"),
              (Texts{"User Defined", "DAM\\NORTH", "DAM\\SOUTH", "DAM\\NORTH"}));
}

TEST_F(FrmInput, GivesTheNextStepThePictureAndTipOfItsHomeButton) {
    PutProfile("dv_main.ini", {"[Main Icons]", "Icon6=adjust.svg", "[Main Tips]", "Tip6=Adjust it all"});
    auto& button = Control<QAbstractButton>(Open(), "cmdVarn");
    EXPECT_FALSE(button.icon().isNull());
    EXPECT_EQ(button.toolTip(), QLatin1String("Adjust it all"));
}

TEST_F(FrmInput, LeavesTheNextStepAsItIsWithoutThem) {
    PutProfile("dv_main.ini", {"[Main Icons]", "Icon6=none-such.ico", "[Main Tips]", "Tip6="});
    auto& button = Control<QAbstractButton>(Open(), "cmdVarn");
    EXPECT_TRUE(button.icon().isNull());
    EXPECT_FALSE(button.toolTip().isEmpty());
}

TEST_F(FrmInput, MarksShowsAndStoresThePathType) {
    Global().Path_type = 2;
    frmInput& screen = Open();
    const auto marked = [&](const char* name) {
        return screen.findChild<QAction*>(QLatin1String(name))->isChecked();
    };
    EXPECT_EQ(TextOf(screen, "sbrInputPanel2"), "Manual");
    EXPECT_TRUE(marked("mnuManual"));
    Choose(screen, "mnuTarvex");
    EXPECT_EQ(Global().Path_type, 1);
    EXPECT_TRUE(marked("mnuTarvex"));
    EXPECT_FALSE(marked("mnuManual"));
    EXPECT_EQ(TextOf(screen, "sbrInputPanel2"), "Tarvex");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Path_type"), "1");
    EXPECT_THAT(Picker.Calls, ElementsAre("ShowPathType"));
}

TEST_F(FrmInput, SetsUpThePrinterWhenThereIsOne) {
    Choose(Open(), "mnuPrinter");
    Screen->Unload();
    HandleEvents();
    Global().PrinterPresent = false;
    EXPECT_FALSE(IsEnabled(Open(), "mnuPrinter"));
}

TEST_F(FrmInput, ANodeOfATypeSelectsTheType) {
    Open();
    ClickNode("Levelling");
    EXPECT_EQ(Combo("icmbInput").currentText(), QLatin1String("Levelling"));
    ClickNode("Data Types");
    EXPECT_EQ(Combo("icmbInput").currentText(), QLatin1String("Levelling"));
}

TEST_F(FrmInput, AFoldersResultFilesAreEditedOneAfterAnother) {
    PutFile(Survey + "B.RES", "");
    Open();
    Import(Survey);
    Desktop.ExpectMessage("Edit Result File(s)",
                          "Do you wish to edit the *.RES files in folder " + Survey + "?", Answer::Yes);
    ClickNode(Survey);
    EXPECT_EQ(Desktop.Started,
              (Texts{"C:\\EDIT\\ED.EXE " + Survey + "B.RES", "C:\\EDIT\\ED.EXE " + Survey + "TOTAL.RES"}));
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
}

TEST_F(FrmInput, AFolderIsRemovedAfterTwoQuestionsAndStaysAfterAnyOtherAnswer) {
    Open();
    Import(Survey);
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::Cancel);
    ClickNode(Survey);
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::No);
    Desktop.ExpectMessage("Remove Folder",
                          "Do you wish to remove the folder " + Survey + " from the input file?", Answer::No);
    ClickNode(Survey);
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::No);
    Desktop.ExpectMessageTitled("Remove Folder", Answer::Yes);
    Desktop.ExpectMessage("Are You Sure", "Are you sure you wish to remove the folder " + Survey + "?",
                          Answer::Yes);
    ClickNode(Survey);
    EXPECT_THAT(Folders(), IsEmpty());
    Import(Survey);
    EXPECT_EQ(Folders(), (Texts{"Laser>" + Survey}));
}

TEST_F(FrmInput, TheKeyboardMovesOverAFolderUnaskedAndClicksItByEnter) {
    Open();
    Import(Survey);
    Tree().setFocus();
    Tree().setCurrentItem(&Node("Laser"));
    QTest::keyClick(&Tree(), Qt::Key_Down);
    ASSERT_EQ(Tree().currentItem(), &Node(Survey));
    EXPECT_THAT(Desktop.Shown, IsEmpty());
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::Cancel);
    QTest::keyClick(&Tree(), Qt::Key_Return);
    EXPECT_EQ(Desktop.Shown.size(), 1U);
}

TEST_F(FrmInput, AskingNothingClearsAllFoldersAndKeepsTheTypes) {
    frmInput& screen = Open();
    Choose(screen, "mnuClearAllObs");
    EXPECT_EQ(Tree().topLevelItem(0)->childCount(), 5);
    Import(Survey);
    Choose(screen, "mnuClearAllObs");
    EXPECT_THAT(Folders(), IsEmpty());
    EXPECT_EQ(Tree().topLevelItem(0)->childCount(), 5);
    EXPECT_TRUE(Tree().topLevelItem(0)->isExpanded());
}

TEST_F(FrmInput, ListsAreSelectedClickByClickAndByTheKeyboard) {
    frmInput& screen = Open();
    ClickItem(screen, "lstCoordTypes", "Ideals");
    ClickItem(screen, "lstCoordTypes", "Monuments");
    EXPECT_EQ(Selected("lstCoordTypes"), (Texts{"Monuments", "Ideals"}));
    ClickItem(screen, "lstCoordTypes", "Ideals");
    EXPECT_EQ(Selected("lstCoordTypes"), (Texts{"Monuments"}));
    List("lstCoordDirectorys").setFocus();
    List("lstCoordDirectorys").setCurrentRow(0, QItemSelectionModel::NoUpdate);
    QTest::keyClick(&List("lstCoordDirectorys"), Qt::Key_Down);
    EXPECT_THAT(Selected("lstCoordDirectorys"), IsEmpty());
    QTest::keyClick(&List("lstCoordDirectorys"), Qt::Key_Space);
    EXPECT_EQ(Selected("lstCoordDirectorys"), (Texts{"DAM\\NORTH"}));
}

TEST_F(FrmInput, TheWeightsStandInForTheScreenAndAreReadAgainWhenSaved) {
    frmInput& screen = Open();
    Choose(screen, "mnuObservationWeights");
    EXPECT_THAT(Picker.Calls, ElementsAre("OpenWeights"));
    EXPECT_FALSE(screen.isVisible());
    IniWriteString("dv_input.ini", "Tracker", "HAngle1", "0.7");
    Picker.WeightsAnswered(true);
    EXPECT_TRUE(screen.isVisible());
    Import(Survey);
    Picked = Job;
    Desktop.ExpectText("Enter VARN input file name", "NET");
    Desktop.ExpectMessageTitled("Input File Creation");
    Click(screen, "cmdCreate");
    EXPECT_NE(FileContent(Job + "NET.INP").find(" 0.70000"), std::string::npos);
}

TEST_F(FrmInput, CancelledWeightsAreNotReadAgain) {
    frmInput& screen = Open();
    Choose(screen, "mnuObservationWeights");
    IniWriteString("dv_input.ini", "Tracker", "HAngle1", "no number");
    Picker.WeightsAnswered(false);
    EXPECT_TRUE(screen.isVisible());
    EXPECT_THAT(Desktop.Shown, IsEmpty());
}

TEST_F(FrmInput, ASavedWeightThatIsNoNumberIsReported) {
    frmInput& screen = Open();
    Choose(screen, "mnuObservationWeights");
    IniWriteString("dv_input.ini", "Tracker", "HAngle1", "no number");
    Desktop.ExpectMessageTitled("Program Error");
    Picker.WeightsAnswered(true);
    EXPECT_EQ(LastReport(Desktop), "13 Dorvane-basRead-ReadIniWeights");
    EXPECT_TRUE(screen.isVisible());
}

TEST_F(FrmInput, AnAnswerOfTheWeightsAfterItsEndDoesNothing) {
    Choose(Open(), "mnuObservationWeights");
    Screen->Unload();
    HandleEvents();
    ASSERT_TRUE(Screen.isNull());
    Picker.WeightsAnswered(true);
}

TEST_F(FrmInput, GoesHomeByButtonMenuAndWindowButton) {
    Click(Open(), "cmdHome");
    EXPECT_TRUE(Screen.isNull());
    Choose(Open(), "mnuGoHome");
    EXPECT_TRUE(Screen.isNull());
    Open().windowHandle()->close();
    HandleEvents();
    EXPECT_TRUE(Screen.isNull());
    EXPECT_THAT(Picker.Calls, ElementsAre("ShowHome", "ShowHome", "ShowHome"));
}

TEST_F(FrmInput, GoesToTheAdjustmentWithoutAFileInHand) {
    frmInput& screen = Open();
    screen.SetDirectory(Job);
    Click(screen, "cmdVarn");
    EXPECT_TRUE(Screen.isNull());
    EXPECT_THAT(Picker.Calls, ElementsAre("OpenAdjustment"));
}

TEST_F(FrmInput, TheFolderPickersAnswerStandsInTheLabel) {
    frmInput& screen = Open();
    screen.SetDirectory("D:\\<b>\xC9t\xE9 & 26</b>\\");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "D:\\<b>\xC9t\xE9 & 26</b>\\");
    EXPECT_EQ(Control<QLabel>(screen, "lblDirectory").textFormat(), Qt::PlainText);
}

TEST_F(FrmInput, TabsFromTheDataTypeToTheWayOut) {
    frmInput& screen = Open();
    ClickItem(screen, "lstCoordDirectorys", "User Defined");
    Combo("icmbInput").setFocus();
    for (const char* next :
         {"cmdImport", "trvInput", "icmbDimension", "lstCoordTypes", "lstCoordDirectorys", "lstUserDBFiles",
          "cmdBrowse", "cmdDelete", "txtProject", "txtTask", "cmdCreate", "cmdVarn", "cmdHome"}) {
        QTest::keyClick(screen.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(screen.focusWidget()->objectName().toStdString(), next);
    }
}

}  // namespace
}  // namespace Dorvane::Testing
