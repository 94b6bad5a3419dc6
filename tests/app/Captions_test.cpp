// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyle>
#include <QTabBar>

#include "core/widgets/PathLabel.h"
#include "core/widgets/TitleWidth.h"
#include "tests/app/AllScreens.h"
#include "tests/support/ScreenTest.h"

// No caption of ours is cut, however large the desktop's letters are.
namespace Dorvane {

using namespace Testing;

namespace {

/// The desktop's letters so many times as large, as long as this lives.
class LargerLetters {
  public:
    explicit LargerLetters(double times) {
        QFont larger = Former;
        larger.setPointSizeF(Former.pointSizeF() * times);
        QApplication::setFont(larger);
    }
    ~LargerLetters() { QApplication::setFont(Former); }
    LargerLetters(const LargerLetters&) = delete;
    LargerLetters& operator=(const LargerLetters&) = delete;

  private:
    QFont Former = QApplication::font();
};

QSize NeededBy(const QLabel& label) {
    if (label.wordWrap())
        return {0, label.heightForWidth(label.width())};
    return label.sizeHint() - QSize(0, 2 * label.margin());
}

int NeededBy(const QGroupBox& box) {
    return box.fontMetrics().horizontalAdvance(box.title()) + 2 * box.fontMetrics().averageCharWidth();
}

void ExpectRoom(const QWidget& control, const QString& text, const QSize& needed) {
    EXPECT_GE(control.width(), needed.width())
        << control.objectName().toStdString() << ": " << text.toStdString();
    EXPECT_GE(control.height(), needed.height())
        << control.objectName().toStdString() << ": " << text.toStdString();
}

/// A page of tabs that is not in front has no place yet.
bool HasAPlace(const QWidget& control) {
    return control.isVisible();
}

void ExpectNoCaptionIsCut(QWidget& screen) {
    for (const QLabel* const label : screen.findChildren<QLabel*>())
        if (HasAPlace(*label) && qobject_cast<const PathLabel*>(label) == nullptr && !label->text().isEmpty())
            ExpectRoom(*label, label->text(), NeededBy(*label));
    for (const QAbstractButton* const button : screen.findChildren<QAbstractButton*>())
        if (HasAPlace(*button) && !button->text().isEmpty())
            ExpectRoom(*button, button->text(), button->sizeHint());
    for (const QGroupBox* const box : screen.findChildren<QGroupBox*>())
        if (HasAPlace(*box))
            ExpectRoom(*box, box->title(), {NeededBy(*box), 0});
    for (const QTabBar* const tabs : screen.findChildren<QTabBar*>())
        if (HasAPlace(*tabs) && tabs->elideMode() != Qt::ElideNone)
            ExpectRoom(*tabs, tabs->tabText(0), {tabs->sizeHint().width(), 0});
    for (const QMenuBar* const bar : screen.findChildren<QMenuBar*>())
        for (QAction* const entry : bar->actions()) {
            EXPECT_TRUE(!HasAPlace(*bar) || bar->rect().contains(bar->actionGeometry(entry)))
                << entry->text().toStdString();
        }
}

}  // namespace

class Captions : public testing::TestWithParam<double> {};

TEST_P(Captions, AreNotCutOnAnyScreen) {
    const LargerLetters letters(GetParam());
    ForEachScreen([](ScreenSite&, QWidget& screen, const ScreenKind&) {
        ExpectNoCaptionIsCut(screen);
        if (!screen.windowFlags().testFlag(Qt::SplashScreen)) {
            EXPECT_GE(screen.width(), WidthOfTitle(screen)) << screen.windowTitle().toStdString();
        }
    });
}

INSTANTIATE_TEST_SUITE_P(LettersTimes, Captions, testing::Values(1.0, 1.5, 2.0));

}  // namespace Dorvane
