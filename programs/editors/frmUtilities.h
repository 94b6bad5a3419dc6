// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/widgets/Screen.h"
#include "programs/editors/Utilities.h"

namespace Dorvane {

namespace Ui {
class frmUtilities;
}

/// A utility of the launcher's own process.
struct OwnUtility {
    std::string Title;
    std::string Tip;
    std::function<void()> Open;
};

/// The launcher: a button for each utility of a profile, and behind them those of its own.
class frmUtilities : public ScreenDialog {
    Q_OBJECT

  public:
    explicit frmUtilities(const std::string& profile, const std::vector<OwnUtility>& own = {});
    ~frmUtilities() override;

  private:
    void AddButton(const std::string& title, const std::string& tip, const std::function<void()>& open);

    std::unique_ptr<Ui::frmUtilities> Form;
    int Buttons = 0;
};

}  // namespace Dorvane
