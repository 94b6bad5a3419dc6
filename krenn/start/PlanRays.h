// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/start/PlanFrame.h"

namespace Krenn {

// Frames from directions alone where no two stations see enough of the same to start from. Set-ups that sight
// each other know how they are turned against one another, from set-up to set-up. With all rays of such a
// group known in azimuth a, the positions solve the homogeneous linear system
//
//     cos a (x_j - x_i) - sin a (y_j - y_i) = 0    for each ray from i to j
//
// beside its shifts up to one scale, or several where parts of it can grow on their own: rays whose lengths
// stay in proportion in all solutions belong to one rigid part. One frame for the largest rigid part of each
// group, without scale.
std::vector<PlanFrame> FramesOfRays(const PlanSights& sights);

}  // namespace Krenn
