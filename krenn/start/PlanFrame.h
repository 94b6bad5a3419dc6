// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <deque>
#include <vector>

#include "krenn/start/PlanGeometry.h"
#include "krenn/start/PlanSights.h"

namespace Krenn {

// How well a new point must be held to be taken.
enum class Strictness {
    Confirmed,  // more agreeing observations than it takes to place it
    Sound,      // good crossing angles, no second solution
    Weak,       // flat crossing angles too
    Ambiguous,  // one of two solutions that fit equally well
};

// Points placed in one common coordinate system of the plane, and set-ups oriented in it.
struct PlanFrame {
    PlanFrame(int points, int setups);

    std::vector<Place> at;
    std::vector<char> isPlaced;
    std::vector<double> orientation;  // per set-up: azimuth of the zero direction, radians
    std::vector<char> isOriented;     // per set-up
    std::vector<int> orientedBy;      // per set-up: sights behind the orientation; 0 if it was given
    std::vector<int> placed;          // the placed points, in the order of placing
    std::vector<int> parent;          // the station whose polar sight placed the point; -1 for another way
    bool isMetric = true;             // false while the scale is arbitrary: no distance was used
    bool isFree = false;              // its coordinate system is its own, so that a mirror image is as good

    // Points worth a try, by how strictly: those that fail one level wait at the next.
    std::array<std::deque<int>, 3> waiting;
    std::vector<signed char> level;  // per point: where it waits, -1 nowhere
};

// Places a point at known coordinates and orients what that makes possible. `parent` is the station whose
// polar sight did it, if one did: the point and what else that station placed share its errors, so that an
// orientation from them adds none, while one from points that came another way would let small
// contradictions grow from station to station.
void PlacePoint(PlanFrame& frame, const PlanSights& sights, int point, const Place& at, int parent = -1);

// Orients a set-up in the frame.
void OrientSetup(PlanFrame& frame, const PlanSights& sights, int setup, double orientation);

// Places every point that the placed ones determine: polar sights, intersections, resections, arcs, free
// stations and any mixture of them. The best confirmed come first, so that a gross error finds the others
// agreed before its turn. Ambiguous points are taken one at a time, only with Strictness::Ambiguous, and only
// when nothing better is left. Returns whether anything was placed.
bool GrowFrame(PlanFrame& frame, const PlanSights& sights, Strictness strictness);

// Moves points that most of their observations contradict to the place that most agree with, and orients the
// set-ups anew. Points with `isHeld` stay.
void SettleFrame(PlanFrame& frame, const PlanSights& sights, const std::vector<char>& isHeld);

// Moves `part` onto `frame` by turning, shifting and, where one of them has no scale, scaling, and takes over
// its points and orientations. Needs two common points, or one and a set-up oriented in both;
// with `shiftAlone` one common point is enough. False if that is not there.
bool MergeFrames(PlanFrame& frame, const PlanSights& sights, const PlanFrame& part, bool shiftAlone);

}  // namespace Krenn
