// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <vector>

#include "krenn/PlanGeometry.h"

namespace Krenn {

// What a part of the network says about plan positions, gathered per point. Points have local numbers.
struct PlanSights {
    struct Sight {
        int other;
        double reading;  // direction in radians, clockwise from the unknown zero of the station
    };
    struct Leg {
        int other;
        double length;  // horizontal distance in meters
    };
    std::vector<std::vector<Sight>> out;  // per point: the directions read on it
    std::vector<std::vector<Sight>> in;   // per point: the directions read to it, `other` the station
    std::vector<std::vector<Leg>> legs;   // per point: both ways

    int Points() const { return static_cast<int>(out.size()); }
};

// Points placed in one common coordinate system of the plane, and stations oriented in it.
struct PlanFrame {
    explicit PlanFrame(int points);

    std::vector<Place> at;
    std::vector<double> orientation;  // azimuth of the zero direction, radians
    std::vector<char> isPlaced;
    std::vector<char> isOriented;
    std::vector<int> placed;  // the placed points, in the order of placing
    std::vector<int> parent;  // the station whose polar sight placed the point; -1 for another way
    bool isMetric = true;     // false while the scale is arbitrary: no distance was used
    bool isFree = false;      // its coordinate system is its own, so that a mirror image is as good

    std::deque<int> waiting;  // points worth a try
    std::vector<char> isWaiting;
};

// How well a new point must be held to be taken.
enum class Strictness {
    Sound,      // good crossing angles, no second solution
    Weak,       // flat crossing angles too
    Ambiguous,  // one of two solutions that fit equally well
};

// Places a point at known coordinates. `parent` is the station whose polar sight did it, if one did: the
// point and what else that station placed share its errors, so that an orientation from them adds none, while
// one from points that came another way would let small contradictions grow from station to station.
void PlacePoint(PlanFrame& frame, const PlanSights& sights, int point, const Place& at, int parent = -1);

// Orients a station in the frame.
void OrientStation(PlanFrame& frame, const PlanSights& sights, int station, double orientation);

// Places every point that the placed ones determine: polar sights, intersections, resections, arcs, free
// stations and any mixture of them. Ambiguous points are taken one at a time, only with
// Strictness::Ambiguous, and only when nothing better is left. Returns whether anything was placed.
bool GrowFrame(PlanFrame& frame, const PlanSights& sights, Strictness strictness);

// Moves `part` onto `frame` by turning, shifting and, where one of them has no scale, scaling, and takes over
// its points and orientations. Needs two common points, or one and a station oriented in both;
// with `shiftAlone` one common point is enough. False if that is not there.
bool MergeFrames(PlanFrame& frame, const PlanSights& sights, const PlanFrame& part, bool shiftAlone);

}  // namespace Krenn
