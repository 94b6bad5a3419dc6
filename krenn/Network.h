// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace Krenn {

// What an input file says, in plain records. Angles are in gons, lengths in meters, X east, Y north,
// Z up. Points, observations and pairs are numbered from 0 in order of first appearance.

enum class Kind { Direction, ZenithAngle, Distance, HeightDifference };
inline constexpr int kKinds = 4;

struct Point {
    std::string name;             // upper case, code page 1252
    std::array<double, 3> given;  // X, Y, Z as given; 0 without
    bool hasGiven = false;        // coordinates stand in the file
    bool isFixed = false;         // named under "Fixed Coordinates"
    bool inStationList = false;   // named under "Theodolite Stations"
    int line = 0;  // 1-based line of the row that gave the coordinates, else of the first mention
};

struct Observation {
    Kind kind;
    int from;      // index of the occupied point, or the first point of a height difference
    int to;        // index of the sighted point
    double value;  // gons or meters
    double sigma;  // standard error a priori, > 0, in the unit of the value
    int line;      // 1-based line of the input file
    bool isTracker = false;
};

struct Network {
    std::string project, task, date;  // the values of the header lines, as they stand
    std::vector<Point> points;
    std::vector<Observation> observations;
    std::vector<std::pair<int, int>> relativePairs;
    std::vector<std::string>
        notes;                     // whole sentences for the listing: what was taken otherwise than expected
    int zenithsNotObserved = 0;    // angle rows with zenith angle 0.00000
    int distancesNotObserved = 0;  // distance rows with distance 0.00000
    int trackerDistances = 0;
};

}  // namespace Krenn
