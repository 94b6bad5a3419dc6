// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frmSysOption.h"

#include "core/PathType.h"
#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "ui_frmSysOption.h"

namespace Dorvane {

frmSysOption::frmSysOption(Navigator& navigator)
    : Nav(navigator), Form(std::make_unique<Ui::frmSysOption>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdHome);
    Guarded("frmSysOption-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdData, "folders.svg");
        SetOptionalPicture(*Form->cmdCalib, "tracker.svg");
        SetOptionalPicture(*Form->cmdHome, "home.svg");
    });
    connect(Form->cmdData, &QPushButton::clicked, this, [this] {
        Guarded("frmSysOption-cmdData_Click", [&](Guard&) {
            Unload();
            Nav.OpenTree("System Configuration ...", LastTreePath());
        });
    });
    connect(Form->cmdCalib, &QPushButton::clicked, this, [this] {
        Guarded("frmSysOption-cmdCalib_Click", [&](Guard&) {
            Unload();
            Nav.OpenCalibration();
        });
    });
    connect(Form->cmdHome, &QPushButton::clicked, this, [this] {
        Guarded("frmSysOption-cmdHome_Click", [&](Guard&) {
            Unload();
            Nav.ShowHome();
        });
    });
}

frmSysOption::~frmSysOption() = default;

}  // namespace Dorvane
