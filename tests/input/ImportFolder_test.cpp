// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/ImportFolder.h"

#include "core/ProfileStore.h"
#include "input/TreeFolders.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

const std::string Folder = "D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV12\\";

TEST(ProposePath, ReplacesThePartBeforeTheLast) {
    EXPECT_EQ(ProposePath("D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\\", "TPS"),
              "D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV12\\");
}

TEST(ProposePath, TakesAPathOfFivePartsAndItsDriveIsOne) {
    EXPECT_EQ(ProposePath("D:\\DAM\\NORTH\\LEVEL\\SRV12\\", "TPS"), "D:\\DAM\\NORTH\\TPS\\SRV12\\");
}

TEST(ProposePath, LeavesAPathOfFewerThanFiveParts) {
    EXPECT_EQ(ProposePath("D:\\TARVEX\\DAM\\NORTH\\", "TPS"), "D:\\TARVEX\\DAM\\NORTH\\");
    EXPECT_EQ(ProposePath("", "TPS"), "");
}

TEST(ProposePath, ReplacesTheFirstOccurrenceOfThatTextWhereverItStands) {
    EXPECT_EQ(ProposePath("D:\\DATA\\DAM\\NORTH\\DA\\SRV12\\", "TPS"), "D:\\TPSTA\\DAM\\NORTH\\DA\\SRV12\\");
}

TEST(ProposePath, ReplacesAlsoWhenThePathHoldsTheWordAlready) {
    EXPECT_EQ(ProposePath("D:\\TARVEX\\ADJUST\\NORTH\\LEVEL\\SRV12\\", "ADJUST"),
              "D:\\TARVEX\\ADJUST\\NORTH\\ADJUST\\SRV12\\");
}

class ResDatesTest : public InputSite {
  protected:
    ResDatesTest() {
        PutProfile("dv_datatype.ini",
                   {"[TPS]", "GSI_Reduce=PROG.EXE first.res SECOND.RES", "ONE_Reduce=PROG.EXE",
                    "[File Types]", "LEV_Reduce=LEV.EXE LEVEL.RES"});
        MakeFolders(Folder);
    }

    void Put(const std::string& name, int second) {
        PutFile(Folder + name, "x");
        SetTimeStamp(Folder + name, {2026, 11, 20, 9, 5, second});
    }

    ResDates Compare(const std::string& extension = "GSI") {
        return CompareResDates(Folder, "TPS", extension);
    }
};

TEST_F(ResDatesTest, WithoutAReductionThereIsNothingToCompare) {
    EXPECT_EQ(Compare("XYZ"), NothingToCompare);
    EXPECT_EQ(Compare("ONE"), NothingToCompare);
}

TEST_F(ResDatesTest, WithoutResultFilesThereAreNone) {
    Put("A.GSI", 1);
    EXPECT_EQ(Compare(), NoResultFiles);
}

TEST_F(ResDatesTest, OtherResultFilesThanTheReductionsCountAsNone) {
    Put("A.GSI", 1);
    Put("OTHER.RES", 2);
    EXPECT_EQ(Compare(), NoResultFiles);
}

TEST_F(ResDatesTest, WithoutDataFilesThereIsNothingToBeNewer) {
    Put("OTHER.RES", 2);
    EXPECT_EQ(Compare(), NoDataFiles);
}

TEST_F(ResDatesTest, ATieIsUpToDateAndOneSecondIsNewer) {
    Put("FIRST.RES", 10);
    Put("A.GSI", 10);
    EXPECT_EQ(Compare(), ResultsUpToDate);
    Put("B.GSI", 11);
    EXPECT_EQ(Compare(), DataIsNewer);
}

TEST_F(ResDatesTest, TheFirstWordThatIsListedIsTheReference) {
    Put("SECOND.RES", 20);
    Put("A.GSI", 10);
    EXPECT_EQ(Compare(), ResultsUpToDate);
    Put("FIRST.RES", 5);
    EXPECT_EQ(Compare(), DataIsNewer);
}

