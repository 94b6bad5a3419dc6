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

frmUtilities::frmUtilities(const std::string& profile, const std::vector<OwnUtility>& own)
    : Form(std::make_unique<Ui::frmUtilities>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdClose);
    Guarded("frmUtilities-LoadForm", [&](Guard&) { SetOptionalPicture(*Form->cmdClose, "exit.svg"); });
    connect(Form->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
    const std::vector<Utility> utilities = ReadUtilities(profile);
    for (const Utility& utility : utilities)
        AddButton(utility.Title, utility.Tip, [utility] { StartUtility(utility); });
    for (const OwnUtility& utility : own)
        AddButton(utility.Title, utility.Tip, utility.Open);
    Form->lblNone->setVisible(utilities.empty());
    Form->lblNone->setText(ToScreen("No utilities are listed in " + profile + "."));
    setMinimumWidth(fontMetrics().averageCharWidth() * 50);
}

frmUtilities::~frmUtilities() = default;

void frmUtilities::AddButton(const std::string& title, const std::string& tip,
                             const std::function<void()>& open) {
    auto* button = new QPushButton(ToCaption(title), this);
    button->setObjectName(QStringLiteral("cmdUtility%1").arg(Buttons + 1));
    button->setToolTip(ToScreen(tip.empty() ? title : tip).toHtmlEscaped());
    button->setAutoDefault(false);
    Form->utilityLayout->addWidget(button, Buttons / ButtonsPerRow, Buttons % ButtonsPerRow);
    connect(button, &QPushButton::clicked, this,
            [open] { Guarded("frmUtilities-cmdUtility_Click", [&](Guard&) { open(); }); });
    if (Buttons++ == 0)
        button->setFocus();
}

}  // namespace Dorvane
