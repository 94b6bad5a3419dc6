// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/HelpViewer.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QApplication>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextBrowser>
#include <filesystem>

#include "app/QtDesktop.h"
#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/RunTimeError.h"
#include "core/basHelp.h"
#include "core/widgets/Screen.h"
#include "core/widgets/ScreenText.h"
#include "tests/support/Operator.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

namespace {

constexpr int Patience = 60000;  // milliseconds, for a machine under load

std::vector<HelpViewer*> OpenViewers() {
    std::vector<HelpViewer*> viewers;
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (auto* const viewer = qobject_cast<HelpViewer*>(window))
            viewers.push_back(viewer);
    return viewers;
}

/// The user without rights, as long as this lives; for this the test has to run as root.
class WithoutRights {
  public:
    WithoutRights() { EXPECT_TRUE(setegid(Nobody) == 0 && seteuid(Nobody) == 0); }
    ~WithoutRights() { EXPECT_TRUE(seteuid(0) == 0 && setegid(0) == 0); }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;

  private:
    static constexpr int Nobody = 65534;
};

}  // namespace

class Help : public testing::Test {
  protected:
    Help() {
        PutFile("P:\\DORVANE\\help\\DorvaneHelp.qch",
                Drives::ReadFile(Drives::DrivePath(DORVANE_FOLDER "/help/DorvaneHelp.qch")));
    }

    static HelpViewer& Viewer() {
        const std::vector<HelpViewer*> viewers = OpenViewers();
        EXPECT_EQ(viewers.size(), 1U);
        return *viewers.at(0);
    }

    static QString Page() { return Control<QTextBrowser>(Viewer(), "page").source().fileName(); }
    static QString Tab() {
        auto& tabs = Control<QTabWidget>(Viewer(), "tabs");
        return tabs.tabText(tabs.currentIndex());
    }

    static void WaitForContents() {
        auto& contents = Control<QHelpContentWidget>(Viewer(), "contents");
        EXPECT_TRUE(QTest::qWaitFor([&] { return contents.model()->rowCount() > 0; }, Patience));
        HandleEvents();
    }

    static void WaitForIndex() {
        auto& index = Control<QHelpIndexWidget>(Viewer(), "index");
        EXPECT_TRUE(QTest::qWaitFor([&] { return index.model()->rowCount() > 0; }, Patience));
        HandleEvents();
    }

    TestSite Site;
    QtDesktop Screen;
    Operator Hands;
};

TEST_F(Help, OpensAtItsContentsOnTheFirstPage) {
    ShowHelpContents("Main");
    EXPECT_TRUE(Viewer().isVisible());
    EXPECT_FALSE(Viewer().isModal());
    EXPECT_EQ(Tab(), QStringLiteral("&Contents"));
    EXPECT_EQ(Page(), QStringLiteral("index.html"));
    EXPECT_FALSE(Control<QTextBrowser>(Viewer(), "page").toPlainText().isEmpty());
    WaitForContents();
    EXPECT_EQ(Control<QHelpContentWidget>(Viewer(), "contents").currentIndex().data().toString(),
              QStringLiteral("Dorvane"));
}

TEST_F(Help, OpensAtItsIndexReadyToType) {
    ShowHelpIndex("Main");
    EXPECT_EQ(Tab(), QStringLiteral("&Index"));
    auto& field = Control<QLineEdit>(Viewer(), "txtIndex");
    EXPECT_EQ(Viewer().focusWidget(), &field);
    QTest::keyClicks(&field, QStringLiteral("bias"));
    ShowHelpIndex("Main");
    EXPECT_EQ(field.selectedText(), QStringLiteral("bias"));  // what is typed next takes its place
}

TEST_F(Help, FindsAPageByItsIndex) {
    ShowHelpIndex("Main");
    WaitForIndex();
    auto& field = Control<QLineEdit>(Viewer(), "txtIndex");
    QTest::keyClicks(&field, QStringLiteral("ERROR.LOG"));
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Page(), QStringLiteral("errors.html"));
}

TEST_F(Help, LetsThePageBeChosenWhereAWordStandsOnSeveral) {
    ShowHelpIndex("Main");
    WaitForIndex();
    auto& field = Control<QLineEdit>(Viewer(), "txtIndex");
    QTest::keyClicks(&field, QStringLiteral("survey folder"));
    QTest::keyClick(&field, Qt::Key_Return);
    auto* const choice = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(choice, nullptr);
    ASSERT_GE(choice->actions().size(), 2);
    choice->actions().at(1)->trigger();
    choice->close();
    EXPECT_NE(Page(), QStringLiteral("index.html"));
}

