// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/model/Structure.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <numbers>
#include <numeric>

#include "krenn/Errors.h"
#include "krenn/model/Setups.h"

namespace Krenn {
namespace {

constexpr double kRadiansPerGon = std::numbers::pi / 200;

// Sets that grow together, each known by its smallest member.
struct UnionFind {
    explicit UnionFind(std::size_t size) : parent(size) { std::iota(parent.begin(), parent.end(), 0); }

    int Find(int at) {
        while (parent[static_cast<std::size_t>(at)] != at) {
            int& up = parent[static_cast<std::size_t>(at)];
            up = parent[static_cast<std::size_t>(up)];
            at = up;
        }
        return at;
    }

    void Join(int a, int b) {
        a = Find(a);
        b = Find(b);
        parent[static_cast<std::size_t>(std::max(a, b))] = std::min(a, b);
    }

    std::vector<int> parent;
};

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

bool IsAngleKind(Kind kind) {
    return kind == Kind::Direction || kind == Kind::ZenithAngle;
}

bool SeesPlan(Kind kind) {
    return kind != Kind::HeightDifference;
}
bool SeesHeight(Kind kind) {
    return kind == Kind::ZenithAngle || kind == Kind::HeightDifference;
}

Dimension DimensionOf(const Network& network) {
    bool plan = false;
    bool height = false;
    for (const Observation& observation : network.observations) {
        plan |= SeesPlan(observation.kind);
        height |= SeesHeight(observation.kind);
    }
    if (!plan)
        return Dimension::Heights;
    return height ? Dimension::Full : Dimension::Plan;
}

// Numbers the sets of the points that `take` accepts, in order of the first point; -1 for the others.
template <typename Take>
std::vector<int> GroupNumbers(const Network& network, Take take, int& count) {
    UnionFind sets(network.points.size());
    std::vector<char> isTouched(network.points.size(), 0);
    for (const Observation& observation : network.observations) {
        if (!take(observation.kind))
            continue;
        sets.Join(observation.from, observation.to);
        isTouched[At(observation.from)] = 1;
        isTouched[At(observation.to)] = 1;
    }
    std::vector<int> numbers(network.points.size(), -1);
    std::vector<int> numberOfSet(network.points.size(), -1);
    count = 0;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (!isTouched[i])
            continue;
        int& number = numberOfSet[static_cast<std::size_t>(sets.Find(static_cast<int>(i)))];
        if (number < 0)
            number = count++;
        numbers[i] = number;
    }
    return numbers;
}

void FindRoles(const Network& network, Structure& structure) {
    const auto part = GroupNumbers(
        network, [](Kind) { return true; }, structure.parts);
    const auto plan = GroupNumbers(network, SeesPlan, structure.planGroups);
    const auto height = GroupNumbers(network, SeesHeight, structure.heightGroups);
    structure.roles.resize(network.points.size());
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        PointRole& role = structure.roles[i];
        role.part = part[i];
        role.planGroup = plan[i];
        role.heightGroup = height[i];
        role.isStation = network.points[i].inStationList && part[i] >= 0 && plan[i] >= 0;
        role.planIsUnknown = plan[i] >= 0 && !network.points[i].isFixed;
        role.heightIsUnknown = height[i] >= 0 && !network.points[i].isFixed;
    }
    structure.partHasHeights.assign(static_cast<std::size_t>(structure.parts), 0);
    for (const Observation& observation : network.observations) {
        PointRole& from = structure.roles[At(observation.from)];
        if (observation.kind == Kind::Direction || observation.kind == Kind::Distance)
            from.isStation = true;
        if (SeesHeight(observation.kind))
            structure.partHasHeights[static_cast<std::size_t>(from.part)] = 1;
    }
}

MeasureKind MeasureKindOf(Kind kind, bool hasHeights) {
    switch (kind) {
        case Kind::Direction: return MeasureKind::Direction;
        case Kind::ZenithAngle: return MeasureKind::ZenithAngle;
        case Kind::Distance: return hasHeights ? MeasureKind::SlopeDistance : MeasureKind::HorizontalDistance;
        default: return MeasureKind::HeightDifference;
    }
}

void MakeMeasures(const Network& network, const std::vector<int>& setupOf, Structure& structure) {
    structure.measures.reserve(network.observations.size());
    for (std::size_t i = 0; i < network.observations.size(); ++i) {
        const Observation& observation = network.observations[i];
        const int part = structure.roles[At(observation.from)].part;
        const bool hasHeights = structure.partHasHeights[At(part)] != 0;
        const double unit = IsAngleKind(observation.kind) ? kRadiansPerGon : 1.0;
        Measure measure{MeasureKindOf(observation.kind, hasHeights),
                        observation.from,
                        observation.to,
                        observation.value * unit,
                        observation.sigma * unit,
                        static_cast<int>(i)};
        measure.setup = setupOf[i];
        measure.isTilted = measure.setup >= 0 && structure.setups[At(measure.setup)].isTilted;
        measure.isMarked = observation.isTracker;
        structure.measures.push_back(measure);
    }
}

