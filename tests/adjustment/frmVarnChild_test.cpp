// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>
#include <csignal>
#include <filesystem>
#include <set>

#include "adjustment/ChildPackage.h"
#include "tests/adjustment/VarnScreenSite.h"

// The screen on packages in real processes.
namespace Dorvane::Testing {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

struct frmVarnChild : VarnScreenSite {
    frmVarnChild() {
        std::filesystem::create_symlink(DORVANE_FOLDER "/Programs", Programs());
        EXPECT_EQ(mkfifo(Gate().c_str(), 0600), 0);
        setenv("PACKAGE_LOG", (Site.HostFolder() + "calls.log").c_str(), 1);
        setenv("PACKAGE_GATE", Gate().c_str(), 1);
        setenv("ASAN_OPTIONS", "handle_segv=0:handle_abort=0:detect_leaks=0", 1);
        for (const char* name : {"PACKAGE_START", "PACKAGE_GO", "PACKAGE_LEAVES", "PACKAGE_START_DOES",
                                 "PACKAGE_GO_DOES", "PACKAGE_STOP_DOES"})
            unsetenv(name);
        Install(PLAIN_PACKAGE);
    }

    static void Install(const std::string& library) {
        Drives::CopyFile(Drives::DrivePath(library), "P:\\DORVANE\\" + KrennPackage::LibraryName());
    }
    std::string Programs() const { return Site.HostFolder() + "p:/DORVANE/Programs"; }
    std::string Gate() const { return Site.HostFolder() + "gate"; }

    /// Opens the side of the gate that a waiting package needs, or none while no package waits there.
    bool OpenTheGate() const {
        const int gate = open(Gate().c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (gate < 0)
            return false;
        close(gate);
        return true;
    }

    void ExpectEnd(const std::string& how) {
        ExpectReport(Desktop, 51, "The adjustment package ended unexpectedly (" + how + ")",
                     "frmVarn-cmdVarn_Click");
    }
    void ExpectUsable(frmVarn& screen) {
        EXPECT_FALSE(IsShown(screen, "aniVarn"));
        EXPECT_NE(screen.cursor().shape(), Qt::WaitCursor);
        unsetenv("PACKAGE_GO_DOES");
        setenv("PACKAGE_GO", "6", 1);
        Desktop.ExpectMessage("Varn Error", "Varn completed.  Error 6 returned.");
        Click(screen, "cmdVarn");
        EXPECT_EQ(TextOf(screen, "lblGoReturn"), "6");
    }
};

TEST_F(frmVarnChild, IsPaintedWhileThePackageWorksAndTakesNoInput) {
    setenv("PACKAGE_START", "3", 1);
    setenv("PACKAGE_GO", "12", 1);
    setenv("PACKAGE_GO_DOES", "wait", 1);
    frmVarn& screen = OpenOnItsOwnPackage();
    std::set<QByteArray> pictures;
    bool open = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        if (open || TextOf(screen, "lblStartReturn") != "3")
            return;
        auto& animation = Control<QWidget>(screen, "aniVarn");
        EXPECT_TRUE(animation.isVisible());
        EXPECT_EQ(screen.cursor().shape(), Qt::WaitCursor);
        const QImage image = animation.grab().toImage();
        pictures.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()),
                                   static_cast<int>(image.sizeInBytes())));
        EXPECT_FALSE(IsEnabled(screen, "cmdHome"));
        QTest::keyClick(&Control<QWidget>(screen, "txtInput"), Qt::Key_X);
        if (pictures.size() > 2)
            open = OpenTheGate();
    });
    watch.start(20);
    Desktop.ExpectMessage("Varn Error", "Varn completed.  Error 12 returned.");
    Click(screen, "cmdVarn");
    EXPECT_TRUE(open);
    EXPECT_THAT(Nav.Calls, testing::IsEmpty());
    EXPECT_EQ(TextOf(screen, "lblGoReturn"), "12");
    EXPECT_EQ(FromScreen(Control<QLineEdit>(screen, "txtInput").text()), Net);
    ExpectUsable(screen);
}

