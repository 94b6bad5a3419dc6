// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"

namespace Dorvane {

namespace Ui {
class frmSysOption;
}

/// The choice of what to configure: the data folders or the calibration folders.
class frmSysOption : public ScreenDialog {
    Q_OBJECT

  public:
    explicit frmSysOption(Navigator& navigator);
    ~frmSysOption() override;

  private:
    Navigator& Nav;
    std::unique_ptr<Ui::frmSysOption> Form;
};

}  // namespace Dorvane
