// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "core/widgets/Screen.h"

namespace Dorvane {

namespace Ui {
class frmConstruct;
}

/// The notice of a feature that is not built yet, with the title and the text of its caller.
class frmConstruct : public ScreenDialog {
    Q_OBJECT

  public:
    frmConstruct(const std::string& title, const std::string& text);
    ~frmConstruct() override;

  private:
    std::unique_ptr<Ui::frmConstruct> Form;
};

}  // namespace Dorvane
