// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextView.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

#include "programs/edittext/ByteText.h"
#include "tests/programs/TextEditorTest.h"

namespace Dorvane::Testing {

namespace {

struct TextViewTest : testing::Test {
    void Open(const std::string& text, bool readOnly = false) {
        Document.emplace(text);
        View.resize(600, 400);
        View.SetDocument(*Document, readOnly);
        View.show();
        HandleEvents();
    }
    void OpenInPieces(const std::string& text) {
        Document.emplace(std::make_unique<MemorySource>(text));
        View.resize(600, 400);
        View.SetDocument(*Document, true);
        View.show();
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&View, key, modifiers);
    }
    Offset Caret() { return View.Caret().Selected().Caret; }
    /// The middle of a cell, both from 0, of the text that is seen.
    QPoint CellAt(int row, int column) {
        const QRectF caret = View.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
        const Offset at = Caret();
        const Offset start = Document->Text().LineStart(at);
        const auto firstRow = Document->Text().LineOf(View.Top());
        const double left = caret.left() - static_cast<double>(at - start) * caret.width();
        const double top =
            caret.top() - static_cast<double>(*Document->Text().LineOf(at) - *firstRow) * caret.height();
        return QPointF(left + column * caret.width() + 1, top + (row + 0.5) * caret.height()).toPoint();
    }
    static std::string Lines(int count) {
        std::string text;
        for (int i = 1; i <= count; ++i)
            text += "line " + std::to_string(i) + "\r\n";
        return text;
    }

    std::optional<TextDocument> Document;
    TextView View;
};

}  // namespace

TEST_F(TextViewTest, TypesErasesAndUndoes) {
    Open("one\r\ntwo");
    QTest::keyClicks(&View, QStringLiteral("ab"));
    Press(Qt::Key_Return);
    Press(Qt::Key_Tab);
    EXPECT_EQ(Document->Content(), "ab\r\n\tone\r\ntwo");
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Document->Content(), "ab\r\nne\r\ntwo");
    for (int i = 0; i < 6; ++i)
        View.Undo();
    EXPECT_EQ(Document->Content(), "one\r\ntwo");
    View.Redo();
    EXPECT_EQ(Document->Content(),
              "ab"
              "one\r\ntwo");
}

TEST_F(TextViewTest, MovesBySystemKeys) {
    Open("one two\r\nthree\r\n");
    Press(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(Caret(), 4);
    Press(Qt::Key_End, Qt::ShiftModifier);
    EXPECT_EQ(View.Caret().SelectedText(), "two");
    Press(Qt::Key_Down);
    EXPECT_EQ(Caret(), 14);
    Press(Qt::Key_Home);
    EXPECT_EQ(Caret(), 9);
    Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(Caret(), 16);
    Press(Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(View.Caret().Selected(), (Selection{16, 0}));
}

TEST_F(TextViewTest, RefusesACharacterThatTheCodePageLacks) {
    Open("");
    const QSignalSpy refused(&View, &TextView::Refused);
    QTest::sendKeyEvent(QTest::Click, &View, Qt::Key_unknown, QStringLiteral("\u03A9"), Qt::NoModifier);
    EXPECT_EQ(Document->Content(), "");
    ASSERT_EQ(refused.count(), 1);
    EXPECT_TRUE(refused[0][0].toString().contains(QStringLiteral("\u03A9")));
    // What the code page has, however it is typed.
    QInputMethodEvent accent;
    accent.setCommitString(QStringLiteral("\u00E9\u20AC"));
    QCoreApplication::sendEvent(&View, &accent);
    EXPECT_EQ(Document->Content(), "\xE9\x80");
    QInputMethodEvent question;
    question.setCommitString(QStringLiteral("?"));
    QCoreApplication::sendEvent(&View, &question);
    EXPECT_EQ(Document->Content(), "\xE9\x80?");
    EXPECT_EQ(refused.count(), 1);
}

TEST_F(TextViewTest, PastesNothingOfWhatTheCodePageLacks) {
    Open("x\n");
    QGuiApplication::clipboard()->setText(QStringLiteral("a\u4E2D"));
    const QSignalSpy refused(&View, &TextView::Refused);
    View.Paste();
    EXPECT_EQ(Document->Content(), "x\n");
    EXPECT_EQ(refused.count(), 1);
    QGuiApplication::clipboard()->setText(QStringLiteral("1\r\n2\n"));
    View.Paste();
    EXPECT_EQ(Document->Content(), "1\n2\nx\n");
}

TEST_F(TextViewTest, CopiesBytesForItselfAndTextForOthers) {
    const std::string bytes("a\0\x81\x1A\xE9\r\nb", 8);
    Open(bytes);
    View.SelectAll();
    View.Copy();
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(mime->text(), QStringLiteral("a\u2400\u0081\u001A\u00E9\nb"));
    View.Select({8, 8});
    View.Paste();
    EXPECT_EQ(Document->Content(), bytes + bytes);
    View.SelectAll();
    View.Cut();
    EXPECT_EQ(Document->Content(), "");
    View.Copy();  // nothing is selected: the clipboard stays
    View.Paste();
    EXPECT_EQ(Document->Content(), bytes + bytes);
}

TEST_F(TextViewTest, LeavesATextAloneThatIsReadOnly) {
    Open("text", true);
    QSignalSpy refused(&View, &TextView::Refused);
    QTest::keyClicks(&View, QStringLiteral("a"));
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Delete})
        Press(key);
    QGuiApplication::clipboard()->setText(QStringLiteral("paste"));
    View.Paste();
    View.SelectAll();
    View.Cut();
    View.EraseSelected();
    View.Insert("x");
    View.ReplaceEach({0}, 1, "x");
    EXPECT_EQ(Document->Content(), "text");
    EXPECT_EQ(refused.count(), 9);
    View.Copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("text"));
    EXPECT_FALSE(View.inputMethodQuery(Qt::ImEnabled).toBool());
}

