// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <cstdio>
#include <set>
#include <stdexcept>

#include "core/Globals.h"

// Linked with the real main() into the program that Start_test.cpp starts: sits at its desk, tells each
// window on the standard output, one a line, and closes it.
namespace {

void Tell(const char* kind, const QString& first, const QString& second = {}) {
    const QString text = QStringLiteral("%1|%2|%3").arg(QLatin1String(kind), first, second);
    std::printf("%s\n", QString(text).replace('\n', '/').toUtf8().constData());
    std::fflush(stdout);
}

void AttendHome(QWidget& home) {
    if (qEnvironmentVariableIsSet("DORVANE_TEST_FAILURE"))
        throw std::runtime_error("a failure that nobody handles");
    QTimer::singleShot(0, &home, [&home] { home.findChild<QToolButton*>("cmdMain9")->click(); });
}

// As between two screens: the one is closed before the other opens.
void StandWithoutAWindow(QWidget& home) {
    home.hide();
    QWidget screen;
    screen.show();
    screen.close();
    QTimer::singleShot(50, &home, [&home] {
        Tell("goes on", {});
        home.show();
        AttendHome(home);
    });
}

void Attend(QWidget& window) {
    if (auto* box = qobject_cast<QMessageBox*>(&window)) {
        Tell("message", box->windowTitle(), box->text());
        box->reject();
        return;
    }
    Tell("window", window.objectName(), QApplication::windowIcon().isNull() ? "no icon" : "icon");
    if (window.objectName() == "frmSplash")
        QCoreApplication::postEvent(&window, new QKeyEvent(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier));
    else if (window.objectName() == "frmInit")
        window.findChild<QPushButton*>("cmdCancel")->click();
    else if (window.objectName() == "frmMain" && qEnvironmentVariableIsSet("DORVANE_TEST_WINDOWLESS"))
        StandWithoutAWindow(window);
    else if (window.objectName() == "frmMain")
        AttendHome(window);
}

// The waiting window comes and goes by itself, and what is read under it is guarded.
bool IsWaiting() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->objectName() == "frmSearch";
    });
}

void Look() {
    static std::set<const QWidget*> seen;
    if (IsWaiting())
        return;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && seen.insert(window).second)
            return Attend(*window);
}

void TakeTheDesk() {
    // Not the name of a program that somebody at this workstation may have open.
    Dorvane::Global().InstanceName = qgetenv("DORVANE_TEST_INSTANCE").toStdString();
    auto* timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [] { Look(); });
    timer->start(10);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(TakeTheDesk)
