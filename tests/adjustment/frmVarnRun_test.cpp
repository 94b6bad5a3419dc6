// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QGuiApplication>
#include <filesystem>

#include "core/widgets/Animation.h"
#include "tests/adjustment/Listing.h"
#include "tests/adjustment/VarnScreenSite.h"

namespace Dorvane::Testing {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

const std::string Ended = "ended unexpectedly";
const std::string Running = "The adjustment is running ...  Esc cancels it";

struct frmVarnRun : VarnScreenSite {
    frmVarnRun() {
        Package.Go = [this] {
            PutFile(Output, "the listing\r\n");
            return 0;
        };
    }

    void ExpectSuccess() { Desktop.ExpectMessage("Varn Successful", "Varn completed successfully!"); }
    static bool Waits(QWidget& screen) { return screen.cursor().shape() == Qt::WaitCursor; }
    static void ExpectAtRest(QWidget& screen) {
        EXPECT_FALSE(IsShown(screen, "aniVarn"));
        EXPECT_FALSE(Waits(screen));
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_TRUE(screen.isVisible());
        EXPECT_TRUE(IsEnabled(screen, "cmdVarn"));
        EXPECT_NE(TextOf(screen, "lblStatus"), Running);
    }
};

TEST_F(frmVarnRun, CallsThePackageAndTellsOfSuccess) {
    frmVarn& screen = OpenNet();
    ExpectSuccess();
    Click(screen, "cmdVarn");
    EXPECT_THAT(Package.Calls, ElementsAre("start " + Net, "go 1", "stop"));
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
    EXPECT_EQ(TextOf(screen, "lblStartReturn"), "0");
    EXPECT_EQ(TextOf(screen, "lblGoReturn"), "0");
    EXPECT_THAT(FileContent(Output), HasSubstr("  Project  =  North Dam\r\n"));
    EXPECT_THAT(FileContent(Output), EndsWith("the listing\r\n"));
    EXPECT_FALSE(IsRed(screen, "lblOutput"));
    EXPECT_TRUE(IsEnabled(screen, "chkOutputFile"));
    EXPECT_TRUE(ExportsEnabled(screen));
    EXPECT_EQ(TextOf(screen, "lblStatus"), "Output file present");
    ExpectAtRest(screen);
}

TEST_F(frmVarnRun, ShowsThatItWaitsFromTheFirstCallToTheMessage) {
    frmVarn& screen = OpenNet();
    std::vector<std::string> seen;
    const auto look = [&](const std::string& at) {
        seen.push_back(at + (IsShown(screen, "aniVarn") ? " gears" : "") + (Waits(screen) ? " waits " : " ") +
                       TextOf(screen, "lblStartReturn") + "/" + TextOf(screen, "lblGoReturn") +
                       (ExportsEnabled(screen) ? " exports" : ""));
    };
    Package.Start = [&] {
        EXPECT_EQ(TextOf(screen, "lblStatus"), Running);
        EXPECT_GT(Control<Animation>(screen, "aniVarn").sizeHint().width(), 0);
        look("start");
        return 3;
    };
    Package.Go = [&] {
        look("go");
        PutFile(Output, "the listing\r\n");
        return 12;
    };
    Package.Stop = [&] { look("stop"); };
    Desktop.OnMessage = [&] { look("message"); };
    Desktop.ExpectMessage("Varn Error", "Varn completed.  Error 12 returned.");
    Click(screen, "cmdVarn");
    look("end");
    EXPECT_THAT(seen, ElementsAre("start gears waits /", "go gears waits 3/", "stop gears waits 3/12",
                                  "message gears waits 3/12 exports", "end 3/12 exports"));
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Information);
    ExpectAtRest(screen);
}

TEST_F(frmVarnRun, HandsOverTheNumberOfTheTypeNotItsPosition) {
    frmVarn& screen = OpenNet();
    Package.Go = [] { return 1; };
    for (int entry = 1; entry <= 4; ++entry) {
        Pick(screen, "cmbVarn", entry);
        Desktop.ExpectMessageTitled("Varn Error");
        Click(screen, "cmdVarn");
    }
    EXPECT_THAT(Package.Calls, ElementsAre("start " + Net, "go 0", "stop", "start " + Net, "go 1", "stop",
                                           "start " + Net, "go -1", "stop", "start " + Net, "go 7", "stop"));
}

