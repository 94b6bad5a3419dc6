// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/SharedWaitWindow.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "core/widgets/Later.h"
#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

constexpr int Pause = 40;  // milliseconds

}  // namespace

SharedWaitWindow::SharedWaitWindow(QWidget* owner) : QDialog(owner), Text(new QLabel(this)) {
    setObjectName(QStringLiteral("SharedWaitWindow"));
    setWindowTitle(tr("Waiting"));
    setWindowModality(Qt::ApplicationModal);
    setCursor(Qt::ArrowCursor);
    Text->setObjectName(QStringLiteral("lblHolder"));
    Text->setTextFormat(Qt::PlainText);
    auto* const meter = new QProgressBar(this);
    meter->setRange(0, 0);
    meter->setTextVisible(false);
    auto* const buttons = new QDialogButtonBox(this);
    auto* const leave = buttons->addButton(tr("&Leave"), QDialogButtonBox::RejectRole);
    leave->setObjectName(QStringLiteral("cmdLeave"));
    leave->setToolTip(tr("Waits no longer; what was wanted is not done (Escape)"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const column = new QVBoxLayout(this);
    column->addWidget(Text);
    column->addWidget(meter);
    column->addWidget(buttons);
}

bool SharedWaitWindow::GoOn(const std::string& text) {
    const HeldCalls held;
    if (Text->text() != ToScreen(text)) {
        Text->setText(ToScreen(text));
        adjustSize();
    }
    if (isHidden())
        show();
    bool over = false;
    QTimer::singleShot(Pause, this, [&over] { over = true; });
    while (!over && !Left)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    return !Left;
}

}  // namespace Dorvane
