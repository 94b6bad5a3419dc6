// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

const std::string Path = "D:\\TARVEX\\A B.TXT";

struct TextFileTest : testing::Test {
    TextFileTest() { Site.LayOut(); }

    static void Append(TextFile& file, const std::string& text) {
        const Offset end = file.Document->Text().Size();
        file.Document->Replace({end, end}, text, EditKind::Single);
    }

    TestSite Site;
};

std::string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i)
        bytes += static_cast<char>(i);
    return bytes;
}

}  // namespace

TEST_F(TextFileTest, GoesBackByteForByte) {
    for (const std::string& bytes :
         {AllBytes(), std::string("a\nb\r\nc\rd"), std::string("end\r\n\x1A"), std::string()}) {
        PutFile(Path, bytes);
        TextFile file = OpenTextFile(Path, false);
        EXPECT_TRUE(file.ReadOnly.empty());
        EXPECT_FALSE(file.IsNew);
        SaveTextFile(file);
        EXPECT_EQ(FileContent(Path), bytes);
        Append(file, "x");
        EXPECT_TRUE(file.Document->IsModified());
        SaveTextFile(file);
        EXPECT_FALSE(file.Document->IsModified());
        EXPECT_EQ(FileContent(Path), bytes + "x");
    }
}

TEST_F(TextFileTest, IsMadeWhenItIsSavedForTheFirstTime) {
    TextFile file = OpenTextFile(Path, false);
    EXPECT_TRUE(file.IsNew);
    EXPECT_EQ(file.Document->Text().Size(), 0);
    EXPECT_EQ(LookAtDisk(file), DiskState::Same);
    Append(file, "new");
    EXPECT_EQ(KindOf(Path), PathKind::Missing);
    SaveTextFile(file);
    EXPECT_FALSE(file.IsNew);
    EXPECT_EQ(FileContent(Path), "new");
    EXPECT_EQ(LookAtDisk(file), DiskState::Same);
}

TEST_F(TextFileTest, TellsWhatAnotherProgramDidToIt) {
    PutFile(Path, "one");
    TextFile file = OpenTextFile(Path, false);
    EXPECT_EQ(LookAtDisk(file), DiskState::Same);
    Drives::WriteFile(Path, "two");  // as long as before, and within the same second
    EXPECT_EQ(LookAtDisk(file), DiskState::Changed);
    KeepMine(file);
    EXPECT_EQ(LookAtDisk(file), DiskState::Same);
    EXPECT_TRUE(file.Document->IsModified());
    Drives::AppendFile(Path, "x");
    EXPECT_EQ(LookAtDisk(file), DiskState::Changed);
    Drives::DeleteFile(Path);
    EXPECT_EQ(LookAtDisk(file), DiskState::Gone);
    TextFile fresh = OpenTextFile(Path, false);
    PutFile(Path, "made by another");
    EXPECT_EQ(LookAtDisk(fresh), DiskState::Changed);
}

TEST_F(TextFileTest, IsReadOnlyWhereItCannotBeReplaced) {
    PutFile(Path, "text");
    EXPECT_EQ(OpenTextFile(Path, true).ReadOnly, "opened to be read");
    EXPECT_EQ(OpenTextFile(Path, false, 3).ReadOnly, "longer than 0 MB");
    MakeFolders("D:\\OWN\\");
    PutFile("D:\\OWN\\MINE.TXT", "x");
    PutFile("D:\\OWN\\LOCKED.TXT", "x");
    chmod(Drives::HostPath("D:\\OWN\\").c_str(), 0777);
    chmod(Drives::HostPath("D:\\OWN\\MINE.TXT").c_str(), 0666);
    chmod(Drives::HostPath("D:\\OWN\\LOCKED.TXT").c_str(), 0444);
    chmod(Drives::HostPath(Path).c_str(), 0666);
    chmod(Drives::HostPath("D:\\TARVEX\\").c_str(), 0755);
    AsNobody([] {
        EXPECT_EQ(OpenTextFile("D:\\OWN\\MINE.TXT", false).ReadOnly, "");
        EXPECT_EQ(OpenTextFile("D:\\OWN\\NEW.TXT", false).ReadOnly, "");
        EXPECT_EQ(OpenTextFile("D:\\OWN\\LOCKED.TXT", false).ReadOnly,
                  "the file or its folder cannot be written");
        EXPECT_EQ(OpenTextFile(Path, false).ReadOnly, "the file or its folder cannot be written");
        EXPECT_EQ(OpenTextFile("D:\\TARVEX\\NEW.TXT", false).ReadOnly,
                  "the file or its folder cannot be written");
    });
}

