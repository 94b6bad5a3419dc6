// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/frmCopyMeter.h"

#include "core/ReportError.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmCopyMeter.h"
#include "upload/UploadState.h"

namespace Dorvane {

frmCopyMeter::frmCopyMeter(const std::string& dataTypeName, const std::string& title)
    : DataTypeName(dataTypeName), Title(title), Form(std::make_unique<Ui::frmCopyMeter>()) {
    Form->setupUi(this);
}

frmCopyMeter::~frmCopyMeter() = default;

void frmCopyMeter::Open(int fileCount) {
    LoadForm();
    if (!Title.empty())
        setWindowTitle(ToScreen(Title));
    OpenLoaded(fileCount);
}

void frmCopyMeter::LoadForm() {
    // A picture that cannot be shown has been told of, and does not stop the work.
    Guarded("frmCopyMeter-LoadForm",
            [&](Guard&) { Form->aniCopyMeter->Open(CopyAnimation(DataTypeName), ShippedCopyAnimation); });
    Init();
}

void frmCopyMeter::Init() {
    Guarded("frmCopyMeter-Init", [&](Guard&) {
        setWindowTitle(QStringLiteral("Uploading File"));
        Form->lblFrom->setText(QStringLiteral(" "));
        Form->lblTo->setText(QStringLiteral(" "));
        Place(*Form->aniCopyMeter,
              {{{Form->lblFromTitle}, {Form->lblFrom}}, {{Form->lblToTitle}, {Form->lblTo}}},
              Form->prbCopyMeter);
    });
}

MeterWindow::MeterControls frmCopyMeter::Controls() const {
    return {Form->aniCopyMeter, Form->lblFrom, Form->lblTo, Form->prbCopyMeter};
}

}  // namespace Dorvane
