// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "core/widgets/Screen.h"
#include "input/WeightsDialog.h"

namespace Dorvane {

namespace Ui {
class frmObsWeights;
}

/// The dialog on which the a priori standard errors of the input types are changed, one tab per type.
class frmObsWeights : public ScreenDialog {
    Q_OBJECT

  public:
    frmObsWeights();
    ~frmObsWeights() override;

    /// True once OK has saved the weights; to be asked when the dialog is unloaded.
    bool Saved() const { return IsSaved; }

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    void LoadForm();
    void LoadPictures();
    void FitTabs();
    void EnterTab();
    void GoToTheFirstDoubt();
    void cmdOK_Click();

    std::unique_ptr<Ui::frmObsWeights> Form;
    List1<WeightsTab> Tabs;
    bool IsSaved = false;
};

}  // namespace Dorvane
