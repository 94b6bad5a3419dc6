// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/frmCalibTree.h"

#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QTest>
#include <QTreeWidget>
#include <QWindow>

#include "tests/reduction/CalibSite.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScreenTest.h"

namespace Dorvane::Testing {

namespace {

using Texts = std::vector<std::string>;
const std::string Calib = "D:\\TARVEX\\CALIB\\";

struct FrmCalibTree : CalibSite {
    FrmCalibTree() {
        UseShippedPictures();
        Global().PrinterPresent = true;
    }
    ~FrmCalibTree() override {
        if (!Screen.isNull())
            Screen->Unload();
        HandleEvents();
    }

    frmCalibTree& Open() {
        Screen = new frmCalibTree(Navigator);
        Screen->ShowModal();
        HandleEvents();
        return *Screen;
    }
    QTreeWidget& Tree() { return Control<QTreeWidget>(*Screen, "trvDirectory"); }

    /// The captions from the root to each node, "/" between them.
    Texts Captions() {
        Texts captions;
        for (QTreeWidgetItemIterator it(&Tree()); *it != nullptr; ++it) {
            QString caption = (*it)->text(0);
            for (QTreeWidgetItem* above = (*it)->parent(); above != nullptr; above = above->parent())
                caption = above->text(0) + "/" + caption;
            captions.push_back(FromScreenText(caption));
        }
        return captions;
    }
    void ClickNode(const QString& caption) {
        const QList<QTreeWidgetItem*> found =
            Tree().findItems(caption, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << caption.toStdString();
        Tree().scrollToItem(found.first());
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {},
                          Tree().visualItemRect(found.first()).center());
        HandleEvents();
    }

    static std::string FromScreenText(const QString& text) { return text.toLatin1().toStdString(); }

    RecordingNavigator Navigator;
    QPointer<frmCalibTree> Screen;
};

}  // namespace

TEST_F(FrmCalibTree, ShowsTheTreeUnderItsTitle) {
    frmCalibTree& screen = Open();
    EXPECT_EQ(TextOf(screen), "TARVEX Calibration Directory Tree");
    EXPECT_EQ(Captions(), (Texts{"Calibration Drive", "Calibration Drive/Levels and staffs",
                                 "Calibration Drive/Levels and staffs/January 2026",
                                 "Calibration Drive/Levels and staffs/July 2026"}));
    EXPECT_TRUE(Tree().topLevelItem(0)->isExpanded());
    EXPECT_FALSE(Tree().topLevelItem(0)->child(0)->isExpanded());
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "");
    EXPECT_EQ(TextOf(screen, "lblDirectoryTitle"), "Directory :");
    EXPECT_EQ(TextOf(screen, "lblFileTitle"), "File :");
    EXPECT_EQ(screen.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(screen.focusWidget(), &Tree());
}

TEST_F(FrmCalibTree, HidesTheLabelsThatOnlyCarryTheAnswer) {
    frmCalibTree& screen = Open();
    for (const char* name : {"lblType", "lblEpoch", "lblTempDirectory"})
        EXPECT_FALSE(IsShown(screen, name)) << name;
}

TEST_F(FrmCalibTree, ListsTheFilesOfRootTypeAndEpoch) {
    PutFile(Calib + "root.txt", "x");
    PutFile(Calib + "STAFF\\C2601\\STAFF.CAL", "x");
    PutFile(Calib + "STAFF\\C2601\\COLLIM.CAL", "x");
    frmCalibTree& screen = Open();
    ClickNode("Calibration Drive");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Calib);
    EXPECT_EQ(Items(screen, "lsvFiles"), (Texts{"ROOT.TXT"}));
    EXPECT_EQ(TextOf(screen, "sbrCalibTreePanel1"), "1 file");
    ClickItem(screen, "lsvFiles", "ROOT.TXT");
    EXPECT_EQ(TextOf(screen, "lblFile"), "ROOT.TXT");
    ClickNode("Levels and staffs");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Calib + "STAFF\\");
    EXPECT_EQ(TextOf(screen, "lblFile"), "");
    EXPECT_TRUE(Items(screen, "lsvFiles").empty());
    ClickNode("January 2026");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Calib + "STAFF\\C2601\\");
    EXPECT_EQ(Items(screen, "lsvFiles"), (Texts{"COLLIM.CAL", "STAFF.CAL"}));
    EXPECT_EQ(TextOf(screen, "sbrCalibTreePanel1"), "2 files");
    EXPECT_FALSE(Control<QListWidget>(screen, "lsvFiles").item(0)->icon().isNull());
}

