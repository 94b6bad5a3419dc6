// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/frmDbRetrieve.h"

#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/StatusPanels.h"
#include "database/LocationTree.h"
#include "ui_frmDbRetrieve.h"

namespace Dorvane {

namespace {

constexpr QSize GearsSize(96, 60);

void KeepPlaceWhenHidden(QWidget& control) {
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
    control.hide();
}

}  // namespace

frmDbRetrieve::frmDbRetrieve(Navigator& navigator)
    : Nav(navigator), Form(std::make_unique<Ui::frmDbRetrieve>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdHome);
    StatusPanel = AddPanel(*Form->sbrRetrieve, QStringLiteral("sbrRetrievePanel1"), 1);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 100, metrics.lineSpacing() * 40);
    ConnectChoices();
    ConnectCommands();
    ConnectMenus();
    LoadForm();
}

frmDbRetrieve::~frmDbRetrieve() = default;

void frmDbRetrieve::LoadForm() {
    LoadPictures();
    Form->aniReduce->setMinimumSize(GearsSize);
    KeepPlaceWhenHidden(*Form->aniReduce);
    KeepPlaceWhenHidden(*Form->lblOutputFileTitle);
    KeepPlaceWhenHidden(*Form->lblOutputFile);
    FillLocationTree(*Form->trvDirectory, "frmDbRetrieve-LoadForm");
    Form->mnuPrinter->setEnabled(Global().PrinterPresent);
    ShowOutput();
    Form->trvDirectory->setFocus();
}

void frmDbRetrieve::LoadPictures() {
    Guarded("frmDbRetrieve-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdRetrieve, "retrieve.svg");
        SetOptionalPicture(*Form->cmdEdit, "edit.svg");
        SetOptionalPicture(*Form->cmdPrint, "printer.svg");
        SetOptionalPicture(*Form->cmdCopy, "copy.svg");
        SetOptionalPicture(*Form->cmdBack, "back.svg");
        SetOptionalPicture(*Form->cmdHome, "home.svg");
    });
}

void frmDbRetrieve::ConnectChoices() {
    connect(Form->trvDirectory, &DirectoryTree::NodeClicked, this, &frmDbRetrieve::trvDirectory_NodeClick);
    connect(Form->trvDirectory, &DirectoryTree::Confirmed, Form->cmdRetrieve, &QPushButton::click);
    for (const QRadioButton* option : findChildren<QRadioButton*>())
        connect(option, &QRadioButton::clicked, this, &frmDbRetrieve::ChoiceChanged);
}

void frmDbRetrieve::ConnectCommands() {
    connect(Form->cmdRetrieve, &QPushButton::clicked, this, &frmDbRetrieve::cmdRetrieve_Click);
    connect(Form->cmdEdit, &QPushButton::clicked, this, [this] { ClickEditOutput(State); });
    connect(Form->cmdPrint, &QPushButton::clicked, this, [this] { ClickPrintOutput(State); });
    connect(Form->cmdCopy, &QPushButton::clicked, this, [this] { ClickCopyOutput(State, View()); });
    connect(Form->cmdBack, &QPushButton::clicked, this,
            [this] { LeaveTo("frmDbRetrieve-cmdBack_Click", [this] { Nav.OpenDatabase(); }); });
    connect(Form->cmdHome, &QPushButton::clicked, this,
            [this] { LeaveTo("frmDbRetrieve-cmdHome_Click", [this] { Nav.ShowHome(); }); });
}

void frmDbRetrieve::ConnectMenus() {
    connect(Form->mnuGoHome, &QAction::triggered, this,
            [this] { LeaveTo("frmDbRetrieve-mnuGoHome_Click", [this] { Nav.ShowHome(); }); });
    connect(Form->mnuPrinter, &QAction::triggered, this,
            [] { Guarded("frmDbRetrieve-mnuPrinter_Click", [](Guard&) { PrinterSetup(); }); });
}

void frmDbRetrieve::LeaveTo(const char* event, const std::function<void()>& where) {
    Guarded(event, [&](Guard&) {
        Unload();
        where();
    });
}

// The location that stands there already is no change.
void frmDbRetrieve::trvDirectory_NodeClick(const std::string& key) {
    if (key == State.lblDirectory)
        return;
    State.lblDirectory = key;
    Form->lblDirectory->setText(ToScreen(key));
    ChoiceChanged();
}

void frmDbRetrieve::ChoiceChanged() {
    HideOutput(State);
    StatusPanel->clear();
    ShowOutput();
}

void frmDbRetrieve::ReadOptions() {
    State.optBenchmark = Form->optBenchmark->isChecked();
    State.optMonument = Form->optMonument->isChecked();
    State.optIdeals = Form->optIdeals->isChecked();
    State.opt3dim = Form->opt3dim->isChecked();
    State.optMagnets = Form->optMagnets->isChecked();
    State.optTransport = Form->optTransport->isChecked();
    State.optAll = Form->optAll->isChecked();
    State.optCurrent = Form->optCurrent->isChecked();
    State.optMeters = Form->optMeters->isChecked();
    State.optInches = Form->optInches->isChecked();
    State.optFeet = Form->optFeet->isChecked();
}

void frmDbRetrieve::cmdRetrieve_Click() {
    ReadOptions();
    StatusPanel->clear();
    ClickRetrieve(State, View());
    ShowOutput();
}

RetrieveView frmDbRetrieve::View() {
    RetrieveView view;
    view.WaitCursor = [this](bool on) { ShowWaiting(on); };
    view.Animation = [this](bool on) { ShowAnimation(on); };
    view.ShowStatus = [this](const std::string& text) { StatusPanel->setText(ToScreen(text)); };
    view.CopyMeter = [this] { return Nav.CopyMeter("Copying File ..."); };
    return view;
}

void frmDbRetrieve::ShowWaiting(bool on) {
    if (on)
        Waiting.emplace();
    else
        Waiting.reset();
}

// It is decoration: one that cannot be played is reported, and the work goes on.
void frmDbRetrieve::ShowAnimation(bool on) {
    Guarded("frmDbRetrieve-cmdRetrieve_Click", [&](Guard&) {
        Form->aniReduce->setVisible(on);
        if (on) {
            Form->aniReduce->Open("gears.avi");
            Form->aniReduce->repaint();
        } else {
            Form->aniReduce->Stop();
        }
    });
}

void frmDbRetrieve::ShowOutput() {
    Form->lblOutputFile->setText(ToScreen(State.lblOutputFile));
    Form->lblOutputFile->setVisible(State.OutputVisible);
    Form->lblOutputFileTitle->setVisible(State.OutputVisible);
    for (QWidget* control : {static_cast<QWidget*>(Form->fraOutput), static_cast<QWidget*>(Form->lblEdit),
                             static_cast<QWidget*>(Form->cmdEdit), static_cast<QWidget*>(Form->lblCopy),
                             static_cast<QWidget*>(Form->cmdCopy)})
        control->setEnabled(State.OutputEnabled);
    Form->lblPrint->setEnabled(State.PrintEnabled);
    Form->cmdPrint->setEnabled(State.PrintEnabled);
}

}  // namespace Dorvane
