// SPDX-License-Identifier: GPL-3.0-or-later
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
    EXPECT_EQ(Lines("tblSystems"), (Texts{"DAM|1|Upper Dam", "CALIB||Calibrations"}));
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
    EXPECT_TRUE(IsEnabled(*Form, "sstabGroups"));
    EXPECT_TRUE(Lines("tblLocations").empty());
    Press("tblLocations", "cmdAdd");
    Finish("tblLocations", "crest");
    Press("tblSystems", "cmdDown");
    ChooseCell("tblSystems", 0);
    EXPECT_EQ(Lines("tblLocations").size(), 2U);
    Click(*Form, "cmdOK");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Init + "CHOICES.SYS"),
              "DAM      1 Upper Dam\r\nCALIB    2 Calibrations\r\nWEIR     1\r\n");
    EXPECT_EQ(FileContent(Init + "WEIR.STR"), "WEIR\r\nCODE     DESCRIPTION\r\nCREST\r\n\r\n\r\n");
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
    TypeInto("tblTypes", 0, 0, "con");
    Desktop.ExpectMessage("Edit Calibration Structures", "Calibration types: CON is the name of a device.");
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
