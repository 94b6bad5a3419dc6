// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/editors/InputRows.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

#include "core/LineReader.h"
#include "core/Text.h"
#include "krenn/Scan.h"
#include "krenn/input/RowFields.h"

namespace Dorvane {

namespace {

enum class Section { Header, None, Stations, Points, Distances, Heights, Angles, Control, Fixed, Pairs };

struct SectionTitle {
    std::string_view Text;
    Section Of;
};
constexpr std::array<SectionTitle, 8> Titles{{{"Theodolite Stations", Section::Stations},
                                              {"Object Points", Section::Points},
                                              {"Distances", Section::Distances},
                                              {"Height differences", Section::Heights},
                                              {"Observations", Section::Angles},
                                              {"Control Information", Section::Control},
                                              {"Fixed Coordinates", Section::Fixed},
                                              {"Relative error point pairs", Section::Pairs}}};

constexpr std::size_t LongestShown = 60;

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

// What was not understood, without the line's number.
struct NotUnderstood {
    std::string Why;
};

// The lines of a file one after the other. What may follow a row of coordinates is kept between lines.
class RowReader {
  public:
    RowReader(std::string_view readable, InputText& text) : Readable(readable), Text(text), Lines(readable) {}

    std::string ReadAll() {
        while (Lines.Next()) {
            const int number = Lines.number;
            const std::string_view line = Lines.line;
            try {
                ReadLine();
            } catch (const NotUnderstood& problem) {
                return fmt::format("Line {} {}: {}", number, problem.Why,
                                   Krenn::Printable(line, LongestShown));
            }
        }
        return Now == Section::Header ? "It has no section of an input file." : "";
    }

  private:
    std::size_t LineStart() const { return static_cast<std::size_t>(Lines.line.data() - Readable.data()); }
    std::size_t LineEnd() const { return Readable.size() - Lines.rest.size(); }

    void ReadLine() {
        if (TakeTitle() || Now == Section::Header)
            return;
        Words.clear();
        Krenn::AppendWords(Lines.line, Words);
        if (Now == Section::Stations || Now == Section::Points)
            return ReadListLine();
        if (Words.empty())
            return;
        switch (Now) {
            case Section::Distances: return ReadObservation(RowKind::Distance, Krenn::kDistanceRow);
            case Section::Heights: return ReadObservation(RowKind::Height, Krenn::kHeightRow);
            case Section::Angles: return ReadObservation(RowKind::Angle, Krenn::kAngleRow);
            case Section::Fixed: return ReadNames(RowKind::Fixed, 1);
            case Section::Pairs: return ReadNames(RowKind::Pair, 2);
            default: throw NotUnderstood{"belongs to no section"};
        }
    }

    bool TakeTitle() {
        for (const SectionTitle& title : Titles)
            if (Krenn::SameText(Lines.line, title.Text)) {
                Now = title.Of;
                May = Follow::Nothing;
                return true;
            }
        if (Now == Section::Header || !Krenn::SameText(Lines.line, "END"))
            return false;
        Now = Section::None;
        return true;
    }

    // A row that begins with this line and ends with the line read last.
    InputRow& AddRow(RowKind kind, std::size_t start, int line, std::size_t names) {
        InputRow row;
        row.Kind = kind;
        row.Line = line;
        row.Start = start;
        row.End = LineEnd();
        for (std::size_t i = 0; i < names; ++i) {
            if (std::any_of(Words[i].text.begin(), Words[i].text.end(), IsControl))
                throw NotUnderstood{"has a control character in a name"};
            (i == 0 ? row.Name : row.Target) = UpperCase(Words[i].text);
        }
        Text.Rows.push_back(std::move(row));
        return Text.Rows.back();
    }

    bool ThreeNumbers() const {
        return Words.size() == 3 && std::all_of(Words.begin(), Words.end(), [](const Krenn::Word& word) {
                   return Krenn::FullNumber(word.text).has_value();
               });
    }

