// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/window/EditorProgram.h"

#include <QApplication>
#include <QPointer>
#include <QTextStream>
#include <cstdlib>
#include <string_view>

#include "app/QtDesktop.h"
#include "core/About.h"
#include "core/Drives.h"
#include "core/Globals.h"
#include "core/Host.h"
#include "core/ReportError.h"
#include "core/basMain.h"
#include "core/widgets/Pictures.h"

namespace Dorvane {

namespace {

void FindTheProgram() {
    Drives::Open();
    Global().ProgramFolder = Drives::DrivePath(Host::RealPath(Host::ProgramFolder() + "..") + "/");
    InitializeGolbals();
    if (!PictureFile("dorvane.svg").empty())
        QApplication::setWindowIcon(LoadPicture("dorvane.svg"));
}

template <class Window>
int Run(int& count, char** arguments, const char* name, const std::function<Window*()>& open) {
    if (count == 2 && std::string_view(arguments[1]) == "--version") {
        QTextStream(stdout) << name << ' ' << QString::fromStdString(ProgramVersion()) << '\n';
        return EXIT_SUCCESS;
    }
    QApplication application(count, arguments);
    QApplication::setOrganizationName(QStringLiteral("Dorvane"));
    QApplication::setApplicationName(QStringLiteral("Dorvane"));
    const QtDesktop desktop;
    QPointer<Window> window;
    Guarded(std::string(name) + "-Main", [&](Guard&) {
        FindTheProgram();
        window = open();
    });
    if (window.isNull())
        return EXIT_FAILURE;
    QObject::connect(window, &Window::Unloaded, &application, &QApplication::quit);
    window->show();
    const int result = QApplication::exec();
    delete window;
    return result;
}

}  // namespace

int RunEditor(int& count, char** arguments, const char* name, const std::function<ScreenDialog*()>& open) {
    return Run(count, arguments, name, open);
}

int RunEditor(int& count, char** arguments, const char* name, const std::function<Screen*()>& open) {
    return Run(count, arguments, name, open);
}

bool HasInitPath() {
    if (!Global().Init_path.empty())
        return true;
    TheDesktop().ShowMessage({.Text = "Init_path in dv_tarvex.ini does not name an existing folder.",
                              .Title = "INI File Error",
                              .Picture = Icon::Exclamation});
    return false;
}

}  // namespace Dorvane
