// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include "tests/reduction/frmReduceTest.h"

namespace Dorvane::Testing {
namespace {

TEST_F(frmReduceTest, HasItsCaptions) {
    frmReduce& screen = Open();
    EXPECT_EQ(TextOf(screen), "Data Reduction Menu");
    const std::vector<std::pair<const char*, const char*>> captions = {
        {"lblDirectoryTitle", "Directory :"},
        {"lblSelectedDirectory", Folder.c_str()},
        {"lblDataTitle0", "Data File(s) Exist :"},
        {"lblReductionTitle0", "Reduction File(s) Exist :"},
        {"lblCalibEpochTitle0", "Calibration Epoch : "},
        {"lblReductionResults0", "Reduction Result Files :"},
        {"cmdEdit0", "Edit Selected Reduction Files"},
        {"cmdPrint0", "Print Selected Reduction Files"},
        {"cmdReduce0", "Run Reduction Program"},
        {"cmdChangeDir", "Go Back"},
        {"cmdHome", "Go Home"},
        {"cmdInputCreator", "Go to Create Input File"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(TextOf(screen, name), caption) << name;
    EXPECT_EQ(Control<QWidget>(screen, "cmbCalibEpoch0").toolTip(),
              QLatin1String("Enter Calibration Epoch to use in Reductions"));
    EXPECT_EQ(screen.findChild<QAction*>("mnuPrinter")->text(), QLatin1String("&Printer Setup"));
    EXPECT_EQ(screen.findChild<QAction*>("mnuGoHome")->text(), QLatin1String("&Go Home"));
    EXPECT_EQ(Control<QMenu>(screen, "mnuFile").title(), QLatin1String("&File"));
    EXPECT_EQ(screen.windowModality(), Qt::ApplicationModal);
}

TEST_F(frmReduceTest, HasATipOnEveryButtonAndNoMnemonicTwice) {
    Configure({"LEV_RedTip=Reduce levels"});
    frmReduce& screen = Open();
    std::string letters = "f";  // the menu
    for (const char* name :
         {"cmdEdit0", "cmdPrint0", "cmdReduce0", "cmdChangeDir", "cmdHome", "cmdInputCreator"}) {
        const auto& button = Control<QPushButton>(screen, name);
        EXPECT_FALSE(button.toolTip().isEmpty()) << name;
        letters += button.text()[button.text().indexOf(QLatin1Char('&')) + 1].toLower().toLatin1();
    }
    for (const char* name : {"lblCalibEpochTitle0", "lblReductionResults0"}) {
        const QString text = Control<QLabel>(screen, name).text();
        letters += text[text.indexOf(QLatin1Char('&')) + 1].toLower().toLatin1();
    }
    std::string once = letters;
    std::sort(once.begin(), once.end());
    once.erase(std::unique(once.begin(), once.end()), once.end());
    EXPECT_EQ(once.size(), letters.size()) << letters;
}

TEST_F(frmReduceTest, ShowsTheStateOfTheFolder) {
    Put("ONE.RES", "x");
    frmReduce& screen = Open();
    EXPECT_EQ(Captions(screen), Texts{"Levelling"});
    EXPECT_EQ(TagOf(screen, "imgData0"), "1");
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "1");
    EXPECT_EQ(Items(screen, "lstReductionResults0"), Texts{"ONE.RES"});
    EXPECT_TRUE(IsEnabled(screen, "cmdEdit0"));
    EXPECT_TRUE(IsEnabled(screen, "cmdPrint0"));
    EXPECT_FALSE(Control<QLabel>(screen, "imgData0").pixmap(Qt::ReturnByValue).isNull());
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "1 result file, up to date");
    EXPECT_EQ(TextOf(screen, "sbrReducePanel2"), "LEVEL");
}

TEST_F(frmReduceTest, TellsThreeStatesByThreePictures) {
    Put("ONE.RES", "x");
    frmReduce& screen = Open();
    const auto picture = [&](const char* name) {
        return Control<QLabel>(screen, name).pixmap(Qt::ReturnByValue).toImage();
    };
    const QImage upToDate = picture("imgReduction0");
    Screen->Unload();
    HandleEvents();
    Put("DAY2.LEV", "x", 31);
    frmReduce& later = Open();
    EXPECT_EQ(TagOf(later, "imgReduction0"), "2");
    const QImage older = Control<QLabel>(later, "imgReduction0").pixmap(Qt::ReturnByValue).toImage();
    Screen->Unload();
    HandleEvents();
    Drives::DeleteFile(Folder + "ONE.RES");
    frmReduce& last = Open();
    EXPECT_EQ(TagOf(last, "imgReduction0"), "0");
    const QImage none = Control<QLabel>(last, "imgReduction0").pixmap(Qt::ReturnByValue).toImage();
    EXPECT_NE(upToDate, older);
    EXPECT_NE(older, none);
    EXPECT_NE(none, upToDate);
}

TEST_F(frmReduceTest, DisablesEditAndPrintWithoutResults) {
    frmReduce& screen = Open();
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "0");
    EXPECT_FALSE(IsEnabled(screen, "cmdEdit0"));
    EXPECT_FALSE(IsEnabled(screen, "cmdPrint0"));
    EXPECT_TRUE(IsEnabled(screen, "cmdReduce0"));
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "Not reduced yet");
}

