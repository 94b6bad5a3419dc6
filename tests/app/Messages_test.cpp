// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTextBrowser>

#include "app/HelpViewer.h"
#include "app/QtDesktop.h"
#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/WaitCursor.h"
#include "tests/support/Operator.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

class Messages : public testing::Test {
  protected:
    Answer Ask(Buttons choices, Answer standard = Answer::Ok) {
        return Screen.ShowMessage({"Text", "Title", Icon::Question, choices, standard});
    }

    /// Shows a message and presses one key.
    Answer Press(Qt::Key key, Buttons choices, Answer standard = Answer::Ok) {
        Hands.ExpectDialog("Title", [key](QWidget& box) {
            QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : &box, key);
        });
        return Ask(choices, standard);
    }

    TestSite Site;
    QtDesktop Screen;
    Operator Hands;
};

TEST_F(Messages, GiveTheAnswerOfTheButtonClicked) {
    for (const Answer answer : {Answer::Yes, Answer::No, Answer::Cancel}) {
        Hands.ExpectMessage("Title", "Text", answer);
        EXPECT_EQ(Ask(Buttons::YesNoCancel), answer);
    }
    for (const Answer answer : {Answer::Retry, Answer::Cancel}) {
        Hands.ExpectMessage("Title", "Text", answer);
        EXPECT_EQ(Ask(Buttons::RetryCancel), answer);
    }
    Hands.ExpectMessage("Title", "Text");
    EXPECT_EQ(Ask(Buttons::Ok), Answer::Ok);
}

TEST_F(Messages, TakeEscapeForTheButtonThatChangesNothing) {
    EXPECT_EQ(Press(Qt::Key_Escape, Buttons::Ok), Answer::Ok);
    EXPECT_EQ(Press(Qt::Key_Escape, Buttons::RetryCancel), Answer::Cancel);
    EXPECT_EQ(Press(Qt::Key_Escape, Buttons::YesNo), Answer::No);
    EXPECT_EQ(Press(Qt::Key_Escape, Buttons::YesNoCancel), Answer::Cancel);
}

TEST_F(Messages, TakeEnterForTheDefaultButton) {
    EXPECT_EQ(Press(Qt::Key_Return, Buttons::YesNo), Answer::Yes);
    EXPECT_EQ(Press(Qt::Key_Return, Buttons::YesNo, Answer::No), Answer::No);
    EXPECT_EQ(Press(Qt::Key_Return, Buttons::RetryCancel), Answer::Retry);
    EXPECT_EQ(Press(Qt::Key_Return, Buttons::YesNoCancel, Answer::Cancel), Answer::Cancel);
}

