// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frmAbout.h"

#include "core/About.h"
#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmAbout.h"

namespace Dorvane {

frmAbout::frmAbout() : Form(std::make_unique<Ui::frmAbout>()) {
    Form->setupUi(this);
    QFont large = Form->lblProduct->font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    Form->lblProduct->setFont(large);
    Form->lblVersion->setText(ToScreen("Version " + ProgramVersion()));
    Form->lblDescription->setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    ReturnsBy(Form->cmdOK);
    Guarded("frmAbout-LoadForm",
            [&](Guard&) { Form->imgLogo->setPixmap(LoadPicture("dorvane.svg").pixmap(64)); });
    connect(Form->cmdOK, &QPushButton::clicked, this, [this] { Unload(); });
    connect(Form->cmdSysInfo, &QPushButton::clicked, this,
            [] { Guarded("frmAbout-cmdSysInfo_Click", [](Guard&) { StartSystemInformation(); }); });
}

frmAbout::~frmAbout() = default;

}  // namespace Dorvane
