// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextSearch.h"

#include <algorithm>
#include <functional>

#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr Offset PortionSize = 1 << 20;

bool IsWordByte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    const bool accented = byte >= 0xC0 && byte != 0xD7 && byte != 0xF7;
    const bool high = byte == 0x8A || byte == 0x8C || byte == 0x8E || byte == 0x9A || byte == 0x9C ||
                      byte == 0x9E || byte == 0x9F;
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' ||
           accented || high;
}

// A portion of a text with the bytes around it that decide on a match: one before it, and behind it as many
// as the words have and one more.
class Portion {
  public:
    Portion(const PieceText& text, const SearchWords& words, Offset low, Offset high)
        : Query(words),
          Begin(std::max<Offset>(low - 1, 0)),
          Bytes(text.Read(Begin, high - Begin + static_cast<Offset>(words.Words.size()))),
          Sought(words.Words) {
        if (!Query.MatchCase) {
            Bytes = UpperCase(Bytes);
            Sought = UpperCase(Sought);
        }
    }

    /// The first match that begins in [low, high).
    std::optional<Offset> First(Offset low, Offset high) const {
        const std::boyer_moore_horspool_searcher searcher(Sought.begin(), Sought.end());
        for (; low < high; ++low) {
            const auto found =
                std::search(Bytes.begin() + std::min<Offset>(low - Begin, Length()), Bytes.end(), searcher);
            low = Begin + (found - Bytes.begin());
            if (found == Bytes.end() || low >= high)
                return std::nullopt;
            if (IsMatch(found - Bytes.begin()))
                return low;
        }
        return std::nullopt;
    }

    /// The last one.
    std::optional<Offset> Last(Offset low, Offset high) const {
        while (high > low) {
            const std::size_t found = Bytes.rfind(Sought, static_cast<std::size_t>(high - 1 - Begin));
            if (found == std::string::npos || Begin + static_cast<Offset>(found) < low)
                return std::nullopt;
            high = Begin + static_cast<Offset>(found);
            if (IsMatch(static_cast<Offset>(found)))
                return high;
        }
        return std::nullopt;
    }

  private:
    Offset Length() const { return static_cast<Offset>(Bytes.size()); }

    bool IsMatch(Offset place) const {
        if (!Query.WholeWord)
            return true;
        const auto first = static_cast<std::size_t>(place);
        const std::size_t behind = first + Sought.size();
        return (first == 0 || !IsWordByte(Bytes[first - 1])) &&
               (behind >= Bytes.size() || !IsWordByte(Bytes[behind]));
    }

    const SearchWords& Query;
    Offset Begin;
    std::string Bytes;
    std::string Sought;
};

}  // namespace

std::optional<Offset> FindWords(const PieceText& text, const SearchWords& words, Offset low, Offset high,
                                bool last) {
    if (words.Words.empty() || low >= high)
        return std::nullopt;
    const Portion portion(text, words, low, high);
    return last ? portion.Last(low, high) : portion.First(low, high);
}

bool StandsAt(const PieceText& text, const SearchWords& words, Offset at) {
    return FindWords(text, words, at, at + 1, false).has_value();
}

TextSearch::TextSearch(const PieceText& text, SearchWords words, Offset from, Direction direction,
                       bool wrapAround)
    : Text(text),
      Words(std::move(words)),
      Backward(direction == Direction::Backward),
      WrapAround(wrapAround),
      Border(Backward ? std::max<Offset>(from - static_cast<Offset>(Words.Words.size()) + 1, 0) : from),
      Low(Backward ? 0 : Border),
      High(Backward ? Border : text.Size()) {}

bool TextSearch::Step() {
    if (Low < High) {
        const Offset low = Backward ? std::max(Low, High - PortionSize) : Low;
        const Offset high = Backward ? High : std::min(High, Low + PortionSize);
        Match = FindWords(Text, Words, low, high, Backward);
        Looked += high - low;
        (Backward ? High : Low) = Backward ? low : high;
        if (Match)
            return true;
    }
    if (Low < High)
        return false;
    if (Rounds == 1 || !WrapAround)
        return true;
    ++Rounds;
    Low = Backward ? Border : 0;
    High = Backward ? Text.Size() : Border;
    return Low >= High;
}

double TextSearch::Share() const {
    return static_cast<double>(Looked) / static_cast<double>(std::max<Offset>(Text.Size(), 1));
}

bool TextMatches::Step() {
    const Offset high = std::min(Next + PortionSize, Text.Size());
    if (Words.Words.empty() || Next >= high)
        return true;
    const Portion portion(Text, Words, Next, high);
    while (const std::optional<Offset> match = portion.First(Next, high)) {
        Found.push_back(*match);
        Next = *match + static_cast<Offset>(Words.Words.size());
    }
    Next = std::max(Next, high);
    return Next >= Text.Size();
}

double TextMatches::Share() const {
    return static_cast<double>(Next) / static_cast<double>(std::max<Offset>(Text.Size(), 1));
}

}  // namespace Dorvane
