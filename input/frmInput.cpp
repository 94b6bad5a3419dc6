// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/frmInput.h"

#include <QPointer>
#include <QScopedValueRollback>
#include <QSettings>
#include <QShortcut>
#include <QSignalBlocker>
#include <utility>

#include "core/Globals.h"
#include "core/basGeneral.h"
#include "core/widgets/HomeLook.h"
#include "core/widgets/PathTypeMenu.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/StatusPanels.h"
#include "core/widgets/WaitCursor.h"
#include "input/CreateInput.h"
#include "input/ImportFolder.h"
#include "input/InputTree.h"
#include "input/ProjectFile.h"
#include "input/TreeFolders.h"
#include "input/UserDbFiles.h"
#include "input/Weights.h"
#include "ui_frmInput.h"

namespace Dorvane {

namespace {

const QString SplitterPlace = QStringLiteral("splitters/frmInput");
constexpr int HomeButtonOfVarn = 6;

void Fill(QListWidget& list, const std::vector<ListEntry>& entries) {
    const QSignalBlocker quiet(list);
    list.clear();
    for (const ListEntry& entry : entries)
        list.addItem(ToScreen(entry.Text));
}

void ShowSelection(QListWidget& list, const std::vector<ListEntry>& entries) {
    for (int row = 0; row < list.count(); ++row)
        list.item(row)->setSelected(entries[static_cast<std::size_t>(row)].Selected);
}

void ReadSelection(const QListWidget& list, std::vector<ListEntry>& entries) {
    for (int row = 0; row < list.count(); ++row)
        entries[static_cast<std::size_t>(row)].Selected = list.item(row)->isSelected();
}

void ShowText(QLineEdit& field, const std::string& text) {
    const QSignalBlocker quiet(field);
    field.setText(ToScreen(text));
    field.setCursorPosition(0);
}

}  // namespace

frmInput::frmInput(Navigator& navigator, MakeCoordinateSource makeSource)
    : Nav(navigator), MakeSource(std::move(makeSource)), Form(std::make_unique<Ui::frmInput>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdHome);
    StatusPanel = AddPanel(*Form->sbrInput, QStringLiteral("sbrInputPanel1"), 1);
    QLabel* const pathType = AddPanel(*Form->sbrInput, QStringLiteral("sbrInputPanel2"));
    new PathTypeMenu("frmInput", Form->mnuTarvex, Form->mnuManual, pathType, [this] { Nav.ShowPathType(); });
    LayOut();
    ConnectButtons();
    ConnectLists();
    ConnectMenus();
    ConnectChanges();
    Guarded("frmInput-Form_Load", [&](Guard&) { LoadForm(); });
}

frmInput::~frmInput() = default;

void frmInput::LayOut() {
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 130, metrics.lineSpacing() * 40);
    Form->splInput->setSizes({metrics.averageCharWidth() * 65, metrics.averageCharWidth() * 65});
    Form->splInput->restoreState(QSettings().value(SplitterPlace).toByteArray());
    Form->lstCoordTypes->setMinimumHeight(metrics.lineSpacing() * 5);
    Form->lstUserDBFiles->setMinimumHeight(metrics.lineSpacing() * 4);
    Form->trvInput->setMinimumWidth(metrics.averageCharWidth() * 30);
    Form->aniInput->hide();
}

void frmInput::hideEvent(QHideEvent* event) {
    QSettings().setValue(SplitterPlace, Form->splInput->saveState());
    Screen::hideEvent(event);
}

void frmInput::LoadForm() {
    const WaitCursor wait;
    LoadPictures();
    FillDimensions();
    OpenInputScreen(State, Global().PathRecords, Services());
    FillTypes();
    Fill(*Form->lstCoordTypes, State.lstCoordTypes);
    Fill(*Form->lstCoordDirectorys, State.lstCoordDirectorys);
    ShowUserFiles();
    ShowProject();
    ShowTree();
    ShowFile();
    Form->icmbInput->setCurrentIndex(State.icmbInput - 1);
    Form->mnuPrinter->setEnabled(Global().PrinterPresent);
    Form->icmbInput->setFocus();
}

