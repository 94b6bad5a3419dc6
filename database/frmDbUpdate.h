// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"
#include "database/Update3D.h"

class QLabel;

namespace Dorvane {

namespace Ui {
class frmDbUpdate;
}

/// The screen that brings the adjusted points of a *.DBS file into the database of a location.
class frmDbUpdate : public Screen {
    Q_OBJECT

  public:
    explicit frmDbUpdate(Navigator& navigator);
    ~frmDbUpdate() override;

  private:
    void LoadForm();
    void ConnectCommands();
    void trvDirectory_NodeClick(const std::string& key);
    void cmdBrowse_Click();
    void cmdUpdate_Click();
    void cmdRestore_Click();
    UpdateView View();
    void ShowStatus(const std::string& text);
    void LeaveTo(const char* event, const std::function<void()>& where);

    Navigator& Nav;
    std::unique_ptr<Ui::frmDbUpdate> Form;
    QLabel* StatusPanel = nullptr;
    UpdateForm State;
};

}  // namespace Dorvane
