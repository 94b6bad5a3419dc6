// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/frmTree.h"

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QSettings>
#include <QShortcut>
#include <QShowEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "core/Drives.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/widgets/Later.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/StatusPanels.h"
#include "core/widgets/WaitCursor.h"
#include "datatree/SurveyChoice.h"
#include "datatree/TreeMode.h"
#include "ui_frmTree.h"

namespace Dorvane {

namespace {

const QString SplitterPlace = QStringLiteral("splitters/frmTree");

// Takes a screen out of reach while it works on what it shows.
class OutOfReach {
  public:
    explicit OutOfReach(QWidget& screen) : Screen(screen), Focus(screen.focusWidget()) {
        Screen.setEnabled(false);
    }
    ~OutOfReach() {
        Screen.setEnabled(true);
        if (Focus != nullptr)
            Focus->setFocus();
    }
    OutOfReach(const OutOfReach&) = delete;
    OutOfReach& operator=(const OutOfReach&) = delete;

  private:
    QWidget& Screen;
    QWidget* Focus;
};

}  // namespace

frmTree::frmTree(Navigator& navigator, SurveyServices services)
    : Nav(navigator), Services(std::move(services)), Form(std::make_unique<Ui::frmTree>()) {
    Form->setupUi(this);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 120, metrics.lineSpacing() * 36);
    const int picture = std::max(16, metrics.lineSpacing());
    Form->trvDirectory->setIconSize({picture, picture});
    Form->lsvFiles->setIconSize({picture, picture});
    Form->splTree->setSizes({metrics.averageCharWidth() * 60, metrics.averageCharWidth() * 60});
    Form->splTree->restoreState(QSettings().value(SplitterPlace).toByteArray());
    FolderPanel = AddPanel(*Form->sbrTree, QStringLiteral("sbrTreePanel1"), 1);
    Guarded("frmTree-LoadForm", [&](Guard&) { LoadForm(); });
    ConnectButtons();
    ConnectMenus();
}

frmTree::~frmTree() = default;

void frmTree::LoadForm() {
    const WaitCursor wait;
    TheDesktop().YieldEvents();
    LoadPictures();
    Selection.Directory = Global().Data_drive;
    TarvexTreeSetup(Global().PathRecords, Global().PathRecords.Count(), Tree);
    Form->trvDirectory->Build(Tree, imlTree["folder"]);
    Form->trvDirectory->setFocus();
    Form->mnuPrinterSetup->setEnabled(Global().PrinterPresent);
    ShowSelection();
}

// Each picture once; one that is missing is told and leaves its place empty.
void frmTree::LoadPictures() {
    Guarded("frmTree-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "ok.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
        SetOptionalPicture(*Form->cmdHome, "home.svg");
        SetOptionalPicture(*Form->cmdCopy, "copy.svg");
        SetOptionalPicture(*Form->cmdDelete, "delete.svg");
        SetOptionalPicture(*Form->cmdPrint, "printer.svg");
        SetOptionalPicture(*Form->cmdEdit, "edit.svg");
        SetOptionalPicture(*Form->cmdAdd, "add.svg");
        SetOptionalPicture(*Form->cmdRemove, "remove.svg");
        SetOptionalPicture(*Form->cmdArchive, "archive.svg");
    });
    for (const char* kind : {"direct", "dist", "level", "reduce", "input", "form"})
        Guarded("frmTree-LoadForm",
                [&](Guard&) { imlTree[kind] = LoadPicture("file_" + std::string(kind) + ".svg"); });
    Guarded("frmTree-LoadForm", [&](Guard&) { imlTree["folder"] = LoadPicture("clsfolder.svg"); });
    Guarded("frmTree-LoadForm", [&](Guard&) {
        LoadPicture("opnfolder.svg");
        const std::string open = Drives::HostPath(PictureFile("opnfolder.svg"));
        imlTree["folder"].addFile(QString::fromStdString(open), {}, QIcon::Normal, QIcon::On);
    });
}

