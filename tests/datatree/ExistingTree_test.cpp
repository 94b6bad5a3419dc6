// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Text.h"
#include "datatree/basTree.h"
#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

namespace {

class GetExistingTree : public DataSite {
  protected:
    void Structure(const std::string& system, const std::string& content) {
        PutFile(Init(system + ".STR"), content);
    }
    void History(const std::string& system, const std::string& groups) {
        PutFile(Init(system + ".HIS"), "TITLE\r\n\r\nSubdirectory\r\n----\r\n" + groups);
    }
    int Read() { return Dorvane::GetExistingTree(Records, Lines); }

    List1<PathRecord> Records;
    Sorter Lines;
};

constexpr const char* DamStructure =
    "DAM      Main dam\r\n"
    "\r\n"
    "NORTH    North gallery\r\n"
    "\r\n"
    "LEVEL    Levelling\r\n"
    "\r\n"
    "SRV12    Twelfth survey\r\n";

constexpr const char* DamLine = " *       DAM       NORTH     LEVEL     SRV12\r\n";

}  // namespace

TEST_F(GetExistingTree, IsEmptyWithoutAnything) {
    Records.Add({});
    EXPECT_EQ(Read(), 0);
    EXPECT_TRUE(Records.Empty());
}

TEST_F(GetExistingTree, MergesNamesDescriptionsAndHistory) {
    PutFile(Init("CHOICES.SYS"), "DAM      1 A dam\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    Structure("DAM", DamStructure);
    History("DAM", "DAM\\NORTH\\LEVEL\\SRV12\r\n    Created     11-20-26      First levelling\r\n");
    ASSERT_EQ(Read(), 1);
    EXPECT_EQ(Records[1], (PathRecord{"DAM", "Main dam", "NORTH", "North gallery", "LEVEL", "Levelling",
                                      "SRV12", "Twelfth survey", "", "11-20-26", "First levelling"}));
}

TEST_F(GetExistingTree, PutsSystemsBehindOneAnotherInTheOrderOfChoices) {
    PutFile(Init("CHOICES.SYS"), "WEIR     1\r\nDAM      1\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    PutFile(Init("WEIR.PTH"),
            " *       WEIR      NORTH     LEVEL     SRV2\r\n *       WEIR      NORTH     LEVEL     SRV1\r\n");
    ASSERT_EQ(Read(), 3);
    EXPECT_EQ(Records[1].Root + Records[1].Epoch, "WEIRSRV1");
    EXPECT_EQ(Records[2].Root + Records[2].Epoch, "WEIRSRV2");
    EXPECT_EQ(Records[3].Root, "DAM");
}

TEST_F(GetExistingTree, ShowsOnlyTheSecondSystemWhenTheFirstHasNoRegistry) {
    PutFile(Init("CHOICES.SYS"), "WEIR     1\r\nDAM      1\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    ASSERT_EQ(Read(), 1);
    EXPECT_EQ(Records[1].Root, "DAM");
}

TEST_F(GetExistingTree, LeavesOutTheRegistryOfASystemOfAnotherKind) {
    PutFile(Init("CHOICES.SYS"), "DAM      2\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    EXPECT_EQ(Read(), 0);
}

TEST_F(GetExistingTree, TakesDescriptionsFromSystemsOfAnyKindTheLaterOneFirst) {
    PutFile(Init("CHOICES.SYS"), "DAM      1\r\nOTHER    2\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    Structure("DAM", DamStructure);
    Structure("OTHER",
              "OTHER    Other\r\n\r\nNORTH    Later north\r\n\r\nLEVEL    Later level\r\n\r\nSRV12    Later "
              "survey\r\n");
    ASSERT_EQ(Read(), 1);
    EXPECT_EQ(Records[1].RootDesc, "Main dam");
    EXPECT_EQ(Records[1].LocationDesc, "Later north");
    EXPECT_EQ(Records[1].TypeDesc, "Later level");
    EXPECT_EQ(Records[1].EpochDesc, "Later survey");
}

TEST_F(GetExistingTree, LeavesCodesWithoutDescriptionWhenThereIsNone) {
    PutFile(Init("CHOICES.SYS"), "DAM      1 A dam\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    ASSERT_EQ(Read(), 1);
    EXPECT_EQ(Records[1].RootDesc, "");
    EXPECT_EQ(Records[1].TypeDesc, "");
    EXPECT_EQ(Records[1].Created, "");
}

TEST_F(GetExistingTree, DescribesProjectFoldersByFixedTexts) {
    PutFile(Init("CHOICES.SYS"), "DAM      1\r\n");
    PutFile(Init("DAM.PTH"), std::string(DamLine) + " *       DAM       SOUTH     LEVEL     SRV12\r\n");
    MakeFolders(Data("DAM\\NORTH\\ADJUST\\PROJ\\"));
    Structure("DAM", DamStructure);
    History("DAM", "DAM\\NORTH\\ADJUST\\PROJ\r\n    Created     11-20-26      By hand\r\n");
    ASSERT_EQ(Read(), 3);
    EXPECT_EQ(Records[1],
              (PathRecord{"DAM", "Main dam", "NORTH", "North gallery", "ADJUST", "Adjustment files", "PROJ",
                          "", "", "\?\?-\?\?-\?\?", "Adjustment input files"}));
}

TEST_F(GetExistingTree, GivesProjectFoldersNoHistoryWhenNoSystemHasAny) {
    PutFile(Init("CHOICES.SYS"), "DAM      1\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    MakeFolders(Data("DAM\\NORTH\\ADJUST\\PROJ\\"));
    ASSERT_EQ(Read(), 2);
    EXPECT_EQ(Records[1].Type, "ADJUST");
    EXPECT_EQ(Records[1].Created, "");
    EXPECT_EQ(Records[1].Usage, "");
    EXPECT_EQ(Records[1].TypeDesc, "");
}

TEST_F(GetExistingTree, GivesProjectFoldersTheirTextsAlsoWhenALaterSystemHasNoHistory) {
    PutFile(Init("CHOICES.SYS"), "DAM      1\r\nWEIR     1\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    MakeFolders(Data("DAM\\NORTH\\ADJUST\\PROJ\\"));
    History("DAM", "DAM\\NORTH\\LEVEL\\SRV12\r\n    Created     11-20-26      First levelling\r\n");
    ASSERT_EQ(Read(), 2);
    EXPECT_EQ(Records[1].Usage, "Adjustment input files");
}

TEST_F(GetExistingTree, LetsADataTypeNamedAdjustDescribeProjectsUnlessAnotherTypeFollows) {
    PutFile(Init("CHOICES.SYS"), "DAM      1\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    MakeFolders(Data("DAM\\NORTH\\ADJUST\\PROJ\\"));
    Structure("DAM", "DAM\r\n\r\n\r\nLEVEL    Levelling\r\nADJUST   Own words\r\n\r\n");
    ASSERT_EQ(Read(), 2);
    EXPECT_EQ(Records[1].TypeDesc, "Own words");
    Structure("DAM", "DAM\r\n\r\n\r\nADJUST   Own words\r\nLEVEL    Levelling\r\n\r\n");
    ASSERT_EQ(Read(), 2);
    EXPECT_EQ(Records[1].TypeDesc, "Adjustment files");
    EXPECT_EQ(Records[2].TypeDesc, "Levelling");
}

TEST_F(GetExistingTree, GivesDeeperFoldersTheHistoryOfTheirEpoch) {
    PutFile(Init("CHOICES.SYS"), "DAM      1\r\n");
    PutFile(Init("DAM.PTH"), std::string(DamLine) + " *       DAM       SOUTH     LEVEL     SRV12\r\n");
    MakeFolders(Data("DAM\\NORTH\\LEVEL\\SRV12\\RAW\\"));
    History("DAM", "DAM\\NORTH\\LEVEL\\SRV12\r\n    Created     11-20-26      First levelling\r\n");
    ASSERT_EQ(Read(), 3);
    EXPECT_EQ(Records[2].Survey, "RAW");
    EXPECT_EQ(Records[2].Created, "11-20-26");
    EXPECT_EQ(Records[2].Usage, "First levelling");
    EXPECT_EQ(Records[3].Created, "");
}

TEST_F(GetExistingTree, TakesTheHistoryOfTheLastSystemThatKnowsAFolder) {
    PutFile(Init("CHOICES.SYS"), "DAM      1\r\nOTHER    2\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    History("DAM", "DAM\\NORTH\\LEVEL\\SRV12\r\n    Created     11-20-26      First\r\n");
    History("OTHER", "DAM\\NORTH\\LEVEL\\SRV12\r\n    Created     11-21-26      Later\r\n");
    ASSERT_EQ(Read(), 1);
    EXPECT_EQ(Records[1].Usage, "Later");
}

TEST_F(GetExistingTree, HasNoLimitOfSixteenSystems) {
    std::string choices;
    for (int i = 1; i <= 17; ++i)
        choices += PadRight("SYS" + std::to_string(i), 9) + "1\r\n";
    PutFile(Init("CHOICES.SYS"), choices);
    PutFile(Init("SYS17.PTH"), " *       SYS17     NORTH     LEVEL     SRV12\r\n");
    Structure("SYS17", "SYS17    The last\r\n\r\n\r\n\r\n");
    ASSERT_EQ(Read(), 1);
    EXPECT_EQ(Records[1].RootDesc, "The last");
}

TEST_F(GetExistingTree, ReadsAChoiceFileOfManyEmptyLines) {
    PutFile(Init("CHOICES.SYS"), std::string(3000, '\n'));
    EXPECT_EQ(Read(), 0);
}

TEST_F(GetExistingTree, GoesOnBehindASystemWhoseRegistryIsEmpty) {
    PutFile(Init("CHOICES.SYS"), "WEIR     1\r\nDAM      1\r\n");
    PutFile(Init("WEIR.PTH"), "");
    PutFile(Init("DAM.PTH"), DamLine);
    ExpectReport(Desk, 9, "Subscript out of range", "basRead-ReadPthFile");
    EXPECT_EQ(Read(), 1);
}

TEST_F(GetExistingTree, ReportsMoreFoldersOfAllSystemsThanA16BitCountHolds) {
    PutFile(Init("CHOICES.SYS"), "ONE      1\r\nTWO      1\r\n");
    std::string lines;
    for (int i = 0; i < 17000; ++i)
        lines += " *       CALIB     INVAR     CAL1\r\n";
    PutFile(Init("ONE.PTH"), lines);
    PutFile(Init("TWO.PTH"), lines);
    ExpectReport(Desk, 6, "Overflow", "basTree-GetExistingTree");
    EXPECT_EQ(Read(), 0);
    EXPECT_TRUE(Records.Empty());
}

TEST_F(GetExistingTree, IsReadIntoPathRecordsUnderAWaitingWindow) {
    PutFile(Init("CHOICES.SYS"), "DAM      1\r\n");
    PutFile(Init("DAM.PTH"), DamLine);
    std::vector<std::string> shown;
    Desk.OnYield = [&] { shown.push_back("yield"); };
    ReloadPathRecords(
        {[&](const std::string& text) { shown.push_back(text); }, [&] { shown.push_back("closed"); }},
        "Searching for existing Tarvex data folders.");
    EXPECT_EQ(shown,
              (std::vector<std::string>{"Searching for existing Tarvex data folders.", "yield", "closed"}));
    EXPECT_EQ(Global().PathRecords.Count(), 1);
    ReloadPathRecords({}, "");
    EXPECT_EQ(Global().PathRecords.Count(), 1);
}

}  // namespace Dorvane::Testing
