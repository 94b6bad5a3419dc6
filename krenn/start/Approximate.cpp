// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/Approximate.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "krenn/Errors.h"
#include "krenn/start/Attitude.h"
#include "krenn/start/PointEvidence.h"
#include "krenn/start/StartRepair.h"

namespace Krenn {
namespace {

constexpr std::size_t kMostNamed = 1000;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

StartPlaces GivenPlaces(const Network& network, const Structure& structure) {
    StartPlaces start;
    start.state.at.assign(network.points.size(), {});
    start.state.orientation.assign(structure.setups.size(), 0);
    start.state.curvature = structure.model.curvature ? 1 : 0;
    if (structure.model.refraction != RefractionModel::Off)
        start.state.refraction = structure.model.refractionCoefficient;
    start.known.plan.assign(network.points.size(), 0);
    start.known.height.assign(network.points.size(), 0);
    start.usedGuess.assign(At(structure.parts), 0);
    start.isMetric.assign(At(structure.parts), 1);
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (!network.points[i].hasGiven)
            continue;
        start.state.at[i] = network.points[i].given;
        start.known.plan[i] = start.known.height[i] = 1;
    }
    return start;
}

// The parts with a point that has observations and no given coordinates.
std::vector<char> PartsToCompute(const Network& network, const Structure& structure) {
    std::vector<char> parts(At(structure.parts), 0);
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (structure.roles[i].part >= 0 && !network.points[i].hasGiven)
            parts[At(structure.roles[i].part)] = 1;
    }
    return parts;
}

void CheckPlaced(const Network& network, const Structure& structure, const StartPlaces& start) {
    std::vector<int> unplaced;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (!IsPlaced(structure, start.known, i))
            unplaced.push_back(static_cast<int>(i));
    }
    if (unplaced.empty())
        return;
    const std::size_t count = unplaced.size();
    unplaced.resize(std::min(count, kMostNamed));
    std::vector<std::string> details = EvidenceInWords(network, structure, unplaced);
    if (count > kMostNamed)
        details.push_back(fmt::format("and {} more", count - kMostNamed));
    throw Failure(ErrorNumber::UndeterminedPoints,
                  "No start position can be computed for points from the observations.", details);
}

// The angle in the middle of the others: the median of the turns against the one of nine that the rest come
// nearest to, so that neither the cut of the circle nor a gross error turns it.
double MiddleAngle(std::vector<double>::iterator first, std::vector<double>::iterator last) {
    constexpr std::ptrdiff_t kTried = 9;
    double centre = *first;
    double least = INFINITY;
    for (auto tried = first; tried != last && tried - first < kTried && last - first > 2; ++tried) {
        double sum = 0;
        for (auto other = first; other != last; ++other)
            sum += std::abs(Wrapped(*other - *tried));
        if (sum < least) {
            least = sum;
            centre = *tried;
        }
    }
    for (auto angle = first; angle != last; ++angle)
        *angle = Wrapped(*angle - centre);
    const auto middle = first + (last - first) / 2;
    std::nth_element(first, middle, last);
    return Wrapped(centre + *middle);
}

std::array<double, 3> OriginOf(const Network& network) {
    for (const Point& point : network.points) {
        if (point.hasGiven)
            return {std::round(point.given[0]), std::round(point.given[1]), std::round(point.given[2])};
    }
    return {};
}

void CheckFinite(const State& state) {
    for (const auto& at : state.at) {
        if (!std::isfinite(at[0] + at[1] + at[2]))
            throw Failure(ErrorNumber::NotFinite, "A start position is not finite.");
    }
}

void CheckSights(const Network& network, const Structure& structure, const State& state) {
    for (const Measure& measure : structure.measures) {
        if (measure.kind == MeasureKind::HeightDifference)
            continue;
        const auto& from = state.at[At(measure.from)];
        const auto& to = state.at[At(measure.to)];
        double length = std::hypot(to[0] - from[0], to[1] - from[1]);
        if (structure.partHasHeights[At(structure.roles[At(measure.from)].part)])
            length = std::hypot(length, to[2] - from[2]);
        if (length > 1e-6)
            continue;
        const Observation& observation = network.observations[At(measure.observation)];
        throw Failure(ErrorNumber::ZeroLengthSight, "Both ends of a sight have the same start position.",
                      {fmt::format("line {}: {} {}", observation.line, network.points[At(measure.from)].name,
                                   network.points[At(measure.to)].name)});
    }
}

}  // namespace

