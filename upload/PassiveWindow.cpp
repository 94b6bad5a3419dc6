// SPDX-License-Identifier: GPL-3.0-or-later
#include "upload/PassiveWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QWindow>
#include <algorithm>

#include "core/widgets/Animation.h"
#include "core/widgets/TitleWidth.h"
#include "upload/MeterLayout.h"

namespace Dorvane {

namespace {

// As long as this the work waits for a window manager to bring the window up, and no longer.
constexpr int LongestWait = 250;  // milliseconds

QRect RectOf(const MeterBox& box) {
    return {box.Left, box.Top, box.Width, box.Height};
}

}  // namespace

PassiveWindow::PassiveWindow()
    : QDialog(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
    setWindowModality(Qt::ApplicationModal);
}

void PassiveWindow::Place(Animation& picture, const std::vector<Group>& groups, QProgressBar* bar) {
    const QSize open = picture.sizeHint();
    const QSize size = open.isEmpty() ? picture.size() : open;
    const MeterUnits units(fontMetrics().height());
    std::vector<int> rows;
    for (const Group& group : groups) {
        rows.push_back(0);
        for (const Row& row : group)
            rows.back() += row.Pitches;
    }
    const MeterLayout layout = LayOutMeter(size.width(), size.height(), units, rows, bar != nullptr);
    picture.setGeometry(RectOf(layout.Animation));
    std::size_t next = 0;
    for (const Group& group : groups) {
        for (const Row& row : group) {
            QRect place = RectOf(layout.Rows[next]);
            place.setHeight(row.Pitches * units.Pitch);
            row.Control->setGeometry(place);
            next += static_cast<std::size_t>(row.Pitches);
        }
    }
    if (bar != nullptr)
        bar->setGeometry(RectOf(layout.Bar));
    setFixedSize(layout.ClientWidth, layout.ClientHeight);
}

void PassiveWindow::ShowAtOnce() {
    setFixedWidth(std::max(width(), WidthOfTitle(*this)));
    PutOverActiveWindow();
    show();
    raise();
    QElapsedTimer shown;
    shown.start();
    do {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    } while (!windowHandle()->isExposed() && shown.elapsed() < LongestWait);
}

void PassiveWindow::PutOverActiveWindow() {
    const QWidget* const active = QApplication::activeWindow();
    if (active == nullptr || active == this)
        return;
    winId();  // makes the window of the platform, which alone can stay above another one
    windowHandle()->setTransientParent(active->windowHandle());
    move(active->frameGeometry().center() - rect().center());
}

void PassiveWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
}

}  // namespace Dorvane
