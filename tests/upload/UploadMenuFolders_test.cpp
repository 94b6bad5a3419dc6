// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include "core/Drives.h"
#include "core/ProfileStore.h"
#include "tests/upload/UploadScreenSite.h"

namespace Dorvane::Testing {
namespace {

using Names = std::vector<std::string>;

const std::string TotalFolder = "D:\\TARVEX\\DAM\\NORTH\\TOTAL\\SRV7\\";

// How the upload screen comes by its folders and hands them on.
struct UploadMenuFolders : UploadScreenSite {
    UploadMenuFolders() { MakeFolders(TotalFolder); }
    static void OpenManually() { Global().Path_type = 2; }
};

TEST_F(UploadMenuFolders, BrowsesForTheSource) {
    MakeFolders("C:\\OTHER\\");
    PutFile("C:\\OTHER\\X.LEV", "");
    frmUploadMenu& screen = Open();
    Desktop.ExpectFile("Upload Data From ", "C:\\OTHER\\UploadPath");
    Click(screen, "cmdFromBrowse");
    EXPECT_EQ(Desktop.Dialogs[0].Folder, From);
    EXPECT_EQ(Desktop.Dialogs[0].FileName, "UploadPath");
    EXPECT_EQ(TextOf(screen, "lblFromPath"), "C:\\OTHER\\");
    EXPECT_EQ(Items(screen, "lstFileNames").back(), "X.LEV");
}

TEST_F(UploadMenuFolders, BrowsesFromNowhereForASourceThatIsNotThereAndShowsItAsNormalThen) {
    Remember("C:\\GONE\\", To, "0");
    frmUploadMenu& screen = Open();
    Desktop.ExpectFile("Upload Data From ", From + "UploadPath");
    Click(screen, "cmdFromBrowse");
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "");
    EXPECT_TRUE(IsNormal(screen, "lblFromPath"));
}

TEST_F(UploadMenuFolders, KeepsTheRedSourceWhenTheDialogIsCancelled) {
    Remember("C:\\GONE\\", To, "0");
    frmUploadMenu& screen = Open();
    Desktop.ExpectFile("Upload Data From ", std::nullopt);
    Click(screen, "cmdFromBrowse");
    EXPECT_EQ(TextOf(screen, "lblFromPath"), "C:\\GONE\\");
    EXPECT_TRUE(IsRed(screen, "lblFromPath"));
}

TEST_F(UploadMenuFolders, BrowsesForTheTargetByHand) {
    OpenManually();
    Remember(From, "D:\\GONE\\", "0");
    frmUploadMenu& screen = Open();
    Desktop.ExpectFile("Upload Data To ", TotalFolder + "UploadPath");
    Click(screen, "cmdToBrowse");
    EXPECT_EQ(TextOf(screen, "lblToPath"), TotalFolder);
    EXPECT_TRUE(IsNormal(screen, "lblToPath"));
    EXPECT_EQ(TextOf(screen, "lblDataType"), "TOTAL");
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "*.GSI ");
    EXPECT_TRUE(Nav.Calls.empty());
}

TEST_F(UploadMenuFolders, PicksTheTargetInTheTree) {
    Remember(From, "D:\\GONE\\", "0");
    frmUploadMenu& screen = Open();
    Click(screen, "cmdToBrowse");
    EXPECT_EQ(Nav.Calls, Names{"OpenTree Upload Data To|D:\\GONE\\"});
    EXPECT_FALSE(screen.isVisible());
    EXPECT_TRUE(IsRed(screen, "lblToPath"));

    screen.SetToPath(TotalFolder);
    EXPECT_EQ(TextOf(screen, "lblToPath"), TotalFolder);
    screen.show();
    Nav.WhenClosed();
    EXPECT_TRUE(IsNormal(screen, "lblToPath"));
    EXPECT_EQ(TextOf(screen, "lblDataType"), "TOTAL");
    EXPECT_EQ(Items(screen, "lstFileNames"), Names{"*.GSI "});
}

TEST_F(UploadMenuFolders, ShowsTheTargetAsNormalAlsoWhenTheTreeGaveNone) {
    Remember(From, "D:\\GONE\\", "0");
    frmUploadMenu& screen = Open();
    Click(screen, "cmdToBrowse");
    Nav.WhenClosed();
    EXPECT_EQ(TextOf(screen, "lblToPath"), "D:\\GONE\\");
    EXPECT_TRUE(IsNormal(screen, "lblToPath"));
}

