// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/input/RowFields.h"

namespace Krenn {
namespace {

constexpr std::array kCoordinateStarts{1, 10, 25, 40};
constexpr std::array kCoordinateWidths{0, 14, 14, 14};
constexpr std::array kDistanceStarts{1, 11, 21, 34};
constexpr std::array kDistanceWidths{0, 0, 13, 10};
constexpr std::array kHeightStarts{1, 11, 20, 35};
constexpr std::array kHeightWidths{0, 0, 13, 10};
constexpr std::array kAngleStarts{1, 11, 21, 32, 42, 49};
constexpr std::array kAngleWidths{0, 0, 9, 9, 7, 8};

std::size_t Start(const RowLayout& layout, std::size_t field) {
    return static_cast<std::size_t>(layout.starts[field]);
}

std::size_t EndColumn(const Word& word) {
    return static_cast<std::size_t>(word.column) + word.text.size() - 1;
}

// A number of the writer is right-justified, or begins its columns and passes their end.
bool LiesInColumns(std::size_t first, std::size_t last, const RowLayout& layout, std::size_t field) {
    const std::size_t start = Start(layout, field);
    const std::size_t end = start + static_cast<std::size_t>(layout.widths[field]) - 1;
    return first == start ? last >= end : first > start && last == end;
}

std::size_t SkipBlanks(std::string_view line, std::size_t at) {
    while (at < line.size() && line[at] == ' ')
        ++at;
    return at;
}

// The name from `at` up to the next blank; empty if another separator or a control character is in it.
std::string_view NameAt(std::string_view line, std::size_t at) {
    std::size_t end = at;
    while (end < line.size() && line[end] != ' ') {
        const auto code = static_cast<unsigned char>(line[end]);
        if (code < ' ' || code == ',' || code == 127)
            return {};
        ++end;
    }
    return line.substr(at, end - at);
}

bool TakeFields(const std::vector<Word>& words, const RowLayout& layout, RowFields& fields) {
    const auto needed = static_cast<std::size_t>(layout.Fields());
    const auto names = static_cast<std::size_t>(layout.names);
    if (words.size() < needed)
        return false;
    for (std::size_t i = 0; i < needed; ++i) {
        if (i < names) {
            fields.names[i] = words[i].text;
            continue;
        }
        const std::optional<double> number = FullNumber(words[i].text);
        if (!number)
            return false;
        fields.numbers[i - names] = *number;
    }
    return true;
}

bool CutAtNextStart(std::vector<Word>& words, std::size_t field, const RowLayout& layout) {
    const Word word = words[field];
    const int offset = layout.starts[field + 1] - word.column;
    if (offset <= 0 || offset >= static_cast<int>(word.text.size()))
        return false;
    const auto length = static_cast<std::size_t>(offset);
    words[field].text = word.text.substr(0, length);
    words.insert(words.begin() + static_cast<std::ptrdiff_t>(field) + 1,
                 {word.text.substr(length), word.column + offset});
    return true;
}

// Words that are parts of one text are certain if every field lies in the writer's columns, and those numbers
// within their columns that begin where another field ends.
bool AreCertainIfGlued(const std::vector<Word>& words, const RowLayout& layout) {
    bool isGlued = false;
    for (std::size_t i = 1; i < static_cast<std::size_t>(layout.Fields()); ++i) {
        if (!AreGlued(words[i - 1].text, words[i].text))
            continue;
        isGlued = true;
        const auto width = static_cast<std::size_t>(layout.widths[i]);
        if (width > 0 && words[i].text.size() != width)
            return false;
    }
    return !isGlued || (NamesBeginColumns(words, layout) && NumbersLieInColumns(words, layout));
}

bool GoesOnWith(std::size_t field, const Word& first, const Word& last, const RowLayout& layout) {
    if (field >= static_cast<std::size_t>(layout.Fields()) || EndColumn(last) < Start(layout, field))
        return false;
    const int start = layout.starts[field];
    if (field < static_cast<std::size_t>(layout.names))
        return first.column == start;
    return first.column >= start && first.column < start + layout.widths[field];
}

}  // namespace

const RowLayout kCoordinateRow{kCoordinateStarts, kCoordinateWidths, 1, "Object Points", "name, X, Y, Z"};
const RowLayout kDistanceRow{kDistanceStarts, kDistanceWidths, 2, "Distances",
                             "station, target, distance, standard error"};
const RowLayout kHeightRow{kHeightStarts, kHeightWidths, 2, "Height differences",
                           "from point, to point, height difference, standard error"};
const RowLayout kAngleRow{kAngleStarts, kAngleWidths, 2, "Observations",
                          "station, target, direction, zenith angle, standard error of each of the two"};

bool AreGlued(std::string_view left, std::string_view right) {
    return left.data() + left.size() == right.data();
}

std::size_t TakeWrittenRow(std::string_view line, const RowLayout& layout, RowFields& fields) {
    const auto names = static_cast<std::size_t>(layout.names);
    std::size_t at = 0;
    for (std::size_t field = 0; field < layout.starts.size(); ++field) {
        const std::size_t first = SkipBlanks(line, at);
        if (field > 0 && first == at)
            return 0;
        if (field < names) {
            if (first + 1 != Start(layout, field))
                return 0;
            fields.names[field] = NameAt(line, first);
            if (fields.names[field].empty())
                return 0;
            at = first + fields.names[field].size();
            if (at >= Start(layout, field + 1))
                return 0;
            continue;
        }
        const std::size_t length = TakeWrittenNumber(line.substr(first), fields.numbers[field - names]);
        at = first + length;
        if (length == 0 || !LiesInColumns(first + 1, at, layout, field))
            return 0;
    }
    return at;
}

bool NamesBeginColumns(const std::vector<Word>& words, const RowLayout& layout) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(layout.names); ++i) {
        if (words[i].column != layout.starts[i])
            return false;
    }
    return true;
}

