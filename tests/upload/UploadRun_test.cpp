// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/UploadRun.h"

#include <filesystem>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "tests/upload/UploadSite.h"
#include "upload/basUpload.h"

namespace Dorvane::Testing {
namespace {

using Names = std::vector<std::string>;

struct RecordingMeter : FileMeter {
    void Open(int fileCount) override { Calls.push_back("open " + std::to_string(fileCount)); }
    void ShowFile(const std::string& from, const std::string& to) override {
        Calls.push_back(from + " > " + to);
    }
    void Advance(int filesDone) override { Calls.push_back(std::to_string(filesDone)); }
    void Close() override { Calls.emplace_back("close"); }
    Names Calls;
};

struct UploadRunTest : UploadSite {
    UploadRunTest() {
        DataTypeProfile({"[Data Types]", "Epochs=TOTAL LEVEL", "[TOTAL]", "Extension=GSI", "[LEVEL]",
                         "Extension=LEV DAT", "LEV_SrvIdx=TRUE", "DAT_SrvIdx=FALSE"});
        State.FromPath = From;
        State.ToPath = To;
        TotalUpdate(State);
    }
    void ExpectWarning(const std::string& title, const std::string& text) {
        Desktop.ExpectMessage(title, text);
    }
    void Upload() { UploadSelection(State, Meter); }
    UploadState State;
    RecordingMeter Meter;
};
using CollectFilesTest = UploadRunTest;
using UploadSelectionTest = UploadRunTest;
using DeleteUploadedTest = UploadRunTest;
using EditSelectionTest = UploadRunTest;

Names NamesOf(const List1<FileEntry>& files) {
    Names names;
    for (const FileEntry& file : files)
        names.push_back(file.Name);
    return names;
}

TEST_F(CollectFilesTest, TakesOnePatternThatEndsInABlank) {
    PutSource("A.GSI", "");
    PutSource("B.LEV", "");
    List1<FileEntry> files;
    EXPECT_EQ(CollectFiles(files, From, "*.GSI "), 1);
    EXPECT_EQ(NamesOf(files), Names{"A.GSI"});
}

TEST_F(CollectFilesTest, TakesThePatternsInOrderAndAFileOfTwoPatternsTwice) {
    PutSource("A.DAT", "");
    PutSource("B.LEV", "");
    List1<FileEntry> files;
    EXPECT_EQ(CollectFiles(files, From, "*.LEV *.DAT b.*"), 3);
    EXPECT_EQ(NamesOf(files), (Names{"B.LEV", "A.DAT", "B.LEV"}));
}

TEST_F(CollectFilesTest, TakesASingleFile) {
    PutSource("A.DAT", "");
    PutSource("A.LEV", "");
    List1<FileEntry> files;
    EXPECT_EQ(CollectFiles(files, From, "A.DAT"), 1);
    EXPECT_EQ(files[1].Date, "3/7/2026");
}

TEST_F(CollectFilesTest, FindsNothingForASelectionOfBlanks) {
    PutSource("A.DAT", "");
    List1<FileEntry> files;
    EXPECT_EQ(CollectFiles(files, From, "  "), 0);
}

TEST_F(UploadSelectionTest, UploadsFileAfterFileAndShowsHowFarItIs) {
    PutSource("A.LEV", "a");
    PutSource("B.LEV", "b");
    PutSource("C.DAT", "c");
    State.FileSelection = "*.LEV *.DAT ";
    Upload();
    EXPECT_EQ(Meter.Calls,
              (Names{"open 3", From + "A.LEV > " + To + "A.LEV", "1", From + "B.LEV > " + To + "B.LEV", "2",
                     From + "C.DAT > " + To + "C.DAT", "3", "close"}));
    EXPECT_EQ(Desktop.Yields, 3);
    EXPECT_EQ(AllFiles(To), (Names{"A.LEV", "B.LEV", "C.DAT", Index}));
    EXPECT_EQ(AllFiles(From), (Names{"A.999", "B.999", "C.999"}));
    EXPECT_EQ(FileContent(To + Index), IndexHead +
                                           "A        LEV       A                   3/7/2026\r\n"
                                           "B        LEV       B                   3/7/2026\r\n");
    EXPECT_EQ(State.WasteBin, "trashfull.ico");
    EXPECT_EQ(State.FileNames[4], "A.999");
}

TEST_F(UploadSelectionTest, YieldsBetweenShowingAFileAndUploadingIt) {
    PutSource("A.LEV", "a");
    State.FileSelection = "A.LEV";
    bool shownFirst = false;
    Desktop.OnYield = [&] { shownFirst = Meter.Calls.size() == 2 && !FileExists(To + "A.LEV"); };
    Upload();
    EXPECT_TRUE(shownFirst);
}

TEST_F(UploadSelectionTest, UploadsTheDefaultSelectionOfATypeWithOneExtension) {
    MakeFolders("D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV1\\");
    State.ToPath = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV1\\";
    PutFile(State.ToPath + "SRV1.IDX", "x\r\n \r\n");
    PutSource("A.GSI", "a");
    TotalUpdate(State);
    ASSERT_EQ(State.FileSelection, "*.GSI ");
    Upload();
    EXPECT_EQ(FileContent(State.ToPath + "A.GSI"), "a");
}

TEST_F(UploadSelectionTest, UploadsOnlyTheFileThatWasPicked) {
    PutSource("A.LEV", "a");
    PutSource("B.LEV", "b");
    State.FileSelection = "B.LEV";
    Upload();
    EXPECT_EQ(AllFiles(From), (Names{"A.LEV", "B.999"}));
}

TEST_F(UploadSelectionTest, SaysWhenNothingIsSelected) {
    State.FileSelection = "";
    State.ToPath = "D:\\OTHER\\";
    ExpectWarning("Missing File Name", "No file(s) selected.  Can not upload data");
    Upload();
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
    EXPECT_TRUE(Meter.Calls.empty());
}

TEST_F(UploadSelectionTest, SaysWhenTheTargetIsNoFolderBeforeItLooksAtTheSource) {
    State.FileSelection = "*.LEV";
    State.ToPath = "D:\\GONE\\";
    State.FromPath = "C:\\GONE\\";
    ExpectWarning("Missing Folder", "To path is not a valid folder.  Can not upload data");
    Upload();
    EXPECT_TRUE(State.ToPathMissing);
    EXPECT_FALSE(State.FromPathMissing);
}

TEST_F(UploadSelectionTest, SaysWhenTheSourceIsNoFolder) {
    State.FileSelection = "*.LEV";
    State.FromPath = "C:\\GONE\\";
    ExpectWarning("Missing Folder", "From path is not a valid folder.  Can not upload data");
    Upload();
    EXPECT_TRUE(State.FromPathMissing);
    EXPECT_FALSE(State.ToPathMissing);
}

TEST_F(UploadSelectionTest, MarksFoldersThatCameBackAsThere) {
    PutSource("A.LEV", "a");
    State.FromPathMissing = true;
    State.ToPathMissing = true;
    State.FileSelection = "A.LEV";
    Upload();
    EXPECT_FALSE(State.FromPathMissing);
    EXPECT_FALSE(State.ToPathMissing);
}

TEST_F(UploadSelectionTest, SaysWhenThereAreNoFiles) {
    State.FileSelection = "*.LEV *.DAT ";
    ExpectWarning("No files exist", "No *.LEV *.DAT  files exist in " + From + " .  Can not upload");
    Upload();
    EXPECT_TRUE(Meter.Calls.empty());
}

TEST_F(UploadSelectionTest, SaysWhenThereIsNoIndexToUse) {
    PutSource("A.DAT", "a");
    Drives::DeleteFile(To + Index);
    State.FileSelection = "A.DAT";  // not to be indexed, and yet an index is asked for
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::No);
    ExpectWarning("No files exist", "No survey index files exist in " + To + " .  Can not upload");
    Upload();
    EXPECT_EQ(AllFiles(From), Names{"A.DAT"});
}

TEST_F(UploadSelectionTest, CreatesTheIndexWhenTheOperatorAgrees) {
    PutSource("A.LEV", "a");
    Drives::DeleteFile(To + Index);
    State.FileSelection = "*.LEV";
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::Yes);
    Upload();
    EXPECT_EQ(FileContent(To + Index), IndexHead + "A        LEV       A                   3/7/2026\r\n");
}

