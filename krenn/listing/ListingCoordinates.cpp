// SPDX-License-Identifier: GPL-3.0-or-later
#include <cmath>
#include <numbers>

#include "krenn/listing/ListingParts.h"

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
std::vector<std::size_t> ListedPoints(const Report& report, bool stations) {
    std::vector<std::size_t> listed;
    const bool hasStations = report.adjustment.structure.dimension != Dimension::Heights;
    for (std::size_t i = 0; i < report.network.points.size(); ++i) {
        const PointRole& role = report.adjustment.structure.roles[i];
        if (role.part >= 0 && (hasStations && role.isStation) == stations)
            listed.push_back(i);
    }
    return listed;
}

// Only the height of a point is known: nothing observed its plan position and none was given.
bool HasHeightAlone(const Report& report, std::size_t point) {
    return report.adjustment.structure.dimension == Dimension::Heights ||
           (report.adjustment.structure.roles[point].planGroup < 0 && !report.network.points[point].hasGiven);
}

// Radians as gons from 0 to below 400.
double CircleGons(double radians) {
    double gons = std::remainder(radians * kGonsPerRadian, 400.0);
    if (gons < 0)
        gons += 400;
    return gons >= 399.999995 ? 0.0 : gons;
}

// Those of the first set-up on the point; 0 without one.
std::array<double, 3> StationRotations(const Adjustment& adjustment, std::size_t point) {
    const Structure& structure = adjustment.structure;
    const int first = structure.setupStart[point];
    if (first == structure.setupStart[point + 1])
        return {};
    return RotationsOf(adjustment.state, structure.setups[At(first)], At(first));
}

void AppendDash(std::string& text, int width) {
    AppendRight(text, "-", width);
}

// Millimeters, or a dash for what is no unknown.
void AppendMillimeters(std::string& text, double meters, int width, bool isUnknown) {
    if (isUnknown)
        AppendFixed(text, meters * 1000, width, 3);
    else
        AppendDash(text, width);
}

void AppendCoordinateRow(std::string& text, const Report& report, std::size_t point,
                         const std::vector<Unchecked>& unchecked, const std::vector<char>& isUnchecked) {
    const Statistics& statistics = report.statistics;
    const PointRole& role = report.adjustment.structure.roles[point];
    const bool isHeights = report.adjustment.structure.dimension == Dimension::Heights;
    text += ' ';
    AppendLeft(text, report.network.points[point].name, report.nameWidth);
    for (std::size_t axis = isHeights ? 2 : 0; axis < 3; ++axis) {
        if (axis < 2 && HasHeightAlone(report, point))
            AppendDash(text, 15);
        else
            AppendFixed(text, CoordinateOf(report.adjustment, point, axis), 15, 5);
    }
    const auto& deviation = statistics.deviation[point];
    if (isHeights) {
        AppendMillimeters(text, deviation[2], 11, role.heightIsUnknown);
        AppendMillimeters(text, deviation[2] * statistics.wideHeightFactor, 11, role.heightIsUnknown);
    } else {
        const Ellipse& ellipse = statistics.ellipse[point];
        AppendMillimeters(text, deviation[0], 11, role.planIsUnknown);
        AppendMillimeters(text, deviation[1], 10, role.planIsUnknown);
        AppendMillimeters(text, deviation[2], 10, role.heightIsUnknown);
        AppendMillimeters(text, ellipse.major, 11, role.planIsUnknown);
        AppendMillimeters(text, ellipse.minor, 10, role.planIsUnknown);
        if (role.planIsUnknown)
            AppendFixed(text, ellipse.bearing, 9, 2);
        else
            AppendDash(text, 9);
        AppendMillimeters(text, ellipse.major * statistics.wideFactor, 11, role.planIsUnknown);
        AppendMillimeters(text, ellipse.minor * statistics.wideFactor, 10, role.planIsUnknown);
    }
    if (report.network.points[point].isFixed)
        text += "  fixed";
    if (isUnchecked[point] != 0) {
        text += "  not checked: ";
        text += InWords(unchecked[point]);
    }
    text += "\r\n";
}

