// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/frmCheckSite.h"

#include <fmt/format.h>

#include <QElapsedTimer>
#include <QHeaderView>
#include <algorithm>

#include "core/Globals.h"
#include "core/LineWriter.h"
#include "core/ReportError.h"
#include "core/widgets/Pictures.h"
#include "core/widgets/ScreenText.h"
#include "programs/sitecheck/SiteCheck.h"
#include "ui_frmCheckSite.h"

namespace Dorvane {

namespace {

constexpr const char* Title = "Check the Site";
constexpr int Pause = 50;  // milliseconds between two looks at the operator's events

enum FindingColumn { FileColumn, LineColumn, WhatColumn, MendColumn };

std::string Counted(std::size_t count, const char* one, const char* many) {
    return fmt::format("{} {}", count, count == 1 ? one : many);
}

}  // namespace

frmCheckSite::frmCheckSite() : Form(std::make_unique<Ui::frmCheckSite>()) {
    Form->setupUi(this);
    ReturnsBy(Form->cmdClose);
    const int letter = fontMetrics().averageCharWidth();
    resize(letter * 150, fontMetrics().lineSpacing() * 34);
    Form->trvFindings->header()->resizeSection(FileColumn, letter * 44);
    Form->trvFindings->header()->resizeSection(LineColumn, letter * 8);
    Form->trvFindings->header()->resizeSection(WhatColumn, letter * 66);
    Guarded("frmCheckSite-LoadForm", [&](Guard&) {
        SetOptionalPicture(*Form->cmdStop, "cancel.svg");
        SetOptionalPicture(*Form->cmdMend, "ok.svg");
        SetOptionalPicture(*Form->cmdClose, "exit.svg");
    });
    connect(Form->cmdCheck, &QPushButton::clicked, this, &frmCheckSite::cmdCheck_Click);
    connect(Form->cmdStop, &QPushButton::clicked, this, [this] { StopWanted = true; });
    connect(Form->cmdMend, &QPushButton::clicked, this, &frmCheckSite::cmdMend_Click);
    connect(Form->cmdSave, &QPushButton::clicked, this, &frmCheckSite::cmdSave_Click);
    connect(Form->cmdClose, &QPushButton::clicked, this, &frmCheckSite::cmdClose_Click);
    connect(Form->trvFindings, &QTreeWidget::itemChanged, this, &frmCheckSite::ShowButtons);
    ShowSummary();
    SetRunning(false);
    Form->cmdCheck->setFocus();
}

frmCheckSite::~frmCheckSite() = default;

void frmCheckSite::SetRunning(bool running) {
    Running = running;
    Form->cmdCheck->setEnabled(!running);
    Form->cmdStop->setEnabled(running);
    Form->trvFindings->setEnabled(!running);
    ShowButtons();
    if (running)
        Form->cmdStop->setFocus();
    else
        Form->lblStatus->clear();
}

void frmCheckSite::ShowButtons() {
    Form->cmdMend->setEnabled(!Running && !Ticked().empty());
    Form->cmdSave->setEnabled(!Running && Checked);
}

// False when a failure was reported.
bool frmCheckSite::Check() {
    QElapsedTimer shown;
    shown.start();
    Report = {};
    ShowFindings();
    StopWanted = false;
    Report.Looking = [&](const std::string& path) {
        if (shown.elapsed() < Pause)
            return !StopWanted;
        Form->lblStatus->setText(ToScreen(path));
        TheDesktop().YieldEvents();
        shown.restart();
        return !StopWanted;
    };
    SetRunning(true);
    Checked = Guarded("frmCheckSite-Check", [&](Guard&) { CheckSite(Report); });
    SetRunning(false);
    ShowFindings();
    ShowSummary();
    return Checked;
}

void frmCheckSite::ShowFindings() {
    const QSignalBlocker quiet(Form->trvFindings);
    Form->trvFindings->clear();
    for (const Finding& finding : Report.Findings) {
        auto* item = new QTreeWidgetItem(Form->trvFindings);
        item->setText(FileColumn, ToScreen(finding.File));
        item->setText(LineColumn, finding.Line == 0 ? QString() : QString::number(finding.Line));
        item->setText(WhatColumn, ToScreen(finding.What));
        item->setText(MendColumn, ToScreen(MendText(finding.How)));
        for (const int column : {FileColumn, WhatColumn})
            item->setToolTip(column, ToTip(column == FileColumn ? finding.File : finding.What));
        item->setTextAlignment(LineColumn, Qt::AlignRight | Qt::AlignVCenter);
        if (finding.How != Mend::None)
            item->setCheckState(FileColumn, Qt::Checked);
    }
    if (Form->trvFindings->topLevelItemCount() > 0)
        Form->trvFindings->setCurrentItem(Form->trvFindings->topLevelItem(0));
    ShowButtons();
}

void frmCheckSite::ShowSummary() {
    if (!Checked) {
        Form->lblSummary->setText(tr(
            "Check reads the structures, registries, histories, indexes and databases of the site and holds "
            "them against each other and against the folders. It changes nothing."));
        return;
    }
    const std::size_t found = Report.Findings.size();
    const auto mendable = static_cast<std::size_t>(
        std::count_if(Report.Findings.begin(), Report.Findings.end(),
                      [](const Finding& finding) { return finding.How != Mend::None; }));
    std::string text = Report.Left ? "Left off: of " : "Of ";
    text += Counted(static_cast<std::size_t>(Report.Looked), "file and folder", "files and folders") +
            " that were looked at ";
    text += found == 0 ? std::string("nothing is wrong.")
                       : Counted(found, "thing is wrong, ", "things are wrong, ") +
                             fmt::format("{} of them can be mended.", mendable);
    Form->lblSummary->setText(ToScreen(text));
}

std::vector<Finding> frmCheckSite::Ticked() const {
    std::vector<Finding> ticked;
    for (int i = 0; i < Form->trvFindings->topLevelItemCount(); ++i)
        if (Form->trvFindings->topLevelItem(i)->checkState(FileColumn) == Qt::Checked)
            ticked.push_back(Report.Findings.at(static_cast<std::size_t>(i)));
    return ticked;
}

bool frmCheckSite::MayMend(const std::vector<Finding>& findings) const {
    return TheDesktop().ShowMessage({.Text = "Mend " + Counted(findings.size(), "thing", "things") +
                                             "? A copy of each file that is changed goes below\r\n" +
                                             Global().Work_path + "SITECHK\\",
                                     .Title = Title,
                                     .Picture = Icon::Question,
                                     .Choices = Buttons::YesNo}) == Answer::Yes;
}

void frmCheckSite::cmdCheck_Click() {
    Check();
    Form->cmdCheck->setFocus();
}

void frmCheckSite::cmdMend_Click() {
    Guarded("frmCheckSite-cmdMend_Click", [&](Guard&) {
        const std::vector<Finding> ticked = Ticked();
        if (!MayMend(ticked))
            return;
        const MendReport mended = MendSite(ticked);
        Check();
        std::string text = fmt::format("{} mended.", mended.Done.size());
        if (!mended.Failed.empty())
            text += fmt::format(" {} not mended:\r\n", mended.Failed.size());
        for (const std::string& failure : mended.Failed)
            text += "\r\n" + failure;
        if (!mended.Copies.empty())
            text += "\r\n\r\nWhat was there before lies in\r\n" + mended.Copies;
        TheDesktop().ShowMessage({.Text = text,
                                  .Title = Title,
                                  .Picture = mended.Failed.empty() ? Icon::Information : Icon::Exclamation});
    });
}

void frmCheckSite::cmdSave_Click() {
    Guarded("frmCheckSite-cmdSave_Click", [&](Guard& guard) {
        FileDialog dialog;
        dialog.Purpose = FileDialog::Kind::Save;
        dialog.Title = "Save List";
        dialog.Folder = Global().Work_path;
        dialog.FileName = "SITECHK.LST";
        const std::optional<std::string> path = TheDesktop().AskFile(dialog);
        if (!path || path->empty())
            return;
        const bool saved = guard.Run([&] {
            LineWriter file(*path);
            file.Line(FromScreen(Form->lblSummary->text()));
            for (const Finding& finding : Report.Findings)
                file.Line(LineOf(finding));
            file.Close();
        });
        if (saved)
            Form->lblStatus->setText(tr("%1 saved").arg(ToScreen(*path)));
    });
}

// A check that is under way leaves off first.
void frmCheckSite::cmdClose_Click() {
    if (Running)
        StopWanted = true;
    else
        Unload();
}

}  // namespace Dorvane
