// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/PathLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include "core/widgets/ScreenText.h"

namespace Dorvane {

PathLabel::PathLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize PathLabel::sizeHint() const {
    return {fontMetrics().averageCharWidth() * 40, QLabel::sizeHint().height()};
}

QSize PathLabel::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 12, QLabel::minimumSizeHint().height()};
}

void PathLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawFrame(&painter);
    const int indent = margin() + (frameWidth() > 0 ? fontMetrics().averageCharWidth() / 2 : 0);
    const QRect place = contentsRect().adjusted(indent, 0, -indent, 0);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, place.width());
    style()->drawItemText(&painter, place, static_cast<int>(alignment()), palette(), isEnabled(), shown,
                          foregroundRole());
}

bool PathLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), ToTip(FromScreen(text())), this);
        return true;
    }
    return QLabel::event(event);
}

}  // namespace Dorvane
