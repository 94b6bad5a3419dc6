// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/BrokenChange.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "core/ChangeNote.h"
#include "core/Drives.h"
#include "core/FolderLock.h"
#include "core/ReplaceFiles.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

// A change that was cut off between any two of its steps is finished by the next who holds its folder.
namespace Dorvane::Testing {

namespace {

using testing::HasSubstr;
using testing::IsEmpty;

const std::string Folder = "D:\\SITE\\";

// A change of two files, brought as far as its note, by hand.
struct BrokenChanges : testing::Test {
    BrokenChanges() {
        PutFile(Folder + "A.TXT", "old a");
        PutFile(Folder + "A.TXT.dv~", "new a");
        PutFile(Folder + "B.TXT.dv~", "new b");
        Note = {"maier on ws3, process 12",
                {{Folder + "A.TXT.dv~", Folder + "A.TXT", SumOf("new a")},
                 {Folder + "B.TXT.dv~", Folder + "B.TXT", SumOf("new b")}}};
    }

    void ExpectDone() const {
        EXPECT_EQ(FileContent(Folder + "A.TXT"), "new a");
        EXPECT_EQ(FileContent(Folder + "B.TXT"), "new b");
        EXPECT_EQ(AllFiles(Folder).size(), 2u) << "something is left behind";
    }
    static void Hold() { const FolderLock lock(Folder); }

    TestSite Site;
    ScriptedDesktop Desktop;
    ChangeNote Note;
};

}  // namespace

TEST_F(BrokenChanges, AreFinishedByTheNextHolderWhoTellsIt) {
    WriteChangeNote(Folder, Note);
    Desktop.ExpectMessage(
        "Unfinished Change",
        "A change in D:\\SITE\\ that maier on ws3, process 12 had begun was broken off.  It has "
        "been finished now.");
    Hold();
    ExpectDone();
    Hold();  // and nothing more is told
}

TEST_F(BrokenChanges, AreFinishedFromWhereverTheyStood) {
    WriteChangeNote(Folder, Note);
    std::filesystem::rename(Drives::HostPath(Folder + "A.TXT.dv~"), Drives::HostPath(Folder + "A.TXT"));
    Desktop.ExpectMessageTitled("Unfinished Change");
    Hold();
    ExpectDone();
}

TEST_F(BrokenChanges, OfWhichAllWasDoneAreForgottenInSilence) {
    WriteChangeNote(Folder, Note);
    Desktop.ExpectMessageTitled("Unfinished Change");
    Hold();
    WriteChangeNote(Folder, Note);
    Hold();
    ExpectDone();
}

TEST_F(BrokenChanges, TakeNoOtherContentForTheirs) {
    WriteChangeNote(Folder, Note);
    PutFile(Folder + "A.TXT.dv~", "cut o");
    Desktop.ExpectMessageTitled("Unfinished Change");
    Hold();
    EXPECT_EQ(FileContent(Folder + "A.TXT"), "old a");
    EXPECT_EQ(FileContent(Folder + "B.TXT"), "new b");
}

TEST_F(BrokenChanges, LeadNothingOutOfTheirFolder) {
    PutFile("D:\\VICTIM.TXT", "mine");
    Note.Files = {{Folder + "A.TXT.dv~", "D:\\VICTIM.TXT", SumOf("new a")},
                  {Folder + "B.TXT.dv~", Folder + "..\\VICTIM.TXT", SumOf("new b")}};
    WriteChangeNote(Folder, Note);
    Hold();
    EXPECT_EQ(FileContent("D:\\VICTIM.TXT"), "mine");
}

TEST_F(BrokenChanges, AreTakenOverUnderAnotherDriveLetter) {
    WriteChangeNote(Folder, Note);
    std::filesystem::create_directory_symlink(Drives::HostPath("D:\\SITE"), Global().DrivesFolder + "n:");
    Desktop.ExpectMessageTitled("Unfinished Change");
    { const FolderLock lock("N:\\"); }
    EXPECT_EQ(FileContent(Folder + "A.TXT"), "new a");
    EXPECT_EQ(FileContent(Folder + "B.TXT"), "new b");
}

TEST_F(BrokenChanges, WithADamagedNoteChangeNothing) {
    for (const std::string& content :
         {std::string(), std::string("DORVANE CHANGE 1\r\nFILE\t\\A.TXT"),
          "DORVANE CHANGE 1\r\nFILE\t\\A.TXT.dv~\t\\A.TXT\t" + SumOf("new a") + "\r\n",
          std::string("something else\r\nEND\r\n"),
          "DORVANE CHANGE 9\r\nFILE\t\\A.TXT.dv~\t\\A.TXT\t" + SumOf("new a") + "\r\nEND\r\n",
          std::string(3, '\0')}) {
        PutFile(ChangeNotePath(Folder), content);
        Hold();
        EXPECT_EQ(FileContent(Folder + "A.TXT"), "old a");
        EXPECT_FALSE(std::filesystem::exists(Drives::HostPath(ChangeNotePath(Folder))));
    }
}

TEST(Changes, LeaveNoNoteBehind) {
    const TestSite site;
    PutFile("D:\\SITE\\A.TXT", "old");
    ReplaceInOrder({{"D:\\SITE\\A.TXT", "a"}, {"D:\\SITE\\B.TXT", "b"}});
    EXPECT_EQ(AllFiles("D:\\SITE\\"), (std::vector<std::string>{"A.TXT", "B.TXT"}));
    EXPECT_FALSE(std::filesystem::exists(Drives::HostPath(ChangeNotePath("D:\\SITE\\"))));
}

}  // namespace Dorvane::Testing
