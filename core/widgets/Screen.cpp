// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/Screen.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QSettings>
#include <algorithm>

#include "core/ReportError.h"
#include "core/basHelp.h"
#include "core/widgets/Later.h"
#include "core/widgets/TitleWidth.h"

namespace Dorvane {

namespace {

// Keeps the place of one window, and sees to it that its texts are not cut.
class PlaceKeeper : public QObject {
  public:
    explicit PlaceKeeper(QWidget& window) : QObject(&window), Window(window) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &Window && event->type() == QEvent::Show && !event->spontaneous())
            Restore();
        if (watched == &Window && event->type() == QEvent::Hide && !event->spontaneous())
            QSettings().setValue(Key(), Window.saveGeometry());
        return false;
    }

  private:
    QString Key() const { return QStringLiteral("places/") + Window.objectName(); }

    void Restore() {
        if (Restored)
            return;
        Restored = true;
        const QByteArray place = QSettings().value(Key()).toByteArray();
        if (!place.isEmpty())
            Window.restoreGeometry(place);
        MakeRoom();
    }

    // For the title, and for a text of several lines, which is the higher the narrower the window is.
    void MakeRoom() {
        const int width = std::max(Window.width(), WidthOfTitle(Window));
        const QLayout* const layout = Window.layout();
        const bool hasLines = layout != nullptr && layout->hasHeightForWidth();
        const int height = std::max(Window.height(), hasLines ? layout->totalHeightForWidth(width) : 0);
        Window.resize(QSize(width, height).boundedTo(Window.maximumSize()));
    }

    QWidget& Window;
    bool Restored = false;
};

template <class Window>
void ShowApplicationModal(Window& window) {
    window.setWindowModality(Qt::ApplicationModal);
    window.show();
    window.raise();
    window.activateWindow();
}

// True when the key was the help key.
bool OpensHelp(const QWidget& window, const QKeyEvent& event) {
    if (!event.matches(QKeySequence::HelpContents))
        return false;
    const std::string screen = window.objectName().toStdString();
    Guarded(screen + "-Form_KeyDown", [&](Guard&) { ShowHelpOf(screen); });
    return true;
}

// The click comes when the event is done with, since it takes the window away. Of two that wait, the first
// one has done so.
void ClickLater(QAbstractButton* button) {
    CallLater(button, [button] {
        if (button->isVisible())
            button->click();
    });
}

}  // namespace

void RememberPlace(QWidget& window) {
    new PlaceKeeper(window);
}

Screen::Screen(QWidget* parent) : QMainWindow(parent) {
    RememberPlace(*this);
}

void Screen::Unload() {
    hide();
    emit Unloaded();
    deleteLater();
}

void Screen::ShowModal() {
    ShowApplicationModal(*this);
}

void Screen::closeEvent(QCloseEvent* event) {
    if (WayOut.isNull())
        return;
    event->ignore();
    ClickLater(WayOut);
}

void Screen::keyPressEvent(QKeyEvent* event) {
    if (OpensHelp(*this, *event))
        return;
    if (!event->matches(QKeySequence::Cancel))
        return QMainWindow::keyPressEvent(event);
    if (!WayOut.isNull() && !event->isAutoRepeat())
        ClickLater(WayOut);
}

ScreenDialog::ScreenDialog(QWidget* parent) : QDialog(parent) {
    RememberPlace(*this);
}

void ScreenDialog::Unload() {
    hide();
    emit Unloaded();
    deleteLater();
}

void ScreenDialog::ShowModal() {
    ShowApplicationModal(*this);
}

void ScreenDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    Leave();
}

void ScreenDialog::keyPressEvent(QKeyEvent* event) {
    if (OpensHelp(*this, *event))
        return;
    if (!event->matches(QKeySequence::Cancel))
        return QDialog::keyPressEvent(event);
    if (!event->isAutoRepeat())
        Leave();
}

void ScreenDialog::reject() {
    Leave();
}

void ScreenDialog::Leave() {
    if (WayOut.isNull())
        Unload();
    else
        ClickLater(WayOut);
}

}  // namespace Dorvane
