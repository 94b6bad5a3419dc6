// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/frmMoveMeter.h"

#include "core/ReportError.h"
#include "ui_frmMoveMeter.h"
#include "upload/UploadState.h"

namespace Dorvane {

frmMoveMeter::frmMoveMeter(const std::string& dataTypeName)
    : DataTypeName(dataTypeName), Form(std::make_unique<Ui::frmMoveMeter>()) {
    Form->setupUi(this);
}

frmMoveMeter::~frmMoveMeter() = default;

void frmMoveMeter::LoadForm() {
    // A picture that cannot be shown has been told of, and does not stop the work.
    Guarded("frmMoveMeter-LoadForm",
            [&](Guard&) { Form->aniMoveMeter->Open(CopyAnimation(DataTypeName), ShippedCopyAnimation); });
    Init();
}

void frmMoveMeter::Init() {
    Guarded("frmMoveMeter-Init", [&](Guard&) {
        setWindowTitle(QString());
        Form->lblFrom->setText(QStringLiteral(" "));
        Form->lblTo->setText(QStringLiteral(" "));
        Place(*Form->aniMoveMeter,
              {{{Form->lblFromTitle}, {Form->lblFrom}}, {{Form->lblToTitle}, {Form->lblTo}}},
              Form->pbrMoveMeter);
    });
}

MeterWindow::MeterControls frmMoveMeter::Controls() const {
    return {Form->aniMoveMeter, Form->lblFrom, Form->lblTo, Form->pbrMoveMeter};
}

}  // namespace Dorvane
