// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frmMain.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QTest>
#include <QToolButton>
#include <new>

#include "core/Globals.h"
#include "core/HomeMenu.h"
#include "core/ProfileStore.h"
#include "core/RunTimeError.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

class HomeMenu : public testing::Test {
  protected:
    HomeMenu() {
        Site.LayOut();
        UseShippedPictures();
        std::vector<std::string> lines{"[Main Titles]"};
        for (int i = 1; i <= 10; ++i)
            lines.push_back("Title" + std::to_string(i) + "=Button " + std::to_string(i));
        lines.push_back("[Main Icons]");
        for (int i = 1; i <= 10; ++i)
            lines.push_back("Icon" + std::to_string(i) + "=upload.svg");
        lines.push_back("[Main Tips]");
        for (int i = 1; i <= 10; ++i)
            lines.push_back("Tip" + std::to_string(i) + "=Tip " + std::to_string(i));
        PutLines("C:\\WINDOWS\\dv_main.ini", lines);
        PutLines("C:\\WINDOWS\\dv_tarvex.ini",
                 {"[Tarvex Info]", "Path_type=1", "[Tarvex]", "Last Path=D:\\TARVEX\\DAM\\"});
        Global().PrinterPresent = true;
    }

    frmMain& Open() {
        Menu = std::make_unique<frmMain>(Navigator, [this] { ++TreeLoads; });
        Menu->show();
        HandleEvents();
        return *Menu;
    }

    // Lets the start-up keys lead to the folders of the site.
    static void PutGoodPaths() {
        for (const auto& [key, folder] : std::initializer_list<std::pair<const char*, const char*>>{
                 {"Data_drive", "D:\\TARVEX\\"},
                 {"Calib_path", "D:\\TARVEX\\CALIB\\"},
                 {"Coord_path", "D:\\TARVEX\\COORD\\"},
                 {"Init_path", "D:\\TARVEX\\INIT\\"},
                 {"Param_path", "C:\\TARVEX\\PARAM\\"},
                 {"Temp_path", "C:\\TARVEX\\TEMP\\"},
                 {"Work_path", "C:\\TARVEX\\WORK\\"},
                 {"Download_path", "D:\\TARVEX\\DOWNLOAD\\"}})
            IniWriteString("dv_tarvex.ini", "Tarvex Info", key, folder);
    }

    TestSite Site;
    ScriptedDesktop Desk;
    RecordingNavigator Navigator;
    int TreeLoads = 0;
    std::unique_ptr<frmMain> Menu;
};

TEST_F(HomeMenu, ShowsTenButtonsFromTheProfile) {
    frmMain& menu = Open();
    EXPECT_EQ(TextOf(menu), "Tarvex for Windows");
    for (int i = 0; i < 10; ++i) {
        const std::string number = std::to_string(i);
        auto& button = Control<QToolButton>(menu, ("cmdMain" + number).c_str());
        EXPECT_EQ(TextOf(menu, ("lblMain" + number).c_str()), "Button " + std::to_string(i + 1));
        EXPECT_EQ(button.toolTip().toStdString(), "Tip " + std::to_string(i + 1));
        EXPECT_EQ(button.size(), QSize(45, 42));
        EXPECT_FALSE(button.icon().isNull());
    }
    EXPECT_EQ(menu.findChild<QToolButton*>("cmdMain10"), nullptr);
    EXPECT_EQ(TextOf(menu, "sbrMainPanel1"), "Home Menu");
}

TEST_F(HomeMenu, AMissingKeyMakesAButtonWithoutCaption) {
    PutLines("C:\\WINDOWS\\dv_main.ini", {"[Main Titles]", "Title2=Second & <b>last</b>"});
    frmMain& menu = Open();
    EXPECT_EQ(TextOf(menu, "lblMain0"), "");
    EXPECT_EQ(TextOf(menu, "lblMain1"), "Second & <b>last</b>");
    EXPECT_TRUE(Control<QToolButton>(menu, "cmdMain0").icon().isNull());
}

TEST_F(HomeMenu, ATipShowsAsItStands) {
    IniWriteString("dv_main.ini", "Main Tips", "Tip1", "Up & down");
    IniWriteString("dv_main.ini", "Main Tips", "Tip2", "<b>bold</b>");
    frmMain& menu = Open();
    EXPECT_EQ(Control<QToolButton>(menu, "cmdMain0").toolTip(), "Up & down");
    EXPECT_EQ(Control<QToolButton>(menu, "cmdMain1").toolTip(), "<span>&lt;b&gt;bold&lt;/b&gt;</span>");
}

