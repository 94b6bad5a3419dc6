// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/widgets/Screen.h"
#include "programs/editors/DriveEdit.h"

namespace Dorvane {

class EditWatch;
namespace Ui {
class frmEditDrives;
}

/// The editor of the drive letters on a host that has none of its own.
class frmEditDrives : public ScreenDialog {
    Q_OBJECT

  public:
    /// Raises what reading raises.
    frmEditDrives();
    ~frmEditDrives() override;

  private:
    void SetUpTable();
    DriveEdit Edited() const;
    std::vector<std::string> FreeLetters() const;
    void ShowStates();
    std::string ChosenFolder() const;
    bool SettleWarnings(const DriveEdit& edited);
    void cmdBrowse_Click();
    void cmdMake_Click();
    void cmdOK_Click();

    std::unique_ptr<Ui::frmEditDrives> Form;
    EditWatch* Edits = nullptr;
    DriveEdit Drives;
};

}  // namespace Dorvane
