// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextCaret.h"

#include <algorithm>

namespace Dorvane {

namespace {

enum class Kind { Blank, Word, Sign };

Kind KindOf(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte <= ' ' || byte == 0xA0)
        return Kind::Blank;
    const bool word = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                      c == '_' || byte >= 0x80;
    return word ? Kind::Word : Kind::Sign;
}

}  // namespace

std::string TextCaret::SelectedText() const {
    return Document.Text().Read(Own.From(), Own.To() - Own.From());
}

void TextCaret::Select(const Selection& selection) {
    Own = {Document.Text().Outside(selection.Anchor), Document.Text().Outside(selection.Caret)};
    WantedColumn = -1;
    Document.EndRun();
}

void TextCaret::SelectWord(Offset at) {
    const PieceText& text = Document.Text();
    const Offset start = text.LineStart(at);
    const Offset end = text.LineEnd(start);
    if (start == end)
        return Select({at, at});
    Offset from = std::min(at, end - 1);
    const Kind kind = KindOf(text.Read(from, 1)[0]);
    Offset to = from + 1;
    while (from > start && KindOf(text.Read(from - 1, 1)[0]) == kind)
        --from;
    while (to < end && KindOf(text.Read(to, 1)[0]) == kind)
        ++to;
    Select({from, to});
}

void TextCaret::SelectLine(Offset at) {
    const PieceText& text = Document.Text();
    Select({text.LineStart(at), text.NextLine(at).value_or(text.Size())});
}

// Over the blanks and then over the word before a place, not beyond the line; from its beginning to the end
// of the line before.
Offset TextCaret::WordLeft(Offset at) const {
    const PieceText& text = Document.Text();
    const Offset start = text.LineStart(at);
    if (at == start)
        return Document.Before(at);
    const auto kindBefore = [&](Offset place) { return KindOf(text.Read(place - 1, 1)[0]); };
    while (at > start && kindBefore(at) == Kind::Blank)
        --at;
    if (at == start)
        return at;
    const Kind kind = kindBefore(at);
    while (at > start && kindBefore(at) == kind)
        --at;
    return at;
}

Offset TextCaret::WordRight(Offset at) const {
    const PieceText& text = Document.Text();
    const Offset end = text.LineEnd(at);
    if (at == end)
        return Document.Behind(at);
    const auto kindAt = [&](Offset place) { return KindOf(text.Read(place, 1)[0]); };
    const Kind kind = kindAt(at);
    while (at < end && kindAt(at) == kind)
        ++at;
    while (at < end && kindAt(at) == Kind::Blank)
        ++at;
    return at;
}

Offset TextCaret::Target(CaretStep step) const {
    const PieceText& text = Document.Text();
    switch (step) {
        case CaretStep::Left: return Document.Before(Own.Caret);
        case CaretStep::Right: return Document.Behind(Own.Caret);
        case CaretStep::WordLeft: return WordLeft(Own.Caret);
        case CaretStep::WordRight: return WordRight(Own.Caret);
        case CaretStep::LineStart: return text.LineStart(Own.Caret);
        case CaretStep::LineEnd: return text.LineEnd(Own.Caret);
        case CaretStep::TextStart: return 0;
        case CaretStep::TextEnd: return text.Size();
    }
    return Own.Caret;
}

void TextCaret::Go(Offset at, bool extend) {
    Own.Caret = at;
    if (!extend)
        Own.Anchor = at;
    Document.EndRun();
}

void TextCaret::Move(CaretStep step, bool extend) {
    WantedColumn = -1;
    // Without extending, the first step leads to the selection's end on its side.
    if (!extend && !Own.Empty() && (step == CaretStep::Left || step == CaretStep::Right))
        return Go(step == CaretStep::Left ? Own.From() : Own.To(), false);
    Go(Target(step), extend);
}

void TextCaret::MoveLines(Offset lines, bool extend) {
    const PieceText& text = Document.Text();
    const Offset column = WantedColumn >= 0 ? WantedColumn : Column() - 1;
    Offset start = text.LineStart(Own.Caret);
    for (; lines > 0; --lines) {
        const std::optional<Offset> next = text.NextLine(start);
        if (!next)
            break;
        start = *next;
    }
    for (; lines < 0 && start > 0; ++lines)
        start = text.LineStart(Document.Before(start));
    Go(std::min(start + column, text.LineEnd(start)), extend);
    WantedColumn = column;
}

void TextCaret::Type(std::string_view text) {
    Selection replaced = Own;
    if (Overwrite && replaced.Empty())
        replaced.Caret = std::min(replaced.Caret + static_cast<Offset>(text.size()),
                                  Document.Text().LineEnd(replaced.Caret));
    Own = Document.Replace(Selection{replaced.From(), replaced.To()}, text,
                           Own.Empty() ? EditKind::Typing : EditKind::Single);
    WantedColumn = -1;
}

void TextCaret::NewLine() {
    Insert("\n");
}

void TextCaret::Insert(std::string_view text) {
    Document.EndRun();
    Own = Document.Replace(Own, Document.WithLineEndsOf(Own.From(), text), EditKind::Single);
    WantedColumn = -1;
}

void TextCaret::Erase(CaretStep step) {
    const bool whole = !Own.Empty();
    const Selection erased = whole ? Own : Selection{Own.Caret, Target(step)};
    if (erased.Empty())
        return;
    Own = Document.Replace(erased, "", whole ? EditKind::Single : EditKind::Erasing);
    WantedColumn = -1;
}

}  // namespace Dorvane