TEST_F(frmReduceTest, TakesAnEmptyResultForNone) {
    Put("ONE.RES", "");
    EXPECT_EQ(TagOf(Open(), "imgReduction0"), "0");
}

TEST_F(frmReduceTest, TakesDataNewerByASecondForOutdatedAndATieForNot) {
    Put("ONE.RES", "x", 30);
    Put("DAY1.LEV", "x", 30);
    EXPECT_EQ(TagOf(Open(), "imgReduction0"), "1");
    Screen->Unload();
    HandleEvents();
    Put("DAY1.LEV", "x", 31);
    EXPECT_EQ(TagOf(Open(), "imgReduction0"), "2");
    EXPECT_EQ(TextOf(*Screen, "sbrReducePanel1"), "1 result file, older than the data");
}

TEST_F(frmReduceTest, TakesAnEmptyReduceListForNoResults) {
    Configure({"LEV_Reduce="});
    Put("ONE.RES", "x");
    EXPECT_EQ(TagOf(Open(), "imgReduction0"), "0");
}

TEST_F(frmReduceTest, CallsForHelpAndStaysEmptyWithoutADataTypeInThePath) {
    const std::string other = "D:\\TARVEX\\DAM\\NORTH\\OTHER\\SRV1\\";
    MakeFolders(other);
    Desktop.ExpectMessage("Critical Error", "Problem with number of Tabs.  Phone home.");
    frmReduce& screen = Open(other);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Stop);
    EXPECT_EQ(TextOf(screen, "lblSelectedDirectory"), other);
    EXPECT_EQ(Tabs(screen).TabCount(), 0);
    EXPECT_FALSE(IsShown(screen, "cmdReduce0"));
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "Nothing to reduce");
    Click(screen, "cmdHome");
    EXPECT_EQ(Navigator.Calls, Texts{"ShowHome"});
}

TEST_F(frmReduceTest, MakesACopyOfEachControlForEachTab) {
    Configure({"LEV_Reduce=p.exe one.res", "DAT_Name=Data & <b>more</b>", "DAT_Reduce=p.exe two.res",
               "TXT_Name=Texts"},
              "LEV DAT TXT");
    Put("TWO.RES", "x");
    frmReduce& screen = Open();
    EXPECT_EQ(Captions(screen), (Texts{"Levelling", "Data & <b>more</b>", "Texts"}));
    for (int i = 0; i < 3; ++i)
        for (const char* name : {"lblDataTitle", "imgData", "lblReductionTitle", "imgReduction",
                                 "lblCalibEpochTitle", "cmbCalibEpoch", "lblReductionResults",
                                 "lstReductionResults", "cmdEdit", "cmdPrint", "cmdReduce"}) {
            const QString copy = QLatin1String(name) + QString::number(i);
            EXPECT_EQ(screen.findChildren<QWidget*>(copy).size(), 1) << copy.toStdString();
        }
    EXPECT_EQ(Tabs(screen).Current(), 0);
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "0");
    EXPECT_EQ(TagOf(screen, "imgReduction1"), "1");
    EXPECT_EQ(TagOf(screen, "imgReduction2"), "0");
    EXPECT_EQ(Items(screen, "lstReductionResults1"), Texts{"TWO.RES"});
    EXPECT_TRUE(IsShown(screen, "cmdReduce0"));
    EXPECT_FALSE(IsShown(screen, "cmdReduce1"));
    Click(screen, "tab1");
    EXPECT_FALSE(IsShown(screen, "cmdReduce0"));
    EXPECT_TRUE(IsShown(screen, "cmdReduce1"));
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "1 result file, up to date");
}

