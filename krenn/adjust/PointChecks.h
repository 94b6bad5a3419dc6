// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/adjust/Statistics.h"

namespace Krenn {

enum class Unchecked { Position, Plan, Height, OneDirection };

struct UncheckedPoint {
    int point;
    Unchecked what;
};

// The points of which a position, or a component of it, rests on observations that no other checks: one
// sight, two rays that meet, three distances. Such a point goes wherever an error of theirs sends it, and no
// test can tell.
//
// With the gradients g of a point's observations by its coordinates, the rotations of its own set-ups
// eliminated and everything else held, T = sum of g g' / sigma^2 over all of them, and M the same sum over
// those with a redundancy number of at least kNotChecked. A direction u of space is not checked when
// u' M u < kNotChecked u' T u; the least of these ratios is an eigenvalue of M relative to T.
//
// In the order of the points. Empty without cofactors, and at redundancy 0, where nothing is checked at all.
std::vector<UncheckedPoint> FindUncheckedPoints(const Adjustment& adjustment, const Statistics& statistics);

}  // namespace Krenn
