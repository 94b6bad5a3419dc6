// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "programs/total/FieldBook.h"
#include "programs/total/SetUpFrame.h"

// All set-ups on one station in one orientation, every sight reduced from mark to mark, the mean of all sets.
// Angles in gons, lengths in meters.
//
// A set with slope distance S, zenith angle z, instrument height i and target height t is reduced by
//   h = S sin z,  dv = S cos z + i - t,  S' = hypot(h, dv),  z' = atan2(h, dv).
// The directions d(r, T) of the rounds r to the targets T are adjusted as d(r, T) = D(T) + o(r), o of the
// first round 0, by least squares; so a target missing in a round disturbs no other, and the means stand on
// the mean orientation of the first round.
namespace Dorvane {

/// One set of a target, reduced. A round counts through all set-ups of the station, from 0.
struct ReducedSet {
    int Round = 0;
    bool BothFaces = false;
    double Direction = 0;            // in the frame of the station's first set-up
    std::optional<double> Zenith;    // mark to mark; nothing when it cannot be reduced
    std::optional<double> Distance;  // mark to mark
};

/// A mean with the standard deviations of one set and of the mean.
struct MeanValue {
    double Value = 0;
    long Count = 0;
    double Squares = 0;  // of the deviations, for pooling
    std::optional<double> SetDeviation;
    std::optional<double> MeanDeviation;
};

struct TargetResult {
    std::string Name;
    std::vector<ReducedSet> Sets;
    long SingleFaces = 0;
    MeanValue Direction;
    std::optional<MeanValue> Zenith;
    std::optional<MeanValue> Distance;
};

struct SetUpResult {
    std::string File;
    long Line = 0;
    std::vector<double> InstrumentHeights;  // each that occurs
    long Sights = 0;
    InstrumentError Collimation;
    InstrumentError Index;
    int Positions = 1;
    bool Used = true;  // false: could not be oriented on the station's first set-up
};

struct StationResult {
    std::string Name;
    std::vector<SetUpResult> SetUps;
    std::vector<TargetResult> Targets;  // in the order of first sight
    int Rounds = 0;
    std::optional<double> DirectionDeviation;  // of one set, pooled over the targets, free of orientation
    std::optional<double> ZenithDeviation;
    std::optional<double> DistanceDeviation;
};

/// Reduces the set-ups of one station, one or more, in the order of the book. A later set-up is oriented on
/// the ones before by the median turn of their common targets; a common target that is off by more than
/// DirectionLimit is left out of it, and without a common target that fits the set-up is left out as a whole:
/// its directions would be false under the one orientation that a station has. A set without a distance is
/// reduced with the mean of the target's others in the set-up; without any, only between equal heights. What
/// is left out is told in the warnings.
StationResult ReduceStation(const std::vector<const StationSetUp*>& setUps, std::vector<Remark>& warnings);

}  // namespace Dorvane
