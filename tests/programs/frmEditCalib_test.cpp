// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/programs/EditStructuresTest.h"

namespace Dorvane::Testing {

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

}  // namespace Dorvane::Testing
