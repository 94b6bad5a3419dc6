// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QTabWidget>

#include "core/Drives.h"
#include "tests/programs/EditStructuresTest.h"

namespace Dorvane::Testing {

TEST_F(EditStructures, ShowsSystemsAndTheGroupsOfTheChosenOne) {
    OpenChoice();
    EXPECT_EQ(TextOf(*Form), "Edit Data Structures");
    EXPECT_EQ(TextOf(*Form, "lblFile"), Init + "CHOICES.SYS");
    EXPECT_EQ(Lines("tblSystems"), (Texts{"DAM|Data|Upper Dam", "CALIB|Other|Calibrations"}));
    EXPECT_EQ(Lines("tblLocations"), (Texts{"NORTH|North", "SOUTH|South"}));
    EXPECT_EQ(Lines("tblTypes"), (Texts{"LEVEL|Levelling"}));
    EXPECT_EQ(Lines("tblEpochs"), (Texts{"SRV01|Survey 1"}));
    EXPECT_FALSE(IsShown(*Form, "lblProblem"));
    ChooseCell("tblSystems", 1);
    EXPECT_FALSE(IsEnabled(*Form, "sstabGroups"));
    EXPECT_EQ(TextOf(*Form, "lblNote"), "Only a data system has locations, data types and epochs.");
    EXPECT_TRUE(Lines("tblLocations").empty());
    ChooseCell("tblSystems", 0);
    EXPECT_TRUE(IsEnabled(*Form, "sstabGroups"));
    EXPECT_EQ(Lines("tblLocations").size(), 2U);
}

TEST_F(EditStructures, ChangesNothingWhenNothingWasTyped) {
    OpenChoice();
    ChooseCell("tblSystems", 1);
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "DAM.STR"), Dam);
    EXPECT_EQ(FileContent(Init + "CHOICES.SYS"), "DAM      1 Upper Dam\r\nCALIB    2 Calibrations\r\n");
}

TEST_F(EditStructures, AddsALocationInUpperCaseAndKeepsItOverAnotherChoice) {
    OpenChoice();
    ChooseCell("tblLocations", 0);
    Press("tblLocations", "cmdAdd");
    Finish("tblLocations", "cr\xEAte");
    TypeInto("tblLocations", 1, 1, "Cr\xEAte du barrage, longue");
    ChooseCell("tblSystems", 1);
    ChooseCell("tblSystems", 0);
    EXPECT_EQ(Lines("tblLocations"),
              (Texts{"NORTH|North", "CR\xCATE|Cr\xEAte du barrage, lo", "SOUTH|South"}));
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "DAM.STR"),
              "DAM      Upper Dam\r\nCODE     DESCRIPTION\r\nNORTH    North\r\nCR\xCATE    Cr\xEAte du "
              "barrage, lo\r\n"
              "SOUTH    South\r\n\r\nLEVEL    Levelling\r\n\r\nSRV01    Survey 1\r\n");
}

TEST_F(EditStructures, TakesWhatIsStillBeingTyped) {
    OpenChoice();
    ChooseCell("tblLocations", 0, 1);
    QTableWidget& grid = Table("tblLocations").Table();
    grid.editItem(grid.item(0, 1));
    QTest::keyClicks(grid.findChild<QLineEdit*>(), " bank");
    Control<QPushButton>(*Form, "cmdOK").click();
    HandleEvents();
    EXPECT_TRUE(Form.isNull());
    EXPECT_NE(FileContent(Init + "DAM.STR").find("NORTH    bank\r\n"), std::string::npos)
        << FileContent(Init + "DAM.STR");
}

TEST_F(EditStructures, RemovesAndMovesLines) {
    OpenChoice();
    ChooseCell("tblLocations", 1);
    Press("tblLocations", "cmdUp");
    EXPECT_EQ(Lines("tblLocations"), (Texts{"SOUTH|South", "NORTH|North"}));
    EXPECT_FALSE(IsEnabled(Table("tblLocations"), "cmdUp"));
    Press("tblLocations", "cmdDown");
    EXPECT_EQ(Lines("tblLocations"), (Texts{"NORTH|North", "SOUTH|South"}));
    Press("tblLocations", "cmdRemove");
    EXPECT_EQ(Lines("tblLocations"), (Texts{"NORTH|North"}));
    Table("tblLocations").Table().setFocus();
    QTest::keyClick(&Table("tblLocations").Table(), Qt::Key_Delete);
    HandleEvents();
    EXPECT_TRUE(Lines("tblLocations").empty());
}

