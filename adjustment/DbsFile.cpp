// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/DbsFile.h"

#include "adjustment/ExportFile.h"
#include "adjustment/Exporters.h"
#include "core/ColumnLine.h"
#include "core/DateText.h"
#include "core/Globals.h"
#include "core/Text.h"

namespace Dorvane {

std::string DbsHeader(const std::string& date, const std::string& project, const std::string& task) {
    return ColumnLine().At(1, RightJustify(date, 8)).At(11, project).At(21, task).Text();
}

std::string DbsRecord(const AdjustedPoint& point) {
    static const NumberField coordinate("####0.00000", 11);
    static const NumberField angle("##0.0", 5);
    static const NumberField deviation("0.00000", 7);
    return ColumnLine()
        .At(1, point.Name)
        .At(11, "0.0")
        .At(23, "0.0")
        .At(35, "0.0")
        .At(46, coordinate(point.X))
        .At(58, coordinate(point.Y))
        .At(70, coordinate(point.Z))
        .At(82, angle(point.ErrorAngle))
        .At(88, deviation(point.ErrorMajor))
        .At(96, deviation(point.ErrorMinor))
        .At(104, deviation(point.SZ))
        .Text();
}

bool WriteDbsFile(const std::string& folder, const std::string& fileName, const AdjustmentResults& results,
                  const std::string& project, const std::string& task) {
    return WriteExportFile("basWrite-WriteDbsFile", folder + fileName, [&](LineWriter& out) {
        out.Line(DbsHeader(DashedDate(TheDesktop().Now()), project, task));
        ForAllPoints(results, [&](const AdjustedPoint& point) { out.Line(DbsRecord(point)); });
    });
}

}  // namespace Dorvane
