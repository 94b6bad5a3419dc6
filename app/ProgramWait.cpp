// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ProgramWait.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include "core/widgets/Later.h"
#include "core/widgets/WaitCursor.h"

namespace Dorvane {

namespace {

constexpr int LookEvery = 20;  // milliseconds

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::ContextMenu:
        case QEvent::Wheel:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::DragEnter:
        case QEvent::Drop:
        case QEvent::Close: return true;
        default: return false;
    }
}

// Drops what the operator types and clicks on all windows but one and its own boxes, as long as this lives.
// Escape on any of them asks whether to give up.
class DroppedInput : public QObject {
  public:
    explicit DroppedInput(GiveUpWindow& window) : Window(window) {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!IsInput(event->type()) || IsTheWindows(watched))
            return false;
        if (!event->spontaneous())
            return event->type() == QEvent::Shortcut;
        if (event->type() == QEvent::KeyPress && Window.isVisible())
            if (const auto* key = static_cast<QKeyEvent*>(event); key->matches(QKeySequence::Cancel))
                Window.Ask();
        event->ignore();
        return true;
    }

  private:
    bool IsTheWindows(const QObject* watched) const {
        for (const QObject* each = watched; each != nullptr; each = each->parent())
            if (each == &Window)
                return true;
        const auto* window = qobject_cast<const QWindow*>(watched);
        for (; window != nullptr; window = window->transientParent())
            if (window == Window.windowHandle())
                return true;
        return false;
    }

    GiveUpWindow& Window;
};

}  // namespace

GiveUpWindow::GiveUpWindow(const QString& program, QWidget* owner)
    : QDialog(owner, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint), Program(program) {
    setObjectName(QStringLiteral("GiveUpWindow"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(tr("Waiting"));
    auto* const text = new QLabel(tr("%1 is running ...").arg(Program), this);
    text->setTextFormat(Qt::PlainText);
    auto* const giveUp = new QPushButton(tr("&Give Up"), this);
    giveUp->setObjectName(QStringLiteral("cmdGiveUp"));
    giveUp->setToolTip(tr("Ends %1 (Escape)").arg(Program).toHtmlEscaped());
    giveUp->setAutoDefault(false);
    connect(giveUp, &QPushButton::clicked, this, &GiveUpWindow::Ask);
    auto* const row = new QHBoxLayout(this);
    row->addWidget(text, 1);
    row->addWidget(giveUp);
}

// In the lower corner of the owner's screen: the program's own window mostly stands where the owner stands, and
// is often worked in for long.
void GiveUpWindow::Offer() {
    constexpr int rim = 24;  // for the frame and the shadow
    adjustSize();
    const QRect room = screen()->availableGeometry();
    move(room.bottomRight() - rect().bottomRight() - QPoint(rim, rim));
    show();
}

void GiveUpWindow::Ask() {
    if (Question == nullptr) {
        Question = new QMessageBox(QMessageBox::Warning, tr("Give Up"), QString(),
                                   QMessageBox::Yes | QMessageBox::No, this);
        Question->setTextFormat(Qt::PlainText);
        Question->setText(tr("%1 and all that it has started is ended. What it has not saved is "
                             "lost.\n\nEnd it?")
                              .arg(Program));
        Question->setDefaultButton(QMessageBox::No);
        connect(Question, &QMessageBox::finished, this, [this](int answer) {
            GivenUp = answer == QMessageBox::Yes;
            QGuiApplication::restoreOverrideCursor();
        });
    }
    if (Question->isVisible())
        return;
    QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    Question->open();
}

void GiveUpWindow::CloseQuestion() {
    if (Question != nullptr && Question->isVisible())
        Question->done(QMessageBox::No);
}

void GiveUpWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
}

void WaitFor(Host::OutsideProgram& program, const QString& name, QWidget* owner, int patience) {
    const HeldCalls held;
    const WaitCursor wait;
    GiveUpWindow window(name, owner);
    const DroppedInput dropped(window);
    QTimer look;
    look.start(LookEvery);
    QTimer::singleShot(patience, &window, &GiveUpWindow::Offer);
    while (!program.HasEnded()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        if (window.IsGivenUp())
            program.End();
    }
    window.CloseQuestion();
    QCoreApplication::processEvents();
}

}  // namespace Dorvane
