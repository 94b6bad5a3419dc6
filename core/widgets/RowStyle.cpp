// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/RowStyle.h"

#include <QStyleOption>

namespace Dorvane {

QSize RowStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                 const QWidget* widget) const {
    QSize needed = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_ItemViewItem && option != nullptr)
        needed.setHeight(std::max(needed.height(), option->fontMetrics.height() + 4));
    return needed;
}

}  // namespace Dorvane
