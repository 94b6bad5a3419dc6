// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <Eigen/Dense>
#include <array>
#include <string>
#include <vector>

#include "krenn/model/Structure.h"

namespace Krenn {

// Axes of an instrument that is not levelled, as unit vectors in the network: right, zero direction, up.
using Axes = std::array<std::array<double, 3>, 3>;

// What a distance meter adds: it reads (1 + scale) times the distance, plus the zero point in meters.
struct DistanceMeter {
    double scale = 0;
    double zeroPoint = 0;
};

inline constexpr double kEarthRadius = 6372508.025;  // meters

// The values of all unknowns: coordinates in meters relative to `origin` per point, orientations in radians
// per set-up (azimuth of the zero direction), axes per set-up where one is tilted. A coordinate that is no
// unknown keeps its value.
struct State {
    std::array<double, 3> origin{};
    std::vector<std::array<double, 3>> at;
    std::vector<double> orientation;     // of a levelled set-up
    std::vector<Axes> axes;              // empty when every set-up is levelled
    std::array<DistanceMeter, 2> meter;  // of distances without and with the tracker mark
    double refraction = 0;               // coefficient k
    double curvature = 0;                // 1 if the curvature of the earth is in the model, else 0
};

// Which unknown stands behind a number: a coordinate of a point (axis 0 X, 1 Y, 2 Z), a rotation of a set-up
// about X, Y or clockwise about Z (axis 3, 4, 5; the last is the orientation), or a value of the whole
// network.
struct UnknownOf {
    int point;  // of the set-up, for rotations; -1 for values of the whole network
    int axis;
    int index = -1;  // of the set-up, or of the distance meter
};
inline constexpr int kRotationAxis = 3;
inline constexpr int kOrientationAxis = 5;
inline constexpr int kScaleAxis = 6;
inline constexpr int kZeroPointAxis = 7;
inline constexpr int kRefractionAxis = 8;

// "X of ST1", "orientation of ST1 (line 12)", "scale of the distance meter" ...
std::string UnknownInWords(const Network& network, const Structure& structure, const UnknownOf& of);

inline bool IsCoordinate(const UnknownOf& of) {
    return of.axis < kRotationAxis;
}

// Numbers of the unknowns, from 0: those of one point and of its set-ups in one run, those of the whole
// network last.
struct Unknowns {
    std::vector<std::array<int, 3>> number;    // per point and axis; -1 where there is none
    std::vector<std::array<int, 3>> rotation;  // per set-up about X, Y, Z; the first two -1 if it is levelled
    std::array<int, 2> scale{-1, -1};          // per distance meter
    std::array<int, 2> zeroPoint{-1, -1};
    int refraction = -1;
    std::vector<UnknownOf> of;  // per unknown
    int globals = 0;            // unknowns of the whole network

    int Count() const { return static_cast<int>(of.size()); }
};

// A distance meter has unknowns only if it measured a distance, refraction only if there is a zenith angle.
Unknowns NumberUnknowns(const Structure& structure);

// One observation at a state: its computed value and the derivatives by X, Y, Z of the first point, X, Y, Z
// of the second, the three rotations, and two values of the whole network: scale and zero point for a
// distance, refraction for an angle.
//
// With d = second point minus first, h = sqrt(dX^2 + dY^2), R the earth's radius, c = 1 with curvature:
//
//   sight       q = dZ - (c - k) h^2 / (2 R)        length      q0 = dZ - c h^2 / (2 R)
//
//   direction            atan2(dX, dY) - o                      levelled
//   zenith angle         atan2(h, q)                            levelled
//   direction            atan2(x', y')                          tilted, (x', y', z') = axes (dX, dY, q)
//   zenith angle         atan2(sqrt(x'^2 + y'^2), z')           tilted
//   slope distance       (1 + scale) sqrt(h^2 + q0^2) + zero point
//   horizontal distance  (1 + scale) h + zero point
//   height difference    dZ
//
// Near the instrument's plumb line, within kPlumb meters, a direction has no derivatives: the distance from
// it is taken as kPlumb there, so that the result stays finite.
inline constexpr std::size_t kTerms = 11;
inline constexpr std::size_t kRotationTerm = 6;
inline constexpr std::size_t kGlobalTerm = 9;
struct Partials {
    double computed = 0;
    std::array<double, kTerms> by{};
};
inline constexpr double kPlumb = 1e-3;

Partials ComputePartials(const Measure& measure, const State& state);

double ComputeValue(const Measure& measure, const State& state);

// The sight of a measure seen from its instrument: right, ahead along the zero direction, up, in meters. For
// a levelled instrument the first two are east and north.
std::array<double, 3> SeenFrom(const Measure& measure, const State& state);

// Adds `step` times a correction of all unknowns; orientations stay in (-pi, pi].
State Moved(const State& state, const Unknowns& unknowns, const Eigen::VectorXd& correction, double step);

// The three rotations in radians that readers know: axes = Rx(first) Ry(second) Rz(third), 0 0 o for a
// levelled set-up. The second lies within a quarter circle.
std::array<double, 3> RotationsOf(const State& state, const Setup& setup, std::size_t number);

// The axes of three such rotations.
Axes AxesOf(const std::array<double, 3>& rotations);

// Observed minus computed; angles are brought into (-pi, pi].
double Misclosure(const Measure& measure, double computed);

// Any angle in radians brought into (-pi, pi].
double Wrapped(double angle);

// The unknown behind each derivative, -1 where there is none.
std::array<int, kTerms> UnknownsOf(const Measure& measure, const Unknowns& unknowns);

}  // namespace Krenn
