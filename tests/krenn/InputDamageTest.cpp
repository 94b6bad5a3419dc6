// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>

#include "krenn/Errors.h"
#include "krenn/input/InputReader.h"

// Every damage of one character of a good file is refused, changes nothing, or changes the one field that it
// touches.
namespace {

using namespace Krenn;

const std::string kGood =
    "NORL   5 R M T   -   ORIENTATION DATA CAPTURE\r\n\r\n  PROJECT = DAM\r\n     TASK = NORTH\r\n"
    "     DATE = 1/2/2026 10:11:12\r\n\r\nLISTING = STATS\r\n\r\n"
    "Theodolite "
    "Stations\r\nST1\r\n\r\nKB22\r\n\r\nSTATION123\r\n\r\nVERYLONGSTATION\r\n\r\n1047\r\n\r\nEND\r\n"
    "Object Points\r\n"
    "P7            1000.50000      -20.25000        3.00000\r\n"
    "                1.00E+03       1.00E+03       1.00E+03\r\n"
    "NINEDEEPS12345678.12345 -1234567.54321      103.99000\r\n"
    "                1.00E+03       1.00E+03       1.00E+03\r\n"
    "TARGET9876\r\n"
    "             100.00000        0.50000       12.34567\r\n"
    "                1.00E+03       1.00E+03       1.00E+03\r\n"
    "56            4000.50000     2017.12500       99.87654\r\n"
    "                1.00E+03       1.00E+03       1.00E+03\r\n"
    "NOWHERE\r\n\r\nEND\r\n"
    "Distances \r\n"
    "ST1       P7             25.12345   0.00200\r\n"
    "1047      56            125.12345   0.00210   T\r\n"
    "KB22      NINEDEEPS 1234567.123451000.00200\r\n"
    "STATION123TARGET9876     31.41590   0.00220\r\n"
    "VERYLONGSTATION\r\n          P7             78.12345   0.00230\r\n"
    "END\r\n"
    "Height differences\r\n"
    "P7        56            -1.50000     0.00120\r\n"
    "1047      NOWHERE       11.25000     0.00130\r\n"
    "ST1       TARGET9876\r\n                         2.75000     0.00140\r\n"
    "END\r\n"
    "Observations\r\n"
    "ST1       P7        123.45670   99.12340 0.00050 0.00060\r\n"
    "1047      56          0.00000    0.00000 0.00050 0.00060\r\n"
    "STATION123TARGET9876117.45670   88.12340 0.0007011.00080\r\n"
    "VERYLONGSTATION\r\n          P7         23.45670  101.12340 0.00050 0.00060\r\n"
    "KB22      P7         12.45670  102.12340 10.00050\r\n"
    "                                                 0.00065\r\n"
    "END\r\n"
    "Control Information\r\nFixed Coordinates\r\nP7\r\nEND\r\n"
    "Relative error point pairs\r\nP7        ST1\r\nEND\r\n";

// The rows of a network in the order of the file: the fields of each, and where it stands.
struct Row {
    int line = 0;
    std::map<std::string, std::string> fields;
};

void AddObservation(const Network& network, const Observation& observation, std::vector<Row>& rows) {
    static const std::array kNames{"direction", "zenith", "distance", "height"};
    if (rows.empty() || rows.back().line != observation.line)
        rows.push_back({observation.line, {}});
    std::map<std::string, std::string>& fields = rows.back().fields;
    const std::string name = kNames[static_cast<std::size_t>(observation.kind)];
    fields["from"] = network.points[static_cast<std::size_t>(observation.from)].name;
    fields["to"] = network.points[static_cast<std::size_t>(observation.to)].name;
    fields[name] = fmt::format("{}", observation.value);
    fields[name + " error"] = fmt::format("{}", observation.sigma);
    if (observation.isTracker)
        fields["mark"] = "T";
}

std::vector<Row> RowsOf(const Network& network) {
    std::vector<Row> rows;
    rows.push_back({3, {{"project", network.project}}});
    rows.push_back({4, {{"task", network.task}}});
    rows.push_back({5, {{"date", network.date}}});
    std::vector<Row> lists;
    std::string fixed;
    for (const Point& point : network.points) {
        if (point.isFixed)
            fixed += point.name;
        if (point.line < network.observations.front().line - 1)
            lists.push_back({point.line,
                             {{"name", fmt::format("{}{}", point.name, point.inStationList)},
                              {"x", fmt::format("{}", point.given[0])},
                              {"y", fmt::format("{}", point.given[1])},
                              {"z", fmt::format("{}{}", point.given[2], point.hasGiven)}}});
    }
    std::stable_sort(lists.begin(), lists.end(), [](const Row& a, const Row& b) { return a.line < b.line; });
    rows.insert(rows.end(), lists.begin(), lists.end());
    for (const Observation& observation : network.observations)
        AddObservation(network, observation, rows);
    rows.push_back({61, {{"fixed", fixed}}});
    for (const auto& [from, to] : network.relativePairs)
        rows.push_back({64,
                        {{"one", network.points[static_cast<std::size_t>(from)].name},
                         {"two", network.points[static_cast<std::size_t>(to)].name}}});
    return rows;
}

// How many fields differ. A zenith angle that is not observed has no standard error to differ.
int DifferencesOf(Row left, Row right) {
    if (left.fields.contains("zenith") != right.fields.contains("zenith")) {
        left.fields.erase("zenith error");
        right.fields.erase("zenith error");
    }
    int count = 0;
    for (const auto& [name, value] : left.fields)
        count += !right.fields.contains(name) || right.fields.at(name) != value ? 1 : 0;
    for (const auto& [name, value] : right.fields)
        count += left.fields.contains(name) ? 0 : 1;
    return count;
}

// Empty if what was read differs at most in one field of the row that holds the damaged place. A line end
// belongs to both of its lines.
std::string WrongChange(const std::vector<Row>& good, const std::vector<Row>& damaged, std::size_t place) {
    const auto before = kGood.begin() + static_cast<std::ptrdiff_t>(place);
    const int line = 1 + static_cast<int>(std::count(kGood.begin(), before, '\n'));
    const int last = kGood[place] == '\n' ? line + 1 : line;

    if (good.size() != damaged.size())
        return fmt::format("{} rows instead of {}", damaged.size(), good.size());
    int differences = 0;
    for (std::size_t i = 0; i < good.size(); ++i) {
        const int inRow = DifferencesOf(good[i], damaged[i]);
        differences += inRow;
        if (inRow > 0 && (last < good[i].line || line > good[i].line + 1))
            return fmt::format("a change of the row of line {}", good[i].line);
    }
    return differences > 1 ? fmt::format("{} fields changed", differences) : "";
}

struct Tally {
    int refused = 0;
    int same = 0;
    int changed = 0;
    int wrong = 0;
};

void Judge(const std::vector<Row>& good, const std::string& text, std::size_t place, Tally& tally) {
    try {
        const std::vector<Row> rows = RowsOf(ReadInput(text));
        const std::string wrong = WrongChange(good, rows, place);
        tally.wrong += wrong.empty() ? 0 : 1;
        bool isSame = good.size() == rows.size();
        for (std::size_t i = 0; isSame && i < rows.size(); ++i)
            isSame = DifferencesOf(good[i], rows[i]) == 0;
        (isSame ? tally.same : tally.changed) += 1;
        if (!wrong.empty() && tally.wrong < 20) {
            const std::size_t start = place > 30 ? place - 30 : 0;
            ADD_FAILURE() << wrong << ": " << testing::PrintToString(text.substr(start, 80));
        }
    } catch (const Failure& failure) {
        EXPECT_NE(failure.number, ErrorNumber::Internal);
        EXPECT_FALSE(failure.details.empty() && failure.number == ErrorNumber::BadRow);
        ++tally.refused;
    }
}

TEST(ReadInput, TakesNoDamageOfOneCharacterForAnotherField) {
    const std::vector<Row> good = RowsOf(ReadInput(kGood));
    const std::string spoilers = "09.-, \t\r\nEX";
    Tally tally;
    for (std::size_t place = 0; place < kGood.size(); ++place) {
        std::string text = kGood;
        Judge(good, text.erase(place, 1), place, tally);
        for (const char spoiler : spoilers) {
            text = kGood;
            text[place] = spoiler;
            Judge(good, text, place, tally);
            text = kGood;
            Judge(good, text.insert(place, 1, spoiler), place, tally);
        }
    }
    EXPECT_EQ(tally.wrong, 0);
    EXPECT_GT(tally.refused, 20000);
    EXPECT_GT(tally.changed, 3000);
    EXPECT_GT(tally.same, 3000);
}

}  // namespace