TEST_F(HomeMenu, AnAbsentIconFileIsReportedAndTheMenuStillOpens) {
    IniWriteString("dv_main.ini", "Main Icons", "Icon4", "absent.ico");
    Desk.ExpectMessageTitled("Program Error");
    frmMain& menu = Open();
    ASSERT_EQ(Desk.Shown.size(), 1U);
    EXPECT_THAT(Desk.Shown[0].Text, testing::StartsWith("Error : 53\r\n\r\n"));
    EXPECT_THAT(Desk.Shown[0].Text, testing::EndsWith("-frmMain-LoadForm"));
    EXPECT_FALSE(Control<QToolButton>(menu, "cmdMain9").icon().isNull());
    EXPECT_TRUE(IsEnabled(menu, "cmdMain3"));
}

TEST_F(HomeMenu, AnIconThatIsNoPictureIsReported) {
    PutFile("P:\\DORVANE\\graphics\\text.ico", "no picture");
    IniWriteString("dv_main.ini", "Main Icons", "Icon1", "text.ico");
    Desk.ExpectMessageTitled("Program Error");
    Open();
    EXPECT_THAT(Desk.Shown.at(0).Text, testing::StartsWith("Error : 481\r\n\r\n"));
}

TEST_F(HomeMenu, TheFirstActivationReadsTheTreeOnce) {
    frmMain& menu = Open();
    EXPECT_EQ(TreeLoads, 1);
    menu.hide();
    menu.show();
    HandleEvents();
    EXPECT_EQ(TreeLoads, 1);
}

TEST_F(HomeMenu, ReadsTheTreeOnceThoughItIsShownTwiceAtOnce) {
    Menu = std::make_unique<frmMain>(Navigator, [this] { ++TreeLoads; });
    Menu->show();
    Menu->hide();
    Menu->show();
    HandleEvents();
    EXPECT_EQ(TreeLoads, 1);
}

TEST_F(HomeMenu, WithAFailedStartTheFirstActivationDoesNotSearch) {
    Global().InitFailed = true;
    frmMain& menu = Open();
    EXPECT_EQ(TreeLoads, 0);
    EXPECT_EQ(TextOf(menu, "sbrMainPanel1"), "Error in Tarvex.ini File");
    for (const int index : {0, 1, 2, 3, 4, 7, 8}) {
        EXPECT_FALSE(IsEnabled(menu, ("cmdMain" + std::to_string(index)).c_str())) << index;
        EXPECT_FALSE(IsEnabled(menu, ("lblMain" + std::to_string(index)).c_str())) << index;
    }
    for (const int index : {5, 6, 9})
        EXPECT_TRUE(IsEnabled(menu, ("cmdMain" + std::to_string(index)).c_str())) << index;
    for (const char* name : {"mnuConfigure", "mnuCalib", "mnuDataTypeINI", "mnuDownloadINI", "mnuInputINI",
                             "mnuMainINI", "mnuErrorLog", "mnuBiasValues"})
        EXPECT_FALSE(IsEnabled(menu, name)) << name;
    for (const char* name : {"mnuTarvexINI", "mnuHelpContents", "mnuHelpIndex", "mnuAbout", "mnuExit",
                             "mnuTarvex", "mnuManual", "mnuPrinterSetup"})
        EXPECT_TRUE(IsEnabled(menu, name)) << name;
}

TEST_F(HomeMenu, EditingTheStartUpKeysRightBringsEverythingBack) {
    Global().InitFailed = true;
    frmMain& menu = Open();
    Desk.OnRun = [](const std::string& command) {
        EXPECT_EQ(command, "P:\\DORVANE\\Programs\\EditTarvexINI.exe");
        PutGoodPaths();
    };
    Choose(menu, "mnuTarvexINI");
    EXPECT_FALSE(Global().InitFailed);
    EXPECT_EQ(TextOf(menu, "sbrMainPanel1"), "Home Menu");
    EXPECT_EQ(TreeLoads, 1);
    EXPECT_TRUE(IsEnabled(menu, "cmdMain2"));
    EXPECT_TRUE(IsEnabled(menu, "lblMain2"));
    EXPECT_TRUE(IsEnabled(menu, "mnuConfigure"));
}

