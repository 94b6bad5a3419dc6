// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/Approximate.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <deque>

#include "krenn/Attitude.h"
#include "krenn/Errors.h"
#include "krenn/PlanSights.h"

namespace Krenn {
namespace {

constexpr std::size_t kMostFrames = 200;
constexpr double kFreeBase = 100;  // meters between the first two points of a frame without any distance

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

// ---- Plan ----

struct Seed {
    int first = -1;
    int second = -1;
    double length = 0;   // 0: no distance, the frame gets an arbitrary scale
    double reading = 0;  // direction from first to second
    bool isOriented = false;
};

const PlanSights::Leg* LegBetween(const PlanSights& sights, int from, int to) {
    for (const PlanSights::Leg& leg : sights.legs[At(from)]) {
        if (leg.other == to)
            return &leg;
    }
    return nullptr;
}

// The best start of a new frame among points that no frame holds: the station with the most polar sights,
// else two points with a distance, else a station and a target.
Seed FindSeed(const PlanSights& sights, const std::vector<char>& isCovered, bool wantsDistance) {
    Seed best;
    int most = 0;
    for (int station = 0; station < sights.Points(); ++station) {
        if (isCovered[At(station)])
            continue;
        int polars = 0;
        Seed seed;
        for (const PlanSights::Sight& sight : sights.out[At(station)]) {
            const PlanSights::Leg* leg = wantsDistance ? LegBetween(sights, station, sight.other) : nullptr;
            if (wantsDistance && leg == nullptr)
                continue;
            if (polars++ == 0)
                seed = {station, sight.other, leg ? leg->length : 0.0, sight.reading, true};
        }
        if (polars > most) {
            most = polars;
            best = seed;
        }
    }
    if (most > 0 || !wantsDistance)
        return best;
    for (int point = 0; point < sights.Points(); ++point) {
        if (isCovered[At(point)] || sights.legs[At(point)].empty())
            continue;
        const PlanSights::Leg& leg = sights.legs[At(point)].front();
        return {point, leg.other, leg.length, 0, false};
    }
    return best;
}

PlanFrame FrameFrom(const PlanSights& sights, const Seed& seed) {
    PlanFrame frame(sights.Points());
    frame.isMetric = seed.length > 0;
    frame.isFree = true;
    PlacePoint(frame, sights, seed.first, {0, 0});
    if (seed.isOriented)
        OrientStation(frame, sights, seed.first, 0);
    PlacePoint(frame, sights, seed.second,
               PolarFrom({0, 0}, seed.reading, frame.isMetric ? seed.length : kFreeBase), seed.first);
    GrowFrame(frame, sights, Strictness::Weak);
    return frame;
}

bool JoinFrames(std::vector<PlanFrame>& frames, const PlanSights& sights, bool shiftAlone) {
    for (std::size_t i = 0; i < frames.size(); ++i) {
        for (std::size_t j = i + 1; j < frames.size(); ++j) {
            // The frame of the given points keeps its place; of two free ones the one that knows its scale
            // does.
            if (frames[i].isFree && !frames[i].isMetric && frames[j].isMetric)
                std::swap(frames[i], frames[j]);
            if (!MergeFrames(frames[i], sights, frames[j], shiftAlone && i == 0))
                continue;
            frames.erase(frames.begin() + static_cast<std::ptrdiff_t>(j));
            GrowFrame(frames[i], sights, Strictness::Weak);
            return true;
        }
    }
    return false;
}

bool IsComplete(const std::vector<PlanFrame>& frames, const PlanSights& sights) {
    return !frames.empty() && frames.front().placed.size() == At(sights.Points());
}

bool AddFrame(std::vector<PlanFrame>& frames, const PlanSights& sights) {
    if (frames.size() >= kMostFrames)
        return false;
    std::vector<char> isCovered(At(sights.Points()), 0);
    for (const PlanFrame& frame : frames) {
        for (const int point : frame.placed)
            isCovered[At(point)] = 1;
    }
    Seed seed = FindSeed(sights, isCovered, true);
    if (seed.first < 0)
        seed = FindSeed(sights, isCovered, false);
    if (seed.first < 0)
        return false;
    frames.push_back(FrameFrom(sights, seed));
    return true;
}

bool GrowAmbiguous(std::vector<PlanFrame>& frames, const PlanSights& sights) {
    return std::any_of(frames.begin(), frames.end(),
                       [&](PlanFrame& frame) { return GrowFrame(frame, sights, Strictness::Ambiguous); });
}

// Grows and joins frames until one holds the whole part or nothing helps any more. The first frame of the
// result is the one to take. `usedGuess` tells that a point had two places and one was taken.
std::vector<PlanFrame> SolvePart(const PartSights& part, const Network& network, bool& usedGuess) {
    std::vector<PlanFrame> frames;
    const bool hasGiven = std::any_of(part.points.begin(), part.points.end(),
                                      [&](int point) { return network.points[At(point)].hasGiven; });
    if (hasGiven) {
        frames.emplace_back(part.sights.Points());
        for (int local = 0; local < part.sights.Points(); ++local) {
            const Point& point = network.points[At(part.points[At(local)])];
            if (point.hasGiven)
                PlacePoint(frames[0], part.sights, local, {point.given[0], point.given[1]});
        }
        GrowFrame(frames[0], part.sights, Strictness::Weak);
    }
    while (!IsComplete(frames, part.sights)) {
        if (JoinFrames(frames, part.sights, false) || AddFrame(frames, part.sights))
            continue;
        if (GrowAmbiguous(frames, part.sights)) {
            usedGuess = true;
            continue;
        }
        if (!(hasGiven && JoinFrames(frames, part.sights, true)))
            break;
    }
    if (!hasGiven)
        std::stable_sort(frames.begin(), frames.end(), [](const PlanFrame& a, const PlanFrame& b) {
            return a.placed.size() > b.placed.size();
        });
    return frames;
}

void ApproximatePlan(const Network& network, const Structure& structure, Approximation& result,
                     std::vector<int>& unplaced) {
    std::vector<char> isComputed(network.points.size(), 0);
    for (const PartSights& part : GatherSights(network, structure)) {
        if (part.points.empty())
            continue;
        bool usedGuess = false;
        const std::vector<PlanFrame> frames = SolvePart(part, network, usedGuess);
        for (int local = 0; local < part.sights.Points(); ++local) {
            const int point = part.points[At(local)];
            if (frames.empty() || !frames.front().isPlaced[At(local)]) {
                unplaced.push_back(point);
                continue;
            }
            if (network.points[At(point)].hasGiven)
                continue;
            auto& at = result.state.at[At(point)];
            at[0] = frames.front().at[At(local)][0];
            at[1] = frames.front().at[At(local)][1];
            isComputed[At(point)] = 1;
        }
        if (usedGuess)
            result.notes.push_back(
                "The observations leave two places for some point; the start position is "
                "the one that fits better, or one of them.");
    }
    for (std::size_t i = 0; i < isComputed.size(); ++i) {
        if (isComputed[i])
            result.computed.push_back(static_cast<int>(i));
    }
}

// ---- Heights ----

struct Rise {
    int other;
    double rise;  // height of the other point above this one
};

std::vector<std::vector<Rise>> GatherRises(const Structure& structure, const State& state) {
    std::vector<std::vector<Rise>> rises(structure.roles.size());
    for (const Measure& measure : structure.measures) {
        double rise = 0;
        if (measure.kind == MeasureKind::HeightDifference) {
            rise = measure.value;
        } else if (measure.kind == MeasureKind::ZenithAngle && !measure.isTilted) {
            const auto& from = state.at[At(measure.from)];
            const auto& to = state.at[At(measure.to)];
            const double sine = std::sin(measure.value);
            if (std::abs(sine) < 1e-9)
                continue;
            rise = std::hypot(to[0] - from[0], to[1] - from[1]) * std::cos(measure.value) / sine;
        } else {
            continue;
        }
        rises[At(measure.from)].push_back({measure.to, rise});
        rises[At(measure.to)].push_back({measure.from, -rise});
    }
    return rises;
}

void CarryHeights(const std::vector<std::vector<Rise>>& rises, State& state, std::vector<char>& isKnown,
                  std::deque<int>& waiting) {
    while (!waiting.empty()) {
        const int point = waiting.front();
        waiting.pop_front();
        for (const Rise& rise : rises[At(point)]) {
            if (isKnown[At(rise.other)])
                continue;
            isKnown[At(rise.other)] = 1;
            state.at[At(rise.other)][2] = state.at[At(point)][2] + rise.rise;
            waiting.push_back(rise.other);
        }
    }
}

void ApproximateHeights(const Network& network, const Structure& structure, State& state) {
    const auto rises = GatherRises(structure, state);
    std::vector<char> isKnown(network.points.size(), 0);
    std::deque<int> waiting;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (network.points[i].hasGiven && structure.roles[i].heightGroup >= 0) {
            isKnown[i] = 1;
            waiting.push_back(static_cast<int>(i));
        }
    }
    CarryHeights(rises, state, isKnown, waiting);
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (structure.roles[i].heightGroup < 0 || isKnown[i])
            continue;
        isKnown[i] = 1;
        waiting.push_back(static_cast<int>(i));
        CarryHeights(rises, state, isKnown, waiting);
    }
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
    Approximation result;
    State& state = result.state;
    state.at.assign(network.points.size(), {});
    state.orientation.assign(structure.setups.size(), 0);
    state.curvature = structure.model.curvature ? 1 : 0;
    if (structure.model.refraction != RefractionModel::Off)
        state.refraction = structure.model.refractionCoefficient;
    for (std::size_t i = 0; i < network.points.size(); ++i) {
        if (network.points[i].hasGiven)
            state.at[i] = network.points[i].given;
    }
    std::vector<int> unplaced;
    if (structure.dimension != Dimension::Heights)
        ApproximatePlan(network, structure, result, unplaced);
    if (!unplaced.empty())
        throw Failure(ErrorNumber::UndeterminedPoints,
                      "No start position can be computed for points from the observations.",
                      {NameList(network, unplaced, 1000)});
    if (structure.dimension != Dimension::Plan)
        ApproximateHeights(network, structure, state);
    if (structure.dimension == Dimension::Heights) {
        for (std::size_t i = 0; i < network.points.size(); ++i) {
            if (structure.roles[i].part >= 0 && !network.points[i].hasGiven)
                result.computed.push_back(static_cast<int>(i));
        }
    }
    CheckFinite(state);
    CheckSights(network, structure, state);
    state.origin = OriginOf(network);
    for (auto& at : state.at) {
        for (std::size_t axis = 0; axis < 3; ++axis)
            at[axis] -= state.origin[axis];
    }
    OrientAll(structure, state);
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
    std::vector<std::vector<double>> zeros(structure.setups.size());
    for (const Measure& measure : structure.measures) {
        if (measure.kind != MeasureKind::Direction || measure.isTilted)
            continue;
        const auto& from = state.at[At(measure.from)];
        const auto& to = state.at[At(measure.to)];
        zeros[At(measure.setup)].push_back(std::atan2(to[0] - from[0], to[1] - from[1]) - measure.value);
    }
    for (std::size_t i = 0; i < zeros.size(); ++i) {
        if (zeros[i].empty())
            continue;
        // The middle of the turns against the first one, so that one gross error does not turn the station.
        std::vector<double> turns;
        for (const double zero : zeros[i])
            turns.push_back(Wrapped(zero - zeros[i].front()));
        const auto middle = turns.begin() + static_cast<std::ptrdiff_t>(turns.size() / 2);
        std::nth_element(turns.begin(), middle, turns.end());
        state.orientation[i] = Wrapped(zeros[i].front() + *middle);
    }
    TurnTilted(structure, state);
}

}  // namespace Krenn
