// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ExportFile.h"
#include "adjustment/Exporters.h"
#include "core/ColumnLine.h"

namespace Dorvane {

bool WriteInuFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results) {
    const NumberField coordinate("####0.00000", 11);
    return WriteExportFile("basWrite-WriteInuFile", folder + fileName, [&](LineWriter& out) {
        ForAllPoints(results, [&](const AdjustedPoint& point) {
            out.Line(ColumnLine()
                         .At(1, point.Name)
                         .At(10, coordinate(point.X))
                         .At(25, coordinate(point.Y))
                         .At(40, coordinate(point.Z))
                         .Text());
        });
    });
}

}  // namespace Dorvane
