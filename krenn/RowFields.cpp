// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/RowFields.h"

#include <array>

namespace Krenn {
namespace {

constexpr std::array kCoordinateStarts{1, 10, 25, 40};
constexpr std::array kDistanceStarts{1, 11, 21, 34};
constexpr std::array kHeightStarts{1, 11, 20, 35};
constexpr std::array kAngleStarts{1, 11, 21, 32, 42, 49};

bool TakeFields(const std::vector<Word>& words, const RowLayout& layout, RowFields& fields) {
    const auto needed = static_cast<std::size_t>(layout.Fields());
    if (words.size() < needed)
        return false;
    fields.names.clear();
    fields.numbers.clear();
    for (std::size_t i = 0; i < needed; ++i) {
        if (i < static_cast<std::size_t>(layout.names)) {
            fields.names.push_back(words[i].text);
            continue;
        }
        const std::optional<double> number = FullNumber(words[i].text);
        if (!number)
            return false;
        fields.numbers.push_back(*number);
    }
    return true;
}

// The word cut at a start column inside it, where what stands from that column on may be a field.
bool CutAtColumn(std::vector<Word>& words, std::size_t at, const RowLayout& layout) {
    const Word word = words[at];
    if (FullNumber(word.text))
        return false;
    for (int field = 1; field < layout.Fields(); ++field) {
        const int offset = layout.starts[static_cast<std::size_t>(field)] - word.column;
        if (offset <= 0 || offset >= static_cast<int>(word.text.size()))
            continue;
        const std::string_view left = word.text.substr(0, static_cast<std::size_t>(offset));
        const std::string_view right = word.text.substr(static_cast<std::size_t>(offset));
        const bool isNameStart = field < layout.names;
        const bool leftFits = field - 1 < layout.names || FullNumber(left).has_value();
        if (!leftFits || !(isNameStart || FullNumber(right)))
            continue;
        words[at].text = left;
        words.insert(words.begin() + static_cast<std::ptrdiff_t>(at) + 1, {right, word.column + offset});
        return true;
    }
    return false;
}

}  // namespace

const RowLayout kCoordinateRow{kCoordinateStarts, 1, "name, X, Y, Z"};
const RowLayout kDistanceRow{kDistanceStarts, 2, "station, target, distance, standard error"};
const RowLayout kHeightRow{kHeightStarts, 2, "from point, to point, height difference, standard error"};
const RowLayout kAngleRow{kAngleStarts, 2,
                          "station, target, direction, zenith angle, standard error of each of the two"};

bool FitRow(std::vector<Word>& words, const RowLayout& layout, RowFields& fields) {
    if (TakeFields(words, layout, fields))
        return true;
    std::vector<Word> cut = words;
    for (std::size_t at = 0; at < cut.size() && cut.size() <= static_cast<std::size_t>(layout.Fields());) {
        if (!CutAtColumn(cut, at, layout)) {
            ++at;
            continue;
        }
        if (TakeFields(cut, layout, fields)) {
            words = std::move(cut);
            return true;
        }
    }
    return false;
}

}  // namespace Krenn
