// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "upload/MeterWindow.h"

namespace Dorvane {

namespace Ui {
class frmCopyMeter;
}

/// The meter of a copy. The caller's title takes the place of its own.
class frmCopyMeter : public MeterWindow {
    Q_OBJECT

  public:
    frmCopyMeter(const std::string& dataTypeName, const std::string& title);
    ~frmCopyMeter() override;

    void Open(int fileCount) override;

  protected:
    void LoadForm() override;
    MeterControls Controls() const override;

  private:
    void Init();

    std::string DataTypeName;
    std::string Title;
    std::unique_ptr<Ui::frmCopyMeter> Form;
};

}  // namespace Dorvane
