// SPDX-License-Identifier: GPL-3.0-or-later
#include <array>

#include "krenn/Scan.h"
#include "krenn/Version.h"
#include "krenn/listing/ListingParts.h"

namespace Krenn {
namespace {

constexpr std::size_t kIterationsShown = 60;
constexpr std::size_t kNamesShown = 12;
constexpr std::size_t kPartsShown = 40;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

std::string TypeName(int type) {
    switch (type) {
        case 0: return "0, sparse factorisation without inversion";
        case 1: return "1, sparse factorisation with inversion";
        case 7: return "7, Jordan elimination with full inversion";
        case -1: return "-1, L1 norm";
        default: return fmt::format("{} (not known)", type);
    }
}

struct KindOfInput {
    int number = 0;
    double sum = 0;
    double least = 0;
    double most = 0;
};

void PrintKinds(Page& page, const Report& report) {
    std::array<KindOfInput, 5> kinds{};
    for (const Measure& measure : report.adjustment.structure.measures) {
        KindOfInput& kind = kinds[static_cast<std::size_t>(measure.kind)];
        kind.least = kind.number == 0 ? measure.sigma : std::min(kind.least, measure.sigma);
        kind.most = std::max(kind.most, measure.sigma);
        kind.sum += measure.sigma;
        ++kind.number;
    }
    page.Blank();
    page.Line("  {:<24} {:>9}   {:>32}", "Observations", "number",
              "standard error: mean     least      most");
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const auto name = static_cast<MeasureKind>(i);
        const KindOfInput& kind = kinds[i];
        const double unit = ResidualUnit(name);
        if (kind.number > 0)
            page.Line("    {:<22} {:>9}   {:>20}{}{} {}", KindName(name), kind.number,
                      Fixed(kind.sum / kind.number * unit, 0, 3), Fixed(kind.least * unit, 10, 3),
                      Fixed(kind.most * unit, 10, 3), ResidualUnitName(name));
    }
    page.Line("    {:<22} {:>9}", "all", report.adjustment.structure.measures.size());
}

std::vector<std::vector<int>> PointsOfParts(const Adjustment& adjustment) {
    std::vector<std::vector<int>> points(adjustment.datum.parts.size());
    for (std::size_t p = 0; p < adjustment.structure.roles.size(); ++p) {
        if (const int part = adjustment.structure.roles[p].part; part >= 0)
            points[At(part)].push_back(static_cast<int>(p));
    }
    return points;
}

void PrintPart(Page& page, const PartDatum& part, const std::string& where) {
    if (part.defect == 0) {
        page.Line("  {}the datum is set by the fixed points.", where);
        return;
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

}  // namespace

void PrintRun(Page& page, const RunHeader& run) {
    page.Line(" KRENN {}, least-squares adjustment of terrestrial networks", kVersion);
    page.Blank();
    page.Line("  Input       {}", run.inputPath);
    if (!run.parameterFile.empty())
        page.Line("  Parameters  {}", Printable(run.parameterFile, 600));
    page.Line("  Type        {}", TypeName(run.type));
    page.Line("  Run         {}", run.when);
    const char* title = "Options";
    for (const std::string& option : run.options) {
        page.Line("  {:<11} {}", title, Printable(option));
        title = "";
    }
    if (run.options.empty() && !run.parameterFile.empty())
        page.Line("  Options     all at their defaults");
}

void PrintInput(Page& page, const Report& report) {
    const Network& network = report.network;
    page.Heading("Input");
    if (!network.project.empty())
        page.Line("  Project   {}", Printable(network.project));
    if (!network.task.empty())
        page.Line("  Task      {}", Printable(network.task));
    if (!network.date.empty())
        page.Line("  Made      {}", Printable(network.date));
    const auto& roles = report.adjustment.structure.roles;
    const auto count = [&](auto test) {
        int sum = 0;
        for (std::size_t i = 0; i < roles.size(); ++i)
            sum += roles[i].part >= 0 && test(roles[i], network.points[i]) ? 1 : 0;
        return sum;
    };
    const Dimension dimension = report.adjustment.structure.dimension;
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
    PrintKinds(page, report);
    if (network.zenithsNotObserved > 0)
        page.Line("    zenith angles of 0.00000, taken as not observed: {}", network.zenithsNotObserved);
    if (network.distancesNotObserved > 0)
        page.Line("    distances of 0.00000, taken as not observed: {}", network.distancesNotObserved);
    if (network.trackerDistances > 0)
        page.Line("    distances with the tracker mark: {}{}", network.trackerDistances,
                  report.adjustment.parameters.tracker == TrackerModel::Levelled
                      ? "; the instruments are taken as levelled"
                      : "; their instruments have three rotations");
}

void PrintDatum(Page& page, const Report& report) {
    const Adjustment& adjustment = report.adjustment;
    page.Heading("Datum and start positions");
    page.Line("  Unknowns    {:8}", adjustment.unknowns.Count());
    page.Line("  Defect      {:8}", adjustment.datum.Defect());
    page.Line("  Redundancy  {:8}   observations - unknowns + defect", adjustment.Redundancy());
    const auto& parts = adjustment.datum.parts;
    if (parts.size() > 1)
        page.Line("  The network falls into {} parts without connection; each has its own datum.",
                  parts.size());
    const std::vector<std::vector<int>> points = PointsOfParts(adjustment);
    for (std::size_t i = 0; i < std::min(parts.size(), kPartsShown); ++i) {
        if (parts.size() > 1)
            page.Paragraph("  ", fmt::format("Part {} has {} points: {}", i + 1, points[i].size(),
                                             NameList(report.network, points[i], kNamesShown)));
        PrintPart(page, parts[i], parts.size() > 1 ? fmt::format("Part {}: ", i + 1) : "");
    }
    if (parts.size() > kPartsShown)
        page.Line("  ({} more parts)", parts.size() - kPartsShown);
    if (!adjustment.computedStarts.empty())
        page.Paragraph("  ", fmt::format("Start positions computed from the observations: {} ({}).",
                                         adjustment.computedStarts.size(),
                                         NameList(report.network, adjustment.computedStarts, kNamesShown)));
    for (const auto* notes : {&report.network.notes, &adjustment.notes}) {
        for (const std::string& note : *notes)
            page.Paragraph("  ", "Note: " + note, 6);
    }
}

void PrintIterations(Page& page, const Report& report) {
    const Adjustment& adjustment = report.adjustment;
    page.Heading("Iterations");
    page.Line("   no   largest correction   of                            part taken   {}",
              adjustment.type == Type::L1Norm ? "sum of |v/sigma|" : "sum of (v/sigma)^2");
    const std::size_t count = adjustment.iterations.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (count > kIterationsShown && i == kIterationsShown / 2) {
            page.Line("        ({} more)", count - kIterationsShown);
            i += count - kIterationsShown;
        }
        const Iteration& iteration = adjustment.iterations[i];
        std::string whose = "-";
        if (iteration.unknown >= 0)
            whose = UnknownInWords(report.network, adjustment.structure,
                                   adjustment.unknowns.of[At(iteration.unknown)]);
        page.Line("  {:3}   {} m   {:<28}   {}   {}", i + 1, Significant(iteration.largest, 16), whose,
                  Fixed(iteration.step, 10, 4), fmt::format("{:.8g}", iteration.target));
    }
}

}  // namespace Krenn