TEST_F(Help, GoesToThePageClickedInTheContentsAndBack) {
    ShowHelpContents("Main");
    WaitForContents();
    auto& contents = Control<QHelpContentWidget>(Viewer(), "contents");
    const QModelIndex entry = contents.model()->index(1, 0, contents.model()->index(0, 0));
    contents.scrollTo(entry);
    QTest::mouseClick(contents.viewport(), Qt::LeftButton, {}, contents.visualRect(entry).center());
    const QString second = Page();
    EXPECT_NE(second, QStringLiteral("index.html"));
    EXPECT_NE(Viewer().windowTitle(), QStringLiteral("Dorvane Help"));
    Choose(Viewer(), "actBack");
    EXPECT_EQ(Page(), QStringLiteral("index.html"));
    Choose(Viewer(), "actForward");
    EXPECT_EQ(Page(), second);
    EXPECT_FALSE(IsEnabled(Viewer(), "actForward"));
    Choose(Viewer(), "actHome");
    EXPECT_EQ(Page(), QStringLiteral("index.html"));
}

TEST_F(Help, FindsATextOnThePage) {
    ShowHelpContents("Main");
    EXPECT_FALSE(IsShown(Viewer(), "findBar"));
    Choose(Viewer(), "actFind");
    auto& field = Control<QLineEdit>(Viewer(), "txtFind");
    QTest::keyClicks(&field, QStringLiteral("survey"));
    QTest::keyClick(&field, Qt::Key_Return);
    auto& page = Control<QTextBrowser>(Viewer(), "page");
    EXPECT_EQ(page.textCursor().selectedText().toLower(), QStringLiteral("survey"));
    const int first = page.textCursor().position();
    Click(Viewer(), "cmdFindNext");
    EXPECT_GT(page.textCursor().position(), first);
    Click(Viewer(), "cmdFindPrevious");
    EXPECT_EQ(page.textCursor().position(), first);
    Click(Viewer(), "cmdFindPrevious");  // goes on at the page's end
    EXPECT_GT(page.textCursor().position(), first);
    EXPECT_EQ(TextOf(Viewer(), "lblFound"), "");
    const int last = page.textCursor().position();
    field.setText(QStringLiteral("no such text"));
    Click(Viewer(), "cmdFindNext");
    EXPECT_EQ(TextOf(Viewer(), "lblFound"), "not on this page");
    EXPECT_EQ(page.textCursor().position(), last);
    QTest::keyClick(&field, Qt::Key_Backspace);
    EXPECT_EQ(TextOf(Viewer(), "lblFound"), "") << "said of another text";
    Click(Viewer(), "cmdFindNext");
    EXPECT_EQ(TextOf(Viewer(), "lblFound"), "not on this page");
    Click(Viewer(), "cmdFindClose");
    EXPECT_FALSE(IsShown(Viewer(), "findBar"));
    Choose(Viewer(), "actFind");
    EXPECT_EQ(TextOf(Viewer(), "lblFound"), "") << "said before the bar was closed";
}

TEST_F(Help, OpensAtThePageAboutAScreenAndAtThePlaceOnIt) {
    ShowHelpOf("frmObsWeights");
    const QUrl url = Control<QTextBrowser>(Viewer(), "page").source();
    EXPECT_EQ(url.fileName(), QStringLiteral("input.html"));
    EXPECT_EQ(url.fragment(), QStringLiteral("weights"));
    EXPECT_TRUE(Viewer().isVisible());
    ShowHelpIndex("Main");
    ShowHelpOf("frmVarn");
    EXPECT_EQ(Page(), QStringLiteral("adjustment.html"));
    EXPECT_EQ(Tab(), QStringLiteral("&Contents"));
}