TEST_F(frmVarnChild, CancelledEndsThePackageAndLeavesTheListing) {
    PutFile(Output, "an older listing\r\n");
    setenv("PACKAGE_GO_DOES", "hang", 1);
    frmVarn& screen = OpenOnItsOwnPackage();
    const int gate = open(Gate().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    pid_t process = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        if (process == 0 && read(gate, &process, sizeof process) == sizeof process)
            Click(screen, "cmdVarn");
    });
    watch.start(20);
    Desktop.ExpectMessage("Cancel Varn", "The adjustment is still running.  Do you wish to cancel it?",
                          Answer::Yes);
    Click(screen, "cmdVarn");
    watch.stop();
    close(gate);
    EXPECT_NE(process, 0);
    EXPECT_NE(kill(process, 0), 0) << "the package still runs";
    EXPECT_EQ(FileContent(Output), "an older listing\r\n");
    EXPECT_EQ(AllFiles("D:\\ADJ\\"), (std::vector<std::string>{"NET.INP", "NET.OUT"}));
    EXPECT_EQ(TextOf(screen, "lblStatus"), "Varn was cancelled; the output file is as it was");
    ExpectUsable(screen);
}

TEST_F(frmVarnChild, ReportsACrashAndGoesOn) {
    setenv("PACKAGE_GO_DOES", "write nowhere", 1);
    frmVarn& screen = OpenOnItsOwnPackage();
    ExpectEnd("signal 11");
    Click(screen, "cmdVarn");
    ExpectUsable(screen);
}

TEST_F(frmVarnChild, ReportsAPackageThatIsKilledAndGoesOn) {
    setenv("PACKAGE_GO_DOES", "hang", 1);
    frmVarn& screen = OpenOnItsOwnPackage();
    const int gate = open(Gate().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
        pid_t process = 0;
        if (read(gate, &process, sizeof process) == sizeof process)
            kill(process, SIGKILL);
    });
    watch.start(20);
    ExpectEnd("signal 9");
    Click(screen, "cmdVarn");
    watch.stop();
    close(gate);
    ExpectUsable(screen);
}

TEST_F(frmVarnChild, ReportsAMissingPackageAndGoesOn) {
    Drives::DeleteFile("P:\\DORVANE\\" + KrennPackage::LibraryName());
    frmVarn& screen = OpenOnItsOwnPackage();
    ExpectReport(Desktop, 53, "File not found: " + KrennPackage::LibraryName(), "frmVarn-cmdVarn_Click");
    Click(screen, "cmdVarn");
    Install(PLAIN_PACKAGE);
    ExpectUsable(screen);
}

TEST_F(frmVarnChild, ReportsAMissingRunnerAndGoesOn) {
    std::filesystem::remove(Programs());
    frmVarn& screen = OpenOnItsOwnPackage();
    ExpectReport(Desktop, 53, "File not found: " + ChildPackage::RunnerPath(), "frmVarn-cmdVarn_Click");
    Click(screen, "cmdVarn");
    std::filesystem::create_symlink(DORVANE_FOLDER "/Programs", Programs());
    ExpectUsable(screen);
}