void frmInput::LoadPictures() {
    Guarded("frmInput-Form_Load", [&](Guard&) { DressLikeHome(*Form->cmdVarn, HomeButtonOfVarn); });
    Guarded("frmInput-Form_Load", [&](Guard&) {
        SetOptionalPicture(*Form->cmdImport, "import.svg");
        SetOptionalPicture(*Form->cmdBrowse, "browse.svg");
        SetOptionalPicture(*Form->cmdDelete, "remove.svg");
        SetOptionalPicture(*Form->cmdCreate, "input.svg");
        SetOptionalPicture(*Form->cmdEdit, "edit.svg");
        SetOptionalPicture(*Form->cmdPrint, "printer.svg");
        SetOptionalPicture(*Form->cmdHome, "home.svg");
    });
}

void frmInput::FillDimensions() {
    for (const char* number : {"1", "2", "3"}) {
        const std::string picture = std::string("dim") + number + ".svg";
        Form->icmbDimension->addItem(imlInput.Of(PictureFile(picture).empty() ? "" : picture),
                                     QLatin1String(number) + QStringLiteral(" Dimension"),
                                     QLatin1String(number) + QStringLiteral("Dim"));
    }
}

void frmInput::FillTypes() {
    for (const InputType& type : State.Model.Types)
        Form->icmbInput->addItem(imlInput.Of(type.Icon), ToScreen(type.Name));
}

// While a run is under way its yields let events in; none of them may start anything else here.
void frmInput::On(const char* event, const Body& body) {
    if (Running)
        return;
    ReadControls();
    StatusPanel->setText(ToScreen(IdleStatus));
    Guarded(std::string("frmInput-") + event, body);
    ShowTree();
    ShowFile();
}

void frmInput::RunOn(const char* event, const Body& body) {
    On(event, [&](Guard& guard) {
        const QScopedValueRollback<bool> running(Running, true);
        body(guard);
    });
}

void frmInput::ConnectButtons() {
    connect(Form->cmdImport, &QPushButton::clicked, this,
            [this] { RunOn("cmdImport_Click", [&](Guard&) { ImportFolder(State, Services()); }); });
    connect(Form->cmdCreate, &QPushButton::clicked, this,
            [this] { RunOn("cmdCreate_Click", [&](Guard&) { CreateInputFile(State, Services()); }); });
    connect(Form->cmdEdit, &QPushButton::clicked, this,
            [this] { On("cmdEdit_Click", [&](Guard&) { EditInputFile(State); }); });
    connect(Form->cmdPrint, &QPushButton::clicked, this,
            [this] { On("cmdPrint_Click", [&](Guard&) { PrintInputFile(State); }); });
    connect(Form->cmdVarn, &QPushButton::clicked, this,
            [this] { RunOn("cmdVarn_Click", [&](Guard&) { cmdVarn_Click(); }); });
    connect(Form->cmdHome, &QPushButton::clicked, this,
            [this] { RunOn("cmdHome_Click", [&](Guard&) { GoHome(); }); });
    connect(Form->cmdBrowse, &QPushButton::clicked, this, [this] {
        RunOn("cmdBrowse_Click", [&](Guard&) {
            BrowseUserDbFile(State.lstUserDBFiles);
            ShowUserFiles();
        });
    });
    connect(Form->cmdDelete, &QPushButton::clicked, this, [this] {
        On("cmdDelete_Click", [&](Guard&) {
            DeleteUserDbFile(State.lstUserDBFiles, Form->lstUserDBFiles->currentRow());
            ShowUserFiles();
        });
    });
}

