// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditChoice.h"

#include <QLayout>

#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "datatree/basRead.h"
#include "programs/editors/EntryLines.h"
#include "ui_frmEditChoice.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Edit Data Structures";

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
    Form->tblSystems->SetUp({{tr("Name"), LongestCode, true},
                             {tr("Data"), 0, false, true},
                             {tr("Description"), LongestDescription}},
                            MostSystems);
    for (EntryTable* table : {Form->tblLocations, Form->tblTypes, Form->tblEpochs}) {
        SetUpEntries(*table);
        table->layout()->setContentsMargins(Form->systemLayout->contentsMargins());
    }
    Form->lblFile->setText(ToScreen(Choices.File.Path));
    ShowSystems();
    connect(Form->tblSystems, &EntryTable::LineChosen, this, &frmEditChoice::tblSystems_LineChosen);
    connect(Form->tblSystems, &EntryTable::Marked, this, &frmEditChoice::tblSystems_LineChosen);
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmEditChoice::cmdOK_Click);
    connect(Form->cmdCancel, &QPushButton::clicked, this, [this] { Unload(); });
    Form->tblSystems->setFocus();
}

frmEditChoice::~frmEditChoice() = default;

// The name of a system that exists is that of its files and folders, so it stays.
void frmEditChoice::ShowSystems() {
    std::vector<EntryTable::Line> lines;
    for (const SystemEdit& system : Choices.Systems) {
        const int id = static_cast<int>(lines.size()) + 1;
        lines.push_back({id, {system.Name, system.IsData() ? "1" : "", system.Description}, true});
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
        system.Name = line.Texts[0];
        SetDataSystem(system, line.Texts[1] == "1");
        system.Description = line.Texts[2];
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
}

void frmEditChoice::tblSystems_LineChosen() {
    Guarded("frmEditChoice-tblSystems_LineChosen", [&](Guard&) {
        TakeGroups();
        TakeSystems();
        ShowGroups();
    });
}

void frmEditChoice::cmdOK_Click() {
    Guarded("frmEditChoice-cmdOK_Click", [&](Guard&) {
        Form->cmdOK->setFocus();
        TakeGroups();
        TakeSystems();
        const std::vector<std::string> problems = ChoiceProblems(Choices);
        if (!problems.empty())
            return TellProblems(Title, problems);
        const std::string problem = SaveChoices(Choices);
        if (!problem.empty())
            return TellProblems(Title, {problem});
        Unload();
    });
}

}  // namespace Dorvane
