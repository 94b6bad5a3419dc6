// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Host.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "core/basMain.h"
#include "datatree/DirectoryTree.h"
#include "tests/road/Workstation.h"

namespace Dorvane {

using namespace Testing;
using testing::Contains;
using testing::ElementsAre;

class NewWorkstation : public Workstation {};

TEST_F(NewWorkstation, GoesFromMissingFoldersToItsFirstSurvey) {
    Start();
    QWidget& home = Screen("frmMain");
    EXPECT_EQ(TextOf(home, "sbrMainPanel1"), "Home Menu");
    EXPECT_FALSE(IsOpen("frmSplash"));
    EXPECT_FALSE(IsOpen("frmInit"));
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Coord_path"), "D:\\TARVEX\\COORD\\");
    EXPECT_TRUE(FileExists("C:\\WINDOWS\\dv_special.ini"));

    LayDownStructures();
    Click(home, "cmdMain0");
    EXPECT_FALSE(home.isVisible());
    PressKey(Screen("frmSysOption"), "cmdData");
    QWidget& tree = Screen("frmTree");
    EXPECT_EQ(TextOf(tree), "System Configuration ...");
    EXPECT_EQ(TextOf(tree, "lblDirectory"), "D:\\TARVEX\\");
    EXPECT_TRUE(IsShown(tree, "cmdAdd"));
    EXPECT_FALSE(IsShown(tree, "cmdOK"));

    Click(tree, "cmdAdd");
    EXPECT_FALSE(tree.isVisible());
    QWidget& dialog = Screen("frmAddSurvey");
    Person.ExpectMessage("Missing Information", "All entries must be full to add direcotory.");
    Click(dialog, "cmdOK");
    ClickItem(dialog, "lstRoot", "DAM");
    ClickItem(dialog, "lstLocation", "NORTH");
    ClickItem(dialog, "lstTypeMulti", "TOTAL");
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    ClickItem(dialog, "lstEpoch", "SRV01");
    Person.ExpectMessage("No History Information",
                         "No History information entered.  Do you wish to enter something?", Answer::Yes);
    Click(dialog, "cmdOK");
    EXPECT_TRUE(dialog.isVisible());
    Type(dialog, "txtHistory",
         "Erste Messung S\xfc"
         "d");
    Person.ExpectMessageTitled("Survey Added");
    PressKey(dialog, "cmdOK");

    EXPECT_TRUE(tree.isVisible());
    EXPECT_FALSE(IsOpen("frmAddSurvey"));
    EXPECT_THAT(FileLines("D:\\TARVEX\\INIT\\DAM.PTH"),
                ElementsAre(" *       DAM       NORTH     TOTAL     SRV01",
                            " *       DAM       NORTH     LEVEL     SRV01"));
    EXPECT_THAT(FileContent("D:\\TARVEX\\INIT\\DAM.HIS"), testing::HasSubstr("Erste Messung S\xfc"
                                                                             "d"));
    const std::vector<std::string> files = AllFiles("D:\\TARVEX\\");
    for (const char* name : {"DAM\\NORTH\\TOTAL\\SRV01\\SRV01.IDX", "DAM\\NORTH\\LEVEL\\SRV01\\SRV01.IDX",
                             "COORD\\NORTH\\3DIM.DAT", "INIT\\BIAS.STR"})
        EXPECT_THAT(files, Contains(name));
    std::string project = "D:\\TARVEX\\DAM\\NORTH\\ADJUST\\SRV01\\";
    EXPECT_TRUE(FolderExists(project));

    ChooseFolder(tree, "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV01\\");
    EXPECT_EQ(TextOf(tree, "lblHistory"),
              "Erste Messung S\xfc"
              "d");
    Click(tree, "cmdHome");
    EXPECT_TRUE(home.isVisible());
    EXPECT_FALSE(IsOpen("frmTree"));

    QTest::keyClick(&home, Qt::Key_9);
    EXPECT_TRUE(QTest::qWaitFor([] { return IsOpen("frmTree"); }));
    QWidget& browse = Screen("frmTree");
    EXPECT_EQ(TextOf(browse), "Access Subdirectories ...");
    EXPECT_EQ(TextOf(browse, "lblDirectory"), "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV01\\");
    EXPECT_THAT(Items(browse, "lsvFiles"), ElementsAre("SRV01.IDX"));
    Choose(browse, "mnuGoHome");
    EXPECT_TRUE(home.isVisible());
}

TEST_F(NewWorkstation, StartsASecondTimeWithoutAsking) {
    Start();
    LayDownStructures();
    AddSurvey("NORTH", {"TOTAL"}, "SRV01", "First");
    Navigator.reset();
    Global().InstanceClaim = -1;
    Global().InstanceName += "-again";
    Global().Data_drive.clear();
    Start();
    EXPECT_EQ(Global().Data_drive, "D:\\TARVEX\\");
    EXPECT_EQ(Global().PathRecords.Count(), 2);
}

TEST_F(NewWorkstation, OffersNoEpochTwiceAndSharesTheProjectFolder) {
    Start();
    LayDownStructures();
    AddSurvey("NORTH", {"TOTAL"}, "SRV01", "First");
    Click(Screen("frmMain"), "cmdMain0");
    Click(Screen("frmSysOption"), "cmdData");
    Click(Screen("frmTree"), "cmdAdd");
    QWidget& dialog = Screen("frmAddSurvey");
    ClickItem(dialog, "lstRoot", "DAM");
    ClickItem(dialog, "lstLocation", "NORTH");
    ClickItem(dialog, "lstTypeMulti", "LEVEL");
    EXPECT_THAT(Items(dialog, "lstEpoch"), Contains("SRV01"));
    ClickItem(dialog, "lstTypeMulti", "TOTAL");
    EXPECT_THAT(Items(dialog, "lstEpoch"), testing::Not(Contains("SRV01")));
    ClickItem(dialog, "lstLocation", "SOUTH");
    ClickItem(dialog, "lstTypeMulti", "TOTAL");
    EXPECT_THAT(Items(dialog, "lstEpoch"), Contains("SRV01"));
    Click(dialog, "cmdCancel");
    EXPECT_THAT(FileLines("D:\\TARVEX\\INIT\\DAM.PTH"),
                ElementsAre(" *       DAM       NORTH     TOTAL     SRV01"));
    Click(Screen("frmTree"), "cmdHome");
}

TEST_F(NewWorkstation, CompletesADatabaseWithTheNextSurvey) {
    Start();
    LayDownStructures();
    AddSurvey("NORTH", {"TOTAL"}, "SRV01", "First");
    const std::string data = FileContent("D:\\TARVEX\\COORD\\NORTH\\3DIM.DAT");
    for (const char* file : {"3DIM.DAT", "NORTH.REF"})
        Drives::DeleteFile(std::string("D:\\TARVEX\\COORD\\NORTH\\") + file);
    AddSurvey("NORTH", {"TOTAL"}, "SRV02", "Second");
    EXPECT_EQ(FileContent("D:\\TARVEX\\COORD\\NORTH\\3DIM.DAT"), data);
    EXPECT_TRUE(FileExists("D:\\TARVEX\\COORD\\NORTH\\NORTH.REF"));
}

TEST_F(NewWorkstation, RefusesASecondCopyInWordsAndTouchesNothing) {
    const std::intptr_t other = Host::ClaimSingleInstance(Global().InstanceName);
    ASSERT_NE(other, -1);
    const std::vector<std::string> before = AllFiles("C:\\");
    Person.ExpectMessage("Tarvex Already Running",
                         "Cannot load program agian.  The requested application is already open");
    EXPECT_FALSE(Main({[] { ADD_FAILURE() << "splash"; }, [] { ADD_FAILURE() << "folders"; },
                       [] { ADD_FAILURE() << "home menu"; }}));
    EXPECT_EQ(AllFiles("C:\\"), before);
}

// Runs the program's events, does `act` in them, and tells whether the program ended by itself.
bool EndsBy(const std::function<void()>& act) {
    constexpr int Patience = 20000;
    QTimer::singleShot(0, act);
    QTimer::singleShot(Patience, qApp, [] { QApplication::exit(1); });
    return QApplication::exec() == 0;
}

TEST_F(NewWorkstation, TheLastButtonEndsTheProgramFromTheHomeMenu) {
    Start();
    EXPECT_TRUE(EndsBy([] { Click(Screen("frmMain"), "cmdMain9"); }));
    EXPECT_FALSE(IsOpen("frmMain"));
}

TEST_F(NewWorkstation, ExitEndsTheProgramWhateverScreensAreStillLoaded) {
    Start();
    LayDownStructures();
    Click(Screen("frmMain"), "cmdMain2");
    Click(Screen("frmUploadMenu"), "cmdToBrowse");
    Click(Screen("frmTree"), "cmdHome");
    EXPECT_TRUE(IsOpen("frmMain"));
    EXPECT_TRUE(EndsBy([] { Choose(Screen("frmMain"), "mnuExit"); }));
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->isVisible()) << window->objectName().toStdString();
}

TEST_F(NewWorkstation, AScreenLeftBehindForTheHomeMenuIsShownAgainAsItWas) {
    Start();
    LayDownStructures();
    PutFile("D:\\FIELD\\A.GSI", "");
    Click(Screen("frmMain"), "cmdMain2");
    Person.ExpectFile("Upload Data From ", "D:\\FIELD\\");
    Click(Screen("frmUploadMenu"), "cmdFromBrowse");
    Click(Screen("frmUploadMenu"), "cmdToBrowse");
    Click(Screen("frmTree"), "cmdHome");
    EXPECT_FALSE(IsOpen("frmUploadMenu"));
    Click(Screen("frmMain"), "cmdMain2");
    EXPECT_EQ(TextOf(Screen("frmUploadMenu"), "lblFromPath"), "D:\\FIELD\\");
    Click(Screen("frmUploadMenu"), "cmdHome");
}

}  // namespace Dorvane
