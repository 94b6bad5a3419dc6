// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLineEdit>
#include <QPushButton>
#include <functional>

#include "core/basGeneral.h"
#include "datatree/frmAddSurvey.h"
#include "tests/datatree/DataTreeScreen.h"

// The data tree screen in the system configuration, with the real dialog.
namespace Dorvane::Testing {

namespace {

// The screen with a system that can be extended, and the real dialog.
class DialogNavigator : public RecordingNavigator {
  public:
    void AskSurvey(const std::string& directory,
                   const std::function<void(const SurveyAnswer&)>& then) override {
        RecordingNavigator::AskSurvey(directory, then);
        Dialog = new frmAddSurvey;
        QObject::connect(Dialog, &frmAddSurvey::Unloaded, qApp,
                         [dialog = Dialog.data(), then] { then(dialog->Answer()); });
        Dialog->SetDirectory(directory);
        Dialog->ShowModal();
        HandleEvents();
    }

    QPointer<frmAddSurvey> Dialog;
};

class DataTreeWithDialog : public DataTreeScreen {
  protected:
    DataTreeWithDialog() {
        PutFile(Init("CHOICES.SYS"), "DAM      1 Main dam\r\n");
        PutFile(Init("DAM.STR"),
                "DAM      Main dam\r\n\r\nNORTH    North\r\nSOUTH    South\r\n\r\nDIST     Distances\r\n"
                "LEVEL    Levelling\r\n\r\nSRV1     First\r\nSRV2     Second\r\nSRV3     Third\r\n");
        std::string registry;
        for (const PathRecord& record : Global().PathRecords)
            registry += " *       DAM       " + record.Location + "     " + record.Type +
                        (record.Type == "DIST" ? "      " : "     ") + record.Epoch + "\r\n";
        PutFile(Init("DAM.PTH"), registry);
        Services.WriteSrvNew = [](const std::string& folder, const std::string& name) {
            Drives::WriteFile(folder + name, "INDEX\r\n");
        };
        Services.WriteCoordNew = [this](const std::string& folder, const std::string&) {
            CoordinateFolders.push_back(folder);
        };
        Services.Waiting.Show = [this](const std::string& text) {
            Waiting.push_back(text);
            EXPECT_FALSE(Screen->isEnabled());
        };
        Services.Waiting.Close = [this] { Waiting.emplace_back("closed"); };
        Records = Global().PathRecords.Count();
    }

    frmTree& OpenWithDialog(const std::string& folder) {
        delete Screen.data();
        Screen = new frmTree(Dialogs, Services);
        Screen->setWindowTitle(QLatin1String(Configure));
        Screen->SetTempDirectory(folder);
        Screen->ShowModal();
        HandleEvents();
        return *Screen;
    }
    // Chooses NORTH, both data types and the epoch that is left to them.
    void ChooseSurvey() {
        ClickItem(*Dialogs.Dialog, "lstRoot", "DAM");
        ClickItem(*Dialogs.Dialog, "lstLocation", "NORTH");
        ClickItem(*Dialogs.Dialog, "lstTypeMulti", "DIST");
        ClickItem(*Dialogs.Dialog, "lstTypeMulti", "LEVEL");
        ClickItem(*Dialogs.Dialog, "lstEpoch", "SRV3");
    }

