// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <vector>

#include "krenn/model/Model.h"

namespace Krenn {

// What a part of the network says about plan positions. Points and levelled set-ups have local numbers.
struct PlanSights {
    struct Sight {
        int other;       // the target, or in `in` the station
        int setup;       // it was read in
        double reading;  // direction in radians, clockwise from the unknown zero of the set-up
    };
    struct Leg {
        int other;
        double length;  // horizontal distance in meters
    };
    std::vector<std::vector<Sight>> out;  // per set-up
    std::vector<std::vector<Sight>> in;   // per point: the directions read to it
    std::vector<std::vector<Leg>> legs;   // per point: both ways
    std::vector<int> station;             // per set-up: its point
    std::vector<int> setupStart;          // per point: its first set-up; one more at the end

    int Points() const { return static_cast<int>(in.size()); }
    int Setups() const { return static_cast<int>(out.size()); }
};

// The middle one of all distances measured between two points, both ways; none if there is none.
std::optional<double> LengthBetween(const PlanSights& sights, int from, int to);

// The plan observations of one part of the network.
struct PartSights {
    PlanSights sights;
    std::vector<int> points;  // local number to point of the network
    std::vector<int> setups;  // local number to set-up of the structure
};

// Gathers the plan observations of the parts that are wanted, one entry a part; the others stay empty. Slope
// distances are reduced to the horizontal with the zenith angle of the sight or of the sight back, the height
// difference of the pair, or the heights of the state where both are known, whichever comes first; without
// any of them the slope distance itself is taken, unless it is one of a tilted instrument, whose sights may
// be steep.
std::vector<PartSights> GatherSights(const Structure& structure, const std::vector<char>& isWanted,
                                     const State& state, const std::vector<char>& isKnown);

}  // namespace Krenn