TEST_F(UploadSelectionTest, GoesOnBehindARefusedFile) {
    PutSource("A.LEV", "new");
    PutSource("B.LEV", "b");
    PutFile(To + "A.LEV", "old");
    State.FileSelection = "*.LEV";
    Desktop.ExpectMessageTitled("File already exists");
    Upload();
    EXPECT_EQ(AllFiles(From), (Names{"A.LEV", "B.999"}));
    EXPECT_EQ(Meter.Calls.back(), "close");
}

TEST_F(UploadSelectionTest, MeetsAFileOfTwoPatternsASecondTimeAsExisting) {
    PutSource("A.LEV", "a");
    State.FileSelection = "*.LEV A.*";
    Desktop.ExpectMessageTitled("File already exists");
    Upload();
    EXPECT_EQ(AllFiles(From), Names{"A.999"});
}

TEST_F(UploadSelectionTest, GivesTheFormerTypesNameWhenNoneIsShown) {
    PutSource("A.LEV", "a");
    MakeFolders("D:\\OTHER\\");
    PutFile("D:\\OTHER\\SRV.IDX", "\\OTHER\r\n \r\n");
    State.ToPath = "D:\\OTHER\\";
    TotalUpdate(State);
    ASSERT_EQ(State.DataTypeName, "");
    State.FileSelection = "A.LEV";
    Upload();
    EXPECT_EQ(FileLines("D:\\OTHER\\SRV.IDX").size(), 3u);  // the index switch stands in section LEVEL
}

