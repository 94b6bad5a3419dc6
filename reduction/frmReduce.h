// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"
#include "reduction/ReducePage.h"
#include "reduction/ReduceTabs.h"

class QLabel;

namespace Dorvane {

namespace Ui {
class frmReduce;
}

/// The screen that shows what data a survey folder holds and what of it is reduced, and runs the reductions.
/// One tab stands for one kind of reduction.
class frmReduce : public Screen {
    Q_OBJECT

  public:
    explicit frmReduce(Navigator& navigator);
    ~frmReduce() override;

    /// Sets lblSelectedDirectory, the survey folder with its backslash, which sets up the whole screen. It is
    /// done before the screen is shown.
    void SetSelectedDirectory(const std::string& folder);

  private:
    void LoadForm();
    void ConnectCommands();
    void AddPage();
    void ShowTabs();
    void OrderStops();
    void sstabReduction_Click(int tab);
    void ShowStatus();
    void cmdReduce_Click(int page);
    /// False when there is nothing new to show or to tell.
    bool RunTab(int page);
    void cmdEdit_Click(int page);
    void cmdPrint_Click(int page);
    void cmdChangeDir_Click();
    void ChangeByHand();
    void GoHome(const char* event);

    Navigator& Nav;
    std::unique_ptr<Ui::frmReduce> Form;
    QLabel* StatePanel = nullptr;
    QLabel* TypePanel = nullptr;
    StatePictures Pictures;
    std::vector<ReducePage*> Pages;  // counted from 0, as their controls are
    ReduceState State;
    bool SettingUp = false;
};

}  // namespace Dorvane
