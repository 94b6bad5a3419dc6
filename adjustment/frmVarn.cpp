// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/frmVarn.h"

#include <QPointer>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include "adjustment/ChildPackage.h"
#include "adjustment/ExportRun.h"
#include "adjustment/VarnFiles.h"
#include "core/basGeneral.h"
#include "core/widgets/PathLabel.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmVarn.h"

namespace Dorvane {

namespace {

struct ButtonPicture {
    QAbstractButton* Button;
    const char* Picture;
    double Lines;  // how high it is, in lines of text
};

// Where there is no picture the word stands for it.
void Dress(QAbstractButton& button, const char* picture, double lines) {
    const int side = qRound(button.fontMetrics().lineSpacing() * lines);
    button.setIconSize({side, side});
    Guarded("frmVarn-LoadForm", [&](Guard&) { SetOptionalPicture(button, picture); });
    if (!button.icon().isNull())
        return;
    const QKeySequence key = button.shortcut();  // goes with a new text
    button.setText(button.accessibleName());
    button.setShortcut(key);
}

void ShowFile(QLabel& label, const FileLabel& file) {
    const QColor lightRed(255, 0, 0);
    QPalette palette;
    if (file.Colour == LabelColour::LightRed)
        palette.setColor(QPalette::WindowText, lightRed);
    label.setPalette(palette);
    label.setText(ToScreen(file.Caption));
}

void ShowBox(QCheckBox& box, const CheckBox& state) {
    box.setEnabled(state.Enabled);
    box.setChecked(state.Ticked);
}

void ShowEntry(QAction& action, const MenuEntry& entry) {
    action.setEnabled(entry.Enabled);
    action.setChecked(entry.Ticked);
}

// The marks differ by shape as well as by colour.
const char* PictureOf(ListingVerdict::Mark mark) {
    switch (mark) {
        case ListingVerdict::Mark::Good: return "result_good.svg";
        case ListingVerdict::Mark::Remark: return "result_remark.svg";
        case ListingVerdict::Mark::Doubt: return "result_doubt.svg";
        case ListingVerdict::Mark::Failed: return "result_failed.svg";
        default: return "";
    }
}

}  // namespace

frmVarn::frmVarn(Navigator& navigator, PackageFactory makePackage)
    : Nav(navigator),
      MakePackage(makePackage
                      ? std::move(makePackage)
                      : [this] { return std::make_unique<ChildPackage>([this] { WhileRunning(); }); }),
      Form(std::make_unique<Ui::frmVarn>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdHome);
    Status = new PathLabel(Form->sbrVarn);
    Status->setObjectName(QStringLiteral("lblStatus"));
    Status->setMargin(3);
    Form->sbrVarn->addWidget(Status, 1);
    LoadPictures();
    LoadForm();
    ConnectInput();
    ConnectCommands();
    ConnectRun();
    ConnectMenus();
    ConnectExports();
}

frmVarn::~frmVarn() = default;

void frmVarn::LoadPictures() {
    const std::initializer_list<ButtonPicture> pictures = {{Form->cmdBrowse, "browse.svg", 1.4},
                                                           {Form->cmdViewVersion, "view.svg", 1.4},
                                                           {Form->cmdEdit, "edit.svg", 1.7},
                                                           {Form->cmdPrint, "printer.svg", 1.7},
                                                           {Form->cmdHome, "home.svg", 1.7}};
    for (const ButtonPicture& of : pictures)
        Dress(*of.Button, of.Picture, of.Lines);
}

void frmVarn::LoadForm() {
    const QFontMetrics metrics = fontMetrics();
    for (QLabel* number : {Form->lblStartReturn, Form->lblGoReturn}) {
        number->setText(QStringLiteral(" -32768 "));
        number->setMinimumSize(number->sizeHint());
    }
    PrepareRunButton();
    QFont strong = Form->lblResult->font();
    strong.setBold(true);
    Form->lblResult->setFont(strong);
    Form->lblMark->setFixedSize(metrics.lineSpacing() * 2, metrics.lineSpacing() * 2);
    QPalette asTheWindow = Form->txtDoubt->palette();
    asTheWindow.setColor(QPalette::Base, Qt::transparent);
    Form->txtDoubt->setPalette(asTheWindow);
    Form->txtDoubt->document()->setDocumentMargin(0);
    Form->txtDoubt->setMinimumHeight(metrics.lineSpacing() * 4);
    Form->lblM0->setMinimumHeight(metrics.lineSpacing());
    Form->lblCounts->setMinimumHeight(metrics.lineSpacing());
    resize(metrics.averageCharWidth() * 84, sizeHint().height());
    Form->aniVarn->hide();
    LoadVarn(State);
    for (const std::string& type : State.cmbVarn.Entries)
        Form->cmbVarn->addItem(ToScreen(type));
    Form->cmbVarn->setCurrentIndex(State.cmbVarn.Selected - 1);
    ShowState();
    Form->txtInput->setFocus();
}

