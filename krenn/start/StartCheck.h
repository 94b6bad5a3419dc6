// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/model/Model.h"

namespace Krenn {

// How well a start position fits the observations of one part of the network.
struct StartFit {
    int measures = 0;
    int gross = 0;    // observations that it misses by more than kGrossMiss of their length
    double cost = 0;  // sum of ln(1 + (v / 50 sigma)^2), which one gross error raises little, after Cauchy
};
inline constexpr double kGrossMiss = 0.02;

// The fit of every part, for a state whose set-ups are oriented. `isKnown` leaves out observations to points
// that have no start position. `lengthScale` is a length of the network in meters, below a tenth of which a
// sight counts as that long.
std::vector<StartFit> FitOf(const Structure& structure, const State& state, const std::vector<char>& isKnown,
                            double lengthScale);

// The middle length of the sights of the network in plan and height at a state, in meters.
double MedianSight(const Structure& structure, const State& state, const std::vector<char>& isKnown);

}  // namespace Krenn
