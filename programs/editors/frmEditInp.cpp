// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/frmEditInp.h"

#include <fmt/format.h>

#include <algorithm>

#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/WaitCursor.h"
#include "programs/editors/EditWatch.h"
#include "programs/editors/EntryLines.h"
#include "ui_frmEditInp.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Edit Input File";
constexpr std::size_t MostNamed = 20;

std::string Counted(long count, const char* one, const char* many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

// The names of rows, each once, the first twenty in full.
std::string NamesOf(const InputText& text, const std::vector<std::size_t>& rows) {
    std::vector<std::string> names;
    for (const std::size_t row : rows)
        if (std::find(names.begin(), names.end(), text.Rows[row].Name) == names.end())
            names.push_back(text.Rows[row].Name);
    std::string list;
    for (std::size_t i = 0; i < names.size() && i < MostNamed; ++i)
        list += (i == 0 ? "" : ", ") + names[i];
    return names.size() > MostNamed ? fmt::format("{} and {} more", list, names.size() - MostNamed) : list;
}

}  // namespace

frmEditInp::frmEditInp(const std::string& path)
    : Form(std::make_unique<Ui::frmEditInp>()), Input(OpenInputVersion(path)) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdClose);
    setMinimumWidth(fontMetrics().averageCharWidth() * 80);
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().lineSpacing() * 36);
    Guarded("frmEditInp-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdSave, "ok.svg");
        SetOptionalPicture(*Form->cmdSaveNew, "add.svg");
        SetOptionalPicture(*Form->cmdClose, "exit.svg");
    });
    Form->txtComment->setFixedHeight(fontMetrics().lineSpacing() * 4);
    Form->txtFind->setMinimumWidth(fontMetrics().averageCharWidth() * 18);
    SetUpTabs();
    ShowInput();
    connect(Form->txtFind, &QLineEdit::textChanged, this, &frmEditInp::ShowFound);
    connect(Form->cmdSave, &QPushButton::clicked, this, &frmEditInp::cmdSave_Click);
    connect(Form->cmdSaveNew, &QPushButton::clicked, this, &frmEditInp::cmdSaveNew_Click);
    connect(Form->cmdClose, &QPushButton::clicked, this, &frmEditInp::cmdClose_Click);
    Form->trvStations->setFocus();
}

frmEditInp::~frmEditInp() = default;

void frmEditInp::SetUpTabs() {
    Tabs = {{Form->trvStations, NoteKind::Station, "Stations"},
            {Form->trvPoints, NoteKind::Point, "Points"},
            {Form->trvTracker, NoteKind::Tracker, "Tracker"},
            {Form->trvTotal, NoteKind::Total, "Total"},
            {Form->trvAngle, NoteKind::Angle, "Angle"},
            {Form->trvDistance, NoteKind::Distance, "Distance"},
            {Form->trvHeight, NoteKind::Height, "Height"}};
    for (const Tab& tab : Tabs)
        connect(tab.Tree, &InputRowTree::Ticked, this, &frmEditInp::Tick);
}

void frmEditInp::ShowInput() {
    const WaitCursor wait;
    Form->lblVersion->setText(Input.Version.empty() ? tr("Master :")
                                                    : tr("Version %1 :").arg(ToScreen(Input.Version)));
    Form->lblFile->setText(ToScreen(Input.File.Path));
    const bool understood = Input.Problem.empty();
    Form->lblProblem->setVisible(!understood);
    Form->lblProblem->setText(
        ToScreen("The file cannot be read fully, so no version is made of it: " + Input.Problem));
    Form->cmdSave->setEnabled(understood && !Input.Version.empty());
    Form->cmdSaveNew->setEnabled(understood);
    Form->txtComment->setPlainText(ToScreen(CommentOf(Input.Notes)));
    for (const Tab& tab : Tabs) {
        tab.Tree->SetRows(Input.Text, Input.Kinds, tab.Kind);
        const int index = Form->sstabRows->indexOf(tab.Tree);
        Form->sstabRows->setTabText(
            index, QStringLiteral("%1 (%2)").arg(QLatin1String(tab.Title)).arg(tab.Tree->RowCount()));
        tab.Tree->setEnabled(understood);
    }
    Taken.assign(Input.Text.Rows.size(), false);
    KeepAsSaved();
    ShowFates();
    ShowFound();
}

