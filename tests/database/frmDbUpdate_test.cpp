// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/frmDbUpdate.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QWindow>

#include "core/basGeneral.h"
#include "tests/database/DatabaseScreenSite.h"
#include "tests/database/UpdateSite.h"

namespace Dorvane::Testing {
namespace {

using Texts = std::vector<std::string>;

class frmDbUpdateTest : public DatabaseScreenSite<frmDbUpdate> {
  protected:
    /// The screen with everything chosen.
    frmDbUpdate& Chosen(const char* type = "opt3dim", const std::string& file = UpdateFile) {
        frmDbUpdate& screen = Open();
        ClickNode("NORTH");
        ClickOptions({type});
        Desk.ExpectFile("", file);
        Click(screen, "cmdBrowse");
        return screen;
    }
    void ExpectComplete(const std::string& status) {
        Desk.ExpectMessage("Update Complete", "Update complete");
        Click(*Opened, "cmdUpdate");
        EXPECT_EQ(Desk.Shown.back().Picture, Icon::Information);
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(TextOf(*Opened, "sbrUpdatePanel1"), status);
    }
    void ExpectOverview(Answer answer = Answer::Yes) { Desk.ExpectMessageTitled("Update Overview", answer); }
    void ExpectReported(const std::string& what, Answer answer = Answer::Ok) {
        Desk.ExpectMessageTitled("Program Error", answer);
        Click(*Opened, "cmdUpdate");
        EXPECT_TRUE(Tells(Desk.Shown.back(), what)) << Desk.Shown.back().Text;
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(TextOf(*Opened, "sbrUpdatePanel1"), "0 points stored");
    }
};

TEST_F(frmDbUpdateTest, HasItsCaptions) {
    frmDbUpdate& screen = Open();
    EXPECT_EQ(TextOf(screen), "Database Coordinate Update");
    const std::vector<std::pair<const char*, const char*>> captions = {
        {"optBenchmark", "Benchmarks"}, {"optMonument", "Monuments"},     {"optIdeals", "Ideals"},
        {"opt3dim", "3-Dimensional"},   {"cmdUpdate", "Update Database"}, {"cmdGoBack", "Go Back"},
        {"cmdGoHome", "Go Home"},       {"cmdRestore", "Restore Backup"}, {"lblDirectory", ""},
        {"lblUpDateFile", ""}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(TextOf(screen, name), caption) << name;
    EXPECT_EQ(screen.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(screen.focusWidget(), &Tree());
    for (const QPushButton* button : screen.findChildren<QPushButton*>()) {
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->objectName().toStdString();
    }
    ExpectNoneTwice(Mnemonics<QLabel>(screen) + Mnemonics<QPushButton>(screen) +
                    Mnemonics<QRadioButton>(screen));
}

TEST_F(frmDbUpdateTest, ShowsTheLocationThatIsClicked) {
    frmDbUpdate& screen = Open();
    EXPECT_EQ(Captions().size(), 6U);
    ClickNode("EAST");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "DATABASE\\TUNNEL\\EAST\\");
}

TEST_F(frmDbUpdateTest, BrowsesForAFileAndKeepsItWhenCancelled) {
    frmDbUpdate& screen = Open();
    Desk.ExpectFile("", "D:\\\xC9t\xE9 & Co.DBS");
    Click(screen, "cmdBrowse");
    EXPECT_EQ(TextOf(screen, "lblUpDateFile"), "D:\\\xC9t\xE9 & Co.DBS");
    EXPECT_EQ(Desk.Dialogs[0].Purpose, FileDialog::Kind::Open);
    EXPECT_EQ(Desk.Dialogs[0].Folder, "C:\\TARVEX\\TEMP\\");
    EXPECT_EQ(Desk.Dialogs[0].Filter, "All Files (*.*)|*.*|DBS Files(*.dbs)|*.dbs");
    EXPECT_EQ(Desk.Dialogs[0].FilterIndex, 2);
    EXPECT_EQ(Desk.Dialogs[0].Flags, 4);
    Desk.ExpectFile("", std::nullopt);
    Click(screen, "cmdBrowse");
    EXPECT_EQ(TextOf(screen, "lblUpDateFile"), "D:\\\xC9t\xE9 & Co.DBS");
}

TEST_F(frmDbUpdateTest, BringsThePointsIntoTheDatabaseBehindABackup) {
    Enter("P1", 1);
    const std::string former = FileContent(North + "3DIM.DAT");
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("P2", "-1.5")});
    Chosen();
    Texts status;
    Desk.OnMessage = [&] { status.push_back(TextOf(*Opened, "sbrUpdatePanel1")); };
    ExpectOverview();
    ExpectComplete("2 points stored in NORTH, backup kept");
    EXPECT_EQ(status, (Texts{"Comparing with the database ...", "2 points stored in NORTH, backup kept"}));
    EXPECT_EQ(XOf("P1"), 100);
    EXPECT_EQ(XOf("P2"), -1.5);
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), former);
}

