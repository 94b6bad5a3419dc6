// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/ExportFile.h"
#include "adjustment/Exporters.h"
#include "core/ColumnLine.h"
#include "core/DateText.h"
#include "core/Globals.h"

namespace Dorvane {

bool WriteXyzFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
                  const std::string& project, const std::string& task, const std::string& runDate) {
    const NumberField coordinate("####0.000000", 12);
    const NumberField deviation(".000000", 7);
    return WriteExportFile("basWrite-WriteXyzFile", folder + fileName, [&](LineWriter& out) {
        out.Line(" ");
        out.Line(" ");
        out.Line("Job Id   :  " + project);
        out.Line("Part Id  :  " + task);
        out.Line("Date     :  " + GeneralDate(TheDesktop().Now()));
        out.Line("File     :  " + fileName);
        out.Line("Run      :  " + runDate);
        out.Line(" ");
        out.Line("Final object point coordinates and standard errors");
        out.Line(" ");
        out.Line("               X             Y            Z          SX      SY      SZ");
        out.Line(" ");
        ForAllPoints(results, [&](const AdjustedPoint& point) {
            out.Line(ColumnLine()
                         .At(1, point.Name)
                         .At(11, coordinate(point.X))
                         .At(25, coordinate(point.Y))
                         .At(39, coordinate(point.Z))
                         .At(54, deviation(point.SX))
                         .At(62, deviation(point.SY))
                         .At(70, deviation(point.SZ))
                         .Text());
        });
    });
}

}  // namespace Dorvane
