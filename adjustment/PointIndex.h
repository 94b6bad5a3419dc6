// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "adjustment/AdjustmentResults.h"
#include "core/List1.h"

namespace Dorvane {

/// Finds points by name as a scan of the list from first to last would: the first of a name, or all of that
/// name in the list's order. Names equal byte for byte. The index holds views of the names, so the list must
/// stay complete and unmoved as long as it is used; the points' other fields may change.
class PointIndex {
  public:
    explicit PointIndex(const List1<AdjustedPoint>& points);

    /// The first point of a name in the list that was indexed; null when there is none.
    AdjustedPoint* First(List1<AdjustedPoint>& points, std::string_view name) const {
        const auto found = Heads.find(name);
        return found == Heads.end() ? nullptr : &points[found->second];
    }

    /// Calls `change` for every point of a name, first to last.
    template <class Change>
    void ForEach(List1<AdjustedPoint>& points, std::string_view name, const Change& change) const {
        const auto found = Heads.find(name);
        for (std::int16_t i = found == Heads.end() ? std::int16_t{0} : found->second; i != 0;
             i = Following[static_cast<std::size_t>(i)])
            change(points[i]);
    }

  private:
    std::unordered_map<std::string_view, std::int16_t> Heads;
    std::vector<std::int16_t> Following;  // by position, the next one of the same name; 0 behind the last
};

}  // namespace Dorvane
