// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <string>
#include <vector>

class QPushButton;
class QTableWidget;

namespace Dorvane {

/// A column of an entry table.
struct EntryColumn {
    QString Title;
    int Longest = 0;         // characters that can be typed; 0 is no limit
    bool UpperCase = false;  // what is typed becomes upper case
    bool Check = false;      // a mark instead of a text: "1" when it is set, else ""
};

/// A table of short texts whose lines can be added (Ins), removed (Del) and moved (Ctrl with the arrows).
/// Each line bears a number of its own that stays with it, so that what belongs to it elsewhere is found
/// again.
class EntryTable : public QWidget {
    Q_OBJECT

  public:
    struct Line {
        int Id = 0;
        std::vector<std::string> Texts;
        bool FirstIsFixed = false;  // the text of the first column cannot be changed
    };

    explicit EntryTable(QWidget* parent = nullptr);

    /// To be called once; `most` lines can be there.
    void SetUp(const std::vector<EntryColumn>& columns, int most, bool canMove = true);

    /// The numbers of the lines are above 0; a line that is added here gets a higher one than any before.
    void SetLines(const std::vector<Line>& lines);
    std::vector<Line> Lines() const;

    /// The number of the chosen line, 0 when there is none.
    int ChosenId() const;

    /// Takes what is being typed as typed.
    void FinishTyping();

    QTableWidget& Table() { return *Grid; }

  signals:
    /// Another line is the chosen one.
    void LineChosen();
    /// A mark was set or taken away.
    void Marked();

  private:
    void ConnectKeys();
    void Insert(int row, const Line& line);
    Line LineAt(int row) const;
    void Add();
    void Remove();
    void Move(int step);
    void ShowButtons();

    QTableWidget* Grid;
    QPushButton* AddButton;
    QPushButton* RemoveButton;
    QPushButton* UpButton;
    QPushButton* DownButton;
    std::vector<EntryColumn> Columns;
    int Most = 0;
    int LastId = 0;
    bool Quiet = false;
};

}  // namespace Dorvane
