// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <filesystem>

#include "core/Drives.h"
#include "programs/edittext/TextWork.h"
#include "tests/programs/TextEditorTest.h"

namespace Dorvane::Testing {

namespace {

struct frmEditTextFind : TextEditorTest {
    void Seek(const char* words) { Control<QLineEdit>(*Form, "txtFind").setText(QLatin1String(words)); }
    std::string Message() { return TextOf(*Form, "lblMessage"); }
    bool Searches() { return Form->findChild<TextWork*>()->IsSeeking(); }
};

}  // namespace

TEST_F(frmEditTextFind, FindsForwardsAndBackwardsRoundTheEnd) {
    Open("one two one");
    Choose(*Form, "mnuFind");
    EXPECT_TRUE(IsShown(*Form, "barFind"));
    EXPECT_FALSE(IsShown(*Form, "txtReplace"));
    EXPECT_FALSE(IsEnabled(*Form, "cmdNext"));
    Seek("ONE");
    Click(*Form, "cmdNext");
    EXPECT_EQ(Selected(), (Selection{0, 3}));
    Choose(*Form, "mnuFindNext");
    EXPECT_EQ(Selected(), (Selection{8, 11}));
    EXPECT_EQ(Message(), "");
    Choose(*Form, "mnuFindNext");
    EXPECT_EQ(Selected(), (Selection{0, 3}));
    EXPECT_EQ(Message(), "Found from the beginning of the text on");
    Click(*Form, "cmdPrevious");
    EXPECT_EQ(Selected(), (Selection{8, 11}));
    EXPECT_EQ(Message(), "Found from the end of the text on");
    Click(*Form, "chkWrap");
    Choose(*Form, "mnuFindNext");
    EXPECT_EQ(Message(), "Not found");
    EXPECT_EQ(Selected(), (Selection{8, 11}));
    Click(*Form, "chkCase");
    Choose(*Form, "mnuFindPrevious");
    EXPECT_EQ(Message(), "Not found");
}

TEST_F(frmEditTextFind, TakesTheSelectedWordsAndItsKeys) {
    Open("word and word\r\n");
    View().Select({0, 4});
    Choose(*Form, "mnuFind");
    EXPECT_EQ(TextOf(*Form, "txtFind"), "word");
    auto& find = Control<QLineEdit>(*Form, "txtFind");
    QTest::keyClick(&find, Qt::Key_Return);
    EXPECT_EQ(Selected(), (Selection{9, 13}));
    QTest::keyClick(&find, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Selected(), (Selection{0, 4}));
    QTest::keyClick(&find, Qt::Key_Escape);
    EXPECT_FALSE(IsShown(*Form, "barFind"));
    EXPECT_TRUE(View().hasFocus());
    Choose(*Form, "mnuFindNext");  // what was sought last is still known
    EXPECT_EQ(Selected(), (Selection{9, 13}));
    View().Select({4, 15});  // more than a line is nothing to be sought
    Choose(*Form, "mnuFind");
    EXPECT_EQ(TextOf(*Form, "txtFind"), "word");
}

TEST_F(frmEditTextFind, WithoutWordsTheBarComesUp) {
    Open("text");
    Choose(*Form, "mnuFindNext");
    EXPECT_TRUE(IsShown(*Form, "barFind"));
}

TEST_F(frmEditTextFind, SaysThatTheCodePageLacksACharacter) {
    Open("a?b");
    Choose(*Form, "mnuFind");
    Control<QLineEdit>(*Form, "txtFind").setText(QStringLiteral("\u03A9"));
    Click(*Form, "cmdNext");
    EXPECT_EQ(Selected(), (Selection{0, 0}));
    EXPECT_NE(Message().find("code page 1252"), std::string::npos);
}

TEST_F(frmEditTextFind, ReplacesOneByOneAndAll) {
    Open("one one one\r\n");
    Choose(*Form, "mnuReplace");
    EXPECT_TRUE(IsShown(*Form, "txtReplace"));
    Seek("one");
    Control<QLineEdit>(*Form, "txtReplace").setText(QStringLiteral("three"));
    Click(*Form, "cmdReplace");  // finds the first
    EXPECT_EQ(Content(), "one one one\r\n");
    Click(*Form, "cmdReplace");
    EXPECT_EQ(Content(), "three one one\r\n");
    EXPECT_EQ(Selected(), (Selection{6, 9}));
    Click(*Form, "cmdReplaceAll");
    EXPECT_EQ(Content(), "three three three\r\n");
    EXPECT_EQ(Message(), "2 replaced");
    Choose(*Form, "mnuUndo");
    EXPECT_EQ(Content(), "three one one\r\n");
    Seek("none");
    Click(*Form, "cmdReplaceAll");
    EXPECT_EQ(Message(), "0 replaced");
    EXPECT_TRUE(IsEnabled(*Form, "mnuRedo"));
}

TEST_F(frmEditTextFind, ReplacesNothingThatIsOnlySelected) {
    Open("abc one\r\n");
    View().Select({0, 3});
    Choose(*Form, "mnuReplace");
    Seek("one");
    Control<QLineEdit>(*Form, "txtReplace").setText(QStringLiteral("two"));
    Click(*Form, "cmdReplace");
    EXPECT_EQ(Content(), "abc one\r\n");
    EXPECT_EQ(Selected(), (Selection{4, 7}));
}

TEST_F(frmEditTextFind, ReplacesNothingInWhatIsReadOnly) {
    Open("one", true);
    Choose(*Form, "mnuReplace");
    Seek("one");
    EXPECT_FALSE(IsEnabled(*Form, "cmdReplace"));
    EXPECT_FALSE(IsEnabled(*Form, "cmdReplaceAll"));
    EXPECT_TRUE(IsEnabled(*Form, "cmdNext"));
}

TEST_F(frmEditTextFind, ASearchOfALongTextCanBeLeftOff) {
    std::string text;
    for (int i = 0; i < 40; ++i)
        text += std::string((1 << 20) - 1, 'x') + '\n';
    PutFile(Path, text);
    Show(OpenTextFile(Path, false, 1000));
    Choose(*Form, "mnuFind");
    Control<QCheckBox>(*Form, "chkWord").setChecked(true);
    Seek("y");
    QTest::keyClick(&Control<QLineEdit>(*Form, "txtFind"), Qt::Key_Return);
    if (Searches()) {
        EXPECT_TRUE(IsShown(*Form, "barProgress"));
        QTest::keyClick(&Control<QLineEdit>(*Form, "txtFind"), Qt::Key_Escape);
        EXPECT_EQ(Message(), "Left off");
        EXPECT_FALSE(Searches());
        EXPECT_TRUE(IsShown(*Form, "barFind"));
    }
    QTest::keyClick(&Control<QLineEdit>(*Form, "txtFind"), Qt::Key_Return);
    ASSERT_TRUE(Until([&] { return !Searches(); }));
    EXPECT_EQ(Message(), "Not found");
    ASSERT_TRUE(
        Until([&] { return View().Document().Text().AllCounted() && !IsShown(*Form, "barProgress"); }));
    EXPECT_EQ(TextOf(*Form, "lblPlace"), "Line 1 of 41, Column 1");
}

TEST_F(frmEditTextFind, AnEditEndsASearch) {
    Open(std::string(30 << 20, 'x'));
    Seek("y");
    Choose(*Form, "mnuFindNext");
    Type("z");
    EXPECT_FALSE(Searches());
    EXPECT_EQ(View().Document().Text().Size(), (30 << 20) + 1);
}

TEST_F(frmEditTextFind, GoesToALine) {
    Open("one\r\ntwo\r\nthree");
    Desktop.ExpectText("Line number", "2");
    Choose(*Form, "mnuGoToLine");
    EXPECT_EQ(Selected(), (Selection{5, 5}));
    EXPECT_EQ(Desktop.Initials.back(), "1");
    Desktop.ExpectText("Line number", "99");
    Choose(*Form, "mnuGoToLine");
    EXPECT_EQ(Selected(), (Selection{10, 10}));
    EXPECT_EQ(Message(), "The text has 3 lines");
    for (const char* wrong : {"", "x", "0", "-1"}) {
        Desktop.ExpectText("Line number", wrong);
        Choose(*Form, "mnuGoToLine");
        EXPECT_EQ(Message(), std::string(wrong) + " is no line number");
    }
    Desktop.ExpectText("Line number", std::nullopt);
    Choose(*Form, "mnuGoToLine");
    EXPECT_EQ(Selected(), (Selection{10, 10}));
}

TEST_F(frmEditTextFind, GoesToALineThatIsNotCountedYet) {
    std::string text;
    for (int i = 1; i <= 2'000'000; ++i)
        text += "a line of a listing\r\n";
    PutFile(Path, text);
    Show(OpenTextFile(Path, false, 1000));
    Desktop.ExpectText("Line number", "1900000");
    Choose(*Form, "mnuGoToLine");
    ASSERT_TRUE(Until([&] { return Selected().Caret != 0; }));
    EXPECT_EQ(Selected().Caret, 1'899'999LL * 21);
}

TEST_F(frmEditTextFind, GoesToNoLineThatWasAskedForInTheFormerText) {
    Open("text");
    const std::string longText = "D:\\TARVEX\\LONG.TXT";
    PutFile(longText, std::string(1 << 16, '\n'));
    std::filesystem::resize_file(Drives::HostPath(longText), LongestEdited);
    Drives::AppendFile(longText, std::string(1000, '\n'));
    // No event comes between, so that the last lines are not counted.
    const auto choose = [&](const char* action) {
        Form->findChild<QAction*>(QLatin1String(action))->trigger();
    };
    Desktop.ExpectFile("Open Text File", longText);
    choose("mnuOpen");
    Desktop.ExpectText("Line number", "66000");
    choose("mnuGoToLine");
    EXPECT_EQ(Message(), "Counting lines ... Escape leaves off");
    Desktop.ExpectFile("Open Text File", longText);
    choose("mnuOpen");
    ASSERT_TRUE(Until([&] { return View().Document().Text().AllCounted(); }));
    HandleEvents();
    EXPECT_EQ(Selected(), (Selection{0, 0}));
}

TEST_F(frmEditTextFind, ListsTheHeadingsAndGoesThere) {
    Open("[One]\r\nA=1\r\n[Two]\r\nB=2\r\n");
    ASSERT_TRUE(Until([&] { return Items(*Form, "lstSections").size() == 2; }));
    EXPECT_TRUE(IsShown(*Form, "lstSections"));
    EXPECT_EQ(Control<QListWidget>(*Form, "lstSections").currentRow(), 0);
    ClickItem(*Form, "lstSections", "[Two]");
    EXPECT_EQ(Selected(), (Selection{12, 12}));
    EXPECT_EQ(Control<QListWidget>(*Form, "lstSections").currentRow(), 1);
    Choose(*Form, "mnuPreviousSection");
    EXPECT_EQ(Selected(), (Selection{0, 0}));
    Choose(*Form, "mnuPreviousSection");
    EXPECT_EQ(Message(), "No further section");
    Choose(*Form, "mnuNextSection");
    EXPECT_EQ(Selected(), (Selection{12, 12}));
    Type("[Between]");
    Press(Qt::Key_Return);
    ASSERT_TRUE(Until([&] { return Items(*Form, "lstSections").size() == 3; }));
    Choose(*Form, "mnuSections");
    EXPECT_FALSE(IsShown(*Form, "lstSections"));
    Choose(*Form, "mnuSections");
    EXPECT_TRUE(IsShown(*Form, "lstSections"));
}

TEST_F(frmEditTextFind, ATextWithoutHeadingsHasNoList) {
    Open("plain\r\ntext\r\n");
    HandleEvents();
    EXPECT_FALSE(IsShown(*Form, "lstSections"));
}

}  // namespace Dorvane::Testing
