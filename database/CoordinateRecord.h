// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/Pattern.h"
#include "database/DatabaseFiles.h"

namespace Dorvane {

/// One stored value of a point. Coordinates and deviations in meters, without bias; the angle in gons. What
/// the type does not keep is 0.
struct CoordinateRecord {
    std::string Name;  // 1 to 8 characters, upper case
    std::string Date;  // six digits: month, day, year
    double X = 0, Y = 0, Z = 0;
    double ErrorAngle = 0;                  // of the error ellipse's major axis, clockwise from Y
    double ErrorMajor = 0, ErrorMinor = 0;  // its half axes
    double SZ = 0;                          // standard deviation of Z
    double Extra1 = 0, Extra2 = 0;          // two further numbers, which the update leaves 0

    bool operator==(const CoordinateRecord&) const = default;
};

/// A number's place in the record of a type.
struct RecordField {
    double CoordinateRecord::*Value;
    const char* Title;
    int Column;  // from 1
    int Width;
    Pattern Digits;
};

/// The numbers that a type keeps, in the order of their columns. Name and date stand in columns 1-8 and 10-15
/// of every type.
const std::vector<RecordField>& RecordFields(const DatabaseType& type);

/// The record's line without its end. The name is trimmed and put in upper case. RecordRefused, naming
/// `path`, for an empty name, one of more than 8 characters or with control characters, for a date that is
/// not six digits of a month, a day and a year, and for a number that is not finite or does not fit its
/// columns.
std::string RecordLine(const DatabaseType& type, const CoordinateRecord& record, const std::string& path);

/// The record of a line. DatabaseDamaged, naming `path` and the line, when its date or a number is none.
CoordinateRecord RecordOfLine(const DatabaseType& type, std::string_view line, const std::string& path,
                              long lineNumber);

}  // namespace Dorvane
