// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "krenn/model/Model.h"

namespace Krenn {

// Within this distance of the plumb line, in meters, an angle is left out.
inline constexpr double kPlumbSight = 5e-3;

struct Approximation {
    State state;                    // where the iterations start
    State aim;                      // what inner constraints hold to: the given coordinates where there are
                                    // any that count, else the start positions
    std::vector<int> computed;      // points whose start position came from the observations
    std::vector<int> contradicted;  // of these, those whose given coordinates do not count
    std::vector<std::string> notes;
};

// Start values for every unknown. Points with given coordinates start there. All others are computed from the
// observations alone: frames of points are grown from the given points, or from the best station of a part
// that has none, and frames that share points are joined; heights are carried along zenith angles and height
// differences; sights of tilted instruments are joined in space. A part without given coordinates starts at
// the best station, 0 0 0, with orientation 0.
//
// Where observations miss the start grossly, the part is computed again from other observations, and its
// given coordinates are compared with what the observations alone say: a point that they contradict starts
// from the observations, a fixed one is named, and where all given coordinates are rough the whole part
// starts from the observations.
//
// Throws Failure UndeterminedPoints naming the points that cannot be reached, with what is known of each, and
// ZeroLengthSight when a sight has both its ends at one place.
Approximation Approximate(const Network& network, const Structure& structure);

// Takes directions and zenith angles of sights that are plumb at the state, within kPlumbSight meters, out of
// the measures: a direction says nothing there, and a zenith angle only how far from the plumb line the
// target is, not to which side. Returns the observations left out.
std::vector<int> LeaveOutPlumbAngles(Structure& structure, const State& state);

// Turns slope distances to a point whose height is no unknown in a network of which no height is fixed into
// horizontal ones, with the heights of the state: a held height must not set the height of the whole network
// through the slope of a distance.
void ReduceToHeldHeights(Structure& structure, const Network& network, const State& state);

// Orientations and axes of all set-ups from their angles and the coordinates of the state.
void OrientAll(const Structure& structure, State& state);

}  // namespace Krenn
