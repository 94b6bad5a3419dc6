// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/InputScreen.h"

#include "core/ProfileStore.h"
#include "input/TreeFolders.h"
#include "tests/input/InputSite.h"

namespace Dorvane::Testing {
namespace {

const std::string Folder = "D:\\TARVEX\\DAM\\NORTH\\TPS\\SRV12\\";

class InputScreenTest : public InputSite {
  protected:
    InputScreenTest() {
        PutProfiles();
        PutProfile("dv_tarvex.ini", {"[General Editor]", "Path=C:\\EDIT\\", "Name=ED.EXE"});
        MakeFolders(Folder);
    }
};

TEST_F(InputScreenTest, OpensWithItsListsTypesAndTree) {
    InputScreen screen;
    OpenInputScreen(screen, {Located("NORTH"), Located("NORTH"), Located("SOUTH"), Located("NORTH")},
                    Services());
    EXPECT_EQ(Status, (std::vector<std::string>{"Choose data type to import"}));
    EXPECT_EQ(screen.lstCoordTypes,
              (std::vector<ListEntry>{{"3 Dimensional"}, {"Monuments"}, {"Benchmarks"}, {"Ideals"}}));
    EXPECT_EQ(screen.icmbDimension, 3);
    EXPECT_EQ(screen.icmbInput, 1);
    EXPECT_EQ(screen.Model.Types.Count(), 5);
    EXPECT_EQ(screen.Model.TrackerWeights[1].SDist, 0.0001);
    EXPECT_EQ(screen.Model.TotalSets.Count(), 1);
    const std::vector<TreeNode>& nodes = screen.trvInput.Nodes();
    ASSERT_EQ(nodes.size(), 6u);
    EXPECT_EQ(nodes[0], (TreeNode{"Data Types", "", "Data Types", "sclsfolder", "sopnfolder", true}));
    EXPECT_EQ(nodes[1], (TreeNode{"Laser", "Data Types", "Laser", "laser.bmp", "", false}));
    EXPECT_EQ(nodes[5].Key, "Distances");
    EXPECT_FALSE(screen.cmdEditEnabled);
    EXPECT_FALSE(screen.cmdPrintEnabled);
}

TEST_F(InputScreenTest, ALocationThatComesBackStandsTwice) {
    EXPECT_EQ(CoordDirectoryEntries({Located("NORTH"), Located("NORTH"), Located("SOUTH"), Located("NORTH")}),
              (std::vector<ListEntry>{{"User Defined"}, {"DAM\\NORTH"}, {"DAM\\SOUTH"}, {"DAM\\NORTH"}}));
    EXPECT_EQ(CoordDirectoryEntries({}), (std::vector<ListEntry>{{"User Defined"}}));
}

TEST_F(InputScreenTest, TheFileInHandStaysWhenAnotherFolderIsChosen) {
    InputScreen screen = OpenScreen();
    EXPECT_EQ(FileInHand(screen), "");
    screen.FileFolder = "D:\\JOB\\";
    EXPECT_EQ(FileInHand(screen), "");
    screen.lblFileName = "NET.INP";
    screen.lblDirectory = Folder;
    EXPECT_EQ(FileInHand(screen), "D:\\JOB\\NET.INP");
    PutFile(Folder + "NET.INP", "another one");
    PutFile("D:\\JOB\\NET.INP", "");
    EditInputFile(screen);
    EXPECT_EQ(Desktop.Started, (std::vector<std::string>{"C:\\EDIT\\ED.EXE D:\\JOB\\NET.INP"}));
    PrintInputFile(screen);
    ASSERT_GE(Desktop.PrintedLines.size(), 2u);
    EXPECT_EQ(Desktop.PrintedLines[1], "     File Name : D:\\JOB\\NET.INP");
}

TEST_F(InputScreenTest, ProposesTheTypeThatWasUsedLast) {
    IniWriteString("dv_input.ini", "Project", "Last Type", "Directions");
    EXPECT_EQ(OpenScreen().icmbInput, 4);
    IniWriteString("dv_input.ini", "Project", "Last Type", "Gone");
    EXPECT_EQ(OpenScreen().icmbInput, 1);
}

TEST_F(InputScreenTest, WithoutTypesNoneIsSelected) {
    PutProfile("dv_input.ini", {});
    EXPECT_EQ(OpenScreen().icmbInput, 0);
}

TEST_F(InputScreenTest, AFoldersResultFilesAreEditedOneAfterAnother) {
    PutFile(Folder + "A.RES", "");
    PutFile(Folder + "B.RES", "");
    PutFile(Folder + "C.TXT", "");
    InputScreen screen = OpenScreen();
    AddTreeFolder(screen.trvInput, "Laser", Folder);
    Desktop.ExpectMessage("Edit Result File(s)",
                          "Do you wish to edit the *.RES files in folder " + Folder + "?", Answer::Yes);
    ClickInputNode(screen, Services(), Folder);
    EXPECT_EQ(Desktop.Started, (std::vector<std::string>{"C:\\EDIT\\ED.EXE " + Folder + "A.RES",
                                                         "C:\\EDIT\\ED.EXE " + Folder + "B.RES"}));
    EXPECT_EQ(Desktop.Shown.back().Choices, Buttons::YesNoCancel);
    EXPECT_NE(screen.trvInput.Find(Folder), nullptr);
}

TEST_F(InputScreenTest, AResultFileIsNotStartedItselfWithoutAnEditor) {
    PutProfile("dv_tarvex.ini", {"[General Editor]", "Path=", "Name="});
    InputScreen screen = OpenScreen();
    AddTreeFolder(screen.trvInput, "Laser", Folder);
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::Yes);
    ClickInputNode(screen, Services(), Folder);  // a folder without result files has nothing to edit

