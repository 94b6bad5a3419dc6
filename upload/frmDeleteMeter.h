// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "upload/MeterWindow.h"

namespace Dorvane {

namespace Ui {
class frmDeleteMeter;
}

/// The meter of a deletion.
class frmDeleteMeter : public MeterWindow {
    Q_OBJECT

  public:
    frmDeleteMeter();
    ~frmDeleteMeter() override;

  protected:
    void LoadForm() override;
    MeterControls Controls() const override;

  private:
    void Init();

    std::unique_ptr<Ui::frmDeleteMeter> Form;
};

}  // namespace Dorvane
