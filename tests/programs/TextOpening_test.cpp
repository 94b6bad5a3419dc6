// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextOpening.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "core/Drives.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

namespace {

struct TextOpening : testing::Test {
    TextOpening() { Site.LayOut(); }

    TestSite Site;
    ScriptedDesktop Desktop;
};

}  // namespace

TEST_F(TextOpening, TakesAPathInPiecesAndTheWishToRead) {
    PutFile("D:\\TARVEX\\Caf\xE9 au lait.TXT", "x");
    const std::string host = Drives::HostPath("D:\\TARVEX\\") + "Caf\xC3\xA9";
    const char* pieces[] = {"edittext.exe", host.c_str(), "au", "lait.TXT"};
    EXPECT_EQ(ReadTextArguments(4, pieces).Path, "D:\\TARVEX\\Caf\xE9 au lait.TXT");
    EXPECT_FALSE(ReadTextArguments(4, pieces).ReadOnly);
    const char* reading[] = {"edittext.exe", "--read", "D:\\A", "B.TXT"};
    EXPECT_EQ(ReadTextArguments(4, reading).Path, "D:\\A B.TXT");
    EXPECT_TRUE(ReadTextArguments(4, reading).ReadOnly);
    EXPECT_EQ(ReadTextArguments(1, reading).Path, "");
    EXPECT_EQ(ReadTextArguments(2, reading).Path, "");
}

TEST_F(TextOpening, OpensAFileWithoutAWord) {
    PutFile("D:\\TARVEX\\A B.TXT", "text");
    const std::optional<TextFile> file = AskTextFile("D:\\TARVEX\\A B.TXT", false);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Document->Content(), "text");
    EXPECT_EQ(AskTextFile("D:\\TARVEX\\A B.TXT", true)->ReadOnly, "opened to be read");
}

TEST_F(TextOpening, OffersAFileThatIsNotThereAsNew) {
    const std::string question = "D:\\TARVEX\\NEW.TXT is not there. Begin it as a new file?";
    Desktop.ExpectMessage("Text Editor", question, Answer::Yes);
    const std::optional<TextFile> file = AskTextFile("D:\\TARVEX\\NEW.TXT", false);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->IsNew);
    Desktop.ExpectMessage("Text Editor", question, Answer::No);
    EXPECT_FALSE(AskTextFile("D:\\TARVEX\\NEW.TXT", false));
    Desktop.ExpectMessage("Text Editor", "D:\\TARVEX\\NEW.TXT is not there.");
    EXPECT_FALSE(AskTextFile("D:\\TARVEX\\NEW.TXT", true));
    Desktop.ExpectMessage("Text Editor",
                          "D:\\NONE\\NEW.TXT is not there, and there is no folder D:\\NONE\\.");
    EXPECT_FALSE(AskTextFile("D:\\NONE\\NEW.TXT", false));
    EXPECT_FALSE(Drives::MayReplace("D:\\NONE\\NEW.TXT"));
}

TEST_F(TextOpening, OfAFolderLetsAFileBeChosen) {
    PutFile("D:\\TARVEX\\INIT\\A.STR", "structure");
    Desktop.ExpectFile("D:\\TARVEX\\INIT\\ is a folder: choose a file", "D:\\TARVEX\\INIT\\A.STR");
    const std::optional<TextFile> file = AskTextFile("D:\\TARVEX\\INIT", false);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Document->Content(), "structure");
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "D:\\TARVEX\\INIT\\");
    Desktop.ExpectFile("Open Text File", std::nullopt);
    EXPECT_FALSE(AskTextFile("", false));
    Desktop.ExpectFile("Open Text File", "D:\\TARVEX\\INIT\\");  // once is enough
    EXPECT_FALSE(AskTextFile("", false));
}

TEST_F(TextOpening, AsksBeforeItOpensWhatIsNoText) {
    PutFile("D:\\TARVEX\\PICTURE.PNG", std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\1\0\0\0\1\0", 24));
    const std::string question = "D:\\TARVEX\\PICTURE.PNG does not look like a text. Open it all the same?";
    Desktop.ExpectMessage("Text Editor", question, Answer::No);
    EXPECT_FALSE(AskTextFile("D:\\TARVEX\\PICTURE.PNG", false));
    EXPECT_EQ(Desktop.Shown[0].Default, Answer::No);
    Desktop.ExpectMessage("Text Editor", question, Answer::Yes);
    EXPECT_TRUE(AskTextFile("D:\\TARVEX\\PICTURE.PNG", false));
    ASSERT_EQ(mkfifo((Drives::HostPath("D:\\TARVEX\\") + "PIPE").c_str(), 0666), 0);
    Desktop.ExpectMessage("Text Editor", "D:\\TARVEX\\PIPE is no file that holds a text.");
    EXPECT_FALSE(AskTextFile("D:\\TARVEX\\PIPE", false));
}

}  // namespace Dorvane::Testing
