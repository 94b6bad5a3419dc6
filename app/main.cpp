// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QTimer>

#include "app/AppNavigator.h"
#include "app/QtDesktop.h"
#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/basMain.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/RowStyle.h"

using namespace Dorvane;

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setStyle(new RowStyle);
    QApplication::setOrganizationName(QStringLiteral("Dorvane"));
    QApplication::setApplicationName(QStringLiteral("Dorvane"));
    // Between two screens no window may be open; the program ends by its own commands alone.
    QApplication::setQuitOnLastWindowClosed(false);

    QtDesktop desktop;
    AppNavigator navigator;
    bool started = false;
    Guarded("basMain-Main", [&](Guard& guard) {
        guard.Run([] { Drives::Open(); });
        guard.Run([] { QApplication::setWindowIcon(LoadPicture("dorvane.svg")); });
        started = Main(
            {[&] { navigator.ShowSplash(); }, [&] { navigator.ShowInit(); }, [&] { navigator.ShowMain(); }});
    });
    // Without a home menu the start-up was left, and no form is open.
    if (!started || !navigator.HomeIsOpen())
        return 0;
    return QApplication::exec();
}
