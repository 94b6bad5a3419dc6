// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/widgets/Screen.h"

class QComboBox;

namespace Dorvane {

namespace Ui {
class frmInit;
}

/// The dialog for default directories: two drives, below which the missing folders are made.
class frmInit : public ScreenDialog {
    Q_OBJECT

  public:
    frmInit();
    ~frmInit() override;

  private:
    void FillDrives(QComboBox& list, char preferred);
    void ShowDrives();
    void cmdDrives_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmInit> Form;
};

}  // namespace Dorvane
