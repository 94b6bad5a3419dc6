// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/ReductionRun.h"

#include <filesystem>

#include "core/basGeneral.h"
#include "reduction/ReductionEnd.h"
#include "tests/reduction/ReductionSite.h"

namespace Dorvane::Testing {
namespace {

using Words = List1<std::string>;

struct RunReductionTest : ReductionSite {
    RunReductionTest() {
        Desktop.RunsPrograms = true;
        MakeFolders("P:\\DORVANE\\Programs\\");
        std::filesystem::copy_file(FAKERED, Drives::HostPath("P:\\DORVANE\\Programs\\FAKERED.EXE"));
        Configure("angle fake.par");
        Put(Index, IndexHead + IndexLine);
        Put("DAY1.LEV", "x");
    }
    void Configure(const std::string& param, const std::string& reduce = "fakered.exe one.res two.res") {
        DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV", "LEV_Name=Levelling",
                         "LEV_SrvIdx=TRUE", "LEV_Reduce=" + reduce, "LEV_Calib=STAFF",
                         param.empty() ? "" : "LEV_Param=" + param});
    }
    ReductionState& Reduced() {
        EXPECT_TRUE(SetupReduceTabs(Folder, State));
        RunReduction(State, 1);
        return State.Tabs[1].Reduction;
    }
    ReduceState State;
};

const std::string Result = "arguments: 0\r\n" + IndexLine;

TEST_F(RunReductionTest, RunsTheProgramAndShowsWhatItLeft) {
    const ReductionState& reduction = Reduced();
    EXPECT_EQ(Desktop.Started, std::vector<std::string>{"P:\\DORVANE\\Programs\\FAKERED.EXE"});
    EXPECT_EQ(FileContent(Folder + "ONE.RES"), Result);
    EXPECT_EQ(FileContent(Folder + "TWO.RES"), Result);
    EXPECT_EQ(reduction.Picture, (StatePicture{"Y.ICO", "1"}));
    EXPECT_EQ(reduction.ResultFiles, (Words{"ONE.RES", "TWO.RES"}));
    EXPECT_TRUE(reduction.CanEdit);
}

TEST_F(RunReductionTest, MakesTheDriveOfParamPathTheCurrentOne) {
    Drives::ChangeDrive('D');
    Reduced();
    EXPECT_EQ(Global().CurrentDrive, 'C');
}

TEST_F(RunReductionTest, TakesTheChosenEpoch) {
    PutLines("D:\\TARVEX\\INIT\\CALIB.PTH", {" *       CALIB     STAFF     E2026"});
    Configure("level fake.par p3.dat p4.dat");
    Desktop.RunsPrograms = false;
    Reduced();
    EXPECT_EQ(FileLines("C:\\TARVEX\\PARAM\\FAKE.PAR")[5], "D:\\TARVEX\\CALIB\\STAFF\\E2026\\");
    State.Tabs[1].Epoch = 1;
    RunReduction(State, 1);
    EXPECT_EQ(FileLines("C:\\TARVEX\\PARAM\\FAKE.PAR")[5], "D:\\TARVEX\\CALIB\\STAFF\\none\\");
}

TEST_F(RunReductionTest, DeletesTheOldResultsBeforeTheProgramRuns) {
    Put("ONE.RES", "old");
    Put("TWO.RES", "old");
    Put("OTHER.RES", "old");
    bool gone = false;
    Desktop.OnRun = [&](const std::string&) {
        gone = !FileExists(Folder + "ONE.RES") && !FileExists(Folder + "TWO.RES");
    };
    Reduced();
    EXPECT_TRUE(gone);
    EXPECT_EQ(FileContent(Folder + "ONE.RES"), Result);
    EXPECT_EQ(FileContent(Folder + "OTHER.RES"), "old");
}

TEST_F(RunReductionTest, ShowsTheResultsOfAProgramThatWritesOnlySome) {
    Put("ONLYONE.TXT", "");
    const ReductionState& reduction = Reduced();
    EXPECT_EQ(reduction.Picture.Tag, "1");
    EXPECT_EQ(reduction.ResultFiles, Words{"ONE.RES"});
}

TEST_F(RunReductionTest, ShowsAProgramThatFailedAsNoResults) {
    Put("ONE.RES", "old");
    Put("FAIL.TXT", "");
    const ReductionState& reduction = Reduced();
    EXPECT_EQ(reduction.Picture, (StatePicture{"X.ICO", "0"}));
    EXPECT_FALSE(reduction.CanEdit);
}

