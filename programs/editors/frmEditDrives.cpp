// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditDrives.h"

#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "programs/editors/EditWatch.h"
#include "programs/editors/EntryLines.h"
#include "programs/editors/TarvexProfile.h"
#include "ui_frmEditDrives.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Edit Drive Letters";
constexpr int MostLetters = 26;

enum DriveColumn { LetterColumn, StateColumn, FolderColumn };

}  // namespace

frmEditDrives::frmEditDrives() : Form(std::make_unique<Ui::frmEditDrives>()), Drives(OpenDrives()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdCancel);
    resize(fontMetrics().averageCharWidth() * 90, fontMetrics().lineSpacing() * 26);
    Guarded("frmEditDrives-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "ok.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
    });
    Form->lblFile->setText(ToScreen(Drives.Folder));
    SetUpTable();
    ShowStates();
    connect(Form->cmdBrowse, &QPushButton::clicked, this, &frmEditDrives::cmdBrowse_Click);
    connect(Form->cmdMake, &QPushButton::clicked, this, &frmEditDrives::cmdMake_Click);
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmEditDrives::cmdOK_Click);
    Edits = new EditWatch(*this, *Form->cmdCancel);
    Form->tblDrives->setFocus();
}

frmEditDrives::~frmEditDrives() = default;

void frmEditDrives::SetUpTable() {
    Form->tblDrives->SetUp({{.Title = tr("Letter"),
                             .Longest = 1,
                             .UpperCase = true,
                             .Choices = [this](const std::vector<std::string>&) { return FreeLetters(); }},
                            {.Title = tr("State"), .Longest = 12, .Fixed = true},
                            {.Title = tr("Leads to")}},
                           MostLetters, false);
    std::vector<EntryTable::Line> lines;
    for (const DriveLine& line : Drives.Lines)
        lines.push_back({static_cast<int>(lines.size()) + 1, {line.Letter, "", line.Folder}, true});
    Form->tblDrives->SetLines(lines);
    connect(Form->tblDrives, &EntryTable::Edited, this, &frmEditDrives::ShowStates);
    connect(Form->tblDrives, &EntryTable::LineChosen, this, &frmEditDrives::ShowStates);
}

DriveEdit frmEditDrives::Edited() const {
    DriveEdit edited = Drives;
    edited.Lines.clear();
    for (const EntryTable::Line& line : Form->tblDrives->Lines())
        if (!Form->tblDrives->IsBlank(line))
            edited.Lines.push_back({line.Texts[LetterColumn], line.Texts[FolderColumn]});
    return edited;
}

std::vector<std::string> frmEditDrives::FreeLetters() const {
    std::vector<DriveLine> lines = Edited().Lines;
    std::vector<std::string> letters;
    for (std::string letter = FreeLetter(lines); !letter.empty(); letter = FreeLetter(lines)) {
        letters.push_back(letter);
        lines.push_back({letter, ""});
    }
    return letters;
}

std::string frmEditDrives::ChosenFolder() const {
    for (const EntryTable::Line& line : Form->tblDrives->Lines())
        if (line.Id == Form->tblDrives->ChosenId())
            return line.Texts[FolderColumn];
    return "";
}

void frmEditDrives::ShowStates() {
    Guarded("frmEditDrives-ShowStates", [&](Guard&) {
        for (const EntryTable::Line& line : Form->tblDrives->Lines())
            Form->tblDrives->SetText(
                line.Id, StateColumn,
                line.Texts[FolderColumn].empty() ? "" : StateOfDriveFolder(line.Texts[FolderColumn]));
        const std::string folder = ChosenFolder();
        Form->cmdBrowse->setEnabled(Form->tblDrives->ChosenId() != 0);
        Form->cmdMake->setEnabled(folder.starts_with('/') && StateOfDriveFolder(folder) == "missing");
    });
}

void frmEditDrives::cmdBrowse_Click() {
    Guarded("frmEditDrives-cmdBrowse_Click", [&](Guard&) {
        Form->tblDrives->FinishTyping();
        const std::string folder =
            BrowseForFolder(DriveFolderOf(ChosenFolder()), "Drive", "Drive Letter Folder Selection");
        if (folder.empty())
            return;
        Edits->Touch();
        Form->tblDrives->SetText(Form->tblDrives->ChosenId(), FolderColumn, HostFolderOf(folder));
        ShowStates();
    });
}

void frmEditDrives::cmdMake_Click() {
    Guarded("frmEditDrives-cmdMake_Click", [&](Guard&) {
        Form->tblDrives->FinishTyping();
        MakeFolderPath(DriveFolderOf(ChosenFolder()));
    });
    ShowStates();
}

// False when the operator goes back to the form.
bool frmEditDrives::SettleWarnings(const DriveEdit& edited) {
    const std::vector<std::string> warnings = DriveWarnings(edited);
    return warnings.empty() || AskInSpite(Title, warnings);
}

void frmEditDrives::cmdOK_Click() {
    Guarded("frmEditDrives-cmdOK_Click", [&](Guard&) {
        Form->cmdOK->setFocus();
        DriveEdit edited = Edited();
        const std::vector<std::string> problems = DriveProblems(edited);
        if (!problems.empty())
            return TellProblems(Title, problems);
        if (!SettleWarnings(edited))
            return;
        const std::string problem = SaveDrives(edited);
        if (!problem.empty())
            return TellProblems(Title, {problem});
        Unload();
    });
}

}  // namespace Dorvane