// While an event is under way its message boxes and the package let others in; none of them may start
// anything here.
void frmVarn::On(const char* event, const Body& body) {
    if (Busy)
        return;
    const QScopedValueRollback<bool> busy(Busy, true);
    State.Notice.clear();
    Guarded(std::string("frmVarn-") + event, body);
    ShowState();
}

void frmVarn::ConnectInput() {
    connect(Form->txtInput, &QLineEdit::textChanged, this,
            [this](const QString& text) { txtInput_Change(FromScreen(text)); });
    connect(Form->cmbVersion, &QComboBox::activated, this,
            [this](int index) { On("cmbVersion_Click", [&](Guard&) { ClickVersion(State, index + 1); }); });
    ConnectBox(Form->chkInputFile, "chkInputFile_Click", FileBox::Input);
    ConnectBox(Form->chkParFile, "chkParFile_Click", FileBox::Par);
    ConnectBox(Form->chkOutputFile, "chkOutputFile_Click", FileBox::Output);
}

void frmVarn::ConnectBox(QCheckBox* box, const char* event, FileBox file) {
    connect(box, &QCheckBox::clicked, this,
            [this, event, file](bool ticked) { On(event, [&](Guard&) { TickFile(State, file, ticked); }); });
}

void frmVarn::ConnectCommands() {
    connect(Form->cmdBrowse, &QPushButton::clicked, this,
            [this] { On("cmdBrowse_Click", [&](Guard&) { BrowseInput(State); }); });
    connect(Form->cmdViewVersion, &QPushButton::clicked, this, [this] { cmdViewVersion_Click(); });
    connect(Form->cmdEdit, &QPushButton::clicked, this,
            [this] { On("cmdEdit_Click", [&](Guard&) { EditFiles(State); }); });
    connect(Form->cmdPrint, &QPushButton::clicked, this,
            [this] { On("cmdPrint_Click", [&](Guard&) { PrintFiles(State); }); });
    connect(Form->cmdHome, &QPushButton::clicked, this, [this] { GoHome("cmdHome_Click"); });
}

void frmVarn::ConnectMenus() {
    connect(Form->mnuGoHome, &QAction::triggered, this, [this] { GoHome("mnuGoHome_Click"); });
    connect(Form->mnuPrinterSetup, &QAction::triggered, this,
            [this] { On("mnuPrinterSetup_Click", [&](Guard&) { PrinterSetup(); }); });
    connect(Form->mnuTextEditor, &QAction::triggered, this,
            [this] { On("mnuTextEditor_Click", [&](Guard&) { ChooseTextEditor(State); }); });
    connect(Form->mnuTarvexEditor, &QAction::triggered, this,
            [this] { On("mnuTarvexEditor_Click", [&](Guard&) { ChooseTarvexEditor(State); }); });
}

void frmVarn::ConnectExports() {
    const std::initializer_list<std::pair<QAction*, const ExportKind*>> exports = {
        {Form->mnuDbs, &ExportDbs},
        {Form->mnuXyz, &ExportXyz},
        {Form->mnuInu, &ExportInu},
        {Form->mnuKeld, &ExportKeld},
        {Form->MnuSta, &ExportSta}};
    const ExportView view{[this](bool waiting) { ShowWaiting(waiting); }, [this] { ShowStatus(); }};
    for (const auto& [action, kind] : exports)
        connect(action, &QAction::triggered, this, [this, view, kind = kind] {
            On(kind->Name, [&](Guard&) { ExportResults(State, *kind, view); });
        });
}

void frmVarn::SetInput(const std::string& path) {
    {
        const QSignalBlocker quiet(Form->txtInput);
        Form->txtInput->setText(ToScreen(path));
    }
    txtInput_Change(path);
    if (State.chkInputFile.Enabled)
        Form->cmdVarn->setFocus();
}

void frmVarn::txtInput_Change(const std::string& text) {
    On("txtInput_Change", [&](Guard&) { ChangeInput(State, text); });
}

