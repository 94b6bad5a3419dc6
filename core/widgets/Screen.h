// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QDialog>
#include <QMainWindow>
#include <QPointer>

// What all screens have in common: a remembered place, a way out, the keys Escape and F1, and an end that
// others can wait for. A screen is never modal by a loop of its own; it keeps the others out of reach and
// goes on by what is called when it was unloaded.
//
// Escape and the window's own close button (and Alt+F4) mean the screen's way out, one of its buttons. What
// is open on the screen has Escape first: a drop-down list, a menu, the field of a table. Held down, Escape
// leaves one screen only. On a screen without a way out it does nothing.
namespace Dorvane {

/// Remembers where the operator left a window, under the window's object name, and puts it there when it is
/// shown for the first time. The place is the operator's own, kept apart from the site's profiles.
void RememberPlace(QWidget& window);

/// A screen with menus and a status bar.
class Screen : public QMainWindow {
    Q_OBJECT

  public:
    explicit Screen(QWidget* parent = nullptr);

    /// Closes the screen for good.
    void Unload();
    /// Shows the screen, the others out of reach.
    void ShowModal();

  signals:
    void Unloaded();

  protected:
    void ReturnsBy(QAbstractButton* button) { WayOut = button; }
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QPointer<QAbstractButton> WayOut;
};

/// A dialog. Without a way out of its own, it is unloaded.
class ScreenDialog : public QDialog {
    Q_OBJECT

  public:
    explicit ScreenDialog(QWidget* parent = nullptr);

    void Unload();
    void ShowModal();

  signals:
    void Unloaded();

  protected:
    void ReturnsBy(QAbstractButton* button) { WayOut = button; }
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void reject() override;

  private:
    void Leave();

    QPointer<QAbstractButton> WayOut;
};

}  // namespace Dorvane