[[noreturn]] void RefuseParts(const Network& network, const Structure& structure) {
    std::vector<std::vector<int>> points(At(structure.parts));
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (structure.roles[i].part >= 0)
            points[At(structure.roles[i].part)].push_back(static_cast<int>(i));
    }
    std::vector<std::string> details;
    for (const std::vector<int>& part : points)
        details.push_back(fmt::format("part {} of {} points: {}", details.size() + 1, part.size(),
                                      NameList(network, part)));
    throw Failure(ErrorNumber::UnconnectedParts,
                  fmt::format("The network falls into {} parts that no observation connects.", points.size()),
                  details);
}

void CheckHeights(const Network& network, Structure& structure) {
    std::vector<int> held;
    std::vector<int> unknown;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        const PointRole& role = structure.roles[i];
        if (role.part < 0 || role.heightGroup >= 0 || network.points[i].isFixed ||
            !structure.partHasHeights[static_cast<std::size_t>(role.part)])
            continue;
        (network.points[i].hasGiven ? held : unknown).push_back(static_cast<int>(i));
    }
    if (!unknown.empty())
        throw Failure(ErrorNumber::UndeterminedHeights,
                      "No zenith angle and no height difference determines the height of points without "
                      "given coordinates.",
                      {NameList(network, unknown, 1000)});
    if (!held.empty())
        structure.notes.push_back(
            "No zenith angle and no height difference reaches these points; their "
            "given heights are held: " +
            NameList(network, held));
}

void NoteUnobserved(const Network& network, Structure& structure) {
    std::vector<int> unobserved;
    std::vector<int> heightOnly;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        const PointRole& role = structure.roles[i];
        if (role.part < 0)
            unobserved.push_back(static_cast<int>(i));
        else if (role.planGroup < 0 && structure.dimension == Dimension::Full)
            heightOnly.push_back(static_cast<int>(i));
    }
    if (!unobserved.empty())
        structure.notes.push_back("Points without any observation are left out: " +
                                  NameList(network, unobserved));
    if (!heightOnly.empty())
        structure.notes.push_back(
            "Only the height of these points is observed; their plan position stays as "
            "given, or is left open: " +
            NameList(network, heightOnly));
    if (structure.dimension == Dimension::Full &&
        std::count(structure.partHasHeights.begin(), structure.partHasHeights.end(), 0) > 0)
        structure.notes.push_back(
            "Parts without zenith angles and height differences are adjusted in plan: "
            "their distances are horizontal and their heights stay as given.");
}

}  // namespace

std::string NameList(const Network& network, const std::vector<int>& points, std::size_t limit) {
    std::string names;
    for (std::size_t i = 0; i < points.size() && i < limit; ++i)
        names += (i ? ", " : "") + network.points[static_cast<std::size_t>(points[i])].name;
    if (points.size() > limit)
        names += fmt::format(", and {} more", points.size() - limit);
    return names;
}

void TakeOutKinds(Network& network, const Parameters& parameters) {
    const std::array<bool, kKinds> isOn{parameters.directions, parameters.zenithAngles, parameters.distances,
                                        parameters.heightDifferences};
    constexpr std::array kNames{"directions", "zenith angles", "distances", "height differences"};
    std::array<int, kKinds> takenOut{};
    std::erase_if(network.observations, [&](const Observation& observation) {
        const auto kind = static_cast<std::size_t>(observation.kind);
        takenOut[kind] += isOn[kind] ? 0 : 1;
        return !isOn[kind];
    });
    std::string words;
    for (std::size_t kind = 0; kind < takenOut.size(); ++kind) {
        if (takenOut[kind] > 0)
            words += fmt::format("{}{} {}", words.empty() ? "" : ", ", takenOut[kind], kNames[kind]);
    }
    if (words.empty())
        return;
    if (network.observations.empty())
        throw Failure(ErrorNumber::NoObservations,
                      "The parameter file switches off every observation of the input file.", {words});
    network.notes.push_back("Switched off in the parameter file: " + words + ".");
}

Structure FindStructure(const Network& network, const Parameters& parameters) {
    Structure structure;
    structure.dimension = DimensionOf(network);
    structure.model = {parameters.curvature, parameters.refraction, parameters.refractionCoefficient,
                       parameters.scale, parameters.zeroPoint};
    FindRoles(network, structure);
    if (parameters.parts == PartsRule::Refuse && structure.parts > 1)
        RefuseParts(network, structure);
    MakeMeasures(network, FindSetups(network, parameters, structure), structure);
    CheckHeights(network, structure);
    NoteUnobserved(network, structure);
    const bool hasUnknown =
        std::any_of(structure.roles.begin(), structure.roles.end(),
                    [](const PointRole& role) { return role.planIsUnknown || role.heightIsUnknown; });
    if (!hasUnknown)
        throw Failure(ErrorNumber::NothingToAdjust, "Every observed point is fixed.");
    return structure;
}

}  // namespace Krenn