TEST_F(frmDbUpdateTest, AsksFirstForADataTypeThenForTheFileThenForTheLocation) {
    frmDbUpdate& screen = Open();
    Desk.ExpectMessage(
        "Missing Date Type Data",
        "Must select an option from the Data Type box.  Either benchmark, monuments, ideals, or "
        "3-dimensional");
    Click(screen, "cmdUpdate");
    EXPECT_EQ(Desk.Shown.back().Picture, Icon::Information);
    ClickOptions({"opt3dim"});
    Desk.ExpectMessage("File Name Invalid", "Update file name  does not exist.");
    Click(screen, "cmdUpdate");
    EXPECT_EQ(Desk.Shown.back().Picture, Icon::Information);
    Desk.ExpectFile("", "D:\\GONE.DBS");
    Click(screen, "cmdBrowse");
    Desk.ExpectMessage("File Name Invalid", "Update file name D:\\GONE.DBS does not exist.");
    Click(screen, "cmdUpdate");
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    Desk.ExpectFile("", UpdateFile);
    Click(screen, "cmdBrowse");
    for (const char* node : {"", "DATABASE\\", "DAM"}) {
        if (*node != '\0')
            ClickNode(node);
        Desk.ExpectMessage("Location Incomplete", "Selected location not valid.  Please complete.");
        Click(screen, "cmdUpdate");
        EXPECT_EQ(Desk.Shown.back().Picture, Icon::Information);
    }
    EXPECT_EQ(AllFiles(North).size(), 13U);
}

TEST_F(frmDbUpdateTest, ReportsTheFileOfABadLocationWithAMissingFile) {
    frmDbUpdate& screen = Chosen("opt3dim", "D:\\GONE.DBS");
    ClickNode("DAM");
    Desk.ExpectMessageTitled("File Name Invalid");
    Click(screen, "cmdUpdate");
}

TEST_F(frmDbUpdateTest, SaysCompleteAndChangesNothingForTheOtherTypes) {
    // Only three-dimensional data is updated; what is said of the others is meant to be so.
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    const auto before = Picture(North);
    Chosen("optBenchmark");
    ExpectComplete("0 points stored");
    ClickOptions({"optMonument"});
    ExpectComplete("0 points stored");
    ClickOptions({"optIdeals"});
    ExpectComplete("0 points stored");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(frmDbUpdateTest, MakesTheBackupAlsoForAFileWithoutPoints) {
    PutLines(UpdateFile, {UpdateHeader});
    const std::string former = FileContent(North + "3DIM.DAT");
    Chosen();
    ExpectComplete("0 points stored in NORTH, backup kept");
    EXPECT_EQ(FileContent(North + "3DIM.DAT"), former);
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), former);
}

TEST_F(frmDbUpdateTest, KeepsOnlyTheStateBeforeTheLatestUpdate) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    Chosen();
    ExpectOverview();
    ExpectComplete("1 point stored in NORTH, backup kept");
    const std::string afterFirst = FileContent(North + "3DIM.DAT");
    Desk.ExpectMessageTitled("Update Stored Already", Answer::Yes);
    ExpectComplete("1 point stored in NORTH, backup kept");
    EXPECT_EQ(FileContent(North + "Backup 3DIM.DAT"), afterFirst);
}

TEST_F(frmDbUpdateTest, TellsNothingOfAFormerChoiceInTheStatusBar) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    frmDbUpdate& screen = Chosen();
    const auto status = [&] { return TextOf(screen, "sbrUpdatePanel1"); };
    const auto update = [&] {
        ClickNode("NORTH");
        ClickOptions({"optIdeals"});
        ExpectComplete("0 points stored");
    };
    update();
    ClickNode("NORTH");
    EXPECT_EQ(status(), "0 points stored");
    ClickNode("SOUTH");
    EXPECT_EQ(status(), "");
    update();
    ClickOptions({"opt3dim"});
    EXPECT_EQ(status(), "");
    update();
    Desk.ExpectFile("", std::nullopt);
    Click(screen, "cmdBrowse");
    EXPECT_EQ(status(), "0 points stored");
    Desk.ExpectFile("", "D:\\GONE.DBS");
    Click(screen, "cmdBrowse");
    EXPECT_EQ(status(), "");
    Desk.ExpectFile("", UpdateFile);
    Click(screen, "cmdBrowse");
    update();
    Drives::DeleteFile(UpdateFile);
    Desk.ExpectMessageTitled("File Name Invalid");
    Click(screen, "cmdUpdate");
    EXPECT_EQ(status(), "");
}

TEST_F(frmDbUpdateTest, ReportsALocationWithoutADatabase) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    Chosen();
    ClickNode("SOUTH");
    ExpectReported("-basDatabase-MakeCoordBackups", Answer::Cancel);
}

TEST_F(frmDbUpdateTest, ReportsADamagedDatabaseAndLeavesIt) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    PutFile(North + "3DIM.IDX", " 16      1   0\r\nP1           9\r\n");
    const std::string before = FileContent(North + "3DIM.DAT");
    Chosen();
    ExpectReported("Error : 1101");
    EXPECT_EQ(FileContent(North + "3DIM.DAT"), before);
}

