// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSet>
#include <QString>
#include <QWidget>
#include <functional>

namespace Dorvane::Tour {

/// Takes the pictures: one file per screen or state of it.
class PictureBook {
  public:
    /// `large` stretches every window that can be stretched before its first picture is taken; it remembers
    /// its size from then on.
    PictureBook(QString folder, bool large) : Folder(std::move(folder)), Large(large) {}

    /// The window of an object name that is visible; throws when there is none.
    static QWidget& Visible(const char* name);
    static bool IsVisible(const char* name);

    /// A picture of a window, as "<name>.png".
    void Shoot(QWidget& window, const QString& name);

    /// A picture of the visible window of this object name, as "<screen>.png" or "<screen>-<state>.png".
    QWidget& Shoot(const char* screen, const QString& state = {});

    /// A picture of a window with one of its menus open.
    void ShootMenu(QWidget& window, const char* menu, const QString& name);

    /// Runs `action`, which asks something in a box of its own: takes the picture of the box and presses the
    /// button of this text ("" closes it). Throws when no box comes.
    void ShootBox(const QString& name, const QString& button, const std::function<void()>& action);

    int Count() const { return Taken; }

  private:
    QString Folder;
    bool Large;
    QSet<QString> Stretched;  // by object name
    int Taken = 0;
};

}  // namespace Dorvane::Tour
