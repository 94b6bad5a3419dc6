// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/Contradictions.h"

#include <algorithm>
#include <cmath>

#include "krenn/start/PlanSimilarity.h"
#include "krenn/start/SpaceMotion.h"

namespace Krenn {
namespace {

constexpr double kFarTimes = 10;    // the median
constexpr double kLeastTold = 0.1;  // meters; networks of heights alone have no sights to compare with

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

struct PartPoints {
    std::vector<int> all;     // with a position from the observations, in plan or height
    std::vector<int> common;  // of these, with given coordinates
    bool isLevelled = false;  // something tells which way is up
};

std::vector<PartPoints> SortPoints(const Network& network, const Structure& structure,
                                   const std::vector<char>& isWanted, const StartPlaces& free) {
    std::vector<PartPoints> parts(At(structure.parts));
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        const int part = structure.roles[i].part;
        if (part < 0 || !isWanted[At(part)] || !(free.known.plan[i] || free.known.height[i]))
            continue;
        parts[At(part)].all.push_back(static_cast<int>(i));
        if (network.points[i].hasGiven)
            parts[At(part)].common.push_back(static_cast<int>(i));
    }
    for (const Measure& measure : structure.measures) {
        const bool isAngle =
            measure.kind == MeasureKind::Direction || measure.kind == MeasureKind::ZenithAngle;
        if ((isAngle && !measure.isTilted) || measure.kind == MeasureKind::HeightDifference)
            parts[At(structure.roles[At(measure.from)].part)].isLevelled = true;
    }
    return parts;
}

bool HasDirections(const Structure& structure, int part) {
    return std::any_of(structure.setups.begin(), structure.setups.end(), [&](const Setup& setup) {
        return setup.hasDirections && structure.roles[At(setup.point)].part == part;
    });
}

// What the fits of one part have to work on.
struct Fitting {
    const Network& network;
    const Structure& structure;
    const StartPlaces& free;
    Comparison& comparison;