void frmInput::ConnectLists() {
    connect(Form->trvInput, &InputTree::NodeClicked, this, &frmInput::trvInput_NodeClick);
    connect(Form->lstCoordDirectorys, &QListWidget::itemSelectionChanged, this, [this] {
        const QListWidgetItem* const userDefined = Form->lstCoordDirectorys->item(0);
        Form->fraUserDbaseFiles->setEnabled(userDefined != nullptr && userDefined->isSelected());
    });
    auto* const remove = new QShortcut(Qt::Key_Delete, Form->lstUserDBFiles);
    remove->setContext(Qt::WidgetShortcut);
    connect(remove, &QShortcut::activated, Form->cmdDelete, &QPushButton::click);
}

// What was told of a set-up no longer holds when the operator changes it.
void frmInput::ForgetStatus() {
    if (!Running)
        StatusPanel->setText(ToScreen(IdleStatus));
}

void frmInput::ConnectChanges() {
    for (const QLineEdit* field : {Form->txtProject, Form->txtTask})
        connect(field, &QLineEdit::textEdited, this, &frmInput::ForgetStatus);
    for (const QComboBox* combo : {Form->icmbInput, Form->icmbDimension})
        connect(combo, &QComboBox::activated, this, &frmInput::ForgetStatus);
    for (const QListWidget* list : {Form->lstCoordTypes, Form->lstCoordDirectorys})
        connect(list, &QListWidget::itemSelectionChanged, this, &frmInput::ForgetStatus);
}

void frmInput::ConnectMenus() {
    connect(Form->mnuOpenProject, &QAction::triggered, this, [this] {
        RunOn("mnuOpenProject", [&](Guard&) {
            OpenProject(State, Services());
            ShowProject();
        });
    });
    connect(Form->mnuSaveProject, &QAction::triggered, this,
            [this] { RunOn("mnuSaveProject", [&](Guard&) { SaveProject(State, Services()); }); });
    connect(Form->mnuPrinter, &QAction::triggered, this,
            [this] { On("mnuPrinter_Click", [&](Guard&) { PrinterSetup(); }); });
    connect(Form->mnuGoHome, &QAction::triggered, this,
            [this] { RunOn("mnuGoHome_Click", [&](Guard&) { GoHome(); }); });
    connect(Form->mnuObservationWeights, &QAction::triggered, this,
            [this] { On("mnuObservationWeights_Click", [&](Guard&) { mnuObservationWeights_Click(); }); });
    connect(Form->mnuClearAllObs, &QAction::triggered, this, [this] {
        On("mnuClearAllObs_Click", [&](Guard&) {
            ClearTreeFolders(State.trvInput, State.Model.Types.Count(), State.Model.Types);
            ShowStatus("All folders removed");
        });
    });
}

InputServices frmInput::Services() {
    InputServices services;
    services.ShowStatus = [this](const std::string& text) { ShowStatus(text); };
    services.PickFolder = [this](const std::string& caption, const std::string& path) {
        return PickFolder(caption, path);
    };
    services.MakeSource = MakeSource;
    services.ShowHourglass = [this](bool on) { on ? setCursor(Qt::WaitCursor) : unsetCursor(); };
    services.ShowAnimation = [this](bool on) { ShowAnimation(on); };
    return services;
}

void frmInput::SetDirectory(const std::string& folder) {
    if (folder.empty())
        return;
    Picked = folder;
    State.lblDirectory = folder;
    Form->lblDirectory->setText(ToScreen(folder));
}

void frmInput::ShowStatus(const std::string& text) {
    StatusPanel->setText(ToScreen(text));
    if (Running)
        TheDesktop().YieldEvents();
}

// The animation is decoration: when it cannot be shown, that is told, and the work goes on.
void frmInput::ShowAnimation(bool on) {
    const bool playing =
        on && Guarded("frmInput-cmdCreate_Click", [&](Guard&) { Form->aniInput->Open("gears.avi"); });
    if (!playing)
        Form->aniInput->Stop();
    Form->aniInput->setVisible(playing);
}

// The folder picker sets lblDirectory and shows this screen again. Should it be left in any other way, the
// screen comes back all the same.
std::optional<std::string> frmInput::PickFolder(const std::string& caption, const std::string& path) {
    Picked.reset();
    hide();
    Nav.OpenTreeAndWait(caption, path);
    if (!isVisible())
        ShowModal();
    return Picked;
}