TEST_F(UploadSelectionTest, SaysAtItsEndWhatWasMade) {
    PutSource("A.LEV", "a");
    PutSource("B.LEV", "b");
    PutSource("C.DAT", "c");
    PutFile(To + "B.LEV", "old");
    Desktop.ExpectMessageTitled("File already exists");
    State.FileSelection = "*.LEV *.DAT ";
    Upload();
    EXPECT_EQ(UploadStatus(State), "2 files uploaded, 1 refused");
    EXPECT_EQ(State.Outcome.Long,
              "2 files uploaded to " + To +
                  " : 2 copied.  1 listed in the index SRV12.IDX.  Not uploaded: 1 refused.");
    TotalUpdate(State);
    EXPECT_EQ(UploadStatus(State), "3 file(s) in the source folder");
    EXPECT_EQ(State.Outcome.Long, "");
}

TEST_F(UploadSelectionTest, ClaimsNothingWhenItDidNotBegin) {
    Desktop.ExpectMessageTitled("No files exist");
    Upload();
    EXPECT_EQ(UploadStatus(State), "Nothing uploaded");
    State.ToPath = "D:\\GONE\\";
    Desktop.ExpectMessageTitled("Missing Folder");
    Upload();
    EXPECT_EQ(UploadStatus(State), "Target folder not found");
}

TEST_F(UploadSelectionTest, SaysThatTheIndexIsNew) {
    PutSource("A.LEV", "a");
    Drives::DeleteFile(To + Index);
    Desktop.ExpectMessageTitled("Missing Survey Index File", Answer::Yes);
    Upload();
    EXPECT_EQ(State.Outcome.Long,
              "1 file uploaded to " + To + " : 1 copied.  1 listed in the new index SRV12.IDX.");
}

struct LongNameUpload : UploadRunTest {
    LongNameUpload() {
        PutSource("A.LEV", "a");
        PutSource("FIELDBOOK2026.LEV", "long");
    }
    const std::string LineOfA = "A        LEV       A                   3/7/2026\r\n";
};

TEST_F(LongNameUpload, TakesTheShorterNameForCopyAndIndex) {
    Desktop.ExpectMessageTitled("Long File Name", Answer::Yes);
    Upload();
    EXPECT_EQ(AllFiles(To), (Names{"A.LEV", "FIELDBOOK.LEV", Index}));
    EXPECT_EQ(FileContent(To + "FIELDBOOK.LEV"), "long");
    EXPECT_EQ(FileContent(To + Index),
              IndexHead + LineOfA + "FIELDBOOKLEV       FIELDBOOK           3/7/2026\r\n");
    EXPECT_EQ(AllFiles(From), (Names{"A.999", "FIELDBOOK2026.999"}));
    EXPECT_EQ(Meter.Calls.at(3), From + "FIELDBOOK2026.LEV > " + To + "FIELDBOOK.LEV");
    EXPECT_EQ(State.Outcome.Long,
              "2 files uploaded to " + To +
                  " : 2 copied.  2 listed in the index SRV12.IDX.  1 under a shorter name.");
}

