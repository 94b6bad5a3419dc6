// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "upload/PassiveWindow.h"

namespace Dorvane {

namespace Ui {
class frmSearch;
}

/// The waiting window while something long is read.
class frmSearch : public PassiveWindow {
    Q_OBJECT

  public:
    frmSearch();
    ~frmSearch() override;

    /// Loads and shows the window with this text, or changes the text of the one that is shown; either way it
    /// is painted when this returns.
    void ShowText(const std::string& text);
    /// Takes the window away for good.
    void Unload();

  private:
    void LoadForm();
    void Init();

    std::unique_ptr<Ui::frmSearch> Form;
};

}  // namespace Dorvane
