// SPDX-License-Identifier: GPL-3.0-or-later
// The run of the adjustment screen: the button that starts and cancels it, and what shows that it goes on.
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <algorithm>

#include "adjustment/frmVarn.h"
#include "core/Globals.h"
#include "core/widgets/Pictures.h"
#include "ui_frmVarn.h"

namespace Dorvane {

namespace {

constexpr double RunButtonLines = 2.8;

}  // namespace

void frmVarn::ConnectRun() {
    connect(Form->cmdVarn, &QPushButton::clicked, this, [this] { cmdVarn_Click(); });
}

// Both pictures of the button, and room for either look and for the animation, so that nothing moves when
// they are shown.
void frmVarn::PrepareRunButton() {
    for (const auto& [picture, name] : {std::pair{&RunPicture, "adjust.svg"}, {&StopPicture, "stop.svg"}})
        Guarded("frmVarn-LoadForm", [&, to = picture, from = name](Guard&) {
            if (!PictureFile(from).empty())
                *to = LoadPicture(from);
        });
    const int side = qRound(fontMetrics().lineSpacing() * RunButtonLines);
    Form->cmdVarn->setIconSize({side, side});
    Form->cmdVarn->setCursor(Qt::ArrowCursor);  // it can be clicked while the screen waits
    int widest = 0;
    for (const bool running : {true, false}) {
        Running = running;
        DressRunButton();
        widest = std::max(widest, Form->cmdVarn->sizeHint().width());
    }
    Form->cmdVarn->setMinimumWidth(widest);
    Form->runLayout->addStrut(fontMetrics().lineSpacing() * 9 / 2);
}

// Where there is no picture to run by, the word stands for it.
void frmVarn::DressRunButton() {
    QPushButton& button = *Form->cmdVarn;
    const QString word = Running ? QStringLiteral("Stop") : QStringLiteral("Run");
    button.setIcon(Running ? StopPicture : RunPicture);
    button.setText(Running || RunPicture.isNull() ? word : QString());
    button.setAccessibleName(word);
    button.setToolTip(Running ? QStringLiteral("Cancel the adjustment (Esc)")
                              : QStringLiteral("Run the adjustment (F5)"));
    button.setShortcut(Running ? QKeySequence() : QKeySequence(Qt::Key_F5));
}

void frmVarn::cmdVarn_Click() {
    if (Running) {
        AskToCancel();
        return;
    }
    On("cmdVarn_Click", [&](Guard&) {
        State.cmbVarn.Selected = Form->cmbVarn->currentIndex() + 1;
        const QPointer<QWidget> focus = focusWidget();
        const std::unique_ptr<AdjustmentPackage> package = MakePackage();
        RunVarn(State, *package, RunView());
        if (!focus.isNull())
            focus->setFocus();
    });
}

// While the package works Escape means to cancel it.
void frmVarn::keyPressEvent(QKeyEvent* event) {
    if (!Running || !event->matches(QKeySequence::Cancel))
        Screen::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        AskToCancel();
}

void frmVarn::AskToCancel() {
    if (CancelWanted)
        return;
    Guarded("frmVarn-cmdVarn_Click", [&](Guard&) {
        const Message question{"The adjustment is still running.  Do you wish to cancel it?", "Cancel Varn",
                               Icon::Question, Buttons::YesNo, Answer::No};
        CancelWanted = TheDesktop().ShowMessage(question) == Answer::Yes;
    });
}

// Called again and again while the package works.
void frmVarn::WhileRunning() {
    QApplication::processEvents();
    if (CancelWanted)
        throw RunCancelled();
}

VarnRunView frmVarn::RunView() {
    VarnRunView view;
    view.BeginWait = [this] { BeginRun(); };
    view.ShowNumbers = [this] { ShowNumbers(); };
    view.StopAnimation = [this] {
        ShowRunning(false);
        ShowState();
    };
    view.EndWait = [this] {
        ShowRunning(false);
        Form->aniVarn->hide();
        ShowWaiting(false);
        ShowState();
    };
    return view;
}

void frmVarn::BeginRun() {
    CancelWanted = false;
    ShowWaiting(true);
    ShowRunning(true);
    // A picture that cannot be shown has been told of, and does not stop the run.
    if (Guarded("frmVarn-cmdVarn_Click", [&](Guard&) { Form->aniVarn->Open("gears.avi"); }))
        Form->aniVarn->show();
}

// While the package works there is nothing to do here but to cancel it.
void frmVarn::ShowRunning(bool running) {
    Running = running;
    for (QWidget* control : std::initializer_list<QWidget*>{Form->menuBar, Form->txtInput, Form->cmdBrowse,
                                                            Form->cmbVersion, Form->cmdViewVersion,
                                                            Form->cmbVarn, Form->fraOptions, Form->cmdHome})
        control->setEnabled(!running);
    DressRunButton();
    if (running)
        Status->setText(QStringLiteral("The adjustment is running ...  Esc cancels it"));
    else
        Form->aniVarn->Stop();
}

}  // namespace Dorvane