void frmVarn::cmdViewVersion_Click() {
    bool opened = false;
    On("cmdViewVersion_Click", [&](Guard&) {
        hide();
        const QPointer<frmVarn> self(this);
        Nav.OpenVersions(State.txtInput, State.cmbVersion.Text(), [self] {
            if (!self.isNull())
                self->ShowModal();
        });
        opened = true;
    });
    if (!opened && isHidden())
        ShowModal();
}

void frmVarn::GoHome(const char* event) {
    On(event, [&](Guard&) {
        LeaveVarn(State);
        Unload();
        Nav.ShowHome();
    });
}

void frmVarn::ShowState() {
    if (FromScreen(Form->txtInput->text()) != State.txtInput) {
        const QSignalBlocker quiet(Form->txtInput);
        Form->txtInput->setText(ToScreen(State.txtInput));
    }
    Form->txtInput->setToolTip(State.txtInput.empty() ? QStringLiteral("Path of the input file")
                                                      : ToTip(State.txtInput));
    ShowFile(*Form->lblPar, State.lblPar);
    ShowFile(*Form->lblOutput, State.lblOutput);
    ShowVersions();
    ShowNumbers();
    ShowOptions();
    ShowMenus();
    ShowVerdict();
    ShowStatus();
}

void frmVarn::ShowVerdict() {
    const ListingVerdict& verdict = State.Verdict;
    const std::string picture = PictureOf(verdict.Sign);
    Form->lblMark->clear();
    if (!PictureFile(picture).empty())
        Form->lblMark->setPixmap(LoadPicture(picture).pixmap(Form->lblMark->size(), devicePixelRatioF()));
    Form->lblResult->setText(ToScreen(verdict.Result));
    Form->lblRunTime->setText(ToScreen(verdict.When));
    const std::string test = verdict.Test.empty() ? "" : "; " + verdict.Test;
    Form->lblM0->setText(verdict.M0.empty() ? QString() : ToScreen("m0 " + verdict.M0 + test));
    Form->lblCounts->setText(verdict.Observations.empty()
                                 ? QString()
                                 : ToScreen(verdict.Observations + " observations, " +
                                            std::to_string(verdict.Points) + " points"));
    const std::string more =
        verdict.Doubts > 1 ? " (and " + std::to_string(verdict.Doubts - 1) + " more in the output file)" : "";
    Form->txtDoubt->setPlainText(ToScreen(verdict.Doubt + more));
}

void frmVarn::ShowStatus() {
    Status->setText(ToScreen(StatusOf(State)));
}

void frmVarn::ShowVersions() {
    QComboBox& versions = *Form->cmbVersion;
    if (!(ShownVersions == State.cmbVersion.Entries)) {
        versions.clear();
        for (const std::string& version : State.cmbVersion.Entries)
            versions.addItem(ToScreen(version));
        ShownVersions = State.cmbVersion.Entries;
    }
    versions.setCurrentIndex(State.cmbVersion.Selected - 1);
    versions.setEnabled(State.cmbVersion.Enabled);
    Form->cmdViewVersion->setEnabled(State.cmdViewVersionEnabled);
}

void frmVarn::ShowNumbers() {
    Form->lblStartReturn->setText(ToScreen(State.lblStartReturn));
    Form->lblGoReturn->setText(ToScreen(State.lblGoReturn));
}

void frmVarn::ShowOptions() {
    Form->fraOptions->setTitle(ToScreen(State.fraOptions));
    ShowBox(*Form->chkInputFile, State.chkInputFile);
    ShowBox(*Form->chkParFile, State.chkParFile);
    ShowBox(*Form->chkOutputFile, State.chkOutputFile);
    Form->cmdPrint->setEnabled(State.cmdPrintEnabled);
}

void frmVarn::ShowMenus() {
    Form->mnuPrinterSetup->setEnabled(State.mnuPrinterSetupEnabled);
    Form->mnuTextEditor->setChecked(State.mnuTextEditorTicked);
    Form->mnuTarvexEditor->setChecked(State.mnuTarvexEditorTicked);
    ShowEntry(*Form->mnuDbs, State.mnuDbs);
    ShowEntry(*Form->mnuXyz, State.mnuXyz);
    ShowEntry(*Form->mnuInu, State.mnuInu);
    ShowEntry(*Form->mnuKeld, State.mnuKeld);
    ShowEntry(*Form->MnuSta, State.MnuSta);
}

// On the screen alone, so that the dialogs in between have their own.
void frmVarn::ShowWaiting(bool waiting) {
    if (waiting)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

}  // namespace Dorvane
