// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <string>

class QAbstractButton;

namespace Dorvane {

class ScreenDialog;

/// Asks whether changes that are not saved may be lost. True for yes.
bool MayLoseChanges(const std::string& title);

/// Knows whether the operator has changed something in the tables and fields of an editor, and lets its way
/// out ask before that is lost. It is made when all of them are filled.
class EditWatch : public QObject {
    Q_OBJECT

  public:
    EditWatch(ScreenDialog& editor, QAbstractButton& wayOut);

    /// Something was changed that is no field's and no table's typing.
    void Touch() { Touched = true; }

  private:
    ScreenDialog& Editor;
    bool Touched = false;
};

}  // namespace Dorvane
