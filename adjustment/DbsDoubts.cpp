// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <map>

#include <fmt/format.h>

#include "adjustment/DbsFile.h"
#include "adjustment/ExportFile.h"
#include "core/Text.h"
#include "core/basGeneral.h"

namespace Dorvane {

namespace {

// What the database keeps of a point, as facts of its format: 8 characters of a name, 11 of a coordinate, 7
// of a deviation, and 10 of a project and of a task.
constexpr std::size_t LongestName = 8;
constexpr std::size_t LongestFolder = 10;
constexpr int CoordinateWidth = 11;
constexpr int DeviationWidth = 7;

// What a reader takes a line for: so many words.
constexpr int WordsOfHeader = 3;
constexpr int WordsOfRecord = 11;

bool IsReadAs(const std::string& line, int words) {
    List1<std::string> found;
    return line.find('\n') == std::string::npos && ParseFields(found, line) == words;
}

bool HasControlCharacter(const std::string& name) {
    return std::any_of(name.begin(), name.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
    });
}

using Texts = std::vector<std::string>;

void DoubtNumbers(Texts& reasons, const AdjustedPoint& point) {
    static const NumberField coordinate("####0.00000", CoordinateWidth);
    static const NumberField deviation("0.00000", DeviationWidth);
    const auto check = [&](const NumberField& field, const char* title, double value, int width) {
        const std::string digits = field(value);
        if (static_cast<int>(digits.size()) > width)
            reasons.push_back(fmt::format("{} {} is wider than {} characters", title, digits, width));
    };
    check(coordinate, "X", point.X, CoordinateWidth);
    check(coordinate, "Y", point.Y, CoordinateWidth);
    check(coordinate, "Z", point.Z, CoordinateWidth);
    check(deviation, "half axis", point.ErrorMajor, DeviationWidth);
    check(deviation, "half axis", point.ErrorMinor, DeviationWidth);
    check(deviation, "SZ", point.SZ, DeviationWidth);
}

Texts ReasonsAgainst(const AdjustedPoint& point, int namesakes) {
    Texts reasons;
    if (point.Name.size() > LongestName)
        reasons.push_back(fmt::format("the name has more than {} characters", LongestName));
    if (HasControlCharacter(point.Name))
        reasons.emplace_back("the name holds a control character");
    if (namesakes > 1)
        reasons.push_back(fmt::format("the name stands {} times, and one of them would be kept", namesakes));
    DoubtNumbers(reasons, point);
    if (!IsReadAs(DbsRecord(point), WordsOfRecord))
        reasons.emplace_back("the line cannot be read back, and so the whole file");
    return reasons;
}

Texts ReasonsAgainst(const std::string& project, const std::string& task) {
    Texts reasons;
    if (project.size() > LongestFolder || task.size() > LongestFolder)
        reasons.push_back(fmt::format("more than {} characters", LongestFolder));
    const std::string line = DbsHeader("01-01-00", project, task);
    List1<std::string> words;
    if (!IsReadAs(line, WordsOfHeader))
        reasons.emplace_back("the first line cannot be read back, and so the whole file");
    else if (ParseFields(words, line); words[2] != UpperCase(project) || words[3] != UpperCase(task))
        reasons.emplace_back("the first line is read back as other names");
    return reasons;
}

}  // namespace

std::vector<std::string> DbsDoubts(const AdjustmentResults& results, const std::string& project,
                                   const std::string& task) {
    Texts doubts;
    const Texts ofHeader = ReasonsAgainst(project, task);
    if (!ofHeader.empty())
        doubts.push_back(
            fmt::format("folders \"{}\" and \"{}\": {}", project, task, fmt::join(ofHeader, "; ")));
    std::map<std::string, int> namesakes;
    ForAllPoints(results, [&](const AdjustedPoint& point) { ++namesakes[point.Name]; });
    ForAllPoints(results, [&](const AdjustedPoint& point) {
        const Texts reasons = ReasonsAgainst(point, namesakes[point.Name]);
        if (!reasons.empty())
            doubts.push_back(fmt::format("{}: {}", point.Name, fmt::join(reasons, "; ")));
    });
    return doubts;
}

}  // namespace Dorvane
