// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"

// The upkeep of the coordinate database's files and the small texts that steer a retrieval.
namespace Dorvane {

/// Makes a location's new, empty set of files in `folder`, which ends in a backslash: data files, indexes,
/// lists of names and the reference file, each replacing a former one: all of them or none. Raises what
/// writing raises.
void WriteCoordNew(const std::string& folder, const std::string& location);

/// True when one of these files is missing.
bool LacksCoordFiles(const std::string& folder, const std::string& location);

/// What a new location needs, or one whose making was broken off: AddStandardBias, and those of its files
/// that are missing. Where the former fails there are no files: what lacks is then seen, and made by the next
/// try.
void WriteLocationNew(const std::string& folder, const std::string& location);

/// Sees to it that a retrieval finds bias values: where BIAS.STR of Init_path is missing, or ReadBiasFile
/// finds none for the location, a line of the key "STDBIAS" with four zeros is added at its end. A failure is
/// reported as "basDatabase-AddStandardBias".
void AddStandardBias(const std::string& location);

/// Copies list, index and data file of a type (1 to 4), and then the location's reference file, each beside
/// itself as "Backup " and its name, replacing a former copy: all of them or none. Any other code copies
/// nothing. A failure is reported as "basDatabase-MakeCoordBackups". True when it came to its end, false when
/// a failure made it leave.
bool MakeCoordBackups(const std::string& folder, std::int32_t typeCode);

/// Looks up the four bias values (numbered from 1) of a location in BIAS.STR of Init_path, or those of the
/// key "STDBIAS" when the location has no line of its own with all four. False when there is neither; the
/// values are then unchanged. A failure is reported as "basRead-ReadBiasFile" and gives false.
bool ReadBiasFile(const std::string& location, List1<double>& biasValues);

/// Fills the list with the names in WORK.LST of Work_path, columns 1 to 8 of each line; an empty line gives
/// an empty name. Returns their number, 0 when there is no such file. A failure, 32768 names among them, is
/// reported as "basRead-ReadWorkListFile" and gives 0 and no names.
std::int16_t ReadWorkListFile(List1<std::string>& names);

}  // namespace Dorvane
