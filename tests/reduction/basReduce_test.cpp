// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/basReduce.h"

#include "tests/reduction/ReductionSite.h"

namespace Dorvane::Testing {
namespace {

using Words = List1<std::string>;

const StatePicture NoneThere{"X.ICO", "0"};
const StatePicture UpToDate{"Y.ICO", "1"};
const StatePicture Older{"QUESTION.ICO", "2"};

struct DataIconSetupTest : ReductionSite {
    StatePicture Picture(const std::string& extension = "LEV", const std::string& extra = "") {
        StatePicture picture{"untouched", ""};
        DataIconSetup(Folder, extension, extra, picture);
        return picture;
    }
};

struct ReduceIconSetupTest : ReductionSite {
    const ReductionState& Shown(const std::string& reduceList = "lev.exe one.res,two.res",
                                const std::string& extra = "") {
        ReduceIconSetup(Folder, State, reduceList, "LEV", extra);
        return State;
    }
    ReductionState State;
};

struct SetupListBoxTest : ReductionSite {};

struct InitReduceTest : ReductionSite {
    InitReduceTest() {
        DataTypeProfile(
            {"[LEVEL]", "LEV_SrvIdx=true", "DAT_SrvIdx=FALSE", "[File Types]", "TXT_SrvIdx=TRUE"});
    }
    bool Init(const std::string& extension = "LEV") {
        return InitReduce(Folder, IndexName, "LEVEL", extension);
    }
    std::string IndexName = "untouched";
};

TEST_F(DataIconSetupTest, ShowsNoDataInAnEmptyFolder) {
    EXPECT_EQ(Picture(), NoneThere);
}

TEST_F(DataIconSetupTest, ShowsAFileOfTheExtension) {
    Put("day1.lev", "x");
    EXPECT_EQ(Picture(), UpToDate);
}

TEST_F(DataIconSetupTest, NeverCountsAnEmptyFile) {
    Put("DAY1.LEV", "");
    EXPECT_EQ(Picture(), NoneThere);
}

TEST_F(DataIconSetupTest, LooksBehindAnEmptyFile) {
    Put("A.LEV", "");
    Put("B.LEV", "x");
    EXPECT_EQ(Picture(), UpToDate);
}

TEST_F(DataIconSetupTest, TakesTheLastFourCharactersOnly) {
    Put("A.LEVX", "x");
    Put("ALEV", "x");
    EXPECT_EQ(Picture(), NoneThere);
}

TEST_F(DataIconSetupTest, CountsANumberInTheLastThreeCharactersOnEveryTab) {
    for (const char* name : {"A.001", "A.12", "A123", "7"}) {
        Put(name, "x");
        EXPECT_EQ(Picture(), UpToDate) << name;
        Drives::DeleteFile(Folder + name);
    }
}

TEST_F(DataIconSetupTest, FindsTheLastThreeCharactersAnywhereInTheExtraExtension) {
    Put("A.DAT", "x");
    EXPECT_EQ(Picture("LEV", " DAT"), UpToDate);
    EXPECT_EQ(Picture("LEV", "XDATX"), UpToDate);
    EXPECT_EQ(Picture("LEV", "DA"), NoneThere);
}

TEST_F(DataIconSetupTest, NeverMatchesAnExtensionOfTwoLetters) {
    Put("AB.GS", "x");
    EXPECT_EQ(Picture("GS"), NoneThere);
}

TEST_F(ReduceIconSetupTest, ShowsNoResultsAndDisablesTheButtons) {
    State = {UpToDate, Words{"OLD.RES"}, true, true};
    Put("DAY1.LEV", "x");
    Shown();
    EXPECT_EQ(State.Picture, NoneThere);
    EXPECT_TRUE(State.ResultFiles.Empty());
    EXPECT_FALSE(State.CanEdit);
    EXPECT_FALSE(State.CanPrint);
}

TEST_F(ReduceIconSetupTest, TakesAnEmptyResultForNone) {
    Put("ONE.RES", "");
    EXPECT_EQ(Shown().Picture, NoneThere);
}

TEST_F(ReduceIconSetupTest, ShowsResultsThatAreThere) {
    Put("one.res", "x");
    Shown();
    EXPECT_EQ(State.Picture, UpToDate);
    EXPECT_EQ(State.ResultFiles, Words{"ONE.RES"});
    EXPECT_TRUE(State.CanEdit);
    EXPECT_TRUE(State.CanPrint);
}

TEST_F(ReduceIconSetupTest, EnablesPrintingWhetherThereIsAPrinterOrNot) {
    Global().PrinterPresent = false;
    Put("ONE.RES", "x");
    EXPECT_TRUE(Shown().CanPrint);
}

TEST_F(ReduceIconSetupTest, AsksWhenDataIsNewerByOneSecond) {
    Put("ONE.RES", "x", 30);
    Put("DAY1.LEV", "x", 31);
    EXPECT_EQ(Shown().Picture, Older);
    EXPECT_EQ(State.ResultFiles, Words{"ONE.RES"});
}

TEST_F(ReduceIconSetupTest, TakesATieForUpToDate) {
    Put("ONE.RES", "x", 30);
    Put("DAY1.LEV", "x", 30);
    EXPECT_EQ(Shown().Picture, UpToDate);
}

TEST_F(ReduceIconSetupTest, CountsEmptyDataToo) {
    Put("ONE.RES", "x", 30);
    Put("DAY1.LEV", "", 31);
    EXPECT_EQ(Shown().Picture, Older);
}

TEST_F(ReduceIconSetupTest, TakesAnyNameThatContainsTheExtensionForData) {
    Put("ONE.RES", "x", 30);
    Put("LEVNOTES.TXT", "x", 31);
    EXPECT_EQ(Shown().Picture, Older);
}

TEST_F(ReduceIconSetupTest, TakesTheExtraExtensionForData) {
    Put("ONE.RES", "x", 30);
    Put("A.DAT", "x", 31);
    EXPECT_EQ(Shown("LEV.EXE ONE.RES").Picture, UpToDate);
    EXPECT_EQ(Shown("LEV.EXE ONE.RES", " dat").Picture, Older);
}

TEST_F(ReduceIconSetupTest, ComparesAResultWithItselfWithoutEffect) {
    Put("LEVEL.RES", "x", 30);
    EXPECT_EQ(Shown("P.EXE LEVEL.RES").Picture, UpToDate);
}

TEST_F(ReduceIconSetupTest, ComparesOnlyTheFirstResultOfTheListing) {
    Put("ONE.RES", "x", 40);
    Put("TWO.RES", "x", 10);
    Put("DAY1.LEV", "x", 30);
    EXPECT_EQ(Shown().Picture, UpToDate);
    Put("ONE.RES", "x", 10);
    Put("TWO.RES", "x", 40);
    EXPECT_EQ(Shown().Picture, Older);
}

TEST_F(ReduceIconSetupTest, TakesTheProgramsOwnNameForAResult) {
    Put("LEV.EXE", "x");
    Shown();
    EXPECT_EQ(State.Picture, UpToDate);
    EXPECT_TRUE(State.ResultFiles.Empty());
}

TEST_F(ReduceIconSetupTest, TakesAPartOfAListedNameForAResult) {
    Put("NE.RES", "x");
    EXPECT_EQ(Shown().Picture, UpToDate);
    EXPECT_TRUE(State.ResultFiles.Empty());
}

TEST_F(ReduceIconSetupTest, FindsNoResultForAnEmptyReduceList) {
    Put("ONE.RES", "x");
    EXPECT_EQ(Shown("").Picture, NoneThere);
}

TEST_F(SetupListBoxTest, AddsTheResultsThatHoldSomethingInTheOrderOfTheList) {
    Put("LEV.EXE", "x");
    Put("B.RES", "x");
    Put("A.RES", "x");
    Put("EMPTY.RES", "");
    Words results;
    SetupListBox(Folder, "lev.exe b.res, empty.res\tgone.res a.res", results);
    EXPECT_EQ(results, (Words{"B.RES", "A.RES"}));
}

TEST_F(SetupListBoxTest, ReportsMoreThanFiftyWords) {
    std::string list;
    for (int i = 0; i < 51; ++i)
        list += "A ";
    Desktop.ExpectMessage("Program Error",
                          "Error : 9\r\n\r\nDescription : Subscript out of range\r\n\r\nSource : "
                          "Dorvane-basReduce-SetupListBox");
    Words results;
    SetupListBox(Folder, list, results);
    EXPECT_TRUE(results.Empty());
}

TEST_F(InitReduceTest, GoesOnWithAnIndexThatListsFiles) {
    Put(Index, IndexHead + IndexLine);
    EXPECT_TRUE(Init());
    EXPECT_EQ(IndexName, Index);
}

TEST_F(InitReduceTest, StopsAtAnIndexWithoutFiles) {
    Put(Index, IndexHead);
    Desktop.ExpectMessage("No Files Exist", "No files exist in SRV12.IDX file.  Cannot continue");
    EXPECT_FALSE(Init());
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
}

TEST_F(InitReduceTest, GoesOnWithoutFilesWhenTheExtensionIsNotIndexed) {
    Put(Index, IndexHead);
    EXPECT_TRUE(Init("DAT"));
}

TEST_F(InitReduceTest, TakesTheSwitchFromFileTypesWhenTheTypeHasNone) {
    Put(Index, IndexHead);
    Desktop.ExpectMessageTitled("No Files Exist");
    EXPECT_FALSE(Init("TXT"));
}

TEST_F(InitReduceTest, FillsAnIndexThatWasCreatedJustNow) {
    Put("DAY1.LEV", "x");
    Put("DAY2.LEV", "");
    Put("DAY3.DAT", "x");
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::Yes);
    EXPECT_TRUE(Init());
    EXPECT_EQ(FileContent(Folder + Index),
              IndexHead + IndexLine + "DAY2     LEV       DAY2                3/7/2026\r\n");
}

TEST_F(InitReduceTest, LeavesANewIndexEmptyWhenTheExtensionIsNotIndexed) {
    Put("DAY3.DAT", "x");
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::Yes);
    EXPECT_TRUE(Init("DAT"));
    EXPECT_EQ(FileContent(Folder + Index), IndexHead);
}

TEST_F(InitReduceTest, StopsWhenTheOperatorWantsNoIndex) {
    Put("DAY1.LEV", "x");
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::No);
    Desktop.ExpectMessage("File Does Not Exist", " file does not exist.  Cannot continue");
    EXPECT_FALSE(Init());
    EXPECT_EQ(Desktop.Shown[1].Picture, Icon::Exclamation);
    EXPECT_EQ(IndexName, "");
}

TEST_F(InitReduceTest, GoesOnWithoutIndexWhenTheExtensionIsNotIndexed) {
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::No);
    EXPECT_TRUE(Init("DAT"));
    EXPECT_EQ(IndexName, "");
}

TEST_F(InitReduceTest, StopsAtAnIndexCutInItsHeaderWhichIsReported) {
    Put(Index, "cut");
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    Desktop.ExpectMessageTitled("No Files Exist");
    EXPECT_FALSE(Init());
}

}  // namespace
}  // namespace Dorvane::Testing
