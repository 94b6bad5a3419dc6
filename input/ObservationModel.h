// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>

#include "core/List1.h"

// The data of one adjustment. Angles are in gons, distances and coordinates in meters. Lists count from 1.
// A point's identity is its upper-cased name, compared exactly, and its place in a table is the order of
// first appearance.
namespace Dorvane {

/// A 16-bit switch, -1 for on and 0 for off.
using Switch = std::int16_t;
inline constexpr Switch SwitchOn = -1;
inline constexpr Switch SwitchOff = 0;

/// The seven kinds of input types, in the order in which they are read. Nothing is observed, weighted or
/// written for the last two: they are listed only.
inline constexpr const char* InputKinds[] = {"Tracker",  "Total", "Height", "Angle",
                                             "Distance", "Gyro",  "Offset"};

/// One entry of the input types table.
struct InputType {
    std::string Type;         // its kind
    std::string Name;         // as shown
    std::string Icon;         // file name of its picture
    std::string Location;     // data type names, as ParseFields cuts them
    std::int16_t Number = 0;  // its index within its kind, and that of its ObsSet and weights

    bool operator==(const InputType&) const = default;
};

/// A polar observation in one result line: two angles and a distance together.
struct TrackerObs {
    std::string Station;
    std::string Target;
    double HAngle = 0;
    double ZAngle = 0;
    double SDist = 0;
    double HAngleError = 0;
    double ZAngleError = 0;
    double SDistError = 0;
    Switch UseH = SwitchOff;
    Switch UseZ = SwitchOff;
    Switch UseD = SwitchOff;
};

/// A polar observation from one line, or paired from separate angles and distances.
struct TotalObs {
    std::string Station;
    std::string Target;
    double HAngle = 0;
    double ZAngle = 0;
    double SDist = 0;
    double HAngleError = 0;
    double ZAngleError = 0;
    double SDistError = 0;
    Switch UseH = SwitchOff;
    Switch UseZ = SwitchOff;
    Switch UseD = SwitchOff;
};

/// A horizontal direction with a zenith angle.
struct AngleObs {
    std::string Station;
    std::string Target;
    double HAngle = 0;
    double ZAngle = 0;
    double HAngleError = 0;
    double ZAngleError = 0;
    Switch UseH = SwitchOff;
    Switch UseZ = SwitchOff;
};

/// A distance alone.
struct DistanceObs {
    std::string Station;
    std::string Target;
    double Dist = 0;
    double DistError = 0;
    Switch Use = SwitchOff;
};

/// A height difference from Station to Target.
struct HeightObs {
    std::string Station;
    std::string Target;
    double HDiff = 0;
    double HDiffError = 0;
    Switch Use = SwitchOff;
};

/// The observations of one input type.
template <class Observation>
using ObsSet = List1<Observation>;

/// Standard errors: angles in gons, SDist and HDiff in meters. LHAngle and LZAngle are linear errors at the
/// target in meters and count when LinAngle is 1. HDist is kept in the file and has no use.
struct TrackerWeight {
    double HAngle = 0;
    double ZAngle = 0;
    double SDist = 0;
    double LHAngle = 0;
    double LZAngle = 0;
    std::int16_t LinAngle = 0;
};

struct TotalWeight {
    double HAngle = 0;
    double ZAngle = 0;
    double SDist = 0;
    double HDist = 0;
    double LHAngle = 0;
    double LZAngle = 0;
    std::int16_t LinAngle = 0;
};

struct AngleWeight {
    double HAngle = 0;
    double ZAngle = 0;
};

struct DistanceWeight {
    double SDist = 0;
    double HDist = 0;
};

struct HeightWeight {
    double HDiff = 0;
};

/// An entry of the point table, also a point of a coordinate file.
struct ObsPoint {
    std::string Name;
    double X = 0;
    double Y = 0;
    double Z = 0;
    double Extra1 = 0;
    double Extra2 = 0;
    double Extra3 = 0;
    std::int16_t HangCount = 0;  // observations to this point, by what they measure
    std::int16_t ZangCount = 0;
    std::int16_t SdstCount = 0;
    std::int16_t LhgtCount = 0;
    std::int16_t CoordSource =
        0;  // 0 none, 1 benchmark, 2 monument, 3 three-dimensional or general, 4 ideal or BDD
    Switch Switch1 = SwitchOff;  // the writer needs the first two on
    Switch Switch2 = SwitchOff;
    Switch Switch3 = SwitchOff;
};

/// An entry of the station table.
struct ObsStation {
    std::string Name;
    double X = 0;
    double Y = 0;
    double Z = 0;
    Switch Use = SwitchOff;
    Switch HasCoords = SwitchOff;
};

/// Everything that the input screen collects. The sets and weights of a kind are addressed by the Number of
/// their input type.
struct ObservationModel {
    List1<InputType> Types;

    List1<ObsSet<DistanceObs>> DistanceSets;
    List1<ObsSet<AngleObs>> AngleSets;
    List1<ObsSet<TotalObs>> TotalSets;
    List1<ObsSet<TrackerObs>> TrackerSets;
    List1<ObsSet<HeightObs>> HeightSets;

    List1<DistanceWeight> DistanceWeights;
    List1<AngleWeight> AngleWeights;
    List1<TotalWeight> TotalWeights;
    List1<TrackerWeight> TrackerWeights;
    List1<HeightWeight> HeightWeights;

    List1<ObsPoint> Points;
    List1<ObsStation> Stations;
};

/// Calls `visit(sets, weights)` with the two arrays of an input type's kind; not at all for a kind that has
/// none.
template <class Model, class Visitor>
void VisitKind(Model& model, const InputType& type, const Visitor& visit) {
    if (type.Type == "Tracker")
        visit(model.TrackerSets, model.TrackerWeights);
    else if (type.Type == "Total")
        visit(model.TotalSets, model.TotalWeights);
    else if (type.Type == "Height")
        visit(model.HeightSets, model.HeightWeights);
    else if (type.Type == "Angle")
        visit(model.AngleSets, model.AngleWeights);
    else if (type.Type == "Distance")
        visit(model.DistanceSets, model.DistanceWeights);
}

/// Calls `visit(set)` with the observations of an input type. Error 9 when the array is shorter than the
/// type's Number.
template <class Model, class Visitor>
void VisitObsSet(Model& model, const InputType& type, const Visitor& visit) {
    VisitKind(model, type, [&](auto& sets, auto&) { visit(sets[type.Number]); });
}

/// Calls `visit(set, weight)` with the observations and the weight record of an input type. Error 9 when one
/// of the arrays is shorter than the type's Number.
template <class Model, class Visitor>
void VisitWeightedSet(Model& model, const InputType& type, const Visitor& visit) {
    VisitKind(model, type,
              [&](auto& sets, auto& weights) { visit(sets[type.Number], weights[type.Number]); });
}

}  // namespace Dorvane
