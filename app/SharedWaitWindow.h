// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include "core/Desktop.h"

class QLabel;

namespace Dorvane {

/// The small window that says which workstation is waited for. The other windows are painted meanwhile and
/// out of reach; its button and Escape leave the wait.
class SharedWaitWindow : public QDialog, public SharedWait {
    Q_OBJECT

  public:
    explicit SharedWaitWindow(QWidget* owner);

    bool GoOn(const std::string& text) override;
    void reject() override { Left = true; }

  private:
    QLabel* Text;
    bool Left = false;
};

}  // namespace Dorvane