void PrintSetups(Page& page, const Report& report) {
    const Adjustment& adjustment = report.adjustment;
    const Structure& structure = adjustment.structure;
    page.Line("  {:<{}} {:>6} {:>13} {:>12} {:>12}{}", "Set-up on", report.nameWidth, "line", "Rot1 gon",
              "Rot2 gon", "Rot3 gon",
              adjustment.hasCofactors ? "   about X mgon   about Y mgon   about Z mgon" : "");
    const double scale = report.statistics.scale * kGonsPerRadian * 1000;
    for (std::size_t s = 0; s < structure.setups.size(); ++s) {
        const Setup& setup = structure.setups[s];
        if (!setup.isTilted && !setup.hasDirections)
            continue;
        const auto rotations = RotationsOf(adjustment.state, setup, s);
        std::string& text = page.text;
        text += "  ";
        AppendLeft(text, report.network.points[At(setup.point)].name, report.nameWidth + 1);
        AppendCount(text, setup.line, 6);
        text += ' ';
        AppendFixed(text, rotations[0] * kGonsPerRadian, 13, 5);
        text += ' ';
        AppendFixed(text, rotations[1] * kGonsPerRadian, 12, 5);
        text += ' ';
        AppendFixed(text, CircleGons(rotations[2]), 12, 5);
        if (adjustment.hasCofactors) {
            const auto& q = adjustment.cofactors.rotation[s];
            for (const auto& [axis, entry] : {std::pair<std::size_t, std::size_t>{0, 0}, {1, 2}, {2, 5}}) {
                if (adjustment.unknowns.rotation[s][axis] >= 0)
                    AppendFixed(text, std::sqrt(std::max(q[entry], 0.0)) * scale, 15, 4);
                else
                    AppendDash(text, 15);
            }
        }
        text += "\r\n";
    }
}

struct GlobalValue {
    int unknown;
    double value;
    double unit;  // factor from the value to what is printed
    const char* unitName;
};

std::vector<GlobalValue> GlobalValues(const Adjustment& adjustment) {
    std::vector<GlobalValue> values;
    const Unknowns& unknowns = adjustment.unknowns;
    for (std::size_t meter = 0; meter < 2; ++meter) {
        if (unknowns.scale[meter] >= 0)
            values.push_back({unknowns.scale[meter], adjustment.state.meter[meter].scale, 1e6, "ppm"});
        if (unknowns.zeroPoint[meter] >= 0)
            values.push_back({unknowns.zeroPoint[meter], adjustment.state.meter[meter].zeroPoint, 1e3, "mm"});
    }
    if (unknowns.refraction >= 0)
        values.push_back({unknowns.refraction, adjustment.state.refraction, 1, ""});
    return values;
}

void PrintGlobals(Page& page, const Report& report) {
    const Adjustment& adjustment = report.adjustment;
    const int firstGlobal = adjustment.unknowns.Count() - adjustment.unknowns.globals;
    page.Line("  {:<48} {:>12} {:>5}{}", "Of the whole network", "value", "",
              adjustment.hasCofactors ? "     deviation   value/deviation" : "");
    for (const GlobalValue& global : GlobalValues(adjustment)) {
        std::string deviation;
        if (adjustment.hasCofactors) {
            const int at = global.unknown - firstGlobal;
            const double sigma =
                std::sqrt(std::max(adjustment.cofactors.global(at, at), 0.0)) * report.statistics.scale;
            const double ratio = sigma > 0 ? std::abs(global.value) / sigma : 0;
            deviation = fmt::format("{}{}   {}", Fixed(sigma * global.unit, 14, 4), Fixed(ratio, 15, 2),
                                    ratio > report.statistics.wideHeightFactor
                                        ? "differs from 0"
                                        : "does not differ from 0 significantly");
        }
        page.Line(
            "  {:<48} {} {:<5}{}",
            UnknownInWords(report.network, adjustment.structure, adjustment.unknowns.of[At(global.unknown)]),
            Fixed(global.value * global.unit, 12, 4), global.unitName, deviation);
    }
    if (adjustment.hasCofactors)
        page.Line("  The level of significance is {}.", Percent(1 - report.statistics.parameters.confidence));
}

}  // namespace

