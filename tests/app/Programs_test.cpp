// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QtTest/qtestspontaneevent.h>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <climits>
#include <filesystem>
#include <fstream>

#include "app/QtDesktop.h"
#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "core/basGeneral.h"
#include "core/widgets/Later.h"
#include "core/widgets/ScreenText.h"
#include "tests/support/Operator.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

class Programs : public testing::Test {
  protected:
    Programs() {
        PutFile("P:\\DORVANE\\Programs\\CHILD.EXE", Drives::ReadFile(Drives::DrivePath(TEST_APP_CHILD)));
        std::filesystem::permissions(Drives::HostPath("P:\\DORVANE\\Programs\\CHILD.EXE"),
                                     std::filesystem::perms::owner_all);
    }

    TestSite Site;
    QtDesktop Screen;
};

TEST_F(Programs, AreWaitedForToTheirEnd) {
    PutFile("D:\\IN.TXT", "one");
    Screen.RunAndWait("P:\\DORVANE\\Programs\\child.exe D:\\IN.TXT");
    EXPECT_EQ(FileContent("D:\\IN.TXT"), "one, and the child");
}

TEST_F(Programs, ThatDoNotStartAreSilentWhenWaitedFor) {
    Screen.RunAndWait("P:\\DORVANE\\Programs\\none.exe D:\\IN.TXT");
    EXPECT_EQ(AllFiles("P:\\DORVANE\\"), std::vector<std::string>{"Programs\\CHILD.EXE"});
}

TEST_F(Programs, ThatDoNotStartRaiseError53WhenNotWaitedFor) {
    try {
        Screen.StartProgram("P:\\DORVANE\\Programs\\none.exe");
        ADD_FAILURE() << "started";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Number, FileNotFound);
    }
}

TEST_F(Programs, RunBesideTheSystemWhenNotWaitedFor) {
    PutFile("D:\\GO.TXT", "wait");
    Screen.StartProgram("P:\\DORVANE\\Programs\\CHILD.EXE D:\\GO.TXT while");
    EXPECT_FALSE(FileExists("D:\\GO.TXT.DONE"));  // the child waits for the file to go
    Drives::DeleteFile("D:\\GO.TXT");
    EXPECT_TRUE(QTest::qWaitFor([] { return FileExists("D:\\GO.TXT.DONE"); }, 60000));
}

class AwaitedPrograms : public Programs {
  protected:
    AwaitedPrograms() {
        PutFile(Go, "");
        Behind.show();
        HandleEvents();
    }

    /// Runs the child until Go is taken away.
    void RunChild(QtDesktop& desktop, const std::string& kind = "while") {
        desktop.RunAndWait("P:\\DORVANE\\Programs\\CHILD.EXE " + Go + " " + kind);
    }
    static void WhenReady(const std::string& file, const std::function<void()>& act) {
        auto* const looker = new QTimer(qApp);
        QObject::connect(looker, &QTimer::timeout, looker, [looker, file, act] {
            if (!FileExists(file) || Drives::ReadFile(file).find(' ') == std::string::npos)
                return;
            looker->stop();
            looker->deleteLater();
            act();
        });
        looker->start(5);
    }
    static void WhenReady(const std::function<void()>& act) { WhenReady(Go + ".PID", act); }
    static QWidget* Offer() {
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String("GiveUpWindow") && window->isVisible())
                return window;
        return nullptr;
    }
    /// Whether a process runs whose number stands in a file; one that is dead and not yet buried does not.
    static bool IsRunning(const std::string& file) {
        const long number = std::stol(Drives::ReadFile(file));
        std::ifstream status("/proc/" + std::to_string(number) + "/stat");
        std::string name;
        char state = 'Z';
        status >> name >> name >> state;
        return state != 'Z' && state != 'X';
    }
    static bool Ends(const std::string& file) {
        return QTest::qWaitFor([&] { return !IsRunning(file); }, 60000);
    }
    /// As soon as the program runs: gives it up, and answers the question.
    void GiveUp(bool confirmed) {
        Hands.ExpectDialog("Give Up", [this, confirmed](QWidget& box) {
            Asked = FromScreen(dynamic_cast<QMessageBox&>(box).text());
            auto* const button =
                dynamic_cast<QMessageBox&>(box).button(confirmed ? QMessageBox::Yes : QMessageBox::No);
            QTest::mouseClick(button, Qt::LeftButton);
        });
        WhenReady([] {
            ASSERT_TRUE(QTest::qWaitFor([] { return Offer() != nullptr; }, 60000));
            Click(*Offer(), "cmdGiveUp");
        });
    }

    static inline const std::string Go = "D:\\GO.TXT";
    QtDesktop Impatient{0};
    Operator Hands;
    QLineEdit Behind;
    std::string Asked;
};

