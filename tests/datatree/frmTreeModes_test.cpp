// SPDX-License-Identifier: GPL-3.0-or-later
#include <QtTest/qtestspontaneevent.h>
#include <QAction>
#include <QMenuBar>
#include <QPushButton>
#include <set>

#include "core/PathType.h"
#include "tests/datatree/DataTreeScreen.h"

// What the title of the data tree screen decides, and its buttons.
namespace Dorvane::Testing {

TEST_F(DataTreeScreen, HasItsDesignTitleUntilTheCallerSetsOne) {
    const frmTree screen(Navigate, Services);
    EXPECT_EQ(FromScreen(screen.windowTitle()), "TARVEX Data Directory Tree");
}

TEST_F(DataTreeScreen, ShowsTheCaptionsOfItsControls) {
    frmTree& screen = Open(Browse);
    EXPECT_EQ(TextOf(screen, "cmdOK"), "OK continue");
    EXPECT_EQ(TextOf(screen, "cmdHome"), "Go Home");
    EXPECT_EQ(TextOf(screen, "cmdCopy"), "Copy File");
    EXPECT_EQ(TextOf(screen, "cmdDelete"), "Delete File");
    EXPECT_EQ(TextOf(screen, "cmdPrint"), "Print File");
    EXPECT_EQ(TextOf(screen, "cmdEdit"), "Edit File");
    EXPECT_EQ(TextOf(screen, "cmdAdd"), "Add Directory");
    EXPECT_EQ(TextOf(screen, "cmdRemove"), "Remove Directory");
    EXPECT_EQ(TextOf(screen, "lblDirectoryTitle"), "Directory :");
    EXPECT_EQ(TextOf(screen, "lblFileTitle"), "File :");
    EXPECT_EQ(TextOf(screen, "lblCreationDateTitle"), "Created :");
    EXPECT_EQ(TextOf(screen, "lblHistoryTitle"), "History :");
    EXPECT_EQ(screen.findChild<QAction*>("mnuGoHome")->text(), "&Go Home");
    EXPECT_NE(screen.findChild<QAction*>("mnuPrinterSetup"), nullptr);
}

TEST_F(DataTreeScreen, ShowsTheButtonsOfEachTitle) {
    Open(Browse);
    EXPECT_EQ(ShownButtons(),
              (Names{"cmdHome", "cmdCopy", "cmdDelete", "cmdPrint", "cmdEdit", "cmdArchive"}));
    Open(Configure);
    EXPECT_EQ(ShownButtons(), (Names{"cmdHome", "cmdAdd", "cmdRemove"}));
    for (const char* title : {Input, InputFile}) {
        Open(title);
        EXPECT_EQ(ShownButtons(), (Names{"cmdOK", "cmdCancel"})) << title;
    }
    for (const char* title : {Reduction, Upload, "Any other title"}) {
        Open(title);
        EXPECT_EQ(ShownButtons(), (Names{"cmdOK", "cmdHome"})) << title;
    }
}

TEST_F(DataTreeScreen, HasAToolTipOnEveryButtonAndMnemonicsThatDoNotCollide) {
    for (const char* title : {Browse, Configure, Reduction, Input}) {
        frmTree& screen = Open(title);
        std::multiset<QChar> mnemonics;
        QStringList captions{screen.menuBar()->actions().at(0)->text()};
        for (const std::string& name : ShownButtons()) {
            auto& button = Control<QPushButton>(screen, name.c_str());
            EXPECT_FALSE(button.toolTip().isEmpty()) << name;
            captions.append(button.text());
        }
        for (const QString& caption : captions) {
            const auto mark = caption.indexOf(QLatin1Char('&'));
            ASSERT_GE(mark, 0) << caption.toStdString();
            mnemonics.insert(caption.at(mark + 1).toUpper());
        }
        for (const QChar letter : mnemonics)
            EXPECT_EQ(mnemonics.count(letter), 1u) << title << " " << letter.toLatin1();
    }
}

TEST_F(DataTreeScreen, DisablesTheFileButtonsUntilAFileIsSelected) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    const auto expect = [&](bool enabled) {
        for (const char* button : {"cmdCopy", "cmdDelete", "cmdPrint", "cmdEdit", "cmdArchive"})
            EXPECT_EQ(IsEnabled(screen, button), enabled) << button;
    };
    expect(false);
    ClickItem(screen, "lsvFiles", "LINE.LVL");
    EXPECT_EQ(TextOf(screen, "lblFile"), "LINE.LVL");
    expect(true);
    ClickNodeNamed("LEVEL SRV1");
    EXPECT_EQ(TextOf(screen, "lblFile"), "");
    expect(false);
}