void frmTree::OnClick(QPushButton* button, const char* event, void (frmTree::*click)()) {
    connect(button, &QPushButton::clicked, this,
            [this, event, click] { Guarded(event, [&](Guard&) { (this->*click)(); }); });
}

void frmTree::OpenConstruct(QPushButton* button, const char* title, const char* text) {
    const std::string event = "frmTree-" + button->objectName().toStdString() + "_Click";
    connect(button, &QPushButton::clicked, this, [this, event, title, text] {
        Guarded(event, [&](Guard&) {
            Nav.OpenConstruct(title, "Option Under Construction: In the future this option will allow the " +
                                         std::string(text));
        });
    });
}

void frmTree::ConnectButtons() {
    connect(Form->trvDirectory, &DirectoryTree::NodeClicked, this, &frmTree::trvDirectory_NodeClick);
    connect(Form->trvDirectory, &DirectoryTree::Confirmed, this, [this] {
        if (Form->cmdOK->isVisible())
            Form->cmdOK->click();
    });
    connect(Form->lsvFiles, &QListWidget::itemSelectionChanged, this, &frmTree::lsvFiles_ItemClick);
    // Not by the list's own activation, which is a single click on some desktops.
    const auto edit = [this] {
        if (Form->cmdEdit->isVisible())
            Form->cmdEdit->click();
    };
    connect(Form->lsvFiles, &QListWidget::itemDoubleClicked, this, edit);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(key, Form->lsvFiles, nullptr, nullptr, Qt::WidgetShortcut),
                &QShortcut::activated, this, edit);
    OnClick(Form->cmdOK, "frmTree-cmdOK_Click", &frmTree::cmdOK_Click);
    OnClick(Form->cmdCancel, "frmTree-cmdCancel_Click", &frmTree::cmdCancel_Click);
    OnClick(Form->cmdHome, "frmTree-cmdHome_Click", &frmTree::cmdHome_Click);
    OnClick(Form->cmdAdd, "frmTree-cmdAdd_Click", &frmTree::cmdAdd_Click);
    connect(Form->cmdEdit, &QPushButton::clicked, this,
            [this] { EditTreeFile(Selection.Directory, Selection.File); });
    connect(Form->cmdPrint, &QPushButton::clicked, this,
            [this] { PrintTreeFile(Selection.Directory, Selection.File); });
    connect(Form->cmdCopy, &QPushButton::clicked, this,
            [this] { CopyTreeFile(Selection.Directory, Selection.File, Nav); });
    OpenConstruct(Form->cmdArchive, "Archive Subsystem", "archiving and retrieving of data.");
    OpenConstruct(Form->cmdDelete, "Delete File Button", "deletion of the selected file.");
    OpenConstruct(Form->cmdRemove, "Remove Folder Button", "deletion of the selected folder.");
}

void frmTree::ConnectMenus() {
    connect(Form->mnuGoHome, &QAction::triggered, this,
            [this] { Guarded("frmTree-mnuGoHome_Click", [&](Guard&) { mnuGoHome_Click(); }); });
    connect(Form->mnuRefresh, &QAction::triggered, this,
            [this] { Guarded("frmTree-mnuRefresh_Click", [&](Guard&) { mnuRefresh_Click(); }); });
    connect(Form->mnuPrinterSetup, &QAction::triggered, this,
            [] { Guarded("frmTree-mnuPrinterSetup_Click", [](Guard&) { PrinterSetup(); }); });
}

std::string frmTree::Title() const {
    return FromScreen(windowTitle());
}

void frmTree::showEvent(QShowEvent* event) {
    Screen::showEvent(event);
    if (!event->spontaneous())
        Activate();
}

void frmTree::hideEvent(QHideEvent* event) {
    QSettings().setValue(SplitterPlace, Form->splTree->saveState());
    Screen::hideEvent(event);
}

