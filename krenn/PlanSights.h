// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/Model.h"
#include "krenn/PlanFrame.h"

namespace Krenn {

// The plan observations of one part of the network with local point numbers.
struct PartSights {
    PlanSights sights;
    std::vector<int> points;  // local number to point of the network
};

// Gathers the plan observations of every part. Slope distances are reduced to the horizontal with the zenith
// angle of the sight or of the sight back, the height difference of the pair, or the given heights, whichever
// comes first; without any of them the slope distance itself is taken.
std::vector<PartSights> GatherSights(const Network& network, const Structure& structure);

}  // namespace Krenn
