// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/PlanFrame.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "krenn/Model.h"

namespace Krenn {
namespace {

constexpr std::size_t kMostLoci = 10;  // crossings grow with the square of the loci
constexpr double kSoundSine = 0.1;
constexpr double kWeakSine = 0.003;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

void Wait(PlanFrame& frame, int point) {
    if (frame.isPlaced[At(point)] || frame.isWaiting[At(point)])
        return;
    frame.isWaiting[At(point)] = 1;
    frame.waiting.push_back(point);
}

// The value that most of the angles agree with: the one with the smallest sum of turns to the others.
double CentralAngle(const std::vector<double>& angles) {
    double best = angles.front();
    double bestSum = INFINITY;
    const std::size_t considered = std::min<std::size_t>(angles.size(), 25);
    for (std::size_t i = 0; i < considered; ++i) {
        double sum = 0;
        for (const double other : angles)
            sum += std::abs(Wrapped(other - angles[i]));
        if (sum < bestSum) {
            bestSum = sum;
            best = angles[i];
        }
    }
    return best;
}

void OrientFromPlaced(PlanFrame& frame, const PlanSights& sights, int station) {
    if (!frame.isPlaced[At(station)] || frame.isOriented[At(station)])
        return;
    const int parent = frame.parent[At(station)];
    std::vector<double> estimates;
    std::vector<double> ofFamily;
    for (const PlanSights::Sight& sight : sights.out[At(station)]) {
        if (!frame.isPlaced[At(sight.other)] ||
            DistanceTo(frame.at[At(station)], frame.at[At(sight.other)]) <= kPlumb)
            continue;
        estimates.push_back(AzimuthTo(frame.at[At(station)], frame.at[At(sight.other)]) - sight.reading);
        if (parent >= 0 && (sight.other == parent || frame.parent[At(sight.other)] == parent))
            ofFamily.push_back(estimates.back());
    }
    if (!estimates.empty())
        OrientStation(frame, sights, station, CentralAngle(ofFamily.empty() ? estimates : ofFamily));
}

// What is known about where a point lies: loci to cross with one another, and the directions read on it.
struct Evidence {
    std::vector<Locus> loci;
    std::vector<PlanSights::Sight> seen;  // placed targets of the point's own directions
    int equations = 0;
};

void AddInscribedAngles(const PlanFrame& frame, Evidence& evidence) {
    const std::size_t count = std::min<std::size_t>(evidence.seen.size(), 5);
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = i + 1; j < count && evidence.loci.size() < kMostLoci; ++j) {
            const auto& left = evidence.seen[i];
            const auto& right = evidence.seen[j];
            const auto locus = InscribedAngle(frame.at[At(left.other)], frame.at[At(right.other)],
                                              right.reading - left.reading);
            if (locus)
                evidence.loci.push_back(*locus);
        }
    }
    evidence.equations += static_cast<int>(evidence.seen.size()) - 1;
}

Evidence EvidenceFor(const PlanFrame& frame, const PlanSights& sights, int point) {
    Evidence evidence;
    for (const PlanSights::Sight& sight : sights.in[At(point)]) {
        if (!frame.isPlaced[At(sight.other)] || !frame.isOriented[At(sight.other)] ||
            evidence.loci.size() >= kMostLoci)
            continue;
        evidence.loci.push_back({Locus::Shape::Ray, frame.at[At(sight.other)],
                                 frame.orientation[At(sight.other)] + sight.reading, 0});
        ++evidence.equations;
    }
    if (frame.isMetric) {
        const std::size_t most = evidence.loci.size() + kMostLoci / 2;
        for (const PlanSights::Leg& leg : sights.legs[At(point)]) {
            if (!frame.isPlaced[At(leg.other)] || evidence.loci.size() >= most)
                continue;
            evidence.loci.push_back({Locus::Shape::Circle, frame.at[At(leg.other)], 0, leg.length});
            ++evidence.equations;
        }
    }
    for (const PlanSights::Sight& sight : sights.out[At(point)]) {
        if (frame.isPlaced[At(sight.other)])
            evidence.seen.push_back(sight);
    }
    if (evidence.seen.size() >= 2)
        AddInscribedAngles(frame, evidence);
    // A station that looks back along a ray which reaches it is oriented by it: its own sights are rays too.
    for (const PlanSights::Sight& ray : sights.in[At(point)]) {
        if (!frame.isPlaced[At(ray.other)] || !frame.isOriented[At(ray.other)])
            continue;
        for (const PlanSights::Sight& back : evidence.seen) {
            if (back.other != ray.other)
                continue;
            const double zero =
                frame.orientation[At(ray.other)] + ray.reading + std::numbers::pi - back.reading;
            for (const PlanSights::Sight& sight : evidence.seen) {
                if (sight.other != ray.other && evidence.loci.size() < 2 * kMostLoci)
                    evidence.loci.push_back({Locus::Shape::Ray, frame.at[At(sight.other)],
                                             zero + sight.reading + std::numbers::pi, 0});
            }
            return evidence;
        }
    }
    return evidence;
}

