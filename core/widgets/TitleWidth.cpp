// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/TitleWidth.h"

#include <QFontMetrics>
#include <QWidget>

namespace Dorvane {

int WidthOfTitle(const QWidget& window) {
    // Each about as wide as a line is high; and window managers write titles somewhat larger than the
    // toolkit.
    constexpr int IconAndButtons = 9;
    QFont font = window.font();
    font.setBold(true);
    const QFontMetrics metrics(font);
    return metrics.horizontalAdvance(window.windowTitle()) + metrics.lineSpacing() * IconAndButtons;
}

}  // namespace Dorvane