TEST_F(UploadMenuFolders, SurvivesATreeThatOutlivesIt) {
    Click(Open(), "cmdToBrowse");
    const Names calls = Nav.Calls;
    delete Nav.Upload.data();
    Nav.WhenClosed();
    HandleEvents();
    EXPECT_EQ(Nav.Calls, calls) << "the answer opens nothing";
    EXPECT_TRUE(IsUnloaded());
    EXPECT_TRUE(QApplication::topLevelWidgets().empty()) << "and brings no screen back";
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Upload Select", "To_path"), To);
}

TEST_F(UploadMenuFolders, KeepsTheFormerTypeInForceWhereTheNewTargetNamesNone) {
    PutSource("A.LEV", "a");
    PutFile("D:\\OTHER\\SRV.IDX", "\\OTHER\r\n \r\n");
    frmUploadMenu& screen = Open();
    Click(screen, "cmdToBrowse");
    screen.SetToPath("D:\\OTHER\\");
    screen.show();
    Nav.WhenClosed();
    EXPECT_EQ(TextOf(screen, "lblDataType"), "");
    EXPECT_EQ(screen.DataTypeName(), "");
    EXPECT_EQ(Items(screen, "lstFileNames"), (Names{"*.LEV", "*.DAT", "*.LEV *.DAT ", "A.LEV"}));
    Click(screen, "cmdUpload");
    EXPECT_EQ(FileLines("D:\\OTHER\\SRV.IDX").size(), 3u);  // as section LEVEL asks for
}

TEST_F(UploadMenuFolders, GoesToReductionByTheTree) {
    IniWriteString("dv_tarvex.ini", "Tarvex", "Last Path", TotalFolder);
    Click(Open(), "chkPrintUpload");
    Click(*Nav.Upload, "cmdReduce");
    EXPECT_TRUE(IsUnloaded());
    EXPECT_EQ(Nav.Calls, Names{"OpenTree Data Reduction Directory Selection|" + TotalFolder});
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Upload Select", "Print"), "1");
}

TEST_F(UploadMenuFolders, GoesToReductionByHand) {
    OpenManually();
    IniWriteString("dv_tarvex.ini", "Manual", "Last Path", To);
    Open();
    Desktop.ExpectFile("Data Reduction Directory Selection", TotalFolder + "ReducePath");
    Click(*Nav.Upload, "cmdReduce");
    EXPECT_EQ(Desktop.Dialogs[0].Folder, To);
    EXPECT_EQ(Desktop.Dialogs[0].FileName, "ReducePath");
    EXPECT_TRUE(IsUnloaded());
    EXPECT_EQ(Nav.Calls, Names{"OpenReduction " + TotalFolder});
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Manual", "Last Path"), TotalFolder);
}

TEST_F(UploadMenuFolders, StaysWhenNoFolderToReduceIsGivenButHasSaved) {
    OpenManually();
    frmUploadMenu& screen = Open();
    Click(screen, "chkPrintUpload");
    Desktop.ExpectFile("Data Reduction Directory Selection", std::nullopt);
    Click(screen, "cmdReduce");
    EXPECT_FALSE(IsUnloaded());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(Nav.Calls.empty());
    EXPECT_EQ(IniReadString("dv_tarvex.ini", "Upload Select", "Print"), "1");
}

TEST_F(UploadMenuFolders, KeepsItsListWhenTheSourceVanishesAndSaysSoAtTheUpload) {
    PutSource("A.LEV", "a");
    frmUploadMenu& screen = Open();
    ClickItem(screen, "lstFileNames", "A.LEV");
    std::filesystem::remove_all(Drives::HostPath(From));
    Desktop.ExpectMessage("Missing Folder", "From path is not a valid folder.  Can not upload data");
    Click(screen, "cmdUpload");
    EXPECT_EQ(Items(screen, "lstFileNames"), (Names{"*.LEV", "*.DAT", "*.LEV *.DAT ", "A.LEV"}));
    EXPECT_EQ(TextOf(screen, "lblFileSelection"), "A.LEV");
    EXPECT_TRUE(IsRed(screen, "lblFromPath"));
    EXPECT_EQ(TextOf(screen, "lblStatus"), "Source folder not found");

    Desktop.ExpectMessage("No Files Found", "No *.999 file(s) to delete.");
    Click(screen, "cmdDelete999");
}

TEST_F(UploadMenuFolders, SaysThatTheTargetVanished) {
    PutSource("A.LEV", "a");
    frmUploadMenu& screen = Open();
    std::filesystem::remove_all(Drives::HostPath(To));
    Desktop.ExpectMessage("Missing Folder", "To path is not a valid folder.  Can not upload data");
    Click(screen, "cmdUpload");
    EXPECT_TRUE(IsRed(screen, "lblToPath"));
    EXPECT_EQ(TextOf(screen, "lblStatus"), "Target folder not found");
    EXPECT_EQ(AllFiles(From), Names{"A.LEV"});
}

}  // namespace
}  // namespace Dorvane::Testing