TEST_F(frmDbUpdateTest, StoresNothingOfAFileWithARefusedPointAndDoesNotSayComplete) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1"), PointLine("LONGNAME9"), PointLine("P3")});
    const auto before = Picture(North);
    Chosen();
    ExpectReported("Error : 1103");
    EXPECT_EQ(Picture(North), before);
}

TEST_F(frmDbUpdateTest, RestoresTheBackupOfTheLocation) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    frmDbUpdate& screen = Chosen();
    const std::string former = FileContent(North + "3DIM.DAT");
    ExpectOverview();
    ExpectComplete("1 point stored in NORTH, backup kept");
    Desk.ExpectMessageTitled("Restore Backup", Answer::Yes);
    Desk.ExpectMessageTitled("Restore Complete");
    Click(screen, "cmdRestore");
    EXPECT_EQ(FileContent(North + "3DIM.DAT"), former);
    EXPECT_EQ(TextOf(screen, "sbrUpdatePanel1"), "Backup of NORTH restored");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    ClickNode("SOUTH");
    EXPECT_EQ(TextOf(screen, "sbrUpdatePanel1"), "");
    Desk.ExpectMessage("No Backup", "There is no complete backup of SOUTH.");
    Click(screen, "cmdRestore");
}

TEST_F(frmDbUpdateTest, TellsABinaryFile) {
    PutFile(UpdateFile, std::string("\x00\xFF\x1A\r\n\x80\n", 7));
    const std::string before = FileContent(North + "3DIM.DAT");
    Chosen();
    Desk.ExpectMessageTitled("Header Error");
    ExpectComplete("0 points stored in NORTH, backup kept");
    EXPECT_EQ(FileContent(North + "3DIM.DAT"), before);
}

TEST_F(frmDbUpdateTest, ReportsAFullDiskAndLeavesTheDatabase) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    OnSmallDisk(North, 128, [&] {
        Painted = false;
        WriteCoordNew(North, "NORTH");
        Chosen();
        FillDisk(North);
        ExpectOverview();
        ExpectReported("Error : 61", Answer::No);
        EXPECT_TRUE(Named({"P1"}).empty());
        Close();
    });
}

TEST_F(frmDbUpdateTest, ReportsAFolderWithoutPermission) {
    PutLines(UpdateFile, {UpdateHeader, PointLine("P1")});
    const auto before = Picture(North);
    AsNobody([&] {
        Painted = false;
        Chosen();
        ExpectOverview();
        ExpectReported("-basDatabase-MakeCoordBackups", Answer::Cancel);
        Close();
    });
    EXPECT_EQ(Picture(North), before);
}

TEST_F(frmDbUpdateTest, ReportsALocationThatComesBack) {
    Global().PathRecords = {LocationRecord("DAM", "NORTH"), LocationRecord("DAM", "SOUTH"),
                            LocationRecord("DAM", "NORTH")};
    Desk.ExpectMessageTitled("Program Error");
    Open();
    EXPECT_TRUE(Tells(Desk.Shown[0], "-frmDbUpdate-LoadForm"));
    EXPECT_EQ(Captions().size(), 4U);
}

TEST_F(frmDbUpdateTest, GoesBackToTheOptions) {
    Click(Open(), "cmdGoBack");
    EXPECT_TRUE(Opened.isNull());
    EXPECT_EQ(Nav.Calls, Texts{"OpenDatabase"});
}

TEST_F(frmDbUpdateTest, GoesHomeByButtonWindowButtonAndEscape) {
    Click(Open(), "cmdGoHome");
    EXPECT_TRUE(Opened.isNull());
    Open().windowHandle()->close();
    HandleEvents();
    EXPECT_TRUE(Opened.isNull());
    QTest::keyClick(&Open(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Opened.isNull());
    EXPECT_EQ(Nav.Calls, (Texts{"ShowHome", "ShowHome", "ShowHome"}));
}

TEST_F(frmDbUpdateTest, ShowsItsStatusWholeInTheSmallestWindowWithALargeFont) {
    const QFont former = QApplication::font();
    QFont large = former;
    large.setPointSize(24);
    QApplication::setFont(large);
    frmDbUpdate& screen = Open();
    screen.resize(screen.minimumSizeHint());
    auto& panel = Control<QLabel>(screen, "sbrUpdatePanel1");
    panel.setText(QStringLiteral("12345 points stored in NORTHERN, backup kept"));
    HandleEvents();
    EXPECT_GE(panel.contentsRect().width(), panel.fontMetrics().horizontalAdvance(panel.text()));
    QApplication::setFont(former);
}

TEST_F(frmDbUpdateTest, TabsFromTheTreeToTheWaysOut) {
    frmDbUpdate& screen = Open();
    ClickOptions({"opt3dim"});
    Tree().setFocus();
    for (const char* next : {"opt3dim", "cmdBrowse", "cmdGoBack", "cmdUpdate", "cmdGoHome", "cmdRestore"}) {
        QTest::keyClick(screen.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(screen.focusWidget()->objectName().toStdString(), next);
    }
}

}  // namespace
}  // namespace Dorvane::Testing
