// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/frmAddCalib.h"

#include "core/ReportError.h"
#include "core/widgets/EmptyNote.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmAddCalib.h"

namespace Dorvane {

namespace {

void Fill(QListWidget& list, const List1<std::string>& names) {
    list.clear();
    for (const std::string& name : names)
        list.addItem(ToScreen(name));
}

std::string Selected(const QListWidget& list) {
    const QList<QListWidgetItem*> items = list.selectedItems();
    return items.isEmpty() ? "" : FromScreen(items.first()->text());
}

// A choice by the keyboard is a click as well as one by the mouse, which also counts on what is selected.
template <class Click>
void OnChoice(QListWidget& list, Click click) {
    QObject::connect(&list, &QListWidget::itemSelectionChanged, &list, click);
    QObject::connect(&list, &QListWidget::itemClicked, &list, click);
}

}  // namespace

frmAddCalib::frmAddCalib() : Form(std::make_unique<Ui::frmAddCalib>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdCancel);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 64, metrics.lineSpacing() * 20);
    Guarded("frmAddCalib-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "ok.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
        AddEmptyNote(*Form->lstType);
        AddEmptyNote(*Form->lstEpoch);
        OpenCalibChoice(Choice);
    });
    OnChoice(*Form->lstType, [this] { lstType_Click(); });
    OnChoice(*Form->lstEpoch, [this] { lstEpoch_Click(); });
    connect(Form->lstEpoch, &QListWidget::itemDoubleClicked, Form->cmdOK, &QPushButton::click);
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmAddCalib::cmdOK_Click);
    connect(Form->cmdCancel, &QPushButton::clicked, this, &frmAddCalib::cmdCancel_Click);
}

frmAddCalib::~frmAddCalib() = default;

void frmAddCalib::SetDirectory(const std::string& directory) {
    Guarded("frmAddCalib-lblDirectory_Change", [&](Guard&) {
        SetCalibDirectory(Choice, directory);
        Form->lblDirectory->setText(ToScreen(directory));
        const QSignalBlocker quiet(Form->lstType);
        Fill(*Form->lstType, Choice.Types);
        if (!Choice.Type.empty())
            Form->lstType->setCurrentItem(
                Form->lstType->findItems(ToScreen(Choice.Type), Qt::MatchExactly).value(0));
        ShowEmptyNote(*Form->lstType, WhyNoTypes(Choice));
        ShowType();
    });
}

// What hangs on the chosen type.
void frmAddCalib::ShowType() {
    const QSignalBlocker quiet(Form->lstEpoch);
    Form->lblType->setText(ToScreen(Choice.Type));
    Fill(*Form->lstEpoch, Choice.Epochs);
    ShowEmptyNote(*Form->lstEpoch, WhyNoEpochs(Choice));
    Form->lblEpoch->setText(ToScreen(Choice.Epoch));
}

void frmAddCalib::lstType_Click() {
    Guarded("frmAddCalib-lstType_Click", [&](Guard&) {
        ChooseCalibType(Choice, Selected(*Form->lstType));
        ShowType();
    });
}

void frmAddCalib::lstEpoch_Click() {
    Guarded("frmAddCalib-lstEpoch_Click", [&](Guard&) {
        ChooseCalibEpoch(Choice, Selected(*Form->lstEpoch));
        Form->lblEpoch->setText(ToScreen(Choice.Epoch));
    });
}

void frmAddCalib::cmdOK_Click() {
    Guarded("frmAddCalib-cmdOK_Click", [&](Guard&) {
        if (ConfirmCalibration(Choice, Chosen))
            Unload();
    });
}

void frmAddCalib::cmdCancel_Click() {
    Guarded("frmAddCalib-cmdCancel_Click", [&](Guard&) {
        Chosen = {};
        Unload();
    });
}

}  // namespace Dorvane
