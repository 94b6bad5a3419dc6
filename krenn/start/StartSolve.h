// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/start/PlanSolve.h"
#include "krenn/start/Rises.h"

namespace Krenn {

// Start positions of a network on the way to being found. Coordinates are absolute.
struct StartPlaces {
    State state;
    KnownPlaces known;
    std::vector<char> usedGuess;  // per part: a point had two places, and one was taken
    std::vector<char> isMetric;   // per part: its scale is that of distances or known points
};

// Places what the known points and the observations determine in the parts that are wanted: in plan, in
// height and, from tilted set-ups, in space, in turns until nothing more is found. Another `variant` builds
// on other observations where there is a choice. Set-ups are not oriented.
void SolveStart(const Structure& structure, const std::vector<char>& isWanted, unsigned variant,
                StartPlaces& start);

// Which parts have a tilted set-up.
std::vector<char> PartsWithTilted(const Structure& structure);

}  // namespace Krenn
