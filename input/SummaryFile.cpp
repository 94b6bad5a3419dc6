// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/SummaryFile.h"

#include "core/ColumnLine.h"
#include "core/Globals.h"
#include "core/LineWriter.h"
#include "core/Pattern.h"
#include "core/ReportError.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr int CountWidth = 5;

void WriteSummary(const std::string& folder, const std::string& inputName, const List1<ObsPoint>& points,
                  const std::string& project, const std::string& task) {
    LineWriter file(folder + BeforeFirstPoint(inputName) + ".SUM");
    file.Line("PROJECT = " + project);
    file.Line("TASK = " + task);
    file.Line("DATE = " + GeneralDate(TheDesktop().Now()));
    file.Line();
    file.Line("Number of observations to each point in : " + folder + inputName);
    file.Line("Name           Hang  Zang  Sdst  Lhgt");
    file.Line();
    for (const ObsPoint& point : points)
        file.Line(SummaryRow(point));
    file.Close();
}

}  // namespace

bool WriteSummaryHeader(const std::string& folder, const std::string& inputName,
                        const List1<ObsPoint>& points, const std::string& project, const std::string& task) {
    return Guarded("basWrite-WriteSummaryHeader", [&](Guard& guard) {
        guard.Run([&] { WriteSummary(folder, inputName, points, project, task); });
    });
}

std::string SummaryRow(const ObsPoint& point) {
    static const Pattern digits("#####");
    ColumnLine row;
    row.At(1, point.Name)
        .At(15, digits(point.HangCount, CountWidth))
        .At(21, digits(point.ZangCount, CountWidth))
        .At(27, digits(point.SdstCount, CountWidth))
        .At(33, digits(point.LhgtCount, CountWidth));
    if (point.HangCount == 1 || point.ZangCount == 1 || point.SdstCount == 1 || point.LhgtCount == 1)
        row.At(39, "*");
    return row.Text();
}

}  // namespace Dorvane
