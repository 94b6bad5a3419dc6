// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/PathTypeMenu.h"

#include <QAction>
#include <QLabel>

#include "core/Globals.h"
#include "core/PathType.h"
#include "core/ReportError.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

PathTypeMenu::PathTypeMenu(const char* screen, QAction* tarvex, QAction* manual, QLabel* panel,
                           std::function<void()> chosen)
    : QObject(panel),
      ScreenName(screen),
      Tarvex(tarvex),
      Manual(manual),
      Panel(panel),
      Chosen(std::move(chosen)) {
    Tarvex->setCheckable(true);
    Manual->setCheckable(true);
    connect(Tarvex, &QAction::triggered, this, [this] { Choose(1); });
    connect(Manual, &QAction::triggered, this, [this] { Choose(2); });
    Show();
}

void PathTypeMenu::Show() {
    Tarvex->setChecked(Global().Path_type == 1);
    Manual->setChecked(Global().Path_type != 1);
    Panel->setText(ToScreen(PathTypeText()));
}

void PathTypeMenu::Choose(int pathType) {
    const std::string event =
        std::string(ScreenName) + (pathType == 1 ? "-mnuTarvex_Click" : "-mnuManual_Click");
    Guarded(event, [&](Guard&) {
        StorePathType(static_cast<std::int16_t>(pathType));
        Show();
        if (Chosen)
            Chosen();
    });
}

}  // namespace Dorvane
