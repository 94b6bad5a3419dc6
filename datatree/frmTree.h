// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <map>
#include <memory>
#include <string>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"
#include "datatree/TreeActions.h"
#include "datatree/TreeSelection.h"
#include "datatree/basRead.h"
#include "datatree/basTree.h"

class QAction;
class QLabel;
class QPushButton;

namespace Dorvane {

namespace Ui {
class frmTree;
}

/// The browser of the data tree and the folder picker of the whole program. What it is used for is told by
/// its window title (see TreeMode.h), which the caller sets before the screen is shown. The chosen folder
/// goes to the caller through the navigator.
class frmTree : public Screen {
    Q_OBJECT

  public:
    frmTree(Navigator& navigator, SurveyServices services);
    ~frmTree() override;

    /// Sets lblTempDirectory: goes to that folder, or to the nearest one above it that the tree holds.
    void SetTempDirectory(const std::string& directory);

  protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    void LoadPictures();
    void LoadForm();
    void ConnectButtons();
    void ConnectMenus();
    void Activate();
    void ReadStructuresOnce();

    void trvDirectory_NodeClick(const std::string& key);
    void lsvFiles_ItemClick();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdHome_Click();
    void mnuGoHome_Click();
    void mnuRefresh_Click();
    void cmdAdd_Click();
    void SurveyAnswered(const SurveyAnswer& answer);
    SurveyReport AddAndShow(const SurveyAnswer& answer);

    std::string Title() const;
    void GoTo(const std::string& directory);
    void RebuildTree();
    void ChooseFile(const std::string& name);
    void ShowSelection();
    void ShowFiles();
    void ShowFileButtons();
    void ShowStatus();
    void OnClick(QPushButton* button, const char* event, void (frmTree::*click)());
    void OpenConstruct(QPushButton* button, const char* title, const char* text);

    Navigator& Nav;
    const SurveyServices Services;
    std::unique_ptr<Ui::frmTree> Form;
    std::map<std::string, QIcon> imlTree;
    QLabel* FolderPanel = nullptr;
    TreeModel Tree;
    TreeSelection Selection;

    // What may be added, read when folders are to be added, so that a damaged file is told before.
    bool StructuresRead = false;
    List1<ChoiceRecord> Choices;
    List1<StructureRecord> Structures;
};

}  // namespace Dorvane
