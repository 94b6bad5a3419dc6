// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "programs/editors/EntryGrid.h"

class QLabel;
class QPushButton;

namespace Dorvane {

/// A table of short texts whose lines can be added (Ins), removed (Del) and moved (Ctrl with the arrows).
/// Each line bears a number of its own that stays with it, so that what belongs to it elsewhere is found
/// again. A line can be marked; what its mark says stands below the table when the line is the chosen one.
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

    /// Asked before a line is removed by hand; false keeps it.
    std::function<bool(const Line& line)> MayRemove;

    /// The numbers of the lines are above 0; a line that is added here gets a higher one than any before.
    void SetLines(const std::vector<Line>& lines);
    std::vector<Line> Lines() const;

    /// True for a line that was added here and into which nothing was typed.
    bool IsBlank(const Line& line) const;

    /// Marks lines by their numbers with what there is to say of them, and takes all other marks away.
    void ShowMarks(const std::map<int, std::string>& marks);

    /// Replaces the text of a field.
    void SetText(int id, int column, const std::string& text);

    /// The number of the chosen line, 0 when there is none.
    int ChosenId() const;

    /// Takes what is being typed as typed.
    void FinishTyping();

    QTableWidget& Table() { return *Grid; }

  signals:
    /// Another line is the chosen one.
    void LineChosen();
    /// A field was changed by hand, or a line added or removed.
    void Edited();

  private:
    void ConnectKeys();
    void Insert(int row, const Line& line);
    Line LineAt(int row) const;
    int AddLine(int row);
    void Add();
    void Remove();
    void Move(int step);
    void ShowButtons();
    void ShowMark();

    EntryGrid* Grid;
    QLabel* MarkText;
    QPushButton* AddButton;
    QPushButton* RemoveButton;
    QPushButton* UpButton;
    QPushButton* DownButton;
    std::vector<EntryColumn> Columns;
    std::map<int, std::string> Marks;
    int Most = 0;
    int LastId = 0;
    int LastGiven = 0;  // the highest number of a line that was not added here
    bool Quiet = false;
};

}  // namespace Dorvane
