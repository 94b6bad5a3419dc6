// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <filesystem>

#include "app/QtDesktop.h"
#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

class Programs : public testing::Test {
  protected:
    Programs() {
        PutFile("P:\\DORVANE\\Programs\\CHILD.EXE", Drives::ReadFile(Drives::DrivePath(TEST_APP_CHILD)));
        std::filesystem::permissions(Drives::HostPath("P:\\DORVANE\\Programs\\CHILD.EXE"),
                                     std::filesystem::perms::owner_all);
    }

    TestSite Site;
    QtDesktop Screen;
};

TEST_F(Programs, AreWaitedForToTheirEnd) {
    PutFile("D:\\IN.TXT", "one");
    Screen.RunAndWait("P:\\DORVANE\\Programs\\child.exe D:\\IN.TXT");
    EXPECT_EQ(FileContent("D:\\IN.TXT"), "one, and the child");
}

TEST_F(Programs, ThatDoNotStartAreSilentWhenWaitedFor) {
    Screen.RunAndWait("P:\\DORVANE\\Programs\\none.exe D:\\IN.TXT");
    EXPECT_EQ(AllFiles("P:\\DORVANE\\"), std::vector<std::string>{"Programs\\CHILD.EXE"});
}

TEST_F(Programs, ThatDoNotStartRaiseError53WhenNotWaitedFor) {
    try {
        Screen.StartProgram("P:\\DORVANE\\Programs\\none.exe");
        ADD_FAILURE() << "started";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, FileNotFound);
    }
}

TEST_F(Programs, RunBesideTheSystemWhenNotWaitedFor) {
    PutFile("D:\\GO.TXT", "wait");
    Screen.StartProgram("P:\\DORVANE\\Programs\\CHILD.EXE D:\\GO.TXT while");
    EXPECT_FALSE(FileExists("D:\\GO.TXT.DONE"));  // the child waits for the file to go
    Drives::DeleteFile("D:\\GO.TXT");
    EXPECT_TRUE(QTest::qWaitFor([] { return FileExists("D:\\GO.TXT.DONE"); }, 60000));
}

TEST_F(Programs, LetEventsPassWhenYieldedTo) {
    bool passed = false;
    QMetaObject::invokeMethod(
        qApp, [&] { passed = true; }, Qt::QueuedConnection);
    Screen.YieldEvents();
    EXPECT_TRUE(passed);
}

}  // namespace Dorvane
