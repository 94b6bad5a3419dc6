// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/Navigator.h"
#include "core/ReportError.h"
#include "core/widgets/Screen.h"
#include "input/InputScreen.h"
#include "input/TypePictures.h"

class QLabel;
class QListWidget;

namespace Dorvane {

namespace Ui {
class frmInput;
}

/// The screen on which an adjustment is set up: the folders of reduced data and their input types, the
/// sources of approximate coordinates, and the descriptions. It writes the input files of the adjustment.
class frmInput : public Screen {
    Q_OBJECT

  public:
    /// `makeSource` makes the component that reads the coordinate database.
    frmInput(Navigator& navigator, MakeCoordinateSource makeSource);
    ~frmInput() override;

    /// What the folder picker does with its answer: sets lblDirectory. An empty one is its Cancel, and
    /// lblDirectory stays as it was.
    void SetDirectory(const std::string& folder);

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    using Body = std::function<void(Guard&)>;

    void LayOut();
    void LoadForm();
    void LoadPictures();
    void FillDimensions();
    void FillTypes();
    void ConnectButtons();
    void ConnectLists();
    void ConnectMenus();
    void ConnectChanges();
    void On(const char* event, const Body& body);
    void RunOn(const char* event, const Body& body);

    InputServices Services();
    void ShowStatus(const std::string& text);
    void ForgetStatus();
    void ShowAnimation(bool on);
    std::optional<std::string> PickFolder(const std::string& caption, const std::string& path);

    void trvInput_NodeClick(const std::string& key);
    void mnuObservationWeights_Click();
    void WeightsAnswered(bool saved);
    void cmdVarn_Click();
    void GoHome();

    void ReadControls();
    void ShowProject();
    void ShowTree();
    void ShowUserFiles();
    void ShowFile();

    Navigator& Nav;
    const MakeCoordinateSource MakeSource;
    std::unique_ptr<Ui::frmInput> Form;
    QLabel* StatusPanel = nullptr;
    TypePictures imlInput{"frmInput-Form_Load"};
    InputScreen State;
    std::optional<std::string> Picked;  // by the folder picker that is open
    std::vector<TreeNode> ShownNodes;
    bool Running = false;
};

}  // namespace Dorvane
