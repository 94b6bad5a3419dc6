// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "core/widgets/Screen.h"
#include "programs/editors/Utilities.h"

namespace Dorvane {

namespace Ui {
class frmUtilities;
}

/// The launcher: a button for each utility of a profile.
class frmUtilities : public ScreenDialog {
    Q_OBJECT

  public:
    explicit frmUtilities(const std::string& profile);
    ~frmUtilities() override;

  private:
    void AddButton(const Utility& utility, int index);

    std::unique_ptr<Ui::frmUtilities> Form;
};

}  // namespace Dorvane
