// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/widgets/Screen.h"

namespace Dorvane {

namespace Ui {
class frmAbout;
}

/// What the program is, and the way to the system information tool of the platform.
class frmAbout : public ScreenDialog {
    Q_OBJECT

  public:
    frmAbout();
    ~frmAbout() override;

  private:
    std::unique_ptr<Ui::frmAbout> Form;
};

}  // namespace Dorvane
