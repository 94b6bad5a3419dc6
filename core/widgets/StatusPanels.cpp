// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/StatusPanels.h"

#include <QLabel>
#include <QStatusBar>

namespace Dorvane {

QLabel* AddPanel(QStatusBar& bar, const QString& name, int stretch) {
    auto* panel = new QLabel(&bar);
    panel->setObjectName(name);
    panel->setTextFormat(Qt::PlainText);
    panel->setMargin(3);
    panel->setMinimumWidth(panel->fontMetrics().averageCharWidth() * 10);
    bar.addWidget(panel, stretch);
    return panel;
}

}  // namespace Dorvane
