// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <vector>

#include "krenn/model/Model.h"

namespace Krenn {

// A sight of a tilted set-up with direction and zenith angle, as a unit vector in the frame of its
// instrument: right, zero direction, up.
struct TiltedSight {
    int to;  // point of the network
    Eigen::Vector3d seen;
};

// The sights of every tilted set-up; empty for levelled ones. Sights without a zenith angle are not used.
std::vector<std::vector<TiltedSight>> GatherTiltedSights(const Structure& structure);

// The rotation R with R lies = seen for pairs of unit vectors (columns), as nearly as possible: Wahba's
// problem, by the singular value decomposition after Markley (1988), weighted anew a few times so that the
// sum of the angles rather than of their squares is least and a gross error in one does not turn it.
Eigen::Matrix3d RotationBetween(const Eigen::Matrix3Xd& lies, const Eigen::Matrix3Xd& seen);

// Axes of every tilted set-up from its directions and zenith angles and the coordinates of the state.
// State::axes is left empty when every set-up is levelled.
void TurnTilted(const Structure& structure, State& state);

}  // namespace Krenn
