// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/frmEditText.h"

#include <QAction>
#include <QLabel>

#include "core/Drives.h"
#include "tests/programs/TextEditorTest.h"

namespace Dorvane::Testing {

namespace {

struct frmEditTextTest : TextEditorTest {
    /// The window comes to the front again, as after another program.
    void Activate() {
        QEvent activated(QEvent::ActivationChange);
        QCoreApplication::sendEvent(Form, &activated);
        HandleEvents();
    }
};

}  // namespace

TEST_F(frmEditTextTest, SavesWhatWasTypedAndNothingElse) {
    const std::string bytes("one\ntwo\r\n\0\x81\x1A", 13);
    Open(bytes);
    EXPECT_EQ(TextOf(*Form), "A B.TXT[*] - D:\\TARVEX\\");
    EXPECT_FALSE(Form->isWindowModified());
    Type("x");
    EXPECT_TRUE(Form->isWindowModified());
    Choose(*Form, "mnuSave");
    EXPECT_FALSE(Form->isWindowModified());
    EXPECT_EQ(FileContent(Path), "x" + bytes);
    EXPECT_EQ(TextOf(*Form, "lblMessage"), Path + " saved");
    Choose(*Form, "mnuUndo");
    EXPECT_TRUE(Form->isWindowModified());
    Choose(*Form, "mnuRedo");
    EXPECT_FALSE(Form->isWindowModified());
    EXPECT_FALSE(IsEnabled(*Form, "mnuRedo"));
}

TEST_F(frmEditTextTest, AsksBeforeItLosesAText) {
    Open("text");
    Type("x");
    const std::string question = "Save the changes to " + Path + "?\r\n\r\nYes saves them, No discards them.";
    Desktop.ExpectMessage("Text Editor", question, Answer::Cancel);
    Form->close();
    HandleEvents();
    ASSERT_FALSE(Form.isNull());
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Content(), "xtext");
    Desktop.ExpectMessage("Text Editor", question, Answer::Yes);
    Choose(*Form, "mnuClose");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Path), "xtext");

    Open("text");
    Type("y");
    Desktop.ExpectMessage("Text Editor", question, Answer::No);
    Choose(*Form, "mnuClose");
    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(FileContent(Path), "text");

    Open("text");
    Choose(*Form, "mnuClose");  // nothing to lose, nothing to ask
    EXPECT_TRUE(Form.isNull());
}

TEST_F(frmEditTextTest, StaysWithItsTextWhenItCannotBeSaved) {
    Open("text");
    Type("x");
    // A folder has taken the file's name: nothing can replace it.
    Drives::DeleteFile(Path);
    MakeFolders(Path + "\\");
    Desktop.ExpectMessage("Text Editor",
                          "Save the changes to " + Path + "?\r\n\r\nYes saves them, No discards them.",
                          Answer::Yes);
    Desktop.ExpectMessage("Text Editor", Path + " was changed by another program. Save your text over it?",
                          Answer::Yes);
    Desktop.ExpectMessageTitled("Program Error", Answer::Cancel);
    Choose(*Form, "mnuClose");
    ASSERT_FALSE(Form.isNull());
    EXPECT_EQ(TextOf(*Form, "lblMessage"), "");
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Content(), "xtext");
    EXPECT_TRUE(Form->isWindowModified());
    Desktop.ExpectMessageTitled("Text Editor", Answer::No);
    Choose(*Form, "mnuClose");
}

TEST_F(frmEditTextTest, SavesUnderAnotherNameAndAsksBeforeItReplaces) {
    Open("text", true);
    EXPECT_EQ(TextOf(*Form), "A B.TXT[*] (read only) - D:\\TARVEX\\");
    EXPECT_EQ(TextOf(*Form, "lblAccess"), "Read only");
    EXPECT_EQ(TextOf(*Form, "lblMessage"), "Read only: opened to be read.");
    Type("x");
    EXPECT_EQ(TextOf(*Form, "lblMessage"), "The text is read only.");
    PutFile("D:\\TARVEX\\OTHER.TXT", "other");
    Desktop.ExpectFile("Save Text As", "D:\\TARVEX\\OTHER.TXT");
    Desktop.ExpectMessage("Text Editor", "D:\\TARVEX\\OTHER.TXT is there already. Replace it?", Answer::No);
    Choose(*Form, "mnuSave");  // what cannot be written is saved elsewhere
    EXPECT_EQ(FileContent("D:\\TARVEX\\OTHER.TXT"), "other");
    Desktop.ExpectFile("Save Text As", "D:\\TARVEX\\OTHER.TXT");
    Desktop.ExpectMessageTitled("Text Editor", Answer::Yes);
    Choose(*Form, "mnuSaveAs");
    EXPECT_EQ(FileContent("D:\\TARVEX\\OTHER.TXT"), "text");
    EXPECT_EQ(TextOf(*Form), "OTHER.TXT[*] - D:\\TARVEX\\");
    EXPECT_FALSE(IsShown(*Form, "lblAccess"));
    EXPECT_TRUE(IsEnabled(*Form, "txtReplace"));
    Type("x");
    EXPECT_EQ(Content(), "xtext");
    Choose(*Form, "mnuSave");
    EXPECT_EQ(FileContent("D:\\TARVEX\\OTHER.TXT"), "xtext");
    EXPECT_EQ(FileContent(Path), "text");
    Choose(*Form, "mnuReload");  // the copy was not opened to be read
    EXPECT_FALSE(IsShown(*Form, "lblAccess"));
}

