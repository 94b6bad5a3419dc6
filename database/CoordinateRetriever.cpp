// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CoordinateRetriever.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

#include "core/FolderLock.h"
#include "core/RunTimeError.h"
#include "core/Text.h"
#include "database/DatabaseError.h"
#include "database/ReferenceFile.h"
#include "database/RetrievalFile.h"

namespace Dorvane {

namespace {

// Runs an operation of the component, whose failures bear its name as their source.
template <class Operation>
void AsComponent(Operation operation) {
    try {
        operation();
    } catch (RunTimeError& error) {
        error.Source = "CoordinateRetriever";
        throw;
    }
}

struct Retrieval {
    std::string DatabaseFolder;
    RetrievalHeading Heading;
    std::string TempPath;
};

void Retrieve(const Retrieval& retrieval, const List1<std::string>& names, std::int32_t count,
              std::string& resultFile, std::int32_t& lines) {
    std::optional<FolderLock> lock(std::in_place, retrieval.DatabaseFolder);
    const CoordinateSet set(retrieval.DatabaseFolder, retrieval.Heading.TypeCode);
    lock.reset();  // it has read all
    std::vector<RetrievedValue> values;
    for (int i = 1; i <= count; ++i) {
        std::vector<CoordinateRecord> stored = set.All(names[i]);
        if (!stored.empty() && !retrieval.Heading.AllValues)
            stored.erase(stored.begin(), stored.end() - 1);
        for (CoordinateRecord& record : stored)
            values.push_back({std::move(record), false});
        if (!stored.empty())
            values.back().Current = true;
    }
    resultFile = retrieval.TempPath + set.Type().ResultFile();
    WriteRetrievalFile(resultFile, retrieval.Heading, values);
    lines = static_cast<std::int32_t>(values.size());
}

}  // namespace

CoordinateRetriever::Taken& CoordinateRetriever::TakenFor(const std::string& databaseFolder,
                                                          std::int32_t typeCode) {
    for (Taken& taken : Waiting)
        if (taken.TypeCode == typeCode && taken.Folder == databaseFolder)
            return taken;
    const FolderLock lock(databaseFolder);
    const CoordinateSet set(databaseFolder, typeCode);
    return Waiting.emplace_back(Taken{databaseFolder, typeCode, set.Room(), {}});
}

void CoordinateRetriever::UpdatePoint(const std::string& databaseFolder, std::int32_t typeCode,
                                      const std::string& name, const std::string& date, double X, double Y,
                                      double Z, double ErrorAngle, double ErrorMajor, double ErrorMinor,
                                      double SZ, double extra1, double extra2) {
    AsComponent([&] {
        const DatabaseType& type = DatabaseTypeOf(typeCode);
        const std::string path = databaseFolder + type.DataFile();
        std::string line = RecordLine(
            type, {name, date, X, Y, Z, ErrorAngle, ErrorMajor, ErrorMinor, SZ, extra1, extra2}, path);
        Taken& taken = TakenFor(databaseFolder, typeCode);
        if (static_cast<long>(taken.Lines.size()) >= taken.Room)
            throw FullFile(path, fmt::format("its lines are numbered up to {}", HighestRecordNumber));
        taken.Lines.push_back(std::move(line));
    });
}

// The files are read anew: another workstation may have brought its own update since the first point.
std::vector<FileChange> CoordinateRetriever::WaitingChanges() const {
    std::vector<FileChange> changes;
    for (const Taken& taken : Waiting) {
        if (taken.Lines.empty())
            continue;
        for (FileChange& change : CoordinateSet(taken.Folder, taken.TypeCode).Adding(taken.Lines))
            changes.push_back(std::move(change));
    }
    return changes;
}

void CoordinateRetriever::Commit() {
    AsComponent([&] {
        std::vector<std::string> folders;
        for (const Taken& taken : Waiting)
            folders.push_back(taken.Folder);
        const FolderLock lock(folders);
        ReplaceInOrder(WaitingChanges());
        Waiting.clear();
    });
}

void CoordinateRetriever::RetrieveNamed(const std::string& databaseFolder, std::int32_t typeCode,
                                        const List1<std::string>& namesWithCountInItem0, std::int32_t,
                                        std::int32_t& count, std::vector<RetrievedPoint>& items) {
    AsComponent([&] {
        const FolderLock lock(databaseFolder);
        const CoordinateSet set(databaseFolder, typeCode);
        std::vector<RetrievedPoint> found;
        const int names = LeadingInteger(namesWithCountInItem0[0]);
        for (int i = 1; i <= names; ++i)
            if (const std::optional<CoordinateRecord> point = set.Current(namesWithCountInItem0[i]))
                found.push_back({point->Name, point->X, point->Y, point->Z, point->Extra1, point->Extra2});
        items = std::move(found);
        count = static_cast<std::int32_t>(items.size());
    });
}

void CoordinateRetriever::RetrieveCurrent(const std::string& databaseFolder, std::int32_t typeCode,
                                          const List1<std::string>& names, std::int32_t count,
                                          std::string& resultFile, std::int32_t& lines,
                                          const std::string& tempPath, const List1<double>& bias,
                                          std::int32_t unitsCode) {
    AsComponent([&] {
        const RetrievalHeading heading{LocationOfFolder(databaseFolder), typeCode, unitsCode, bias, false};
        Retrieve({databaseFolder, heading, tempPath}, names, count, resultFile, lines);
    });
}

void CoordinateRetriever::RetrieveAll(const std::string& databaseFolder, std::int32_t typeCode,
                                      const List1<std::string>& names, std::int32_t count,
                                      std::string& resultFile, std::int32_t& lines,
                                      const std::string& tempPath, const List1<double>& bias,
                                      std::int32_t unitsCode) {
    AsComponent([&] {
        const RetrievalHeading heading{LocationOfFolder(databaseFolder), typeCode, unitsCode, bias, true};
        Retrieve({databaseFolder, heading, tempPath}, names, count, resultFile, lines);
    });
}

void CoordinateRetriever::UpdateReference(const std::string& databaseFolder, const std::string& location,
                                          const std::string& date, const std::string& project,
                                          const std::string& task, std::int32_t& records) {
    AsComponent([&] {
        const FolderLock lock(databaseFolder);
        long updates = 0;
        FileChange reference = ReferenceWith(databaseFolder, location, {date, project, task}, updates);
        std::vector<FileChange> changes = WaitingChanges();
        changes.push_back(std::move(reference));
        ReplaceInOrder(changes);
        Waiting.clear();
        records = static_cast<std::int32_t>(updates);
    });
}

}  // namespace Dorvane
