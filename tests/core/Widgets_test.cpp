// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAction>
#include <QHelpEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/RunTimeError.h"
#include "core/widgets/Animation.h"
#include "core/widgets/HomeLook.h"
#include "core/widgets/Later.h"
#include "core/widgets/PathLabel.h"
#include "core/widgets/PathTypeMenu.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/RowStyle.h"
#include "core/widgets/Screen.h"
#include "core/widgets/ScreenText.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

namespace Dorvane {

using namespace Testing;

namespace {

int ErrorOf(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.Number;
    }
    return 0;
}

class OneButtonScreen : public Screen {
  public:
    explicit OneButtonScreen(const QString& name) {
        setObjectName(name);
        auto* button = new QPushButton(this);
        button->setObjectName("cmdHome");
        connect(button, &QPushButton::clicked, this, [this] { Unload(); });
        ReturnsBy(button);
    }
};

}  // namespace

TEST(ScreenTexts, CarryEveryCharacterOfTheCodePageUnharmed) {
    std::string all;
    for (int code = 1; code < 256; ++code)
        if (code != 0x81 && code != 0x8d && code != 0x8f && code != 0x90 && code != 0x9d)
            all += static_cast<char>(code);
    EXPECT_EQ(FromScreen(ToScreen(all)), all);
    EXPECT_EQ(ToScreen("\x80\xe9").toStdString(), "\xe2\x82\xac\xc3\xa9");
    EXPECT_EQ(ToCaption("A&B").toStdString(), "A&&B");
}

TEST(ScreenTexts, ShowMarkupInATipAsItStands) {
    EXPECT_EQ(ToTip("A & B").toStdString(), "A & B");
    EXPECT_EQ(ToTip("<b>A & B</b>").toStdString(), "<span>&lt;b&gt;A &amp; B&lt;/b&gt;</span>");
}

TEST(PathTypeMenus, TellEachChoiceOnceItIsInForce) {
    const TestSite site;
    QAction tarvex;
    QAction manual;
    QLabel panel;
    std::vector<int> told;
    const PathTypeMenu menu("frmAny", &tarvex, &manual, &panel, [&] { told.push_back(Global().Path_type); });
    EXPECT_TRUE(told.empty());
    manual.trigger();
    tarvex.trigger();
    EXPECT_EQ(told, (std::vector<int>{2, 1}));
}

class PictureFolder : public testing::Test {
  protected:
    PictureFolder() { UseShippedPictures(); }
    TestSite Site;
};

TEST_F(PictureFolder, TakesTheDrawingWhereTheNamedFileIsNotThere) {
    EXPECT_EQ(PictureFile("trashfull.ico"), "P:\\DORVANE\\graphics\\trashfull.svg");
    PutFile("P:\\DORVANE\\graphics\\trashfull.ico", "own");
    EXPECT_EQ(PictureFile("trashfull.ico"), "P:\\DORVANE\\graphics\\trashfull.ico");
    EXPECT_EQ(PictureFile("absent.ico"), "");
    EXPECT_EQ(PictureFile(""), "");
}

TEST_F(PictureFolder, DressesAButtonLikeThatOfTheHomeMenu) {
    PutLines("C:\\WINDOWS\\dv_main.ini", {"[Main Icons]", "Icon5=input.ico", "Icon6=none-such.ico",
                                          "Icon7=text.ico", "[Main Tips]", "Tip5=Create <it>", "Tip6="});
    PutFile("P:\\DORVANE\\graphics\\text.ico", "no picture");
    QPushButton button;
    button.setToolTip(QStringLiteral("Own tip"));
    for (const int nothingThere : {1, 6}) {
        DressLikeHome(button, nothingThere);
        EXPECT_TRUE(button.icon().isNull());
        EXPECT_EQ(button.toolTip(), QStringLiteral("Own tip"));
    }
    DressLikeHome(button, 5);
    EXPECT_FALSE(button.icon().isNull());
    EXPECT_EQ(button.toolTip(), ToTip("Create <it>"));
    EXPECT_EQ(ErrorOf([&] { DressLikeHome(button, 7); }), 481);
}

TEST_F(PictureFolder, IsCrispAtTwiceTheSize) {
    const QIcon picture = LoadPicture("upload.svg");
    EXPECT_EQ(picture.pixmap(QSize(32, 32), 2.0).size(), QSize(64, 64));
}

TEST_F(PictureFolder, RaisesWhatIsMissingOrNoPicture) {
    PutFile("P:\\DORVANE\\graphics\\text.ico", "no picture");
    PutFile("P:\\DORVANE\\graphics\\text.svg", "no picture");
    EXPECT_EQ(ErrorOf([] { LoadPicture("absent.ico"); }), FileNotFound);
    EXPECT_EQ(ErrorOf([] { LoadPicture("text.ico"); }), 481);
    Animation player;
    EXPECT_EQ(ErrorOf([&] { player.Open("absent.avi"); }), FileNotFound);
    EXPECT_EQ(ErrorOf([&] { player.Open("text.ico"); }), 481);
    EXPECT_EQ(ErrorOf([&] { player.Open("text.svg"); }), 481);
}

