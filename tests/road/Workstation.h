// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QPointer>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>

#include "app/AppNavigator.h"
#include "app/QtDesktop.h"
#include "tests/support/Operator.h"
#include "tests/support/ScreenTest.h"
#include "tests/support/TestSite.h"

namespace Dorvane::Testing {

/// A workstation with drives of its own and the finished program, started and used through its screens alone.
class Workstation : public testing::Test {
  protected:
    Workstation();
    ~Workstation() override;

    /// Starts the program as its main() does. With folders missing they are made by the dialog, the data on
    /// drive D and the rest on C.
    void Start();

    /// The visible screen of a form's name; fails the test when it is not there.
    static QWidget& Screen(const char* name);
    static bool IsOpen(const char* name);

    /// Puts the shipped structure files into Init_path, as a surveyor does who sets up a site.
    static void LayDownStructures();

    /// Adds a survey from the home menu on, through the system options and the data tree.
    void AddSurvey(const std::string& location, const std::vector<std::string>& types,
                   const std::string& epoch, const std::string& history);

    /// Chooses the node of a folder in the tree of a screen.
    static void ChooseFolder(QWidget& screen, const std::string& folder);

    /// Moves the focus to a button and presses the space bar.
    static void PressKey(QWidget& screen, const char* button);

    /// Types a text of any characters into a field.
    static void Type(QWidget& screen, const char* field, const std::string& text);

    /// Does `act` with the screen of a form's name as soon as it is open.
    static void WhenOpen(const char* name, const std::function<void(QWidget&)>& act);

    TestSite Site;
    std::unique_ptr<QtDesktop> Desk;
    std::unique_ptr<AppNavigator> Navigator;
    Operator Person;

  private:
    void InstallProgram();
};

}  // namespace Dorvane::Testing
