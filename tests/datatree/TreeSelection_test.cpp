// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/TreeSelection.h"

#include "datatree/basTree.h"
#include "tests/datatree/DataSite.h"

namespace Dorvane::Testing {

namespace {

class FrmTree : public DataSite {
  protected:
    void File(const std::string& path) {
        PutFile(Data(path), "");
        SetTimeStamp(Data(path), {2026, 11, 20, 15, 4, 5});
    }
    void Register(const std::string& epoch, const std::string& created, const std::string& survey = "") {
        Global().PathRecords.Add(
            {"DAM", "", "NORTH", "", "LEVEL", "", epoch, "", survey, created, "Use of " + epoch});
    }
    void SetUpTree() { TarvexTreeSetup(Global().PathRecords, Global().PathRecords.Count(), Tree); }

    TreeModel Tree;
    TreeSelection Selection;
};

}  // namespace

TEST(FileIcon, FollowsTheEndOfTheName) {
    EXPECT_EQ(FileIcon("D:\\", "A.DIR"), "direct");
    EXPECT_EQ(FileIcon("D:\\", "A.TC2"), "dist");
    EXPECT_EQ(FileIcon("D:\\", "A.DST"), "dist");
    EXPECT_EQ(FileIcon("D:\\", "A.IVL"), "level");
    EXPECT_EQ(FileIcon("D:\\", "A.LVL"), "level");
    EXPECT_EQ(FileIcon("D:\\", "A.RES"), "reduce");
    EXPECT_EQ(FileIcon("D:\\", "A.INP"), "input");
    EXPECT_EQ(FileIcon("D:\\", "A.1"), "input");
    EXPECT_EQ(FileIcon("D:\\", "A.2"), "input");
    EXPECT_EQ(FileIcon("D:\\", "A.TXT"), "form");
    EXPECT_EQ(FileIcon("D:\\", "A"), "form");
    EXPECT_EQ(FileIcon("D:\\", ""), "form");
}

TEST(FileIcon, OfANumberedFileFollowsTheFolder) {
    EXPECT_EQ(FileIcon("D:\\DAM\\NORTH\\DIST\\SRV1\\", "DATA.001"), "dist");
    EXPECT_EQ(FileIcon("D:\\DAM\\NORTH\\DIRECT\\SRV1\\", "DATA.001"), "direct");
    EXPECT_EQ(FileIcon("D:\\DAM\\NORTH\\LEVEL\\SRV1\\", "DATA.001"), "form");
    EXPECT_EQ(FileIcon("D:\\DAM\\NORTH\\DIST\\SRV1\\", "DATA.00A"), "form");
}

TEST(FileIcon, TakesTheFirstRuleThatFits) {
    EXPECT_EQ(FileIcon("D:\\DIST\\DIRECT\\", "DATA.001"), "direct");
    EXPECT_EQ(FileIcon("D:\\DIRECT\\", "A.LVL"), "level");
    EXPECT_EQ(FileIcon("D:\\DIST\\", "1.1"), "dist");
}

TEST_F(FrmTree, LooksUpTheLastRecordOfAFolder) {
    Register("SRV1", "11-20-26");
    Register("SRV1", "11-21-26");
    Register("SRV2", "11-22-26");
    std::string created = "before";
    std::string usage = "before";
    EXPECT_TRUE(LookUpHistory(Global().PathRecords, Data("DAM\\NORTH\\LEVEL\\SRV1\\"), created, usage));
    EXPECT_EQ(created, "11-21-26");
    EXPECT_EQ(usage, "Use of SRV1");
    EXPECT_FALSE(LookUpHistory(Global().PathRecords, Data("DAM\\NORTH\\LEVEL\\SRV1\\RAW\\"), created, usage));
    EXPECT_EQ(created, "11-21-26");
}

TEST_F(FrmTree, ListsTheFilesOfAClickedNode) {
    File("DAM\\NORTH\\LEVEL\\SRV1\\a.lvl");
    File("DAM\\NORTH\\LEVEL\\SRV1\\B.RES");
    Register("SRV1", "11-20-26");
    Selection.File = "OLD.TXT";
    ClickNode(Selection, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(Selection.Directory, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(Selection.File, "");
    EXPECT_EQ(Selection.Files, (List1<FileItem>{{"A.LVL", "level"}, {"B.RES", "reduce"}}));
    EXPECT_EQ(Selection.CreationDate, "11-20-26");
    EXPECT_EQ(Selection.History, "Use of SRV1");
}

TEST_F(FrmTree, ClearsDateAndHistoryForANodeWithoutFiles) {
    Selection.CreationDate = "11-20-26";
    Selection.History = "Use";
    Selection.Files.Add({"OLD", "form"});
    ClickNode(Selection, Data("DAM\\GONE\\"));
    EXPECT_TRUE(Selection.Files.Empty());
    EXPECT_EQ(Selection.CreationDate, "");
    EXPECT_EQ(Selection.History, "");
}

TEST_F(FrmTree, KeepsDateAndHistoryForANodeWithFilesButNoRecord) {
    File("DAM\\NOTE.TXT");
    Selection.CreationDate = "11-20-26";
    Selection.History = "Use";
    ClickNode(Selection, Data("DAM\\"));
    EXPECT_EQ(Selection.CreationDate, "11-20-26");
    EXPECT_EQ(Selection.History, "Use");
}

TEST(AncestorChain, RunsFromTheDriveToTheFolder) {
    EXPECT_EQ(AncestorChain("D:\\DAM\\NORTH\\"),
              (std::vector<std::string>{"D:\\", "D:\\DAM\\", "D:\\DAM\\NORTH\\"}));
    EXPECT_EQ(AncestorChain("D:\\DAM"), (std::vector<std::string>{"D:\\", "D:\\DAM\\"}));
    EXPECT_EQ(AncestorChain("D:\\"), (std::vector<std::string>{"D:\\"}));
    EXPECT_TRUE(AncestorChain("").empty());
}

TEST_F(FrmTree, GoesToTheDeepestFolderAndExpandsTheWay) {
    Register("SRV1", "11-20-26");
    SetUpTree();
    File("DAM\\NORTH\\LEVEL\\SRV1\\A.LVL");
    GoToDirectory(Tree, Selection, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(Selection.Directory, Data("DAM\\NORTH\\LEVEL\\SRV1\\"));
    EXPECT_EQ(Selection.Files.Count(), 1);
    EXPECT_EQ(Selection.CreationDate, "11-20-26");
    for (const TreeNode& node : Tree.Nodes())
        EXPECT_TRUE(node.Expanded) << node.Key;
}

TEST_F(FrmTree, OpensTheNearestAncestorOfAFolderThatIsNoLongerInTheTree) {
    Register("SRV1", "11-20-26");
    SetUpTree();
    GoToDirectory(Tree, Selection, Data("DAM\\NORTH\\GONE\\SRV9\\"));
    EXPECT_EQ(Selection.Directory, Data("DAM\\NORTH\\"));
    EXPECT_TRUE(Tree.Find(Data("DAM\\NORTH\\"))->Expanded);
    EXPECT_FALSE(Tree.Find(Data("DAM\\NORTH\\LEVEL\\"))->Expanded);
}

TEST_F(FrmTree, ShowsAFolderOfAnotherDriveWithoutOpeningAnything) {
    SetUpTree();
    GoToDirectory(Tree, Selection, "E:\\ELSEWHERE\\");
    EXPECT_EQ(Selection.Directory, "E:\\ELSEWHERE\\");
    EXPECT_TRUE(Selection.Files.Empty());
}

TEST_F(FrmTree, StaysWhereItIsForAnEmptyFolder) {
    SetUpTree();
    Selection.Directory = Data("");
    GoToDirectory(Tree, Selection, "");
    EXPECT_EQ(Selection.Directory, "D:\\TARVEX\\");
}

TEST_F(FrmTree, PrintsByTheProgramOfTheExtension) {
    PutFile("C:\\WINDOWS\\dv_datatype.ini", "[File Types]\r\nLVL_Print=prtlvl.exe\r\n");
    PutFile("P:\\DORVANE\\Programs\\prtlvl.exe", "");
    Desk.ExpectMessage("Printing Complete", "File a.lvl sent to selected printer.");
    PrintTreeFile(Data("DAM\\"), "a.lvl");
    EXPECT_EQ(Desk.Started,
              (std::vector<std::string>{"P:\\DORVANE\\Programs\\prtlvl.exe D:\\TARVEX\\DAM\\a.lvl"}));
    EXPECT_TRUE(Desk.PrintedLines.empty());
}

TEST_F(FrmTree, PrintsAsTextWhenTheProgramIsNotThere) {
    PutFile("C:\\WINDOWS\\dv_datatype.ini", "[File Types]\r\nLVL_Print=prtlvl.exe\r\n");
    PutFile(Data("DAM\\A.LVL"), "first\r\n");
    Desk.ExpectMessage("Printing Complete", "File A.LVL sent to selected printer.");
    PrintTreeFile(Data("DAM\\"), "A.LVL");
    EXPECT_TRUE(Desk.Started.empty());
    EXPECT_EQ(Desk.PrintedLines, (std::vector<std::string>{"     ", "     File Name : D:\\TARVEX\\DAM\\A.LVL",
                                                           "     ", "     first"}));
}

TEST_F(FrmTree, TakesTheTextBehindTheFirstPointAsTheExtension) {
    PutFile("C:\\WINDOWS\\dv_datatype.ini",
            "[File Types]\r\nLVL.BAK_Print=prtbak.exe\r\nLVL_Print=prtlvl.exe\r\n");
    PutFile("P:\\DORVANE\\Programs\\prtbak.exe", "");
    Desk.ExpectMessageTitled("Printing Complete");
    PrintTreeFile(Data("DAM\\"), "A.LVL.BAK");
    EXPECT_EQ(Desk.Started,
              (std::vector<std::string>{"P:\\DORVANE\\Programs\\prtbak.exe D:\\TARVEX\\DAM\\A.LVL.BAK"}));
}

TEST_F(FrmTree, PrintsAsTextWithoutAKeyAndSaysSo) {
    PutFile(Data("DAM\\A.TXT"), "line\r\n");
    Desk.ExpectMessageTitled("Printing Complete");
    PrintTreeFile(Data("DAM\\"), "A.TXT");
    EXPECT_EQ(Desk.PrintedLines.size(), 4u);
}

}  // namespace Dorvane::Testing