void frmTree::Activate() {
    const TreeButtons visible = VisibleTreeButtons(Title());
    Form->cmdOK->setVisible(visible.OK);
    Form->cmdCancel->setVisible(visible.Cancel);
    Form->cmdHome->setVisible(visible.Home);
    Form->cmdCopy->setVisible(visible.Copy);
    Form->cmdDelete->setVisible(visible.Delete);
    Form->cmdPrint->setVisible(visible.Print);
    Form->cmdEdit->setVisible(visible.Edit);
    Form->cmdAdd->setVisible(visible.Add);
    Form->cmdRemove->setVisible(visible.Remove);
    Form->cmdArchive->setVisible(visible.Archive);
    ReturnsBy(visible.Cancel ? Form->cmdCancel : Form->cmdHome);
    ShowFileButtons();
    // A message about a damaged file comes when the screen stands.
    if (TreeModeOf(Title()) == TreeMode::Configure)
        CallLater(this, [this] { ReadStructuresOnce(); });
}

void frmTree::ReadStructuresOnce() {
    if (std::exchange(StructuresRead, true))
        return;
    Guarded("frmTree-Form_Activate", [&](Guard&) { ReadSystems(Choices, Structures); });
}

void frmTree::SetTempDirectory(const std::string& directory) {
    Form->lblTempDirectory->setText(ToScreen(directory));
    if (directory.empty())
        return;
    const WaitCursor wait;
    GoTo(directory);
}

void frmTree::GoTo(const std::string& directory) {
    GoToDirectory(Tree, Selection, directory);
    const std::vector<std::string> chain = AncestorChain(directory);
    Form->trvDirectory->Expand(chain);
    std::string deepest;
    for (const std::string& key : chain)
        if (Tree.Find(key) != nullptr)
            deepest = key;
    Form->trvDirectory->Choose(deepest);
    ShowSelection();
}

void frmTree::trvDirectory_NodeClick(const std::string& key) {
    ClickNode(Selection, key);
    ShowSelection();
}

void frmTree::lsvFiles_ItemClick() {
    const int row = Form->lsvFiles->currentRow();
    const bool chosen = row >= 0 && !Form->lsvFiles->selectedItems().empty();
    Selection.File = chosen ? Selection.Files[row + 1].Name : "";
    Form->lblFile->setText(ToScreen(Selection.File));
    ShowFileButtons();
}

void frmTree::ShowSelection() {
    Form->lblDirectory->setText(ToScreen(Selection.Directory));
    Form->lblFile->setText(ToScreen(Selection.File));
    Form->lblCreationDate->setText(ToScreen(Selection.CreationDate));
    Form->lblHistory->setText(ToScreen(Selection.History));
    ShowFiles();
    ShowFileButtons();
    ShowStatus();
}

void frmTree::ShowFiles() {
    const QSignalBlocker quiet(Form->lsvFiles);
    Form->lsvFiles->clear();
    for (const FileItem& file : Selection.Files)
        Form->lsvFiles->addItem(new QListWidgetItem(imlTree[file.Icon], ToScreen(file.Name)));
}

void frmTree::ShowFileButtons() {
    const TreeButtons enabled = EnabledTreeButtons(Title(), Selection.File, Global().PrinterPresent);
    Form->cmdCopy->setEnabled(enabled.Copy);
    Form->cmdDelete->setEnabled(enabled.Delete);
    Form->cmdPrint->setEnabled(enabled.Print);
    Form->cmdEdit->setEnabled(enabled.Edit);
    Form->cmdArchive->setEnabled(enabled.Archive);
}

void frmTree::ShowStatus() {
    const int files = Selection.Files.Count();
    if (Tree.Nodes().size() <= 1)
        FolderPanel->setText(QStringLiteral("No data folders are registered"));
    else if (files == 0)
        FolderPanel->setText(QStringLiteral("No files"));
    else
        FolderPanel->setText(files == 1 ? QStringLiteral("1 file") : QStringLiteral("%1 files").arg(files));
}

