// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QSplitter>
#include <cstdio>

#include "core/widgets/Pictures.h"
#include "tests/datatree/DataTreeScreen.h"

namespace Dorvane::Testing {

TEST_F(DataTreeScreen, OpensAtTheTopWithoutALastPath) {
    File("TOP.TXT");
    frmTree& screen = Open(Browse, "");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "D:\\TARVEX\\");
    EXPECT_EQ(Chosen(), "D:\\TARVEX\\");
    EXPECT_TRUE(Items(screen, "lsvFiles").empty());
    EXPECT_TRUE(NodeNamed("Data Drive")->isExpanded());
    EXPECT_FALSE(NodeNamed("Main dam")->isExpanded());
    EXPECT_EQ(screen.focusWidget(), &TheTree());
}

TEST_F(DataTreeScreen, ListsTheTopFolderWhenItsNodeIsClickedThoughItIsChosen) {
    File("TOP.TXT");
    frmTree& screen = Open(Browse, "");
    ClickNodeNamed("Data Drive");
    EXPECT_EQ(Items(screen, "lsvFiles"), (Names{"TOP.TXT"}));
}

TEST_F(DataTreeScreen, GoesToTheLastPath) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(TextOf(screen, "lblTempDirectory"), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_FALSE(IsShown(screen, "lblTempDirectory"));
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(Chosen(), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(Items(screen, "lsvFiles"), (Names{"DATA.001", "LINE.LVL"}));
    EXPECT_EQ(TextOf(screen, "lblCreationDate"), "11-20-26");
    EXPECT_EQ(TextOf(screen, "lblHistory"), "Use of LEVEL SRV1");
    EXPECT_TRUE(NodeNamed("Main dam")->isExpanded());
    EXPECT_FALSE(NodeNamed("At SOUTH")->isExpanded());
    EXPECT_TRUE(TheTree().viewport()->rect().contains(
        TheTree().visualItemRect(TheTree().selectedItems().at(0)).center()));
}

TEST_F(DataTreeScreen, TakesALastPathWithoutItsBackslash) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH"));
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\NORTH\\"));
    EXPECT_EQ(Chosen(), Data("DAM\\NORTH\\"));
}

TEST_F(DataTreeScreen, OpensTheNearestAncestorOfAFolderThatIsNotInTheTree) {
    Open(Browse, Data("DAM\\NORTH\\GONE\\SRV9\\"));
    EXPECT_EQ(Chosen(), Data("DAM\\NORTH\\"));
    EXPECT_TRUE(NodeNamed("At NORTH")->isExpanded());
}

TEST_F(DataTreeScreen, SelectsNothingForAFolderOutsideTheTree) {
    frmTree& screen = Open(Browse, "E:\\ELSEWHERE\\");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "E:\\ELSEWHERE\\");
    EXPECT_EQ(Chosen(), "");
    Press(TheTree(), Qt::Key_Down);
    EXPECT_EQ(Chosen(), Data("DAM\\"));
}

TEST_F(DataTreeScreen, StandsALastPathOfAnyText) {
    for (const std::string& path : {std::string("D:"), std::string("\\\\\\"), std::string("::|<>*?/"),
                                    std::string(5000, 'x'), std::string("D:\\TARVEX\\\\DAM\\\\")}) {
        frmTree& screen = Open(Browse, path);
        EXPECT_TRUE(screen.isVisible());
    }
}

TEST_F(DataTreeScreen, ListsTheFolderOfAClickedNode) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV2\\"));
    EXPECT_TRUE(Items(screen, "lsvFiles").empty());
    ClickNodeNamed("LEVEL SRV1");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(Items(screen, "lsvFiles"), (Names{"DATA.001", "LINE.LVL"}));
}

TEST_F(DataTreeScreen, TakesAMoveByTheKeyboardForOneClick) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV2\\"));
    Names clicked;
    QObject::connect(&TheTree(), &DirectoryTree::NodeClicked, &screen,
                     [&](const std::string& key) { clicked.push_back(key); });
    Press(TheTree(), Qt::Key_Up);
    EXPECT_EQ(clicked, (Names{Data("DAM\\NORTH\\LEVEL\\SRV1\\")}));
    EXPECT_EQ(Items(screen, "lsvFiles"), (Names{"DATA.001", "LINE.LVL"}));
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
}