    // The fixed points lead where there are enough of them to do so, else all given ones.
    std::vector<int> Leading(const std::vector<int>& common, std::size_t enough) const {
        std::vector<int> fixed;
        for (const int point : common) {
            if (network.points[At(point)].isFixed)
                fixed.push_back(point);
        }
        return fixed.size() >= enough ? fixed : common;
    }
};

// Moves the plan positions of a part; heights take part in the scale alone.
void MoveBy(Fitting& fitting, const PartPoints& points, const Similarity& similarity) {
    for (const int point : points.all) {
        auto& at = fitting.comparison.fitted.at[At(point)];
        if (fitting.free.known.height[At(point)])
            at[2] *= similarity.scale;
        if (!fitting.free.known.plan[At(point)])
            continue;
        const Place moved = similarity({at[0], at[1]});
        at[0] = moved[0];
        at[1] = moved[1];
    }
}

void FitPlan(Fitting& fitting, const PartPoints& points, int part) {
    std::vector<Place> from;
    std::vector<Place> to;
    std::vector<int> common;
    for (const int point : points.common) {
        if (fitting.free.known.plan[At(point)] && fitting.structure.roles[At(point)].planGroup >= 0)
            common.push_back(point);
    }
    for (const int point : fitting.Leading(common, 3)) {
        const auto& at = fitting.free.state.at[At(point)];
        const auto& given = fitting.network.points[At(point)].given;
        from.push_back({at[0], at[1]});
        to.push_back({given[0], given[1]});
    }
    if (from.empty())
        return;
    Similarity similarity;
    ShiftOnto(similarity, from.front(), to.front());
    if (const auto robust = RobustSimilarity(from, to, fitting.free.isMetric[At(part)] != 0,
                                             !HasDirections(fitting.structure, part)))
        similarity = *robust;
    MoveBy(fitting, points, similarity);
    for (const int point : points.all)
        fitting.comparison.isFitted[At(point)] = fitting.free.known.plan[At(point)];
}

void FitHeights(Fitting& fitting, const PartPoints& points) {
    std::vector<double> shifts;
    std::vector<int> common;
    for (const int point : points.common) {
        if (fitting.free.known.height[At(point)] && fitting.structure.roles[At(point)].heightGroup >= 0)
            common.push_back(point);
    }
    for (const int point : fitting.Leading(common, 3))
        shifts.push_back(fitting.network.points[At(point)].given[2] -
                         fitting.comparison.fitted.at[At(point)][2]);
    if (shifts.empty())
        return;
    const double shift = MedianOf(shifts);
    for (const int point : points.all) {
        if (!fitting.free.known.height[At(point)])
            continue;
        fitting.comparison.fitted.at[At(point)][2] += shift;
        if (fitting.structure.roles[At(point)].planGroup < 0)
            fitting.comparison.isFitted[At(point)] = 1;
    }
}

bool FitInSpace(Fitting& fitting, const PartPoints& points) {
    const std::vector<int> leading = fitting.Leading(points.common, 4);
    Eigen::Matrix3Xd from(3, static_cast<Eigen::Index>(leading.size()));
    Eigen::Matrix3Xd to = from;
    for (std::size_t i = 0; i < leading.size(); ++i) {
        from.col(static_cast<Eigen::Index>(i)) =
            Eigen::Vector3d(fitting.free.state.at[At(leading[i])].data());
        to.col(static_cast<Eigen::Index>(i)) =
            Eigen::Vector3d(fitting.network.points[At(leading[i])].given.data());
    }
    const auto motion = RobustMotion(from, to);
    if (!motion)
        return false;
    for (const int point : points.all) {
        auto& at = fitting.comparison.fitted.at[At(point)];
        const Eigen::Vector3d moved = (*motion)(Eigen::Vector3d(at.data()));
        at = {moved(0), moved(1), moved(2)};
        fitting.comparison.isFitted[At(point)] = 1;
    }
    return true;
}

// Meters between given and fitted, in what the observations determine.
double AwayOf(const Fitting& fitting, int point) {
    const auto& role = fitting.structure.roles[At(point)];
    const auto& given = fitting.network.points[At(point)].given;
    const auto& at = fitting.comparison.fitted.at[At(point)];
    const bool seesPlan = role.planGroup >= 0 && fitting.free.known.plan[At(point)];
    const bool seesHeight = role.heightGroup >= 0 && fitting.free.known.height[At(point)];
    return std::hypot(seesPlan ? given[0] - at[0] : 0, seesPlan ? given[1] - at[1] : 0,
                      seesHeight ? given[2] - at[2] : 0);
}

void FindContradicted(Fitting& fitting, const PartPoints& points, double lengthScale) {
    if (points.common.size() < 3)
        return;
    std::vector<double> aways;
    for (const int point : points.common)
        aways.push_back(fitting.comparison.away[At(point)]);
    const double floor = (points.common.size() < 6 ? 0.05 : 0.02) * lengthScale + kLeastTold;
    const double bound = std::max(kFarTimes * MedianOf(aways), floor);
    for (const int point : points.common)
        fitting.comparison.isContradicted[At(point)] = fitting.comparison.away[At(point)] > bound ? 1 : 0;
}

// The points that a part is moved onto, and those that have to be met.
struct Anchors {
    std::vector<int> all;
    std::vector<int> fixed;
};

Anchors AnchorsOf(const Fitting& fitting, const PartPoints& points, bool ofHeights) {
    Anchors anchors;
    for (const int point : points.common) {
        const PointRole& role = fitting.structure.roles[At(point)];
        const KnownPlaces& known = fitting.free.known;
        const bool isSeen = ofHeights ? role.heightGroup >= 0 && known.height[At(point)]
                                      : role.planGroup >= 0 && known.plan[At(point)];
        if (!isSeen || fitting.comparison.isContradicted[At(point)])
            continue;
        anchors.all.push_back(point);
        if (fitting.network.points[At(point)].isFixed)
            anchors.fixed.push_back(point);
    }
    return anchors;
}

void MovePlanOnto(Fitting& fitting, const PartPoints& points, const Anchors& anchors, bool keepsScale) {
    State& fitted = fitting.comparison.fitted;
    std::vector<Place> from;
    std::vector<Place> to;
    for (const int point : anchors.fixed.size() >= 2 ? anchors.fixed : anchors.all) {
        const auto& given = fitting.network.points[At(point)].given;
        from.push_back({fitted.at[At(point)][0], fitted.at[At(point)][1]});
        to.push_back({given[0], given[1]});
    }
    if (from.empty())
        return;
    // About a single fixed point the rest can only turn: with its point reflection each place balances
    // itself.
    const std::size_t count = from.size();
    for (std::size_t i = 0; i < count && anchors.fixed.size() == 1; ++i) {
        const int point = anchors.fixed.front();
        const auto& given = fitting.network.points[At(point)].given;
        from.push_back({2 * fitted.at[At(point)][0] - from[i][0], 2 * fitted.at[At(point)][1] - from[i][1]});
        to.push_back({2 * given[0] - to[i][0], 2 * given[1] - to[i][1]});
    }
    Similarity similarity;
    if (count == 1)
        ShiftOnto(similarity, from.front(), to.front());
    else
        similarity = BestSimilarity(from, to, keepsScale, false);
    MoveBy(fitting, points, similarity);
}

void MoveHeightsOnto(Fitting& fitting, const PartPoints& points, const Anchors& anchors) {
    State& fitted = fitting.comparison.fitted;
    const std::vector<int>& leading = anchors.fixed.empty() ? anchors.all : anchors.fixed;
    double shift = 0;
    for (const int point : leading)
        shift += (fitting.network.points[At(point)].given[2] - fitted.at[At(point)][2]) /
                 static_cast<double>(leading.size());
    for (const int point : points.all) {
        if (fitting.free.known.height[At(point)])
            fitted.at[At(point)][2] += shift;
    }
}

void MoveInSpaceOnto(Fitting& fitting, const PartPoints& points, const Anchors& anchors) {
    State& fitted = fitting.comparison.fitted;
    const std::vector<int>& leading = anchors.fixed.size() >= 3 ? anchors.fixed : anchors.all;
    if (leading.size() < 3)
        return;
    Eigen::Matrix3Xd from(3, static_cast<Eigen::Index>(leading.size()));
    Eigen::Matrix3Xd to = from;
    for (std::size_t i = 0; i < leading.size(); ++i) {
        from.col(static_cast<Eigen::Index>(i)) = Eigen::Vector3d(fitted.at[At(leading[i])].data());
        to.col(static_cast<Eigen::Index>(i)) =
            Eigen::Vector3d(fitting.network.points[At(leading[i])].given.data());
    }
    Motion motion = BestMotion(from, to);
    if (!anchors.fixed.empty() && anchors.fixed.size() < 3) {
        const int point = anchors.fixed.front();
        motion.shift += Eigen::Vector3d(fitting.network.points[At(point)].given.data()) -
                        motion(Eigen::Vector3d(fitted.at[At(point)].data()));
    }
    for (const int point : points.all) {
        const Eigen::Vector3d moved = motion(Eigen::Vector3d(fitted.at[At(point)].data()));
        fitted.at[At(point)] = {moved(0), moved(1), moved(2)};
    }
}

}  // namespace

