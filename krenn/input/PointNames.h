// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "krenn/Network.h"

namespace Krenn {

// The indices of points by their names, whatever the case of a name asked for. The names themselves stay in
// the points.
struct PointNames {
    struct Slot {
        std::uint32_t hash;
        int point;  // -1 in a free slot
    };
    std::vector<Slot> slots;  // open addressing; a power of two, at most half of them taken
    std::size_t count = 0;

    // The index of the point of this name, -1 without one.
    int Find(std::string_view name, const std::vector<Point>& points) const;

    // Adds the last of the points, whose name is not yet known.
    void AddLast(const std::vector<Point>& points);
};

}  // namespace Krenn