TEST_F(Help, ClosesTheFindBarByEscapeAndThenItself) {
    ShowHelpContents("Main");
    Choose(Viewer(), "actFind");
    QTest::keyClick(Viewer().windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(IsShown(Viewer(), "findBar"));
    EXPECT_TRUE(Viewer().isVisible());
    QTest::keyClick(Viewer().windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(Viewer().isVisible());
}

TEST_F(Help, OpensAnotherFileWhereAnotherIsNamed) {
    PutFile("P:\\OTHER\\Other.qch", Drives::ReadFile("P:\\DORVANE\\help\\DorvaneHelp.qch"));
    ShowHelpContents("Main");
    Screen.ShowHelp("P:\\OTHER\\Other.chm", "Main", 1);
    EXPECT_EQ(Viewer().File(), "P:\\OTHER\\Other.chm");
}

TEST_F(Help, OpensAtItsSearchReadyToTypeAndFindsWordsOnAllPages) {
    SearchHelp();
    EXPECT_EQ(Tab(), QStringLiteral("&Search"));
    auto& field = Control<QLineEdit>(Viewer(), "txtSearch");
    EXPECT_EQ(Viewer().focusWidget(), &field);
    QTest::keyClicks(&field, QStringLiteral("SURVEY index"));
    const std::vector<std::string> both = Items(Viewer(), "lstFound");
    EXPECT_GE(both.size(), 2U);
    EXPECT_EQ(TextOf(Viewer(), "lblCount"), "on " + std::to_string(both.size()) + " pages");
    field.clear();
    EXPECT_TRUE(Items(Viewer(), "lstFound").empty());
    EXPECT_EQ(TextOf(Viewer(), "lblCount"), "");
    QTest::keyClicks(&field, QStringLiteral("keyboard"));
    EXPECT_EQ(Items(Viewer(), "lstFound").at(0), "Keyboard");  // it has the word in its title
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Page(), QStringLiteral("keyboard.html"));
    EXPECT_EQ(Control<QTextBrowser>(Viewer(), "page").textCursor().selectedText().toLower(),
              QStringLiteral("keyboard"));
    field.setText(QStringLiteral("no such word anywhere"));
    EXPECT_EQ(TextOf(Viewer(), "lblCount"), "on no page");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Page(), QStringLiteral("keyboard.html"));
}

TEST_F(Help, GoesToAFoundPageByClickAndByTheKeyboard) {
    SearchHelp();
    auto& field = Control<QLineEdit>(Viewer(), "txtSearch");
    QTest::keyClicks(&field, QStringLiteral("glossary"));
    ClickItem(Viewer(), "lstFound", "Glossary");
    EXPECT_EQ(Page(), QStringLiteral("glossary.html"));
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Down);
    auto& found = Control<QListWidget>(Viewer(), "lstFound");
    EXPECT_EQ(Viewer().focusWidget(), &found);
    QTest::keyClick(&found, Qt::Key_Down);
    ASSERT_GE(found.currentRow(), 1);
    QTest::keyClick(&found, Qt::Key_Return);
    EXPECT_NE(Page(), QStringLiteral("glossary.html"));
}

TEST_F(Help, ComesByTheHelpKeyOverABoxAtThePageOfItsScreen) {
    ScreenDialog screen;
    screen.setObjectName(QStringLiteral("frmObsWeights"));
    screen.ShowModal();
    screen.activateWindow();
    HandleEvents();
    const auto askForHelp = [](QWidget& box) {
        QTest::keyClick(&box, Qt::Key_F1);
        EXPECT_TRUE(box.isVisible());
        EXPECT_EQ(Page(), QStringLiteral("input.html"));
        dynamic_cast<QDialog&>(box).reject();
    };
    Hands.ExpectDialog("Title", askForHelp);
    Screen.ShowMessage({"Text", "Title"});
    Hands.ExpectDialog("Title", askForHelp);
    Screen.AskText("Prompt", "Title", "");
}

TEST_F(Help, ComesByTheHelpKeyOverAnErrorAtThatError) {
    Hands.ExpectDialog("Title", [](QWidget& box) {
        QTest::keyClick(&box, Qt::Key_F1);
        EXPECT_EQ(Page(), QStringLiteral("errors.html"));
        EXPECT_EQ(Control<QTextBrowser>(Viewer(), "page").source().fragment(), QStringLiteral("error-76"));
        dynamic_cast<QDialog&>(box).reject();
    });
    Screen.ShowMessage({"Text", "Title", Icon::Exclamation, Buttons::RetryCancel, Answer::Ok, true,
                        "P:\\DORVANE\\help\\DorvaneHelp.chm", 76});
}

TEST_F(Help, UsesItsWindowAgain) {
    ShowHelpContents("Main");
    const HelpViewer* const first = &Viewer();
    ShowHelpIndex("Main");
    EXPECT_EQ(&Viewer(), first);
    Viewer().close();
    ShowHelpContents("Main");
    EXPECT_EQ(&Viewer(), first);
    EXPECT_TRUE(Viewer().isVisible());
    Viewer().showMinimized();
    ShowHelpContents("Main");
    EXPECT_FALSE(Viewer().isMinimized());
}

