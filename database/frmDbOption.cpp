// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/frmDbOption.h"

#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "ui_frmDbOption.h"

namespace Dorvane {

frmDbOption::frmDbOption(Navigator& navigator) : Nav(navigator), Form(std::make_unique<Ui::frmDbOption>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdHome);
    LoadForm();
    LeaveBy(Form->cmdRetrieve, [this] { Nav.OpenRetrieval(); });
    LeaveBy(Form->cmdUpdate, [this] { Nav.OpenUpdate(); });
    LeaveBy(Form->cmdHome, [this] { Nav.ShowHome(); });
}

frmDbOption::~frmDbOption() = default;

void frmDbOption::LoadForm() {
    Guarded("frmDbOption-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdRetrieve, "retrieve.svg");
        SetOptionalPicture(*Form->cmdUpdate, "update.svg");
        SetOptionalPicture(*Form->cmdHome, "home.svg");
    });
    setMinimumWidth(fontMetrics().averageCharWidth() * 48);  // the title has room
    Form->cmdRetrieve->setFocus();
}

void frmDbOption::LeaveBy(QPushButton* button, const std::function<void()>& where) {
    const std::string event = "frmDbOption-" + button->objectName().toStdString() + "_Click";
    connect(button, &QPushButton::clicked, this, [this, event, where] {
        Guarded(event, [&](Guard&) {
            Unload();
            where();
        });
    });
}

}  // namespace Dorvane