// Sum over the evidence of how far it is missed, in meters, each piece capped so that one gross error cannot
// outweigh the others.
double ScoreOf(const PlanFrame& frame, const Evidence& evidence, const Place& place) {
    double score = 0;
    double nearest = INFINITY;
    for (const Locus& locus : evidence.loci) {
        if (locus.shape == Locus::Shape::InscribedAngle)
            continue;
        const double cap = 0.1 + 0.05 * DistanceTo(locus.at, place);
        score += std::min(Misfit(locus, place), cap);
    }
    if (evidence.seen.size() >= 2) {
        std::vector<double> zeros;
        for (const PlanSights::Sight& sight : evidence.seen) {
            nearest = std::min(nearest, DistanceTo(place, frame.at[At(sight.other)]));
            zeros.push_back(AzimuthTo(place, frame.at[At(sight.other)]) - sight.reading);
        }
        const double centre = CentralAngle(zeros);
        for (std::size_t i = 0; i < zeros.size(); ++i) {
            const double distance = DistanceTo(place, frame.at[At(evidence.seen[i].other)]);
            score += std::min(std::abs(Wrapped(zeros[i] - centre)) * distance, 0.1 + 0.05 * distance);
        }
        // On top of a known point every inscribed angle through it is met; that is no solution.
        if (nearest < kPlumb)
            return INFINITY;
    }
    return score;
}

struct Candidate {
    Place at;
    double sine;
    double score;
};

std::vector<Candidate> CandidatesFor(const PlanFrame& frame, const Evidence& evidence, double leastSine) {
    std::vector<Candidate> candidates;
    for (std::size_t i = 0; i < evidence.loci.size(); ++i) {
        for (std::size_t j = i + 1; j < evidence.loci.size(); ++j) {
            for (const Crossing& crossing : Crossings(evidence.loci[i], evidence.loci[j])) {
                if (crossing.sine < leastSine)
                    continue;
                const double score = ScoreOf(frame, evidence, crossing.at);
                if (std::isfinite(score))
                    candidates.push_back({crossing.at, crossing.sine, score});
            }
        }
    }
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const Candidate& a, const Candidate& b) { return a.score < b.score; });
    return candidates;
}

// True if a place well away from the best one fits nearly as well.
bool HasRival(const std::vector<Candidate>& candidates, const Evidence& evidence) {
    const Candidate& best = candidates.front();
    double reach = 0;
    for (const Locus& locus : evidence.loci)
        reach = std::max(reach, DistanceTo(locus.at, best.at));
    const double apart = 0.02 * reach + 0.02;
    const double noise = 1e-3 + 1e-4 * reach;
    return std::any_of(candidates.begin(), candidates.end(), [&](const Candidate& other) {
        return DistanceTo(other.at, best.at) > apart && other.score < 3 * best.score + noise;
    });
}

