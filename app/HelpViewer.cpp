// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/HelpViewer.h"

#include <QApplication>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QMenu>
#include <QShortcut>
#include <QStyle>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include "app/ui_HelpViewer.h"
#include "core/Drives.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "core/widgets/Screen.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

const QString FirstPage = QStringLiteral("index.html");
const QString ErrorPage = QStringLiteral("errors.html");

// The toolkit's help file in the place of a help file.
std::string HelpFileOf(const std::string& file) {
    const std::size_t point = file.rfind('.');
    return (point == std::string::npos ? file : file.substr(0, point)) + ".qch";
}

}  // namespace

HelpViewer::HelpViewer(std::string file) : FileName(std::move(file)) {
    OpenFile();
    Form = std::make_unique<Ui::HelpViewer>();
    Form->setupUi(this);
    setAttribute(Qt::WA_QuitOnClose, false);
    SetUpToolBar();
    SetUpContents();
    SetUpIndex();
    SetUpSearch();
    SetUpPage();
    SetUpFindBar();
    const int letter = fontMetrics().averageCharWidth();
    resize(letter * 150, fontMetrics().lineSpacing() * 42);
    Form->splitter->setSizes({letter * 48, letter * 102});
    Form->splitter->setStretchFactor(1, 1);
    RememberPlace(*this);
    // From here on contents and index come in, beside the program.
    if (!Engine->setupData())
        throw RunTimeError(DeviceIoError, FromScreen(Engine->error()));
    Form->tabSearch->ReadFrom(*Engine);
    Open(FirstPage);
    Form->page->clearHistory();
}

HelpViewer::~HelpViewer() = default;

// What the toolkit writes down about a help file lies apart from it, so that the program's folder can be
// carried away, and be one that the operator cannot write in.
void HelpViewer::OpenFile() {
    const std::string file = HelpFileOf(FileName);
    if (!FileExists(file))
        throw RunTimeError(FileNotFound, file);
    Scratch = std::make_unique<QTemporaryDir>();
    if (!Scratch->isValid())
        throw RunTimeError(PathFileAccess, FromScreen(Scratch->errorString()));
    const QString notes = Scratch->filePath(QStringLiteral("help.qhc"));
    QHelpEngineCore registrar(notes);
    registrar.setReadOnly(false);
    if (!registrar.setupData() ||
        !registrar.registerDocumentation(QString::fromStdString(Drives::HostPath(file))))
        throw RunTimeError(DeviceIoError, FromScreen(registrar.error()));
    Engine = new QHelpEngine(notes, this);
}

void HelpViewer::SetUpToolBar() {
    Form->actBack->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    Form->actForward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
    Form->actHome->setIcon(style()->standardIcon(QStyle::SP_DirHomeIcon));
    Form->actBack->setShortcuts(QKeySequence::Back);
    Form->actForward->setShortcuts(QKeySequence::Forward);
    Form->actFind->setShortcuts(QKeySequence::Find);
    Form->actLarger->setShortcuts({QKeySequence::ZoomIn, QKeySequence(QStringLiteral("Ctrl+="))});
    Form->actSmaller->setShortcuts(QKeySequence::ZoomOut);
    connect(Form->actBack, &QAction::triggered, Form->page, &QTextBrowser::backward);
    connect(Form->actForward, &QAction::triggered, Form->page, &QTextBrowser::forward);
    connect(Form->actHome, &QAction::triggered, this, [this] { Open(FirstPage); });
    connect(Form->actFind, &QAction::triggered, this, [this] { ShowFindBar(true); });
    connect(Form->actLarger, &QAction::triggered, this, [this] { Form->page->zoomIn(); });
    connect(Form->actSmaller, &QAction::triggered, this, [this] { Form->page->zoomOut(); });
}

void HelpViewer::SetUpContents() {
    Contents = Engine->contentWidget();
    Contents->setObjectName(QStringLiteral("contents"));
    Form->contentsLayout->addWidget(Contents);
    connect(Contents, &QHelpContentWidget::linkActivated, Form->page,
            [this](const QUrl& page) { Form->page->setSource(page); });
    connect(Contents, &QHelpContentWidget::clicked, this, [this](const QModelIndex& item) {
        if (const QHelpContentItem* const entry = Engine->contentModel()->contentItemAt(item))
            Form->page->setSource(entry->url());
    });
    connect(Engine->contentModel(), &QHelpContentModel::contentsCreated, this, [this] {
        Contents->expandToDepth(1);
        PageChanged();
    });
}

void HelpViewer::SetUpIndex() {
    Index = Engine->indexWidget();
    Index->setObjectName(QStringLiteral("index"));
    Form->indexLayout->addWidget(Index);
    connect(Form->txtIndex, &QLineEdit::textChanged, this,
            [this](const QString& text) { Index->filterIndices(text); });
    connect(Form->txtIndex, &QLineEdit::returnPressed, this, [this] { Index->activateCurrentItem(); });
    auto* const down = new QShortcut(Qt::Key_Down, Form->txtIndex, nullptr, nullptr, Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, this, [this] { Index->setFocus(); });
    connect(Index, &QHelpIndexWidget::clicked, this, [this] { Index->activateCurrentItem(); });
    connect(Index, &QHelpIndexWidget::documentActivated, this,
            [this](const QHelpLink& page) { Form->page->setSource(page.url); });
    connect(Index, &QHelpIndexWidget::documentsActivated, this, [this](const QList<QHelpLink>& pages) {
        auto* const choice = new QMenu(this);
        choice->setAttribute(Qt::WA_DeleteOnClose);
        for (const QHelpLink& page : pages)
            connect(choice->addAction(page.title), &QAction::triggered, this,
                    [this, url = page.url] { Form->page->setSource(url); });
        choice->popup(Index->viewport()->mapToGlobal(Index->visualRect(Index->currentIndex()).bottomLeft()));
    });
    connect(Engine->indexModel(), &QHelpIndexModel::indexCreated, this,
            [this] { Index->filterIndices(Form->txtIndex->text()); });
}

