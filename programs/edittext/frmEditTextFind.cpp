// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/Text.h"
#include "core/widgets/ScreenText.h"
#include "programs/edittext/ByteText.h"
#include "programs/edittext/TextWork.h"
#include "programs/edittext/frmEditText.h"
#include "ui_frmEditText.h"

// How the operator gets about in a text: words, lines, headings.
namespace Dorvane {

namespace {

constexpr Offset LongestTakenOver = 200;

}  // namespace

void frmEditText::ConnectSearchMenu() {
    connect(Form->mnuFind, &QAction::triggered, this, [this] { OpenFindBar(false); });
    connect(Form->mnuReplace, &QAction::triggered, this, [this] { OpenFindBar(true); });
    connect(Form->mnuFindNext, &QAction::triggered, this, [this] { Find(false); });
    connect(Form->mnuFindPrevious, &QAction::triggered, this, [this] { Find(true); });
    connect(Form->mnuGoToLine, &QAction::triggered, this, &frmEditText::GoToLine);
    connect(Form->mnuNextSection, &QAction::triggered, this, [this] { GoToSection(1); });
    connect(Form->mnuPreviousSection, &QAction::triggered, this, [this] { GoToSection(-1); });
    connect(Form->barFind, &FindBar::FindWanted, this, &frmEditText::Find);
    connect(Form->barFind, &FindBar::ReplaceWanted, this, &frmEditText::Replace);
    connect(Form->barFind, &FindBar::ReplaceAllWanted, this, &frmEditText::ReplaceAll);
    connect(Form->barFind, &FindBar::Closed, this, &frmEditText::Escape);
    connect(Form->barFind, &FindBar::Refused, this, &frmEditText::Say);
    connect(Form->lstSections, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
        const auto at = static_cast<Offset>(item->data(Qt::UserRole).toLongLong());
        View().Select({at, at});
        View().setFocus();
    });
}

void frmEditText::OpenFindBar(bool replaces) {
    const Selection& selected = View().Caret().Selected();
    std::string words;
    if (selected.To() - selected.From() <= LongestTakenOver)
        words = View().Caret().SelectedText();
    if (FindLineEnd(words, 0) != std::string::npos)
        words.clear();
    Form->barFind->Open(ToScreen(words), replaces);
}

void frmEditText::Find(bool backward) {
    const std::optional<SearchWords> words = Form->barFind->Words();
    if (!words) {
        if (Form->barFind->isHidden())
            OpenFindBar(false);
        return;
    }
    const Selection& selected = View().Caret().Selected();
    const auto length = static_cast<Offset>(words->Words.size());
    Say(tr("Searching ... Escape leaves off"));
    Work->Find(*words, backward ? selected.From() : selected.To(),
               backward ? TextSearch::Direction::Backward : TextSearch::Direction::Forward,
               Form->barFind->WrapsAround(),
               [this, length, backward](std::optional<Offset> place, bool wrapped) {
                   ShowMatch(place, length, wrapped, backward);
               });
}

void frmEditText::ShowMatch(std::optional<Offset> place, Offset length, bool wrapped, bool backward) {
    if (!place) {
        Say(tr("Not found"));
        QApplication::beep();
        return;
    }
    Say(!wrapped   ? QString()
        : backward ? tr("Found from the end of the text on")
                   : tr("Found from the beginning of the text on"));
    View().Select({*place, *place + length});
}

void frmEditText::Replace() {
    const std::optional<SearchWords> words = Form->barFind->Words();
    const std::optional<std::string> replacement = Form->barFind->Replacement();
    if (!words || !replacement)
        return;
    const Selection& selected = View().Caret().Selected();
    const bool isMatch = selected.To() - selected.From() == static_cast<Offset>(words->Words.size()) &&
                         StandsAt(Text().Text(), *words, selected.From());
    if (isMatch)
        View().Insert(*replacement);
    Find(false);
}

void frmEditText::ReplaceAll() {
    const std::optional<SearchWords> words = Form->barFind->Words();
    const std::optional<std::string> replacement = Form->barFind->Replacement();
    if (!words || !replacement)
        return;
    const auto length = static_cast<Offset>(words->Words.size());
    Say(tr("Searching ... Escape leaves off"));
    Work->FindAll(*words, [this, length, replacement](const std::vector<Offset>& places) {
        View().ReplaceEach(places, length, *replacement);
        Say(tr("%1 replaced").arg(places.size()));
    });
}

void frmEditText::GoToLine() {
    Guarded("frmEditText-mnuGoToLine_Click", [&](Guard&) {
        const std::optional<Offset> line = Text().Text().LineOf(View().Caret().Selected().Caret);
        const std::optional<std::string> wanted = TheDesktop().AskText(
            "Line number", "Go to Line", line ? std::to_string(*line + 1) : std::string());
        if (!wanted)
            return;
        const double number = IsNumeric(*wanted) ? LeadingNumber(*wanted) : 0;
        if (number < 1) {
            Say(tr("%1 is no line number").arg(ToScreen(*wanted)));
            return;
        }
        WantedLine = static_cast<Offset>(std::min(number, 1e15)) - 1;
        Say(tr("Counting lines ... Escape leaves off"));
        ShowWantedLine();
    });
}

// Goes to the line that was asked for as soon as it is counted.
void frmEditText::ShowWantedLine() {
    const PieceText& text = Text().Text();
    if (!WantedLine || (*WantedLine >= text.Lines() - 1 && !text.AllCounted()))
        return;
    const bool beyond = *WantedLine >= text.Lines();
    const Offset start = text.StartOfLine(*WantedLine);
    WantedLine.reset();
    View().Select({start, start});
    View().setFocus();
    Say(beyond ? tr("The text has %1 lines").arg(text.Lines()) : QString());
}

void frmEditText::GoToSection(int step) {
    const Offset line = Text().Text().LineStart(View().Caret().Selected().Caret);
    const std::vector<TextSection>& sections = Work->Sections();
    std::optional<Offset> at;
    for (const TextSection& section : sections) {
        if (step > 0 && section.At > line) {
            at = section.At;
            break;
        }
        if (step < 0 && section.At < line)
            at = section.At;
    }
    if (at)
        View().Select({*at, *at});
    else
        Say(tr("No further section"));
}

void frmEditText::ListSections() {
    const QSignalBlocker silent(Form->lstSections);
    Form->lstSections->clear();
    for (const TextSection& section : Work->Sections()) {
        auto* item = new QListWidgetItem(ToScreen(section.Title), Form->lstSections);
        item->setData(Qt::UserRole, static_cast<qlonglong>(section.At));
        item->setToolTip(ToTip(section.Title));
    }
    Form->lstSections->setVisible(Form->mnuSections->isChecked() && Form->lstSections->count() > 0);
    MarkSection();
}

// Marks the heading that the caret stands below.
void frmEditText::MarkSection() {
    const Offset caret = View().Caret().Selected().Caret;
    int row = -1;
    for (const TextSection& section : Work->Sections())
        if (section.At <= caret)
            ++row;
    const QSignalBlocker silent(Form->lstSections);
    Form->lstSections->setCurrentRow(row);
}

void frmEditText::Escape() {
    if (Work->IsSeeking() || WantedLine) {
        Work->LeaveOff();
        WantedLine.reset();
        Say(tr("Left off"));
        return;
    }
    Form->barFind->hide();
    View().setFocus();
}

void frmEditText::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Escape();
    else
        Screen::keyPressEvent(event);
}

}  // namespace Dorvane
