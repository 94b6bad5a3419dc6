// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QUrl>
#include <QWidget>
#include <vector>

class QHelpEngineCore;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace Dorvane {

/// Looks for words in all pages of the manual, as they are typed. A page is found when it holds all of them,
/// in any order and whatever their case. Pages that have them in their title come first.
class HelpSearch : public QWidget {
    Q_OBJECT

  public:
    explicit HelpSearch(QWidget* parent = nullptr);

    /// Reads the pages, which are few, once.
    void ReadFrom(QHelpEngineCore& engine);
    /// Ready to type.
    void Begin();

  signals:
    /// The operator wants this page, which he found by `word`.
    void PageChosen(const QUrl& page, const QString& word);

  private:
    struct Page {
        QUrl Url;
        QString Title;
        QString Text;
    };

    void Find();
    void Choose(const QListWidgetItem* item);

    std::vector<Page> Pages;
    QLineEdit* txtSearch;
    QListWidget* lstFound;
    QLabel* lblCount;
};

}  // namespace Dorvane
