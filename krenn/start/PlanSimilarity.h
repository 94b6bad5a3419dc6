// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "krenn/start/PlanGeometry.h"

namespace Krenn {

// x' = s (x cos a + y sin a) + tx, y' = s (-x sin a + y cos a) + ty; y is turned over before for a mirror
// image.
struct Similarity {
    double turn = 0;  // clockwise, radians
    double scale = 1;
    Place shift{};
    bool isMirrored = false;

    Place operator()(const Place& place) const;
};

// Sets the shift so that `from` comes to lie on `to`.
void ShiftOnto(Similarity& similarity, const Place& from, const Place& to);

// The least-squares similarity of two lists of places, in closed form after Helmert; with `keepsScale` the
// scale is 1.
Similarity BestSimilarity(const std::vector<Place>& from, const std::vector<Place>& to, bool keepsScale,
                          bool isMirrored);

// The similarity that most places agree with: of those through two places the one with the least median of
// the misses (Rousseeuw, Least median of squares regression, 1984), then the least-squares one of the places
// within a few times that median. Of two places alone it is the least-squares one. `mayMirror` tries mirror
// images too. None when all places of a list coincide.
std::optional<Similarity> RobustSimilarity(const std::vector<Place>& from, const std::vector<Place>& to,
                                           bool keepsScale, bool mayMirror);

// The middle one of the numbers; the lower one of two. `numbers` must not be empty.
double MedianOf(std::vector<double> numbers);

}  // namespace Krenn
