// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "core/DriveLinks.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "core/frmInit.h"
#include "core/frmSplash.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;
using testing::StartsWith;

class Splash : public testing::Test {
  protected:
    Splash() { UseShippedPictures(); }

    frmSplash& Open() {
        Screen = new frmSplash;
        Screen->show();
        HandleEvents();
        return *Screen;
    }
    bool IsClosed() {
        HandleEvents();
        return Screen.isNull();
    }
    ~Splash() override { delete Screen; }

    TestSite Site;
    ScriptedDesktop Desk;
    QPointer<frmSplash> Screen;
};

TEST_F(Splash, TellsProductPlatformAndVersion) {
    frmSplash& splash = Open();
    EXPECT_EQ(TextOf(splash, "lblProduct"), "TARVEX");
    EXPECT_EQ(TextOf(splash, "lblPlatform"), "32-bit Windows Platform");
    EXPECT_EQ(TextOf(splash, "lblVersion"), "Version 1.0.0");
    EXPECT_NE(TextOf(splash, "lblCompany"), "");
    EXPECT_NE(TextOf(splash, "lblWarning"), "");
    EXPECT_FALSE(Control<QLabel>(splash, "imgLogo").pixmap().isNull());
}

TEST_F(Splash, StandsForTwentySeconds) {
    auto* timer = Open().findChild<QTimer*>("tmrSplash");
    if (timer == nullptr)
        GTEST_FAIL() << "no timer";
    EXPECT_EQ(timer->interval(), 20000);
    EXPECT_TRUE(timer->isActive());
    timer->setInterval(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Screen.isNull(); }));
    EXPECT_TRUE(IsClosed());
}

TEST_F(Splash, EndsByAKey) {
    QTest::keyClick(&Open(), Qt::Key_A);
    EXPECT_TRUE(IsClosed());
}

TEST_F(Splash, EndsByAClickOnItselfItsFramePictureOrLabels) {
    for (const char* name : {"frmSplash", "fraSplash", "imgLogo", "lblCompany", "lblPlatform", "lblProduct",
                             "lblVersion", "lblWarning"}) {
        QTest::mouseClick(&Control<QWidget>(Open(), name), Qt::LeftButton);
        EXPECT_TRUE(IsClosed()) << name;
    }
}

class DefaultDirectories : public testing::Test {
  protected:
    frmInit& Open() {
        Screen = new frmInit;
        Screen->show();
        HandleEvents();
        return *Screen;
    }
    bool IsClosed() {
        HandleEvents();
        return Screen.isNull();
    }
    ~DefaultDirectories() override { delete Screen; }

    static void ChooseDrive(QWidget& screen, const char* list, const QString& letter) {
        auto& drives = Control<QComboBox>(screen, list);
        drives.setCurrentIndex(drives.findText(letter + ":", Qt::MatchStartsWith));
    }

    TestSite Site;
    ScriptedDesktop Desk;
    QPointer<frmInit> Screen;
};

TEST_F(DefaultDirectories, SaysWhatItAsks) {
    frmInit& init = Open();
    EXPECT_EQ(TextOf(init), "Initialization of Dorvane Directory Structure");
    EXPECT_EQ(
        TextOf(init, "lblDescription"),
        "It has been determined that some or all of the directories Dorvane requires do not exist.  If a "
        "data structure already exists then click Cancel and fix the directory names in the Tarvex.ini "
        "file.  Default directories can be created by selecting the drive locations below and clicking "
        "the OK button.  ");
    EXPECT_EQ(TextOf(init, "lblMain"), "Drive for data storage.  Can be network drive.");
    EXPECT_EQ(TextOf(init, "lblLocal"), "Local directory for temp files and data returns.");
    const auto letters = static_cast<int>(Drives::DriveLetters().size());
    EXPECT_EQ(Control<QComboBox>(init, "drvMain").count(), letters);
    EXPECT_EQ(Control<QComboBox>(init, "drvLocal").count(), letters);
}

TEST_F(DefaultDirectories, OkMakesTheFoldersOnTheChosenDrives) {
    frmInit& init = Open();
    ChooseDrive(init, "drvMain", "C");
    ChooseDrive(init, "drvLocal", "D");
    Click(init, "cmdOK");
    EXPECT_TRUE(IsClosed());
    EXPECT_FALSE(Global().InitFailed);
    EXPECT_EQ(Global().Data_drive, "C:\\TARVEX\\");
    EXPECT_EQ(Global().Work_path, "D:\\TARVEX\\WORK\\");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Download_path"), "C:\\TARVEX\\DOWNLOAD\\");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Path_type"), "");
}

TEST_F(DefaultDirectories, OkOverwritesAllEightPathsAlsoTheGoodOnes) {
    Site.LayOut();
    IniWriteString("dv_tarvex.ini", "Tarvex Info", "Coord_path", "D:\\ELSEWHERE\\");
    Global().Download_path.clear();
    frmInit& init = Open();
    ChooseDrive(init, "drvMain", "C");
    ChooseDrive(init, "drvLocal", "C");
    Click(init, "cmdOK");
    EXPECT_EQ(Global().Coord_path, "C:\\TARVEX\\COORD\\");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Tarvex Info", "Coord_path"), "C:\\TARVEX\\COORD\\");
}

TEST_F(DefaultDirectories, CancelAndTheWindowsButtonLeaveTheProgramWithoutFolders) {
    Click(Open(), "cmdCancel");
    EXPECT_TRUE(IsClosed());
    EXPECT_TRUE(Global().InitFailed);
    Global().InitFailed = false;
    QTest::keyClick(&Open(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(IsClosed());
    EXPECT_TRUE(Global().InitFailed);
    EXPECT_FALSE(FileExists("C:\\WINDOWS\\dv_tarvex.ini"));
}

TEST_F(DefaultDirectories, AFolderThatCannotBeMadeIsReportedAndTheDialogStays) {
    PutFile("D:\\TARVEX", "a file in the way");
    frmInit& init = Open();
    ChooseDrive(init, "drvMain", "D");
    ChooseDrive(init, "drvLocal", "C");
    Desk.ExpectMessageTitled("Program Error");
    Click(init, "cmdOK");
    EXPECT_FALSE(IsClosed());
    EXPECT_TRUE(Global().InitFailed);
    ChooseDrive(init, "drvMain", "C");
    Click(init, "cmdOK");
    EXPECT_TRUE(IsClosed());
    EXPECT_FALSE(Global().InitFailed);
}

TEST_F(DefaultDirectories, ShowsTheDriveLettersThatWereLaidOutFromIt) {
    frmInit& init = Open();
    EXPECT_TRUE(IsShown(init, "cmdDrives"));
    ChooseDrive(init, "drvLocal", "P");
    Desk.OnRun = [](const std::string& command) {
        EXPECT_EQ(command, AppPath() + "Programs\\EditDrives.exe");
        Drives::SetLink({'E', "/tmp"});
    };
    Click(init, "cmdDrives");
    EXPECT_EQ(Desk.Started.size(), 1U);
    const auto letters = static_cast<int>(Drives::DriveLetters().size());
    EXPECT_EQ(Control<QComboBox>(init, "drvMain").count(), letters);
    EXPECT_GE(Control<QComboBox>(init, "drvMain").findText("E: [/tmp]"), 0);
    EXPECT_TRUE(Control<QComboBox>(init, "drvMain").currentText().startsWith("D:"));
    EXPECT_TRUE(Control<QComboBox>(init, "drvLocal").currentText().startsWith("P:"));
}

}  // namespace Dorvane
