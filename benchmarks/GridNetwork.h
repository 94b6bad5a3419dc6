// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace Dorvane {

// The input file of a network in three dimensions on a square grid: ceil(sqrt(points)) points wide, filled
// row by row, 50 m apart, heights within 20 m. Every point is a station that sights its up to eight
// neighbours with direction, zenith angle and slope distance; the observations bear errors of their standard
// deviations (0.3 mgon, 1 mm), the given coordinates such of up to a centimeter, and none is fixed.
struct GridNetwork {
    std::string text;
    int observations = 0;
};

GridNetwork MakeGridNetwork(int points);

}  // namespace Dorvane
