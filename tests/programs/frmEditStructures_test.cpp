// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include "core/Drives.h"
#include "core/widgets/ScreenText.h"
#include "programs/editors/EntryTable.h"
#include "programs/editors/frmEditBias.h"
#include "programs/editors/frmEditCalib.h"
#include "programs/editors/frmEditChoice.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

using Texts = std::vector<std::string>;
const std::string Init = "D:\\TARVEX\\INIT\\";
const std::string Dam =
    "DAM      Upper Dam\r\nCODE     DESCRIPTION\r\nNORTH    North\r\nSOUTH    South\r\n\r\nLEVEL    "
    "Levelling\r\n"
    "\r\nSRV01    Survey 1\r\n";

struct EditStructures : testing::Test {
    EditStructures() {
        Site.LayOut();
        PutLines("C:\\WINDOWS\\dv_datatype.ini",
                 {"[Data Types]", "Epochs=TOTAL LEVEL", "[LEVEL]", "Extension=LEV", "LEV_Calib=STAFF"});
        PutFile(Init + "CHOICES.SYS", "DAM      1 Upper Dam\r\nCALIB    2 Calibrations\r\n");
        PutFile(Init + "DAM.STR", Dam);
        PutFile(Init + "CALIB.STR",
                "CALIB    Calibrations\r\nCODE\r\nSTAFF    Staffs\r\n\r\nC2601    January\r\n");
    }
    ~EditStructures() override {
        if (!Form.isNull())
            Form->Unload();
        HandleEvents();
    }

    void OpenChoice() { Show(new frmEditChoice(Init)); }
    void OpenCalib() { Show(new frmEditCalib(Init, "D:\\TARVEX\\CALIB\\")); }
    void Show(ScreenDialog* form) {
        Form = form;
        Form->show();
        HandleEvents();
    }
    EntryTable& Table(const char* name) { return Control<EntryTable>(*Form, name); }

    /// The lines of a table, the fields with "|" between them.
    Texts Lines(const char* name) {
        Texts lines;
        for (const EntryTable::Line& line : Table(name).Lines()) {
            std::string text;
            for (const std::string& field : line.Texts)
                text += (&field == line.Texts.data() ? "" : "|") + field;
            lines.push_back(text);
        }
        return lines;
    }
    void ChooseCell(const char* name, int row, int column = 0) {
        QTableWidget& grid = Table(name).Table();
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {},
                          grid.visualItemRect(grid.item(row, column)).center());
        HandleEvents();
    }
    /// Types into a cell, as an operator would, and leaves it by Enter.
    void TypeInto(const char* name, int row, int column, const std::string& text) {
        ChooseCell(name, row, column);
        QTableWidget& grid = Table(name).Table();
        grid.editItem(grid.item(row, column));
        Finish(name, text);
    }
    void Finish(const char* name, const std::string& text) {
        auto* edit = Table(name).Table().findChild<QLineEdit*>();
        ASSERT_NE(edit, nullptr);
        edit->selectAll();
        edit->insert(ToScreen(text));
        QTest::keyClick(edit, Qt::Key_Return);
        HandleEvents();
    }
    /// Opens a cell and reads the list that it offers.
    Texts ListOf(const char* name, int row, int column) {
        QTableWidget& grid = Table(name).Table();
        grid.setCurrentCell(row, column);
        auto* list = grid.findChild<QComboBox*>("cmbField");
        if (list == nullptr) {
            grid.editItem(grid.item(row, column));
            list = grid.findChild<QComboBox*>("cmbField");
        }
        Texts texts;
        for (int i = 0; list != nullptr && i < list->count(); ++i)
            texts.push_back(FromScreen(list->itemText(i)));
        return texts;
    }
    void Press(const char* name, const char* button) {
        auto& control = Control<QPushButton>(Table(name), button);
        ASSERT_TRUE(control.isEnabled()) << button;
        QTest::mouseClick(&control, Qt::LeftButton);
        HandleEvents();
    }

    TestSite Site;
    ScriptedDesktop Desktop;
    QPointer<ScreenDialog> Form;
};

}  // namespace

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

TEST_F(EditStructures, EditsTheCalibrationStructure) {
    OpenCalib();
    EXPECT_EQ(TextOf(*Form), "Edit Calibration Structures");
    EXPECT_EQ(TextOf(*Form, "lblFile"), Init + "CALIB.STR");
    EXPECT_EQ(Lines("tblTypes"), (Texts{"STAFF|Staffs"}));
    EXPECT_EQ(Lines("tblEpochs"), (Texts{"C2601|January"}));
    Press("tblEpochs", "cmdAdd");
    Finish("tblEpochs", "c2607");
    TypeInto("tblEpochs", 1, 1, "July");
    Control<QLineEdit>(*Form, "txtDescription").setText("Calib");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "CALIB.STR"),
              "CALIB    Calib\r\nCODE\r\nSTAFF    Staffs\r\n\r\nC2601    January\r\nC2607    July\r\n");
}

