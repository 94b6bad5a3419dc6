// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QLabel;
class QStatusBar;

namespace Dorvane {

/// Adds the next panel to a status bar: a label with the object name `name` that shows its text as it stands.
/// A panel with a stretch above 0 takes the room that is left.
QLabel* AddPanel(QStatusBar& bar, const QString& name, int stretch = 0);

}  // namespace Dorvane
