// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditChoice.h"

#include <QLayout>
#include <QStyle>
#include <algorithm>
#include <array>

#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "datatree/basRead.h"
#include "programs/editors/ChoiceCheck.h"
#include "programs/editors/EditWatch.h"
#include "programs/editors/EntryLines.h"
#include "ui_frmEditChoice.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Edit Data Structures";
constexpr const char* DataKind = "Data";
constexpr const char* OtherKind = "Other";

// Where the columns of the systems stand.
enum SystemColumn { NameColumn, KindColumn, DescriptionColumn };

bool HasEntries(const SystemEdit& system) {
    return std::any_of(system.Structure.Groups.begin(), system.Structure.Groups.end(),
                       [](const std::vector<CodeEntry>& group) { return !group.empty(); });
}

}  // namespace

frmEditChoice::frmEditChoice(const std::string& folder)
    : Form(std::make_unique<Ui::frmEditChoice>()), Choices(OpenChoices(folder)) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdCancel);
    resize(fontMetrics().averageCharWidth() * 125, fontMetrics().lineSpacing() * 30);
    Guarded("frmEditChoice-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "ok.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
    });
    Form->tblSystems->SetUp({{.Title = tr("Name"), .Longest = LongestCode, .UpperCase = true},
                             {.Title = tr("Kind"),
                              .Default = DataKind,
                              .Choices =
                                  [](const std::vector<std::string>&) {
                                      return std::vector<std::string>{DataKind, OtherKind};
                                  }},
                             {.Title = tr("Description"), .Longest = LongestDescription}},
                            MostSystems);
    SetUpEntries(*Form->tblLocations);
    SetUpEntries(*Form->tblTypes, Choices.Known.DataTypes);
    SetUpEntries(*Form->tblEpochs);
    for (std::size_t i = 0; i < DataGroups; ++i) {
        TableOf(i).layout()->setContentsMargins(Form->systemLayout->contentsMargins());
        TableOf(i).MayRemove = [this, i](const EntryTable::Line& line) {
            return MayRemoveEntry(i, line.Texts[0]);
        };
        connect(&TableOf(i), &EntryTable::Edited, this, &frmEditChoice::tables_Edited);
    }
    Form->tblSystems->MayRemove = [this](const EntryTable::Line& line) { return MayRemoveSystem(line.Id); };
    Form->lblFile->setText(ToScreen(Choices.File.Path));
    ShowSystems();
    connect(Form->tblSystems, &EntryTable::LineChosen, this, &frmEditChoice::tblSystems_LineChosen);
    connect(Form->tblSystems, &EntryTable::Edited, this, &frmEditChoice::tblSystems_LineChosen);
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmEditChoice::cmdOK_Click);
    new EditWatch(*this, *Form->cmdCancel);
    Form->tblSystems->setFocus();
}

frmEditChoice::~frmEditChoice() = default;

// The name of a system that exists is that of its files and folders, so it stays.
void frmEditChoice::ShowSystems() {
    std::vector<EntryTable::Line> lines;
    for (const SystemEdit& system : Choices.Systems) {
        const int id = static_cast<int>(lines.size()) + 1;
        lines.push_back(
            {id, {system.Name, system.IsData() ? DataKind : OtherKind, system.Description}, true});
        Systems[id] = system;
    }
    Form->tblSystems->SetLines(lines);
    const bool understood = Choices.Problem.empty();
    Form->lblProblem->setVisible(!understood);
    Form->lblProblem->setText(
        ToScreen("CHOICES.SYS cannot be read fully and is not written: " + Choices.Problem));
    Form->tblSystems->setEnabled(understood);
    Form->cmdOK->setEnabled(understood);
    ShowGroups();
}

void frmEditChoice::TakeGroups() {
    const auto shown = Systems.find(Shown);
    if (shown == Systems.end() || !Form->sstabGroups->isEnabled())
        return;
    std::vector<std::vector<CodeEntry>>& groups = shown->second.Structure.Groups;
    groups = {EntriesOf(*Form->tblLocations), EntriesOf(*Form->tblTypes), EntriesOf(*Form->tblEpochs)};
}

void frmEditChoice::TakeSystems() {
    Choices.Systems.clear();
    for (const EntryTable::Line& line : Form->tblSystems->Lines()) {
        SystemEdit& system = Systems[line.Id];
        if (Form->tblSystems->IsBlank(line) && !HasEntries(system))
            continue;
        system.Name = line.Texts[NameColumn];
        SetDataSystem(system, line.Texts[KindColumn] == DataKind);
        system.Description = line.Texts[DescriptionColumn];
        Choices.Systems.push_back(system);
    }
}

