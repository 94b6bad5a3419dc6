// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/basTree.h"
#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

namespace {

class TarvexTreeSetup : public DataSite {
  protected:
    TarvexTreeSetup() { Global().Data_drive = "D:\\"; }

    void Folder(const std::string& location, const std::string& type, const std::string& epoch,
                const std::string& survey = "", const std::string& root = "DAM") {
        Records.Add({root, root + " text", location, location + " text", type, type + " text", epoch,
                     epoch + " text", survey, "", ""});
    }
    std::vector<std::string> Keys() {
        Dorvane::TarvexTreeSetup(Records, Records.Count(), Tree);
        std::vector<std::string> keys;
        for (const TreeNode& node : Tree.Nodes())
            keys.push_back(node.Key);
        return keys;
    }

    List1<PathRecord> Records;
    TreeModel Tree;
};

using KeyList = std::vector<std::string>;

}  // namespace

TEST_F(TarvexTreeSetup, HasOnlyTheTopNodeWithoutRecords) {
    EXPECT_EQ(Keys(), (KeyList{"D:\\"}));
    EXPECT_EQ(Tree.Nodes()[0], (TreeNode{"D:\\", "", "Data Drive", "clsfolder", "opnfolder", true}));
}

TEST_F(TarvexTreeSetup, MakesAChainOfFiveNodesForOneFolder) {
    Folder("NORTH", "LEVEL", "SRV12");
    EXPECT_EQ(Keys(), (KeyList{"D:\\", "D:\\DAM\\", "D:\\DAM\\NORTH\\", "D:\\DAM\\NORTH\\LEVEL\\",
                               "D:\\DAM\\NORTH\\LEVEL\\SRV12\\"}));
    EXPECT_EQ(Tree.Nodes()[4], (TreeNode{"D:\\DAM\\NORTH\\LEVEL\\SRV12\\", "D:\\DAM\\NORTH\\LEVEL\\",
                                         "SRV12 text", "clsfolder", "opnfolder", false}));
}

TEST_F(TarvexTreeSetup, CaptionsNodesByTheirDescriptions) {
    Folder("NORTH", "LEVEL", "SRV12", "RAW");
    Keys();
    std::vector<std::string> captions;
    for (const TreeNode& node : Tree.Nodes())
        captions.push_back(node.Caption);
    EXPECT_EQ(captions, (std::vector<std::string>{"Data Drive", "DAM text", "NORTH text", "LEVEL text",
                                                  "SRV12 text", "RAW"}));
}

TEST_F(TarvexTreeSetup, CaptionsAProjectFolderByItsName) {
    Folder("NORTH", "ADJUST", "PROJ");
    Keys();
    EXPECT_EQ(Tree.Nodes()[3].Caption, "ADJUST text");
    EXPECT_EQ(Tree.Nodes()[4].Caption, "PROJ");
}

TEST_F(TarvexTreeSetup, LeavesANodeWithoutDescriptionWithoutCaption) {
    Records.Add({"DAM", "", "NORTH", "", "LEVEL", "", "SRV12", "", "", "", ""});
    Keys();
    EXPECT_EQ(Tree.Nodes()[1].Caption, "");
    EXPECT_EQ(Tree.Nodes()[4].Caption, "");
}

TEST_F(TarvexTreeSetup, AddsNodesFromTheFirstLevelThatDiffers) {
    Folder("NORTH", "LEVEL", "SRV1");
    Folder("NORTH", "LEVEL", "SRV2");
    Folder("NORTH", "TOTAL", "SRV2");
    Folder("SOUTH", "TOTAL", "SRV2");
    Folder("SOUTH", "TOTAL", "SRV2", "", "WEIR");
    EXPECT_EQ(Keys(),
              (KeyList{"D:\\", "D:\\DAM\\", "D:\\DAM\\NORTH\\", "D:\\DAM\\NORTH\\LEVEL\\",
                       "D:\\DAM\\NORTH\\LEVEL\\SRV1\\", "D:\\DAM\\NORTH\\LEVEL\\SRV2\\",
                       "D:\\DAM\\NORTH\\TOTAL\\", "D:\\DAM\\NORTH\\TOTAL\\SRV2\\", "D:\\DAM\\SOUTH\\",
                       "D:\\DAM\\SOUTH\\TOTAL\\", "D:\\DAM\\SOUTH\\TOTAL\\SRV2\\", "D:\\WEIR\\",
                       "D:\\WEIR\\SOUTH\\", "D:\\WEIR\\SOUTH\\TOTAL\\", "D:\\WEIR\\SOUTH\\TOTAL\\SRV2\\"}));
}