    DialogNavigator Dialogs;
    Names CoordinateFolders;
    Names Waiting;
    int Records = 0;
};

}  // namespace

TEST_F(DataTreeScreen, ReadsTheStructuresOnceWhenFoldersAreToBeAdded) {
    PutFile(Init("CHOICES.SYS"), "DAM      1 Main dam\r\n");
    PutFile(Init("DAM.STR"), "DAM      Main dam\r\n\r\nNORTH\r\n");
    Open(Browse);
    EXPECT_TRUE(Desk.Shown.empty());
    ExpectReport(Desk, InputPastEnd, "basRead-ReadStrFile", Answer::Cancel);
    frmTree& screen = Open(Configure);
    screen.hide();
    screen.show();
    HandleEvents();
    EXPECT_EQ(Desk.Shown.size(), 1u);
}

TEST_F(DataTreeScreen, ReportsMoreSystemsThanThereIsRoomFor) {
    std::string choices;
    for (int i = 1; i <= 17; ++i)
        choices += "S" + std::to_string(i) + (i < 10 ? "       " : "      ") + "1 System\r\n";
    PutFile(Init("CHOICES.SYS"), choices);
    PutFile(Init("S17.STR"), "S17\r\n\r\n\r\n\r\n");
    Desk.ExpectMessageTitled("Program Error");
    EXPECT_TRUE(Open(Configure).isVisible());
    EXPECT_NE(Desk.Shown.at(0).Text.find("Error : 9\r\n"), std::string::npos);
}

TEST_F(DataTreeWithDialog, IsHiddenWhileTheSurveyIsChosenAndBackAfterCancel) {
    frmTree& screen = OpenWithDialog(Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    Click(screen, "cmdAdd");
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ(Dialogs.Calls, (Names{"AskSurvey " + Data("DAM\\NORTH\\LEVEL\\SRV1\\")}));
    Click(*Dialogs.Dialog, "cmdCancel");
    EXPECT_TRUE(Dialogs.Dialog.isNull());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(screen.isEnabled());
    EXPECT_EQ(Chosen(), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_TRUE(Waiting.empty());
}

TEST_F(DataTreeWithDialog, AddsASurveyFromAnEpoch) {
    frmTree& screen = OpenWithDialog(Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    Click(screen, "cmdAdd");
    EXPECT_EQ(TextOf(*Dialogs.Dialog, "lblRoot"), "");
    ChooseSurvey();
    Control<QLineEdit>(*Dialogs.Dialog, "txtHistory").setText("Third");
    Desk.ExpectMessageTitled("Survey Added");
    Click(*Dialogs.Dialog, "cmdOK");
    EXPECT_TRUE(Dialogs.Dialog.isNull());
    EXPECT_EQ(FileLines(Init("DAM.PTH")).back(), " *       DAM       NORTH     LEVEL     SRV3");
    EXPECT_EQ(FileLines(Init("DAM.HIS")).back(), "    Created     11-20-26      Third");
    EXPECT_EQ(FileContent(Data("DAM\\NORTH\\DIST\\SRV3\\SRV3.IDX")), "INDEX\r\n");
    std::string projects = Data("DAM\\NORTH\\ADJUST\\SRV3");
    EXPECT_TRUE(FolderExists(projects));
    ASSERT_NE(NodeNamed("Third"), nullptr);
    EXPECT_EQ(Chosen(), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
}

TEST_F(DataTreeWithDialog, AddsASurveyOfTwoTypesAndShowsItsFolders) {
    frmTree& screen = OpenWithDialog(Data("DAM\\SOUTH\\LEVEL\\"));
    Click(screen, "cmdAdd");
    ChooseSurvey();
    Control<QLineEdit>(*Dialogs.Dialog, "txtHistory").setText(ToScreen("Apr\xE8s la crue"));
    Desk.ExpectMessageTitled("Survey Added");
    Click(*Dialogs.Dialog, "cmdOK");
    EXPECT_TRUE(Dialogs.Dialog.isNull());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(screen.isEnabled());
    EXPECT_EQ(screen.focusWidget(), &Control<QPushButton>(screen, "cmdAdd"));
    EXPECT_EQ(Waiting, (Names{"Updating Tarvex data folders.", "closed"}));
    EXPECT_EQ(FileLines(Init("DAM.PTH")).size(), 6u);
    EXPECT_NE(FileContent(Init("DAM.HIS")).find("Created     11-20-26      Apr\xE8s la crue\r\n"),
              std::string::npos);
    EXPECT_EQ(FileContent(Data("DAM\\NORTH\\LEVEL\\SRV3\\SRV3.IDX")), "INDEX\r\n");
    EXPECT_EQ(FileContent(Data("DAM\\NORTH\\DIST\\SRV3\\SRV3.IDX")), "INDEX\r\n");
    EXPECT_EQ(CoordinateFolders, (Names{"D:\\TARVEX\\COORD\\NORTH\\"}));
    ASSERT_NE(NodeNamed("Third"), nullptr);
    EXPECT_TRUE(NodeNamed("Third")->parent()->isExpanded());
    EXPECT_EQ(Chosen(), Data("DAM\\SOUTH\\LEVEL\\"));
    EXPECT_EQ(TextOf(screen, "sbrTreePanel1"), "DAM\\NORTH  DIST LEVEL  SRV3 was added");
    const std::string& told = Desk.Shown.back().Text;
    EXPECT_TRUE(
        told.starts_with("DAM\\NORTH  DIST LEVEL  SRV3\r\n\r\nMade:\r\n    2 lines in DAM.PTH\r\n"
                         "    8 lines in DAM.HIS\r\n    folder " +
                         Data("DAM\\NORTH\\DIST\\SRV3") + "\r\n"))
        << told;
    EXPECT_TRUE(told.ends_with("Found there and kept:\r\n    folder " + Data("DAM") + "\r\n    folder " +
                               Data("DAM\\NORTH") + "\r\n    folder " + Data("DAM\\NORTH\\DIST") +
                               "\r\n    folder " + Data("DAM\\NORTH\\LEVEL")))
        << told;
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\SOUTH\\LEVEL\\"));
}

TEST_F(DataTreeWithDialog, KeepsTheNodesOpenThatWereOpenBefore) {
    frmTree& screen = OpenWithDialog("");
    NodeNamed("Main dam")->setExpanded(true);
    NodeNamed("At SOUTH")->setExpanded(true);
    Click(screen, "cmdAdd");
    ChooseSurvey();
    Desk.ExpectMessageTitled("No History Information", Answer::No);
    Desk.ExpectMessageTitled("Survey Added");
    Click(*Dialogs.Dialog, "cmdOK");
    EXPECT_TRUE(NodeNamed("South")->isExpanded());
    EXPECT_EQ(Chosen(), "D:\\TARVEX\\");
}

TEST_F(DataTreeWithDialog, AddsNothingWhenNoTypeWasChosen) {
    frmTree& screen = OpenWithDialog("");
    Click(screen, "cmdAdd");
    ClickItem(*Dialogs.Dialog, "lstRoot", "DAM");
    ClickItem(*Dialogs.Dialog, "lstLocation", "NORTH");
    ClickItem(*Dialogs.Dialog, "lstTypeMulti", "LEVEL");
    ClickItem(*Dialogs.Dialog, "lstTypeMulti", "LEVEL");
    ClickItem(*Dialogs.Dialog, "lstEpoch", "SRV3");
    Desk.ExpectMessageTitled("No History Information", Answer::No);
    Click(*Dialogs.Dialog, "cmdOK");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(Waiting.empty());
    EXPECT_EQ(FileLines(Init("DAM.PTH")).size(), 4u);
    EXPECT_EQ(Global().PathRecords.Count(), Records);
}

TEST_F(DataTreeWithDialog, ReportsAFolderThatCannotBeMadeAndGoesOn) {
    Shut(Data("DAM\\NORTH\\"));
    chmod(Drives::HostPath(Data("DAM\\NORTH\\")).c_str(), 0755);
    chmod(Drives::HostPath(Init("DAM.PTH")).c_str(), 0666);
    chmod(Drives::HostPath(Init("")).c_str(), 0777);
    AsNobody([&] {
        frmTree& screen = OpenWithDialog(Data("DAM\\NORTH\\LEVEL\\"));
        Click(screen, "cmdAdd");
        ChooseSurvey();
        Desk.ExpectMessageTitled("No History Information", Answer::No);
        Desk.ExpectMessageTitled("Program Error");
        Desk.ExpectMessageTitled("Survey Not Wholly Added");
        Click(*Dialogs.Dialog, "cmdOK");
        EXPECT_NE(Desk.Shown.at(1).Text.find("Source : Dorvane-frmTree-cmdAdd_Click"), std::string::npos);
        EXPECT_NE(TextOf(screen, "sbrTreePanel1").find(" was not wholly added"), std::string::npos);
        EXPECT_TRUE(screen.isVisible());
        EXPECT_TRUE(screen.isEnabled());
        EXPECT_EQ(Chosen(), Data("DAM\\NORTH\\LEVEL\\"));
        delete Screen.data();
    });
}

TEST_F(DataTreeWithDialog, StandsTheEndOfTheScreenWhileTheDialogIsOpen) {
    frmTree& screen = OpenWithDialog("");
    Click(screen, "cmdAdd");
    delete Screen.data();
    Click(*Dialogs.Dialog, "cmdCancel");
    EXPECT_TRUE(Dialogs.Dialog.isNull());
}

TEST_F(DataTreeWithDialog, RefreshShowsWhatAnotherWorkstationHasRegistered) {
    frmTree& screen = OpenWithDialog(Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    ClickItem(screen, "lsvFiles", "LINE.LVL");
    EXPECT_EQ(NodeNamed("Third"), nullptr);
    PutFile(Init("DAM.PTH"),
            FileContent(Init("DAM.PTH")) + " *       DAM       NORTH     LEVEL     SRV3\r\n");
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV3\\"));
    File("DAM\\NORTH\\LEVEL\\SRV1\\EARLIER.LVL");
    QTest::keyClick(&screen, Qt::Key_F5);
    HandleEvents();
    EXPECT_EQ(Waiting, (Names{"Updating Tarvex data folders.", "closed"}));
    EXPECT_NE(NodeNamed("Third"), nullptr);
    EXPECT_EQ(Chosen(), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_TRUE(NodeNamed("Levelling")->isExpanded());
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(Items(screen, "lsvFiles"), (Names{"DATA.001", "EARLIER.LVL", "LINE.LVL"}));
    EXPECT_EQ(TextOf(screen, "lblFile"), "LINE.LVL");
    EXPECT_TRUE(screen.isEnabled());
}

TEST_F(DataTreeWithDialog, RefreshLeavesAClosedFolderClosed) {
    frmTree& screen = OpenWithDialog(Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    Choose(screen, "mnuRefresh");
    ClickNodeNamed("Levelling");
    NodeNamed("Levelling")->setExpanded(false);
    Choose(screen, "mnuRefresh");
    EXPECT_FALSE(NodeNamed("Levelling")->isExpanded());
    EXPECT_TRUE(NodeNamed("North")->isExpanded());
    EXPECT_EQ(Chosen(), Data("DAM\\NORTH\\LEVEL\\"));
}

TEST_F(DataTreeWithDialog, RefreshGoesToTheNearestFolderAboveOneThatIsGone) {
    frmTree& screen = OpenWithDialog(Data("DAM\\SOUTH\\LEVEL\\SRV1\\"));
    PutFile(Init("DAM.PTH"), " *       DAM       NORTH     LEVEL     SRV1\r\n");
    Choose(screen, "mnuRefresh");
    EXPECT_EQ(Chosen(), Data("DAM\\"));
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\"));
    EXPECT_EQ(Global().PathRecords.Count(), 1);
}

}  // namespace Dorvane::Testing
