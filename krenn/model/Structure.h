// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/Network.h"
#include "krenn/Parameters.h"

namespace Krenn {

// What the observations of a network can determine, found before any number is computed.
//
// Heights: there are only height differences. Plan: there is neither a zenith angle nor a height
// difference; distances are then horizontal. Full: everything else.
enum class Dimension { Heights = 1, Plan = 2, Full = 3 };

// An observation as the mathematics takes it: radians and meters. A distance is horizontal in a part of the
// network that has neither zenith angles nor height differences, and a slope distance elsewhere.
enum class MeasureKind { Direction, ZenithAngle, SlopeDistance, HorizontalDistance, HeightDifference };

struct Measure {
    MeasureKind kind;
    int from, to;           // indices into Network::points
    double value;           // radians or meters
    double sigma;           // radians or meters
    int observation;        // index into Network::observations
    int setup = -1;         // of an angle: index into Structure::setups
    bool isTilted = false;  // an angle in the frame of an instrument that is not levelled
    bool isMarked = false;  // a distance with the tracker mark: of the second distance meter
};

// One standing of an instrument on a point: its angles have one orientation if it is levelled, else three
// rotations.
struct Setup {
    int point;
    int line;                    // of its first row
    bool isTilted = false;       // not levelled
    bool hasDirections = false;  // a levelled set-up without directions has no orientation
};

// What the observations are taken to depend on beside coordinates and rotations.
struct ModelSwitches {
    bool curvature = false;
    RefractionModel refraction = RefractionModel::Off;
    double refractionCoefficient = 0;
    bool scale = false;
    bool zeroPoint = false;
};

// What one point takes part in. A group is a set of points whose plan (or height) positions hang together
// through observations that see plan (or height); a part is a set of points that hang together at all.
struct PointRole {
    int part = -1;           // from 0; -1: no observation
    int planGroup = -1;      // from 0; -1: no observation sees its plan position
    int heightGroup = -1;    // from 0; -1: no observation sees its height
    bool isStation = false;  // an instrument stood on it
    bool planIsUnknown = false;
    bool heightIsUnknown = false;
    bool isContradicted = false;  // the observations contradict its given coordinates: they set no datum
};

struct Structure {
    Dimension dimension = Dimension::Full;
    std::vector<PointRole> roles;   // per point
    std::vector<Measure> measures;  // in the order of the observations
    std::vector<Setup> setups;      // those of one point in one run, points rising
    std::vector<int> setupStart;    // per point: its first set-up; one more at the end
    ModelSwitches model;
    std::vector<char> partHasHeights;  // per part: slope distances, heights are unknowns
    int parts = 0;
    int planGroups = 0;
    int heightGroups = 0;
    std::vector<std::string> notes;
};

// Which set-up each angle belongs to follows Parameters::setups; with TrackerModel::Rotations the angles of a
// tracker are those whose station and target have a distance with the mark (told apart by their order where a
// pair has both kinds of distance).
//
// Throws Failure UnconnectedParts with PartsRule::Refuse, UndeterminedHeights for points of a part with
// heights that no zenith angle and no height difference reaches and that have no given height, and
// NothingToAdjust if there is no unknown coordinate.
Structure FindStructure(const Network& network, const Parameters& parameters = {});

// Takes the observations of kinds that the parameters switch off out of the network and notes how many;
// throws Failure NoObservations when none is left.
void TakeOutKinds(Network& network, const Parameters& parameters);

// Whether inner constraints over the given coordinates run over a point.
inline bool SetsDatum(const Network& network, const Structure& structure, int point) {
    return network.points[static_cast<std::size_t>(point)].hasGiven &&
           !structure.roles[static_cast<std::size_t>(point)].isContradicted;
}

// The names of the given points in one text, at most `limit` of them.
std::string NameList(const Network& network, const std::vector<int>& points, std::size_t limit = 40);

}  // namespace Krenn
