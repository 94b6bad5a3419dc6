// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include "core/basGeneral.h"
#include "reduction/ParamFile.h"
#include "reduction/ReductionRun.h"
#include "tests/reduction/ReductionSite.h"

namespace Dorvane::Testing {
namespace {

struct ReductionFaults : ReductionSite {
    ReductionFaults() {
        DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV", "LEV_Name=L",
                         "LEV_Reduce=p.exe one.res two.res", "LEV_Param=angle run.par"});
        Put(Index, IndexHead + IndexLine);
        Put("ONE.RES", "old");
    }
    ReduceState State;
};

TEST_F(ReductionFaults, AFullDiskKeepsTheFormerParameterFileAndRunsNothing) {
    PutFile("P:\\DORVANE\\Programs\\P.EXE", "x");
    ASSERT_TRUE(SetupReduceTabs(Folder, State));
    OnSmallDisk("C:\\TARVEX\\PARAM\\", 16, [&] {
        ScriptedDesktop desktop;
        PutFile("C:\\TARVEX\\PARAM\\RUN.PAR", "former");
        PutFile("C:\\TARVEX\\PARAM\\FILL", std::string(4096, 'f'));
        try {
            PutFile("C:\\TARVEX\\PARAM\\FILL.2", std::string(4096, 'f'));
            PutFile("C:\\TARVEX\\PARAM\\FILL.3", std::string(4096, 'f'));
        } catch (const RunTimeError&) {
            // full already
        }
        desktop.ExpectMessage(
            "Program Error",
            "Error : 61\r\n\r\nDisk is full. Continue?\r\n\r\nSource : Dorvane-basReduce-WriteParamFile",
            Answer::No);
        RunReduction(State, 1);
        EXPECT_EQ(FileContent("C:\\TARVEX\\PARAM\\RUN.PAR"), "former");
        EXPECT_FALSE(FileExists(Folder + "ONE.RES"));
        EXPECT_TRUE(desktop.Started.empty());
    });
}

TEST_F(ReductionFaults, AReadOnlyParamPathIsReportedAndTheResultsAreGone) {
    PutFile("P:\\DORVANE\\Programs\\P.EXE", "x");
    ASSERT_TRUE(SetupReduceTabs(Folder, State));
    std::filesystem::permissions(Drives::HostPath(Folder), std::filesystem::perms(0777));
    AsNobody([&] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        RunReduction(State, 1);
        EXPECT_TRUE(Tells(desktop.Shown[0], "Source : Dorvane-basReduce-WriteParamFile"));
        EXPECT_FALSE(FileExists(Folder + "ONE.RES"));
        EXPECT_TRUE(desktop.Started.empty());
    });
}

TEST_F(ReductionFaults, AParameterFileThatCannotBeOpenedIsToldBeforeHeightsAreCopied) {
    PutFile("P:\\DORVANE\\samples\\temp\\HEIGHTS.DAT", "sample");
    std::filesystem::permissions(Drives::HostPath(Folder), std::filesystem::perms(0777));
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        EXPECT_FALSE(WriteParamFile(Folder, {"DISTANCE", "RUN.PAR", "P3", "P4"}, {"E", "R2", "R3", "R4"},
                                    Index, "STAFF", "none"));
        EXPECT_FALSE(FileExists(Folder + "HEIGHTS.DAT"));
    });
}

TEST_F(ReductionFaults, AnEmptyParamPathLeavesTheOldResultsDeleted) {
    ASSERT_TRUE(SetupReduceTabs(Folder, State));
    Global().Param_path = "";
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    RunReduction(State, 1);
    EXPECT_FALSE(FileExists(Folder + "ONE.RES"));
    EXPECT_TRUE(Desktop.Started.empty());
}

TEST_F(ReductionFaults, AResultThatCannotBeDeletedEndsTheRun) {
    PutFile("P:\\DORVANE\\Programs\\P.EXE", "x");
    ASSERT_TRUE(SetupReduceTabs(Folder, State));
    AsNobody([&] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        RunReduction(State, 1);
        EXPECT_TRUE(Tells(desktop.Shown[0], "Source : Dorvane-frmReduce-cmdReduce_Click"));
        EXPECT_EQ(FileContent(Folder + "ONE.RES"), "old");
        EXPECT_TRUE(desktop.Started.empty());
    });
}

TEST_F(ReductionFaults, AVanishedFolderShowsNoDataAndNoResults) {
    ASSERT_TRUE(SetupReduceTabs(Folder, State));
    std::filesystem::remove_all(Drives::HostPath(Folder));
    ReduceState again;
    ASSERT_TRUE(SetupReduceTabs(Folder, again));
    EXPECT_EQ(again.Tabs[1].Data.Tag, "0");
    EXPECT_EQ(again.Tabs[1].Reduction.Picture.Tag, "0");
}

TEST_F(ReductionFaults, AFirstFileStampedAtMidnightIsReportedAndShowsNothing) {
    PutFile(Folder + "A.LEV", "x");
    SetTimeStamp(Folder + "A.LEV", {2026, 3, 7, 0, 0, 0});
    StatePicture picture;
    Desktop.ExpectMessage("Program Error",
                          "Error : 5\r\n\r\nDescription : Invalid procedure call or argument\r\n\r\nSource : "
                          "Dorvane-basTarvex-GetFiles");
    DataIconSetup(Folder, "LEV", "", picture);
    EXPECT_EQ(picture.Tag, "0");
}

TEST_F(ReductionFaults, AStampThatIsNoMomentIsReportedAndKeepsThePicture) {
    Put("ONE.RES", "x");
    PutFile(Folder + "Z.LEV", "x");
    SetTimeStamp(Folder + "Z.LEV", {2026, 11, 20, 0, 0, 0});  // split where the shorter stamp before it was
    ReductionState state;
    state.Picture = {"QUESTION.ICO", "2"};
    Desktop.ExpectMessageTitled("Program Error");
    ReduceIconSetup(Folder, state, "P.EXE ONE.RES", "LEV", "");
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 13"));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Source : Dorvane-basReduce-ReduceIconSetup"));
    EXPECT_EQ(state.Picture.Tag, "2");
}

}  // namespace
}  // namespace Dorvane::Testing
