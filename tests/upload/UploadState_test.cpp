// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/UploadState.h"

#include "core/ProfileStore.h"
#include "tests/upload/UploadSite.h"

namespace Dorvane::Testing {
namespace {

using Words = List1<std::string>;

const std::string Profile = "C:\\WINDOWS\\dv_tarvex.ini";

struct UploadStateTest : UploadSite {
    UploadStateTest() {
        DataTypeProfile({"[Data Types]", "Epochs=TOTAL LEVEL LEV", "[TOTAL]", "Extension=GSI", "[LEVEL]",
                         "Extension=LEV DAT", "[LEV]", "Extension=XYZ"});
        State.FromPath = From;
        State.ToPath = To;
    }
    UploadState State;
};
using TotalUpdateTest = UploadStateTest;
using UpdateTest = UploadStateTest;
using LoadUploadStateTest = UploadStateTest;
using SaveUploadStateTest = UploadStateTest;
using CopyAnimationTest = UploadStateTest;

TEST_F(TotalUpdateTest, FindsTheFirstTypeInListOrder) {
    TotalUpdate(State);
    EXPECT_EQ(State.DataTypeName, "LEVEL");
    EXPECT_EQ(State.CurrentDataType, (DataType{"LEVEL", Words{"LEV", "DAT"}}));
}

TEST_F(TotalUpdateTest, KeepsTheFormerTypeInForceWhenNoneMatches) {
    State.CurrentDataType = {"TOTAL", Words{"GSI"}};
    State.ToPath = "D:\\OTHER\\";
    TotalUpdate(State);
    EXPECT_EQ(State.DataTypeName, "");
    EXPECT_EQ(State.CurrentDataType.Name, "TOTAL");
    EXPECT_EQ(State.FileNames, Words{"*.GSI "});
}

TEST_F(UpdateTest, OffersEachPatternThenAllThenTheFiles) {
    PutSource("b.txt", "");
    PutSource("A.LEV", "");
    TotalUpdate(State);
    EXPECT_EQ(State.FileNames, (Words{"*.LEV", "*.DAT", "*.LEV *.DAT ", "A.LEV", "B.TXT"}));
    EXPECT_EQ(State.FileCount, 2);
    EXPECT_EQ(State.FileSelection, "*.LEV");
}

TEST_F(UpdateTest, OffersOnePatternThatEndsInABlankForOneExtension) {
    State.ToPath = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV12\\";
    TotalUpdate(State);
    EXPECT_EQ(State.FileNames, Words{"*.GSI "});
    EXPECT_EQ(State.FileSelection, "*.GSI ");
}

TEST_F(UpdateTest, OffersAnEmptySelectionWhenNoTypeWasEverFound) {
    PutSource("A.LEV", "");
    State.ToPath = "D:\\OTHER\\";
    TotalUpdate(State);
    EXPECT_EQ(State.FileNames, (Words{"", "A.LEV"}));
    EXPECT_EQ(State.FileSelection, "");
}

TEST_F(UpdateTest, LeavesAllAsItWasWithoutACollectionFolder) {
    State.FromPath = "C:\\GONE\\";
    State.FileNames = {"KEPT"};
    State.FileSelection = "KEPT";
    State.WasteBin = "kept";
    Update(State);
    EXPECT_EQ(State.FileNames, Words{"KEPT"});
    EXPECT_EQ(State.FileSelection, "KEPT");
    EXPECT_EQ(State.WasteBin, "kept");
}

TEST_F(UpdateTest, ShowsAnEmptyWasteBin) {
    PutSource("A.LEV", "");
    Update(State);
    EXPECT_EQ(State.WasteBin, "trashempty.ico");
}

TEST_F(UpdateTest, ShowsAFullWasteBinForAnyExtensionThatBeginsWith99) {
    for (const char* name : {"A.999", "A.990", "A.99", "A.99X"}) {
        PutSource(name, "");
        Update(State);
        EXPECT_EQ(State.WasteBin, "trashfull.ico") << name;
        std::remove((Site.HostFolder() + "c:/FIELD/" + name).c_str());
    }
}

TEST_F(LoadUploadStateTest, TakesFoldersAndPrintSwitch) {
    PutLines(Profile, {"[Upload Select]", "From_path=C:\\FIELD", "To_path=" + To, "Print=1"});
    UploadState state;
    LoadUploadState(state);
    EXPECT_EQ(state.FromPath, From);
    EXPECT_EQ(state.ToPath, To);
    EXPECT_FALSE(state.FromPathMissing);
    EXPECT_FALSE(state.ToPathMissing);
    EXPECT_TRUE(state.PrintUpload);
    EXPECT_EQ(state.DataTypeName, "LEVEL");
}

TEST_F(LoadUploadStateTest, MarksFoldersThatAreNotThere) {
    PutLines(Profile, {"[Upload Select]", "From_path=C:\\GONE\\", "To_path=E:\\"});
    UploadState state;
    LoadUploadState(state);
    EXPECT_TRUE(state.FromPathMissing);
    EXPECT_TRUE(state.ToPathMissing);
}

TEST_F(LoadUploadStateTest, LeavesTheSwitchAtAnyOtherPrintValue) {
    PutLines(Profile, {"[Upload Select]", "Print=1E999"});
    UploadState beyond;
    beyond.PrintUpload = true;
    LoadUploadState(beyond);
    EXPECT_TRUE(beyond.PrintUpload);
    PutLines(Profile, {"[Upload Select]", "Print=2"});
    UploadState state;
    state.PrintUpload = true;
    LoadUploadState(state);
    EXPECT_TRUE(state.PrintUpload);
    SaveUploadState(state);
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Upload Select", "Print"), "1");
}

TEST_F(LoadUploadStateTest, TakesAMissingPrintValueAsZero) {
    UploadState state;
    state.PrintUpload = true;
    LoadUploadState(state);
    EXPECT_FALSE(state.PrintUpload);
}

TEST_F(SaveUploadStateTest, WritesFoldersAndPrintSwitch) {
    State.PrintUpload = true;
    SaveUploadState(State);
    EXPECT_EQ(FileLines(Profile),
              (std::vector<std::string>{"[Upload Select]", "From_path=" + From, "To_path=" + To, "Print=1"}));
}

TEST_F(SaveUploadStateTest, WritesOnlyFoldersThatExist) {
    PutLines(Profile, {"[Upload Select]", "From_path=C:\\OLD\\", "To_path=C:\\OLD\\", "Print=1"});
    State.FromPath = "C:\\GONE\\";
    SaveUploadState(State);
    EXPECT_EQ(FileLines(Profile), (std::vector<std::string>{"[Upload Select]", "From_path=C:\\OLD\\",
                                                            "To_path=" + To, "Print=0"}));
}

TEST_F(SaveUploadStateTest, KeepsTheTargetThatWasStoredWhenTheNewOneIsNotThere) {
    SaveUploadState(State);
    State.ToPath = "D:\\GONE\\";
    SaveUploadState(State);
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Upload Select", "To_path"), To);
}

TEST_F(CopyAnimationTest, TakesTheTypesOwnWhenItIsThere) {
    PutLines("C:\\WINDOWS\\Datatype.ini", {"[LEVEL]", "FileCopy=level.avi"});
    EXPECT_EQ(CopyAnimation("LEVEL"), "filecopy.avi");
    PutFile("P:\\DORVANE\\graphics\\level.avi", "x");
    EXPECT_EQ(CopyAnimation("LEVEL"), "level.avi");
    EXPECT_EQ(CopyAnimation("TOTAL"), "filecopy.avi");
    EXPECT_EQ(CopyAnimation(""), "filecopy.avi");
}

TEST_F(CopyAnimationTest, TakesNoDrawingOfTheSameBaseNameForTheTypesOwn) {
    PutLines("C:\\WINDOWS\\Datatype.ini", {"[LEVEL]", "FileCopy=level.avi"});
    PutFile("P:\\DORVANE\\graphics\\level.svg", "x");
    EXPECT_EQ(CopyAnimation("LEVEL"), "filecopy.avi");
}

TEST_F(CopyAnimationTest, TakesOnlyANameForTheTypesOwn) {
    PutFile("P:\\DORVANE\\graphics\\level.avi", "x");
    PutFile("P:\\DORVANE\\other.avi", "x");
    for (const char* value : {"*.avi", "level.av?", "..\\other.avi", "P:\\DORVANE\\other.avi", "", "  "}) {
        PutLines("C:\\WINDOWS\\Datatype.ini", {"[LEVEL]", std::string("FileCopy=") + value});
        EXPECT_EQ(CopyAnimation("LEVEL"), "filecopy.avi") << value;
    }
}

}  // namespace
}  // namespace Dorvane::Testing