bool NumbersLieInColumns(const std::vector<Word>& words, const RowLayout& layout) {
    double ignored = 0;
    for (std::size_t i = static_cast<std::size_t>(layout.names); i < layout.starts.size(); ++i) {
        if (TakeWrittenNumber(words[i].text, ignored) != words[i].text.size() ||
            !LiesInColumns(static_cast<std::size_t>(words[i].column), EndColumn(words[i]), layout, i))
            return false;
    }
    return true;
}

bool RunsOver(const std::vector<Word>& words, const RowLayout& layout, int field) {
    const auto at = static_cast<std::size_t>(field);
    const Word& word = words[at];
    const Word& next = words[at + 1];
    const bool isSameLine = next.text.data() - word.text.data() == next.column - word.column;
    const bool isTooWide =
        word.column >= layout.starts[at] && word.text.size() > static_cast<std::size_t>(layout.widths[at]);
    return isSameLine && (field < layout.names || isTooWide) && EndColumn(word) >= Start(layout, at + 1);
}

bool FitRow(std::vector<Word>& words, const RowLayout& layout, RowFields& fields) {
    const auto needed = static_cast<std::size_t>(layout.Fields());
    if (TakeFields(words, layout, fields))
        return AreCertainIfGlued(words, layout);
    if (words.size() > needed)
        return false;
    std::vector<Word> cut = words;
    for (std::size_t field = 0; field + 1 < needed && field < cut.size(); ++field)
        CutAtNextStart(cut, field, layout);
    if (!TakeFields(cut, layout, fields) || !AreCertainIfGlued(cut, layout))
        return false;
    words = std::move(cut);
    return true;
}

bool JoinLine(std::vector<Word>& words, std::string_view line, const RowLayout& layout) {
    const std::size_t before = words.size();
    AppendWords(line, words);
    if (before == 0 || words.size() == before || SameText(line, "END")) {
        words.resize(before);
        return false;
    }
    if (GoesOnWith(before, words[before], words[before - 1], layout))
        return true;
    // The last word may be two names, the first of which fills its columns.
    if (GoesOnWith(before + 1, words[before], words[before - 1], layout) &&
        CutAtNextStart(words, before - 1, layout))
        return true;
    words.resize(before);
    return false;
}

}  // namespace Krenn