TEST_F(Help, StaysWithinReachBesideAModalScreen) {
    ShowHelpContents("Main");
    ScreenDialog screen;
    ScreenDialog behind;
    behind.show();
    screen.ShowModal();
    HandleEvents();
    // Opened before the modal screen, and asked for again while that stands.
    for (int round = 0; round < 2; ++round) {
        Choose(Viewer(), "actHome");
        Control<QTextBrowser>(Viewer(), "page").setFocus();
        QTest::mouseClick(Viewer().windowHandle(), Qt::LeftButton, {},
                          Control<QTabWidget>(Viewer(), "tabs")
                              .mapTo(&Viewer(), Control<QTabWidget>(Viewer(), "tabs").rect().center()));
        EXPECT_EQ(QApplication::activeModalWidget(), &screen);
        EXPECT_NE(Viewer().windowHandle()->transientParent(), nullptr);
        ShowHelpIndex("Main");
        HandleEvents();
        // A real click through the window, which a window out of reach does not get.
        QTabBar* const bar = Control<QTabWidget>(Viewer(), "tabs").tabBar();
        QTest::mouseClick(Viewer().windowHandle(), Qt::LeftButton, {},
                          bar->mapTo(&Viewer(), bar->tabRect(0).center()));
        EXPECT_EQ(Tab(), QStringLiteral("&Contents"));
    }
}

TEST_F(Help, StaysWithinReachWhenOneModalScreenFollowsAnother) {
    ShowHelpContents("Main");
    const auto takesAClick = [](int tab) {
        QTabBar* const bar = Control<QTabWidget>(Viewer(), "tabs").tabBar();
        QTest::mouseClick(Viewer().windowHandle(), Qt::LeftButton, {},
                          bar->mapTo(&Viewer(), bar->tabRect(tab).center()));
        return bar->currentIndex() == tab;
    };
    ScreenDialog outer;
    outer.ShowModal();
    HandleEvents();
    EXPECT_TRUE(takesAClick(1));
    {
        ScreenDialog inner;
        inner.ShowModal();
        HandleEvents();
        EXPECT_TRUE(takesAClick(0));
        inner.hide();
    }
    HandleEvents();
    EXPECT_TRUE(takesAClick(1));
    Hands.ExpectDialog("Title", [&](QWidget& box) {
        HandleEvents();
        EXPECT_TRUE(takesAClick(0));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    Screen.ShowMessage({"Text", "Title"});
    HandleEvents();
    EXPECT_TRUE(takesAClick(1));
    outer.hide();
    HandleEvents();
    EXPECT_TRUE(takesAClick(0));
}

TEST_F(Help, DoesNotBecomeTheOwnerOfAMessage) {
    ShowHelpContents("Main");
    Viewer().activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Viewer()));
    Hands.ExpectDialog("Title", [](QWidget& box) {
        EXPECT_EQ(box.parentWidget(), nullptr);
        QTest::mouseClick(dynamic_cast<QMessageBox&>(box).button(QMessageBox::Ok), Qt::LeftButton);
    });
    Screen.ShowMessage({"Text", "Title"});
}

TEST_F(Help, ClosesByEscape) {
    ShowHelpContents("Main");
    EXPECT_TRUE(QTest::qWaitForWindowActive(&Viewer()));
    QTest::keyClick(Viewer().windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(Viewer().isVisible());
}

TEST_F(Help, WorksWhereTheProgramsFolderIsOnlyRead) {
    namespace fs = std::filesystem;
    fs::permissions(Drives::HostPath("P:\\DORVANE\\help\\"), fs::perms(0555));
    fs::permissions(Drives::HostPath("P:\\DORVANE\\help\\DorvaneHelp.qch"), fs::perms(0444));
    {
        const WithoutRights nobody;
        EXPECT_THROW(Drives::AppendFile("P:\\DORVANE\\help\\DorvaneHelp.qch", "x"), RunTimeError);
        ShowHelpContents("Main");
        WaitForContents();
        WaitForIndex();
        EXPECT_EQ(Page(), QStringLiteral("index.html"));
    }
    EXPECT_EQ(AllFiles("P:\\DORVANE\\"), std::vector<std::string>{"help\\DorvaneHelp.qch"});
}

TEST_F(Help, RaisesError53WhenItIsMissing) {
    Drives::DeleteFile("P:\\DORVANE\\help\\DorvaneHelp.qch");
    Hands.ExpectMessageTitled("Program Error");
    Guarded("frmMain-mnuHelpContents_Click", [](Guard&) { ShowHelpContents("Main"); });
    ASSERT_EQ(Hands.Shown.size(), 1U);
    EXPECT_NE(Hands.Shown[0].find("Error : 53"), std::string::npos);
    EXPECT_TRUE(OpenViewers().empty());
}

TEST_F(Help, RaisesError57WhenItIsDamaged) {
    PutFile("P:\\DORVANE\\help\\DorvaneHelp.qch", "this is no help");
    Hands.ExpectMessageTitled("Program Error", Answer::Cancel);
    Guarded("frmMain-mnuHelpContents_Click", [](Guard&) { ShowHelpContents("Main"); });
    ASSERT_EQ(Hands.Shown.size(), 1U);
    EXPECT_NE(Hands.Shown[0].find("Error : 57"), std::string::npos);
}

}  // namespace Dorvane
