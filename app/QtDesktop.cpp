// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtDesktop.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

#include "app/DriveFileDialog.h"
#include "app/HelpViewer.h"
#include "app/ProgramWait.h"
#include "app/QtPrinting.h"
#include "app/SharedWaitWindow.h"
#include "core/CommandLine.h"
#include "core/Globals.h"
#include "core/Host.h"
#include "core/ReportError.h"
#include "core/basHelp.h"
#include "core/widgets/Screen.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

constexpr int HelpIndex = 2;

QMessageBox::Icon IconOf(Icon icon) {
    switch (icon) {
        case Icon::None: return QMessageBox::NoIcon;
        case Icon::Stop: return QMessageBox::Critical;
        case Icon::Question: return QMessageBox::Question;
        case Icon::Exclamation: return QMessageBox::Warning;
        case Icon::Information: return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

struct ButtonOf {
    Answer Of;
    QMessageBox::StandardButton Button;
};

constexpr ButtonOf AllButtons[] = {
    {Answer::Ok, QMessageBox::Ok},         {Answer::Cancel, QMessageBox::Cancel},
    {Answer::Abort, QMessageBox::Abort},   {Answer::Retry, QMessageBox::Retry},
    {Answer::Ignore, QMessageBox::Ignore}, {Answer::Yes, QMessageBox::Yes},
    {Answer::No, QMessageBox::No}};

// The buttons of a box, the first one first and the one that Escape stands for last.
std::vector<QMessageBox::StandardButton> ButtonsOf(Buttons choices) {
    switch (choices) {
        case Buttons::Ok: return {QMessageBox::Ok};
        case Buttons::RetryCancel: return {QMessageBox::Retry, QMessageBox::Cancel};
        case Buttons::YesNo: return {QMessageBox::Yes, QMessageBox::No};
        case Buttons::YesNoCancel: return {QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel};
    }
    return {QMessageBox::Ok};
}

Answer AnswerOf(int button) {
    for (const ButtonOf& each : AllButtons)
        if (each.Button == button)
            return each.Of;
    return Answer::Cancel;
}

// A name longer than a line may break anywhere, since a box cuts what it cannot break.
QString WithLineBreaks(const std::string& text) {
    constexpr int LongestWord = 80;
    constexpr QChar BreakHere(0x200B);
    const QString shown = ToScreen(text).replace(QLatin1String("\r\n"), QLatin1String("\n"));
    QString lines;
    int letters = 0;
    for (const QChar c : shown) {
        letters = c.isSpace() ? 0 : letters + 1;
        if (letters > LongestWord)
            lines += BreakHere;
        lines += c;
    }
    return lines;
}

// The window above which a dialog comes. The help stays beside, so it is not the one.
QWidget* Above(const QWidget* help) {
    QWidget* active = QApplication::activeWindow();
    return active != nullptr && active != help ? active : QApplication::activeModalWidget();
}

// The arrow above a box that asks something in the middle of what shows the wait cursor.
class ArrowCursor {
  public:
    ArrowCursor() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowCursor() { QGuiApplication::restoreOverrideCursor(); }
    ArrowCursor(const ArrowCursor&) = delete;
    ArrowCursor& operator=(const ArrowCursor&) = delete;
};

// The key F1 on a box: the box's own Help button, else the page about the screen that asks.
class HelpKey : public QObject {
  public:
    explicit HelpKey(QDialog& box) : QObject(&box), Box(box) { box.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress ||
            !static_cast<QKeyEvent*>(event)->matches(QKeySequence::HelpContents))
            return false;
        Guarded("QtDesktop-Form_KeyDown", [&](Guard&) { Open(); });
        return true;
    }

  private:
    void Open() {
        const auto* const message = qobject_cast<QMessageBox*>(&Box);
        QAbstractButton* const help = message == nullptr ? nullptr : message->button(QMessageBox::Help);
        if (help != nullptr)
            return help->click();
        const QWidget* owner = &Box;
        while (qobject_cast<const QDialog*>(owner) != nullptr &&
               qobject_cast<const ScreenDialog*>(owner) == nullptr && owner->parentWidget() != nullptr)
            owner = owner->parentWidget()->window();
        ShowHelpOf(owner->objectName().toStdString());
    }

    QDialog& Box;
};

int Ask(QDialog& box) {
    const ArrowCursor arrow;
    const HelpKey help(box);
    return box.exec();
}

// What an outside program is called to the operator: its file's name.
QString NameOf(const std::string& commandLine) {
    const std::string program = SplitCommandLine(commandLine).Program;
    return ToScreen(program.substr(program.find_last_of('\\') + 1));
}

}  // namespace

QtDesktop::QtDesktop(int patience) : Patience(patience), Former(Global().OwnDesktop) {
    InstallDesktop(this);
}

QtDesktop::~QtDesktop() {
    InstallDesktop(Former);
}