TEST_F(frmVarnChild, AdjustsARealNetworkAndExportsIt) {
    Install(DORVANE_FOLDER "/" + KrennPackage::LibraryName());
    PutLines(Net,
             {"NORL", "", "PROJECT = P", "TASK = T", "DATE = D", "Height differences", "A B 1.0010 0.001",
              "B C 1.0002 0.001", "C A -2.0004 0.002", "A D 0.5 0.001", "D B 0.5003 0.001", "END"});
    frmVarn& screen = OpenOnItsOwnPackage();
    EXPECT_TRUE(IsRed(screen, "lblOutput"));
    Desktop.ExpectMessage("Varn Successful", "Varn completed successfully!");
    Click(screen, "cmdVarn");
    EXPECT_FALSE(IsRed(screen, "lblOutput"));
    EXPECT_THAT(FileContent(Output), HasSubstr("VARN Adjustment Output"));
    EXPECT_THAT(TextOf(screen, "lblResult"), testing::AnyOf("GOOD", "GOOD, WITH REMARKS"));
    EXPECT_THAT(TextOf(screen, "lblM0"), testing::MatchesRegex("m0 [0-9.]+; the test passes: allowed .*"));
    EXPECT_EQ(TextOf(screen, "lblCounts"), "5 observations, 4 points");
    EXPECT_EQ(TextOf(screen, "lblRunTime").size(), 19U);
    EXPECT_FALSE(Control<QLabel>(screen, "lblMark").pixmap().isNull());
    Desktop.ExpectFile("", "D:\\ADJ\\NET.DBS");
    Desktop.ExpectMessage("Finished", "Dbs file D:\\ADJ\\NET.DBS completed.");
    Desktop.ExpectMessageTitled("Dbs File Warning");  // there are no folders for project and task
    Choose(screen, "mnuDbs");
    EXPECT_EQ(FileLines("D:\\ADJ\\NET.DBS").size(), 5U);
}

TEST_F(frmVarnChild, ShowsTheDoubtsBehindTheMessageOfSuccess) {
    Install(DORVANE_FOLDER "/" + KrennPackage::LibraryName());
    PutLines(Net,
             {"NORL", "", "PROJECT = P", "TASK = T", "DATE = D", "Height differences", "A B 1.0010 0.001",
              "B C 1.0002 0.001", "C A -2.0004 0.002", "A D 0.5 0.001", "D B 0.6 0.001", "END"});
    Put("NET_v01.INP");
    frmVarn& screen = OpenOnItsOwnPackage();
    EXPECT_EQ(TextOf(screen, "lblResult"), "");
    EXPECT_TRUE(Control<QLabel>(screen, "lblMark").pixmap().isNull());
    Desktop.ExpectMessage("Varn Successful", "Varn completed successfully!");
    Desktop.OnMessage = [&] { EXPECT_EQ(TextOf(screen, "lblResult"), "DOUBTFUL"); };
    Click(screen, "cmdVarn");
    EXPECT_EQ(TextOf(screen, "lblResult"), "DOUBTFUL");
    EXPECT_THAT(TextOf(screen, "lblM0"), HasSubstr("the test FAILS: allowed "));
    EXPECT_FALSE(Control<QPlainTextEdit>(screen, "txtDoubt").toPlainText().isEmpty());
    Pick(screen, "cmbVersion", 2);
    for (const char* name : {"lblResult", "lblM0", "lblCounts", "lblRunTime"})
        EXPECT_EQ(TextOf(screen, name), "") << name;
    EXPECT_TRUE(Control<QPlainTextEdit>(screen, "txtDoubt").toPlainText().isEmpty());
    EXPECT_TRUE(Control<QLabel>(screen, "lblMark").pixmap().isNull());
    Pick(screen, "cmbVersion", 1);
    EXPECT_EQ(TextOf(screen, "lblResult"), "DOUBTFUL");
}

TEST_F(frmVarnChild, OfAVersionThatVanishedShowsThePackagesError) {
    Install(DORVANE_FOLDER "/" + KrennPackage::LibraryName());
    Put("NET_v01.INP");
    frmVarn& screen = OpenOnItsOwnPackage();
    Pick(screen, "cmbVersion", 2);
    Drives::DeleteFile("D:\\ADJ\\NET_v01.INP");
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_NE(TextOf(screen, "lblGoReturn"), "0");
    EXPECT_FALSE(ExportsEnabled(screen) && IsRed(screen, "lblOutput"));
}

}  // namespace
}  // namespace Dorvane::Testing