TEST_F(HomeMenu, EditingTheStartUpKeysWrongTakesTheFoldersButtonsAway) {
    frmMain& menu = Open();
    Desk.ExpectMessage("Paths Not Found", "Some or all paths in Tarvex.ini invaild.  Please correct.");
    Choose(menu, "mnuTarvexINI");
    EXPECT_TRUE(Global().InitFailed);
    EXPECT_EQ(TextOf(menu, "sbrMainPanel1"), "Error in Tarvex.ini File");
    EXPECT_FALSE(IsEnabled(menu, "cmdMain2"));
    EXPECT_EQ(TreeLoads, 1);
}

TEST_F(HomeMenu, EachButtonHidesTheMenuAndOpensItsScreen) {
    const std::vector<std::pair<const char*, std::string>> calls = {
        {"cmdMain0", "OpenSystemOptions"},
        {"cmdMain1", "OpenDownload"},
        {"cmdMain2", "OpenUpload"},
        {"cmdMain3", "OpenTree Data Reduction Directory Selection|D:\\TARVEX\\DAM\\"},
        {"cmdMain4", "OpenInput"},
        {"cmdMain5", "OpenAdjustment"},
        {"cmdMain7", "OpenDatabase"},
        {"cmdMain8", "OpenTree Access Subdirectories ...|D:\\TARVEX\\DAM\\"}};
    frmMain& menu = Open();
    for (const auto& [button, call] : calls) {
        Navigator.Calls.clear();
        Click(menu, button);
        EXPECT_THAT(Navigator.Calls, ElementsAre(call));
        EXPECT_FALSE(menu.isVisible()) << button;
        menu.show();
    }
}

TEST_F(HomeMenu, ComesBackWhenTheScreenCannotBeOpened) {
    struct BrokenNavigator : RecordingNavigator {
        void OpenDownload() override { throw RunTimeError(FileNotFound, "form"); }
        void OpenTree(const std::string&, const std::string&, const Then&) override {
            throw std::bad_alloc();
        }
        void ShowHome() override { Menu->show(); }
        frmMain* Menu = nullptr;
    } broken;
    frmMain menu(broken, [] {});
    broken.Menu = &menu;
    for (const char* button : {"cmdMain1", "cmdMain3", "cmdMain8"}) {
        menu.show();
        HandleEvents();
        Desk.ExpectMessageTitled("Program Error");
        Click(menu, button);
        EXPECT_TRUE(menu.isVisible()) << button;
        EXPECT_THAT(Desk.Shown.back().Text, testing::EndsWith("Source : Dorvane-frmMain-cmdMain_Click"));
    }
}

TEST_F(HomeMenu, StaysHiddenBehindAScreenThatFailedWhenItStood) {
    struct LateFailure : RecordingNavigator {
        void OpenDownload() override {
            Screen.show();
            throw RunTimeError(FileNotFound, "picture");
        }
        QWidget Screen;
    } late;
    frmMain menu(late, [] {});
    menu.show();
    HandleEvents();
    Desk.ExpectMessageTitled("Program Error");
    Click(menu, "cmdMain1");
    EXPECT_FALSE(menu.isVisible());
    EXPECT_THAT(late.Calls, IsEmpty());
}

TEST_F(HomeMenu, TheStructureEditorsWaitForRightFolders) {
    Global().InitFailed = true;
    Desk.ExpectMessage("INI File Error", "Must fix Tarvex.ini file");
    RunStructureEditor("Programs\\EditChoice.exe");
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Exclamation);
    EXPECT_THAT(Desk.Started, IsEmpty());
    Global().InitFailed = false;
    RunStructureEditor("Programs\\EditChoice.exe");
    EXPECT_THAT(Desk.Started, ElementsAre("P:\\DORVANE\\Programs\\EditChoice.exe"));
}

TEST_F(HomeMenu, TheUtilitiesStartBesideTheMenu) {
    frmMain& menu = Open();
    Click(menu, "cmdMain6");
    EXPECT_THAT(Desk.Started, ElementsAre("P:\\DORVANE\\Programs\\utilities.exe dv_special.ini"));
    EXPECT_TRUE(menu.isVisible());
}

TEST_F(HomeMenu, TheLastButtonTheMenuItemAndTheWindowsButtonEndTheProgram) {
    frmMain& menu = Open();
    Click(menu, "cmdMain9");
    Choose(menu, "mnuExit");
    menu.close();
    HandleEvents();
    EXPECT_THAT(Navigator.Calls, ElementsAre("EndProgram", "EndProgram", "EndProgram"));
    EXPECT_TRUE(menu.isVisible());
}

