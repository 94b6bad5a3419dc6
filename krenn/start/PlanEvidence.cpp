// SPDX-License-Identifier: GPL-3.0-or-later
#include "krenn/start/PlanEvidence.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Krenn {
namespace {

constexpr std::size_t kMostLoci = 10;  // crossings grow with the square of the loci
constexpr std::size_t kMostSeen = 5;   // of one set-up, paired for inscribed angles
constexpr std::size_t kMostCentres = 25;

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

bool IsRay(const PlanFrame& frame, const PlanSights::Sight& sight) {
    return frame.isPlaced[At(sight.other)] && frame.isOriented[At(sight.setup)];
}

void AddRays(const PlanFrame& frame, const PlanSights& sights, int point, Evidence& evidence) {
    for (const PlanSights::Sight& sight : sights.in[At(point)]) {
        if (!IsRay(frame, sight) || evidence.loci.size() >= kMostLoci)
            continue;
        evidence.loci.push_back({Locus::Shape::Ray, frame.at[At(sight.other)],
                                 frame.orientation[At(sight.setup)] + sight.reading, 0});
        ++evidence.equations;
    }
}

void AddCircles(const PlanFrame& frame, const PlanSights& sights, int point, Evidence& evidence) {
    const std::size_t most = evidence.loci.size() + kMostLoci / 2;
    for (const PlanSights::Leg& leg : sights.legs[At(point)]) {
        if (!frame.isPlaced[At(leg.other)] || evidence.loci.size() >= most)
            continue;
        evidence.loci.push_back({Locus::Shape::Circle, frame.at[At(leg.other)], 0, leg.length});
        ++evidence.equations;
    }
}

void AddInscribedAngles(const PlanFrame& frame, const std::vector<PlanSights::Sight>& seen,
                        Evidence& evidence) {
    const std::size_t count = std::min(seen.size(), kMostSeen);
    const std::size_t most = evidence.loci.size() + kMostLoci;
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t j = i + 1; j < count && evidence.loci.size() < most; ++j) {
            const auto locus = InscribedAngle(frame.at[At(seen[i].other)], frame.at[At(seen[j].other)],
                                              seen[j].reading - seen[i].reading);
            if (locus)
                evidence.loci.push_back(*locus);
        }
    }
}

// A set-up that looks back along a ray which reaches it is oriented by it: its own sights are rays too.
void AddTurnedRays(const PlanFrame& frame, const PlanSights& sights, int point,
                   const std::vector<PlanSights::Sight>& seen, Evidence& evidence) {
    for (const PlanSights::Sight& ray : sights.in[At(point)]) {
        if (!IsRay(frame, ray))
            continue;
        const auto back = std::find_if(seen.begin(), seen.end(), [&](const PlanSights::Sight& sight) {
            return sight.other == ray.other;
        });
        if (back == seen.end())
            continue;
        const double zero = frame.orientation[At(ray.setup)] + ray.reading + std::numbers::pi - back->reading;
        for (const PlanSights::Sight& sight : seen) {
            if (sight.other != ray.other && evidence.loci.size() < 3 * kMostLoci)
                evidence.loci.push_back({Locus::Shape::Ray, frame.at[At(sight.other)],
                                         zero + sight.reading + std::numbers::pi, 0});
        }
        return;
    }
}

// What the sights of one set-up on the point say about its zero direction, if it stands at `place`.
std::vector<double> ZerosOf(const PlanFrame& frame, const std::vector<PlanSights::Sight>& seen,
                            const Place& place) {
    std::vector<double> zeros;
    zeros.reserve(seen.size());
    for (const PlanSights::Sight& sight : seen)
        zeros.push_back(AzimuthTo(place, frame.at[At(sight.other)]) - sight.reading);
    return zeros;
}

}  // namespace

