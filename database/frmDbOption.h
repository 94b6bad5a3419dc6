// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"

class QPushButton;

namespace Dorvane {

namespace Ui {
class frmDbOption;
}

/// The fork between retrieving coordinates and updating them.
class frmDbOption : public ScreenDialog {
    Q_OBJECT

  public:
    explicit frmDbOption(Navigator& navigator);
    ~frmDbOption() override;

  private:
    void LoadForm();
    void LeaveBy(QPushButton* button, const std::function<void()>& where);

    Navigator& Nav;
    std::unique_ptr<Ui::frmDbOption> Form;
};

}  // namespace Dorvane