TEST_F(FrmCalibTree, ShowsANodeWithoutFolderAndNoFilesInIt) {
    PutFile(Registry, " *       CALIB     EDM       C2601\r\n");
    frmCalibTree& screen = Open();
    ClickNode("Distance meters");
    EXPECT_TRUE(Items(screen, "lsvFiles").empty());
    ClickNode("January 2026");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Calib + "EDM\\C2601\\");
    EXPECT_TRUE(Items(screen, "lsvFiles").empty());
}

TEST_F(FrmCalibTree, ListsNothingOfAFolderThatVanishes) {
    PutFile(Calib + "STAFF\\C2601\\STAFF.CAL", "x");
    frmCalibTree& screen = Open();
    ClickNode("January 2026");
    EXPECT_EQ(Items(screen, "lsvFiles").size(), 1U);
    Drives::RenameFile(Calib + "STAFF", Calib + "GONE");
    ClickNode("July 2026");
    ClickNode("January 2026");
    EXPECT_TRUE(Items(screen, "lsvFiles").empty());
}

TEST_F(FrmCalibTree, DrawsAnOpenFolderOtherThanAClosedOne) {
    Open();
    const QIcon folder = Tree().topLevelItem(0)->icon(0);
    const QImage closed = folder.pixmap(16, QIcon::Normal, QIcon::Off).toImage();
    const QImage open = folder.pixmap(16, QIcon::Normal, QIcon::On).toImage();
    EXPECT_FALSE(closed.isNull());
    EXPECT_NE(closed, open);
}

TEST_F(FrmCalibTree, ReportsAMissingPictureAndOpensAllTheSame) {
    Drives::DeleteFile("P:\\DORVANE\\graphics\\file_form.svg");
    Desktop.ExpectMessageTitled("Program Error");
    frmCalibTree& screen = Open();
    EXPECT_TRUE(Desktop.Shown[0].Text.find("Error : 53") == 0) << Desktop.Shown[0].Text;
    EXPECT_NE(Desktop.Shown[0].Text.find("file_form.svg"), std::string::npos);
    EXPECT_NE(Desktop.Shown[0].Text.find("Source : Dorvane-frmCalibTree-LoadForm"), std::string::npos);
    EXPECT_EQ(Captions().size(), 4U);
    EXPECT_TRUE(screen.isVisible());
}

TEST_F(FrmCalibTree, AddsWhatTheDialogAnswers) {
    frmCalibTree& screen = Open();
    ClickNode("Calibration Drive");
    Click(screen, "cmdAdd");
    EXPECT_EQ(Navigator.Calls, (Texts{"AskCalibration " + Calib}));
    EXPECT_FALSE(screen.isVisible());
    Navigator.CalibrationAnswered({"EDM", "C2607"});
    HandleEvents();
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(TextOf(screen, "lblType"), "EDM");
    EXPECT_EQ(TextOf(screen, "lblEpoch"), "C2607");
    EXPECT_EQ(Captions(),
              (Texts{"Calibration Drive", "Calibration Drive/Levels and staffs",
                     "Calibration Drive/Levels and staffs/January 2026",
                     "Calibration Drive/Levels and staffs/July 2026", "Calibration Drive/Distance meters",
                     "Calibration Drive/Distance meters/July 2026"}));
    EXPECT_EQ(FileLines(Registry).back(), " *       CALIB     EDM       C2607");
    EXPECT_TRUE(IsFolder(Calib + "EDM\\C2607"));
    EXPECT_TRUE(Tree().topLevelItem(0)->child(1)->isExpanded());
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Calib);
    EXPECT_EQ(TextOf(screen, "sbrCalibTreePanel1"), "EDM C2607 was added");
    ClickNode("Calibration Drive");
    EXPECT_EQ(TextOf(screen, "sbrCalibTreePanel1"), "0 files");
}

