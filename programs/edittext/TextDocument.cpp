// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextDocument.h"

namespace Dorvane {

Selection TextDocument::Replace(const Selection& selected, std::string_view text, EditKind kind) {
    if (selected.Empty() && text.empty())
        return selected;
    const Offset behind = selected.From() + static_cast<Offset>(text.size());
    Step step{Own.Replace(selected.From(), selected.To() - selected.From(), text), selected, {}, kind};
    // A CR at the end of the text and an LF behind it have become one line end.
    step.After.Caret = step.After.Anchor = Own.Outside(behind) == behind ? behind : behind + 1;
    const Selection after = step.After;
    Keep(std::move(step));
    return after;
}

void TextDocument::ReplaceEach(const std::vector<Offset>& places, Offset count, std::string_view text,
                               const Selection& before) {
    if (places.empty())
        return;
    Step step{Own.ReplaceEach(places, count, text), before, {}};
    step.After.Caret = step.After.Anchor = Own.Outside(before.Caret);
    Keep(std::move(step));
}

void TextDocument::Keep(Step step) {
    if (Saved && *Saved > Done)
        Saved.reset();  // what was saved cannot be come back to
    Steps.resize(Done);
    const bool follows = Running && !Steps.empty() && step.Kind != EditKind::Single &&
                         Steps.back().Kind == step.Kind && Steps.back().After.Caret == step.Former.Anchor;
    step.GoesOn = follows;
    Steps.push_back(std::move(step));
    Done = Steps.size();
    Running = true;
}

Selection TextDocument::Undo() {
    Running = false;
    while (Steps[--Done].GoesOn)
        Own.Revert(Steps[Done].Change);
    Own.Revert(Steps[Done].Change);
    const Step& step = Steps[Done];
    return step.Kind == EditKind::Single ? step.Former : Selection{step.Former.Anchor, step.Former.Anchor};
}

Selection TextDocument::Redo() {
    Running = false;
    do
        Own.Apply(Steps[Done++].Change);
    while (Done < Steps.size() && Steps[Done].GoesOn);
    return Steps[Done - 1].After;
}

std::string TextDocument::LineEndAt(Offset at) const {
    for (Offset end = Own.LineEnd(at);; end = Own.LineEnd(at)) {
        const std::string bytes = Own.Read(end, 2);
        if (const int length = LineEndLength(bytes, 0); length > 0)
            return bytes.substr(0, static_cast<std::size_t>(length));
        const Offset start = Own.LineStart(at);
        if (start == 0)
            return "\r\n";
        at = Own.LineStart(start - 1);
    }
}

std::string TextDocument::WithLineEndsOf(Offset at, std::string_view text) const {
    std::size_t end = FindLineEnd(text, 0);
    if (end == std::string_view::npos)
        return std::string(text);
    const std::string lineEnd = LineEndAt(at);
    std::string result;
    for (; end != std::string_view::npos; end = FindLineEnd(text, 0)) {
        result.append(text.substr(0, end)).append(lineEnd);
        text.remove_prefix(end + static_cast<std::size_t>(LineEndLength(text, end)));
    }
    return result.append(text);
}

Offset TextDocument::Before(Offset at) const {
    return at == 0 ? 0 : Own.Outside(at - 1);
}

Offset TextDocument::Behind(Offset at) const {
    if (at == Own.Size())
        return at;
    return Own.Outside(at + 1) == at + 1 ? at + 1 : at + 2;
}

}  // namespace Dorvane