    // Three numbers are the coordinates of the name above, or the errors below coordinates; anything else
    // begins with a name.
    void ReadListLine() {
        const Follow may = std::exchange(May, Follow::Nothing);
        if (Words.empty()) {
            if (may == Follow::Coordinates)
                Text.Rows.back().End = LineEnd();
            return;
        }
        if (may == Follow::Coordinates && ThreeNumbers()) {
            for (const Krenn::Word& word : Words)
                Text.Rows.back().Values.emplace_back(word.text);
            Text.Rows.back().End = LineEnd();
            May = Follow::Errors;
            return;
        }
        const bool hasExponent = Words.front().text.find_first_of("eE") != std::string_view::npos;
        if (may == Follow::Errors && ThreeNumbers() && (Words.front().column > 1 || hasExponent)) {
            Text.Rows.back().End = LineEnd();
            return;
        }
        const RowKind kind = Now == Section::Stations ? RowKind::Station : RowKind::Point;
        if (Words.size() == 1) {
            AddRow(kind, LineStart(), Lines.number, 1);
            May = Follow::Coordinates;
            return;
        }
        ReadFields(kind, Krenn::kCoordinateRow);
        if (Words.size() > 4)
            throw NotUnderstood{"has more than a name and three coordinates"};
        May = Follow::Errors;
    }

    void ReadObservation(RowKind kind, const Krenn::RowLayout& layout) {
        InputRow& row = ReadFields(kind, layout);
        const auto fields = static_cast<std::size_t>(layout.Fields());
        row.Tracker = kind == RowKind::Distance && Words.size() == fields + 1 &&
                      Krenn::SameText(Words[fields].text, "T");
        if (Words.size() > fields && !row.Tracker)
            throw NotUnderstood{fmt::format("has more than its {} fields", fields)};
    }

    void ReadNames(RowKind kind, std::size_t count) {
        if (Words.size() != count)
            throw NotUnderstood{count == 1 ? "is not one name" : "is not two names"};
        AddRow(kind, LineStart(), Lines.number, count);
    }

    // A field that found its column passed stands on the next line, which begins with a blank.
    bool JoinNextLine() {
        Krenn::LineCutter ahead = Lines;
        if (!ahead.Next() || ahead.line.empty() || (ahead.line[0] != ' ' && ahead.line[0] != '\t'))
            return false;
        const std::size_t before = Words.size();
        Krenn::AppendWords(ahead.line, Words);
        if (Words.size() == before ||
            (Words.size() == before + 1 && Krenn::SameText(Words.back().text, "END")))
            return false;
        Lines = ahead;
        return true;
    }

    InputRow& ReadFields(RowKind kind, const Krenn::RowLayout& layout) {
        const std::size_t start = LineStart();
        const int line = Lines.number;
        const auto fields = static_cast<std::size_t>(layout.Fields());
        Krenn::RowFields found;
        while (!Krenn::FitRow(Words, layout, found))
            if (Words.size() >= fields || !JoinNextLine())
                throw NotUnderstood{fmt::format("has not the fields of its section ({})", layout.form)};
        InputRow& row = AddRow(kind, start, line, static_cast<std::size_t>(layout.names));
        for (std::size_t i = static_cast<std::size_t>(layout.names); i < fields; ++i)
            row.Values.emplace_back(Words[i].text);
        return row;
    }

    std::string_view Readable;
    InputText& Text;
    Krenn::LineCutter Lines;
    Section Now = Section::Header;
    enum class Follow { Nothing, Coordinates, Errors } May = Follow::Nothing;
    std::vector<Krenn::Word> Words;
};

}  // namespace

std::string ReadInputRows(const std::string& content, InputText& text) {
    text.Content = content;
    text.Rows.clear();
    std::string_view readable = text.Content;
    while (!readable.empty() && readable.back() == EndOfFileMark)
        readable.remove_suffix(1);
    if (readable.find('\0') != std::string_view::npos)
        return fmt::format(
            "Line {} is not text.",
            1 + std::count(readable.begin(),
                           readable.begin() + static_cast<std::ptrdiff_t>(readable.find('\0')), '\n'));
    return RowReader(readable, text).ReadAll();
}

}  // namespace Dorvane
