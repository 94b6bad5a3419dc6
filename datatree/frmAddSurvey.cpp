// SPDX-License-Identifier: GPL-3.0-or-later
#include "datatree/frmAddSurvey.h"

#include <QListWidget>
#include <QSignalBlocker>

#include "core/ReportError.h"
#include "core/widgets/EmptyNote.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "ui_frmAddSurvey.h"

namespace Dorvane {

namespace {

// Shows the names in a list, the chosen one selected if it is among them.
void Fill(QListWidget& list, const List1<std::string>& names, const std::string& chosen = "") {
    const QSignalBlocker quiet(list);
    list.clear();
    for (const std::string& name : names) {
        list.addItem(ToScreen(name));
        if (!chosen.empty() && name == chosen)
            list.setCurrentRow(list.count() - 1);
    }
}

// The selected names of a list that shows `names`, in its order.
List1<std::string> SelectedOf(const QListWidget& list, const List1<std::string>& names) {
    List1<std::string> selected;
    for (int i = 1; i <= names.Count(); ++i)
        if (list.item(i - 1)->isSelected())
            selected.Add(names[i]);
    return selected;
}

// A choice by the keyboard is a click as well as one by the mouse, which also counts on what is selected.
template <class Click>
void OnChoice(QListWidget* list, Click click) {
    QObject::connect(list, &QListWidget::itemSelectionChanged, list, click);
    QObject::connect(list, &QListWidget::itemClicked, list, click);
}

}  // namespace

frmAddSurvey::frmAddSurvey() : Form(std::make_unique<Ui::frmAddSurvey>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdCancel);
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 90, metrics.lineSpacing() * 22);
    Form->lblDirectory->hide();
    Form->txtHistory->setMaxLength(HistoryRecord::LongestUsage);
    Guarded("frmAddSurvey-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdOK, "add.svg");
        SetOptionalPicture(*Form->cmdCancel, "cancel.svg");
    });
    for (QListWidget* list : {Form->lstRoot, Form->lstLocation, Form->lstTypeMulti, Form->lstEpoch})
        AddEmptyNote(*list);
    OnChoice(Form->lstRoot, [this] { lstRoot_Click(); });
    OnChoice(Form->lstLocation, [this] { lstLocation_Click(); });
    OnChoice(Form->lstEpoch, [this] { lstEpoch_Click(); });
    connect(Form->lstTypeMulti, &QListWidget::itemSelectionChanged, this, [this] { lstTypeMulti_Click(); });
    connect(Form->cmdOK, &QPushButton::clicked, this, [this] { cmdOK_Click(); });
    connect(Form->cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
}

frmAddSurvey::~frmAddSurvey() = default;

void frmAddSurvey::SetDirectory(const std::string& directory) {
    SetSurveyDirectory(Choice, directory);
    Form->lblDirectory->setText(ToScreen(Choice.Directory));
    Form->lblDirectory->setVisible(!Choice.Directory.empty());
    Fill(*Form->lstRoot, Choice.Roots, Choice.Root);
    ShowEmptyNote(*Form->lstRoot, WhyEmpty(Choice, SurveyList::Root));
    ShowRoot();
    // The next keystroke belongs to the first choice that is open.
    if (Choice.Locations.Empty())
        Form->lstRoot->setFocus();
    else if (Choice.Location.empty())
        Form->lstLocation->setFocus();
    else
        Form->lstTypeMulti->setFocus();
}

void frmAddSurvey::ShowRoot() {
    Form->lblRoot->setText(ToScreen(Choice.Root));
    Fill(*Form->lstLocation, Choice.Locations, Choice.Location);
    ShowEmptyNote(*Form->lstLocation, WhyEmpty(Choice, SurveyList::Location));
    Fill(*Form->lstTypeMulti, Choice.Types);
    ShowEmptyNote(*Form->lstTypeMulti, WhyEmpty(Choice, SurveyList::Type));
    ShowLocation();
}

void frmAddSurvey::ShowLocation() {
    Form->lblLocation->setText(ToScreen(Choice.Location));
    ShowEpochs();
}

void frmAddSurvey::ShowEpochs() {
    Form->lblEpoch->setText(ToScreen(Choice.Epoch));
    Fill(*Form->lstEpoch, Choice.Epochs);
    ShowEmptyNote(*Form->lstEpoch, WhyEmpty(Choice, SurveyList::Epoch));
}

void frmAddSurvey::lstRoot_Click() {
    Guarded("frmAddSurvey-lstRoot_Click", [&](Guard&) {
        const List1<std::string> selected = SelectedOf(*Form->lstRoot, Choice.Roots);
        if (selected.Empty())
            return;
        ChooseSurveyRoot(Choice, selected[1]);
        ShowRoot();
    });
}

void frmAddSurvey::lstLocation_Click() {
    Guarded("frmAddSurvey-lstLocation_Click", [&](Guard&) {
        const List1<std::string> selected = SelectedOf(*Form->lstLocation, Choice.Locations);
        if (selected.Empty())
            return;
        ChooseSurveyLocation(Choice, selected[1]);
        const QSignalBlocker quiet(Form->lstTypeMulti);
        Form->lstTypeMulti->clearSelection();
        ShowLocation();
    });
}

void frmAddSurvey::lstTypeMulti_Click() {
    Guarded("frmAddSurvey-lstTypeMulti_Click", [&](Guard&) {
        ChooseSurveyTypes(Choice, SelectedOf(*Form->lstTypeMulti, Choice.Types));
        ShowEpochs();
    });
}

void frmAddSurvey::lstEpoch_Click() {
    Guarded("frmAddSurvey-lstEpoch_Click", [&](Guard&) {
        const List1<std::string> selected = SelectedOf(*Form->lstEpoch, Choice.Epochs);
        if (selected.Empty())
            return;
        ChooseSurveyEpoch(Choice, selected[1]);
        Form->lblEpoch->setText(ToScreen(Choice.Epoch));
    });
}

void frmAddSurvey::cmdOK_Click() {
    Guarded("frmAddSurvey-cmdOK_Click", [&](Guard&) {
        if (ConfirmSurvey(Choice, FromScreen(Form->txtHistory->text()), Chosen))
            Unload();
    });
}

void frmAddSurvey::cmdCancel_Click() {
    Guarded("frmAddSurvey-cmdCancel_Click", [&](Guard&) {
        Chosen = {};
        Unload();
    });
}

}  // namespace Dorvane