TEST_F(AwaitedPrograms, LetTheWindowsBehindThemBePainted) {
    bool painted = false;
    WhenReady([&] {
        Behind.setText(QStringLiteral("new"));
        const QImage before = Behind.grab().toImage();
        Behind.setText(QStringLiteral("newer"));
        QTimer::singleShot(0, &Behind, [&, before] {
            painted = Behind.grab().toImage() != before;
            Drives::DeleteFile(Go);
        });
    });
    RunChild(Screen);
    EXPECT_TRUE(painted);
    EXPECT_TRUE(FileExists(Go + ".DONE"));
}

TEST_F(AwaitedPrograms, AreNamedInTheLowerCornerOfTheScreen) {
    Behind.move(0, 0);
    QString named;
    QRect place;
    QRect room;
    WhenReady([&] {
        EXPECT_TRUE(QTest::qWaitFor([] { return Offer() != nullptr; }, 60000));
        named = Offer()->findChild<QLabel*>()->text();
        place = Offer()->frameGeometry();
        room = Offer()->screen()->availableGeometry();
        Drives::DeleteFile(Go);
    });
    RunChild(Impatient);
    EXPECT_EQ(named, QStringLiteral("CHILD.EXE is running ..."));
    EXPECT_TRUE(room.contains(place));
    EXPECT_LT(room.bottom() - place.bottom(), 60);
    EXPECT_LT(room.right() - place.right(), 60);
}

TEST_F(AwaitedPrograms, KeepWhatIsTypedClickedAndClosedFromAllWindows) {
    QWidget screen;
    QPushButton button(&screen);
    const QSignalSpy clicked(&button, &QPushButton::clicked);
    QShortcut key(Qt::Key_F5, &screen);
    QObject::connect(&key, &QShortcut::activated, &button, &QPushButton::click);
    screen.show();
    screen.activateWindow();
    HandleEvents();
    QTest::keyClick(screen.windowHandle(), Qt::Key_F5);
    ASSERT_EQ(clicked.count(), 1);
    bool waited = false;
    WhenReady([&] {
        waited = QGuiApplication::overrideCursor() != nullptr &&
                 QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, {}, button.rect().center());
        QTest::keyClick(screen.windowHandle(), Qt::Key_F5);
        QTest::keyClick(&button, Qt::Key_Space);
        QTest::keyClicks(&Behind, QStringLiteral("typed"));
        QCloseEvent closed;
        QSpontaneKeyEvent::setSpontaneous(&closed);
        qApp->notify(screen.windowHandle(), &closed);
        QTimer::singleShot(0, &screen, [] { Drives::DeleteFile(Go); });
    });
    RunChild(Screen);
    HandleEvents();
    EXPECT_TRUE(waited);
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_EQ(Behind.text(), QString());
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    QTest::keyClick(screen.windowHandle(), Qt::Key_F5);
    EXPECT_EQ(clicked.count(), 2);
}

TEST_F(AwaitedPrograms, HoldBackWhatWasToComeNext) {
    bool next = false;
    bool early = false;
    CallLater(&Behind, [&] { next = true; });
    WhenReady([&] {
        early = next;
        Drives::DeleteFile(Go);
    });
    RunChild(Screen);
    EXPECT_FALSE(early);
    HandleEvents();
    EXPECT_TRUE(next);
}