TEST_F(frmReduceTest, PutsTwoToFiveTabsIntoOneRowAndMoreIntoSeveral) {
    for (int count = 1; count <= 9; ++count) {
        ConfigureTabs(count);
        frmReduce& screen = Open();
        ASSERT_EQ(Tabs(screen).TabCount(), count);
        std::vector<int> rows;
        for (int i = 0; i < count; ++i)
            rows.push_back(Control<QWidget>(screen, ("tab" + std::to_string(i)).c_str()).y());
        std::sort(rows.begin(), rows.end());
        rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
        EXPECT_EQ(rows.size(), count <= 5 ? 1U : static_cast<std::size_t>(count + 2) / 3) << count;
        screen.Unload();
        HandleEvents();
    }
}

TEST_F(frmReduceTest, ReachesEveryTabByTheKeyboard) {
    ConfigureTabs(7);
    frmReduce& screen = Open();
    EXPECT_EQ(screen.focusWidget()->objectName(), QLatin1String("tab0"));
    for (int i = 1; i < 7; ++i) {
        QTest::keyClick(screen.focusWidget(), Qt::Key_Right);
        EXPECT_EQ(Tabs(screen).Current(), i);
    }
    QTest::keyClick(screen.focusWidget(), Qt::Key_Up);
    EXPECT_EQ(Tabs(screen).Current(), 3);
    Control<QWidget>(screen, "cmdHome").setFocus();
    QTest::keyClick(&screen, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Tabs(screen).Current(), 4);
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(&screen, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Tabs(screen).Current(), 6);
}

TEST_F(frmReduceTest, TabsFromTheTabsOverThePageToTheWaysOut) {
    Configure({"LEV_Reduce=p.exe one.res", "LEV_Calib=STAFF", "DAT_Name=D"}, "LEV DAT");
    Put("ONE.RES", "x");
    frmReduce& screen = Open();
    for (const char* next : {"cmbCalibEpoch0", "cmdReduce0", "lstReductionResults0", "cmdEdit0", "cmdPrint0",
                             "cmdChangeDir", "cmdInputCreator", "cmdHome", "tab0"}) {
        QTest::keyClick(screen.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(screen.focusWidget()->objectName().toStdString(), next);
    }
}

TEST_F(frmReduceTest, OffersTheEpochsOfTheCalibrationTypeAndChoosesTheLast) {
    Configure({"LEV_Calib=STAFF", "DAT_Name=D", "DAT_Calib=ROD", "TXT_Name=T"}, "LEV DAT TXT");
    Calibrations({"STAFF     E2024", "OTHER     E2030", "STAFF     \xC9T\xC9 26"});
    frmReduce& screen = Open();
    EXPECT_EQ(Epochs(screen, "cmbCalibEpoch0"), (Texts{"none", "E2024", "\xC9T\xC9 26"}));
    EXPECT_EQ(Control<QComboBox>(screen, "cmbCalibEpoch0").currentIndex(), 2);
    EXPECT_TRUE(IsShown(screen, "cmbCalibEpoch0"));
    Click(screen, "tab1");
    EXPECT_EQ(Epochs(screen, "cmbCalibEpoch1"), Texts{"none"});
    EXPECT_TRUE(IsShown(screen, "cmbCalibEpoch1"));
    Click(screen, "tab2");
    EXPECT_FALSE(IsShown(screen, "cmbCalibEpoch2"));
    EXPECT_FALSE(IsShown(screen, "lblCalibEpochTitle2"));
    EXPECT_EQ(Epochs(screen, "cmbCalibEpoch2"), Texts{"none"});
}

TEST_F(frmReduceTest, DressesTheRunButton) {
    Configure({"LEV_RedIcon=reduce_level.ico", "LEV_RedTip=Reduce <levels> & staffs", "DAT_Name=D",
               "DAT_RedIcon=none-such.ico"},
              "LEV DAT");
    frmReduce& screen = Open();
    EXPECT_FALSE(Control<QPushButton>(screen, "cmdReduce0").icon().isNull());
    EXPECT_EQ(Control<QPushButton>(screen, "cmdReduce0").toolTip(), ToTip("Reduce <levels> & staffs"));
    EXPECT_TRUE(Control<QPushButton>(screen, "cmdReduce1").icon().isNull());
}

TEST_F(frmReduceTest, ReportsARunPictureThatIsNoneAndGoesOn) {
    PutFile("P:\\DORVANE\\graphics\\text.ico", "no picture");
    Configure({"LEV_RedIcon=text.ico", "DAT_Name=D", "DAT_RedIcon=reduce_level.svg"}, "LEV DAT");
    Desktop.ExpectMessageTitled("Program Error");
    frmReduce& screen = Open();
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 481"));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Source : Dorvane-frmReduce-lblSelectedDirectory_Change"));
    EXPECT_FALSE(Control<QPushButton>(screen, "cmdReduce1").icon().isNull());
}