void PrintCoordinates(Page& page, const Report& report) {
    if (!report.adjustment.hasCofactors)
        return;
    const Statistics& statistics = report.statistics;
    const bool isHeights = report.adjustment.structure.dimension == Dimension::Heights;
    const std::string level = Percent(statistics.parameters.confidence);
    page.Heading(isHeights ? "Heights and their deviations" : "Coordinates and error ellipses");
    page.Line("  {}", isHeights
                          ? "Heights in m, deviations in mm, in the order of the file."
                          : "Coordinates in m, deviations and half axes in mm, bearing of a in gon; stations "
                            "first, each in the order of the file.");
    page.Line(
        "  Standard deviations are {}; {} for {} are {} times as large.",
        statistics.hasM0 && statistics.parameters.posteriori ? "a posteriori, scaled with m0" : "a priori",
        isHeights ? "those" : "ellipses", level,
        Fixed(isHeights ? statistics.wideHeightFactor : statistics.wideFactor, 0, 3));
    page.Blank();
    if (isHeights)
        page.Line(" {:<{}}{:>15}{:>11}{:>11}", "point", report.nameWidth, "Z", "sZ", level);
    else
        page.Line(" {:<{}}{:>15}{:>15}{:>15}{:>11}{:>10}{:>10}{:>11}{:>10}{:>9}{:>11}{:>10}", "point",
                  report.nameWidth, "X", "Y", "Z", "sX", "sY", "sZ", "a", "b", "bearing", "a " + level,
                  "b " + level);
    std::vector<char> isUnchecked(report.network.points.size(), 0);
    std::vector<Unchecked> unchecked(report.network.points.size());
    for (const UncheckedPoint& point : report.judgement.uncheckedPoints) {
        isUnchecked[At(point.point)] = 1;
        unchecked[At(point.point)] = point.what;
    }
    for (const bool stations : {true, false}) {
        const auto points = ListedPoints(report, stations);
        AppendRows(page.text, points.size(), statistics.parameters.threads,
                   [&](std::string& text, std::size_t i) {
                       AppendCoordinateRow(text, report, points[i], unchecked, isUnchecked);
                   });
    }
}

void PrintResults(Page& page, const Report& report) {
    const int width = report.nameWidth;
    const Adjustment& adjustment = report.adjustment;
    const auto stations = ListedPoints(report, true);
    const auto points = ListedPoints(report, false);
    const bool isHeights = adjustment.structure.dimension == Dimension::Heights;
    const auto appendPosition = [&](std::string& text, std::size_t point, int first) {
        AppendFixed(text, CoordinateOf(adjustment, point, 0), first, 6);
        text += ' ';
        AppendFixed(text, CoordinateOf(adjustment, point, 1), 16, 6);
        text += ' ';
        AppendFixed(text, CoordinateOf(adjustment, point, 2), 16, 6);
        text += "\r\n";
    };
    page.Blank();
    page.Line("Final results (coordinates in meters, rotations in gons)");
    if (isHeights)
        page.Line("  {:<{}} {:>14}", "point", width - 2, "Z");
    else
        page.Line("  {:<{}} {:>16} {:>16} {:>16}", "point", width - 2, "X", "Y", "Z");
    AppendRows(page.text, stations.size(), report.statistics.parameters.threads,
               [&](std::string& text, std::size_t i) {
                   const auto rotations = StationRotations(adjustment, stations[i]);
                   text += report.network.points[stations[i]].name;
                   text += "\r\n  Rotations gon ";
                   AppendFixed(text, rotations[0] * kGonsPerRadian, 14, 5);
                   text += ' ';
                   AppendFixed(text, rotations[1] * kGonsPerRadian, 16, 5);
                   text += ' ';
                   AppendFixed(text, CircleGons(rotations[2]), 16, 5);
                   text += "\r\n  Position m    ";
                   appendPosition(text, stations[i], 14);
               });
    if (!stations.empty())
        page.Blank();
    AppendRows(page.text, points.size(), report.statistics.parameters.threads,
               [&](std::string& text, std::size_t i) {
                   AppendLeft(text, report.network.points[points[i]].name, width);
                   text += ' ';
                   if (HasHeightAlone(report, points[i])) {
                       AppendFixed(text, CoordinateOf(adjustment, points[i], 2), isHeights ? 14 : 50, 6);
                       text += "\r\n";
                   } else {
                       appendPosition(text, points[i], 16);
                   }
               });
    // Readers know by characters 6 to 19 that no list of points follows.
    if (points.empty())
        page.Line("     the one-tailed list of points is empty: every point is a station");
    page.Blank();
}

