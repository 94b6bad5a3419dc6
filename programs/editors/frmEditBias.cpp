// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditBias.h"

#include <limits>
#include <map>

#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "programs/editors/CodeEntry.h"
#include "programs/editors/EditWatch.h"
#include "programs/editors/EntryLines.h"
#include "ui_frmEditBias.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Edit Bias Values";

}  // namespace

frmEditBias::frmEditBias(const std::string& folder)
    : Form(std::make_unique<Ui::frmEditBias>()), Bias(OpenBias(folder)) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdCancel);
    resize(fontMetrics().averageCharWidth() * 105, fontMetrics().lineSpacing() * 26);
    Guarded("frmEditBias-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "ok.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
    });
    Form->tblBias->SetUp({{.Title = tr("Location"), .Longest = LongestCode, .UpperCase = true},
                          {tr("Bias 1")},
                          {tr("Bias 2")},
                          {tr("Bias 3")},
                          {tr("Bias 4")}},
                         std::numeric_limits<int>::max(), false);
    Form->lblFile->setText(ToScreen(Bias.File.Path));
    ShowLines();
    const bool understood = Bias.Problem.empty();
    Form->lblProblem->setVisible(!understood);
    Form->lblProblem->setText(ToScreen("The file cannot be read fully and is not written: " + Bias.Problem));
    Form->tblBias->setEnabled(understood);
    Form->cmdOK->setEnabled(understood);
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmEditBias::cmdOK_Click);
    new EditWatch(*this, *Form->cmdCancel);
    Form->tblBias->setFocus();
}

frmEditBias::~frmEditBias() = default;

// A line of the table bears the number of its line in the file.
void frmEditBias::ShowLines() {
    std::vector<EntryTable::Line> lines;
    for (std::size_t i = 0; i < Bias.Lines.size(); ++i) {
        const BiasLine& line = Bias.Lines[i];
        if (!line.IsEntry)
            continue;
        lines.push_back({static_cast<int>(i) + 1, {line.Key}});
        lines.back().Texts.insert(lines.back().Texts.end(), line.Values.begin(), line.Values.end());
    }
    Form->tblBias->SetLines(lines);
}

// The lines of the file with the entries of the table in their places, new ones at the end.
std::vector<BiasLine> frmEditBias::EditedLines() const {
    std::map<int, BiasLine> lines;
    for (std::size_t i = 0; i < Bias.Lines.size(); ++i)
        if (!Bias.Lines[i].IsEntry)
            lines[static_cast<int>(i) + 1] = Bias.Lines[i];
    int next = static_cast<int>(Bias.Lines.size());
    for (const EntryTable::Line& shown : Form->tblBias->Lines()) {
        if (Form->tblBias->IsBlank(shown))
            continue;
        const auto place = static_cast<std::size_t>(shown.Id) - 1;
        const bool known = place < Bias.Lines.size() && Bias.Lines[place].IsEntry;
        BiasLine line = known ? Bias.Lines[place] : BiasLine();
        line.IsEntry = true;
        line.Key = shown.Texts[0];
        std::copy(shown.Texts.begin() + 1, shown.Texts.end(), line.Values.begin());
        lines[known ? shown.Id : ++next] = line;
    }
    std::vector<BiasLine> result;
    for (const auto& [number, line] : lines)
        result.push_back(line);
    return result;
}

void frmEditBias::cmdOK_Click() {
    Guarded("frmEditBias-cmdOK_Click", [&](Guard&) {
        Form->cmdOK->setFocus();
        BiasEdit edited = Bias;
        edited.Lines = EditedLines();
        const std::vector<std::string> problems = BiasProblems(edited);
        if (!problems.empty())
            return TellProblems(Title, problems);
        const std::string problem = SaveBias(edited);
        if (!problem.empty())
            return TellProblems(Title, {problem});
        Unload();
    });
}

}  // namespace Dorvane