TEST_F(HomeMenu, AKeyOfTheButtonsNumberPressesIt) {
    frmMain& menu = Open();
    QTest::keyClick(&menu, Qt::Key_3);
    QTest::qWait(200);
    EXPECT_THAT(Navigator.Calls, ElementsAre("OpenUpload"));
}

TEST_F(HomeMenu, WithFoldersChosenByHandReductionNeverShowsTheTree) {
    Global().Path_type = 2;
    IniWriteString("dv_tarvex.ini", "Manual", "Last Path", "C:\\TARVEX\\WORK\\");
    frmMain& menu = Open();
    Desk.ExpectFile("Data Reduction Folder Selection", "D:\\TARVEX\\COORD\\ReducePath");
    Click(menu, "cmdMain3");
    EXPECT_EQ(Desk.Dialogs.at(0).Folder, "C:\\TARVEX\\WORK\\");
    EXPECT_EQ(Desk.Dialogs.at(0).FileName, "ReducePath");
    EXPECT_THAT(Navigator.Calls, ElementsAre("OpenReduction D:\\TARVEX\\COORD\\"));
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Manual", "Last Path"), "D:\\TARVEX\\COORD\\");
}

TEST_F(HomeMenu, ACancelledFolderDialogLeavesTheMenuAsItWas) {
    Global().Path_type = 2;
    frmMain& menu = Open();
    Desk.ExpectFile("Data Reduction Folder Selection", std::nullopt);
    Click(menu, "cmdMain3");
    Desk.ExpectFile("Data Reduction Folder Selection", "D:\\NOWHERE\\ReducePath");
    Click(menu, "cmdMain3");
    EXPECT_THAT(Navigator.Calls, IsEmpty());
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Manual", "Last Path"), "");
}

TEST_F(HomeMenu, ThePathTypeIsMarkedShownAndStored) {
    Global().Path_type = 2;
    frmMain& menu = Open();
    auto marked = [&](const char* name) { return menu.findChild<QAction*>(name)->isChecked(); };
    EXPECT_TRUE(marked("mnuManual"));
    EXPECT_FALSE(marked("mnuTarvex"));
    EXPECT_EQ(TextOf(menu, "sbrMainPanel2"), "Manual");
    Choose(menu, "mnuTarvex");
    EXPECT_EQ(Global().Path_type, 1);
    EXPECT_TRUE(marked("mnuTarvex"));
    EXPECT_FALSE(marked("mnuManual"));
    EXPECT_EQ(TextOf(menu, "sbrMainPanel2"), "Tarvex");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Path_type"), "1");
    Choose(menu, "mnuTarvex");
    EXPECT_TRUE(marked("mnuTarvex"));
    Choose(menu, "mnuManual");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Path_type"), "2");
}

TEST_F(HomeMenu, WithoutAPrinterThereIsNoPrinterSetup) {
    Global().PrinterPresent = false;
    EXPECT_FALSE(IsEnabled(Open(), "mnuPrinterSetup"));
}

TEST_F(HomeMenu, TheGeneralEditorGetsTheProfileAsItsOneArgument) {
    PutFile("D:\\EDIT\\ed.exe", "");
    IniWriteString("dv_tarvex.ini", "General Editor", "Path", "D:\\EDIT\\");
    IniWriteString("dv_tarvex.ini", "General Editor", "Name", "ed.exe");
    PutFile("P:\\DORVANE\\ERROR.LOG", "");
    frmMain& menu = Open();
    for (const char* item : {"mnuDataTypeINI", "mnuDownloadINI", "mnuInputINI", "mnuMainINI", "mnuErrorLog"})
        Choose(menu, item);
    EXPECT_THAT(Desk.Started, ElementsAre("D:\\EDIT\\ed.exe C:\\WINDOWS\\dv_datatype.ini",
                                          "D:\\EDIT\\ed.exe C:\\WINDOWS\\dv_download.ini",
                                          "D:\\EDIT\\ed.exe C:\\WINDOWS\\dv_input.ini",
                                          "D:\\EDIT\\ed.exe C:\\WINDOWS\\dv_main.ini",
                                          "D:\\EDIT\\ed.exe P:\\DORVANE\\Error.log"));
}

