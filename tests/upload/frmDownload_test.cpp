// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/frmDownload.h"

#include <QAbstractButton>
#include <QAction>
#include <QListWidget>
#include <QMenu>
#include <QTest>
#include <fstream>

#include "core/Drives.h"
#include "tests/upload/UploadScreenSite.h"

namespace Dorvane::Testing {
namespace {

using Names = std::vector<std::string>;

struct frmDownloadTest : UploadSite {
    frmDownloadTest() {
        UseShippedPictures();
        PutFile("D:\\TARVEX\\DOWNLOAD\\B.PRG", "");
        PutFile("D:\\TARVEX\\DOWNLOAD\\A.PRG", "");
    }
    ~frmDownloadTest() override { delete Loaded.data(); }
    static void Profile(const Names& lines) { PutLines("C:\\WINDOWS\\dv_download.ini", lines); }
    frmDownload& Open() {
        Loaded = new frmDownload(Nav);
        Loaded->show();
        HandleEvents();
        return *Loaded;
    }
    RecordingNavigator Nav;
    QPointer<frmDownload> Loaded;
};

TEST_F(frmDownloadTest, HasItsCaptions) {
    frmDownload& screen = Open();
    EXPECT_EQ(TextOf(screen), "Download Programs");
    EXPECT_EQ(TextOf(screen, "lblOptionsTitle"), "Options :");
    EXPECT_EQ(TextOf(screen, "lblFilesTitle"), "File(s) :");
    EXPECT_EQ(TextOf(screen, "lblDirectoryTitle"), "Download To ...");
    EXPECT_EQ(TextOf(screen, "lblComPort"), "Com Port");
    EXPECT_EQ(TextOf(screen, "cmdDownload"), "Download Selection(s)");
    EXPECT_EQ(TextOf(screen, "cmdHome"), "Go Home");
    EXPECT_NE(screen.findChild<QMenu*>(QStringLiteral("mnuFile")), nullptr);
    for (const char* name : {"cmdBrowse", "cmdComPort", "cmdDownload", "cmdHome"})
        EXPECT_FALSE(Control<QAbstractButton>(screen, name).toolTip().isEmpty()) << name;
}

TEST_F(frmDownloadTest, OffersOnlyAllFilesWithoutAProfile) {
    frmDownload& screen = Open();
    EXPECT_EQ(Items(screen, "lstOptions"), Names{"All Files"});
    EXPECT_EQ(Items(screen, "lstFiles"), (Names{"A.PRG", "B.PRG"}));
    EXPECT_EQ(TextOf(screen, "lblOptions"), "");
    ClickItem(screen, "lstOptions", "All Files");
    EXPECT_EQ(TextOf(screen, "lblOptions"), "All Files");
    EXPECT_EQ(Items(screen, "lstFiles"), (Names{"A.PRG", "B.PRG"}));
}

TEST_F(frmDownloadTest, OffersOnlyAllFilesWithoutAList) {
    Profile({"[Titles]", "Other=X"});
    frmDownload& screen = Open();
    EXPECT_EQ(Items(screen, "lstOptions"), Names{"All Files"});
    EXPECT_EQ(TextOf(screen, "lblOptions"), "");
}

TEST_F(frmDownloadTest, OffersTheGroupsOfTheProfileByMouseAndByKeyboard) {
    Profile({"[Titles]", "List=tools, Maps", "[MAPS]", "List=m.map", "[TOOLS]", "List=x.prg,gone.prg"});
    frmDownload& screen = Open();
    EXPECT_EQ(Items(screen, "lstOptions"), (Names{"All Files", "TOOLS", "MAPS"}));
    EXPECT_EQ(TextOf(screen, "lblOptions"), "All Files");
    EXPECT_EQ(Items(screen, "lstFiles"), (Names{"A.PRG", "B.PRG"}));
    ClickItem(screen, "lstOptions", "TOOLS");
    EXPECT_EQ(TextOf(screen, "lblOptions"), "TOOLS");
    EXPECT_EQ(Items(screen, "lstFiles"), (Names{"X.PRG", "GONE.PRG"}));
    QTest::keyClick(&Control<QListWidget>(screen, "lstOptions"), Qt::Key_Down);
    EXPECT_EQ(TextOf(screen, "lblOptions"), "MAPS");
    EXPECT_EQ(Items(screen, "lstFiles"), Names{"M.MAP"});
    ClickItem(screen, "lstOptions", "All Files");
    EXPECT_EQ(Items(screen, "lstFiles"), (Names{"A.PRG", "B.PRG"}));
}

TEST_F(frmDownloadTest, ClearsTheFilesForAGroupWithAnEmptyList) {
    Profile({"[Titles]", "List=MAPS"});
    frmDownload& screen = Open();
    ClickItem(screen, "lstOptions", "MAPS");
    EXPECT_EQ(TextOf(screen, "lblOptions"), "MAPS");
    EXPECT_TRUE(Items(screen, "lstFiles").empty());
}

TEST_F(frmDownloadTest, ShowsTheFirstOfTwoGroupsOfOneTitle) {
    Profile({"[Titles]", "List=MAPS MAPS", "[MAPS]", "List=m.map"});
    frmDownload& screen = Open();
    Control<QListWidget>(screen, "lstOptions").setCurrentRow(2);
    EXPECT_EQ(TextOf(screen, "lblOptions"), "MAPS");
    EXPECT_EQ(Items(screen, "lstFiles"), Names{"M.MAP"});
}

TEST_F(frmDownloadTest, ShowsNamesAsTheyStand) {
    PutFile("D:\\TARVEX\\DOWNLOAD\\\xC9&X.PRG", "");
    std::ofstream(Drives::HostPath("D:\\TARVEX\\DOWNLOAD\\") + "/<I>.PRG");  // only the host allows it
    Profile({"[Titles]", "List=<B>T&\xE9</B>"});
    frmDownload& screen = Open();
    EXPECT_EQ(Items(screen, "lstFiles"), (Names{"<I>.PRG", "A.PRG", "B.PRG", "\xC9&X.PRG"}));
    ClickItem(screen, "lstOptions", "<B>T&\xC9</B>");
    EXPECT_EQ(TextOf(screen, "lblOptions"), "<B>T&\xC9</B>");
}

TEST_F(frmDownloadTest, TakesAFolderToDownloadTo) {
    frmDownload& screen = Open();
    Desktop.ExpectFile("Download Data To ...", To + "DownloadPath");
    Click(screen, "cmdBrowse");
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "");
    EXPECT_EQ(Desktop.Dialogs[0].FileName, "DownloadPath");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), To);
    Desktop.ExpectFile("Download Data To ...", "D:\\GONE\\DownloadPath");
    Click(screen, "cmdBrowse");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "");
}

