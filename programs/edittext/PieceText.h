// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "programs/edittext/TextSource.h"

// A text as a row of pieces: stretches of the file as it was opened and of what was typed since, neither of
// which is ever changed. An edit replaces pieces, so bytes that nobody edited stay those of the file, and
// taking an edit back is putting the former pieces in place. Lines are found by the summary that each piece
// carries.
namespace Dorvane {

struct Piece {
    bool Typed = false;  // of what was typed, else of the file
    Offset From = 0;
    Offset Count = 0;
    TextSummary Sum;
};

/// An edit: what takes the place of the pieces that begin at `At`.
struct PieceChange {
    Offset At = 0;
    std::vector<Piece> Removed;
    std::vector<Piece> Inserted;
};

class PieceText {
  public:
    /// A text in memory, counted at once.
    explicit PieceText(std::string content);

    /// A text that is read as it is needed. Its lines are counted by CountSome; it is not edited before all
    /// are.
    explicit PieceText(std::unique_ptr<TextSource> file);

    Offset Size() const { return Bytes; }

    /// Up to `count` bytes from a place on, fewer at the end of the text.
    std::string Read(Offset at, Offset count) const;

    /// Counts the lines of some more pieces. True when those of all are counted.
    bool CountSome(int pieces);
    bool AllCounted() const { return Counted == Pieces.size(); }
    Offset CountedBytes() const { return BytesCounted; }

    /// The lines counted so far. A text has one line more than it has line ends.
    Offset Lines() const { return Total.Ends + 1; }
    /// The length of the longest line counted so far.
    Offset LongestLine() const { return Dorvane::LongestLine(Total); }

    /// The number, from 0, of the line at a place; nothing as long as it is not counted.
    std::optional<Offset> LineOf(Offset at) const;

    /// The place at which a counted line begins; the last one's for a higher number.
    Offset StartOfLine(Offset line) const;

    /// The place itself, or the one before it where that is the middle of CR LF.
    Offset Outside(Offset at) const;

    /// Where the line at a place begins, and where it ends without its line end.
    Offset LineStart(Offset at) const;
    Offset LineEnd(Offset at) const;

    /// Where the line behind that at a place begins; nothing behind the last one.
    std::optional<Offset> NextLine(Offset at) const;

    /// Replaces bytes. The result puts the former ones back by Revert and these by Apply.
    PieceChange Replace(Offset at, Offset count, std::string_view text);

    /// The same for several places at once, rising and apart, each `count` bytes long.
    PieceChange ReplaceEach(const std::vector<Offset>& places, Offset count, std::string_view text);

    void Apply(const PieceChange& change) { Exchange(change.At, change.Removed.size(), change.Inserted); }
    void Revert(const PieceChange& change) { Exchange(change.At, change.Inserted.size(), change.Removed); }

  private:
    struct Place {
        std::size_t Index = 0;  // of the piece; their number at the end of the text
        Offset Begin = 0;       // where it begins in the text
    };

    void Count(std::size_t index);
    std::string_view View(const Piece& piece) const;
    Place Find(Offset at) const;
    Piece Part(const Piece& piece, Offset from, Offset count) const;
    void AddPart(std::vector<Piece>& pieces, const Piece& piece, Offset from, Offset count) const;
    void AddStretch(std::vector<Piece>& pieces, Offset from, Offset to) const;
    void AddText(std::vector<Piece>& pieces, std::string_view text);
    void KeepLineEndsWhole(std::vector<Piece>& pieces);
    PieceChange Exchanged(const Place& first, const Place& behind, std::vector<Piece> inserted);
    void Exchange(Offset at, std::size_t removed, const std::vector<Piece>& inserted);
    void SumUp();

    std::unique_ptr<TextSource> File;
    MemorySource Typed{std::string()};
    std::vector<Piece> Pieces;
    Offset Bytes = 0;
    std::size_t Counted = 0;  // pieces whose summaries are known, from the first one on
    Offset BytesCounted = 0;
    TextSummary Total;   // of these
    mutable Place Last;  // found last; what is asked for next lies mostly near
};

}  // namespace Dorvane
