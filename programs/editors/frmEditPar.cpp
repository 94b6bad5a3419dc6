// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditPar.h"

#include <QTableWidget>
#include <algorithm>
#include <limits>

#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "programs/editors/EditWatch.h"
#include "programs/editors/EntryLines.h"
#include "ui_frmEditPar.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Edit Parameter File";

QString NoteOf(const ParameterEdit& parameters) {
    if (parameters.File.Exists)
        return frmEditPar::tr("Comments and other lines of the file stay as they are.");
    if (!parameters.Master.empty())
        return frmEditPar::tr("This version is adjusted with %1 so far; OK makes it a file of its own.")
            .arg(ToScreen(parameters.Master));
    return frmEditPar::tr(
        "The file does not exist yet; OK makes it. The values are those that hold without it.");
}

}  // namespace

frmEditPar::frmEditPar(const std::string& path)
    : Form(std::make_unique<Ui::frmEditPar>()), Parameters(OpenParameters(path)) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdCancel);
    const int character = fontMetrics().averageCharWidth();
    setMinimumWidth(character * 55);
    resize(character * 110, fontMetrics().lineSpacing() * 32);
    Guarded("frmEditPar-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "ok.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
    });
    Form->tblParameters->SetUp(
        {{tr("Key")},
         {.Title = tr("Value"),
          .Choices = [](const std::vector<std::string>& line) { return ParameterWords(line[0]); }},
         {tr("Comment")}},
        std::numeric_limits<int>::max(), false);
    Form->tblParameters->Table().setColumnWidth(0, character * 31);
    Form->tblParameters->Table().setColumnWidth(1, character * 15);
    Form->lblFile->setText(ToScreen(path));
    Form->lblNote->setText(NoteOf(Parameters));
    for (const Krenn::ParameterKey& key : Krenn::ParameterKeys())
        Form->cmbKnown->addItem(QLatin1String(key.key));
    ShowLines();
    ShowMeaning();
    connect(Form->tblParameters, &EntryTable::LineChosen, this, &frmEditPar::ShowMeaning);
    connect(Form->cmdAddKnown, &QPushButton::clicked, this, &frmEditPar::cmdAddKnown_Click);
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmEditPar::cmdOK_Click);
    Edits = new EditWatch(*this, *Form->cmdCancel);
    Form->tblParameters->setFocus();
}

frmEditPar::~frmEditPar() = default;

// A line of the table bears the number of its line in the file.
void frmEditPar::ShowLines() {
    std::vector<EntryTable::Line> lines;
    for (std::size_t i = 0; i < Parameters.Lines.size(); ++i) {
        const ParameterLine& line = Parameters.Lines[i];
        if (line.IsEntry)
            lines.push_back({static_cast<int>(i) + 1, {line.Key, line.Value, line.Comment}});
    }
    Form->tblParameters->SetLines(lines);
}

void frmEditPar::ShowMeaning() {
    QString text;
    for (const EntryTable::Line& line : Form->tblParameters->Lines()) {
        if (line.Id != Form->tblParameters->ChosenId())
            continue;
        text = ToScreen(DescribeParameter(line.Texts[0]));
    }
    Form->lblMeaning->setText(text);
}

// New lines of the table have numbers behind those of all lines that it was given, comments not among them.
ParameterEdit frmEditPar::Edited() const {
    ParameterEdit edited = Parameters;
    std::vector<WantedParameter> wanted;
    for (const EntryTable::Line& line : Form->tblParameters->Lines()) {
        if (Form->tblParameters->IsBlank(line))
            continue;
        const auto place = static_cast<std::size_t>(line.Id) - 1;
        const bool known = place < Parameters.Lines.size() && Parameters.Lines[place].IsEntry;
        wanted.push_back({known ? line.Id : 0, line.Texts[0], line.Texts[1], line.Texts[2]});
    }
    ApplyParameters(edited, wanted);
    return edited;
}

void frmEditPar::cmdAddKnown_Click() {
    Guarded("frmEditPar-cmdAddKnown_Click", [&](Guard&) {
        Form->cmdAddKnown->setFocus();
        const Krenn::ParameterKey* key = Krenn::FindParameterKey(FromScreen(Form->cmbKnown->currentText()));
        if (key == nullptr)
            return;
        std::vector<EntryTable::Line> lines = Form->tblParameters->Lines();
        int last = static_cast<int>(Parameters.Lines.size());
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (Krenn::FindParameterKey(lines[i].Texts[0]) == key)
                return Form->tblParameters->Table().setCurrentCell(static_cast<int>(i), 1);
            last = std::max(last, lines[i].Id);
        }
        lines.push_back({last + 1, {key->key, Krenn::ParameterDefault(*key), ""}});
        Form->tblParameters->SetLines(lines);
        Edits->Touch();
        Form->tblParameters->Table().setCurrentCell(static_cast<int>(lines.size()) - 1, 1);
        ShowMeaning();
    });
}

void frmEditPar::cmdOK_Click() {
    Guarded("frmEditPar-cmdOK_Click", [&](Guard&) {
        Form->cmdOK->setFocus();
        ParameterEdit edited = Edited();
        const std::vector<std::string> problems = ParameterProblems(edited);
        if (!problems.empty())
            return TellProblems(Title, problems);
        const std::string problem = SaveParameters(edited);
        if (!problem.empty())
            return TellProblems(Title, {problem});
        Unload();
    });
}

}  // namespace Dorvane