TEST_F(frmEditTextTest, NoticesWhatAnotherProgramWroteWhenItComesToTheFront) {
    Open("one\r\ntwo");
    View().Select({5, 5});
    Drives::WriteFile(Path, "ONE\r\nTWO");
    const std::string asked = Path + " was changed by another program. Load it anew";
    Desktop.ExpectMessage("Text Editor", asked + "?\r\n\r\nNo keeps the text as it is here.", Answer::Yes);
    Activate();
    EXPECT_EQ(Content(), "ONE\r\nTWO");
    EXPECT_EQ(Selected(), (Selection{5, 5}));
    Activate();  // once is enough
    Type("x");
    Drives::WriteFile(Path, "theirs");
    Desktop.ExpectMessage("Text Editor",
                          asked + ", and lose your changes?\r\n\r\nNo keeps the text as it is here.",
                          Answer::No);
    Activate();
    EXPECT_EQ(Desktop.Shown.back().Default, Answer::No);
    EXPECT_EQ(Content(), "ONE\r\nxTWO");
    EXPECT_TRUE(Form->isWindowModified());
    EXPECT_EQ(FileContent(Path), "theirs");
    Choose(*Form, "mnuSave");  // it was answered already
    EXPECT_EQ(FileContent(Path), "ONE\r\nxTWO");
}

TEST_F(frmEditTextTest, DoesNotSaveOverWhatAnotherProgramWroteUnasked) {
    Open("mine");
    Type("x");
    Drives::WriteFile(Path, "theirs");
    Desktop.ExpectMessage("Text Editor", Path + " was changed by another program. Save your text over it?",
                          Answer::No);
    Choose(*Form, "mnuSave");
    EXPECT_EQ(FileContent(Path), "theirs");
    EXPECT_TRUE(Form->isWindowModified());
    Desktop.ExpectMessageTitled("Text Editor", Answer::Yes);
    Choose(*Form, "mnuSave");
    EXPECT_EQ(FileContent(Path), "xmine");
}

TEST_F(frmEditTextTest, KeepsATextWhoseFileWasTakenAway) {
    Open("mine");
    Drives::DeleteFile(Path);
    Activate();
    EXPECT_EQ(TextOf(*Form, "lblMessage"), Path + " is no longer there: saving makes it again.");
    EXPECT_TRUE(Form->isWindowModified());
    Choose(*Form, "mnuReload");
    EXPECT_EQ(Content(), "mine");
    Choose(*Form, "mnuSave");
    EXPECT_EQ(FileContent(Path), "mine");
}

TEST_F(frmEditTextTest, LoadsAnewOnlyWhenNothingIsLost) {
    Open("text");
    Type("x");
    Desktop.ExpectMessage("Text Editor", "Load " + Path + " anew and lose your changes?", Answer::No);
    Choose(*Form, "mnuReload");
    EXPECT_EQ(Content(), "xtext");
    Desktop.ExpectMessageTitled("Text Editor", Answer::Yes);
    Choose(*Form, "mnuReload");
    EXPECT_EQ(Content(), "text");
    EXPECT_FALSE(Form->isWindowModified());
}

TEST_F(frmEditTextTest, OpensAnotherFileInItsPlace) {
    Open("text");
    PutFile("D:\\TARVEX\\OTHER.TXT", "other");
    Desktop.ExpectFile("Open Text File", "D:\\TARVEX\\OTHER.TXT");
    Choose(*Form, "mnuOpen");
    EXPECT_EQ(Desktop.Dialogs[0].Folder, "D:\\TARVEX\\");
    EXPECT_EQ(Content(), "other");
    EXPECT_EQ(TextOf(*Form), "OTHER.TXT[*] - D:\\TARVEX\\");
    Desktop.ExpectFile("Open Text File", std::nullopt);
    Choose(*Form, "mnuOpen");
    EXPECT_EQ(Content(), "other");
}

