// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/Download.h"

#include "core/Drives.h"
#include "core/Globals.h"
#include "tests/upload/UploadSite.h"

namespace Dorvane::Testing {
namespace {

using Words = List1<std::string>;

struct DownloadTest : UploadSite {
    DownloadTest() {
        PutFile("D:\\TARVEX\\DOWNLOAD\\b.prg", "");
        PutFile("D:\\TARVEX\\DOWNLOAD\\A.PRG", "");
        SetTimeStamp("D:\\TARVEX\\DOWNLOAD\\A.PRG", {2026, 3, 7, 10, 20, 30});
        SetTimeStamp("D:\\TARVEX\\DOWNLOAD\\b.prg", {2026, 3, 7, 10, 20, 30});
    }
    DownloadState State;
};

TEST_F(DownloadTest, OffersOnlyAllFilesWithoutAProfile) {
    EXPECT_EQ(LoadDownloadState(State), 1);
    EXPECT_EQ(State.Groups, (List1<DownloadGroup>{{"All Files", Words{"A.PRG", "B.PRG"}}}));
    EXPECT_EQ(State.Option, "");
    EXPECT_EQ(State.Files, (Words{"A.PRG", "B.PRG"}));
}

TEST_F(DownloadTest, OffersOnlyAllFilesWithoutAList) {
    PutLines("C:\\WINDOWS\\dv_download.ini", {"[Titles]", "Other=X"});
    EXPECT_EQ(LoadDownloadState(State), 1);
}

TEST_F(DownloadTest, OffersTheGroupsInTheirOrderBehindAllFiles) {
    PutLines("C:\\WINDOWS\\dv_download.ini",
             {"[Titles]", "List=tools, Maps", "[MAPS]", "List=", "[TOOLS]", "List=x.prg,gone.prg"});
    EXPECT_EQ(LoadDownloadState(State), 3);
    EXPECT_EQ(State.Groups[2], (DownloadGroup{"TOOLS", Words{"X.PRG", "GONE.PRG"}}));
    EXPECT_EQ(State.Groups[3], (DownloadGroup{"MAPS", {}}));
    EXPECT_EQ(State.Option, "All Files");
    EXPECT_EQ(State.Files, (Words{"A.PRG", "B.PRG"}));
}

TEST_F(DownloadTest, ShowsTheFilesOfTheChosenGroup) {
    PutLines("C:\\WINDOWS\\dv_download.ini", {"[Titles]", "List=TOOLS MAPS", "[TOOLS]", "List=X.PRG"});
    LoadDownloadState(State);
    ChooseDownloadGroup(State, "TOOLS");
    EXPECT_EQ(State.Option, "TOOLS");
    EXPECT_EQ(State.Files, Words{"X.PRG"});
}

TEST_F(DownloadTest, ShowsNothingForAGroupWithAnEmptyList) {
    PutLines("C:\\WINDOWS\\dv_download.ini", {"[Titles]", "List=MAPS"});
    LoadDownloadState(State);
    ChooseDownloadGroup(State, "MAPS");
    EXPECT_TRUE(State.Files.Empty());
}

TEST_F(DownloadTest, LooksInTheCurrentFolderWithoutADownloadPath) {
    PutFile("D:\\HERE.PRG", "");
    SetTimeStamp("D:\\HERE.PRG", {2026, 3, 7, 10, 20, 30});
    Global().Download_path = "";
    Drives::ChangeDrive('D');
    LoadDownloadState(State);
    EXPECT_EQ(State.Files, Words{"HERE.PRG"});
}

TEST_F(DownloadTest, ReportsMoreThanFiftyGroupsAndKeepsAllFiles) {
    std::string list;
    for (int i = 0; i < 51; ++i)
        list += "A ";
    PutLines("C:\\WINDOWS\\dv_download.ini", {"[Titles]", "List=" + list});
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 9\r\n\r\nDescription : Subscript out of range\r\n\r\nSource : Dorvane-frmDownload-LoadForm");
    EXPECT_EQ(LoadDownloadState(State), 1);
}

}  // namespace
}  // namespace Dorvane::Testing
