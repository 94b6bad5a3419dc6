// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/widgets/Screen.h"
#include "programs/editors/InputVersion.h"

namespace Dorvane {

class InputRowTree;

namespace Ui {
class frmEditInp;
}

/// The editor of adjustment input files: takes stations, points and observations out of the master or of a
/// version, and writes versions. The master is never changed.
class frmEditInp : public ScreenDialog {
    Q_OBJECT

  public:
    /// Opens an input file by its drive path. Raises what reading raises.
    explicit frmEditInp(const std::string& path);
    ~frmEditInp() override;

  private:
    void SetUpTabs();
    void ShowInput();
    void ShowFates();
    void ShowSummary();
    void ShowFound();
    void Tick(const std::vector<std::size_t>& rows, bool taken);
    bool SettleWhatIsLeft();
    std::string Comment() const;
    bool Changed() const;
    void KeepAsSaved();
    void cmdSave_Click();
    void cmdSaveNew_Click();
    void cmdClose_Click();

    struct Tab {
        InputRowTree* Tree;
        NoteKind Kind;
        const char* Title;
    };

    std::unique_ptr<Ui::frmEditInp> Form;
    InputVersion Input;
    std::vector<Tab> Tabs;
    std::vector<bool> Taken;  // of each row
    std::vector<Fate> Now;
    std::vector<bool> SavedTaken;
    std::string SavedComment;
};

}  // namespace Dorvane