TEST_F(DataTreeScreen, TakesAClickByTheMouseForOneClick) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV2\\"));
    Names clicked;
    QObject::connect(&TheTree(), &DirectoryTree::NodeClicked, &screen,
                     [&](const std::string& key) { clicked.push_back(key); });
    ClickNodeNamed("LEVEL SRV1");
    EXPECT_EQ(clicked, (Names{Data("DAM\\NORTH\\LEVEL\\SRV1\\")}));
    File("DAM\\NORTH\\LEVEL\\SRV1\\NEW.RES");
    ClickNodeNamed("LEVEL SRV1");
    EXPECT_EQ(clicked.size(), 2u);
    EXPECT_EQ(Items(screen, "lsvFiles"), (Names{"DATA.001", "LINE.LVL", "NEW.RES"}));
}

TEST_F(DataTreeScreen, ExpandsANodeByItsArrowWithoutAClick) {
    frmTree& screen = Open(Browse, Data("DAM\\"));
    int clicks = 0;
    QObject::connect(&TheTree(), &DirectoryTree::NodeClicked, &screen, [&] { ++clicks; });
    const QRect place = TheTree().visualItemRect(NodeNamed("Main dam"));
    const bool before = NodeNamed("Main dam")->isExpanded();
    QTest::mouseClick(TheTree().viewport(), Qt::LeftButton, {},
                      {place.left() - TheTree().indentation() / 2, place.center().y()});
    HandleEvents();
    EXPECT_NE(NodeNamed("Main dam")->isExpanded(), before);
    EXPECT_EQ(clicks, 0);
}

TEST_F(DataTreeScreen, KeepsTheFolderChosenWhateverKeysAreHeld) {
    Open(Browse, Data("DAM\\"));
    QTest::mouseClick(TheTree().viewport(), Qt::LeftButton, Qt::ControlModifier,
                      TheTree().visualItemRect(NodeNamed("Main dam")).center());
    HandleEvents();
    EXPECT_EQ(Chosen(), Data("DAM\\"));
}

TEST_F(DataTreeScreen, ClearsDateAndHistoryForANodeWithoutFiles) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    ClickNodeNamed("LEVEL SRV2");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\NORTH\\LEVEL\\SRV2\\"));
    EXPECT_EQ(TextOf(screen, "lblCreationDate"), "");
    EXPECT_EQ(TextOf(screen, "lblHistory"), "");
}

TEST_F(DataTreeScreen, KeepsDateAndHistoryForANodeWithFilesButWithoutARecord) {
    File("DAM\\NORTH\\NOTE.TXT");
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    ClickNodeNamed("At NORTH");
    EXPECT_EQ(Items(screen, "lsvFiles"), (Names{"NOTE.TXT"}));
    EXPECT_EQ(TextOf(screen, "lblCreationDate"), "11-20-26");
    EXPECT_EQ(TextOf(screen, "lblHistory"), "Use of LEVEL SRV1");
}

TEST_F(DataTreeScreen, ShowsTheKindOfAFileAsItsIcon) {
    Open(Browse, Data("DAM\\NORTH\\DIST\\SRV1\\"));
    EXPECT_EQ(IconOf("DATA.001"), LoadPicture("file_dist.svg").pixmap(16, 16).toImage());
    Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(IconOf("DATA.001"), LoadPicture("file_form.svg").pixmap(16, 16).toImage());
    EXPECT_EQ(IconOf("LINE.LVL"), LoadPicture("file_level.svg").pixmap(16, 16).toImage());
}

TEST_F(DataTreeScreen, ShowsAClosedAndAnOpenFolder) {
    Open(Browse);
    const QIcon icon = NodeNamed("Data Drive")->icon(0);
    EXPECT_EQ(icon.pixmap(QSize(16, 16), QIcon::Normal, QIcon::Off).toImage(),
              LoadPicture("clsfolder.svg").pixmap(16, 16).toImage());
    EXPECT_EQ(icon.pixmap(QSize(16, 16), QIcon::Normal, QIcon::On).toImage(),
              LoadPicture("opnfolder.svg").pixmap(16, 16).toImage());
}

TEST_F(DataTreeScreen, ReportsAMissingPictureOnceAndOpens) {
    Drives::DeleteFile("P:\\DORVANE\\graphics\\file_level.svg");
    for (int i = 0; i < 5; ++i)
        File("DAM\\NORTH\\LEVEL\\SRV1\\LINE" + std::to_string(i) + ".LVL");
    Desk.ExpectMessageTitled("Program Error");
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_NE(Desk.Shown.at(0).Text.find("Source : Dorvane-frmTree-LoadForm"), std::string::npos);
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(Items(screen, "lsvFiles").size(), 7u);
}

