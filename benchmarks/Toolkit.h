// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <array>
#include <string>

namespace Dorvane {

/// The toolkit without a display, and without the settings of the person at the desk. It ends before the
/// program does, as it has to.
class Toolkit {
  public:
    Toolkit() {
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, Settings.path());
        QApplication::setOrganizationName(QStringLiteral("dorvane-bench"));
        QApplication::setApplicationName(QStringLiteral("dorvane-bench"));
    }

  private:
    int ArgumentCount = 3;
    std::string Name = "dorvane_bench";
    std::string Option = "-platform";
    std::string Platform = "offscreen";
    std::array<char*, 4> Arguments{Name.data(), Option.data(), Platform.data(), nullptr};
    QApplication Application{ArgumentCount, Arguments.data()};
    const QTemporaryDir Settings;
};

}  // namespace Dorvane