TEST_F(frmReduceTest, PutsWordsInThePlaceOfAMissingStatePictureAndReportsItOnce) {
    ConfigureTabs(4);
    Drives::DeleteFile("P:\\DORVANE\\graphics\\X.svg");
    Desktop.ExpectMessageTitled("Program Error");
    frmReduce& screen = Open();
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 53"));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Source : Dorvane-basReduce-ReduceIconSetup"));
    EXPECT_EQ(TextOf(screen, "imgReduction0"), "No results");
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "0");
}

TEST_F(frmReduceTest, SetsUpThePrinterWhenThereIsOne) {
    Choose(Open(), "mnuPrinter");
    Screen->Unload();
    HandleEvents();
    Global().PrinterPresent = false;
    EXPECT_FALSE(IsEnabled(Open(), "mnuPrinter"));
    EXPECT_FALSE(IsEnabled(*Screen, "cmdPrint0"));
}

TEST_F(frmReduceTest, OffersPrintingOfResultsAlsoWithoutAPrinter) {
    // Results enable the button whatever the printers are; it is meant to be so.
    Global().PrinterPresent = false;
    Put("ONE.RES", "x");
    EXPECT_TRUE(IsEnabled(Open(), "cmdPrint0"));
}

TEST_F(frmReduceTest, EditsTheSelectedResultsEachInAnEditor) {
    Editor();
    Desktop.RunsPrograms = false;
    Put("ONE.RES", "x");
    Put("TWO.RES", "x");
    frmReduce& screen = Open();
    Click(screen, "cmdEdit0");
    EXPECT_TRUE(Desktop.Started.empty());  // nothing is selected
    Results(screen).selectAll();
    Click(screen, "cmdEdit0");
    EXPECT_EQ(Desktop.Started,
              (Texts{"C:\\ED\\ED.EXE " + Folder + "ONE.RES", "C:\\ED\\ED.EXE " + Folder + "TWO.RES"}));
}

TEST_F(frmReduceTest, EditsAResultThatIsDoubleClicked) {
    Editor();
    Desktop.RunsPrograms = false;
    Put("ONE.RES", "x");
    Put("TWO.RES", "x");
    frmReduce& screen = Open();
    ClickItem(screen, "lstReductionResults0", "TWO.RES");
    QListWidget& list = Results(screen);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(1)).center());
    EXPECT_EQ(Desktop.Started, Texts{"C:\\ED\\ED.EXE " + Folder + "TWO.RES"});
}

TEST_F(frmReduceTest, SaysWhenThereIsNoEditor) {
    Put("ONE.RES", "x");
    Desktop.ExpectMessage("Editor Not Found", "Editor does not exist in INI file.  Cannot edit files.");
    Click(Open(), "cmdEdit0");
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
}

TEST_F(frmReduceTest, ReportsAnEditorThatIsNotThere) {
    Editor();
    Put("ONE.RES", "x");
    frmReduce& screen = Open();
    Results(screen).selectAll();
    Desktop.ExpectMessageTitled("Program Error");
    Click(screen, "cmdEdit0");
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 53"));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "-frmReduce-cmdEdit_Click"));
}

TEST_F(frmReduceTest, SaysThatThereIsNothingToEditOrPrintWhenOnlyTheProgramsNameCounts) {
    // A file named like the program is taken for a result and is not in the list; it is meant to be so.
    Editor();
    Put("FAKERED.EXE", "x");
    frmReduce& screen = Open();
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "1");
    EXPECT_TRUE(Items(screen, "lstReductionResults0").empty());
    Desktop.ExpectMessage("No File(s) Exist", "No reduction file(s) exist.  Can not edit");
    Click(screen, "cmdEdit0");
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
    Desktop.ExpectMessage("No File(s) Exist", "No reduction file(s) exist.  Can not print");
    Click(screen, "cmdPrint0");
    EXPECT_EQ(Desktop.Shown[1].Picture, Icon::Information);
}