void FitOntoDatum(const Network& network, const Structure& structure, const std::vector<char>& isWanted,
                  const StartPlaces& free, Comparison& comparison) {
    Fitting fitting{network, structure, free, comparison};
    const auto parts = SortPoints(network, structure, isWanted, free);
    for (std::size_t part = 0; part < parts.size(); ++part) {
        if (!isWanted[part])
            continue;
        const Anchors inPlan = AnchorsOf(fitting, parts[part], false);
        if (!parts[part].isLevelled && structure.partHasHeights[part]) {
            MoveInSpaceOnto(fitting, parts[part], inPlan);
            continue;
        }
        MovePlanOnto(fitting, parts[part], inPlan, free.isMetric[part] != 0);
        MoveHeightsOnto(fitting, parts[part], AnchorsOf(fitting, parts[part], true));
    }
}

Comparison CompareGiven(const Network& network, const Structure& structure, const std::vector<char>& isWanted,
                        const StartPlaces& free, double lengthScale) {
    const std::size_t size = network.points.size();
    Comparison comparison{free.state, std::vector<char>(size, 0), std::vector<double>(size, 0),
                          std::vector<char>(size, 0)};
    Fitting fitting{network, structure, free, comparison};
    const auto parts = SortPoints(network, structure, isWanted, free);
    for (std::size_t part = 0; part < parts.size(); ++part) {
        if (parts[part].common.empty())
            continue;
        const bool isLevelled = parts[part].isLevelled || !structure.partHasHeights[part];
        if (isLevelled || !FitInSpace(fitting, parts[part])) {
            FitPlan(fitting, parts[part], static_cast<int>(part));
            FitHeights(fitting, parts[part]);
        }
        for (const int point : parts[part].common)
            comparison.away[At(point)] = AwayOf(fitting, point);
        FindContradicted(fitting, parts[part], lengthScale);
    }
    return comparison;
}

}  // namespace Krenn
