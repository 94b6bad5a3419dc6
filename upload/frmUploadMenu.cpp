// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/frmUploadMenu.h"

#include <QPointer>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "core/Globals.h"
#include "core/PathType.h"
#include "core/basGeneral.h"
#include "core/widgets/HomeLook.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/StatusPanels.h"
#include "core/widgets/WaitCursor.h"
#include "ui_frmUploadMenu.h"
#include "upload/FolderChoice.h"
#include "upload/UploadRun.h"

namespace Dorvane {

namespace {

void ShowPath(QLabel& label, const std::string& path, bool missing) {
    const QColor brightRed(255, 0, 0);
    QPalette palette;
    if (missing)
        palette.setColor(QPalette::WindowText, brightRed);
    label.setPalette(palette);
    label.setText(ToScreen(path));
}

}  // namespace

frmUploadMenu::frmUploadMenu(Navigator& navigator)
    : Nav(navigator), Form(std::make_unique<Ui::frmUploadMenu>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdHome);
    Status = AddPanel(*Form->sbrUpload, QStringLiteral("lblStatus"), 1);
    QLabel* const pathType = AddPanel(*Form->sbrUpload, QStringLiteral("lblPathType"));
    PathTypes = new PathTypeMenu("frmUploadMenu", Form->mnuTarvex, Form->mnuManual, pathType,
                                 [this] { Nav.ShowPathType(); });
    ConnectCommands();
    ConnectMenus();
    LoadForm();
}

frmUploadMenu::~frmUploadMenu() = default;

void frmUploadMenu::LoadForm() {
    Guarded("frmUploadMenu-LoadForm", [&](Guard&) { DressLikeHome(*Form->cmdUpload, 3); });
    Guarded("frmUploadMenu-LoadForm", [&](Guard&) { DressLikeHome(*Form->cmdReduce, 4); });
    Guarded("frmUploadMenu-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdFromBrowse, "browse.svg");
        SetOptionalPicture(*Form->cmdToBrowse, "browse.svg");
        SetOptionalPicture(*Form->cmdEdit, "edit.svg");
        SetOptionalPicture(*Form->cmdPrint, "printer.svg");
        SetOptionalPicture(*Form->cmdComPort, "comport.svg");
        SetOptionalPicture(*Form->cmdHome, "home.svg");
    });
    State.PrintUpload = Form->chkPrintUpload->isChecked();
    LoadUploadState(State);
    Form->chkPrintUpload->setChecked(State.PrintUpload);
    ShowState();
    Form->mnuPrinter->setEnabled(Global().PrinterPresent);
    Form->cmdPrint->setEnabled(Global().PrinterPresent);
    Form->lstFileNames->setFocus();
}

// While a run is under way its yields let events in; none of them may start anything else here.
void frmUploadMenu::On(const char* event, const Body& body) {
    if (!Running)
        Guarded(std::string("frmUploadMenu-") + event, body);
}

void frmUploadMenu::ConnectCommands() {
    connect(Form->lstFileNames, &QListWidget::itemSelectionChanged, this,
            [this] { On("lstFileNames_Click", [&](Guard&) { ShowChoice(); }); });
    connect(Form->chkPrintUpload, &QCheckBox::toggled, this, [this](bool on) { State.PrintUpload = on; });
    connect(Form->cmdUpload, &QPushButton::clicked, this, [this] {
        On("cmdUpload_Click", [&](Guard&) {
            const WaitCursor wait;
            RunUnder(Nav.MoveMeter(), "Uploading file(s) ...",
                     [&](FileMeter& meter) { UploadSelection(State, meter); });
        });
    });
    connect(Form->cmdDelete999, &QPushButton::clicked, this, [this] {
        On("cmdDelete999_Click", [&](Guard&) {
            RunUnder(Nav.DeleteMeter(), "Deleting *.999 file(s) ...",
                     [&](FileMeter& meter) { DeleteUploaded(State, meter); });
        });
    });
    connect(Form->cmdEdit, &QPushButton::clicked, this,
            [this] { On("cmdEdit_Click", [&](Guard&) { EditSelection(State); }); });
    connect(Form->cmdFromBrowse, &QPushButton::clicked, this,
            [this] { On("cmdFromBrowse_Click", [&](Guard&) { BrowseSource(); }); });
    connect(Form->cmdToBrowse, &QPushButton::clicked, this,
            [this] { On("cmdToBrowse_Click", [&](Guard&) { BrowseTarget(); }); });
    connect(Form->cmdComPort, &QPushButton::clicked, this, [this] {
        On("cmdComPort_Click", [&](Guard&) {
            Nav.OpenConstruct("Comport Upload",
                              "Option Under Construction: In the future this option will allow the uploading "
                              "of data through the comport.");
        });
    });
    connect(Form->cmdReduce, &QPushButton::clicked, this,
            [this] { On("cmdReduce_Click", [&](Guard&) { GoToReduction(); }); });
    connect(Form->cmdHome, &QPushButton::clicked, this,
            [this] { On("cmdHome_Click", [&](Guard&) { GoHome(); }); });
}