TEST_F(ResDatesTest, TheCommonSectionServesWhenTheLocationsIsSilent) {
    Put("LEVEL.RES", 20);
    Put("A.LEV", 10);
    EXPECT_EQ(Compare("LEV"), ResultsUpToDate);
}

class ImportFolderTest : public InputSite {
  protected:
    ImportFolderTest() {
        PutProfiles();
        PutProfile("dv_tarvex.ini", {"[Tarvex]", "Last Path=D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\\",
                                     "[Manual]", "Last Path=D:\\LAST\\"});
        Screen = OpenScreen();
        MakeFolders(Folder);
        Picked = Folder;
    }

    void PutResult(int second) {
        PutFile(Folder + "TOTAL.RES", "x");
        SetTimeStamp(Folder + "TOTAL.RES", {2026, 11, 20, 9, 5, second});
    }

    void PutData(int second) {
        PutFile(Folder + "A.GSI", "x");
        SetTimeStamp(Folder + "A.GSI", {2026, 11, 20, 9, 5, second});
    }

    void Import() { ImportFolder(Screen, Services()); }

    bool IsListed() const { return Screen.trvInput.Find(Folder) != nullptr; }

    const std::string NoResults =
        "No *.RES file(s) exist in the choosen directory " + Folder + ".  Can not add to project.";
    InputScreen Screen;
};

TEST_F(ImportFolderTest, AddsAFolderWithUpToDateResultsSilently) {
    PutResult(10);
    PutData(5);
    Import();
    ASSERT_TRUE(IsListed());
    const TreeNode& node = *Screen.trvInput.Find(Folder);
    EXPECT_EQ(node.Parent, "Laser");
    EXPECT_EQ(node.Caption, Folder);
    EXPECT_EQ(node.Image, "sclsfolder");
    EXPECT_EQ(Captions, (std::vector<std::string>{"Input Laser field data from"}));
    EXPECT_EQ(Paths, (std::vector<std::string>{Folder}));
    EXPECT_EQ(Screen.lblDirectory, Folder);
}

TEST_F(ImportFolderTest, WarnsOfNewerDataAndAddsTheFolder) {
    PutResult(10);
    PutData(15);
    Desktop.ExpectMessage(
        "Newer Dates",
        "Some files with extension GSI are newer than the *.RES files.  May need to update by "
        "running data reductions.");
    Import();
    EXPECT_EQ(Desktop.Shown.back().Picture, Icon::Exclamation);
    EXPECT_TRUE(IsListed());
}

TEST_F(ImportFolderTest, WarnsOfMissingDataAndAddsTheFolder) {
    PutResult(10);
    Desktop.ExpectMessage("No Data Files", "No data files with extension GSI exist for date comparasion.");
    Import();
    EXPECT_TRUE(IsListed());
}

TEST_F(ImportFolderTest, AFolderWithoutResultsIsNotAdded) {
    PutData(10);
    Desktop.ExpectMessage("No Reduction File(s)", NoResults);
    Import();
    EXPECT_FALSE(IsListed());
}

TEST_F(ImportFolderTest, AFolderWithNothingToCompareIsNotAdded) {
    PutProfile("dv_datatype.ini", {"[TPS]", "Extension=GSI"});
    PutResult(10);
    Desktop.ExpectMessage("No Reduction File(s)", NoResults);
    Import();
    EXPECT_FALSE(IsListed());
}

TEST_F(ImportFolderTest, AFolderThatStandsInTheTreeAlreadyIsReported) {
    PutResult(10);
    PutData(5);
    AddTreeFolder(Screen.trvInput, "Levelling", Folder);
    Desktop.ExpectMessageTitled("Program Error");
    Import();
    EXPECT_EQ(LastReport(Desktop), "35602 Dorvane-frmInput-cmdImport_Click");
    EXPECT_EQ(Screen.trvInput.Find(Folder)->Parent, "Levelling");
}