Answer QtDesktop::ShowMessage(const Message& message) {
    QMessageBox box(Above(Help.get()));
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(ToScreen(message.Title));
    box.setText(WithLineBreaks(message.Text));
    box.setIcon(IconOf(message.Picture));
    const std::vector<QMessageBox::StandardButton> buttons = ButtonsOf(message.Choices);
    for (const QMessageBox::StandardButton button : buttons)
        box.addButton(button);
    box.setEscapeButton(buttons.back());
    box.setDefaultButton(buttons.front());
    for (const QMessageBox::StandardButton button : buttons)
        if (AnswerOf(button) == message.Default)
            box.setDefaultButton(button);
    if (message.HasHelp) {
        QPushButton* const help = box.addButton(QMessageBox::Help);
        help->disconnect(SIGNAL(clicked()));  // the box stays open
        QObject::connect(help, &QPushButton::clicked, &box, [&] {
            Guarded("QtDesktop-ShowMessage",
                    [&](Guard&) { OpenHelp(message.HelpFile).ShowError(message.HelpContext); });
        });
    }
    return AnswerOf(Ask(box));
}

std::optional<std::string> QtDesktop::AskText(const std::string& prompt, const std::string& title,
                                              const std::string& initial) {
    QInputDialog box(Above(Help.get()));
    box.setWindowTitle(ToScreen(title));
    box.setLabelText(WithLineBreaks(prompt));
    box.setTextValue(ToScreen(initial));
    for (QLabel* const label : box.findChildren<QLabel*>())
        label->setTextFormat(Qt::PlainText);
    for (QLineEdit* const field : box.findChildren<QLineEdit*>())
        field->setMinimumWidth(field->fontMetrics().averageCharWidth() * 50);
    if (Ask(box) != QDialog::Accepted)
        return std::nullopt;
    return FromScreen(box.textValue());
}

std::optional<std::string> QtDesktop::AskFile(const FileDialog& dialog) {
    DriveFileDialog box(dialog, Above(Help.get()));
    if (Ask(box) != QDialog::Accepted)
        return std::nullopt;
    return box.ChosenPath();
}

int QtDesktop::PrinterCount() {
    return static_cast<int>(QPrinterInfo::availablePrinterNames().size());
}

QPrinter& QtDesktop::Printer() {
    if (ChosenPrinter == nullptr)
        ChosenPrinter = OpenDefaultPrinter();
    return *ChosenPrinter;
}

bool QtDesktop::SetupPrinter(PrinterChoice& choice) {
    // The dialog changes its printer as the operator tries one, also when it is cancelled.
    std::unique_ptr<QPrinter> tried = OpenPrinterLike(Printer());
    QPrintDialog box(tried.get(), Above(Help.get()));
    box.setWindowTitle(QCoreApplication::translate("QtDesktop", "Printer Setup"));
    box.setOption(QAbstractPrintDialog::PrintToFile, false);
    box.setOption(QAbstractPrintDialog::PrintSelection, false);
    box.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
    if (auto* buttons = box.findChild<QDialogButtonBox*>())
        if (QPushButton* const ok = buttons->button(QDialogButtonBox::Ok))
            ok->setText(QCoreApplication::translate("QtDesktop", "OK"));
    const bool confirmed = Ask(box) == QDialog::Accepted;
    if (confirmed)
        ChosenPrinter = std::move(tried);
    choice = {Printer().copyCount(), Printer().fromPage(), Printer().toPage()};
    return confirmed;
}

std::unique_ptr<PrintJob> QtDesktop::BeginPrint(const std::string& font, int points) {
    return NewPrintJob(Printer(), font, points);
}

HelpViewer& QtDesktop::OpenHelp(const std::string& file) {
    if (Help == nullptr || Help->File() != file)
        Help = std::make_unique<HelpViewer>(file);
    return *Help;
}

void QtDesktop::ShowHelp(const std::string& file, const std::string& /*window*/, int command) {
    HelpViewer& help = OpenHelp(file);
    if (command == HelpIndex)
        help.ShowIndex();
    else
        help.ShowContents();
}

void QtDesktop::ShowHelpPage(const std::string& file, const std::string& page) {
    OpenHelp(file).ShowPage(ToScreen(page));
}

void QtDesktop::SearchHelp(const std::string& file) {
    OpenHelp(file).ShowSearch();
}

void QtDesktop::RunAndWait(const std::string& commandLine) {
    std::unique_ptr<Host::OutsideProgram> program;
    try {
        program = StartToBeAwaited(commandLine);
    } catch (const RunTimeError&) {
        return;  // nothing tells of a program that did not start
    }
    WaitFor(*program, NameOf(commandLine), Above(Help.get()), Patience);
}

void QtDesktop::StartProgram(const std::string& commandLine) {
    StartCommandLine(commandLine, false);
}

std::unique_ptr<SharedWait> QtDesktop::BeginSharedWait() {
    return std::make_unique<SharedWaitWindow>(QApplication::activeWindow());
}

DateTime QtDesktop::Now() {
    return Host::Now();
}

void QtDesktop::YieldEvents() {
    QCoreApplication::processEvents();
}

}  // namespace Dorvane
