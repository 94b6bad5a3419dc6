// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/Screen.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QSettings>
#include <QTimer>

#include "core/ReportError.h"
#include "core/basHelp.h"

namespace Dorvane {

namespace {

// Keeps the place of one window.
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
    const std::string procedure = window.objectName().toStdString() + "-Form_KeyDown";
    Guarded(procedure, [](Guard&) { ShowHelpContents("Main"); });
    return true;
}

// The click comes when the close event is done with, since it takes the window away.
void ClickLater(QAbstractButton* button) {
    QTimer::singleShot(0, button, [button] { button->click(); });
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
    if (!OpensHelp(*this, *event))
        QMainWindow::keyPressEvent(event);
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
    if (!OpensHelp(*this, *event))
        QDialog::keyPressEvent(event);
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
