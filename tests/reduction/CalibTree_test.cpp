// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/CalibTree.h"

#include "tests/reduction/CalibSite.h"

namespace Dorvane::Testing {

namespace {

using KeyList = std::vector<std::string>;

struct CalibTreeTest : CalibSite {
    void Open() { OpenCalibTree(Tree); }

    KeyList Keys() const {
        KeyList keys;
        for (const TreeNode& node : Tree.Nodes.Nodes())
            keys.push_back(node.Key);
        return keys;
    }

    CalibTree Tree;
};

}  // namespace

TEST_F(CalibTreeTest, HoldsARootATypeAndItsEpochs) {
    Open();
    const std::vector<TreeNode>& nodes = Tree.Nodes.Nodes();
    ASSERT_EQ(nodes.size(), 4U);
    EXPECT_EQ(nodes[0],
              (TreeNode{"D:\\TARVEX\\CALIB\\", "", "Calibration Drive", "clsfolder", "opnfolder", true}));
    EXPECT_EQ(nodes[1], (TreeNode{"D:\\TARVEX\\CALIB\\STAFF\\", "D:\\TARVEX\\CALIB\\", "Levels and staffs",
                                  "clsfolder", "opnfolder", false}));
    EXPECT_EQ(nodes[2], (TreeNode{"D:\\TARVEX\\CALIB\\STAFF\\C2601\\", "D:\\TARVEX\\CALIB\\STAFF\\",
                                  "January 2026", "clsfolder", "opnfolder", false}));
    EXPECT_EQ(nodes[3].Key, "D:\\TARVEX\\CALIB\\STAFF\\C2607\\");
    EXPECT_EQ(Tree.Directory, "");
}

TEST_F(CalibTreeTest, FillsTheRecordsWithTheDescriptionsOfTheStructure) {
    Open();
    const List1<PathRecord>& records = Tree.Calibrations.Records;
    ASSERT_EQ(records.Count(), 2);
    EXPECT_EQ(records[2], (PathRecord{"CALIB", "Calibrations", "STAFF", "Levels and staffs", "C2607",
                                      "July 2026", "", "", "", "", ""}));
}

TEST_F(CalibTreeTest, KeepsItsRecordsOutOfTheGlobalOnes) {
    Open();
    EXPECT_TRUE(Global().PathRecords.Empty());
}

TEST_F(CalibTreeTest, TakesTheSystemFromTheLastFolderOfTheCalibrationPath) {
    Global().Calib_path = "D:\\TARVEX\\INSTR\\";
    PutFile("D:\\TARVEX\\INIT\\INSTR.STR", "INSTR    Instruments\r\n\r\nEDM\r\n\r\nE1\r\n");
    Open();
    EXPECT_EQ(Tree.Calibrations.System, "INSTR");
    EXPECT_EQ(Tree.Calibrations.Structure.Description, "Instruments");
    EXPECT_EQ(Keys(), (KeyList{"D:\\TARVEX\\INSTR\\"}));
}

TEST_F(CalibTreeTest, IsNotBuiltWithoutACalibrationPath) {
    Global().Calib_path.clear();
    Open();
    EXPECT_TRUE(Keys().empty());
    EXPECT_EQ(Tree.Calibrations.System, "");
}

TEST_F(CalibTreeTest, HasOnlyItsRootWithoutARegistry) {
    Drives::DeleteFile(Registry);
    Open();
    EXPECT_EQ(Keys(), (KeyList{"D:\\TARVEX\\CALIB\\"}));
}

TEST_F(CalibTreeTest, ReportsAnEmptyRegistry) {
    PutFile(Registry, "");
    ExpectReport(Desktop, 9, "Subscript out of range", "basRead-ReadPthFile");
    Open();
    EXPECT_EQ(Keys(), (KeyList{"D:\\TARVEX\\CALIB\\"}));
}

TEST_F(CalibTreeTest, ReportsAnEpochThatIsRegisteredTwice) {
    PutFile(Registry,
            " *       CALIB     EDM       C2601\r\n"
            " *       CALIB     EDM       C2601\r\n"
            " *       CALIB     STAFF     C2601\r\n");
    ExpectReport(Desktop, 35602, "Key is not unique in collection", "frmCalibTree-LoadForm");
    Open();
    EXPECT_EQ(Keys().size(), 3U);
}

TEST_F(CalibTreeTest, CaptionsWhatTheStructureDoesNotDescribeByItsCode) {
    PutFile(Registry,
            " *       CALIB     STAFF     C9901\r\n"
            " *       CALIB     PRISM     C2601\r\n");
    Open();
    ASSERT_EQ(Tree.Nodes.Nodes().size(), 5U);
    EXPECT_EQ(Tree.Nodes.Nodes()[1].Caption, "PRISM");
    EXPECT_EQ(Tree.Nodes.Nodes()[2].Caption, "January 2026");
    EXPECT_EQ(Tree.Nodes.Nodes()[3].Caption, "Levels and staffs");
    EXPECT_EQ(Tree.Nodes.Nodes()[4].Caption, "C9901");
    EXPECT_EQ(Tree.Calibrations.Records[2].TypeDesc, "") << "the record has what the structure says";
}

TEST_F(CalibTreeTest, ListsTheFilesOfRootTypeAndEpochAlike) {
    PutFile("D:\\TARVEX\\CALIB\\root.txt", "x");
    PutFile("D:\\TARVEX\\CALIB\\STAFF\\type.txt", "x");
    PutFile("D:\\TARVEX\\CALIB\\STAFF\\C2601\\staff.cal", "x");
    Open();
    ChooseCalibNode(Tree, "D:\\TARVEX\\CALIB\\");
    ASSERT_EQ(Tree.Files.Count(), 1);
    EXPECT_EQ(Tree.Files[1].Name, "ROOT.TXT");
    ChooseCalibFile(Tree, "ROOT.TXT");
    EXPECT_EQ(Tree.File, "ROOT.TXT");
    ChooseCalibNode(Tree, "D:\\TARVEX\\CALIB\\STAFF\\");
    EXPECT_EQ(Tree.Directory, "D:\\TARVEX\\CALIB\\STAFF\\");
    EXPECT_EQ(Tree.File, "");
    ASSERT_EQ(Tree.Files.Count(), 1);
    EXPECT_EQ(Tree.Files[1].Name, "TYPE.TXT");
    ChooseCalibNode(Tree, "D:\\TARVEX\\CALIB\\STAFF\\C2601\\");
    ASSERT_EQ(Tree.Files.Count(), 1);
    EXPECT_EQ(Tree.Files[1].Name, "STAFF.CAL");
}

TEST_F(CalibTreeTest, ListsNothingForATypeWithoutFolder) {
    PutFile(Registry, " *       CALIB     EDM       C2601\r\n");
    Open();
    EXPECT_EQ(Keys().size(), 3U);
    ChooseCalibNode(Tree, "D:\\TARVEX\\CALIB\\EDM\\C2601\\");
    EXPECT_TRUE(Tree.Files.Empty());
    EXPECT_EQ(Tree.Directory, "D:\\TARVEX\\CALIB\\EDM\\C2601\\");
}

TEST_F(CalibTreeTest, AddsANewTypeWithItsFirstEpoch) {
    Open();
    EXPECT_TRUE(AddCalibration(Tree, {"EDM", "C2607"}));
    EXPECT_EQ(FileContent(Registry),
              " *       CALIB     STAFF     C2601\r\n"
              " *       CALIB     STAFF     C2607\r\n"
              " *       CALIB     EDM       C2607\r\n");
    ASSERT_EQ(Keys(), (KeyList{"D:\\TARVEX\\CALIB\\", "D:\\TARVEX\\CALIB\\STAFF\\",
                               "D:\\TARVEX\\CALIB\\STAFF\\C2601\\", "D:\\TARVEX\\CALIB\\STAFF\\C2607\\",
                               "D:\\TARVEX\\CALIB\\EDM\\", "D:\\TARVEX\\CALIB\\EDM\\C2607\\"}));
    EXPECT_EQ(Tree.Nodes.Nodes()[4].Caption, "Distance meters");
    EXPECT_EQ(Tree.Nodes.Nodes()[5].Caption, "July 2026");
    EXPECT_TRUE(IsFolder("D:\\TARVEX\\CALIB\\EDM\\C2607"));
    EXPECT_EQ(Tree.Calibrations.Records[3], (PathRecord{"CALIB", "Calibrations", "EDM", "Distance meters",
                                                        "C2607", "July 2026", "", "", "", "", ""}));
}

TEST_F(CalibTreeTest, AddsOnlyTheEpochOfATypeThatIsThere) {
    Open();
    AddCalibration(Tree, {"STAFF", "C2701"});
    EXPECT_EQ(Keys().size(), 5U);
    EXPECT_EQ(Tree.Nodes.Nodes().back(),
              (TreeNode{"D:\\TARVEX\\CALIB\\STAFF\\C2701\\", "D:\\TARVEX\\CALIB\\STAFF\\", "January 2027",
                        "clsfolder", "opnfolder", false}));
    EXPECT_TRUE(IsFolder("D:\\TARVEX\\CALIB\\STAFF\\C2701"));
}

TEST_F(CalibTreeTest, AddsTwiceInARow) {
    Open();
    AddCalibration(Tree, {"EDM", "C2601"});
    AddCalibration(Tree, {"EDM", "C2607"});
    EXPECT_EQ(Keys().size(), 7U);
    EXPECT_TRUE(IsFolder("D:\\TARVEX\\CALIB\\EDM\\C2601"));
    EXPECT_TRUE(IsFolder("D:\\TARVEX\\CALIB\\EDM\\C2607"));
}

TEST_F(CalibTreeTest, MakesTheRegistryWithTheFirstCalibration) {
    Drives::DeleteFile(Registry);
    Open();
    AddCalibration(Tree, {"EDM", "C2601"});
    EXPECT_EQ(FileContent(Registry), " *       CALIB     EDM       C2601\r\n");
}

TEST_F(CalibTreeTest, AddsNothingWhileANameIsMissing) {
    Open();
    const std::string registry = FileContent(Registry);
    EXPECT_FALSE(AddCalibration(Tree, {"EDM", ""}));
    EXPECT_FALSE(AddCalibration(Tree, {"", "C2601"}));
    EXPECT_FALSE(AddCalibration(Tree, {}));
    EXPECT_EQ(FileContent(Registry), registry);
    EXPECT_EQ(Keys().size(), 4U);
}

TEST_F(CalibTreeTest, ReportsAFolderThatExistsAlready) {
    MakeFolders("D:\\TARVEX\\CALIB\\STAFF\\C2701\\");
    Open();
    ExpectAccessError("D:\\TARVEX\\CALIB\\STAFF\\C2701", "frmCalibTree-cmdAdd_Click");
    EXPECT_FALSE(AddCalibration(Tree, {"STAFF", "C2701"}));
    EXPECT_EQ(Keys().size(), 5U);
    EXPECT_EQ(FileLines(Registry).size(), 3U);
}

TEST_F(CalibTreeTest, ClaimsNoAdditionThatTheRegistryDoesNotHold) {
    Open();
    Drives::DeleteFile(Registry);
    MakeFolders(std::string(Registry) + "\\");
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(AddCalibration(Tree, {"STAFF", "C2701"}));
    EXPECT_TRUE(IsFolder("D:\\TARVEX\\CALIB\\STAFF\\C2701"));
}

TEST_F(CalibTreeTest, LeavesTheEpochWhenTheFolderOfANewTypeExists) {
    MakeFolders("D:\\TARVEX\\CALIB\\EDM\\");
    Open();
    ExpectAccessError("D:\\TARVEX\\CALIB\\EDM", "frmCalibTree-cmdAdd_Click");
    AddCalibration(Tree, {"EDM", "C2601"});
    EXPECT_FALSE(IsFolder("D:\\TARVEX\\CALIB\\EDM\\C2601"));
    EXPECT_EQ(Tree.Nodes.Nodes().back().Key, "D:\\TARVEX\\CALIB\\EDM\\");
    EXPECT_EQ(FileLines(Registry).back(), " *       CALIB     EDM       C2601");
}

TEST_F(CalibTreeTest, ReportsACalibrationFolderThatIsGone) {
    Global().Calib_path = "D:\\TARVEX\\GONE\\CALIB\\";
    Open();
    Desktop.ExpectMessage("Program Error",
                          "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : "
                          "Dorvane-frmCalibTree-cmdAdd_Click",
                          Answer::Cancel);
    AddCalibration(Tree, {"EDM", "C2601"});
    EXPECT_FALSE(IsFolder("D:\\TARVEX\\GONE"));
}

TEST_F(CalibTreeTest, MakesTheFolderAtARetryWhenItsParentIsBack) {
    struct RepairingDesktop : ScriptedDesktop {
        Answer ShowMessage(const Message& message) override {
            MakeFolders("D:\\TARVEX\\CALIB\\STAFF\\");
            return ScriptedDesktop::ShowMessage(message);
        }
    };
    PutFile(Registry, " *       CALIB     STAFF     C2601\r\n");
    Open();
    Drives::RenameFile("D:\\TARVEX\\CALIB", "D:\\TARVEX\\ELSEWHERE");
    RepairingDesktop repairing;
    repairing.ExpectMessageTitled("Program Error", Answer::Retry);
    AddCalibration(Tree, {"STAFF", "C2701"});
    EXPECT_TRUE(IsFolder("D:\\TARVEX\\CALIB\\STAFF\\C2701"));
}

TEST_F(CalibTreeTest, KeepsAccentsFromDiskToNodeAndBack) {
    PutFile(Structure,
            "CALIB    Calibrations\r\n\r\nNIV\xC9"
            "E    Mires cal\xE9\r\n\r\n\xC9T\xC9"
            "26    \xC9t\xE9 2026\r\n");
    Drives::DeleteFile(Registry);
    Open();
    AddCalibration(Tree, {"NIV\xC9"
                          "E",
                          "\xC9T\xC9"
                          "26"});
    EXPECT_EQ(FileContent(Registry),
              " *       CALIB     NIV\xC9"
              "E     \xC9T\xC9"
              "26\r\n");
    EXPECT_EQ(Tree.Nodes.Nodes()[1].Caption, "Mires cal\xE9");
    EXPECT_TRUE(
        IsFolder("D:\\TARVEX\\CALIB\\NIV\xC9"
                 "E\\\xC9T\xC9"
                 "26"));
    CalibTree again;
    OpenCalibTree(again);
    EXPECT_EQ(again.Nodes.Nodes(), Tree.Nodes.Nodes());
}

TEST_F(CalibTreeTest, ReportsACalibrationDriveWithoutRights) {
    Open();
    AsNobody([&] {
        // Nobody may append to the registry, nor make a folder; each is told under its own procedure.
        ExpectAccessError(Registry, "basTree-UpdateCalibPthFileAdd");
        ExpectAccessError("D:\\TARVEX\\CALIB\\STAFF\\C2701", "frmCalibTree-cmdAdd_Click");
        AddCalibration(Tree, {"STAFF", "C2701"});
    });
    EXPECT_FALSE(IsFolder("D:\\TARVEX\\CALIB\\STAFF\\C2701"));
}

}  // namespace Dorvane::Testing
