// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ParamFile.h"

#include "core/basGeneral.h"
#include "tests/reduction/ReductionSite.h"

namespace Dorvane::Testing {
namespace {

using Words = List1<std::string>;

const std::string File = "C:\\TARVEX\\PARAM\\RUN.PAR";
const std::string CommonLines = Folder + "\r\n" + Folder + "SRV12.IDX\r\n";
const std::string Calib = "D:\\TARVEX\\CALIB\\STAFF\\E2026\\";

struct WriteParamFileTest : ReductionSite {
    static bool Write(const Words& param, const Words& reduce) {
        return WriteParamFile(Folder, param, reduce, Index, "STAFF", "E2026");
    }
    static std::string OutOfRange() {
        return "Error : 9\r\n\r\nDescription : Subscript out of range\r\n\r\nSource : "
               "Dorvane-basReduce-WriteParamFile";
    }
};

TEST_F(WriteParamFileTest, WritesTwoResultsForAngle) {
    EXPECT_TRUE(Write({"ANGLE", "RUN.PAR"}, {"ANG.EXE", "REDIR.RES", "ZENITH.RES"}));
    EXPECT_EQ(FileContent(File), CommonLines + Folder + "REDIR.RES\r\n" + Folder + "ZENITH.RES\r\n");
}

TEST_F(WriteParamFileTest, WritesTenLinesForDistance) {
    Put("HEIGHTS.DAT", "own");
    EXPECT_TRUE(
        Write({"DISTANCE", "RUN.PAR", "P3.DAT", "P4.DAT"}, {"DIS.EXE", "R2.RES", "R3.RES", "R4.RES"}));
    EXPECT_EQ(FileContent(File), CommonLines +                                              //
                                     Folder + "P3.DAT\r\n" +                                //
                                     Folder + "BM.DAT\r\n" +                                //
                                     Calib + "P4.DAT\r\n" +                                 //
                                     Folder + "LEVRED.LST\r\n"                              //
                                     + Folder + "HEIGHTS.DAT\r\n" + Calib + "P3.DAT\r\n" +  //
                                     Folder + "R2.RES\r\n" +                                //
                                     Folder + "R3.RES\r\n" +                                //
                                     Folder + "R4.RES\r\n" +                                //
                                     Calib + "P4.DAT\r\n");
}

TEST_F(WriteParamFileTest, WritesSixLinesForLevel) {
    EXPECT_TRUE(Write({"LEVEL", "RUN.PAR", "P3.DAT", "P4.DAT"}, {"LEV.EXE", "R2.RES", "R3.RES"}));
    EXPECT_EQ(FileContent(File), CommonLines +                    //
                                     Folder + "R2.RES\r\n" +      //
                                     Folder + "R3.RES\r\n" +      //
                                     Folder + "INVLEVEL.IVL\r\n"  //
                                     + Calib + "\r\n" +           //
                                     Calib + "P3.DAT\r\n" +       //
                                     Calib + "P4.DAT\r\n");
}

TEST_F(WriteParamFileTest, WritesOneResultForTotalHoweverManyThereAre) {
    EXPECT_TRUE(Write({"TOTAL", "RUN.PAR"}, {"TOT.EXE", "R2.RES", "R3.RES", "R4.RES"}));
    EXPECT_EQ(FileContent(File), CommonLines + Folder + "R2.RES\r\n");
}

TEST_F(WriteParamFileTest, WritesTheCommonLinesAloneForAnyOtherKind) {
    EXPECT_TRUE(Write({"GRAVITY", "RUN.PAR"}, {}));
    EXPECT_EQ(FileContent(File), CommonLines);
}

TEST_F(WriteParamFileTest, NamesAFolderNoneForTheEpochNone) {
    EXPECT_TRUE(WriteParamFile(Folder, {"LEVEL", "RUN.PAR", "P3.DAT", "P4.DAT"},
                               {"LEV.EXE", "R2.RES", "R3.RES"}, Index, "STAFF", "none"));
    const std::vector<std::string> lines = FileLines(File);
    ASSERT_EQ(lines.size(), 8u);
    EXPECT_EQ(lines[5], "D:\\TARVEX\\CALIB\\STAFF\\none\\");
    EXPECT_EQ(lines[6], "D:\\TARVEX\\CALIB\\STAFF\\none\\P3.DAT");
    EXPECT_EQ(lines[7], "D:\\TARVEX\\CALIB\\STAFF\\none\\P4.DAT");
}

TEST_F(WriteParamFileTest, WritesTheFileAnewAtEveryRun) {
    PutFile(File, std::string(1000, 'x'));
    EXPECT_TRUE(Write({"TOTAL", "RUN.PAR"}, {"TOT.EXE", "R2.RES"}));
    EXPECT_EQ(FileContent(File), CommonLines + Folder + "R2.RES\r\n");
}

TEST_F(WriteParamFileTest, CopiesTheSampleHeightsForDistanceOnly) {
    PutFile("P:\\DORVANE\\samples\\temp\\HEIGHTS.DAT", "sample");
    Write({"LEVEL", "RUN.PAR", "P3", "P4"}, {"E", "R2", "R3"});
    EXPECT_FALSE(FileExists(Folder + "HEIGHTS.DAT"));
    EXPECT_TRUE(Write({"DISTANCE", "RUN.PAR", "P3", "P4"}, {"E", "R2", "R3", "R4"}));
    EXPECT_EQ(FileContent(Folder + "HEIGHTS.DAT"), "sample");
}

TEST_F(WriteParamFileTest, LeavesHeightsThatAreThere) {
    PutFile("P:\\DORVANE\\samples\\temp\\HEIGHTS.DAT", "sample");
    Put("HEIGHTS.DAT", "edited");
    EXPECT_TRUE(Write({"DISTANCE", "RUN.PAR", "P3", "P4"}, {"E", "R2", "R3", "R4"}));
    EXPECT_EQ(FileContent(Folder + "HEIGHTS.DAT"), "edited");
}

TEST_F(WriteParamFileTest, ReportsMissingSampleHeightsAndLeavesTheCommonLines) {
    MakeFolders("P:\\DORVANE\\samples\\temp\\");
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Write({"DISTANCE", "RUN.PAR", "P3", "P4"}, {"E", "R2", "R3", "R4"}));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 53"));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Source : Dorvane-basReduce-WriteParamFile"));
    EXPECT_EQ(FileContent(File), CommonLines);
}