TEST_F(frmDownloadTest, EmptiesTheFolderWhenTheDialogIsCancelled) {
    frmDownload& screen = Open();
    Desktop.ExpectFile("Download Data To ...", To + "DownloadPath");
    Click(screen, "cmdBrowse");
    Desktop.ExpectFile("Download Data To ...", std::nullopt);
    Click(screen, "cmdBrowse");
    EXPECT_EQ(TextOf(screen, "lblDirectory"), "");
}

TEST_F(frmDownloadTest, TellsThatSendingIsOfTheFuture) {
    frmDownload& screen = Open();
    Click(screen, "cmdComPort");
    Click(screen, "cmdDownload");
    EXPECT_EQ(Nav.Calls,
              (Names{"OpenConstruct Comport Download|Option Under Construction: In the future this option "
                     "will allow the downloading of data through the comport.",
                     "OpenConstruct Download Programs|Option Under Construction: In the future this option "
                     "will allow the downloading of programs."}));
}

TEST_F(frmDownloadTest, GoesHomeByButtonAndByMenu) {
    Click(Open(), "cmdHome");
    EXPECT_TRUE(Loaded.isNull());
    Choose(Open(), "mnuGoHome");
    EXPECT_TRUE(Loaded.isNull());
    EXPECT_EQ(Nav.Calls, (Names{"ShowHome", "ShowHome"}));
}

TEST_F(frmDownloadTest, LooksInTheCurrentFolderWithoutADownloadPath) {
    PutFile("D:\\HERE.PRG", "");
    Global().Download_path = "";
    Drives::ChangeDrive('D');
    EXPECT_EQ(Items(Open(), "lstFiles"), Names{"HERE.PRG"});
}

TEST_F(frmDownloadTest, OpensOnADownloadFolderThatIsGone) {
    Global().Download_path = "D:\\GONE\\";
    frmDownload& screen = Open();
    EXPECT_EQ(Items(screen, "lstOptions"), Names{"All Files"});
    EXPECT_TRUE(Items(screen, "lstFiles").empty());
}

TEST_F(frmDownloadTest, ReportsMoreThanFiftyGroupsAndOffersAllFiles) {
    std::string list;
    for (int i = 0; i < 51; ++i)
        list += "A ";
    Profile({"[Titles]", "List=" + list});
    Desktop.ExpectMessage(
        "Program Error",
        "Error : 9\r\n\r\nDescription : Subscript out of range\r\n\r\nSource : Dorvane-frmDownload-LoadForm");
    frmDownload& screen = Open();
    EXPECT_EQ(Items(screen, "lstOptions"), Names{"All Files"});
    EXPECT_EQ(TextOf(screen, "lblOptions"), "");
}

}  // namespace
}  // namespace Dorvane::Testing