void HelpViewer::SetUpSearch() {
    connect(Form->tabSearch, &HelpSearch::PageChosen, this, [this](const QUrl& page, const QString& word) {
        Form->page->setSource(page);
        Form->page->find(word);
    });
}

void HelpViewer::SetUpPage() {
    Form->page->ReadFrom(Engine);
    Form->page->document()->setDocumentMargin(fontMetrics().averageCharWidth() * 2);
    Form->page->document()->setIndentWidth(fontMetrics().averageCharWidth() * 4);
    connect(Form->page, &QTextBrowser::backwardAvailable, Form->actBack, &QAction::setEnabled);
    connect(Form->page, &QTextBrowser::forwardAvailable, Form->actForward, &QAction::setEnabled);
    connect(Form->page, &QTextBrowser::sourceChanged, this, [this] { PageChanged(); });
}

void HelpViewer::SetUpFindBar() {
    ShowFindBar(false);
    // What was said of another text is no longer true.
    connect(Form->txtFind, &QLineEdit::textChanged, Form->lblFound, &QLabel::clear);
    connect(Form->txtFind, &QLineEdit::returnPressed, this, [this] { FindText(false); });
    connect(Form->cmdFindNext, &QPushButton::clicked, this, [this] { FindText(false); });
    connect(Form->cmdFindPrevious, &QPushButton::clicked, this, [this] { FindText(true); });
    connect(Form->cmdFindClose, &QPushButton::clicked, this, [this] { ShowFindBar(false); });
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this,
            [this] { FindText(false); });
    connect(new QShortcut(QKeySequence::FindPrevious, this), &QShortcut::activated, this,
            [this] { FindText(true); });
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, [this] {
        if (Form->findBar->isVisible())
            ShowFindBar(false);
        else
            close();
    });
}

void HelpViewer::Open(const QString& page) {
    const QString name = Engine->registeredDocumentations().value(0);
    Form->page->setSource(QUrl(QStringLiteral("qthelp://") + name + QStringLiteral("/manual/") + page));
}

void HelpViewer::ShowContents() {
    Form->tabs->setCurrentWidget(Form->tabContents);
    Present();
    Contents->setFocus();
}

void HelpViewer::ShowIndex() {
    Form->tabs->setCurrentWidget(Form->tabIndex);
    Present();
    Form->txtIndex->selectAll();
    Form->txtIndex->setFocus();
}

void HelpViewer::ShowSearch() {
    Form->tabs->setCurrentWidget(Form->tabSearch);
    Present();
    Form->tabSearch->Begin();
}

void HelpViewer::ShowError(int number) {
    ShowPage(ErrorPage + QStringLiteral("#error-%1").arg(number));
}

void HelpViewer::ShowPage(const QString& page) {
    Open(page);
    Form->tabs->setCurrentWidget(Form->tabContents);
    Present();
    Form->page->setFocus();
}

void HelpViewer::Present() {
    winId();  // the window has to be there to join another one
    JoinModalWindow();
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void HelpViewer::PageChanged() {
    const QString title = Form->page->documentTitle();
    setWindowTitle(title.isEmpty() ? tr("Dorvane Help") : title + tr(" - Dorvane Help"));
    QUrl page = Form->page->source();
    page.setFragment({});
    const QModelIndex entry = Contents->indexOf(page);
    if (entry.isValid())
        Contents->setCurrentIndex(entry);
    Form->lblFound->clear();
}

void HelpViewer::ShowFindBar(bool shown) {
    Form->findBar->setVisible(shown);
    Form->lblFound->clear();
    if (shown) {
        Form->txtFind->selectAll();
        Form->txtFind->setFocus();
    } else {
        Form->page->setFocus();
    }
}

// Behind the last place the search goes on at the other end of the page.
void HelpViewer::FindText(bool backward) {
    const QString text = Form->txtFind->text();
    if (text.isEmpty())
        return ShowFindBar(true);
    const QTextDocument::FindFlags way = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = Form->page->find(text, way);
    if (!found) {
        const QTextCursor former = Form->page->textCursor();
        Form->page->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = Form->page->find(text, way);
        if (!found)
            Form->page->setTextCursor(former);
    }
    Form->lblFound->setText(found ? QString() : tr("not on this page"));
}

bool HelpViewer::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked)
        JoinModalWindowLater();
    return QMainWindow::event(event);
}

void HelpViewer::JoinModalWindowLater() {
    QTimer::singleShot(0, this, [this] { JoinModalWindow(); });
}

// A window that belongs to the one that keeps the others out of reach is not kept out itself. When that one
// goes, there may be another behind it.
void HelpViewer::JoinModalWindow() {
    if (windowHandle() == nullptr)
        return;
    QWidget* const modal = QApplication::activeModalWidget();
    QWindow* const owner = modal == nullptr ? nullptr : modal->windowHandle();
    for (const QWindow* above = owner; above != nullptr; above = above->transientParent())
        if (above == windowHandle())
            return;
    if (windowHandle()->transientParent() == owner)
        return;
    windowHandle()->setTransientParent(owner);
    if (owner != nullptr)
        connect(owner, &QWindow::visibleChanged, this, &HelpViewer::JoinModalWindowLater,
                Qt::UniqueConnection);
}

}  // namespace Dorvane
