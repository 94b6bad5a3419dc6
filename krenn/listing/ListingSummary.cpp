// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/listing/ListingParts.h"

namespace Krenn {
namespace {

constexpr int kInside = 100;  // characters between the walls of the box
constexpr std::size_t kLabel = 14;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

void Wall(Page& page) {
    page.Line(" +{}+", std::string(kInside + 2, '-'));
}

// A label and a sentence beside it, wrapped inside the box.
void Entry(Page& page, std::string_view label, std::string_view sentence) {
    for (const std::string& line : SentenceLines(sentence, kInside - kLabel)) {
        page.Line(" | {:<{}}{:<{}} |", label, kLabel, line, kInside - kLabel);
        label = "";
    }
}

const char* ResultOf(const Report& report) {
    if (report.adjustment.type == Type::L1Norm)
        return report.judgement.hasSuspect ? "GROSS ERRORS SUSPECTED" : "NO GROSS ERROR STANDS OUT";
    switch (report.judgement.level) {
        case Judgement::Level::Good: return "GOOD";
        case Judgement::Level::Remarks: return "GOOD, WITH REMARKS";
        case Judgement::Level::Doubtful: return "DOUBTFUL";
        default: return "NOT CHECKED";
    }
}

std::string M0Of(const Report& report) {
    const Statistics& statistics = report.statistics;
    if (!statistics.hasM0)
        return "not determined";
    if (report.adjustment.type == Type::L1Norm)
        return fmt::format("{:.4f}; not tested, as the L1 norm is no least-squares solution", statistics.m0);
    const std::string bounds = statistics.parameters.globalTails == Tails::Two
                                   ? fmt::format("{:.4f} to {:.4f}", statistics.lowest, statistics.highest)
                                   : fmt::format("up to {:.4f}", statistics.highest);
    return fmt::format("{:.4f}; the test {}: allowed {} (risk {}, {})", statistics.m0,
                       statistics.passes ? "passes" : "FAILS", bounds,
                       Percent(statistics.parameters.globalRisk),
                       TailsName(statistics.parameters.globalTails));
}

std::string WorstOf(const Report& report) {
    const Statistics& statistics = report.statistics;
    if (statistics.worst < 0)
        return "no residual differs from 0";
    const Measure& measure = report.adjustment.structure.measures[At(statistics.worst)];
    return fmt::format("{}: {} = {} (critical {:.2f}), error {} {}", Describe(report.network, measure),
                       statistics.isStandardised ? "w" : "v/sigma",
                       Fixed(statistics.standardised[At(statistics.worst)], 0, 2), statistics.critical,
                       Fixed(SuspectedError(report.adjustment, statistics, At(statistics.worst)) *
                                 ResidualUnit(measure.kind),
                             0, 2),
                       ResidualUnitName(measure.kind));
}

void PrintPositions(Page& page, const Report& report) {
    const Judgement& judgement = report.judgement;
    const auto entry = [&](const char* label, const char* what, double median, int largest, double most) {
        if (largest >= 0)
            Entry(page, label,
                  fmt::format("{}: median {} mm, largest {} mm at {}", what, Fixed(median * 1000, 0, 3),
                              Fixed(most * 1000, 0, 3), report.network.points[At(largest)].name));
    };
    const auto& statistics = report.statistics;
    entry("plan", "long half axis of the standard ellipse", judgement.medianMajor, judgement.largestMajor,
          judgement.largestMajor >= 0 ? statistics.ellipse[At(judgement.largestMajor)].major : 0);
    entry("heights", "standard deviation", judgement.medianHeight, judgement.largestHeight,
          judgement.largestHeight >= 0 ? statistics.deviation[At(judgement.largestHeight)][2] : 0);
}

std::string CheckedOf(const Report& report) {
    int poorly = 0;
    for (const KindStatistics& kind : report.statistics.kinds)
        poorly += kind.poorlyChecked;
    return fmt::format("observations: {} by no other (r below {}), {} poorly (r below {}); points: {}",
                       report.statistics.notChecked, kNotChecked, poorly, kPoorlyChecked,
                       report.statistics.redundancy > 0
                           ? fmt::format("{}", report.judgement.uncheckedPoints.size())
                           : "all");
}

}  // namespace

void PrintSummary(Page& page, const Report& report) {
    const Adjustment& adjustment = report.adjustment;
    page.Heading("Summary");
    Wall(page);
    Entry(page, "RESULT", ResultOf(report));
    Entry(page, "", " ");
    Entry(page, "m0", M0Of(report));
    Entry(page, "redundancy",
          fmt::format("{} = {} observations - {} unknowns + defect {}", adjustment.Redundancy(),
                      adjustment.structure.measures.size(), adjustment.unknowns.Count(),
                      adjustment.datum.Defect()));
    if (!adjustment.iterations.empty())
        Entry(page, "iterations",
              fmt::format("{}, the last correction is at most {} m", adjustment.iterations.size(),
                          Significant(adjustment.iterations.back().largest, 0)));
    Entry(page, "worst", WorstOf(report));
    Entry(page, "flagged",
          fmt::format("observations above the critical value: {}", report.statistics.flagged));
    if (report.statistics.isStandardised)
        Entry(page, "not checked", CheckedOf(report));
    if (adjustment.hasCofactors)
        PrintPositions(page, report);
    for (const auto& [label, sentences] :
         {std::pair{"DOUBT", &report.judgement.doubts}, {"remark", &report.judgement.remarks}}) {
        for (const std::string& sentence : *sentences) {
            Entry(page, "", " ");
            Entry(page, label, sentence);
        }
    }
    Wall(page);
}

}  // namespace Krenn
