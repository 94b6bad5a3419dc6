// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "database/RecordFile.h"

// The files of one location's coordinate database. They lie in the database folder, Coord_path + location +
// "\".
namespace Dorvane {

/// One of the four types of coordinates, each with a data file, an index and a list of names.
struct DatabaseType {
    std::int32_t Code;
    const char* Word;   // the name of its files before the point
    const char* Title;  // as the retrieval shows it
    int RecordLength;   // of the data file, CR LF included

    std::string DataFile() const { return std::string(Word) + ".DAT"; }
    std::string IndexFile() const { return std::string(Word) + ".IDX"; }
    std::string ListFile() const { return std::string(Word) + ".LST"; }
    std::string ResultFile() const { return std::string(Word) + ".OUT"; }
    RecordShape DataShape() const { return {RecordLength, RecordLength - 2, 1}; }
};

constexpr std::int32_t BenchmarkCode = 1;
constexpr std::int32_t MonumentCode = 2;
constexpr std::int32_t ThreeDimensionalCode = 3;
constexpr std::int32_t IdealCode = 4;

inline constexpr std::array<DatabaseType, 4> DatabaseTypes = {{
    {BenchmarkCode, "BNCHMARK", "Benchmarks", 45},
    {MonumentCode, "MONUMENT", "Monuments", 73},
    {ThreeDimensionalCode, "3DIM", "3-Dimensional", 93},
    {IdealCode, "IDEALS", "Ideals", 63},
}};

/// The type of a code; error 5 for a code that is none of the four.
const DatabaseType& DatabaseTypeOf(std::int32_t typeCode);

inline constexpr RecordShape IndexShape = {16, 14, 0};

/// The header of the reference file is one longer than its records; it is meant to be so.
inline constexpr RecordShape ReferenceShape = {32, 31, 1};

/// The highest record number that the six columns of an index record hold.
constexpr long HighestRecordNumber = 999999;

/// The longest name of a point.
constexpr int NameLength = 8;

/// A backup's name is this and the name of its file, beside which it lies.
constexpr const char* BackupPrefix = "Backup ";

/// The name of a database folder's location: its last folder name.
std::string LocationOfFolder(const std::string& folder);

}  // namespace Dorvane
