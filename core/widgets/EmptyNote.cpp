// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/widgets/EmptyNote.h"

#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>

#include "core/widgets/ScreenText.h"

namespace Dorvane {

namespace {

QString NoteName(const QListWidget& list) {
    return QStringLiteral("lblEmpty") + list.objectName();
}

}  // namespace

void AddEmptyNote(QListWidget& list) {
    auto* note = new QLabel(list.viewport());
    note->setObjectName(NoteName(list));
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    note->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    note->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* room = new QVBoxLayout(list.viewport());
    room->addWidget(note);
}

void ShowEmptyNote(QListWidget& list, const std::string& why) {
    auto* note = list.findChild<QLabel*>(NoteName(list));
    note->setText(ToScreen(why));
    note->setVisible(!why.empty());
    list.setAccessibleDescription(note->text());
}

}  // namespace Dorvane