TEST_F(LongNameUpload, GoesOnUnderTheLongNameAsBefore) {
    Desktop.ExpectMessageTitled("Long File Name", Answer::No);
    Upload();
    EXPECT_EQ(AllFiles(To), (Names{"A.LEV", "FIELDBOOK2026.LEV", Index}));
    EXPECT_EQ(FileContent(To + Index),
              IndexHead + LineOfA + "FIELDBOOK2026\r\n         LEV       FIELDBOOK2026       3/7/2026\r\n");
}

TEST_F(LongNameUpload, TouchesNothingWhenItIsCancelled) {
    Drives::DeleteFile(To + Index);
    Desktop.ExpectMessageTitled("Long File Name", Answer::Cancel);
    Upload();
    EXPECT_TRUE(AllFiles(To).empty());
    EXPECT_EQ(AllFiles(From), (Names{"A.LEV", "FIELDBOOK2026.LEV"}));
    EXPECT_TRUE(Meter.Calls.empty());
    EXPECT_EQ(UploadStatus(State), "Nothing uploaded");
}

TEST_F(LongNameUpload, PrintsTheFileByItsShorterName) {
    DataTypeProfile(
        {"[Data Types]", "Epochs=LEVEL", "[LEVEL]", "Extension=LEV", "LEV_SrvIdx=TRUE", "LEV_Print=p.exe"});
    State.FileSelection = "FIELDBOOK2026.LEV";
    State.PrintUpload = true;
    Desktop.ExpectMessageTitled("Long File Name", Answer::Yes);
    Upload();
    EXPECT_EQ(Desktop.Started, Names{"P:\\DORVANE\\Programs\\P.EXE " + To + "FIELDBOOK.LEV"});
}

TEST_F(LongNameUpload, ExtendsNoOtherFileOfTheShorterName) {
    DataTypeProfile({"[LEVEL]", "LEV_SrvIdx=TRUE", "LEV_Append=TRUE"});
    PutFile(To + "FIELDBOOK.LEV", "other");
    Desktop.ExpectMessage("File already exists",
                          "File FIELDBOOK.LEV already exists in " + To + " .  Can not upload");
    const UploadedFile file =
        UploadOneFile({From, To, "FIELDBOOK2026.LEV", "FIELDBOOK.LEV", "3/7/2026", Index, false, "LEVEL"});
    EXPECT_EQ(file.Placed, UploadedFile::Placing::Refused);
    EXPECT_EQ(FileContent(To + "FIELDBOOK.LEV"), "other");
}

TEST_F(UploadSelectionTest, PrintsWhenTheSwitchIsOn) {
    DataTypeProfile({"[File Types]", "LEV_Print=p.exe"});
    PutSource("A.LEV", "a");
    State.FileSelection = "A.LEV";
    State.PrintUpload = true;
    Upload();
    EXPECT_EQ(Desktop.Started, Names{"P:\\DORVANE\\Programs\\P.EXE " + To + "A.LEV"});
}

TEST_F(UploadSelectionTest, ReportsMoreThanFiftyPatterns) {
    for (int i = 0; i < 51; ++i)
        State.FileSelection += " *.A";
    Desktop.ExpectMessage("Program Error",
                          "Error : 9\r\n\r\nDescription : Subscript out of range\r\n\r\nSource : "
                          "Dorvane-frmUploadMenu-cmdUpload_Click");
    Upload();
}

