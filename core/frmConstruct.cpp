// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frmConstruct.h"

#include <QStyle>

#include "core/widgets/ScreenText.h"
#include "ui_frmConstruct.h"

namespace Dorvane {

frmConstruct::frmConstruct(const std::string& title, const std::string& text)
    : Form(std::make_unique<Ui::frmConstruct>()) {
    Form->setupUi(this);
    setWindowTitle(ToScreen(title));
    Form->lblConstruct->setText(ToScreen(text));
    Form->lblConstruct->setMinimumWidth(fontMetrics().averageCharWidth() * 50);
    Form->imgConstruct->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxInformation).pixmap(32));
    ReturnsBy(Form->cmdHome);
    connect(Form->cmdHome, &QPushButton::clicked, this, [this] { Unload(); });
}

frmConstruct::~frmConstruct() = default;

}  // namespace Dorvane
