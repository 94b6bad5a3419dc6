// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QString>
#include <QWidget>
#include <functional>
#include <string>

class QAction;
class QListWidget;

// Hands and eyes for tests on real screens: finds controls by their names, clicks, types and reads.
namespace Dorvane::Testing {

/// The control of a screen by its object name; fails the test when there is none of that kind.
template <class T>
T& Control(QWidget& screen, const char* name) {
    T* control = screen.objectName() == QLatin1String(name) ? dynamic_cast<T*>(&screen)
                                                            : screen.findChild<T*>(QLatin1String(name));
    if (control == nullptr)
        throw std::runtime_error("no control " + std::string(name) + " on " +
                                 screen.objectName().toStdString());
    return *control;
}

/// The text of a label, button, line edit or window title ("" names the screen itself), in code page 1252,
/// without mnemonics.
std::string TextOf(QWidget& screen, const char* name = "");

/// Clicks a button with the mouse, as an operator would: it must be visible and enabled.
void Click(QWidget& screen, const char* button);
/// Chooses a menu item, which must be enabled.
void Choose(QWidget& screen, const char* action);

bool IsEnabled(QWidget& screen, const char* name);
bool IsShown(QWidget& screen, const char* name);

/// The texts of a list, and a click on the item of a text.
std::vector<std::string> Items(QWidget& screen, const char* list);
void ClickItem(QWidget& screen, const char* list, const std::string& text);

/// Runs this test in a copy of the test program that has shown nothing yet. What runs a child process (see
/// TestSite.h) has to start so: the toolkit paints with threads, which a child of a process that has painted
/// lacks and waits for.
void InFreshProcess(const std::function<void()>& body);

/// Handles all events that wait, deferred deletions too.
void HandleEvents();

/// Makes the finished program's pictures those of the test's own program folder P:\DORVANE\.
void UseShippedPictures();

}  // namespace Dorvane::Testing
