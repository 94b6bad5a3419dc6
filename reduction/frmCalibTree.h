// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <memory>
#include <string>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"
#include "reduction/CalibTree.h"

class QLabel;

namespace Dorvane {

namespace Ui {
class frmCalibTree;
}

/// The screen that shows and extends the calibration folders.
class frmCalibTree : public Screen {
    Q_OBJECT

  public:
    explicit frmCalibTree(Navigator& navigator);
    ~frmCalibTree() override;

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    void LoadForm();
    void LoadPictures();
    void ShowNodes();
    void ShowFiles();
    void trvDirectory_NodeClick(const std::string& key);
    void lsvFiles_ItemClick();
    void cmdAdd_Click();
    void cmdDelete_Click();
    void GoHome(const char* event);
    void TakeAnswer(const CalibrationAnswer& answer);

    Navigator& Nav;
    std::unique_ptr<Ui::frmCalibTree> Form;
    CalibTree Tree;
    QIcon FolderPicture;
    QIcon FilePicture;
    QLabel* FilesPanel = nullptr;
};

}  // namespace Dorvane
