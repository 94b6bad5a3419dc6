// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/frmEditText.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QSettings>
#include <QTimer>
#include <algorithm>

#include "core/Desktop.h"
#include "core/Drives.h"
#include "core/FileThere.h"
#include "core/Globals.h"
#include "core/ReportError.h"
#include "core/basGeneral.h"
#include "core/basHelp.h"
#include "core/widgets/ScreenText.h"
#include "core/widgets/StatusPanels.h"
#include "programs/edittext/TextMessages.h"
#include "programs/edittext/TextOpening.h"
#include "programs/edittext/TextPrint.h"
#include "programs/edittext/TextWork.h"
#include "ui_frmEditText.h"

namespace Dorvane {

namespace {

constexpr Offset ManyLines = 5000;  // some hundred sheets
constexpr Offset LinesOfSheet = 60;

QString Setting(const char* name) {
    return QStringLiteral("edittext/") + QLatin1String(name);
}

void Split(const std::string& path, std::string& folder, std::string& name) {
    folder = Drives::FolderPart(path);
    name = path.substr(folder.size());
}

}  // namespace

frmEditText::frmEditText(TextFile file)
    : Form(std::make_unique<Ui::frmEditText>()), Work(new TextWork(this)) {
    Form->setupUi(this);
    Form->splitter->setStretchFactor(1, 1);
    Form->outerLayout->setStretchFactor(Form->splitter, 1);
    Form->barFind->hide();
    UsualPoints = std::max(View().FontPoints(), 6);
    const QSettings settings;
    View().SetFontPoints(settings.value(Setting("points"), UsualPoints).toInt());
    Form->mnuRuler->setChecked(settings.value(Setting("ruler"), true).toBool());
    Form->mnuSections->setChecked(settings.value(Setting("sections"), true).toBool());
    View().ShowRuler(Form->mnuRuler->isChecked());
    SetUpSize();
    SetUpStatusBar();
    SetUpWork();
    ConnectFileMenu();
    ConnectEditMenu();
    ConnectSearchMenu();
    ConnectViewMenu();
    Show(std::move(file));
    View().setFocus();
}

frmEditText::~frmEditText() = default;

TextView& frmEditText::View() {
    return *Form->txtText;
}

// Room for the lines of a listing beside its headings.
void frmEditText::SetUpSize() {
    constexpr int Columns = 126;
    constexpr int Rows = 38;
    const QFontMetrics letters(View().font());
    const int list = fontMetrics().averageCharWidth() * 32;
    const int text = letters.horizontalAdvance(QLatin1Char('0')) * Columns;
    resize(list + text, letters.height() * Rows);
    Form->splitter->setSizes({list, text});
}

void frmEditText::SetUpStatusBar() {
    Message = AddPanel(*Form->sbrText, QStringLiteral("lblMessage"), 1);
    Progress = new QProgressBar(Form->sbrText);
    Progress->setObjectName(QStringLiteral("barProgress"));
    Progress->setRange(0, 1000);
    Progress->setMaximumWidth(fontMetrics().averageCharWidth() * 24);
    Progress->hide();
    Form->sbrText->addWidget(Progress);
    Place = AddPanel(*Form->sbrText, QStringLiteral("lblPlace"));
    LineEnds = AddPanel(*Form->sbrText, QStringLiteral("lblLineEnds"));
    Typing = AddPanel(*Form->sbrText, QStringLiteral("lblTyping"));
    Access = AddPanel(*Form->sbrText, QStringLiteral("lblAccess"));
}

void frmEditText::SetUpWork() {
    connect(&View(), &TextView::Moved, this, &frmEditText::ShowState);
    connect(&View(), &TextView::Refused, this, &frmEditText::Say);
    connect(&View(), &TextView::Zoomed, this, &frmEditText::Zoom);
    connect(&View(), &TextView::Changed, this, [this] {
        Work->TextChanged();
        Say(QString());
        ShowTitle();
    });
    connect(Work, &TextWork::Progress, this, &frmEditText::ShowProgress);
    connect(Work, &TextWork::SectionsFound, this, &frmEditText::ListSections);
    connect(Work, &TextWork::LinesCounted, this, [this] {
        View().Refresh();
        ShowWantedLine();
        ShowState();
    });
}

void frmEditText::ConnectFileMenu() {
    connect(Form->mnuOpen, &QAction::triggered, this, &frmEditText::Open);
    connect(Form->mnuSave, &QAction::triggered, this, &frmEditText::Save);
    connect(Form->mnuSaveAs, &QAction::triggered, this, &frmEditText::SaveAs);
    connect(Form->mnuReload, &QAction::triggered, this, &frmEditText::AskReload);
    connect(Form->mnuPrint, &QAction::triggered, this, &frmEditText::Print);
    connect(Form->mnuPrinterSetup, &QAction::triggered, this,
            [] { Guarded("frmEditText-mnuPrinterSetup_Click", [](Guard&) { PrinterSetup(); }); });
    connect(Form->mnuClose, &QAction::triggered, this, &frmEditText::Close);
    connect(Form->mnuHelpContents, &QAction::triggered, this,
            [] { Guarded("frmEditText-mnuHelpContents_Click", [](Guard&) { ShowHelpContents("Main"); }); });
    Form->mnuPrint->setEnabled(Global().PrinterPresent);
    Form->mnuPrinterSetup->setEnabled(Global().PrinterPresent);
}

void frmEditText::ConnectEditMenu() {
    connect(Form->mnuUndo, &QAction::triggered, &View(), &TextView::Undo);
    connect(Form->mnuRedo, &QAction::triggered, &View(), &TextView::Redo);
    connect(Form->mnuCut, &QAction::triggered, &View(), &TextView::Cut);
    connect(Form->mnuCopy, &QAction::triggered, &View(), &TextView::Copy);
    connect(Form->mnuPaste, &QAction::triggered, &View(), &TextView::Paste);
    connect(Form->mnuDelete, &QAction::triggered, &View(), &TextView::EraseSelected);
    connect(Form->mnuSelectAll, &QAction::triggered, &View(), &TextView::SelectAll);
    connect(Form->mnuOverwrite, &QAction::toggled, &View(), &TextView::SetOverwrite);
    View().setContextMenuPolicy(Qt::ActionsContextMenu);
    View().addActions({Form->mnuUndo, Form->mnuRedo, Form->mnuCut, Form->mnuCopy, Form->mnuPaste,
                       Form->mnuDelete, Form->mnuSelectAll});
}

void frmEditText::ConnectViewMenu() {
    connect(Form->mnuSections, &QAction::toggled, this, [this](bool shown) {
        QSettings().setValue(Setting("sections"), shown);
        ListSections();
    });
    connect(Form->mnuRuler, &QAction::toggled, this, [this](bool shown) {
        QSettings().setValue(Setting("ruler"), shown);
        View().ShowRuler(shown);
    });
    Form->mnuZoomIn->setShortcuts({QKeySequence::ZoomIn, QKeySequence(QStringLiteral("Ctrl+="))});
    connect(Form->mnuZoomIn, &QAction::triggered, this, [this] { Zoom(1); });
    connect(Form->mnuZoomOut, &QAction::triggered, this, [this] { Zoom(-1); });
    connect(Form->mnuZoomReset, &QAction::triggered, this, [this] { Zoom(0); });
}

void frmEditText::Zoom(int steps) {
    const int points = steps == 0 ? UsualPoints : std::clamp(View().FontPoints() + steps, 5, 48);
    QSettings().setValue(Setting("points"), points);
    View().SetFontPoints(points);
}

// Takes a file for the one that is edited. The former one is not asked about.
void frmEditText::Show(TextFile file) {
    Work->LeaveOff();
    const TextFile former = std::exchange(File, std::move(file));
    View().SetDocument(Text(), !File.ReadOnly.empty());
    WantedLine.reset();
    Work->Begin(Text());
    Form->barFind->AllowReplacing(File.ReadOnly.empty());
    ShowTitle();
    ShowState();
    Say(File.ReadOnly.empty() ? QString() : tr("Read only: %1.").arg(ToScreen(File.ReadOnly)));
}

void frmEditText::Open() {
    Guarded("frmEditText-mnuOpen_Click", [&](Guard&) {
        if (!MayLeave())
            return;
        std::string folder;
        std::string name;
        Split(File.Path, folder, name);
        if (std::optional<TextFile> chosen = ChooseTextFile(folder, "Open Text File", false))
            Show(std::move(*chosen));
    });
}

bool frmEditText::Save() {
    if (!File.ReadOnly.empty())
        return SaveAs();
    bool saved = false;
    Guarded("frmEditText-mnuSave_Click", [&](Guard& guard) {
        if (Dorvane::LookAtDisk(File) == DiskState::Changed &&
            !ConfirmText(File.Path + " was changed by another program. Save your text over it?", Answer::No))
            return;
        saved = guard.Run([&] { SaveTextFile(File); });
    });
    if (saved)
        Say(tr("%1 saved").arg(ToScreen(File.Path)));
    ShowTitle();
    return saved;
}

bool frmEditText::SaveAs() {
    bool saved = false;
    Guarded("frmEditText-mnuSaveAs_Click", [&](Guard& guard) {
        FileDialog dialog;
        dialog.Purpose = FileDialog::Kind::Save;
        dialog.Title = "Save Text As";
        dialog.Flags = 4;
        Split(File.Path, dialog.Folder, dialog.FileName);
        const std::optional<std::string> path = TheDesktop().AskFile(dialog);
        if (!path || path->empty())
            return;
        if (*path != File.Path && Drives::IsFile(*path) &&
            !ConfirmText(*path + " is there already. Replace it?", Answer::No))
            return;
        saved = guard.Run([&] { SaveTextFileAs(File, *path); });
    });
    if (!saved)
        return false;
    View().SetReadOnly(!File.ReadOnly.empty());
    Form->barFind->AllowReplacing(File.ReadOnly.empty());
    Say(tr("%1 saved").arg(ToScreen(File.Path)));
    ShowTitle();
    ShowState();
    return true;
}

// The file anew, the same place of it in sight.
void frmEditText::Reload() {
    const Selection selected = View().Caret().Selected();
    Guarded("frmEditText-mnuReload_Click", [&](Guard&) {
        Show(OpenTextFile(File.Path, File.OnlyRead));
        View().Select(selected);
    });
}

void frmEditText::AskReload() {
    if (!FileExists(File.Path))
        Say(tr("%1 is not there").arg(ToScreen(File.Path)));
    else if (!Text().IsModified() ||
             ConfirmText("Load " + File.Path + " anew and lose your changes?", Answer::No))
        Reload();
}

void frmEditText::Print() {
    const Selection all{0, Text().Text().Size()};
    const Selection selected = View().Caret().Selected();
    const Selection printed = selected.Empty() ? all : selected;
    const PieceText& text = Text().Text();
    const Offset lines =
        text.LineOf(printed.To()).value_or(text.Lines()) - text.LineOf(printed.From()).value_or(0) + 1;
    if (lines > ManyLines &&
        !ConfirmText("Some " + std::to_string(lines / LinesOfSheet) + " pages would be printed. Print them?",
                     Answer::No))
        return;
    Guarded("frmEditText-mnuPrint_Click", [&](Guard& guard) {
        if (PrinterSetup() && guard.Run([&] { PrintText(text, printed, File.Path); }))
            Say(tr("%1 printed").arg(ToScreen(File.Path)));
    });
}

// True when nothing is lost by leaving the text.
bool frmEditText::MayLeave() {
    if (!Text().IsModified())
        return true;
    const Answer answer = AskToSaveText(File.Path);
    return answer == Answer::Yes ? Save() : answer == Answer::No;
}

void frmEditText::Close() {
    if (MayLeave())
        Unload();
}

void frmEditText::closeEvent(QCloseEvent* event) {
    event->ignore();
    // The question comes when the close event is done with, since its answer may take the window away.
    QTimer::singleShot(0, this, &frmEditText::Close);
}

void frmEditText::changeEvent(QEvent* event) {
    Screen::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        QTimer::singleShot(0, this, &frmEditText::LookAtDisk);
}

void frmEditText::LookAtDisk() {
    if (Asking || !isVisible())
        return;
    Asking = true;
    try {
        AnswerToDisk(Dorvane::LookAtDisk(File));
    } catch (const RunTimeError& failure) {
        // A box would come again whenever it is closed.
        Say(tr("The file cannot be looked at: %1").arg(ToScreen(failure.Description)));
    }
    Asking = false;
}

void frmEditText::AnswerToDisk(DiskState state) {
    if (state == DiskState::Gone) {
        KeepMine(File);
        ShowTitle();
        Say(tr("%1 is no longer there: saving makes it again.").arg(ToScreen(File.Path)));
    }
    if (state != DiskState::Changed)
        return;
    const bool modified = Text().IsModified();
    if (ConfirmText(File.Path + " was changed by another program. Load it anew" +
                        (modified ? ", and lose your changes?" : "?") +
                        "\r\n\r\nNo keeps the text as it is here.",
                    modified ? Answer::No : Answer::Yes)) {
        Reload();
    } else {
        KeepMine(File);
        ShowTitle();
    }
}

void frmEditText::ShowTitle() {
    std::string folder;
    std::string name;
    Split(File.Path, folder, name);
    setWindowTitle(ToScreen(name).replace(QLatin1String("[*]"), QLatin1String("[*][*]")) +
                   QStringLiteral("[*]") + (File.ReadOnly.empty() ? QString() : tr(" (read only)")) +
                   QStringLiteral(" - ") +
                   ToScreen(folder).replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
    setWindowModified(Text().IsModified());
}

void frmEditText::ShowState() {
    const PieceText& text = Text().Text();
    const Selection& selected = View().Caret().Selected();
    const std::optional<Offset> line = text.LineOf(selected.Caret);
    QString place = tr("Line %1").arg(line ? QString::number(*line + 1) : QStringLiteral("..."));
    if (text.AllCounted())
        place += tr(" of %1").arg(text.Lines());
    place += tr(", Column %1").arg(View().Caret().Column());
    if (!selected.Empty())
        place += tr(", %1 selected").arg(selected.To() - selected.From());
    Place->setText(place);
    const std::string end = Text().LineEndAt(selected.Caret);
    LineEnds->setText(end == "\r\n" ? tr("CR LF") : end == "\n" ? tr("LF") : tr("CR"));
    Typing->setText(View().Caret().Overwrite ? tr("Overwrite") : tr("Insert"));
    Access->setText(File.ReadOnly.empty() ? QString() : tr("Read only"));
    Access->setVisible(!File.ReadOnly.empty());
    const bool editable = File.ReadOnly.empty();
    Form->mnuUndo->setEnabled(editable && Text().CanUndo());
    Form->mnuRedo->setEnabled(editable && Text().CanRedo());
    Form->mnuCut->setEnabled(editable && !selected.Empty());
    Form->mnuDelete->setEnabled(editable && !selected.Empty());
    Form->mnuCopy->setEnabled(!selected.Empty());
    Form->mnuPaste->setEnabled(editable);
    MarkSection();
}

void frmEditText::ShowProgress(double share) {
    Progress->setVisible(share < 1);
    Progress->setValue(static_cast<int>(share * Progress->maximum()));
}

void frmEditText::Say(const QString& text) {
    Message->setText(text);
}

}  // namespace Dorvane
