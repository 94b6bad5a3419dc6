// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/edittext/TextSections.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr Offset PortionSize = 1 << 20;
constexpr std::size_t LongestHeading = 200;
constexpr std::size_t ShortestRule = 3;
constexpr std::size_t MostSections = 5000;  // a list of more is no help

constexpr std::array<std::string_view, 8> InputTitles = {
    "Theodolite Stations", "Object Points",       "Distances",         "Height differences",
    "Observations",        "Control Information", "Fixed Coordinates", "Relative error point pairs"};

constexpr std::array<std::string_view, 6> ListingMarks = {"Final results",      "distance residuals",
                                                          "height differences", "horizontal direction",
                                                          "vertical direction", "Standard deviations"};

bool IsRuleOf(std::string_view rule, std::string_view heading) {
    const std::size_t indent = heading.find_first_not_of(' ');
    const std::size_t first = rule.find_first_not_of(' ');
    if (first == std::string_view::npos || first != indent || (rule[first] != '-' && rule[first] != '='))
        return false;
    const std::size_t behind = std::min(rule.find_last_not_of(' ') + 1, rule.size());
    return behind - first >= ShortestRule &&
           rule.substr(0, behind).find_first_not_of(rule[first], first) == std::string_view::npos;
}

// The title that a line is by itself; empty when it is none.
std::string TitleOf(std::string_view line) {
    const std::string whole = Trim(line);
    if (line.front() == '[')
        return whole.size() > 2 && whole.back() == ']' ? whole : "";
    if (std::find(InputTitles.begin(), InputTitles.end(), whole) != InputTitles.end())
        return line.front() == ' ' ? "" : whole;
    for (const std::string_view mark : ListingMarks)
        if (line.substr(0, mark.size()) == mark)
            return std::string(mark);
    return "";
}

}  // namespace

void SectionScan::TakeLine(std::string_view line) {
    const bool isRule = !Former.empty() && IsRuleOf(line, Former);
    if (isRule)
        Found.push_back({FormerAt, Trim(Former)});
    Former.clear();
    if (isRule || line.empty() || line.size() > LongestHeading)
        return;
    if (std::string title = TitleOf(line); !title.empty()) {
        Found.push_back({Next, std::move(title)});
        return;
    }
    Former = line;
    FormerAt = Next;
}

bool SectionScan::Step() {
    const std::string portion = Text.Read(Next, PortionSize);
    const std::string_view text = portion;
    const bool isLast = Next + static_cast<Offset>(text.size()) == Text.Size();
    std::size_t start = 0;
    while (Found.size() < MostSections) {
        const std::size_t end = FindLineEnd(text, start);
        // A line end at the very end of a portion may be the first half of one.
        if (!isLast && (end == std::string_view::npos || end + 1 == text.size()))
            break;
        TakeLine(text.substr(start, end == std::string_view::npos ? end : end - start));
        if (end == std::string_view::npos)
            return true;
        const std::size_t behind = end + static_cast<std::size_t>(LineEndLength(text, end));
        Next += static_cast<Offset>(behind - start);
        start = behind;
    }
    if (Found.size() >= MostSections)
        return true;
    if (start == 0) {
        Next = Text.NextLine(Next).value_or(Text.Size());  // a line longer than a portion is no heading
        Former.clear();
    }
    return Next >= Text.Size();
}

}  // namespace Dorvane