TEST_F(DataTreeScreen, SelectsAFileByTheKeyboard) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    auto& list = Control<QListWidget>(screen, "lsvFiles");
    list.setFocus();
    Press(list, Qt::Key_Down);
    EXPECT_EQ(TextOf(screen, "lblFile"), FromScreen(list.selectedItems().at(0)->text()));
    EXPECT_TRUE(IsEnabled(screen, "cmdEdit"));
}

TEST_F(DataTreeScreen, ShowsNamesAsTheyStandAndGoesBackToTheDiskWithThem) {
    Global().PathRecords.Clear();
    Register("NORTH", "LEVEL", "SRV2");
    Register("NORTH", "LEVEL", "SRV2", "R&D <b>\xE9t\xE9</b>");
    File("DAM\\NORTH\\LEVEL\\SRV2\\A&B M\xE9t\xE9o.txt", "weather\r\n");
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV2\\"));
    ASSERT_NE(NodeNamed("R&D <b>\xE9t\xE9</b>"), nullptr);
    EXPECT_EQ(Items(screen, "lsvFiles"), (Names{"A&B M\xC9T\xC9O.TXT"}));
    ClickItem(screen, "lsvFiles", "A&B M\xC9T\xC9O.TXT");
    EXPECT_EQ(TextOf(screen, "lblFile"), "A&B M\xC9T\xC9O.TXT");
    EXPECT_EQ(Control<QLabel>(screen, "lblFile").textFormat(), Qt::PlainText);
    Desk.ExpectFile("Copy File To", "C:\\TARVEX\\TEMP\\\xE9.txt");
    Click(screen, "cmdCopy");
    EXPECT_EQ(FileContent("C:\\TARVEX\\TEMP\\\xE9.txt"), "weather\r\n");
    EXPECT_EQ(NodeNamed("R&D <b>\xE9t\xE9</b>")->toolTip(0),
              ToScreen("<span>D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV2\\R&amp;D "
                       "&lt;b&gt;\xE9t\xE9&lt;/b&gt;\\</span>"));
}

TEST_F(DataTreeScreen, ListsNothingForAFolderThatVanishesWhileItIsShown) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    for (const char* file : {"LINE.LVL", "DATA.001"})
        Drives::DeleteFile(Data("DAM\\NORTH\\LEVEL\\SRV1\\") + file);
    ASSERT_EQ(std::remove(Drives::HostPath(Data("DAM\\NORTH\\LEVEL\\SRV1")).c_str()), 0);
    ClickNodeNamed("LEVEL SRV1");
    EXPECT_TRUE(Items(screen, "lsvFiles").empty());
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    ClickNodeNamed("LEVEL SRV2");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), Data("DAM\\NORTH\\LEVEL\\SRV2\\"));
}

TEST_F(DataTreeScreen, ShowsATreeWithoutFoldersAndAnEmptyCaption) {
    Global().PathRecords.Clear();
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\"));
    EXPECT_EQ(TheTree().topLevelItemCount(), 1);
    EXPECT_EQ(TextOf(screen, "sbrTreePanel1"), "No data folders are registered");
    Global().PathRecords.Add({"DAM", "", "NORTH", "", "LEVEL", "", "SRV1", "", "", "", ""});
    Open(Browse, Data("DAM\\NORTH\\"));
    EXPECT_EQ(Chosen(), Data("DAM\\NORTH\\"));
    EXPECT_EQ(TheTree().selectedItems().at(0)->text(0), "");
}

TEST_F(DataTreeScreen, CountsTheFilesOfTheFolder) {
    frmTree& screen = Open(Browse, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(TextOf(screen, "sbrTreePanel1"), "2 files");
    ClickNodeNamed("LEVEL SRV2");
    EXPECT_EQ(TextOf(screen, "sbrTreePanel1"), "No files");
}

TEST_F(DataTreeScreen, RemembersTheSplitter) {
    frmTree& screen = Open(Browse);
    auto& splitter = Control<QSplitter>(screen, "splTree");
    const int whole = splitter.sizes().at(0) + splitter.sizes().at(1);
    splitter.setSizes({whole / 4, whole - whole / 4});
    const QList<int> left = splitter.sizes();
    Click(screen, "cmdHome");
    EXPECT_EQ(Control<QSplitter>(Open(Browse), "splTree").sizes(), left);
}

}  // namespace Dorvane::Testing
