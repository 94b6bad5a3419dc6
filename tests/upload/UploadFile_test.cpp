// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/basGeneral.h"
#include "tests/upload/UploadSite.h"
#include "upload/basUpload.h"

namespace Dorvane::Testing {
namespace {

struct UploadFileTest : UploadSite {
    UploadFileTest() {
        DataTypeProfile({"[LEVEL]", "LEV_SrvIdx=TRUE", "DAT_SrvIdx=TRUE", "DAT_Append=TRUE", "TXT_Append=no",
                         "[File Types]", "LEV_Print=GENERIC", "DAT_Print=prdat.exe"});
    }
    bool Upload(const std::string& name, std::int16_t print = 0) {
        return UploadFile(From, To, name, "3/7/2026", Index, print, "LEVEL");
    }
    void ExpectRefusal(const std::string& name) {
        Desktop.ExpectMessage("File already exists",
                              "File " + name + " already exists in " + To + " .  Can not upload");
    }
};
using AppendDataFileTest = UploadFileTest;
using UploadRenameTest = UploadFileTest;

using Names = std::vector<std::string>;

TEST_F(UploadFileTest, CopiesIndexesAndRenames) {
    const std::string content("1 2\n\0\x1A\xFF last line without end", 30);
    PutSource("DAY1.LEV", content);
    EXPECT_TRUE(Upload("DAY1.LEV"));
    EXPECT_EQ(FileContent(To + "DAY1.LEV"), content);
    EXPECT_EQ(FileContent(To + Index), IndexHead + "DAY1     LEV       DAY1                3/7/2026\r\n");
    EXPECT_EQ(AllFiles(From), Names{"DAY1.999"});
    EXPECT_EQ(FileContent(From + "DAY1.999"), content);
    EXPECT_TRUE(Desktop.PrintedLines.empty());
}

TEST_F(UploadFileTest, RefusesAnExistingTargetAndTouchesNothing) {
    PutSource("DAY1.LEV", "new");
    PutFile(To + "DAY1.LEV", "old");
    ExpectRefusal("DAY1.LEV");
    EXPECT_FALSE(Upload("DAY1.LEV", 1));
    EXPECT_EQ(Desktop.Shown[0].Picture, Icon::Exclamation);
    EXPECT_EQ(Desktop.Shown[0].Choices, Buttons::Ok);
    EXPECT_EQ(FileContent(To + "DAY1.LEV"), "old");
    EXPECT_EQ(FileContent(To + Index), IndexHead);
    EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
    EXPECT_TRUE(Desktop.PrintedLines.empty());
}

TEST_F(UploadFileTest, RefusesWhenAppendIsAnythingButTrue) {
    PutSource("A.TXT", "new");
    PutFile(To + "A.TXT", "old");
    ExpectRefusal("A.TXT");
    EXPECT_FALSE(Upload("A.TXT"));
}

TEST_F(UploadFileTest, AppendsToAnExistingTargetAndIndexesItAgain) {
    PutSource("A.DAT", "one");
    EXPECT_TRUE(Upload("A.DAT"));
    PutSource("A.DAT", "two");
    PutFile(To + "A.DAT", "one\r\n");
    EXPECT_TRUE(Upload("A.DAT"));
    EXPECT_EQ(FileContent(To + "A.DAT"), "one\r\ntwo\r\n");
    const std::string line = "A        DAT       A                   3/7/2026\r\n";
    EXPECT_EQ(FileContent(To + Index), IndexHead + line + line);
    EXPECT_EQ(AllFiles(From), (Names{"A.998", "A.999"}));
}

TEST_F(UploadFileTest, CopiesPlainlyWhenThereIsNothingToAppendTo) {
    PutSource("A.DAT", "one\ntwo");
    EXPECT_TRUE(Upload("A.DAT"));
    EXPECT_EQ(FileContent(To + "A.DAT"), "one\ntwo");
    EXPECT_EQ(FileContent(To + Index), IndexHead + "A        DAT       A                   3/7/2026\r\n");
}

TEST_F(UploadFileTest, WritesNoIndexLineWithoutTheSwitch) {
    PutSource("A.TXT", "x");
    EXPECT_TRUE(Upload("A.TXT"));
    EXPECT_EQ(FileContent(To + Index), IndexHead);
    EXPECT_EQ(AllFiles(From), Names{"A.999"});
}

TEST_F(UploadFileTest, PrintsTheSourceUnderItsOldNameBeforeItIsRenamed) {
    PutSource("DAY1.LEV", "first\nsecond");
    EXPECT_TRUE(Upload("DAY1.LEV", 1));
    EXPECT_EQ(Desktop.PrintFonts, std::vector<std::string>{"Courier 12"});
    EXPECT_EQ(Desktop.PrintedLines,
              (std::vector<std::string>{"     ", "     File Name : " + To + "DAY1.LEVDAY1.LEV", "     ",
                                        "     first", "     second"}));
    EXPECT_EQ(AllFiles(From), Names{"DAY1.999"});
}

TEST_F(UploadFileTest, RunsThePrintProgramOnTheTarget) {
    PutSource("A.DAT", "x");
    bool renamedAlready = true;
    Desktop.OnRun = [&](const std::string&) { renamedAlready = !FileExists(From + "A.DAT"); };
    EXPECT_TRUE(Upload("A.DAT", 1));
    EXPECT_EQ(Desktop.Started, std::vector<std::string>{"P:\\DORVANE\\Programs\\PRDAT.EXE " + To + "A.DAT"});
    EXPECT_FALSE(renamedAlready);
}

TEST_F(UploadFileTest, PrintsNothingUnasked) {
    PutSource("A.DAT", "x");
    PutSource("B.TXT", "x");
    Upload("A.DAT", 0);
    Upload("B.TXT", 1);
    EXPECT_TRUE(Desktop.Started.empty());
    EXPECT_TRUE(Desktop.PrintFonts.empty());
}

TEST_F(UploadFileTest, TakesAWholeNameWithoutPointAsTheExtension) {
    DataTypeProfile({"[LEVEL]", "README_Print=p.exe"});
    PutSource("README", "x");
    EXPECT_TRUE(Upload("README", 1));
    EXPECT_EQ(Desktop.Started, std::vector<std::string>{"P:\\DORVANE\\Programs\\P.EXE " + To + "README"});
    EXPECT_EQ(AllFiles(From), Names{"999"});
}

TEST_F(UploadFileTest, ReportsTheIndexLineOfANameWithoutPoint) {
    DataTypeProfile({"[LEVEL]", "README_SrvIdx=TRUE"});
    PutSource("README", "x");
    Desktop.ExpectMessage("Program Error",
                          "Error : 5\r\n\r\nDescription : Invalid procedure call or argument\r\n\r\nSource : "
                          "Dorvane-basUpload-UploadFile");
    EXPECT_FALSE(Upload("README"));
    EXPECT_EQ(FileContent(To + "README"), "x");
    EXPECT_EQ(FileContent(To + Index), IndexHead);
    EXPECT_EQ(AllFiles(From), Names{"README"});
}

TEST_F(UploadFileTest, SplitsANameWithTwoPointsAtTheFirst) {
    DataTypeProfile({"[LEVEL]", "B.C_SrvIdx=TRUE"});
    PutSource("A.B.C", "x");
    EXPECT_TRUE(Upload("A.B.C"));
    EXPECT_EQ(FileContent(To + Index), IndexHead + "A        B.C       A                   3/7/2026\r\n");
    EXPECT_EQ(AllFiles(From), Names{"A.999"});
}

TEST_F(UploadRenameTest, GivesTwoExtensionsOfOneBaseTheNumbers999And998) {
    PutSource("A.LEV", "lev");
    PutSource("A.TXT", "txt");
    Upload("A.LEV");
    Upload("A.TXT");
    EXPECT_EQ(FileContent(From + "A.999"), "lev");
    EXPECT_EQ(FileContent(From + "A.998"), "txt");
}

TEST_F(UploadRenameTest, MovesAFileOf999To998) {
    PutSource("A.999", "x");
    EXPECT_TRUE(UploadRename(From, "A.999"));
    EXPECT_EQ(AllFiles(From), Names{"A.998"});
}

TEST_F(UploadRenameTest, GivesNumbersBelow100ThreeDigits) {
    PutSource("A.LEV", "x");
    for (int n = 999; n >= 8; --n)
        PutFile(From + "a." + std::string(n < 10 ? "00" : n < 100 ? "0" : "") + std::to_string(n), "");
    EXPECT_TRUE(UploadRename(From, "A.LEV"));
    EXPECT_EQ(FileContent(From + "A.007"), "x");
}

TEST_F(UploadRenameTest, GoesDownTo001) {
    PutSource("A.LEV", "x");
    for (int n = 999; n >= 2; --n)
        PutFile(From + "A." + std::string(n < 10 ? "00" : n < 100 ? "0" : "") + std::to_string(n), "");
    EXPECT_TRUE(UploadRename(From, "A.LEV"));
    EXPECT_EQ(FileContent(From + "A.001"), "x");
}

TEST_F(UploadRenameTest, KeepsTheNameSilentlyWhenAllNumbersAreTaken) {
    PutSource("A.LEV", "x");
    for (int n = 999; n >= 1; --n)
        PutFile(From + "A." + std::string(n < 10 ? "00" : n < 100 ? "0" : "") + std::to_string(n), "");
    EXPECT_TRUE(UploadRename(From, "A.LEV"));
    EXPECT_EQ(FileContent(From + "A.LEV"), "x");
}

TEST_F(UploadRenameTest, PassesOverANumberTakenInAnotherCase) {
    PutFile(From + "a.lev", "x");
    PutFile(From + "A.999", "");
    EXPECT_TRUE(UploadRename(From, "a.lev"));
    EXPECT_EQ(FileContent(From + "a.998"), "x");
}

TEST_F(UploadRenameTest, PassesOverAFolderOfThatName) {
    PutSource("A.LEV", "x");
    MakeFolders(From + "A.999\\");
    EXPECT_TRUE(UploadRename(From, "A.LEV"));
    EXPECT_EQ(FileContent(From + "A.998"), "x");
}

TEST_F(UploadRenameTest, ReportsASourceThatIsGone) {
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(UploadRename(From, "A.LEV"));
    EXPECT_NE(Desktop.Shown[0].Text.find("Error : 53"), std::string::npos);
    EXPECT_NE(Desktop.Shown[0].Text.find("Source : Dorvane-basUpload-UploadRename"), std::string::npos);
}

TEST_F(AppendDataFileTest, EndsEveryLineInCrLf) {
    PutFile(To + "A.DAT", "old\r\n");
    PutSource("A.DAT", "unix\nmac\rdos\r\n\nlast");
    EXPECT_TRUE(AppendDataFile(From, To, "A.DAT"));
    EXPECT_EQ(FileContent(To + "A.DAT"), "old\r\nunix\r\nmac\r\ndos\r\n\r\nlast\r\n");
}

TEST_F(AppendDataFileTest, ContinuesALastLineWithoutEnd) {
    PutFile(To + "A.DAT", "old");
    PutSource("A.DAT", "new");
    EXPECT_TRUE(AppendDataFile(From, To, "A.DAT"));
    EXPECT_EQ(FileContent(To + "A.DAT"), "oldnew\r\n");
}

TEST_F(AppendDataFileTest, PutsTheDataInPlaceOfAnEndOfFileMark) {
    PutSource("A.DAT", "new\r\n\x1A");
    PutFile(To + "A.DAT", "old\r\n\x1A");
    EXPECT_TRUE(AppendDataFile(From, To, "A.DAT"));
    EXPECT_EQ(FileContent(To + "A.DAT"), "old\r\nnew\r\n");
    PutFile(To + "A.DAT", "old\x1A");
    EXPECT_TRUE(AppendDataFile(From, To, "A.DAT"));
    EXPECT_EQ(FileContent(To + "A.DAT"), "oldnew\r\n");
}

TEST_F(AppendDataFileTest, AppendsALineOfAMillionCharacters) {
    const std::string line(1'000'000, '7');
    PutFile(To + "A.DAT", "old\r\n");
    PutSource("A.DAT", line);
    EXPECT_TRUE(AppendDataFile(From, To, "A.DAT"));
    EXPECT_EQ(FileContent(To + "A.DAT"), "old\r\n" + line + "\r\n");
}

TEST_F(AppendDataFileTest, AppendsNothingOfAnEmptyFile) {
    PutFile(To + "A.DAT", "old");
    PutSource("A.DAT", "");
    EXPECT_TRUE(AppendDataFile(From, To, "A.DAT"));
    EXPECT_EQ(FileContent(To + "A.DAT"), "old");
}

}  // namespace
}  // namespace Dorvane::Testing
