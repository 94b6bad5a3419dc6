// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "krenn/Structure.h"

namespace Krenn {

// The values of all unknowns: coordinates in meters relative to `origin`, orientations in radians, all per
// point. A coordinate that is no unknown keeps its value.
struct State {
    std::array<double, 3> origin{};
    std::vector<std::array<double, 3>> at;
    std::vector<double> orientation;
};

// Which unknown stands behind a number: a coordinate (axis 0 X, 1 Y, 2 Z) or the orientation (axis 3).
struct UnknownOf {
    int point;
    int axis;
};
inline constexpr int kOrientationAxis = 3;

// Numbers of the unknowns, from 0, those of one point in one run.
struct Unknowns {
    std::vector<std::array<int, 4>> number;  // per point and axis; -1 where there is none
    std::vector<UnknownOf> of;               // per unknown

    int Count() const { return static_cast<int>(of.size()); }
};

Unknowns NumberUnknowns(const Structure& structure);

// One observation at a state: its computed value and the derivatives by X, Y, Z of the first point, X, Y, Z
// of the second, and the orientation.
//
//   direction            atan2(dX, dY) - o
//   zenith angle         atan2(h, dZ),  h = sqrt(dX^2 + dY^2)
//   slope distance       sqrt(dX^2 + dY^2 + dZ^2)
//   horizontal distance  h
//   height difference    dZ
//
// d is second point minus first. Near the plumb line, where h is below kPlumb meters, a direction has no
// derivatives: h is taken as kPlumb there, so that the result stays finite.
struct Partials {
    double computed = 0;
    std::array<double, 7> by{};
};
inline constexpr double kPlumb = 1e-3;

Partials ComputePartials(const Measure& measure, const State& state);

double ComputeValue(const Measure& measure, const State& state);

// Observed minus computed; angles are brought into (-pi, pi].
double Misclosure(const Measure& measure, double computed);

// Any angle in radians brought into (-pi, pi].
double Wrapped(double angle);

// The unknown behind each of the seven derivatives, -1 where there is none.
std::array<int, 7> UnknownsOf(const Measure& measure, const Unknowns& unknowns);

}  // namespace Krenn
