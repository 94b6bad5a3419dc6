// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "krenn/start/StartSolve.h"

namespace Krenn {

struct StartRepair {
    std::vector<int> contradicted;  // points whose given coordinates do not count, rising
    std::vector<std::string> notes;
};

// Looks for observations that miss the start grossly, and for points that are not placed, and mends the start
// of the parts that have such. Candidates are built on other observations, and on the given coordinates that
// the observations do not contradict (Contradictions.h); the best is the one with the fewest points unplaced
// and the least cost (StartCheck.h). A start from the observations alone takes the place of given coordinates
// that are rough all over. One pass over the observations when nothing is wrong. Set-ups of the start are
// oriented before and after.
StartRepair RepairStart(const Network& network, const Structure& structure, StartPlaces& start);

// Whether a point has a start position in all that its observations see.
bool IsPlaced(const Structure& structure, const KnownPlaces& known, std::size_t point);

}  // namespace Krenn