TEST_F(TextViewTest, SelectsWithTheMouse) {
    Open("one two\r\nthree\r\nfour");
    QTest::mouseClick(View.viewport(), Qt::LeftButton, {}, CellAt(1, 2));
    EXPECT_EQ(Caret(), 11);
    QTest::mouseClick(View.viewport(), Qt::LeftButton, Qt::ShiftModifier, CellAt(0, 4));
    EXPECT_EQ(View.Caret().Selected(), (Selection{11, 4}));
    QTest::mouseDClick(View.viewport(), Qt::LeftButton, {}, CellAt(0, 5));
    EXPECT_EQ(View.Caret().SelectedText(), "two");
    QTest::mouseClick(View.viewport(), Qt::LeftButton, {}, {3, CellAt(1, 0).y()});
    EXPECT_EQ(View.Caret().SelectedText(), "three\r\n");
    QTest::mouseClick(View.viewport(), Qt::LeftButton, {}, CellAt(9, 9));  // below and behind the text
    EXPECT_EQ(Caret(), 20);
    QTest::mousePress(View.viewport(), Qt::LeftButton, {}, CellAt(0, 1));
    QTest::mouseMove(View.viewport(), CellAt(1, 3));
    QTest::mouseRelease(View.viewport(), Qt::LeftButton, {}, CellAt(1, 3));
    EXPECT_EQ(View.Caret().Selected(), (Selection{1, 12}));
}

TEST_F(TextViewTest, PutsTheCaretAtTheSideOfTheLetterThatIsClicked) {
    Open("abcdef");
    const QPoint left = CellAt(0, 2);  // a pixel behind its beginning
    const int width = View.inputMethodQuery(Qt::ImCursorRectangle).toRectF().toRect().width();
    QTest::mouseClick(View.viewport(), Qt::LeftButton, {}, left);
    EXPECT_EQ(Caret(), 2);
    QTest::mouseClick(View.viewport(), Qt::LeftButton, {}, left + QPoint(width - 3, 0));
    EXPECT_EQ(Caret(), 3);
}

TEST_F(TextViewTest, KeepsTheCaretInSightAtEachColumn) {
    Open(std::string(1000, 'x'));
    for (int column = 0; column < 300; ++column) {
        const QRectF caret = View.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
        ASSERT_LE(caret.right(), View.viewport()->width()) << column;
        ASSERT_GE(caret.left(), 0) << column;
        Press(Qt::Key_Right);
    }
}

TEST_F(TextViewTest, FollowsTheScrollBarAndTheCaret) {
    Open(Lines(1000));
    EXPECT_EQ(View.verticalScrollBar()->maximum(), 1001 - View.Rows());
    View.verticalScrollBar()->setValue(500);
    EXPECT_EQ(View.Top(), Document->Text().StartOfLine(500));
    View.verticalScrollBar()->setValue(View.verticalScrollBar()->maximum());
    EXPECT_EQ(Document->Text().LineOf(View.Top()), 1001 - View.Rows());
    Press(Qt::Key_Down);  // the caret of line 1 comes into sight
    EXPECT_EQ(View.Top(), Document->Text().StartOfLine(1));
    Press(Qt::Key_PageDown);
    EXPECT_EQ(Document->Text().LineOf(Caret()), View.Rows());
    EXPECT_EQ(Document->Text().LineOf(View.Top()), View.Rows());
    Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(Document->Text().LineOf(View.Top()), 1001 - View.Rows());
    EXPECT_EQ(View.verticalScrollBar()->value(), View.verticalScrollBar()->maximum());
    Press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(View.Top(), 0);
    View.Select({9000, 9005});
    EXPECT_LT(View.Top(), 9000);
    EXPECT_GT(*Document->Text().LineOf(9000) - *Document->Text().LineOf(View.Top()), View.Rows() / 2 - 2);
}