TEST_F(frmReduceTest, PrintsTheSelectedResults) {
    Put("ONE.RES", "a\r\n");
    Put("TWO.RES", "b\r\n");
    frmReduce& screen = Open();
    ClickItem(screen, "lstReductionResults0", "TWO.RES");
    Click(screen, "cmdPrint0");
    EXPECT_EQ(Desktop.PrintedLines,
              (Texts{"     ", "     File Name : " + Folder + "TWO.RES", "     ", "     b"}));
}

TEST_F(frmReduceTest, ShowsAccentsAndMarkupAsTheyStandInTheFiles) {
    const std::string folder = "D:\\TARVEX\\\xC9t\xE9 & Co\\LEVEL\\SRV1\\";
    MakeFolders(folder);
    Configure({"LEV_Name=Niv\xE9lement", "LEV_Reduce=p.exe r\xE9s.res"});
    PutFile(folder + "R\xC9S.RES", "x");
    DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV",
                     "LEV_Name=Niv\xE9lement & <i>Co</i>", "LEV_Reduce=p.exe r\xE9s.res"});
    frmReduce& screen = Open(folder);
    EXPECT_EQ(TextOf(screen, "lblSelectedDirectory"), folder);
    EXPECT_EQ(Captions(screen), Texts{"Niv\xE9lement & <i>Co</i>"});
    EXPECT_EQ(Items(screen, "lstReductionResults0"), Texts{"R\xC9S.RES"});
    Editor();
    Desktop.RunsPrograms = false;
    ClickItem(screen, "lstReductionResults0", "R\xC9S.RES");
    Click(screen, "cmdEdit0");
    EXPECT_EQ(Desktop.Started, Texts{"C:\\ED\\ED.EXE " + folder + "R\xC9S.RES"});
}

TEST_F(frmReduceTest, ClipsNothingAtItsSmallest) {
    ConfigureTabs(8);
    frmReduce& screen = Open();
    screen.resize(screen.minimumSizeHint());
    HandleEvents();
    for (const char* name :
         {"lblDataTitle0", "lblReductionTitle0", "lblReductionResults0", "cmdReduce0", "cmdEdit0",
          "cmdPrint0", "tab0", "tab7", "cmdChangeDir", "cmdInputCreator", "cmdHome"}) {
        const auto& control = Control<QWidget>(screen, name);
        EXPECT_GE(control.width(), control.minimumSizeHint().width()) << name;
        EXPECT_GE(control.height(), control.minimumSizeHint().height()) << name;
    }
}

TEST_F(frmReduceTest, OpensWithAProfileOfJunk) {
    std::string junk;
    for (int i = 0; junk.size() < 127; ++i)
        junk += "\"*?<>|:;[]&%\xE9\x01"[i % 14];
    Configure({"LEV_Name=" + junk, "LEV_Calib=" + junk, "LEV_Reduce=" + junk, "LEV_RedIcon=" + junk,
               "LEV_RedTip=" + junk, "LEV_Param=" + junk});
    frmReduce& screen = Open();
    EXPECT_EQ(Tabs(screen).TabCount(), 1);
    EXPECT_LT(screen.minimumSizeHint().width(), 800);
}

TEST_F(frmReduceTest, HoldsAsManyTabsAsALineOfTheProfileHasWordsFor) {
    std::string extensions;
    Texts keys;
    for (int i = 0; i < 31; ++i) {
        const std::string extension = "E" + std::to_string(10 + i);
        extensions += extension + " ";
        keys.push_back(extension + "_Name=A tab of some length " + std::to_string(i));
    }
    Configure(keys, extensions);
    frmReduce& screen = Open();
    EXPECT_EQ(Tabs(screen).TabCount(), 31);
    EXPECT_LT(screen.minimumSizeHint().height(), 600);
    QTest::keyClick(&screen, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Tabs(screen).Current(), 30);
    QWidget& last = Control<QWidget>(screen, "tab30");
    HandleEvents();
    EXPECT_FALSE(last.visibleRegion().isEmpty());
}

}  // namespace
}  // namespace Dorvane::Testing
