// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/model/Model.h"

namespace Krenn {

// Which points of a network have a start position so far.
struct KnownPlaces {
    std::vector<char> plan;
    std::vector<char> height;
};

// Carries heights from the known ones along height differences, and along zenith angles of levelled
// instruments between points of known plan position, in the parts that are wanted. A point that two rises
// agree on comes before one that a single rise reaches. With `mayStart` a height group without any known
// height starts at 0 at its first point.
void CarryHeights(const Structure& structure, const std::vector<char>& isWanted, bool mayStart, State& state,
                  KnownPlaces& known);

}  // namespace Krenn
