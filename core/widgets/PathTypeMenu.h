// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

class QAction;
class QLabel;

namespace Dorvane {

/// The two items of a "Path Type" menu and the panel of the status bar that tells the choice. A choice takes
/// effect at once and is stored in dv_tarvex.ini.
class PathTypeMenu : public QObject {
    Q_OBJECT

  public:
    /// `screen` names the form in reports; `chosen` runs after each choice.
    PathTypeMenu(const char* screen, QAction* tarvex, QAction* manual, QLabel* panel,
                 std::function<void()> chosen = {});

    /// Marks and panel follow Path_type.
    void Show();

  private:
    void Choose(int pathType);

    const char* ScreenName;
    QAction* Tarvex;
    QAction* Manual;
    QLabel* Panel;
    std::function<void()> Chosen;
};

}  // namespace Dorvane
