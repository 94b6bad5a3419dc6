// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/model/Structure.h"

namespace Krenn {

// Fills Structure::setups and Structure::setupStart after the rules of the parameters, and returns the set-up
// of each observation: -1 for distances and height differences, which need none.
//
// A row of angles belongs to a tracker by the distances of the same station and target: if all of them bear
// the mark, it does; if as many bear it as there are rows of angles, all rows do; if as many do not, none
// does; else the rows follow the order of the distances. A pair without a distance follows its station: a
// tracker if all distances measured there bear the mark.
std::vector<int> FindSetups(const Network& network, const Parameters& parameters, Structure& structure);

}  // namespace Krenn