TEST_F(FrmCalibTree, AddsNothingAfterACancelledDialog) {
    frmCalibTree& screen = Open();
    Click(screen, "cmdAdd");
    EXPECT_EQ(Navigator.Calls, (Texts{"AskCalibration "}));
    Navigator.CalibrationAnswered({});
    HandleEvents();
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(Captions().size(), 4U);
    EXPECT_EQ(FileLines(Registry).size(), 2U);
    EXPECT_EQ(TextOf(screen, "sbrCalibTreePanel1"), "No folder selected");
}

TEST_F(FrmCalibTree, ReportsAFolderThatExistsAlreadyAndShowsItsNode) {
    MakeFolders(Calib + "STAFF\\C2701\\");
    frmCalibTree& screen = Open();
    Click(screen, "cmdAdd");
    ExpectAccessError(Calib + "STAFF\\C2701", "frmCalibTree-cmdAdd_Click");
    Navigator.CalibrationAnswered({"STAFF", "C2701"});
    HandleEvents();
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(Captions().back(), "Calibration Drive/Levels and staffs/January 2027");
    EXPECT_EQ(TextOf(screen, "sbrCalibTreePanel1"), "STAFF C2701 was not added as a whole");
}

TEST_F(FrmCalibTree, ReportsAFullDiskAndComesBack) {
    OnSmallDisk("D:\\TARVEX\\INIT", 64, [&] {
        Drives::WriteFile(Structure, "CALIB\r\n\r\nEDM\r\n\r\nC2601\r\n");
        // The registry fills its page of the disk, so that a further line needs another.
        std::string registry = " *       CALIB     STAFF     C2601";
        registry.resize(4094, ' ');
        Drives::WriteFile(Registry, registry + "\r\n");
        try {
            for (;;)
                Drives::AppendFile("D:\\TARVEX\\INIT\\FILLER.BIN", std::string(4096, 'x'));
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Number, DiskFull);
        }
        frmCalibTree& screen = Open();
        Click(screen, "cmdAdd");
        Desktop.ExpectMessage("Program Error",
                              "Error : 61\r\n\r\nDisk is full. Continue?\r\n\r\nSource : "
                              "Dorvane-basTree-UpdateCalibPthFileAdd",
                              Answer::No);
        Navigator.CalibrationAnswered({"EDM", "C2601"});
        HandleEvents();
        EXPECT_TRUE(screen.isVisible());
        EXPECT_EQ(FileLines(Registry).size(), 1U);
        screen.Unload();
        HandleEvents();
    });
}

TEST_F(FrmCalibTree, OutlivesNothingWhenItIsGoneBeforeTheAnswer) {
    frmCalibTree& screen = Open();
    Click(screen, "cmdAdd");
    screen.Unload();
    HandleEvents();
    ASSERT_TRUE(Screen.isNull());
    Navigator.CalibrationAnswered({"EDM", "C2607"});
    EXPECT_EQ(FileLines(Registry).size(), 2U);
}

TEST_F(FrmCalibTree, TellsThatFoldersAreNotRemoved) {
    Click(Open(), "cmdDelete");
    EXPECT_EQ(Navigator.Calls,
              (Texts{"OpenConstruct Remove Folder Button|Option Under Construction: In the future this "
                     "option will allow the deletion of the selected folder."}));
    EXPECT_TRUE(Screen->isVisible());
}