TEST_F(DataTreeScreen, CannotPrintWithoutAPrinter) {
    Global().PrinterPresent = false;
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    ClickItem(screen, "lsvFiles", "LINE.LVL");
    EXPECT_FALSE(IsEnabled(screen, "cmdPrint"));
    EXPECT_TRUE(IsEnabled(screen, "cmdCopy"));
    EXPECT_FALSE(IsEnabled(screen, "mnuPrinterSetup"));
}

TEST_F(DataTreeScreen, CopiesTheSelectedFile) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    ClickItem(screen, "lsvFiles", "LINE.LVL");
    Desk.ExpectFile("Copy File To", "C:\\TARVEX\\TEMP\\COPY.LVL");
    Click(screen, "cmdCopy");
    EXPECT_EQ(FileContent("C:\\TARVEX\\TEMP\\COPY.LVL"), "data\r\n");
    EXPECT_EQ(Navigate.Calls.at(0), "CopyMeter Copying File ...");
    EXPECT_EQ(TextOf(screen, "lblFile"), "LINE.LVL");
}

TEST_F(DataTreeScreen, PrintsTheSelectedFile) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    ClickItem(screen, "lsvFiles", "LINE.LVL");
    Desk.ExpectMessage("Printing Complete", "File LINE.LVL sent to selected printer.");
    Click(screen, "cmdPrint");
    EXPECT_EQ(Desk.PrintedLines.back(), "     data");
}

