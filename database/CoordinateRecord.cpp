// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CoordinateRecord.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "core/ColumnLine.h"
#include "core/Text.h"
#include "database/DatabaseError.h"

namespace Dorvane {

namespace {

constexpr int DateColumn = 10;
constexpr int DateLength = 6;

using Record = CoordinateRecord;

// Coordinates and angles show a digit before the point. The deviations and the further numbers show none
// below 1 and so keep a blank in front of them.
const Pattern Coordinate("####0.00000");
const Pattern Angle("##0.0");
const Pattern Deviation(".00000");
const Pattern FurtherOfSix(".0000");
const Pattern FurtherOfFive(".000");

const std::vector<RecordField> BenchmarkFields = {
    {&Record::Z, "Z", 16, 11, Coordinate},
    {&Record::SZ, "SZ", 27, 7, Deviation},
    {&Record::Extra1, "first further number", 34, 5, FurtherOfFive},
    {&Record::Extra2, "second further number", 39, 5, FurtherOfFive},
};

const std::vector<RecordField> MonumentFields = {
    {&Record::X, "X", 17, 11, Coordinate},
    {&Record::Y, "Y", 29, 11, Coordinate},
    {&Record::ErrorAngle, "ErrorAngle", 40, 6, Angle},
    {&Record::ErrorMajor, "ErrorMajor", 46, 7, Deviation},
    {&Record::ErrorMinor, "ErrorMinor", 53, 7, Deviation},
    {&Record::Extra1, "first further number", 60, 6, FurtherOfSix},
    {&Record::Extra2, "second further number", 66, 6, FurtherOfSix},
};

const std::vector<RecordField> ThreeDimensionalFields = {
    {&Record::X, "X", 17, 11, Coordinate},
    {&Record::Y, "Y", 29, 11, Coordinate},
    {&Record::Z, "Z", 40, 11, Coordinate},
    {&Record::ErrorAngle, "ErrorAngle", 51, 6, Angle},
    {&Record::ErrorMajor, "ErrorMajor", 57, 7, Deviation},
    {&Record::ErrorMinor, "ErrorMinor", 64, 7, Deviation},
    {&Record::SZ, "SZ", 71, 7, Deviation},
    {&Record::Extra1, "first further number", 78, 7, Deviation},
    {&Record::Extra2, "second further number", 85, 7, Deviation},
};

const std::vector<RecordField> IdealFields = {
    {&Record::X, "X", 17, 11, Coordinate},
    {&Record::Y, "Y", 29, 11, Coordinate},
    {&Record::Z, "Z", 41, 11, Coordinate},
    {&Record::Extra1, "first further number", 52, 5, FurtherOfFive},
    {&Record::Extra2, "second further number", 57, 5, FurtherOfFive},
};

bool IsDate(std::string_view text) {
    if (text.size() != DateLength ||
        !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return false;
    const int month = (text[0] - '0') * 10 + text[1] - '0';
    const int day = (text[2] - '0') * 10 + text[3] - '0';
    return month >= 1 && month <= 12 && day >= 1 && day <= 31;
}

bool HasControlCharacter(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const unsigned char byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
    });
}

std::string CheckedName(const std::string& given, const std::string& path) {
    std::string name = UpperCase(Trim(given));
    if (name.empty())
        throw RefusedRecord(path, "a point", "it has no name");
    if (name.size() > NameLength)
        throw RefusedRecord(path, "point " + name,
                            fmt::format("the name has more than {} characters", NameLength));
    if (HasControlCharacter(name))
        throw RefusedRecord(path, "a point", "its name holds a control character");
    return name;
}

void CheckFinite(const CoordinateRecord& record, const std::string& path, const std::string& what) {
    for (const double value : {record.X, record.Y, record.Z, record.ErrorAngle, record.ErrorMajor,
                               record.ErrorMinor, record.SZ, record.Extra1, record.Extra2})
        if (!std::isfinite(value))
            throw RefusedRecord(path, what, "one of its values is no number");
}

}  // namespace

const std::vector<RecordField>& RecordFields(const DatabaseType& type) {
    switch (type.Code) {
        case BenchmarkCode: return BenchmarkFields;
        case MonumentCode: return MonumentFields;
        case IdealCode: return IdealFields;
        default: return ThreeDimensionalFields;
    }
}

std::string RecordLine(const DatabaseType& type, const CoordinateRecord& record, const std::string& path) {
    const std::string name = CheckedName(record.Name, path);
    const std::string what = "point " + name;
    if (!IsDate(record.Date))
        throw RefusedRecord(path, what,
                            "its date \"" + record.Date + "\" is not of six digits, month, day and year");
    CheckFinite(record, path, what);

    ColumnLine line;
    line.At(1, name).At(DateColumn, record.Date);
    for (const RecordField& field : RecordFields(type)) {
        const std::string digits = field.Digits(record.*field.Value, field.Width);
        if (static_cast<int>(digits.size()) > field.Width)
            throw RefusedRecord(
                path, what,
                fmt::format("{} {} does not fit its {} columns", field.Title, digits, field.Width));
        line.At(field.Column, digits);
    }
    return line.Text();
}

CoordinateRecord RecordOfLine(const DatabaseType& type, std::string_view line, const std::string& path,
                              long lineNumber) {
    CoordinateRecord record;
    record.Name = Trim(Left(line, NameLength));
    record.Date = Mid(line, DateColumn, DateLength);
    if (!IsDate(record.Date))
        throw DamagedFile(path,
                          fmt::format("the date in line {}, point {}, is none", lineNumber, record.Name));
    for (const RecordField& field : RecordFields(type)) {
        const std::string digits = Mid(line, field.Column, field.Width);
        if (!IsNumeric(digits))
            throw DamagedFile(path, fmt::format("the {} in line {}, point {}, is no number", field.Title,
                                                lineNumber, record.Name));
        record.*field.Value = LeadingNumber(digits);
    }
    return record;
}

}  // namespace Dorvane