void frmTree::cmdOK_Click() {
    const std::string folder = Selection.Directory;
    switch (ConfirmTreeFolder(Title(), folder)) {
        case TreeAnswer::Stay: return;
        case TreeAnswer::Reduce: Unload(); return Nav.OpenReduction(folder);
        case TreeAnswer::Upload: Unload(); return Nav.ReturnToUpload(folder);
        case TreeAnswer::Input: Unload(); return Nav.ReturnToInput(folder);
    }
}

void frmTree::cmdCancel_Click() {
    Unload();
    Nav.ReturnToInput("");
}

void frmTree::cmdHome_Click() {
    RememberTreeFolder(Selection.Directory);
    Unload();
    Nav.ShowHome();
}

void frmTree::mnuGoHome_Click() {
    if (TreeModeOf(Title()) != TreeMode::Input)
        return cmdHome_Click();
    const std::string folder = Selection.Directory;
    RememberTreeFolder(folder);
    Unload();
    Nav.ReturnToInput(folder);
}

// Takes over what other workstations have registered since; what is selected stays so.
void frmTree::mnuRefresh_Click() {
    const WaitCursor wait;
    const OutOfReach working(*this);
    const TreeSelection former = Selection;
    ReloadPathRecords(Services.Waiting, "Updating Tarvex data folders.");
    Tree.Clear();
    TarvexTreeSetup(Global().PathRecords, Global().PathRecords.Count(), Tree);
    RebuildTree();
    if (Tree.Find(former.Directory) != nullptr)
        ClickNode(Selection, former.Directory);
    else
        GoToDirectory(Tree, Selection, former.Directory);
    Form->trvDirectory->Choose(Selection.Directory);
    ShowSelection();
    ChooseFile(former.File);
}

// The tree control anew, with the same folders open.
void frmTree::RebuildTree() {
    const std::vector<std::string> expanded = Form->trvDirectory->ExpandedKeys();
    Form->trvDirectory->Build(Tree, imlTree["folder"]);
    Form->trvDirectory->Expand(expanded);
}

// Selects a file of the list, if it is there.
void frmTree::ChooseFile(const std::string& name) {
    for (int i = 1; i <= Selection.Files.Count(); ++i)
        if (Selection.Files[i].Name == name)
            Form->lsvFiles->setCurrentRow(i - 1);
}

void frmTree::cmdAdd_Click() {
    hide();
    Nav.AskSurvey(Selection.Directory, [screen = QPointer<frmTree>(this)](const SurveyAnswer& answer) {
        if (!screen.isNull())
            screen->SurveyAnswered(answer);
    });
}

// Shows the tree again and tells what was added.
void frmTree::SurveyAnswered(const SurveyAnswer& answer) {
    Guarded("frmTree-cmdAdd_Click", [&](Guard&) {
        show();
        raise();
        activateWindow();
        if (answer == SurveyAnswer())
            return;
        const SurveyReport report = AddAndShow(answer);
        if (report.Made.empty() && report.Lacking.empty())
            return;
        FolderPanel->setText(ToScreen(SurveyStatus(answer, report)));
        TellSurveyAdded(answer, report);
    });
}

// Shows the new folders in the tree; the folder that was selected stays so.
SurveyReport frmTree::AddAndShow(const SurveyAnswer& answer) {
    const WaitCursor wait;
    const OutOfReach working(*this);
    SurveyReport report = AddSurvey(answer, Services, Tree);
    RebuildTree();
    List1<std::string> types;
    ParseFields(types, answer.TypeMulti);
    for (const std::string& type : types)
        Form->trvDirectory->Expand(
            AncestorChain(Global().Data_drive + answer.Root + "\\" + answer.Location + "\\" + type + "\\"));
    GoTo(Selection.Directory);
    return report;
}

}  // namespace Dorvane
