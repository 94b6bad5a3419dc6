// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdlib>
#include <iostream>
#include <sstream>

#include "app/AppNavigator.h"
#include "app/QtDesktop.h"
#include "core/Globals.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/RowStyle.h"
#include "programs/road/RoadWalk.h"
#include "tests/support/ScreenTest.h"
#include "tests/tour/Tour.h"

using namespace Dorvane;
using Dorvane::Testing::HandleEvents;

namespace {

void UseDarkDesktop() {
    const QColor window(43, 43, 43);
    const QColor base(30, 30, 30);
    const QColor text(230, 230, 230);
    const QColor disabled(120, 120, 120);
    QPalette dark(window);
    dark.setColor(QPalette::Window, window);
    dark.setColor(QPalette::Base, base);
    dark.setColor(QPalette::AlternateBase, window);
    dark.setColor(QPalette::Button, QColor(60, 60, 60));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(role, text);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        dark.setColor(QPalette::Disabled, role, disabled);
    dark.setColor(QPalette::Highlight, QColor(47, 127, 196));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(110, 180, 240));
    dark.setColor(QPalette::ToolTipBase, window);
    dark.setColor(QPalette::ToolTipText, text);
    QApplication::setPalette(dark);
}

}  // namespace

// dorvane_tour FOLDER usual|large: leaves the pictures of all screens in FOLDER.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 3) {
        std::cerr << "usage: dorvane_tour FOLDER usual|large\n";
        return EXIT_FAILURE;
    }
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new RowStyle(QStringLiteral("Fusion")));
    if (qEnvironmentVariable("DORVANE_TOUR_DESKTOP") == QLatin1String("dark"))
        UseDarkDesktop();

    const QTemporaryDir site;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, site.filePath("settings"));
    qputenv("DORVANE_DRIVES", (site.path() + "/drives").toUtf8());
    std::ostringstream told;
    if (!Road::WalkTheRoad(site.path().toStdString(), "", DORVANE_FOLDER, told)) {
        std::cerr << told.str();
        return EXIT_FAILURE;
    }
    try {
        const QtDesktop desktop;
        QApplication::setWindowIcon(LoadPicture("dorvane.svg"));
        Tour::PictureBook book(QString::fromLocal8Bit(argv[1]), qstrcmp(argv[2], "large") == 0);
        Tour::WalkStartUp(book);
        AppNavigator navigator;
        Global().PrinterPresent = true;
        navigator.ShowMain();
        HandleEvents();
        Tour::WalkFirstHalf(book, navigator);
        Tour::WalkSecondHalf(book, navigator);
        std::cout << book.Count() << " pictures\n";
    } catch (const std::exception& failure) {
        std::cerr << "tour: " << failure.what() << "\n";
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