TEST_F(frmVarnRun, WithoutATypeDoesNotCallGo) {
    PutFile(Output, "an older listing\r\n");
    frmVarn& screen = OpenNet();
    Combo(screen, "cmbVarn").setCurrentIndex(-1);
    ExpectSuccess();
    Click(screen, "cmdVarn");
    EXPECT_THAT(Package.Calls, ElementsAre("start " + Net, "stop"));
    EXPECT_EQ(TextOf(screen, "lblGoReturn"), "0");
    EXPECT_EQ(Combo(screen, "cmbVarn").currentIndex(), -1);
}

TEST_F(frmVarnRun, GoesOnWhateverStartGave) {
    frmVarn& screen = OpenNet();
    Package.Start = [] { return 3; };
    ExpectSuccess();
    Click(screen, "cmdVarn");
    EXPECT_EQ(TextOf(screen, "lblStartReturn"), "3");
}

TEST_F(frmVarnRun, WithoutInputHandsOverTheEmptyPath) {
    frmVarn& screen = Open();
    Package.Go = [] { return 1; };
    Desktop.ExpectMessage("Varn Error", "Varn completed.  Error 1 returned.");
    Click(screen, "cmdVarn");
    EXPECT_THAT(Package.Calls, ElementsAre("start ", "go 1", "stop"));
    ExpectAtRest(screen);
}

TEST_F(frmVarnRun, OfAVersionTakesThatVersionsFiles) {
    PutLines("D:\\ADJ\\NET_v02.INP", {"", "PROJECT = of the version", "TASK = T"});
    Package.Go = [] {
        PutFile("D:\\ADJ\\NET_v02.OUT", "the listing\r\n");
        return 0;
    };
    frmVarn& screen = OpenNet();
    Pick(screen, "cmbVersion", 2);
    ExpectSuccess();
    Click(screen, "cmdVarn");
    EXPECT_EQ(Package.Calls[0], "start D:\\ADJ\\NET_v02.INP");
    EXPECT_THAT(FileContent("D:\\ADJ\\NET_v02.OUT"), HasSubstr("of the version"));
    EXPECT_EQ(Chosen(screen, "cmbVersion"), "Version 02");
    EXPECT_EQ(TextOf(screen, "lblOutput"), Output);
    EXPECT_FALSE(IsRed(screen, "lblOutput"));
}

TEST_F(frmVarnRun, ThatFailedLeavesAnOlderListingToBeExported) {
    PutLines(Output, GoodListingLines());
    frmVarn& screen = OpenNet();
    Package.Go = [] { return 5; };
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_TRUE(ExportsEnabled(screen));
    Desktop.ExpectFile("", "D:\\ADJ\\NET.XYZ");
    Desktop.ExpectMessage("Finished", "Xyz file D:\\ADJ\\NET.XYZ completed.");
    Choose(screen, "mnuXyz");
    EXPECT_TRUE(IsTicked(screen, "mnuXyz"));
}

TEST_F(frmVarnRun, ThatLeftNoListingClosesTheExports) {
    Put("NET.OUT");
    frmVarn& screen = OpenNet();
    Package.Go = [this] {
        Drives::DeleteFile(Output);
        return 5;
    };
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_FALSE(ExportsEnabled(screen));
    EXPECT_FALSE(IsEnabled(screen, "chkOutputFile"));
    EXPECT_TRUE(IsRed(screen, "lblOutput"));
}

TEST_F(frmVarnRun, WithSuccessButNoListingIsReported) {
    frmVarn& screen = OpenNet();
    Package.Go = [] { return 0; };
    Desktop.ExpectMessageTitled("Program Error");
    Click(screen, "cmdVarn");
    EXPECT_THAT(Desktop.Shown[0].Text, HasSubstr("Error : 53"));
    EXPECT_THAT(Desktop.Shown[0].Text, EndsWith("Source : Dorvane-frmVarn-cmdVarn_Click"));
    EXPECT_EQ(TextOf(screen, "lblGoReturn"), "0");
    ExpectAtRest(screen);
}

TEST_F(frmVarnRun, WithoutProjectAndTaskIsReportedAndLeavesTheListing) {
    PutLines(Net, {"NORL", "END"});
    frmVarn& screen = OpenNet();
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    Click(screen, "cmdVarn");
    EXPECT_THAT(Desktop.Shown[0].Text, HasSubstr("Error : 62"));
    EXPECT_EQ(FileContent(Output), "the listing\r\n");
    EXPECT_TRUE(ExportsEnabled(screen));
    ExpectAtRest(screen);
}

