// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <memory>

#include "core/HomeMenu.h"
#include "core/Navigator.h"
#include "core/widgets/Screen.h"

class QLabel;
class QToolButton;

namespace Dorvane {

namespace Ui {
class frmMain;
}
class PathTypeMenu;

/// The home menu: ten buttons, the root of all navigation. It stays loaded for the whole run.
class frmMain : public Screen {
    Q_OBJECT

  public:
    /// `loadTree` reads the whole data tree; it runs at the first activation and when the folders came right.
    frmMain(Navigator& navigator, std::function<void()> loadTree);
    ~frmMain() override;

    /// Follows a path type that another screen has set.
    void ShowPathType();

  protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    void BuildButtons();
    void LayOutButtons();
    void ConnectMenus();
    void ConnectProfileEditors();
    void LoadForm();
    void FirstActivation();
    void LoadTree();
    void ShowFolderState();
    void cmdMain_Click(int index);
    void OpenReduction();
    void OpenTree(const char* title);
    void mnuTarvexINI_Click();

    Navigator& Nav;
    std::function<void()> ReadTree;
    std::unique_ptr<Ui::frmMain> Form;
    std::array<QToolButton*, HomeButtonCount> cmdMain{};
    std::array<QLabel*, HomeButtonCount> lblMain{};
    QLabel* HomePanel = nullptr;
    PathTypeMenu* PathTypes = nullptr;
    bool Activated = false;
};

}  // namespace Dorvane