TEST_F(DeleteUploadedTest, DeletesEveryExtensionThatBeginsWith99) {
    for (const char* name : {"A.999", "A.990", "A.99", "A.99X", "A.989", "B.LEV"})
        PutSource(name, "");
    Desktop.ExpectMessage("Delete *.999 File(s)", "Delete *.999 file(s) from " + From + "?", Answer::Yes);
    DeleteUploaded(State, Meter);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Question);
    EXPECT_EQ(Desktop.Shown[0].Choices, Buttons::YesNo);
    EXPECT_EQ(AllFiles(From), (Names{"A.989", "B.LEV"}));
    EXPECT_EQ(Meter.Calls.size(), 10u);
    EXPECT_EQ(Meter.Calls[0], "open 4");
    EXPECT_EQ(Meter.Calls[1], From + "A.99 > ");
    EXPECT_EQ(Meter.Calls[8], "4");
    EXPECT_EQ(Meter.Calls[9], "close");
    EXPECT_EQ(Desktop.Yields, 4);
    EXPECT_EQ(State.WasteBin, "trashempty.ico");
}

TEST_F(DeleteUploadedTest, SaysAtItsEndWhatIsGone) {
    PutSource("A.999", "");
    Desktop.ExpectMessageTitled("Delete *.999 File(s)", Answer::Yes);
    DeleteUploaded(State, Meter);
    EXPECT_EQ(UploadStatus(State), "1 file deleted");
    EXPECT_EQ(State.Outcome.Long, "1 file deleted from " + From + ".");
    Desktop.ExpectMessageTitled("No Files Found");
    DeleteUploaded(State, Meter);
    EXPECT_EQ(UploadStatus(State), "0 file(s) in the source folder");
}

TEST_F(DeleteUploadedTest, SaysWhenThereIsNothingToDelete) {
    ExpectWarning("No Files Found", "No *.999 file(s) to delete.");
    DeleteUploaded(State, Meter);
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
}

TEST_F(DeleteUploadedTest, DeletesNothingUnlessTheAnswerIsYes) {
    PutSource("A.999", "");
    Desktop.ExpectMessageTitled("Delete *.999 File(s)", Answer::No);
    DeleteUploaded(State, Meter);
    EXPECT_EQ(AllFiles(From), Names{"A.999"});
    EXPECT_TRUE(Meter.Calls.empty());
}

TEST_F(DeleteUploadedTest, ReportsAFileThatCannotBeDeletedAndClosesTheMeter) {
    PutSource("A.999", "");
    AsNobody([&] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Delete *.999 File(s)", Answer::Yes);
        desktop.ExpectMessageTitled("Program Error");
        DeleteUploaded(State, Meter);
        EXPECT_NE(desktop.Shown[1].Text.find("Source : Dorvane-frmUploadMenu-cmdDelete999_Click"),
                  std::string::npos);
        EXPECT_EQ(Meter.Calls.back(), "close");
        EXPECT_EQ(AllFiles(From), Names{"A.999"});
    });
}

TEST_F(EditSelectionTest, StartsTheGeneralEditorOnTheFile) {
    PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[General Editor]", "Path=C:\\EDIT\\", "Name=ed.exe"});
    State.FileSelection = "A.LEV";
    EditSelection(State);
    EXPECT_EQ(Desktop.Started, Names{"C:\\EDIT\\ed.exe " + From + "A.LEV"});
}

TEST_F(EditSelectionTest, DoesNothingWithoutASelection) {
    State.FileSelection = "";
    EditSelection(State);
    EXPECT_TRUE(Desktop.Started.empty());
}

TEST_F(EditSelectionTest, RefusesAnAsteriskOnly) {
    State.FileSelection = "*.LEV";
    ExpectWarning("Invalid File Name", "Wildcards (* and ?) not allowed.  Must select file name");
    EditSelection(State);
    PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[General Editor]", "Path=C:\\EDIT\\", "Name=ed.exe"});
    State.FileSelection = "A?.LEV";
    EditSelection(State);
    EXPECT_EQ(Desktop.Started, Names{"C:\\EDIT\\ed.exe " + From + "A?.LEV"});
}

TEST_F(EditSelectionTest, DoesNotStartTheFileItselfWithoutAnEditor) {
    for (const char* blank : {"", "\" \""}) {
        PutLines("C:\\WINDOWS\\dv_tarvex.ini", {"[General Editor]", "Path=" + std::string(blank), "Name="});
        State.FileSelection = "A.LEV";
        ExpectWarning("Editor Not Found", "Editor not found in INI file.  Can not edit file.");
        EditSelection(State);
    }
    EXPECT_TRUE(Desktop.Started.empty());
}

}  // namespace
}  // namespace Dorvane::Testing