// The place that most polar sights agree on: the one with the smallest sum of distances to the others. No
// search is needed for it, and it is by far the most frequent case.
bool PlaceByPolarSight(PlanFrame& frame, const PlanSights& sights, int point) {
    struct Polar {
        Place at;
        int station;
    };
    std::vector<Polar> polars;
    for (const PlanSights::Sight& sight : sights.in[At(point)]) {
        const int station = sight.other;
        if (!frame.isMetric || !frame.isPlaced[At(station)] || !frame.isOriented[At(station)])
            continue;
        const auto& legs = sights.legs[At(point)];
        const auto leg = std::find_if(legs.begin(), legs.end(),
                                      [&](const PlanSights::Leg& each) { return each.other == station; });
        if (leg != legs.end())
            polars.push_back({PolarFrom(frame.at[At(station)], frame.orientation[At(station)] + sight.reading,
                                        leg->length),
                              station});
    }
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
    if (best != nullptr)
        PlacePoint(frame, sights, point, best->at, best->station);
    return best != nullptr;
}

bool TryPlace(PlanFrame& frame, const PlanSights& sights, int point, Strictness strictness) {
    if (PlaceByPolarSight(frame, sights, point))
        return true;
    const Evidence evidence = EvidenceFor(frame, sights, point);
    if (evidence.equations < 2)
        return false;
    const auto candidates =
        CandidatesFor(frame, evidence, strictness == Strictness::Sound ? kSoundSine : kWeakSine);
    if (candidates.empty() || (strictness != Strictness::Ambiguous && HasRival(candidates, evidence)))
        return false;
    PlacePoint(frame, sights, point, candidates.front().at);
    return true;
}

bool PlaceWaiting(PlanFrame& frame, const PlanSights& sights) {
    bool any = false;
    while (!frame.waiting.empty()) {
        const int point = frame.waiting.front();
        frame.waiting.pop_front();
        frame.isWaiting[At(point)] = 0;
        if (!frame.isPlaced[At(point)])
            any |= TryPlace(frame, sights, point, Strictness::Sound);
    }
    return any;
}

bool PlaceNext(PlanFrame& frame, const PlanSights& sights, Strictness strictness) {
    for (int point = 0; point < sights.Points(); ++point) {
        if (!frame.isPlaced[At(point)] && TryPlace(frame, sights, point, strictness))
            return true;
    }
    return false;
}

}  // namespace

PlanFrame::PlanFrame(int points)
    : at(At(points)),
      orientation(At(points), 0.0),
      isPlaced(At(points), 0),
      isOriented(At(points), 0),
      parent(At(points), -1),
      isWaiting(At(points), 0) {}

void PlacePoint(PlanFrame& frame, const PlanSights& sights, int point, const Place& at, int parent) {
    frame.at[At(point)] = at;
    frame.parent[At(point)] = parent;
    frame.isPlaced[At(point)] = 1;
    frame.placed.push_back(point);
    OrientFromPlaced(frame, sights, point);
    for (const PlanSights::Sight& sight : sights.in[At(point)]) {
        OrientFromPlaced(frame, sights, sight.other);
        Wait(frame, sight.other);
    }
    for (const PlanSights::Sight& sight : sights.out[At(point)])
        Wait(frame, sight.other);
    for (const PlanSights::Leg& leg : sights.legs[At(point)])
        Wait(frame, leg.other);
}

void OrientStation(PlanFrame& frame, const PlanSights& sights, int station, double orientation) {
    frame.orientation[At(station)] = Wrapped(orientation);
    frame.isOriented[At(station)] = 1;
    for (const PlanSights::Sight& sight : sights.out[At(station)])
        Wait(frame, sight.other);
}

bool GrowFrame(PlanFrame& frame, const PlanSights& sights, Strictness strictness) {
    bool any = PlaceWaiting(frame, sights);
    // The third point of a frame of distances may lie on either side of the first two: that is no choice.
    const bool isMirrorFree = frame.isFree && frame.placed.size() == 2 &&
                              !frame.isOriented[At(frame.placed[0])] &&
                              !frame.isOriented[At(frame.placed[1])];
    if (isMirrorFree && PlaceNext(frame, sights, Strictness::Ambiguous)) {
        any = true;
        PlaceWaiting(frame, sights);
    }
    if (strictness == Strictness::Sound)
        return any;
    while (PlaceNext(frame, sights, Strictness::Weak)) {
        any = true;
        PlaceWaiting(frame, sights);
    }
    if (strictness == Strictness::Ambiguous && PlaceNext(frame, sights, Strictness::Ambiguous)) {
        any = true;
        PlaceWaiting(frame, sights);
    }
    return any;
}

}  // namespace Krenn