TEST_F(EditStructures, AddsASystemWithItsOwnGroups) {
    OpenChoice();
    Press("tblSystems", "cmdAdd");
    Finish("tblSystems", "weir");
    ChooseCell("tblSystems", 1);
    EXPECT_TRUE(IsEnabled(*Form, "sstabGroups"));
    EXPECT_TRUE(Lines("tblLocations").empty());
    Press("tblLocations", "cmdAdd");
    Finish("tblLocations", "crest");
    TypeInto("tblLocations", 0, 1, "Crest");
    TypeInto("tblSystems", 1, 2, "The weir");
    ChooseCell("tblSystems", 1);
    Press("tblSystems", "cmdDown");
    ChooseCell("tblSystems", 0);
    EXPECT_EQ(Lines("tblLocations").size(), 2U);
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "CHOICES.SYS"),
              "DAM      1 Upper Dam\r\nCALIB    2 Calibrations\r\nWEIR     1 The weir\r\n");
    EXPECT_EQ(FileContent(Init + "WEIR.STR"),
              "WEIR     The weir\r\nCODE     DESCRIPTION\r\nCREST    Crest\r\n\r\n\r\n");
    EXPECT_EQ(FileContent(Init + "DAM.STR"), Dam);
}

TEST_F(EditStructures, DoesNotRenameASystemThatHasFiles) {
    OpenChoice();
    const QTableWidgetItem* name = Table("tblSystems").Table().item(0, 0);
    EXPECT_FALSE(name->flags() & Qt::ItemIsEditable);
}

TEST_F(EditStructures, SaysWhatIsWrongAndStays) {
    OpenChoice();
    TypeInto("tblEpochs", 0, 0, "A/B");
    Form->findChild<QTabWidget*>("sstabGroups")->setCurrentIndex(2);
    Desktop.ExpectMessage("Edit Data Structures",
                          "DAM, Epochs: A/B has a character that a folder's name cannot have.");
    Click(*Form, "cmdOK");
    EXPECT_FALSE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "DAM.STR"), Dam);
}

TEST_F(EditStructures, ShowsAStructureItDoesNotUnderstandWithoutWritingIt) {
    const std::string odd = Dam + "A long, long line of an epoch that nobody knows\r\n";
    PutFile(Init + "DAM.STR", odd);
    OpenChoice();
    EXPECT_FALSE(IsEnabled(*Form, "sstabGroups"));
    EXPECT_EQ(TextOf(*Form, "lblNote"),
              "DAM.STR cannot be read fully and is not written: Line 9 has a character between name and "
              "description.");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "DAM.STR"), odd);
}

TEST_F(EditStructures, CannotSaveAListItDoesNotUnderstand) {
    PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam, the older of the two\r\n");
    OpenChoice();
    EXPECT_FALSE(IsEnabled(*Form, "cmdOK"));
    EXPECT_TRUE(IsShown(*Form, "lblProblem"));
    EXPECT_EQ(TextOf(*Form, "lblProblem"),
              "CHOICES.SYS cannot be read fully and is not written: Line 1 has text behind its description.");
    Click(*Form, "cmdCancel");
    EXPECT_TRUE(Form.isNull());
}

TEST_F(EditStructures, TellsAFolderThatIsGoneAndStays) {
    OpenChoice();
    Drives::RenameFile("D:\\TARVEX\\INIT", "D:\\TARVEX\\ELSEWHERE");
    TypeInto("tblLocations", 0, 1, "New");
    Desktop.ExpectMessage("Edit Data Structures",
                          Init + "DAM.STR was changed by another program in the meantime.");
    Click(*Form, "cmdOK");
    EXPECT_FALSE(Form.isNull());
}

