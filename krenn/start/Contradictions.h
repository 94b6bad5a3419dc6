// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/start/StartSolve.h"

namespace Krenn {

// Given coordinates compared with what the observations alone say.
struct Comparison {
    State fitted;                      // the positions from the observations, moved onto the given ones
    std::vector<char> isFitted;        // per point: it has such a position
    std::vector<double> away;          // per point with given coordinates: meters from there to them
    std::vector<char> isContradicted;  // per point
};

// Compares the given coordinates in the parts that are wanted with positions that were computed from nothing.
// Positions in plan are moved by the robust similarity of PlanSimilarity.h (with a scale where no distance
// gave one), heights by the median of their differences, parts of tilted instruments alone by the robust
// motion of SpaceMotion.h. A point is contradicted when it is off by more than ten times the median of its
// part, by more than a fiftieth of `lengthScale` (a twentieth where fewer than six points are given), the
// middle length of the sights, and when at least two others agree.
Comparison CompareGiven(const Network& network, const Structure& structure, const std::vector<char>& isWanted,
                        const StartPlaces& free, double lengthScale);

// Moves the fitted positions of the parts that are wanted once more, by least squares: onto the fixed points,
// and as far as these leave a choice onto all given points that are not contradicted, so that inner
// constraints over these find nothing left to move.
void FitOntoDatum(const Network& network, const Structure& structure, const std::vector<char>& isWanted,
                  const StartPlaces& free, Comparison& comparison);

}  // namespace Krenn