TEST_F(EditStructures, TakesNoMoreThanSixteenEntries) {
    std::string full = "CALIB\r\n\r\n\r\n";
    for (int i = 1; i <= 16; ++i)
        full += "E" + std::to_string(i) + "\r\n";
    PutFile(Init + "CALIB.STR", full);
    OpenCalib();
    EXPECT_FALSE(IsEnabled(Table("tblEpochs"), "cmdAdd"));
    EXPECT_TRUE(IsEnabled(Table("tblTypes"), "cmdAdd"));
    Click(*Form, "cmdCancel");
    EXPECT_EQ(FileContent(Init + "CALIB.STR"), full);
}

TEST_F(EditStructures, SaysWhatIsWrongWithTheCalibrationStructure) {
    OpenCalib();
    TypeInto("tblEpochs", 0, 0, "con");
    Desktop.ExpectMessage("Edit Calibration Structures", "Epochs: CON is the name of a device.");
    Click(*Form, "cmdOK");
    EXPECT_FALSE(Form.isNull());
}

TEST_F(EditStructures, CannotSaveACalibrationStructureItDoesNotUnderstand) {
    PutFile(Init + "CALIB.STR", "CALIB\r\n\r\nSTAFF\r\n");
    OpenCalib();
    EXPECT_FALSE(IsEnabled(*Form, "cmdOK"));
    EXPECT_FALSE(IsEnabled(*Form, "tblTypes"));
    EXPECT_EQ(TextOf(*Form, "lblProblem"),
              "The file cannot be read fully and is not written: The file ends before its last group.");
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

TEST_F(EditStructures, RefusesToRemoveACalibrationTypeWithFolders) {
    Global().Calib_path = "D:\\TARVEX\\CALIB\\";
    MakeFolders("D:\\TARVEX\\CALIB\\STAFF\\C2601\\");
    OpenCalib();
    Desktop.ExpectMessage("Edit Calibration Structures",
                          "Calibration types: STAFF is in use and cannot be removed: "
                          "D:\\TARVEX\\CALIB\\STAFF\\ exists.");
    Press("tblTypes", "cmdRemove");
    Desktop.ExpectMessage("Edit Calibration Structures",
                          "Epochs: C2601 is in use and cannot be removed: "
                          "D:\\TARVEX\\CALIB\\STAFF\\C2601\\ exists.");
    Press("tblEpochs", "cmdRemove");
    EXPECT_EQ(Lines("tblTypes").size(), 1U);
    EXPECT_EQ(ListOf("tblTypes", 0, 0), Texts{"STAFF"});
}

TEST_F(EditStructures, MarksACalibrationTypeThatNoProfileKnows) {
    OpenCalib();
    EXPECT_FALSE(IsShown(Table("tblTypes"), "lblMark"));
    Form->Unload();
    PutLines("C:\\WINDOWS\\dv_datatype.ini", {"[Data Types]", "Epochs=TOTAL"});
    OpenCalib();
    EXPECT_TRUE(TextOf(Table("tblTypes"), "lblMark").starts_with("STAFF is no calibration type"));
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
}

TEST_F(EditStructures, EditsTheBiasValuesInTheirPlaces) {
    PutFile(Init + "BIAS.STR", "; first\r\nSTDBIAS  0 0 0 0\r\n; second\r\nNORTH    1 2 3 4\r\nSHORT 1\r\n");
    Show(new frmEditBias(Init));
    EXPECT_EQ(TextOf(*Form), "Edit Bias Values");
    EXPECT_EQ(Lines("tblBias"), (Texts{"STDBIAS|0|0|0|0", "NORTH|1|2|3|4"}));
    TypeInto("tblBias", 0, 4, "0.25");
    ChooseCell("tblBias", 1);
    Press("tblBias", "cmdAdd");
    Finish("tblBias", "south");
    Desktop.ExpectMessage("Edit Bias Values", "SOUTH has a value that is no number: \"\".");
    Click(*Form, "cmdOK");
    ASSERT_FALSE(Form.isNull());
    for (int column = 1; column <= 4; ++column)
        TypeInto("tblBias", 2, column, std::to_string(column));
    ChooseCell("tblBias", 1);
    Press("tblBias", "cmdRemove");
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "BIAS.STR"),
              "; first\r\nSTDBIAS  0 0 0 0.25\r\n; second\r\nSHORT 1\r\nSOUTH    1 2 3 4\r\n");
}

TEST_F(EditStructures, CannotSaveBiasValuesThatAreNoText) {
    PutFile(Init + "BIAS.STR", "STDBIAS 0 0 0 0\x01\r\n");
    Show(new frmEditBias(Init));
    EXPECT_FALSE(IsEnabled(*Form, "cmdOK"));
    EXPECT_TRUE(IsShown(*Form, "lblProblem"));
}

}  // namespace Dorvane::Testing
