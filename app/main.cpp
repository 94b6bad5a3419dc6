// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>

#include "app/AppNavigator.h"
#include "app/QtDesktop.h"
#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/basMain.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/RowStyle.h"

using namespace Dorvane;

namespace {

constexpr int Failed = 1;

void SayWhy(const char* reason) {
    std::fprintf(stderr, "Dorvane ends: %s\n", reason);
}

// The toolkit ends what it cannot bring on a screen by an abort, which leaves no more than a core file.
void EndOnFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type != QtFatalMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
        return;
    }
    SayWhy(qPrintable(text));
    std::_Exit(Failed);
}

// The icon is decoration: without it the desktop shows one of its own.
void SetWindowIcon() {
    try {
        QApplication::setWindowIcon(LoadPicture("dorvane.svg"));
    } catch (const RunTimeError&) {
    }
}

// Until the home menu is closed; without one the start-up was left, and no form is open.
int RunProgram() {
    QtDesktop desktop;
    AppNavigator navigator;
    bool started = false;
    Guarded("basMain-Main", [&](Guard& guard) {
        guard.Run([] { Drives::Open(); });
        SetWindowIcon();
        started = Main(
            {[&] { navigator.ShowSplash(); }, [&] { navigator.ShowInit(); }, [&] { navigator.ShowMain(); }});
    });
    return started && navigator.HomeIsOpen() ? QApplication::exec() : Failed;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        qInstallMessageHandler(EndOnFatal);
        QApplication application(argc, argv);
        qInstallMessageHandler(nullptr);
        QApplication::setStyle(new RowStyle);
        QApplication::setOrganizationName(QStringLiteral("Dorvane"));
        QApplication::setApplicationName(QStringLiteral("Dorvane"));
        // Between two screens no window may be open; the program ends by its own commands alone.
        QApplication::setQuitOnLastWindowClosed(false);
        return RunProgram();
    } catch (const std::exception& failure) {
        SayWhy(failure.what());
    } catch (...) {
        SayWhy("unknown failure");
    }
    return Failed;
}
