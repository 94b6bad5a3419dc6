// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditCalib.h"

#include <array>

#include "core/ReportError.h"
#include "core/Text.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "programs/editors/EditWatch.h"
#include "programs/editors/EntryLines.h"
#include "ui_frmEditCalib.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Edit Calibration Structures";

}  // namespace

frmEditCalib::frmEditCalib(const std::string& folder, const std::string& calibPath)
    : Form(std::make_unique<Ui::frmEditCalib>()), Calibration(OpenCalibStructure(folder, calibPath)) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdCancel);
    resize(fontMetrics().averageCharWidth() * 105, fontMetrics().lineSpacing() * 30);
    Guarded("frmEditCalib-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "ok.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
    });
    SetUpTables();
    Form->lblFile->setText(ToScreen(Calibration.File.Path));
    Form->txtDescription->setText(ToScreen(Calibration.Structure.Description));
    ShowEntries(*Form->tblTypes, Calibration.Structure.Groups[0]);
    ShowEntries(*Form->tblEpochs, Calibration.Structure.Groups[1]);
    ShowMarks();
    const bool understood = Calibration.Problem.empty();
    Form->lblProblem->setVisible(!understood);
    Form->lblProblem->setText(
        ToScreen("The file cannot be read fully and is not written: " + Calibration.Problem));
    for (QWidget* control :
         std::initializer_list<QWidget*>{Form->tblTypes, Form->tblEpochs, Form->txtDescription, Form->cmdOK})
        control->setEnabled(understood);
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmEditCalib::cmdOK_Click);
    new EditWatch(*this, *Form->cmdCancel);
    Form->tblTypes->setFocus();
}

frmEditCalib::~frmEditCalib() = default;

void frmEditCalib::SetUpTables() {
    SetUpEntries(*Form->tblTypes, Calibration.Known.CalibrationTypes);
    SetUpEntries(*Form->tblEpochs);
    const std::array tables{Form->tblTypes, Form->tblEpochs};
    for (std::size_t i = 0; i < tables.size(); ++i) {
        tables[i]->MayRemove = [this, i](const EntryTable::Line& line) {
            return MayRemove(i, line.Texts[0]);
        };
        connect(tables[i], &EntryTable::Edited, this, [this] {
            TakeGroups();
            ShowMarks();
        });
    }
}

void frmEditCalib::TakeGroups() {
    Calibration.Structure.Groups = {EntriesOf(*Form->tblTypes), EntriesOf(*Form->tblEpochs)};
}

void frmEditCalib::ShowMarks() {
    MarkEntries(*Form->tblTypes, CalibNotes(Calibration, 0));
    MarkEntries(*Form->tblEpochs, CalibNotes(Calibration, 1));
}

bool frmEditCalib::MayRemove(std::size_t group, const std::string& code) {
    bool may = false;
    Guarded("frmEditCalib-cmdRemove_Click", [&](Guard&) {
        const std::string reason = WhyCalibEntryStays(Calibration, group, code);
        if (!reason.empty())
            return TellProblems(Title, {reason});
        may = true;
    });
    return may;
}

void frmEditCalib::cmdOK_Click() {
    Guarded("frmEditCalib-cmdOK_Click", [&](Guard&) {
        Form->cmdOK->setFocus();
        Calibration.Structure.Description = Trim(FromScreen(Form->txtDescription->text()));
        TakeGroups();
        const std::vector<std::string> problems = CalibProblems(Calibration);
        if (!problems.empty())
            return TellProblems(Title, problems);
        const std::string problem = SaveCalibStructure(Calibration);
        if (!problem.empty())
            return TellProblems(Title, {problem});
        Unload();
    });
}

}  // namespace Dorvane
