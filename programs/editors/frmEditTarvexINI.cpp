// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditTarvexINI.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "core/Desktop.h"
#include "core/DriveLinks.h"
#include "core/Globals.h"
#include "core/ProgramPath.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "programs/editors/EditWatch.h"
#include "programs/editors/frmEditDrives.h"
#include "ui_frmEditTarvexINI.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Edit dv_tarvex.ini";

template <class Control>
Control* Named(Control* control, const QString& name) {
    control->setObjectName(name);
    return control;
}

bool IsManual(const TarvexProfile& profile) {
    return profile.PathType == "2";
}

bool IsText(const TarvexProfile& profile) {
    return profile.EditorType == "0";
}

}  // namespace

frmEditTarvexINI::frmEditTarvexINI()
    : Form(std::make_unique<Ui::frmEditTarvexINI>()), Former(ReadTarvexProfile()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdCancel);
    resize(fontMetrics().averageCharWidth() * 105, sizeHint().height());
    Guarded("frmEditTarvexINI-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "ok.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
    });
    for (std::size_t i = 0; i < Rows.size(); ++i)
        AddRow(i);
    Form->cmbPathType->setCurrentIndex(IsManual(Former) ? 1 : 0);
    Form->cmbEditorType->setCurrentIndex(IsText(Former) ? 1 : 0);
    Form->cmdDrives->setVisible(Drives::CanLayOut());
    Form->txtEditorPath->setText(ToScreen(Former.EditorPath));
    Form->txtEditorName->setText(ToScreen(Former.EditorName));
    const auto showEditor = [this] {
        const std::string editor = FromScreen(Form->txtEditorPath->text() + Form->txtEditorName->text());
        Form->lblEditorState->setText(FileExists(ExpandAppPath(editor)) ? tr("exists") : tr("missing"));
    };
    connect(Form->txtEditorPath, &QLineEdit::textChanged, this, showEditor);
    connect(Form->txtEditorName, &QLineEdit::textChanged, this, showEditor);
    showEditor();
    connect(Form->cmdBrowseEditor, &QPushButton::clicked, this, &frmEditTarvexINI::cmdBrowseEditor_Click);
    connect(Form->cmdDrives, &QPushButton::clicked, this, &frmEditTarvexINI::cmdDrives_Click);
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmEditTarvexINI::cmdOK_Click);
    auto* const edits = new EditWatch(*this, *Form->cmdCancel);
    for (const QComboBox* list : {Form->cmbPathType, Form->cmbEditorType})
        connect(list, &QComboBox::currentIndexChanged, edits, &EditWatch::Touch);
    Rows[0].Folder->setFocus();
}

frmEditTarvexINI::~frmEditTarvexINI() = default;

void frmEditTarvexINI::AddRow(std::size_t index) {
    const QString key = QLatin1String(FolderKeys[index].Key);
    const int line = static_cast<int>(index);
    Row& row = Rows[index];
    row.Folder = Named(new QLineEdit(ToScreen(Former.Folders[index])), QStringLiteral("txt") + key);
    row.Folder->setToolTip(key);
    row.Folder->setMinimumWidth(fontMetrics().averageCharWidth() * 28);
    row.Browse = Named(new QPushButton(tr("Browse...")), QStringLiteral("cmdBrowse") + key);
    row.Browse->setToolTip(tr("Choose the folder %1").arg(key));
    row.State = Named(new QLabel, QStringLiteral("lbl") + key + QStringLiteral("State"));
    row.State->setMinimumWidth(fontMetrics().horizontalAdvance(tr("missing")));
    row.Make = Named(new QPushButton(tr("Make")), QStringLiteral("cmdMake") + key);
    row.Make->setToolTip(tr("Make the folder %1").arg(key));
    for (QPushButton* button : {row.Browse, row.Make})
        button->setAutoDefault(false);
    // Each folder has the digit of its line for a mnemonic.
    auto* label =
        new QLabel(QStringLiteral("&%1 %2").arg(line + 1).arg(QLatin1String(FolderKeys[index].Meaning)));
    label->setBuddy(row.Folder);
    QGridLayout& grid = *Form->folderLayout;
    grid.addWidget(label, line, 0);
    grid.addWidget(row.Folder, line, 1);
    grid.addWidget(row.Browse, line, 2);
    grid.addWidget(row.State, line, 3);
    grid.addWidget(row.Make, line, 4);
    connect(row.Folder, &QLineEdit::textChanged, this, [this, index] { ShowState(index); });
    connect(row.Browse, &QPushButton::clicked, this, [this, index] { cmdBrowse_Click(index); });
    connect(row.Make, &QPushButton::clicked, this, [this, index] { cmdMake_Click(index); });
    ShowState(index);
}

