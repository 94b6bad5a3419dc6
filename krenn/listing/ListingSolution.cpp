// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>

#include "krenn/adjust/Distributions.h"
#include "krenn/listing/ListingParts.h"

namespace Krenn {
namespace {

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

void PrintBounds(Page& page, const Statistics& statistics, Tails tails) {
    const double risk = statistics.parameters.globalRisk;
    const double r = statistics.redundancy;
    const bool isTwo = tails == Tails::Two;
    const double lowest = isTwo ? std::sqrt(ChiSquareQuantile(risk / 2, r) / r) : 0.0;
    const double highest = std::sqrt(ChiSquareQuantile(1 - (isTwo ? risk / 2 : risk), r) / r);
    const double probability =
        isTwo ? std::min(1.0, 2 * std::min(statistics.exceedance, 1 - statistics.exceedance))
              : statistics.exceedance;
    const bool passes = statistics.m0 >= lowest && statistics.m0 <= highest;
    page.Line("    {:<11} m0 from {} to {}   significance of m0 {:<12}{}{}", TailsName(tails),
              Fixed(lowest, 7, 4), Fixed(highest, 8, 4), Probability(probability),
              passes ? "passes" : "fails",
              tails == statistics.parameters.globalTails ? "; this one decides" : "");
}

void PrintGlobalTest(Page& page, const Report& report) {
    const Statistics& statistics = report.statistics;
    page.Line("  redundancy            {}", statistics.redundancy);
    page.Line("  sum of (v/sigma)^2    {:.6g}", report.adjustment.sumOfSquares);
    if (!statistics.hasM0) {
        page.Line("  m0 a posteriori       not determined (redundancy 0); there is no global test");
        return;
    }
    page.Line("  m0 a posteriori       {:.4f}", statistics.m0);
    if (report.adjustment.type == Type::L1Norm) {
        page.Line("  global test           not made; the L1 norm is no least-squares solution");
        return;
    }
    page.Line("  global test of m0     {}", statistics.passes                    ? "passed"
                                            : statistics.m0 > statistics.highest ? "FAILED: m0 is too large"
                                                                                 : "FAILED: m0 is too small");
    page.Line("    bounds of sqrt(chi-square / redundancy) with {} risk:",
              Percent(statistics.parameters.globalRisk));
    PrintBounds(page, statistics, Tails::One);
    PrintBounds(page, statistics, Tails::Two);
}

void PrintLocalTest(Page& page, const Report& report) {
    const Statistics& statistics = report.statistics;
    const double risk = statistics.parameters.localRisk;
    const Tails decides = statistics.parameters.localTails;
    page.Line("  test of observations  {} a priori, {} risk{}",
              statistics.isStandardised ? "w = v / (sigma sqrt(r))" : "v/sigma", Percent(risk),
              statistics.isStandardised ? "" : "; this type computes no redundancy numbers");
    for (const Tails tails : {Tails::One, Tails::Two})
        page.Line("    {:<11} critical value {:.2f}{}", TailsName(tails),
                  NormalQuantile(1 - (tails == Tails::Two ? risk / 2 : risk)),
                  tails == decides ? "   this one decides" : "");
    page.Line("    flagged     {}", statistics.flagged);
    if (statistics.worst >= 0) {
        const double w = std::abs(statistics.standardised[At(statistics.worst)]);
        page.Line("    largest     {:.2f}, significance {} one-tailed, {} two-tailed: {}", w,
                  Probability(NormalExceedance(w)), Probability(2 * NormalExceedance(w)),
                  Describe(report.network, report.adjustment.structure.measures[At(statistics.worst)]));
    }
    if (report.judgement.hasSuspect) {
        const auto& suspects = report.adjustment.snooping.suspects;
        const std::size_t worst = At(suspects.empty() ? statistics.worst : suspects.front().measure);
        const Measure& measure = report.adjustment.structure.measures[worst];
        const double error =
            suspects.empty() ? SuspectedError(report.adjustment, statistics, worst) : suspects.front().size;
        page.Line("  largest suspected gross error: {}", Describe(report.network, measure));
        page.Line("    estimated error of the observation: {} {}",
                  Fixed(error * ResidualUnit(measure.kind), 1, 2), ResidualUnitName(measure.kind));
    }
}

}  // namespace

void PrintSolution(Page& page, const Report& report) {
    const Statistics& statistics = report.statistics;
    page.Heading("Solution");
    PrintGlobalTest(page, report);
    if (report.adjustment.hasCofactors) {
        page.Line("  standard deviations   {}", !statistics.hasM0 ? "a priori, as m0 is not determined"
                                                : statistics.parameters.posteriori
                                                    ? "a posteriori, scaled with m0"
                                                    : "a priori, not scaled with m0");
        page.Line("  {:<22}standard ellipses times {:.3f}, single deviations times {:.3f}",
                  "for " + Percent(statistics.parameters.confidence), statistics.wideFactor,
                  statistics.wideHeightFactor);
        page.Line("  reliability           delta0 {:.2f}, for errors found with a power of {}",
                  statistics.noncentrality, Percent(statistics.parameters.power));
    } else {
        page.Line("  standard deviations   not computed by this type");
    }
    PrintLocalTest(page, report);
}

}  // namespace Krenn
