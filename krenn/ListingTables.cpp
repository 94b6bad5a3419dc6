// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <numbers>

#include "krenn/Listing.h"

namespace Krenn {
namespace {

constexpr double kGonsPerRadian = 200 / std::numbers::pi;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

double CoordinateOf(const Adjustment& adjustment, std::size_t point, std::size_t axis) {
    return adjustment.state.at[point][axis] + adjustment.state.origin[axis];
}

// Stations and points are listed once each, in the order of the input file; points without any observation
// are not listed at all.
std::vector<std::size_t> ListedPoints(const Network& network, const Adjustment& adjustment, bool stations) {
    std::vector<std::size_t> listed;
    const bool hasStations = adjustment.structure.dimension != Dimension::Heights;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        const PointRole& role = adjustment.structure.roles[i];
        if (role.part >= 0 && (hasStations && role.isStation) == stations)
            listed.push_back(i);
    }
    return listed;
}

// Radians as gons from 0 to below 400.
double CircleGons(double radians) {
    double gons = std::remainder(radians * kGonsPerRadian, 400.0);
    if (gons < 0)
        gons += 400;
    return gons >= 399.9999995 ? 0.0 : gons;
}

// Those of the first set-up on the point; 0 without one.
std::array<double, 3> StationRotations(const Adjustment& adjustment, std::size_t point) {
    const Structure& structure = adjustment.structure;
    const int first = structure.setupStart[point];
    if (first == structure.setupStart[point + 1])
        return {};
    return RotationsOf(adjustment.state, structure.setups[At(first)], At(first));
}

// Only the height of a point is known: nothing observed its plan position and none was given.
bool HasHeightAlone(const Network& network, const Adjustment& adjustment, std::size_t point) {
    return adjustment.structure.dimension == Dimension::Heights ||
           (adjustment.structure.roles[point].planGroup < 0 && !network.points[point].hasGiven);
}

struct Table {
    Kind kind;
    const char* marker;  // what readers look for, from column 1
};

constexpr Table kTables[]{{Kind::Direction, "horizontal direction"},
                          {Kind::ZenithAngle, "vertical direction"},
                          {Kind::Distance, "distance residuals"},
                          {Kind::HeightDifference, "height differences"}};

void PrintResidualRow(Page& page, const Network& network, const Adjustment& adjustment,
                      const Statistics& statistics, std::size_t m, int width) {
    const Measure& measure = adjustment.structure.measures[m];
    const bool isAngle = IsAngle(measure.kind);
    const double v = adjustment.residual[m];
    const double unit = isAngle ? kGonsPerRadian : 1.0;
    const double observed = network.observations[At(measure.observation)].value;
    double adjusted = observed + v * unit;
    if (measure.kind == MeasureKind::Direction)
        adjusted = CircleGons(measure.value + v);
    const double factor = ResidualUnit(measure.kind);
    std::string check = "       -";
    std::string suspected = "         -";
    if (statistics.isStandardised) {
        check = Fixed(statistics.redundancyNumber[m], 8, 3);
        suspected = Fixed(statistics.suspected[m] * factor, 10, 2);
    }
    const bool isFlagged = std::abs(statistics.standardised[m]) > statistics.critical;
    page.Line("{:<{}} {:<{}} {} {} {} {} {} {} {} {:>6}{}", network.points[At(measure.from)].name, width,
              network.points[At(measure.to)].name, width, Fixed(observed, 14, 5), Fixed(adjusted, 14, 5),
              Fixed(v * factor, 10, 3), Fixed(measure.sigma * factor, 8, 3), check,
              Fixed(statistics.standardised[m], 8, 2), suspected,
              network.observations[At(measure.observation)].line,
              isFlagged ? (static_cast<int>(m) == statistics.worst ? "  <<" : "  <") : "");
}

}  // namespace

void PrintResults(Page& page, const Network& network, const Adjustment& adjustment) {
    const int width = NameWidth(network);
    const auto stations = ListedPoints(network, adjustment, true);
    const auto points = ListedPoints(network, adjustment, false);
    const bool isHeights = adjustment.structure.dimension == Dimension::Heights;
    page.Blank();
    page.Line("Final results (coordinates in meters, rotations in gons)");
    if (isHeights)
        page.Line("  {:<{}} {:>14}", "point", width - 2, "Z");
    else
        page.Line("  {:<{}} {:>16} {:>16} {:>16}", "point", width - 2, "X", "Y", "Z");
    for (const std::size_t point : stations) {
        page.Line("{}", network.points[point].name);
        const auto rotations = StationRotations(adjustment, point);
        page.Line("  Rotations gon {} {} {}", Fixed(rotations[0] * kGonsPerRadian, 14, 5),
                  Fixed(rotations[1] * kGonsPerRadian, 16, 5), Fixed(CircleGons(rotations[2]), 16, 5));
        page.Line("  Position m    {} {} {}", Fixed(CoordinateOf(adjustment, point, 0), 14, 6),
                  Fixed(CoordinateOf(adjustment, point, 1), 16, 6),
                  Fixed(CoordinateOf(adjustment, point, 2), 16, 6));
    }
    if (!stations.empty())
        page.Blank();
    for (const std::size_t point : points) {
        if (HasHeightAlone(network, adjustment, point))
            page.Line("{:<{}} {}", network.points[point].name, width,
                      Fixed(CoordinateOf(adjustment, point, 2), isHeights ? 14 : 50, 6));
        else
            page.Line("{:<{}} {} {} {}", network.points[point].name, width,
                      Fixed(CoordinateOf(adjustment, point, 0), 16, 6),
                      Fixed(CoordinateOf(adjustment, point, 1), 16, 6),
                      Fixed(CoordinateOf(adjustment, point, 2), 16, 6));
    }
    // Readers know by characters 6 to 19 that no list of points follows.
    if (points.empty())
        page.Line("     the one-tailed list of points is empty: every point is a station");
    page.Blank();
}

