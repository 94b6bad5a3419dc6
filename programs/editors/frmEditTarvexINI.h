// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <memory>

#include "core/widgets/Screen.h"
#include "programs/editors/TarvexProfile.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace Dorvane {

namespace Ui {
class frmEditTarvexINI;
}

/// The editor of the folders, the path type and the general editor in dv_tarvex.ini.
class frmEditTarvexINI : public ScreenDialog {
    Q_OBJECT

  public:
    frmEditTarvexINI();
    ~frmEditTarvexINI() override;

  private:
    struct Row {
        QLineEdit* Folder = nullptr;    // txt<key>
        QPushButton* Browse = nullptr;  // cmdBrowse<key>
        QLabel* State = nullptr;        // lbl<key>State
        QPushButton* Make = nullptr;    // cmdMake<key>
    };

    void AddRow(std::size_t index);
    void ShowState(std::size_t index);
    void cmdBrowse_Click(std::size_t index);
    void cmdMake_Click(std::size_t index);
    void cmdBrowseEditor_Click();
    void cmdDrives_Click();
    void cmdOK_Click();
    void ShowAllStates();
    TarvexProfile Edited() const;
    bool SettleMissingFolders(const TarvexProfile& profile);

    std::unique_ptr<Ui::frmEditTarvexINI> Form;
    std::array<Row, FolderKeys.size()> Rows;
    TarvexProfile Former;
};

}  // namespace Dorvane