TEST_F(TextViewTest, ReachesTheEndBeforeTheLinesAreCounted) {
    const std::string text = Lines(100'000);
    OpenInPieces(text);
    ASSERT_FALSE(Document->Text().AllCounted());
    Press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(Caret(), static_cast<Offset>(text.size()));
    Press(Qt::Key_Up);
    EXPECT_EQ(Document->Text().Read(Caret(), 100), "line 100000\r\n");
    Press(Qt::Key_Home, Qt::ControlModifier);
    View.verticalScrollBar()->setValue(View.verticalScrollBar()->maximum());
    const std::string seen = Document->Text().Read(View.Top(), 100'000);
    EXPECT_EQ(std::count(seen.begin(), seen.end(), '\n'), View.Rows() - 1);
    Document->CountSome(1);
    View.Refresh();
    const int estimated = View.verticalScrollBar()->maximum();
    View.verticalScrollBar()->setValue(estimated / 2);
    EXPECT_NEAR(static_cast<double>(View.Top()), static_cast<double>(text.size()) / 2,
                static_cast<double>(text.size()) / 20);
    EXPECT_EQ(Document->Text().Read(View.Top(), 5), "line ");
    EXPECT_FALSE(Document->Text().AllCounted());
    while (!Document->CountSome(1)) {
    }
    View.Refresh();
    EXPECT_EQ(View.verticalScrollBar()->maximum(), 100'001 - View.Rows());
    EXPECT_EQ(View.verticalScrollBar()->value(), Document->Text().LineOf(View.Top()));
}

TEST_F(TextViewTest, ScrollsALineOfAMillionCharacters) {
    Open(std::string(1'000'000, 'x') + "end\r\nshort");
    EXPECT_EQ(View.horizontalScrollBar()->maximum(), 1'000'004 - View.Columns());
    Press(Qt::Key_End);
    EXPECT_EQ(Caret(), 1'000'003);
    EXPECT_EQ(View.horizontalScrollBar()->value(), View.horizontalScrollBar()->maximum());
    QTest::keyClicks(&View, QStringLiteral("!"));
    EXPECT_EQ(Document->Text().LineEnd(0), 1'000'004);
    Press(Qt::Key_Home);
    EXPECT_EQ(View.horizontalScrollBar()->value(), 0);
    View.grab();
}

TEST_F(TextViewTest, GivesEveryByteOneCellAndASign) {
    Open(std::string("a\tb\0\x81\xE9\x7F", 7));
    EXPECT_EQ(View.Caret().Column(), 1);
    Press(Qt::Key_End);
    EXPECT_EQ(View.Caret().Column(), 8);
    const QRectF caret = View.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
    Press(Qt::Key_Home);
    const QRectF first = View.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
    EXPECT_NEAR(caret.left() - first.left(), 7 * first.width(), 0.01);
    EXPECT_EQ(ShownByte(0), QChar(0x2400));
    EXPECT_EQ(ShownByte('\t'), QChar(0x2192));
    EXPECT_EQ(ShownByte(0xE9), QChar(0xE9));
    EXPECT_EQ(ShownByte(0x80), QChar(0x20AC));
    for (const unsigned char byte : {0x00, 0x1A, 0x09, 0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D, 0xAD})
        EXPECT_TRUE(IsStandIn(byte)) << static_cast<int>(byte);
    for (const unsigned char byte : {0x20, 0x41, 0x80, 0xA0, 0xE9, 0xFF})
        EXPECT_FALSE(IsStandIn(byte)) << static_cast<int>(byte);
}

TEST_F(TextViewTest, ZoomsByTheWheelAndShowsMoreOrLess) {
    Open(Lines(100));
    const QSignalSpy zoomed(&View, &TextView::Zoomed);
    QWheelEvent wheel({50, 50}, View.mapToGlobal(QPointF(50, 50)), {}, {0, 120}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(View.viewport(), &wheel);
    ASSERT_EQ(zoomed.count(), 1);
    EXPECT_EQ(zoomed[0][0].toInt(), 1);
    const int rows = View.Rows();
    View.SetFontPoints(View.FontPoints() * 2);
    EXPECT_LT(View.Rows(), rows * 2 / 3);
    View.ShowRuler(false);
    View.grab();
    View.ShowRuler(true);
}

}  // namespace Dorvane::Testing
