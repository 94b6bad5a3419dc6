// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <string>

#include "core/widgets/Screen.h"
#include "programs/editors/ChoiceEdit.h"

namespace Dorvane {

class EntryTable;

namespace Ui {
class frmEditChoice;
}

/// The editor of the systems in CHOICES.SYS and of the locations, data types and epochs of each data system.
class frmEditChoice : public ScreenDialog {
    Q_OBJECT

  public:
    /// Reads the files of a folder that ends in a backslash. Raises what reading raises.
    explicit frmEditChoice(const std::string& folder);
    ~frmEditChoice() override;

  private:
    void ShowSystems();
    void TakeGroups();
    void TakeSystems();
    void ShowGroups();
    void TakeAll();
    void ShowMarks();
    EntryTable& TableOf(std::size_t group) const;
    bool MayRemoveSystem(int id);
    bool MayRemoveEntry(std::size_t group, const std::string& code);
    bool SettleWarnings();
    void tables_Edited();
    void tblSystems_LineChosen();
    void cmdOK_Click();

    std::unique_ptr<Ui::frmEditChoice> Form;
    ChoiceEdit Choices;
    std::map<int, SystemEdit> Systems;  // by the numbers of the table's lines
    int Shown = 0;                      // whose groups are shown, 0 for none
};

}  // namespace Dorvane
