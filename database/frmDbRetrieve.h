// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"
#include "core/widgets/WaitCursor.h"
#include "database/Retrieval.h"

class QLabel;

namespace Dorvane {

namespace Ui {
class frmDbRetrieve;
}

/// The screen that has coordinates of a location written into a file, which it then offers.
class frmDbRetrieve : public Screen {
    Q_OBJECT

  public:
    explicit frmDbRetrieve(Navigator& navigator);
    ~frmDbRetrieve() override;

  private:
    void LoadForm();
    void LoadPictures();
    void ConnectChoices();
    void ConnectCommands();
    void ConnectMenus();

    void trvDirectory_NodeClick(const std::string& key);
    void ReadOptions();
    void ChoiceChanged();
    void cmdRetrieve_Click();
    void LeaveTo(const char* event, const std::function<void()>& where);

    RetrieveView View();
    void ShowWaiting(bool on);
    void ShowAnimation(bool on);
    void ShowOutput();

    Navigator& Nav;
    std::unique_ptr<Ui::frmDbRetrieve> Form;
    QLabel* StatusPanel = nullptr;
    RetrieveForm State;
    std::optional<WaitCursor> Waiting;
};

}  // namespace Dorvane
