// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/input/InputReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "krenn/input/InputState.h"
#include "krenn/input/RowDoubts.h"

namespace Krenn {
namespace {

struct Title {
    const char* text;
    Section section;
};

constexpr std::array kTitles{
    Title{"Theodolite Stations", Section::Stations}, Title{"Object Points", Section::Points},
    Title{"Distances", Section::Distances},          Title{"Height differences", Section::Heights},
    Title{"Observations", Section::Angles},          Title{"Control Information", Section::Control},
    Title{"Fixed Coordinates", Section::Fixed},      Title{"Relative error point pairs", Section::Pairs},
};

constexpr double kLargestCoordinate = 1e9;
constexpr std::size_t kNamesInANote = 20;
constexpr std::size_t kFaultsTold = 20;
// A line with more blanks in front belongs to the row above it.
constexpr std::size_t kLongestIndent = 9;
// No observation of the writer takes fewer characters of the file.
constexpr std::size_t kCharactersAnObservation = 29;

constexpr std::string_view kErrorsLine = "                1.00E+03       1.00E+03       1.00E+03";
constexpr double kErrorOfTheWriter = 1000;

std::string_view HeaderValue(std::string_view line) {
    const std::size_t sign = line.find('=');
    return sign == std::string_view::npos ? std::string_view{} : Trimmed(line.substr(sign + 1));
}

bool IsList(Section section) {
    return section == Section::Stations || section == Section::Points;
}

bool IsObserved(Section section) {
    return section == Section::Distances || section == Section::Heights || section == Section::Angles;
}

}  // namespace

Failure InputState::FaultHere(const std::string& cause) const {
    return {ErrorNumber::BadRow, cause, {fmt::format("line {}: {}", rowLine, Printable(rowText))}};
}

int InputState::ListedPoint(std::string_view word) {
    const int point = PointNamed(word);
    isListed[static_cast<std::size_t>(point)] = 1;
    if (section == Section::Stations)
        network.points[static_cast<std::size_t>(point)].inStationList = true;
    return point;
}

void InputState::TakeCoordinates() {
    Point& point = network.points[static_cast<std::size_t>(ListedPoint(fields.names[0]))];
    const std::array<double, 3> given{fields.numbers[0], fields.numbers[1], fields.numbers[2]};
    if (std::any_of(given.begin(), given.end(), [](double x) { return std::abs(x) > kLargestCoordinate; }))
        Refuse(ErrorNumber::ValueOutOfRange, fmt::format("A coordinate of {} is too large.", point.name));
    if (point.hasGiven && point.given != given)
        Refuse(ErrorNumber::ContradictingCoordinates,
               fmt::format("{} has other coordinates on line {}.", point.name, point.line));
    if (!point.hasGiven)
        point.line = rowLine;
    point.given = given;
    point.hasGiven = true;
    expect = Expect::Errors;
}

bool InputState::TakeTitle() {
    const std::string_view text = Trimmed(rowText);
    if (text.empty())
        return false;
    for (const Title& candidate : kTitles) {
        if (UpperCharacter(text.front()) != candidate.text[0] || !SameText(text, candidate.text))
            continue;
        if (section != Section::Header && section != Section::None && section != Section::Control)
            faults.push_back(FaultHere(
                fmt::format("END is missing above \"{}\": every section but \"Control Information\" has one.",
                            candidate.text)));
        CloseList();
        section = candidate.section;
        title = candidate.text;
        isStrayTold = false;
        hasPairs = hasPairs || section == Section::Pairs;
        return true;
    }
    if (!SameText(text, "END"))
        return false;
    EndSection();
    return true;
}

void InputState::EndSection() {
    const bool isOpen = section != Section::Header && section != Section::None;
    if (!isOpen && !isStrayTold)
        Refuse(ErrorNumber::BadRow, "END ends no section; perhaps a title above it is missing or mistyped.");
    CloseList();
    if (isOpen)
        section = Section::None;
}

void InputState::CloseList() {
    if (expect == Expect::Blank)
        TellMissingBlank();
    expect = Expect::Name;
}

// A mistyped title leaves every line of its section stray; one of them says it all.
void InputState::RefuseStrayLine() {
    if (isStrayTold)
        return;
    isStrayTold = true;
    Refuse(ErrorNumber::BadRow,
           "The line belongs to no section; perhaps the title above it is missing or mistyped.");
}

void InputState::ReadHeaderLine() {
    const std::string_view key = words.front().text;
    const std::string value(HeaderValue(rowText));
    if (hasFirstHeaderLine && rowText.find('=') == std::string_view::npos)
        RefuseStrayLine();
    hasFirstHeaderLine = true;
    if (SameText(key, "PROJECT"))
        network.project = value;
    else if (SameText(key, "TASK"))
        network.task = value;
    else if (SameText(key, "DATE"))
        network.date = value;
    else if (SameText(key, "LISTING"))
        isOfWriter = true;
}

bool InputState::TakeWrittenList() {
    if (expect == Expect::Errors && rowText == kErrorsLine) {
        expect = Expect::Name;
        return true;
    }
    if (expect == Expect::Blank || TakeWrittenRow(rowText, kCoordinateRow, fields) != rowText.size() ||
        rowText.empty())
        return false;
    TakeCoordinates();
    return true;
}

void InputState::NoteOtherErrors() {
    const bool isOther = std::any_of(words.begin(), words.end(), [](const Word& word) {
        return FullNumber(word.text) != kErrorOfTheWriter;
    });
    constexpr std::string_view kStart = "Values below coordinates other than 1.00E+03 are not used";
    if (isOther && (network.notes.empty() || !network.notes.back().starts_with(kStart)))
        network.notes.push_back(fmt::format("{}: line {} and perhaps others.", kStart, rowLine));
}

void InputState::ReadNameForm() {
    if (words.front().column >= kCoordinateRow.starts[1])
        RefuseRow(kCoordinateRow);
    ListedPoint(words.front().text);
    nameText = rowText;
    nameLine = rowLine;
    expect = Expect::Blank;
}

void InputState::TellMissingBlank() {
    faults.push_back(
        {ErrorNumber::BadRow,
         "Behind a name without coordinates an empty line is missing; coordinates stand on its line.",
         {fmt::format("line {}: {}", nameLine, Printable(nameText))}});
}

void InputState::ReadListLine() {
    const Expect expected = std::exchange(expect, Expect::Name);
    if (words.empty())
        return;
    if (expected == Expect::Blank)
        TellMissingBlank();
    if (AreErrors(words) && expected != Expect::Name) {
        NoteOtherErrors();
        return;
    }
    if (words.size() == 1 && !JoinNextLine(kCoordinateRow)) {
        ReadNameForm();
        return;
    }
    AssembleRow(kCoordinateRow);
    if (words.size() > static_cast<std::size_t>(kCoordinateRow.Fields()))
        RefuseRow(kCoordinateRow);
    TakeCoordinates();
}

void InputState::ReadNameLine(std::size_t count) {
    if (words.size() != count)
        Refuse(ErrorNumber::BadRow, fmt::format("The row has {} words; it needs {}.", words.size(),
                                                count == 1 ? "one name" : "two names"));
    std::array<int, 2> named{-1, -1};
    for (std::size_t i = 0; i < count; ++i) {
        named[i] = names.Find(words[i].text, network.points);
        if (named[i] < 0)
            Refuse(ErrorNumber::UnknownName,
                   fmt::format("{} is no point of this file.", UpperCase(Printable(words[i].text, 40))));
    }
    if (count == 1)
        fixedRows.push_back({named[0], rowLine});
    else if (named[0] == named[1])
        Refuse(ErrorNumber::BadRow, "A pair names the same point twice.");
    else
        network.relativePairs.emplace_back(named[0], named[1]);
}

void InputState::ReadLine() {
    words.clear();
    AppendWords(rowText, words);
    if (const std::string doubt = CommaDoubt(rowText); section != Section::Header && !doubt.empty())
        Refuse(ErrorNumber::BadRow, doubt);
    if (IsList(section))
        return ReadListLine();
    if (words.empty())
        return;
    switch (section) {
        case Section::Header: return ReadHeaderLine();
        case Section::Fixed: return ReadNameLine(1);
        case Section::Pairs: return ReadNameLine(2);
        case Section::None:
        case Section::Control: return RefuseStrayLine();
        default: ReadObservation();
    }
}

// What belongs to a row that was refused is no fault of its own.
void InputState::PassFaultyRow() {
    if (IsList(section))
        expect = Expect::Errors;
    if (!IsObserved(section))
        return;
    for (LineCutter ahead = lines; ahead.Next(); lines = ahead) {
        const std::size_t indent = ahead.line.find_first_not_of(' ');
        if (indent == std::string_view::npos || indent <= kLongestIndent)
            return;
    }
}

void InputState::ReadAll() {
    while (faults.size() < kFaultsTold && lines.Next()) {
        rowLine = lines.number;
        rowText = lines.line;
        try {
            const bool isTaken = (IsObserved(section) && TakeWrittenObservation()) ||
                                 (IsList(section) && TakeWrittenList()) || TakeTitle();
            if (!isTaken)
                ReadLine();
        } catch (const Failure& fault) {
            faults.push_back(fault);
            PassFaultyRow();
        }
    }
}

// A file that was cut lacks its end, wherever the cut is.
void InputState::CheckEnd() {
    const bool isCut = lines.rest.empty() && section != Section::None;
    if (isCut)
        faults.push_back(
            {ErrorNumber::BadRow,
             fmt::format("The file ends within \"{}\"; END is missing. Perhaps it was cut.", title),
             {fmt::format("line {}: {}", rowLine, Printable(rowText))}});
    else if (isOfWriter && !hasPairs && faults.empty())
        faults.push_back(FaultHere(
            "The file ends before \"Relative error point pairs\", the last section. Perhaps it was cut."));
}

void InputState::ThrowFaults() const {
    if (faults.empty())
        return;
    Failure all = faults.front();
    for (std::size_t i = 1; i < faults.size(); ++i) {
        all.details.emplace_back(faults[i].what());
        all.details.insert(all.details.end(), faults[i].details.begin(), faults[i].details.end());
    }
    if (faults.size() >= kFaultsTold)
        all.details.emplace_back("What follows was not read.");
    throw Failure(all);
}

void InputState::FixPoints() {
    std::vector<std::string> missing;
    for (const FixedRow& row : fixedRows) {
        Point& point = network.points[static_cast<std::size_t>(row.point)];
        if (point.isFixed)
            throw Failure(ErrorNumber::DuplicateFixed, fmt::format("{} is fixed twice.", point.name),
                          {fmt::format("line {}: {}", row.line, point.name)});
        point.isFixed = true;
        if (!point.hasGiven)
            missing.push_back(fmt::format("line {}: {}", row.line, point.name));
    }
    if (!missing.empty())
        throw Failure(ErrorNumber::FixedWithoutCoordinates, "Fixed points have no coordinates.", missing);
}

void InputState::NoteUnlistedNames() {
    std::string unlisted;
    std::size_t count = 0;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (isListed[i])
            continue;
        if (++count <= kNamesInANote)
            unlisted += (unlisted.empty() ? "" : ", ") + network.points[i].name;
    }
    if (count > 0)
        network.notes.push_back(
            fmt::format("Names of observations that stand in no list were taken as points ({}): {}{}", count,
                        unlisted, count > kNamesInANote ? ", ..." : ""));
}

void InputState::Finish() {
    if (section == Section::Header)
        throw Failure(ErrorNumber::NotAnInputFile, "No section title was found in the file.");
    CheckEnd();
    ThrowFaults();
    FixPoints();
    if (network.observations.empty())
        throw Failure(ErrorNumber::NoObservations, "The file holds no observation.");
    NoteUnlistedNames();
}

Network ReadInput(std::string_view text) {
    while (!text.empty() && text.back() == '\x1A')
        text.remove_suffix(1);
    if (text.find('\0') != std::string_view::npos)
        throw Failure(ErrorNumber::NotAnInputFile, "The file is binary.");
    InputState state{LineCutter(text)};
    state.network.observations.reserve(text.size() / kCharactersAnObservation);
    state.ReadAll();
    state.Finish();
    return std::move(state.network);
}

}  // namespace Krenn
