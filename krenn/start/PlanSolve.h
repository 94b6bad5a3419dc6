// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "krenn/start/PlanFrame.h"

namespace Krenn {

struct PlanTask {
    std::vector<std::optional<Place>> known;  // per local point: where it is, if that is known
    bool mayGuess = true;  // take one of two equally good places, and shift a frame by one point, at the end
    unsigned variant = 0;  // another number starts elsewhere, and so builds on other observations
};

struct PlanSolution {
    PlanFrame frame;
    bool usedGuess = false;  // a point had two places, and one was taken
};

// Places the points of a part: frames are grown from the known points, or from the best station where none is
// known, and joined until one holds the whole part or nothing helps any more. Points that no frame reaches
// stay unplaced.
PlanSolution SolvePlan(const PlanSights& sights, const PlanTask& task);

}  // namespace Krenn
