// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/PieceText.h"

#include <algorithm>

namespace Dorvane {

namespace {

constexpr Offset LongestPiece = 64 << 10;
constexpr Offset LongestTyped = 4 << 10;  // a piece that grows as its text is typed

// Between two replaced places a shorter stretch is copied, so that many of them do not make as many pieces.
constexpr Offset ShortestKept = 4 << 10;

std::size_t Index(Offset at) {
    return static_cast<std::size_t>(at);
}

}  // namespace

PieceText::PieceText(std::string content) : PieceText(std::make_unique<MemorySource>(std::move(content))) {
    CountSome(static_cast<int>(Pieces.size()));
}

PieceText::PieceText(std::unique_ptr<TextSource> file) : File(std::move(file)), Bytes(File->Length()) {
    for (Offset from = 0; from < Bytes; from += LongestPiece)
        Pieces.push_back({false, from, std::min(LongestPiece, Bytes - from), {}});
}

std::string PieceText::Read(Offset at, Offset count) const {
    count = std::clamp<Offset>(count, 0, Bytes - at);
    std::string text;
    text.reserve(Index(count));
    for (Place place = Find(at); count > 0; place.Begin += Pieces[place.Index++].Count) {
        const std::string_view part = View(Pieces[place.Index]).substr(Index(at - place.Begin), Index(count));
        text += part;
        at += static_cast<Offset>(part.size());
        count -= static_cast<Offset>(part.size());
    }
    return text;
}

void PieceText::Count(std::size_t index) {
    Piece& piece = Pieces[index];
    if (View(piece).back() == '\r' && index + 1 < Pieces.size() && View(Pieces[index + 1]).front() == '\n') {
        ++piece.Count;
        ++Pieces[index + 1].From;
        --Pieces[index + 1].Count;
        if (Pieces[index + 1].Count == 0)
            Pieces.pop_back();  // only the last piece can be as short
        Last = {};
    }
    piece.Sum = Summarize(View(piece));
}

bool PieceText::CountSome(int pieces) {
    for (; pieces > 0 && !AllCounted(); --pieces) {
        Count(Counted);
        Total = Joined(Total, Pieces[Counted].Sum);
        BytesCounted += Pieces[Counted++].Count;
    }
    return AllCounted();
}

std::string_view PieceText::View(const Piece& piece) const {
    return piece.Typed ? Typed.View(piece.From, piece.Count) : File->View(piece.From, piece.Count);
}

PieceText::Place PieceText::Find(Offset at) const {
    Place place = Last;
    while (place.Index > 0 && place.Begin > at)
        place.Begin -= Pieces[--place.Index].Count;
    while (place.Index < Pieces.size() && place.Begin + Pieces[place.Index].Count <= at)
        place.Begin += Pieces[place.Index++].Count;
    Last = place;
    return place;
}

std::optional<Offset> PieceText::LineOf(Offset at) const {
    if (at > BytesCounted)
        return std::nullopt;
    Offset line = 0;
    Offset begin = 0;
    std::size_t i = 0;
    for (; i < Counted && begin + Pieces[i].Count <= at; ++i) {
        line += Pieces[i].Sum.Ends;
        begin += Pieces[i].Count;
    }
    if (i < Counted)
        line += Summarize(View(Pieces[i]).substr(0, Index(at - begin))).Ends;
    return line;
}

Offset PieceText::StartOfLine(Offset line) const {
    line = std::clamp<Offset>(line, 0, Total.Ends);
    if (line == 0)
        return 0;
    Offset begin = 0;
    std::size_t i = 0;
    for (; Pieces[i].Sum.Ends < line; ++i) {
        line -= Pieces[i].Sum.Ends;
        begin += Pieces[i].Count;
    }
    const std::string_view text = View(Pieces[i]);
    std::size_t place = 0;
    for (; line > 0; --line) {
        place = FindLineEnd(text, place);
        place += Index(LineEndLength(text, place));
    }
    return begin + static_cast<Offset>(place);
}

Offset PieceText::Outside(Offset at) const {
    at = std::clamp<Offset>(at, 0, Bytes);
    return at > 0 && at < Bytes && Read(at - 1, 2) == "\r\n" ? at - 1 : at;
}

Offset PieceText::LineStart(Offset at) const {
    at = Outside(at);
    Place place = Find(at);
    Offset behind = at - place.Begin;  // the bytes of the piece to look at
    for (;;) {
        const bool plain = place.Index < Counted && Pieces[place.Index].Sum.Ends == 0;
        if (behind > 0 && !plain) {
            const std::string_view text = View(Pieces[place.Index]).substr(0, Index(behind));
            const std::size_t found = text.find_last_of("\r\n");
            if (found != std::string_view::npos)
                return place.Begin + static_cast<Offset>(found) + 1;
        }
        if (place.Index == 0)
            return 0;
        behind = Pieces[--place.Index].Count;
        place.Begin -= behind;
    }
}

Offset PieceText::LineEnd(Offset at) const {
    Place place = Find(at);
    for (; place.Index < Pieces.size(); place.Begin += Pieces[place.Index++].Count) {
        const Piece& piece = Pieces[place.Index];
        if (place.Index < Counted && piece.Sum.Ends == 0)
            continue;
        const std::size_t found = FindLineEnd(View(piece), Index(std::max<Offset>(at - place.Begin, 0)));
        if (found != std::string_view::npos)
            return place.Begin + static_cast<Offset>(found);
    }
    return Bytes;
}

std::optional<Offset> PieceText::NextLine(Offset at) const {
    const Offset end = LineEnd(at);
    if (end == Bytes)
        return std::nullopt;
    return end + LineEndLength(Read(end, 2), 0);
}

Piece PieceText::Part(const Piece& piece, Offset from, Offset count) const {
    if (count == piece.Count)
        return piece;
    Piece part{piece.Typed, piece.From + from, count, {}};
    part.Sum = Summarize(View(piece).substr(Index(from), Index(count)));
    return part;
}

void PieceText::AddPart(std::vector<Piece>& pieces, const Piece& piece, Offset from, Offset count) const {
    if (count > 0)
        pieces.push_back(Part(piece, from, count));
}

// The pieces of a stretch of the text as it is.
void PieceText::AddStretch(std::vector<Piece>& pieces, Offset from, Offset to) const {
    for (Place place = Find(from); from < to; place.Begin += Pieces[place.Index++].Count) {
        const Piece& piece = Pieces[place.Index];
        const Offset end = std::min(to, place.Begin + piece.Count);
        AddPart(pieces, piece, from - place.Begin, end - from);
        from = end;
    }
}

// New text; where the last piece was typed just before, that one grows.
void PieceText::AddText(std::vector<Piece>& pieces, std::string_view text) {
    while (!text.empty()) {
        Piece piece{true, Typed.Length(), 0, {}};
        Offset room = LongestPiece;
        if (!pieces.empty() && pieces.back().Typed &&
            pieces.back().From + pieces.back().Count == piece.From && pieces.back().Count < LongestTyped) {
            piece = pieces.back();
            pieces.pop_back();
            room = LongestTyped - piece.Count;
        }
        const std::string_view part = text.substr(0, Index(room));
        Typed.Append(part);
        piece.Count += static_cast<Offset>(part.size());
        piece.Sum = Summarize(View(piece));
        pieces.push_back(piece);
        text.remove_prefix(part.size());
    }
}

// No piece begins between CR and LF: the two get a piece of their own.
void PieceText::KeepLineEndsWhole(std::vector<Piece>& pieces) {
    for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {
        if (View(pieces[i]).back() != '\r' || View(pieces[i + 1]).front() != '\n')
            continue;
        const Piece first = pieces[i];
        const Piece second = pieces[i + 1];
        std::vector<Piece> apart;
        AddPart(apart, first, 0, first.Count - 1);
        Piece both{true, Typed.Length(), 2, {}};
        Typed.Append("\r\n");
        both.Sum = Summarize("\r\n");
        apart.push_back(both);
        AddPart(apart, second, 1, second.Count - 1);
        const auto place = pieces.begin() + static_cast<std::ptrdiff_t>(i);
        pieces.insert(pieces.erase(place, place + 2), apart.begin(), apart.end());
    }
}

PieceChange PieceText::Replace(Offset at, Offset count, std::string_view text) {
    return ReplaceEach({at}, count, text);
}

PieceChange PieceText::ReplaceEach(const std::vector<Offset>& places, Offset count, std::string_view text) {
    // A piece before the first place and that behind the last one are exchanged too, so that a CR and an LF
    // that meet are seen.
    const Place first = Find(std::max<Offset>(places.front() - 1, 0));
    Place behind = Find(places.back() + count);
    if (behind.Index < Pieces.size())
        behind.Begin += Pieces[behind.Index++].Count;
    std::vector<Piece> inserted;
    std::string copied;
    Offset done = first.Begin;
    for (const Offset place : places) {
        if (place - done < ShortestKept && done != first.Begin) {
            copied += Read(done, place - done);
        } else {
            AddText(inserted, copied);
            copied.clear();
            AddStretch(inserted, done, place);
        }
        copied += text;
        done = place + count;
    }
    AddText(inserted, copied);
    AddStretch(inserted, done, behind.Begin);
    KeepLineEndsWhole(inserted);
    return Exchanged(first, behind, std::move(inserted));
}

PieceChange PieceText::Exchanged(const Place& first, const Place& behind, std::vector<Piece> inserted) {
    const auto begin = Pieces.begin() + static_cast<std::ptrdiff_t>(first.Index);
    const auto end = Pieces.begin() + static_cast<std::ptrdiff_t>(behind.Index);
    PieceChange change{first.Begin, {begin, end}, std::move(inserted)};
    Apply(change);
    return change;
}

void PieceText::Exchange(Offset at, std::size_t removed, const std::vector<Piece>& inserted) {
    const auto place = static_cast<std::ptrdiff_t>(Find(at).Index);
    const auto begin = Pieces.begin() + place;
    const auto rest = Pieces.erase(begin, begin + static_cast<std::ptrdiff_t>(removed));
    Pieces.insert(rest, inserted.begin(), inserted.end());
    SumUp();
}

void PieceText::SumUp() {
    Last = {};
    Bytes = 0;
    Total = {};
    for (const Piece& piece : Pieces) {
        Bytes += piece.Count;
        Total = Joined(Total, piece.Sum);
    }
    Counted = Pieces.size();
    BytesCounted = Bytes;
}

}  // namespace Dorvane
