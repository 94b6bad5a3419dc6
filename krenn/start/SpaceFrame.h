// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/start/Rises.h"

namespace Krenn {

// Places points in space from tilted set-ups, in the parts that are wanted:
//
//  1. The polar sights of a set-up (direction, zenith angle, distance) give its targets in the frame of the
//     instrument. A frame that shares three known points, not on a line, is moved onto them; frames that
//     share three points are joined first where that is not enough.
//  2. A set-up on a known point is turned by its sights to known points; what it sights is then placed by
//     polar sights, or by the rays of several such set-ups where they pass each other nearest.
//  3. A set-up of which only directions reach known points is resected from three of them, and the fourth
//     decides between the solutions.
//  4. With `mayStart`, a part without any known point takes its first frame as the coordinate system.
//
// A point that several frames hold is put where most of them want it. Returns whether anything was placed.
bool PlaceInSpace(const Structure& structure, const std::vector<char>& isWanted, bool mayStart, State& state,
                  KnownPlaces& known);

}  // namespace Krenn
