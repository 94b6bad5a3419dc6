// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "krenn/input/InputState.h"
#include "krenn/input/RowDoubts.h"

// The rows of an input file: names, fields in one line or more, observations.
namespace Krenn {
namespace {

constexpr double kLargestLength = 1e8;
constexpr double kLargestDirection = 400;
constexpr double kHalfCircle = 200;
constexpr double kSmallestError = 1e-12;
constexpr double kLargestError = 1e4;  // what the columns hold
constexpr std::size_t kLongestName = 250;
constexpr std::string_view kTrackerMark = "   T";

}  // namespace

// The second line of a coordinate row: three numbers, each with an exponent.
bool AreErrors(const std::vector<Word>& words) {
    return words.size() == 3 && std::all_of(words.begin(), words.end(), [](const Word& word) {
               return word.text.find_first_of("eE") != std::string_view::npos && FullNumber(word.text);
           });
}

void InputState::Refuse(ErrorNumber number, const std::string& cause) const {
    throw Failure(number, cause, {fmt::format("line {}: {}", rowLine, Printable(rowText))});
}

// A name may look like a number, but not like one of the writer's or one that no list knows.
void InputState::CheckNewName(std::string_view word) const {
    if (word.size() > kLongestName)
        Refuse(ErrorNumber::BadRow, fmt::format("A name has more than {} characters.", kLongestName));
    for (const char c : word) {
        if (static_cast<unsigned char>(c) < 32 || c == 127)
            Refuse(ErrorNumber::BadRow, "A name holds a control character.");
    }
    if (!IsDecimal(word))
        return;
    double ignored = 0;
    if (section != Section::Stations && section != Section::Points)
        Refuse(ErrorNumber::BadRow, fmt::format("The number {} stands where a name belongs, and no point of "
                                                "this name stands in the lists above.",
                                                word));
    if (TakeWrittenNumber(word, ignored) == word.size())
        Refuse(ErrorNumber::BadRow, fmt::format("The number {} stands where a name belongs.", word));
}

int InputState::PointNamed(std::string_view word) {
    const int found = names.Find(word, network.points);
    if (found >= 0)
        return found;
    CheckNewName(word);
    Point point{};
    point.name = UpperCase(word);
    point.line = rowLine;
    network.points.push_back(std::move(point));
    isListed.push_back(0);
    names.AddLast(network.points);
    return static_cast<int>(network.points.size()) - 1;
}

Sight InputState::TakeSight() {
    const auto [station, target] = fields.names;
    if (station != lastStation) {
        lastStationPoint = PointNamed(station);
        lastStation = station;
    }
    const Sight sight{lastStationPoint, PointNamed(target)};
    if (sight.from == sight.to)
        Refuse(ErrorNumber::ZeroLengthSight, "Station and target are the same point.");
    return sight;
}

bool InputState::JoinNextLine(const RowLayout& layout) {
    LineCutter ahead = lines;
    if (!ahead.Next())
        return false;
    std::vector<Word> next;
    AppendWords(ahead.line, next);
    if (AreErrors(next) || !CommaDoubt(ahead.line).empty() || !JoinLine(words, ahead.line, layout))
        return false;
    lines = ahead;
    return true;
}

// A field that finds its column passed stands on the next line: such lines are joined until the row has its
// fields.
void InputState::AssembleRow(const RowLayout& layout) {
    const auto needed = static_cast<std::size_t>(layout.Fields());
    while (!FitRow(words, layout, fields)) {
        if (words.size() >= needed || !JoinNextLine(layout))
            RefuseRow(layout);
    }
    if (const std::string doubt = RowDoubt(words, layout); !doubt.empty())
        Refuse(ErrorNumber::BadRow, doubt);
}

void InputState::RefuseRow(const RowLayout& layout) const {
    for (std::size_t i = static_cast<std::size_t>(layout.names); i < words.size(); ++i) {
        if (i < static_cast<std::size_t>(layout.Fields()) && !FullNumber(words[i].text))
            Refuse(ErrorNumber::BadNumber, fmt::format("\"{}\" stands where a number belongs ({}).",
                                                       Printable(words[i].text, 30), layout.form));
    }
    Refuse(ErrorNumber::BadRow, fmt::format("The row has {} fields; it needs {}: {}.", words.size(),
                                            layout.Fields(), layout.form));
}

void InputState::AddObservation(Kind kind, Sight sight, double value, double sigma, const char* what) {
    if (!(sigma > 0))
        Refuse(ErrorNumber::BadStandardError,
               fmt::format("The standard error of the {} is {}.", what, sigma));
    if (sigma < kSmallestError || sigma > kLargestError)
        Refuse(ErrorNumber::ValueOutOfRange, fmt::format("The standard error of the {} is {}.", what, sigma));
    network.observations.push_back({kind, sight.from, sight.to, value, sigma, rowLine});
}

void InputState::AddDistance(bool hasMark) {
    const Sight sight = TakeSight();
    const double distance = fields.numbers[0];
    if (distance == 0) {
        ++network.distancesNotObserved;
        return;
    }
    if (distance < 0 || distance > kLargestLength)
        Refuse(ErrorNumber::ValueOutOfRange, fmt::format("The distance {} is out of range.", distance));
    AddObservation(Kind::Distance, sight, distance, fields.numbers[1], "distance");
    network.observations.back().isTracker = hasMark;
    network.trackerDistances += hasMark ? 1 : 0;
}

void InputState::AddHeight() {
    const Sight sight = TakeSight();
    const double height = fields.numbers[0];
    if (std::abs(height) > kLargestLength)
        Refuse(ErrorNumber::ValueOutOfRange,
               fmt::format("The height difference {} is out of range.", height));
    AddObservation(Kind::HeightDifference, sight, height, fields.numbers[1], "height difference");
}

void InputState::AddAngles() {
    const Sight sight = TakeSight();
    const auto [direction, zenith, directionError, zenithError] = fields.numbers;
    if (std::abs(direction) > kLargestDirection)
        Refuse(ErrorNumber::ValueOutOfRange, fmt::format("The direction {} is out of range.", direction));
    if (zenith < 0 || zenith >= kHalfCircle)
        Refuse(ErrorNumber::ValueOutOfRange, fmt::format("The zenith angle {} is out of range.", zenith));
    AddObservation(Kind::Direction, sight, direction, directionError, "direction");
    if (zenith == 0)
        ++network.zenithsNotObserved;
    else
        AddObservation(Kind::ZenithAngle, sight, zenith, zenithError, "zenith angle");
}

void InputState::AddFields(bool hasMark) {
    switch (section) {
        case Section::Distances: AddDistance(hasMark); break;
        case Section::Heights: AddHeight(); break;
        default: AddAngles(); break;
    }
}

const RowLayout& InputState::Layout() const {
    switch (section) {
        case Section::Distances: return kDistanceRow;
        case Section::Heights: return kHeightRow;
        case Section::Angles: return kAngleRow;
        default: return kCoordinateRow;
    }
}

// Most rows lie in the writer's columns and are taken without looking for words.
bool InputState::TakeWrittenObservation() {
    const std::size_t length = TakeWrittenRow(rowText, Layout(), fields);
    if (length == 0)
        return false;
    const std::string_view rest = rowText.substr(length);
    const bool hasMark = section == Section::Distances && rest == kTrackerMark;
    if (!hasMark && !rest.empty())
        return false;
    AddFields(hasMark);
    return true;
}

// Names that run into their neighbours, or that left their columns in a row of the writer, are certain only
// if the lists have them.
void InputState::CheckDoubtfulNames(const RowLayout& layout) const {
    bool isDoubtful = !NamesBeginColumns(words, layout) && NumbersLieInColumns(words, layout);
    for (int i = 0; i < layout.names; ++i) {
        const auto at = static_cast<std::size_t>(i);
        isDoubtful = isDoubtful || RunsOver(words, layout, i) || AreGlued(words[at].text, words[at + 1].text);
    }
    for (const std::string_view name : fields.names) {
        if (isDoubtful && names.Find(name, network.points) < 0)
            Refuse(ErrorNumber::BadRow,
                   fmt::format(
                       "Fields run together or left their columns, and \"{}\" is no name of the lists above.",
                       Printable(name, 40)));
    }
}

void InputState::ReadObservation() {
    const RowLayout& layout = Layout();
    AssembleRow(layout);
    CheckDoubtfulNames(layout);
    const auto needed = static_cast<std::size_t>(layout.Fields());
    const bool hasMark =
        section == Section::Distances && words.size() == needed + 1 && SameText(words[needed].text, "T");
    if (words.size() > needed && !hasMark)
        RefuseRow(layout);
    AddFields(hasMark);
}

}  // namespace Krenn