TEST_F(WriteParamFileTest, LeavesTheLinesSoFarWhenAResultNameIsMissing) {
    Desktop.ExpectMessage("Program Error", OutOfRange());
    EXPECT_FALSE(Write({"ANGLE", "RUN.PAR"}, {"ANG.EXE", "REDIR.RES"}));
    EXPECT_EQ(FileContent(File), CommonLines + Folder + "REDIR.RES\r\n");
}

TEST_F(WriteParamFileTest, LeavesTheLinesSoFarWhenAnAuxiliaryNameIsMissing) {
    Desktop.ExpectMessage("Program Error", OutOfRange());
    EXPECT_FALSE(Write({"LEVEL", "RUN.PAR", "P3.DAT"}, {"LEV.EXE", "R2.RES", "R3.RES"}));
    EXPECT_EQ(FileContent(File), CommonLines + Folder + "R2.RES\r\n" + Folder + "R3.RES\r\n" + Folder +
                                     "INVLEVEL.IVL\r\n" + Calib + "\r\n" + Calib + "P3.DAT\r\n");
}

TEST_F(WriteParamFileTest, OpensNoFileWithoutItsName) {
    for (const Words& param : {Words{}, Words{"LEVEL"}}) {
        Desktop.ExpectMessage("Program Error", OutOfRange());
        EXPECT_FALSE(Write(param, {"LEV.EXE", "R2.RES", "R3.RES"}));
    }
    EXPECT_TRUE(AllFiles("C:\\TARVEX\\PARAM\\").empty());
}

TEST_F(WriteParamFileTest, ReportsAnEmptyParamPath) {
    Global().Param_path = "";
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : Dorvane-basReduce-WriteParamFile",
        Answer::Cancel);
    EXPECT_FALSE(Write({"TOTAL", "RUN.PAR"}, {"TOT.EXE", "R2.RES"}));
}

}  // namespace
}  // namespace Dorvane::Testing
