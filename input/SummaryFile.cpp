// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/SummaryFile.h"

#include "core/ColumnLine.h"
#include "core/Globals.h"
#include "core/Pattern.h"
#include "core/ReportError.h"
#include "core/Text.h"

namespace Dorvane {

namespace {

constexpr int CountWidth = 5;

std::string SummaryText(const std::string& inputPath, const List1<ObsPoint>& points,
                        const std::string& project, const std::string& task) {
    std::string text;
    AddLine(text, "PROJECT = " + project);
    AddLine(text, "TASK = " + task);
    AddLine(text, "DATE = " + GeneralDate(TheDesktop().Now()));
    AddLine(text, "");
    AddLine(text, "Number of observations to each point in : " + inputPath);
    AddLine(text, "Name           Hang  Zang  Sdst  Lhgt");
    AddLine(text, "");
    for (const ObsPoint& point : points)
        AddLine(text, SummaryRow(point));
    return text;
}

}  // namespace

bool WriteSummaryHeader(InputFiles& files, const std::string& folder, const std::string& inputName,
                        const List1<ObsPoint>& points, const std::string& project, const std::string& task) {
    return Guarded("basWrite-WriteSummaryHeader", [&](Guard& guard) {
        files.Sum.Path = folder + BeforeFirstPoint(inputName) + ".SUM";
        guard.Run([&] { TestOpening(files.Sum.Path); });
        files.Sum.Content = SummaryText(folder + inputName, points, project, task);
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