TEST_F(frmVarnRun, OfAPackageThatEndsIsReportedAndCanBeRepeated) {
    frmVarn& screen = OpenNet();
    const std::vector<std::function<void(const std::function<std::int16_t()>&)>> calls = {
        [&](const auto& deed) { Package.Start = deed; }, [&](const auto& deed) { Package.Go = deed; },
        [&](const auto& deed) { Package.Stop = [deed] { deed(); }; }};
    for (const auto& let : calls) {
        const PackageScript whole = Package;
        let([]() -> std::int16_t { throw RunTimeError(51, Ended); });
        ExpectReport(Desktop, 51, "Internal error: " + Ended, "frmVarn-cmdVarn_Click");
        Click(screen, "cmdVarn");
        ExpectAtRest(screen);
        Package = whole;
        ExpectSuccess();
        Click(screen, "cmdVarn");
        ExpectAtRest(screen);
    }
}

TEST_F(frmVarnRun, OfAPackageThatEndsShowsWhatItLeft) {
    Put("NET.OUT");
    frmVarn& screen = OpenNet();
    Package.Go = [this]() -> std::int16_t {
        Drives::DeleteFile(Output);
        throw RunTimeError(51, Ended);
    };
    Desktop.ExpectMessageTitled("Program Error");
    Click(screen, "cmdVarn");
    EXPECT_TRUE(IsRed(screen, "lblOutput"));
    EXPECT_FALSE(ExportsEnabled(screen));
}

TEST_F(frmVarnRun, LetsNothingElseStartMeanwhile) {
    frmVarn& screen = OpenNet();
    Package.Start = [&] {
        for (const char* name : {"txtInput", "cmdBrowse", "cmbVersion", "cmdViewVersion", "cmbVarn",
                                 "chkInputFile", "cmdEdit", "cmdPrint", "cmdHome", "menuBar"})
            EXPECT_FALSE(IsEnabled(screen, name)) << name;
        Choose(screen, "mnuTextEditor");
        QTest::keyClick(&screen, Qt::Key_F5);
        return 0;
    };
    Desktop.OnMessage = [&] {
        for (const char* name : {"cmdVarn", "cmdViewVersion", "cmdHome"})
            Click(screen, name);
    };
    ExpectSuccess();
    Click(screen, "cmdVarn");
    for (const char* name : {"txtInput", "cmdBrowse", "cmbVersion", "cmdViewVersion", "cmbVarn",
                             "chkInputFile", "cmdEdit", "cmdPrint", "cmdHome", "menuBar"})
        EXPECT_TRUE(IsEnabled(screen, name)) << name;
    EXPECT_THAT(Package.Calls, ElementsAre("start " + Net, "go 1", "stop"));
    EXPECT_THAT(Nav.Calls, testing::IsEmpty());
    EXPECT_TRUE(IsTicked(screen, "mnuTarvexEditor"));
    ExpectAtRest(screen);
}

TEST_F(frmVarnRun, ShowsTheWayToEndItOnItsButtonAlone) {
    frmVarn& screen = OpenNet();
    auto& button = Control<QAbstractButton>(screen, "cmdVarn");
    const auto look = [&] {
        return FromScreen(button.text()) + "|" + FromScreen(button.accessibleName()) + "|" +
               FromScreen(button.toolTip()) + "|" + FromScreen(button.shortcut().toString());
    };
    const int width = button.width();
    const qint64 picture = button.icon().cacheKey();
    const std::string before = look();
    EXPECT_EQ(before, "|Run|Run the adjustment (F5)|F5");
    Package.Go = [&]() -> std::int16_t {
        HandleEvents();
        EXPECT_EQ(look(), "Stop|Stop|Cancel the adjustment (Esc)|");
        EXPECT_NE(button.icon().cacheKey(), picture);
        EXPECT_EQ(button.width(), width);
        return 5;
    };
    Desktop.ExpectMessageTitled("Varn Error");
    Desktop.OnMessage = [&] { EXPECT_EQ(look(), before); };
    Click(screen, "cmdVarn");
    EXPECT_EQ(button.icon().cacheKey(), picture);
    EXPECT_EQ(button.width(), width);
}

TEST_F(frmVarnRun, GoesOnWhenItIsNotToBeCancelled) {
    frmVarn& screen = OpenNet();
    Package.Start = [&] {
        Click(screen, "cmdVarn");
        return 0;
    };
    Package.Go = [&] {
        QTest::keyClick(&screen, Qt::Key_Escape);
        return 5;
    };
    const std::string question = "The adjustment is still running.  Do you wish to cancel it?";
    Desktop.ExpectMessage("Cancel Varn", question, Answer::No);
    Desktop.ExpectMessage("Cancel Varn", question, Answer::No);
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_EQ(Desktop.Shown[0].Default, Answer::No);
    EXPECT_THAT(Package.Calls, ElementsAre("start " + Net, "go 1", "stop"));
    EXPECT_THAT(Nav.Calls, testing::IsEmpty());
    ExpectAtRest(screen);
}