void PrintOtherUnknowns(Page& page, const Report& report) {
    const Structure& structure = report.adjustment.structure;
    const bool hasSetups =
        std::any_of(structure.setups.begin(), structure.setups.end(),
                    [](const Setup& setup) { return setup.isTilted || setup.hasDirections; });
    if (!hasSetups && report.adjustment.unknowns.globals == 0)
        return;
    page.Heading("Other unknowns");
    if (hasSetups)
        PrintSetups(page, report);
    if (report.adjustment.unknowns.globals > 0) {
        if (hasSetups)
            page.Blank();
        PrintGlobals(page, report);
    }
}

void PrintDeviations(Page& page, const Report& report) {
    if (!report.adjustment.hasCofactors)
        return;
    const Statistics& statistics = report.statistics;
    const int width = report.nameWidth;
    const bool isHeights = report.adjustment.structure.dimension == Dimension::Heights;
    page.Blank();
    page.Line("Standard deviations ({}, in meters)", !statistics.hasM0 ? "a priori, m0 is not determined"
                                                     : statistics.parameters.posteriori
                                                         ? "a posteriori, scaled with m0"
                                                         : "a priori, not scaled with m0");
    const std::string level = Percent(statistics.parameters.confidence);
    // The list of heights runs to the end of the file and has no line before it.
    if (!isHeights) {
        page.Line(
            "Standard point deviations SX, SY, SZ; ellipse a, b, bearing of a in gons, a and b for {}; X, Y, "
            "Z",
            level);
        page.Line("  {:<{}} {:>12} {:>12} {:>12} {:>12} {:>12}", "point", width - 2, "SX / a", "SY / b",
                  "SZ / bearing", "a " + level, "b " + level);
    }
    const auto appendThree = [](std::string& text, double a, double b, double c, int decimals) {
        AppendFixed(text, a, 13, 6);
        AppendFixed(text, b, 13, 6);
        AppendFixed(text, c, 13, decimals);
    };
    for (const bool stations : {true, false}) {
        const auto points = ListedPoints(report, stations);
        AppendRows(page.text, points.size(), statistics.parameters.threads,
                   [&](std::string& text, std::size_t i) {
                       const std::size_t point = points[i];
                       const auto& deviation = statistics.deviation[point];
                       AppendLeft(text, report.network.points[point].name, width);
                       if (isHeights) {
                           AppendFixed(text, deviation[2], 13, 6);
                           text += "\r\n";
                           return;
                       }
                       const Ellipse& ellipse = statistics.ellipse[point];
                       appendThree(text, deviation[0], deviation[1], deviation[2], 6);
                       text += "\r\n";
                       AppendLeft(text, "", width);
                       appendThree(text, ellipse.major, ellipse.minor, ellipse.bearing, 3);
                       AppendFixed(text, ellipse.major * statistics.wideFactor, 13, 6);
                       AppendFixed(text, ellipse.minor * statistics.wideFactor, 13, 6);
                       text += "\r\n";
                       AppendLeft(text, "  at", width);
                       for (std::size_t axis = 0; axis < 3; ++axis)
                           AppendFixed(text, CoordinateOf(report.adjustment, point, axis), 16, 6);
                       text += "\r\n";
                   });
    }
    if (!isHeights)
        page.Blank();
}

}  // namespace Krenn
