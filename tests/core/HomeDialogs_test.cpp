// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <filesystem>

#include "core/Globals.h"
#include "core/frmAbout.h"
#include "core/frmConstruct.h"
#include "core/frmSysOption.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;
using testing::ElementsAre;

class HomeDialogs : public testing::Test {
  protected:
    HomeDialogs() {
        UseShippedPictures();
        PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[Tarvex]", "Last Path=D:\\TARVEX\\DAM\\"});
    }
    ~HomeDialogs() override { delete Screen; }

    QWidget& Open(ScreenDialog* screen) {
        delete Screen;
        Screen = screen;
        Screen->ShowModal();
        HandleEvents();
        return *Screen;
    }
    bool IsClosed() {
        HandleEvents();
        return Screen.isNull();
    }

    TestSite Site;
    ScriptedDesktop Desk;
    RecordingNavigator Navigator;
    QPointer<ScreenDialog> Screen;
};

TEST_F(HomeDialogs, SystemOptionsLeadToTheDataTree) {
    QWidget& options = Open(new frmSysOption(Navigator));
    EXPECT_EQ(TextOf(options), "System Configuration Options");
    EXPECT_EQ(TextOf(options, "fraSysOption"), "System Options");
    EXPECT_TRUE(options.isModal());
    Click(options, "cmdData");
    EXPECT_TRUE(IsClosed());
    EXPECT_THAT(Navigator.Calls, ElementsAre("OpenTree System Configuration ...|D:\\TARVEX\\DAM\\"));
}

TEST_F(HomeDialogs, SystemOptionsLeadToTheCalibrationTree) {
    Click(Open(new frmSysOption(Navigator)), "cmdCalib");
    EXPECT_TRUE(IsClosed());
    EXPECT_THAT(Navigator.Calls, ElementsAre("OpenCalibration"));
}

TEST_F(HomeDialogs, SystemOptionsGoHomeByButtonAndByEscape) {
    Click(Open(new frmSysOption(Navigator)), "cmdHome");
    EXPECT_TRUE(IsClosed());
    QTest::keyClick(&Open(new frmSysOption(Navigator)), Qt::Key_Escape);
    EXPECT_TRUE(IsClosed());
    EXPECT_THAT(Navigator.Calls, ElementsAre("ShowHome", "ShowHome"));
}

TEST_F(HomeDialogs, AboutTellsVersionAndPurpose) {
    QWidget& about = Open(new frmAbout);
    EXPECT_TRUE(about.isModal());
    EXPECT_EQ(TextOf(about, "lblVersion"), "Version 1.0.0");
    EXPECT_EQ(
        TextOf(about, "lblDescription"),
        "Dorvane is an attempt at making a windows version of TARVEX.  This windows version uses the same "
        "basic structure as the DOS version of TARVEX except with the new VARN adjustment package added.");
    Click(about, "cmdOK");
    EXPECT_TRUE(IsClosed());
}

TEST_F(HomeDialogs, AboutSaysWhenThereIsNoSystemInformation) {
    // A workstation without any of the tools.
    std::filesystem::remove(Site.HostFolder() + "z:");
    std::filesystem::create_directory(Site.HostFolder() + "z:");
    QWidget& about = Open(new frmAbout);
    Desk.ExpectMessage("About Dorvane", "System Information Is Unavailable At This Time");
    Click(about, "cmdSysInfo");
    EXPECT_TRUE(Desk.Started.empty());
}

TEST_F(HomeDialogs, AboutStartsTheSystemInformation) {
    QWidget& about = Open(new frmAbout);
    PutFile("C:\\WINDOWS\\system32\\msinfo32.exe", "");
    Click(about, "cmdSysInfo");
    EXPECT_THAT(Desk.Started, ElementsAre("C:\\WINDOWS\\system32\\msinfo32.exe"));
}

TEST_F(HomeDialogs, TheConstructionNoticeShowsItsCallersTexts) {
    QWidget& notice =
        Open(new frmConstruct("Archive & <b>more</b>", "Option <i>Under</i> Construction: caf\xe9 & co"));
    EXPECT_EQ(TextOf(notice), "Archive & <b>more</b>");
    EXPECT_EQ(TextOf(notice, "lblConstruct"), "Option <i>Under</i> Construction: caf\xe9 & co");
    EXPECT_EQ(Control<QLabel>(notice, "lblConstruct").textFormat(), Qt::PlainText);
    QTest::keyClick(&notice, Qt::Key_Return);
    EXPECT_TRUE(IsClosed());
}

}  // namespace Dorvane
