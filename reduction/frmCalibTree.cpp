// SPDX-License-Identifier: GPL-3.0-or-later
#include "reduction/frmCalibTree.h"

#include <QLabel>
#include <QPointer>
#include <QSettings>

#include "core/Drives.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/StatusPanels.h"
#include "core/widgets/WaitCursor.h"
#include "ui_frmCalibTree.h"

namespace Dorvane {

namespace {

const QString SplitterPlace = QStringLiteral("splitters/frmCalibTree");

}  // namespace

frmCalibTree::frmCalibTree(Navigator& navigator)
    : Nav(navigator), Form(std::make_unique<Ui::frmCalibTree>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdHome);
    FilesPanel = AddPanel(*Form->sbrCalibTree, QStringLiteral("sbrCalibTreePanel1"), 1);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 110, metrics.lineSpacing() * 32);
    Form->splCalibTree->setSizes({metrics.averageCharWidth() * 60, metrics.averageCharWidth() * 50});
    Form->splCalibTree->restoreState(QSettings().value(SplitterPlace).toByteArray());
    LoadForm();
    connect(Form->trvDirectory, &DirectoryTree::NodeClicked, this, &frmCalibTree::trvDirectory_NodeClick);
    connect(Form->lsvFiles, &QListWidget::itemSelectionChanged, this, &frmCalibTree::lsvFiles_ItemClick);
    connect(Form->cmdAdd, &QPushButton::clicked, this, &frmCalibTree::cmdAdd_Click);
    connect(Form->cmdDelete, &QPushButton::clicked, this, &frmCalibTree::cmdDelete_Click);
    connect(Form->cmdHome, &QPushButton::clicked, this, [this] { GoHome("frmCalibTree-cmdHome_Click"); });
    connect(Form->mnuGoHome, &QAction::triggered, this, [this] { GoHome("frmCalibTree-mnuGoHome_Click"); });
    connect(Form->mnuPrinterSetup, &QAction::triggered, this,
            [] { Guarded("frmCalibTree-mnuPrinterSetup_Click", [&](Guard&) { PrinterSetup(); }); });
}

frmCalibTree::~frmCalibTree() = default;

void frmCalibTree::hideEvent(QHideEvent* event) {
    QSettings().setValue(SplitterPlace, Form->splCalibTree->saveState());
    Screen::hideEvent(event);
}

void frmCalibTree::LoadForm() {
    const WaitCursor wait;
    LoadPictures();
    Form->mnuPrinterSetup->setEnabled(Global().PrinterPresent);
    OpenCalibTree(Tree);
    ShowNodes();
    ShowFiles();
    Form->trvDirectory->setFocus();
}

// Builds the tree control anew from the nodes, with what was expanded and chosen.
void frmCalibTree::ShowNodes() {
    const std::vector<std::string> expanded = Form->trvDirectory->ExpandedKeys();
    Form->trvDirectory->Build(Tree.Nodes, FolderPicture);
    Form->trvDirectory->Expand(expanded);
    Form->trvDirectory->Choose(Tree.Directory);
}

// A picture that is missing is told and leaves its place empty.
void frmCalibTree::LoadPictures() {
    Guarded("frmCalibTree-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdAdd, "add.svg");
        SetOptionalPicture(*Form->cmdDelete, "remove.svg");
        SetOptionalPicture(*Form->cmdHome, "home.svg");
    });
    Guarded("frmCalibTree-LoadForm", [&](Guard&) { FolderPicture = LoadPicture("clsfolder.svg"); });
    Guarded("frmCalibTree-LoadForm", [&](Guard&) {
        LoadPicture("opnfolder.svg");
        const std::string open = Drives::HostPath(PictureFile("opnfolder.svg"));
        FolderPicture.addFile(QString::fromStdString(open), {}, QIcon::Normal, QIcon::On);
    });
    Guarded("frmCalibTree-LoadForm", [&](Guard&) { FilePicture = LoadPicture("file_form.svg"); });
}

void frmCalibTree::ShowFiles() {
    const QSignalBlocker quiet(Form->lsvFiles);
    Form->lblDirectory->setText(ToScreen(Tree.Directory));
    Form->lblFile->setText(ToScreen(Tree.File));
    Form->lsvFiles->clear();
    for (const FileEntry& file : Tree.Files)
        Form->lsvFiles->addItem(new QListWidgetItem(FilePicture, ToScreen(file.Name)));
    const int count = Tree.Files.Count();
    FilesPanel->setText(Tree.Directory.empty() ? QStringLiteral("No folder selected")
                        : count == 1           ? QStringLiteral("1 file")
                                               : QStringLiteral("%1 files").arg(count));
}

void frmCalibTree::trvDirectory_NodeClick(const std::string& key) {
    const WaitCursor wait;
    Guarded("frmCalibTree-trvDirectory_NodeClick", [&](Guard&) {
        ChooseCalibNode(Tree, key);
        ShowFiles();
    });
}

void frmCalibTree::lsvFiles_ItemClick() {
    Guarded("frmCalibTree-lsvFiles_ItemClick", [&](Guard&) {
        const QList<QListWidgetItem*> selected = Form->lsvFiles->selectedItems();
        if (selected.isEmpty())
            return;
        ChooseCalibFile(Tree, FromScreen(selected.first()->text()));
        Form->lblFile->setText(ToScreen(Tree.File));
    });
}

void frmCalibTree::cmdAdd_Click() {
    Guarded("frmCalibTree-cmdAdd_Click", [&](Guard&) {
        hide();
        const QPointer<frmCalibTree> self(this);
        Nav.AskCalibration(Tree.Directory, [self](const CalibrationAnswer& answer) {
            if (!self.isNull())
                self->TakeAnswer(answer);
        });
    });
}

void frmCalibTree::TakeAnswer(const CalibrationAnswer& answer) {
    Form->lblType->setText(ToScreen(answer.Type));
    Form->lblEpoch->setText(ToScreen(answer.Epoch));
    ShowModal();
    const bool added = AddCalibration(Tree, answer);
    ShowNodes();
    ShowFiles();
    if (!answer.Type.empty())
        FilesPanel->setText(ToScreen(answer.Type + " " + answer.Epoch +
                                     (added ? " was added" : " was not added as a whole")));
    Form->trvDirectory->Expand({Global().Calib_path + answer.Type + "\\"});
}

void frmCalibTree::cmdDelete_Click() {
    Guarded("frmCalibTree-cmdDelete_Click", [&](Guard&) {
        Nav.OpenConstruct("Remove Folder Button",
                          "Option Under Construction: In the future this option will allow the deletion of "
                          "the selected folder.");
    });
}

void frmCalibTree::GoHome(const char* event) {
    Guarded(event, [&](Guard&) {
        Unload();
        Nav.ShowHome();
    });
}

}  // namespace Dorvane
