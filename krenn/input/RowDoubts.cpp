// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/input/RowDoubts.h"

#include <fmt/format.h>

#include <algorithm>

namespace Krenn {
namespace {

// The writer gives every number five decimals, so one that lost its point has six digits or a zero in front.
constexpr std::size_t kDigitsOfALostPoint = 6;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool LacksAPoint(std::string_view number) {
    if (number.front() == '-' || number.front() == '+')
        number.remove_prefix(1);
    if (!std::all_of(number.begin(), number.end(), IsDigit))
        return false;
    return number.size() >= kDigitsOfALostPoint || (number.size() > 1 && number.front() == '0');
}

bool IsOfWriter(const Word& number) {
    double ignored = 0;
    return TakeWrittenNumber(number.text, ignored) == number.text.size();
}

// A number as a person types it: a digit before the point, and no zero in front of others.
bool IsTyped(const Word& number) {
    std::string_view digits = number.text;
    if (digits.front() == '-' || digits.front() == '+')
        digits.remove_prefix(1);
    if (digits.empty() || !IsDigit(digits.front()) || IsOfWriter(number))
        return false;
    return digits.front() != '0' || digits.size() == 1 || !IsDigit(digits[1]);
}

bool HasExponent(const Word& word) {
    return word.text.find_first_of("eE") != std::string_view::npos;
}

// Coordinates of many digits are typed without a point, but not beside one of the writer's.
bool IsPointNeeded(const std::vector<Word>& words, const RowLayout& layout) {
    if (layout.names > 1)
        return true;
    return std::any_of(words.begin() + layout.names, words.begin() + layout.Fields(), IsOfWriter);
}

const RowLayout* OtherOfTheSameFields(const RowLayout& layout) {
    if (&layout == &kDistanceRow)
        return &kHeightRow;
    return &layout == &kHeightRow ? &kDistanceRow : nullptr;
}

}  // namespace

bool IsDecimal(std::string_view word) {
    return word.find('.') != std::string_view::npos && FullNumber(word).has_value();
}

std::string CommaDoubt(std::string_view line) {
    if (line.find(',') == std::string_view::npos)
        return {};
    std::vector<Word> words;
    AppendWords(line, words);
    const auto behind = [](const Word& word) { return word.column - 1 + static_cast<int>(word.text.size()); };
    const auto commas = [&](int from, int to) {
        return std::count(line.begin() + from, line.begin() + to, ',');
    };
    int last = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const int first = words[i].column - 1;
        if (commas(last, first) > (i == 0 ? 0 : 1))
            return "A field is empty between commas.";
        const bool isTight = i > 0 && first == last + 1 && line[static_cast<std::size_t>(last)] == ',';
        last = behind(words[i]);
        if (!isTight)
            continue;
        const std::string_view left = words[i - 1].text;
        const std::string_view right = words[i].text;
        const bool havePoints =
            left.find('.') != std::string_view::npos && right.find('.') != std::string_view::npos;
        if (FullNumber(left) && FullNumber(right) && !havePoints)
            return fmt::format(
                "The comma of \"{},{}\" may be a decimal comma; numbers have a point, and a blank "
                "behind a comma says that it separates two fields.",
                Printable(left, 30), Printable(right, 30));
    }
    if (commas(last, static_cast<int>(line.size())) > 0)
        return "A field is empty behind the last comma.";
    return {};
}

std::string RowDoubt(const std::vector<Word>& words, const RowLayout& layout) {
    if (words.front().column >= layout.starts[1])
        return fmt::format("The row begins with \"{}\" where no name begins; is its name missing?",
                           Printable(words.front().text, 30));
    const bool isList = &layout == &kCoordinateRow;
    const bool isPointNeeded = IsPointNeeded(words, layout);
    for (int i = layout.names; i < layout.Fields(); ++i) {
        const std::string_view number = words[static_cast<std::size_t>(i)].text;
        if (isPointNeeded && LacksAPoint(number))
            return fmt::format("\"{}\" seems to have lost its decimal point.", number);
    }
    if (isList && std::all_of(words.begin() + 1, words.begin() + 4, HasExponent))
        return "Three numbers with exponents are no coordinates, and the line below them has no name.";
    // A row in which no number is the writer's, nor a part of one, was typed, and stands in no columns.
    const bool isTyped = std::all_of(words.begin() + layout.names, words.begin() + layout.Fields(), IsTyped);
    for (int i = isList ? 0 : layout.names; i + 1 < layout.Fields(); ++i) {
        const Word& word = words[static_cast<std::size_t>(i)];
        const Word& next = words[static_cast<std::size_t>(i) + 1];
        if (!(isTyped && (i == 0 || !isList)) && !AreGlued(word.text, next.text) &&
            RunsOver(words, layout, i))
            return fmt::format("\"{}\" runs into the columns of \"{}\".", Printable(word.text, 40),
                               Printable(next.text, 30));
    }
    const RowLayout* const other = OtherOfTheSameFields(layout);
    if (other != nullptr && NumbersLieInColumns(words, *other))
        return fmt::format("The row lies in the columns of \"{}\".", other->title);
    return {};
}

}  // namespace Krenn
