// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "adjustment/Package.h"
#include "adjustment/VarnState.h"
#include "adjustment/basVarn.h"
#include "core/Navigator.h"
#include "core/ReportError.h"
#include "core/widgets/Screen.h"

class QCheckBox;
class QLabel;

namespace Dorvane {

namespace Ui {
class frmVarn;
}

/// The screen that runs the adjustment of an input file and exports its results.
class frmVarn : public Screen {
    Q_OBJECT

  public:
    using PackageFactory = std::function<std::unique_ptr<AdjustmentPackage>()>;

    /// The package of each run is made by `makePackage`. Without one it works in a process of its own, and
    /// the screen is painted meanwhile but takes no input.
    explicit frmVarn(Navigator& navigator, PackageFactory makePackage = {});
    ~frmVarn() override;

    /// Sets txtInput, the input file to begin with; empty for none. The change does the rest.
    void SetInput(const std::string& path);

  private:
    using Body = std::function<void(Guard&)>;

    void LoadForm();
    void LoadPictures();
    void ConnectInput();
    void ConnectCommands();
    void ConnectMenus();
    void ConnectExports();
    void ConnectBox(QCheckBox* box, const char* event, FileBox file);
    void On(const char* event, const Body& body);

    void txtInput_Change(const std::string& text);
    void cmdVarn_Click();
    void cmdViewVersion_Click();
    void GoHome(const char* event);
    VarnRunView RunView();

    void ShowState();
    void ShowVersions();
    void ShowNumbers();
    void ShowOptions();
    void ShowMenus();
    void ShowWaiting(bool waiting);

    Navigator& Nav;
    const PackageFactory MakePackage;
    std::unique_ptr<Ui::frmVarn> Form;
    QLabel* Status = nullptr;
    VarnState State;
    List1<std::string> ShownVersions;
    bool Busy = false;
};

}  // namespace Dorvane