Approximation Approximate(const Network& network, const Structure& structure) {
    StartPlaces start = GivenPlaces(network, structure);
    const std::vector<char> toCompute = PartsToCompute(network, structure);
    if (std::find(toCompute.begin(), toCompute.end(), 1) != toCompute.end())
        SolveStart(structure, toCompute, 0, start);
    OrientAll(structure, start.state);
    const StartRepair repair = RepairStart(network, structure, start);
    CheckPlaced(network, structure, start);
    CheckFinite(start.state);
    CheckSights(network, structure, start.state);

    Approximation result;
    result.notes = repair.notes;
    result.contradicted = repair.contradicted;
    if (std::find(start.usedGuess.begin(), start.usedGuess.end(), 1) != start.usedGuess.end())
        result.notes.push_back(
            "The observations leave two places for some point; the start position is "
            "the one that fits better, or one of them.");
    result.aim = start.state;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        const bool isContradicted =
            std::binary_search(repair.contradicted.begin(), repair.contradicted.end(), static_cast<int>(i));
        if (network.points[i].hasGiven && !isContradicted)
            result.aim.at[i] = network.points[i].given;
        if (structure.roles[i].part >= 0 &&
            (!network.points[i].hasGiven || start.state.at[i] != network.points[i].given))
            result.computed.push_back(static_cast<int>(i));
    }
    result.state = std::move(start.state);
    result.state.origin = result.aim.origin = OriginOf(network);
    for (State* state : {&result.state, &result.aim}) {
        for (auto& at : state->at) {
            for (std::size_t axis = 0; axis < 3; ++axis)
                at[axis] -= state->origin[axis];
        }
    }
    return result;
}

std::vector<int> LeaveOutPlumbAngles(Structure& structure, const State& state) {
    std::vector<int> leftOut;
    std::erase_if(structure.measures, [&](const Measure& measure) {
        if (measure.kind != MeasureKind::Direction && measure.kind != MeasureKind::ZenithAngle)
            return false;
        const auto seen = SeenFrom(measure, state);
        const double horizontal = std::hypot(seen[0], seen[1]);
        const bool isPlumb = horizontal < kPlumbSight && horizontal < 1e-3 * std::abs(seen[2]);
        if (isPlumb)
            leftOut.push_back(measure.observation);
        return isPlumb;
    });
    for (Setup& setup : structure.setups)
        setup.hasDirections = false;
    for (const Measure& measure : structure.measures) {
        if (measure.kind == MeasureKind::Direction)
            structure.setups[At(measure.setup)].hasDirections = true;
    }
    return leftOut;
}

void ReduceToHeldHeights(Structure& structure, const Network& network, const State& state) {
    const auto isHeld = [&](int point) {
        return structure.roles[At(point)].heightGroup < 0 && !network.points[At(point)].isFixed;
    };
    for (Measure& measure : structure.measures) {
        if (measure.kind != MeasureKind::SlopeDistance || (!isHeld(measure.from) && !isHeld(measure.to)))
            continue;
        const double rise = state.at[At(measure.to)][2] - state.at[At(measure.from)][2];
        const double square = measure.value * measure.value - rise * rise;
        if (square < 0.01 * measure.value * measure.value)
            continue;
        const double horizontal = std::sqrt(square);
        measure.sigma *= measure.value / horizontal;
        measure.value = horizontal;
        measure.kind = MeasureKind::HorizontalDistance;
    }
}

void OrientAll(const Structure& structure, State& state) {
    std::vector<std::size_t> end(structure.setups.size() + 1, 0);
    const auto isOf = [](const Measure& measure) {
        return measure.kind == MeasureKind::Direction && !measure.isTilted;
    };
    for (const Measure& measure : structure.measures) {
        if (isOf(measure))
            ++end[At(measure.setup) + 1];
    }
    for (std::size_t i = 1; i < end.size(); ++i)
        end[i] += end[i - 1];
    std::vector<double> zeros(end.back());
    std::vector<std::size_t> next(end.begin(), end.end() - 1);
    for (const Measure& measure : structure.measures) {
        if (!isOf(measure))
            continue;
        const auto& from = state.at[At(measure.from)];
        const auto& to = state.at[At(measure.to)];
        zeros[next[At(measure.setup)]++] = std::atan2(to[0] - from[0], to[1] - from[1]) - measure.value;
    }
    for (std::size_t i = 0; i < structure.setups.size(); ++i) {
        const auto first = zeros.begin() + static_cast<std::ptrdiff_t>(end[i]);
        const auto last = zeros.begin() + static_cast<std::ptrdiff_t>(end[i + 1]);
        if (first != last)
            state.orientation[i] = MiddleAngle(first, last);
    }
    TurnTilted(structure, state);
}

}  // namespace Krenn
