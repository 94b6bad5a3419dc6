// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <vector>

namespace Krenn {

// Plane geometry for approximate coordinates: places are (X east, Y north) in meters, azimuths are clockwise
// from north in radians.
using Place = std::array<double, 2>;

double AzimuthTo(const Place& from, const Place& to);
double DistanceTo(const Place& from, const Place& to);
Place PolarFrom(const Place& from, double azimuth, double distance);

// Where a wanted point may lie. A ray starts at `at` and runs along `azimuth`. A circle is around `at`.
// A circle that only bears an inscribed angle (the point sees two known points under that angle) is no
// distance and is marked as such.
struct Locus {
    enum class Shape { Ray, Circle, InscribedAngle } shape;
    Place at;
    double azimuth = 0;
    double radius = 0;
};

// The circle from which `left` and `right` appear with `right` clockwise of `left` by `angle` radians; empty
// when the angle is too near to 0 or a half circle for the circle to be of use.
std::optional<Locus> InscribedAngle(const Place& left, const Place& right, double angle);

struct Crossing {
    Place at;
    double sine;  // of the angle under which the two loci cross there, 0 to 1
};

// All points that lie on both loci, at most two; for rays only what lies ahead of the start.
std::vector<Crossing> Crossings(const Locus& first, const Locus& second);

// Distance of a place from a locus in meters; for a ray the place behind the start counts from the start.
double Misfit(const Locus& locus, const Place& place);

}  // namespace Krenn
