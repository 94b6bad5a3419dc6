// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/TreeActions.h"

#include "core/PathType.h"
#include "tests/datatree/DataSite.h"
#include "tests/support/RecordingNavigator.h"

namespace Dorvane::Testing {

namespace {

using Calls = std::vector<std::string>;

constexpr const char* Reduction = "Data Reduction Directory Selection";

class TreeActions : public DataSite {
  protected:
    void ExpectIncomplete() {
        Desk.ExpectMessage("Incomplete Selection",
                           "The directory selected must contain the data to be reduced.  In the old TARVEX "
                           "structure only the SRV? directories contain data.  Please correct.");
    }
    void SetEditor(const std::string& path, const std::string& name) {
        PutFile("C:\\WINDOWS\\dv_tarvex.ini",
                "[General Editor]\r\nPath=" + path + "\r\nName=" + name + "\r\n");
    }

    RecordingNavigator Navigate;
};

}  // namespace

TEST_F(TreeActions, StoresTheLastPath) {
    RememberTreeFolder(Data("DAM\\"));
    EXPECT_EQ(LastTreePath(), "D:\\TARVEX\\DAM\\");
    EXPECT_EQ(FileContent("C:\\WINDOWS\\dv_tarvex.ini"), "[Tarvex]\r\nLast Path=D:\\TARVEX\\DAM\\\r\n");
}

TEST_F(TreeActions, KeepsTheLastPathWhenNoFolderIsSelected) {
    RememberTreeFolder(Data("DAM\\"));
    RememberTreeFolder("");
    EXPECT_EQ(LastTreePath(), "D:\\TARVEX\\DAM\\");
}

TEST_F(TreeActions, GivesASurveyFolderToTheReduction) {
    EXPECT_EQ(ConfirmTreeFolder(Reduction, Data("DAM\\NORTH\\LEVEL\\SRV12\\")), TreeAnswer::Reduce);
    EXPECT_EQ(LastTreePath(), "D:\\TARVEX\\DAM\\NORTH\\LEVEL\\SRV12\\");
}

TEST_F(TreeActions, RefusesAFolderWithoutSurveyDataAndRemembersIt) {
    ExpectIncomplete();
    EXPECT_EQ(ConfirmTreeFolder(Reduction, Data("DAM\\NORTH\\")), TreeAnswer::Stay);
    EXPECT_EQ(Desk.Shown[0].Picture, Icon::Exclamation);
    EXPECT_EQ(LastTreePath(), "D:\\TARVEX\\DAM\\NORTH\\");
}

TEST_F(TreeActions, TakesALocationCalledSrvcForSurveyData) {
    EXPECT_EQ(ConfirmTreeFolder(Reduction, Data("DAM\\SRVC\\LEVEL\\")), TreeAnswer::Reduce);
}

TEST_F(TreeActions, AsksForSrvInCapitals) {
    ExpectIncomplete();
    EXPECT_EQ(ConfirmTreeFolder(Reduction, Data("DAM\\srv1\\")), TreeAnswer::Stay);
}

TEST_F(TreeActions, GivesAFolderToWhomTheTitleNames) {
    EXPECT_EQ(ConfirmTreeFolder("Upload Data To", Data("DAM\\")), TreeAnswer::Upload);
    EXPECT_EQ(ConfirmTreeFolder("Input Levelling field data from", Data("DAM\\")), TreeAnswer::Input);
    EXPECT_EQ(ConfirmTreeFolder("VARN input file location", Data("DAM\\")), TreeAnswer::Input);
}

TEST_F(TreeActions, StaysUnderATitleWithoutAReceiverAndRemembersTheFolder) {
    for (const char* title : {"TARVEX Data Directory Tree", "Access Subdirectories ..."})
        EXPECT_EQ(ConfirmTreeFolder(title, Data("DAM\\NORTH\\")), TreeAnswer::Stay) << title;
    EXPECT_EQ(LastTreePath(), "D:\\TARVEX\\DAM\\NORTH\\");
}

TEST_F(TreeActions, HasNoEffectUnderTheTitleThatNobodySets) {
    EXPECT_EQ(ConfirmTreeFolder("Access Subdirectory Selection", Data("DAM\\NORTH\\SRV1\\")),
              TreeAnswer::Stay);
    EXPECT_EQ(LastTreePath(), "D:\\TARVEX\\DAM\\NORTH\\SRV1\\");
}

TEST_F(TreeActions, StartsTheEditorBesideTheProgram) {
    SetEditor("C:\\TOOLS\\", "edit.exe");
    EditTreeFile(Data("DAM\\"), "A B.TXT");
    EXPECT_EQ(Desk.Started, (Calls{"C:\\TOOLS\\edit.exe D:\\TARVEX\\DAM\\A B.TXT"}));
}

TEST_F(TreeActions, TellsThatNoEditorIsNamed) {
    for (const auto& [path, name] : {std::pair{"C:\\TOOLS\\", ""}, {"", "edit.exe"}, {"", ""}}) {
        SetEditor(path, name);
        Desk.ExpectMessage("Editor Not Found", "Editor not found in INI file.  Can not edit file.");
        EditTreeFile(Data("DAM\\"), "A.TXT");
    }
    EXPECT_TRUE(Desk.Started.empty());
}

TEST_F(TreeActions, CopiesAFileUnderTheMeter) {
    const std::string content("one\r\n\x1a\0two", 10);
    PutFile(Data("DAM\\A.LVL"), content);
    Desk.ExpectFile("Copy File To", "C:\\TARVEX\\TEMP\\B.LVL");
    CopyTreeFile(Data("DAM\\"), "A.LVL", Navigate);
    EXPECT_EQ(FileContent("C:\\TARVEX\\TEMP\\B.LVL"), content);
    EXPECT_EQ(Navigate.Calls,
              (Calls{"CopyMeter Copying File ...", "Open 1",
                     "ShowFile D:\\TARVEX\\DAM\\A.LVL|C:\\TARVEX\\TEMP\\B.LVL", "Advance 1", "Close"}));
    EXPECT_EQ(Desk.Yields, 1);
    const FileDialog& dialog = Desk.Dialogs.at(0);
    EXPECT_EQ(dialog.Purpose, FileDialog::Kind::Save);
    EXPECT_EQ(dialog.Folder, "C:\\TARVEX\\TEMP\\");
    EXPECT_EQ(dialog.FileName, "A.LVL");
    EXPECT_EQ(dialog.Filter, "All Files (*.*)|*.*");
    EXPECT_EQ(dialog.Flags, 4);
}

TEST_F(TreeActions, CopiesNothingWhenTheDialogIsCancelled) {
    PutFile(Data("DAM\\A.LVL"), "data");
    Desk.ExpectFile("Copy File To", std::nullopt);
    CopyTreeFile(Data("DAM\\"), "A.LVL", Navigate);
    EXPECT_TRUE(Navigate.Calls.empty());
    EXPECT_TRUE(AllFiles("C:\\TARVEX\\TEMP\\").empty());
}

TEST_F(TreeActions, AsksBeforeItOverwrites) {
    PutFile(Data("DAM\\A.LVL"), "new");
    PutFile("C:\\TARVEX\\TEMP\\A.LVL", "old");
    const std::string question = "File C:\\TARVEX\\TEMP\\A.LVL already exists.  Do you wish to overwrite?";
    Desk.ExpectFile("Copy File To", "C:\\TARVEX\\TEMP\\A.LVL");
    Desk.ExpectMessage("File Already Exists", question, Answer::No);
    CopyTreeFile(Data("DAM\\"), "A.LVL", Navigate);
    EXPECT_EQ(FileContent("C:\\TARVEX\\TEMP\\A.LVL"), "old");
    EXPECT_TRUE(Navigate.Calls.empty());
    Desk.ExpectFile("Copy File To", "C:\\TARVEX\\TEMP\\A.LVL");
    Desk.ExpectMessage("File Already Exists", question, Answer::Yes);
    CopyTreeFile(Data("DAM\\"), "A.LVL", Navigate);
    EXPECT_EQ(FileContent("C:\\TARVEX\\TEMP\\A.LVL"), "new");
    EXPECT_EQ(Desk.Shown[0].Choices, Buttons::YesNo);
}

TEST_F(TreeActions, KeepsAFileThatIsCopiedOntoItself) {
    PutFile(Data("DAM\\a.lvl"), "data");
    SetTimeStamp(Data("DAM\\a.lvl"), {2001, 2, 3, 4, 5, 6});
    Desk.ExpectFile("Copy File To", Data("DAM\\A.LVL"));
    Desk.ExpectMessageTitled("File Already Exists", Answer::Yes);
    CopyTreeFile(Data("DAM\\"), "A.LVL", Navigate);
    EXPECT_EQ(AllFiles(Data("DAM\\")), (Calls{"a.lvl"}));
    EXPECT_EQ(FileContent(Data("DAM\\a.lvl")), "data");
    Drives::Entry entry;
    ASSERT_TRUE(Drives::Find(Data("DAM\\a.lvl"), entry));
    EXPECT_EQ(entry.Modified.Year, 2001);
}

TEST_F(TreeActions, ReportsAFileThatIsGoneAndClosesTheMeter) {
    PutFile(Data("DAM\\A.LVL"), "data");
    const std::string source = Data("DAM\\A.LVL");
    Desk.OnYield = [source] { Drives::DeleteFile(source); };
    Desk.ExpectFile("Copy File To", "C:\\TARVEX\\TEMP\\A.LVL");
    Desk.ExpectMessageTitled("Program Error");
    CopyTreeFile(Data("DAM\\"), "A.LVL", Navigate);
    EXPECT_NE(Desk.Shown[0].Text.find("Source : Dorvane-frmTree-cmdCopy_Click"), std::string::npos);
    EXPECT_EQ(Navigate.Calls.back(), "Close");
    EXPECT_TRUE(AllFiles("C:\\TARVEX\\TEMP\\").empty());
}

TEST_F(TreeActions, KeepsTheFormerFileOnAFullDisk) {
    MakeFolders("C:\\SMALL\\");
    PutFile(Data("DAM\\A.LVL"), std::string(300000, 'x'));
    OnSmallDisk("C:\\SMALL\\", 128, [&] {
        PutFile("C:\\SMALL\\A.LVL", "former");
        Desk.ExpectFile("Copy File To", "C:\\SMALL\\A.LVL");
        Desk.ExpectMessageTitled("File Already Exists", Answer::Yes);
        ExpectReport(Desk, DiskFull, "frmTree-cmdCopy_Click", Answer::No);
        CopyTreeFile(Data("DAM\\"), "A.LVL", Navigate);
        EXPECT_EQ(AllFiles("C:\\SMALL\\"), (Calls{"A.LVL"}));
        EXPECT_EQ(FileContent("C:\\SMALL\\A.LVL"), "former");
        EXPECT_EQ(Navigate.Calls.back(), "Close");
    });
}

TEST_F(TreeActions, CopiesToAFolderWithoutRightsAsAReport) {
    PutFile(Data("DAM\\A.LVL"), "data");
    Shut("C:\\TARVEX\\WORK\\");
    AsNobody([&] {
        Desk.ExpectFile("Copy File To", "C:\\TARVEX\\WORK\\A.LVL");
        Desk.ExpectMessageTitled("Program Error", Answer::Cancel);
        CopyTreeFile(Data("DAM\\"), "A.LVL", Navigate);
        EXPECT_EQ(Navigate.Calls.back(), "Close");
    });
}

}  // namespace Dorvane::Testing