void frmInput::trvInput_NodeClick(const std::string& key) {
    RunOn("trvInput_NodeClick", [&](Guard&) {
        ClickInputNode(State, Services(), key);
        Form->icmbInput->setCurrentIndex(State.icmbInput - 1);
    });
}

void frmInput::mnuObservationWeights_Click() {
    hide();
    const QPointer<frmInput> self(this);
    Nav.OpenWeights([self](bool saved) {
        if (!self.isNull())
            self->WeightsAnswered(saved);
    });
}

void frmInput::WeightsAnswered(bool saved) {
    ShowModal();
    ChangeObservationWeights(State.Model, [saved] { return std::string(saved ? "" : "0"); });
    if (saved)
        ShowStatus("Observation weights saved");
}

void frmInput::cmdVarn_Click() {
    if (!MayLeave(State, Services()))
        return;
    const std::string file = FileInHand(State);
    Unload();
    Nav.OpenAdjustment(file);
}

void frmInput::GoHome() {
    if (!MayLeave(State, Services()))
        return;
    Unload();
    Nav.ShowHome();
}

void frmInput::ReadControls() {
    State.icmbInput = static_cast<std::int16_t>(Form->icmbInput->currentIndex() + 1);
    State.icmbDimension = static_cast<std::int16_t>(Form->icmbDimension->currentIndex() + 1);
    State.txtProject = FromScreen(Form->txtProject->text());
    State.txtTask = FromScreen(Form->txtTask->text());
    ReadSelection(*Form->lstCoordTypes, State.lstCoordTypes);
    ReadSelection(*Form->lstCoordDirectorys, State.lstCoordDirectorys);
    for (int row = 0; row < Form->lstUserDBFiles->count(); ++row)
        State.lstUserDBFiles[static_cast<std::size_t>(row)].Selected =
            Form->lstUserDBFiles->item(row)->checkState() == Qt::Checked;
}

void frmInput::ShowProject() {
    Form->icmbDimension->setCurrentIndex(State.icmbDimension - 1);
    ShowText(*Form->txtProject, State.txtProject);
    ShowText(*Form->txtTask, State.txtTask);
    ShowSelection(*Form->lstCoordTypes, State.lstCoordTypes);
    ShowSelection(*Form->lstCoordDirectorys, State.lstCoordDirectorys);
}

void frmInput::ShowTree() {
    if (ShownNodes == State.trvInput.Nodes())
        return;
    ShownNodes = State.trvInput.Nodes();
    Form->trvInput->Build(State.trvInput, imlInput);
}

// The cursor stays where it was, or goes to the file that was added.
void frmInput::ShowUserFiles() {
    QListWidget& list = *Form->lstUserDBFiles;
    const int former = list.count();
    int row = list.currentRow();
    Fill(list, State.lstUserDBFiles);
    for (int place = 0; place < list.count(); ++place) {
        QListWidgetItem& item = *list.item(place);
        const ListEntry& entry = State.lstUserDBFiles[static_cast<std::size_t>(place)];
        item.setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        item.setCheckState(entry.Selected ? Qt::Checked : Qt::Unchecked);
        item.setToolTip(ToTip(entry.Text));
    }
    if (list.count() > former)
        row = list.count() - 1;
    list.setCurrentRow(std::min(row, list.count() - 1));
}

void frmInput::ShowFile() {
    Form->lblDirectory->setText(ToScreen(State.lblDirectory));
    Form->lblFileName->setText(ToScreen(State.lblFileName));
    Form->lblContents->setText(ToScreen(State.Contents));
    Form->lblContents->setToolTip(ToTip(State.Contents));
    Form->lblContents->setHidden(State.Contents.empty());
    Form->lblContentsTitle->setHidden(State.Contents.empty());
    Form->cmdEdit->setEnabled(State.cmdEditEnabled);
    Form->cmdPrint->setEnabled(State.cmdPrintEnabled);
}

}  // namespace Dorvane
