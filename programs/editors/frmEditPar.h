// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/widgets/Screen.h"
#include "programs/editors/ParameterText.h"

namespace Dorvane {

class EditWatch;
namespace Ui {
class frmEditPar;
}

/// The editor of the parameter file of an adjustment.
class frmEditPar : public ScreenDialog {
    Q_OBJECT

  public:
    /// Opens a file by its drive path, which need not exist. The keys of the adjustment are offered,
    /// explained and checked. Raises what reading raises.
    explicit frmEditPar(const std::string& path);
    ~frmEditPar() override;

  private:
    void ShowLines();
    void ShowMeaning();
    ParameterEdit Edited() const;
    void cmdAddKnown_Click();
    void cmdOK_Click();

    std::unique_ptr<Ui::frmEditPar> Form;
    EditWatch* Edits = nullptr;
    ParameterEdit Parameters;
};

}  // namespace Dorvane
