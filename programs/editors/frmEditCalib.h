// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "core/widgets/Screen.h"
#include "programs/editors/CalibEdit.h"

namespace Dorvane {

namespace Ui {
class frmEditCalib;
}

/// The editor of the calibration system's types and epochs.
class frmEditCalib : public ScreenDialog {
    Q_OBJECT

  public:
    /// Reads the structure in a folder that ends in a backslash, named after the last folder of `calibPath`.
    /// Raises what reading raises.
    frmEditCalib(const std::string& folder, const std::string& calibPath);
    ~frmEditCalib() override;

  private:
    void SetUpTables();
    void TakeGroups();
    void ShowMarks();
    bool MayRemove(std::size_t group, const std::string& code);
    void cmdOK_Click();

    std::unique_ptr<Ui::frmEditCalib> Form;
    CalibEdit Calibration;
};

}  // namespace Dorvane
