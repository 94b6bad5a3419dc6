// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmUtilities.h"

#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmUtilities.h"

namespace Dorvane {

namespace {

constexpr int ButtonsPerRow = 2;

}  // namespace

frmUtilities::frmUtilities(const std::string& profile) : Form(std::make_unique<Ui::frmUtilities>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdClose);
    Guarded("frmUtilities-LoadForm", [&](Guard&) { SetOptionalPicture(*Form->cmdClose, "exit.svg"); });
    connect(Form->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
    const std::vector<Utility> utilities = ReadUtilities(profile);
    for (std::size_t i = 0; i < utilities.size(); ++i)
        AddButton(utilities[i], static_cast<int>(i));
    Form->lblNone->setVisible(utilities.empty());
    Form->lblNone->setText(ToScreen("No utilities are listed in " + profile + "."));
    setMinimumWidth(fontMetrics().averageCharWidth() * 50);
}

frmUtilities::~frmUtilities() = default;

void frmUtilities::AddButton(const Utility& utility, int index) {
    auto* button = new QPushButton(ToCaption(utility.Title), this);
    button->setObjectName(QStringLiteral("cmdUtility%1").arg(index + 1));
    button->setToolTip(ToScreen(utility.Tip.empty() ? utility.Title : utility.Tip).toHtmlEscaped());
    button->setAutoDefault(false);
    Form->utilityLayout->addWidget(button, index / ButtonsPerRow, index % ButtonsPerRow);
    connect(button, &QPushButton::clicked, this,
            [utility] { Guarded("frmUtilities-cmdUtility_Click", [&](Guard&) { StartUtility(utility); }); });
    if (index == 0)
        button->setFocus();
}

}  // namespace Dorvane
