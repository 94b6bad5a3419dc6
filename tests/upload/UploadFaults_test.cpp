// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>

#include "core/Drives.h"
#include "core/basGeneral.h"
#include "tests/support/Reports.h"
#include "tests/upload/UploadSite.h"
#include "upload/basUpload.h"

namespace Dorvane::Testing {
namespace {

constexpr std::size_t Page = 4096;  // what a file on the small disk grows by

using Names = std::vector<std::string>;

// Deletes a file when the operator is asked about a full disk, as he would before he answers Yes.
class TidyingDesktop : public ScriptedDesktop {
  public:
    explicit TidyingDesktop(std::string file) : File(std::move(file)) {}
    Answer ShowMessage(const Message& message) override {
        Drives::DeleteFile(File);
        return ScriptedDesktop::ShowMessage(message);
    }

  private:
    std::string File;
};

struct UploadFaults : UploadSite {
    UploadFaults() { DataTypeProfile({"[LEVEL]", "LEV_SrvIdx=TRUE", "DAT_SrvIdx=TRUE", "DAT_Append=TRUE"}); }
    static bool Upload(const std::string& name, std::int16_t print = 0) {
        return UploadFile(From, To, name, "3/7/2026", Index, print, "LEVEL");
    }
    static void SetAccess(const std::string& path, unsigned mode) {
        std::filesystem::permissions(Drives::HostPath(path), static_cast<std::filesystem::perms>(mode));
    }
    static bool Tells(const Message& message, const std::string& text) {
        return message.Text.find(text) != std::string::npos;
    }
};

TEST_F(UploadFaults, AFullDiskLeavesNoCopyNoIndexLineAndTheSource) {
    PutSource("DAY1.LEV", std::string(200'000, 'x'));
    OnSmallDisk(To, 64, [] {
        ScriptedDesktop desktop;
        PutFile(To + Index, IndexHead);
        ExpectReport(desktop, DiskFull, "basUpload-UploadFile", Answer::No);
        EXPECT_FALSE(Upload("DAY1.LEV"));
        EXPECT_EQ(AllFiles(To), Names{Index});
        EXPECT_EQ(FileContent(To + Index), IndexHead);
        EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
    });
}

TEST_F(UploadFaults, AProfileThatCannotBeReadUploadsNothing) {
    PutSource("DAY1.LEV", "day 1");
    SetAccess("C:\\WINDOWS\\dv_datatype.ini", 0600);
    SetAccess(To, 0777);
    SetAccess(From, 0777);
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        EXPECT_FALSE(Upload("DAY1.LEV"));
        EXPECT_EQ(LastReport(desktop), "70 Dorvane-basUpload-UploadFile");
    });
    EXPECT_EQ(AllFiles(To), Names{Index});
    EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
}

TEST_F(UploadFaults, YesAtAFullDiskCopiesAgainOnceThereIsRoom) {
    const std::string content(40'000, 'x');
    PutSource("DAY1.LEV", content);
    OnSmallDisk(To, 64, [&] {
        TidyingDesktop desktop(To + "OLD.TMP");
        PutFile(To + Index, IndexHead);
        PutFile(To + "OLD.TMP", std::string(40'000, 'o'));
        ExpectReport(desktop, DiskFull, "basUpload-UploadFile", Answer::Yes);
        EXPECT_TRUE(Upload("DAY1.LEV"));
        EXPECT_EQ(FileContent(To + "DAY1.LEV"), content);
        EXPECT_EQ(FileLines(To + Index).size(), 3u);
        EXPECT_EQ(AllFiles(From), Names{"DAY1.999"});
    });
}

TEST_F(UploadFaults, AFullDiskAtTheIndexLeavesTheCopyAndTheSourceAndTheRepeatMeetsTheCopy) {
    const std::string content(Page, 'x');
    PutSource("DAY1.LEV", content);
    OnSmallDisk(To, 64, [&] {
        ScriptedDesktop desktop;
        const std::string index = IndexHead + std::string(Page - IndexHead.size() - 2, 'i') + "\r\n";
        PutFile(To + Index, index);
        PutFile(To + "FILL.1", std::string(8 * Page, 'f'));
        for (int i = 2; i < 20; ++i) {
            try {
                PutFile(To + "FILL." + std::to_string(i), std::string(Page, 'f'));
            } catch (const RunTimeError&) {
                // A page for the copy, and one for the lock of the folder.
                Drives::DeleteFile(To + "FILL." + std::to_string(i - 1));
                Drives::DeleteFile(To + "FILL." + std::to_string(i - 2));
                break;
            }
        }
        ExpectReport(desktop, DiskFull, "basWrite-UpdateSrvIdx", Answer::No);
        EXPECT_FALSE(Upload("DAY1.LEV"));
        EXPECT_EQ(FileContent(To + "DAY1.LEV"), content);
        EXPECT_EQ(FileContent(To + Index), index);
        EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});

        desktop.ExpectMessageTitled("File already exists");
        EXPECT_FALSE(Upload("DAY1.LEV"));
    });
}

TEST_F(UploadFaults, AFullDiskAppendsAllOrNothing) {
    PutSource("A.DAT", std::string(200'000, 'x'));
    OnSmallDisk(To, 64, [] {
        ScriptedDesktop desktop;
        PutFile(To + Index, IndexHead);
        PutFile(To + "A.DAT", "old\r\n");
        ExpectReport(desktop, DiskFull, "basUpload-AppendDataFile", Answer::No);
        EXPECT_FALSE(Upload("A.DAT"));
        EXPECT_EQ(FileContent(To + "A.DAT"), "old\r\n");
        EXPECT_EQ(FileContent(To + Index), IndexHead);
        EXPECT_EQ(AllFiles(From), Names{"A.DAT"});
    });
}

TEST_F(UploadFaults, AReadOnlyTargetFolderLeavesEverything) {
    PutSource("DAY1.LEV", "x");
    SetAccess(From, 0777);
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        EXPECT_FALSE(Upload("DAY1.LEV"));
        EXPECT_TRUE(Tells(desktop.Shown[0], "Source : Dorvane-basUpload-UploadFile"));
        EXPECT_EQ(AllFiles(To), Names{Index});
        EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
    });
}

TEST_F(UploadFaults, AReadOnlyIndexLeavesTheCopyAndTheSource) {
    PutSource("DAY1.LEV", "x");
    SetAccess(From, 0777);
    SetAccess(To, 0777);
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        EXPECT_FALSE(Upload("DAY1.LEV"));
        EXPECT_TRUE(Tells(desktop.Shown[0], "Source : Dorvane-basWrite-UpdateSrvIdx"));
        EXPECT_EQ(AllFiles(To), (Names{"DAY1.LEV", Index}));
        EXPECT_EQ(FileContent(To + Index), IndexHead);
        EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
    });
}

TEST_F(UploadFaults, AReadOnlySourceFolderLeavesCopyAndIndexLineAndTheOldName) {
    PutSource("DAY1.LEV", "x");
    SetAccess(To, 0777);
    SetAccess(To + Index, 0666);
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        EXPECT_FALSE(Upload("DAY1.LEV"));
        EXPECT_TRUE(Tells(desktop.Shown[0], "Source : Dorvane-basUpload-UploadRename"));
        EXPECT_EQ(FileLines(To + Index).size(), 3u);
        EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
    });
}