TEST_F(RunReductionTest, RunsTwiceInARow) {
    Reduced();
    Put("FAIL.TXT", "");
    RunReduction(State, 1);
    EXPECT_FALSE(FileExists(Folder + "ONE.RES"));
    EXPECT_EQ(State.Tabs[1].Reduction.Picture.Tag, "0");
}

TEST_F(RunReductionTest, KeepsEditedHeightsInASecondDistanceRun) {
    Configure("DISTANCE dist.par p3.dat p4.dat", "fakered.exe a.res b.res c.res");
    PutFile("P:\\DORVANE\\samples\\temp\\HEIGHTS.DAT", "sample");
    Desktop.RunsPrograms = false;
    Reduced();
    EXPECT_EQ(FileContent(Folder + "HEIGHTS.DAT"), "sample");
    Put("HEIGHTS.DAT", "edited");
    RunReduction(State, 1);
    EXPECT_EQ(FileContent(Folder + "HEIGHTS.DAT"), "edited");
}

TEST_F(RunReductionTest, TakesTheParameterKeyFromFileTypesWhenTheTypeHasNone) {
    DataTypeProfile({"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV", "LEV_Name=L",
                     "LEV_Reduce=fakered.exe one.res", "[File Types]", "LEV_Param=total fake.par"});
    EXPECT_EQ(Reduced().ResultFiles, Words{"ONE.RES"});
}

TEST_F(RunReductionTest, TouchesNothingWhenTheIndexListsNoFiles) {
    Put(Index, IndexHead);
    Put("ONE.RES", "old");
    Desktop.ExpectMessageTitled("No Files Exist");
    Reduced();
    EXPECT_EQ(FileContent(Folder + "ONE.RES"), "old");
    EXPECT_TRUE(AllFiles("C:\\TARVEX\\PARAM\\").empty());
    EXPECT_TRUE(Desktop.Started.empty());
}

TEST_F(RunReductionTest, SaysWhenTheProgramIsNotThere) {
    Configure("angle fake.par", "gone.exe one.res two.res");
    Put("ONE.RES", "old");
    Drives::ChangeDrive('D');
    Desktop.ExpectMessage("EXE Not Found", "Reduction exe GONE.EXE does not exist.  Can not continue.");
    const ReductionState& reduction = Reduced();
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
    EXPECT_FALSE(FileExists(Folder + "ONE.RES"));
    EXPECT_TRUE(FileExists("C:\\TARVEX\\PARAM\\FAKE.PAR"));
    EXPECT_EQ(reduction.ResultFiles, Words{"ONE.RES"});  // the tab is not redrawn
    EXPECT_EQ(ReductionStatus(State.Tabs[1]),
              "The reduction program is missing, the old results are deleted");
    TellReductionEnd(State, 1);
    EXPECT_EQ(Desktop.Shown.size(), 1U);
    EXPECT_EQ(Global().CurrentDrive, 'D');
}

TEST_F(RunReductionTest, TellsOnlyTheLackOfResultsOfAProgramThatCannotBeStarted) {
    PutFile("P:\\DORVANE\\Programs\\BROKEN.EXE", "no program");
    Configure("angle fake.par", "broken.exe one.res two.res");
    Put("ONE.RES", "old");
    EXPECT_EQ(Reduced().Picture.Tag, "0");
    EXPECT_TRUE(Desktop.Shown.empty());
    Desktop.ExpectMessage("No Reduction Results",
                          "BROKEN.EXE has left no results in " + Folder +
                              " .\r\n\r\nIt tells no reason.  It was perhaps not started, or it broke off.");
    TellReductionEnd(State, 1);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
    EXPECT_EQ(ReductionStatus(State.Tabs[1]), "The last reduction left no results");
}

TEST_F(RunReductionTest, TellsNothingOfAGoodRunOrOfNone) {
    Reduced();
    TellReductionEnd(State, 1);
    EXPECT_EQ(ReductionStatus(State.Tabs[1]), "2 result files, up to date");
    EXPECT_TRUE(SetupReduceTabs(Folder, State));
    TellReductionEnd(State, 1);
    EXPECT_TRUE(Desktop.Shown.empty());
}