TEST_F(HomeMenu, AProfileIsNotStartedItselfWithoutAnEditor) {
    IniWriteString("dv_tarvex.ini", "General Editor", "Path", "");
    IniWriteString("dv_tarvex.ini", "General Editor", "Name", "");
    PutFile("P:\\DORVANE\\ERROR.LOG", "");
    frmMain& menu = Open();
    for (const char* item :
         {"mnuDataTypeINI", "mnuDownloadINI", "mnuInputINI", "mnuMainINI", "mnuErrorLog"}) {
        Desk.ExpectMessage("Editor Not Found", "Editor  does not exist.  Can not edit file(s).");
        Choose(menu, item);
    }
    EXPECT_THAT(Desk.Started, IsEmpty());
}

TEST_F(HomeMenu, WithoutAnEditorsNameTheMessageShowsJustThePath) {
    IniWriteString("dv_tarvex.ini", "General Editor", "Path", "D:\\TARVEX\\");
    frmMain& menu = Open();
    Desk.ExpectMessage("Editor Not Found", "Editor D:\\TARVEX\\ does not exist.  Can not edit file(s).");
    Choose(menu, "mnuMainINI");
    Desk.ExpectMessage("Error Log Not Found", "Error log file does not exist.  Can not edit file.");
    Choose(menu, "mnuErrorLog");
    EXPECT_THAT(Desk.Started, IsEmpty());
}

TEST_F(HomeMenu, TheStructureEditorsAreRunAndAwaited) {
    frmMain& menu = Open();
    Choose(menu, "mnuConfigure");
    Choose(menu, "mnuCalib");
    Choose(menu, "mnuBiasValues");
    EXPECT_THAT(Desk.Started,
                ElementsAre("P:\\DORVANE\\Programs\\EditChoice.exe", "P:\\DORVANE\\Programs\\EditCalib.exe",
                            "P:\\DORVANE\\Programs\\EditBias.exe"));
}

TEST_F(HomeMenu, HelpComesAtContentsIndexAndSearch) {
    frmMain& menu = Open();
    Choose(menu, "mnuHelpContents");
    Choose(menu, "mnuHelpIndex");
    Choose(menu, "mnuHelpSearch");
    Choose(menu, "mnuAbout");
    EXPECT_THAT(Desk.Started, ElementsAre("help P:\\DORVANE\\help\\DorvaneHelp.chm>Main 1",
                                          "help P:\\DORVANE\\help\\DorvaneHelp.chm>Main 2",
                                          "help P:\\DORVANE\\help\\DorvaneHelp.chm search"));
    EXPECT_THAT(Navigator.Calls, ElementsAre("OpenAbout"));
}

TEST_F(HomeMenu, AFailureInsideAClickIsReportedByItsName) {
    PutFile("P:\\DORVANE\\graphics\\x", "");
    frmMain& menu = Open();
    Desk.OnRun = [](const std::string&) { throw RunTimeError(FileNotFound); };
    Desk.ExpectMessage("Program Error",
                       "Error : 53\r\n\r\nDescription : File not found\r\n\r\nSource : "
                       "Dorvane-frmMain-cmdMain_Click");
    Click(menu, "cmdMain6");
    EXPECT_TRUE(menu.isVisible());
}

TEST_F(HomeMenu, HasTheCaptionsOfItsMenus) {
    frmMain& menu = Open();
    auto caption = [&](const char* name) { return menu.findChild<QAction*>(name)->text().toStdString(); };
    EXPECT_EQ(caption("mnuPrinterSetup"), "&Printer Setup");
    EXPECT_EQ(caption("mnuExit"), "E&xit");
    EXPECT_EQ(caption("mnuDataTypeINI"), "DataType");
    EXPECT_EQ(caption("mnuTarvexINI"), "Tarvex");
    EXPECT_EQ(caption("mnuConfigure"), "&Data Structures");
    EXPECT_EQ(caption("mnuCalib"), "&Calibration Structures");
    EXPECT_EQ(caption("mnuBiasValues"), "&Bias Values");
    EXPECT_EQ(caption("mnuErrorLog"), "&Error Log");
    EXPECT_EQ(caption("mnuTarvex"), "&Tarvex");
    EXPECT_EQ(caption("mnuManual"), "&Manual");
    EXPECT_EQ(caption("mnuHelpContents"), "&Contents");
    EXPECT_EQ(caption("mnuHelpIndex"), "&Index");
    EXPECT_EQ(caption("mnuHelpSearch"), "&Search");
    EXPECT_EQ(caption("mnuAbout"), "&About");
    EXPECT_EQ(menu.findChild<QMenu*>("mnuIniFiles")->title(), "&Ini Files");
    EXPECT_EQ(menu.findChild<QMenu*>("mnuPathType")->title(), "&Path Type");
}

}  // namespace Dorvane