void frmEditTarvexINI::ShowState(std::size_t index) {
    std::string folder = FromScreen(Rows[index].Folder->text());
    const bool exists = FolderExists(folder);
    Rows[index].State->setText(folder.empty() ? tr("empty") : exists ? tr("exists") : tr("missing"));
    Rows[index].Make->setEnabled(!folder.empty() && !exists);
}

void frmEditTarvexINI::ShowAllStates() {
    for (std::size_t i = 0; i < Rows.size(); ++i)
        ShowState(i);
}

void frmEditTarvexINI::cmdDrives_Click() {
    Guarded("frmEditTarvexINI-cmdDrives_Click", [&](Guard&) {
        auto* drives = new frmEditDrives;
        drives->setAttribute(Qt::WA_DeleteOnClose);
        connect(drives, &ScreenDialog::Unloaded, this, &frmEditTarvexINI::ShowAllStates);
        drives->ShowModal();
    });
}

void frmEditTarvexINI::cmdBrowse_Click(std::size_t index) {
    Guarded("frmEditTarvexINI-cmdBrowse_Click", [&](Guard&) {
        const std::string folder =
            BrowseForFolder(FromScreen(Rows[index].Folder->text()), FolderKeys[index].Key,
                            std::string(FolderKeys[index].Meaning) + " Folder Selection");
        if (!folder.empty())
            Rows[index].Folder->setText(ToScreen(folder));
    });
}

void frmEditTarvexINI::cmdMake_Click(std::size_t index) {
    Guarded("frmEditTarvexINI-cmdMake_Click",
            [&](Guard&) { MakeFolderPath(WithBackslash(FromScreen(Rows[index].Folder->text()))); });
    ShowState(index);
}

void frmEditTarvexINI::cmdBrowseEditor_Click() {
    Guarded("frmEditTarvexINI-cmdBrowseEditor_Click", [&](Guard&) {
        const std::optional<std::string> file =
            TheDesktop().AskFile({.Title = "General Editor Selection",
                                  .Folder = ExpandAppPath(FromScreen(Form->txtEditorPath->text()))});
        if (!file)
            return;
        std::string folder;
        std::string name;
        SplitFolderFile(*file, folder, name);
        Form->txtEditorPath->setText(ToScreen(folder));
        Form->txtEditorName->setText(ToScreen(name));
    });
}

TarvexProfile frmEditTarvexINI::Edited() const {
    TarvexProfile profile = Former;
    for (std::size_t i = 0; i < Rows.size(); ++i)
        if (Rows[i].Folder->text() != ToScreen(Former.Folders[i]))
            profile.Folders[i] = WithBackslash(FromScreen(Rows[i].Folder->text().trimmed()));
    // A type that the program does not know reads as 1, and stays in the file until it is changed.
    if ((Form->cmbPathType->currentIndex() == 1) != IsManual(Former))
        profile.PathType = IsManual(Former) ? "1" : "2";
    if ((Form->cmbEditorType->currentIndex() == 1) != IsText(Former))
        profile.EditorType = IsText(Former) ? "1" : "0";
    profile.EditorName = FromScreen(Form->txtEditorName->text().trimmed());
    if (Form->txtEditorPath->text() != ToScreen(Former.EditorPath))
        profile.EditorPath = WithBackslash(FromScreen(Form->txtEditorPath->text().trimmed()));
    return profile;
}

// False when the operator goes back to the form.
bool frmEditTarvexINI::SettleMissingFolders(const TarvexProfile& profile) {
    const std::vector<std::string> missing = MissingFolders(profile);
    if (missing.empty())
        return true;
    std::string text = "These folders do not exist:\r\n\r\n";
    for (const std::string& folder : missing)
        text += folder + "\r\n";
    text += "\r\nMake them now?";
    const Answer answer = TheDesktop().ShowMessage(
        {.Text = text, .Title = Title, .Picture = Icon::Question, .Choices = Buttons::YesNoCancel});
    if (answer == Answer::Yes)
        for (const std::string& folder : missing)
            MakeFolderPath(folder);
    return answer == Answer::Yes || answer == Answer::No;
}

void frmEditTarvexINI::cmdOK_Click() {
    Guarded("frmEditTarvexINI-cmdOK_Click", [&](Guard&) {
        const TarvexProfile profile = Edited();
        if (!SettleMissingFolders(profile))
            return;
        const std::string problem = WriteTarvexProfile(profile);
        if (problem.empty())
            return Unload();
        TheDesktop().ShowMessage({.Text = problem, .Title = Title, .Picture = Icon::Exclamation});
    });
    ShowAllStates();
}

}  // namespace Dorvane
