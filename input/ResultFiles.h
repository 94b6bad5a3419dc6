// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"

// The *.RES files that the reduction programs leave. Lines are cut by ParseFields, so names are upper case
// and columns carry no meaning; numbers follow the leading-number rule. Angles in gons, distances in meters.
// A folder ends in a backslash, and a path is folder and file joined. Lists count from 1.
namespace Dorvane {

/// One result line.
struct ResRecord {
    std::string Station;  // occupied station, or the first point of a height difference
    std::string Target;
    double Value1 = 0;
    double Value2 = 0;  // 0 when the line has none
    double Value3 = 0;  // 0 when the line has none

    bool operator==(const ResRecord&) const = default;
};

/// What one data type of a dimension contributes.
struct ResTypeEntry {
    std::string Name;          // the data type
    List1<std::string> Words;  // the result keyword, then file names; empty when the key is missing
};

/// The data types with their result files of a dimension (1 to 3), in the order of the list of data types.
/// Returns their number. Reports as "basRead-ReadResTypes".
std::int16_t ReadResTypes(List1<ResTypeEntry>& entries, std::int16_t dimension);

/// Reads lines of station, target and one to three values. A line of fewer than three words stops the reading
/// with a message. Returns the number of records, 0 after a stop or a failure, reported as
/// "basRead-ReadGenericRes"; error 6 for a file of more than 32767 lines.
std::int16_t ReadGenericRes(List1<ResRecord>& records, const std::string& folder, const std::string& file);

/// Reads blocks of a station line, lines of target and value, and "QUIT": Value1 from the first file, Value2
/// from the second, which must exist and counts as absent when it is empty. Both are read line for line, and
/// a station or target on which they differ stops the reading with a message. Returns the number of records,
/// 0 after a stop or a failure, reported as "basRead-ReadAngleRes".
std::int16_t ReadAngleRes(List1<ResRecord>& records, const std::string& folder, const std::string& firstFile,
                          const std::string& secondFile);

}  // namespace Dorvane