double CentralAngle(const std::vector<double>& angles) {
    double best = angles.front();
    double bestSum = INFINITY;
    const std::size_t considered = std::min(angles.size(), kMostCentres);
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

Evidence EvidenceFor(const PlanFrame& frame, const PlanSights& sights, int point) {
    Evidence evidence;
    AddRays(frame, sights, point, evidence);
    if (frame.isMetric)
        AddCircles(frame, sights, point, evidence);
    for (int setup = sights.setupStart[At(point)]; setup < sights.setupStart[At(point) + 1]; ++setup) {
        std::vector<PlanSights::Sight> seen;
        for (const PlanSights::Sight& sight : sights.out[At(setup)]) {
            if (frame.isPlaced[At(sight.other)] && sight.other != point)
                seen.push_back(sight);
        }
        if (seen.size() < 2)
            continue;
        AddInscribedAngles(frame, seen, evidence);
        AddTurnedRays(frame, sights, point, seen, evidence);
        evidence.equations += static_cast<int>(seen.size()) - 1;
        evidence.seen.push_back(std::move(seen));
    }
    return evidence;
}

double ScoreOf(const PlanFrame& frame, const Evidence& evidence, const Place& place) {
    double score = 0;
    for (const Locus& locus : evidence.loci) {
        if (locus.shape == Locus::Shape::InscribedAngle)
            continue;
        const double cap = 0.1 + 0.05 * DistanceTo(locus.at, place);
        score += std::min(Misfit(locus, place), cap);
    }
    double nearest = INFINITY;
    for (const auto& seen : evidence.seen) {
        const std::vector<double> zeros = ZerosOf(frame, seen, place);
        const double centre = CentralAngle(zeros);
        for (std::size_t i = 0; i < zeros.size(); ++i) {
            const double distance = DistanceTo(place, frame.at[At(seen[i].other)]);
            nearest = std::min(nearest, distance);
            score += std::min(std::abs(Wrapped(zeros[i] - centre)) * distance, 0.1 + 0.05 * distance);
        }
    }
    // On top of a known point every inscribed angle through it is met; that is no solution.
    return nearest < kPlumb ? INFINITY : score;
}

int AgreeingWith(const PlanFrame& frame, const Evidence& evidence, const Place& place) {
    int agreeing = 0;
    std::size_t turned = 0;
    for (const auto& seen : evidence.seen)
        turned += seen.size() - 1;
    // Rays turned by a back sight repeat what the set-up's own sights say and are not counted.
    const std::size_t own = At(evidence.equations) - turned;
    for (std::size_t i = 0; i < std::min(own, evidence.loci.size()); ++i) {
        const Locus& locus = evidence.loci[i];
        agreeing += Misfit(locus, place) < kAgreement * DistanceTo(locus.at, place) ? 1 : 0;
    }
    for (const auto& seen : evidence.seen) {
        const std::vector<double> zeros = ZerosOf(frame, seen, place);
        const double centre = CentralAngle(zeros);
        agreeing += static_cast<int>(std::count_if(
                        zeros.begin(), zeros.end(),
                        [&](double zero) { return std::abs(Wrapped(zero - centre)) < kAgreement; })) -
                    1;
    }
    return agreeing;
}

std::vector<PlaceCandidate> CandidatesFor(const PlanFrame& frame, const Evidence& evidence,
                                          double leastSine) {
    std::vector<PlaceCandidate> candidates;
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
                     [](const PlaceCandidate& a, const PlaceCandidate& b) { return a.score < b.score; });
    return candidates;
}

bool HasRival(const std::vector<PlaceCandidate>& candidates, const Evidence& evidence) {
    const PlaceCandidate& best = candidates.front();
    double reach = 0;
    for (const Locus& locus : evidence.loci)
        reach = std::max(reach, DistanceTo(locus.at, best.at));
    const double apart = 0.02 * reach + 0.02;
    const double noise = 1e-3 + 1e-4 * reach;
    return std::any_of(candidates.begin(), candidates.end(), [&](const PlaceCandidate& other) {
        return DistanceTo(other.at, best.at) > apart && other.score < 3 * best.score + noise;
    });
}

}  // namespace Krenn
