// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/RetrievalFile.h"

#include <fmt/format.h>

#include "core/LineWriter.h"
#include "core/Pattern.h"
#include "core/Text.h"
#include "database/CoordinateUnits.h"

namespace Dorvane {

namespace {

constexpr int CoordinateWidth = 16;
constexpr int DeviationWidth = 12;
constexpr int AngleWidth = 8;

struct Column {
    double CoordinateRecord::*Value;
    const char* Title;
    int Width;
};

using Record = CoordinateRecord;

std::vector<Column> ColumnsOf(const DatabaseType& type) {
    const Column x{&Record::X, "X", CoordinateWidth};
    const Column y{&Record::Y, "Y", CoordinateWidth};
    const Column z{&Record::Z, "Z", CoordinateWidth};
    const Column angle{&Record::ErrorAngle, "Angle", AngleWidth};
    const Column major{&Record::ErrorMajor, "Major", DeviationWidth};
    const Column minor{&Record::ErrorMinor, "Minor", DeviationWidth};
    const Column sz{&Record::SZ, "SZ", DeviationWidth};
    switch (type.Code) {
        case BenchmarkCode: return {z, sz};
        case MonumentCode: return {x, y, angle, major, minor};
        case IdealCode: return {x, y, z};
        default: return {x, y, z, angle, major, minor, sz};
    }
}

bool IsAngle(const Column& column) {
    return column.Value == &Record::ErrorAngle;
}

std::string DateWithDashes(const std::string& date) {
    return Left(date, 2) + "-" + Mid(date, 3, 2) + "-" + Right(date, 2);
}

std::string BiasText(const List1<double>& bias) {
    const Pattern length("0.00000");
    return fmt::format("X {}  Y {}  Z {}  rotation {} gons", length(bias[1]), length(bias[2]),
                       length(bias[3]), length(bias[4]));
}

void WriteHeading(LineWriter& file, const DatabaseType& type, const LengthUnit& unit,
                  const RetrievalHeading& heading) {
    file.Line("Coordinate Database Retrieval");
    file.Line();
    file.Line("Location : " + heading.Location);
    file.Line(
        fmt::format("Data     : {}, {} coordinates", type.Title, heading.AllValues ? "all" : "current"));
    file.Line("Units    : " + unit.Name);
    file.Line("Bias     : " + (unit.Code == Meters ? BiasText(heading.Bias) : "none"));
    file.Line();
}

void WriteTitles(LineWriter& file, const std::vector<Column>& columns, const LengthUnit& unit,
                 bool allValues) {
    std::string titles = "Name      Date    ";
    std::string units = PadRight("", static_cast<int>(titles.size()));
    for (const Column& column : columns) {
        titles += RightJustify(column.Title, column.Width);
        units += RightJustify(IsAngle(column) ? "gons" : unit.Name, column.Width);
    }
    file.Line(titles + (allValues ? "  Current" : ""));
    file.Line(units);
    file.Line();
}

}  // namespace

void WriteRetrievalFile(const std::string& path, const RetrievalHeading& heading,
                        const std::vector<RetrievedValue>& values) {
    const DatabaseType& type = DatabaseTypeOf(heading.TypeCode);
    const LengthUnit& unit = LengthUnitOf(heading.UnitsCode);
    const std::vector<Column> columns = ColumnsOf(type);
    const Pattern length(unit.Lengths);
    const Pattern angle("##0.0");

    LineWriter file(path);
    WriteHeading(file, type, unit, heading);
    WriteTitles(file, columns, unit, heading.AllValues);
    for (const RetrievedValue& value : values) {
        const CoordinateRecord shown = InUnit(type, value.Record, unit, heading.Bias);
        std::string line = PadRight(shown.Name, 10) + DateWithDashes(shown.Date);
        for (const Column& column : columns)
            line += (IsAngle(column) ? angle : length)(shown.*column.Value, column.Width);
        file.Line(line + (heading.AllValues && value.Current ? "  *" : ""));
    }
    file.Close();
}

}  // namespace Dorvane