TEST_F(UploadFaults, AnUnreadableSourceLeavesNoCopy) {
    PutSource("DAY1.LEV", "x");
    SetAccess(From + "DAY1.LEV", 0);
    SetAccess(From, 0777);
    SetAccess(To, 0777);
    AsNobody([] {
        ScriptedDesktop desktop;
        desktop.ExpectMessageTitled("Program Error");
        EXPECT_FALSE(Upload("DAY1.LEV"));
        EXPECT_EQ(AllFiles(To), Names{Index});
        EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
    });
}

TEST_F(UploadFaults, AVanishedTargetFolderIsAPathNotFound) {
    PutSource("DAY1.LEV", "x");
    std::filesystem::remove_all(Drives::HostPath(To));
    Desktop.ExpectMessage(
        "Program Error", "Error : 76\r\n\r\nPath doesn't exist.\r\n\r\nSource : Dorvane-basUpload-UploadFile",
        Answer::Cancel);
    EXPECT_FALSE(Upload("DAY1.LEV"));
    EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
}

TEST_F(UploadFaults, AVanishedTargetFolderMadeAgainIsTakenOnRetry) {
    PutSource("DAY1.LEV", "x");
    std::filesystem::remove_all(Drives::HostPath(To));
    class MakingDesktop : public ScriptedDesktop {
        Answer ShowMessage(const Message& message) override {
            MakeFolders(To);
            return ScriptedDesktop::ShowMessage(message);
        }
    } desktop;
    desktop.ExpectMessageTitled("Program Error", Answer::Retry);
    EXPECT_TRUE(Upload("DAY1.LEV"));
    EXPECT_EQ(AllFiles(To), (Names{"DAY1.LEV", Index}));
    EXPECT_EQ(AllFiles(From), Names{"DAY1.999"});
}

TEST_F(UploadFaults, AVanishedSourceLeavesNoCopy) {
    Desktop.ExpectMessageTitled("Program Error");
    EXPECT_FALSE(Upload("DAY1.LEV"));
    EXPECT_TRUE(Tells(Desktop.Shown[0], "Error : 53"));
    EXPECT_EQ(AllFiles(To), Names{Index});
}

TEST_F(UploadFaults, ASkippedCopyIsNoCopyAndRenamesNothing) {
    PutSource("DAY1.LEV", "x");
    std::filesystem::remove_all(Drives::HostPath(To));
    Desktop.ExpectMessageTitled("Program Error", Answer::Ignore);
    EXPECT_FALSE(Upload("DAY1.LEV"));
    EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
}

TEST_F(UploadFaults, APrinterThatFailsLeavesTheSource) {
    class FailingPrinter : public ScriptedDesktop {
        std::unique_ptr<PrintJob> BeginPrint(const std::string&, int) override {
            throw RunTimeError(DeviceUnavailable);
        }
    } desktop;
    DataTypeProfile({"[LEVEL]", "LEV_Print=GENERIC"});
    PutSource("DAY1.LEV", "x");
    desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    EXPECT_FALSE(Upload("DAY1.LEV", 1));
    EXPECT_TRUE(Tells(desktop.Shown[0], "Source : Dorvane-basPrint-PrintGenFile"));
    EXPECT_EQ(FileContent(To + "DAY1.LEV"), "x");
    EXPECT_EQ(AllFiles(From), Names{"DAY1.LEV"});
}

}  // namespace
}  // namespace Dorvane::Testing
