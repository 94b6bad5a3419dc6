// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

namespace Dorvane {

/// A label for a path or a name of any length: what does not fit is left out in the middle, and the whole
/// text is its tool tip. It shows its text as it stands.
class PathLabel : public QLabel {
    Q_OBJECT

  public:
    explicit PathLabel(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

}  // namespace Dorvane
