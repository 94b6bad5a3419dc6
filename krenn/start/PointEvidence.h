// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "krenn/model/Structure.h"

namespace Krenn {

// What the observations say about points, in words, one line a point: "P7: one direction, from ST1",
// "P8: 2 distances, from ST1, ST2: two places are possible", "P9: 3 distances, all from ST1".
std::vector<std::string> EvidenceInWords(const Network& network, const Structure& structure,
                                         const std::vector<int>& points);

}  // namespace Krenn
