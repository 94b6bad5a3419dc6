// SPDX-License-Identifier: GPL-3.0-or-later
#include "programs/sitecheck/SiteDatabases.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "core/Drives.h"
#include "core/FolderLock.h"
#include "core/Globals.h"
#include "core/LineReader.h"
#include "core/Text.h"
#include "core/basGeneral.h"
#include "database/CoordinateSet.h"
#include "database/DatabaseError.h"
#include "database/ReferenceFile.h"
#include "database/basDatabase.h"
#include "programs/sitecheck/SiteRegistries.h"

namespace Dorvane {

namespace {

// "<path> is damaged: <reason>" of a failure, as it goes on behind the path.
Finding FindingOf(const RunTimeError& error, const std::string& folder, Mend how) {
    Finding finding{folder, 0, error.Description, how, folder};
    const std::size_t place = error.Description.find(" is damaged: ");
    if (place != std::string::npos) {
        finding.File = error.Description.substr(0, place);
        finding.What = error.Description.substr(place + 1);
    }
    return finding;
}

// Each value is read, since a retrieval of all of them would be stopped by one that is none.
void CheckValues(SiteReport& report, const std::string& folder, const DatabaseType& type) {
    const RecordFile data(folder + type.DataFile(), type.DataShape());
    for (long number = 1; number <= data.Records(); ++number) {
        try {
            RecordOfLine(type, data.Record(number), data.Path(), number + 1);
        } catch (const RunTimeError& error) {
            Finding finding = FindingOf(error, folder, Mend::None);
            finding.Line = number + 1;
            report.Findings.push_back(finding);
        }
    }
}

void CheckList(SiteReport& report, const std::string& folder, const DatabaseType& type,
               const CoordinateSet& set) {
    const std::string file = folder + type.ListFile();
    const std::vector<std::string> lines = LinesOf(file);
    std::set<std::string> listed;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::string name = UpperCase(Trim(Left(lines[i], NameLength)));
        if (name.empty() || !listed.insert(name).second)
            continue;
        if (!set.Current(name))
            report.Findings.push_back({file, static_cast<long>(i) + 1,
                                       fmt::format("lists {}, of which the database holds no value", name)});
    }
    const RecordFile data(folder + type.DataFile(), type.DataShape());
    for (long number = 1; number <= data.Records(); ++number) {
        const std::string name = Trim(data.Record(number).substr(0, NameLength));
        if (listed.insert(name).second)
            report.Findings.push_back({file,
                                       0,
                                       fmt::format("does not list point {}", name),
                                       Mend::RebuildDatabase,
                                       folder,
                                       {},
                                       type.Code});
    }
}

void CheckType(SiteReport& report, const std::string& folder, const DatabaseType& type) {
    if (!LookAt(report, folder + type.DataFile()))
        return;
    try {
        const CoordinateSet set(folder, type.Code);
        CheckValues(report, folder, type);
        CheckList(report, folder, type, set);
    } catch (const RunTimeError& error) {
        Finding finding = FindingOf(error, folder, Mend::RebuildDatabase);
        finding.Type = type.Code;
        report.Findings.push_back(finding);
    }
}

void CheckReference(SiteReport& report, const std::string& folder, const std::string& location) {
    if (!LookAt(report, folder + location + ".REF"))
        return;
    try {
        LastReference(folder, location);
    } catch (const RunTimeError& error) {
        Finding finding = FindingOf(error, folder, Mend::RebuildReference);
        finding.Names.Location = location;
        report.Findings.push_back(finding);
    }
}

void CheckBias(SiteReport& report, const std::string& location) {
    const std::string file = Global().Init_path + "BIAS.STR";
    List1<double> values;
    values.Resize(4);
    if (FileExists(file) && ReadBiasFile(location, values))
        return;
    report.Findings.push_back(
        {file, 0, "has no bias values for " + location, Mend::AddBias, "", {"", location, "", ""}});
}

bool HasFiles(const std::string& folder, const std::vector<std::string>& files) {
    return std::all_of(files.begin(), files.end(),
                       [&](const std::string& file) { return FileExists(folder + file); });
}

bool IsRecord(const DatabaseType& type, const std::string& line, const std::string& path) {
    if (static_cast<int>(line.size()) != type.RecordLength - 2 || line.front() == ' ' ||
        line.find_first_of(std::string_view("\0\x1A", 2)) != std::string::npos)
        return false;
    try {
        RecordOfLine(type, line, path, 0);
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

// The records of a file whose header and form may be anything: its lines that are records.
template <class IsWhole>
std::string WholeRecords(const std::string& path, DatabaseRepair& repair, const IsWhole& isWhole) {
    std::string records;
    LineReader reader = LineReader::OfText(Drives::ReadFile(path));
    if (!reader.AtEnd())
        reader.ReadLine();
    while (!reader.AtEnd()) {
        const std::string line(reader.ReadLine());
        if (isWhole(line)) {
            records.append(line).append("\r\n");
            ++repair.Kept;
        } else if (!line.empty()) {
            ++repair.Dropped;
        }
    }
    return records;
}

// The counted records where the file is of its form, else all of its lines that are records: behind what a
// sound header counts lies only what was never finished.
std::string RecordsOf(const std::string& folder, const DatabaseType& type, DatabaseRepair& repair) {
    const std::string path = folder + type.DataFile();
    try {
        const RecordFile data(path, type.DataShape());
        repair.Kept = data.Records();
        return std::string(data.AllRecords());
    } catch (const RunTimeError& error) {
        if (error.Number != DatabaseDamaged)
            throw;
    }
    return WholeRecords(path, repair, [&](const std::string& line) { return IsRecord(type, line, path); });
}

}  // namespace

std::vector<std::string> DatabaseLocations(const std::vector<SurveyNames>& surveys) {
    std::set<std::string> locations;
    for (const SurveyNames& names : surveys)
        if (!names.Location.empty())
            locations.insert(names.Location);
    if (!Global().Coord_path.empty())
        for (const Drives::Entry& entry : Drives::List(Global().Coord_path))
            if (entry.IsFolder)
                locations.insert(UpperCase(entry.Name));
    return {locations.begin(), locations.end()};
}

void CheckDatabase(SiteReport& report, const std::string& location) {
    const std::string folder = Global().Coord_path + location + "\\";
    if (Global().Coord_path.empty() || !LookAt(report, folder))
        return;
    CheckBias(report, location);
    if (!IsFolder(folder) || LacksCoordFiles(folder, location))
        report.Findings.push_back({folder,
                                   0,
                                   "lacks files of the coordinate database",
                                   Mend::MakeDatabaseFiles,
                                   folder,
                                   {"", location, "", ""}});
    for (const DatabaseType& type : DatabaseTypes)
        if (HasFiles(folder, {type.DataFile(), type.IndexFile(), type.ListFile()}))
            CheckType(report, folder, type);
    if (HasFiles(folder, {location + ".REF"}))
        CheckReference(report, folder, location);
}

DatabaseRepair RebuildDatabase(const std::string& folder, int typeCode) {
    const FolderLock lock(folder);
    const DatabaseType& type = DatabaseTypeOf(typeCode);
    DatabaseRepair repair;
    const std::string records = RecordsOf(folder, type, repair);
    // An index that is behind its data is brought up to date by the database itself.
    ReplaceInOrder({{folder + type.DataFile(), RecordHeader(type.DataShape(), repair.Kept) + records},
                    {folder + type.IndexFile(), RecordHeader(IndexShape, 0)}});
    ReplaceInOrder(CoordinateSet(folder, typeCode).Adding({}));
    return repair;
}

DatabaseRepair RebuildReference(const std::string& folder, const std::string& location) {
    const FolderLock lock(folder);
    const std::string path = folder + location + ".REF";
    DatabaseRepair repair;
    const std::string records = WholeRecords(path, repair, [](const std::string& line) {
        return static_cast<int>(line.size()) == ReferenceShape.RecordLength - 2;
    });
    ReplaceInOrder({{path, RecordHeader(ReferenceShape, repair.Kept) + records}});
    return repair;
}

}  // namespace Dorvane
