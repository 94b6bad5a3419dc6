// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/frmObsWeights.h"

#include <QLineEdit>
#include <QScreen>
#include <QShowEvent>
#include <QTabBar>

#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/WaitCursor.h"
#include "input/TypePictures.h"
#include "input/WeightsPage.h"
#include "ui_frmObsWeights.h"

namespace Dorvane {

frmObsWeights::frmObsWeights() : Form(std::make_unique<Ui::frmObsWeights>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdCancel);
    LoadForm();
    connect(Form->sstabWeights, &QTabWidget::currentChanged, this, [this] { EnterTab(); });
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmObsWeights::cmdOK_Click);
    connect(Form->cmdCancel, &QPushButton::clicked, this,
            [this] { Guarded("frmObsWeights-cmdCancel_Click", [&](Guard&) { Unload(); }); });
}

frmObsWeights::~frmObsWeights() = default;

void frmObsWeights::LoadForm() {
    const WaitCursor wait;
    LoadPictures();
    Tabs = OpenWeightsDialog();
    TypePictures pictures("frmObsWeights-Form_Load");
    for (WeightsTab& tab : Tabs) {
        auto* page = new WeightsPage(tab);
        const int index =
            Form->sstabWeights->addTab(page, pictures.Of(tab.Entry.Icon), ToCaption(tab.Entry.Name));
        Form->sstabWeights->setTabToolTip(index, ToTip(tab.Entry.Name));
        setTabOrder(page->LastField(), Form->cmdOK);
    }
    setTabOrder(Form->cmdOK, Form->cmdCancel);
    FitTabs();
}

void frmObsWeights::LoadPictures() {
    Guarded("frmObsWeights-Form_Load", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "ok.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
    });
}

// The dialog and its buttons are as wide as the tabs need, as far as the desk has room for them.
void frmObsWeights::FitTabs() {
    const int needed = Form->sstabWeights->tabBar()->sizeHint().width() + fontMetrics().averageCharWidth();
    const int room = screen()->availableGeometry().width() * 9 / 10;
    Form->sstabWeights->setMinimumWidth(std::min(needed, room));
}

void frmObsWeights::showEvent(QShowEvent* event) {
    ScreenDialog::showEvent(event);
    if (!event->spontaneous())
        EnterTab();
}

// The keyboard goes to the first field, unless it is on its way along the tabs.
void frmObsWeights::EnterTab() {
    const auto* page = qobject_cast<WeightsPage*>(Form->sstabWeights->currentWidget());
    QLineEdit* const field = page == nullptr ? nullptr : page->FirstField();
    if (field == nullptr || Form->sstabWeights->tabBar()->hasFocus())
        return;
    field->setFocus();
    field->selectAll();
}

void frmObsWeights::GoToTheFirstDoubt() {
    const DoubtfulWeight first = DoubtfulWeights(Tabs).front();
    Form->sstabWeights->setCurrentIndex(first.Tab - 1);
    if (auto* page = qobject_cast<WeightsPage*>(Form->sstabWeights->currentWidget()))
        page->GoTo(first.Field);
}

void frmObsWeights::cmdOK_Click() {
    Guarded("frmObsWeights-cmdOK_Click", [&](Guard&) {
        if (!MaySave(Tabs)) {
            GoToTheFirstDoubt();
            return;
        }
        SaveWeights(Tabs);
        IsSaved = true;
        Unload();
    });
}

}  // namespace Dorvane
