// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/Navigator.h"
#include "core/widgets/Screen.h"
#include "upload/Download.h"

namespace Dorvane {

namespace Ui {
class frmDownload;
}

/// The screen on which files for a field device are chosen. Sending them is a feature of the future.
class frmDownload : public Screen {
    Q_OBJECT

  public:
    explicit frmDownload(Navigator& navigator);
    ~frmDownload() override;

  private:
    void LoadForm();
    void On(const char* event, const std::function<void()>& body);
    void GoHome();
    void ChooseOption();
    void ShowFiles();

    Navigator& Nav;
    std::unique_ptr<Ui::frmDownload> Form;
    DownloadState State;
};

}  // namespace Dorvane
