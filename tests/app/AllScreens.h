// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QPointer>
#include <functional>
#include <string>
#include <vector>

#include "core/FileMeter.h"
#include "tests/support/RecordingNavigator.h"
#include "tests/support/ScriptedDesktop.h"
#include "tests/support/TestSite.h"

class QWidget;

// Every window that is a screen of the program or of one of its editors, for what all have to keep to. A new
// screen gets a line in AllScreens.cpp.
namespace Dorvane::Testing {

/// A workstation on which all of them can be opened, with the shipped profiles and structures.
struct ScreenSite {
    ScreenSite();
    ~ScreenSite();

    /// Shows a screen until the next one is shown.
    QWidget& Show(QWidget* screen);

    TestSite Site;
    ScriptedDesktop Desk;
    RecordingNavigator Nav;

  private:
    void Drop();

    QPointer<QWidget> Open;
};

struct ScreenKind {
    const char* Name;    // of the form, with what is shown of it behind a blank: "frmTree Access ..."
    const char* WayOut;  // the button that means its way out; "" where it has none
    std::function<QWidget*(ScreenSite&)> Make;

    std::string Form() const;
    /// The windows that only show that work goes on take no key, and the splash takes every key for its end.
    bool TakesKeys() const;
};

const std::vector<ScreenKind>& AllScreens();

/// Does `check` with each of them, on a workstation of its own. What fails names the screen.
void ForEachScreen(const std::function<void(ScreenSite&, QWidget&, const ScreenKind&)>& check);

}  // namespace Dorvane::Testing