TEST_F(AwaitedPrograms, CanBeGivenUpBehindAQuestion) {
    GiveUp(true);
    RunChild(Impatient);
    EXPECT_NE(Asked.find("CHILD.EXE"), std::string::npos);
    EXPECT_TRUE(Ends(Go + ".PID"));
    EXPECT_FALSE(FileExists(Go + ".DONE"));
    EXPECT_EQ(Offer(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(AwaitedPrograms, GoOnWhenTheQuestionIsDenied) {
    GiveUp(false);
    QTimer later;
    QObject::connect(&later, &QTimer::timeout, &later, [&] {
        if (!Asked.empty())
            Drives::DeleteFile(Go);
        if (!Asked.empty())
            later.stop();
    });
    later.start(20);
    RunChild(Impatient);
    EXPECT_TRUE(FileExists(Go + ".DONE"));
}

TEST_F(AwaitedPrograms, AreNotGivenUpByReturnOnTheQuestion) {
    Hands.ExpectDialog("Give Up", [](QWidget& box) {
        QTest::keyClick(&box, Qt::Key_Return);
        QTimer::singleShot(200, qApp, [] { Drives::DeleteFile(Go); });
    });
    WhenReady([] {
        ASSERT_TRUE(QTest::qWaitFor([] { return Offer() != nullptr; }, 60000));
        Click(*Offer(), "cmdGiveUp");
    });
    RunChild(Impatient);
    EXPECT_TRUE(FileExists(Go + ".DONE"));
}

TEST_F(AwaitedPrograms, AreAskedAboutByEscapeOnTheScreenBehind) {
    Hands.ExpectDialog("Give Up", [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    WhenReady([&] {
        ASSERT_TRUE(QTest::qWaitFor([] { return Offer() != nullptr; }, 60000));
        EXPECT_TRUE(Offer()->testAttribute(Qt::WA_ShowWithoutActivating));
        QTest::keyClick(&Behind, Qt::Key_Escape);
        QTimer::singleShot(200, qApp, [] { Drives::DeleteFile(Go); });
    });
    RunChild(Impatient);
    EXPECT_TRUE(FileExists(Go + ".DONE"));
}

TEST_F(AwaitedPrograms, TakeTheQuestionAwayWhenTheyEndMeanwhile) {
    Hands.ExpectDialog("Give Up", [](QWidget&) { Drives::DeleteFile(Go); });
    WhenReady([] {
        ASSERT_TRUE(QTest::qWaitFor([] { return Offer() != nullptr; }, 60000));
        Click(*Offer(), "cmdGiveUp");
    });
    RunChild(Impatient);
    EXPECT_TRUE(FileExists(Go + ".DONE"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(AwaitedPrograms, AreEndedThoughTheyDoNotLetThemselvesBeAsked) {
    GiveUp(true);
    RunChild(Impatient, "stubborn");
    EXPECT_TRUE(Ends(Go + ".PID"));
    EXPECT_FALSE(FileExists(Go + ".DONE"));
}

TEST_F(AwaitedPrograms, AreEndedWithAllThatTheyHaveStarted) {
    GiveUp(true);
    RunChild(Impatient, "parent");
    EXPECT_TRUE(Ends(Go + ".PID"));
    EXPECT_TRUE(Ends(Go + ".CHILD"));
    EXPECT_FALSE(FileExists(Go + ".DONE"));
}

TEST_F(AwaitedPrograms, OfferNothingBeforeTheirTime) {
    QtDesktop patient(INT_MAX);
    bool offered = true;
    WhenReady([&] {
        offered = Offer() != nullptr;
        Drives::DeleteFile(Go);
    });
    RunChild(patient);
    EXPECT_FALSE(offered);
}

TEST_F(Programs, LetEventsPassWhenYieldedTo) {
    bool passed = false;
    QMetaObject::invokeMethod(
        qApp, [&] { passed = true; }, Qt::QueuedConnection);
    Screen.YieldEvents();
    EXPECT_TRUE(passed);
}

}  // namespace Dorvane
