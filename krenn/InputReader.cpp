// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/InputReader.h"

#include <fmt/format.h>

#include <array>
#include <cmath>
#include <functional>
#include <unordered_map>

#include "krenn/Errors.h"
#include "krenn/RowFields.h"
#include "krenn/Scan.h"

namespace Krenn {
namespace {

enum class Section { Header, None, Stations, Points, Distances, Heights, Angles, Control, Fixed, Pairs };

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
constexpr double kLargestLength = 1e8;
constexpr double kLargestDirection = 400;
constexpr double kHalfCircle = 200;
constexpr std::size_t kLongestName = 250;
constexpr std::size_t kNamesInANote = 20;

struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
};

struct FixedRow {
    int point;
    int line;
};

// The state of one reading. A coordinate row is followed by lines that belong to it, so the last row's
// point and what may still follow are kept.
struct Reader {
    explicit Reader(std::string_view text) : lines(text) {}

    LineCutter lines;
    Network network;
    Section section = Section::Header;
    std::unordered_map<std::string, int, TextHash, std::equal_to<>> pointOf;
    std::vector<Word> words;
    RowFields fields;
    std::string_view rowText;
    int rowLine = 0;
    int lastPoint = -1;
    enum class Expect { Name, Coordinates, Errors } expect = Expect::Name;
    bool isInTable = false;
    std::vector<char> isListed;
    std::vector<FixedRow> fixedRows;

    [[noreturn]] void Refuse(ErrorNumber number, const std::string& cause) const {
        throw Failure(number, cause, {fmt::format("line {}: {}", rowLine, Printable(rowText))});
    }

