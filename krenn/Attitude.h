// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "krenn/Model.h"

namespace Krenn {

// Axes of every tilted set-up from its directions and zenith angles and the coordinates of the state: the
// rotation that brings the unit vectors of its sights nearest to those between the points (Wahba's problem,
// by the singular value decomposition after Markley). Sights without a zenith angle are not used. State::axes
// is left empty when every set-up is levelled.
void TurnTilted(const Structure& structure, State& state);

}  // namespace Krenn