    PutFile(Folder + "A.RES", "");
    PutFile(Folder + "B.RES", "");
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::Yes);
    Desktop.ExpectMessage("Editor Not Found", "Editor not found in INI file.  Can not edit file.");
    ClickInputNode(screen, Services(), Folder);
    EXPECT_TRUE(Desktop.Started.empty());
}

TEST_F(InputScreenTest, AFolderIsRemovedAfterTwoQuestions) {
    InputScreen screen = OpenScreen();
    AddTreeFolder(screen.trvInput, "Laser", Folder);
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::No);
    Desktop.ExpectMessage(
        "Remove Folder", "Do you wish to remove the folder " + Folder + " from the input file?", Answer::Yes);
    Desktop.ExpectMessage("Are You Sure", "Are you sure you wish to remove the folder " + Folder + "?",
                          Answer::Yes);
    ClickInputNode(screen, Services(), Folder);
    EXPECT_EQ(screen.trvInput.Find(Folder), nullptr);
    EXPECT_EQ(screen.trvInput.Nodes().size(), 6u);
    for (const Message& question : Desktop.Shown)
        EXPECT_EQ(question.Picture, Icon::Exclamation) << question.Title;
    EXPECT_EQ(Status, (std::vector<std::string>{"Folder " + Folder + " removed"}));
}

TEST_F(InputScreenTest, AFolderThatVanishedFromTheDiskCanBeRemoved) {
    InputScreen screen = OpenScreen();
    AddTreeFolder(screen.trvInput, "Laser", "D:\\GONE\\");
    Desktop.ExpectMessage("Remove Folder", "Do you wish to remove the folder D:\\GONE\\ from the input file?",
                          Answer::No);
    ClickInputNode(screen, Services(), "D:\\GONE\\");
    EXPECT_NE(screen.trvInput.Find("D:\\GONE\\"), nullptr);
    EXPECT_EQ(screen.icmbInput, 1);
    Desktop.ExpectMessageTitled("Remove Folder", Answer::Yes);
    Desktop.ExpectMessage("Are You Sure", "Are you sure you wish to remove the folder D:\\GONE\\?",
                          Answer::Yes);
    ClickInputNode(screen, Services(), "D:\\GONE\\");
    EXPECT_EQ(screen.trvInput.Find("D:\\GONE\\"), nullptr);
}

