// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/start/PlanFrame.h"

namespace Krenn {

// What is known in a frame about where a point lies: loci to cross with one another, and the directions read
// on it. Angles that disagree by more than kAgreement radians, and lengths by that part of themselves,
// contradict each other.
inline constexpr double kAgreement = 0.01;

struct Evidence {
    std::vector<Locus> loci;
    std::vector<std::vector<PlanSights::Sight>> seen;  // per set-up of the point: its sights to placed points
    int equations = 0;                                 // about the two coordinates
};

Evidence EvidenceFor(const PlanFrame& frame, const PlanSights& sights, int point);

struct PlaceCandidate {
    Place at;
    double sine;   // of the crossing angle
    double score;  // sum of what misses it, in meters, each piece capped
};

// All crossings of two loci under a sine of at least `leastSine`, best first: each is scored by how far it
// misses everything else, each miss capped, so that one gross error cannot outvote the rest.
std::vector<PlaceCandidate> CandidatesFor(const PlanFrame& frame, const Evidence& evidence, double leastSine);

double ScoreOf(const PlanFrame& frame, const Evidence& evidence, const Place& place);

// How many of the equations a place agrees with.
int AgreeingWith(const PlanFrame& frame, const Evidence& evidence, const Place& place);

// True if a place well away from the best candidate fits nearly as well.
bool HasRival(const std::vector<PlaceCandidate>& candidates, const Evidence& evidence);

// The angle that most of the others agree with: the one with the smallest sum of turns to them.
double CentralAngle(const std::vector<double>& angles);

}  // namespace Krenn