TEST_F(TextFileTest, StaysUnsavedWithItsTextWhenTheDiskIsFull) {
    OnSmallDisk("C:\\TARVEX\\TEMP\\", 64, [] {
        const std::string small = "C:\\TARVEX\\TEMP\\SMALL.TXT";
        PutFile(small, "as it was");
        TextFile file = OpenTextFile(small, false);
        Append(file, std::string(200'000, 'x'));
        try {
            SaveTextFile(file);
            ADD_FAILURE() << "the disk was not full";
        } catch (const RunTimeError& failure) {
            EXPECT_EQ(failure.Number, DiskFull);
        }
        EXPECT_TRUE(file.Document->IsModified());
        EXPECT_EQ(file.Document->Text().Size(), 200'009);
        EXPECT_EQ(FileContent(small), "as it was");
    });
}

TEST_F(TextFileTest, TakesANewNameWithItsText) {
    PutFile(Path, "text");
    TextFile file = OpenTextFile(Path, true);
    SaveTextFileAs(file, "D:\\TARVEX\\OTHER.TXT");
    EXPECT_EQ(file.Path, "D:\\TARVEX\\OTHER.TXT");
    EXPECT_TRUE(file.ReadOnly.empty());
    EXPECT_EQ(FileContent("D:\\TARVEX\\OTHER.TXT"), "text");
    EXPECT_EQ(FileContent(Path), "text");
    EXPECT_EQ(LookAtDisk(file), DiskState::Same);
}

TEST_F(TextFileTest, LongerThanWhatIsEditedIsReadInPieces) {
    std::string bytes;
    for (int i = 0; i < 60'000; ++i)
        bytes += "line " + std::to_string(i) + "\r\n";
    PutFile(Path, bytes);
    TextFile file = OpenTextFile(Path, false, 1000);
    TextDocument& document = *file.Document;
    EXPECT_FALSE(document.Text().AllCounted());
    EXPECT_EQ(document.Text().Size(), static_cast<Offset>(bytes.size()));
    EXPECT_EQ(document.Text().Read(document.Text().Size() - 12, 12), "line 59999\r\n");
    while (!document.CountSome(1)) {
    }
    EXPECT_EQ(document.Text().Lines(), 60'001);
    EXPECT_EQ(document.Text().Read(document.Text().StartOfLine(12'345), 10), "line 12345");
    EXPECT_EQ(document.Content(), bytes);
    // The file was taken away under the editor: it still holds what it opened.
    Drives::WriteFile(Path, "another");
    EXPECT_EQ(document.Content(), bytes);
    EXPECT_EQ(LookAtDisk(file), DiskState::Changed);
}

TEST_F(TextFileTest, ShortenedUnderTheEditorIsReadAsNulBytes) {
    PutFile(Path, std::string(300'000, 'x'));
    const TextFile file = OpenTextFile(Path, false, 1000);
    ASSERT_EQ(truncate(Drives::HostPath(Path).c_str(), 100'000), 0);
    EXPECT_EQ(file.Document->Text().Read(290'000, 5), std::string(5, '\0'));
    EXPECT_EQ(LookAtDisk(file), DiskState::Changed);
}

TEST_F(TextFileTest, IsToldFromWhatIsNone) {
    PutFile(Path, "text");
    EXPECT_EQ(KindOf(Path), PathKind::File);
    EXPECT_EQ(KindOf("D:\\TARVEX\\"), PathKind::Folder);
    EXPECT_EQ(KindOf("D:\\TARVEX"), PathKind::Folder);
    EXPECT_EQ(KindOf("D:\\TARVEX\\NONE.TXT"), PathKind::Missing);
    EXPECT_EQ(KindOf("D:\\NONE\\NONE.TXT"), PathKind::Missing);
    ASSERT_EQ(mkfifo((Drives::HostPath("D:\\TARVEX\\") + "PIPE").c_str(), 0666), 0);
    EXPECT_EQ(KindOf("D:\\TARVEX\\PIPE"), PathKind::Other);
    EXPECT_FALSE(LooksBinary(Path));
    PutFile(Path, "\x1A");
    EXPECT_FALSE(LooksBinary(Path));
    PutFile(Path, "");
    EXPECT_FALSE(LooksBinary(Path));
    PutFile(Path, std::string("a listing with one \0 byte and a form feed\f\r\n", 44));
    EXPECT_FALSE(LooksBinary(Path));
    PutFile(Path, std::string(1000, 'a') + std::string(100, '\1'));
    EXPECT_FALSE(LooksBinary(Path));
    PutFile(Path, std::string("\x7F"
                              "ELF\2\1\1\0\0\0\0\0\0\0\0\0",
                              16));
    EXPECT_TRUE(LooksBinary(Path));
}

}  // namespace Dorvane::Testing
