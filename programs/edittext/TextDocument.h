// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "programs/edittext/PieceText.h"

namespace Dorvane {

/// A stretch of a text; the caret stands at `Caret`, the selection begins or ends at `Anchor`.
struct Selection {
    Offset Anchor = 0;
    Offset Caret = 0;

    Offset From() const { return Anchor < Caret ? Anchor : Caret; }
    Offset To() const { return Anchor < Caret ? Caret : Anchor; }
    bool Empty() const { return Anchor == Caret; }
    bool operator==(const Selection&) const = default;
};

/// What an edit is part of: edits of one kind that follow one another are undone together.
enum class EditKind { Single, Typing, Erasing };

/// A text that is edited: every edit can be undone and done again.
class TextDocument {
  public:
    explicit TextDocument(std::string content) : Own(std::move(content)) {}
    explicit TextDocument(std::unique_ptr<TextSource> file) : Own(std::move(file)) {}

    const PieceText& Text() const { return Own; }
    bool CountSome(int pieces) { return Own.CountSome(pieces); }
    std::string Content() const { return Own.Read(0, Own.Size()); }

    /// Replaces what is selected by `text`, behind which the caret stands then.
    Selection Replace(const Selection& selected, std::string_view text, EditKind kind);

    /// Replaces several stretches of `count` bytes, rising and apart, as one edit.
    void ReplaceEach(const std::vector<Offset>& places, Offset count, std::string_view text,
                     const Selection& before);

    /// Typing and erasing that follow begin a new edit, as when the caret was moved.
    void EndRun() { Running = false; }

    bool CanUndo() const { return Done > 0; }
    bool CanRedo() const { return Done < Steps.size(); }
    /// Takes the last edit back, or does it again; the result is what was selected before or behind it.
    Selection Undo();
    Selection Redo();

    /// True when the text is not what was saved last, or opened.
    bool IsModified() const { return !Saved || *Saved != Done; }
    void SetSaved() {
        Saved = Done;
        EndRun();
    }
    /// The text is no longer that of the file, whatever was undone.
    void SetUnsaved() { Saved.reset(); }

    /// The line end that text typed at a place takes: that of its line, or of the line before, or CR LF.
    std::string LineEndAt(Offset at) const;

    /// `text` with its line ends, of whatever kind, as those of a place.
    std::string WithLineEndsOf(Offset at, std::string_view text) const;

    /// The place before and behind that of one character; a CR LF counts as one.
    Offset Before(Offset at) const;
    Offset Behind(Offset at) const;

  private:
    struct Step {
        PieceChange Change;
        Selection Former;
        Selection After;
        EditKind Kind = EditKind::Single;
        bool GoesOn = false;  // undone together with the one before
    };
    void Keep(Step step);

    PieceText Own;
    std::vector<Step> Steps;
    std::size_t Done = 0;  // steps that are not undone
    std::optional<std::size_t> Saved = 0;
    bool Running = false;
};

}  // namespace Dorvane
