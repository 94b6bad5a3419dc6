// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPushButton>
#include <QTest>
#include <QWindow>

#include "core/ProfileStore.h"
#include "core/basGeneral.h"
#include "tests/reduction/frmReduceTest.h"

namespace Dorvane::Testing {
namespace {

using frmReduceWays = frmReduceTest;

TEST_F(frmReduceWays, TakesPictureAndTipOfTheInputErrandFromTheHomeMenusProfile) {
    PutLines("C:\\WINDOWS\\dv_main.ini", {"[Main Icons]", "Icon5=input.svg", "[Main Tips]", "Tip5=Make it"});
    frmReduce& screen = Open();
    EXPECT_FALSE(Control<QPushButton>(screen, "cmdInputCreator").icon().isNull());
    EXPECT_EQ(Control<QPushButton>(screen, "cmdInputCreator").toolTip(), QLatin1String("Make it"));
}

TEST_F(frmReduceWays, KeepsTheOwnTipOfTheInputErrandWithoutThatProfile) {
    frmReduce& screen = Open();
    EXPECT_TRUE(Control<QPushButton>(screen, "cmdInputCreator").icon().isNull());
    EXPECT_FALSE(Control<QPushButton>(screen, "cmdInputCreator").toolTip().isEmpty());
}

TEST_F(frmReduceWays, GoesOnToTheInput) {
    Click(Open(), "cmdInputCreator");
    EXPECT_TRUE(Screen.isNull());
    EXPECT_EQ(Navigator.Calls, Texts{"OpenInput"});
}

TEST_F(frmReduceWays, GoesHomeByButtonMenuWindowButtonAndEscape) {
    Click(Open(), "cmdHome");
    EXPECT_TRUE(Screen.isNull());
    Choose(Open(), "mnuGoHome");
    EXPECT_TRUE(Screen.isNull());
    Open().windowHandle()->close();
    HandleEvents();
    EXPECT_TRUE(Screen.isNull());
    QTest::keyClick(&Open(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Screen.isNull());
    EXPECT_EQ(Navigator.Calls, (Texts{"ShowHome", "ShowHome", "ShowHome", "ShowHome"}));
}

TEST_F(frmReduceWays, GoesBackToTheTreeAtTheLastPath) {
    IniWriteString("dv_tarvex.ini", "Tarvex", "Last Path", "D:\\TARVEX\\DAM\\");
    Click(Open(), "cmdChangeDir");
    EXPECT_TRUE(Screen.isNull());
    EXPECT_EQ(Navigator.Calls, Texts{"OpenTree Data Reduction Directory Selection|D:\\TARVEX\\DAM\\"});
}

TEST_F(frmReduceWays, DoesNothingForAnyOtherPathType) {
    Global().Path_type = 3;
    Click(Open(), "cmdChangeDir");
    ASSERT_FALSE(Screen.isNull());
    EXPECT_TRUE(Screen->isVisible());
    EXPECT_TRUE(Navigator.Calls.empty());
}

TEST_F(frmReduceWays, ProposesTheTabThatWasUsedLastForTheDataType) {
    ConfigureTabs(3);
    frmReduce& screen = Open();
    EXPECT_EQ(Tabs(screen).Current(), 0);
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Reduction Tabs", "LEVEL"), "") << "nothing was chosen yet";
    Click(screen, "tab2");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Reduction Tabs", "LEVEL"), "E3");
    screen.Unload();
    HandleEvents();
    frmReduce& again = Open();
    EXPECT_EQ(Tabs(again).Current(), 2);
    EXPECT_TRUE(IsShown(again, "cmdReduce2"));
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Reduction Tabs", "LEVEL"), "E3");
}

TEST_F(frmReduceWays, ProposesTheFirstTabWhereTheMemoryNamesNone) {
    ConfigureTabs(3);
    IniWriteString("dv_tarvex.ini", "Reduction Tabs", "LEVEL", "GONE");
    IniWriteString("dv_tarvex.ini", "Reduction Tabs", "TOTAL", "E3");
    EXPECT_EQ(Tabs(Open()).Current(), 0);
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Reduction Tabs", "LEVEL"), "GONE");
}

struct ByHand : frmReduceTest {
    ByHand() {
        Global().Path_type = 2;
        MakeFolders(Other);
        PutFile(Other + "DAY9.LEV", "x");
        IniWriteString("dv_tarvex.ini", "Manual", "Last Path", Folder);
    }
    static std::string LastPath() { return IniReadString("dv_tarvex.ini", "Manual", "Last Path"); }
    const std::string Other = "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV13\\";
};

TEST_F(ByHand, ChangesTheFolderOfTheLivingScreen) {
    Put("ONE.RES", "x");
    frmReduce& screen = Open();
    bool hidden = false;
    Desktop.ExpectFile("Data Reduction Directory Selection", Other + "ReducePath");
    screen.installEventFilter(new QObject(&screen));
    QObject::connect(screen.windowHandle(), &QWindow::visibleChanged, &screen, [&](bool on) {
        if (!on)
            hidden = Desktop.Dialogs.empty();
    });
    Click(screen, "cmdChangeDir");
    ASSERT_FALSE(Screen.isNull());
    EXPECT_TRUE(hidden);
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(Desktop.Dialogs[0].Folder, Folder);
    EXPECT_EQ(TextOf(screen, "lblSelectedDirectory"), Other);
    EXPECT_EQ(LastPath(), Other);
    EXPECT_EQ(Captions(screen), Texts{"Levelling"});
    EXPECT_EQ(TagOf(screen, "imgData0"), "1");
    EXPECT_EQ(TagOf(screen, "imgReduction0"), "0");
    EXPECT_TRUE(Items(screen, "lstReductionResults0").empty());
    EXPECT_EQ(Epochs(screen, "cmbCalibEpoch0"), Texts{"none"});
}

TEST_F(ByHand, StaysAsItIsWhenTheDialogIsCancelled) {
    frmReduce& screen = Open();
    Desktop.ExpectFile("Data Reduction Directory Selection", std::nullopt);
    Click(screen, "cmdChangeDir");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(TextOf(screen, "lblSelectedDirectory"), Folder);
    EXPECT_EQ(LastPath(), Folder);
}

TEST_F(ByHand, StaysAsItIsWhenTheFolderIsNotThere) {
    frmReduce& screen = Open();
    Desktop.ExpectFile("Data Reduction Directory Selection", "D:\\GONE\\ReducePath");
    Click(screen, "cmdChangeDir");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(TextOf(screen, "lblSelectedDirectory"), Folder);
    EXPECT_EQ(LastPath(), Folder);
}

TEST_F(ByHand, FailsToMakeCopiesASecondTimeAndShowsNoTabs) {
    // The copies of a living screen are not taken down, so a second set-up asks for them in vain; it is meant
    // to be so.
    ConfigureTabs(2);
    frmReduce& screen = Open();
    ASSERT_EQ(Tabs(screen).TabCount(), 2);
    Desktop.ExpectFile("Data Reduction Directory Selection", Other + "ReducePath");
    Desktop.ExpectMessage("Program Error",
                          "Error : 360\r\n\r\nDescription : Object was already loaded\r\n\r\nSource : "
                          "Dorvane-frmReduce-lblSelectedDirectory_Change");
    Click(screen, "cmdChangeDir");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(TextOf(screen, "lblSelectedDirectory"), Other);
    EXPECT_EQ(Tabs(screen).TabCount(), 0);
    EXPECT_FALSE(IsShown(screen, "cmdReduce0"));
    EXPECT_EQ(TextOf(screen, "sbrReducePanel1"), "Nothing to reduce");
}

TEST_F(ByHand, ComesBackFromAFolderWithoutTabs) {
    const std::string none = "D:\\TARVEX\\NONE\\";
    MakeFolders(none);
    frmReduce& screen = Open();
    Desktop.ExpectFile("Data Reduction Directory Selection", none + "ReducePath");
    Desktop.ExpectMessageTitled("Critical Error");
    Click(screen, "cmdChangeDir");
    EXPECT_EQ(Tabs(screen).TabCount(), 0);
    Desktop.ExpectFile("Data Reduction Directory Selection", Other + "ReducePath");
    Click(screen, "cmdChangeDir");
    EXPECT_EQ(Captions(screen), Texts{"Levelling"});
    EXPECT_TRUE(IsShown(screen, "cmdReduce0"));
}

}  // namespace
}  // namespace Dorvane::Testing