    int PointNamed(std::string_view word);
    int TablePoint(std::string_view word);
    void CheckedCoordinates(int point, const double* xyz);
    bool TakeTitle();
    void ReadHeaderLine();
    void ReadCoordinateLine();
    void ReadNameLine(int count);
    bool JoinNextLine();
    void AssembleRow(const RowLayout& layout);
    [[noreturn]] void RefuseRow(const RowLayout& layout) const;
    void ReadDistanceRow();
    void ReadHeightRow();
    void ReadAngleRow();
    void AddObservation(Kind kind, int from, int to, double value, double sigma, const char* what);
    void ReadLine();
    void Finish();
};

std::string_view HeaderValue(std::string_view line) {
    const std::size_t sign = line.find('=');
    return sign == std::string_view::npos ? std::string_view{} : Trimmed(line.substr(sign + 1));
}

int Reader::PointNamed(std::string_view word) {
    if (word.size() > kLongestName)
        Refuse(ErrorNumber::BadRow, fmt::format("A name has more than {} characters.", kLongestName));
    const std::string name = UpperCase(word);
    const auto found = pointOf.find(std::string_view(name));
    if (found != pointOf.end())
        return found->second;
    for (const char c : name) {
        if (static_cast<unsigned char>(c) < 32 || c == 127)
            Refuse(ErrorNumber::BadRow, "A name holds a control character.");
    }
    const int index = static_cast<int>(network.points.size());
    Point point{};
    point.name = name;
    point.line = rowLine;
    network.points.push_back(point);
    isListed.push_back(0);
    pointOf.emplace(name, index);
    return index;
}

int Reader::TablePoint(std::string_view word) {
    const int point = PointNamed(word);
    isListed[static_cast<std::size_t>(point)] = 1;
    if (section == Section::Stations)
        network.points[static_cast<std::size_t>(point)].inStationList = true;
    return point;
}

void Reader::CheckedCoordinates(int index, const double* xyz) {
    Point& point = network.points[static_cast<std::size_t>(index)];
    for (int axis = 0; axis < 3; ++axis) {
        if (std::abs(xyz[axis]) > kLargestCoordinate)
            Refuse(ErrorNumber::ValueOutOfRange, fmt::format("A coordinate of {} is too large.", point.name));
    }
    const std::array<double, 3> given{xyz[0], xyz[1], xyz[2]};
    if (point.hasGiven && point.given != given)
        Refuse(ErrorNumber::ContradictingCoordinates,
               fmt::format("{} has other coordinates on line {}.", point.name, point.line));
    if (!point.hasGiven)
        point.line = rowLine;
    point.given = given;
    point.hasGiven = true;
}

bool Reader::TakeTitle() {
    for (const Title& title : kTitles) {
        if (SameText(lines.line, title.text)) {
            section = title.section;
            lastPoint = -1;
            expect = Expect::Name;
            return true;
        }
    }
    if (section != Section::Header && SameText(lines.line, "END")) {
        section = Section::None;
        return true;
    }
    return false;
}

void Reader::ReadHeaderLine() {
    if (words.empty())
        return;
    const std::string_view key = words.front().text;
    const std::string value(HeaderValue(lines.line));
    if (SameText(key, "PROJECT"))
        network.project = value;
    else if (SameText(key, "TASK"))
        network.task = value;
    else if (SameText(key, "DATE"))
        network.date = value;
}

// A row of three numbers is the coordinates of the name on the line before, or the fixed second line of a
// coordinate row; everything else begins with a name.
void Reader::ReadCoordinateLine() {
    if (words.empty()) {
        expect = Expect::Name;
        return;
    }
    std::array<double, 3> numbers{};
    bool isNumbers = words.size() == 3;
    for (std::size_t i = 0; isNumbers && i < 3; ++i) {
        const std::optional<double> number = FullNumber(words[i].text);
        isNumbers = number.has_value();
        numbers[i] = number.value_or(0);
    }
    if (isNumbers && expect == Expect::Coordinates) {
        CheckedCoordinates(lastPoint, numbers.data());
        expect = Expect::Errors;
        return;
    }
    const bool hasExponent = words.front().text.find_first_of("eE") != std::string_view::npos;
    if (isNumbers && expect == Expect::Errors && (words.front().column > 1 || hasExponent)) {
        expect = Expect::Name;
        return;
    }
    if (words.size() == 1) {
        lastPoint = TablePoint(words.front().text);
        expect = Expect::Coordinates;
        return;
    }
    AssembleRow(kCoordinateRow);
    if (words.size() > 4)
        RefuseRow(kCoordinateRow);
    lastPoint = TablePoint(fields.names[0]);
    CheckedCoordinates(lastPoint, fields.numbers.data());
    expect = Expect::Errors;
}

bool Reader::JoinNextLine() {
    LineCutter ahead = lines;
    if (!ahead.Next() || ahead.line.empty() || (ahead.line[0] != ' ' && ahead.line[0] != '\t'))
        return false;
    const std::size_t before = words.size();
    AppendWords(ahead.line, words);
    const bool isEnd = words.size() == before + 1 && SameText(words.back().text, "END");
    if (words.size() == before || isEnd)
        return false;
    lines = ahead;
    return true;
}

// A field that finds its column passed stands on the next line, from the same column on: such lines begin
// with a blank and are joined until the row has its fields.
void Reader::AssembleRow(const RowLayout& layout) {
    const std::vector<Word> first = words;
    const LineCutter start = lines;
    const auto needed = static_cast<std::size_t>(layout.Fields());
    while (!FitRow(words, layout, fields)) {
        if (words.size() < needed && JoinNextLine())
            continue;
        words = first;
        lines = start;
        RefuseRow(layout);
    }
}

void Reader::RefuseRow(const RowLayout& layout) const {
    for (std::size_t i = static_cast<std::size_t>(layout.names); i < words.size(); ++i) {
        if (i < static_cast<std::size_t>(layout.Fields()) && !FullNumber(words[i].text))
            Refuse(ErrorNumber::BadNumber, fmt::format("\"{}\" stands where a number belongs ({}).",
                                                       Printable(words[i].text, 30), layout.form));
    }
    Refuse(ErrorNumber::BadRow, fmt::format("The row has {} fields; it needs {}: {}.", words.size(),
                                            layout.Fields(), layout.form));
}

void Reader::AddObservation(Kind kind, int from, int to, double value, double sigma, const char* what) {
    if (from == to)
        Refuse(ErrorNumber::ZeroLengthSight, "Station and target are the same point.");
    if (!(sigma > 0))
        Refuse(ErrorNumber::BadStandardError,
               fmt::format("The standard error of the {} is {}.", what, sigma));
    if (sigma < 1e-12 || sigma > 1e12)
        Refuse(ErrorNumber::ValueOutOfRange, fmt::format("The standard error of the {} is {}.", what, sigma));
    network.observations.push_back({kind, from, to, value, sigma, rowLine});
}

void Reader::ReadDistanceRow() {
    AssembleRow(kDistanceRow);
    const bool hasMark = words.size() == 5 && SameText(words[4].text, "T");
    if (words.size() > 4 && !hasMark)
        RefuseRow(kDistanceRow);
    const int from = PointNamed(fields.names[0]);
    const int to = PointNamed(fields.names[1]);
    const double distance = fields.numbers[0];
    if (distance == 0) {
        ++network.distancesNotObserved;
        return;
    }
    if (distance < 0 || distance > kLargestLength)
        Refuse(ErrorNumber::ValueOutOfRange, fmt::format("The distance {} is out of range.", distance));
    AddObservation(Kind::Distance, from, to, distance, fields.numbers[1], "distance");
    network.observations.back().isTracker = hasMark;
    network.trackerDistances += hasMark ? 1 : 0;
}

void Reader::ReadHeightRow() {
    AssembleRow(kHeightRow);
    if (words.size() > 4)
        RefuseRow(kHeightRow);
    const int from = PointNamed(fields.names[0]);
    const int to = PointNamed(fields.names[1]);
    if (std::abs(fields.numbers[0]) > kLargestLength)
        Refuse(ErrorNumber::ValueOutOfRange,
               fmt::format("The height difference {} is out of range.", fields.numbers[0]));
    AddObservation(Kind::HeightDifference, from, to, fields.numbers[0], fields.numbers[1],
                   "height difference");
}

void Reader::ReadAngleRow() {
    AssembleRow(kAngleRow);
    if (words.size() > 6)
        RefuseRow(kAngleRow);
    const int from = PointNamed(fields.names[0]);
    const int to = PointNamed(fields.names[1]);
    const double direction = fields.numbers[0];
    const double zenith = fields.numbers[1];
    if (std::abs(direction) > kLargestDirection)
        Refuse(ErrorNumber::ValueOutOfRange, fmt::format("The direction {} is out of range.", direction));
    if (zenith < 0 || zenith >= kHalfCircle)
        Refuse(ErrorNumber::ValueOutOfRange, fmt::format("The zenith angle {} is out of range.", zenith));
    AddObservation(Kind::Direction, from, to, direction, fields.numbers[2], "direction");
    if (zenith == 0)
        ++network.zenithsNotObserved;
    else
        AddObservation(Kind::ZenithAngle, from, to, zenith, fields.numbers[3], "zenith angle");
}

void Reader::ReadNameLine(int count) {
    if (words.size() != static_cast<std::size_t>(count))
        Refuse(ErrorNumber::BadRow, fmt::format("The row has {} words; it needs {}.", words.size(),
                                                count == 1 ? "one name" : "two names"));
    std::array<int, 2> named{-1, -1};
    for (std::size_t i = 0; i < words.size(); ++i) {
        const auto found = pointOf.find(std::string_view(UpperCase(words[i].text)));
        if (found == pointOf.end())
            Refuse(ErrorNumber::UnknownName,
                   fmt::format("{} is no point of this file.", UpperCase(Printable(words[i].text, 40))));
        named[i] = found->second;
    }
    if (count == 1)
        fixedRows.push_back({named[0], rowLine});
    else if (named[0] == named[1])
        Refuse(ErrorNumber::BadRow, "A pair names the same point twice.");
    else
        network.relativePairs.emplace_back(named[0], named[1]);
}

void Reader::ReadLine() {
    rowLine = lines.number;
    rowText = lines.line;
    words.clear();
    AppendWords(lines.line, words);
    if (section == Section::Header) {
        ReadHeaderLine();
        return;
    }
    if (section == Section::Stations || section == Section::Points) {
        ReadCoordinateLine();
        return;
    }
    if (words.empty())
        return;
    switch (section) {
        case Section::Distances: ReadDistanceRow(); break;
        case Section::Heights: ReadHeightRow(); break;
        case Section::Angles: ReadAngleRow(); break;
        case Section::Fixed: ReadNameLine(1); break;
        case Section::Pairs: ReadNameLine(2); break;
        default: Refuse(ErrorNumber::BadRow, "The line belongs to no section.");
    }
}

void Reader::Finish() {
    if (section == Section::Header && network.points.empty())
        throw Failure(ErrorNumber::NotAnInputFile, "No section title was found in the file.");
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
    if (network.observations.empty())
        throw Failure(ErrorNumber::NoObservations, "The file holds no observation.");

    std::string names;
    std::size_t count = 0;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (isListed[i])
            continue;
        if (++count <= kNamesInANote)
            names += (names.empty() ? "" : ", ") + network.points[i].name;
    }
    if (count > 0)
        network.notes.push_back(
            fmt::format("Names of observations that stand in no list were taken as points ({}): {}{}", count,
                        names, count > kNamesInANote ? ", ..." : ""));
}

}  // namespace

Network ReadInput(std::string_view text) {
    while (!text.empty() && text.back() == '\x1A')
        text.remove_suffix(1);
    if (text.find('\0') != std::string_view::npos)
        throw Failure(ErrorNumber::NotAnInputFile, "The file is binary.");
    Reader reader(text);
    while (reader.lines.Next()) {
        if (!reader.TakeTitle())
            reader.ReadLine();
    }
    reader.Finish();
    return std::move(reader.network);
}

}  // namespace Krenn
