// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"
#include "datatree/SurveyChoice.h"

namespace Dorvane {

namespace Ui {
class frmAddSurvey;
}

/// The choice of the survey folders to add. What was chosen is the answer when the dialog was unloaded.
class frmAddSurvey : public ScreenDialog {
    Q_OBJECT

  public:
    frmAddSurvey();
    ~frmAddSurvey() override;

    /// Sets lblDirectory: fills the lists, with a preselection by the parts of the folder.
    void SetDirectory(const std::string& directory);

    /// Five empty texts until the choice was confirmed, and after Cancel.
    const SurveyAnswer& Answer() const { return Chosen; }

  private:
    void lstRoot_Click();
    void lstLocation_Click();
    void lstTypeMulti_Click();
    void lstEpoch_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    void ShowRoot();
    void ShowLocation();
    void ShowEpochs();

    std::unique_ptr<Ui::frmAddSurvey> Form;
    SurveyChoice Choice;
    SurveyAnswer Chosen;
};

}  // namespace Dorvane
