// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/HelpSearch.h"

#include <QHelpEngineCore>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>

namespace Dorvane {

namespace {

QStringList WordsOf(const QString& text) {
    return text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool HoldsAll(const QString& text, const QStringList& words) {
    return std::all_of(words.begin(), words.end(),
                       [&](const QString& word) { return text.contains(word, Qt::CaseInsensitive); });
}

}  // namespace

HelpSearch::HelpSearch(QWidget* parent)
    : QWidget(parent),
      txtSearch(new QLineEdit(this)),
      lstFound(new QListWidget(this)),
      lblCount(new QLabel(this)) {
    txtSearch->setObjectName(QStringLiteral("txtSearch"));
    txtSearch->setClearButtonEnabled(true);
    txtSearch->setToolTip(tr("Type words; Enter opens the first page that has them all"));
    lstFound->setObjectName(QStringLiteral("lstFound"));
    lblCount->setObjectName(QStringLiteral("lblCount"));
    auto* const label = new QLabel(tr("Look in &all pages for:"), this);
    label->setBuddy(txtSearch);
    auto* const column = new QVBoxLayout(this);
    for (QWidget* const each : {static_cast<QWidget*>(label), static_cast<QWidget*>(txtSearch),
                                static_cast<QWidget*>(lstFound), static_cast<QWidget*>(lblCount)})
        column->addWidget(each);
    connect(txtSearch, &QLineEdit::textChanged, this, [this] { Find(); });
    connect(txtSearch, &QLineEdit::returnPressed, this, [this] { Choose(lstFound->currentItem()); });
    auto* const down = new QShortcut(Qt::Key_Down, txtSearch, nullptr, nullptr, Qt::WidgetShortcut);
    connect(down, &QShortcut::activated, lstFound, qOverload<>(&QWidget::setFocus));
    connect(lstFound, &QListWidget::itemClicked, this, &HelpSearch::Choose);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(key, lstFound, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated,
                this, [this] { Choose(lstFound->currentItem()); });
}

void HelpSearch::ReadFrom(QHelpEngineCore& engine) {
    for (const QString& manual : engine.registeredDocumentations()) {
        for (const QUrl& url : engine.files(manual, QStringList(), QStringLiteral("html"))) {
            QTextDocument page;
            page.setHtml(QString::fromUtf8(engine.fileData(url)));
            Pages.push_back({url, page.metaInformation(QTextDocument::DocumentTitle), page.toPlainText()});
        }
    }
    std::sort(Pages.begin(), Pages.end(), [](const Page& a, const Page& b) { return a.Title < b.Title; });
}

void HelpSearch::Begin() {
    txtSearch->selectAll();
    txtSearch->setFocus();
}

void HelpSearch::Find() {
    const QStringList words = WordsOf(txtSearch->text());
    lstFound->clear();
    for (const bool inTitle : {true, false})
        for (const Page& page : Pages)
            if (!words.isEmpty() && HoldsAll(page.Title, words) == inTitle && HoldsAll(page.Text, words)) {
                auto* const item = new QListWidgetItem(page.Title, lstFound);
                item->setData(Qt::UserRole, page.Url);
            }
    lstFound->setCurrentRow(0);
    const int count = lstFound->count();
    lblCount->setText(words.isEmpty() ? QString()
                      : count == 0    ? tr("on no page")
                      : count == 1    ? tr("on 1 page")
                                      : tr("on %1 pages").arg(count));
}

void HelpSearch::Choose(const QListWidgetItem* item) {
    if (item != nullptr)
        emit PageChosen(item->data(Qt::UserRole).toUrl(), WordsOf(txtSearch->text()).value(0));
}

}  // namespace Dorvane