TEST_F(FrmCalibTree, GoesHomeByButtonMenuWindowButtonAndEscape) {
    Click(Open(), "cmdHome");
    EXPECT_TRUE(Screen.isNull());
    Choose(Open(), "mnuGoHome");
    EXPECT_TRUE(Screen.isNull());
    // What the window's close button sends.
    Open().windowHandle()->close();
    HandleEvents();
    EXPECT_TRUE(Screen.isNull());
    QTest::keyClick(&Open(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_TRUE(Screen.isNull());
    EXPECT_EQ(Navigator.Calls, (Texts{"ShowHome", "ShowHome", "ShowHome", "ShowHome"}));
}

TEST_F(FrmCalibTree, SetsUpThePrinterWhenThereIsOne) {
    EXPECT_TRUE(IsEnabled(Open(), "mnuPrinterSetup"));
    Choose(*Screen, "mnuPrinterSetup");
    Screen->Unload();
    HandleEvents();
    Global().PrinterPresent = false;
    EXPECT_FALSE(IsEnabled(Open(), "mnuPrinterSetup"));
}

TEST_F(FrmCalibTree, StaysEmptyButUsableWithoutACalibrationPath) {
    Global().Calib_path.clear();
    frmCalibTree& screen = Open();
    EXPECT_TRUE(Captions().empty());
    Click(screen, "cmdAdd");
    Navigator.CalibrationAnswered({});
    HandleEvents();
    EXPECT_TRUE(screen.isVisible());
    Click(screen, "cmdHome");
    EXPECT_EQ(Navigator.Calls, (Texts{"AskCalibration ", "ShowHome"}));
}

TEST_F(FrmCalibTree, ShowsAccentsAndMarkupAsTheyStandInTheFiles) {
    PutFile(Structure,
            "CALIB    Cal\r\n\r\nNIV\xC9"
            "E    <b>Mires</b> cal\xE9\r\n\r\n\xC9T\xC9"
            "26    \xC9t\xE9 & 26\r\n");
    PutFile(Registry,
            " *       CALIB     NIV\xC9"
            "E     \xC9T\xC9"
            "26\r\n");
    MakeFolders(Calib +
                "NIV\xC9"
                "E\\\xC9T\xC9"
                "26\\");
    PutFile(Calib +
                "NIV\xC9"
                "E\\\xC9T\xC9"
                "26\\mire\xE9.cal",
            "x");
    frmCalibTree& screen = Open();
    EXPECT_EQ(Captions()[2], "Calibration Drive/<b>Mires</b> cal\xE9/\xC9t\xE9 & 26");
    ClickNode(QString::fromLatin1("\xC9t\xE9 & 26"));
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Calib +
                                                  "NIV\xC9"
                                                  "E\\\xC9T\xC9"
                                                  "26\\");
    EXPECT_EQ(Items(screen, "lsvFiles"), (Texts{"MIRE\xC9.CAL"}));
    ClickItem(screen, "lsvFiles", "MIRE\xC9.CAL");
    EXPECT_EQ(TextOf(screen, "lblFile"), "MIRE\xC9.CAL");
}

TEST_F(FrmCalibTree, HoldsSixteenTypesOfSixteenEpochs) {
    PutFullStructure();
    std::vector<std::string> lines;
    for (int type = 1; type <= 16; ++type)
        for (int epoch = 1; epoch <= 16; ++epoch)
            lines.push_back(" *       CALIB     " + ("TYPE" + std::to_string(type) + "      ").substr(0, 10) +
                            "EPOCH" + std::to_string(epoch));
    PutLines(Registry, lines);
    Open();
    EXPECT_EQ(Captions().size(), 1U + 16U + 256U);
}

TEST_F(FrmCalibTree, TabsFromTheTreeToTheFilesAndTheButtons) {
    frmCalibTree& screen = Open();
    for (const char* next : {"lsvFiles", "cmdAdd", "cmdDelete", "cmdHome"}) {
        QTest::keyClick(screen.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(screen.focusWidget()->objectName().toStdString(), next);
    }
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "");
}

}  // namespace Dorvane::Testing
