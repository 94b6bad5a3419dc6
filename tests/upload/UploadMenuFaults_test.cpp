// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <filesystem>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "tests/upload/UploadScreenSite.h"

namespace Dorvane::Testing {
namespace {

using Names = std::vector<std::string>;

// Real faults under the real screen, which is opened in the child process that meets them.
struct UploadMenuFaults : UploadScreenSite {
    static void SetAccess(const std::string& path, unsigned mode) {
        std::filesystem::permissions(Drives::HostPath(path), static_cast<std::filesystem::perms>(mode));
    }
    static bool Tells(const Message& message, const std::string& text) {
        return message.Text.find(text) != std::string::npos;
    }
};

TEST_F(UploadMenuFaults, AFullDiskInTheMiddleOfARunKeepsEverySourceThatHasNoWholeCopy) {
    const std::string content(25'000, 'x');
    for (const char* name : {"A.LEV", "B.LEV", "C.LEV", "D.LEV", "E.LEV"})
        PutSource(name, content + name);
    InFreshProcess([&] {
        OnSmallDisk(To, 64, [&] {
            ScriptedDesktop desktop;
            PutFile(To + Index, IndexHead);
            frmUploadMenu& screen = Open();
            for (int i = 0; i < 3; ++i)
                desktop.ExpectMessage("Program Error",
                                      "Error : 61\r\n\r\nDisk is full. Continue?\r\n\r\nSource : "
                                      "Dorvane-basUpload-UploadFile",
                                      Answer::No);
            Click(screen, "cmdUpload");
            EXPECT_EQ(AllFiles(From), (Names{"A.999", "B.999", "C.LEV", "D.LEV", "E.LEV"}));
            EXPECT_EQ(AllFiles(To), (Names{"A.LEV", "B.LEV", Index}));
            EXPECT_EQ(FileContent(To + "A.LEV"), content + "A.LEV");
            EXPECT_EQ(FileContent(To + "B.LEV"), content + "B.LEV");
            EXPECT_EQ(FileLines(To + Index).size(), 4u);

            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
            EXPECT_EQ(Items(screen, "lstFileNames"),
                      (Names{"*.LEV", "*.DAT", "*.LEV *.DAT ", "A.999", "B.999", "C.LEV", "D.LEV", "E.LEV"}));
            EXPECT_EQ(TextOf(screen, "lblFileSelection"), "*.LEV");

            Drives::DeleteFile(To + "A.LEV");  // makes room for one more
            ClickItem(screen, "lstFileNames", "D.LEV");
            Click(screen, "cmdUpload");
            EXPECT_EQ(FileContent(To + "D.LEV"), content + "D.LEV");
            EXPECT_EQ(AllFiles(From), (Names{"A.999", "B.999", "C.LEV", "D.999", "E.LEV"}));
        });
    });
}

TEST_F(UploadMenuFaults, AReadOnlyTargetIsToldForEachFileAndLeavesThemAll) {
    PutSource("A.LEV", "a");
    PutSource("B.LEV", "b");
    SetAccess(From, 0777);
    InFreshProcess([&] {
        AsNobody([&] {
            ScriptedDesktop desktop;
            frmUploadMenu& screen = Open();
            desktop.ExpectMessageTitled("Program Error");
            desktop.ExpectMessageTitled("Program Error");
            Click(screen, "cmdUpload");
            EXPECT_TRUE(Tells(desktop.Shown[0], "Source : Dorvane-basUpload-UploadFile"));
            EXPECT_EQ(AllFiles(From), (Names{"A.LEV", "B.LEV"}));
            EXPECT_EQ(AllFiles(To), Names{Index});
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            EXPECT_EQ(Items(screen, "lstFileNames").size(), 5u);
            Click(screen, "cmdHome");
            EXPECT_TRUE(IsUnloaded());
        });
    });
}

TEST_F(UploadMenuFaults, AReadOnlySourceFolderKeepsItsUploadedFilesOnDeletion) {
    PutSource("A.999", "a");
    InFreshProcess([&] {
        AsNobody([&] {
            ScriptedDesktop desktop;
            frmUploadMenu& screen = Open();
            desktop.ExpectMessageTitled("Delete *.999 File(s)", Answer::Yes);
            desktop.ExpectMessageTitled("Program Error");
            Click(screen, "cmdDelete999");
            EXPECT_TRUE(Tells(desktop.Shown[1], "Source : Dorvane-frmUploadMenu-cmdDelete999_Click"));
            EXPECT_EQ(AllFiles(From), Names{"A.999"});
            EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
            EXPECT_EQ(Items(screen, "lstFileNames").back(), "A.999");
            Click(screen, "chkPrintUpload");
            EXPECT_TRUE(Control<QAbstractButton>(screen, "chkPrintUpload").isChecked());
        });
    });
}

TEST_F(UploadMenuFaults, ASourceFolderThatMayNotBeReadIsReportedAndTheScreenOpens) {
    SetAccess(From, 0);
    InFreshProcess([&] {
        AsNobody([&] {
            ScriptedDesktop desktop;
            for (int i = 0; i < 2; ++i)
                desktop.ExpectMessageTitled("Program Error");
            frmUploadMenu& screen = Open();
            EXPECT_TRUE(Tells(desktop.Shown[0], "Source : Dorvane-basTarvex-GetFiles"));
            EXPECT_TRUE(screen.isVisible());
            EXPECT_EQ(Items(screen, "lstFileNames"), (Names{"*.LEV", "*.DAT", "*.LEV *.DAT "}));
        });
    });
    SetAccess(From, 0755);
}

TEST_F(UploadMenuFaults, AProfileThatCannotBeWrittenDoesNotKeepTheOperatorHere) {
    SetAccess("C:\\WINDOWS\\", 0555);
    SetAccess("C:\\WINDOWS\\dv_tarvex.ini", 0444);
    InFreshProcess([&] {
        AsNobody([&] {
            ScriptedDesktop desktop;
            Click(Open(), "cmdHome");
            EXPECT_TRUE(IsUnloaded());
            EXPECT_EQ(Nav.Calls, Names{"ShowHome"});
        });
    });
}

}  // namespace
}  // namespace Dorvane::Testing