void frmEditChoice::ShowGroups() {
    Shown = Form->tblSystems->ChosenId();
    const SystemEdit none;
    const SystemEdit& system = Shown == 0 ? none : Systems[Shown];
    const bool editable = Shown != 0 && system.IsData() && system.Problem.empty() && Choices.Problem.empty();
    std::string note;
    if (Shown != 0 && !system.IsData())
        note = "Only a data system has locations, data types and epochs.";
    else if (!system.Problem.empty())
        note = system.Name + ".STR cannot be read fully and is not written: " + system.Problem;
    Form->lblNote->setVisible(!note.empty());
    Form->lblNote->setText(ToScreen(note));
    Form->fraStructure->setTitle(system.Name.empty() ? tr("Structure")
                                                     : tr("Structure of %1").arg(ToCaption(system.Name)));
    Form->sstabGroups->setEnabled(editable);
    ShowEntries(*Form->tblLocations, system.Structure.Groups[0]);
    ShowEntries(*Form->tblTypes, system.Structure.Groups[1]);
    ShowEntries(*Form->tblEpochs, system.Structure.Groups[2]);
    ShowMarks();
}

EntryTable& frmEditChoice::TableOf(std::size_t group) const {
    return *std::array{Form->tblLocations, Form->tblTypes, Form->tblEpochs}[group];
}

void frmEditChoice::TakeAll() {
    TakeGroups();
    TakeSystems();
}

// Faults and doubts of what is shown, at the lines that have them.
void frmEditChoice::ShowMarks() {
    std::map<int, std::string> marks;
    const std::vector<std::string> notes = SystemNotes(Choices);
    std::size_t place = 0;
    for (const EntryTable::Line& line : Form->tblSystems->Lines())
        if (!Form->tblSystems->IsBlank(line) || HasEntries(Systems[line.Id]))
            if (const std::string& note = notes[place++]; !note.empty())
                marks[line.Id] = note;
    Form->tblSystems->ShowMarks(marks);
    const SystemEdit none;
    const SystemEdit& system = Shown == 0 ? none : Systems[Shown];
    const QIcon warning = style()->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this);
    for (std::size_t i = 0; i < DataGroups; ++i) {
        const std::vector<std::string> entryNotes = EntryNotes(Choices, system, i);
        MarkEntries(TableOf(i), entryNotes);
        const bool marked = std::any_of(entryNotes.begin(), entryNotes.end(),
                                        [](const std::string& note) { return !note.empty(); });
        Form->sstabGroups->setTabIcon(static_cast<int>(i), marked ? warning : QIcon());
    }
}

bool frmEditChoice::MayRemoveSystem(int id) {
    bool may = false;
    Guarded("frmEditChoice-cmdRemove_Click", [&](Guard&) {
        const std::string reason = WhySystemStays(Choices, Systems[id]);
        if (!reason.empty())
            return TellProblems(Title, {reason});
        may = true;
    });
    return may;
}

bool frmEditChoice::MayRemoveEntry(std::size_t group, const std::string& code) {
    bool may = false;
    Guarded("frmEditChoice-cmdRemove_Click", [&](Guard&) {
        const std::string reason = WhyEntryStays(Systems[Shown], group, code);
        if (!reason.empty())
            return TellProblems(Title, {reason});
        may = true;
    });
    return may;
}

void frmEditChoice::tables_Edited() {
    Guarded("frmEditChoice-tables_Edited", [&](Guard&) {
        TakeAll();
        ShowMarks();
    });
}

void frmEditChoice::tblSystems_LineChosen() {
    Guarded("frmEditChoice-tblSystems_LineChosen", [&](Guard&) {
        TakeAll();
        ShowGroups();
    });
}

// False when the operator goes back to the form.
bool frmEditChoice::SettleWarnings() {
    const std::vector<std::string> warnings = ChoiceWarnings(Choices);
    return warnings.empty() || AskInSpite(Title, warnings);
}

void frmEditChoice::cmdOK_Click() {
    Guarded("frmEditChoice-cmdOK_Click", [&](Guard&) {
        Form->cmdOK->setFocus();
        TakeAll();
        const std::vector<std::string> problems = ChoiceProblems(Choices);
        if (!problems.empty())
            return TellProblems(Title, problems);
        if (!SettleWarnings())
            return;
        const std::string problem = SaveChoices(Choices);
        if (!problem.empty())
            return TellProblems(Title, {problem});
        Unload();
    });
}

}  // namespace Dorvane
