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

// A change of every kind, brought as far as its note, by hand.
struct BrokenChanges : testing::Test {
    BrokenChanges() {
        PutFile(Folder + "A.TXT", "old a");
        PutFile(Folder + "BOOK.GSI", "book");
        PutFile(Folder + "A.TXT.dv~", "new a");
        PutFile(Folder + "B.TXT.dv~", "new b");
        Note = {"maier on ws3, process 12",
                {Folder + "SUB\\", Folder + "SUB\\DEEP\\"},
                {{Folder + "A.TXT.dv~", Folder + "A.TXT", SumOf("new a")},
                 {Folder + "B.TXT.dv~", Folder + "B.TXT", SumOf("new b")}},
                {{Folder + "BOOK.GSI", Folder + "BOOK.999"}}};
    }

    void ExpectDone() const {
        EXPECT_EQ(FileContent(Folder + "A.TXT"), "new a");
        EXPECT_EQ(FileContent(Folder + "B.TXT"), "new b");
        EXPECT_EQ(FileContent(Folder + "BOOK.999"), "book");
        Drives::Entry entry;
        EXPECT_TRUE(Drives::Find(Folder + "SUB\\DEEP", entry));
        EXPECT_EQ(AllFiles(Folder).size(), 3u) << "something is left behind";
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
    Drives::CreateFolder(Folder + "SUB");
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
    PutFile("D:\\VICTIM2.TXT", "mine too");
    Note.Folders = {"D:\\PLANTED\\", Folder + "..\\PLANTED2\\"};
    Note.Files = {{Folder + "A.TXT.dv~", "D:\\VICTIM.TXT", SumOf("new a")},
                  {Folder + "B.TXT.dv~", Folder + "..\\VICTIM.TXT", SumOf("new b")}};
    Note.Moves = {{"D:\\VICTIM2.TXT", Folder + "TAKEN.TXT"}};
    WriteChangeNote(Folder, Note);
    Hold();
    EXPECT_EQ(FileContent("D:\\VICTIM.TXT"), "mine");
    EXPECT_EQ(FileContent("D:\\VICTIM2.TXT"), "mine too");
    Drives::Entry entry;
    EXPECT_FALSE(Drives::Find("D:\\PLANTED", entry));
    EXPECT_FALSE(Drives::Find("D:\\PLANTED2", entry));
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
    for (const std::string& content : {std::string(), std::string("DORVANE CHANGE 1\r\nFILE\t\\A.TXT"),
                                       std::string("something else\r\nEND\r\n"), std::string(3, '\0')}) {
        PutFile(ChangeNotePath(Folder), content);
        Hold();
        EXPECT_EQ(FileContent(Folder + "A.TXT"), "old a");
        EXPECT_FALSE(std::filesystem::exists(Drives::HostPath(ChangeNotePath(Folder))));
    }
}

TEST(Changes, LeaveNoNoteBehind) {
    const TestSite site;
    PutFile("D:\\SITE\\A.TXT", "old");
    PutFile("D:\\SITE\\M.TXT", "moved");
    MakeChange({{"D:\\SITE\\SUB\\"},
                {{"D:\\SITE\\A.TXT", "a"}, {"D:\\SITE\\SUB\\B.TXT", "b"}},
                {{"D:\\SITE\\M.TXT", "D:\\SITE\\SUB\\M.TXT"}}});
    EXPECT_EQ(AllFiles("D:\\SITE\\"), (std::vector<std::string>{"A.TXT", "SUB\\B.TXT", "SUB\\M.TXT"}));
    EXPECT_FALSE(std::filesystem::exists(Drives::HostPath(ChangeNotePath("D:\\SITE\\"))));
}

TEST(Changes, AreTakenBackWhereOneStepFails) {
    const TestSite site;
    PutFile("D:\\SITE\\A.TXT", "old");
    PutFile("D:\\SITE\\M.TXT", "moved");
    PutFile("D:\\SITE\\TAKEN.TXT", "taken");
    try {
        MakeChange({{"D:\\SITE\\SUB\\"},
                    {{"D:\\SITE\\A.TXT", "a"}, {"D:\\SITE\\B.TXT", "b"}},
                    {{"D:\\SITE\\M.TXT", "D:\\SITE\\TAKEN.TXT"}}});
        ADD_FAILURE() << "a file was replaced by a rename";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, FileAlreadyExists);
        EXPECT_EQ(error.Description.find("put back"), std::string::npos);
    }
    EXPECT_EQ(AllFiles("D:\\SITE\\"), (std::vector<std::string>{"A.TXT", "M.TXT", "TAKEN.TXT"}));
    EXPECT_EQ(FileContent("D:\\SITE\\A.TXT"), "old");
    Drives::Entry entry;
    EXPECT_FALSE(Drives::Find("D:\\SITE\\SUB", entry));
}

}  // namespace Dorvane::Testing
