// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/Navigator.h"
#include "core/ReportError.h"
#include "core/widgets/PathTypeMenu.h"
#include "core/widgets/Screen.h"
#include "upload/UploadState.h"

class QLabel;

namespace Dorvane {

namespace Ui {
class frmUploadMenu;
}

/// The screen on which field files are chosen and taken into a survey folder.
class frmUploadMenu : public Screen {
    Q_OBJECT

  public:
    explicit frmUploadMenu(Navigator& navigator);
    ~frmUploadMenu() override;

    /// What the folder picker does with its answer: sets lblToPath.
    void SetToPath(const std::string& folder);
    /// What lblDataType says: the data type that the target path names, or nothing.
    std::string DataTypeName() const;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    using Body = std::function<void(Guard&)>;
    using Run = std::function<void(FileMeter&)>;

    void LoadForm();
    void ConnectCommands();
    void ConnectMenus();
    void On(const char* event, const Body& body);
    void RunUnder(std::unique_ptr<FileMeter> meter, const char* status, const Run& run);

    void BrowseSource();
    void BrowseTarget();
    void PickTarget();
    void PickedTarget();
    void GoToReduction();
    void GoHome();

    void ShowAnew();
    void ShowState();
    void ShowNames();
    void ShowWasteBin();
    void ShowChoice();
    void ShowStatus(const std::string& text);

    Navigator& Nav;
    std::unique_ptr<Ui::frmUploadMenu> Form;
    QLabel* Status = nullptr;
    PathTypeMenu* PathTypes = nullptr;
    UploadState State;
    List1<std::string> ShownNames;
    std::string ShownBin;
    bool Running = false;
};

}  // namespace Dorvane
