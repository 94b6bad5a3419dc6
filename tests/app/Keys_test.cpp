// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>
#include <memory>
#include <set>

#include "core/basHelp.h"
#include "tests/app/AllScreens.h"
#include "tests/support/ScreenTest.h"

// What Escape and F1 do on every screen.
namespace Dorvane {

using namespace Testing;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The way out of a screen, whose clicks are counted and lead nowhere.
class WayOut {
  public:
    WayOut(QWidget& screen, const ScreenKind& kind) {
        if (*kind.WayOut == '\0')
            return;
        auto& button = Control<QAbstractButton>(screen, kind.WayOut);
        QObject::disconnect(&button, &QAbstractButton::clicked, nullptr, nullptr);
        Clicks = std::make_unique<QSignalSpy>(&button, &QAbstractButton::clicked);
    }
    bool IsThere() const { return Clicks != nullptr; }
    int Count() const { return IsThere() ? static_cast<int>(Clicks->count()) : 0; }

  private:
    std::unique_ptr<QSignalSpy> Clicks;
};

void Press(QWidget& widget, Qt::Key key, bool isHeldDown = false) {
    QKeyEvent press(QEvent::KeyPress, key, {}, QString(), isHeldDown);
    QApplication::sendEvent(&widget, &press);
    HandleEvents();
}

/// Every control that can have the focus, and the screen itself.
QWidgetList FocusPlaces(QWidget& screen) {
    QWidgetList places = {&screen};
    for (QWidget* const each : screen.findChildren<QWidget*>())
        if (each->isVisible() && each->isEnabled() && each->focusPolicy() != Qt::NoFocus &&
            each->window() == &screen)
            places.append(each);
    return places;
}

void ExpectEscapeToClose(QComboBox& list) {
    const QString chosen = list.currentText();
    list.showPopup();
    HandleEvents();
    QWidget* const popup = QApplication::activePopupWidget();
    ASSERT_NE(popup, nullptr) << list.objectName().toStdString();
    QTest::keyClick(popup->windowHandle(), Qt::Key_Escape);
    HandleEvents();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << list.objectName().toStdString();
    EXPECT_EQ(list.currentText(), chosen);
}

void ExpectEscapeToClose(QMenu& menu) {
    menu.popup(QPoint());
    HandleEvents();
    QTest::keyClick(&menu, Qt::Key_Escape);
    HandleEvents();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << menu.title().toStdString();
}

}  // namespace

TEST(EscapeKey, MeansTheWayOutOfEveryScreenOrNothingWhateverHasTheFocus) {
    ForEachScreen([](ScreenSite& site, QWidget& screen, const ScreenKind& kind) {
        if (kind.Form() == "frmSplash")
            return;  // any key closes it
        const WayOut way(screen, kind);
        int presses = 0;
        for (QWidget* const place : FocusPlaces(screen)) {
            place->setFocus();
            Press(*place, Qt::Key_Escape);
            ++presses;
            EXPECT_EQ(way.Count(), way.IsThere() ? presses : 0) << place->objectName().toStdString();
        }
        EXPECT_TRUE(screen.isVisible());
        EXPECT_THAT(site.Nav.Calls, IsEmpty());
    });
}

TEST(EscapeKey, LeavesNoScreenWhenItIsHeldDown) {
    ForEachScreen([](ScreenSite&, QWidget& screen, const ScreenKind& kind) {
        if (kind.Form() == "frmSplash")
            return;  // any key closes it
        const WayOut way(screen, kind);
        Press(screen, Qt::Key_Escape, true);
        EXPECT_EQ(way.Count(), 0);
        EXPECT_TRUE(screen.isVisible());
    });
}

TEST(EscapeKey, ClosesAnOpenListOrMenuAndNothingElseOnEveryScreen) {
    int closed = 0;
    ForEachScreen([&](ScreenSite&, QWidget& screen, const ScreenKind& kind) {
        const WayOut way(screen, kind);
        for (QComboBox* const list : screen.findChildren<QComboBox*>())
            if (list->isVisible() && list->isEnabled() && list->count() > 0) {
                ExpectEscapeToClose(*list);
                ++closed;
            }
        for (QMenuBar* const bar : screen.findChildren<QMenuBar*>())
            for (QAction* const entry : bar->actions()) {
                ExpectEscapeToClose(*entry->menu());
                ++closed;
            }
        EXPECT_EQ(way.Count(), 0);
        EXPECT_TRUE(screen.isVisible());
    });
    EXPECT_GT(closed, 20);
}

TEST(HelpKey, OpensTheManualAtThePageAboutTheScreenWhateverHasTheFocus) {
    ForEachScreen([](ScreenSite& site, QWidget& screen, const ScreenKind& kind) {
        if (!kind.TakesKeys())
            return;
        EXPECT_EQ(screen.objectName().toStdString(), kind.Form());
        const std::string page = HelpPageOf(kind.Form());
        for (QWidget* const place : FocusPlaces(screen)) {
            place->setFocus();
            Press(*place, Qt::Key_F1);
            EXPECT_THAT(site.Desk.Started, ElementsAre("help P:\\DORVANE\\help\\DorvaneHelp.chm::" + page))
                << place->objectName().toStdString();
            site.Desk.Started.clear();
        }
    });
}

TEST(HelpKey, KnowsAPageOfItsOwnForEveryScreen) {
    std::set<std::string> pages;
    std::set<std::string> forms;
    for (const ScreenKind& each : AllScreens()) {
        if (!each.TakesKeys() || each.Form() == "frmConstruct")
            continue;  // the notice stands for what is not there yet
        forms.insert(each.Form());
        pages.insert(HelpPageOf(each.Form()));
    }
    EXPECT_EQ(pages.count("index.html"), 0U);
    EXPECT_EQ(pages.size(), forms.size());
    EXPECT_EQ(HelpPageOf("frmInput"), "input.html");
    EXPECT_EQ(HelpPageOf("frmObsWeights"), "input.html#weights");
    EXPECT_EQ(HelpPageOf("frmNoSuch"), "index.html");
}

}  // namespace Dorvane
