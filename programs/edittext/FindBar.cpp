// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/FindBar.h"

#include <QKeyEvent>

#include "programs/edittext/ByteText.h"
#include "ui_FindBar.h"

namespace Dorvane {

FindBar::FindBar(QWidget* parent) : QWidget(parent), Form(std::make_unique<Ui::FindBar>()) {
    Form->setupUi(this);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    connect(Form->cmdNext, &QPushButton::clicked, this, [this] { emit FindWanted(false); });
    connect(Form->cmdPrevious, &QPushButton::clicked, this, [this] { emit FindWanted(true); });
    connect(Form->cmdReplace, &QPushButton::clicked, this, &FindBar::ReplaceWanted);
    connect(Form->cmdReplaceAll, &QPushButton::clicked, this, &FindBar::ReplaceAllWanted);
    connect(Form->cmdCloseBar, &QToolButton::clicked, this, &FindBar::Closed);
    connect(Form->txtFind, &QLineEdit::textChanged, this, &FindBar::ShowWhatCanBeDone);
    ShowWhatCanBeDone();
}

FindBar::~FindBar() = default;

void FindBar::Open(const QString& words, bool replaces) {
    for (QWidget* const control :
         {static_cast<QWidget*>(Form->lblReplace), static_cast<QWidget*>(Form->txtReplace),
          static_cast<QWidget*>(Form->cmdReplace), static_cast<QWidget*>(Form->cmdReplaceAll)})
        control->setVisible(replaces);
    if (!words.isEmpty())
        Form->txtFind->setText(words);
    show();
    Form->txtFind->setFocus();
    Form->txtFind->selectAll();
}

std::optional<std::string> FindBar::Bytes(const QString& text) {
    QString lacking;
    std::optional<std::string> bytes = BytesOf(text, lacking);
    if (!bytes)
        emit Refused(tr("The files know code page 1252 only, which lacks %1.").arg(lacking));
    return bytes;
}

std::optional<SearchWords> FindBar::Words() {
    const std::optional<std::string> words = Bytes(Form->txtFind->text());
    if (!words || words->empty())
        return std::nullopt;
    return SearchWords{*words, Form->chkCase->isChecked(), Form->chkWord->isChecked()};
}

std::optional<std::string> FindBar::Replacement() {
    return Bytes(Form->txtReplace->text());
}

bool FindBar::WrapsAround() const {
    return Form->chkWrap->isChecked();
}

void FindBar::AllowReplacing(bool allowed) {
    MayReplace = allowed;
    ShowWhatCanBeDone();
}

void FindBar::ShowWhatCanBeDone() {
    const bool words = !Form->txtFind->text().isEmpty();
    Form->cmdNext->setEnabled(words);
    Form->cmdPrevious->setEnabled(words);
    Form->cmdReplace->setEnabled(words && MayReplace);
    Form->cmdReplaceAll->setEnabled(words && MayReplace);
    Form->txtReplace->setEnabled(MayReplace);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && Form->txtReplace->hasFocus())
        emit ReplaceWanted();
    else if (enter)
        emit FindWanted(event->modifiers().testFlag(Qt::ShiftModifier));
    else
        QWidget::keyPressEvent(event);
}

}  // namespace Dorvane
