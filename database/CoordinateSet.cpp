// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CoordinateSet.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <unordered_set>
#include <utility>

#include "core/Drives.h"
#include "core/FileThere.h"
#include "core/LineReader.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "database/DatabaseError.h"

namespace Dorvane {

namespace {

constexpr int NumberColumn = 9;
constexpr int NumberWidth = 6;

// The index counts lines of the data file, whose first is the header.
long LineOf(long record) {
    return record + 1;
}

std::string_view NameColumns(std::string_view line) {
    return line.substr(0, NameLength);
}

std::string Shown(std::string_view nameColumns) {
    return Trim(nameColumns);
}

// The number in an index record, 0 when there is none or it is not right-justified.
long NumberOfEntry(std::string_view entry) {
    std::string_view digits = entry.substr(NumberColumn - 1, NumberWidth);
    digits.remove_prefix(std::min(digits.find_first_not_of(' '), digits.size()));
    long number = 0;
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return read.ec == std::errc() && read.ptr == digits.data() + digits.size() ? number : 0;
}

}  // namespace

CoordinateSet::CoordinateSet(const std::string& folder, std::int32_t typeCode)
    : Folder(folder),
      OwnType(DatabaseTypeOf(typeCode)),
      Data(folder + OwnType.DataFile(), OwnType.DataShape()) {
    if (LineOf(Data.Records()) > HighestRecordNumber)
        throw DamagedFile(Data.Path(), fmt::format("it counts more than {} lines", HighestRecordNumber));
    Points.reserve(static_cast<std::size_t>(Data.Records()));
    Former.resize(static_cast<std::size_t>(Data.Records()) + 1);
    CheckIndex(RecordFile(folder + OwnType.IndexFile(), IndexShape));
}

void CoordinateSet::CheckIndex(const RecordFile& index) {
    if (index.HasTail())
        throw DamagedFile(index.Path(), "it is longer than its header line counts");
    long highest = 0;
    for (long i = 1; i <= index.Records(); ++i) {
        const long record = NumberOfEntry(index.Record(i)) - 1;
        const std::string name = Shown(NameColumns(index.Record(i)));
        if (record < 1)
            throw DamagedFile(index.Path(), fmt::format("line {} gives no line of the data file", LineOf(i)));
        if (record > Data.Records())
            throw DamagedFile(index.Path(), fmt::format("point {} lies past the end of the data file", name));
        if (NameColumns(Data.Record(record)) != NameColumns(index.Record(i)))
            throw DamagedFile(index.Path(),
                              fmt::format("point {} leads to the record of another name", name));
        highest = std::max(highest, record);
    }
    EnterRecords(1, highest);
    for (long i = 1; i <= index.Records(); ++i) {
        Entry& entry = Points.at(NameColumns(index.Record(i)));
        const std::string name = Shown(NameColumns(index.Record(i)));
        if (entry.Indexed)
            throw DamagedFile(index.Path(), fmt::format("point {} stands in it twice", name));
        if (entry.Record != NumberOfEntry(index.Record(i)) - 1)
            throw DamagedFile(index.Path(), fmt::format("point {} does not lead to its latest value", name));
        entry.Indexed = true;
    }
    for (const auto& [name, entry] : Points)
        if (!entry.Indexed)
            throw DamagedFile(index.Path(), fmt::format("point {} is missing", Shown(name)));
    EnterRecords(highest + 1, Data.Records());
}

void CoordinateSet::EnterRecords(long from, long to) {
    for (long record = from; record <= to; ++record) {
        const std::string_view name = NameColumns(Data.Record(record));
        if (name.front() == ' ')
            throw DamagedFile(Data.Path(), fmt::format("line {} has no name", LineOf(record)));
        Entry& entry = Points[name];
        Former[static_cast<std::size_t>(record)] = entry.Record;
        entry.Record = record;
    }
}

CoordinateRecord CoordinateSet::RecordAt(long record) const {
    return RecordOfLine(OwnType, Data.Record(record), Data.Path(), LineOf(record));
}

std::optional<CoordinateRecord> CoordinateSet::Current(std::string_view name) const {
    const auto found = Points.find(PadRight(UpperCase(Trim(name)), NameLength));
    if (found == Points.end())
        return std::nullopt;
    return RecordAt(found->second.Record);
}

std::string_view CoordinateSet::CurrentLine(std::string_view line) const {
    const auto found = Points.find(NameColumns(line));
    return found == Points.end() ? std::string_view() : Data.Record(found->second.Record);
}

std::vector<CoordinateRecord> CoordinateSet::All(std::string_view name) const {
    std::vector<CoordinateRecord> values;
    const auto found = Points.find(PadRight(UpperCase(Trim(name)), NameLength));
    if (found == Points.end())
        return values;
    for (long record = found->second.Record; record != 0; record = Former[static_cast<std::size_t>(record)])
        values.push_back(RecordAt(record));
    std::reverse(values.begin(), values.end());
    return values;
}

bool CoordinateSet::Holds(std::string_view line) const {
    const auto found = Points.find(NameColumns(line));
    if (found == Points.end())
        return false;
    for (long record = found->second.Record; record != 0; record = Former[static_cast<std::size_t>(record)])
        if (Data.Record(record) == line)
            return true;
    return false;
}

std::vector<FileChange> CoordinateSet::Adding(const std::vector<std::string>& lines) const {
    const long added = static_cast<long>(lines.size());
    if (added > Room())
        throw FullFile(Data.Path(), fmt::format("its lines are numbered up to {}", HighestRecordNumber));
    FileChange data{Data.Path(), RecordHeader(OwnType.DataShape(), Data.Records() + added)};
    data.Content.append(Data.AllRecords());
    for (const std::string& line : lines)
        data.Content.append(line).append("\r\n");

    std::vector<FileChange> changes;
    changes.push_back(std::move(data));
    changes.push_back({Folder + OwnType.IndexFile(), IndexOf(lines)});
    if (std::optional<FileChange> list = ListWith(lines))
        changes.push_back(std::move(*list));
    return changes;
}

std::string CoordinateSet::IndexOf(const std::vector<std::string>& lines) const {
    std::unordered_map<std::string_view, long> latest;
    for (const auto& [name, entry] : Points)
        latest[name] = entry.Record;
    long record = Data.Records();
    for (const std::string& line : lines)
        latest[NameColumns(line)] = ++record;

    std::vector<std::pair<std::string_view, long>> sorted(latest.begin(), latest.end());
    std::sort(sorted.begin(), sorted.end());
    std::string content = RecordHeader(IndexShape, static_cast<long>(sorted.size()));
    for (const auto& [name, last] : sorted)
        content.append(name).append(fmt::format("{:6}\r\n", LineOf(last)));
    return content;
}

std::optional<FileChange> CoordinateSet::ListWith(const std::vector<std::string>& lines) const {
    FileChange list{Folder + OwnType.ListFile(), ""};
    const bool exists = Drives::IsFile(list.Path);
    if (exists)
        list.Content = Drives::ReadFile(list.Path);
    if (!list.Content.empty() && list.Content.back() == EndOfFileMark)
        list.Content.pop_back();

    std::unordered_set<std::string> known;
    LineReader reader = LineReader::OfText(list.Content);
    while (!reader.AtEnd())
        known.insert(UpperCase(Trim(Left(reader.ReadLine(), NameLength))));

    if (!list.Content.empty() && list.Content.back() != '\n' && list.Content.back() != '\r')
        list.Content += "\r\n";
    bool added = false;
    const auto add = [&](std::string_view line) {
        const std::string name = Shown(NameColumns(line));
        if (!known.insert(name).second)
            return;
        list.Content.append(name).append("\r\n");
        added = true;
    };
    for (long record = 1; record <= Data.Records(); ++record)
        add(Data.Record(record));
    for (const std::string& line : lines)
        add(line);
    if (exists && !added)
        return std::nullopt;
    return list;
}

}  // namespace Dorvane
