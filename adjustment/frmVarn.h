// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <functional>
#include <memory>
#include <string>

#include "adjustment/Package.h"
#include "adjustment/VarnRun.h"
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

    /// The package of each run is made by `makePackage`. Without one it works in a process of its own;
    /// meanwhile the screen is painted and takes no input but the wish to cancel the run.
    explicit frmVarn(Navigator& navigator, PackageFactory makePackage = {});
    ~frmVarn() override;

    /// Sets txtInput, the input file to begin with; empty for none. The change does the rest.
    void SetInput(const std::string& path);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

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
    void cmdViewVersion_Click();
    void GoHome(const char* event);

    // The run, in frmVarnRun.cpp.
    void ConnectRun();
    void cmdVarn_Click();
    void AskToCancel();
    void WhileRunning();
    VarnRunView RunView();
    void BeginRun();
    void ShowRunning(bool running);
    void DressRunButton();
    void PrepareRunButton();

    void ShowState();
    void ShowVersions();
    void ShowNumbers();
    void ShowOptions();
    void ShowMenus();
    void ShowVerdict();
    void ShowStatus();
    void ShowWaiting(bool waiting);

    Navigator& Nav;
    const PackageFactory MakePackage;
    std::unique_ptr<Ui::frmVarn> Form;
    QLabel* Status = nullptr;
    VarnState State;
    List1<std::string> ShownVersions;
    bool Busy = false;
    QIcon RunPicture;
    QIcon StopPicture;
    bool Running = false;       // the package works
    bool CancelWanted = false;  // and is to be ended
};

}  // namespace Dorvane