TEST_F(Messages, StandUnderTheArrowWhereTheWaitCursorIsShown) {
    const WaitCursor wait;
    Hands.ExpectDialog("Title", [](QWidget& box) {
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    Ask(Buttons::Ok);
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST_F(Messages, HaveTheButtonsAskedForAndNoOther) {
    Hands.ExpectDialog("Title", [](QWidget& widget) {
        auto& box = dynamic_cast<QMessageBox&>(widget);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_TRUE(box.isModal());
        QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
    });
    EXPECT_EQ(Ask(Buttons::YesNo), Answer::No);
}

TEST_F(Messages, ShowTheirTextAsItStands) {
    Hands.ExpectDialog("Title", [](QWidget& widget) {
        auto& box = dynamic_cast<QMessageBox&>(widget);
        EXPECT_EQ(box.text(), QString::fromUtf8("<b>é</b> & co\nsecond\n\nfourth"));
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
    });
    Screen.ShowMessage({"<b>\xE9</b> & co\r\nsecond\r\n\r\nfourth", "Title"});
}

TEST_F(Messages, ShowANameOfAnyLengthWhole) {
    Hands.ExpectDialog("Title", [](QWidget& widget) {
        auto& label = Control<QLabel>(widget, "qt_msgbox_label");
        EXPECT_EQ(label.text().count(QLatin1Char('X')), 250);
        const QRect room(0, 0, label.width(), 10000);
        const QRect needed = label.fontMetrics().boundingRect(room, Qt::TextWordWrap, label.text());
        EXPECT_LE(needed.width(), label.width());
        EXPECT_LE(needed.height(), label.height());
        QTest::keyClick(&widget, Qt::Key_Escape);
    });
    Screen.ShowMessage({"File D:\\" + std::string(250, 'X') + " already exists.", "Title"});
}

TEST_F(Messages, BreakTextOfManyWordsBetweenThem) {
    std::string text;
    for (int i = 1; i <= 100; ++i)
        text += "words ";
    Hands.ExpectMessage("Title", text);
    Screen.ShowMessage({text, "Title"});
    EXPECT_EQ(Hands.Shown.at(0), text);
}

TEST_F(Messages, ComeAboveTheWindowInUse) {
    QWidget window;
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    Hands.ExpectDialog("Title", [&](QWidget& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    Ask(Buttons::Ok);
}

TEST_F(Messages, OpenTheHelpOnAnErrorAndStayOpen) {
    PutFile("P:\\DORVANE\\help\\DorvaneHelp.qch",
            Drives::ReadFile(Drives::DrivePath(DORVANE_FOLDER "/help/DorvaneHelp.qch")));
    Hands.ExpectDialog("Program Error", [](QWidget& widget) {
        auto& box = dynamic_cast<QMessageBox&>(widget);
        QTest::mouseClick(box.button(QMessageBox::Help), Qt::LeftButton);
        EXPECT_TRUE(box.isVisible());
        QWidget* help = nullptr;
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (qobject_cast<HelpViewer*>(window) != nullptr)
                help = window;
        ASSERT_NE(help, nullptr);
        EXPECT_TRUE(help->isVisible());
        EXPECT_EQ(Control<QTextBrowser>(*help, "page").source().fragment(), QStringLiteral("error-61"));
        QTest::mouseClick(box.button(QMessageBox::No), Qt::LeftButton);
    });
    EXPECT_EQ(ReportError(RunTimeError(DiskFull), "basTest-Test"), GiveUp);
}

TEST_F(Messages, TellOfAHelpThatIsMissingWhenItIsAskedFor) {
    Hands.ExpectDialog("Program Error", [this](QWidget& widget) {
        auto& box = dynamic_cast<QMessageBox&>(widget);
        Hands.ExpectMessageTitled("Program Error");
        QTest::mouseClick(box.button(QMessageBox::Help), Qt::LeftButton);
        EXPECT_TRUE(box.isVisible());
        QTest::mouseClick(box.button(QMessageBox::Retry), Qt::LeftButton);
    });
    EXPECT_EQ(ReportError(RunTimeError(PathNotFound), "basTest-Test"), Retry);
    ASSERT_EQ(Hands.Shown.size(), 2U);
    EXPECT_NE(Hands.Shown[1].find("Error : 53"), std::string::npos);
}

TEST_F(Messages, AskForATextWithTheInitialOneMarked) {
    Hands.Before([](QWidget& box) {
        EXPECT_EQ(FromScreen(box.windowTitle()), "Add");
        EXPECT_EQ(box.findChild<QLineEdit*>()->selectedText(), QStringLiteral("old"));
        EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
    });
    Hands.ExpectText("Name <i>", "\xE9t\xE9");
    EXPECT_EQ(Screen.AskText("Name <i>", "Add", "old"), "\xE9t\xE9");
    EXPECT_EQ(Hands.Proposed, std::vector<std::string>{"old"});
}

TEST_F(Messages, GiveNoTextWhenTheInputBoxIsCancelled) {
    Hands.ExpectText("Name", std::nullopt);
    EXPECT_EQ(Screen.AskText("Name", "Add", "old"), std::nullopt);
    Hands.ExpectText("Name", "");
    EXPECT_EQ(Screen.AskText("Name", "Add", ""), "");
}

TEST(Desktops, InstallThemselvesAndPutTheFormerOneBack) {
    const TestSite site;
    const QtDesktop outer;
    {
        const QtDesktop inner;
        EXPECT_EQ(&TheDesktop(), &inner);
    }
    EXPECT_EQ(&TheDesktop(), &outer);
}

}  // namespace Dorvane