TEST_F(ImportFolderTest, OfSeveralLocationWordsTheLastOneInThePathCounts) {
    PutProfile("dv_datatype.ini",
               {"[TPS]", "Extension=GSI", "GSI_Reduce=P TOTAL.RES", "[NORTH]", "Extension=WRONG"});
    Screen.Model.Types[2].Location = "NORTH TPS DIST";
    Screen.icmbInput = 2;
    PutResult(10);
    PutData(5);
    Import();
    EXPECT_TRUE(IsListed());
    EXPECT_EQ(Paths, (std::vector<std::string>{"D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\\"}));
}

TEST_F(ImportFolderTest, ALocationThatThePathDoesNotHoldEndsInExtensionsNotFound) {
    Screen.icmbInput = 2;
    Screen.Model.Types[2].Location = "ANGLES DIST";
    PutResult(10);
    Desktop.ExpectMessage("Extensions Not Found",
                          "Can not find extension information for location .  Can not add to project.");
    Import();
    EXPECT_FALSE(IsListed());
}

TEST_F(ImportFolderTest, ALocationWithoutExtensionsIsTold) {
    PutProfile("dv_datatype.ini", {"[TPS]"});
    Desktop.ExpectMessage("Extensions Not Found",
                          "Can not find extension information for location TPS.  Can not add to project.");
    Import();
    EXPECT_FALSE(IsListed());
}

TEST_F(ImportFolderTest, ACancelledTreeStops) {
    PutResult(10);
    Picked = "";
    Screen.lblDirectory = "D:\\SHOWN\\";
    Import();
    EXPECT_FALSE(IsListed());
    EXPECT_EQ(Screen.lblDirectory, "D:\\SHOWN\\");
}

TEST_F(ImportFolderTest, InManualModeTheFolderComesFromADialogAndIsKept) {
    PutResult(10);
    PutData(5);
    Global().Path_type = 2;
    Desktop.ExpectFile("Input Laser field data from", Folder + "RES");
    Import();
    EXPECT_TRUE(IsListed());
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "D:\\LAST\\");
    EXPECT_EQ(Desktop.Dialogs[0].FileName, "RES");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Manual", "Last Path"), Folder);
}

TEST_F(ImportFolderTest, ACancelledDialogLeavesTheScreenAsItWas) {
    PutResult(10);
    Global().Path_type = 2;
    Screen.lblDirectory = Folder;
    Desktop.ExpectFile("Input Laser field data from", std::nullopt);
    Import();
    EXPECT_FALSE(IsListed());
    EXPECT_EQ(Screen.lblDirectory, Folder);
}

TEST_F(ImportFolderTest, AnExtensionWithNothingToCompareLeavesTheOthersToDecide) {
    for (const char* extensions : {"XYZ GSI", "GSI XYZ", "XYZ GSI XYZ"}) {
        IniWriteString("dv_datatype.ini", "TPS", "Extension", extensions);
        Screen = OpenScreen();
        PutResult(10);
        PutData(5);
        Import();
        EXPECT_TRUE(IsListed()) << extensions;
    }
}

TEST_F(ImportFolderTest, EveryExtensionIsComparedAlsoBehindOneThatIsGood) {
    IniWriteString("dv_datatype.ini", "TPS", "Extension", "ABC XYZ GSI");
    IniWriteString("dv_datatype.ini", "TPS", "ABC_Reduce", "RED.EXE TOTAL.RES");
    PutResult(10);
    PutData(15);
    Desktop.ExpectMessageTitled("No Data Files");
    Desktop.ExpectMessageTitled("Newer Dates");
    Import();
    EXPECT_TRUE(IsListed());
}

TEST_F(ImportFolderTest, OnlyExtensionsWithNothingToCompareAreNoResults) {
    IniWriteString("dv_datatype.ini", "TPS", "Extension", "XYZ UVW");
    PutResult(10);
    Desktop.ExpectMessage("No Reduction File(s)", NoResults);
    Import();
    EXPECT_FALSE(IsListed());
}

TEST_F(ImportFolderTest, WithoutATypeNothingHappens) {
    Screen.icmbInput = 0;
    Import();
    EXPECT_TRUE(Captions.empty());
}

}  // namespace
}  // namespace Dorvane::Testing
