// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Listing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <numeric>

#include "krenn/Scan.h"
#include "krenn/Version.h"

namespace Krenn {
namespace {

constexpr std::size_t kIterationsShown = 60;
constexpr std::size_t kWorstShown = 10;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

const char* TypeName(int type) {
    switch (type) {
        case 0: return "0, sparse factorisation without inversion";
        case 1: return "1, sparse factorisation with inversion";
        case 7: return "7, Jordan elimination with full inversion";
        case -1: return "-1, L1 norm";
        default: return "unknown";
    }
}

const char* KindName(MeasureKind kind) {
    switch (kind) {
        case MeasureKind::Direction: return "direction";
        case MeasureKind::ZenithAngle: return "zenith angle";
        case MeasureKind::SlopeDistance: return "slope distance";
        case MeasureKind::HorizontalDistance: return "horizontal distance";
        default: return "height difference";
    }
}

void PrintRun(Page& page, const RunHeader& run) {
    page.Line(" KRENN {}, least-squares adjustment of terrestrial networks", kVersion);
    page.Blank();
    page.Line("  Input     {}", run.inputPath);
    page.Line("  Type      {}", run.type == 0 || run.type == 1 || run.type == 7 || run.type == -1
                                    ? TypeName(run.type)
                                    : fmt::format("{} (not known)", run.type));
    page.Line("  Run       {}", run.when);
}

void PrintInput(Page& page, const Network& network, const Adjustment& adjustment) {
    page.Heading("Input");
    if (!network.project.empty())
        page.Line("  Project   {}", Printable(network.project));
    if (!network.task.empty())
        page.Line("  Task      {}", Printable(network.task));
    if (!network.date.empty())
        page.Line("  Made      {}", Printable(network.date));
    const auto& roles = adjustment.structure.roles;
    const auto count = [&](auto test) {
        int sum = 0;
        for (std::size_t i = 0; i < roles.size(); ++i)
            sum += roles[i].part >= 0 && test(roles[i], network.points[i]) ? 1 : 0;
        return sum;
    };
    const Dimension dimension = adjustment.structure.dimension;
    page.Line("  Network   {}", dimension == Dimension::Heights ? "heights only"
                                : dimension == Dimension::Plan  ? "plan; distances are horizontal"
                                                                : "three dimensions");
    const bool hasStations = dimension != Dimension::Heights;
    page.Line("  Stations  {:7}",
              hasStations ? count([](const auto& r, const auto&) { return r.isStation; }) : 0);
    page.Line("  Points    {:7}",
              count([&](const auto& r, const auto&) { return !hasStations || !r.isStation; }));
    page.Line("  Given     {:7}   with coordinates in the file",
              count([](const auto&, const auto& p) { return p.hasGiven; }));
    page.Line("  Fixed     {:7}", count([](const auto&, const auto& p) { return p.isFixed; }));
    page.Blank();
    page.Line("  Observations                 number   mean standard error");
    std::array<int, 5> number{};
    std::array<double, 5> sum{};
    for (const Measure& measure : adjustment.structure.measures) {
        ++number[static_cast<std::size_t>(measure.kind)];
        sum[static_cast<std::size_t>(measure.kind)] += measure.sigma;
    }
    for (std::size_t kind = 0; kind < number.size(); ++kind) {
        const auto name = static_cast<MeasureKind>(kind);
        if (number[kind] > 0)
            page.Line("    {:<24} {:8}   {} {}", KindName(name), number[kind],
                      Fixed(sum[kind] / number[kind] * ResidualUnit(name), 10, 3), ResidualUnitName(name));
    }
    page.Line("    {:<24} {:8}", "all", adjustment.structure.measures.size());
    if (network.zenithsNotObserved > 0)
        page.Line("    zenith angles of 0.00000, taken as not observed: {}", network.zenithsNotObserved);
    if (network.distancesNotObserved > 0)
        page.Line("    distances of 0.00000, taken as not observed: {}", network.distancesNotObserved);
    if (network.trackerDistances > 0)
        page.Line("    distances with the tracker mark: {}; the instruments are taken as levelled",
                  network.trackerDistances);
}

void PrintDatum(Page& page, const Network& network, const Adjustment& adjustment) {
    page.Heading("Datum and start positions");
    page.Line("  Unknowns    {:8}", adjustment.unknowns.Count());
    page.Line("  Defect      {:8}", adjustment.datum.Defect());
    page.Line("  Redundancy  {:8}   observations - unknowns + defect", adjustment.Redundancy());
    const auto& parts = adjustment.datum.parts;
    if (parts.size() > 1)
        page.Line("  The network falls into {} parts without connection; each has its own datum.",
                  parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const PartDatum& part = parts[i];
        std::string where = parts.size() > 1 ? fmt::format("Part {}: ", i + 1) : std::string();
        if (parts.size() > 1) {
            std::vector<int> points;
            for (std::size_t p = 0; p < network.points.size(); ++p) {
                if (adjustment.structure.roles[p].part == static_cast<int>(i))
                    points.push_back(static_cast<int>(p));
            }
            page.Paragraph("  ", fmt::format("Part {} has {} points: {}", i + 1, points.size(),
                                             NameList(network, points, 12)));
        }
        if (part.defect == 0) {
            page.Line("  {}the datum is set by the fixed points.", where);
            continue;
        }
        std::string movements;
        for (const std::string& movement : part.movements)
            movements += (movements.empty() ? "" : ", ") + movement;
        page.Paragraph("  ", fmt::format("{}defect {} ({}).", where, part.defect, movements));
        page.Paragraph(
            "  ", fmt::format("{}inner constraints over {} points {}.{}", where, part.datumPoints,
                              part.overGiven ? "with given coordinates" : "(all; none has given coordinates)",
                              part.alsoOverAll ? " What they leave open is set over all points." : ""));
    }
    if (!adjustment.computedStarts.empty())
        page.Paragraph("  ", fmt::format("Start positions computed from the observations: {} points ({}).",
                                         adjustment.computedStarts.size(),
                                         NameList(network, adjustment.computedStarts, 12)));
    for (const auto* notes : {&network.notes, &adjustment.notes}) {
        for (const std::string& note : *notes)
            page.Paragraph("  ", "Note: " + note);
    }
}

void PrintIterations(Page& page, const Network& network, const Adjustment& adjustment) {
    page.Heading("Iterations");
    page.Line("   no   largest correction m   of                          step   {}",
              adjustment.type == Type::L1Norm ? "sum of |v/sigma|" : "sum of (v/sigma)^2");
    const std::size_t count = adjustment.iterations.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (count > kIterationsShown && i == kIterationsShown / 2) {
            page.Line("        ({} more)", count - kIterationsShown);
            i += count - kIterationsShown;
        }
        const Iteration& iteration = adjustment.iterations[i];
        std::string whose = "-";
        if (iteration.unknown >= 0) {
            whose =
                UnknownInWords(network, adjustment.structure, adjustment.unknowns.of[At(iteration.unknown)]);
        }
        page.Line("  {:3}   {:>20.10f}   {:<24} {:>7.4f}   {:.6g}", i + 1, iteration.largest, whose,
                  iteration.step, iteration.target);
    }
}

void PrintSolution(Page& page, const Network& network, const Adjustment& adjustment,
                   const Statistics& statistics) {
    page.Heading("Solution");
    page.Line("  sum of (v/sigma)^2  {:.6g}", adjustment.sumOfSquares);
    page.Line("  redundancy          {}", statistics.redundancy);
    if (!statistics.hasM0) {
        page.Line("  m0 a posteriori     not determined (redundancy 0); standard deviations are a priori");
    } else {
        page.Line("  m0 a posteriori     {:.4f}", statistics.m0);
        page.Line("  95% bounds of m0    {:.4f} to {:.4f}   (chi-square, two-tailed)", statistics.lowest,
                  statistics.highest);
        const char* verdict = statistics.passes ? "passed"
                              : statistics.m0 > statistics.highest
                                  ? "failed: weights too high, or gross errors"
                                  : "failed: weights too low";
        page.Line("  global test         {}", adjustment.type == Type::L1Norm
                                                  ? "not made; the L1 norm is no least-squares solution"
                                                  : verdict);
        page.Line("  standard deviations are {}",
                  adjustment.hasCofactors ? "a posteriori, scaled with m0" : "not computed by this type");
    }
    page.Line("  largest |w| allowed {:.2f}   (two-tailed, {}%){}", statistics.critical, statistics.parameters.localRisk * 100,
              statistics.isStandardised ? "" : "; w is v/sigma, as this type computes no redundancy numbers");
    const auto& w = statistics.standardised;
    const auto flagged = std::count_if(w.begin(), w.end(),
                                       [&](double value) { return std::abs(value) > statistics.critical; });
    page.Line("  observations above  {}", flagged);
    if (flagged > 0) {
        const Measure& measure = adjustment.structure.measures[At(statistics.worst)];
        page.Line("  largest suspected gross error: {}, w = {:.2f}", Describe(network, measure),
                  w[At(statistics.worst)]);
        const double size = statistics.isStandardised ? statistics.suspected[At(statistics.worst)]
                                                      : -adjustment.residual[At(statistics.worst)];
        page.Line("    estimated error of the observation: {} {}",
                  Fixed(size * ResidualUnit(measure.kind), 1, 2), ResidualUnitName(measure.kind));
    }
}

void PrintWorst(Page& page, const Network& network, const Adjustment& adjustment,
                const Statistics& statistics) {
    std::vector<std::size_t> order(statistics.standardised.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const std::size_t shown = std::min(kWorstShown, order.size());
    std::partial_sort(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(shown), order.end(),
                      [&](std::size_t a, std::size_t b) {
                          return std::abs(statistics.standardised[a]) > std::abs(statistics.standardised[b]);
                      });
    page.Heading("Worst residuals");
    for (std::size_t i = 0; i < shown; ++i) {
        const Measure& measure = adjustment.structure.measures[order[i]];
        page.Line("  {:>8.2f}   {} {}   {}", statistics.standardised[order[i]],
                  Fixed(adjustment.residual[order[i]] * ResidualUnit(measure.kind), 10, 3),
                  ResidualUnitName(measure.kind), Describe(network, measure));
    }
    page.Line("  w, residual, observation with its input line");
}

void PrintSummary(Page& page, const Adjustment& adjustment, const Statistics& statistics) {
    page.Heading("Summary");
    page.Line("  observations {}, unknowns {}, redundancy {}, iterations {}",
              adjustment.structure.measures.size(), adjustment.unknowns.Count(), statistics.redundancy,
              adjustment.iterations.size());
    for (int kind = 0; kind < 5; ++kind) {
        int count = 0;
        double squares = 0;
        double standardised = 0;
        const auto wanted = static_cast<MeasureKind>(kind);
        for (std::size_t m = 0; m < adjustment.residual.size(); ++m) {
            if (adjustment.structure.measures[m].kind != wanted)
                continue;
            ++count;
            squares += adjustment.residual[m] * adjustment.residual[m];
            const double u = adjustment.residual[m] / adjustment.structure.measures[m].sigma;
            standardised += u * u;
        }
        if (count > 0)
            page.Line("  {:<20} {:8}   root mean square of v {} {}, of v/sigma {}", KindName(wanted), count,
                      Fixed(std::sqrt(squares / count) * ResidualUnit(wanted), 9, 3),
                      ResidualUnitName(wanted), Fixed(std::sqrt(standardised / count), 7, 3));
    }
    if (statistics.hasM0)
        page.Line("  m0 {:.4f}", statistics.m0);
    else
        page.Line("  m0 not determined");
}

}  // namespace

int NameWidth(const Network& network) {
    std::size_t longest = 9;
    for (const Point& point : network.points)
        longest = std::max(longest, std::min<std::size_t>(point.name.size(), 24));
    return static_cast<int>(longest) + 1;
}

bool IsAngle(MeasureKind kind) {
    return kind == MeasureKind::Direction || kind == MeasureKind::ZenithAngle;
}

double ResidualUnit(MeasureKind kind) {
    return IsAngle(kind) ? 200 / std::numbers::pi * 1000 : 1000;
}

const char* ResidualUnitName(MeasureKind kind) {
    return IsAngle(kind) ? "mgon" : "mm";
}

std::string Describe(const Network& network, const Measure& measure) {
    return fmt::format("{} {} to {}, line {}", KindName(measure.kind), network.points[At(measure.from)].name,
                       network.points[At(measure.to)].name,
                       network.observations[At(measure.observation)].line);
}

std::string GoodListing(const RunHeader& run, const Network& network, const Adjustment& adjustment,
                        const Statistics& statistics) {
    Page page;
    PrintRun(page, run);
    PrintInput(page, network, adjustment);
    PrintDatum(page, network, adjustment);
    PrintIterations(page, network, adjustment);
    PrintSolution(page, network, adjustment, statistics);
    PrintWorst(page, network, adjustment, statistics);
    PrintSummary(page, adjustment, statistics);
    page.Blank();
    PrintResults(page, network, adjustment);
    PrintResiduals(page, network, adjustment, statistics);
    PrintRelative(page, network, adjustment, statistics);
    PrintDeviations(page, network, adjustment, statistics);
    return std::move(page.text);
}

std::string FailureListing(const RunHeader& run, const Failure& failure) {
    const ErrorMeaning& meaning = MeaningOf(failure.number);
    Page page;
    page.Line(" RUN FAILED");
    page.Blank();
    page.Line("  Error {}: {}", static_cast<int>(failure.number), meaning.title);
    page.Blank();
    page.Paragraph("  ", failure.what());
    for (const std::string& detail : failure.details)
        page.Paragraph("    ", detail);
    page.Blank();
    page.Paragraph("  ", std::string("What to do: ") + meaning.advice);
    page.Blank();
    page.Line("  There are no results of this run.");
    page.Blank();
    PrintRun(page, run);
    return std::move(page.text);
}

}  // namespace Krenn
