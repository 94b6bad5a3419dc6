// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/ReplaceFiles.h"
#include "database/CoordinateRecord.h"
#include "database/DatabaseFiles.h"
#include "database/RecordFile.h"

namespace Dorvane {

/// The data file and the index of one type in one location, read whole and checked against each other.
///
/// The data file holds every value ever entered, in the order of entry. The index holds for each point the
/// line of its latest value. An update replaces the data file, then the index, then the list of names; one
/// that was cut off in between leaves an index that is behind, so what lies in the data file behind the
/// highest line that the index names counts as entered and not yet indexed, and the next update brings index
/// and list up to date. Up to that line the index has to say exactly what the data file says.
class CoordinateSet {
  public:
    /// Reads the files. DatabaseDamaged when one of them is not of its form or the index is not that of the
    /// data.
    CoordinateSet(const std::string& folder, std::int32_t typeCode);
    CoordinateSet(const CoordinateSet&) = delete;
    CoordinateSet& operator=(const CoordinateSet&) = delete;

    const DatabaseType& Type() const { return OwnType; }

    /// The current value of a point; nothing when the database does not hold it. The name is compared trimmed
    /// and in upper case.
    std::optional<CoordinateRecord> Current(std::string_view name) const;

    /// The line of that value, empty when the database does not hold the point. The name is compared as it
    /// stands in the line's columns of names.
    std::string_view CurrentLine(std::string_view line) const;

    /// Every value of a point, the oldest first and the current one last.
    std::vector<CoordinateRecord> All(std::string_view name) const;

    /// True when one of the point's values is exactly this line (RecordLine), its date included.
    bool Holds(std::string_view line) const;

    long PointCount() const { return static_cast<long>(Points.size()); }

    /// How many records can still be added.
    long Room() const { return HighestRecordNumber - 1 - Data.Records(); }

    /// What has to be written, and in which order, so that the records of these lines (RecordLine) are added
    /// behind the others. DatabaseFull when there is no room for all of them.
    std::vector<FileChange> Adding(const std::vector<std::string>& lines) const;

  private:
    struct Entry {
        long Record = 0;  // of the latest value
        bool Indexed = false;
    };

    void CheckIndex(const RecordFile& index);
    void EnterRecords(long from, long to);
    CoordinateRecord RecordAt(long record) const;
    std::string IndexOf(const std::vector<std::string>& lines) const;
    std::optional<FileChange> ListWith(const std::vector<std::string>& lines) const;

    std::string Folder;
    const DatabaseType& OwnType;
    RecordFile Data;
    std::unordered_map<std::string_view, Entry> Points;  // by the eight columns of the name
    std::vector<long> Former;  // by record: that of the point's value before, 0 if none
};

}  // namespace Dorvane
