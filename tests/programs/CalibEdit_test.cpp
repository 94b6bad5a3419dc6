// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/Globals.h"
#include "programs/editors/CalibEdit.h"
#include "tests/programs/StructureSample.h"

// The structure file of the calibrations.
namespace Dorvane::Testing {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

}  // namespace

TEST_F(StructureEdit, ReadsAndWritesTheCalibrationStructure) {
    PutFile(Init + "CALIB.STR", Shipped("CALIB.STR"));
    CalibEdit calibration = OpenCalibStructure(Init, "D:\\TARVEX\\CALIB\\");
    EXPECT_EQ(SaveCalibStructure(calibration), "");
    EXPECT_EQ(FileContent(Init + "CALIB.STR"), Shipped("CALIB.STR"));
    calibration.Structure.Groups[1].push_back({"C2801", "January 2028"});
    EXPECT_THAT(CalibProblems(calibration), IsEmpty());
    EXPECT_EQ(SaveCalibStructure(calibration), "");
    EXPECT_EQ(FileContent(Init + "CALIB.STR"), Shipped("CALIB.STR") + "C2801    January 2028\r\n");
}

TEST_F(StructureEdit, NamesTheCalibrationStructureAfterItsFolder) {
    EXPECT_EQ(OpenCalibStructure(Init, "D:\\TARVEX\\Instr\\").File.Path, Init + "INSTR.STR");
    CalibEdit calibration = OpenCalibStructure(Init, "");
    EXPECT_EQ(calibration.File.Path, Init + "CALIB.STR");
    EXPECT_EQ(SaveCalibStructure(calibration), "");
    EXPECT_EQ(FileContent(Init + "CALIB.STR"), "CALIB    Calibrations\r\nCODE     DESCRIPTION\r\n\r\n");
}

TEST_F(StructureEdit, TellsWhatIsWrongWithTheCalibrationStructure) {
    CalibEdit calibration = OpenCalibStructure(Init, "D:\\CALIB\\");
    calibration.Structure.Groups = {{{"STAFF", "Staffs"}, {"ROD", "Rods"}}, {{"A B", "x"}, {"NONE", "y"}}};
    EXPECT_THAT(
        CalibProblems(calibration),
        ElementsAre("Calibration types: ROD is no calibration type: the keys <extension>_Calib in the "
                    "sections of the data types of C:\\WINDOWS\\dv_datatype.ini name EDM STAFF.",
                    "Epochs: A B has a character that a folder's name cannot have.",
                    "Epochs: NONE is the word for no calibration."));
    EXPECT_THAT(CalibNotes(calibration, 1),
                ElementsAre("A B has a character that a folder's name cannot have.",
                            "NONE is the word for no calibration."));
    PutFile(Init + "CALIB.STR", "CALIB\r\n\r\nSTAFF\r\n");
    EXPECT_THAT(CalibProblems(OpenCalibStructure(Init, "D:\\CALIB\\")),
                ElementsAre("CALIB: The file ends before its last group."));
}

TEST_F(StructureEdit, RefusesToRemoveACalibrationThatIsInUse) {
    Global().Calib_path = "D:\\TARVEX\\CALIB\\";
    PutFile(Init + "CALIB.STR", Shipped("CALIB.STR"));
    CalibEdit calibration = OpenCalibStructure(Init, Global().Calib_path);
    EXPECT_EQ(WhyCalibEntryStays(calibration, 0, "STAFF"), "");
    MakeFolders("D:\\TARVEX\\CALIB\\STAFF\\C2601\\");
    EXPECT_EQ(WhyCalibEntryStays(calibration, 0, "STAFF"),
              "Calibration types: STAFF is in use and cannot be removed: D:\\TARVEX\\CALIB\\STAFF\\ exists.");
    PutLines(Init + "CALIB.PTH", {" *       CALIB     EDM       C2607"});
    const std::string registered =
        "D:\\TARVEX\\CALIB\\EDM\\C2607\\ is registered in D:\\TARVEX\\INIT\\CALIB.PTH.";
    calibration.Structure.Groups = {{{"STAFF", "s"}}, {{"C2601", "a"}}};
    EXPECT_THAT(CalibProblems(calibration),
                ElementsAre("Calibration types: EDM is in use and cannot be removed: " + registered,
                            "Epochs: C2607 is in use and cannot be removed: " + registered));
    calibration.Structure.Groups[1].clear();
    EXPECT_THAT(CalibProblems(calibration),
                testing::Contains("Epochs: C2601 is in use and cannot be removed: "
                                  "D:\\TARVEX\\CALIB\\STAFF\\C2601\\ exists."));
}

}  // namespace Dorvane::Testing
