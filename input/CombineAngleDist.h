// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

#include "input/ResultFiles.h"

namespace Dorvane {

/// Pairs each angle, in order, with the first distance of the same station and target that no angle has yet:
/// Value1 and Value2 of the angle, Value1 of the distance as Value3. Only the first `angleCount` and
/// `distanceCount` records take part; both lists and counts come back as what found no partner. Returns the
/// number of pairs. Reports as "basInput-CombineAngleDist".
std::int16_t CombineAngleDist(List1<ResRecord>& total, List1<ResRecord>& angles, std::int16_t& angleCount,
                              List1<ResRecord>& distances, std::int16_t& distanceCount);

}  // namespace Dorvane