TEST_F(frmVarnRun, CancelledLeavesTheListingAndSaysSo) {
    PutFile(Output, "an older listing\r\n");
    frmVarn& screen = OpenNet();
    Control<QWidget>(screen, "txtInput").setFocus();
    Package.Go = [] { return 5; };
    Desktop.ExpectMessageTitled("Varn Error");
    Control<QAbstractButton>(screen, "cmdVarn").click();
    EXPECT_EQ(TextOf(screen, "lblGoReturn"), "5");
    Package.Go = [&]() -> std::int16_t {
        for (int i = 0; i < 2; ++i)  // the second time there is nothing to ask
            QTest::keyClick(&screen, Qt::Key_Escape);
        throw RunCancelled();
    };
    Desktop.ExpectMessageTitled("Cancel Varn", Answer::Yes);
    Control<QAbstractButton>(screen, "cmdVarn").click();
    EXPECT_EQ(FileContent(Output), "an older listing\r\n");
    EXPECT_EQ(TextOf(screen, "lblStatus"), "Varn was cancelled; the output file is as it was");
    EXPECT_EQ(TextOf(screen, "lblGoReturn"), "");
    EXPECT_TRUE(Control<QWidget>(screen, "txtInput").hasFocus());
    ExpectAtRest(screen);
    Package.Go = [] { return 5; };
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_EQ(TextOf(screen, "lblStatus"), "The output file is of an earlier run");
    Pick(screen, "cmbVarn", 1);
    Click(screen, "chkInputFile");
    EXPECT_EQ(TextOf(screen, "lblStatus"), "Output file present");
}

TEST_F(frmVarnRun, AsksAgainInTheRunBehindACancelledOne) {
    frmVarn& screen = OpenNet();
    Package.Go = [&]() -> std::int16_t {
        QTest::keyClick(&screen, Qt::Key_Escape);
        throw RunCancelled();
    };
    Desktop.ExpectMessageTitled("Cancel Varn", Answer::Yes);
    Click(screen, "cmdVarn");
    Package.Go = [&] {
        QTest::keyClick(&screen, Qt::Key_Escape);
        return 5;
    };
    Desktop.ExpectMessageTitled("Cancel Varn", Answer::No);
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_EQ(TextOf(screen, "lblGoReturn"), "5");
}

TEST_F(frmVarnRun, WithoutPicturesHasWordsOnItsButton) {
    for (const char* name : {"adjust.svg", "stop.svg"})
        Drives::DeleteFile(std::string("P:\\DORVANE\\graphics\\") + name);
    frmVarn& screen = OpenNet();
    EXPECT_EQ(TextOf(screen, "cmdVarn"), "Run");
    Package.Go = [&] {
        EXPECT_EQ(TextOf(screen, "cmdVarn"), "Stop");
        return 5;
    };
    Desktop.ExpectMessageTitled("Varn Error");
    Click(screen, "cmdVarn");
    EXPECT_EQ(TextOf(screen, "cmdVarn"), "Run");
}

TEST_F(frmVarnRun, TellsOfAMissingAnimationAndGoesOn) {
    std::filesystem::remove_all(Drives::HostPath("P:\\DORVANE\\graphics"));
    frmVarn& screen = OpenNet();
    ExpectReport(Desktop, 53, "File not found: P:\\DORVANE\\graphics\\gears.avi", "frmVarn-cmdVarn_Click");
    ExpectSuccess();
    Click(screen, "cmdVarn");
    EXPECT_THAT(Package.Calls, ElementsAre("start " + Net, "go 1", "stop"));
    ExpectAtRest(screen);
}

TEST_F(frmVarnRun, IsReportedWhereTheListingMayNotBeChanged) {
    PutFile(Output, "the listing\r\n");
    InFreshProcess([&] {
        AsNobody([&] {
            ScriptedDesktop desktop;
            Package.Go = [] { return 0; };
            frmVarn& screen = OpenNet();
            desktop.ExpectMessageTitled("Program Error");
            Click(screen, "cmdVarn");
            EXPECT_THAT(desktop.Shown[0].Text, EndsWith("Source : Dorvane-frmVarn-cmdVarn_Click"));
            ExpectAtRest(screen);
            EXPECT_TRUE(ExportsEnabled(screen));
        });
        EXPECT_EQ(FileContent(Output), "the listing\r\n");
    });
}

}  // namespace
}  // namespace Dorvane::Testing
