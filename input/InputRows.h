// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "input/ObservationModel.h"

// The rows of the adjustment's input file (.INP) and of its master (.ORG). A field stands at a column counted
// from 1; a name that has passed the next column breaks the row, which goes on at that column of the next
// line. Numbers have 5 decimals and are right-justified in a width that never cuts. A row may hold several
// lines, joined by CR LF, without a line end behind the last. Angles in gons, distances and coordinates in
// meters.
namespace Dorvane {

/// The name at column 1, X, Y and Z at 10, 25 and 40; or, for a point without coordinates, the name and an
/// empty line behind it. Coordinates are followed by the line of their fixed standard errors.
std::string InpCoordinates(const std::string& name, double x, double y, double z);
std::string InpName(const std::string& name);

/// Distance rows: station 1, target 11, distance 21, its error 34, and for a tracker the mark "   T".
std::string InpDistance(const TotalObs& observation);
std::string InpDistance(const TrackerObs& observation);
std::string InpDistance(const DistanceObs& observation);

/// Height row: from 1, to 11, height difference 20, its error 35.
std::string InpHeight(const HeightObs& observation);

/// Angle rows: station 1, target 11, horizontal angle 21, zenith angle 32, their errors 42 and 49.
std::string InpAngles(const TotalObs& observation);
std::string InpAngles(const TrackerObs& observation);
std::string InpAngles(const AngleObs& observation);

/// Rows of the master: a tag ("STA" or "PTS" for coordinates) at column 1 and the fields from column 5.
std::string OrgCoordinates(const std::string& tag, const std::string& name, double x, double y, double z);
std::string OrgName(const std::string& tag, const std::string& name);
std::string OrgRow(const TotalObs& observation);
std::string OrgRow(const TrackerObs& observation);
std::string OrgRow(const DistanceObs& observation);
std::string OrgRow(const HeightObs& observation);
std::string OrgRow(const AngleObs& observation);

}  // namespace Dorvane
