// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "adjustment/basOpenInput.h"
#include "core/widgets/Screen.h"

namespace Dorvane {

namespace Ui {
class frmOpenInput;
}

/// The browser of an input file's versions: what each leaves out of the master. It changes no file.
class frmOpenInput : public ScreenDialog {
    Q_OBJECT

  public:
    frmOpenInput();
    ~frmOpenInput() override;

    /// Sets lblVersion, the version to open on.
    void SetVersion(const std::string& version);
    /// Sets lblDirectory, the whole path of the input file, which fills the screen. The version is set
    /// before, and the screen is shown behind it.
    void SetDirectory(const std::string& inputPath);

  private:
    void cmbVersion_Click(int index);
    void ShowVersionFile();
    void ClearVersionLists();

    std::unique_ptr<Ui::frmOpenInput> Form;
    OpenInputState State;
};

}  // namespace Dorvane