void frmEditInp::ShowFates() {
    Now = Fates(Input.Text, Taken);
    for (const Tab& tab : Tabs)
        tab.Tree->ShowFates(Now);
    ShowSummary();
}

void frmEditInp::ShowSummary() {
    long stations = 0;
    long points = 0;
    long observations = 0;
    long others = 0;
    for (std::size_t i = 0; i < Now.size(); ++i) {
        if (Now[i] == Fate::Stays)
            continue;
        const InputRow& row = Input.Text.Rows[i];
        (row.IsObservation()            ? observations
         : row.Kind == RowKind::Station ? stations
         : row.Kind == RowKind::Point   ? points
                                        : others) += 1;
    }
    std::string text = "Nothing is left out.";
    if (stations + points + observations > 0)
        text = "Left out: " + Counted(stations, "station", "stations") + ", " +
               Counted(points, "point", "points") + ", " +
               Counted(observations, "row of observations", "rows of observations");
    if (others > 0)
        text += " and " + Counted(others, "row of fixed points or pairs", "rows of fixed points or pairs") +
                " that go with them";
    Form->lblSummary->setText(ToScreen(text));
}

void frmEditInp::ShowFound() {
    const QString part = Form->txtFind->text().trimmed();
    for (const Tab& tab : Tabs)
        tab.Tree->ShowOnly(part);
}

void frmEditInp::Tick(const std::vector<std::size_t>& rows, bool taken) {
    Guarded("frmEditInp-Tick", [&](Guard&) {
        for (const std::size_t row : rows)
            Taken[row] = taken;
        ShowFates();
    });
}

std::string frmEditInp::Comment() const {
    std::string comment = FromScreen(Form->txtComment->toPlainText());
    while (!comment.empty() && (comment.back() == '\n' || comment.back() == ' '))
        comment.pop_back();
    return comment;
}

bool frmEditInp::Changed() const {
    return Taken != SavedTaken || Comment() != SavedComment;
}

void frmEditInp::KeepAsSaved() {
    SavedTaken = Taken;
    SavedComment = Comment();
}

// False when nothing is to be written.
bool frmEditInp::SettleWhatIsLeft() {
    if (!HasObservations(Input.Text, Now)) {
        TellProblems(Title, {"No observation would be left."});
        return false;
    }
    const std::vector<std::size_t> unused = UnusedRows(Input.Text, Now);
    if (unused.empty())
        return true;
    const Answer answer =
        TheDesktop().ShowMessage({.Text = "No observation uses these any more:\r\n\r\n" +
                                          NamesOf(Input.Text, unused) + "\r\n\r\nLeave them out too?",
                                  .Title = Title,
                                  .Picture = Icon::Question,
                                  .Choices = Buttons::YesNoCancel});
    if (answer == Answer::Yes)
        Tick(unused, true);
    return answer == Answer::Yes || answer == Answer::No;
}

void frmEditInp::cmdSave_Click() {
    Guarded("frmEditInp-cmdSave_Click", [&](Guard&) {
        if (!SettleWhatIsLeft())
            return;
        const std::string problem = SaveVersion(Input, Now, Comment());
        if (!problem.empty())
            return TellProblems(Title, {problem});
        ShowInput();
        Form->lblSummary->setText(tr("Version %1 was saved.").arg(ToScreen(Input.Version)));
    });
}

void frmEditInp::cmdSaveNew_Click() {
    Guarded("frmEditInp-cmdSaveNew_Click", [&](Guard&) {
        if (!SettleWhatIsLeft())
            return;
        std::string version;
        const std::string problem = SaveAsNewVersion(Input, Now, Comment(), version);
        if (!problem.empty())
            return TellProblems(Title, {problem});
        KeepAsSaved();
        TheDesktop().ShowMessage(
            {.Text = "Version " + version + " was saved.", .Title = Title, .Picture = Icon::Information});
    });
}

void frmEditInp::cmdClose_Click() {
    Guarded("frmEditInp-cmdClose_Click", [&](Guard&) {
        if (Changed() && !MayLoseChanges(Title))
            return;
        Unload();
    });
}

}  // namespace Dorvane