/// A program of another house, which tells its errors in OWN.TXT.
struct ToldErrors : RunReductionTest {
    ToldErrors() {
        Configure("angle fake.par", "fakered.exe one.res two.res\r\nLEV_RedError=own.txt");
        Put("OWN.TXT", "of the run before");
    }
    // A run that leaves no results, or some, and this error file.
    void Run(const std::string& errors, bool results = false) {
        if (!results)
            Put("FAIL.TXT", "");
        Desktop.OnRun = [=](const std::string&) {
            EXPECT_FALSE(FileExists(Folder + "OWN.TXT"));
            Put("OWN.TXT", errors);
        };
        Reduced();
        Desktop.ExpectMessageTitled(results ? "Reduction Errors" : "No Reduction Results");
        TellReductionEnd(State, 1);
        const std::string& text = Desktop.Shown.back().Text;
        const std::string end = "\r\nAll of it stands in " + Folder + "OWN.TXT";
        ASSERT_TRUE(text.ends_with(end)) << text;
        const std::size_t start = text.find("\r\n\r\n") + 4;
        Told = text.substr(start, text.size() - end.size() - start);
    }
    std::string Told;
};

TEST_F(ToldErrors, AreShownUpToTheFirstBlankLine) {
    Run("\r\nno staff\r\nno level\r\n\r\nmore\r\n");
    EXPECT_EQ(Told, "no staff\r\nno level\r\n");
    EXPECT_EQ(ReductionStatus(State.Tabs[1]), "The last reduction left no results, see OWN.TXT");
}

TEST_F(ToldErrors, AreCutAtTenLinesOfAHundredAndFiftyCharacters) {
    std::string lines;
    for (int i = 1; i <= 11; ++i)
        lines += std::to_string(i) + std::string(i == 2 ? 150 : 1, '\x01') + "\n";
    Run(lines);
    EXPECT_EQ(Told, "1.\r\n2" + std::string(149, '.') +
                        " ...\r\n3.\r\n4.\r\n5.\r\n6.\r\n7.\r\n8.\r\n9.\r\n10.\r\n");
}

TEST_F(ToldErrors, AreShownBesideResultsToo) {
    Run("one book is missing\n", true);
    EXPECT_EQ(Told, "one book is missing\r\n");
    EXPECT_EQ(ReductionStatus(State.Tabs[1]), "2 result files, up to date, with errors, see OWN.TXT");
}

TEST_F(ToldErrors, AreStillNamedWhenTheFolderIsOpenedAnew) {
    Run("no staff\n");
    EXPECT_TRUE(SetupReduceTabs(Folder, State));
    EXPECT_EQ(ReductionStatus(State.Tabs[1]), "The last reduction left no results, see OWN.TXT");
    Put("OWN.TXT", "");
    EXPECT_TRUE(SetupReduceTabs(Folder, State));
    EXPECT_EQ(ReductionStatus(State.Tabs[1]), "Not reduced yet");
}

TEST_F(RunReductionTest, ShowsThatTheOldResultsAreGoneWhenTheParameterFileFails) {
    Configure("");
    Put("ONE.RES", "old");
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_EQ(Reduced().Picture, (StatePicture{"X.ICO", "0"}));
    EXPECT_TRUE(State.Tabs[1].Reduction.ResultFiles.Empty());
    EXPECT_EQ(ReductionStatus(State.Tabs[1]),
              "The reduction was stopped before its program, there are no results");
    TellReductionEnd(State, 1);
    EXPECT_EQ(Desktop.Shown.size(), 1U);
}

TEST_F(RunReductionTest, RunsNothingWithoutAParameterFile) {
    Configure("");
    Put("ONE.RES", "old");
    Desktop.ExpectMessage("Program Error",
                          "Error : 9\r\n\r\nDescription : Subscript out of range\r\n\r\nSource : "
                          "Dorvane-basReduce-WriteParamFile");
    Reduced();
    EXPECT_FALSE(FileExists(Folder + "ONE.RES"));
    EXPECT_TRUE(Desktop.Started.empty());
}

TEST_F(RunReductionTest, ReportsAnEmptyReduceListBehindTheParameterFile) {
    Configure("gravity fake.par", "");
    Desktop.ExpectMessage("Program Error",
                          "Error : 9\r\n\r\nDescription : Subscript out of range\r\n\r\nSource : "
                          "Dorvane-frmReduce-cmdReduce_Click");
    Reduced();
    EXPECT_TRUE(FileExists("C:\\TARVEX\\PARAM\\FAKE.PAR"));
}

}  // namespace
}  // namespace Dorvane::Testing
