// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/TitleWidth.h"

#include <QFontMetrics>
#include <QWidget>

namespace Dorvane {

int WidthOfTitle(const QWidget& window) {
    constexpr int IconAndButtons = 6;  // each about as wide as a line is high
    QFont font = window.font();
    font.setBold(true);
    const QFontMetrics metrics(font);
    return metrics.horizontalAdvance(window.windowTitle()) + metrics.lineSpacing() * IconAndButtons;
}

}  // namespace Dorvane
