// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "upload/MeterWindow.h"

namespace Dorvane {

namespace Ui {
class frmMoveMeter;
}

/// The meter of an upload.
class frmMoveMeter : public MeterWindow {
    Q_OBJECT

  public:
    explicit frmMoveMeter(const std::string& dataTypeName);
    ~frmMoveMeter() override;

  protected:
    void LoadForm() override;
    MeterControls Controls() const override;

  private:
    void Init();

    std::string DataTypeName;
    std::unique_ptr<Ui::frmMoveMeter> Form;
};

}  // namespace Dorvane
