// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditCalib.h"

#include "core/ReportError.h"
#include "core/Text.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
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
    SetUpEntries(*Form->tblTypes);
    SetUpEntries(*Form->tblEpochs);
    Form->lblFile->setText(ToScreen(Calibration.File.Path));
    Form->txtDescription->setText(ToScreen(Calibration.Structure.Description));
    ShowEntries(*Form->tblTypes, Calibration.Structure.Groups[0]);
    ShowEntries(*Form->tblEpochs, Calibration.Structure.Groups[1]);
    const bool understood = Calibration.Problem.empty();
    Form->lblProblem->setVisible(!understood);
    Form->lblProblem->setText(
        ToScreen("The file cannot be read fully and is not written: " + Calibration.Problem));
    for (QWidget* control :
         std::initializer_list<QWidget*>{Form->tblTypes, Form->tblEpochs, Form->txtDescription, Form->cmdOK})
        control->setEnabled(understood);
    connect(Form->cmdOK, &QPushButton::clicked, this, &frmEditCalib::cmdOK_Click);
    connect(Form->cmdCancel, &QPushButton::clicked, this, [this] { Unload(); });
    Form->tblTypes->setFocus();
}

frmEditCalib::~frmEditCalib() = default;

void frmEditCalib::cmdOK_Click() {
    Guarded("frmEditCalib-cmdOK_Click", [&](Guard&) {
        Form->cmdOK->setFocus();
        Calibration.Structure.Description = Trim(FromScreen(Form->txtDescription->text()));
        Calibration.Structure.Groups = {EntriesOf(*Form->tblTypes), EntriesOf(*Form->tblEpochs)};
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