TEST_F(DataTreeScreen, EditsTheSelectedFileByButtonDoubleClickAndEnter) {
    PutFile("C:\\WINDOWS\\dv_tarvex.ini", "[General Editor]\r\nPath=C:\\TOOLS\\\r\nName=edit.exe\r\n");
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    auto& list = Control<QListWidget>(screen, "lsvFiles");
    ClickItem(screen, "lsvFiles", "LINE.LVL");
    Click(screen, "cmdEdit");
    const QPoint place = list.visualItemRect(list.item(0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    HandleEvents();
    Press(list, Qt::Key_Return);
    const std::string editor = "C:\\TOOLS\\edit.exe " + Data("DAM\\NORTH\\LEVEL\\SRV1\\");
    EXPECT_EQ(Desk.Started, (Names{editor + "LINE.LVL", editor + "DATA.001", editor + "DATA.001"}));
}

TEST_F(DataTreeScreen, DoesNotEditWhileAFolderIsPicked) {
    frmTree& screen = Open(Upload, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    auto& list = Control<QListWidget>(screen, "lsvFiles");
    ClickItem(screen, "lsvFiles", "LINE.LVL");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.item(1)).center());
    HandleEvents();
    EXPECT_TRUE(Desk.Started.empty());
    EXPECT_TRUE(Desk.Shown.empty());
}

TEST_F(DataTreeScreen, TellsWhatIsNotBuilt) {
    frmTree& browser = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    ClickItem(browser, "lsvFiles", "LINE.LVL");
    Click(browser, "cmdArchive");
    Click(browser, "cmdDelete");
    Click(Open(Configure), "cmdRemove");
    EXPECT_EQ(Navigate.Calls,
              (Names{"OpenConstruct Archive Subsystem|Option Under Construction: In the future this option "
                     "will allow the archiving and retrieving of data.",
                     "OpenConstruct Delete File Button|Option Under Construction: In the future this option "
                     "will allow the deletion of the selected file.",
                     "OpenConstruct Remove Folder Button|Option Under Construction: In the future this "
                     "option will allow the deletion of the selected folder."}));
    EXPECT_EQ(FileContent(Data("DAM\\NORTH\\LEVEL\\SRV1\\LINE.LVL")), "data\r\n");
}

TEST_F(DataTreeScreen, GivesASurveyFolderToTheReduction) {
    Click(Open(Reduction, Data("DAM\\NORTH\\LEVEL\\SRV1\\")), "cmdOK");
    EXPECT_TRUE(IsUnloaded());
    EXPECT_EQ(Navigate.Calls, (Names{"OpenReduction " + Data("DAM\\NORTH\\LEVEL\\SRV1\\")}));
    EXPECT_EQ(LastTreePath(), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
}

TEST_F(DataTreeScreen, StaysForAFolderAtLocationLevelInTheReduction) {
    frmTree& screen = Open(Reduction, Data("DAM\\NORTH\\"));
    Desk.ExpectMessageTitled("Incomplete Selection");
    Click(screen, "cmdOK");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(Navigate.Calls.empty());
    EXPECT_EQ(LastTreePath(), Data("DAM\\NORTH\\"));
}

TEST_F(DataTreeScreen, TakesWhatLiesBelowALocationCalledSrvcForSurveyData) {
    Register("SRVC", "LEVEL", "FIRST");
    Click(Open(Reduction, Data("DAM\\SRVC\\LEVEL\\")), "cmdOK");
    EXPECT_EQ(Navigate.Calls, (Names{"OpenReduction " + Data("DAM\\SRVC\\LEVEL\\")}));
}

TEST_F(DataTreeScreen, GivesTheFolderToTheScreenThatItStandsFor) {
    Click(Open(Upload, Data("DAM\\NORTH\\")), "cmdOK");
    EXPECT_TRUE(IsUnloaded());
    Click(Open(Input, Data("DAM\\NORTH\\LEVEL\\")), "cmdOK");
    EXPECT_TRUE(IsUnloaded());
    Click(Open(InputFile, Data("DAM\\SOUTH\\")), "cmdOK");
    EXPECT_TRUE(IsUnloaded());
    EXPECT_EQ(Navigate.Calls,
              (Names{"ReturnToUpload " + Data("DAM\\NORTH\\"), "ReturnToInput " + Data("DAM\\NORTH\\LEVEL\\"),
                     "ReturnToInput " + Data("DAM\\SOUTH\\")}));
    EXPECT_EQ(LastTreePath(), Data("DAM\\SOUTH\\"));
}

TEST_F(DataTreeScreen, StaysUnderTheTitleThatNobodySets) {
    frmTree& screen = Open("Access Subdirectory Selection", Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    Click(screen, "cmdOK");
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(Navigate.Calls.empty());
}

TEST_F(DataTreeScreen, ConfirmsByEnterInTheTreeWhereThereIsAnOk) {
    Open(Upload, Data("DAM\\NORTH\\"));
    Press(TheTree(), Qt::Key_Return);
    EXPECT_TRUE(IsUnloaded());
    EXPECT_EQ(Navigate.Calls, (Names{"ReturnToUpload " + Data("DAM\\NORTH\\")}));
    frmTree& browser = Open(Browse, Data("DAM\\NORTH\\"));
    Press(TheTree(), Qt::Key_Enter);
    EXPECT_TRUE(browser.isVisible());
    EXPECT_EQ(Navigate.Calls.size(), 1u);
}

TEST_F(DataTreeScreen, GoesBackToTheInputWithoutAFolderOnCancel) {
    Click(Open(Input, Data("DAM\\NORTH\\")), "cmdCancel");
    EXPECT_TRUE(IsUnloaded());
    EXPECT_EQ(Navigate.Calls, (Names{"ReturnToInput "}));
    EXPECT_EQ(LastTreePath(), "");
}

TEST_F(DataTreeScreen, GoesHomeAndRemembersTheFolder) {
    Click(Open(Browse, Data("DAM\\NORTH\\")), "cmdHome");
    EXPECT_TRUE(IsUnloaded());
    EXPECT_EQ(Navigate.Calls, (Names{"ShowHome"}));
    EXPECT_EQ(LastTreePath(), Data("DAM\\NORTH\\"));
}

TEST_F(DataTreeScreen, GoesHomeByTheMenuFromAnyModeButTheInput) {
    for (const char* title : {Browse, Configure, Reduction, Upload})
        Choose(Open(title, Data("DAM\\")), "mnuGoHome");
    EXPECT_EQ(Navigate.Calls, Names(4, "ShowHome"));
    Navigate.Calls.clear();
    for (const char* title : {Input, InputFile}) {
        Choose(Open(title, Data("DAM\\SOUTH\\")), "mnuGoHome");
        EXPECT_TRUE(IsUnloaded());
    }
    EXPECT_EQ(Navigate.Calls, Names(2, "ReturnToInput " + Data("DAM\\SOUTH\\")));
    EXPECT_EQ(LastTreePath(), Data("DAM\\SOUTH\\"));
}

TEST_F(DataTreeScreen, LeavesByEscapeAndByTheWindowsOwnButtonAsByItsWayOut) {
    Press(Open(Browse, Data("DAM\\")), Qt::Key_Escape);
    EXPECT_TRUE(IsUnloaded());
    Press(Open(Input), Qt::Key_Escape);
    EXPECT_TRUE(IsUnloaded());
    for (const char* title : {Upload, Input}) {
        QCloseEvent close;
        QSpontaneKeyEvent::setSpontaneous(&close);
        QCoreApplication::sendEvent(&Open(title), &close);
        HandleEvents();
        EXPECT_FALSE(close.isAccepted());
    }
    EXPECT_EQ(Navigate.Calls, (Names{"ShowHome", "ReturnToInput ", "ShowHome", "ReturnToInput "}));
}

TEST_F(DataTreeScreen, ReportsAFileThatVanishedBeforeItWasCopied) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    ClickItem(screen, "lsvFiles", "LINE.LVL");
    Drives::DeleteFile(Data("DAM\\NORTH\\LEVEL\\SRV1\\LINE.LVL"));
    Desk.ExpectFile("Copy File To", "C:\\TARVEX\\TEMP\\COPY.LVL");
    Desk.ExpectMessageTitled("Program Error");
    Click(screen, "cmdCopy");
    EXPECT_TRUE(screen.isEnabled());
    EXPECT_EQ(Navigate.Calls.back(), "Close");
}

}  // namespace Dorvane::Testing