void PrintResiduals(Page& page, const Network& network, const Adjustment& adjustment,
                    const Statistics& statistics) {
    const int width = NameWidth(network);
    page.Heading("Residuals, adjusted minus observed");
    page.Line("  Angles in gons and milligons, lengths in meters and millimeters. w is {}.",
              statistics.isStandardised ? "v / (sigma sqrt(r)), r the redundancy number" : "v / sigma");
    page.Line(
        "  error: estimated error of the observation, -v / r. < marks |w| above {:.2f}, << the largest.",
        statistics.critical);
    page.Blank();
    for (const Table& table : kTables) {
        bool isOpen = false;
        for (std::size_t m = 0; m < adjustment.structure.measures.size(); ++m) {
            const Measure& measure = adjustment.structure.measures[m];
            if (network.observations[At(measure.observation)].kind != table.kind)
                continue;
            if (!isOpen) {
                page.Line("{:<{}} {:>14} {:>14} {:>10} {:>8} {:>8} {:>8} {:>10} {:>6}", table.marker,
                          2 * width + 1, "observed", "adjusted", "v", "sigma", "r", "w", "error", "line");
                isOpen = true;
            }
            PrintResidualRow(page, network, adjustment, statistics, m, width);
        }
        if (isOpen)
            page.Blank();
    }
}

void PrintRelative(Page& page, const Network& network, const Adjustment& adjustment,
                   const Statistics& statistics) {
    if (network.relativePairs.empty() || !adjustment.hasCofactors)
        return;
    const int width = NameWidth(network);
    page.Heading("Relative error ellipses");
    page.Line("  {:<{}} {:<{}} {:>14} {:>10} {:>10} {:>9} {:>10} {:>10}", "from", width, "to", width,
              "distance m", "a m", "b m", "bearing", "a 95% m", "b 95% m");
    for (std::size_t i = 0; i < network.relativePairs.size(); ++i) {
        const auto from = At(network.relativePairs[i].first);
        const auto to = At(network.relativePairs[i].second);
        if (adjustment.structure.roles[from].part < 0 || adjustment.structure.roles[to].part < 0)
            continue;
        double square = 0;
        for (std::size_t axis = 0; axis < 3; ++axis)
            square += std::pow(adjustment.state.at[to][axis] - adjustment.state.at[from][axis], 2);
        const Ellipse& ellipse = statistics.relative[i];
        page.Line("  {:<{}} {:<{}} {} {} {} {} {} {}", network.points[from].name, width,
                  network.points[to].name, width, Fixed(std::sqrt(square), 14, 5),
                  Fixed(ellipse.major, 10, 6), Fixed(ellipse.minor, 10, 6), Fixed(ellipse.bearing, 9, 3),
                  Fixed(ellipse.major * statistics.wideFactor, 10, 6),
                  Fixed(ellipse.minor * statistics.wideFactor, 10, 6));
    }
}

void PrintDeviations(Page& page, const Network& network, const Adjustment& adjustment,
                     const Statistics& statistics) {
    if (!adjustment.hasCofactors)
        return;
    const int width = NameWidth(network);
    const bool isHeights = adjustment.structure.dimension == Dimension::Heights;
    page.Blank();
    page.Line("Standard deviations ({}, in meters)",
              statistics.hasM0 ? "a posteriori, scaled with m0" : "a priori, m0 is not determined");
    // The list of heights runs to the end of the file and has no line before it.
    if (!isHeights) {
        page.Line(
            "Standard point deviations SX, SY, SZ; ellipse a, b and bearing of a in gons; the same for 95%");
        page.Line("  {:<{}} {:>12} {:>12} {:>12}", "point", width - 2, "SX / a", "SY / b", "SZ / bearing");
    }
    for (const bool stations : {true, false}) {
        for (const std::size_t point : ListedPoints(network, adjustment, stations)) {
            const auto& deviation = statistics.deviation[point];
            const std::string& name = network.points[point].name;
            if (isHeights) {
                page.Line("{:<{}} {}", name, width, Fixed(deviation[2], 12, 6));
                continue;
            }
            const Ellipse& ellipse = statistics.ellipse[point];
            page.Line("{:<{}} {} {} {}", name, width, Fixed(deviation[0], 12, 6), Fixed(deviation[1], 12, 6),
                      Fixed(deviation[2], 12, 6));
            page.Line("{:<{}} {} {} {}", "", width, Fixed(ellipse.major, 12, 6), Fixed(ellipse.minor, 12, 6),
                      Fixed(ellipse.bearing, 12, 3));
            page.Line("{:<{}} {} {} {}   95%", "", width, Fixed(ellipse.major * statistics.wideFactor, 12, 6),
                      Fixed(ellipse.minor * statistics.wideFactor, 12, 6), Fixed(ellipse.bearing, 12, 3));
        }
    }
    if (!isHeights)
        page.Blank();
}

}  // namespace Krenn
