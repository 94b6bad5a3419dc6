// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/edittext/PieceText.h"

// Finding words in a text, in portions, so that the search of a long text shows how far it is and can be left
// off. The text must not change as long as a search goes on.
namespace Dorvane {

struct SearchWords {
    std::string Words;
    bool MatchCase = false;
    bool WholeWord = false;  // neither letter, digit nor underline beside it
};

/// The first or the last match that begins in [low, high).
std::optional<Offset> FindWords(const PieceText& text, const SearchWords& words, Offset low, Offset high,
                                bool last);

/// True when the words stand at a place of the text.
bool StandsAt(const PieceText& text, const SearchWords& words, Offset at);

/// A search for the next match.
class TextSearch {
  public:
    enum class Direction { Forward, Backward };

    /// Forward it finds what begins at `from` or behind it, backward what ends there or before it. Round the
    /// end of the text it goes on at the other one.
    TextSearch(const PieceText& text, SearchWords words, Offset from, Direction direction, bool wrapAround);

    /// Looks at a portion more. True when the search has come to its end.
    bool Step();

    std::optional<Offset> Found() const { return Match; }
    /// True when the search went round the end of the text.
    bool HasWrapped() const { return Rounds == 1; }
    /// The part of the text that was looked at, from 0 to 1.
    double Share() const;

  private:
    const PieceText& Text;
    SearchWords Words;
    bool Backward;
    bool WrapAround;
    Offset Border;  // between the two rounds
    Offset Low;     // what of this round is not looked at yet
    Offset High;
    int Rounds = 0;  // that are over
    Offset Looked = 0;
    std::optional<Offset> Match;
};

/// All matches from the beginning of the text on, none of which overlap.
class TextMatches {
  public:
    TextMatches(const PieceText& text, SearchWords words) : Text(text), Words(std::move(words)) {}

    bool Step();
    const std::vector<Offset>& Places() const { return Found; }
    double Share() const;

  private:
    const PieceText& Text;
    SearchWords Words;
    Offset Next = 0;
    std::vector<Offset> Found;
};

}  // namespace Dorvane
