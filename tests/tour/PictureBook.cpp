// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tour/PictureBook.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include "tests/support/ScreenTest.h"

namespace Dorvane::Tour {

namespace {

constexpr int BoxMilliseconds = 5000;

[[noreturn]] void Fail(const QString& text) {
    throw std::runtime_error(text.toStdString());
}

QWidget* FindVisible(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->objectName() == QLatin1String(name))
            return window;
    return nullptr;
}

QString WithoutMnemonic(QString text) {
    return text.remove(QLatin1Char('&'));
}

QAbstractButton* ButtonOf(QWidget& box, const QString& text) {
    for (QAbstractButton* button : box.findChildren<QAbstractButton*>())
        if (button->isVisible() && WithoutMnemonic(button->text()) == text)
            return button;
    return nullptr;
}

void Answer(QWidget& box, const QString& button) {
    if (button.isEmpty())
        return box.close() ? void() : Fail("the box cannot be closed");
    QAbstractButton* found = ButtonOf(box, button);
    if (found == nullptr)
        Fail("no button " + button + " in the box " + box.windowTitle());
    found->click();
}

}  // namespace

QWidget& PictureBook::Visible(const char* name) {
    QWidget* window = FindVisible(name);
    if (window == nullptr)
        Fail(QStringLiteral("not on the screen: ") + QLatin1String(name));
    return *window;
}

bool PictureBook::IsVisible(const char* name) {
    return FindVisible(name) != nullptr;
}

void PictureBook::Shoot(QWidget& window, const QString& name) {
    if (Large && !Stretched.contains(window.objectName()) &&
        window.maximumSize().width() > window.width() * 2) {
        Stretched.insert(window.objectName());
        window.resize(window.width() * 3 / 2, window.height() * 3 / 2);
    }
    Testing::HandleEvents();
    QTest::qWait(60);
    if (!window.grab().save(Folder + "/" + name + ".png"))
        Fail("cannot write the picture " + name);
    ++Taken;
}

QWidget& PictureBook::Shoot(const char* screen, const QString& state) {
    QWidget& window = Visible(screen);
    Shoot(window, state.isEmpty() ? QString::fromLatin1(screen) : QString::fromLatin1(screen) + "-" + state);
    return window;
}

void PictureBook::ShootMenu(QWidget& window, const char* menu, const QString& name) {
    auto* popup = window.findChild<QMenu*>(QLatin1String(menu));
    auto* bar = window.findChild<QMenuBar*>();
    if (popup == nullptr || bar == nullptr)
        Fail(QStringLiteral("no menu ") + QLatin1String(menu));
    popup->popup(bar->mapToGlobal(bar->actionGeometry(popup->menuAction()).bottomLeft()));
    Testing::HandleEvents();
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    painter.drawPixmap(window.mapFromGlobal(popup->pos()), popup->grab());
    painter.end();
    popup->close();
    if (!picture.save(Folder + "/" + name + ".png"))
        Fail("cannot write the picture " + name);
    ++Taken;
}

void PictureBook::ShootBox(const QString& name, const QString& button, const std::function<void()>& action) {
    bool shot = false;
    QTimer looker;
    int waited = 0;
    looker.setInterval(20);
    QObject::connect(&looker, &QTimer::timeout, &looker, [&] {
        QWidget* box = QApplication::activeModalWidget();
        auto* dialog = qobject_cast<QDialog*>(box);
        if (dialog == nullptr || (waited += 20) < 100)
            return;
        looker.stop();
        shot = true;
        box->grab().save(Folder + "/" + name + ".png");
        ++Taken;
        Answer(*box, button);
    });
    looker.start();
    action();
    if (!QTest::qWaitFor([&] { return shot; }, BoxMilliseconds))
        Fail("no box came for " + name);
    Testing::HandleEvents();
}

}  // namespace Dorvane::Tour