TEST_F(PictureFolder, TakesTheDrawingWhereTheSitesOwnFileCannotBeShownHere) {
    PutFile("P:\\DORVANE\\graphics\\gears.avi", std::string("RIFF\x10\0\0\0AVI LIST", 16));
    PutFile("P:\\DORVANE\\graphics\\trashfull.ico", "an icon of another world");
    Animation ours;
    ours.Open("gears.svg");
    Animation player;
    EXPECT_EQ(ErrorOf([&] { player.Open("gears.avi"); }), 0);
    EXPECT_EQ(player.sizeHint(), ours.sizeHint());
    EXPECT_EQ(LoadPicture("trashfull.ico").pixmap(16, 16).toImage(),
              LoadPicture("trashfull.svg").pixmap(16, 16).toImage());
}

TEST_F(PictureFolder, TakesTheSitesOwnFileWhereItCanBeShown) {
    QImage own(40, 20, QImage::Format_RGB32);
    own.fill(Qt::red);
    const std::string folder = Drives::HostPath("P:\\DORVANE\\graphics\\");
    ASSERT_TRUE(own.save(QString::fromStdString(folder + "gears.avi"), "PNG"));
    ASSERT_TRUE(own.save(QString::fromStdString(folder + "trashfull.ico"), "PNG"));
    Animation player;
    player.Open("gears.avi");
    EXPECT_EQ(player.sizeHint(), QSize(40, 20));
    EXPECT_EQ(LoadPicture("trashfull.ico").pixmap(40, 20).toImage().pixelColor(5, 5), QColor(Qt::red));
}

TEST_F(PictureFolder, EveryShippedAnimationMoves) {
    for (const char* name : {"filecopy.avi", "filedelete.avi", "typcom.avi"}) {
        Animation player;
        player.Open(name);
        player.resize(player.sizeHint());
        player.show();
        HandleEvents();
        const QImage first = player.grab().toImage();
        EXPECT_TRUE(QTest::qWaitFor([&] { return player.grab().toImage() != first; })) << name;
    }
}

TEST_F(PictureFolder, AStoppedAnimationStandsStill) {
    Animation player;
    player.Open("filecopy.avi");
    player.resize(player.sizeHint());
    player.show();
    player.Stop();
    HandleEvents();
    const QImage first = player.grab().toImage();
    QTest::qWait(150);
    EXPECT_EQ(player.grab().toImage(), first);
}

// Two pictures of one point, black and white, that follow one another every 20 ms for ever.
constexpr std::string_view BlinkingPoint(
    "GIF89a\x01\x00\x01\x00\x80\x00\x00\x00\x00\x00\xff\xff\xff"
    "!\xff\x0bNETSCAPE2.0\x03\x01\x00\x00\x00"
    "!\xf9\x04\x00\x02\x00\x00\x00,\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x44\x01\x00"
    "!\xf9\x04\x00\x02\x00\x00\x00,\x00\x00\x00\x00\x01\x00\x01\x00\x00\x02\x02\x4c\x01\x00;",
    85);

TEST_F(PictureFolder, AStoppedMovieOfTheSiteStandsStill) {
    PutFile("P:\\DORVANE\\graphics\\gears.avi", std::string(BlinkingPoint));
    Animation player;
    player.Open("gears.avi");
    ASSERT_EQ(player.sizeHint(), QSize(1, 1));
    player.resize(1, 1);
    player.show();
    const auto look = [&] { return player.grab().toImage(); };
    const QImage first = look();
    EXPECT_TRUE(QTest::qWaitFor([&] { return look() != first; }));
    player.Stop();
    const QImage last = look();
    EXPECT_FALSE(QTest::qWaitFor([&] { return look() != last; }, 150));
}

TEST(PathLabels, ShowTheirTextAsItStandsAndKeepItWhole) {
    PathLabel label;
    const QString path = QStringLiteral("D:\\TARVEX\\<b>x</b>\\").repeated(30);
    label.setText(path);
    EXPECT_EQ(label.text(), path);
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_LT(label.minimumSizeHint().width(), label.fontMetrics().horizontalAdvance(path) / 4);
}

TEST(PathLabels, TellTheWholePathAsTheirTip) {
    for (const char* path : {"D:\\A & B\\", "D:\\<b>A & B</b>\\"}) {
        PathLabel label;
        label.setText(QLatin1String(path));
        label.show();
        QHelpEvent asked(QEvent::ToolTip, label.rect().center(), label.mapToGlobal(label.rect().center()));
        QApplication::sendEvent(&label, &asked);
        EXPECT_EQ(QToolTip::text(), ToTip(path));
    }
    QToolTip::hideText();
}

