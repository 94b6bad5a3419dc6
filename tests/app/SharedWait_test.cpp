// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "app/QtDesktop.h"
#include "app/SharedWaitWindow.h"
#include "core/widgets/Later.h"
#include "core/widgets/ScreenText.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/TestSite.h"

// The small window that is shown as long as another workstation holds a folder.
namespace Dorvane::Testing {

namespace {

struct SharedWaits : testing::Test {
    static QWidget* Window() {
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String("SharedWaitWindow") && window->isVisible())
                return window;
        return nullptr;
    }

    TestSite Site;
    QtDesktop Screen;
};

}  // namespace

TEST_F(SharedWaits, SayForWhomIsWaitedAndMoveTheMeter) {
    const std::unique_ptr<SharedWait> wait = Screen.BeginSharedWait();
    EXPECT_EQ(Window(), nullptr);
    EXPECT_TRUE(wait->GoOn("D:\\A\\ is being changed by m\xE4yer <b> on ws3"));
    ASSERT_NE(Window(), nullptr);
    EXPECT_EQ(TextOf(*Window(), "lblHolder"), "D:\\A\\ is being changed by m\xE4yer <b> on ws3");
    EXPECT_EQ(Control<QLabel>(*Window(), "lblHolder").textFormat(), Qt::PlainText);
    EXPECT_EQ(Window()->findChild<QProgressBar*>()->maximum(), 0);
    EXPECT_TRUE(wait->GoOn("D:\\A\\ is being changed by another workstation"));
    EXPECT_EQ(TextOf(*Window(), "lblHolder"), "D:\\A\\ is being changed by another workstation");
}

TEST_F(SharedWaits, AreLeftByTheirButtonAndByEscape) {
    for (const bool byKey : {false, true}) {
        const std::unique_ptr<SharedWait> wait = Screen.BeginSharedWait();
        EXPECT_TRUE(wait->GoOn("held"));
        QTimer::singleShot(0, Window(), [&] {
            if (byKey)
                QTest::keyClick(Window(), Qt::Key_Escape);
            else
                Click(*Window(), "cmdLeave");
        });
        EXPECT_FALSE(wait->GoOn("held"));
    }
    EXPECT_EQ(Window(), nullptr);
}

TEST_F(SharedWaits, HoldBackWhatWasToComeNextUntilTheyAreOver) {
    bool came = false;
    {
        const std::unique_ptr<SharedWait> wait = Screen.BeginSharedWait();
        EXPECT_TRUE(wait->GoOn("held"));
        QTimer::singleShot(0, qApp, [&] { CallLater(qApp, [&] { came = true; }); });
        for (int i = 0; i < 3; ++i)
            EXPECT_TRUE(wait->GoOn("held"));
        EXPECT_FALSE(came);
    }
    HandleEvents();
    EXPECT_TRUE(came);
}

TEST_F(SharedWaits, KeepTheOtherWindowsOutOfReach) {
    QPushButton behind;
    behind.show();
    int clicks = 0;
    QObject::connect(&behind, &QPushButton::clicked, &behind, [&] { ++clicks; });
    {
        const std::unique_ptr<SharedWait> wait = Screen.BeginSharedWait();
        EXPECT_TRUE(wait->GoOn("held"));
        QTest::mouseClick(behind.windowHandle(), Qt::LeftButton, {}, behind.rect().center());
        EXPECT_TRUE(wait->GoOn("held"));
    }
    EXPECT_EQ(clicks, 0);
    QTest::mouseClick(behind.windowHandle(), Qt::LeftButton, {}, behind.rect().center());
    EXPECT_EQ(clicks, 1);
}

}  // namespace Dorvane::Testing
