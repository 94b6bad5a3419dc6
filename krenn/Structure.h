// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "krenn/Network.h"

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
    int from, to;     // indices into Network::points
    double value;     // radians or meters
    double sigma;     // radians or meters
    int observation;  // index into Network::observations
};

// What one point takes part in. A group is a set of points whose plan (or height) positions hang together
// through observations that see plan (or height); a part is a set of points that hang together at all.
struct PointRole {
    int part = -1;               // from 0; -1: no observation
    int planGroup = -1;          // from 0; -1: no observation sees its plan position
    int heightGroup = -1;        // from 0; -1: no observation sees its height
    bool isStation = false;      // it occupies a set-up
    bool hasDirections = false;  // it carries an orientation unknown
    bool planIsUnknown = false;
    bool heightIsUnknown = false;
};

struct Structure {
    Dimension dimension = Dimension::Full;
    std::vector<PointRole> roles;      // per point
    std::vector<Measure> measures;     // in the order of the observations
    std::vector<char> partHasHeights;  // per part: slope distances, heights are unknowns
    int parts = 0;
    int planGroups = 0;
    int heightGroups = 0;
    std::vector<std::string> notes;
};

// Throws Failure UndeterminedHeights for points of a part with heights that no zenith angle and no height
// difference reaches and that have no given height, and NothingToAdjust if there is no unknown coordinate.
Structure FindStructure(const Network& network);

// The names of the given points in one text, at most `limit` of them.
std::string NameList(const Network& network, const std::vector<int>& points, std::size_t limit = 40);

}  // namespace Krenn
