// SPDX-License-Identifier: GPL-3.0-or-later
#include "adjustment/PointIndex.h"

namespace Dorvane {

PointIndex::PointIndex(const List1<AdjustedPoint>& points)
    : Following(static_cast<std::size_t>(points.Count()) + 1, 0) {
    Heads.reserve(static_cast<std::size_t>(points.Count()));
    // From last to first, so that each name's head ends at its first point and the chain behind it rises.
    for (std::int16_t i = points.Count(); i >= 1; --i) {
        const auto [head, isNew] = Heads.try_emplace(points[i].Name, i);
        if (!isNew) {
            Following[static_cast<std::size_t>(i)] = head->second;
            head->second = i;
        }
    }
}

}  // namespace Dorvane
