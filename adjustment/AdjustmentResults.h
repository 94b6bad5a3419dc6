// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "core/List1.h"

namespace Dorvane {

/// One adjusted station or object point. Coordinates and standard deviations in meters; a number is 0 until
/// set.
struct AdjustedPoint {
    std::string Name;            // upper case
    double X = 0, Y = 0, Z = 0;  // adjusted coordinates
    double Rot1 = 0;             // the three values above a station's coordinates; 0 for a point
    double Rot2 = 0;
    double Rot3 = 0;
    double SX = 0, SY = 0, SZ = 0;  // standard deviations; heights alone set SZ only
    double ErrorAngle = 0;          // error ellipse: its angle in gons and its two half axes
    double ErrorMajor = 0;
    double ErrorMinor = 0;

    bool operator==(const AdjustedPoint&) const = default;
};

/// The two ends of one observation of a residual table, upper case.
struct ObservationPair {
    std::string Station;
    std::string Target;

    bool operator==(const ObservationPair&) const = default;
};

/// What is read from one listing of the adjustment package. Each list is in the listing's order.
struct AdjustmentResults {
    List1<AdjustedPoint> Stations;
    List1<AdjustedPoint> Points;
    List1<ObservationPair> HorizontalDirections;
    List1<ObservationPair> VerticalDirections;
    List1<ObservationPair> DistanceResiduals;
    List1<ObservationPair> HeightDifferences;

    bool operator==(const AdjustmentResults&) const = default;
};

}  // namespace Dorvane
