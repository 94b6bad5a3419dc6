// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/frmDbUpdate.h"

#include <QRadioButton>

#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/StatusPanels.h"
#include "core/widgets/WaitCursor.h"
#include "database/BackupRestore.h"
#include "database/LocationTree.h"
#include "ui_frmDbUpdate.h"

namespace Dorvane {

frmDbUpdate::frmDbUpdate(Navigator& navigator) : Nav(navigator), Form(std::make_unique<Ui::frmDbUpdate>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdGoHome);
    StatusPanel = AddPanel(*Form->sbrUpdate, QStringLiteral("sbrUpdatePanel1"), 1);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 100, metrics.lineSpacing() * 32);
    // The longest text has room in the smallest window too, whatever the font.
    StatusPanel->setMinimumWidth(
        metrics.horizontalAdvance(QStringLiteral("32767 points stored in MMMMMMMM, backup kept")));
    ConnectCommands();
    LoadForm();
}

frmDbUpdate::~frmDbUpdate() = default;

void frmDbUpdate::LoadForm() {
    Guarded("frmDbUpdate-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdBrowse, "browse.svg");
        SetOptionalPicture(*Form->cmdUpdate, "update.svg");
        SetOptionalPicture(*Form->cmdRestore, "restore.svg");
        SetOptionalPicture(*Form->cmdGoBack, "back.svg");
        SetOptionalPicture(*Form->cmdGoHome, "home.svg");
    });
    FillLocationTree(*Form->trvDirectory, "frmDbUpdate-LoadForm");
    Form->trvDirectory->setFocus();
}

void frmDbUpdate::ConnectCommands() {
    connect(Form->trvDirectory, &DirectoryTree::NodeClicked, this, &frmDbUpdate::trvDirectory_NodeClick);
    for (const QRadioButton* option : findChildren<QRadioButton*>())
        connect(option, &QRadioButton::toggled, this, [this] { ShowStatus(""); });
    connect(Form->cmdBrowse, &QPushButton::clicked, this, &frmDbUpdate::cmdBrowse_Click);
    connect(Form->cmdUpdate, &QPushButton::clicked, this, &frmDbUpdate::cmdUpdate_Click);
    connect(Form->cmdRestore, &QPushButton::clicked, this, &frmDbUpdate::cmdRestore_Click);
    connect(Form->cmdGoBack, &QPushButton::clicked, this,
            [this] { LeaveTo("frmDbUpdate-cmdGoBack_Click", [this] { Nav.OpenDatabase(); }); });
    connect(Form->cmdGoHome, &QPushButton::clicked, this,
            [this] { LeaveTo("frmDbUpdate-cmdGoHome_Click", [this] { Nav.ShowHome(); }); });
}

void frmDbUpdate::LeaveTo(const char* event, const std::function<void()>& where) {
    Guarded(event, [&](Guard&) {
        Unload();
        where();
    });
}

// What the status bar tells belongs to the choice with which it was made.
void frmDbUpdate::trvDirectory_NodeClick(const std::string& key) {
    if (key == State.lblDirectory)
        return;
    State.lblDirectory = key;
    Form->lblDirectory->setText(ToScreen(key));
    ShowStatus("");
}

void frmDbUpdate::cmdBrowse_Click() {
    const std::string former = State.lblUpDateFile;
    ClickBrowseUpdate(State);
    Form->lblUpDateFile->setText(ToScreen(State.lblUpDateFile));
    if (State.lblUpDateFile != former)
        ShowStatus("");
}

void frmDbUpdate::cmdRestore_Click() {
    const WaitCursor wait;
    ClickRestore(State, View());
}

UpdateView frmDbUpdate::View() {
    return {[this](const std::string& text) { ShowStatus(text); }};
}

void frmDbUpdate::ShowStatus(const std::string& text) {
    StatusPanel->setText(ToScreen(text));
    StatusPanel->repaint();
}

void frmDbUpdate::cmdUpdate_Click() {
    State.optBenchmark = Form->optBenchmark->isChecked();
    State.optMonument = Form->optMonument->isChecked();
    State.optIdeals = Form->optIdeals->isChecked();
    State.opt3dim = Form->opt3dim->isChecked();
    const WaitCursor wait;
    ClickUpdate(State, View());
}

}  // namespace Dorvane