TEST(PathLabels, TellATipOfTheirOwnInstead) {
    PathLabel label;
    label.setText(QStringLiteral("D:\\A\\"));
    label.setToolTip(QStringLiteral("Own tip"));
    label.show();
    QHelpEvent asked(QEvent::ToolTip, label.rect().center(), label.mapToGlobal(label.rect().center()));
    QApplication::sendEvent(&label, &asked);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("Own tip"));
    QToolTip::hideText();
}

TEST(Rows, AreAsHighAsCapitalsWithAccentsNeed) {
    QListWidget list;
    list.setStyle(new RowStyle(QStringLiteral("Fusion")));
    list.style()->setParent(&list);
    list.addItem(
        ToScreen("\xdc"
                 "BERSICHT"));
    list.resize(300, 200);
    EXPECT_GE(list.sizeHintForRow(0), list.fontMetrics().height() + 4);
}

TEST(Screens, TheWindowsOwnButtonStandsForTheWayOut) {
    auto* screen = new OneButtonScreen("frmWayOut");
    const QPointer<Screen> alive(screen);
    screen->ShowModal();
    HandleEvents();
    EXPECT_TRUE(screen->isModal());
    QSignalSpy unloaded(screen, &Screen::Unloaded);
    screen->close();
    HandleEvents();
    EXPECT_EQ(unloaded.count(), 1);
    EXPECT_TRUE(alive.isNull());
}

TEST(Screens, AreLeftOnceByTwoPressesOfEscapeAtOnce) {
    auto* screen = new OneButtonScreen("frmWayOut");
    screen->show();
    const QSignalSpy unloaded(screen, &Screen::Unloaded);
    QTest::keyClick(screen, Qt::Key_Escape);
    QTest::keyClick(screen, Qt::Key_Escape);
    HandleEvents();
    EXPECT_EQ(unloaded.count(), 1);
}

TEST(Screens, AreNotLeftByAnEscapeThatIsHeldDown) {
    for (QWidget* const each :
         {static_cast<QWidget*>(new OneButtonScreen("frmWayOut")), static_cast<QWidget*>(new ScreenDialog)}) {
        const QPointer<QWidget> open(each);
        each->show();
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(each, &held);
        HandleEvents();
        EXPECT_FALSE(open.isNull());
        delete open.data();
    }
}

TEST(Screens, WhatComesLaterWaitsForTheOuterOfTwoWaits) {
    bool called = false;
    QObject context;
    {
        const HeldCalls outer;
        {
            const HeldCalls inner;
            CallLater(&context, [&] { called = true; });
            HandleEvents();
        }
        HandleEvents();
        EXPECT_FALSE(called);
    }
    HandleEvents();
    EXPECT_TRUE(called);
}

TEST(Screens, WhatComesLaterIsHeldBackInItsOrder) {
    std::vector<int> called;
    const QObject context;
    auto* const gone = new QObject;
    const auto later = [&](const QObject* where, int number) {
        CallLater(const_cast<QObject*>(where), [&called, number] { called.push_back(number); });
    };
    later(&context, 1);
    HandleEvents();
    EXPECT_EQ(called, std::vector<int>{1});
    {
        const HeldCalls held;
        later(&context, 2);
        later(gone, 3);
        later(&context, 4);
        HandleEvents();
        EXPECT_EQ(called, std::vector<int>{1});
        delete gone;
    }
    HandleEvents();
    EXPECT_EQ(called, (std::vector<int>{1, 2, 4}));
}

TEST(Screens, OpenTheManualByTheHelpKey) {
    const TestSite site;
    const ScriptedDesktop desk;
    OneButtonScreen screen("frmHelped");
    screen.show();
    QTest::keyClick(&screen, Qt::Key_F1);
    ScreenDialog dialog;
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_F1);
    const std::string help = "help P:\\DORVANE\\help\\DorvaneHelp.chm::index.html";
    EXPECT_THAT(desk.Started, testing::ElementsAre(help, help));
}

TEST(Screens, RememberWhereTheOperatorLeftThem) {
    auto* first = new OneButtonScreen("frmPlace");
    first->show();
    first->setGeometry(90, 80, 400, 300);
    HandleEvents();
    Click(*first, "cmdHome");
    OneButtonScreen second("frmPlace");
    second.show();
    HandleEvents();
    EXPECT_EQ(second.geometry(), QRect(90, 80, 400, 300));
    OneButtonScreen other("frmOtherPlace");
    other.show();
    EXPECT_NE(other.size(), QSize(400, 300));
}

}  // namespace Dorvane
