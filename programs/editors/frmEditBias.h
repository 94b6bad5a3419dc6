// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "core/widgets/Screen.h"
#include "programs/editors/BiasEdit.h"

namespace Dorvane {

namespace Ui {
class frmEditBias;
}

/// The editor of the bias values of the locations.
class frmEditBias : public ScreenDialog {
    Q_OBJECT

  public:
    /// Reads BIAS.STR of a folder that ends in a backslash. Raises what reading raises.
    explicit frmEditBias(const std::string& folder);
    ~frmEditBias() override;

  private:
    void ShowLines();
    std::vector<BiasLine> EditedLines() const;
    void cmdOK_Click();

    std::unique_ptr<Ui::frmEditBias> Form;
    BiasEdit Bias;
};

}  // namespace Dorvane