TEST_F(InputScreenTest, AFolderStaysOnEitherNoAndOnCancel) {
    InputScreen screen = OpenScreen();
    AddTreeFolder(screen.trvInput, "Laser", Folder);
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::Cancel);
    ClickInputNode(screen, Services(), Folder);
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::No);
    Desktop.ExpectMessageTitled("Remove Folder", Answer::No);
    ClickInputNode(screen, Services(), Folder);
    Desktop.ExpectMessageTitled("Edit Result File(s)", Answer::No);
    Desktop.ExpectMessageTitled("Remove Folder", Answer::Yes);
    Desktop.ExpectMessageTitled("Are You Sure", Answer::No);
    ClickInputNode(screen, Services(), Folder);
    EXPECT_NE(screen.trvInput.Find(Folder), nullptr);
    EXPECT_TRUE(Desktop.Started.empty());
}

TEST_F(InputScreenTest, ATypeNodeSelectsItsType) {
    InputScreen screen = OpenScreen();
    ClickInputNode(screen, Services(), "Levelling");
    EXPECT_EQ(screen.icmbInput, 3);
    ClickInputNode(screen, Services(), "Data Types");
    EXPECT_EQ(screen.icmbInput, 3);
}

TEST_F(InputScreenTest, TheInputFileInHandIsEditedWithoutWaiting) {
    InputScreen screen = OpenScreen();
    EditInputFile(screen);
    screen.FileFolder = Folder;
    screen.lblFileName = "NET.INP";
    EditInputFile(screen);
    EXPECT_TRUE(Desktop.Started.empty());
    PutFile(Folder + "NET.INP", "");
    EditInputFile(screen);
    EXPECT_EQ(Desktop.Started, (std::vector<std::string>{"C:\\EDIT\\ED.EXE " + Folder + "NET.INP"}));
}

TEST_F(InputScreenTest, TheInputFileInHandIsPrinted) {
    InputScreen screen = OpenScreen();
    PrintInputFile(screen);
    EXPECT_TRUE(Desktop.PrintedLines.empty());
    PutLines(Folder + "NET.INP", {"first"});
    screen.FileFolder = Folder;
    screen.lblFileName = "NET.INP";
    PrintInputFile(screen);
    EXPECT_EQ(
        Desktop.PrintedLines,
        (std::vector<std::string>{"     ", "     File Name : " + Folder + "NET.INP", "     ", "     first"}));
}

TEST_F(InputScreenTest, ClearingRemovesTheFoldersOfEveryTypeAndAsksNothing) {
    InputScreen screen = OpenScreen();
    ClearTreeFolders(screen.trvInput, screen.Model.Types.Count(), screen.Model.Types);
    EXPECT_EQ(screen.trvInput.Nodes().size(), 6u);
    AddTreeFolder(screen.trvInput, "Laser", "D:\\A\\");
    AddTreeFolder(screen.trvInput, "Distances", "D:\\B\\");
    AddTreeFolder(screen.trvInput, "Laser", "D:\\C\\");
    ClearTreeFolders(screen.trvInput, screen.Model.Types.Count(), screen.Model.Types);
    EXPECT_EQ(screen.trvInput.Nodes().size(), 6u);
    EXPECT_EQ(screen.trvInput.Find("D:\\A\\"), nullptr);
    EXPECT_NE(screen.trvInput.Find("Laser"), nullptr);
}

TEST_F(InputScreenTest, FoldersComeByTypeAndThenInTheirOrder) {
    InputScreen screen = OpenScreen();
    AddTreeFolder(screen.trvInput, "Distances", "D:\\B\\");
    AddTreeFolder(screen.trvInput, "Laser", "D:\\Z\\");
    AddTreeFolder(screen.trvInput, "Laser", "D:\\A\\");
    List1<std::string> types;
    List1<std::string> folders;
    EXPECT_EQ(GetTreeFolders(screen.trvInput, screen.Model.Types, types, folders), 3);
    EXPECT_EQ(types, (List1<std::string>{"Laser", "Laser", "Distances"}));
    EXPECT_EQ(folders, (List1<std::string>{"D:\\Z\\", "D:\\A\\", "D:\\B\\"}));
}

}  // namespace
}  // namespace Dorvane::Testing
