// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableWidget>
#include <functional>
#include <string>
#include <vector>

namespace Dorvane {

/// A column of an entry table.
struct EntryColumn {
    QString Title;
    int Longest = 0;           // characters that can be typed; 0 is no limit
    bool UpperCase = false;    // what is typed becomes upper case
    bool Fixed = false;        // shown and not changed by hand
    std::string Default = {};  // what stands in a new line
    /// What the field can be, for the texts of its line; an empty list, or none, lets the field be typed.
    std::function<std::vector<std::string>(const std::vector<std::string>& line)> Choices = {};
};

/// The cells of an entry table. Tab and Shift+Tab go to the next and the last cell that can be changed, Enter
/// to the one below; both take what was typed. Behind the last cell they ask for a new line, and where there
/// is none Tab leaves the table.
class EntryGrid : public QTableWidget {
    Q_OBJECT

  public:
    explicit EntryGrid(QWidget* parent);

    void SetColumns(const std::vector<EntryColumn>& columns);

    /// Appends a line; false when none may be added.
    std::function<bool()> NewLine;

  protected:
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    QModelIndex Neighbour(bool next);
    void GoDown();
};

}  // namespace Dorvane
