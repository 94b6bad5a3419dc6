// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <numbers>
#include <numeric>

#include "krenn/listing/ListingParts.h"

namespace Krenn {
namespace {

constexpr double kGonsPerRadian = 200 / std::numbers::pi;
constexpr std::size_t kWorstShown = 10;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// Radians as gons from 0 to below 400.
double CircleGons(double radians) {
    double gons = std::remainder(radians * kGonsPerRadian, 400.0);
    if (gons < 0)
        gons += 400;
    return gons >= 399.999995 ? 0.0 : gons;
}

struct Table {
    Kind kind;
    const char* marker;  // what readers look for, from column 1
};

constexpr Table kTables[]{{Kind::Direction, "horizontal direction"},
                          {Kind::ZenithAngle, "vertical direction"},
                          {Kind::Distance, "distance residuals"},
                          {Kind::HeightDifference, "height differences"}};

void AppendReliability(std::string& text, const Statistics& statistics, std::size_t m, double sigma,
                       double factor) {
    const double r = statistics.redundancyNumber[m];
    AppendFixed(text, r, 7, 3);
    if (r <= kNoCheck) {
        for (const int width : {9, 11, 11, 8})
            AppendRight(text, "-", width);
        return;
    }
    AppendFixed(text, statistics.standardised[m], 9, 2);
    AppendFixed(text, statistics.suspected[m] * factor, 11, 2);
    AppendFixed(text, SmallestDetectable(statistics.noncentrality, sigma, r) * factor, 11, 2);
    AppendFixed(text, LargestEffect(statistics.noncentrality, r), 8, 1);
}

void AppendResidualRow(std::string& text, const Report& report, std::size_t m) {
    const Statistics& statistics = report.statistics;
    const Measure& measure = report.adjustment.structure.measures[m];
    const Observation& observation = report.network.observations[At(measure.observation)];
    const double v = report.adjustment.residual[m];
    const double adjusted = measure.kind == MeasureKind::Direction
                                ? CircleGons(measure.value + v)
                                : observation.value + v * (IsAngle(measure.kind) ? kGonsPerRadian : 1.0);
    const double factor = ResidualUnit(measure.kind);
    AppendLeft(text, report.network.points[At(measure.from)].name, report.nameWidth);
    text += ' ';
    AppendLeft(text, report.network.points[At(measure.to)].name, report.nameWidth);
    AppendCount(text, observation.line, 8);
    AppendFixed(text, observation.value, 15, 5);
    AppendFixed(text, adjusted, 15, 5);
    AppendFixed(text, v * factor, 11, 3);
    AppendFixed(text, measure.sigma * factor, 9, 3);
    if (statistics.isStandardised)
        AppendReliability(text, statistics, m, measure.sigma, factor);
    else
        AppendFixed(text, statistics.standardised[m], 9, 2);
    if (std::abs(statistics.standardised[m]) > statistics.critical)
        text += static_cast<int>(m) == statistics.worst ? "  <<" : "  <";
    else if (statistics.isStandardised && statistics.redundancyNumber[m] < kNotChecked)
        text += "  not checked";
    text += "\r\n";
}

void PrintTable(Page& page, const Report& report, const Table& table) {
    const auto& measures = report.adjustment.structure.measures;
    const auto isOfTable = [&](const Measure& measure) {
        return report.network.observations[At(measure.observation)].kind == table.kind;
    };
    if (std::none_of(measures.begin(), measures.end(), isOfTable))
        return;
    const char* checks =
        report.statistics.isStandardised ? "      r        w      error     nabla0   outer" : "  v/sigma";
    const int names = 2 * report.nameWidth + 1;
    page.Line("{:<{}}{:>{}}{:>15}{:>15}{:>11}{:>9}{}", table.marker, std::max(names, 20), "line",
              names >= 20 ? 8 : names - 12, "observed", "adjusted", "v", "sigma", checks);
    AppendRows(page.text, measures.size(), report.statistics.parameters.threads,
               [&](std::string& text, std::size_t m) {
                   if (isOfTable(measures[m]))
                       AppendResidualRow(text, report, m);
               });
    page.Blank();
}

void PrintKind(Page& page, const Statistics& statistics, const char* name, const KindStatistics& kind,
               const std::string& rootMeanSquare, const std::string& largest) {
    const double share = statistics.isStandardised ? kind.redundancy : 0.0;
    const bool hasOwnM0 = share > 0.5;
    page.Line("  {:<20}{:>9} {:>15} {}{}{}{:>9}{:>9}{:>9}   {}", name, kind.number, rootMeanSquare,
              Fixed(std::sqrt(kind.standardisedSquares / std::max(kind.number, 1)), 8, 3),
              statistics.isStandardised ? Fixed(share, 12, 2) : fmt::format("{:>12}", "-"),
              hasOwnM0 ? Fixed(std::sqrt(kind.scaledSquares / share), 9, 3) : fmt::format("{:>9}", "-"),
              kind.flagged, statistics.isStandardised ? fmt::format("{}", kind.notChecked) : "-",
              statistics.isStandardised ? fmt::format("{}", kind.poorlyChecked) : "-", largest);
}

std::string LargestOf(const Report& report, int worst) {
    if (worst < 0)
        return "-";
    const Measure& measure = report.adjustment.structure.measures[At(worst)];
    return fmt::format("{} {} to {}, line {}", Fixed(report.statistics.standardised[At(worst)], 0, 2),
                       report.network.points[At(measure.from)].name,
                       report.network.points[At(measure.to)].name,
                       report.network.observations[At(measure.observation)].line);
}

// The measures with the largest |w|, the largest first; of equals the first in the file.
std::vector<std::size_t> WorstMeasures(const Statistics& statistics) {
    std::vector<std::size_t> order(statistics.standardised.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const std::size_t shown = std::min(kWorstShown, order.size());
    std::partial_sort(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(shown), order.end(),
                      [&](std::size_t a, std::size_t b) {
                          const double left = std::abs(statistics.standardised[a]);
                          const double right = std::abs(statistics.standardised[b]);
                          return left != right ? left > right : a < b;
                      });
    order.resize(shown);
    return order;
}

}  // namespace

void PrintResiduals(Page& page, const Report& report) {
    const Statistics& statistics = report.statistics;
    page.Heading("Residuals");
    page.Line(
        "  v is adjusted minus observed. Angles in gon and mgon, lengths in m and mm; rows in the order of "
        "the file.");
    if (statistics.isStandardised) {
        page.Line(
            "  r       redundancy number: the part of an error that shows in v; below {} an observation is "
            "not "
            "checked",
            kNotChecked);
        page.Line("  w       standardised residual, v / (sigma sqrt(r))");
        page.Line("  error   estimated error of the observation if it is the only one, -v / r");
        page.Line(
            "  nabla0  inner reliability: smallest error that the test finds, {:.2f} sigma / sqrt(r) "
            "[Baarda]",
            statistics.noncentrality);
        page.Line(
            "  outer   outer reliability: such an error moves any coordinate by at most this many of its "
            "a-priori");
        page.Line("          standard deviations, {:.2f} sqrt((1 - r) / r) [Baarda]",
                  statistics.noncentrality);
    } else {
        page.Line("  v/sigma is no standardised residual: this type computes no redundancy numbers.");
    }
    page.Line("  < marks what is above {:.2f} ({} risk, {}), << the largest of all.", statistics.critical,
              Percent(statistics.parameters.localRisk), TailsName(statistics.parameters.localTails));
    page.Blank();
    for (const Table& table : kTables)
        PrintTable(page, report, table);
}

void PrintErrorSummary(Page& page, const Report& report) {
    const Statistics& statistics = report.statistics;
    const char* w = statistics.isStandardised ? "w" : "v/sigma";
    page.Heading("Errors by kind");
    page.Line("  {:<20}{:>9} {:>15} {:>8}{:>12}{:>9}{:>9}{:>9}{:>9}   {}", "", "number", "rms v",
              fmt::format("rms {}", w), "sum of r", "m0", "flagged", "r<0.01", "r<0.1",
              fmt::format("largest {}", w));
    KindStatistics all;
    for (std::size_t i = 0; i < statistics.kinds.size(); ++i) {
        const KindStatistics& kind = statistics.kinds[i];
        if (kind.number == 0)
            continue;
        const auto name = static_cast<MeasureKind>(i);
        all.number += kind.number;
        all.scaledSquares += kind.scaledSquares;
        all.standardisedSquares += kind.standardisedSquares;
        all.redundancy += kind.redundancy;
        all.flagged += kind.flagged;
        all.notChecked += kind.notChecked;
        all.poorlyChecked += kind.poorlyChecked;
        PrintKind(
            page, statistics, KindName(name), kind,
            fmt::format("{} {:<4}", Fixed(std::sqrt(kind.squares / kind.number) * ResidualUnit(name), 0, 3),
                        ResidualUnitName(name)),
            LargestOf(report, kind.worst));
    }
    PrintKind(page, statistics, "all", all, "", LargestOf(report, statistics.worst));
    page.Line(
        "  m0 of a kind: sqrt(sum of (v/sigma)^2 / sum of r); far from that of all, its standard errors are "
        "to "
        "blame.");
}

void PrintWorst(Page& page, const Report& report) {
    const Statistics& statistics = report.statistics;
    page.Heading("Worst residuals");
    page.Line("  {:>9}{:>12}      {:>12}       {:<20} {:<{}} {:<{}}{:>8}",
              statistics.isStandardised ? "w" : "v/sigma", "v", "error", "observation", "from",
              report.nameWidth, "to", report.nameWidth, "line");
    for (const std::size_t m : WorstMeasures(statistics)) {
        const Measure& measure = report.adjustment.structure.measures[m];
        const double unit = ResidualUnit(measure.kind);
        page.Line("  {}{} {:<4} {} {:<4}   {:<20} {:<{}} {:<{}}{:>8}",
                  Fixed(statistics.standardised[m], 9, 2), Fixed(report.adjustment.residual[m] * unit, 12, 3),
                  ResidualUnitName(measure.kind),
                  Fixed(SuspectedError(report.adjustment, statistics, m) * unit, 12, 2),
                  ResidualUnitName(measure.kind), KindName(measure.kind),
                  report.network.points[At(measure.from)].name, report.nameWidth,
                  report.network.points[At(measure.to)].name, report.nameWidth,
                  report.network.observations[At(measure.observation)].line);
    }
}

}  // namespace Krenn