TEST_F(EditStructures, AsksBeforeChangesAreLost) {
    const std::string question = "The changes are not saved.  Leave all the same?";
    const std::string former = FileContent(Init + "DAM.STR");
    OpenChoice();
    TypeInto("tblLocations", 0, 1, "New");
    Desktop.ExpectMessage("Edit Data Structures", question, Answer::No);
    Click(*Form, "cmdCancel");
    ASSERT_FALSE(Form.isNull());
    Desktop.ExpectMessage("Edit Data Structures", question, Answer::Yes);
    Click(*Form, "cmdCancel");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "DAM.STR"), former);
    OpenCalib();
    Control<QLineEdit>(*Form, "txtDescription").setText("Calib");
    Desktop.ExpectMessage("Edit Calibration Structures", question, Answer::Yes);
    Click(*Form, "cmdCancel");
    EXPECT_TRUE(Form.isNull());
}

TEST_F(EditStructures, MarksAFaultyEntryAndLeavesItAlone) {
    const std::string odd =
        "DAM      Upper Dam\r\nCODE\r\nNORTH\r\nSOUTH    South\r\n\r\nGNSS     Satellites\r\n"
        "\r\nE1       One\r\n";
    PutFile(Init + "DAM.STR", odd);
    OpenChoice();
    EXPECT_FALSE(Table("tblLocations").Table().item(0, 0)->icon().isNull());
    EXPECT_TRUE(Table("tblLocations").Table().item(1, 0)->icon().isNull());
    EXPECT_EQ(TextOf(Table("tblLocations"), "lblMark"),
              "NORTH has no description, so the tree would show it without a caption.");
    EXPECT_TRUE(Table("tblTypes").Table().item(0, 1)->toolTip().startsWith("GNSS is no data type"));
    EXPECT_TRUE(Table("tblEpochs").Table().item(0, 0)->toolTip().startsWith("E1 does not begin with SRV"));
    EXPECT_FALSE(Control<QTabWidget>(*Form, "sstabGroups").tabIcon(2).isNull());
    ChooseCell("tblSystems", 1);
    EXPECT_TRUE(Control<QTabWidget>(*Form, "sstabGroups").tabIcon(2).isNull());
    ChooseCell("tblSystems", 0);
    ChooseCell("tblLocations", 1);
    EXPECT_EQ(TextOf(Table("tblLocations"), "lblMark"), "");
    TypeInto("tblLocations", 1, 1, "Southern");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileLines(Init + "DAM.STR")[2], "NORTH");
    EXPECT_EQ(FileLines(Init + "DAM.STR")[3], "SOUTH    Southern");
}

TEST_F(EditStructures, MarksWhatIsTypedAtOnce) {
    OpenChoice();
    TypeInto("tblLocations", 0, 0, "a b");
    ChooseCell("tblLocations", 0);
    EXPECT_EQ(TextOf(Table("tblLocations"), "lblMark"),
              "A B has a character that a folder's name cannot have.");
    TypeInto("tblLocations", 0, 0, "north");
    EXPECT_TRUE(Table("tblLocations").Table().item(0, 0)->icon().isNull());
    EXPECT_FALSE(IsShown(Table("tblLocations"), "lblMark"));
    Press("tblSystems", "cmdAdd");
    Finish("tblSystems", "coord");
    ChooseCell("tblSystems", 1);
    EXPECT_EQ(TextOf(Table("tblSystems"), "lblMark"), "COORD would have the folder of Coord_path.");
}

TEST_F(EditStructures, RefusesToRemoveWhatAFolderUses) {
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\");
    OpenChoice();
    ChooseCell("tblLocations", 0);
    Desktop.ExpectMessage("Edit Data Structures",
                          "DAM, Locations: NORTH is in use and cannot be removed: D:\\TARVEX\\DAM\\NORTH\\ "
                          "exists.");
    Press("tblLocations", "cmdRemove");
    EXPECT_EQ(Lines("tblLocations").size(), 2U);
    ChooseCell("tblLocations", 1);
    Press("tblLocations", "cmdRemove");
    EXPECT_EQ(Lines("tblLocations").size(), 1U);
    ChooseCell("tblSystems", 0);
    Desktop.ExpectMessage("Edit Data Structures",
                          "Systems: DAM is in use and cannot be removed: D:\\TARVEX\\DAM\\ exists.");
    Press("tblSystems", "cmdRemove");
    EXPECT_EQ(Lines("tblSystems").size(), 2U);
    TypeInto("tblLocations", 0, 0, "north2");
    Desktop.ExpectMessage("Edit Data Structures",
                          "DAM, Locations: NORTH is in use and cannot be removed: D:\\TARVEX\\DAM\\NORTH\\ "
                          "exists.");
    Click(*Form, "cmdOK");
    EXPECT_FALSE(Form.isNull());
}

