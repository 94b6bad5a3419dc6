// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/widgets/Screen.h"

class QTimer;

namespace Dorvane {

namespace Ui {
class frmSplash;
}

/// The splash: stands for 20 seconds, or until a key or a click.
class frmSplash : public ScreenDialog {
    Q_OBJECT

  public:
    frmSplash();
    ~frmSplash() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void LoadForm();

    std::unique_ptr<Ui::frmSplash> Form;
    QTimer* tmrSplash = nullptr;
};

}  // namespace Dorvane
