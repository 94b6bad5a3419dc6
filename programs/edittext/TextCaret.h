// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "programs/edittext/TextDocument.h"

namespace Dorvane {

enum class CaretStep { Left, Right, WordLeft, WordRight, LineStart, LineEnd, TextStart, TextEnd };

/// The caret of a text: where it goes, and what typing does there.
class TextCaret {
  public:
    explicit TextCaret(TextDocument& document) : Document(document) {}

    const Selection& Selected() const { return Own; }
    std::string SelectedText() const;
    /// Takes a selection; what is typed from now on is an edit of its own.
    void Select(const Selection& selection);
    void SelectWord(Offset at);
    void SelectLine(Offset at);

    /// Moves; `extend` keeps the other end of the selection.
    void Move(CaretStep step, bool extend);
    /// Moves by lines, down where `lines` is above 0, in the column that it had at first.
    void MoveLines(Offset lines, bool extend);

    /// The column, from 1; a tab counts one.
    Offset Column() const { return Own.Caret - Document.Text().LineStart(Own.Caret) + 1; }

    /// Characters on their way from the keyboard; in overwrite mode they replace those of the line.
    void Type(std::string_view text);
    void NewLine();
    /// Text as one edit, its line ends as those here.
    void Insert(std::string_view text);
    /// Erases what is selected, or what lies between the caret and where a step would lead.
    void Erase(CaretStep step);

    bool Overwrite = false;

  private:
    Offset Target(CaretStep step) const;
    Offset WordLeft(Offset at) const;
    Offset WordRight(Offset at) const;
    void Go(Offset at, bool extend);

    TextDocument& Document;
    Selection Own;
    Offset WantedColumn = -1;  // of moves by lines; -1 when it is that of the caret
};

}  // namespace Dorvane
