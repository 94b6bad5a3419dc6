// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/PlanFrame.h"

#include <algorithm>
#include <cmath>

#include "krenn/start/PlanEvidence.h"

namespace Krenn {
namespace {

constexpr double kSoundSine = 0.1;
constexpr double kWeakSine = 0.003;
constexpr int kEnoughSights = 12;  // an orientation from so many sights is not changed by further ones
constexpr std::size_t kMostPolars = 25;
constexpr int kMostSweeps = 4;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

std::size_t LevelOf(Strictness strictness) {
    return static_cast<std::size_t>(strictness);
}

void Wait(PlanFrame& frame, int point, Strictness strictness = Strictness::Confirmed) {
    const auto level = static_cast<signed char>(LevelOf(strictness));
    if (frame.isPlaced[At(point)] || (frame.level[At(point)] >= 0 && frame.level[At(point)] <= level))
        return;
    frame.level[At(point)] = level;
    frame.waiting[LevelOf(strictness)].push_back(point);
}

void OrientFromPlaced(PlanFrame& frame, const PlanSights& sights, int setup) {
    const int station = sights.station[At(setup)];
    const bool isGivenOrEnough =
        frame.isOriented[At(setup)] &&
        (frame.orientedBy[At(setup)] == 0 || frame.orientedBy[At(setup)] >= kEnoughSights);
    if (!frame.isPlaced[At(station)] || isGivenOrEnough)
        return;
    const int parent = frame.parent[At(station)];
    std::vector<double> estimates;
    std::vector<double> ofFamily;
    for (const PlanSights::Sight& sight : sights.out[At(setup)]) {
        if (!frame.isPlaced[At(sight.other)] ||
            DistanceTo(frame.at[At(station)], frame.at[At(sight.other)]) <= kPlumb)
            continue;
        estimates.push_back(AzimuthTo(frame.at[At(station)], frame.at[At(sight.other)]) - sight.reading);
        if (parent >= 0 && (sight.other == parent || frame.parent[At(sight.other)] == parent))
            ofFamily.push_back(estimates.back());
    }
    if (estimates.empty())
        return;
    double zero = CentralAngle(estimates);
    const double family = ofFamily.empty() ? zero : CentralAngle(ofFamily);
    if (estimates.size() <= 2 || std::abs(Wrapped(family - zero)) < kAgreement)
        zero = family;
    OrientSetup(frame, sights, setup, zero);
    frame.orientedBy[At(setup)] = static_cast<int>(estimates.size());
}

struct Polar {
    Place at;
    int station;
    double length;
};

std::vector<Polar> PolarsTo(const PlanFrame& frame, const PlanSights& sights, int point) {
    std::vector<Polar> polars;
    for (const PlanSights::Sight& sight : sights.in[At(point)]) {
        const int station = sight.other;
        if (!frame.isMetric || !frame.isPlaced[At(station)] || !frame.isOriented[At(sight.setup)] ||
            polars.size() >= kMostPolars)
            continue;
        if (const auto length = LengthBetween(sights, point, station))
            polars.push_back({PolarFrom(frame.at[At(station)],
                                        frame.orientation[At(sight.setup)] + sight.reading, *length),
                              station, *length});
    }
    return polars;
}

// The polar sight with the smallest sum of distances to the places of the others; none without any.
const Polar* CentralPolar(const std::vector<Polar>& polars) {
    const Polar* best = nullptr;
    double bestSum = INFINITY;
    for (const Polar& polar : polars) {
        double sum = 0;
        for (const Polar& other : polars)
            sum += DistanceTo(polar.at, other.at);
        if (sum < bestSum) {
            bestSum = sum;
            best = &polar;
        }
    }
    return best;
}

// Polar sights from several stations that agree need no search, and are by far the most frequent case.
bool IsConfirmed(const Polar& polar, const std::vector<Polar>& polars) {
    return std::any_of(polars.begin(), polars.end(), [&](const Polar& other) {
        return other.station != polar.station &&
               DistanceTo(polar.at, other.at) < kAgreement * std::min(polar.length, other.length);
    });
}

bool PlaceAt(PlanFrame& frame, const PlanSights& sights, int point, const Place& at, int parent) {
    PlacePoint(frame, sights, point, at, parent);
    return true;
}

bool TryPlace(PlanFrame& frame, const PlanSights& sights, int point, Strictness strictness) {
    const std::vector<Polar> polars = PolarsTo(frame, sights, point);
    const Polar* central = CentralPolar(polars);
    if (central != nullptr && IsConfirmed(*central, polars))
        return PlaceAt(frame, sights, point, central->at, central->station);
    const Evidence evidence = EvidenceFor(frame, sights, point);
    const bool mustAgree = strictness == Strictness::Confirmed;
    if (evidence.equations < (mustAgree ? 3 : 2))
        return false;
    // One polar sight, and nothing to choose from.
    if (central != nullptr && evidence.equations == 2)
        return PlaceAt(frame, sights, point, central->at, central->station);
    const bool isSound = strictness == Strictness::Confirmed || strictness == Strictness::Sound;
    const auto candidates = CandidatesFor(frame, evidence, isSound ? kSoundSine : kWeakSine);
    if (!candidates.empty() && (strictness == Strictness::Ambiguous || !HasRival(candidates, evidence)) &&
        (!mustAgree || AgreeingWith(frame, evidence, candidates.front().at) >= 3))
        return PlaceAt(frame, sights, point, candidates.front().at, -1);
    return !mustAgree && central != nullptr && PlaceAt(frame, sights, point, central->at, central->station);
}

// Takes the waiting points, the strict levels first, down to `strictness`.
bool PlaceWaiting(PlanFrame& frame, const PlanSights& sights, Strictness strictness) {
    bool any = false;
    std::size_t level = 0;
    while (level <= LevelOf(strictness)) {
        auto& waiting = frame.waiting[level];
        if (waiting.empty()) {
            ++level;
            continue;
        }
        const int point = waiting.front();
        waiting.pop_front();
        if (frame.isPlaced[At(point)] || frame.level[At(point)] != static_cast<signed char>(level))
            continue;
        frame.level[At(point)] = -1;
        if (TryPlace(frame, sights, point, static_cast<Strictness>(level))) {
            any = true;
            level = 0;
        } else if (level + 1 < frame.waiting.size()) {
            Wait(frame, point, static_cast<Strictness>(level + 1));
        }
    }
    return any;
}

bool PlaceAmbiguous(PlanFrame& frame, const PlanSights& sights) {
    for (int point = 0; point < sights.Points(); ++point) {
        if (!frame.isPlaced[At(point)] && TryPlace(frame, sights, point, Strictness::Ambiguous))
            return true;
    }
    return false;
}

// Where most observations of a placed point want it, if they do not want it where it is.
bool MoveToMajority(PlanFrame& frame, const PlanSights& sights, int point) {
    const std::vector<Polar> polars = PolarsTo(frame, sights, point);
    const Place at = frame.at[At(point)];
    const bool isAgreed = std::count_if(polars.begin(), polars.end(),
                                        [&](const Polar& polar) {
                                            return DistanceTo(polar.at, at) < kAgreement * polar.length;
                                        }) *
                              2 >
                          static_cast<std::ptrdiff_t>(polars.size());
    if (isAgreed)
        return false;
    const Evidence evidence = EvidenceFor(frame, sights, point);
    const int agreeing = AgreeingWith(frame, evidence, at);
    if (agreeing * 3 > evidence.equations * 2 || evidence.equations < 3)
        return false;
    const auto candidates = CandidatesFor(frame, evidence, kSoundSine);
    if (candidates.empty() || HasRival(candidates, evidence))
        return false;
    const PlaceCandidate& best = candidates.front();
    if (AgreeingWith(frame, evidence, best.at) <= agreeing || best.score > 0.7 * ScoreOf(frame, evidence, at))
        return false;
    frame.at[At(point)] = best.at;
    frame.parent[At(point)] = -1;
    return true;
}

void OrientAnew(PlanFrame& frame, const PlanSights& sights) {
    for (int setup = 0; setup < sights.Setups(); ++setup) {
        if (frame.orientedBy[At(setup)] == 0)
            continue;
        std::vector<double> zeros;
        const int station = sights.station[At(setup)];
        for (const PlanSights::Sight& sight : sights.out[At(setup)]) {
            if (frame.isPlaced[At(sight.other)] && sight.other != station)
                zeros.push_back(AzimuthTo(frame.at[At(station)], frame.at[At(sight.other)]) - sight.reading);
        }
        if (!zeros.empty())
            frame.orientation[At(setup)] = CentralAngle(zeros);
    }
}

}  // namespace

PlanFrame::PlanFrame(int points, int setups)
    : at(At(points)),
      isPlaced(At(points), 0),
      orientation(At(setups), 0.0),
      isOriented(At(setups), 0),
      orientedBy(At(setups), 0),
      parent(At(points), -1),
      level(At(points), -1) {}

void PlacePoint(PlanFrame& frame, const PlanSights& sights, int point, const Place& at, int parent) {
    frame.at[At(point)] = at;
    frame.parent[At(point)] = parent;
    frame.isPlaced[At(point)] = 1;
    frame.placed.push_back(point);
    for (int setup = sights.setupStart[At(point)]; setup < sights.setupStart[At(point) + 1]; ++setup) {
        OrientFromPlaced(frame, sights, setup);
        for (const PlanSights::Sight& sight : sights.out[At(setup)])
            Wait(frame, sight.other);
    }
    for (const PlanSights::Sight& sight : sights.in[At(point)]) {
        OrientFromPlaced(frame, sights, sight.setup);
        Wait(frame, sight.other);
    }
    for (const PlanSights::Leg& leg : sights.legs[At(point)])
        Wait(frame, leg.other);
}

void OrientSetup(PlanFrame& frame, const PlanSights& sights, int setup, double orientation) {
    frame.orientation[At(setup)] = orientation;
    if (frame.isOriented[At(setup)])
        return;
    frame.isOriented[At(setup)] = 1;
    for (const PlanSights::Sight& sight : sights.out[At(setup)])
        Wait(frame, sight.other);
}

bool GrowFrame(PlanFrame& frame, const PlanSights& sights, Strictness strictness) {
    const Strictness least = strictness == Strictness::Ambiguous ? Strictness::Weak : strictness;
    bool any = PlaceWaiting(frame, sights, least);
    // The third point of a frame of distances may lie on either side of the first two: that is no choice.
    const bool isMirrorFree =
        frame.isFree && frame.placed.size() == 2 &&
        std::none_of(frame.isOriented.begin(), frame.isOriented.end(), [](char c) { return c != 0; });
    if ((isMirrorFree || strictness == Strictness::Ambiguous) && PlaceAmbiguous(frame, sights)) {
        any = true;
        PlaceWaiting(frame, sights, least);
    }
    return any;
}

void SettleFrame(PlanFrame& frame, const PlanSights& sights, const std::vector<char>& isHeld) {
    for (int sweep = 0; sweep < kMostSweeps; ++sweep) {
        OrientAnew(frame, sights);
        bool any = false;
        for (const int point : frame.placed)
            any |= !isHeld[At(point)] && MoveToMajority(frame, sights, point);
        if (!any)
            return;
    }
}

}  // namespace Krenn
