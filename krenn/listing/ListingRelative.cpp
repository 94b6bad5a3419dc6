// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include "krenn/listing/ListingParts.h"

namespace Krenn {
namespace {

constexpr std::size_t kCorrelationsShown = 20;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

}  // namespace

void PrintRelative(Page& page, const Report& report) {
    const Statistics& statistics = report.statistics;
    if (statistics.relative.empty())
        return;
    const int width = report.nameWidth;
    const bool isHeights = report.adjustment.structure.dimension == Dimension::Heights;
    const std::string level = Percent(statistics.parameters.confidence);
    page.Heading(isHeights ? "Relative heights" : "Relative error ellipses");
    page.Line(
        "  actual: {} for {}; allowed: {} mm + {} ppm of the distance. ! marks ratios above 1. In the order "
        "of "
        "the file.",
        isHeights ? "deviation of the height difference" : "half axis a", level,
        Fixed(statistics.parameters.allowedConstant * 1000, 0, 2),
        Fixed(statistics.parameters.allowedPerLength * 1e6, 0, 2));
    page.Line("  {:<{}} {:<{}}{:>15}{}{:>11}{:>12}{:>12}{:>9}", "From", width, "To", width, "distance m",
              isHeights ? "" : "       a mm       b mm  bearing", "sdZ mm", "actual mm", "allowed mm",
              "ratio");
    for (std::size_t i = 0; i < statistics.relative.size(); ++i) {
        const RelativeEllipse& relative = statistics.relative[i];
        if (!relative.isKnown)
            continue;
        const double ratio = relative.allowed > 0 ? relative.actual / relative.allowed : 0;
        const std::string ellipse = isHeights ? ""
                                              : Fixed(relative.ellipse.major * 1000, 11, 3) +
                                                    Fixed(relative.ellipse.minor * 1000, 11, 3) +
                                                    Fixed(relative.ellipse.bearing, 9, 2);
        page.Line("  {:<{}} {:<{}}{}{}{}{}{}{}{}",
                  report.network.points[At(report.network.relativePairs[i].first)].name, width,
                  report.network.points[At(report.network.relativePairs[i].second)].name, width,
                  Fixed(relative.distance, 15, 5), ellipse, Fixed(relative.height * 1000, 11, 3),
                  Fixed(relative.actual * 1000, 12, 3), Fixed(relative.allowed * 1000, 12, 3),
                  relative.allowed > 0 ? Fixed(ratio, 9, 2) : fmt::format("{:>9}", "-"),
                  relative.actual > relative.allowed ? "  !" : "");
    }
}

void PrintCorrelations(Page& page, const Report& report) {
    const auto& correlations = report.judgement.correlations;
    if (correlations.empty())
        return;
    page.Heading("Correlations");
    page.Line(
        "  Unknowns that the observations hardly tell apart: correlated by more than {:.3g}, and of a point "
        "held "
        "worse",
        report.statistics.parameters.correlationWarning);
    page.Line("  than most, or of the whole network. The strongest first.");
    for (std::size_t i = 0; i < std::min(correlations.size(), kCorrelationsShown); ++i) {
        const auto words = [&](int unknown) {
            return UnknownInWords(report.network, report.adjustment.structure,
                                  report.adjustment.unknowns.of[At(unknown)]);
        };
        page.Line("  {}   {} and {}", Fixed(correlations[i].coefficient, 9, 5), words(correlations[i].first),
                  words(correlations[i].second));
    }
    if (correlations.size() > kCorrelationsShown)
        page.Line("  ({} more)", correlations.size() - kCorrelationsShown);
}

}  // namespace Krenn
