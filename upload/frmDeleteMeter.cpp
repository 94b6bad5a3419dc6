// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/frmDeleteMeter.h"

#include "core/ReportError.h"
#include "ui_frmDeleteMeter.h"

namespace Dorvane {

frmDeleteMeter::frmDeleteMeter() : Form(std::make_unique<Ui::frmDeleteMeter>()) {
    Form->setupUi(this);
}

frmDeleteMeter::~frmDeleteMeter() = default;

void frmDeleteMeter::LoadForm() {
    // A picture that cannot be shown has been told of, and does not stop the work.
    Guarded("frmDeleteMeter-LoadForm", [&](Guard&) { Form->aniDeleteMeter->Open("filedelete.avi"); });
    Init();
}

void frmDeleteMeter::Init() {
    Guarded("frmDeleteMeter-Init", [&](Guard&) {
        setWindowTitle(QStringLiteral("Deleting 999 Files"));
        Form->lblDelete->setText(QStringLiteral(" "));
        Place(*Form->aniDeleteMeter, {{{Form->lblDeleteTitle}, {Form->lblDelete}}}, Form->prbDeleteMeter);
    });
}

MeterWindow::MeterControls frmDeleteMeter::Controls() const {
    return {Form->aniDeleteMeter, Form->lblDelete, nullptr, Form->prbDeleteMeter};
}

}  // namespace Dorvane