TEST_F(TarvexTreeSetup, PutsADeeperFolderBelowItsEpochWithEachLevelThatDiffers) {
    Folder("NORTH", "LEVEL", "SRV1", "A");
    Folder("NORTH", "LEVEL", "SRV2", "B");
    Folder("NORTH", "TOTAL", "SRV2", "C");
    Folder("SOUTH", "TOTAL", "SRV2", "D");
    Folder("SOUTH", "TOTAL", "SRV2", "E", "WEIR");
    Keys();
    for (const char* key : {"D:\\DAM\\NORTH\\LEVEL\\SRV1\\A\\", "D:\\DAM\\NORTH\\LEVEL\\SRV2\\B\\",
                            "D:\\DAM\\NORTH\\TOTAL\\SRV2\\C\\", "D:\\DAM\\SOUTH\\TOTAL\\SRV2\\D\\",
                            "D:\\WEIR\\SOUTH\\TOTAL\\SRV2\\E\\"})
        EXPECT_NE(Tree.Find(key), nullptr) << key;
}

TEST_F(TarvexTreeSetup, AddsOnlyTheDeeperFolderWhenTheEpochIsTheSame) {
    Folder("NORTH", "LEVEL", "SRV1");
    Folder("NORTH", "LEVEL", "SRV1", "RAW");
    Keys();
    ASSERT_EQ(Tree.Nodes().size(), 6u);
    EXPECT_EQ(Tree.Nodes()[5],
              (TreeNode{"D:\\DAM\\NORTH\\LEVEL\\SRV1\\RAW\\", "D:\\DAM\\NORTH\\LEVEL\\SRV1\\", "RAW",
                        "clsfolder", "opnfolder", false}));
}

TEST_F(TarvexTreeSetup, MakesAChildWithoutCaptionOfTwoEqualRecords) {
    Folder("NORTH", "LEVEL", "SRV1");
    Folder("NORTH", "LEVEL", "SRV1");
    Keys();
    ASSERT_EQ(Tree.Nodes().size(), 6u);
    EXPECT_EQ(Tree.Nodes()[5], (TreeNode{"D:\\DAM\\NORTH\\LEVEL\\SRV1\\\\", "D:\\DAM\\NORTH\\LEVEL\\SRV1\\",
                                         "", "clsfolder", "opnfolder", false}));
}

TEST_F(TarvexTreeSetup, ReportsAKeyThatTheTreeHoldsAndEnds) {
    for (int i = 1; i <= 3; ++i)
        Folder("NORTH", "LEVEL", "SRV1");
    Folder("SOUTH", "LEVEL", "SRV1");
    ExpectReport(Desk, 35602, "Key is not unique in collection", "basTree-TarvexTreeSetup");
    Keys();
    EXPECT_EQ(Tree.Nodes().size(), 6u);
}

TEST_F(TarvexTreeSetup, ReportsASystemThatComesTwice) {
    Folder("NORTH", "LEVEL", "SRV1", "", "DAM");
    Folder("NORTH", "LEVEL", "SRV1", "", "WEIR");
    Folder("NORTH", "LEVEL", "SRV1", "", "DAM");
    ExpectReport(Desk, 35602, "Key is not unique in collection", "basTree-TarvexTreeSetup");
    EXPECT_EQ(Keys().size(), 9u);
}

TEST_F(TarvexTreeSetup, TakesOnlyTheGivenCountOfRecords) {
    Folder("NORTH", "LEVEL", "SRV1");
    Folder("SOUTH", "LEVEL", "SRV1");
    Dorvane::TarvexTreeSetup(Records, 1, Tree);
    EXPECT_EQ(Tree.Nodes().size(), 5u);
}

TEST_F(TarvexTreeSetup, ReportsACountBeyondTheRecords) {
    ExpectReport(Desk, 9, "Subscript out of range", "basTree-TarvexTreeSetup");
    Dorvane::TarvexTreeSetup(Records, 1, Tree);
}

TEST_F(TarvexTreeSetup, HoldsAsManyNodesAsThereCanBeRecords) {
    for (int i = 1; i <= 32767; ++i)
        Folder("NORTH", "LEVEL", std::to_string(i));
    EXPECT_EQ(Keys().size(), 32771u);
}

}  // namespace Dorvane::Testing