TEST_F(frmEditTextTest, MakesANewFileOnlyWhenItIsSaved) {
    Show(OpenTextFile(Path, false));
    EXPECT_FALSE(Form->isWindowModified());
    Type("new");
    EXPECT_TRUE(AllFiles("D:\\TARVEX\\").empty());
    Choose(*Form, "mnuSave");
    EXPECT_EQ(FileContent(Path), "new");
}

TEST_F(frmEditTextTest, TellsPlaceLineEndsAndTheWayOfTyping) {
    Open("one\ntwo\r\nthr\tee");
    EXPECT_EQ(TextOf(*Form, "lblPlace"), "Line 1 of 3, Column 1");
    EXPECT_EQ(TextOf(*Form, "lblLineEnds"), "LF");
    EXPECT_EQ(TextOf(*Form, "lblTyping"), "Insert");
    View().Select({9, 13});
    EXPECT_EQ(TextOf(*Form, "lblPlace"), "Line 3 of 3, Column 5, 4 selected");  // a tab counts one
    EXPECT_EQ(TextOf(*Form, "lblLineEnds"), "CR LF");
    View().Select({0, 0});
    Choose(*Form, "mnuOverwrite");
    EXPECT_EQ(TextOf(*Form, "lblTyping"), "Overwrite");
    Type("X");
    EXPECT_EQ(Content(), "Xne\ntwo\r\nthr\tee");
    Choose(*Form, "mnuSave");
    Choose(*Form, "mnuReload");  // the way of typing is the operator's, not the text's
    EXPECT_EQ(TextOf(*Form, "lblTyping"), "Overwrite");
}

TEST_F(frmEditTextTest, PrintsTheTextOrWhatIsSelected) {
    Global().PrinterPresent = true;
    Open("one\r\ntwo");
    Choose(*Form, "mnuPrint");
    EXPECT_EQ(Desktop.PrintedLines.size(), 5U);
    EXPECT_EQ(TextOf(*Form, "lblMessage"), Path + " printed");
    View().Select({5, 8});
    Choose(*Form, "mnuPrint");
    EXPECT_EQ(Desktop.PrintedLines.back(), "     two");
    EXPECT_EQ(Desktop.PrintedLines.size(), 9U);
    Desktop.PrinterConfirmed = false;
    Choose(*Form, "mnuPrint");
    EXPECT_EQ(Desktop.PrintedLines.size(), 9U);
}

TEST_F(frmEditTextTest, AsksBeforeItPrintsHundredsOfPages) {
    Global().PrinterPresent = true;
    std::string lines;
    for (int i = 0; i < 6000; ++i)
        lines += "x\n";
    Open(lines);
    Desktop.ExpectMessage("Text Editor", "Some 100 pages would be printed. Print them?", Answer::No);
    Choose(*Form, "mnuPrint");
    EXPECT_TRUE(Desktop.PrintedLines.empty());
}

TEST_F(frmEditTextTest, TheHelpKeyLeadsToItsPage) {
    Open("x");
    Press(Qt::Key_F1);
    ASSERT_EQ(Desktop.Started.size(), 1U);
    EXPECT_NE(Desktop.Started[0].find("edittext.html"), std::string::npos);
}

TEST_F(frmEditTextTest, WithoutAPrinterNothingIsPrinted) {
    Global().PrinterPresent = false;
    Open("x");
    EXPECT_FALSE(IsEnabled(*Form, "mnuPrint"));
    EXPECT_FALSE(IsEnabled(*Form, "mnuPrinterSetup"));
}

TEST_F(frmEditTextTest, ZoomsAndKeepsTheSize) {
    Open("x");
    Choose(*Form, "mnuZoomReset");
    const int points = View().FontPoints();
    Choose(*Form, "mnuZoomIn");
    Choose(*Form, "mnuZoomIn");
    EXPECT_EQ(View().FontPoints(), points + 2);
    Choose(*Form, "mnuClose");
    Open("x");
    EXPECT_EQ(View().FontPoints(), points + 2);
    for (int i = 0; i < 60; ++i)
        Choose(*Form, "mnuZoomOut");
    EXPECT_EQ(View().FontPoints(), 5);
    for (int i = 0; i < 60; ++i)
        Choose(*Form, "mnuZoomIn");
    EXPECT_EQ(View().FontPoints(), 48);
    Choose(*Form, "mnuZoomReset");
    EXPECT_EQ(View().FontPoints(), points);
}

}  // namespace Dorvane::Testing