TEST_F(EditStructures, AsksBeforeTwoSystemsShareALocation) {
    OpenChoice();
    Press("tblSystems", "cmdAdd");
    Finish("tblSystems", "weir");
    TypeInto("tblSystems", 1, 2, "The weir");
    ChooseCell("tblSystems", 1);
    Press("tblLocations", "cmdAdd");
    Finish("tblLocations", "north");
    TypeInto("tblLocations", 0, 1, "North");
    const std::string shared =
        "NORTH is also a location of DAM, and both share the coordinate database D:\\TARVEX\\COORD\\NORTH\\.";
    ChooseCell("tblLocations", 0);
    EXPECT_EQ(TextOf(Table("tblLocations"), "lblMark"), shared);
    const std::string question = "WEIR, Locations: " + shared + "\r\n\r\nSave all the same?";
    Desktop.ExpectMessage("Edit Data Structures", question, Answer::No);
    Click(*Form, "cmdOK");
    ASSERT_FALSE(Form.isNull());
    Desktop.ExpectMessage("Edit Data Structures", question, Answer::Yes);
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileLines(Init + "WEIR.STR")[2], "NORTH    North");
}

TEST_F(EditStructures, OffersTheKindsAndTheDataTypesOfTheProfileAsLists) {
    OpenChoice();
    EXPECT_EQ(ListOf("tblSystems", 0, 1), (Texts{"Data", "Other"}));
    Form->findChild<QTabWidget*>("sstabGroups")->setCurrentIndex(1);
    EXPECT_EQ(ListOf("tblTypes", 0, 0), (Texts{"TOTAL", "LEVEL"}));
    Press("tblTypes", "cmdAdd");
    EXPECT_EQ(ListOf("tblTypes", 1, 0), (Texts{"", "TOTAL", "LEVEL"}));
    auto* list = Table("tblTypes").Table().findChild<QComboBox*>("cmbField");
    QTest::keyClick(list, Qt::Key_T);
    QTest::keyClick(list, Qt::Key_Tab);
    QTest::keyClicks(Table("tblTypes").Table().findChild<QLineEdit*>(), "Total station");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileLines(Init + "DAM.STR")[6], "TOTAL    Total station");
}

TEST_F(EditStructures, ChangesTheKindOfASystemByItsList) {
    OpenChoice();
    ListOf("tblSystems", 0, 1);
    auto* list = Table("tblSystems").Table().findChild<QComboBox*>("cmbField");
    list->setCurrentIndex(1);
    emit list->activated(1);
    HandleEvents();
    EXPECT_EQ(Lines("tblSystems")[0], "DAM|Other|Upper Dam");
    EXPECT_FALSE(IsEnabled(*Form, "sstabGroups"));
    Click(*Form, "cmdOK");
    EXPECT_EQ(FileLines(Init + "CHOICES.SYS")[0], "DAM      0 Upper Dam");
    EXPECT_EQ(FileLines(Init + "CHOICES.SYS")[1], "CALIB    2 Calibrations");
}

TEST_F(EditStructures, DropsALineThatWasLeftBlankButNotASystemWithEntries) {
    OpenChoice();
    ChooseCell("tblLocations", 1);
    Press("tblLocations", "cmdAdd");
    ChooseCell("tblSystems", 0);
    Press("tblSystems", "cmdAdd");
    ChooseCell("tblSystems", 0);
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "DAM.STR"), Dam);
    EXPECT_EQ(FileLines(Init + "CHOICES.SYS").size(), 2U);
    OpenChoice();
    Press("tblSystems", "cmdAdd");
    ChooseCell("tblSystems", 1);
    Press("tblLocations", "cmdAdd");
    Finish("tblLocations", "crest");
    TypeInto("tblLocations", 0, 1, "Crest");
    Desktop.ExpectMessage("Edit Data Structures", "Systems: Line 2 has no name.");
    Click(*Form, "cmdOK");
    EXPECT_FALSE(Form.isNull());
}

}  // namespace Dorvane::Testing
