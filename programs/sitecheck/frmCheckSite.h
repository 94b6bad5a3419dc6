// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/widgets/Screen.h"
#include "programs/sitecheck/SiteMend.h"

class QTreeWidgetItem;

namespace Dorvane {

namespace Ui {
class frmCheckSite;
}

/// Checks the site when it is asked to, lists what is wrong, and mends what the operator ticks.
class frmCheckSite : public ScreenDialog {
    Q_OBJECT

  public:
    frmCheckSite();
    ~frmCheckSite() override;

  private:
    void cmdCheck_Click();
    void cmdMend_Click();
    void cmdSave_Click();
    void cmdClose_Click();
    bool Check();
    void SetRunning(bool running);
    void ShowFindings();
    void ShowSummary();
    void ShowButtons();
    std::vector<Finding> Ticked() const;
    bool MayMend(const std::vector<Finding>& findings) const;

    std::unique_ptr<Ui::frmCheckSite> Form;
    SiteReport Report;
    bool Checked = false;
    bool Running = false;
    bool StopWanted = false;
};

}  // namespace Dorvane
