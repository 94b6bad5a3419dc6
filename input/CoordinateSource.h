// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/List1.h"

namespace Dorvane {

/// One point as the coordinate database gives it; coordinates in meters.
struct RetrievedPoint {
    std::string Name;
    double X = 0;
    double Y = 0;
    double Z = 0;
    double Extra1 = 0;
    double Extra2 = 0;
};

/// The component that reads the coordinate database. A fresh one is made for each location and type.
class CoordinateSource {
  public:
    virtual ~CoordinateSource() = default;

    /// Looks up named points. `folder` is the location's database folder, with its backslash; `typeCode` is 1
    /// benchmarks, 2 monuments, 3 three-dimensional, 4 ideals. The list of names holds their count as decimal
    /// text at index 0 and the names from 1. `flag` is open and always 0. `items` takes the points found,
    /// `count` their number.
    virtual void RetrieveNamed(const std::string& folder, std::int32_t typeCode,
                               const List1<std::string>& namesWithCountInItem0, std::int32_t flag,
                               std::int32_t& count, std::vector<RetrievedPoint>& items) = 0;
};

using MakeCoordinateSource = std::function<std::unique_ptr<CoordinateSource>()>;

}  // namespace Dorvane