void frmUploadMenu::ConnectMenus() {
    connect(Form->mnuGoHome, &QAction::triggered, this,
            [this] { On("mnuGoHome_Click", [&](Guard&) { GoHome(); }); });
    connect(Form->mnuPrinter, &QAction::triggered, this,
            [this] { On("mnuPrinter_Click", [&](Guard&) { PrinterSetup(); }); });
}

void frmUploadMenu::SetToPath(const std::string& folder) {
    State.ToPath = folder;
    Form->lblToPath->setText(ToScreen(folder));
}

std::string frmUploadMenu::DataTypeName() const {
    return State.DataTypeName;
}

void frmUploadMenu::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    PathTypes->Show();
}

void frmUploadMenu::RunUnder(std::unique_ptr<FileMeter> meter, const char* status, const Run& run) {
    ShowStatus(status);
    Form->lblOutcome->clear();
    {
        const QScopedValueRollback<bool> running(Running, true);
        run(*meter);
    }
    ShowState();
}

void frmUploadMenu::BrowseSource() {
    if (BrowseUploadSource(State))
        ShowAnew();
}

void frmUploadMenu::BrowseTarget() {
    if (Global().Path_type == 1) {
        PickTarget();
        return;
    }
    if (BrowseUploadTarget(State))
        ShowAnew();
}

void frmUploadMenu::PickTarget() {
    hide();
    const QPointer<frmUploadMenu> self(this);
    Nav.OpenTree("Upload Data To", State.ToPath, [self] {
        if (!self.isNull())
            self->On("cmdToBrowse_Click", [&](Guard&) { self->PickedTarget(); });
    });
}

void frmUploadMenu::PickedTarget() {
    State.ToPathMissing = false;
    ShowAnew();
}

void frmUploadMenu::ShowAnew() {
    const WaitCursor wait;
    TotalUpdate(State);
    ShowState();
}

void frmUploadMenu::GoToReduction() {
    SaveUploadState(State);
    if (Global().Path_type == 1) {
        const std::string last = LastTreePath();
        Unload();
        Nav.OpenTree("Data Reduction Directory Selection", last);
        return;
    }
    std::string folder;
    if (!AskReductionFolder(folder))
        return;
    Unload();
    Nav.OpenReduction(folder);
}

void frmUploadMenu::GoHome() {
    SaveUploadState(State);
    Unload();
    Nav.ShowHome();
}

void frmUploadMenu::ShowState() {
    ShowPath(*Form->lblFromPath, State.FromPath, State.FromPathMissing);
    ShowPath(*Form->lblToPath, State.ToPath, State.ToPathMissing);
    Form->lblDataType->setText(ToScreen(State.DataTypeName));
    ShowNames();
    ShowWasteBin();
    Form->lblOutcome->setText(ToScreen(State.Outcome.Long));
    Form->lblOutcome->setVisible(!State.Outcome.Long.empty());
    ShowStatus(UploadStatus(State));
}

void frmUploadMenu::ShowNames() {
    QListWidget& list = *Form->lstFileNames;
    const QSignalBlocker quiet(list);
    if (!(ShownNames == State.FileNames)) {
        QStringList names;
        for (const std::string& name : State.FileNames)
            names.append(ToScreen(name));
        list.clear();
        list.addItems(names);
        ShownNames = State.FileNames;
    }
    int row = -1;
    for (int i = 1; i <= ShownNames.Count() && row < 0; ++i)
        if (ShownNames[i] == State.FileSelection)
            row = i - 1;
    list.setCurrentRow(row);
    Form->lblFileSelection->setText(ToScreen(State.FileSelection));
}

void frmUploadMenu::ShowChoice() {
    const QModelIndexList chosen = Form->lstFileNames->selectionModel()->selectedIndexes();
    if (chosen.isEmpty())
        return;
    State.FileSelection = ShownNames[chosen.first().row() + 1];
    Form->lblFileSelection->setText(ToScreen(State.FileSelection));
}

void frmUploadMenu::ShowWasteBin() {
    if (State.WasteBin == ShownBin)
        return;
    ShownBin = State.WasteBin;
    Guarded("frmUploadMenu-Update",
            [&](Guard&) { Form->cmdDelete999->setIcon(LoadPicture(State.WasteBin)); });
}

void frmUploadMenu::ShowStatus(const std::string& text) {
    Status->setText(ToScreen(text));
}

}  // namespace Dorvane
