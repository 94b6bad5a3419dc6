// SPDX-License-Identifier: GPL-3.0-or-later
#include <initializer_list>

#include "adjustment/ExportFile.h"
#include "adjustment/Exporters.h"
#include "core/ColumnLine.h"

namespace Dorvane {

namespace {

void WriteTemplate(LineWriter& out, std::initializer_list<std::string_view> lines) {
    for (const std::string_view line : lines)
        out.Line(line);
}

// Counts in two digits from 0 and 0 to 9 and 9; from the line behind that on, all lines have 0 and 0.
struct TheodoliteCount {
    int Pos = 0;
    int Theo = 0;
    bool Stopped = false;

    void Advance() {
        if (Stopped || ++Theo < 10)
            return;
        Theo = 0;
        if (++Pos < 10)
            return;
        Pos = 0;
        Stopped = true;
    }
};

const NumberField& Coordinate() {
    static const NumberField field("####0.00000", 11);
    return field;
}

void WriteStations(LineWriter& out, const List1<AdjustedPoint>& stations) {
    TheodoliteCount count;
    for (const AdjustedPoint& station : stations) {
        out.Line(ColumnLine()
                     .At(1, "THEO")
                     .At(8, station.Name)
                     .At(17, std::to_string(count.Pos))
                     .At(19, std::to_string(count.Theo))
                     .At(22, Coordinate()(station.X))
                     .At(34, "UNK")
                     .At(38, Coordinate()(station.Y))
                     .At(50, "UNK")
                     .At(54, Coordinate()(station.Z))
                     .At(66, "UNK 0.0 UNK 0.0 UNK 0.0 UNK")
                     .Text());
        count.Advance();
    }
}

void WritePoints(LineWriter& out, const List1<AdjustedPoint>& points) {
    for (const AdjustedPoint& point : points)
        out.Line(ColumnLine()
                     .At(1, "POINT")
                     .At(8, point.Name)
                     .At(22, Coordinate()(point.X))
                     .At(34, "UNK")
                     .At(38, Coordinate()(point.Y))
                     .At(50, "UNK")
                     .At(54, Coordinate()(point.Z))
                     .At(66, "UNK")
                     .Text());
}

void WritePairs(LineWriter& out, std::string_view keyword, const List1<ObservationPair>& pairs) {
    for (const ObservationPair& pair : pairs)
        out.Line(ColumnLine().At(1, keyword).At(8, pair.Station).At(20, pair.Target).Text());
}

}  // namespace

bool WriteTrgFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results) {
    return WriteExportFile("basWrite-WriteTrgFile", folder + fileName, [&](LineWriter& out) {
        WriteTemplate(out, {"# this is a comment line beginning with a pound sign", "#",
                            "# The following lines are for importing theodolite data", "#",
                            "# type  name  pos theo value 1   value 2   value 3    rot 1   rot 2   rot 3"});
        WriteStations(out, results.Stations);
        WriteTemplate(out, {"#", "# The following lines are for importing object point data", "#",
                            "# type  name           value 1   value 2   value 3"});
        WritePoints(out, results.Points);
        WriteTemplate(out, {"#", "# The following line is for importing scale bar data", "#",
                            "# type  name         value 1   value 2   value 3   length  azimuth  vertangle",
                            "#SCALE  NewScale        25.0     450.0     100.0     10.0      15      130", "#",
                            "# The following line is for importing collimation data", "#",
                            "# type  station      target", "#",
                            "# The following line is for importing directions to object points", "#",
                            "# type  station      target"});
        WritePairs(out, "PDIR", results.HorizontalDirections);
        WriteTemplate(out, {"#", "# The following line is for importing directions to scale bars", "#",
                            "# type  station      target", "#SDIR   NewTheo      NewScale", "#",
                            "# The following line is for importing distances from theos to points", "#",
                            "# type  station      target", "#DIST   NewTheo      NewPoint"});
        WritePairs(out, "DIST", results.DistanceResiduals);
        WriteTemplate(out, {"#", "# The following line is for importing distances from point to point", "#",
                            "# type  station      target", "#PTDST  NewPoint     Point2"});
        // The comment above speaks of PTDST; PTHDIF is what the other system takes here.
        WritePairs(out, "PTHDIF", results.HeightDifferences);
    });
}

}  // namespace Dorvane
