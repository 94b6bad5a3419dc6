// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"
#include "reduction/CalibChoice.h"

namespace Dorvane {

namespace Ui {
class frmAddCalib;
}

/// The dialog "Select Calibration to Add". Its answer holds when it is unloaded.
class frmAddCalib : public ScreenDialog {
    Q_OBJECT

  public:
    frmAddCalib();
    ~frmAddCalib() override;

    /// Sets lblDirectory: the folder that the tree has selected.
    void SetDirectory(const std::string& directory);

    /// The chosen calibration, with empty texts when the dialog was cancelled.
    const CalibrationAnswer& Answer() const { return Chosen; }

  private:
    void lstType_Click();
    void lstEpoch_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    void ShowType();

    std::unique_ptr<Ui::frmAddCalib> Form;
    CalibChoice Choice;
    CalibrationAnswer Chosen;
};

}  // namespace Dorvane
