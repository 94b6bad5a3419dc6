// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/EditWatch.h"

#include <QAbstractButton>
#include <QLineEdit>

#include "core/Globals.h"
#include "core/widgets/Screen.h"
#include "core/widgets/ScreenText.h"
#include "programs/editors/EntryTable.h"

namespace Dorvane {

bool MayLoseChanges(const std::string& title) {
    return TheDesktop().ShowMessage({.Text = "The changes are not saved.  Leave all the same?",
                                     .Title = title,
                                     .Picture = Icon::Question,
                                     .Choices = Buttons::YesNo,
                                     .Default = Answer::No}) == Answer::Yes;
}

EditWatch::EditWatch(ScreenDialog& editor, QAbstractButton& wayOut) : QObject(&editor), Editor(editor) {
    for (const EntryTable* table : editor.findChildren<EntryTable*>())
        connect(table, &EntryTable::Edited, this, &EditWatch::Touch);
    for (const QLineEdit* field : editor.findChildren<QLineEdit*>())
        connect(field, &QLineEdit::textChanged, this, &EditWatch::Touch);
    connect(&wayOut, &QAbstractButton::clicked, this, [this] {
        if (!Touched || MayLoseChanges(FromScreen(Editor.windowTitle())))
            Editor.Unload();
    });
}

}  // namespace Dorvane
