// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/FolderChoice.h"

#include "core/ProfileStore.h"
#include "tests/upload/UploadSite.h"

namespace Dorvane::Testing {
namespace {

struct FolderChoiceTest : UploadSite {
    FolderChoiceTest() {
        State.FromPath = From;
        State.ToPath = "D:\\GONE\\";
        State.ToPathMissing = true;
    }
    UploadState State;
};

TEST_F(FolderChoiceTest, BrowsesForTheSourceFromThePresentOne) {
    MakeFolders("C:\\OTHER\\");
    PutFile("C:\\OTHER\\A.LEV", "");
    Desktop.ExpectFile("Upload Data From ", "C:\\OTHER\\UploadPath");
    EXPECT_TRUE(BrowseUploadSource(State));
    EXPECT_EQ(Desktop.Dialogs[0].Folder, From);
    EXPECT_EQ(Desktop.Dialogs[0].FileName, "UploadPath");
    EXPECT_EQ(State.FromPath, "C:\\OTHER\\");
    EXPECT_FALSE(State.FromPathMissing);
}

TEST_F(FolderChoiceTest, BrowsesForTheTargetFromNowhereWhenItIsNotThere) {
    Desktop.ExpectFile("Upload Data To ", To + "UploadPath");
    EXPECT_TRUE(BrowseUploadTarget(State));
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "");
    EXPECT_EQ(State.ToPath, To);
    EXPECT_FALSE(State.ToPathMissing);
}

TEST_F(FolderChoiceTest, KeepsTheFolderWhenTheDialogIsCancelled) {
    Desktop.ExpectFile("Upload Data To ", std::nullopt);
    EXPECT_FALSE(BrowseUploadTarget(State));
    EXPECT_EQ(State.ToPath, "D:\\GONE\\");
    EXPECT_TRUE(State.ToPathMissing);
}

TEST_F(FolderChoiceTest, RemembersTheFolderToReduce) {
    IniWriteString("dv_tarvex.ini", "Manual", "Last Path", "D:\\LAST\\");
    Desktop.ExpectFile("Data Reduction Directory Selection", To + "ReducePath");
    std::string folder;
    EXPECT_TRUE(AskReductionFolder(folder));
    EXPECT_EQ(folder, To);
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "D:\\LAST\\");
    EXPECT_EQ(Desktop.Dialogs[0].FileName, "ReducePath");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Manual", "Last Path"), To);
}

TEST_F(FolderChoiceTest, TakesNoFolderToReduceThatIsNotThere) {
    std::string folder = "kept";
    Desktop.ExpectFile("Data Reduction Directory Selection", "D:\\GONE\\ReducePath");
    EXPECT_FALSE(AskReductionFolder(folder));
    Desktop.ExpectFile("Data Reduction Directory Selection", std::nullopt);
    EXPECT_FALSE(AskReductionFolder(folder));
    EXPECT_EQ(folder, "kept");
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Manual", "Last Path"), "");
}

TEST_F(FolderChoiceTest, TakesADownloadFolderOnlyWhenItIsThere) {
    Desktop.ExpectFile("Download Data To ...", From + "DownloadPath");
    EXPECT_EQ(AskDownloadFolder(), From);
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "");
    Desktop.ExpectFile("Download Data To ...", "D:\\GONE\\DownloadPath");
    EXPECT_EQ(AskDownloadFolder(), "");
}

}  // namespace
}  // namespace Dorvane::Testing
