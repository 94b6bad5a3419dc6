// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ExportFile.h"
#include "adjustment/Exporters.h"
#include "core/ColumnLine.h"

namespace Dorvane {

bool WriteStaFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results) {
    const NumberField stationCoordinate("########0.00000", 14);
    const NumberField pointCoordinate("####0.00000", 11);
    const NumberField rotation("#0.00000", 8);
    return WriteExportFile("basWrite-WriteStaFile", folder + fileName, [&](LineWriter& out) {
        for (const AdjustedPoint& station : results.Stations)
            out.Line(ColumnLine()
                         .At(1, station.Name)
                         .At(10, stationCoordinate(station.X))
                         .At(25, stationCoordinate(station.Y))
                         .At(40, stationCoordinate(station.Z))
                         .At(56, rotation(station.Rot1))
                         .At(66, rotation(station.Rot2))
                         .At(76, rotation(station.Rot3))
                         .Text());
        out.Line(" ");
        for (const AdjustedPoint& point : results.Points)
            out.Line(ColumnLine()
                         .At(1, point.Name)
                         .At(10, pointCoordinate(point.X))
                         .At(25, pointCoordinate(point.Y))
                         .At(40, pointCoordinate(point.Z))
                         .Text());
        out.Line(" ");
    });
}

}  // namespace Dorvane
